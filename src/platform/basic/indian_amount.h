#pragma once
// Rupee amounts as Indian paperwork writes them: the last three digits, then pairs, "1,25,000.00".
#include <QString>
#include <optional>

namespace basic {

// Two decimals, halves away from zero, grouped the Indian way; a minus sign in front when below 0.
QString IndianAmount(double value);

// A typed amount: blanks at the ends go; commas may group it the Indian way ("1,25,000") or in threes
// ("125,000"), or not at all; at most two decimals; no sign. Anything else gives nothing.
std::optional<double> ParseIndianAmount(const QString& text);

}  // namespace basic
