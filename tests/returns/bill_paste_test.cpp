// Rows copied from a spreadsheet pasted into the bill grids with Ctrl+V: the cells as after typing, the
// totals worked out, a refusal that leaves the grid as it was, and Ctrl+Z that takes the paste back.
#include "sheets_window.h"
#include "support/case_name.h"

#include "platform/forms/twips.h"

#include <QClipboard>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QMimeData>

namespace {

struct PasteCase {
    const char* name;
    bool sales;
    std::vector<QStringList> existing;   // cells 1..9 of the bills in the grid before
    int row, col;                        // the current cell
    QString copied;                      // tab-separated, as a spreadsheet copies
    std::vector<QStringList> grid;       // cells 1..9 of every row after, when the paste is taken
    QString total;                       // the grid's grand total after
    QString refused;                     // a piece of the box, when refused
};

void PrintTo(const PasteCase& c, std::ostream* os) { *os << c.name; }

class PasteBills : public SheetsWindow, public testing::WithParamInterface<PasteCase> {};

TEST_P(PasteBills, FillFromTheCurrentCellAndComeBackOut) {
    const PasteCase& c = GetParam();
    forms::FlexGrid* grid = c.sales ? w->fg2 : w->fg1;
    QLineEdit* box = c.sales ? w->txtGrid2 : w->txtGrid1;
    QLineEdit* total = c.sales ? w->txtTotal2 : w->txtTotal;
    if (!c.existing.empty()) put(grid, c.existing);
    box->setText(grid->Text());   // put() fills cells behind the editor's back
    grid->setRow(c.row);
    grid->setCol(c.col);
    const Bills before = rows(grid);
    const QString totalBefore = total->text();
    auto* copied = new QMimeData;
    copied->setText(c.copied);
    QApplication::clipboard()->setMimeData(copied);

    forms::MsgBoxRecorder boxes;
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    if (!c.refused.isEmpty()) {
        ASSERT_EQ(boxes.boxes().size(), 1u);
        EXPECT_TRUE(boxes.boxes()[0].text.contains(c.refused)) << boxes.boxes()[0].text.toStdString();
        EXPECT_EQ(rows(grid), before);
        return;
    }
    EXPECT_TRUE(boxes.boxes().empty());
    Bills after;
    for (const QStringList& r : rows(grid)) after.push_back(r.mid(1));
    EXPECT_EQ(after, c.grid);
    for (int r = 1; r < grid->Rows(); ++r) EXPECT_EQ(grid->TextMatrix(r, 0), QString::number(r));
    EXPECT_EQ(total->text(), c.total);

    // The editor shows the pasted cell, so moving on leaves it as pasted.
    EXPECT_EQ(box->text(), grid->TextMatrix(c.row, c.col));
    const QString pasted = grid->TextMatrix(c.row, c.col);
    grid->setCol(c.col == 1 ? 2 : 1);
    EXPECT_EQ(grid->TextMatrix(c.row, c.col), pasted);

    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rows(grid), before);
    EXPECT_EQ(total->text(), totalBefore);
    EXPECT_TRUE(boxes.boxes().empty());
}

const QString kPurchaseRow = "05-03-26\tMalabar Agencies\t32070123456\t1021\t12.50%\t1,25,000.00\t15,625\t0";

INSTANTIATE_TEST_SUITE_P(
    Pastes, PasteBills,
    testing::Values(
        PasteCase{"TwoBillsIntoAnEmptyGrid", false, {}, 1, 1,
                  kPurchaseRow + "\r\n5 Mar 2026\tCochin Traders\t32080765432\tB-77\t4\t\u20b9 1,000\t40\t0\r\n",
                  {{"05-03-26", "Malabar Agencies", "32070123456", "1021", "    12.5", "125000.00", "15625.00", "0.00", "140625.00"},
                   {"05-03-26", "Cochin Traders", "32080765432", "B-77", "      4", "1000.00", "40.00", "0.00", "1040.00"}},
                  "141665.00", ""},
        PasteCase{"PartyTinAndNumberOverAKeyedBill", false,
                  {{"02-03-26", "", "", "", "      4", "100.00", "4.00", "0.00", "104.00"}}, 1, 2,
                  "Kollam Stores\t03201234567\tK-1\n",
                  {{"02-03-26", "Kollam Stores", "03201234567", "K-1", "      4", "100.00", "4.00", "0.00", "104.00"}},
                  "104.00", ""},
        PasteCase{"RowsGoOnBelowTheCurrentRow", false,
                  {{"02-03-26", "Keyed", "", "", "      0", "10.00", "0.00", "0.00", "10.00"}, {}}, 2, 1,
                  "46086\tPasted\t\t\t1\t20\t0.20\t\n",
                  {{"02-03-26", "Keyed", "", "", "      0", "10.00", "0.00", "0.00", "10.00"},
                   {"05-03-26", "Pasted", "", "", "      1", "20.00", "0.20", "", "20.20"}},
                  "30.20", ""},
        PasteCase{"HeaderNamesPlaceTheColumns", false, {}, 1, 1,
                  "Party\tAmount\tBill Date\tRate %\nAlpha\t50\t2026-03-09\t0\n",
                  {{"09-03-26", "Alpha", "", "", "      0", "50.00", "", "", "50.00"}}, "50.00", ""},
        PasteCase{"LineOfTotalsLeftOut", false, {}, 1, 1,
                  "05-03-26\tA\t\t\t0\t10\n06-03-26\tB\t\t\t0\t20\nTotal\t\t\t\t\t30\n",
                  {{"05-03-26", "A", "", "", "      0", "10.00", "", "", "10.00"},
                   {"06-03-26", "B", "", "", "      0", "20.00", "", "", "20.00"}},
                  "30.00", ""},
        PasteCase{"SalesAtCst", true, {}, 1, 1, "05-03-26\tMadras Metals\t33010555444\tS-13\tCST\t4000\t160\t\n",
                  {{"05-03-26", "Madras Metals", "33010555444", "S-13", "     CST ", "4000.00", "160.00", "", "4160.00"}},
                  "4160.00", ""},
        PasteCase{"RateNoListHoldsNamesTheRow", false, {}, 1, 1, kPurchaseRow + "\n06-03-26\tB\t\t\t5\t10\n", {}, "",
                  "Copied row 2 (bill 2): Rate of Tax %: 5 % is not a rate of this register"},
        PasteCase{"NegativeAmountRefused", false, {}, 1, 6, "(1,250.00)\t0\n", {}, "", "Amount: (1,250.00) is below zero"},
        PasteCase{"DayThatDoesNotExistRefused", true, {}, 1, 1, "30-02-26\tX\n", {}, "", "30-02-26 is a day that does not exist"},
        PasteCase{"NotIntoTheWorkedOutTotal", false, {}, 1, 9, "1\t2\n", {}, "", "Total Amount is worked out"}),
    CaseName());

