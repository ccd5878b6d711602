#include "platform/basic/clock.h"
#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"

#include "support/case_name.h"
#include "support/printers.h"

#include <gtest/gtest.h>

using namespace basic;

struct ValCase { const char* name; const char* text; double want; };
class ValText : public ::testing::TestWithParam<ValCase> {};

TEST_P(ValText, ReadsTheLeadingNumberOfAText) {
    EXPECT_DOUBLE_EQ(Val(QString::fromUtf8(GetParam().text)), GetParam().want);
}

INSTANTIATE_TEST_SUITE_P(Texts, ValText, ::testing::ValuesIn(std::vector<ValCase>{
    {"LettersAfter", "12abc", 12}, {"LettersOnly", "abc", 0}, {"Empty", "", 0}, {"BlanksBetweenDigits", " 1 2", 12},
    {"Negative", "-3.5x", -3.5}, {"CommaEnds", "1,000", 1}, {"BlanksAround", "  7.25  ", 7.25}, {"Exponent", "1e3x", 1000},
    {"Hexadecimal", "&H1F", 31}, {"LeadingPoint", ".5", 0.5}, {"SignAlone", "-", 0}, {"SecondPointEnds", "12.5.3", 12.5},
}), CaseName());

struct FormatCase { const char* name; Variant value; const char* want; };
class FormatTwoDecimals : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatTwoDecimals, HalvesAwayFromZeroOnTheDecimalValue) {
    EXPECT_EQ(Format(GetParam().value, "#0.00"), QString::fromUtf8(GetParam().want));
}

INSTANTIATE_TEST_SUITE_P(Values, FormatTwoDecimals, ::testing::ValuesIn(std::vector<FormatCase>{
    {"HalfUp", 1.005, "1.01"}, {"NegativeHalfAway", -2.675, "-2.68"}, {"Zero", 0.0, "0.00"}, {"Exact", 1126.25, "1126.25"},
    {"Millions", 1234567.891, "1234567.89"}, {"EighthUp", 0.125, "0.13"}, {"OneDecimal", 2.5, "2.50"},
    {"BelowHalfCent", 0.004, "0.00"}, {"CarriesToHundred", 99.995, "100.00"}, {"Whole", 1, "1.00"},
    {"NumericText", Variant("125"), "125.00"}, {"NumericTextWithBlanks", Variant(" 1.25 "), "1.25"},
    {"OtherTextAsItIs", Variant("abc"), "abc"}, {"NullEmpty", Variant::null(), ""}, {"Currency", Variant::currency(12.345), "12.35"},
    {"LargeHalf", 12345678.125, "12345678.13"},
}), CaseName());

// Dates read month first, two-digit years split at 30, on 1 May 2011.
struct CDateCase { const char* name; const char* text; QDate want; };
class CDateText : public ::testing::TestWithParam<CDateCase> {
protected:
    void SetUp() override { Clock::set(QDate(2011, 5, 1)); }
    void TearDown() override { Clock::reset(); }
};

TEST_P(CDateText, MonthFirstTwoDigitYears) {
    EXPECT_EQ(CDate(Variant(GetParam().text)), GetParam().want);
}

INSTANTIATE_TEST_SUITE_P(Texts, CDateText, ::testing::ValuesIn(std::vector<CDateCase>{
    {"MonthFirst", "09-26-08", QDate(2008, 9, 26)}, {"Year29IsThisCentury", "01-02-29", QDate(2029, 1, 2)},
    {"Year30IsLastCentury", "01-02-30", QDate(1930, 1, 2)}, {"LastDayOf99", "12-31-99", QDate(1999, 12, 31)},
    {"DayFirstWhenMonthCannotBe", "26-09-08", QDate(2008, 9, 26)}, {"MonthName", "18-Dec-1982", QDate(1982, 12, 18)},
    {"Iso", "2008-09-26", QDate(2008, 9, 26)}, {"Slashes", "9/26/2008", QDate(2008, 9, 26)},
    {"LongForm", "December 18, 1982", QDate(1982, 12, 18)}, {"NoYearIsThisYear", "18-Dec", QDate(2011, 12, 18)},
}), CaseName());

struct NotADateCase { const char* name; const char* text; };
class CDateMismatch : public ::testing::TestWithParam<NotADateCase> {
protected:
    void SetUp() override { Clock::set(QDate(2011, 5, 1)); }
    void TearDown() override { Clock::reset(); }
};

TEST_P(CDateMismatch, RaisesTypeMismatch) {
    const RuntimeError e = resume([&] { CDate(Variant(GetParam().text)); });
    EXPECT_EQ(e.number(), 13);
    EXPECT_EQ(e.description(), "Type mismatch");
    EXPECT_FALSE(IsDate(Variant(GetParam().text)));
}

