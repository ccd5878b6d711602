#include "returns/frm_normal.h"

#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/keys.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/twips.h"
#include "returns/module2.h"

#include <QKeyEvent>
#include <array>
#include <charconv>

namespace returns {

namespace {

using basic::Variant;

// Colours as the old platform wrote them, blue in the high byte: 0xC0C0FF is a light red.
QColor oleColor(unsigned bgr) { return QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF)); }

void place(QWidget* w, int left, int top, int width, int height) {
    w->setGeometry(forms::twips(left), forms::twips(top), forms::twips(width), forms::twips(height));
}

QLabel* makeLabel(QWidget* parent, const QString& caption, int left, int top, int width, int height) {
    auto* l = new QLabel(caption, parent);
    place(l, left, top, width, height);
    return l;
}

QLineEdit* makeBox(QWidget* parent, int left, int top, int width, int height) {
    auto* b = new QLineEdit(parent);
    place(b, left, top, width, height);
    return b;
}

QPushButton* makeButton(QWidget* parent, const QString& caption, unsigned bgr, int left, int top, int width,
                        int height) {
    auto* b = new QPushButton(caption, parent);
    place(b, left, top, width, height);
    QPalette p = b->palette();
    p.setColor(QPalette::Button, oleColor(bgr));
    b->setPalette(p);
    b->setAutoFillBackground(true);
    return b;
}

QString twoDecimals(double x) { return basic::Format(Variant(x), QStringLiteral("#0.00")); }

// The strict conversion of the totals pass: the whole text must be a number, else the addition fails.
// Plain decimals ("1000", " -12.50 ") are read here, as they are nearly every cell and the pass runs on
// every key; any other text goes to the platform's conversion, which knows its further forms.
bool strictValue(const QString& text, double& value) {
    QStringView t(text);
    while (!t.isEmpty() && t.front() == u' ') t = t.sliced(1);
    while (!t.isEmpty() && t.back() == u' ') t.chop(1);
    if (t.isEmpty()) return false;
    char buffer[32];
    bool plain = t.size() < qsizetype(sizeof buffer);
    int digits = 0, points = 0;
    for (qsizetype i = 0; plain && i < t.size(); ++i) {
        const char16_t c = t[i].unicode();
        if (c >= u'0' && c <= u'9') ++digits;
        else if (c == u'.') ++points;
        else if (!(i == 0 && (c == u'-' || c == u'+'))) plain = false;
        buffer[i] = char(c);
    }
    if (plain && digits > 0 && points <= 1) {
        const char* first = buffer + (buffer[0] == '+' ? 1 : 0);
        const auto [end, ec] = std::from_chars(first, buffer + t.size(), value);
        if (ec == std::errc() && end == buffer + t.size()) return true;
    }
    return basic::resume([&] { value = basic::CDbl(Variant(text)); }).number() == 0;
}

QStringView trimmedBlanks(const QString& text) {
    QStringView t(text);
    while (!t.isEmpty() && t.front() == u' ') t = t.sliced(1);
    while (!t.isEmpty() && t.back() == u' ') t.chop(1);
    return t;
}

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
const QString kDateLine2Purchase = QStringLiteral("Please follow  'DD-MM-YY '");
const QString kDateLine2Sales = QStringLiteral("Please follow    'DD-MM-YY ' ");

QString dateMessage(const QString& secondLine) {
    return kDateLine1 + QStringLiteral("\n") + secondLine + QStringLiteral("\n") + kDateLine3;
}

struct Band {
    const char* key;
    QLabel* amount;
    QLabel* tax;
    QLabel* cess;
};

// One full recount of a grid: the grand total of column 9 over every row, and per band the sums of
// columns 6 to 8 of the rows whose trimmed rate is exactly the band's key. Every addition that fails
// is skipped by itself; the figures are written grand total first, then Amounts, Taxes, Cesses.
template <std::size_t N>
void totalsPass(const forms::FlexGrid* grid, QLineEdit* totalBox, const std::array<Band, N>& bands) {
    double grand = 0;
    std::array<double, N> amount{}, tax{}, cess{};
    const int rows = grid->Rows();
    for (int r = 1; r < rows; ++r) {
        double v = 0;
        if (strictValue(grid->TextMatrix(r, 9), v)) grand += v;
        const QStringView rate = trimmedBlanks(grid->TextMatrix(r, 5));
        for (std::size_t b = 0; b < N; ++b) {
            if (rate != QLatin1StringView(bands[b].key)) continue;
            if (strictValue(grid->TextMatrix(r, 6), v)) amount[b] += v;
            if (strictValue(grid->TextMatrix(r, 7), v)) tax[b] += v;
            if (strictValue(grid->TextMatrix(r, 8), v)) cess[b] += v;
            break;
        }
    }
    totalBox->setText(twoDecimals(grand));
    for (std::size_t b = 0; b < N; ++b) bands[b].amount->setText(twoDecimals(amount[b]));
    for (std::size_t b = 0; b < N; ++b) bands[b].tax->setText(twoDecimals(tax[b]));
    for (std::size_t b = 0; b < N; ++b) bands[b].cess->setText(twoDecimals(cess[b]));
}

