#pragma once
// The drives a user may pick for a copy of the data. On Linux a "drive" is the mount point of a real
// file system, written with a trailing "/" as a drive root is written with its "\". Behind an interface,
// so that tests list folders of their own.
#include <QStringList>

namespace sys {

class DriveLister {
public:
    virtual ~DriveLister() = default;
    // The drive roots in the machine's order, each ending in "/".
    virtual QStringList LogicalDriveStrings() = 0;
};

// Installs the lister used from now on (nullptr: the machine's own again) and returns the one it
// replaces. The caller keeps ownership.
DriveLister* setDriveLister(DriveLister* lister);

// Through the installed lister.
QStringList LogicalDriveStrings();

// The machine's own list: mount points of file systems on a block device or a network share, once each.
QStringList mountedDriveRoots();

}  // namespace sys
