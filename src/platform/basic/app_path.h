#pragma once
// App.Path: the program folder, where the databases, templates and reference files lie.
#include <QString>

namespace basic {

// The folder set by SetAppPath, else the folder of the running executable. No trailing separator.
QString AppPath();
void SetAppPath(const QString& folder);  // the program at start, and tests with their own folder

// A path as the system writes it, with "\\" between folders, in the machine's own form.
QString NativePath(const QString& systemPath);

}  // namespace basic
