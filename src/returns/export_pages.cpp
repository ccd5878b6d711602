// Export: the rate-wise labels of the window posted to the return pages, purchases to tblMPage3 and
// sales to tblMPage1. Each box is set, never added to. A page row is looked up under the fixed year
// "2008" but made with the year of the system date, so outside 2008 every press adds new rows.
#include "platform/basic/clock.h"
#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/layout.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"
#include "returns/store_work.h"

#include <QApplication>
#include <cmath>

namespace returns {

namespace {

using basic::Variant;
using store::Recordset;

double valueOf(const QLabel* label) { return basic::Val(label->text()); }

// A page figure: "#0.00" of the value, the rounding being the last step.
QString page(double value) {
    if (!std::isfinite(value)) throw basic::overflowError();
    return basic::Format(Variant(value), QStringLiteral("#0.00"));
}

// The total lines' amount + tax: each sum is rounded first, then added, then formatted again.
QString roundedSum(double a, double b) { return page(basic::Val(page(a)) + basic::Val(page(b))); }

}  // namespace

void frmNormal::procNewRecExists(const QString& tableName) {
    ConnectReturnStore();
    if (rsLookup.State() == 1) rsLookup.Close();
    ReturnYearKey = QStringLiteral("2008");
    ReturnSequenceKey = QStringLiteral("Monthly");
    ReturnPeriodKey = txtRPTo->text();
    SqlText = "SELECT * FROM " + tableName + "    WHERE cCode='" + DealerCode + "'  AND cYear='" + ReturnYearKey +
              "'  AND cSequence='" + ReturnSequenceKey + "'  AND cRPFrom='" + ReturnPeriodKey + "'";
    rsLookup.Open(SqlText, cnReturn, Recordset::adOpenDynamic, Recordset::adLockOptimistic);
    ReturnRowExists = !rsLookup.Eof();
    rsLookup.Close();
}

// One export operation: the page's row of the return updated when there is one for "2008", else a new
// row with the boxes of the new-row branch and a key row in each of the other four pages. An empty
// period stops the operation with its box, and the caller goes on as if it had succeeded.
void frmNormal::exportPage(const QString& table, const PageBoxes& updateBoxes, const PageBoxes& newRowBoxes) {
    const bool purchases = table == QLatin1String("tblMPage3");
    procNewRecExists(table);
    if (ReturnRowExists) {
        if (rsBills.State() == 1) rsBills.Close();
        SqlText = " UPDATE " + table + "   ";
        bool first = true;
        for (const auto& [box, text] : updateBoxes) {
            SqlText += (first ? QStringLiteral(" SET ") : QStringLiteral(",")) + box + "= '" + text + "'";
            first = false;
        }
        SqlText += "  WHERE cCode='" + DealerCode + "' AND cYear='" + ReturnYearKey + "' AND cSequence='" +
                   ReturnSequenceKey + "'  AND cRPFrom='" + ReturnPeriodKey + "'";
        // The purchase operations run the statement twice, the second time to the same effect.
        rsBills.Open(SqlText, cnReturn, Recordset::adOpenKeyset, Recordset::adLockOptimistic);
        if (purchases) cnReturn.Execute(SqlText);
        return;
    }

    const QString year = basic::Format(Variant(basic::Clock::today()), QStringLiteral("yyyy"));
    ReturnYearKey = year;
    ReturnSequenceKey = QStringLiteral("Monthly");
    ReturnPeriodKey = basic::Trim(txtRPTo->text());
    if (rsBills.State() == 1) rsBills.Close();
    rsBills.Open("SELECT * FROM  " + table, cnReturn, Recordset::adOpenKeyset, Recordset::adLockOptimistic);
    rsBills.AddNew();
    rsBills.Fields(QStringLiteral("cCode")) = Variant(DealerCode);
    rsBills.Fields(QStringLiteral("cYear")) = Variant(year);
    rsBills.Fields(QStringLiteral("cSequence")) = Variant(QStringLiteral("Monthly"));
    if (basic::Trim(txtRPTo->text()).isEmpty()) {
        // The added row is left pending and goes with the recordset. The box waits until the file is free.
        afterStoreWork([this] {
            forms::MsgBox(QStringLiteral("Please Enter Return Period  "), forms::vbOKOnly);
            txtRPTo->setFocus();
        });
        return;
    }
    rsBills.Fields(QStringLiteral("cRPFrom")) = Variant(txtRPTo->text());
    for (const auto& [box, text] : newRowBoxes) rsBills.Fields(box) = Variant(text);
    rsBills.Update();
    rsBills.Close();

    const QStringList others = purchases ? QStringList{"tblMPage2", "tblMPage1", "tblMPage4", "tblMPage5"}
                                         : QStringList{"tblMPage2", "tblMPage3", "tblMPage4", "tblMPage5"};
    for (const QString& other : others) {
        if (rsBills.State() == 1) rsBills.Close();
        SqlText = " INSERT INTO " + other + " ( " + "  cCode , cYear , cSequence , cRPFrom " + ")     VALUES   (" + "'" +
                  DealerCode + "'," + "'" + ReturnYearKey + "'," + "'" + ReturnSequenceKey + "'," + "'" +
                  ReturnPeriodKey + "')";
        cnReturn.Execute(SqlText);
    }
}

void frmNormal::procExportPurchaseLocal() {
    const double amt[] = {valueOf(Label12), valueOf(Label13), valueOf(Label14), valueOf(Label15), valueOf(Label10)};
    const double tax[] = {valueOf(Label16), valueOf(Label17), valueOf(Label18), valueOf(Label19), valueOf(Label34)};
    const double amtAll = amt[0] + amt[1] + amt[2] + amt[3] + amt[4];
    const double taxAll = tax[0] + tax[1] + tax[2] + tax[3] + tax[4];
    // Line 5 of the block is the total line, between the 12.5 % and the 20 % lines.
    const char* const lines[] = {"1", "2", "3", "4", "6"};
    const char* const rates[] = {"0", "1", "4", "12.5", "20"};
    PageBoxes boxes;
    for (int b = 0; b < 5; ++b) {
        const QString line = QStringLiteral("C1_") + QLatin1String(lines[b]);
        boxes.push_back({line + "3", QString::fromLatin1(rates[b])});
        boxes.push_back({line + "4", page(amt[b])});
        boxes.push_back({line + "5", page(tax[b])});
        boxes.push_back({line + "6", page(amt[b] + tax[b])});
        boxes.push_back({line + "7", page(tax[b])});
    }
    for (const char* line : {"C1_5", "C3_3"}) {
        const QString l = QString::fromLatin1(line);
        boxes.push_back({l + "4", page(amtAll)});
        boxes.push_back({l + "5", page(taxAll)});
        boxes.push_back({l + "6", roundedSum(amtAll, taxAll)});
        boxes.push_back({l + "7", page(taxAll)});
    }
    exportPage(QStringLiteral("tblMPage3"), boxes, boxes);
}

// The inter-state block has no 20 % line; its figures are only in the totals. The two branches put the
// total line in different boxes: an update in C2_34..C2_36 with the tax alone as amount + tax, a new row
// in the local block's 4 % boxes C1_34..C1_36.
void frmNormal::procExportPurchaseInterState() {
    const double amt[] = {valueOf(Label12), valueOf(Label13), valueOf(Label14), valueOf(Label15), valueOf(Label10)};
    const double tax[] = {valueOf(Label16), valueOf(Label17), valueOf(Label18), valueOf(Label19), valueOf(Label34)};
    const double amtAll = amt[0] + amt[1] + amt[2] + amt[3] + amt[4];
    const double taxAll = tax[0] + tax[1] + tax[2] + tax[3] + tax[4];
    const char* const lines[] = {"C2_1", "C2_2", "C2_4", "C2_5"};
    const char* const rates[] = {"0", "1", "4", "12.5"};
    PageBoxes bands;
    for (int b = 0; b < 4; ++b) {
        const QString line = QString::fromLatin1(lines[b]);
        bands.push_back({line + "3", QString::fromLatin1(rates[b])});
        bands.push_back({line + "4", page(amt[b])});
        bands.push_back({line + "5", page(tax[b])});
        bands.push_back({line + "6", page(amt[b] + tax[b])});
    }
    const PageBoxes grand = {{"C3_34", page(amtAll)}, {"C3_35", page(taxAll)}, {"C3_36", roundedSum(amtAll, taxAll)}};
    PageBoxes update = bands;
    update.insert(update.end(), {{"C2_34", page(amtAll)}, {"C2_35", page(taxAll)}, {"C2_36", page(taxAll)}});
    update.insert(update.end(), grand.begin(), grand.end());
    PageBoxes newRow = bands;
    newRow.insert(newRow.end(), {{"C1_34", page(amtAll)}, {"C1_35", page(taxAll)}, {"C1_36", roundedSum(amtAll, taxAll)}});
    newRow.insert(newRow.end(), grand.begin(), grand.end());
    exportPage(QStringLiteral("tblMPage3"), update, newRow);
}

namespace {

frmNormal::PageBoxes cstBlock(const QLabel* amount, const QLabel* tax) {
    const QString a = page(valueOf(amount));
    const QString t = page(valueOf(tax));
    return {{"ISS13", "CST"}, {"ISS14", a}, {"ISS17", t}, {"ISS34", a}, {"ISS37", t}, {"A2T4", a}, {"A2T7", t}};
}

}  // namespace

// An update writes the local sales lines; a new row made here gets the CST block instead, so the local
// sales reach the page only through an update.
void frmNormal::procExportSalesLocal() {
    const double amt[] = {valueOf(Label23), valueOf(Label22), valueOf(Label21), valueOf(Label20), valueOf(Label45)};
    const double tax[] = {valueOf(Label27), valueOf(Label26), valueOf(Label25), valueOf(Label24), valueOf(Label44)};
    const double amtAll = amt[0] + amt[1] + amt[2] + amt[3] + amt[4];
    const double taxAll = tax[0] + tax[1] + tax[2] + tax[3] + tax[4];
    const char* const lines[] = {"SL1", "SL2", "SL3", "SL4", "SL6"};
    const char* const rates[] = {"0", "1", "4", "12.5", "20"};
    PageBoxes update;
    for (int b = 0; b < 5; ++b) {
        const QString line = QString::fromLatin1(lines[b]);
        update.push_back({line + "3", QString::fromLatin1(rates[b])});
        update.push_back({line + "4", page(amt[b])});
        update.push_back({line + "7", page(tax[b])});
    }
    update.insert(update.end(),
                  {{"SL54", page(amtAll)}, {"SL57", page(taxAll)}, {"A1T4", page(amtAll)}, {"A1T7", page(taxAll)}});
    exportPage(QStringLiteral("tblMPage1"), update, cstBlock(Label35, Label36));
}

void frmNormal::procExportSales() {
    const PageBoxes boxes = cstBlock(Label35, Label36);
    exportPage(QStringLiteral("tblMPage1"), boxes, boxes);
}

// The whole press is one transaction; a statement the store refuses rolls it back and is reported as
// the run-time error it is, without the success box, and the button keeps its focus colour.
void frmNormal::exportMonth() {
    forms::setColour(cmdExport, QPalette::Button, 0xC0FFFF);
    const bool exported = runStoreWork(kExportWords, nullptr, [&] {
        if (List4->ListIndex() == 0) {
            storeStep_ = QStringLiteral("posting the local purchases");
            procExportPurchaseLocal();
            storeStep_ = QStringLiteral("posting the local sales");
            procExportSalesLocal();
        } else {
            storeStep_ = QStringLiteral("posting the inter-state purchases");
            procExportPurchaseInterState();
        }
        storeStep_ = QStringLiteral("posting the sales");
        procExportSales();
    });
    if (!exported) return;
    forms::MsgBox(QStringLiteral("  EXPORTED  SUCCESSFULLY"), forms::vbInformation, QStringLiteral("Success...........!"));
    forms::setColour(cmdExport, QPalette::Button, 0xC0C0FF);
}

void frmNormal::cmdExport_Click() { exportMonth(); }

void frmNormal::cmdExport_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) exportMonth();
}

}  // namespace returns
