#pragma once

// What the program tells about a division: the table for people, JSON for programs, the sentence for a refusal.

#include <string>
#include <vector>

#include "answers/parcel.h"
#include "answers/printed_division.h"
#include "answers/request.h"
#include "console/failure.h"
#include "text/json.h"

namespace tool {

/// The table: parcel, cut, the amounts as they were asked for, the lines' ends, the areas of the pieces, area and
/// perimeter of the parcel. Columns aligned, every line ended.
std::string division_table(const Parcel& parcel, const Asked& asked, const PrintedDivision& printed);

/// The same numbers.
Json division_json(const Parcel& parcel, const Asked& asked, const PrintedDivision& printed);

/// "Cut parallel to side 1, from vertex 1 to vertex 2: 40 x 50".
std::string cut_sentence(const Parcel& parcel, const Asked& asked);

/// What a piece is, from 0 to the last one, which is the rest: "along side 2", "rest".
std::string piece_name(const Asked& asked, std::size_t vertices, std::size_t piece);

/// Why there is no line, as the failure that ends the verb.
///
/// @param[in] printed  one that is not done()
Failure division_failure(const Parcel& parcel, const Asked& asked, const PrintedDivision& printed);

/// The same in a few words without numbers, for counting.
std::string refusal_reason(const PrintedDivision& printed);

}  // namespace tool
