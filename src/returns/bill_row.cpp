#include "returns/bill_row.h"

#include "platform/forms/flex_grid.h"
#include "platform/forms/list_box.h"
#include "platform/forms/window_registry.h"
#include "returns/frm_normal.h"

namespace returns {

void OpenBillRow(const QString& month, bool purchases, int purchaseKind, int row) {
    auto* w = forms::get<frmNormal>(QStringLiteral("frmNormal"));
    w->Show();
    // The window reads the month of txtRPTo; the grids hold the bills in the order the lists read them.
    w->txtRPTo->setText(month);
    if (purchases) {
        if (w->List4->ListIndex() != purchaseKind) w->List4->setListIndex(purchaseKind);
        if (purchaseKind == 0) w->procReadPurchase();
        else w->procReadPurchaseInterState();
    } else {
        w->procReadSales_1();
    }
    forms::FlexGrid* grid = purchases ? w->fg1 : w->fg2;
    if (row < 1 || row >= grid->Rows()) return;
    grid->setRow(row);
    grid->setCol(1);
    QLineEdit* editor = purchases ? w->txtGrid1 : w->txtGrid2;
    editor->setFocus();
    editor->selectAll();
}

}  // namespace returns
