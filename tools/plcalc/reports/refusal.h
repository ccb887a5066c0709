#pragma once

// Why there is no dividing line, or why nothing at all can be done with a parcel.

#include <optional>
#include <string>

#include "answers/printed_division.h"
#include "console/outcome.h"
#include "reports/instead.h"

namespace tool {

/// The failure that ends the verb.
///
/// @param[in] answer   one that is not done()
/// @param[in] instead  what can be had; without it the advice is a general one
Failure refusal(const Answer& answer, const std::optional<Instead>& instead);

/// The same with instead_of().
Failure refusal(const Answer& answer);

/// The reason in a few words without numbers, by which refusals are counted.
std::string refusal_reason(const Answer& answer);

/// The failure for a ring that cannot be worked on.
///
/// @param[in] report  of the parcel's ring, which is not usable
Failure unusable_boundary(const Parcel& parcel, const plparcel::RingReport& report);

}  // namespace tool
