#pragma once
// A cell's text read as a user means it: dates day first (as written in India), amounts with Indian or
// Western grouping and a rupee sign, percentages. Pure functions; each gives the value or a reason
// the user understands ("31-02-26 is a day that does not exist").
#include <QDate>
#include <QString>
#include <optional>

namespace sheets {

template <class T>
struct Reading {
    std::optional<T> value;   // set when the text was read
    bool blank = false;       // nothing but blanks: no value and no reason; the caller decides
    QString reason;           // why the text cannot be read, when neither value nor blank

    bool ok() const { return value.has_value(); }
};

// Day first always: "5-3-26", "05/03/2026", "5.3.2026", "5 Mar 2026", "5-Mar-26", "5 March, 2026",
// "March 5, 2026", "2026-03-05" (year first only with four digits), the reader's "2026-03-05T10:30:00"
// (the time is left out, as after any date), "050326" and "05032026", and a date serial ("46086").
// Two-digit years: 00 to 49 are 2000 to 2049, 50 to 99 are 1950 to 1999.
Reading<QDate> ReadDate(const QString& text);

// A spreadsheet's date serial in its 1900 system: 1 is 1 January 1900, 60 the 29 February 1900 that
// the system counts and no calendar has; the fraction (the time of day) is left out.
Reading<QDate> DateOfSerial(double serial);

// "1,25,000.00", "125,000.00", "125000", "₹ 1,250", "Rs. 1,250.50", "INR 1250", "1250/-", "1 250",
// "1.25E+05". "(1,250.00)", "-1250" and "1250-" are negative: the value is below zero, and the caller
// refuses or keeps it.
Reading<double> ReadAmount(const QString& text);

// "12.5", "12.50%", "12.5 %": 12.5. A percentage below zero is refused.
Reading<double> ReadPercent(const QString& text);

}  // namespace sheets
