#pragma once

// From a division to what its plan shows.

#include "answers/printed_division.h"
#include "answers/request.h"
#include "plan/plan.h"
#include "reading/parcel_reader.h"

namespace tool {

/// The lines as they are printed, the pieces that they make, and the unit of the parcel's CRS.
Plan plan_of(const ReadParcel& read, const Asked& asked, const PrintedDivision& printed);

}  // namespace tool
