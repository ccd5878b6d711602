// Bill entry on frmNormal, driven the way a user drives it: keys into the floating editors.
#include "platform/forms/twips.h"
#include "return_window.h"

#include <array>

using returns::frmNormal;

namespace {

class BillEntry : public ReturnWindow {
protected:
    void SetUp() override {
        ReturnWindow::SetUp();
        w->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(w.get()));
        w->fg1->setRow(1);
        w->fg1->setCol(2);
        w->fg1->setCol(1);
    }

    // Types a text into the editor that has the focus and presses Enter; in the rate column the open
    // list takes the Enter after `listDowns` steps down.
    void key(const QString& text, int listDowns = -1) {
        QWidget* at = QApplication::focusWidget();
        ASSERT_TRUE(at == w->txtGrid1 || at == w->txtGrid2 || at == w->List2 || at == w->List3)
            << (at ? at->metaObject()->className() : "no focus");
        if (listDowns >= 0) {
            ASSERT_TRUE(at == w->List2 || at == w->List3);
            for (int i = 0; i < listDowns; ++i) QTest::keyClick(at, Qt::Key_Down);
        } else if (!text.isEmpty()) {
            QTest::keyClicks(at, text);
        }
        QTest::keyClick(at, Qt::Key_Return);
    }

    void bill(const QStringList& cells, int listDowns) {
        for (int i = 0; i < 4; ++i) key(cells[i]);
        key(QString(), listDowns);
        for (int i = 4; i < cells.size(); ++i) key(cells[i]);
    }

    forms::MsgBoxRecorder boxes;
};

TEST_F(BillEntry, EnterWalksTheRowThroughTheRateListAndGrowsTheGrid) {
    // The worked example: 1000, 125, 1.25 at "12.5".
    const QStringList typed = {"26-09-08", "ABC Traders", "32010012345", "B-101", "1000", "125", "1.25", ""};
    const int after[][2] = {{1, 2}, {1, 3}, {1, 4}, {1, 5}, {1, 6}, {1, 7}, {1, 8}, {1, 9}, {2, 1}};
    for (int step = 0; step < 9; ++step) {
        if (step == 4) {
            EXPECT_FALSE(w->List2->isHidden());
            EXPECT_EQ(w->List2->ListIndex(), 0);
            EXPECT_EQ(w->List2->x(), w->txtGrid1->x());
            EXPECT_EQ(w->List2->y(), w->txtGrid1->y() + forms::twips(300));
            key(QString(), 3);
            EXPECT_TRUE(w->List2->isHidden());
        } else {
            key(typed[step < 4 ? step : step - 1]);
        }
        EXPECT_EQ(w->fg1->Row(), after[step][0]) << step;
        EXPECT_EQ(w->fg1->Col(), after[step][1]) << step;
        // The editor stands over the current cell with its text selected.
        EXPECT_EQ(w->txtGrid1->x(), forms::twips(w->fg1->Left() + w->fg1->CellLeft())) << step;
        EXPECT_EQ(w->txtGrid1->y(), forms::twips(w->fg1->Top() + w->fg1->CellTop())) << step;
        EXPECT_EQ(w->txtGrid1->selectedText(), w->txtGrid1->text()) << step;
        EXPECT_EQ(w->txtGrid1->isReadOnly(), after[step][1] == 9) << step;
    }
    EXPECT_EQ(rows(w->fg1)[0], (QStringList{"1", "26-09-08", "ABC Traders", "32010012345", "B-101", "    12.5",
                                           "1000.00", "125.00", "1.25", "1126.25"}));
    EXPECT_EQ(w->fg1->Rows(), 3);
    EXPECT_EQ(w->fg1->TextMatrix(2, 0), "2");
    EXPECT_EQ(texts(w->Label15, w->Label19, w->Label62, w->txtTotal, w->Label12), "1000.00 125.00 1.25 1126.25 0.00");
    EXPECT_TRUE(boxes.boxes().empty());

    // Column 9 of a row that is not the last goes on to column 1 of the next row, without growing.
    w->fg1->setRow(1);
    w->fg1->setCol(9);
    key(QString());
    EXPECT_EQ(w->fg1->Row(), 2);
    EXPECT_EQ(w->fg1->Col(), 1);
    EXPECT_EQ(w->fg1->Rows(), 3);
}

