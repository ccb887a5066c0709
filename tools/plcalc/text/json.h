#pragma once

// JSON for programs: the numbers of the table, with its decimals, in the order in which people read them.

#include <string>

#include <nlohmann/json.hpp>

namespace tool {

using Json = nlohmann::ordered_json;

/// The number as it stands in the table; null for what is none ("-").
Json number(const std::string& text);

/// A number with so many decimals, as `fixed` writes it.
Json number(double value, int decimals);

/// Indented, every line ended. A name that is not UTF-8 keeps what can be read of it.
std::string dumped(const Json& json);

}  // namespace tool
