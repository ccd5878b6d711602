#include "platform/basic/variant.h"

#include "platform/basic/date_text.h"
#include "platform/basic/runtime_error.h"

#include <cmath>
#include <cstdio>

namespace basic {

// The platform counts dates as days since 30 December 1899.
static const QDate kDateZero(1899, 12, 30);

Variant Variant::currency(double v) {
    Variant r;
    r.t_ = Currency;
    r.i_ = std::llround(v * 10000.0);
    return r;
}

double Variant::number() const {
    switch (t_) {
    case Integer: return double(i_);
    case Double: return d_;
    case Currency: return double(i_) / 10000.0;
    case Boolean: return i_ ? -1.0 : 0.0;
    case Date: return double(kDateZero.daysTo(date_));
    default: return 0.0;
    }
}

bool Variant::operator==(const Variant& o) const {
    if (t_ != o.t_) return false;
    switch (t_) {
    case Empty:
    case Null: return true;
    case Double: return d_ == o.d_;
    case Text: return s_ == o.s_;
    case Date: return date_ == o.date_;
    case Bytes: return bytes_ == o.bytes_;
    default: return i_ == o.i_;
    }
}

double Val(const QString& text) {
    // Blanks, tabs and line feeds are skipped wherever they stand: " 1 2" reads as 12.
    QString s;
    s.reserve(text.size());
    for (QChar c : text)
        if (c != u' ' && c != u'\t' && c != u'\n' && c != u'\r') s.append(c);
    if (s.size() > 2 && s[0] == u'&' && (s[1] == u'H' || s[1] == u'h' || s[1] == u'O' || s[1] == u'o')) {
        const int base = (s[1] == u'H' || s[1] == u'h') ? 16 : 8;
        qint64 v = 0;
        for (qsizetype i = 2; i < s.size(); ++i) {
            const int d = QString(s[i]).toInt(nullptr, base);
            if (d == 0 && s[i] != u'0') break;
            v = v * base + d;
        }
        return double(v);
    }
    qsizetype i = 0;
    QString num;
    if (i < s.size() && (s[i] == u'-' || s[i] == u'+')) num.append(s[i++]);
    bool digits = false;
    while (i < s.size() && s[i].isDigit() && s[i].unicode() < 128) { num.append(s[i++]); digits = true; }
    if (i < s.size() && s[i] == u'.') {
        num.append(s[i++]);
        while (i < s.size() && s[i].isDigit() && s[i].unicode() < 128) { num.append(s[i++]); digits = true; }
    }
    if (!digits) return 0.0;
    if (i < s.size() && (s[i] == u'e' || s[i] == u'E' || s[i] == u'd' || s[i] == u'D')) {
        QString exp = QStringLiteral("e");
        qsizetype j = i + 1;
        if (j < s.size() && (s[j] == u'-' || s[j] == u'+')) exp.append(s[j++]);
        bool expDigits = false;
        while (j < s.size() && s[j].isDigit() && s[j].unicode() < 128) { exp.append(s[j++]); expDigits = true; }
        if (expDigits) num.append(exp);
    }
    return num.toDouble();
}

// A text that is wholly a number: blanks around it, a sign, thousands commas, a point, an exponent.
static bool parseNumericText(const QString& text, double* out) {
    const QString t = text.trimmed();
    if (t.isEmpty()) return false;
    QString s = t;
    s.remove(u',');
    if (s.size() > 2 && s[0] == u'&' && (s[1] == u'H' || s[1] == u'h')) {
        bool ok = false;
        const qint64 v = s.mid(2).toLongLong(&ok, 16);
        if (ok && out) *out = double(v);
        return ok;
    }
    bool ok = false;
    const double v = s.toDouble(&ok);
    if (!ok) {
        // A trailing sign, as in "12-", is a number to the language.
        if (s.endsWith(u'-') || s.endsWith(u'+')) {
            const double w = s.left(s.size() - 1).toDouble(&ok);
            if (ok && out) *out = s.endsWith(u'-') ? -w : w;
            return ok;
        }
        return false;
    }
    if (std::isinf(v) || std::isnan(v)) return false;
    if (out) *out = v;
    return true;
}

bool IsNumeric(const Variant& v) {
    switch (v.type()) {
    case Variant::Empty:
    case Variant::Integer:
    case Variant::Double:
    case Variant::Currency:
    case Variant::Boolean: return true;
    case Variant::Text: return parseNumericText(v.text(), nullptr);
    default: return false;
    }
}

bool IsDate(const Variant& v) {
    if (v.type() == Variant::Date) return true;
    if (v.type() != Variant::Text) return false;
    return parseDateText(v.text()).isValid();
}

double CDbl(const Variant& v) {
    switch (v.type()) {
    case Variant::Empty: return 0.0;
    case Variant::Null: throw invalidUseOfNull();
    case Variant::Text: {
        double d = 0;
        if (!parseNumericText(v.text(), &d)) throw typeMismatch();
        return d;
    }
    case Variant::Bytes: throw typeMismatch();
    default: return v.number();
    }
}

std::int64_t CLng(const Variant& v) {
    const double d = CDbl(v);
    if (d >= 2147483647.5 || d < -2147483648.5) throw overflowError();
    return std::int64_t(std::nearbyint(d));  // default rounding mode: halves to even
}

bool CBool(const Variant& v) {
    if (v.type() == Variant::Text) {
        const QString t = v.text().trimmed().toLower();
        if (t == u"true") return true;
        if (t == u"false") return false;
    }
    return CDbl(v) != 0.0;
}

static QString doubleText(double d) {
    if (d == 0) return QStringLiteral("0");
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.15G", d);
    QString s = QString::fromLatin1(buf);
    // "1E+16" keeps its sign and drops leading zeros of the exponent, as the language prints it.
    const qsizetype e = s.indexOf(u'E');
    if (e >= 0) {
        QString mant = s.left(e), exp = s.mid(e + 1);
        const QChar sign = exp[0];
        exp = exp.mid(1);
        while (exp.size() > 1 && exp[0] == u'0') exp.remove(0, 1);
        s = mant + u'E' + sign + exp;
    }
    return s;
}

QString CStr(const Variant& v) {
    switch (v.type()) {
    case Variant::Empty: return QString();
    case Variant::Null: throw invalidUseOfNull();
    case Variant::Integer: return QString::number(v.integer());
    case Variant::Double:
    case Variant::Currency: return doubleText(v.number());
    case Variant::Boolean: return v.integer() ? QStringLiteral("True") : QStringLiteral("False");
    case Variant::Date: return v.date().toString(QStringLiteral("M/d/yyyy"));
    case Variant::Text: return v.text();
    case Variant::Bytes: return QString::fromUtf8(v.bytes());
    }
    return QString();
}

QDate CDate(const Variant& v) {
    switch (v.type()) {
    case Variant::Date: return v.date();
    case Variant::Null: throw invalidUseOfNull();
    case Variant::Text: {
        const QDate d = parseDateText(v.text());
        if (d.isValid()) return d;
        double n = 0;
        if (parseNumericText(v.text(), &n)) return kDateZero.addDays(qint64(std::floor(n)));
        throw typeMismatch();
    }
    case Variant::Integer:
    case Variant::Double:
    case Variant::Currency: return kDateZero.addDays(qint64(std::floor(v.number())));
    default: throw typeMismatch();
    }
}

// Rounds |x| to `places` decimals, halves away from zero, on the number's shortest decimal form, so that
// 1.005 (stored as 1.00499999...) still rounds up as the user reads it.
static QString roundedDigits(double x, int places) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", std::fabs(x));  // 15 significant digits, as the language keeps
    const QString s = QString::fromLatin1(buf);
    const qsizetype e = s.indexOf(u'e');
    QString digits = s.left(e);
    digits.remove(u'.');
    int exponent = s.mid(e + 1).toInt();
    // The value is 0.d1d2d3... x 10^(exponent+1). Keep integerDigits + places digits.
    int pointAt = exponent + 1;  // digits before the point
    if (pointAt < 0) {
        digits = QString(-pointAt, u'0') + digits;
        pointAt = 0;
    }
    int keep = pointAt + places;
    while (digits.size() < keep + 1) digits.append(u'0');
    QString kept = digits.left(keep);
    const bool up = digits[keep].unicode() >= u'5';
    if (up) {
        int i = keep - 1;
        for (; i >= 0; --i) {
            if (kept[i] == u'9') kept[i] = u'0';
            else { kept[i] = QChar(kept[i].unicode() + 1); break; }
        }
        if (i < 0) { kept.prepend(u'1'); ++pointAt; }
    }
    QString intPart = kept.left(pointAt);
    QString fracPart = kept.mid(pointAt);
    while (intPart.size() > 1 && intPart[0] == u'0') intPart.remove(0, 1);
    if (intPart.isEmpty()) intPart = QStringLiteral("0");
    return intPart + (places > 0 ? QStringLiteral(".") + fracPart : QString());
}

