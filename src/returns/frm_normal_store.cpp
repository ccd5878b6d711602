// frmNormal's store work: the month's bills between the grids and nwForm10DB.mdb, and the month's
// summary row. The statements are built by concatenation exactly as the window always built them.
#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/list_box.h"
#include "platform/store/errors.h"
#include "returns/frm_normal.h"
#include "returns/log.h"
#include "returns/module2.h"

#include <QSignalBlocker>
#include <array>
#include <cmath>

namespace returns {

namespace {

using basic::Variant;
using store::Recordset;

const std::array<const char*, 10> kBillColumns = {"SlNo", "BillDate", "Party", "TIN", "BillNo",
                                                  "RateOfTax", "Amount", "Tax", "Cess", "NetAmount"};

QString tableOf(int kind) {
    static const char* const kTables[] = {"tblPurchase1", "tblPurchaseInterState1", "tblSales"};
    return QString::fromLatin1(kTables[kind]);
}

// A figure of the window as the summary stores it: the leading number of the text, to two decimals.
QString figure(const QString& text) { return basic::Format(Variant(basic::Val(text)), QStringLiteral("#0.00")); }

// A sum put through "#0.00" and taken back: rounded to two decimals, written as plain number text.
QString bandTotal(double sum) {
    if (!std::isfinite(sum)) throw basic::overflowError();
    return basic::CStr(Variant(basic::CDbl(Variant(basic::Format(Variant(sum), QStringLiteral("#0.00"))))));
}

// The bill's date, or an error that says which bill and what is wrong with its date: a text of the
// form DD-MM-YY can still name a day that does not exist.
QDate billDate(const QString& cell, const QString& bill) {
    QDate date;
    const basic::RuntimeError e = basic::resume([&] { date = DateFromBillText(cell); });
    if (e.number() != 13) {
        if (e.number() != 0) throw e;
        return date;
    }
    const QString t = basic::Trim(cell);
    bool digits = IsBillDateShape(t) && t.size() == 8;
    for (int i : {0, 1, 3, 4, 6, 7}) digits = digits && i < t.size() && t.at(i).isDigit();
    throw basic::RuntimeError(13,
                              QStringLiteral("the date ") + t + QStringLiteral(" of ") + bill +
                                  (digits ? QStringLiteral(" is a day that does not exist")
                                          : QStringLiteral(" is not a date of the form DD-MM-YY")),
                              kBillDateSource);
}

}  // namespace

QString frmNormal::monthFilter(const QString& table) const {
    return "SELECT * FROM " + table + " WHERE cCode='" + DealerCode + "' AND cMonth= '" + txtRPTo->text() + "'";
}

// Whether the month has rows in the table. procRecExists keeps the answer in RecordExists, Delete
// takes it as the result.
bool frmNormal::recordExists(const QString& tableName) {
    ConnectReturnStore();
    if (rsLookup.State() == 1) rsLookup.Close();
    SqlText = "SELECT * FROM  " + tableName + "    WHERE cCode='" + DealerCode + "'  AND cMonth='" + txtRPTo->text() +
              "'";
    rsLookup.Open(SqlText, cnReturn, Recordset::adOpenDynamic, Recordset::adLockOptimistic);
    const bool exists = !rsLookup.Eof();
    rsLookup.Close();
    return exists;
}

void frmNormal::procRecExists(const QString& tableName) { RecordExists = recordExists(tableName); }

bool frmNormal::fnRecordExistsNormal(const QString& tableName) { return recordExists(tableName); }

// Adds one row to rs for each grid row from row 1, blank or not; a blank row after a stored one (rate,
// party and date all empty) is dropped from the grid instead. The bill tables hold BillDate as a date,
// the report copies keep the cell's text.
void frmNormal::storeGridRows(store::Recordset& rs, bool sales, bool withPlace, bool dateAsText) {
    forms::FlexGrid* grid = sales ? fg2 : fg1;
    const QString what = sales ? QStringLiteral("sales bill ") : QStringLiteral("purchase bill ");
    std::int16_t row = 1;
    while (row < grid->Rows()) {
        storeStep_ = QStringLiteral("saving ") + what + QString::number(row);
        rs.AddNew();
        for (int c = 0; c < 10; ++c) {
            const QString cell = grid->TextMatrix(row, c);
            if (basic::Trim(cell).size() == 0) continue;
            if (c == 1 && !dateAsText) rs.Fields(QStringLiteral("BillDate")) = Variant(billDate(cell, what + QString::number(row)));
            else rs.Fields(QString::fromLatin1(kBillColumns[c])) = Variant(cell);
        }
        const auto control = [&](const char* column, const QString& text) {
            if (basic::Trim(text).size() > 0) rs.Fields(QString::fromLatin1(column)) = Variant(basic::Trim(text));
        };
        control("cMonth", txtMonth->text());
        control("cAddress", lblCustomerName->text());
        control("eDate", txtDate->text());
        if (withPlace) control("Place", txtPlace->text());
        rs.Fields(QStringLiteral("cCode")) = Variant(DealerCode);
        rs.Update();
        ++row;
        // Only rate, party and date decide that a row is blank; what else it holds is dropped with it.
        // A run of blank rows all goes at this one place, so none of them is stored.
        while (row < grid->Rows() && grid->TextMatrix(row, 5).isEmpty() && grid->TextMatrix(row, 2).isEmpty() &&
               grid->TextMatrix(row, 1).isEmpty()) {
            if (sales) fnDeleteRow2(row);
            else fnDeleteRow(row);
        }
    }
}

// Before: the grid is the working copy. After: the month's rows of the kind's table are the grid's rows,
// every row but blank ones after the first, and those blank rows are gone from the grid too.
void frmNormal::writeBills(BillKind kind) {
    const QString table = tableOf(int(kind));
    const bool withPlace = kind != BillKind::Sales;

    storeStep_ = kind == BillKind::Sales ? QStringLiteral("saving the sales bills") : QStringLiteral("saving the purchase bills");
    ConnectReturnStore();
    if (rsBills.State() == 1) rsBills.Close();
    procRecExists(table);
    if (RecordExists) {
        // Opened and then executed: the delete runs twice, the second time on nothing.
        SqlText = "DELETE * FROM  " + table + "  WHERE cCode='" + DealerCode + "' AND cMonth='" + txtRPTo->text() +
                  "'";
        storeStep_ = QStringLiteral("removing the month's old bills");
        rsBills.Open(SqlText, cnReturn, Recordset::adOpenKeyset, Recordset::adLockOptimistic);
        cnReturn.Execute(SqlText);
    }
    if (rsBills.State() == 1) rsBills.Close();
    // Only the local purchases are opened by month; the other two read the whole table to add to it.
    SqlText = kind == BillKind::Local ? monthFilter(table) + "ORDER BY BillDate" : "SELECT * FROM " + table + " ORDER BY BillDate";
    rsBills.Open(SqlText, cnReturn, Recordset::adOpenKeyset, Recordset::adLockOptimistic);

    storeGridRows(rsBills, kind == BillKind::Sales, withPlace, false);
    rsBills.Close();
}

void frmNormal::procWritePurchase() { writeBills(BillKind::Local); }
void frmNormal::procWritePurchaseInterState() { writeBills(BillKind::InterState); }
void frmNormal::procWriteSales() { writeBills(BillKind::Sales); }

// Rebuilds the grid from the store in date order, renumbered. Every statement after the connection
// runs with errors ignored: a NULL text column leaves its cell empty and the reading goes on.
void frmNormal::readBills(BillKind kind) {
    const bool purchases = kind != BillKind::Sales;
    forms::FlexGrid* grid = purchases ? fg1 : fg2;

    ConnectReturnStore();
    if (purchases) {
        ignore([&] { procClear1(); });
        ignore([&] { procSetGrid(); });
    } else {
        ignore([&] { procSetGrid2(); });
    }
    ignore([&] { SqlText = monthFilter(tableOf(int(kind))) + "ORDER BY BillDate"; });
    if (store::isLocked(ignore([&] { rsLookup.Open(SqlText, cnReturn, Recordset::adOpenDynamic); }))) lockMet_ = true;
    readRows(purchases ? this->purchases() : sales(),
             purchases ? &frmNormal::procGridCreateRow : &frmNormal::procCreateGridRow, [&](int row) {
                 ignore([&] {
                     grid->setTextMatrix(row, 1, basic::Format(rsLookup.Fields(QStringLiteral("BillDate")).Value(),
                                                               QStringLiteral("dd-mm-yy")));
                 });
                 for (int c = 2; c <= 5; ++c)
                     ignore([&] {
                         grid->setTextMatrix(row, c, basic::CStr(rsLookup.Fields(QString::fromLatin1(kBillColumns[c])).Value()));
                     });
                 for (int c = 6; c <= 9; ++c)
                     ignore([&] {
                         grid->setTextMatrix(row, c, basic::Format(rsLookup.Fields(QString::fromLatin1(kBillColumns[c])).Value(),
                                                                   QStringLiteral("#0.00")));
                     });
                 if (purchases) {
                     ignore([&] { txtDate->setText(basic::CStr(rsLookup.Fields(QStringLiteral("eDate")).Value())); });
                     ignore([&] { txtPlace->setText(basic::CStr(rsLookup.Fields(QStringLiteral("Place")).Value())); });
                 }
             });
}

// The rows of rsLookup into the side's grid, one made by makeRow for each record and numbered, its
// cells written by readCells; then the editor over the current cell and the side's totals.
void frmNormal::readRows(const Side& side, void (frmNormal::*makeRow)(), const std::function<void(int row)>& readCells) {
    forms::FlexGrid* grid = side.grid;
    bool any = false;
    ignore([&] { any = !rsLookup.Eof(); });
    if (any) {
        // The cells' enter and leave handlers are held off while the rows are built: each would run a
        // totals pass per row, and would rewrite the stored row total. The pass at the end gives the figures.
        const QSignalBlocker quiet(grid);
        ignore([&] { grid->setRows(1); });
        int row = 0;
        bool more = true;
        ignore([&] { more = !rsLookup.Eof(); });
        while (more) {
            ignore([&] { (this->*makeRow)(); });
            ++row;
            ignore([&] { grid->setTextMatrix(row, 0, QString::number(row)); });
            readCells(row);
            ignore([&] { side.box->setText(grid->Text()); });
            ignore([&] { rsLookup.MoveNext(); });
            if (ignore([&] { more = !rsLookup.Eof(); }).number() != 0) more = false;
        }
    }
    // The editor stands over the cell the reading left current and must hold that cell's text: the next
    // move of the cursor writes the editor's text into the cell it leaves.
    ignore([&] { moveTextBox(grid, side.box); });
    ignore([&] { side.box->setText(grid->Text()); });
    ignore([&] { rsLookup.Close(); });
    ignore([&] { (this->*side.totals)(); });
}

void frmNormal::procReadPurchase() { readBills(BillKind::Local); }
void frmNormal::procReadPurchaseInterState() { readBills(BillKind::InterState); }
void frmNormal::procReadSales_1() { readBills(BillKind::Sales); }

// The month's summary row: deleted if there is one, then inserted new from the labels. RT12 adds the
// sales cess at 20 % (Label52) and not the purchase cess at 12.5 %: the figure has always been so.
void frmNormal::procWriteCommon() {
    storeStep_ = QStringLiteral("saving the monthly summary");
    const auto v = [](QLabel* l) { return basic::Val(l->text()); };
    const QString RT0 = bandTotal(v(Label16) + v(Label12) + v(Label58));
    const QString RT1 = bandTotal(v(Label17) + v(Label13) + v(Label57));
    const QString RT4 = bandTotal(v(Label18) + v(Label14) + v(Label56));
    const QString RT12 = bandTotal(v(Label19) + v(Label15) + v(Label52));
    const QString RT20 = bandTotal(v(Label34) + v(Label10) + v(Label61));
    // The three dropped sums of the purchase side: only an overflow in them would be noticed.
    bandTotal(v(Label12) + v(Label13) + v(Label14) + v(Label15) + v(Label10));
    bandTotal(v(Label16) + v(Label17) + v(Label18) + v(Label19) + v(Label34));
    bandTotal(v(Label58) + v(Label57) + v(Label56) + v(Label52) + v(Label61));

    ConnectReturnStore();
    procRecExists(QStringLiteral("tblCommon"));
    if (RecordExists) {
        SqlText = "DELETE * FROM  tblCommon" + QStringLiteral("  WHERE cCode='") + DealerCode + "' AND cMonth='" +
                  basic::Trim(txtRPTo->text()) + "'";
        rsBills.Open(SqlText, cnReturn, Recordset::adOpenKeyset, Recordset::adLockOptimistic);
        cnReturn.Execute(SqlText);
    }
    if (rsBills.State() == 1) rsBills.Close();

    SqlText = " INSERT INTO tblCommon ( ";
    SqlText += " cCode , cMonth , cAddress , PTA0,PTA1,PTA4,PTA12,PTA20,PTT0,PTT1,PTT4,PTT12,PTT20,PTC0,PTC1,PTC4,PTC12,PTC20 ";
    SqlText += ",STA0,STA1,STA4,STA12,STACST,STA20,STT0,STT1,STT4,STT12,STTCST,STT20,STC0,STC1,STC4,STC12,STCCST,STC20,netTotal,eDate,Place";
    SqlText += ",RT0,RT1,RT4,RT12,RT20";
    SqlText += ")     VALUES   (";
    const auto quoted = [](const QString& value) { SqlText += "'" + value + "',"; };
    quoted(DealerCode);
    quoted(txtRPTo->text());
    quoted(DealerName);
    for (QLabel* l : {Label12, Label13, Label14, Label15, Label10, Label16, Label17, Label18, Label19, Label34,
                      Label58, Label57, Label56, Label62, Label61, Label23, Label22, Label21, Label20, Label35,
                      Label45, Label27, Label26, Label25, Label24, Label36, Label44, Label50, Label49, Label48,
                      Label54, Label53, Label52})
        quoted(figure(l->text()));
    quoted(figure(txtTotal->text()));
    quoted(basic::Trim(txtDate->text()));
    quoted(basic::Trim(txtPlace->text()));
    SqlText += RT0 + "," + RT1 + "," + RT4 + "," + RT12 + "," + RT20 + ")";
    cnReturn.Execute(SqlText);
}

}  // namespace returns
