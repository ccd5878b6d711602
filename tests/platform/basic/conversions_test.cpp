#include "platform/basic/clock.h"
#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"

#include "support/printers.h"

#include <gtest/gtest.h>

using namespace basic;

TEST(Val, ReadsTheLeadingNumberOfAText) {
    const struct { const char* text; double want; } cases[] = {
        {"12abc", 12}, {"abc", 0}, {"", 0}, {" 1 2", 12}, {"-3.5x", -3.5}, {"1,000", 1},
        {"  7.25  ", 7.25}, {"1e3x", 1000}, {"&H1F", 31}, {".5", 0.5}, {"-", 0}, {"12.5.3", 12.5},
    };
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(Val(QString::fromUtf8(c.text)), c.want) << c.text;
}

TEST(Format, TwoDecimalsHalvesAwayFromZeroOnTheDecimalValue) {
    const struct { Variant value; const char* want; } cases[] = {
        {1.005, "1.01"}, {-2.675, "-2.68"}, {0.0, "0.00"}, {1126.25, "1126.25"}, {1234567.891, "1234567.89"},
        {0.125, "0.13"}, {2.5, "2.50"}, {0.004, "0.00"}, {99.995, "100.00"}, {1, "1.00"},
        {Variant("125"), "125.00"}, {Variant(" 1.25 "), "1.25"}, {Variant("abc"), "abc"}, {Variant::null(), ""},
        {Variant::currency(12.345), "12.35"}, {12345678.125, "12345678.13"},
    };
    for (const auto& c : cases) EXPECT_EQ(Format(c.value, "#0.00"), QString::fromUtf8(c.want)) << c.want;
}

TEST(CDate, MonthFirstTwoDigitYearsAndMismatch) {
    Clock::set(QDate(2011, 5, 1));
    const struct { const char* text; QDate want; } cases[] = {
        {"09-26-08", QDate(2008, 9, 26)},  {"01-02-29", QDate(2029, 1, 2)},   {"01-02-30", QDate(1930, 1, 2)},
        {"12-31-99", QDate(1999, 12, 31)}, {"26-09-08", QDate(2008, 9, 26)},  {"18-Dec-1982", QDate(1982, 12, 18)},
        {"2008-09-26", QDate(2008, 9, 26)}, {"9/26/2008", QDate(2008, 9, 26)}, {"December 18, 1982", QDate(1982, 12, 18)},
        {"18-Dec", QDate(2011, 12, 18)},
    };
    for (const auto& c : cases) EXPECT_EQ(CDate(Variant(c.text)), c.want) << c.text;
    for (const char* bad : {"", "abc", "13-13-08", "02-30-08", "18-Dex-1982", "1-2-3-4", "12:30"}) {
        const RuntimeError e = resume([&] { CDate(Variant(bad)); });
        EXPECT_EQ(e.number(), 13) << bad;
        EXPECT_EQ(e.description(), "Type mismatch");
        EXPECT_FALSE(IsDate(Variant(bad))) << bad;
    }
    Clock::reset();
}

TEST(Conversions, NumbersTextsAndNull) {
    const std::pair<QString, QString> texts[] = {
        {CStr(1126.25), "1126.25"}, {CStr(0.1 + 0.2), "0.3"}, {CStr(1e16), "1E+16"}, {CStr(true), "True"},
        {CStr(CDbl(Variant("1,250.50"))), "1250.5"}, {CStr(CDbl(true)), "-1"}, {CStr(CLng(2.5)), "2"}, {CStr(CLng(3.5)), "4"}};
    for (const auto& [got, want] : texts) EXPECT_EQ(got, want);
    const struct { Variant v; bool numeric; } numeric[] = {
        {Variant("12.5"), true}, {Variant(" 12 "), true}, {Variant("12a"), false}, {Variant(""), false},
        {Variant::null(), false}, {Variant(), true}, {Variant("CST"), false}, {Variant("-4"), true},
    };
    for (const auto& c : numeric) EXPECT_EQ(IsNumeric(c.v), c.numeric) << CStr(c.v.isNull() ? Variant("null") : c.v).toStdString();
    const std::pair<std::function<void()>, int> errors[] = {
        {[] { CDbl(Variant("abc")); }, 13}, {[] { CDbl(Variant::null()); }, 94}, {[] { CStr(Variant::null()); }, 94},
        {[] { Mid("abc", 0); }, 5}};
    for (const auto& [convert, number] : errors) EXPECT_EQ(resume(convert).number(), number);
}

TEST(TextFunctions, OneBasedPositionsAndBlankTrim) {
    const std::pair<QString, QString> cases[] = {
        {QString::number(InStr(1, "12-Sale-x", "-")), "3"}, {QString::number(InStr(4, "12-Sale-x", "-")), "8"},
        {QString::number(InStr("abc", "z")), "0"}, {QString::number(InStr("abc", "")), "1"},
        {QString::number(InStrRev("1-2-Sale", "-")), "4"}, {Mid("label-name", 7), "name"}, {Mid("abc", 2, 1), "b"},
        {Mid("abc", 9), ""}, {Left("abc", 5), "abc"}, {Right("abc", 2), "bc"}, {Trim("\t a \t"), "\t a \t"},
        {Trim("  a b  "), "a b"}};
    for (const auto& [got, want] : cases) EXPECT_EQ(got, want);
}
