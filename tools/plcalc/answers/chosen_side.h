#pragma once

// From a side that is named by what it is to its number.

#include "answers/question.h"

namespace tool {

/// The request with the number of the side or vertex that is meant, and with what there is to say about it. A parcel that
/// cannot be used gets the number 1: the division says what is wrong with it.
///
/// Sides that a printed length or bearing would not tell apart fit equally well: lengths within a thousandth of the unit,
/// bearings within a hundredth of a gon.
///
/// @throws Failure  cannot_cut where several fit equally well, or none does
Asked with_side(Asked asked, const Parcel& parcel);

}  // namespace tool
