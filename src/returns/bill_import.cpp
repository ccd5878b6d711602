#include "returns/bill_import.h"

#include "platform/basic/variant.h"

#include <QHash>
#include <QLocale>
#include <algorithm>
#include <cmath>

namespace returns {

namespace {

bool blankRow(const QStringList& cells) {
    return std::all_of(cells.begin(), cells.end(), [](const QString& c) { return c.trimmed().isEmpty(); });
}

QString twoDecimals(double x) { return basic::Format(basic::Variant(x), QStringLiteral("#0.00")); }

QString rowName(int row) { return QStringLiteral("Row %1: ").arg(row + 1); }

// A line of totals says what the bills above it come to; it is checked against the bills read, so a
// bill left out or misread shows at once.
QString totalRemark(const QStringList& cells, const std::vector<BillField>& fields, double billsAmount) {
    const auto at = std::find(fields.begin(), fields.end(), BillField::Amount);
    const qsizetype column = at - fields.begin();
    QString why;
    const QString stated = at == fields.end() ? QString() : GridAmount(cells.value(column), &why);
    if (stated.isEmpty()) return QStringLiteral("a line of totals, left out.");
    if (std::abs(basic::Val(stated) - billsAmount) < 0.005)
        return QStringLiteral("a line of totals, left out; its Amount %1 is the sum of the bills read.").arg(stated);
    return QStringLiteral("a line of totals, left out; its Amount %1 is not the %2 of the bills read above it: "
                          "a bill is missing or cannot be read.")
        .arg(stated, twoDecimals(billsAmount));
}

}  // namespace

BillImport ReadBills(const sheets::SheetContents& sheet, int headerRow, const std::vector<BillField>& fields,
                     const QStringList& rateEntries) {
    BillImport out;
    QHash<int, QStringList> problems;
    for (const sheets::SheetProblem& p : sheet.problems) {
        if (p.row < 0) out.notes.push_back({-1, p.text, false});
        else
            for (int r = p.row; r < p.row + std::max(1, p.rows); ++r) problems[r] << p.text;
    }
    const bool dated = std::find(fields.begin(), fields.end(), BillField::Date) != fields.end();
    const bool rated = std::find(fields.begin(), fields.end(), BillField::Rate) != fields.end();
    if (!rated)
        out.notes.push_back({-1, QStringLiteral("No column is read as the Rate of Tax %: the bills count in no rate band "
                                                "until a rate is chosen for each."), false});
    double amountSince = 0;   // the bills' amounts since the last line of totals
    for (int r = headerRow + 1; r < int(sheet.rows.size()); ++r) {
        const QStringList& cells = sheet.rows[std::size_t(r)];
        if (blankRow(cells) && !problems.contains(r)) {
            ++out.emptyRows;
            continue;
        }
        if (IsTotalLine(cells)) {
            out.notes.push_back({r, rowName(r) + totalRemark(cells, fields, amountSince), false});
            amountSince = 0;
            continue;
        }
        BillLine line = ReadBillLine(cells, fields, rateEntries);
        QStringList why = problems.value(r) + line.refusals;
        if (why.isEmpty() && line.blank) {
            out.notes.push_back({r, rowName(r) + QStringLiteral("nothing in the columns read; left out."), false});
            continue;
        }
        if (dated && line.cells[std::size_t(BillField::Date)].isEmpty() && line.refusals.isEmpty())
            why << QStringLiteral("it has no bill date.");
        if (!why.isEmpty()) {
            out.notes.push_back({r, rowName(r) + why.join(QLatin1Char(' ')), true});
            ++out.refusedRows;
            continue;
        }
        if (rated && line.cells[std::size_t(BillField::Rate)].isEmpty())
            out.notes.push_back({r, rowName(r) + QStringLiteral("no Rate of Tax %; the bill counts in no rate band until one is chosen."), false});
        amountSince += basic::Val(line.cells[std::size_t(BillField::Amount)]);
        out.bills.push_back(std::move(line));
        out.billRows.push_back(r);
    }
    if (!dated) out.blocker = QStringLiteral("Choose the column that holds the Bill Date.");
    else if (std::find(fields.begin(), fields.end(), BillField::Amount) == fields.end())
        out.blocker = QStringLiteral("Choose the column that holds the Amount.");
    else if (sheet.truncated)
        out.blocker = QStringLiteral("The sheet goes on past %1 rows, more than are read at once: split it and import "
                                     "each part.").arg(QLocale(QLocale::English).toString(kImportRowLimit));
    else if (out.bills.empty()) out.blocker = QStringLiteral("No row below the header can be read as a bill.");
    return out;
}

}  // namespace returns
