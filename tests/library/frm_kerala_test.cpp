// frmkerala driven as a user drives it: toolbar clicks, the window's size, its close box.
#include "library_window_fixture.h"

namespace {

class Kerala : public KeralaWindow {   // the library store sets the layout record the resize rule reads
protected:
    void press(const QString& key) {
        QTest::mouseClick(w->Toolbar2->widgetForAction(w->Toolbar2->Buttons(key).action()), Qt::LeftButton, {}, QPoint(4, 4));
    }
    QWidget* frontTree() const { return front(w->Frame1, w->Tvw); }   // at the trees' common spot
};

// A fresh window shows neither page; the keyboard starts on the toolbar's first button.
TEST_F(Kerala, AtStartNeitherPageShowsAndTheKeyboardIsOnTheToolbar) {
    EXPECT_TRUE(w->windowState() & Qt::WindowMaximized);
    showActive();
    EXPECT_FALSE(w->Frame1->isVisible());
    EXPECT_FALSE(w->Frame2->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), w->Toolbar2->widgetForAction(w->Toolbar2->Buttons("Act").action()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), w->Tvw);
    w->Tvw->setCurrentItem(w->Tvw->Nodes("VAT").item());
    w->grab().save(screen("frmkerala.png"));
}

TEST_F(Kerala, EachToolbarKeyBringsItsTreeForwardWithItsFocusRule) {
    // tree nullptr: the pages stay as they were.
    const struct { const char* key; forms::TreeView* tree; bool takesFocus; } table[] = {
        {"Act", w->Tvw, true},  {"rul", w->tvw2, true},   {"circu", w->tvwc, false}, {"not", w->tvwn, true},
        {"sch", nullptr, false}, {"jud", w->tvw3, false}, {"forms", nullptr, false}, {"Ali", w->tvwali, true},
        {"rec", w->tvwr, false}, {"ca", nullptr, false},
    };
    showActive();
    QWidget* lastFront = nullptr;
    for (const auto& row : table) {
        SCOPED_TRACE(row.key);
        w->Toolbar2->setFocus();
        press(row.key);
        EXPECT_EQ(w->CurrentToolbarKey, row.key);
        EXPECT_EQ(w->Frame1->isVisible(), lastFront || row.tree);
        EXPECT_FALSE(w->Frame2->isVisible());
        if (row.tree) lastFront = row.tree;
        if (lastFront) { EXPECT_EQ(frontTree(), lastFront); }
        if (row.takesFocus) { EXPECT_EQ(QApplication::focusWidget(), row.tree); }
        else { EXPECT_TRUE(w->Toolbar2->isAncestorOf(QApplication::focusWidget())); }   // the bar's button
    }
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(Kerala, UnansweredKeysAndDropDownEntriesDoNothing) {
    showActive();
    press("circu");
    w->Toolbar2->setFocus();
    const auto rules = w->Toolbar2->Buttons("rul").ButtonMenus();
    ASSERT_EQ(rules.Count(), 2);
    EXPECT_EQ(rules("CP")->text(), "Cash Payment");
    EXPECT_EQ(rules("BP")->text(), "Bank Payment");
    rules("CP")->trigger();
    rules("BP")->trigger();
    EXPECT_EQ(w->CurrentToolbarKey, "circu");
    w->Toolbar2_ButtonClick("print");
    w->Toolbar2_ButtonClick("dele");
    w->Toolbar2_ButtonClick("act");    // keys compare with regard to case
    EXPECT_EQ(w->CurrentToolbarKey, "act");
    EXPECT_TRUE(w->isVisible());
    EXPECT_TRUE(w->Frame1->isVisible());
    EXPECT_EQ(frontTree(), w->tvwc);
    EXPECT_TRUE(w->Toolbar2->isAncestorOf(QApplication::focusWidget()));
    EXPECT_FALSE(forms::exists("main"));
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(Kerala, ResizeCentresThePagesAndTheListPageNeverShrinksBelowWhatItHas) {
    // W x H: the window's inner size. Starting from the list page's designed height of 5535, one window resized in turn.
    const struct { int W, H, frame1Left, frame2Left, frame2Height, list1Height, backTop; } table[] = {
        {13650, 8265, 2678, 458, 5535, 3195, 4725},   // the step-4 value 5535 is not above 5535: kept
        {6000, 8265, 0, 0, 5535, 3195, 4725},         // narrower than both frames: left 0, never below
        {12000, 8265, 1852, 0, 5535, 3195, 4725},     // halves to even, as the language assigns
        {13650, 8520, 2678, 458, 5790, 3450, 4980},   // the designed window grows the page
        {13650, 10500, 2678, 458, 7770, 5430, 6960},
        {13650, 7000, 2678, 458, 7770, 5430, 6960},   // small again: the page keeps its height
        {13650, 9000, 2678, 458, 6270, 3930, 5460},   // above 5535 the page follows the window
    };
    w->setWindowState(Qt::WindowNoState);
    w->Frame2->resize(w->Frame2->width(), forms::twips(5535));
    bool first = true;
    for (const auto& row : table) {
        SCOPED_TRACE(testing::Message() << row.W << " x " << row.H);
        w->resize(forms::twips(row.W), forms::twips(row.H));
        if (first) w->show();
        first = false;
        QCoreApplication::processEvents();
        ASSERT_EQ(w->size(), QSize(forms::twips(row.W), forms::twips(row.H)));
        EXPECT_EQ(w->Frame1->pos(), QPoint(forms::twips(row.frame1Left), forms::twips(1740)));
        EXPECT_EQ(w->Frame2->pos(), QPoint(forms::twips(row.frame2Left), forms::twips(1740)));
        EXPECT_EQ(w->Frame2->height(), forms::twips(row.frame2Height));
        EXPECT_EQ(w->List1->height(), forms::twips(row.list1Height));
        for (QPushButton* back : {w->cmdactback, w->cmdruleback, w->cmdshback, w->judback, w->formsback,
                                  w->rnback, w->Command4, w->notBack, w->aliback})
            EXPECT_EQ(back->y(), forms::twips(row.backTop));
        EXPECT_EQ(w->cmdactgo->y(), forms::twips(270));
        EXPECT_EQ(w->Toolbar2->width(), w->width());
        EXPECT_EQ(w->StatusBar1->geometry().bottom(), w->height() - 1);
    }
}

TEST_F(Kerala, ListPageStacksItsButtonsEarlierOnTop) {
    const QRect box = w->Text3->geometry();
    const std::pair<QPoint, QWidget*> table[] = {
        {w->cmdactgo->geometry().center(), w->judgo}, {w->cmdactback->geometry().center(), w->judback},
        {QPoint(box.right() - 2, box.center().y()), w->Cmdwordsearch}, {box.topLeft() + QPoint(2, 2), w->Text3}};
    for (const auto& [point, top] : table) EXPECT_EQ(w->Frame2->childAt(point), top);
}

TEST_F(Kerala, BackAndTheCloseBoxBringMainBack) {
    enum Way { BackButton, CloseBox, ProgramClose };
    const std::pair<Way, bool> table[] = {{BackButton, true}, {CloseBox, true}, {ProgramClose, false}};
    for (const auto& [way, mainReturns] : table) {
        SCOPED_TRACE(int(way));
        forms::reset();
        w = forms::get<library::frmkerala>("frmkerala");
        showActive();
        press("Act");
        if (way == BackButton) {
            press("bac");
        } else if (way == CloseBox) {
            QCloseEvent close;   // what the window system sends for the close box
            QCoreApplication::sendEvent(w->windowHandle(), &close);
        } else {
            w->close();
        }
        EXPECT_FALSE(w->isVisible());
        EXPECT_EQ(forms::exists("main") && forms::get("main")->isVisible(), mainReturns);
        EXPECT_EQ(w->CurrentToolbarKey, way == BackButton ? "bac" : "Act");
    }
    EXPECT_TRUE(boxes.boxes().empty());
}

}  // namespace