// The row total: (Tax + Amount) + Cess of the current row, each read leniently, into column 9.
void writeRowTotal(forms::FlexGrid* grid) {
    const int r = grid->Row();
    const double amount = basic::Val(grid->TextMatrix(r, 6));
    const double tax = basic::Val(grid->TextMatrix(r, 7));
    const double cess = basic::Val(grid->TextMatrix(r, 8));
    grid->setTextMatrix(r, 9, twoDecimals((tax + amount) + cess));
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

frmNormal::frmNormal(QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("             Form No. 52"));
    QFont f = font();
    f.setPixelSize(11);
    setFont(f);
    resize(forms::twips(15420), forms::twips(9960));

    List4 = new forms::ListBox(this);
    place(List4, 0, 0, 3255, 630);
    Label3 = makeLabel(this, QStringLiteral("Dealer"), 5400, 240, 735, 255);
    Label4 = makeLabel(this, QStringLiteral("Details"), 5400, 480, 735, 255);
    lblCustomerName = makeLabel(this, QString(), 6240, 120, 4695, 735);
    Label46 = makeLabel(this, QStringLiteral("Place:"), 11160, 360, 735, 195);
    txtPlace = makeBox(this, 12000, 360, 2775, 195);
    Label47 = makeLabel(this, QStringLiteral("Date:"), 11280, 600, 615, 195);
    txtDate = makeBox(this, 12000, 600, 1095, 195);
    Label2 = makeLabel(this, QStringLiteral("Purchase Register for the Month of"), 120, 720, 3735, 255);
    txtRPTo = makeBox(this, 3840, 720, 1335, 195);

    fg1 = new forms::FlexGrid(this);
    fg1->Move(120, 960, 15045, 2940);
    txtTotal = makeBox(this, 13320, 3960, 1815, 285);
    txtTotal->setAlignment(Qt::AlignRight);
    cmdPrint1 = makeButton(this, QStringLiteral("PRINT"), 0xD0AEDD, 13320, 4320, 1785, 300);

    Label1 = makeLabel(this, QStringLiteral(" Sales Register for the Month of"), 360, 5040, 3375, 255);
    txtMonth = makeBox(this, 4080, 5040, 1335, 195);
    fg2 = new forms::FlexGrid(this);
    fg2->Move(120, 5280, 15045, 2580);
    txtTotal2 = makeBox(this, 13320, 7920, 1815, 285);
    txtTotal2->setAlignment(Qt::AlignRight);
    Command2 = makeButton(this, QStringLiteral("PRINT"), 0xD0AEDD, 13320, 8280, 1755, 300);

    Frame1 = new QGroupBox(this);
    place(Frame1, 120, 9000, 15135, 735);
    cmdAdd = makeButton(Frame1, QStringLiteral("&Add"), 0xC0C0FF, 5280, 240, 975, 375);
    cmdExport = makeButton(Frame1, QStringLiteral("E&xport"), 0xC0C0FF, 6240, 240, 975, 375);
    cmdClose = makeButton(Frame1, QStringLiteral("C&lose"), 0xC0C0FF, 7200, 240, 975, 375);
    cmdDelete = makeButton(Frame1, QStringLiteral("&Delete"), 0xC0C0FF, 8160, 240, 975, 375);

    buildTotals();

    // The editors and the rate lists float over the grids.
    txtGrid1 = new QLineEdit(this);
    txtGrid2 = new QLineEdit(this);
    List2 = new forms::ListBox(this);
    List3 = new forms::ListBox(this);
    for (QLineEdit* box : {txtGrid1, txtGrid2}) {
        box->setFrame(false);
        box->raise();
        box->installEventFilter(this);
    }
    for (forms::ListBox* list : {List2, List3}) {
        list->resize(forms::twips(800), forms::twips(1275));
        list->hide();
        list->raise();
        list->installEventFilter(this);
    }
    fillList2(RateList::LocalPurchase);
    fillList3();

    forms::wire(fg1, &forms::FlexGrid::EnterCell, this, [this] { fg1_EnterCell(); });
    forms::wire(fg1, &forms::FlexGrid::LeaveCell, this, [this] { fg1_LeaveCell(); });
    forms::wire(fg2, &forms::FlexGrid::EnterCell, this, [this] { fg2_EnterCell(); });
    forms::wire(fg2, &forms::FlexGrid::LeaveCell, this, [this] { fg2_LeaveCell(); });

    procSetGrid();
    procSetGrid2();
    fg1->setCol(1);
    fg2->setCol(1);
    procMoveTextBox();
    procMoveTextBox2();
    buildFlows();
}

