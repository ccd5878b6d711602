// Backup and restore of a whole practice: every book and the register to a stick and back, one dealer's
// books, a backup of the version before, and the open book's own files put back where they came from.
#include "housekeeping/frm_back_up_restore.h"

#include "platform/basic/app_path.h"
#include "platform/basic/settings.h"
#include "platform/forms/msgbox.h"
#include "platform/system/drives.h"
#include "returns/module2.h"
#include "returns/return_books.h"
#include "returns/return_schema.h"
#include "support/case_name.h"
#include "support/printers.h"
#include "support/sqlite_rows.h"

#include <QDirIterator>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>
#include <gtest/gtest.h>

using namespace returns;
using Boxes = std::vector<forms::RecordedBox>;

namespace {

const QString kTitle = QStringLiteral("           Successfully      ");
const forms::RecordedBox kBackedUp{" File  is Backed Up", 64, kTitle};
const forms::RecordedBox kRestored{"File is   Restored    ", 64, kTitle};
const forms::RecordedBox kNotFound{"File not found", 16, "Error"};

struct OneDrive : sys::DriveLister {
    QString root;
    QStringList LogicalDriveStrings() override { return {root}; }
};

const BookKey kBooks[] = {{"32071234567", 2024}, {"32071234567", 2025}, {"32089876543", 2025}, {"", 2025}};

// Every row of every table of a book's return file, as text.
QStringList rowsOf(const BookKey& key) {
    QStringList out;
    for (const ReturnTable& t : ReturnSchema())
        out << t.name + ": " + query(BookFolder(key) + "/nwForm10DB.mdb", "SELECT * FROM " + t.name + " ORDER BY rowid").join(";");
    return out;
}

void addRow(const BookKey& key, const QString& party) {
    query(BookFolder(key) + "/nwForm10DB.mdb",
          "INSERT INTO tblPurchase1 (SlNo, BillDate, Party, Amount, cMonth, cCode) VALUES ('1', '2026-01-02', '" + party +
              "', 10, 'January', '" + key.tin + "')");
}

class PracticeBackup : public ::testing::Test {
protected:
    void SetUp() override {
        QStandardPaths::setTestModeEnabled(true);
        basic::Settings().remove(QStringLiteral("returns"));
        user = root.filePath("user");
        drive.root = root.filePath("stick") + "/";
        QDir().mkpath(user);
        QDir().mkpath(drive.root + "Vorlan1BackUp");
        basic::SetFolders(root.filePath("program"), user);
        before = sys::setDriveLister(&drive);
        DealerRegister& reg = Register();
        reg.Add({"32071234567", "Malabar Agencies", "", "", "Kochi", "", ""});
        reg.Add({"32089876543", "Cochin Traders", "", "", "Thrissur", "", ""});
        for (const BookKey& k : kBooks) {
            MakeBook(reg, BookOf(reg, k));
            addRow(k, "Saved in " + BookName(BookOf(reg, k)));
        }
    }
    void TearDown() override {
        ResetRegister();
        returns::rsLookup = returns::rsBills = returns::rsReport = store::Recordset::nothing();
        sys::setDriveLister(before);
    }
    // BackUp or Restore pressed in a fresh opening of the window; the restore question answered.
    Boxes press(bool backUp, const QString& onlyTin = QString()) {
        forms::MsgBoxRecorder boxes;
        housekeeping::frmBackUpRestore w;
        w.askWhatToRestore = [&](const std::vector<std::pair<QString, QString>>& dealers) {
            asked = int(dealers.size());
            return std::optional<QString>(onlyTin);
        };
        w.show();
        QTest::mouseClick(backUp ? w.Command7 : w.Command6, Qt::LeftButton);
        return boxes.boxes();
    }
    std::map<QString, QStringList> snapshot() {
        std::map<QString, QStringList> s;
        for (const BookKey& k : kBooks) s[k.tin + QString::number(k.firstYear)] = rowsOf(k);
        return s;
    }

