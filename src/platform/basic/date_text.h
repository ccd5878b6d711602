#pragma once
// Reading and writing dates as the language does; used by CDate, IsDate and Format.
#include <QDate>
#include <QString>

namespace basic {

// Month first ("09-26-08" is 26 September 2008), unless the first number cannot be a month; month names in
// English; two-digit years 00-29 are 20xx and 30-99 are 19xx. Invalid QDate when the text is no date.
QDate parseDateText(const QString& text);

// Date formats built of d, dd, m, mm, mmm, mmmm, yy, yyyy (letters in any case) and literal separators.
QString formatDate(QDate date, const QString& format);

}  // namespace basic