void frmNormal::buildTotals() {
    // Two columns of band rows under each grid, each column under its own headers; the figure labels
    // keep the numbers the rest of the system reads them by.
    struct Column {
        int caption, amount, tax, cess;
    };
    const Column left{120, 2640, 3960, 5180};
    const Column right{6600, 9120, 10440, 11660};
    constexpr int kCaptionWidth = 2500, kAmountWidth = 1300, kTaxWidth = 1200, kCessWidth = 1100;
    constexpr int kRowHeight = 240, kRowStep = 255;

    auto headers = [&](const Column& c, int top, QLabel*& rate, QLabel*& amount, QLabel*& tax, QLabel*& cess,
                       const char* rateText, const char* amountText, const char* taxText, const char* cessText) {
        rate = makeLabel(this, QString::fromLatin1(rateText), c.caption, top, kCaptionWidth, kRowHeight);
        amount = makeLabel(this, QString::fromLatin1(amountText), c.amount, top, kAmountWidth, kRowHeight);
        tax = makeLabel(this, QString::fromLatin1(taxText), c.tax, top, kTaxWidth, kRowHeight);
        cess = makeLabel(this, QString::fromLatin1(cessText), c.cess, top, kCessWidth, kRowHeight);
        for (QLabel* l : {amount, tax, cess}) l->setAlignment(Qt::AlignCenter);
    };
    auto band = [&](const Column& c, int top, QLabel*& caption, const char* captionText, QLabel*& amount,
                    QLabel*& tax, QLabel*& cess, const QString& amountBlank = QStringLiteral(" "),
                    const QString& cessBlank = QStringLiteral(" ")) {
        caption = makeLabel(this, QString::fromLatin1(captionText), c.caption, top, kCaptionWidth, kRowHeight);
        amount = makeLabel(this, amountBlank, c.amount, top, kAmountWidth, kRowHeight);
        tax = makeLabel(this, QStringLiteral(" "), c.tax, top, kTaxWidth, kRowHeight);
        cess = makeLabel(this, cessBlank, c.cess, top, kCessWidth, kRowHeight);
        for (QLabel* l : {amount, tax, cess}) {
            l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            l->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        }
    };

    int top = 3960;
    headers(left, top, Label60, Label9, Label11, Label59, "Rate of Tax % ", "Amount", "  Tax ", "Cess");
    headers(right, top, Label64, Label41, Label40, Label63, "Rate of Tax % ", "Amount", "Tax ", "Cess");
    band(left, top + kRowStep, Label5, "1, Total Purchase   @    0 %   ", Label12, Label16, Label58);
    band(left, top + 2 * kRowStep, Label6, "2, Total Purchase   @    1 %   ", Label13, Label17, Label57);
    band(left, top + 3 * kRowStep, Label7, "3, Total Purchase   @    4 %   ", Label14, Label18, Label56);
    band(right, top + kRowStep, Label8, "4, Total Purchase   @  12.5 %   ", Label15, Label19, Label62);
    band(right, top + 2 * kRowStep, Label42, "5, Total Purchase   @    20 %   ", Label10, Label34, Label61);

    top = 7920;
    headers(left, top, Label65, Label29, Label28, Label51, "Rate of Tax % ", "Amount", "Tax ", "Cess");
    headers(right, top, Label66, Label39, Label38, Label55, "Rate of Tax % ", "Amount", "Tax ", "Cess");
    band(left, top + kRowStep, Label33, "1, Total Sales   @    0 %   ", Label23, Label27, Label50,
         QStringLiteral(" "), QString());
    band(left, top + 2 * kRowStep, Label32, "2, Total Sales   @    1 %   ", Label22, Label26, Label49);
    band(left, top + 3 * kRowStep, Label31, "3, Total Sales   @    4 %   ", Label21, Label25, Label48);
    band(right, top + kRowStep, Label30, "4, Total Sales   @    12.5 %   ", Label20, Label24, Label54,
         QStringLiteral(" "), QString());
    band(right, top + 2 * kRowStep, Label43, "5, Total Sales   @    CST %   ", Label35, Label36, Label53);
    band(right, top + 3 * kRowStep, Label37, "6, Total Sales   @    20 %   ", Label45, Label44, Label52);
}

