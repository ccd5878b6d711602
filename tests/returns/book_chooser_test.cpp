// Choosing the book by keyboard alone, the chooser's line of the book, and a dealer removed.
#include "books_fixture.h"
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

}  // namespace
