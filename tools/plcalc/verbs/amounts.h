#pragma once

// Amounts as people write them: 1000, 20x35, 1/3, 25%, w12, and lists of these.

#include <stdexcept>
#include <string>
#include <vector>

#include "plparcel/division.h"

namespace tool {

/// A text that is not what it should be. what() quotes it and says what it should be.
struct NotUnderstood : std::invalid_argument {
    using std::invalid_argument::invalid_argument;
};

/// An amount, and how reports tell it: "40 x 50", "1/3", "width 12".
struct GivenAmount {
    plparcel::Amount amount;
    std::string given;
};

/// @throws NotUnderstood  unless the number is finite and above 0
double positive_number(const std::string& text);

/// "1/3" or "25%".
///
/// @throws NotUnderstood  for any other text, and for the whole parcel or more
plparcel::Amount share(const std::string& text);

/// @throws NotUnderstood  where a length, or the product of both, is not a number above 0
plparcel::Amount product(const std::string& first, const std::string& second);

/// "1000", "40x50", "1/3", "25%" or "w12".
///
/// @throws NotUnderstood
GivenAmount one_amount(const std::string& text);

/// "1/3", "25%" or "0.25".
///
/// @throws NotUnderstood
GivenAmount one_share(const std::string& text);

/// The parts of a list, one at least, without the blanks around them. A separator at its end counts: the amount behind it
/// has been forgotten.
std::vector<std::string> parts_of_list(const std::string& list, char separator);

}  // namespace tool
