#pragma once
// Spreadsheet number formats ("#,##0.00", "0.00%", "dd-mm-yyyy", "[$₹-4009] #,##0.00;(#,##0.00)") read
// into what the writers and readers act on, and numbers turned into text the way a spreadsheet shows them.
#include <QString>
#include <vector>

namespace sheets {

// One part of a date format, in order: the day, the month, the year, or literal text between them.
struct DatePart {
    enum class Kind { Day, Month, MonthName, Year, Literal };
    Kind kind = Kind::Literal;
    int width = 0;   // digits (Day, Month: 1 or 2; Year: 2 or 4); MonthName: 3 short, 4 long
    QString text;    // Literal
};

struct NumberPattern {
    enum class Kind { General, Number, Percent, Scientific, Date, Time, DateTime };
    Kind kind = Kind::General;
    int decimals = 0;        // digits after the point (Number, Percent)
    int integerDigits = 1;   // the least digits before the point, zero-padded ("0000": 4)
    bool grouping = false;   // "#,##0"
    std::vector<DatePart> dateParts;   // Date, DateTime: the date's parts in order

    bool isDate() const { return kind == Kind::Date || kind == Kind::DateTime || kind == Kind::Time; }
};

// The first section of the format (positive numbers) decides; quoted text, escapes, colours and
// currency brackets are skipped. An empty format or "General" is General.
NumberPattern ParseNumberFormat(const QString& format);

// The pattern of a spreadsheet's built-in format number (XLSX numFmtId 0 to 58); General for others.
NumberPattern BuiltInNumberFormat(int id);

// Up to 15 significant digits, no exponent, no grouping, no trailing zeros: 100000, 0.3, -12.5.
QString GeneralNumber(double value);

// The number as a spreadsheet shows it under the pattern, without grouping: decimals kept, zero padding,
// a percent sign for Percent (the value times 100). Dates are not handled here (see the readers).
QString ShowNumber(double value, const NumberPattern& pattern);

}  // namespace sheets
