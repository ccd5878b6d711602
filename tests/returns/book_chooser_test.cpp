// Choosing the book by keyboard alone, the chooser's line of the book, and a dealer removed.
#include "books_fixture.h"
#include "platform/forms/list_box.h"
#include "platform/forms/window_registry.h"
#include "returns/book_chooser.h"
#include "returns/frm_select.h"
#include "support/case_name.h"
#include "support/printers.h"
#include "support/screens.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTest>

using namespace returns;

namespace {

class Chooser : public Practice {
protected:
    void SetUp() override {
        Practice::SetUp();
        DealerRegister& reg = Register();
        reg.Add(dealer("32070000001", "Alpha Agencies", "Kochi"));
        reg.Add(dealer("32080000002", "Beta Bakers", "Thrissur"));
        reg.Add(dealer("32090000003", "Kochi Kitchens", "Calicut"));
        for (const auto& [tin, year] : {std::pair{"32070000001", 2024}, {"32070000001", 2025}, {"32080000002", 2025}})
            MakeBook(reg, book(tin, year));
        forms::define("frmSelect", [] { return new frmSelect; });
        forms::define("frmNormal", [] { return new frmNormal; });
        forms::define("BookChooser", [] { return new BookChooser; });
        forms::define("frmDirectToForm", [] { return new frmDirectToForm; });
        forms::define("frmEFiling", [] { return new frmEFiling; });
        forms::define("main", [] { return new QWidget; });
    }
    void TearDown() override {
        forms::reset();
        Practice::TearDown();
    }
    BookChooser* shown() {
        auto* c = forms::get<BookChooser>("BookChooser");
        c->show();
        c->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(c));
        return c;
    }
    // frmSelect shown, and through its "Dealer and year" the book of that dealer and year opened.
    frmSelect* selectShown() {
        auto* select = forms::get<frmSelect>("frmSelect");
        select->Show();
        return select;
    }
    bool openBook(frmSelect* select, const QString& tin, int year) {
        select->cmdBook_Click();
        auto* c = forms::get<BookChooser>("BookChooser");
        c->Choose(tin, year);
        return c->OpenChosen();
    }
    forms::MsgBoxRecorder boxes;
};

struct KeysCase {
    const char* name;
    QStringList keys;      // "text" typed, "<Key>" of Up, Down, Tab, Enter, or "<New year>" pressed
    int shownAfterTyping;
    QString tin;           // of the book open at the end
    int year;
};
void PrintTo(const KeysCase& c, std::ostream* os) { *os << c.name; }

class ChooserKeys : public Chooser, public ::testing::WithParamInterface<KeysCase> {};

TEST_P(ChooserKeys, OpenTheBookTheKeysLeadTo) {
    BookChooser* c = shown();
    int shownAfterTyping = -1;
    for (const QString& k : GetParam().keys) {
        QWidget* focus = QApplication::focusWidget();
        if (k == "<Up>") QTest::keyClick(focus, Qt::Key_Up);
        else if (k == "<Down>") QTest::keyClick(focus, Qt::Key_Down);
        else if (k == "<Tab>") QTest::keyClick(focus, Qt::Key_Tab);
        else if (k == "<Enter>") QTest::keyClick(focus, Qt::Key_Return);
        else if (k == "<New year>") c->cmdNewYear->click();   // Alt+N under a window system
        else {
            QTest::keyClicks(focus, k);
            shownAfterTyping = c->ShownDealers();
        }
    }
    EXPECT_EQ(shownAfterTyping, GetParam().shownAfterTyping);
    EXPECT_TRUE(boxes.boxes().empty());
    // A dealer without a book opens nothing, and the chooser stays on them.
    EXPECT_EQ(BookIsOpen(), GetParam().year != 0);
    const BookKey ended = BookIsOpen() ? KeyOf(CurrentBook()) : BookKey{c->ChosenTin(), 0};
    EXPECT_EQ(ended, BookKey({GetParam().tin, GetParam().year}));
    EXPECT_EQ(c->isVisible(), GetParam().year == 0);
}

INSTANTIATE_TEST_SUITE_P(
    Keyboard, ChooserKeys,
    ::testing::Values(KeysCase{"NameOrPlaceLatestYear", {"koch", "<Enter>"}, 2, "32070000001", 2025},
                      KeysCase{"ArrowToTheNext", {"koch", "<Down>", "<Enter>"}, 2, "32090000003", 0},
                      KeysCase{"ByTin", {"3208", "<Enter>"}, 1, "32080000002", 2025},
                      KeysCase{"EveryWord", {"alpha koc", "<Enter>"}, 1, "32070000001", 2025},
                      KeysCase{"EarlierYear", {"alpha", "<Tab>", "<Tab>", "<Up>", "<Enter>"}, 1, "32070000001", 2024},
                      KeysCase{"NewYearInOneStep", {"kitchens", "<New year>"}, 1, "32090000003", 2025},
                      KeysCase{"NextYearOfADealer", {"beta", "<New year>"}, 1, "32080000002", 2026}),
    CaseName());

