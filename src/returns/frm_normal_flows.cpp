// frmNormal's start, its month list and purchase-kind list, and its buttons Add, Delete and Close.
#include "platform/basic/clock.h"
#include "platform/basic/variant.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/layout.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/show_form.h"
#include "platform/forms/wait_cursor.h"
#include "platform/forms/window_registry.h"
#include "returns/frm_normal.h"
#include "returns/frm_select.h"
#include "returns/log.h"
#include "returns/module2.h"
#include "returns/return_book.h"
#include "returns/return_books.h"
#include "returns/store_work.h"

#include <QCloseEvent>
#include <QSignalBlocker>
#include <utility>

namespace returns {

namespace {

using basic::Variant;

QString today(const char* format) { return basic::Format(Variant(basic::Clock::today()), QString::fromLatin1(format)); }

}  // namespace

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
    showBook();
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
    sayLockMet();
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
        txtPlace->setText(ForStatements(CurrentBook().place));   // the dealer's place; empty while no book is open
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

// The summaries are staged twice: the first staging finds no key row (ClearTable has just removed it)
// and passes silently; the second, on fresh key rows and the tblCommon row just written, fills them.
// The second staging runs before the box, so that the transaction is not held open while the box
// waits; it reports nothing either way.
void frmNormal::addMonth(bool byEnter) {
    const auto kindChosen = [this] {
        if (List4->ListIndex() >= 0) return true;
        forms::MsgBox(QStringLiteral("Nothing was saved: no purchase kind is chosen.\nChoose Local Purchase or Inter "
                                     "State Purchase in the list at the top left and press Add again."),
                      forms::vbExclamation, kAddWords.title);
        return false;
    };
    const bool local = List4->ListIndex() == 0;
    // The registers' routines pass over their failures; one that cost the transaction is the failure of
    // the step that met it, so each such step ends with a check.
    const bool added = runStoreWork(kAddWords, kindChosen, [&] {
        const forms::WaitCursor busy;
        storeStep(QStringLiteral("preparing the registers"), [&] { procLoadKey(); });
        if (local) {
            procWritePurchase();
            storeStep(QStringLiteral("reading the purchase bills back"), [&] { procReadPurchase(); });
            storeStep(QStringLiteral("preparing the purchase register"), [&] {
                ClearTable(QStringLiteral("tblRptPurchase1"));
                procLoadRptPurchase();
                ClearTable(QStringLiteral("tblRptPurchaseC"));
                procLoadRptPurchaseC();
            });
        } else {
            procWritePurchaseInterState();
            storeStep(QStringLiteral("reading the purchase bills back"), [&] { procReadPurchaseInterState(); });
            storeStep(QStringLiteral("preparing the purchase register"), [&] {
                ClearTable(QStringLiteral("tblRptPurchaseInterState"));
                procRptPurchaseInterState();
                ClearTable(QStringLiteral("tblRptPurchaseInterStateC"));
                procLoadRptPurchaseInterStateC();
            });
        }
        procWriteSales();
        storeStep(QStringLiteral("reading the sales bills back"), [&] { procReadSales_1(); });
        procWriteCommon();
        storeStep(QStringLiteral("preparing the sales register"), [&] {
            ClearTable(QStringLiteral("tblRptSales"));
            procLoadRptSalesC();
            ClearTable(QStringLiteral("tblRptSales1"));
            procLoadRptSales();
        });
        storeStep(QStringLiteral("preparing the registers"), [&] {
            procLoadKey();
            if (local) procLoadRptPurchaseC();
            else procLoadRptPurchaseInterStateC();
            procLoadRptSalesC();
        });
    });
    if (!added) return;
    forms::MsgBox(byEnter ? QStringLiteral("FILE  UPDATED  SUCCESSFULLY") : QStringLiteral("RECORD ADDED  SUCCESSFULLY"),
                  forms::vbInformation, QStringLiteral("Success...........!"));
    if (!byEnter) {
        cmdExport->setEnabled(true);
        cmdDelete->setEnabled(true);
        forms::setColour(cmdAdd, QPalette::Button, 0xC0C0FF);
    }
}

void frmNormal::cmdAdd_Click() { addMonth(false); }

void frmNormal::cmdAdd_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) addMonth(true);
}

