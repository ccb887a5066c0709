#pragma once

// What can be had where the parcel cannot be cut as asked.

#include <string>

#include "answers/printed_division.h"
#include "text/json.h"

namespace tool {

/// "ask for less than 1800.0000 or for 2700.0000 or more, or cut along side 2, across side 1 or from vertex 3". Of a series
/// of amounts only the first is spoken of.
///
/// @param[in] answer     refused, since no line of the kind holds the amount in two pieces
/// @param[in] otherwise  what to do where nothing can be said
std::string advice_instead(const Answer& answer, const std::string& otherwise);

/// The same for programs: below, above, lines; null where there is nothing to say.
Json json_instead(const Answer& answer);

}  // namespace tool