// Any text of the dash shape passes; the two sides say it in texts that differ only in spacing.
TEST_F(BillEntry, DateColumnTakesOnlyTheDashShapeOnEnter) {
    const std::pair<const char*, bool> cases[] = {
        {"26-09-08", true}, {"01-01-2009", true}, {"ab-cd-ef", true},
        {"1-1-2009", false}, {"6-9-08", false}, {"01/01/09", false}, {"26-09/08", false}, {"", false},
    };
    const QString purchase = "Date Format is not Valid \nPlease follow  'DD-MM-YY '\neg:  ' 26-09-08 ' ";
    const QString sales = "Date Format is not Valid \nPlease follow    'DD-MM-YY ' \neg:  ' 26-09-08 ' ";
    for (const bool salesSide : {false, true}) {
        forms::FlexGrid* g = salesSide ? w->fg2 : w->fg1;
        QLineEdit* editor = salesSide ? w->txtGrid2 : w->txtGrid1;
        g->setRow(1);
        g->setCol(2);
        g->setCol(1);
        for (const auto& [typed, accepted] : cases) {
            const auto before = boxes.boxes().size();
            key(typed);
            ASSERT_EQ(boxes.boxes().size(), before + (accepted ? 0 : 1)) << typed;
            if (accepted) {
                EXPECT_EQ(g->TextMatrix(1, 1), typed);
                EXPECT_EQ(g->Col(), 2) << typed;
                g->setCol(1);
                continue;
            }
            EXPECT_EQ(boxes.boxes().back(), (forms::RecordedBox{salesSide ? sales : purchase, 48, "Plase Note.......!"}));
            EXPECT_EQ(g->Col(), 1) << typed;
            EXPECT_EQ(editor->text(), "") << typed;
            EXPECT_EQ(g->TextMatrix(1, 1), typed);   // stored before the test, until the cell is left
        }
        g->setCol(2);
        EXPECT_EQ(g->TextMatrix(1, 1), "");
    }
}

