#pragma once
// ReturnBook: one dealer's return files of one financial year (April to March), in a folder of their
// own. The return window, its registers and the return itself work on the book open now.
#include <QString>

namespace returns {

struct ReturnBook {
    QString tin;         // the dealer's key in every table (cCode); empty for the book "Dealer not named"
    QString dealerName;  // cAddress and the window's "Dealer Details"
    QString cst;
    QString address;
    QString place;       // where the return is signed: txtPlace starts with it
    int firstYear = 0;   // 2025 for the year 2025-26
    QString folder;      // where its nwForm10DB.mdb, Form10Data.mdb and TAXDATA.mdb lie

    // "2025-26".
    QString yearText() const;
    // The calendar year of a month of the book: April to December of the first year, January to March
    // of the second. month is 1 to 12.
    int calendarYear(int month) const;
};

// "2025-26" for the year that begins in April 2025.
QString YearText(int firstYear);

// The financial year a date falls in: 2025 for any day from 1 April 2025 to 31 March 2026.
int FinancialYearOf(int year, int month);

// The book the return window works on now: the book open (return_books.h), or while none is, the
// return files of the program's current folder in the financial year of today.
const ReturnBook& CurrentBook();

}  // namespace returns
