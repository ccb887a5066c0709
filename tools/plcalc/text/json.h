#pragma once

// JSON for programs: the numbers of the table, with its decimals, in the order in which people read them.

#include <string>

#include <nlohmann/json.hpp>

namespace tool {

using Json = nlohmann::ordered_json;

/// The number as the table has it; null for "-".
Json number(const std::string& text);

/// A number with so many decimals, as `fixed` writes it.
Json number(double value, int decimals);

/// Indented, with every line ended. Of a name that is not UTF-8 the readable part is kept.
std::string dumped(const Json& json);

}  // namespace tool
