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

/// Four decimals, never "-0.0000"; from 1e12 on, where a double runs out of decimals, all its digits and an
/// exponent.
std::string fixed4(double value);

/// Three significant digits, for the size of an error.
std::string rough(double value);

}  // namespace tool
