// The books under faults: a second program on one book, a book made on a full disk, a backup of many
// books killed in the middle.
#include "faults.h"
#include "returns/practice_copy.h"
#include "returns/practice_start.h"
#include "returns/return_books.h"
#include "platform/basic/settings.h"
#include "support/case_name.h"

#include <QDirIterator>
#include <QStandardPaths>

namespace {

using namespace returns;

const BookKey kBook{"32071234567", 2025};

class BooksUnderFaults : public ::testing::Test {
protected:
    void SetUp() override {
        QStandardPaths::setTestModeEnabled(true);
        basic::Settings().remove(QStringLiteral("returns"));
    }
    void TearDown() override {
        ResetRegister();
        Window::letGo();
    }
    void practiceIn(const QString& folder) {
        ResetRegister();
        basic::SetAppPath(folder);
        Register().Add({kBook.tin, "Malabar Agencies", "", "", "Kochi", "", ""});
    }
};

struct SecondCase {
    const char* name;
    QStringList holder;    // the child's arguments after the folder (book) or the file (lock)
    bool book;             // the child opens the book as Vorlan does; else it locks the file
    bool killHolder;       // killed once it holds the book, before we try
    bool refused;
};
void PrintTo(const SecondCase& c, std::ostream* os) { *os << c.name; }

class SecondProgram : public BooksUnderFaults, public ::testing::WithParamInterface<SecondCase> {};

// A book another Vorlan has open, or another program holds locked past the busy wait, is refused by name
// and not written; a holder that was killed holds nothing, and a short lock is waited out.
TEST_P(SecondProgram, RefusesABookHeldElsewhereByName) {
    const SecondCase& c = GetParam();
    QTemporaryDir dir;
    practiceIn(dir.path());
    MakeBook(Register(), BookOf(Register(), kBook));
    const ReturnBook b = BookOf(Register(), kBook);
    const QString file = b.folder + "/nwForm10DB.mdb";
    const QStringList args = c.book ? QStringList{"book", dir.path()} + c.holder : QStringList{"lock", file} + c.holder;
    Child holder(args);
    ASSERT_TRUE(holder.waitFor(c.book ? "opened" : "locked")) << holder.out.toStdString();
    if (c.killHolder) holder.kill();
    const QByteArray before = [&] { QFile f(file); f.open(QIODevice::ReadOnly); return f.readAll(); }();
    const QString says = OpenBook(b);
    EXPECT_EQ(says, c.refused ? "Malabar Agencies 2025-26 is open in another Vorlan window." : "");
    EXPECT_EQ(BookIsOpen(), !c.refused);
    QFile f(file);
    f.open(QIODevice::ReadOnly);
    EXPECT_EQ(f.readAll(), before);
    holder.finish();
    EXPECT_EQ(OpenBook(b), "");
}

INSTANTIATE_TEST_SUITE_P(Books, SecondProgram,
                         ::testing::Values(SecondCase{"AnotherVorlanHasIt", {kBook.tin, "2025", "1500"}, true, false, true},
                                           SecondCase{"ItsHolderWasKilled", {kBook.tin, "2025", "60000"}, true, true, false},
                                           SecondCase{"LockedPastTheWait", {"2600"}, false, false, true},
                                           SecondCase{"LockedLessThanTheWait", {"800"}, false, false, false}),
                         CaseName());

// A full disk while a new book is made leaves no part of it, and no book in the register; with room
// again the same book is made.
TEST_F(BooksUnderFaults, NewBookOnAFullDiskLeavesNothing) {
    SmallDisk disk;
    practiceIn(disk.path());
    const ReturnBook b = BookOf(Register(), kBook);
    disk.fill(16 * 1024);
    const basic::RuntimeError e = basic::resume([&] { MakeBook(Register(), b); });
    EXPECT_EQ(e.description(), "The book Malabar Agencies 2025-26 could not be made: the disk is full. Nothing of it was kept.");
    EXPECT_FALSE(QFileInfo::exists(BooksFolder() + "/" + kBook.tin));
    EXPECT_TRUE(Register().Books().empty());
    disk.empty();
    MakeBook(Register(), b);
    EXPECT_EQ(Register().Books(), std::vector<BookKey>{kBook});
    EXPECT_EQ(OpenBook(b), "");
}

// A backup of 300 books killed in the middle: the next start clears what it left on the stick.
TEST_F(BooksUnderFaults, StartAfterAKilledBackupClearsItsLeftovers) {
    QTemporaryDir dir, stick;
    practiceIn(dir.path());
    for (int i = 0; i < 300; ++i) {
        const QString tin = QStringLiteral("320700%1").arg(i, 5, 10, QChar('0'));
        Register().Add({tin, QStringLiteral("Dealer %1").arg(i), "", "", "", "", ""});
        MakeBook(Register(), BookOf(Register(), {tin, 2025}));
    }
    ResetRegister();
    Child backup({"backup", dir.path(), stick.path()});
    ASSERT_TRUE(backup.waitFor("copied 100"));
    QFile(stick.path() + "/returns/32070000299/2025-26/nwForm10DB.mdb.new").open(QIODevice::WriteOnly);
    backup.kill();
    ASSERT_FALSE(backup.out.contains("copied 300"));
    PracticeStarts(Register(), {});
    QStringList left;
    for (QDirIterator it(stick.path(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        if (it.next().endsWith(".new") || it.filePath().endsWith(".new-journal")) left << it.filePath();
    EXPECT_EQ(left, QStringList());
    EXPECT_EQ(Register().Setting("copy under way"), "");
}

}  // namespace
