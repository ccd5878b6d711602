#pragma once
// Which folder a file of the system lies in. What ships with the program (library files, register
// templates, reference documents) is read from the program's data folder, <prefix>/share/vorlan beside
// <prefix>/bin; what the user makes (the return files and their backups) is kept in the user's data
// folder. A program whose own folder holds any of the shipped files keeps them there, and when that folder
// is writable too, the user's files stay beside them: a build folder works as it always has.
#include <QString>
#include <QStringList>

namespace basic {

struct Folders {
    QString program;   // shipped files, read only
    QString user;      // the user's files
    bool operator==(const Folders&) const = default;
};

// The rule itself. shippedFiles are the names of files, any of which marks a folder holding what ships;
// userDataLocation is the desktop's data folder for this program.
Folders ChooseFolders(const QString& executableFolder, const QStringList& shippedFiles,
                      const QString& userDataLocation, bool besideWritable);

// At start, before the application object exists: the rule applied to the running program and to
// QStandardPaths::AppDataLocation. Makes the user's folder when it is missing and sets AppPath and
// UserPath. The application name must be set first.
Folders UseFolders(const QStringList& shippedFiles);

// The folder of the running executable, read without an application object.
QString ExecutableFolder();

}  // namespace basic
