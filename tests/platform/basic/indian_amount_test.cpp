// Rupee amounts in Indian grouping, written and read back as a user types them.
#include "platform/basic/indian_amount.h"

#include "support/case_name.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace {

struct Written {
    const char* name;
    double value;
    const char* text;
};

class IndianGrouping : public testing::TestWithParam<Written> {};

TEST_P(IndianGrouping, ThreeDigitsThenPairs) { EXPECT_EQ(basic::IndianAmount(GetParam().value), QString(GetParam().text)); }

INSTANTIATE_TEST_SUITE_P(Amounts, IndianGrouping,
                         testing::Values(Written{"Zero", 0, "0.00"}, Written{"Hundreds", 999.5, "999.50"},
                                         Written{"Thousand", 1000, "1,000.00"}, Written{"Lakh", 125000, "1,25,000.00"},
                                         Written{"Crore", 12345678.9, "1,23,45,678.90"}, Written{"TenCrore", 123456789, "12,34,56,789.00"},
                                         Written{"HalfPaisaUp", 1.005, "1.01"}, Written{"Negative", -150000.25, "-1,50,000.25"},
                                         Written{"NegativeRoundsToZero", -0.004, "0.00"}),
                         CaseName());

struct Typed {
    const char* name;
    const char* text;
    double value;        // -1: refused
};

class TypedAmount : public testing::TestWithParam<Typed> {};

TEST_P(TypedAmount, GroupingAcceptedOtherwiseRefused) {
    const auto read = basic::ParseIndianAmount(QString::fromUtf8(GetParam().text));
    if (GetParam().value < 0) EXPECT_FALSE(read.has_value()) << *read;
    else EXPECT_EQ(read, std::optional<double>(GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(Amounts, TypedAmount,
                         testing::Values(Typed{"Plain", "125000", 125000}, Typed{"Indian", " 1,25,000.50 ", 125000.5},
                                         Typed{"Threes", "125,000", 125000}, Typed{"Crore", "1,00,00,000", 10000000},
                                         Typed{"Paise", ".75", 0.75}, Typed{"TrailingPoint", "12.", 12},
                                         Typed{"Empty", "", -1}, Typed{"Letters", "12a", -1}, Typed{"Sign", "-5", -1},
                                         Typed{"ThreeDecimals", "1.005", -1}, Typed{"LooseCommas", "1,2,3", -1},
                                         Typed{"MixedGroups", "12,34,5678", -1}, Typed{"TwoPoints", "1.2.3", -1},
                                         Typed{"Blank", "   ", -1}),
                         CaseName());

}  // namespace
