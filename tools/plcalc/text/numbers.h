#pragma once

// Numbers as text, the same in every locale: a point before the decimals and nothing between the thousands.

#include <optional>
#include <string>

namespace tool {

/// Without the blanks around it.
std::string trimmed(const std::string& text);

/// "1200,5" as "1200.5".
std::string with_point(std::string text);

/// Reads a text that is a number from end to end, blanks around it allowed; "nan" and "inf" are numbers here.
/// Nothing for any other text ("12,5", "12.5 m", "") and for what no double holds ("1e400").
std::optional<double> parse_number(const std::string& text);

/// Reads a text that is a whole number from end to end, blanks around it allowed; nothing for any other text.
std::optional<long long> parse_whole(const std::string& text);

/// More decimals are not written.
constexpr int kMaxDecimals = 17;

/// The value with this many decimals, never "-0.0000". With more than kMaxDecimals, and from 1e12 on, where a
/// double runs out of decimals, the value is written as shortest() has it.
std::string fixed(double value, int decimals);

/// The shortest text without an exponent that reads back as the same double: 12.5 is "12.5", 1e8 "100000000". Only
/// below 1e-20 and from 1e21 on has it an exponent.
std::string shortest(double value);

/// How many decimals, at least 4, make the last place no larger than `step`; more than kMaxDecimals if none
/// do.
int decimals_for(double step);

/// A height with this many decimals; "-" for none.
std::string height_text(const std::optional<double>& height, int decimals);

}  // namespace tool
