#include "returns/e_filing_lists.h"

#include "platform/basic/indian_amount.h"
#include "returns/book_store.h"
#include "returns/form_ten_store.h"
#include "returns/module2.h"
#include "returns/return_book.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <cmath>

namespace returns {

namespace {

bool elevenDigits(const QString& tin) {
    static const QRegularExpression shape(QStringLiteral("^\\d{11}$"));
    return shape.match(tin).hasMatch();
}

bool otherState(FilingKind kind) { return kind == FilingKind::InterStatePurchases || kind == FilingKind::CstSales; }

QDate billDate(const basic::Variant& v) {
    if (v.type() == basic::Variant::Date) return v.date();
    if (v.type() == basic::Variant::Text) return QDate::fromString(v.text().left(10), Qt::ISODate);
    return {};
}

QString text(const StoreRow& row, const char* column) {
    const basic::Variant v = row.value(QString::fromLatin1(column), basic::Variant::null());
    return v.isNull() || v.isEmpty() ? QString() : basic::CStr(v);
}

// The bills of one table as the return window reads the month: the same statement, so the same order.
void readTable(const store::Connection& cn, const QString& table, const QString& month, bool sales,
               FilingKind purchaseKind, std::vector<FilingBill>& into) {
    const QString sql = QStringLiteral("SELECT * FROM ") + table + QStringLiteral(" WHERE cCode=") + Quoted(DealerCode) +
                        QStringLiteral(" AND cMonth= ") + Quoted(month) + QStringLiteral("ORDER BY BillDate");
    int row = 0;
    for (const StoreRow& r : ReadRows(cn, sql)) {
        ++row;
        FilingBill b;
        b.row = row;
        b.date = billDate(r.value("BillDate", basic::Variant::null()));
        b.party = text(r, "Party").trimmed();
        b.tin = text(r, "TIN").trimmed();
        b.billNo = text(r, "BillNo").trimmed();
        b.rate = text(r, "RateOfTax").trimmed();
        b.amount = Figure(r, "Amount");
        b.tax = Figure(r, "Tax");
        b.cess = Figure(r, "Cess");
        b.amountBlank = !Holds(r, "Amount");
        // A row with nothing of a bill is the grid's empty first row, which every save keeps.
        if (!b.date.isValid() && b.party.isEmpty() && b.billNo.isEmpty() && b.amountBlank && b.tin.isEmpty()) continue;
        b.kind = sales ? (b.rate == QLatin1String("CST") ? FilingKind::CstSales : FilingKind::LocalSales) : purchaseKind;
        into.push_back(b);
    }
}

QString figure(double v) { return QString::number(std::round(v * 100.0) / 100.0, 'f', 2); }

}  // namespace

QString FilingKindName(FilingKind kind) {
    switch (kind) {
    case FilingKind::LocalPurchases: return QStringLiteral("Local purchases");
    case FilingKind::InterStatePurchases: return QStringLiteral("Inter-State purchases");
    case FilingKind::LocalSales: return QStringLiteral("Local sales");
    case FilingKind::CstSales: return QStringLiteral("CST sales");
    }
    return {};
}

bool IsPurchase(FilingKind kind) { return kind == FilingKind::LocalPurchases || kind == FilingKind::InterStatePurchases; }

QString FilingFinding::text() const {
    QStringList bill;
    if (!billNo.isEmpty()) bill << QStringLiteral("bill ") + billNo;
    if (!party.isEmpty()) bill << party;
    return FilingKindName(kind) + QStringLiteral(", row %1").arg(row) +
           (bill.isEmpty() ? QString() : QStringLiteral(" (") + bill.join(QStringLiteral(", ")) + QLatin1Char(')')) +
           QStringLiteral(": ") + what;
}

std::vector<const FilingBill*> FilingMonth::changed() const {
    std::vector<const FilingBill*> out;
    for (const FilingBill& b : bills)
        if (b.filedTin != b.tin) out.push_back(&b);
    return out;
}

std::vector<const FilingBill*> FilingMonth::of(FilingKind kind) const {
    std::vector<const FilingBill*> out;
    for (const FilingBill& b : bills)
        if (b.kind == kind) out.push_back(&b);
    return out;
}

QString FiledTin(FilingKind kind, const QString& tin) {
    const QString t = tin.trimmed();
    if (t.isEmpty()) return kNoTin;
    if (!otherState(kind)) return t;
    // The upload takes from a party of another state eleven digits that begin with a state's code, and
    // never Kerala's own, 32.
    const int state = t.left(2).toInt();
    if (!elevenDigits(t) || state < 1 || state > 37 || state == 32) return kOtherStateTin;
    return t;
}

FilingMonth ReadFilingMonth(const QString& month) {
    FilingMonth m;
    m.month = month;
    const int number = MonthNumber(month);
    m.year = number ? CurrentBook().calendarYear(number) : 0;
    const store::Connection cn = OpenBookStore();
    readTable(cn, QStringLiteral("tblPurchase1"), month, false, FilingKind::LocalPurchases, m.bills);
    readTable(cn, QStringLiteral("tblPurchaseInterState1"), month, false, FilingKind::InterStatePurchases, m.bills);
    std::vector<FilingBill> sales;
    readTable(cn, QStringLiteral("tblSales"), month, true, FilingKind::LocalSales, sales);
    for (FilingKind kind : {FilingKind::LocalSales, FilingKind::CstSales})
        for (const FilingBill& b : sales)
            if (b.kind == kind) m.bills.push_back(b);
    CheckFilingMonth(m);
    return m;
}

void CheckFilingMonth(FilingMonth& m) {
    m.findings.clear();
    const int monthNumber = MonthNumber(m.month);
    const QString period = m.month + QLatin1Char(' ') + QString::number(m.year);
    QHash<QString, const FilingBill*> seen;   // kind, party and bill number
    for (FilingBill& b : m.bills) {
        b.filedTin = FiledTin(b.kind, b.tin);
        const auto find = [&](const QString& what) { m.findings.push_back({b.kind, b.row, b.billNo, b.party, what}); };
        if (b.party.isEmpty()) find(QStringLiteral("the party is empty"));
        if (b.billNo.isEmpty()) find(QStringLiteral("the bill number is empty"));
        if (b.amountBlank) find(QStringLiteral("the amount is empty"));
        if (!b.tin.isEmpty() && !elevenDigits(b.tin)) find(QStringLiteral("the TIN ") + b.tin + QStringLiteral(" is not 11 digits"));
        if (!b.date.isValid())
            find(QStringLiteral("the bill date is not a date"));
        else if (b.date.month() != monthNumber || b.date.year() != m.year)
            find(QStringLiteral("the bill date ") + b.date.toString(QStringLiteral("dd-MM-yyyy")) + QStringLiteral(" is not in ") + period +
                 (b.date.year() == 2009 ? QStringLiteral(" (Ctrl+D fills the year 09)") : QString()));
        if (!b.billNo.isEmpty() && !b.party.isEmpty()) {
            const QString key = QString::number(int(b.kind)) + QLatin1Char('\n') + b.party.toLower() + QLatin1Char('\n') + b.billNo.toLower();
            if (const FilingBill* first = seen.value(key))
                find(QStringLiteral("the bill number %1 of this party is in row %2 as well").arg(b.billNo).arg(first->row));
            else
                seen.insert(key, &b);
        }
        if (b.kind == FilingKind::CstSales) continue;
        bool numeric = false;
        const double rate = b.rate.toDouble(&numeric);
        if (!numeric) {
            find(QStringLiteral("the rate of tax \"") + b.rate + QStringLiteral("\" is no rate"));
        } else if (std::abs(b.tax - b.amount * rate / 100.0) > 1.0) {
            find(QStringLiteral("the tax %1 differs by more than a rupee from the amount at %2 %, %3")
                     .arg(basic::IndianAmount(b.tax), b.rate, basic::IndianAmount(b.amount * rate / 100.0)));
        }
    }
}

sheets::Sheet FilingSheet(const FilingMonth& m, FilingKind kind) {
    sheets::Sheet sheet;
    sheet.name = FilingKindName(kind);
    sheet.columnWidths = {14, 13, 14, 32, 28, 14, 12, 10};
    std::vector<sheets::Cell> heading;
    for (const char* h : {"Invoice No", "Invoice Date", "TIN", "Dealer Name", "Address", "Value", "VAT", "Cess"})
        heading.push_back(sheets::Cell::ofText(QString::fromLatin1(h), true));
    sheet.rows.push_back(heading);
    for (const FilingBill* b : m.of(kind)) {
        // Every cell is text, as the upload reads it: a TIN of eleven digits stays whole, a date stays a date.
        // The bills keep no address of the party, so that column stays blank.
        sheet.rows.push_back({sheets::Cell::ofText(b->billNo),
                              sheets::Cell::ofText(b->date.isValid() ? b->date.toString(QStringLiteral("dd-MM-yyyy")) : QString()),
                              sheets::Cell::ofText(b->filedTin), sheets::Cell::ofText(b->party), sheets::Cell{},
                              sheets::Cell::ofText(figure(b->amount)), sheets::Cell::ofText(figure(b->tax)),
                              sheets::Cell::ofText(figure(b->cess))});
    }
    return sheet;
}

QString FilingFileName(const FilingMonth& m, FilingKind kind, const QString& dealerTin) {
    static const char* const names[] = {"LocalPurchases", "InterStatePurchases", "LocalSales", "CSTSales"};
    const QString kindName = QString::fromLatin1(names[int(kind)]);
    const QString name = kindName + QLatin1Char('-') + m.month + QLatin1Char('-') + QString::number(m.year);
    return dealerTin.trimmed().isEmpty() ? name : dealerTin.trimmed() + QLatin1Char('-') + name;
}

QStringList WriteFilingFiles(const FilingMonth& m, const QString& folder, const QString& dealerTin) {
    QStringList written;
    for (FilingKind kind : kFilingKinds) {
        if (m.of(kind).empty()) continue;
        const sheets::Sheet sheet = FilingSheet(m, kind);
        const QString base = QDir(folder).filePath(FilingFileName(m, kind, dealerTin));
        sheets::WriteXlsx(base + QStringLiteral(".xlsx"), {sheet});
        written << base + QStringLiteral(".xlsx");
        sheets::WriteCsv(base + QStringLiteral(".csv"), sheet);
        written << base + QStringLiteral(".csv");
    }
    return written;
}

}  // namespace returns
