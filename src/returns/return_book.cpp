#include "returns/return_book.h"

namespace returns {

QString YearText(int firstYear) {
    return QStringLiteral("%1-%2").arg(firstYear).arg((firstYear + 1) % 100, 2, 10, QChar(u'0'));
}

QString ReturnBook::yearText() const { return YearText(firstYear); }

int ReturnBook::calendarYear(int month) const { return month <= 3 ? firstYear + 1 : firstYear; }

int FinancialYearOf(int year, int month) { return month <= 3 ? year - 1 : year; }

}  // namespace returns
