#include "platform/system/drives.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryFile>

#include <pwd.h>
#include <unistd.h>

namespace sys {

namespace {

bool isRealFileSystem(const QStorageInfo& volume) {
    if (!volume.isValid() || !volume.isReady()) return false;
    if (volume.device().startsWith("/dev/")) return true;
    static const QByteArrayList network{"nfs", "nfs4", "cifs", "smb3", "smbfs", "fuse.sshfs", "9p"};
    return network.contains(volume.fileSystemType());
}

QString asRoot(QString folder) {
    if (!folder.endsWith('/')) folder += '/';
    return folder;
}

QString userName() {
    const passwd* user = getpwuid(geteuid());
    return user ? QString::fromLocal8Bit(user->pw_name) : qEnvironmentVariable("USER");
}

class MachineDrives : public DriveLister {
public:
    QStringList LogicalDriveStrings() override { return backupDriveRoots(); }
};

MachineDrives machine;
DriveLister* installed = &machine;

}  // namespace

QStringList backupDriveRoots(const QString& home, const QStringList& removableParents,
                             const QStringList& writableMounts) {
    QStringList roots{asRoot(home)};
    auto add = [&roots](const QString& folder) {
        const QString root = asRoot(folder);
        if (!roots.contains(root)) roots << root;
    };
    for (const QString& parent : removableParents) {
        const QDir dir(parent);
        for (const QString& drive : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) add(dir.filePath(drive));
    }
    for (const QString& mount : writableMounts) add(mount);
    return roots;
}

QStringList backupDriveRoots() {
    const QString user = userName();
    QStringList writable;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        if (isRealFileSystem(volume) && !volume.isReadOnly() && QFileInfo(volume.rootPath()).isWritable())
            writable << volume.rootPath();
    return backupDriveRoots(QDir::homePath(), {"/media/" + user, "/run/media/" + user}, writable);
}

bool CanWriteFolder(const QString& folder) {
    if (!QFileInfo(folder).isDir()) return false;
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral(".vorlan-probe-XXXXXX")));
    return probe.open();
}

DriveLister* setDriveLister(DriveLister* lister) {
    DriveLister* before = installed;
    installed = lister ? lister : &machine;
    return before;
}

QStringList LogicalDriveStrings() { return installed->LogicalDriveStrings(); }

}  // namespace sys
