// frmNormal's start, its month list and purchase-kind list, and its buttons Add, Delete and Close.
#include "platform/basic/clock.h"
#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/event_tap.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/keys.h"
#include "platform/forms/list_box.h"
#include "platform/forms/show_form.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "platform/reports/crystal_report.h"
#include "platform/store/errors.h"
#include "returns/frm_normal.h"
#include "returns/frm_select.h"
#include "returns/module2.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <vector>

namespace returns {

namespace {

using basic::Variant;

QString today(const char* format) { return basic::Format(Variant(basic::Clock::today()), QString::fromLatin1(format)); }

using forms::EventTap;

bool isEnter(QEvent* e) {
    if (e->type() != QEvent::KeyPress) return false;
    const int k = static_cast<QKeyEvent*>(e)->key();
    return k == Qt::Key_Return || k == Qt::Key_Enter;
}

// What the grids and the boxes beside them hold, so that a press whose store work failed can put back
// what the user typed.
struct Typed {
    std::vector<QStringList> fg1, fg2;
    QString date, place;
};

std::vector<QStringList> cellsOf(const forms::FlexGrid* grid) {
    std::vector<QStringList> rows;
    for (int r = 0; r < grid->Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < grid->Cols(); ++c) cells << grid->TextMatrix(r, c);
        rows.push_back(cells);
    }
    return rows;
}

void putBack(forms::FlexGrid* grid, const std::vector<QStringList>& rows) {
    grid->setRows(int(rows.size()));
    for (int r = 0; r < int(rows.size()); ++r)
        for (int c = 0; c < rows[r].size(); ++c) grid->setTextMatrix(r, c, rows[r][c]);
}

// The failure in words for the user: what was being stored, what went wrong with it, what to do.
QString failureText(const basic::RuntimeError& e, const QString& step) {
    const QString kept = QStringLiteral(".\nThe bills are still on the screen; ");
    if (e.source() == kBillDateSource)
        return QStringLiteral("Nothing was saved: ") + e.description() + kept +
               QStringLiteral("correct the date and press Add again.");
    if (store::isDiskFull(e))
        return QStringLiteral("Nothing was saved: the disk is full, while ") + step + kept +
               QStringLiteral("free some space on the disk and press Add again.");
    return QStringLiteral("Nothing was saved: the store refused it (") + e.description() + QStringLiteral("), while ") +
           step + kept + QStringLiteral("correct them and press Add again.");
}

}  // namespace

void frmNormal::tapEvents(QWidget* target, std::function<bool(QEvent*)> handler) {
    target->installEventFilter(new EventTap(this, std::move(handler)));
}

void frmNormal::setButtonColour(QPushButton* button, unsigned bgr) {
    QPalette p = button->palette();
    p.setColor(QPalette::Button, QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF)));
    button->setPalette(p);
}

