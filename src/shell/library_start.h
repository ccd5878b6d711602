#pragma once
// What the start says when the library cannot be opened: every library file that cannot be opened, by
// its name, and the folder it was looked for in.
#include <QString>

namespace shell {

// The box's text for a program folder whose library InitLibraryStore could not open; `error` is what
// InitLibraryStore raised. Each file is opened again to learn which of them fail.
QString LibraryStartFault(const QString& programFolder, const QString& error);

}  // namespace shell