TEST_F(Chooser, TheChooserLineAndTheWayToTheReturnWindow) {
    auto* select = forms::get<frmSelect>("frmSelect");
    select->Show();
    EXPECT_EQ(select->lblBook->text(), "No dealer and year chosen yet: press Dealer and year.");
    // Form No. 52 without a book leads to the register first, and from there to the return window.
    select->Option1_KeyPress(13);
    BookChooser* c = forms::get<BookChooser>("BookChooser");
    EXPECT_TRUE(c->isVisible());
    EXPECT_FALSE(forms::exists("frmNormal") && forms::get("frmNormal")->isVisible());
    c->txtFind->setText("beta");
    EXPECT_TRUE(c->grab().save(screen("book-chooser.png")));
    EXPECT_TRUE(c->OpenChosen());
    EXPECT_EQ(select->lblBook->text(), "For: Beta Bakers, TIN 32080000002, 2025-26");
    EXPECT_TRUE(forms::get("frmNormal")->isVisible());
    EXPECT_TRUE(select->grab().save(screen("frmSelect-book.png")));

    // The next start opens the last book by itself.
    forms::reset();
    CloseBook();
    forms::define("frmSelect", [] { return new frmSelect; });
    forms::get<frmSelect>("frmSelect")->Show();
    EXPECT_EQ(KeyOf(CurrentBook()), BookKey({"32080000002", 2025}));
}

struct RemoveCase {
    const char* name;
    QString tin;
    int answer;            // to the question
    bool removed;
};
void PrintTo(const RemoveCase& c, std::ostream* os) { *os << c.name; }

class RemoveDealer : public Chooser, public ::testing::WithParamInterface<RemoveCase> {};

// Removing asks first, and the books of a removed dealer are moved to the "removed" folder, whole.
TEST_P(RemoveDealer, AsksAndMovesTheBooksAside) {
    const RemoveCase& p = GetParam();
    const QStringList years = QDir(BooksFolder() + "/" + p.tin).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    BookChooser* c = shown();
    c->Choose(p.tin);
    boxes.queueAnswer(p.answer);
    c->cmdRemoveDealer->click();
    ASSERT_GE(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].style, forms::vbYesNo + forms::vbQuestion);
    EXPECT_EQ(Register().Find(p.tin).has_value(), !p.removed);
    EXPECT_EQ(Register().YearsOf(p.tin).size(), p.removed ? 0 : size_t(years.size()));
    const QStringList removed = QDir(RemovedFolder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    if (!p.removed || years.isEmpty()) {
        EXPECT_TRUE(removed.isEmpty());
        return;
    }
    ASSERT_EQ(removed.size(), 1);
    EXPECT_TRUE(removed[0].startsWith(p.tin + " removed "));
    EXPECT_EQ(QDir(RemovedFolder() + "/" + removed[0]).entryList(QDir::Dirs | QDir::NoDotAndDotDot), years);
    EXPECT_FALSE(QFileInfo::exists(BooksFolder() + "/" + p.tin));
}

INSTANTIATE_TEST_SUITE_P(Register, RemoveDealer,
                         ::testing::Values(RemoveCase{"WithBooksYes", "32070000001", forms::vbYes, true},
                                           RemoveCase{"WithBooksNo", "32070000001", forms::vbNo, false},
                                           RemoveCase{"WithoutBooks", "32090000003", forms::vbYes, true}),
                         CaseName());

struct SwitchCase {
    const char* name;
    int kind;              // 0 local purchases, 1 inter-state purchases, 2 sales
    bool closeBox = false; // the return window shut by its close box before, and opened again after
};
void PrintTo(const SwitchCase& c, std::ostream* os) { *os << c.name; }

class SwitchBooks : public Chooser, public ::testing::WithParamInterface<SwitchCase> {};

