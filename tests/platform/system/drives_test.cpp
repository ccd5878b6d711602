// The drives offered for a backup, and the test that a drive can be written.
#include "platform/system/drives.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(BackupDrives, HomeThenRemovableDrivesThenWritableMountsEachOnce) {
    QTemporaryDir root;
    const QString media = root.filePath("media/u"), runMedia = root.filePath("run/media/u");
    for (const char* d : {"media/u/STICK", "media/u/CARD", "run/media/u/DISK"}) QDir().mkpath(root.filePath(d));
    QFile(media + "/notes.txt").open(QIODevice::WriteOnly);   // a file there is no drive
    const struct {
        QStringList parents, mounts;
        QStringList want;   // after home
    } cases[] = {
        {{}, {}, {}},
        {{media, runMedia}, {}, {media + "/CARD/", media + "/STICK/", runMedia + "/DISK/"}},
        {{root.filePath("media/nobody")}, {"/mnt/data"}, {"/mnt/data/"}},
        {{media}, {"/home/u", media + "/STICK", "/mnt/data/", "/mnt/data"},
         {media + "/CARD/", media + "/STICK/", "/mnt/data/"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(sys::backupDriveRoots("/home/u", c.parents, c.mounts), QStringList{"/home/u/"} + c.want)
            << c.mounts.join(',').toStdString();
}

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

INSTANTIATE_TEST_SUITE_P(Folders, CanWriteFolder, ::testing::ValuesIn(kWrites),
                         [](const auto& info) { return std::string(info.param.name); });
