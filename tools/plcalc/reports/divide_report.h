#pragma once

// What `plcalc divide` prints about one parcel: the table for people, JSON for programs.

#include <string>

#include "answers/answer.h"
#include "text/json.h"

namespace tool {

/// The table: parcel, cut, the amounts as they were given, the ends of the lines, the areas of the pieces,
/// area and perimeter of the parcel. Columns are aligned, and every line is ended.
///
/// @param[in] answer  one that is done()
std::string division_table(const Answer& answer);

/// The same numbers.
Json division_json(const Answer& answer);

}  // namespace tool
