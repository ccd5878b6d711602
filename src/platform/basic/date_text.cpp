#include "platform/basic/date_text.h"

#include "platform/basic/clock.h"

#include <QStringList>

namespace basic {

namespace {

const char* const kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                               "July",    "August",   "September", "October", "November", "December"};

int monthFromName(const QString& word) {
    if (word.size() < 3) return 0;
    for (int m = 0; m < 12; ++m) {
        const QString name = QString::fromLatin1(kMonths[m]);
        if (name.startsWith(word, Qt::CaseInsensitive) && (word.size() == 3 || word.size() == name.size())) return m + 1;
        if (word.size() == 4 && word.compare(QStringLiteral("Sept"), Qt::CaseInsensitive) == 0 && m == 8) return 9;
    }
    return 0;
}

int fullYear(const QString& digits) {
    const int y = digits.toInt();
    if (digits.size() <= 2) return y < 30 ? 2000 + y : 1900 + y;
    return y;
}

struct Piece {
    QString text;
    bool number;
};

}  // namespace

QDate parseDateText(const QString& text) {
    QList<Piece> pieces;
    QString cur;
    bool curNumber = false;
    auto flush = [&] {
        if (!cur.isEmpty()) pieces.append({cur, curNumber});
        cur.clear();
    };
    for (QChar c : text.trimmed()) {
        if (c.isDigit() && c.unicode() < 128) {
            if (!cur.isEmpty() && !curNumber) flush();
            curNumber = true;
            cur.append(c);
        } else if (c.isLetter()) {
            if (!cur.isEmpty() && curNumber) flush();
            curNumber = false;
            cur.append(c);
        } else if (c == u'-' || c == u'/' || c == u'.' || c == u' ' || c == u',') {
            flush();
        } else {
            return QDate();
        }
    }
    flush();
    if (pieces.size() < 2 || pieces.size() > 3) return QDate();

    int month = 0, day = 0, year = 0;
    int namedAt = -1;
    for (int i = 0; i < pieces.size(); ++i) {
        if (pieces[i].number) continue;
        if (namedAt >= 0) return QDate();
        namedAt = i;
        month = monthFromName(pieces[i].text);
        if (!month) return QDate();
    }
    QList<QString> nums;
    for (const Piece& p : pieces)
        if (p.number) nums.append(p.text);
    for (const QString& n : nums)
        if (n.size() > 4) return QDate();

    if (namedAt >= 0) {
        if (nums.size() == 1) {
            day = nums[0].toInt();
            year = Clock::today().year();
        } else if (nums[0].size() == 4) {  // "1982 Dec 18"
            year = nums[0].toInt();
            day = nums[1].toInt();
        } else {
            day = nums[0].toInt();
            year = fullYear(nums[1]);
        }
    } else if (nums.size() == 3) {
        if (nums[0].size() >= 3) {  // ISO order: year first
            year = nums[0].toInt();
            month = nums[1].toInt();
            day = nums[2].toInt();
        } else {
            month = nums[0].toInt();
            day = nums[1].toInt();
            year = fullYear(nums[2]);
            if (month > 12 && day <= 12) std::swap(month, day);  // a first number above 12 can only be the day
        }
    } else {  // two numbers: month and day of this year
        month = nums[0].toInt();
        day = nums[1].toInt();
        if (month > 12 && day <= 12) std::swap(month, day);
        year = Clock::today().year();
    }
    return QDate(year, month, day);
}

QString formatDate(QDate date, const QString& format) {
    if (!date.isValid()) return QString();
    QString out;
    for (qsizetype i = 0; i < format.size();) {
        const QChar c = format[i].toLower();
        qsizetype n = 1;
        while (i + n < format.size() && format[i + n].toLower() == c) ++n;
        if (c == u'd') {
            out += n >= 2 ? QString::asprintf("%02d", date.day()) : QString::number(date.day());
        } else if (c == u'm') {
            const QString name = QString::fromLatin1(kMonths[date.month() - 1]);
            if (n >= 4) out += name;
            else if (n == 3) out += name.left(3);
            else if (n == 2) out += QString::asprintf("%02d", date.month());
            else out += QString::number(date.month());
        } else if (c == u'y') {
            out += n >= 3 ? QString::asprintf("%04d", date.year()) : QString::asprintf("%02d", date.year() % 100);
        } else {
            out += format.mid(i, n);
        }
        i += n;
    }
    return out;
}

}  // namespace basic