static QString formatNumber(double x, const QString& format) {
    const qsizetype point = format.indexOf(u'.');
    int places = 0;
    if (point >= 0)
        for (qsizetype i = point + 1; i < format.size() && (format[i] == u'0' || format[i] == u'#'); ++i) ++places;
    QString body = roundedDigits(x, places);
    QString intPart = body.section(u'.', 0, 0);
    const QString frac = places > 0 ? body.section(u'.', 1, 1) : QString();
    const QString intFormat = point >= 0 ? format.left(point) : format;
    // "#0" asks for at least one digit before the point; "#" alone gives none for zero.
    if (intPart == u"0" && !intFormat.contains(u'0')) intPart.clear();
    if (intFormat.contains(u',')) {
        for (qsizetype i = intPart.size() - 3; i > 0; i -= 3) intPart.insert(i, u',');
    }
    QString out = intPart + (places > 0 ? QStringLiteral(".") + frac : QString());
    bool allZero = true;
    for (QChar c : out)
        if (c.isDigit() && c != u'0') allZero = false;
    if (x < 0 && !allZero) out.prepend(u'-');
    return out;
}

static bool isDateFormat(const QString& f) {
    const QString l = f.toLower();
    return l.contains(u'd') || l.contains(u'y') || l.contains(u'm');
}

QString Format(const Variant& v, const QString& format) {
    if (v.isNull() || v.isEmpty()) return QString();
    if (isDateFormat(format)) {
        QDate d;
        if (v.type() == Variant::Date) d = v.date();
        else if (v.type() == Variant::Text && IsDate(v)) d = CDate(v);
        else if (v.isNumber()) d = kDateZero.addDays(qint64(std::floor(v.number())));
        else return CStr(v);
        return formatDate(d, format);
    }
    double x = 0;
    if (v.type() == Variant::Text) {
        if (!parseNumericText(v.text(), &x)) return v.text();
    } else if (v.type() == Variant::Bytes) {
        return CStr(v);
    } else {
        x = v.number();
    }
    return formatNumber(x, format);
}

}  // namespace basic
