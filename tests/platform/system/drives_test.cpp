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

TEST(CanWriteFolder, OnlyAFolderThatTakesAFile) {
    QTemporaryDir root;
    QFile(root.filePath("file")).open(QIODevice::WriteOnly);
    const struct { QString folder; bool want; } cases[] = {
        {root.path(), true}, {root.filePath("gone"), false}, {root.filePath("file"), false}, {"/proc", false},
    };
    for (const auto& c : cases) EXPECT_EQ(sys::CanWriteFolder(c.folder), c.want) << c.folder.toStdString();
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"file"});   // no probe left
}
