// Cells read as a user means them: one table per rule, each case the text and the value or the
// words of the reason.
#include "platform/sheets/cell_reading.h"

#include "support/case_name.h"
#include "support/printers.h"

#include <gtest/gtest.h>

using namespace sheets;

namespace {

// A case: the text, then the value it gives, or the words of the reason, or blank.
template <class T>
struct Case {
    const char* name;
    const char* text;
    std::optional<T> value;
    const char* reason = "";
};

template <class T>
void check(const Reading<T>& r, const Case<T>& c) {
    if (c.value) {
        ASSERT_TRUE(r.ok()) << r.reason.toStdString();
        if constexpr (std::is_same_v<T, double>) EXPECT_DOUBLE_EQ(*r.value, *c.value);
        else EXPECT_EQ(*r.value, *c.value);
        EXPECT_TRUE(r.reason.isEmpty());
    } else if (*c.reason) {
        EXPECT_FALSE(r.ok());
        EXPECT_FALSE(r.blank);
        EXPECT_TRUE(r.reason.contains(QString::fromUtf8(c.reason))) << r.reason.toStdString();
    } else {
        EXPECT_TRUE(r.blank);
        EXPECT_FALSE(r.ok());
        EXPECT_TRUE(r.reason.isEmpty());
    }
}


using DateCase = Case<QDate>;
const DateCase kDates[] = {
    {"ShortDayFirst", "5-3-26", QDate(2026, 3, 5)},
    {"SlashesFourDigitYear", "05/03/2026", QDate(2026, 3, 5)},
    {"Dots", "5.3.2026", QDate(2026, 3, 5)},
    {"Iso", "2026-03-05", QDate(2026, 3, 5)},
    {"IsoWithTimeFromTheReader", "2026-03-05T10:30:00", QDate(2026, 3, 5)},
    {"TimeAfterDayFirst", "05-03-2026 00:00:00", QDate(2026, 3, 5)},
    {"TimeWithAmPm", "5/3/2026 10:30 PM", QDate(2026, 3, 5)},
    {"MonthNameBlanks", "5 Mar 2026", QDate(2026, 3, 5)},
    {"MonthNameHyphens", "5-Mar-2026", QDate(2026, 3, 5)},
    {"MonthNameShortYear", "05-mar-26", QDate(2026, 3, 5)},
    {"LongMonthWithComma", "5 March, 2026", QDate(2026, 3, 5)},
    {"MonthFirstByName", "March 5, 2026", QDate(2026, 3, 5)},
    {"Sept", "30 Sept 2025", QDate(2025, 9, 30)},
    {"Ordinal", "1st Apr 2026", QDate(2026, 4, 1)},
    {"NoSeparatorsShort", "050326", QDate(2026, 3, 5)},
    {"NoSeparatorsLong", "05032026", QDate(2026, 3, 5)},
    {"SerialFromAPaste", "46086", QDate(2026, 3, 5)},
    {"SerialWithTime", "46086.75", QDate(2026, 3, 5)},
    {"YearWindowLow", "1-4-49", QDate(2049, 4, 1)},
    {"YearWindowHigh", "1-4-50", QDate(1950, 4, 1)},
    {"NonBreakingBlanks", "\u00A05\u00A0Mar\u00A02026 ", QDate(2026, 3, 5)},
    {"DayThatDoesNotExist", "31-02-26", std::nullopt, "31-02-26 is a day that does not exist"},
    {"NotALeapYear", "29-02-2025", std::nullopt, "is a day that does not exist"},
    {"MonthFirstRefused", "03/25/2026", std::nullopt, "has no month 25; dates are read day first"},
    {"ThreeDigitYear", "5-3-202", std::nullopt, "has no year of two or four digits"},
    {"UnknownMonthName", "5 Mrch 2026", std::nullopt, "\"Mrch\" is not the name of a month"},
    {"ShortNumber", "12", std::nullopt, "is not a date"},
    {"Text", "next Monday", std::nullopt, "\"next Monday\" is not a date; write it as dd-mm-yyyy"},
    {"Blank", "   ", std::nullopt},
};

class Dates : public ::testing::TestWithParam<DateCase> {};
TEST_P(Dates, ReadDayFirst) { check(ReadDate(QString::fromUtf8(GetParam().text)), GetParam()); }
INSTANTIATE_TEST_SUITE_P(Cells, Dates, ::testing::ValuesIn(kDates), CaseName());

struct SerialCase {
    const char* name;
    double serial;
    std::optional<QDate> date;
    const char* reason = "";
};

const SerialCase kSerials[] = {
    {"First", 1, QDate(1900, 1, 1)},
    {"BeforeTheMissingDay", 59, QDate(1900, 2, 28)},
    {"TheMissingDay", 60, std::nullopt, "29 February 1900, a day that does not exist"},
    {"AfterTheMissingDay", 61, QDate(1900, 3, 1)},
    {"OurTime", 46086, QDate(2026, 3, 5)},
    {"FractionIsTheTime", 46086.999, QDate(2026, 3, 5)},
    {"Zero", 0, std::nullopt, "is not a date"},
    {"PastTheLastDay", 2958466, std::nullopt, "is not a date"},
};

class Serials : public ::testing::TestWithParam<SerialCase> {};
TEST_P(Serials, CountedAsTheSpreadsheetCounts) {
    const auto& c = GetParam();
    check(DateOfSerial(c.serial), DateCase{c.name, "", c.date, c.reason});
}
INSTANTIATE_TEST_SUITE_P(Cells, Serials, ::testing::ValuesIn(kSerials), CaseName());

using AmountCase = Case<double>;
const AmountCase kAmounts[] = {
    {"IndianGrouping", "1,25,000.00", 125000},
    {"IndianGroupingCrore", "1,23,45,678.50", 12345678.5},
    {"WesternGrouping", "125,000.00", 125000},
    {"Plain", "125000", 125000},
    {"RupeeSign", "₹ 1,250", 1250},
    {"RupeeSignAfter", "1,250 ₹", 1250},
    {"RsWithPoint", "Rs. 1,250.50", 1250.5},
    {"RsWithoutPoint", "rs 1250", 1250},
    {"Inr", "INR 1,250", 1250},
    {"SlashDash", "Rs. 1250/-", 1250},
    {"BlankGrouping", "1 250", 1250},
    {"ThinBlankGrouping", "1\u2009250.75", 1250.75},
    {"Parentheses", "(1,250.00)", -1250},
    {"LeadingMinus", "-1250", -1250},
    {"TrailingMinus", "1250-", -1250},
    {"RupeeThenMinus", "₹ -1,250", -1250},
    {"Exponent", "1.25E+05", 125000},
    {"PointOnly", ".5", 0.5},
    {"Blank", "", std::nullopt},
    {"Text", "one thousand", std::nullopt, "\"one thousand\" is not an amount"},
    {"DecimalComma", "12,5", std::nullopt, "12,5 has a decimal comma"},
    {"EuropeanGrouping", "1.250,50", std::nullopt, "has a decimal comma"},
    {"CommasAstray", "12,3456", std::nullopt, "commas are not where digit groups go"},
    {"TwoPoints", "1.2.3", std::nullopt, "is not an amount"},
    {"FormulaText", "=SUM(A1:A2)", std::nullopt, "is not an amount"},
};

class Amounts : public ::testing::TestWithParam<AmountCase> {};
TEST_P(Amounts, ReadWithTheirGroupingAndSign) { check(ReadAmount(QString::fromUtf8(GetParam().text)), GetParam()); }
INSTANTIATE_TEST_SUITE_P(Cells, Amounts, ::testing::ValuesIn(kAmounts), CaseName());

const AmountCase kPercents[] = {
    {"Plain", "12.5", 12.5},
    {"Sign", "12.50%", 12.5},
    {"SignAfterBlank", "12.5 %", 12.5},
    {"Whole", "5", 5},
    {"Fraction", "0.125", 0.125},
    {"Blank", " ", std::nullopt},
    {"Below0", "-4%", std::nullopt, "-4% is a percentage below zero"},
    {"Text", "twelve", std::nullopt, "\"twelve\" is not a percentage"},
    {"Grouped", "1,2%", std::nullopt, "is not a percentage"},
};

class Percents : public ::testing::TestWithParam<AmountCase> {};
TEST_P(Percents, ReadWithOrWithoutTheSign) { check(ReadPercent(QString::fromUtf8(GetParam().text)), GetParam()); }
INSTANTIATE_TEST_SUITE_P(Cells, Percents, ::testing::ValuesIn(kPercents), CaseName());

}  // namespace