    QTemporaryDir root;
    QString user;
    OneDrive drive;
    sys::DriveLister* before = nullptr;
    int asked = -1;
};

struct RestoreCase {
    const char* name;
    QString onlyTin;       // the dealer restored; empty: all
    bool dataFolderGone;   // removed after the backup, else every book changed after it
    BookKey openAtRestore;
    Boxes restoreBoxes;
};
void PrintTo(const RestoreCase& c, std::ostream* os) { *os << c.name; }

class PracticeRestore : public PracticeBackup, public ::testing::WithParamInterface<RestoreCase> {};

// The backup is taken with Malabar's 2025-26 open: its files lie loose beside the books, and the restore
// puts them back into that book whatever book is open then, ending as it always has at Form10Data.mdb.
TEST_P(PracticeRestore, BringsBackTheBooksAsTheyWere) {
    const RestoreCase& c = GetParam();
    ASSERT_EQ(OpenBook(BookOf(Register(), {"32071234567", 2025})), "");
    const auto saved = snapshot();
    ASSERT_EQ(press(true), Boxes{kBackedUp});
    EXPECT_TRUE(QFileInfo::exists(drive.root + "Vorlan1BackUp/dealers.db"));
    EXPECT_TRUE(QFileInfo::exists(drive.root + "Vorlan1BackUp/returns/unnamed/2025-26/Form10Data.mdb"));

    if (c.dataFolderGone) {
        ResetRegister();
        ASSERT_TRUE(QDir(user).removeRecursively());
        QDir().mkpath(user);
    } else {
        for (const BookKey& k : kBooks) addRow(k, "Changed after the backup");
    }
    const auto changed = c.dataFolderGone ? std::map<QString, QStringList>{} : snapshot();
    if (!c.openAtRestore.tin.isEmpty()) {
        ASSERT_EQ(OpenBook(BookOf(Register(), c.openAtRestore)), "");
    }
    EXPECT_EQ(press(false, c.onlyTin), c.restoreBoxes);
    EXPECT_EQ(asked, 2);
    for (const BookKey& k : kBooks) {
        const QString name = k.tin + QString::number(k.firstYear);
        const bool restored = c.onlyTin.isEmpty() || k.tin == c.onlyTin;
        EXPECT_EQ(rowsOf(k), restored ? saved.at(name) : changed.at(name)) << name.toStdString();
    }
    EXPECT_EQ(Register().Find("32089876543")->place, "Thrissur");
    EXPECT_EQ(Register().Books().size(), c.onlyTin.isEmpty() || !c.dataFolderGone ? 4u : 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Practice, PracticeRestore,
    ::testing::Values(RestoreCase{"EveryBookAfterTheDataFolderIsGone", "", true, {}, {kNotFound}},
                      RestoreCase{"EveryBookWithAnotherBookOpen", "", false, {"32089876543", 2025}, {kNotFound}},
                      RestoreCase{"OneDealerOthersKeepTheirChanges", "32089876543", false, {"32089876543", 2025}, {kRestored}}),
    CaseName());

// A backup of the version before holds the loose files alone: they go to "Dealer not named" of the year of
// their last date, and the book open now keeps its months.
TEST_F(PracticeBackup, BackupOfTheVersionBeforeGoesToDealerNotNamed) {
    const QString old = drive.root + "Vorlan1BackUp";
    CreateReturnStores(old);
    QFile::remove(old + "/Form10Data.mdb");
    query(old + "/nwForm10DB.mdb", "INSERT INTO tblSales (SlNo, BillDate, Party, cMonth, cCode) VALUES "
                                   "('1', '2025-02-10', 'Old sale', 'February', '')");
    const BookKey open{"32089876543", 2025}, unnamed{"", 2024};
    ASSERT_EQ(OpenBook(BookOf(Register(), open)), "");
    const QStringList openRows = rowsOf(open);
    EXPECT_EQ(press(false), Boxes{kNotFound});
    EXPECT_EQ(asked, -1);
    EXPECT_EQ(rowsOf(open), openRows);
    EXPECT_EQ(query(BookFolder(unnamed) + "/nwForm10DB.mdb", "SELECT Party FROM tblSales"), QStringList{"Old sale"});
    EXPECT_TRUE(Register().YearsOf("").contains(2024));
}

// What a backup killed in the middle left beside the backup's files is gone after the next one.
TEST_F(PracticeBackup, NextBackupClearsWhatAKilledOneLeft) {
    const QString folder = drive.root + "Vorlan1BackUp";
    QDir().mkpath(folder + "/returns/32071234567/2024-25");
    for (const QString f : {"/nwForm10DB.mdb.new", "/nwForm10DB.mdb.new-journal", "/returns/32071234567/2024-25/TAXDATA.mdb.new"})
        QFile(folder + f).open(QIODevice::WriteOnly);
    ASSERT_EQ(OpenBook(BookOf(Register(), kBooks[0])), "");
    ASSERT_EQ(press(true), Boxes{kBackedUp});
    QStringList left;
    for (QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        if (it.next().contains(".new")) left << it.filePath();
    EXPECT_EQ(left, QStringList());
}

}  // namespace
