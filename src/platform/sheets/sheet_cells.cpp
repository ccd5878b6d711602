#include "platform/sheets/sheet_cells.h"

#include "platform/sheets/target_file.h"

#include <QSet>
#include <cmath>

namespace sheets {

Cell Cell::ofText(const QString& t, bool bold) {
    Cell c;
    c.kind = Kind::Text;
    c.text = t;
    c.bold = bold;
    return c;
}

Cell Cell::ofNumber(double n, const QString& format) {
    Cell c;
    c.kind = Kind::Number;
    c.number = n;
    c.numberFormat = format;
    return c;
}

Cell Cell::ofDate(const QDate& d, const QString& format) {
    Cell c;
    c.kind = Kind::Date;
    c.date = d;
    c.numberFormat = format;
    return c;
}

QString CellName(int row, int column) {
    QString letters;
    for (int c = column + 1; c > 0; c = (c - 1) / 26) letters.prepend(QChar(u'A' + (c - 1) % 26));
    return letters + QString::number(row + 1);
}

void CheckSheets(const QString& path, const std::vector<Sheet>& sheets, int maxRows, int maxColumns) {
    if (sheets.empty()) throw SheetError(path, QStringLiteral("there is no sheet to write."));
    QSet<QString> names;
    for (const Sheet& s : sheets) {
        const QString quoted = QStringLiteral("\"%1\"").arg(s.name);
        if (s.name.isEmpty() || s.name.size() > 31)
            throw SheetError(path, QStringLiteral("a sheet's name must have 1 to 31 characters, not %1.").arg(quoted));
        for (QChar c : QStringLiteral("[]:*?/\\"))
            if (s.name.contains(c))
                throw SheetError(path, QStringLiteral("the sheet name %1 holds %2, which a sheet's name may not.").arg(quoted, c));
        if (s.name.startsWith(u'\'') || s.name.endsWith(u'\''))
            throw SheetError(path, QStringLiteral("the sheet name %1 begins or ends with an apostrophe.").arg(quoted));
        if (names.contains(s.name.toCaseFolded()))
            throw SheetError(path, QStringLiteral("two sheets are named %1.").arg(quoted));
        names.insert(s.name.toCaseFolded());
        CheckCells(path, s, maxRows, maxColumns);
    }
}

void CheckCells(const QString& path, const Sheet& s, int maxRows, int maxColumns) {
    const QString quoted = s.name.isEmpty() ? QStringLiteral("the sheet") : QStringLiteral("the sheet \"%1\"").arg(s.name);
    if (s.rows.size() > size_t(maxRows))
        throw SheetError(path, QStringLiteral("%1 has %2 rows; the file holds %3 at most.")
                                   .arg(quoted).arg(s.rows.size()).arg(maxRows));
    for (size_t r = 0; r < s.rows.size(); ++r) {
        const auto& row = s.rows[r];
        if (row.size() > size_t(maxColumns))
            throw SheetError(path, QStringLiteral("row %1 of %2 has %3 cells; the file holds %4 at most.")
                                       .arg(r + 1).arg(quoted).arg(row.size()).arg(maxColumns));
        for (size_t c = 0; c < row.size(); ++c) {
            const Cell& cell = row[c];
            auto where = [&] { return QStringLiteral("cell %1 of %2").arg(CellName(int(r), int(c)), quoted); };
            if (cell.kind == Cell::Kind::Number && !std::isfinite(cell.number))
                throw SheetError(path, QStringLiteral("%1 holds no number that can be written.").arg(where()));
            if (cell.kind == Cell::Kind::Date && (!cell.date.isValid() || cell.date.year() < 1900 || cell.date.year() > 9999))
                throw SheetError(path, QStringLiteral("%1 holds a date outside 1900 to 9999.").arg(where()));
            if (cell.kind == Cell::Kind::Text && cell.text.size() > 32767)
                throw SheetError(path, QStringLiteral("%1 holds %2 characters; a cell holds 32,767 at most.")
                                           .arg(where()).arg(cell.text.size()));
        }
    }
}

}  // namespace sheets
