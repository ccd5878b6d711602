#pragma once
// The name each case of a TEST_P table is listed under: its `name` field.
// INSTANTIATE_TEST_SUITE_P(Cases, Suite, ::testing::ValuesIn(kCases), CaseName());
#include <string>

struct CaseName {
    template <class Info>
    std::string operator()(const Info& info) const {
        return info.param.name;
    }
};
