#include "returns/year_summary.h"

#include "platform/basic/variant.h"
#include "platform/store/recordset.h"
#include "returns/bill_export.h"
#include "returns/module2.h"

namespace returns {

namespace {

using sheets::Cell;
using Row = std::vector<Cell>;

const QStringList kMonths = {"April",   "May",      "June",     "July",     "August", "September",
                             "October", "November", "December", "January", "February", "March"};

// The place of a stored month name in the financial year, -1 for a name that is no month.
int monthIndex(const QString& name) {
    for (int m = 0; m < 12; ++m)
        if (name.trimmed().compare(kMonths[m], Qt::CaseInsensitive) == 0) return m;
    return -1;
}

double number(const basic::Variant& v) { return v.isNull() || v.isEmpty() ? 0 : basic::Val(basic::CStr(v)); }

RegisterYear readRegister(const QString& name, const QString& table, const QStringList& bands) {
    RegisterYear reg;
    reg.name = name;
    reg.bands = bands;
    for (RegisterYear::Month& m : reg.months) m.amount = m.tax = m.cess = std::vector<double>(std::size_t(bands.size()), 0);
    QString code = DealerCode;
    code.replace(u'\'', QStringLiteral("''"));
    store::Recordset rs;
    rs.Open(QStringLiteral("SELECT cMonth, RateOfTax, Amount, Tax, Cess FROM %1 WHERE cCode='%2'").arg(table, code), cnReturn);
    for (; !rs.Eof(); rs.MoveNext()) {
        const basic::Variant month = rs.Fields(0).Value();
        const int m = month.isNull() ? -1 : monthIndex(basic::CStr(month));
        if (m < 0) continue;
        RegisterYear::Month& into = reg.months[std::size_t(m)];
        const basic::Variant rate = rs.Fields(1).Value();
        const qsizetype band = rate.isNull() ? -1 : bands.indexOf(basic::CStr(rate).trimmed());
        const double amount = number(rs.Fields(2).Value()), tax = number(rs.Fields(3).Value()),
                     cess = number(rs.Fields(4).Value());
        if (band < 0) {
            into.otherAmount += amount, into.otherTax += tax, into.otherCess += cess;
        } else {
            into.amount[std::size_t(band)] += amount, into.tax[std::size_t(band)] += tax, into.cess[std::size_t(band)] += cess;
        }
    }
    return reg;
}

Cell money(double x) { return Cell::ofNumber(x, QStringLiteral("#,##0.00")); }

}  // namespace

std::vector<RegisterYear> ReadYear() {
    const QStringList purchase = {"0", "1", "4", "12.5", "20"};
    const QStringList sales = {"0", "1", "4", "12.5", "CST", "20"};
    ConnectReturnStore();
    return {readRegister(QStringLiteral("Local purchases"), QStringLiteral("tblPurchase1"), purchase),
            readRegister(QStringLiteral("Inter-state purchases"), QStringLiteral("tblPurchaseInterState1"), purchase),
            readRegister(QStringLiteral("Sales"), QStringLiteral("tblSales"), sales)};
}

sheets::Sheet YearSummarySheet(const ReturnBook& book, const QString& dealerTin, const std::vector<RegisterYear>& registers) {
    const SheetHeading heading{QStringLiteral("Summary of the year %1").arg(book.yearText()), book.dealerName, dealerTin,
                               book.yearText()};
    sheets::Sheet s{QStringLiteral("Year %1").arg(book.yearText()), HeadingRows(heading), {16}};
    for (const RegisterYear& reg : registers) {
        const std::size_t bands = std::size_t(reg.bands.size());
        s.rows.push_back({Cell::ofText(reg.name, true)});
        Row header{Cell::ofText(QStringLiteral("Month"), true)};
        for (const QString& b : reg.bands)
            for (const char* what : {"Amount", "Tax", "Cess"})
                header.push_back(Cell::ofText(QStringLiteral("%1 % %2").arg(b, QLatin1String(what)), true));
        for (const char* what : {"Other rates", "Total Amount", "Total Tax", "Total Cess", "Total"})
            header.push_back(Cell::ofText(QLatin1String(what), true));
        s.rows.push_back(std::move(header));
        std::vector<double> sums(bands * 3 + 5, 0);
        for (int m = 0; m < 12; ++m) {
            const RegisterYear::Month& month = reg.months[std::size_t(m)];
            const int calendarMonth = (m + 3) % 12 + 1;
            std::vector<double> line;
            double amount = month.otherAmount, tax = month.otherTax, cess = month.otherCess;
            for (std::size_t b = 0; b < bands; ++b) {
                line.insert(line.end(), {month.amount[b], month.tax[b], month.cess[b]});
                amount += month.amount[b], tax += month.tax[b], cess += month.cess[b];
            }
            line.insert(line.end(), {month.otherAmount + month.otherTax + month.otherCess, amount, tax, cess, amount + tax + cess});
            Row row{Cell::ofText(QStringLiteral("%1 %2").arg(kMonths[m]).arg(book.calendarYear(calendarMonth)))};
            for (std::size_t i = 0; i < line.size(); ++i) {
                row.push_back(money(line[i]));
                sums[i] += line[i];
            }
            s.rows.push_back(std::move(row));
        }
        Row total{Cell::ofText(QStringLiteral("TOTAL"), true)};
        for (double sum : sums) total.push_back(money(sum)), total.back().bold = true;
        s.rows.push_back(std::move(total));
        s.rows.push_back({});
    }
    s.columnWidths.resize(1 + 6 * 3 + 5, 12);
    s.columnWidths[0] = 16;
    return s;
}

}  // namespace returns
