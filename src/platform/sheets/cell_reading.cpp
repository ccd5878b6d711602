#include "platform/sheets/cell_reading.h"

#include <QRegularExpression>
#include <QStringList>

namespace sheets {

namespace {

template <class T>
Reading<T> refused(const QString& reason) {
    Reading<T> r;
    r.reason = reason;
    return r;
}

template <class T>
Reading<T> blank() {
    Reading<T> r;
    r.blank = true;
    return r;
}

// Blanks of every width, as copied from web pages and word processors, become plain blanks.
QString plain(const QString& text) {
    QString t = text;
    for (QChar& c : t)
        if (c == QChar(0x00A0) || c == QChar(0x2007) || c == QChar(0x2009) || c == QChar(0x202F)) c = u' ';
    return t.trimmed();
}

int monthOfName(const QString& name) {
    static const QStringList months = {"january", "february", "march", "april", "may", "june", "july",
                                       "august", "september", "october", "november", "december"};
    const QString n = name.toLower();
    if (n == u"sept") return 9;
    for (int m = 0; m < 12; ++m)
        if (n == months[m] || (n.size() == 3 && months[m].startsWith(n))) return m + 1;
    return 0;
}

int fullYear(const QString& digits) {
    const int y = digits.toInt();
    if (digits.size() == 2) return y < 50 ? 2000 + y : 1900 + y;
    return digits.size() == 4 ? y : -1;
}

Reading<QDate> dateOf(const QString& shown, int day, int month, int year) {
    if (year < 0) return refused<QDate>(QStringLiteral("%1 has no year of two or four digits.").arg(shown));
    if (month < 1 || month > 12)
        return refused<QDate>(QStringLiteral("%1 has no month %2; dates are read day first (dd-mm-yyyy).").arg(shown).arg(month));
    const QDate d(year, month, day);
    if (!d.isValid()) return refused<QDate>(QStringLiteral("%1 is a day that does not exist.").arg(shown));
    Reading<QDate> r;
    r.value = d;
    return r;
}

Reading<QDate> notADate(const QString& shown) {
    return refused<QDate>(QStringLiteral("\"%1\" is not a date; write it as dd-mm-yyyy.").arg(shown));
}

}  // namespace

Reading<QDate> DateOfSerial(double serial) {
    const QString shown = QString::number(serial, 'g', 15);
    if (!(serial >= 1 && serial < 2958466)) return notADate(shown);
    const qint64 day = qint64(serial);
    if (day == 60) return refused<QDate>(QStringLiteral("%1 is 29 February 1900, a day that does not exist "
                                                         "(an old error of spreadsheets).").arg(shown));
    Reading<QDate> r;
    r.value = QDate(1899, 12, day < 60 ? 31 : 30).addDays(day);
    return r;
}

Reading<QDate> ReadDate(const QString& text) {
    QString t = plain(text);
    if (t.isEmpty()) return blank<QDate>();
    const QString shown = t;
    // A time after the date ("05-03-2026 10:30", "2026-03-05T10:30:00") is left out.
    static const QRegularExpression time(QStringLiteral("^(.*?\\d)(?:T|\\s+)\\d{1,2}:\\d{2}(?::\\d{2}(?:\\.\\d+)?)?(?:\\s*[AaPp]\\.?[Mm]\\.?)?$"));
    if (const auto m = time.match(t); m.hasMatch()) t = m.captured(1);
    static const QRegularExpression digitsOnly(QStringLiteral("^\\d+(\\.\\d+)?$"));
    if (digitsOnly.match(t).hasMatch()) {
        // A serial has four or five digits in any year a bill may have; a shorter number is no date.
        const qsizetype point = t.indexOf(u'.');
        const qsizetype whole = point < 0 ? t.size() : point;
        if (whole == 4 || whole == 5) return DateOfSerial(t.toDouble());
        if (point >= 0) return notADate(shown);
        if (t.size() == 8) return dateOf(shown, t.left(2).toInt(), t.mid(2, 2).toInt(), t.mid(4).toInt());
        if (t.size() == 6) return dateOf(shown, t.left(2).toInt(), t.mid(2, 2).toInt(), fullYear(t.mid(4)));
        return notADate(shown);
    }
    static const QRegularExpression numeric(QStringLiteral("^(\\d{1,4})\\s*([-/.])\\s*(\\d{1,2})\\s*\\2\\s*(\\d{1,4})$"));
    if (const auto m = numeric.match(t); m.hasMatch()) {
        if (m.captured(1).size() == 4)   // year first: ISO and its like
            return dateOf(shown, m.captured(4).toInt(), m.captured(3).toInt(), m.captured(1).toInt());
        if (m.captured(1).size() > 2) return notADate(shown);
        return dateOf(shown, m.captured(1).toInt(), m.captured(3).toInt(), fullYear(m.captured(4)));
    }
    static const QRegularExpression dayName(QStringLiteral("^(\\d{1,2})(?:st|nd|rd|th)?[\\s\\-/.]*([A-Za-z]+)\\.?[\\s\\-/.,]*(\\d{2,4})$"));
    static const QRegularExpression nameDay(QStringLiteral("^([A-Za-z]+)\\.?[\\s\\-/.]*(\\d{1,2})(?:st|nd|rd|th)?[\\s,\\-/.]+(\\d{2,4})$"));
    int day = 0, year = 0;
    QString month;
    if (const auto m = dayName.match(t); m.hasMatch()) {
        day = m.captured(1).toInt(), month = m.captured(2), year = fullYear(m.captured(3));
    } else if (const auto n = nameDay.match(t); n.hasMatch()) {
        month = n.captured(1), day = n.captured(2).toInt(), year = fullYear(n.captured(3));
    } else {
        return notADate(shown);
    }
    const int number = monthOfName(month);
    if (number == 0) return refused<QDate>(QStringLiteral("%1: \"%2\" is not the name of a month.").arg(shown, month));
    return dateOf(shown, day, number, year);
}

Reading<double> ReadAmount(const QString& text) {
    QString t = plain(text);
    if (t.isEmpty()) return blank<double>();
    const QString shown = t;
    bool negative = false;
    if (t.startsWith(u'(') && t.endsWith(u')')) {
        negative = true;
        t = t.mid(1, t.size() - 2).trimmed();
    }
    // The rupee, before or after, in its usual spellings; "/-" after the rupees.
    static const QRegularExpression currency(QStringLiteral("^(?:₹|Rs\\.?|INR|Rupees)\\s*|\\s*(?:₹|Rs\\.?|INR|Rupees|/-)$"),
                                             QRegularExpression::CaseInsensitiveOption);
    for (int i = 0; i < 3; ++i) t = t.remove(currency).trimmed();
    if (t.startsWith(u'-') || t.startsWith(QChar(0x2212))) {
        negative = true;
        t = t.mid(1).trimmed();
    } else if (t.endsWith(u'-')) {
        negative = true;
        t.chop(1);
    } else if (t.startsWith(u'+')) {
        t = t.mid(1).trimmed();
    }
    for (int i = 0; i < 2; ++i) t = t.remove(currency).trimmed();
    // Blanks between digit groups ("1 250") are grouping.
    static const QRegularExpression blankGroups(QStringLiteral("^\\d{1,3}( \\d{2,3})+(\\.\\d+)?$"));
    if (blankGroups.match(t).hasMatch()) t.replace(u' ', u',');
    static const QRegularExpression number(QStringLiteral("^(\\d+(?:,\\d+)*)(\\.\\d*)?$|^\\.\\d+$"));
    static const QRegularExpression exponent(QStringLiteral("^\\d+(\\.\\d+)?[eE][+-]?\\d{1,3}$"));
    const auto m = number.match(t);
    if (!m.hasMatch() && !exponent.match(t).hasMatch()) {
        static const QRegularExpression european(QStringLiteral("^\\d{1,3}(\\.\\d{3})+,\\d+$"));
        if (european.match(t).hasMatch())
            return refused<double>(QStringLiteral("%1 has a decimal comma; write it with a decimal point.").arg(shown));
        return refused<double>(QStringLiteral("\"%1\" is not an amount.").arg(shown));
    }
    const QStringList groups = m.captured(1).split(u',');
    if (groups.size() > 1) {
        // Western groups of three, or Indian: threes at the end, twos before it.
        bool western = groups.front().size() <= 3, indian = groups.front().size() <= 2 && groups.back().size() == 3;
        for (qsizetype g = 1; g < groups.size(); ++g) {
            western = western && groups[g].size() == 3;
            if (g < groups.size() - 1) indian = indian && groups[g].size() == 2;
        }
        if (!western && !indian) {
            if (groups.size() == 2 && groups.back().size() <= 2 && m.captured(2).isEmpty())
                return refused<double>(QStringLiteral("%1 has a decimal comma; write it with a decimal point.").arg(shown));
            return refused<double>(QStringLiteral("%1: its commas are not where digit groups go.").arg(shown));
        }
    }
    bool ok = false;
    const double value = QString(t).remove(u',').toDouble(&ok);
    if (!ok) return refused<double>(QStringLiteral("\"%1\" is not an amount.").arg(shown));
    Reading<double> r;
    r.value = negative ? -value : value;
    return r;
}

Reading<double> ReadPercent(const QString& text) {
    QString t = plain(text);
    if (t.isEmpty()) return blank<double>();
    const QString shown = t;
    if (t.endsWith(u'%')) t = t.chopped(1).trimmed();
    static const QRegularExpression number(QStringLiteral("^[+-]?(\\d+(\\.\\d*)?|\\.\\d+)$"));
    if (!number.match(t).hasMatch()) return refused<double>(QStringLiteral("\"%1\" is not a percentage.").arg(shown));
    const double value = t.toDouble();
    if (value < 0) return refused<double>(QStringLiteral("%1 is a percentage below zero.").arg(shown));
    Reading<double> r;
    r.value = value;
    return r;
}

}  // namespace sheets