void frmNormal::buildFlows() {
    List1 = new forms::ListBox(this);
    List1->setGeometry(forms::twips(3840), forms::twips(960), forms::twips(1335), forms::twips(2370));
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
            if (e->type() == QEvent::FocusIn) setButtonColour(button, in);
            else if (e->type() == QEvent::FocusOut) setButtonColour(button, out);
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

// ---- start ---------------------------------------------------------------------------------------------

void frmNormal::Show() { forms::showForm(this, loaded_); }

void frmNormal::Form_Load() {
    List2->hide();
    List3->hide();
    txtRPTo->setText(today("mmmm"));
    txtMonth->setText(today("mmmm"));
    txtDate->setText(today("dd-mm-yy"));
    List1->hide();
    List1->Clear();
    for (const char* m : {"January", "February", "March", "April", "May", "June", "July", "August", "September",
                          "October", "November", "December"})
        List1->AddItem(QString::fromLatin1(m));
    fillList2(RateList::AtLoad);
    fillList3();
    List4->Clear();
    List4->AddItem(QStringLiteral("Local Purchase"));
    List4->AddItem(QStringLiteral("Inter State Purchase"));
    {
        // The kind is chosen before any store work: a load that the store stops half-way must not leave
        // Add writing the purchases to the other kind's table. Its reading comes at the end, as always.
        const QSignalBlocker quiet(List4);
        List4->setListIndex(0);
    }
    lblCustomerName->setText(DealerName);
    fg1->setTextMatrix(1, 0, QStringLiteral("1"));
    fg1->setCol(1);
    procSetGrid();
    procMoveTextBox();
    fg2->setTextMatrix(1, 0, QStringLiteral("1"));
    fg2->setCol(1);
    procSetGrid2();
    procMoveTextBox2();
    procReadSales_1();
    fg1->setRow(1);
    fg1->setCol(1);
    List4_Click();
}

// Each activation reloads the month from the store; what was typed and not added is gone.
void frmNormal::Form_Activate() {
    const auto ignore = [](auto&& statement) { (void)basic::resume(statement); };
    ignore([&] { setWindowState(windowState() | Qt::WindowMaximized); });
    ignore([&] { procReadPurchase(); });
    ignore([&] { procReadSales_1(); });
    ignore([&] { fg1->setRow(1); });
    ignore([&] { fg1->setCol(1); });
    ignore([&] { fg1->setFocus(); });
    ignore([&] { fg2->setRow(1); });
    ignore([&] { fg2->setCol(1); });
    ignore([&] { txtGrid2->setText(fg2->Text()); });
    ignore([&] { fg1->setTextMatrix(1, 0, QStringLiteral("1")); });
    ignore([&] { fg2->setTextMatrix(1, 0, QStringLiteral("1")); });
}

// ---- the month list ------------------------------------------------------------------------------------

void frmNormal::txtRPTo_GotFocus() {
    List4->setEnabled(false);
    List1->setVisible(true);
    List1->setFocus();
    // Today's month is selected, whatever month the box shows.
    const QString month = basic::Trim(today("mmmm"));
    for (int i = 0; i < List1->ListCount(); ++i)
        if (basic::Trim(List1->List(i)) == month) List1->setListIndex(i);
}

void frmNormal::txtRPTo_Change() { txtMonth->setText(txtRPTo->text()); }

void frmNormal::List1_KeyDown(int, int) {
    txtRPTo->setText(List1->Text());
    txtMonth->setText(txtRPTo->text());
}

void frmNormal::List1_KeyUp(int, int) {
    txtRPTo->setText(List1->Text());
    txtMonth->setText(txtRPTo->text());
}

// Hiding the list takes the focus from it, so List1_LostFocus runs these steps a second time after
// the key or the double click: a month without records says so twice. The program has always done so.
void frmNormal::commitMonth(bool enableList4, bool markFirstRows) {
    txtRPTo->setText(List1->Text());
    txtMonth->setText(List1->Text());
    List1->hide();
    procRecExists(QStringLiteral("tblPurchase1"));
    if (!RecordExists) {
        forms::MsgBox(QStringLiteral("No Record Exists"), forms::vbInformation, QStringLiteral("Sorry...."));
        fg1->Clear();
        fg2->Clear();
        txtGrid1->setText(QString());
        txtGrid2->setText(QString());
        procSetGrid();
        procSetGrid2();
        txtDate->setText(today("dd-mm-yy"));
        txtPlace->setText(QString());
        // The emptied month shows its totals at once, as a month read from the store does.
        procTotalCal1();
        procTotalCal2();
    } else {
        procReadPurchase();
        procReadSales_1();
    }
    // Either way the keyboard goes on in the purchase grid.
    txtGrid1->setFocus();
    if (markFirstRows) {
        fg1->setTextMatrix(1, 0, QStringLiteral("1"));
        fg2->setTextMatrix(1, 0, QStringLiteral("1"));
    }
    if (enableList4) List4->setEnabled(true);
}

void frmNormal::List1_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) commitMonth(true, false);
}

void frmNormal::List1_DblClick() { commitMonth(false, true); }

void frmNormal::List1_LostFocus() { commitMonth(true, true); }

