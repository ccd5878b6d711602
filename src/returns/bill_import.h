#pragma once
// A sheet read as bills for the grid: below its header row, each row a bill, a blank row skipped, a
// line of totals checked and left out, and every row that cannot be a bill named with why. Nothing
// here touches a grid: the preview shows the reading, and only OK fills the grid.
#include "platform/sheets/sheet_reader.h"
#include "returns/bill_cells.h"

#include <QString>
#include <QStringList>
#include <vector>

namespace returns {

// The most rows a file is read to; a longer sheet is refused as a whole rather than half read.
constexpr int kImportRowLimit = 20000;

struct ImportNote {
    int row = -1;          // the sheet's row, counted from 0; -1: the sheet as a whole
    QString text;          // "Row 7: Amount: "12a" is not an amount."
    bool refused = false;  // the row is left out because it cannot be read; else a remark
};

struct BillImport {
    std::vector<BillLine> bills;   // in the sheet's order
    std::vector<int> billRows;     // the sheet's row of each bill
    std::vector<ImportNote> notes; // in the sheet's order, the sheet's own problems first
    int emptyRows = 0;
    int refusedRows = 0;
    QString blocker;               // set when OK must wait: no column of dates, a sheet too long, no bill
};

// The bills of the sheet below headerRow (-1: no header, the bills start at the first row), each
// sheet column read as fields[column].
BillImport ReadBills(const sheets::SheetContents& sheet, int headerRow, const std::vector<BillField>& fields,
                     const QStringList& rateEntries);

}  // namespace returns
