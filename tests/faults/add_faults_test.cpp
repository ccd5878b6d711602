// Add under faults: the program killed in the middle of it, a full disk, another program's lock while
// the window opens, and the cell editor after Add has read the month back.
#include "faults.h"
#include "platform/forms/list_box.h"
#include "returns/return_books.h"
#include "support/case_name.h"

#include <QStandardPaths>
#include <random>

namespace {

// The last round the child printed `word` for, or -1.
int lastRound(const QString& out, const QString& word) {
    const qsizetype at = out.lastIndexOf(word + ' ');
    return at < 0 ? -1 : out.mid(at + word.size() + 1).section('\n', 0, 0).toInt();
}

// Killed at 20 random moments of an Add of a large month, the child leaves a whole file holding the
// month of one round: the last one added, or the one it was adding; purchases, sales and summary alike.
TEST(AddFaults, KilledAtTwentyMomentsTheMonthIsOldOrNew) {
    QTemporaryDir dir;
    const QString file = dir.filePath("nwForm10DB.mdb");
    const QString month = "SELECT group_concat(DISTINCT r) || '|' || (SELECT count(*) FROM tblPurchase1) || '|' || "
                          "(SELECT count(*) FROM tblSales) FROM (SELECT CAST(Amount / 10000 AS INTEGER) r FROM "
                          "tblPurchase1 UNION ALL SELECT CAST(Amount / 10000 AS INTEGER) FROM tblSales UNION ALL "
                          "SELECT CAST(netTotal / 1200 / 10000 AS INTEGER) FROM tblCommon)";
    int committed = 0, addMs = 0, inside = 0;
    {
        Child first({"add", dir.path(), "1200", "0"});
        ASSERT_TRUE(first.waitFor("adding 0"));
        QElapsedTimer took;
        took.start();
        ASSERT_TRUE(first.waitFor("added 0"));
        addMs = int(took.elapsed());
    }
    std::mt19937 random(13);
    for (int round = 100; round <= 2000; round += 100) {
        Child child({"add", dir.path(), "1200", QString::number(round)});
        ASSERT_TRUE(child.waitFor(QStringLiteral("adding %1").arg(round)));
        QThread::msleep(random() % (addMs + 1));
        child.kill();
        const int added = lastRound(child.out, "added"), adding = lastRound(child.out, "adding");
        if (added >= 0) committed = added;
        inside += adding > added;
        ASSERT_EQ(store::CheckDatabaseFile(file), "ok");
        const QString found = query(file, month).value(0);
        EXPECT_TRUE(found == QStringLiteral("%1|1200|300").arg(committed) || found == QStringLiteral("%1|1200|300").arg(adding))
            << found.toStdString();
        committed = found.section('|', 0, 0).toInt();
    }
    std::printf("[          ] %d of 20 kills inside an Add of 1500 bills (%d ms)\n", inside, addMs);
}

// A full disk stops Add with a box that says so and names the step; the month stays as it was and the
// bills stay on the screen. With room again the same press stores them.
TEST(AddFaults, FullDiskKeepsTheOldMonthAndSaysSo) {
    SmallDisk disk;
    const QString file = disk.path() + "/nwForm10DB.mdb", parties = "SELECT DISTINCT substr(Party, 1, 3) FROM tblPurchase1";
    Window win(disk.path());
    QStringList typed;
    for (int i = 1; i <= 600; ++i) typed << QStringLiteral("old %1").arg(i);
    win.put(typed.mid(0, 300));
    ASSERT_EQ(win.add(), "RECORD ADDED  SUCCESSFULLY");
    win.put(typed.replaceInStrings("old", "new"));
    disk.fill(32 * 1024);
    Window::letGo();   // the next handle meets the page limit where there is no small disk
    const QString says = win.add();
    EXPECT_TRUE(says.startsWith("Nothing was saved: the disk is full, while ")) << says.toStdString();
    EXPECT_TRUE(says.endsWith("free some space on the disk and press Add again."));
    EXPECT_EQ(win.w->fg1->TextMatrix(600, 2), "new 600");
    EXPECT_EQ(store::CheckDatabaseFile(file), "ok");
    EXPECT_EQ(query(file, parties), QStringList{"old"});
    disk.empty();
    Window::letGo();
    EXPECT_EQ(win.add(), "RECORD ADDED  SUCCESSFULLY");
    EXPECT_EQ(query(file, parties), QStringList{"new"});
}

// Another program holds a write lock while the window opens: a short lock is waited out; a long one is
// passed over by the load's reads, which end as every load does (the purchase rate list refilled for
// local purchases), and one box says whose file it is. Either way Add stores local purchases where they
// belong, rates as a normal load has them; without a kind, Add refuses.
struct LockCase {
    const char* name;
    int lockMs;
    bool book;             // the window works on a book of a practice
    QString box;           // how the one box begins; empty: no box
};
void PrintTo(const LockCase& c, std::ostream* os) { *os << c.name; }

class LockAtLoad : public ::testing::TestWithParam<LockCase> {};

TEST_P(LockAtLoad, NeverMisfilesTheBills) {
    const LockCase& c = GetParam();
    QTemporaryDir dir;
    QString folder = dir.path();
    if (c.book) {
        QStandardPaths::setTestModeEnabled(true);
        basic::SetAppPath(dir.path());
        returns::Register().Add({"32071234567", "Malabar Agencies", "", "", "Kochi", "", ""});
        const returns::ReturnBook b = returns::BookOf(returns::Register(), {"32071234567", 2025});
        returns::MakeBook(returns::Register(), b);
        ASSERT_EQ(returns::OpenBook(b), "");
        folder = b.folder;
    }
    const QString file = folder + "/nwForm10DB.mdb", filed = "SELECT Party || '|' || RateOfTax FROM tblPurchase1 UNION ALL "
                                                            "SELECT Party || ' inter-state' FROM tblPurchaseInterState1";
    returns::CreateReturnStores(folder);
    {
        Child locker({"lock", file, QString::number(c.lockMs)});
        ASSERT_TRUE(locker.waitFor("locked"));
        Window win(folder);
        ASSERT_EQ(win.boxes.boxes().size(), c.box.isEmpty() ? 0u : 1u);
        if (!c.box.isEmpty()) {
            EXPECT_TRUE(win.boxes.boxes()[0].text.startsWith(c.box)) << win.boxes.boxes()[0].text.toStdString();
        }
        EXPECT_EQ(win.w->List2->List(4), "     20       ");
        EXPECT_EQ(locker.finish(), 0);
        win.put({"Local party"});
        win.w->fg1->setTextMatrix(1, 5, win.w->List2->List(4));
        EXPECT_EQ(win.add(), "RECORD ADDED  SUCCESSFULLY");
        win.w->List4->setListIndex(-1);
        win.put({"Unfiled party"});
        EXPECT_TRUE(win.add().startsWith("Nothing was saved: no purchase kind is chosen."));
    }
    EXPECT_EQ(query(file, filed), QStringList{"Local party|     20       "});
    returns::ResetRegister();
}

INSTANTIATE_TEST_SUITE_P(
    AddFaults, LockAtLoad,
    ::testing::Values(LockCase{"ShortLockWaitedOut", 800, false, ""},
                      LockCase{"LongLockNamesTheFile", 2600, false, "Another program is using the return file "},
                      LockCase{"LongLockNamesTheBook", 2600, true, "Malabar Agencies 2025-26 is open in another Vorlan window."}),
    CaseName());

std::vector<QStringList> cells(const forms::FlexGrid* grid) {
    std::vector<QStringList> rows(size_t(grid->Rows()));
    for (int r = 0; r < grid->Rows(); ++r)
        for (int c = 0; c < grid->Cols(); ++c) rows[size_t(r)] << grid->TextMatrix(r, c);
    return rows;
}

// After Add has read the month back the editor stands over a cell of the last bill; the next move
// writes the editor's text into that cell, which must be the cell's own.
TEST(AddFaults, EditorHoldsTheCellTextAfterAdd) {
    QTemporaryDir dir;
    Window win(dir.path());
    for (int col = 1; col <= 8; ++col) {
        win.put({"First party", "Last party"});
        win.w->fg1->setCol(col);
        ASSERT_EQ(win.add(), "RECORD ADDED  SUCCESSFULLY");
        const std::vector<QStringList> added = cells(win.w->fg1);
        QTest::keyClick(win.w->txtGrid1, Qt::Key_Up);
        EXPECT_EQ(cells(win.w->fg1), added) << "column " << col;
    }
}

}  // namespace
