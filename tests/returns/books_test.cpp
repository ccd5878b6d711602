// The practice: the register's refusals, every client and every year kept apart, the months of the
// version before taken in, and a book of "Dealer not named" given to its dealer.
#include "books_fixture.h"
#include "platform/store/database_file.h"
#include "returns/form_ten_store.h"
#include "returns/practice_start.h"
#include "returns/return_schema.h"
#include "support/case_name.h"
#include "support/printers.h"

using namespace returns;

namespace {

// ---- the register refuses what is no dealer, and keeps any text as it is typed --------------------------

struct RegisterCase {
    const char* name;
    Dealer dealer;
    QString refusal;       // empty: stored and read back as typed
    QString warning;
};
void PrintTo(const RegisterCase& c, std::ostream* os) { *os << c.name; }

class RegisterRules : public Practice, public ::testing::WithParamInterface<RegisterCase> {};

TEST_P(RegisterRules, RefusesOrKeepsAsTyped) {
    DealerRegister& reg = Register();
    reg.Add(dealer("32071234567", "Malabar Agencies", "Kochi"));
    const RegisterCase& c = GetParam();
    EXPECT_EQ(reg.Check(c.dealer).refusal, c.refusal);
    EXPECT_EQ(reg.Check(c.dealer).warning, c.warning);
    const basic::RuntimeError e = basic::resume([&] { reg.Add(c.dealer); });
    EXPECT_EQ(e.description(), c.refusal);
    EXPECT_EQ(reg.Dealers().size(), c.refusal.isEmpty() ? 2u : 1u);
    if (c.refusal.isEmpty()) {
        EXPECT_EQ(reg.Find(c.dealer.tin), c.dealer);
    }
}

const QString kTinRule = QStringLiteral("A TIN is 11 digits, such as 32071234567; the TINs of Kerala begin with 32.");
const QString kLong(10000, u'x');

INSTANTIATE_TEST_SUITE_P(
    Dealers, RegisterRules,
    ::testing::Values(
        RegisterCase{"EmptyName", {"32079999999", "   ", {}, {}, {}, {}, {}}, "A dealer needs a name.", {}},
        RegisterCase{"NoTin", {"", "Cochin Traders", {}, {}, {}, {}, {}}, "A dealer needs a TIN. " + kTinRule, {}},
        RegisterCase{"TenDigits", {"3207123456", "Cochin Traders", {}, {}, {}, {}, {}}, "\"3207123456\" is not a TIN. " + kTinRule, {}},
        RegisterCase{"LetterO", {"32O71234567", "Cochin Traders", {}, {}, {}, {}, {}}, "\"32O71234567\" is not a TIN. " + kTinRule, {}},
        RegisterCase{"TinTwice", {"32071234567", "Cochin Traders", {}, {}, {}, {}, {}},
                     "The TIN 32071234567 is already that of Malabar Agencies.", {}},
        RegisterCase{"OtherState", {"29071234567", "Bangalore Traders", {}, {}, {}, {}, {}}, {},
                     "The TIN 29071234567 is not one of Kerala, whose TINs begin with 32."},
        RegisterCase{"Quotes", {"32070000001", "O'Brien \"Best\" Traders", "CST/1'2", "1 Main's Road", "Kochi", "0484", "a@b.in"}, {}, {}},
        RegisterCase{"Statement", {"32070000002", "x'; DROP TABLE dealers; --", "');", "%1 %2", "+ & #1/1/2000#", "", ""}, {}, {}},
        RegisterCase{"TenThousand", {"32070000003", kLong, kLong, kLong, kLong, kLong, kLong}, {}, {}},
        RegisterCase{"RightToLeft", {"32070000004", QString::fromUtf8("\u202Eairam\u202C \u200Fسوق"), {}, {}, {}, {}, {}}, {}, {}}),
    CaseName());

// ---- two dealers, two years each: January of each book is its own ---------------------------------------

struct BookCase {
    const char* name;
    QString tin;
    int year;
};
void PrintTo(const BookCase& c, std::ostream* os) { *os << c.name; }

class KeptApart : public Practice, public ::testing::WithParamInterface<BookCase> {};

const BookCase kFourBooks[] = {{"Malabar2024", "32071234567", 2024},
                               {"Malabar2025", "32071234567", 2025},
                               {"Cochin2024", "32089876543", 2024},
                               {"Cochin2025", "32089876543", 2025}};

// January keyed and added in all four books, then, after a restart, each book's January read back whole.
// Before books, every January was one month of one dealer: the last one added replaced the others.
TEST_P(KeptApart, JanuaryOfEachBookReadsBackAfterRestart) {
    DealerRegister& reg = Register();
    reg.Add(dealer("32071234567", "Malabar Agencies", "Kochi"));
    reg.Add(dealer("32089876543", "Cochin Traders", "Thrissur"));
    for (const BookCase& b : kFourBooks) {
        MakeBook(reg, book(b.tin, b.year));
        openWindow(book(b.tin, b.year));
        ASSERT_EQ(addBill(QStringLiteral("Party of %1").arg(b.name), QStringLiteral("%1.00").arg(b.year)), "RECORD ADDED  SUCCESSFULLY");
    }
    ResetRegister();
    const BookCase& c = GetParam();
    const ReturnBook b = book(c.tin, c.year);
    openWindow(b);
    EXPECT_EQ(w->fg1->Rows(), 2);
    EXPECT_EQ(w->fg1->TextMatrix(1, 2), QStringLiteral("Party of %1").arg(c.name));
    EXPECT_EQ(w->fg1->TextMatrix(1, 6), QStringLiteral("%1.00").arg(c.year));
    EXPECT_EQ(w->lblCustomerName->text(), b.dealerName);
    EXPECT_EQ(w->lblBook->text(), QStringLiteral("TIN %1, %2").arg(c.tin, b.yearText()));
    EXPECT_EQ(w->windowTitle(), QStringLiteral("             Form No. 52  -  %1, TIN %2, %3").arg(b.dealerName, c.tin, b.yearText()));
    EXPECT_EQ(w->txtPlace->text(), b.place);   // the Place the month was added with: the dealer's
    // The registers print from the staging tables: they name the dealer.
    for (const char* table : {"tblPurchase1", "tblRptPurchase1", "tblRptPurchaseC", "tblCommon"})
        EXPECT_EQ(query(file(b), QStringLiteral("SELECT DISTINCT cCode || '|' || cAddress FROM ") + table),
                  QStringList{c.tin + "|" + b.dealerName})
            << table;
}

INSTANTIATE_TEST_SUITE_P(Books, KeptApart, ::testing::ValuesIn(kFourBooks), CaseName());

// ---- an apostrophe in what the register gives the return window -----------------------------------------

struct QuoteCase {
    const char* name;
    QString dealerName, place;
};
void PrintTo(const QuoteCase& c, std::ostream* os) { *os << c.name; }

class Apostrophe : public Practice, public ::testing::WithParamInterface<QuoteCase> {};

// The return's statements are built unescaped; what the register hands to the window must not end their
// texts early, or no month of the dealer could be added.
TEST_P(Apostrophe, TheMonthIsAdded) {
    Register().Add(dealer("32071234567", GetParam().dealerName, GetParam().place));
    MakeBook(Register(), book("32071234567", 2025));
    openWindow(book("32071234567", 2025));
    EXPECT_EQ(addBill("Party", "10.00"), "RECORD ADDED  SUCCESSFULLY");
    EXPECT_EQ(query(file(book("32071234567", 2025)), "SELECT count(*) FROM tblCommon"), QStringList{"1"});
}

INSTANTIATE_TEST_SUITE_P(Books, Apostrophe,
                         ::testing::Values(QuoteCase{"InTheName", "O'Brien Traders", "Kochi"},
                                           QuoteCase{"InThePlace", "Malabar Agencies", "St. Mary's Road, Kochi"}),
                         CaseName());

// ---- the return files of the version before become "Dealer not named", once ---------------------------

struct OldFilesCase {
    const char* name;
    bool inUser, inProgram;
    QString billDate;      // of the one bill the old file holds; empty: no bill
    int year;              // of the book made; 0: none
};
void PrintTo(const OldFilesCase& c, std::ostream* os) { *os << c.name; }

class OldFiles : public Practice, public ::testing::WithParamInterface<OldFilesCase> {};

TEST_P(OldFiles, BecomeTheBookDealerNotNamedAtTheFirstStartOnly) {
    const OldFilesCase& c = GetParam();
    for (const auto& [there, folder] : {std::pair{c.inUser, user}, std::pair{c.inProgram, program}}) {
        if (!there) continue;
        CreateReturnStores(folder);
        if (!c.billDate.isEmpty())
            query(folder + "/nwForm10DB.mdb", "INSERT INTO tblPurchase1 (SlNo, BillDate, Party, RateOfTax, Amount, NetAmount, "
                                              "cMonth, cCode) VALUES ('1', '" + c.billDate + "', 'Old party', '4', 100, 104, "
                                              "'January', '')");
    }
    DealerRegister& reg = Register();
    PracticeStarts(reg, {user, program});
    const std::vector<BookKey> expected = c.year ? std::vector<BookKey>{{QString(), c.year}} : std::vector<BookKey>{};
    EXPECT_EQ(reg.Books(), expected);
    if (!c.year) return;
    const ReturnBook b = book(QString(), c.year);
    EXPECT_EQ(b.dealerName, "Dealer not named");
    EXPECT_EQ(LastBook(reg), BookKey({QString(), c.year}));
    if (!c.billDate.isEmpty()) {
        openWindow(b);
        EXPECT_EQ(w->fg1->TextMatrix(1, 2), "Old party");
        EXPECT_EQ(w->fg1->TextMatrix(1, 9), "104.00");
        ASSERT_EQ(addBill("New party", "50.00"), "RECORD ADDED  SUCCESSFULLY");
        CloseBook();
    }
    // A second start takes nothing in again: what was added to the book stays.
    const QStringList rows = query(file(b), "SELECT Party FROM tblPurchase1");
    PracticeStarts(reg, {user, program});
    EXPECT_EQ(reg.Books(), expected);
    EXPECT_EQ(query(file(b), "SELECT Party FROM tblPurchase1"), rows);
}

INSTANTIATE_TEST_SUITE_P(FirstStart, OldFiles,
                         ::testing::Values(OldFilesCase{"InTheUsersFolder", true, false, "2025-01-02", 2024},
                                           OldFilesCase{"BesideTheProgram", false, true, "2025-04-30", 2025},
                                           OldFilesCase{"UsersFolderFirst", true, true, "2023-12-31", 2023},
                                           OldFilesCase{"NoBillDate", true, false, "", 2025},
                                           OldFilesCase{"NoOldFiles", false, false, "", 0}),
                         CaseName());

// ---- naming the dealer of such a book: its months read back under the dealer ---------------------------

struct NamingCase {
    const char* name;
    int stoppedAfter;      // 0: not stopped; 1: after it was written down; 2: after the folder moved
};
void PrintTo(const NamingCase& c, std::ostream* os) { *os << c.name; }

class Naming : public Practice, public ::testing::WithParamInterface<NamingCase> {};

TEST_P(Naming, MonthsReadBackUnderTheDealer) {
    DealerRegister& reg = Register();
    const Dealer obrien = dealer("32071234567", "O'Brien Traders", "Kochi");
    reg.Add(obrien);
    MakeBook(reg, book(QString(), 2025));
    openWindow(book(QString(), 2025));
    ASSERT_EQ(addBill("Unnamed party", "70.00"), "RECORD ADDED  SUCCESSFULLY");
    FormTenMonth form = ReadFormTen("January");
    form.values.typed.insert("EN1", "Y");
    SaveFormTen(form);
    w.reset();
    CloseBook();

    const BookKey named{obrien.tin, 2025};
    if (GetParam().stoppedAfter == 0) {
        NameBook(reg, 2025, obrien);
    } else {
        reg.BeginNaming(named);
        if (GetParam().stoppedAfter == 2) {
            QDir().mkpath(BooksFolder() + "/" + obrien.tin);
            ASSERT_TRUE(QDir().rename(BookFolder({QString(), 2025}), BookFolder(named)));
        }
        ResetRegister();
        PracticeStarts(Register(), {});
    }
    EXPECT_EQ(Register().Books(), std::vector<BookKey>{named});
    EXPECT_TRUE(Register().Namings().empty());
    const ReturnBook b = book(obrien.tin, 2025);
    openWindow(b);
    EXPECT_EQ(w->fg1->TextMatrix(1, 2), "Unnamed party");
    EXPECT_EQ(ReadFormTen("January").values.typed.value("EN1"), "Y");
    // The return's statements are built unescaped: the name's apostrophe is written as ’ in them.
    EXPECT_EQ(query(file(b), "SELECT DISTINCT cCode || '|' || cAddress FROM tblPurchase1"),
              QStringList{QString::fromUtf8("32071234567|O\u2019Brien Traders")});
    EXPECT_EQ(query(file(b), "SELECT count(*) FROM tblMPage2 WHERE cCode = ''"), QStringList{"1"});
    EXPECT_EQ(addBill("Named party", "80.00"), "RECORD ADDED  SUCCESSFULLY");
}

INSTANTIATE_TEST_SUITE_P(Books, Naming,
                         ::testing::Values(NamingCase{"Whole", 0}, NamingCase{"StoppedBeforeTheWork", 1},
                                           NamingCase{"StoppedAfterTheMove", 2}),
                         CaseName());

// ---- a book that cannot be opened is named; the book open before and the other books are not touched ----

struct UnopenableCase {
    const char* name;
    void (*spoil)(const QString& folder);
    QString says;          // what follows "Malabar Agencies 2025-26 cannot be opened: "
};
void PrintTo(const UnopenableCase& c, std::ostream* os) { *os << c.name; }

class Unopenable : public Practice, public ::testing::WithParamInterface<UnopenableCase> {};

TEST_P(Unopenable, SaysWhichBookAndTheOthersStillOpen) {
    DealerRegister& reg = Register();
    reg.Add(dealer("32071234567", "Malabar Agencies"));
    MakeBook(reg, book("32071234567", 2024));
    MakeBook(reg, book("32071234567", 2025));
    const ReturnBook good = book("32071234567", 2024), bad = book("32071234567", 2025);
    ASSERT_EQ(OpenBook(good), "");
    GetParam().spoil(bad.folder);
    EXPECT_TRUE(OpenBook(bad).startsWith("Malabar Agencies 2025-26 cannot be opened: " + GetParam().says)) << OpenBook(bad).toStdString();
    EXPECT_EQ(CurrentBook().folder, good.folder);
    EXPECT_EQ(basic::CurDir(), good.folder);
    CloseBook();
    EXPECT_EQ(OpenBook(good), "");
}

INSTANTIATE_TEST_SUITE_P(
    Books, Unopenable,
    ::testing::Values(UnopenableCase{"Damaged",
                                     [](const QString& f) {
                                         QFile file(f + "/nwForm10DB.mdb");
                                         file.open(QIODevice::WriteOnly);
                                         file.write(QByteArray(8192, 'x'));
                                     },
                                     "a file of it is damaged"},
                      UnopenableCase{"FolderGone",
                                     [](const QString& f) {
                                         QDir(f).removeRecursively();
                                         QFile(f).open(QIODevice::WriteOnly);
                                     },
                                     "its folder"}),
    CaseName());

}  // namespace
