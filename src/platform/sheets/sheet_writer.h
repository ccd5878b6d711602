#pragma once
// Writing a table of cells out as a spreadsheet file: XLSX (through libxlsxwriter), ODS, CSV.
//
// Each writer builds the file under a temporary name in the target's folder, flushes it to disk and
// renames it into place, so a failure leaves the old file (if any) as it was and no half-written file
// behind. Failures throw basic::RuntimeError whose description names the file:
//   61 the disk is full, 70 the folder may not be written, 75 anything else (a sheet too large for the
//   format, a text too long for one cell, a bad sheet name).
// Text cells are written as text, never read as numbers or formulas: "0012" and "32010203040" stay as
// they are, "=A1" is a text. Numbers are numbers, shown with their format.
#include <QDate>
#include <QString>
#include <vector>

namespace sheets {

struct Cell {
    enum class Kind { Empty, Text, Number, Date };
    Kind kind = Kind::Empty;
    QString text;         // Text: as it stands; the reader of the file sees exactly these characters
    double number = 0;    // Number: stored as a number, shown with numberFormat
    QDate date;           // Date: stored as a date, shown with numberFormat ("dd-mm-yyyy" when empty)
    QString numberFormat; // "#,##0.00", "0.00", "0", "0.00%", "dd-mm-yyyy"; empty: the general format
    bool bold = false;

    static Cell ofText(const QString& t, bool bold = false);
    static Cell ofNumber(double n, const QString& format = QString());
    static Cell ofDate(const QDate& d, const QString& format = QString());
};

struct Sheet {
    QString name;                            // the tab's name: 1 to 31 characters, none of []:*?/\ ;
                                             // names of one workbook differ (case ignored)
    std::vector<std::vector<Cell>> rows;
    std::vector<double> columnWidths;        // in characters; missing or 0: the default width
};

void WriteXlsx(const QString& path, const std::vector<Sheet>& sheets);
// ODS keeps formats of the forms "#,##0.00", "0.000", "0%" and dates of d, m, mmm, yy, yyyy; other
// number formats fall back to the general format. Control characters other than tab and line breaks
// cannot stand in the file and become U+FFFD.
void WriteOds(const QString& path, const std::vector<Sheet>& sheets);
// One sheet; numbers as their format shows them but with a point and without grouping ("125000.50",
// "0012", "12.50%"), dates as dd-mm-yyyy, text as it stands (nothing added before "=" or "+"), quoted
// where it must be; lines end with CR LF. UTF-8 with a byte-order mark, so that a spreadsheet program
// reads the rupee sign and Malayalam right.
void WriteCsv(const QString& path, const Sheet& sheet, QChar separator = QLatin1Char(','));

}  // namespace sheets
