#pragma once
// The year of a return book at a glance: for each month of the financial year, what the local
// purchases, the inter-state purchases and the sales come to per rate band, read from the bills stored.
#include "platform/sheets/sheet_writer.h"
#include "returns/return_book.h"

#include <QStringList>
#include <array>
#include <vector>

namespace returns {

// One register over the year: months[0] is April, months[11] March.
struct RegisterYear {
    QString name;                      // "Local purchases"
    QStringList bands;                 // "0", "1", "4", "12.5", "20" (sales: "CST" before "20")
    struct Month {
        std::vector<double> amount, tax, cess;   // by band
        double otherAmount = 0, otherTax = 0, otherCess = 0;   // bills of a rate no band holds
    };
    std::array<Month, 12> months;
};

// The three registers of the book open now, from its bill tables.
std::vector<RegisterYear> ReadYear();

// One sheet: the heading, then each register with a line a month and a TOTAL line.
sheets::Sheet YearSummarySheet(const ReturnBook& book, const QString& dealerTin,
                               const std::vector<RegisterYear>& registers);

}  // namespace returns
