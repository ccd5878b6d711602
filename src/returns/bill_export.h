#pragma once
// The month's registers as spreadsheet sheets: the bills of a grid, and the month's rate-wise summary,
// each under a heading with the dealer, the TIN and the month; a line of totals at the end.
#include "platform/sheets/sheet_writer.h"

#include <QString>
#include <QStringList>
#include <vector>

namespace forms {
class FlexGrid;
}

namespace returns {

// The lines over every exported sheet.
struct SheetHeading {
    QString title;     // "Purchase register (Local Purchase)"
    QString dealer;
    QString tin;
    QString period;    // "March 2026", "2025-26"
};

// The rate-wise figures of one register as its window shows them.
struct RateFigures {
    QString rate;      // "0", "12.5", "CST"
    double amount = 0, tax = 0, cess = 0;
};
struct RegisterFigures {
    QString name;                  // "Purchases (Local Purchase)", "Sales"
    std::vector<RateFigures> bands;
    double grandTotal = 0;         // the grid's Total Amount summed, bills of no band among them
};

// The grid's bills, one row each (rows blank in every bill column are left out): Sl No, the date as a
// date, party, TIN and bill number as text, the rate as a number ("CST" as text), the amounts as numbers.
sheets::Sheet BillsSheet(const QString& sheetName, const SheetHeading& heading, const forms::FlexGrid* grid);

// Each register's bands with Amount, Tax, Cess and their total, and the register's totals.
sheets::Sheet SummarySheet(const QString& sheetName, const SheetHeading& heading,
                           const std::vector<RegisterFigures>& registers);

// The heading's lines as cells, with the empty line under them.
std::vector<std::vector<sheets::Cell>> HeadingRows(const SheetHeading& heading);

// A file of the exported month: "march-2026-purchases.csv" beside "march-2026.xlsx"; CSV holds one
// sheet, so each sheet goes to a file of its own named with the sheet's name.
QString SheetFileName(const QString& path, const QString& sheetName);

// Writes the sheets as the path's suffix says (xlsx, ods, csv); the names of the files written.
// Throws basic::RuntimeError as the writers do.
QStringList WriteSheets(const QString& path, const std::vector<sheets::Sheet>& sheets);

}  // namespace returns