void frmNormal::List4_Click() {
    const bool local = List4->ListIndex() == 0;
    if (local) procReadPurchase();
    else procReadPurchaseInterState();
    fillList2(local ? RateList::LocalPurchase : RateList::InterStatePurchase);
    fg1->setTextMatrix(1, 0, QStringLiteral("1"));
    procMoveTextBox();
}

// ---- Add ------------------------------------------------------------------------------------------------

// The whole store work of the press is one transaction: if any of it fails, nothing of it is stored,
// the grids get back what was typed and the box says what failed. The summaries are staged twice: the
// first staging finds no key row (ClearTable has just removed it) and passes silently; the second, on
// fresh key rows and the tblCommon row just written, fills them. The second staging runs before the
// box, so that the transaction is not held open while the box waits; it reports nothing either way.
void frmNormal::addMonth(bool byEnter) {
    if (List4->ListIndex() < 0) {
        forms::MsgBox(QStringLiteral("Nothing was saved: no purchase kind is chosen.\nChoose Local Purchase or Inter "
                                     "State Purchase in the list at the top left and press Add again."),
                      forms::vbExclamation, QStringLiteral("Not saved"));
        return;
    }
    const Typed typed{cellsOf(fg1), cellsOf(fg2), txtDate->text(), txtPlace->text()};
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ConnectReturnStore();
    store::Connection transaction = cnReturn;
    transaction.BeginTrans();
    storeStep_.clear();
    const bool local = List4->ListIndex() == 0;
    // The registers' routines pass over their failures; one that cost the transaction is the failure of
    // the step that met it, so each such step is followed by a check.
    const auto step = [&](const char* name, const std::function<void()>& work) {
        storeStep_ = QString::fromLatin1(name);
        work();
        transaction.ConfirmTrans();
    };
    const basic::RuntimeError failure = basic::resume([&] {
        step("preparing the registers", [&] { procLoadKey(); });
        if (local) {
            procWritePurchase();
            step("reading the purchase bills back", [&] { procReadPurchase(); });
            step("preparing the purchase register", [&] {
                ClearTable(QStringLiteral("tblRptPurchase1"));
                procLoadRptPurchase();
                ClearTable(QStringLiteral("tblRptPurchaseC"));
                procLoadRptPurchaseC();
            });
        } else {
            procWritePurchaseInterState();
            step("reading the purchase bills back", [&] { procReadPurchaseInterState(); });
            step("preparing the purchase register", [&] {
                ClearTable(QStringLiteral("tblRptPurchaseInterState"));
                procRptPurchaseInterState();
                ClearTable(QStringLiteral("tblRptPurchaseInterStateC"));
                procLoadRptPurchaseInterStateC();
            });
        }
        procWriteSales();
        step("reading the sales bills back", [&] { procReadSales_1(); });
        procWriteCommon();
        step("preparing the sales register", [&] {
            ClearTable(QStringLiteral("tblRptSales"));
            procLoadRptSalesC();
            ClearTable(QStringLiteral("tblRptSales1"));
            procLoadRptSales();
        });
        step("preparing the registers", [&] {
            procLoadKey();
            if (local) procLoadRptPurchaseC();
            else procLoadRptPurchaseInterStateC();
            procLoadRptSalesC();
        });
        step("writing the month to the disk", [&] { transaction.CommitTrans(); });
    });
    QApplication::restoreOverrideCursor();
    if (failure.number() != 0) {
        (void)basic::resume([&] { transaction.RollbackTrans(); });
        putBack(fg1, typed.fg1);
        putBack(fg2, typed.fg2);
        txtDate->setText(typed.date);
        txtPlace->setText(typed.place);
        procTotalCal1();
        procTotalCal2();
        forms::MsgBox(failureText(failure, storeStep_), forms::vbExclamation, QStringLiteral("Not saved"));
        return;
    }
    forms::MsgBox(byEnter ? QStringLiteral("FILE  UPDATED  SUCCESSFULLY") : QStringLiteral("RECORD ADDED  SUCCESSFULLY"),
                  forms::vbInformation, QStringLiteral("Success...........!"));
    if (!byEnter) {
        cmdExport->setEnabled(true);
        cmdDelete->setEnabled(true);
        setButtonColour(cmdAdd, 0xC0C0FF);
    }
}

