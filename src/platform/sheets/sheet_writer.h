#pragma once
// Writing a table of cells out as a spreadsheet file: XLSX (through libxlsxwriter), ODS, CSV.
// Each writer builds the file under a temporary name in the target's folder and renames it into place,
// so a failure (a folder that cannot be written, a full disk) leaves no half-written file; it then
// throws basic::RuntimeError whose description names the file.
#include <QString>
#include <vector>

namespace sheets {

struct Cell {
    enum class Kind { Empty, Text, Number };
    Kind kind = Kind::Empty;
    QString text;         // Text: as it stands; the reader of the file sees exactly these characters
    double number = 0;    // Number: stored as a number, shown with numberFormat
    QString numberFormat; // e.g. "#,##0.00"; empty: the spreadsheet's general format
    bool bold = false;

    static Cell ofText(const QString& t, bool bold = false);
    static Cell ofNumber(double n, const QString& format = QString());
};

struct Sheet {
    QString name;                            // the tab's name (at most 31 characters)
    std::vector<std::vector<Cell>> rows;
    std::vector<double> columnWidths;        // in characters; missing: the default width
};

void WriteXlsx(const QString& path, const std::vector<Sheet>& sheets);
void WriteOds(const QString& path, const std::vector<Sheet>& sheets);
// One sheet; numbers written with a point and without grouping, text quoted where it must be.
// UTF-8 with a byte-order mark, so that a spreadsheet program reads the rupee sign and Malayalam right.
void WriteCsv(const QString& path, const Sheet& sheet, QChar separator = QLatin1Char(','));

}  // namespace sheets