// A month's bills of one book, added, and then another book chosen while the return window is open:
// the window shows the other book's month, and its Add stores nothing of the first book there.
TEST_P(SwitchBooks, TheNextBookShowsAndStoresNoneOfTheBillsBefore) {
    const int kind = GetParam().kind;
    frmSelect* select = selectShown();
    ASSERT_TRUE(openBook(select, "32070000001", 2025));
    select->Option1_KeyPress(13);
    auto* normal = forms::get<frmNormal>("frmNormal");
    ASSERT_TRUE(normal->isVisible());
    normal->List4->setListIndex(kind == 1 ? 1 : 0);
    forms::FlexGrid* grid = kind == 2 ? normal->fg2 : normal->fg1;
    const QStringList bill = {"1", "05-03-26", "Kochi Retail", "32071000009", "S-1", kind == 1 ? "CST" : "12.5",
                              "1000", "125", "", "1125.00"};
    grid->setRows(2);
    for (int col = 0; col < 10; ++col) grid->setTextMatrix(1, col, bill[col]);
    normal->procTotalCal1();
    normal->procTotalCal2();
    normal->cmdAdd_Click();
    const QString table = QStringList{"tblPurchase1", "tblPurchaseInterState1", "tblSales"}[kind];
    // The first grid row is stored even when blank, so the bill is counted by its party.
    const auto billsIn = [&](const QString& tin, int year) {
        return query(book(tin, year).folder + "/nwForm10DB.mdb", "SELECT COUNT(*) FROM " + table + " WHERE Party = 'Kochi Retail'")
            .value(0)
            .toInt();
    };
    ASSERT_EQ(billsIn("32070000001", 2025), 1);

    if (GetParam().closeBox) normal->close();
    ASSERT_TRUE(openBook(select, "32080000002", 2025));
    if (GetParam().closeBox) select->Option1_KeyPress(13);
    ASSERT_TRUE(normal->isVisible());
    normal->List4->setListIndex(kind == 1 ? 1 : 0);
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->TextMatrix(1, 2), "");
    EXPECT_EQ(grid->TextMatrix(1, 6), "");
    normal->cmdAdd_Click();
    EXPECT_EQ(billsIn("32080000002", 2025), 0);
    EXPECT_EQ(billsIn("32070000001", 2025), 1);
}

INSTANTIATE_TEST_SUITE_P(ReturnWindow, SwitchBooks,
                         ::testing::Values(SwitchCase{"LocalPurchases", 0}, SwitchCase{"InterStatePurchases", 1},
                                           SwitchCase{"Sales", 2}, SwitchCase{"SalesAfterTheCloseBox", 2, true}),
                         CaseName());

struct FormAtSwitch {
    const char* name;
    int answer;            // to "Keep what was typed"
    int keptInFirst;       // boxes kept in the first book
    bool switched;
};
void PrintTo(const FormAtSwitch& c, std::ostream* os) { *os << c.name; }

class FormOpenAtSwitch : public Chooser, public ::testing::WithParamInterface<FormAtSwitch> {};

// The return form typed on and left open while another book is chosen: what was typed goes to the
// form's own book or nowhere, never to the book chosen next, and the form of the old book closes.
TEST_P(FormOpenAtSwitch, TypedBoxesStayWithTheirBook) {
    const FormAtSwitch& p = GetParam();
    frmSelect* select = selectShown();
    ASSERT_TRUE(openBook(select, "32070000001", 2025));
    select->Option3_KeyPress(13);
    auto* form = forms::get<frmDirectToForm>("frmDirectToForm");
    ASSERT_TRUE(form->isVisible());
    QLineEdit* box = form->sheet->lineEdit("EN1");
    ASSERT_NE(box, nullptr);
    box->setFocus();
    QTest::keyClicks(box, "Y");
    QTest::keyClick(box, Qt::Key_Return);
    ASSERT_TRUE(form->unsaved());

    select->cmdBook_Click();
    auto* c = forms::get<BookChooser>("BookChooser");
    c->Choose("32080000002", 2025);
    boxes.queueAnswer(p.answer);
    EXPECT_EQ(c->OpenChosen(), p.switched);
    // A form still open on the next book is saved, as the user would.
    if (p.switched && form->isVisible()) form->cmdSave->click();
    const auto kept = [&](const QString& tin) {
        return query(book(tin, 2025).folder + "/nwForm10DB.mdb", "SELECT COUNT(*) FROM FormTenTyped WHERE Box = 'EN1'").value(0).toInt();
    };
    EXPECT_EQ(kept("32070000001"), p.keptInFirst);
    EXPECT_EQ(kept("32080000002"), 0);
    EXPECT_EQ(KeyOf(CurrentBook()), BookKey({p.switched ? "32080000002" : "32070000001", 2025}));
    EXPECT_EQ(form->isVisible(), !p.switched);
}

INSTANTIATE_TEST_SUITE_P(ReturnForm, FormOpenAtSwitch,
                         ::testing::Values(FormAtSwitch{"Kept", forms::vbYes, 1, true}, FormAtSwitch{"Dropped", forms::vbNo, 0, true},
                                           FormAtSwitch{"Cancelled", forms::vbCancel, 0, false}),
                         CaseName());

