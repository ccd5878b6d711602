// frmBackUpRestore: the drive list, where the backup goes, what comes back, and the boxes on the way.
#include "housekeeping/frm_back_up_restore.h"

#include "platform/basic/app_path.h"
#include "platform/forms/msgbox.h"
#include "platform/system/drives.h"
#include "returns/module2.h"
#include "returns/return_schema.h"
#include "support/printers.h"
#include "support/screens.h"
#include "support/sqlite_rows.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using housekeeping::frmBackUpRestore;
using Boxes = std::vector<forms::RecordedBox>;

namespace {

const QString kTitle = QStringLiteral("           Successfully      ");
const forms::RecordedBox kNotFound{"File not found", 16, "Error"};

struct FolderDrives : sys::DriveLister {
    QStringList roots;
    QStringList LogicalDriveStrings() override { return roots; }
};

// A database file holding one marker text: the files are databases, copied by the database, so they are
// told apart by what they hold.
void writeMarked(const QString& path, const QString& marker) {
    QDir().mkpath(QFileInfo(path).path());
    QFile::remove(path);
    query(path, "CREATE TABLE m (v TEXT)");
    query(path, "INSERT INTO m VALUES ('" + marker + "')");
}

class BackUpRestore : public ::testing::Test {
protected:
    void SetUp() override {
        program = root.filePath("program");
        user = root.filePath("user");
        for (const char* d : {"program", "user", "c", "d", "e"}) QDir(root.path()).mkdir(d);
        basic::SetFolders(program, user);   // the return files lie in the user's folder
        returns::CreateReturnStores(user);
        for (const char* d : {"c", "d", "e"}) drives.roots << root.filePath(d) + "/";
        before = sys::setDriveLister(&drives);
    }
    void TearDown() override {
        sys::setDriveLister(before);
        returns::ReleaseReturnStores();
        returns::rsLookup = returns::rsBills = returns::rsReport = store::Recordset::nothing();
    }
    QString backup(const char* drive, const char* file = "") const {
        return root.filePath(QString(drive) + "/Vorlan1BackUp/" + file);
    }
    QString inUser(const char* file) const { return user + "/" + file; }