void frmNormal::cmdAdd_Click() { addMonth(false); }

void frmNormal::cmdAdd_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) addMonth(true);
}

// ---- Delete ---------------------------------------------------------------------------------------------

void frmNormal::deleteMonth(bool byEnter) {
    const Typed typed{cellsOf(fg1), cellsOf(fg2), txtDate->text(), txtPlace->text()};
    const bool local = List4->ListIndex() == 0;
    const QString sorry = QStringLiteral("Sorry.........!");
    const auto notExists = [&](const QString& text) {
        if (byEnter) forms::MsgBox(text);
        else forms::MsgBox(text, forms::vbInformation, sorry);
    };
    const auto removeMonth = [&](const QString& head) {
        if (rsBills.State() == 1) rsBills.Close();
        SqlText = head + "  WHERE cCode='" + DealerCode + "' AND cMonth='" + txtRPTo->text() + "'";
        rsBills.Open(SqlText, cnReturn, store::Recordset::adOpenKeyset, store::Recordset::adLockOptimistic);
        cnReturn.Execute(SqlText);
    };

    ConnectReturnStore();
    store::Connection transaction = cnReturn;
    transaction.BeginTrans();
    storeStep_ = QStringLiteral("deleting the month's bills");
    const basic::RuntimeError failure = basic::resume([&] {
        if (!fnRecordExistsNormal(local ? QStringLiteral("tblPurchase1") : QStringLiteral("tblPurchaseInterState1"))) {
            notExists(local ? QStringLiteral(" Record Not exists  of Local Purchase")
                            : QStringLiteral(" Record Not exists  of InterState Purchase"));
        } else if (forms::MsgBox(QStringLiteral(" Are you Sure "), forms::vbYesNo + forms::vbQuestion,
                                 local ? QStringLiteral("Delete Local Purchase Records ")
                                       : QStringLiteral("Delete Interstate Purchase Records ")) == forms::vbYes) {
            removeMonth(local ? QStringLiteral("DELETE * FROM  tblPurchase1 ")
                              : QStringLiteral("DELETE * FROM  tblPurchaseInterState1"));
            fg1->Clear();
            txtGrid1->setText(QString());
            procSetGrid();
        }
        if (!fnRecordExistsNormal(QStringLiteral("tblSales"))) {
            notExists(QStringLiteral(" Record Not exists  of Local Sales"));
        } else if (forms::MsgBox(QStringLiteral(" Are you Sure "), forms::vbYesNo + forms::vbQuestion,
                                 QStringLiteral("Delete Sales Records ")) == forms::vbYes) {
            removeMonth(QStringLiteral("DELETE * FROM  tblSales"));
            fg2->Clear();
            txtGrid2->setText(QString());
            procSetGrid2();
        }
        transaction.CommitTrans();
    });
    if (failure.number() != 0) {
        (void)basic::resume([&] { transaction.RollbackTrans(); });
        putBack(fg1, typed.fg1);
        putBack(fg2, typed.fg2);
        forms::MsgBox(QStringLiteral("Nothing was deleted: the store refused it (") + failure.description() +
                          QStringLiteral(")."),
                      forms::vbExclamation, QStringLiteral("Not deleted"));
    }
}

void frmNormal::cmdDelete_Click() { deleteMonth(false); }

void frmNormal::cmdDelete_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) deleteMonth(true);
}

// ---- Close ----------------------------------------------------------------------------------------------

void frmNormal::Unload() {
    hide();
    loaded_ = false;
}

void frmNormal::cmdClose_Click() {
    Unload();
    forms::get<frmSelect>(QStringLiteral("frmSelect"))->Show();
}

void frmNormal::cmdClose_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) cmdClose_Click();
}

}  // namespace returns
