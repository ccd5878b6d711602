// The first start in a folder the program may not write or on a full disk, and the start after it.
#include "faults.h"

#include <QStandardPaths>

namespace {

QStringList entries(const QString& folder) { return QDir(folder).entryList(QDir::Files | QDir::Hidden); }

// A read-only share stops even root; a folder of another user stops all but root, so that start runs
// as the user nobody.
TEST(FirstStart, FolderThatMayNotBeWrittenGetsABoxAndNothingElse) {
    for (const bool share : {true, false}) {
        SmallDisk disk(share ? MS_RDONLY : 0);
        const bool root = ::geteuid() == 0;
        if (share ? !disk.mounted : root && QStandardPaths::findExecutable("setpriv").isEmpty()) {
            std::printf("[ SKIPPED  ] %s\n", share ? "read-only share: may not mount one" : "folder of another user: root without setpriv");
            continue;
        }
        ::chmod(QFile::encodeName(disk.path()).constData(), 0555);
        int code = 0;
        QString says;
        if (share) {
            forms::MsgBoxRecorder boxes;
            code = returns::ReturnStoresReady(disk.path()) ? 0 : 1;
            says = boxes.boxes().at(0).text;
        } else {
            Child start({"start", disk.path()}, root);
            code = start.finish();
            says = start.out;
        }
        EXPECT_EQ(code, 1) << share;
        EXPECT_TRUE(says.contains("return files in the folder\n" + disk.path() + "\n\nVorlan may not write in this folder"))
            << says.toStdString();
        EXPECT_EQ(entries(disk.path()), QStringList());
    }
}

// A full disk stops the first start with a box and no file; with room again the month is stored.
TEST(FirstStart, FullDiskLeavesNothingAndTheNextStartIsWhole) {
    SmallDisk disk;
    disk.fill();
    forms::MsgBoxRecorder boxes;
    EXPECT_FALSE(returns::ReturnStoresReady(disk.path()));
    EXPECT_TRUE(boxes.boxes().at(0).text.contains("\n\nThe disk is full.\n\nFree some space"));
    EXPECT_EQ(entries(disk.path()), disk.mounted ? QStringList{"filler"} : QStringList());
    disk.empty();
    EXPECT_TRUE(returns::ReturnStoresReady(disk.path()));
    Window win(disk.path());
    win.put({"First party"});
    EXPECT_EQ(win.add(), "RECORD ADDED  SUCCESSFULLY");
}

// What a stopped or older program left, an empty file or one without a table, is completed at the
// start and keeps what it holds.
TEST(FirstStart, FileThatLacksTablesIsCompleted) {
    for (const QString drop : {"", "tblRptPurchaseC"}) {
        QTemporaryDir dir;
        const QString file = dir.filePath("nwForm10DB.mdb");
        QFile(file).open(QIODevice::WriteOnly);
        if (!drop.isEmpty()) {
            QFile::remove(file);
            returns::CreateReturnStores(dir.path());
            query(file, "DROP TABLE " + drop);
            query(file, "INSERT INTO tblSales (cMonth) VALUES ('February')");
        }
        EXPECT_TRUE(returns::ReturnStoresReady(dir.path()));
        Window win(dir.path());
        win.put({"Party"});
        EXPECT_EQ(win.add(), "RECORD ADDED  SUCCESSFULLY") << drop.toStdString();
        EXPECT_EQ(query(file, "SELECT count(*) FROM tblSales WHERE cMonth = 'February'"), QStringList{drop.isEmpty() ? "0" : "1"});
    }
}

}  // namespace
