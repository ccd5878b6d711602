// frmNormal's grids: their set-up, the cursor's walk along a row and down the grid, the floating cell
// editors and the keys they take. The purchase and sales sides are twins; the routines take the side.
#include "platform/basic/variant.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/keys.h"
#include "platform/forms/layout.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/twips.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"

#include <QKeyEvent>
#include <array>

namespace returns {

namespace {

using basic::Variant;

// The grid's columns: caption, width in twips, alignment (4 centre centre, 6 right top).
struct GridColumn {
    const char* caption;
    int width;
    int alignment;
};
const std::array<GridColumn, 10> kColumns = {{
    {"Sl No", 700, 4},
    {"Bill Date", 1050, 4},
    {"Party", 3450, 4},
    {"TIN", 1600, 4},
    {"Bill  No", 1100, 4},
    {"Rate of \nTax %", 800, 4},
    {"Amount", 1500, 6},
    {"Tax", 1500, 6},
    {"Cess", 1500, 6},
    {"Total  Amount", 1500, 6},
}};

const QString kDateTitle = QStringLiteral("Plase Note.......!");
const QString kDateLine1 = QStringLiteral("Date Format is not Valid ");
const QString kDateLine3 = QStringLiteral("eg:  ' 26-09-08 ' ");
// The one place where the twins' texts differ: the second line of the date message.
const QString kPurchaseDateFormat = QStringLiteral("Please follow  'DD-MM-YY '");
const QString kSalesDateFormat = QStringLiteral("Please follow    'DD-MM-YY ' ");

QString dateMessage(const QString& secondLine) {
    return kDateLine1 + QStringLiteral("\n") + secondLine + QStringLiteral("\n") + kDateLine3;
}

void reformatWhenNumeric(QLineEdit* box) {
    const Variant text(box->text());
    if (basic::IsNumeric(text)) box->setText(basic::Format(text, QStringLiteral("#0.00")));
}

// The character code a key press gives, 0 when it gives none (arrows, Tab, function keys).
int keyAsciiOf(const QKeyEvent* e) {
    const int k = e->key();
    if (k == Qt::Key_Return || k == Qt::Key_Enter) return 13;
    if (k == Qt::Key_Backspace) return 8;
    if (k == Qt::Key_Escape) return 27;
    if ((e->modifiers() & Qt::ControlModifier) && !(e->modifiers() & Qt::AltModifier) && k >= Qt::Key_A &&
        k <= Qt::Key_Z)
        return 1 + (k - Qt::Key_A);
    const QString text = e->text();
    if (!text.isEmpty() && text.at(0).unicode() >= 32) return text.at(0).unicode();
    return 0;
}

}  // namespace

QString frmNormal::twoDecimals(double x) { return basic::Format(Variant(x), QStringLiteral("#0.00")); }

// The row total: (Tax + Amount) + Cess of the current row, each read leniently, into column 9.
void frmNormal::writeRowTotal(forms::FlexGrid* grid) {
    const int r = grid->Row();
    const double amount = basic::Val(grid->TextMatrix(r, 6));
    const double tax = basic::Val(grid->TextMatrix(r, 7));
    const double cess = basic::Val(grid->TextMatrix(r, 8));
    grid->setTextMatrix(r, 9, twoDecimals((tax + amount) + cess));
}

// ---- grid set-up -------------------------------------------------------------------------------------

void frmNormal::setGrid(forms::FlexGrid* grid) {
    grid->setRows(2);
    grid->setFixedRows(1);
    grid->setRowHeight(0, 400);
    grid->setCols(10);
    for (int c = 0; c < 10; ++c) {
        grid->setTextMatrix(0, c, QString::fromLatin1(kColumns[c].caption));
        grid->setColWidth(c, kColumns[c].width);
        grid->setColAlignment(c, kColumns[c].alignment);
    }
    grid->setRowHeightMin(300);
    grid->setTextMatrix(1, 0, QStringLiteral("1"));
}

void frmNormal::procSetGrid() { setGrid(fg1); }
void frmNormal::procSetGrid2() { setGrid(fg2); }

void frmNormal::moveTextBox(forms::FlexGrid* grid, QLineEdit* box) {
    if (grid->Col() > 9) return;
    box->setVisible(true);
    forms::place(box, grid->Left() + grid->CellLeft(), grid->Top() + grid->CellTop(), grid->CellWidth(), grid->CellHeight());
}

void frmNormal::procMoveTextBox() { moveTextBox(fg1, txtGrid1); }
void frmNormal::procMoveTextBox2() { moveTextBox(fg2, txtGrid2); }

// ---- the cursor's walk -------------------------------------------------------------------------------

// One step of the walk: along the row, and from column 9 to column 1 of the next row, appending a row
// at the end of the grid.
void frmNormal::stepCursor(forms::FlexGrid* grid) {
    if (grid->Col() == 9) {
        if (grid->Row() != grid->Rows() - 1) grid->setRow(grid->Row() + 1);
        else procNewGridCreateRow(grid);
        grid->setCol(1);
    } else {
        grid->setCol(grid->Col() + 1);
    }
}

// The purchase pass runs here whichever grid moved; the sales key handlers run their own pass after it.
void frmNormal::procMoveColumn1(forms::FlexGrid* grid) {
    stepCursor(grid);
    procTotalCal1();
}

void frmNormal::procNewGridCreateRow(forms::FlexGrid* grid) {
    const int n = grid->Rows() + 1;
    grid->setRows(n);
    grid->setRow(n - 1);
    grid->setTextMatrix(n - 1, 0, QString::number(n - 1));
}

void frmNormal::procGridCreateRow() { procNewGridCreateRow(fg1); }
void frmNormal::procCreateGridRow() { procNewGridCreateRow(fg2); }

void frmNormal::deleteRow(forms::FlexGrid* grid, QLineEdit* box, int row) {
    // Numbers first, so the rows below read their new places once the row is gone.
    for (int i = row + 1; i < grid->Rows(); ++i) grid->setTextMatrix(i, 0, QString::number(i - 1));
    if (grid->Rows() == 2 && row == 1) {
        grid->Clear();
        setGrid(grid);
    } else {
        grid->RemoveItem(row);
    }
    box->setText(grid->Text());
    moveTextBox(grid, box);
    box->setFocus();
}

void frmNormal::fnDeleteRow(std::int16_t& row) {
    deleteRow(fg1, txtGrid1, row);
    procTotalCal1();
}

void frmNormal::fnDeleteRow2(std::int16_t row) {
    deleteRow(fg2, txtGrid2, row);
    procTotalCal2();
}

void frmNormal::procClear1() {
    fg1->Clear();
    txtGrid1->setText(QString());
}

// ---- entering and leaving cells ----------------------------------------------------------------------

void frmNormal::enterCell(const Side& side) {
    forms::FlexGrid* grid = side.grid;
    QLineEdit* box = side.box;
    moveTextBox(grid, box);
    box->setText(grid->Text());
    switch (grid->Col()) {
    case 1:
    case 2:
    case 3:
    case 4:
        box->setAlignment(Qt::AlignHCenter);
        box->setReadOnly(false);
        break;
    case 5:
        // The lock stays as it was: reached from column 9 by the mouse, the box keeps refusing keys.
        box->setAlignment(Qt::AlignHCenter);
        break;
    case 6:
        box->setAlignment(Qt::AlignRight);
        box->setReadOnly(false);
        reformatWhenNumeric(box);
        break;
    case 7:
        box->setAlignment(Qt::AlignRight);
        box->setReadOnly(false);
        reformatWhenNumeric(box);
        side.list->hide();
        break;
    case 8:
        box->setAlignment(Qt::AlignRight);
        box->setReadOnly(false);
        side.list->hide();
        break;
    case 9:
        box->setAlignment(Qt::AlignRight);
        box->setReadOnly(true);
        reformatWhenNumeric(box);
        writeRowTotal(grid);
        break;
    default:
        break;
    }
    // The keyboard always ends in the box, whose focus handler selects its text.
    if (grid->Enabled() && grid->Visible()) grid->SetFocus();
    if (box->isEnabled() && !box->isHidden()) box->setFocus();
    (this->*side.totals)();
}

void frmNormal::leaveCell(const Side& side) {
    forms::FlexGrid* grid = side.grid;
    // The total is taken before the cell takes the box's text: a value left by the mouse or an arrow
    // joins column 9 only at the next move in that row.
    writeRowTotal(grid);
    const int c = grid->Col();
    if (c >= 1 && c <= 5) grid->setText(side.box->text());
    else if (c >= 6 && c <= 9) grid->setText(twoDecimals(basic::Val(side.box->text())));
    (this->*side.totals)();
}

void frmNormal::fg1_EnterCell() { enterCell(purchases()); }
void frmNormal::fg1_LeaveCell() { leaveCell(purchases()); }
void frmNormal::fg2_EnterCell() { enterCell(sales()); }
void frmNormal::fg2_LeaveCell() { leaveCell(sales()); }

// ---- keys in the editors -----------------------------------------------------------------------------

void frmNormal::openRateList(forms::FlexGrid* grid, forms::ListBox* list) {
    list->move(forms::twips(grid->Left() + grid->CellLeft()), forms::twips(grid->Top() + grid->CellTop() + 300));
    list->resize(forms::twips(grid->CellWidth()), list->height());
    list->setListIndex(0);
    list->setVisible(true);
    list->raise();
    list->setFocus();
}

// Enter stores the box in the cell and steps on, a bill date first tested for its shape; Ctrl+Y takes
// the row out without a question; Ctrl+D fills the first of the month, with the year fixed at "09".
void frmNormal::editorKeyPress(const Side& side, int KeyAscii, const QString& dateFormatLine) {
    forms::FlexGrid* grid = side.grid;
    QLineEdit* box = side.box;
    if (KeyAscii == 13) {
        grid->setText(box->text());
        if (grid->Col() == 1 && !IsBillDateShape(basic::Trim(box->text()))) {
            forms::MsgBox(dateMessage(dateFormatLine), forms::vbExclamation, kDateTitle);
            box->setText(QString());
        } else {
            procMoveColumn1(grid);
            moveTextBox(grid, box);
        }
        if (grid->Col() == 5) openRateList(grid, side.list);
    } else if (KeyAscii == 25) {
        const std::int16_t row = std::int16_t(grid->Row());
        deleteRow(grid, box, row);
        (this->*side.totals)();
    } else if (KeyAscii == 4) {
        if (grid->Col() == 1) box->setText(FirstOfMonthText(basic::Trim(txtRPTo->text()), QStringLiteral("09")));
    }
    (this->*side.totals)();
}

void frmNormal::txtGrid1_KeyPress(int KeyAscii) { editorKeyPress(purchases(), KeyAscii, kPurchaseDateFormat); }
void frmNormal::txtGrid2_KeyPress(int KeyAscii) { editorKeyPress(sales(), KeyAscii, kSalesDateFormat); }

void frmNormal::keyDown(forms::FlexGrid* grid, QLineEdit* box, int KeyCode) {
    // Left and Right move between cells only while the whole text is selected, as after entering a
    // cell; once the caret stands inside the text they move the caret.
    const bool wholeSelected = box->text() == box->selectedText();
    switch (KeyCode) {
    case 33: grid->setRow(1); break;
    case 34: grid->setRow(grid->Rows() - 1); break;
    case 37:
        if (wholeSelected) {
            if (grid->Col() - 1 >= 1) grid->setCol(grid->Col() - 1);
            grid->SetFocus();
        }
        box->setFocus();
        break;
    case 38:
        if (grid->Row() - 1 >= 1) grid->setRow(grid->Row() - 1);
        grid->SetFocus();
        box->setFocus();
        break;
    case 39:
        if (wholeSelected) {
            if (grid->Col() + 1 <= grid->Cols() - 1) grid->setCol(grid->Col() + 1);
            box->setFocus();
        }
        break;
    case 40:
        if (grid->Row() + 1 <= grid->Rows() - 1) grid->setRow(grid->Row() + 1);
        box->setFocus();
        break;
    default:
        break;
    }
}

void frmNormal::txtGrid1_KeyDown(int KeyCode, int /*Shift*/) {
    keyDown(fg1, txtGrid1, KeyCode);
    procTotalCal1();
}

void frmNormal::txtGrid2_KeyDown(int KeyCode, int /*Shift*/) {
    keyDown(fg2, txtGrid2, KeyCode);
    procTotalCal2();
}

void frmNormal::txtGrid1_GotFocus() { SelectAllOnFocus(txtGrid1); }
void frmNormal::txtGrid2_GotFocus() { SelectAllOnFocus(txtGrid2); }

// Enter on a rate list: the rate goes into the editor, the list closes and the walk goes on.
void frmNormal::rateChosen(const Side& side) {
    side.box->setText(side.list->Text());
    side.list->hide();
    procMoveColumn1(side.grid);
    moveTextBox(side.grid, side.box);
}

void frmNormal::List2_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) rateChosen(purchases());
}

