#include "platform/system/drives.h"

#include <QStorageInfo>

namespace sys {

namespace {

bool isRealFileSystem(const QStorageInfo& volume) {
    if (!volume.isValid() || !volume.isReady()) return false;
    if (volume.device().startsWith("/dev/")) return true;
    static const QByteArrayList network{"nfs", "nfs4", "cifs", "smb3", "smbfs", "fuse.sshfs", "9p"};
    return network.contains(volume.fileSystemType());
}

class MachineDrives : public DriveLister {
public:
    QStringList LogicalDriveStrings() override { return mountedDriveRoots(); }
};

MachineDrives machine;
DriveLister* installed = &machine;

}  // namespace

QStringList mountedDriveRoots() {
    QStringList roots;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (!isRealFileSystem(volume)) continue;
        QString root = volume.rootPath();
        if (!root.endsWith('/')) root += '/';
        // A file system mounted at two places, or twice at one, is one drive.
        if (!roots.contains(root)) roots << root;
    }
    return roots;
}

DriveLister* setDriveLister(DriveLister* lister) {
    DriveLister* before = installed;
    installed = lister ? lister : &machine;
    return before;
}

QStringList LogicalDriveStrings() { return installed->LogicalDriveStrings(); }

}  // namespace sys
