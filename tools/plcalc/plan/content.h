#pragma once

// Turns a division into what its plan shows.

#include "answers/answer.h"
#include "plan/plan.h"

namespace tool {

/// The printed lines, the pieces between them, and the unit of the parcel's CRS.
///
/// @param[in] answer  one that is done()
Plan plan_of(const Answer& answer);

}  // namespace tool