void frmNormal::List3_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) rateChosen(sales());
}

// A key in an editor: KeyDown first, then KeyPress for a key that gives a character, then the box's
// own handling, which is skipped for the keys the handlers have used.
bool frmNormal::editorKey(QLineEdit* box, QKeyEvent* key) {
    const bool purchase = box == txtGrid1;
    const int code = forms::keyCode(*key);
    const bool wholeSelected = box->text() == box->selectedText();
    bool used = code == 33 || code == 34 || code == 38 || code == 40 || ((code == 37 || code == 39) && wholeSelected);
    forms::guard([&] { purchase ? txtGrid1_KeyDown(code, forms::shiftMask(key->modifiers())) : txtGrid2_KeyDown(code, forms::shiftMask(key->modifiers())); });
    const int ascii = keyAsciiOf(key);
    if (ascii != 0) {
        forms::guard([&] { purchase ? txtGrid1_KeyPress(ascii) : txtGrid2_KeyPress(ascii); });
        used = used || ascii == 13 || ascii == 25 || ascii == 4;
    }
    return used;
}

bool frmNormal::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtGrid1 || watched == txtGrid2) {
        auto* box = static_cast<QLineEdit*>(watched);
        if (event->type() == QEvent::KeyPress) return editorKey(box, static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::FocusIn)
            forms::guard([&] { box == txtGrid1 ? txtGrid1_GotFocus() : txtGrid2_GotFocus(); });
    } else if ((watched == List2 || watched == List3) && event->type() == QEvent::KeyPress) {
        const int ascii = keyAsciiOf(static_cast<QKeyEvent*>(event));
        if (ascii == 13) {
            forms::guard([&] { watched == List2 ? List2_KeyPress(ascii) : List3_KeyPress(ascii); });
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace returns
