#pragma once
// Reading one sheet of a spreadsheet file as rows of text cells: CSV, XLSX, ODS, told by their bytes
// and not by the file's name.
//
// Every cell comes as the text a user sees in the spreadsheet, so the caller reads it as a user would
// (see cell_reading.h):
//   - text as it stands (hostile text is just text; nothing is evaluated);
//   - numbers with the decimals and leading zeros of their format, without grouping, never with an
//     exponent: "100000", "125000.50", "0012", "12.50%";
//   - dates (a number with a date format, an ODS date) as ISO text "2026-03-05", with a time
//     "2026-03-05T10:30:00"; times alone as "10:30:00";
//   - a formula's saved value; a formula with none is an empty cell and a problem;
//   - merged cells: the value in the first cell only, the others empty, and a problem naming them.
// Empty rows between rows are kept as empty rows (the caller skips them); empty rows and cells at the
// end are left out. A CSV file's separator (comma, semicolon or tab) and encoding (UTF-8 with or
// without a byte-order mark, UTF-16 with one, else Windows-1252) are found from its bytes.
//
// Memory is bounded whatever the file: at most maxRows rows and kMaxColumns columns are kept, a cell's
// text at most 32,767 characters; the file is read as a stream and reading stops at the row limit.
//
// A file that cannot be read at all throws basic::RuntimeError whose description names the file and
// says what to do: 53 not there, 70 may not be read, 75 damaged, protected by a password, an old .xls
// workbook, not a spreadsheet, no sheet of that name.
#include <QString>
#include <QStringList>
#include <vector>

namespace sheets {

constexpr int kMaxColumns = 256;

// A cell or row that was read, but not as it stands in the file.
struct SheetProblem {
    int row = -1;      // index into SheetContents::rows; -1: the sheet as a whole
    int column = -1;   // counted from 0; -1: the whole row or sheet
    int rows = 1;      // the rows it covers from `row` on: merged cells reach down
    QString text;      // for the user: "Cell C7 has a formula whose value was never saved."
};

struct SheetContents {
    QStringList sheetNames;            // every sheet of the file in order; a CSV file: its name
    QString sheetName;                 // the sheet read
    std::vector<QStringList> rows;     // rows of text cells, trailing empty cells left out
    bool truncated = false;            // the sheet goes on past maxRows: only the first maxRows were read
    std::vector<SheetProblem> problems;
};

// Reads the sheet named sheetName (an empty name: the first sheet), at most maxRows rows.
SheetContents ReadSheet(const QString& path, const QString& sheetName = QString(), int maxRows = 10000);

}  // namespace sheets
