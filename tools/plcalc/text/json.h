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

/// The value as it stands in a list that is itself in an object: every line indented by four, the last not ended.
std::string dumped_in_list(const Json& json);

}  // namespace tool
