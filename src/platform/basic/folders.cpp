#include "platform/basic/folders.h"

#include "platform/basic/app_path.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace basic {

Folders ChooseFolders(const QString& executableFolder, const QStringList& shippedFiles,
                      const QString& userDataLocation, bool besideWritable) {
    const QDir beside(executableFolder);
    // Any one of them marks the folder: a file missing from it is then named where the user put the rest,
    // not looked for in a folder the user never chose.
    bool holdsShipped = false;
    for (const QString& file : shippedFiles) holdsShipped = holdsShipped || beside.exists(file);
    if (holdsShipped && besideWritable) return {executableFolder, executableFolder};
    const QString program = holdsShipped ? executableFolder : QDir::cleanPath(beside.filePath("../share/vorlan"));
    return {program, userDataLocation};
}

Folders UseFolders(const QStringList& shippedFiles) {
    const QString executable = ExecutableFolder();
    const Folders folders = ChooseFolders(executable, shippedFiles,
                                          QStandardPaths::writableLocation(QStandardPaths::AppDataLocation),
                                          QFileInfo(executable).isWritable());
    // A folder that cannot be made shows itself when the return files cannot be made in it.
    if (folders.user != folders.program) QDir().mkpath(folders.user);
    SetFolders(folders.program, folders.user);
    return folders;
}

QString ExecutableFolder() {
    return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path();
}

}  // namespace basic
