// frmNormal's layout: the controls where the window has them, the band labels of the totals, the
// fillings of the pick lists, and the wiring of the controls to their handlers.
#include "returns/frm_normal.h"

#include "platform/forms/event_tap.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/keys.h"
#include "platform/forms/layout.h"
#include "platform/forms/list_box.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/twips.h"
#include "platform/reports/crystal_report.h"
#include "returns/bill_sheets.h"

#include <QKeyEvent>

namespace returns {

namespace {

template <class Control>
Control* placed(Control* control, int left, int top, int width, int height) {
    forms::place(control, left, top, width, height);
    return control;
}

QLabel* makeLabel(QWidget* parent, const QString& caption, int left, int top, int width, int height) {
    return placed(new QLabel(caption, parent), left, top, width, height);
}

QLineEdit* makeBox(QWidget* parent, int left, int top, int width, int height) {
    return placed(new QLineEdit(parent), left, top, width, height);
}

QPushButton* makeButton(QWidget* parent, const QString& caption, unsigned bgr, int left, int top, int width,
                        int height) {
    // The face only: the frame keeps the style's own colour.
    auto* b = placed(new QPushButton(caption, parent), left, top, width, height);
    forms::setColour(b, QPalette::Button, bgr);
    b->setAutoFillBackground(true);
    return b;
}

bool isEnter(QEvent* e) {
    if (e->type() != QEvent::KeyPress) return false;
    const int k = static_cast<QKeyEvent*>(e)->key();
    return k == Qt::Key_Return || k == Qt::Key_Enter;
}

}  // namespace

frmNormal::frmNormal(QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("             Form No. 52"));
    QFont f = font();
    f.setPixelSize(11);
    setFont(f);
    resize(forms::twips(15420), forms::twips(9960));

    List4 = new forms::ListBox(this);
    forms::place(List4, 0, 0, 3255, 630);
    Label3 = makeLabel(this, QStringLiteral("Dealer"), 5400, 240, 735, 255);
    Label4 = makeLabel(this, QStringLiteral("Details"), 5400, 480, 735, 255);
    lblCustomerName = makeLabel(this, QString(), 6240, 120, 4695, 735);
    lblBook = makeLabel(this, QString(), 6240, 600, 4695, 255);
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
    forms::place(Frame1, 120, 9000, 15135, 735);
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
    // Spreadsheets in and out: a button at the free end of the button frame, Ctrl+V, Ctrl+Z, Ctrl+I.
    new BillSheets(this);
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

// ---- wiring ----------------------------------------------------------------------------------------------

void frmNormal::tapEvents(QWidget* target, std::function<bool(QEvent*)> handler) {
    target->installEventFilter(new forms::EventTap(this, std::move(handler)));
}

void frmNormal::buildFlows() {
    List1 = new forms::ListBox(this);
    forms::place(List1, 3840, 960, 1335, 2370);
    List1->hide();
    List1->raise();
    // The month box opens its list when clicked or given the focus by the program. Reached by Tab it
    // only takes the focus, and Enter, F4 or Alt+Down opens the list, so that the focus passing on from
    // the closing list never opens it again.
    txtMonth->setFocusPolicy(Qt::ClickFocus);
    // Next to each other in the chain: Shift+Tab from the purchase editor reaches the month box.
    setTabOrder(txtRPTo, txtGrid1);

    forms::wire(txtRPTo, &QLineEdit::textChanged, this, [this] { txtRPTo_Change(); });
    tapEvents(txtRPTo, [this](QEvent* e) {
        if (e->type() == QEvent::FocusIn) {
            const Qt::FocusReason why = static_cast<QFocusEvent*>(e)->reason();
            if (why == Qt::MouseFocusReason || why == Qt::OtherFocusReason) txtRPTo_GotFocus();
        } else if (e->type() == QEvent::KeyPress) {
            const auto* k = static_cast<QKeyEvent*>(e);
            if (isEnter(e) || k->key() == Qt::Key_F4 || (k->key() == Qt::Key_Down && (k->modifiers() & Qt::AltModifier))) {
                txtRPTo_GotFocus();
                return true;
            }
        }
        return false;
    });
    tapEvents(List1, [this](QEvent* e) {
        if (e->type() == QEvent::KeyPress) {
            auto* k = static_cast<QKeyEvent*>(e);
            List1_KeyDown(forms::keyCode(*k), forms::shiftMask(k->modifiers()));
            if (isEnter(e)) {
                List1_KeyPress(13);
                return true;
            }
        } else if (e->type() == QEvent::KeyRelease) {
            auto* k = static_cast<QKeyEvent*>(e);
            List1_KeyUp(forms::keyCode(*k), forms::shiftMask(k->modifiers()));
        } else if (e->type() == QEvent::FocusOut) {
            List1_LostFocus();
        }
        return false;
    });
    forms::wire(List1, &forms::ListBox::DblClick, this, [this] { List1_DblClick(); });
    forms::wire(List4, &forms::ListBox::Click, this, [this] { List4_Click(); });

    forms::wire(cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    forms::wire(cmdDelete, &QPushButton::clicked, this, [this] { cmdDelete_Click(); });
    forms::wire(cmdClose, &QPushButton::clicked, this, [this] { cmdClose_Click(); });
    forms::wire(cmdExport, &QPushButton::clicked, this, [this] { cmdExport_Click(); });
    forms::wire(cmdPrint1, &QPushButton::clicked, this, [this] { cmdPrint1_Click(); });
    forms::wire(Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    CrystalReport1 = new reports::CrystalReport(this);
    const auto focusColours = [this](QPushButton* button, unsigned in, unsigned out,
                                     std::function<void(int)> keyPress) {
        tapEvents(button, [this, button, in, out, keyPress](QEvent* e) {
            if (e->type() == QEvent::FocusIn) forms::setColour(button, QPalette::Button, in);
            else if (e->type() == QEvent::FocusOut) forms::setColour(button, QPalette::Button, out);
            else if (keyPress && isEnter(e)) {
                keyPress(13);
                return true;
            }
            return false;
        });
    };
    focusColours(cmdAdd, 0xC0FFFF, 0xC0C0FF, [this](int k) { cmdAdd_KeyPress(k); });
    focusColours(cmdDelete, 0xC0FFFF, 0xC0C0FF, [this](int k) { cmdDelete_KeyPress(k); });
    focusColours(cmdClose, 0xC0FFFF, 0xC0C0FF, [this](int k) { cmdClose_KeyPress(k); });
    focusColours(cmdExport, 0xC0FFFF, 0xC0C0FF, [this](int k) { cmdExport_KeyPress(k); });
    focusColours(Command2, 0xC0FFFF, 0xFFC0FF, nullptr);
}

}  // namespace returns