INSTANTIATE_TEST_SUITE_P(Texts, CDateMismatch, ::testing::ValuesIn(std::vector<NotADateCase>{
    {"Empty", ""}, {"Letters", "abc"}, {"NoMonth13", "13-13-08"}, {"NoFebruary30", "02-30-08"},
    {"MisspeltMonth", "18-Dex-1982"}, {"FourParts", "1-2-3-4"}, {"ATime", "12:30"},
}), CaseName());

// A conversion or text function's result beside what the old platform gives.
struct ResultCase { const char* name; QString (*got)(); const char* want; };

class Results : public ::testing::TestWithParam<ResultCase> {};

TEST_P(Results, AsTheOldPlatformGives) { EXPECT_EQ(GetParam().got(), QString::fromUtf8(GetParam().want)); }

auto resultName = CaseName();

INSTANTIATE_TEST_SUITE_P(NumbersAsText, Results, ::testing::ValuesIn(std::vector<ResultCase>{
    {"Decimals", [] { return CStr(1126.25); }, "1126.25"},
    {"ShortestDecimal", [] { return CStr(0.1 + 0.2); }, "0.3"},
    {"LargeInExponent", [] { return CStr(1e16); }, "1E+16"},
    {"True", [] { return CStr(true); }, "True"},
    {"GroupedTextToNumber", [] { return CStr(CDbl(Variant("1,250.50"))); }, "1250.5"},
    {"TrueIsMinusOne", [] { return CStr(CDbl(true)); }, "-1"},
    {"HalfToEvenDown", [] { return CStr(CLng(2.5)); }, "2"},
    {"HalfToEvenUp", [] { return CStr(CLng(3.5)); }, "4"},
}), resultName);

INSTANTIATE_TEST_SUITE_P(TextFunctions, Results, ::testing::ValuesIn(std::vector<ResultCase>{
    {"InStrFirst", [] { return QString::number(InStr(1, "12-Sale-x", "-")); }, "3"},
    {"InStrFromAPosition", [] { return QString::number(InStr(4, "12-Sale-x", "-")); }, "8"},
    {"InStrNotFound", [] { return QString::number(InStr("abc", "z")); }, "0"},
    {"InStrEmptySought", [] { return QString::number(InStr("abc", "")); }, "1"},
    {"InStrRev", [] { return QString::number(InStrRev("1-2-Sale", "-")); }, "4"},
    {"MidToTheEnd", [] { return Mid("label-name", 7); }, "name"},
    {"MidOneCharacter", [] { return Mid("abc", 2, 1); }, "b"},
    {"MidPastTheEnd", [] { return Mid("abc", 9); }, ""},
    {"LeftLongerThanText", [] { return Left("abc", 5); }, "abc"},
    {"Right", [] { return Right("abc", 2); }, "bc"},
    {"TrimLeavesTabs", [] { return Trim("\t a \t"); }, "\t a \t"},
    {"TrimBlanks", [] { return Trim("  a b  "); }, "a b"},
}), resultName);

// Which values are numeric.
struct NumericCase { const char* name; Variant v; bool numeric; };

class Numeric : public ::testing::TestWithParam<NumericCase> {};

TEST_P(Numeric, AsIsNumericTellsIt) { EXPECT_EQ(IsNumeric(GetParam().v), GetParam().numeric); }

INSTANTIATE_TEST_SUITE_P(Values, Numeric, ::testing::ValuesIn(std::vector<NumericCase>{
    {"Decimal", Variant("12.5"), true}, {"BlanksAround", Variant(" 12 "), true}, {"LettersAfter", Variant("12a"), false},
    {"EmptyText", Variant(""), false}, {"Null", Variant::null(), false}, {"Empty", Variant(), true},
    {"Word", Variant("CST"), false}, {"Negative", Variant("-4"), true},
}), CaseName());

// The errors a conversion raises.
struct ErrorCase { const char* name; void (*convert)(); int number; };

class ConversionErrors : public ::testing::TestWithParam<ErrorCase> {};

TEST_P(ConversionErrors, RaiseTheirNumber) { EXPECT_EQ(resume(GetParam().convert).number(), GetParam().number); }

INSTANTIATE_TEST_SUITE_P(Conversions, ConversionErrors, ::testing::ValuesIn(std::vector<ErrorCase>{
    {"TextToNumber", [] { CDbl(Variant("abc")); }, 13},
    {"NullToNumber", [] { CDbl(Variant::null()); }, 94},
    {"NullToText", [] { CStr(Variant::null()); }, 94},
    {"MidAtZero", [] { Mid("abc", 0); }, 5},
}), CaseName());
