#pragma once
// The desktop's plain text editor, started for the user on its own: the first of the usual editors
// found on PATH. The program neither keeps nor watches its process.
#include <QString>
#include <QStringList>
#include <functional>

namespace sys {

// A program's full path, or the empty text when it is not to be found.
using ProgramLookup = std::function<QString(const QString& program)>;

// The editors in the order they are preferred.
const QStringList& textEditors();

// The PATH lookup of the running system.
QString findOnPath(const QString& program);

// Whether the lookup finds any of them.
bool hasTextEditor(const ProgramLookup& lookup = findOnPath);

// The full path of the first editor the lookup finds; none raises 53 "File not found".
QString chooseTextEditor(const ProgramLookup& lookup = findOnPath);

// Starts the chosen editor detached; none found, or one that fails to start, raises 53.
void startTextEditor(const ProgramLookup& lookup = findOnPath);

}  // namespace sys