struct OptionCase {
    const char* name;
    int option;            // 1, 2, 3 of the chooser
    const char* window;    // the window it opens
};
void PrintTo(const OptionCase& c, std::ostream* os) { *os << c.name; }

class OptionWithoutBook : public Chooser, public ::testing::WithParamInterface<OptionCase> {};

// With no book open, every option leads to the register first and opens on the book chosen there:
// none works on the return files of the program's folder, which belong to no dealer.
TEST_P(OptionWithoutBook, LeadsToTheRegisterAndThenToTheBookChosen) {
    auto* select = forms::get<frmSelect>("frmSelect");
    select->Show();
    ASSERT_FALSE(BookIsOpen());
    QRadioButton* option = QList<QRadioButton*>{select->Option1, select->Option2, select->Option3}[GetParam().option - 1];
    option->setFocus();
    QTest::keyClick(option, Qt::Key_Return);
    auto* c = forms::get<BookChooser>("BookChooser");
    EXPECT_TRUE(c->isVisible());
    EXPECT_FALSE(forms::exists(GetParam().window) && forms::get(GetParam().window)->isVisible());
    c->Choose("32080000002", 2025);
    ASSERT_TRUE(c->OpenChosen());
    ASSERT_TRUE(forms::exists(GetParam().window));
    EXPECT_TRUE(forms::get(GetParam().window)->isVisible());
    if (GetParam().option == 3) {
        EXPECT_EQ(forms::get<frmDirectToForm>("frmDirectToForm")->txtTIN->text(), "32080000002");
    }
}

INSTANTIATE_TEST_SUITE_P(Chooser, OptionWithoutBook,
                         ::testing::Values(OptionCase{"FormNo52", 1, "frmNormal"}, OptionCase{"EFiling", 2, "frmEFiling"},
                                           OptionCase{"DirectToForm", 3, "frmDirectToForm"}),
                         CaseName());

// The dealer of the book open now removed with the return window open: the window goes with the book,
// so nothing of it can be added after to the program folder's files, which belong to no dealer.
TEST_F(Chooser, RemovingTheOpenBooksDealerShutsTheReturnWindow) {
    frmSelect* select = selectShown();
    ASSERT_TRUE(openBook(select, "32080000002", 2025));
    select->Option1_KeyPress(13);
    auto* normal = forms::get<frmNormal>("frmNormal");
    ASSERT_TRUE(normal->isVisible());
    select->cmdBook_Click();
    auto* c = forms::get<BookChooser>("BookChooser");
    c->Choose("32080000002");
    boxes.queueAnswer(forms::vbYes);
    c->cmdRemoveDealer->click();
    EXPECT_FALSE(BookIsOpen());
    EXPECT_FALSE(normal->isVisible());
}

// The dealer of the open book named with the return window and the form open: both show the dealer at
// once, and the bills the window adds carry the dealer's name as the book's other rows do.
TEST_F(Chooser, NamingWithTheBooksWindowsOpenShowsAndWritesTheDealer) {
    MakeBook(Register(), book(QString(), 2025));
    frmSelect* select = selectShown();
    ASSERT_TRUE(openBook(select, QString(), 2025));
    select->Option1_KeyPress(13);
    auto* normal = forms::get<frmNormal>("frmNormal");
    ASSERT_TRUE(normal->isVisible());
    select->Option3_KeyPress(13);
    auto* form = forms::get<frmDirectToForm>("frmDirectToForm");
    ASSERT_TRUE(form->isVisible());
    NameBook(Register(), 2025, *Register().Find("32090000003"));
    emit forms::get<BookChooser>("BookChooser")->registerChanged();
    EXPECT_TRUE(form->month().values.fixed.value("dpName").startsWith("Kochi Kitchens"));
    EXPECT_EQ(form->month().values.fixed.value("dpTIN"), "32090000003");
    EXPECT_EQ(normal->lblCustomerName->text(), "Kochi Kitchens");
    EXPECT_TRUE(normal->windowTitle().contains("Kochi Kitchens, TIN 32090000003, 2025-26")) << normal->windowTitle().toStdString();
    const QStringList bill = {"1", "05-03-26", "Kochi Retail", "32071000009", "S-1", "4", "1000", "40", "", "1040.00"};
    normal->fg1->setRows(2);
    for (int col = 0; col < 10; ++col) normal->fg1->setTextMatrix(1, col, bill[col]);
    normal->procTotalCal1();
    normal->cmdAdd_Click();
    EXPECT_EQ(query(book("32090000003", 2025).folder + "/nwForm10DB.mdb", "SELECT DISTINCT cCode || '|' || cAddress FROM tblPurchase1"),
              QStringList{"32090000003|Kochi Kitchens"});
}

}  // namespace