    QTemporaryDir root;
    QString program, user;
    FolderDrives drives;
    sys::DriveLister* before = nullptr;
    forms::MsgBoxRecorder boxes;
};

// Opening takes the last drive holding the backup folder and locks the choice to it; each opening adds
// the drives to the list once more, and each loading lets go of the return store.
TEST_F(BackUpRestore, OpeningFindsTheBackupDrive) {
    // found: an index into the drives, -1 for none.
    const struct { std::vector<const char*> withFolder; int found; } cases[] = {{{}, -1}, {{"d"}, 1}, {{"c", "e"}, 2}};
    for (const auto& c : cases) {
        for (const char* d : c.withFolder) QDir().mkpath(backup(d));
        const QString found = c.found < 0 ? QString() : drives.roots[c.found];
        frmBackUpRestore w;
        for (int opening = 1; opening <= 2; ++opening) {
            returns::ConnectReturnStore();
            w.show();
            EXPECT_EQ(returns::cnReturn.State(), 0);
            EXPECT_EQ(w.backupDrive, found);
            EXPECT_EQ(w.Label2->text(), c.found < 0 ? "Select  Path" : "BackUp  Path ");
            EXPECT_EQ(w.cboDrive->isEnabled(), c.found < 0);
            EXPECT_EQ(w.cboDrive->currentText(), c.found < 0 ? drives.roots[0] : found);
            EXPECT_EQ(w.fnBackUpExists(w.cboDrive), c.found < 0 ? "NIL" : found);
            ASSERT_EQ(w.cboDrive->count(), 3 * opening);
            for (int i = 0; i < 3 * opening; ++i) EXPECT_EQ(w.cboDrive->itemText(i), drives.roots[i % 3]);
            QTest::mouseClick(w.Image1, Qt::LeftButton);
            EXPECT_FALSE(w.isVisible());
        }
        for (const char* d : c.withFolder) QDir(backup(d)).removeRecursively();
    }
}

// A backup to a chosen drive, a month changed, a restore: the month is back, and the restore stops at
// Form10Data.mdb, which no backup holds.
TEST_F(BackUpRestore, RoundTripBringsBackAChangedMonth) {
    frmBackUpRestore w;
    w.show();
    w.cboDrive->setCurrentIndex(1);
    emit w.cboDrive->activated(1);
    QTest::mouseClick(w.Command7, Qt::LeftButton);
    EXPECT_EQ(QDir(backup("d")).entryList(QDir::Files), QStringList({"nwForm10DB.mdb", "TAXDATA.mdb"}));
    // A second press in the same opening cannot make the folder again, and nothing catches that.
    QTest::mouseClick(w.Command7, Qt::LeftButton);

    returns::ConnectReturnStore();
    store::Connection held = returns::cnReturn;   // a connection the program holds on to
    held.Execute("INSERT INTO tblSales (cMonth) VALUES ('March')");
    const auto months = [&held] {
        store::Recordset rs;
        rs.Open("SELECT count(*) FROM tblSales", held);
        return basic::CStr(rs.Fields(0).Value());
    };
    ASSERT_EQ(months(), "1");
    QTest::mouseClick(w.Image1, Qt::LeftButton);
    w.show();   // finds the backup made in the last opening
    QTest::mouseClick(w.Command6, Qt::LeftButton);
    EXPECT_EQ(months(), "0");
    EXPECT_TRUE(w.grab().save(screen("frmBackUpRestore.png")));
    const Boxes expected{{" File  is Backed Up", 64, kTitle},
                         {"Run-time error '58':\n\nFile already exists", 16, "Vorlan"},
                         kNotFound};
    EXPECT_EQ(boxes.boxes(), expected);
}

// The restore copies in its order and stops at the first file it cannot copy; what came back stays.
TEST_F(BackUpRestore, RestoreStopsAtTheMissingFile) {
    const char* files[] = {"TAXDATA.mdb", "nwForm10DB.mdb", "Form10Data.mdb"};
    // inBackup: the first so many files are in the backup.
    const struct { int inBackup, restored; forms::RecordedBox box; } cases[] = {
        {2, 2, kNotFound}, {3, 3, {"File is   Restored    ", 64, kTitle}}, {0, 0, kNotFound}};
    for (const auto& c : cases) {
        for (const char* f : files) writeMarked(inUser(f), QStringLiteral("now ") + f);
        for (int i = 0; i < c.inBackup; ++i) writeMarked(backup("e", files[i]), QStringLiteral("saved ") + files[i]);
        frmBackUpRestore w;
        w.show();
        boxes.clear();
        QTest::mouseClick(w.Command6, Qt::LeftButton);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(query(inUser(files[i]), "SELECT v FROM m"), QStringList{(i < c.restored ? "saved " : "now ") + QString(files[i])});
        EXPECT_EQ(boxes.boxes(), Boxes{c.box});
        QDir(backup("e")).removeRecursively();
    }
}

// A drive that cannot be written, here one pulled out after the list was made, is named in a box
// before any folder is made or file copied.
TEST_F(BackUpRestore, DriveThatCannotBeWrittenIsNamedFirst) {
    for (bool chosen : {true, false}) {
        if (!chosen) QDir().mkpath(backup("e"));
        frmBackUpRestore w;
        w.show();
        if (chosen) w.selectedDrive = root.filePath("gone/");
        else QDir(backup("e")).removeRecursively();
        const QString target = chosen ? root.filePath("gone") : backup("e").chopped(1);
        boxes.clear();
        QTest::mouseClick(w.Command7, Qt::LeftButton);
        ASSERT_EQ(boxes.boxes().size(), 1u);
        EXPECT_TRUE(boxes.boxes()[0].text.startsWith("Vorlan cannot write to " + target + "\n"));
        EXPECT_EQ(boxes.boxes()[0].style, forms::vbExclamation);
        EXPECT_FALSE(QFileInfo::exists(target));
    }
}

// The label shows for three ticks and hides for one; a button is yellow while it has the focus.
TEST_F(BackUpRestore, BlinkAndFocusColours) {
    frmBackUpRestore w;
    w.show();
    w.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&w));
    for (bool shown : {true, true, true, false, true, true, true, false}) {
        w.Timer1_Timer();
        EXPECT_EQ(w.Label2->isVisible(), shown);
        EXPECT_EQ(frmBackUpRestore::ForeColor(w.Label2), shown ? 16777215 : 8388608);
    }
    w.cboDrive->setFocus();
    QTest::keyClick(w.cboDrive->lineEdit(), Qt::Key_Return);
    EXPECT_TRUE(w.Command7->hasFocus());
    EXPECT_EQ(frmBackUpRestore::BackColor(w.Command7), 65535);
    w.Command6->setFocus();
    EXPECT_EQ(frmBackUpRestore::BackColor(w.Command7), 65280);
    EXPECT_EQ(frmBackUpRestore::BackColor(w.Command6), 65535);
}

}  // namespace