// Ten bills pasted and added are there when the program starts again, with their totals; a party
// that reads like a statement is stored as the text it is.
TEST_F(SheetsWindow, PastedBillsAreStoredByAddAndReadBack) {
    QString copied;
    for (int i = 1; i <= 10; ++i)
        copied += QStringLiteral("%1-03-26\t%5\t3207000%1\tB-%1\t%2\t%3\t%4\t1\n")
                      .arg(i, 2, 10, QChar('0')).arg(i % 2 ? "4" : "12.5").arg(i * 1000).arg(i * 40)
                      .arg(i == 3 ? QStringLiteral("O'Brien'; DROP TABLE tblPurchase1; --") : QStringLiteral("Party %1").arg(i));
    auto* data = new QMimeData;
    data->setText(copied);
    w->fg1->setRow(1);
    w->fg1->setCol(1);
    ASSERT_TRUE(sheets->paste(data));
    delete data;
    const Bills pasted = rows(w->fg1);
    const QString labels = texts(w->txtTotal, w->Label14, w->Label18, w->Label15, w->Label19, w->Label62);
    ASSERT_EQ(pasted.size(), 10u);
    EXPECT_TRUE(column("SELECT Party FROM tblPurchase1").isEmpty()) << "nothing is stored before Add";

    // The README's picture: the pasted bills, and the menu of the button that reaches the spreadsheets.
    w->resize(forms::twips(15420), forms::twips(9960));
    QPixmap shot = w->grab();
    QMenu* menu = sheets->button->menu();
    menu->ensurePolished();
    menu->adjustSize();
    QPainter painter(&shot);
    menu->render(&painter, sheets->button->mapTo(w.get(), QPoint(sheets->button->width() - menu->width(), -menu->height())));
    painter.end();
    EXPECT_TRUE(shot.save(screen("paste-ten-bills.png")));
    add();

    w = std::make_unique<returns::frmNormal>();
    forms::MsgBoxRecorder quiet;
    w->Show();
    EXPECT_EQ(rows(w->fg1), pasted);
    EXPECT_EQ(w->fg1->TextMatrix(3, 2), "O'Brien'; DROP TABLE tblPurchase1; --");
    EXPECT_EQ(texts(w->txtTotal, w->Label14, w->Label18, w->Label15, w->Label19, w->Label62), labels);
}

// Ctrl+Z takes a paste back only while the grid holds what the paste left: a bill changed after it
// stays, and the box says why nothing was taken back.
TEST_F(SheetsWindow, PasteChangedAfterwardsIsNotTakenBack) {
    auto* data = new QMimeData;
    data->setText("05-03-26\tA\t\t\t4\t100\n06-03-26\tB\t\t\t4\t200\n");
    QApplication::clipboard()->setMimeData(data);
    w->fg1->setRow(1);
    w->fg1->setCol(2);
    w->fg1->setCol(1);
    forms::MsgBoxRecorder boxes;
    QTest::keyClick(w->txtGrid1, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(w->fg1->TextMatrix(2, 2), "B");
    w->fg1->setRow(2);
    w->fg1->setCol(2);
    w->txtGrid1->setText("Changed");
    QTest::keyClick(w->txtGrid1, Qt::Key_Return);
    const Bills changed = rows(w->fg1);
    ASSERT_EQ(changed[1][2], "Changed");
    QTest::keyClick(w->txtGrid1, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rows(w->fg1), changed);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_TRUE(boxes.boxes()[0].text.contains("changed after the paste")) << boxes.boxes()[0].text.toStdString();
}

}  // namespace
