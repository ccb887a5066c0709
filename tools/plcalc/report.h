#pragma once

// What the program tells about a division: the table for people, the sentence for a refusal.

#include <string>

#include "exit_status.h"
#include "parcel_reader.h"
#include "printed_division.h"
#include "request.h"

namespace tool {

/// The table: parcel, cut, the area as it was asked for, the line's ends, the areas on both sides of it, area
/// and perimeter of the parcel. Columns aligned, every line ended.
std::string division_table(const Parcel& parcel, const Request& request, const PrintedDivision& printed);

/// Why there is no line, as the failure that ends the verb.
///
/// @param[in] outcome  anything but `divided`
Failure division_failure(Outcome outcome, const Parcel& parcel, const Request& request,
                         const PrintedDivision& printed);

}  // namespace tool
