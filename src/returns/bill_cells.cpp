#include "returns/bill_cells.h"

#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/sheets/cell_reading.h"
#include "returns/log.h"
#include "returns/module2.h"

#include <cmath>

namespace returns {

namespace {

// Far above any bill, and below where "#0.00" stops being exact.
constexpr double kLargestAmount = 1e12;

QString listOf(const QStringList& entries) {
    QStringList trimmed;
    for (const QString& e : entries) trimmed << e.trimmed();
    return trimmed.join(QStringLiteral(", "));
}

// A party, TIN or bill number: the text as it stands, on one line, without blanks around it.
QString plainText(const QString& text) {
    QString t = text;
    for (QChar& c : t)
        if (c == u'\n' || c == u'\r' || c == u'\t') c = u' ';
    return t.trimmed();
}

}  // namespace

QString RateEntryFor(const QString& text, const QStringList& rateEntries, QString* reason) {
    const QString t = text.trimmed();
    if (t.compare(QLatin1String("CST"), Qt::CaseInsensitive) == 0) {
        for (const QString& e : rateEntries)
            if (e.trimmed() == QLatin1String("CST")) return e;
        *reason = QStringLiteral("CST is not a rate of this register (%1).").arg(listOf(rateEntries));
        return QString();
    }
    const sheets::Reading<double> rate = sheets::ReadPercent(t);
    if (!rate.ok()) {
        *reason = rate.reason;
        return QString();
    }
    for (const QString& e : rateEntries) {
        bool number = false;
        const double listed = e.trimmed().toDouble(&number);
        if (number && std::abs(listed - *rate.value) < 1e-9) return e;
    }
    *reason = QStringLiteral("%1 % is not a rate of this register (%2).").arg(QString::number(*rate.value), listOf(rateEntries));
    return QString();
}

QString GridAmount(const QString& text, QString* reason) {
    const sheets::Reading<double> amount = sheets::ReadAmount(text);
    if (!amount.ok()) {
        *reason = amount.reason;
        return QString();
    }
    if (*amount.value < 0) {
        *reason = QStringLiteral("%1 is below zero; a bill's figures are not negative.").arg(text.trimmed());
        return QString();
    }
    if (*amount.value >= kLargestAmount) {
        *reason = QStringLiteral("%1 is too large for a bill.").arg(text.trimmed());
        return QString();
    }
    return basic::Format(basic::Variant(*amount.value), QStringLiteral("#0.00"));
}

QString GridDate(const QString& text, QString* reason) {
    const sheets::Reading<QDate> date = sheets::ReadDate(text);
    if (!date.ok()) {
        *reason = date.reason;
        return QString();
    }
    const QString shown = date.value->toString(QStringLiteral("dd-MM-yy"));
    // The grid keeps two digits of the year, and saving reads them back by the platform's rule.
    QDate back;
    ignore([&] { back = DateFromBillText(shown); });
    if (back != *date.value) {
        *reason = QStringLiteral("%1 lies outside the years 1930 to 2029 that a bill date can hold.")
                      .arg(date.value->toString(QStringLiteral("dd-MM-yyyy")));
        return QString();
    }
    return shown;
}

BillLine ReadBillLine(const QStringList& texts, const std::vector<BillField>& fields, const QStringList& rateEntries) {
    BillLine line;
    const int n = std::min(int(texts.size()), int(fields.size()));
    for (int i = 0; i < n; ++i) {
        const BillField field = fields[std::size_t(i)];
        if (field == BillField::None) continue;
        const int column = int(field);
        if (line.filled[std::size_t(column)]) continue;
        line.filled[std::size_t(column)] = true;
        const QString& text = texts[i];
        if (text.trimmed().isEmpty()) continue;
        line.blank = false;
        QString reason, value;
        switch (field) {
        case BillField::Date: value = GridDate(text, &reason); break;
        case BillField::Rate: value = RateEntryFor(text, rateEntries, &reason); break;
        case BillField::Amount:
        case BillField::Tax:
        case BillField::Cess: value = GridAmount(text, &reason); break;
        default: value = plainText(text); break;
        }
        if (!reason.isEmpty()) line.refusals << BillFieldName(field) + QStringLiteral(": ") + reason;
        line.cells[std::size_t(column)] = value;
    }
    return line;
}

}  // namespace returns
