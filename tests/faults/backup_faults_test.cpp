// Backup and restore under faults: the program killed inside Add before either, and a full drive.
#include "faults.h"
#include "housekeeping/frm_back_up_restore.h"
#include "platform/system/drives.h"

namespace {

using Boxes = std::vector<forms::RecordedBox>;
const QString kTitle = QStringLiteral("           Successfully      ");

struct OneDrive : sys::DriveLister {
    QString root;
    QStringList LogicalDriveStrings() override { return {root}; }
};

// BackUp or Restore pressed in a fresh opening of the window, with the backup folder on `drive`.
Boxes press(const QString& program, const QString& drive, bool backUp) {
    basic::SetAppPath(program);
    OneDrive lister;
    lister.root = drive + "/";
    sys::DriveLister* before = sys::setDriveLister(&lister);
    forms::MsgBoxRecorder boxes;
    {
        housekeeping::frmBackUpRestore w;
        w.show();
        QTest::mouseClick(backUp ? w.Command7 : w.Command6, Qt::LeftButton);
    }
    sys::setDriveLister(before);
    return boxes.boxes();
}

QByteArray bytes(const QString& file) {
    QFile f(file);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The child killed inside an Add once pages it never committed have reached the file: the file holds
// a month that was never saved, and the journal to take it out again lies beside it.
void killInsideAdd(const QString& program) {
    const QString file = program + "/nwForm10DB.mdb";
    const QByteArray before = bytes(file);
    const auto changedPages = [&] {
        const QByteArray now = bytes(file);
        int changed = 0;
        for (qsizetype at = 0; at < now.size(); at += 4096) changed += now.mid(at, 4096) != before.mid(at, 4096);
        return changed;
    };
    Child child({"add", program, "1500", "1", "spill"});
    ASSERT_TRUE(child.waitFor("adding 1"));
    while (changedPages() < 8 && child.p.state() == QProcess::Running) QThread::msleep(1);
    child.kill();
    ASSERT_FALSE(child.out.contains("added 1"));
    ASSERT_GT(QFileInfo(file + "-journal").size(), 0);
}

// A backup taken after such a kill holds the last committed months; a restore after another such kill
// brings the backed-up months back whole, with no journal left to be played into them.
TEST(BackupFaults, KillInsideAddThenBackupAndRestore) {
    QTemporaryDir root;
    const QString program = root.filePath("program"), drive = root.filePath("d");
    QDir().mkpath(program);
    QDir().mkpath(drive + "/Vorlan1BackUp");
    returns::CreateReturnStores(program);
    const QString file = program + "/nwForm10DB.mdb", saved = drive + "/Vorlan1BackUp/nwForm10DB.mdb";
    const QString months = "SELECT cMonth, count(*) FROM tblPurchase1 GROUP BY cMonth ORDER BY cMonth";
    query(file, "INSERT INTO tblPurchase1 (cMonth, Party, Amount) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT "
                "i + 1 FROM n WHERE i < 1500) SELECT CASE i WHEN 1 THEN 'January' WHEN 2 THEN 'February' ELSE 'March' END, "
                "'stored ' || i || ' ' || hex(randomblob(48)), i FROM n");
    const QStringList committed = {"February|1", "January|1", "March|1498"};

    ASSERT_NO_FATAL_FAILURE(killInsideAdd(program));
    EXPECT_EQ(press(program, drive, true), (Boxes{{" File  is Backed Up", 64, kTitle}}));
    EXPECT_EQ(store::CheckDatabaseFile(saved), "ok");
    EXPECT_EQ(query(saved, months), committed);

    query(file, "INSERT INTO tblPurchase1 (cMonth) VALUES ('April')");
    ASSERT_NO_FATAL_FAILURE(killInsideAdd(program));
    ASSERT_TRUE(QFile::copy(program + "/Form10Data.mdb", drive + "/Vorlan1BackUp/Form10Data.mdb"));
    EXPECT_EQ(press(program, drive, false), (Boxes{{"File is   Restored    ", 64, kTitle}}));
    EXPECT_FALSE(QFileInfo::exists(file + "-journal"));
    EXPECT_EQ(store::CheckDatabaseFile(file), "ok");
    EXPECT_EQ(query(file, months), committed);
}

// A backup onto a full drive, or a restore into a full program folder, says the drive is full and
// names the file; that file stays as it was, with nothing beside it.
TEST(BackupFaults, FullDriveSaysSoAndNamesTheFile) {
    for (const bool backUp : {true, false}) {
        SmallDisk disk;
        QTemporaryDir other;
        const QString program = backUp ? other.path() : disk.path(), drive = backUp ? disk.path() : other.path();
        QDir(drive).mkdir("Vorlan1BackUp");
        returns::CreateReturnStores(program);
        for (const char* f : {"TAXDATA.mdb", "nwForm10DB.mdb", "Form10Data.mdb"})
            store::CopyDatabaseFile(program + "/" + f, drive + "/Vorlan1BackUp/" + f);
        const QString from = program + "/nwForm10DB.mdb", to = drive + "/Vorlan1BackUp/nwForm10DB.mdb";
        query(backUp ? from : to, "INSERT INTO tblSales (cMonth) VALUES ('March')");
        disk.fill(32 * 1024);   // room for the empty TAXDATA.mdb, not for the return file
        const Boxes boxes = press(program, drive, backUp);
        disk.empty();
        const QString target = backUp ? to : from;
        EXPECT_TRUE(boxes.at(0).text.startsWith("The drive is full: " + target + " could not be written.\n"))
            << boxes.at(0).text.toStdString();
        EXPECT_EQ(query(target, "SELECT count(*) FROM tblSales"), QStringList{"0"});
        EXPECT_FALSE(QFileInfo::exists(target + ".new"));
    }
}

}  // namespace
