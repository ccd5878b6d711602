#include "returns/bill_fields.h"

#include <QRegularExpression>
#include <QSet>
#include <array>

namespace returns {

namespace {

// The header's words in lower case; "%" stays a word of its own, other signs part words.
QStringList wordsOf(const QString& header) {
    QString t = header.toLower();
    for (QChar& c : t)
        if (!c.isLetterOrNumber() && c != u'%') c = u' ';
    t.replace(u'%', QStringLiteral(" % "));
    return t.split(u' ', Qt::SkipEmptyParts);
}

bool hasAny(const QStringList& words, std::initializer_list<const char*> wanted) {
    for (const char* w : wanted)
        if (words.contains(QLatin1String(w))) return true;
    return false;
}

}  // namespace

QString BillFieldName(BillField field) {
    static const std::array<const char*, 9> names = {"(left out)", "Bill Date", "Party", "TIN", "Bill No",
                                                     "Rate of Tax %", "Amount", "Tax", "Cess"};
    return QString::fromLatin1(names[std::size_t(field)]);
}

// The tests go from the most telling word to the least: "Bill Date" is a date before it is a bill,
// "Tax Rate" a rate before a tax, "Tax Amount" a tax before an amount, "Taxable Value" an amount.
BillField GuessBillField(const QString& header) {
    const QStringList w = wordsOf(header);
    if (w.isEmpty()) return BillField::None;
    static const QStringList serial = {"sl", "si", "sr", "s", "serial", "slno", "srno", "sno"};
    if (serial.contains(w.front()) && (w.size() == 1 || hasAny(w, {"no", "number", "num"}) || w.front().size() > 2))
        return BillField::None;
    if (hasAny(w, {"total", "remark", "remarks", "narration", "note", "notes"})) return BillField::None;
    if (hasAny(w, {"cess"})) return BillField::Cess;
    if (hasAny(w, {"tin", "gstin", "uin", "registration"})) return BillField::Tin;
    if (hasAny(w, {"date", "dt", "dated"})) return BillField::Date;
    if (hasAny(w, {"rate", "%", "percent", "percentage"})) return BillField::Rate;
    const bool numbered = hasAny(w, {"no", "number", "num", "nos"});
    const bool amountWord = hasAny(w, {"taxable", "amount", "amt", "value", "turnover", "assessable", "price", "gross"});
    if ((hasAny(w, {"bill", "invoice", "inv", "voucher", "vch", "ref", "reference", "doc"}) && (numbered || !amountWord)) ||
        (numbered && w.size() == 1))
        return BillField::BillNo;
    const bool taxWord = hasAny(w, {"tax", "vat", "kvat", "output", "input"});
    if (amountWord) return taxWord ? BillField::Tax : BillField::Amount;
    if (taxWord) return BillField::Tax;
    if (hasAny(w, {"party", "name", "supplier", "customer", "seller", "buyer", "dealer", "vendor", "particulars",
                   "client", "purchaser"}))
        return BillField::Party;
    return BillField::None;
}

std::vector<BillField> GuessBillFields(const QStringList& header) {
    std::vector<BillField> fields;
    QSet<int> taken;
    for (const QString& h : header) {
        BillField f = GuessBillField(h);
        if (f != BillField::None && taken.contains(int(f))) f = BillField::None;
        taken.insert(int(f));
        fields.push_back(f);
    }
    return fields;
}

int FindHeaderRow(const std::vector<QStringList>& rows, int lookAt) {
    const int last = std::min(int(rows.size()), lookAt);
    for (int r = 0; r < last; ++r) {
        int named = 0;
        for (BillField f : GuessBillFields(rows[std::size_t(r)]))
            if (f != BillField::None) ++named;
        if (named >= 3) return r;
    }
    return -1;
}

bool IsTotalLine(const QStringList& cells) {
    static const QRegularExpression total(QStringLiteral("^(grand|sub|net|page)?[\\s-]*totals?\\b"),
                                          QRegularExpression::CaseInsensitiveOption);
    for (const QString& c : cells) {
        const QString t = c.trimmed();
        if (t.isEmpty()) continue;
        return total.match(t).hasMatch();
    }
    return false;
}

}  // namespace returns
