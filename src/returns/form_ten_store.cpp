#include "returns/form_ten_store.h"

#include "platform/basic/clock.h"
#include "platform/basic/indian_amount.h"
#include "platform/basic/runtime_error.h"
#include "platform/store/transaction.h"
#include "returns/book_store.h"
#include "returns/log.h"
#include "returns/module2.h"
#include "returns/return_book.h"

#include <QDate>
#include <cmath>

namespace returns {

namespace {

// A line of the pages read against the summary: the boxes it fills and the columns both hold it in.
struct PageLine {
    const char* line;          // the form's line, and the prefix of its boxes
    const char* band;          // the summary's band suffix
};
const PageLine kSalesLines[] = {{"SL1", "0"}, {"SL2", "1"}, {"SL3", "4"}, {"SL4", "12"}, {"SL6", "20"}};
const PageLine kLocalLines[] = {{"C1_1", "0"}, {"C1_2", "1"}, {"C1_3", "4"}, {"C1_4", "12"}, {"C1_6", "20"}};
const PageLine kInterLines[] = {{"C2_1", "0"}, {"C2_2", "1"}, {"C2_4", "4"}, {"C2_5", "12"}};

// The last of the rows (they come in the order Export wrote them) that holds any of the columns.
const StoreRow* lastHolding(const std::vector<StoreRow>& rows, const QStringList& columns) {
    for (auto it = rows.rbegin(); it != rows.rend(); ++it)
        for (const QString& c : columns)
            if (Holds(*it, c)) return &*it;
    return nullptr;
}

bool differ(double a, double b) { return std::abs(a - b) >= 0.005; }

QString dateText(int year, int month, int day) {
    return QDate(year, month, day).toString(QStringLiteral("dd-MM-yyyy"));
}

class Reader {
public:
    explicit Reader(FormTenMonth& m) : m_(m), v_(m.values) {}

    // Puts a line's amount and tax in its boxes from the page row, or from the summary when the page
    // has no such block, and says beside the line when the two disagree.
    void line(const QString& line, const QString& amountBox, const QString& taxBox, const StoreRow* page,
              const QString& pageAmount, const QString& pageTax, const StoreRow* summary, const QString& sumAmount,
              const QString& sumTax, const QString& creditBox = {}) {
        double amount = 0, tax = 0;
        if (page) {
            amount = Figure(*page, pageAmount);
            tax = Figure(*page, pageTax);
            pagesUsed_ = true;
            if (summary && (differ(amount, Figure(*summary, sumAmount)) || differ(tax, Figure(*summary, sumTax))))
                v_.notes.insert(line, QStringLiteral("The month's summary has %1 and tax %2: the bills were added after "
                                                     "the last Export. Export again to bring them here.")
                                          .arg(basic::IndianAmount(Figure(*summary, sumAmount)),
                                               basic::IndianAmount(Figure(*summary, sumTax))));
        } else if (summary) {
            amount = Figure(*summary, sumAmount);
            tax = Figure(*summary, sumTax);
            summaryUsed_ = true;
            if (amount != 0 || tax != 0) fromSummary_ << line;
        }
        v_.figures.insert(amountBox, amount);
        v_.figures.insert(taxBox, tax);
        if (!creditBox.isEmpty()) v_.figures.insert(creditBox, page ? Figure(*page, creditBox) : tax);
    }

