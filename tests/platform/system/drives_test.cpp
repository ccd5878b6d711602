// The drives offered for a backup, and the test that a drive can be written.
#include "platform/system/drives.h"
#include "support/case_name.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

// The drives a backup may go to: the home folder, then the removable drives under the media folders, then
// the other writable mounts, each once. Folders are named under a temporary root: "media" for
// <root>/media/u, "runMedia" for <root>/run/media/u, "nobody" for <root>/media/nobody.
struct DrivesCase {
    const char* name;
    QStringList parents, mounts;
    QStringList want;   // after home
};

const DrivesCase kDrives[] = {
    {"HomeAlone", {}, {}, {}},
    {"RemovableDrivesByName", {"media", "runMedia"}, {}, {"media/CARD/", "media/STICK/", "runMedia/DISK/"}},
    {"WritableMountWithoutMediaFolder", {"nobody"}, {"/mnt/data"}, {"/mnt/data/"}},
    {"EachDriveOnce", {"media"}, {"/home/u", "media/STICK", "/mnt/data/", "/mnt/data"}, {"media/CARD/", "media/STICK/", "/mnt/data/"}},
};

class BackupDrives : public ::testing::TestWithParam<DrivesCase> {};

TEST_P(BackupDrives, HomeThenRemovableDrivesThenWritableMountsEachOnce) {
    QTemporaryDir root;
    const QString media = root.filePath("media/u"), runMedia = root.filePath("run/media/u");
    for (const char* d : {"media/u/STICK", "media/u/CARD", "run/media/u/DISK"}) QDir().mkpath(root.filePath(d));
    QFile(media + "/notes.txt").open(QIODevice::WriteOnly);   // a file there is no drive
    const auto placed = [&](QStringList paths) {
        for (QString& p : paths) {
            if (p.startsWith("media")) p.replace(0, 5, media);
            else if (p.startsWith("runMedia")) p.replace(0, 8, runMedia);
            else if (p == "nobody") p = root.filePath("media/nobody");
        }
        return paths;
    };
    const DrivesCase& c = GetParam();
    EXPECT_EQ(sys::backupDriveRoots("/home/u", placed(c.parents), placed(c.mounts)), QStringList{"/home/u/"} + placed(c.want));
}

INSTANTIATE_TEST_SUITE_P(Drives, BackupDrives, ::testing::ValuesIn(kDrives), CaseName());

// Only a folder that takes a file can be written; the test leaves nothing behind.
enum class Place { Folder, Gone, File, Proc };
struct WriteCase { const char* name; Place place; bool want; };

const WriteCase kWrites[] = {
    {"WritableFolder", Place::Folder, true}, {"MissingFolder", Place::Gone, false},
    {"AFileNotAFolder", Place::File, false}, {"ReadOnlySystemFolder", Place::Proc, false},
};

class CanWriteFolder : public ::testing::TestWithParam<WriteCase> {};

TEST_P(CanWriteFolder, OnlyAFolderThatTakesAFile) {
    QTemporaryDir root;
    QFile(root.filePath("file")).open(QIODevice::WriteOnly);
    const QString folder[] = {root.path(), root.filePath("gone"), root.filePath("file"), "/proc"};
    EXPECT_EQ(sys::CanWriteFolder(folder[int(GetParam().place)]), GetParam().want);
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"file"});   // no probe left
}

INSTANTIATE_TEST_SUITE_P(Folders, CanWriteFolder, ::testing::ValuesIn(kWrites), CaseName());
