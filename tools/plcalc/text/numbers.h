#pragma once

// Numbers as text, the same in every locale: a point before the decimals, nothing between the thousands.

#include <optional>
#include <string>

namespace tool {

/// The number that the whole text is, blanks around it allowed; "nan" and "inf" are numbers here. Nothing for
/// anything else ("12,5", "12.5 m", "") and for what no double holds ("1e400").
std::optional<double> parse_number(const std::string& text);

/// The whole number that the whole text is, blanks around it allowed; nothing for anything else.
std::optional<long long> parse_whole(const std::string& text);

/// The most decimals that a number is written with before it gets an exponent.
constexpr int kMaxDecimals = 17;

/// So many decimals, never "-0.0000". More than kMaxDecimals, and values from 1e12 on, where a double runs out
/// of decimals, get all their digits and an exponent: read back, they are the same double.
std::string fixed(double value, int decimals);

/// As few digits as tell the double from every other: 12.5 is "12.5".
std::string shortest(double value);

/// The decimals, 4 at least, with which a step in the last place is no longer than `step`; more than
/// kMaxDecimals where there are none.
int decimals_for(double step);

}  // namespace tool