    void finish() {
        if (pagesUsed_) {
            for (const QString& line : fromSummary_)
                v_.notes.insert(line, line.startsWith(QLatin1String("SL"))
                                          ? QStringLiteral("Not on the return pages, where Export puts the local sales only "
                                                           "on a page row of the year 2008: this is the month's summary.")
                                          : QStringLiteral("Not on the return pages: this is the month's summary. Export the "
                                                           "month to bring it there."));
            m_.source = FormSource::Pages;
            m_.sourceText = QStringLiteral("The figures are those that Export wrote to the return pages for ") + m_.month +
                            QStringLiteral(". The boxes on a yellow ground are typed here and kept in the book.");
        } else if (summaryUsed_) {
            m_.source = FormSource::Summary;
            m_.sourceText = m_.month + QStringLiteral(" was never exported: the figures are the month's summary, as the "
                                                      "last Add left it. Export the month to put them on the return pages.");
        } else {
            m_.source = FormSource::Nothing;
            m_.sourceText = QStringLiteral("Nothing is stored for ") + m_.month +
                            QStringLiteral(": neither the return pages nor the month's summary hold it. Key its bills "
                                           "in Form No. 52, Add and Export.");
        }
    }

private:
    FormTenMonth& m_;
    FormTenValues& v_;
    bool pagesUsed_ = false, summaryUsed_ = false;
    QStringList fromSummary_;
};

QString keyFilter(const QString& month, const QString& periodColumn) {
    return QStringLiteral(" WHERE cCode=") + Quoted(DealerCode) + QStringLiteral(" AND ") + periodColumn + QLatin1Char('=') +
           Quoted(month);
}

QString typedFilter(const FormTenMonth& m) {
    return QStringLiteral(" WHERE cCode=") + Quoted(DealerCode) + QStringLiteral(" AND cYear=") + Quoted(QString::number(m.year)) +
           QStringLiteral(" AND cRPFrom=") + Quoted(m.month);
}

void readFixed(FormTenMonth& m) {
    const ReturnBook& book = CurrentBook();
    const int month = MonthNumber(m.month);
    FormTenValues& v = m.values;
    v.fixed.insert("hdYear", book.yearText());
    v.fixed.insert("hdSequence", QStringLiteral("Monthly"));
    v.fixed.insert("hdFrom", dateText(m.year, month, 1));
    v.fixed.insert("hdTo", dateText(m.year, month, QDate(m.year, month, 1).daysInMonth()));
    v.fixed.insert("dpTIN", book.tin);
    v.fixed.insert("dpCST", book.cst);
    v.fixed.insert("dpName", QStringList{book.dealerName.isEmpty() ? DealerName : book.dealerName, book.address}.join(u'\n').trimmed());
}

// Page rows first, for the boxes the pages hold a column for; then what the form kept, which wins.
void readTyped(FormTenMonth& m, const store::Connection& cn, const std::vector<StoreRow>& page1,
               const std::vector<StoreRow>& page5, const StoreRow* summary) {
    FormTenValues& v = m.values;
    for (const FormBox& b : FormTenBoxes()) {
        if (b.kind != BoxKind::Typed || b.pageTable.isEmpty()) continue;
        const auto& rows = b.pageTable == QLatin1String("tblMPage1") ? page1 : page5;
        if (const StoreRow* row = lastHolding(rows, {b.pageColumn})) v.typed.insert(b.name, basic::CStr(row->value(b.pageColumn)).trimmed());
    }
    if (cn.TableNames().contains(kFormTenTypedTable, Qt::CaseInsensitive))
        for (const StoreRow& row : ReadRows(cn, QStringLiteral("SELECT Box, Value FROM ") + kFormTenTypedTable + typedFilter(m)))
            v.typed.insert(basic::CStr(row.value("Box")), row.value("Value").isNull() ? QString() : basic::CStr(row.value("Value")));
    // What a month never saved starts with: an original return, dated today, signed where the book is.
    const ReturnBook& book = CurrentBook();
    const QString today = basic::Clock::today().toString(QStringLiteral("dd-MM-yyyy"));
    const QString place = summary && Holds(*summary, "Place") ? basic::CStr(summary->value("Place")).trimmed() : book.place;
    const std::pair<const char*, QString> defaults[] = {
        {"hdNature", QStringLiteral("Original")}, {"hdDate", today}, {"dcDate", today}, {"dcPlace", place}, {"dpPlace", book.place}};
    for (const auto& [box, text] : defaults)
        if (!v.typed.contains(QString::fromLatin1(box))) v.typed.insert(QString::fromLatin1(box), text);
}

}  // namespace

const QStringList& FormTenMonths() {
    static const QStringList months = {"April",   "May",      "June",     "July",    "August",   "September",
                                       "October", "November", "December", "January", "February", "March"};
    return months;
}

int MonthNumber(const QString& month) {
    static const QStringList names = {"January", "February", "March",     "April",   "May",      "June",
                                      "July",    "August",   "September", "October", "November", "December"};
    for (int m = 0; m < 12; ++m)
        if (names[m].compare(month.trimmed(), Qt::CaseInsensitive) == 0) return m + 1;
    return 0;
}

FormTenMonth ReadFormTen(const QString& month) {
    FormTenMonth m;
    m.month = month;
    const int number = MonthNumber(month);
    if (number == 0) throw basic::RuntimeError(380, QStringLiteral("\"") + month + QStringLiteral("\" is not a month"));
    m.year = CurrentBook().calendarYear(number);
    readFixed(m);

    store::Connection cn = OpenBookStore();
    const QString page = keyFilter(month, QStringLiteral("cRPFrom")) + QStringLiteral(" ORDER BY rowid");
    const auto page1 = ReadRows(cn, QStringLiteral("SELECT * FROM tblMPage1") + page);
    const auto page3 = ReadRows(cn, QStringLiteral("SELECT * FROM tblMPage3") + page);
    const auto page5 = ReadRows(cn, QStringLiteral("SELECT * FROM tblMPage5") + page);
    const auto common = ReadRows(cn, QStringLiteral("SELECT * FROM tblCommon") + keyFilter(month, QStringLiteral("cMonth")));
    const StoreRow* summary = common.empty() ? nullptr : &common.back();

    // The summary holds one purchase kind, the one last added: its purchase total is that kind's bills.
    bool summaryLocal = true;
    if (summary) {
        const auto billTotal = [&](const char* table) {
            const auto rows = ReadRows(cn, QStringLiteral("SELECT Sum(NetAmount) AS total FROM ") + QLatin1String(table) +
                                               keyFilter(month, QStringLiteral("cMonth")));
            return rows.empty() ? 0.0 : Figure(rows.front(), "total");
        };
        const double net = Figure(*summary, "netTotal");
        summaryLocal = differ(net, billTotal("tblPurchaseInterState1")) || !differ(net, billTotal("tblPurchase1"));
    }

    Reader read(m);
    QStringList salesColumns;
    for (const PageLine& l : kSalesLines) salesColumns << QLatin1String(l.line) + QLatin1Char('4') << QLatin1String(l.line) + QLatin1Char('7');
    const StoreRow* sales = lastHolding(page1, salesColumns);
    for (const PageLine& l : kSalesLines) {
        const QString line = QString::fromLatin1(l.line);
        read.line(line, line + "4", line + "7", sales, line + "4", line + "7", summary, QStringLiteral("STA") + l.band,
                  QStringLiteral("STT") + l.band);
    }
    read.line("ISS1", "ISS14", "ISS17", lastHolding(page1, {"ISS14", "ISS17"}), "ISS14", "ISS17", summary, "STACST", "STTCST");

    // Local export writes the rate box C1_13 always; inter-state export C2_13.
    const StoreRow* local = lastHolding(page3, {"C1_13"});
    for (const PageLine& l : kLocalLines) {
        const QString line = QString::fromLatin1(l.line);
        read.line(line, line + "4", line + "5", local, line + "4", line + "5", summaryLocal ? summary : nullptr,
                  QStringLiteral("PTA") + l.band, QStringLiteral("PTT") + l.band, line + "7");
    }
    const StoreRow* inter = lastHolding(page3, {"C2_13"});
    double lineAmounts = 0, lineTaxes = 0;
    for (const PageLine& l : kInterLines) {
        const QString line = QString::fromLatin1(l.line);
        read.line(line, line + "4", line + "5", inter, line + "4", line + "5", summaryLocal ? nullptr : summary,
                  QStringLiteral("PTA") + l.band, QStringLiteral("PTT") + l.band);
        lineAmounts += m.values.figures.value(line + "4");
        lineTaxes += m.values.figures.value(line + "5");
    }
    // The page has no 20 % line of inter-state purchases, only a total that holds it. An update puts the
    // total in C2_34 and C2_35; a new row in C1_34 and C1_35, which then hold no local figures.
    double amount20 = 0, tax20 = 0;
    if (inter) {
        if (Holds(*inter, "C2_34")) {
            amount20 = Figure(*inter, "C2_34") - lineAmounts;
            tax20 = Figure(*inter, "C2_35") - lineTaxes;
        } else if (!Holds(*inter, "C1_13")) {
            amount20 = Figure(*inter, "C1_34") - lineAmounts;
            tax20 = Figure(*inter, "C1_35") - lineTaxes;
        }
    } else if (summary && !summaryLocal) {
        amount20 = Figure(*summary, "PTA20");
        tax20 = Figure(*summary, "PTT20");
    }
    m.values.figures.insert("C2_64", std::round(amount20 * 100) / 100);
    m.values.figures.insert("C2_65", std::round(tax20 * 100) / 100);
    read.finish();

    readTyped(m, cn, page1, page5, summary);
    ComputeFormTen(m.values);
    return m;
}

void SaveFormTen(const FormTenMonth& month) {
    if (const auto fault = CheckTyped(month.values)) throw basic::RuntimeError(380, fault->message);
    FormTenValues v = month.values;
    ComputeFormTen(v);

    store::Connection cn = OpenBookStore();
    store::inTransaction(cn, [&] {
        if (!cn.TableNames().contains(kFormTenTypedTable, Qt::CaseInsensitive))
            cn.Execute(QStringLiteral("CREATE TABLE ") + kFormTenTypedTable +
                       QStringLiteral(" (cCode TEXT COLLATE NOCASE, cYear TEXT COLLATE NOCASE, cRPFrom TEXT COLLATE NOCASE, "
                                      "Box TEXT COLLATE NOCASE, Value TEXT)"));
        cn.Execute(QStringLiteral("DELETE FROM ") + kFormTenTypedTable + typedFilter(month));
        QHash<QString, QStringList> pageSets;
        for (const FormBox& b : FormTenBoxes()) {
            if (b.kind == BoxKind::Typed) {
                const QString kept = KeptText(b, v.typed.value(b.name));
                if (!kept.isEmpty())
                    cn.Execute(QStringLiteral("INSERT INTO ") + kFormTenTypedTable + QStringLiteral(" (cCode, cYear, cRPFrom, Box, Value) VALUES (") +
                               QStringList{Quoted(DealerCode), Quoted(QString::number(month.year)), Quoted(month.month), Quoted(b.name),
                                           Quoted(kept)}.join(QStringLiteral(", ")) + QLatin1Char(')'));
            }
            if (b.pageTable.isEmpty() || (b.kind != BoxKind::Typed && b.kind != BoxKind::Computed)) continue;
            // The pages hold figures as "#0.00" text, as Export writes them.
            const QString text = b.kind == BoxKind::Computed ? QString::number(v.figures.value(b.name), 'f', 2)
                                                               : KeptText(b, v.typed.value(b.name));
            pageSets[b.pageTable] << b.pageColumn + QLatin1Char('=') + (text.isEmpty() ? QStringLiteral("NULL") : Quoted(text));
        }
        for (auto it = pageSets.cbegin(); it != pageSets.cend(); ++it)
            cn.Execute(QStringLiteral("UPDATE ") + it.key() + QStringLiteral(" SET ") + it.value().join(QStringLiteral(", ")) +
                       keyFilter(month.month, QStringLiteral("cRPFrom")));
    });
}

}  // namespace returns