// ---- Delete ---------------------------------------------------------------------------------------------

// Both questions come first, before the transaction: the file is not held while a box waits for the
// user. Then the kinds answered Yes are deleted together, and their grids emptied.
void frmNormal::deleteMonth(bool byEnter) {
    const bool local = List4->ListIndex() == 0;
    bool purchases = false, sales = false;
    const auto ask = [&](const QString& table, const QString& notExists, const QString& title) {
        if (!fnRecordExistsNormal(table)) {
            if (byEnter) forms::MsgBox(notExists);
            else forms::MsgBox(notExists, forms::vbInformation, QStringLiteral("Sorry.........!"));
            return false;
        }
        return forms::MsgBox(QStringLiteral(" Are you Sure "), forms::vbYesNo + forms::vbQuestion, title) == forms::vbYes;
    };
    const auto questions = [&] {
        purchases = ask(local ? QStringLiteral("tblPurchase1") : QStringLiteral("tblPurchaseInterState1"),
                        local ? QStringLiteral(" Record Not exists  of Local Purchase")
                              : QStringLiteral(" Record Not exists  of InterState Purchase"),
                        local ? QStringLiteral("Delete Local Purchase Records ")
                              : QStringLiteral("Delete Interstate Purchase Records "));
        sales = ask(QStringLiteral("tblSales"), QStringLiteral(" Record Not exists  of Local Sales"),
                    QStringLiteral("Delete Sales Records "));
        return purchases || sales;
    };
    const auto removeMonth = [&](const QString& head) {
        if (rsBills.State() == 1) rsBills.Close();
        SqlText = head + "  WHERE cCode='" + DealerCode + "' AND cMonth='" + txtRPTo->text() + "'";
        rsBills.Open(SqlText, cnReturn, store::Recordset::adOpenKeyset, store::Recordset::adLockOptimistic);
        cnReturn.Execute(SqlText);
    };
    runStoreWork(kDeleteWords, questions, [&] {
        if (purchases) {
            storeStep_ = QStringLiteral("deleting the month's purchase bills");
            removeMonth(local ? QStringLiteral("DELETE * FROM  tblPurchase1 ")
                              : QStringLiteral("DELETE * FROM  tblPurchaseInterState1"));
            fg1->Clear();
            txtGrid1->setText(QString());
            procSetGrid();
        }
        if (sales) {
            storeStep_ = QStringLiteral("deleting the month's sales bills");
            removeMonth(QStringLiteral("DELETE * FROM  tblSales"));
            fg2->Clear();
            txtGrid2->setText(QString());
            procSetGrid2();
        }
    });
}

void frmNormal::cmdDelete_Click() { deleteMonth(false); }

void frmNormal::cmdDelete_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) deleteMonth(true);
}

// ---- Close ----------------------------------------------------------------------------------------------

// An unloaded window comes back empty, as a window made anew: the sales reader does not clear its grid, so
// a bill left in it would be shown, and added, under the next book opened.
void frmNormal::Unload() {
    hide();
    loaded_ = false;
    for (auto [grid, box] : {std::pair{fg1, txtGrid1}, std::pair{fg2, txtGrid2}}) {
        const QSignalBlocker quiet(grid);
        grid->Clear();
        setGrid(grid);
        box->clear();
    }
}

// The close box unloads the window as Close does, so that it opens afresh on whatever book comes next.
void frmNormal::closeEvent(QCloseEvent* event) {
    Unload();
    QWidget::closeEvent(event);
}

void frmNormal::cmdClose_Click() {
    Unload();
    forms::get<frmSelect>(QStringLiteral("frmSelect"))->Show();
}

void frmNormal::cmdClose_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) cmdClose_Click();
}

}  // namespace returns
