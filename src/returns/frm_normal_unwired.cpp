// The routines of the return window that nothing calls. Each stays unwired: procTotalCal would
// overwrite Amount with Bill No times Rate (a bill's tax is typed, never derived), procGridEdit and
// procMoveColumn edit cells outside the walk, and procReadSales is a second form of the sales read.
#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/flex_grid.h"
#include "returns/frm_normal.h"
#include "returns/log.h"
#include "returns/module2.h"

#include <algorithm>

namespace returns {

using basic::Variant;

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

void frmNormal::procMoveColumn() { stepCursor(fg1); }


void frmNormal::procGridCreateRow2() { procNewGridCreateRow(fg2); }

// The month's sales in the order the store keeps them, dates as stored, without the cess.
void frmNormal::procReadSales() {
    using store::Recordset;
    ConnectReturnStore();
    ignore([&] { procSetGrid2(); });
    ignore([&] { SqlText = monthFilter(QStringLiteral("tblSales")); });
    ignore([&] { rsLookup.Open(SqlText, cnReturn, Recordset::adOpenDynamic); });
    readRows(sales(), &frmNormal::procGridCreateRow2, [&](int row) {
        const auto cell = [&](int c, const char* column, bool figure) {
            ignore([&] {
                const Variant v = rsLookup.Fields(QString::fromLatin1(column)).Value();
                fg2->setTextMatrix(row, c, figure ? basic::Format(v, QStringLiteral("#0.00")) : basic::CStr(v));
            });
        };
        cell(1, "BillDate", false);
        cell(2, "Party", false);
        cell(3, "TIN", false);
        cell(4, "BillNo", false);
        cell(5, "RateOfTax", false);
        cell(6, "Amount", true);
        cell(7, "Tax", true);
        cell(9, "NetAmount", true);
    });
}

}  // namespace returns
