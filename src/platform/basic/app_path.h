#pragma once
// App.Path: the program folder, where the databases, templates and reference files lie; and beside it
// the user's folder, which the program takes for its current folder and where the user's own files lie.
#include <QString>

namespace basic {

// The folder set by SetAppPath or SetFolders, else the folder of the running executable. No trailing
// separator.
QString AppPath();
void SetAppPath(const QString& folder);  // one folder for both: tests with their own folder

// The folder of the user's files; AppPath() until SetFolders gives it one of its own.
QString UserPath();
void SetFolders(const QString& program, const QString& user);

// CurDir: the program's current folder, where a file named without a folder lies. It is the user's
// folder until ChDir points it elsewhere; SetAppPath and SetFolders bring it back to the user's folder.
QString CurDir();
void ChDir(const QString& folder);

// A path as the system writes it, with "\\" between folders, in the machine's own form.
QString NativePath(const QString& systemPath);

}  // namespace basic
