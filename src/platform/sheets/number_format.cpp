#include "platform/sheets/number_format.h"

#include <algorithm>
#include <cmath>

namespace sheets {

namespace {

// A run of one format letter ("dd", "mmm", "yyyy", "h") or a literal between them.
struct Token {
    QChar letter;   // d m y h s, or 0 for a literal
    int width = 0;
    QString text;
};

// The first section of a format, split into date/time letters and literals; numeric placeholders are
// counted into the pattern on the way.
std::vector<Token> tokenize(const QString& format, NumberPattern& p, bool& scientific, bool& elapsed) {
    std::vector<Token> tokens;
    auto literal = [&](const QString& s) {
        if (!tokens.empty() && tokens.back().letter.isNull()) tokens.back().text += s;
        else tokens.push_back({QChar(), 0, s});
    };
    bool afterPoint = false, sawDigit = false;
    int optionalAfterPoint = 0;
    for (qsizetype i = 0; i < format.size(); ++i) {
        const QChar c = format[i];
        const QChar lower = c.toLower();
        if (c == u';') break;
        if (c == u'"') {
            const qsizetype end = format.indexOf(u'"', i + 1);
            literal(format.mid(i + 1, end < 0 ? -1 : end - i - 1));
            if (end < 0) break;
            i = end;
        } else if (c == u'\\' || c == u'_' || c == u'*') {
            if (c == u'\\' && i + 1 < format.size()) literal(format.mid(i + 1, 1));
            ++i;
        } else if (c == u'[') {
            const qsizetype end = format.indexOf(u']', i + 1);
            const QString inner = format.mid(i + 1, end < 0 ? -1 : end - i - 1).toLower();
            if (!inner.isEmpty() && (inner.count(inner[0]) == inner.size()) &&
                (inner[0] == u'h' || inner[0] == u'm' || inner[0] == u's'))
                elapsed = true;
            if (end < 0) break;
            i = end;
        } else if (lower == u'a' && (format.mid(i, 5).compare(u"AM/PM", Qt::CaseInsensitive) == 0 ||
                                     format.mid(i, 3).compare(u"A/P", Qt::CaseInsensitive) == 0)) {
            tokens.push_back({QLatin1Char('h'), 0, QString()});   // a clock: the format shows a time
            i += format.mid(i, 5).compare(u"AM/PM", Qt::CaseInsensitive) == 0 ? 4 : 2;
        } else if (lower == u'e' && i + 1 < format.size() && (format[i + 1] == u'+' || format[i + 1] == u'-')) {
            scientific = true;
            ++i;
        } else if (lower == u'd' || lower == u'm' || lower == u'y' || lower == u'h' || lower == u's') {
            if (!tokens.empty() && tokens.back().letter == lower) ++tokens.back().width;
            else tokens.push_back({lower, 1, QString()});
        } else if (c == u'0' || c == u'#' || c == u'?') {
            sawDigit = true;
            if (afterPoint) {
                ++p.decimals;
                if (c != u'0') ++optionalAfterPoint;
                else optionalAfterPoint = 0;
            } else if (c == u'0') {
                ++p.integerDigits;
            }
        } else if (c == u'.') {
            afterPoint = true;
            literal(QStringLiteral("."));
        } else if (c == u',' && sawDigit && !afterPoint) {
            p.grouping = true;
        } else if (c == u'%') {
            p.kind = NumberPattern::Kind::Percent;
        } else {
            literal(QString(c));
        }
    }
    p.decimals -= optionalAfterPoint;   // "0.##": at least none, trailing zeros dropped (kept simple)
    return tokens;
}

NumberPattern numberOf(int decimals, bool grouping = true) {
    NumberPattern p;
    p.kind = NumberPattern::Kind::Number;
    p.decimals = decimals;
    p.grouping = grouping;
    return p;
}

}  // namespace

NumberPattern ParseNumberFormat(const QString& format) {
    NumberPattern p;
    const QString f = format.trimmed();
    if (f.isEmpty() || f.compare(u"General", Qt::CaseInsensitive) == 0 || f == u"@") return p;
    p.integerDigits = 0;
    bool scientific = false, elapsed = false;
    const std::vector<Token> tokens = tokenize(f, p, scientific, elapsed);
    bool hasDate = false, hasTime = elapsed;
    for (size_t i = 0; i < tokens.size(); ++i) {
        const QChar l = tokens[i].letter;
        if (l == u'd' || l == u'y') hasDate = true;
        if (l == u'h' || l == u's') hasTime = true;
    }
    // "m" is minutes next to an hour or before seconds, else the month.
    std::vector<Token> parts;
    for (size_t i = 0; i < tokens.size(); ++i) {
        Token t = tokens[i];
        if (t.letter == u'm') {
            auto prevLetter = [&] { for (size_t j = i; j-- > 0;) if (!tokens[j].letter.isNull()) return tokens[j].letter; return QChar(); };
            auto nextLetter = [&] { for (size_t j = i + 1; j < tokens.size(); ++j) if (!tokens[j].letter.isNull()) return tokens[j].letter; return QChar(); };
            if (t.width <= 2 && (prevLetter() == u'h' || nextLetter() == u's')) {
                hasTime = true;
                continue;
            }
            hasDate = true;
        }
        parts.push_back(t);
    }
    if (hasDate) {
        p.kind = hasTime ? NumberPattern::Kind::DateTime : NumberPattern::Kind::Date;
        // The date's own parts; what belongs to the time (and the literals around it) is left out.
        for (const Token& t : parts) {
            if (t.letter == u'h' || t.letter == u's') break;
            if (t.letter == u'd' && t.width <= 2) p.dateParts.push_back({DatePart::Kind::Day, t.width, {}});
            else if (t.letter == u'd') continue;   // the weekday's name
            else if (t.letter == u'm' && t.width <= 2) p.dateParts.push_back({DatePart::Kind::Month, t.width, {}});
            else if (t.letter == u'm') p.dateParts.push_back({DatePart::Kind::MonthName, t.width >= 4 ? 4 : 3, {}});
            else if (t.letter == u'y') p.dateParts.push_back({DatePart::Kind::Year, t.width <= 2 ? 2 : 4, {}});
            else p.dateParts.push_back({DatePart::Kind::Literal, 0, t.text});
        }
        while (!p.dateParts.empty() && p.dateParts.back().kind == DatePart::Kind::Literal) p.dateParts.pop_back();
        return p;
    }
    if (hasTime) {
        p.kind = NumberPattern::Kind::Time;
        return p;
    }
    if (scientific) {
        p.kind = NumberPattern::Kind::Scientific;
        return p;
    }
    if (p.kind != NumberPattern::Kind::Percent) p.kind = NumberPattern::Kind::Number;
    return p;
}

NumberPattern BuiltInNumberFormat(int id) {
    switch (id) {
    case 1: return numberOf(0, false);
    case 2: return numberOf(2, false);
    case 3: case 5: case 6: case 37: case 38: case 41: case 42: return numberOf(0);
    case 4: case 7: case 8: case 39: case 40: case 43: case 44: return numberOf(2);
    case 9: return ParseNumberFormat(QStringLiteral("0%"));
    case 10: return ParseNumberFormat(QStringLiteral("0.00%"));
    case 11: case 48: return ParseNumberFormat(QStringLiteral("0.00E+00"));
    case 14: return ParseNumberFormat(QStringLiteral("dd-mm-yyyy"));
    case 15: return ParseNumberFormat(QStringLiteral("d-mmm-yy"));
    case 16: return ParseNumberFormat(QStringLiteral("d-mmm"));
    case 17: return ParseNumberFormat(QStringLiteral("mmm-yy"));
    case 18: case 19: case 20: case 21: case 45: case 46: case 47: return ParseNumberFormat(QStringLiteral("hh:mm:ss"));
    case 22: return ParseNumberFormat(QStringLiteral("dd-mm-yyyy hh:mm"));
    default:
        // The East Asian date formats of the built-in table.
        if ((id >= 27 && id <= 36) || (id >= 50 && id <= 58)) return ParseNumberFormat(QStringLiteral("yyyy-mm-dd"));
        return NumberPattern();
    }
}

QString GeneralNumber(double value) {
    if (!std::isfinite(value)) return QString();
    if (value == 0) return QStringLiteral("0");
    const int magnitude = int(std::floor(std::log10(std::fabs(value))));
    const int decimals = std::clamp(14 - magnitude, 0, 30);
    QString s = QString::number(value, 'f', decimals);
    if (s.contains(u'.')) {
        while (s.endsWith(u'0')) s.chop(1);
        if (s.endsWith(u'.')) s.chop(1);
    }
    return s == u"-0" ? QStringLiteral("0") : s;
}

QString ShowNumber(double value, const NumberPattern& pattern) {
    using K = NumberPattern::Kind;
    if (!std::isfinite(value)) return QString();
    if (pattern.kind != K::Number && pattern.kind != K::Percent) return GeneralNumber(value);
    const double shown = pattern.kind == K::Percent ? value * 100 : value;
    QString s = QString::number(std::fabs(shown), 'f', std::clamp(pattern.decimals, 0, 30));
    const qsizetype point = s.indexOf(u'.');
    const qsizetype whole = point < 0 ? s.size() : point;
    if (whole < pattern.integerDigits) s.prepend(QString(pattern.integerDigits - whole, u'0'));
    if (pattern.integerDigits == 0 && s.startsWith(u"0.")) s.remove(0, 1);
    const bool zero = std::none_of(s.cbegin(), s.cend(), [](QChar c) { return c >= u'1' && c <= u'9'; });
    if (shown < 0 && !zero) s.prepend(u'-');
    if (pattern.kind == K::Percent) s += u'%';
    return s;
}

}  // namespace sheets