void frmNormal::fillList2(RateList filling) {
    static const char* const kAtLoad[] = {"         0", "         1", "         4", "       12.5", "        20       "};
    static const char* const kLocal[] = {"      0", "      1", "      4", "    12.5", "     20       "};
    static const char* const kInterState[] = {"      0", "      1", "      4", "    12.5", "      20"};
    const char* const* entries = filling == RateList::AtLoad ? kAtLoad
                                 : filling == RateList::LocalPurchase ? kLocal
                                                                      : kInterState;
    List2->Clear();
    for (int i = 0; i < 5; ++i) List2->AddItem(QString::fromLatin1(entries[i]));
}

void frmNormal::fillList3() {
    List3->Clear();
    for (const char* e : {"      0", "      1", "      4", "    12.5", "     20  ", "     CST "})
        List3->AddItem(QString::fromLatin1(e));
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
    box->setGeometry(forms::twips(grid->Left() + grid->CellLeft()), forms::twips(grid->Top() + grid->CellTop()),
                     forms::twips(grid->CellWidth()), forms::twips(grid->CellHeight()));
}

void frmNormal::procMoveTextBox() { moveTextBox(fg1, txtGrid1); }
void frmNormal::procMoveTextBox2() { moveTextBox(fg2, txtGrid2); }

// ---- the cursor's walk -------------------------------------------------------------------------------

// One step of the walk: along the row, and from column 9 to column 1 of the next row, appending a row
// at the end of the grid. The purchase pass runs here whichever grid moved; the sales key handlers run
// their own pass after it.
void frmNormal::procMoveColumn1(forms::FlexGrid* grid) {
    if (grid->Col() == 9) {
        if (grid->Row() != grid->Rows() - 1) grid->setRow(grid->Row() + 1);
        else procNewGridCreateRow(grid);
        grid->setCol(1);
    } else {
        grid->setCol(grid->Col() + 1);
    }
    procTotalCal1();
}

void frmNormal::procNewGridCreateRow(forms::FlexGrid* grid) {
    const int n = grid->Rows() + 1;
    grid->setRows(n);
    grid->setRow(n - 1);
    grid->setTextMatrix(n - 1, 0, QString::number(n - 1));
}

void frmNormal::procGridCreateRow() { procNewGridCreateRow(fg1); }
void frmNormal::procGridCreateRow2() { procNewGridCreateRow(fg2); }
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

void frmNormal::enterCell(forms::FlexGrid* grid, QLineEdit* box, forms::ListBox* list) {
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
        list->hide();
        break;
    case 8:
        box->setAlignment(Qt::AlignRight);
        box->setReadOnly(false);
        list->hide();
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
}

void frmNormal::leaveCell(forms::FlexGrid* grid, QLineEdit* box) {
    // The total is taken before the cell takes the box's text: a value left by the mouse or an arrow
    // joins column 9 only at the next move in that row.
    writeRowTotal(grid);
    const int c = grid->Col();
    if (c >= 1 && c <= 5) grid->setText(box->text());
    else if (c >= 6 && c <= 9) grid->setText(twoDecimals(basic::Val(box->text())));
}

void frmNormal::fg1_EnterCell() {
    enterCell(fg1, txtGrid1, List2);
    procTotalCal1();
}

void frmNormal::fg1_LeaveCell() {
    leaveCell(fg1, txtGrid1);
    procTotalCal1();
}

void frmNormal::fg2_EnterCell() {
    enterCell(fg2, txtGrid2, List3);
    procTotalCal2();
}

void frmNormal::fg2_LeaveCell() {
    leaveCell(fg2, txtGrid2);
    procTotalCal2();
}

// ---- keys in the editors -----------------------------------------------------------------------------

void frmNormal::openRateList(forms::FlexGrid* grid, forms::ListBox* list) {
    list->move(forms::twips(grid->Left() + grid->CellLeft()), forms::twips(grid->Top() + grid->CellTop() + 300));
    list->resize(forms::twips(grid->CellWidth()), list->height());
    list->setListIndex(0);
    list->setVisible(true);
    list->raise();
    list->setFocus();
}

