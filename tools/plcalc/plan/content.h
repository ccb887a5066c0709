#pragma once

// From a division to what its plan shows.

#include "answers/answer.h"
#include "plan/plan.h"

namespace tool {

/// The lines as they are printed, the pieces that they make, and the unit of the parcel's CRS.
///
/// @param[in] answer  one that is done()
Plan plan_of(const Answer& answer);

}  // namespace tool
