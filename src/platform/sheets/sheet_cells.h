#pragma once
// What the writers share: the checks every workbook passes before a byte is written, and the names
// of cells in messages.
#include "platform/sheets/sheet_writer.h"

namespace sheets {

// The most rows and columns a sheet of a workbook holds, XLSX and ODS alike.
constexpr int kWorkbookRows = 1048576;
constexpr int kWorkbookColumns = 16384;

// "B7" for row 6, column 1 (both counted from 0).
QString CellName(int row, int column);

// Throws SheetError naming `path` for: no sheet at all, a bad or repeated sheet name, more rows or
// columns than the format holds, a number that is not finite, a date the format cannot hold.
void CheckSheets(const QString& path, const std::vector<Sheet>& sheets, int maxRows, int maxColumns);
// The same for the rows and cells of one sheet; its name is not checked.
void CheckCells(const QString& path, const Sheet& sheet, int maxRows, int maxColumns);

}  // namespace sheets
