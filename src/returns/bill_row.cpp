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
    // Both grids go over to the finding's month: a side left on the month shown before would be added
    // under this one. The sales reader does not empty its grid, so another month's sales go first.
    const bool otherMonth = w->txtRPTo->text().trimmed().compare(month, Qt::CaseInsensitive) != 0;
    w->txtRPTo->setText(month);
    if (purchases && w->List4->ListIndex() != purchaseKind) w->List4->setListIndex(purchaseKind);
    if (w->List4->ListIndex() == 1) w->procReadPurchaseInterState();
    else w->procReadPurchase();
    if (otherMonth) {
        w->fg2->Clear();
        w->txtGrid2->clear();
    }
    w->procReadSales_1();
    forms::FlexGrid* grid = purchases ? w->fg1 : w->fg2;
    if (row < 1 || row >= grid->Rows()) return;
    grid->setRow(row);
    grid->setCol(1);
    QLineEdit* editor = purchases ? w->txtGrid1 : w->txtGrid2;
    editor->setFocus();
    editor->selectAll();
}

}  // namespace returns