void frmNormal::txtGrid1_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) {
        fg1->setText(txtGrid1->text());
        if (fg1->Col() == 1 && !IsBillDateShape(basic::Trim(txtGrid1->text()))) {
            forms::MsgBox(dateMessage(kDateLine2Purchase), forms::vbExclamation, kDateTitle);
            txtGrid1->setText(QString());
        } else {
            procMoveColumn1(fg1);
            procMoveTextBox();
        }
        if (fg1->Col() == 5) openRateList(fg1, List2);
    } else if (KeyAscii == 25) {
        std::int16_t row = std::int16_t(fg1->Row());
        fnDeleteRow(row);
    } else if (KeyAscii == 4) {
        // The year of the date fill is fixed.
        if (fg1->Col() == 1) txtGrid1->setText(FirstOfMonthText(basic::Trim(txtRPTo->text()), QStringLiteral("09")));
    }
    procTotalCal1();
}

void frmNormal::txtGrid2_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) {
        fg2->setText(txtGrid2->text());
        if (fg2->Col() == 1 && !IsBillDateShape(basic::Trim(txtGrid2->text()))) {
            forms::MsgBox(dateMessage(kDateLine2Sales), forms::vbExclamation, kDateTitle);
            txtGrid2->setText(QString());
        } else {
            procMoveColumn1(fg2);
            procMoveTextBox2();
        }
        if (fg2->Col() == 5) openRateList(fg2, List3);
    } else if (KeyAscii == 25) {
        fnDeleteRow2(std::int16_t(fg2->Row()));
    } else if (KeyAscii == 4) {
        if (fg2->Col() == 1) txtGrid2->setText(FirstOfMonthText(basic::Trim(txtRPTo->text()), QStringLiteral("09")));
    }
    procTotalCal2();
}

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

void frmNormal::List2_KeyPress(int KeyAscii) {
    if (KeyAscii != 13) return;
    txtGrid1->setText(List2->Text());
    List2->hide();
    procMoveColumn1(fg1);
    procMoveTextBox();
}

void frmNormal::List3_KeyPress(int KeyAscii) {
    if (KeyAscii != 13) return;
    txtGrid2->setText(List3->Text());
    List3->hide();
    procMoveColumn1(fg2);
    procMoveTextBox2();
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

// ---- rate-wise totals --------------------------------------------------------------------------------

void frmNormal::procTotalCal1() {
    const std::array<Band, 5> bands = {{
        {"0", Label12, Label16, Label58},
        {"1", Label13, Label17, Label57},
        {"4", Label14, Label18, Label56},
        {"12.5", Label15, Label19, Label62},
        {"20", Label10, Label34, Label61},
    }};
    totalsPass(fg1, txtTotal, bands);
}

void frmNormal::procTotalCal2() {
    const std::array<Band, 6> bands = {{
        {"0", Label23, Label27, Label50},
        {"1", Label22, Label26, Label49},
        {"4", Label21, Label25, Label48},
        {"12.5", Label20, Label24, Label54},
        {"CST", Label35, Label36, Label53},
        {"20", Label45, Label44, Label52},
    }};
    totalsPass(fg2, txtTotal2, bands);
}

void frmNormal::procTotalCal() {
    for (int r = 1; r < fg1->Rows(); ++r) {
        const double rate = basic::CDbl(Variant(fg1->TextMatrix(r, 5)));
        const double billNo = basic::CDbl(Variant(fg1->TextMatrix(r, 4)));
        fg1->setTextMatrix(r, 6, twoDecimals((rate / 100) * billNo));
    }
}

void frmNormal::procGridEdit(forms::FlexGrid* grid, QLineEdit* box, int KeyAscii) {
    if (KeyAscii > 32) {
        box->setText(QString(QChar(KeyAscii)));
        box->setCursorPosition(1);
    } else {
        box->setText(grid->Text());
        box->setCursorPosition(int(std::min<qsizetype>(2000, box->text().size())));
    }
    moveTextBox(grid, box);
    box->setVisible(true);
}

void frmNormal::procMoveColumn() {
    if (fg1->Col() == 9) {
        if (fg1->Row() != fg1->Rows() - 1) fg1->setRow(fg1->Row() + 1);
        else procNewGridCreateRow(fg1);
        fg1->setCol(1);
    } else {
        fg1->setCol(fg1->Col() + 1);
    }
}

}  // namespace returns
