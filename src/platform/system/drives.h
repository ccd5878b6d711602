#pragma once
// The drives a user may pick for a copy of the data, each written with a trailing "/" as a drive root is
// written with its "\": the home folder; the drives under /media/<user>/ and /run/media/<user>/, where
// the desktop mounts a USB stick; then the other mounted file systems the user can write. Behind an
// interface, so that tests list folders of their own.
#include <QStringList>

namespace sys {

class DriveLister {
public:
    virtual ~DriveLister() = default;
    // The drive roots in the list's order, each ending in "/".
    virtual QStringList LogicalDriveStrings() = 0;
};

// Installs the lister used from now on (nullptr: the machine's own again) and returns the one it
// replaces. The caller keeps ownership.
DriveLister* setDriveLister(DriveLister* lister);

// Through the installed lister.
QStringList LogicalDriveStrings();

// The machine's own list for the user running the program.
QStringList backupDriveRoots();

// The rule behind it: home first, then each folder in the removable parents by name, then the
// writable mounts; each once.
QStringList backupDriveRoots(const QString& home, const QStringList& removableParents,
                             const QStringList& writableMounts);

// True when a file can be made in the folder now: the one sure test of a drive mounted read-only,
// full of another user's files, or gone.
bool CanWriteFolder(const QString& folder);

}  // namespace sys
