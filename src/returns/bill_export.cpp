#include "returns/bill_export.h"

#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/flex_grid.h"
#include "returns/log.h"
#include "returns/module2.h"

#include <QDir>
#include <QFileInfo>
#include <cmath>

namespace returns {

namespace {

using sheets::Cell;
using Row = std::vector<Cell>;

const QString kMoney = QStringLiteral("#,##0.00");

Cell money(double x) { return Cell::ofNumber(x, kMoney); }

Cell bold(const QString& text) { return Cell::ofText(text, true); }

// A rate as a number when it is one, so that a sheet sums and sorts by it; "CST" stays text.
Cell rateCell(const QString& rate) {
    bool number = false;
    const double value = rate.toDouble(&number);
    return number ? Cell::ofNumber(value) : Cell::ofText(rate);
}

Cell amountCell(const QString& text) {
    return text.trimmed().isEmpty() ? Cell() : money(basic::Val(text));
}

Cell dateCell(const QString& text) {
    QDate date;
    // A cell that is no date goes out as the text the grid holds.
    if (!text.trimmed().isEmpty()) ignore([&] { date = DateFromBillText(text); });
    return date.isValid() ? Cell::ofDate(date, QStringLiteral("dd-mm-yyyy")) : Cell::ofText(text);
}

bool blankBill(const forms::FlexGrid* grid, int r) {
    for (int c = 1; c <= 8; ++c)
        if (!grid->TextMatrix(r, c).trimmed().isEmpty()) return false;
    return true;
}

}  // namespace

std::vector<Row> HeadingRows(const SheetHeading& heading) {
    return {{bold(heading.title)},
            {Cell::ofText(QStringLiteral("Dealer")), Cell::ofText(heading.dealer)},
            {Cell::ofText(QStringLiteral("TIN")), Cell::ofText(heading.tin)},
            {Cell::ofText(QStringLiteral("Period")), Cell::ofText(heading.period)},
            {}};
}

sheets::Sheet BillsSheet(const QString& sheetName, const SheetHeading& heading, const forms::FlexGrid* grid) {
    sheets::Sheet s{sheetName, HeadingRows(heading), {7, 12, 36, 15, 12, 8, 14, 12, 10, 14}};
    s.rows.push_back({bold(QStringLiteral("Sl No")), bold(QStringLiteral("Bill Date")), bold(QStringLiteral("Party")),
                      bold(QStringLiteral("TIN")), bold(QStringLiteral("Bill No")), bold(QStringLiteral("Rate of Tax %")),
                      bold(QStringLiteral("Amount")), bold(QStringLiteral("Tax")), bold(QStringLiteral("Cess")),
                      bold(QStringLiteral("Total Amount"))});
    double sums[4] = {0, 0, 0, 0};
    for (int r = grid->FixedRows(); r < grid->Rows(); ++r) {
        if (blankBill(grid, r)) continue;
        bool numbered = false;
        const int sl = grid->TextMatrix(r, 0).trimmed().toInt(&numbered);
        Row row{numbered ? Cell::ofNumber(sl) : Cell::ofText(grid->TextMatrix(r, 0)), dateCell(grid->TextMatrix(r, 1)),
                Cell::ofText(grid->TextMatrix(r, 2)), Cell::ofText(grid->TextMatrix(r, 3)),
                Cell::ofText(grid->TextMatrix(r, 4)), rateCell(grid->TextMatrix(r, 5).trimmed())};
        for (int c = 6; c <= 9; ++c) {
            row.push_back(amountCell(grid->TextMatrix(r, c)));
            sums[c - 6] += basic::Val(grid->TextMatrix(r, c));
        }
        s.rows.push_back(std::move(row));
    }
    Row total{bold(QStringLiteral("TOTAL")), {}, {}, {}, {}, {}};
    for (double sum : sums) total.push_back(money(sum));
    for (Cell& c : total) c.bold = true;
    s.rows.push_back(std::move(total));
    return s;
}

sheets::Sheet SummarySheet(const QString& sheetName, const SheetHeading& heading,
                           const std::vector<RegisterFigures>& registers) {
    sheets::Sheet s{sheetName, HeadingRows(heading), {34, 14, 14, 12, 14}};
    for (const RegisterFigures& reg : registers) {
        s.rows.push_back({bold(reg.name)});
        s.rows.push_back({bold(QStringLiteral("Rate of Tax %")), bold(QStringLiteral("Amount")), bold(QStringLiteral("Tax")),
                          bold(QStringLiteral("Cess")), bold(QStringLiteral("Total"))});
        double amount = 0, tax = 0, cess = 0;
        for (const RateFigures& b : reg.bands) {
            s.rows.push_back({rateCell(b.rate), money(b.amount), money(b.tax), money(b.cess), money(b.amount + b.tax + b.cess)});
            amount += b.amount, tax += b.tax, cess += b.cess;
        }
        const double banded = amount + tax + cess;
        // The register's grand total counts bills of a rate that no band holds; they get a line.
        if (std::abs(reg.grandTotal - banded) >= 0.005)
            s.rows.push_back({Cell::ofText(QStringLiteral("Bills of no rate band")), {}, {}, {}, money(reg.grandTotal - banded)});
        Row total{bold(QStringLiteral("TOTAL")), money(amount), money(tax), money(cess), money(reg.grandTotal)};
        for (Cell& c : total) c.bold = true;
        s.rows.push_back(std::move(total));
        s.rows.push_back({});
    }
    return s;
}

QString SheetFileName(const QString& path, const QString& sheetName) {
    const QFileInfo info(path);
    const QString part = sheetName.toLower().replace(u' ', u'-');
    return info.dir().filePath(QStringLiteral("%1-%2.%3").arg(info.completeBaseName(), part, info.suffix()));
}

QStringList WriteSheets(const QString& path, const std::vector<sheets::Sheet>& sheets) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("xlsx")) {
        sheets::WriteXlsx(path, sheets);
        return {path};
    }
    if (suffix == QLatin1String("ods")) {
        sheets::WriteOds(path, sheets);
        return {path};
    }
    if (suffix != QLatin1String("csv"))
        throw basic::RuntimeError(75, QStringLiteral("%1: a spreadsheet is written as .xlsx, .ods or .csv.").arg(path));
    if (sheets.size() == 1) {
        sheets::WriteCsv(path, sheets.front());
        return {path};
    }
    QStringList written;
    for (const sheets::Sheet& s : sheets) {
        written << SheetFileName(path, s.name);
        sheets::WriteCsv(written.back(), s);
    }
    return written;
}

}  // namespace returns