TEST_F(BillEntry, CtrlYTakesTheRowOutAndRenumbersButKeepsTheLastRow) {
    for (const char* party : {"P1", "P2", "P3"}) {
        bill({"01-03-09", party, "", "", "100", "", "", ""}, 0);
    }
    ASSERT_EQ(w->fg1->Rows(), 5);
    w->fg1->setRow(2);
    QTest::keyClick(w->txtGrid1, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(w->fg1->Rows(), 4);
    EXPECT_EQ(rows(w->fg1)[1].mid(0, 3), (QStringList{"2", "01-03-09", "P3"}));
    EXPECT_EQ(rows(w->fg1)[2].mid(0, 3), (QStringList{"3", "", ""}));
    EXPECT_EQ(w->txtGrid1->text(), w->fg1->Text());
    EXPECT_EQ(texts(w->txtTotal, w->Label12), "200.00 200.00");

    // Down to the last bill: it is emptied, not removed, and the grid is as it was set up.
    for (int i = 0; i < 3; ++i) {
        w->fg1->setRow(1);
        QTest::keyClick(w->txtGrid1, Qt::Key_Y, Qt::ControlModifier);
    }
    EXPECT_EQ(w->fg1->Rows(), 2);
    EXPECT_EQ(rows(w->fg1)[0], (QStringList{"1", "", "", "", "", "", "", "", "", ""}));
    EXPECT_EQ(w->fg1->TextMatrix(0, 5), "Rate of \nTax %");
    EXPECT_EQ(w->txtTotal->text(), "0.00");
}

TEST_F(BillEntry, CtrlDFillsTheFirstOfTheMonthWithTheFixedYear) {
    struct { const char* month; int col; const char* box; } cases[] = {
        {"March", 1, "01-03-09"}, {" december ", 1, "01-12-09"}, {"Sept", 1, ""}, {"", 1, ""}, {"March", 2, "x"},
    };
    for (const auto& tc : cases) {
        w->txtRPTo->setText(tc.month);
        w->fg2->setRow(1);
        w->fg2->setCol(tc.col == 1 ? 2 : 1);
        w->fg2->setCol(tc.col);
        QTest::keyClicks(w->txtGrid2, "x");
        QTest::keyClick(w->txtGrid2, Qt::Key_D, Qt::ControlModifier);
        EXPECT_EQ(w->txtGrid2->text(), tc.box) << tc.month << " " << tc.col;
    }
}

TEST_F(BillEntry, ArrowsStopAtTheEdgesAndNeverGrowTheGrid) {
    bill({"01-03-09", "P", "", "", "1", "", "", ""}, 0);   // rows 1 and 2
    struct { int row, col; Qt::Key key; int rowAfter, colAfter; } cases[] = {
        {1, 3, Qt::Key_Up, 1, 3},      {2, 3, Qt::Key_Up, 1, 3},     {2, 3, Qt::Key_Down, 2, 3},
        {1, 3, Qt::Key_Down, 2, 3},    {1, 1, Qt::Key_Left, 1, 1},   {1, 4, Qt::Key_Left, 1, 3},
        {1, 9, Qt::Key_Right, 1, 9},   {1, 4, Qt::Key_Right, 1, 5},  {2, 4, Qt::Key_PageUp, 1, 4},
        {1, 4, Qt::Key_PageDown, 2, 4}, {1, 9, Qt::Key_Home, 1, 9},
    };
    for (const auto& tc : cases) {
        w->fg1->setRow(tc.row);
        w->fg1->setCol(tc.col);
        QTest::keyClick(w->txtGrid1, tc.key);
        EXPECT_EQ(w->fg1->Row(), tc.rowAfter) << tc.row << "," << tc.col << " key " << tc.key;
        EXPECT_EQ(w->fg1->Col(), tc.colAfter) << tc.row << "," << tc.col << " key " << tc.key;
        EXPECT_EQ(w->fg1->Rows(), 3);
    }
    // With the caret inside the text the arrows move the caret, not the cell.
    w->fg1->setRow(1);
    w->fg1->setCol(2);
    QTest::keyClick(w->txtGrid1, Qt::Key_End);
    QTest::keyClick(w->txtGrid1, Qt::Key_Left);
    EXPECT_EQ(w->fg1->Col(), 2);
    EXPECT_EQ(w->txtGrid1->cursorPosition(), 0);

    // Column 9's lock stays on when the mouse goes from there straight to the rate column.
    w->fg1->setCol(9);
    QTest::mouseClick(w->fg1->viewport(), Qt::LeftButton, {}, QPoint(forms::twips(7900 + 100), forms::twips(400 + 150)));
    ASSERT_EQ(w->fg1->Col(), 5);
    EXPECT_TRUE(w->txtGrid1->isReadOnly());
}

TEST_F(BillEntry, AmountsAreStoredLenientlyAndTheTotalFollows) {
    // The row has no tax, so its total is the amount as stored.
    for (auto [amount, stored] : {std::pair{"abc", "0.00"}, {"12abc", "12.00"}, {"-5", "-5.00"}}) {
        w->fg1->setRow(1);
        w->fg1->setCol(5);
        w->fg1->setCol(6);
        key(amount);
        EXPECT_EQ(w->fg1->TextMatrix(1, 6), stored) << amount;
        EXPECT_EQ(w->fg1->TextMatrix(1, 9), stored) << amount;
    }
    // Left by the mouse, the amount is stored but joins column 9 only at the next move in the row.
    w->fg1->setCol(6);
    QTest::keyClicks(w->txtGrid1, "500");
    const QPoint party(forms::twips(700 + 1050 + 100), forms::twips(400 + 150));
    QTest::mouseClick(w->fg1->viewport(), Qt::LeftButton, {}, party);
    ASSERT_EQ(w->fg1->Col(), 2);
    EXPECT_EQ(w->fg1->TextMatrix(1, 6), "500.00");
    EXPECT_EQ(w->fg1->TextMatrix(1, 9), "-5.00");
    QTest::keyClick(w->txtGrid1, Qt::Key_Right);
    EXPECT_EQ(w->fg1->TextMatrix(1, 9), "500.00");
}

// One pass over a grid filled cell by cell; the figures are the band labels' amounts, then their taxes,
// first band to last, then the grand total.
TEST_F(BillEntry, BandsTakeOnlyTheirExactRateAndTheGrandTotalTakesEveryRow) {
    const struct { bool sales; std::vector<std::array<const char*, 4>> bills; const char* figures; } cases[] = {  // rate, amount, tax, cess
        {false, {{"CST", "100", "4", ""}}, "0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 104.00"},
        {true, {{"CST", "100", "4", "1"}}, "0.00 0.00 0.00 0.00 100.00 0.00 0.00 0.00 0.00 0.00 4.00 0.00 105.00"},
        {true, {{"5", "10", "", ""}, {"", "20", "", ""}, {"0.0", "30", "", ""}, {"cst", "40", "", ""}, {"12.50", "50", "", ""}},
         "0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 150.00"},
        {false, {{"         0", "10", "1", ""}, {"0", "20", "2", ""}, {"    12.5", "1000", "125", "1.25"}, {"     20       ", "5", "1", ""}},
         "30.00 0.00 0.00 1000.00 5.00 3.00 0.00 0.00 125.00 1.00 1165.25"},
        {true, {{"     20  ", "7", "", ""}, {"     CST ", "8", "", ""}, {"      4", "-9", "", ""}},
         "0.00 0.00 -9.00 0.00 8.00 7.00 0.00 0.00 0.00 0.00 0.00 0.00 6.00"},
        // Texts the platform reads as numbers in full, and one it reads only in part; column 9 reads
        // them all leniently.
        {false, {{"4", "1,000", " 2 ", ""}, {"4", "1e1", "", ""}, {"4", "12-", "", ""}, {"4", "12abc", "", ""}},
         "0.00 0.00 998.00 0.00 0.00 0.00 0.00 2.00 0.00 0.00 37.00"},
    };
    for (const auto& tc : cases) {
        frmNormal f;
        forms::FlexGrid* g = tc.sales ? f.fg2 : f.fg1;
        g->setRows(int(tc.bills.size()) + 2);                 // and a trailing empty row
        for (std::size_t i = 0; i < tc.bills.size(); ++i) {
            const int r = int(i) + 1;
            for (int c = 0; c < 4; ++c) g->setTextMatrix(r, c + 5, tc.bills[i][c]);
            g->setRow(r);
            g->setCol(8);
            g->setCol(9);                                     // the row total is written on entering
        }
        tc.sales ? f.procTotalCal2() : f.procTotalCal1();
        EXPECT_EQ(tc.sales ? texts(f.Label23, f.Label22, f.Label21, f.Label20, f.Label35, f.Label45, f.Label27, f.Label26,
                                   f.Label25, f.Label24, f.Label36, f.Label44, f.txtTotal2)
                           : texts(f.Label12, f.Label13, f.Label14, f.Label15, f.Label10, f.Label16, f.Label17, f.Label18,
                                   f.Label19, f.Label34, f.txtTotal),
                  tc.figures);
    }
}

// The window as the README shows it.
TEST_F(BillEntry, WindowWithThreeBills) {
    w->txtMonth->setText("March");
    bill({"02-03-09", "Malabar Agencies", "32070123456", "1021", "25000", "1000", "10", ""}, 2);
    bill({"11-03-09", "Cochin Traders", "32080765432", "B-77", "8000", "1000", "10", ""}, 3);
    bill({"20-03-09", "Kollam Stores", "32090111222", "553", "1200", "0", "", ""}, 0);
    EXPECT_EQ(w->txtTotal->text(), "36220.00");
    w->fg2->setRow(1);
    w->fg2->setCol(2);
    w->fg2->setCol(1);
    bill({"05-03-09", "Thrissur Bakers", "32050999888", "S-12", "15000", "600", "", ""}, 2);
    bill({"18-03-09", "Madras Metals", "33010555444", "S-13", "4000", "160", "", ""}, 5);
    EXPECT_EQ(w->txtTotal2->text(), "19760.00");
    EXPECT_TRUE(w->grab().save(screen("frmNormal.png")));
}

}  // namespace
