#pragma once
// Rows copied from a spreadsheet or a web page's table, read for the bill grid: the clipboard's cells,
// and where each copied row and cell goes.
#include "returns/bill_cells.h"

#include <QString>
#include <QStringList>
#include <vector>

class QMimeData;

namespace returns {

// The copied cells, row by row: tab-separated text as spreadsheets put it on the clipboard (a cell
// holding a tab, a line break or a quote comes in quotes), else the first table of the HTML, else
// the text's lines. Empty lines at the end are left out.
std::vector<QStringList> ClipboardRows(const QMimeData* data);
std::vector<QStringList> RowsOfTabText(const QString& text);
std::vector<QStringList> RowsOfHtmlTable(const QString& html);

// What a paste would do to a grid.
struct PastePlan {
    int firstRow = 1;                   // the grid row the first bill goes to
    std::vector<BillLine> lines;        // one a grid row, from firstRow on
    QStringList refusals;               // "Copied row 3 (bill 5): Amount: ..."; any one refuses the paste
    bool header = false;                // the first copied row named the columns and was left out
};

// The copied rows go to the grid from the current cell (row, col): the first copied column to the
// current column, the next to the one right of it, up to Cess; a first row of column names places
// each column where its name says instead. Lines of totals are left out.
PastePlan PlanPaste(const std::vector<QStringList>& copied, int row, int col, const QStringList& rateEntries);

}  // namespace returns
