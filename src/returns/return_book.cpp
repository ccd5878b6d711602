#include "returns/return_book.h"

#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"

namespace returns {

QString ReturnBook::yearText() const {
    return QStringLiteral("%1-%2").arg(firstYear).arg((firstYear + 1) % 100, 2, 10, QChar(u'0'));
}

int ReturnBook::calendarYear(int month) const { return month <= 3 ? firstYear + 1 : firstYear; }

int FinancialYearOf(int year, int month) { return month <= 3 ? year - 1 : year; }

const ReturnBook& CurrentBook() {
    // Until a book is chosen: the return files of the user's folder, in the year of today.
    static ReturnBook book;
    const QDate today = basic::Clock::today();
    book.firstYear = FinancialYearOf(today.year(), today.month());
    book.folder = basic::UserPath();
    return book;
}

}  // namespace returns
