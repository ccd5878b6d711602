#pragma once
// The return window opened on one stored bill: the month read into its grids as the window reads it,
// the purchase kind chosen, and the cursor on the bill's row, ready to be corrected.
#include <QString>

namespace returns {

// purchases: the bill is in fg1, of the kind List4 chooses (0 local, 1 inter-state); else in fg2.
// row is the bill's place in the month's bills of its table in date order, 1 for the first.
void OpenBillRow(const QString& month, bool purchases, int purchaseKind, int row);

}  // namespace returns
