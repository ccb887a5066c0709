#pragma once

// Doubles near a line's ends that hold what the nearest ones do not.

#include <functional>

#include "chord.h"
#include "measured_ring.h"
#include "target.h"

namespace plparcel {

/// How far an end may be moved on each axis, in spacings of doubles at the ring's largest coordinate. Where an end's
/// own coordinate is smaller, many doubles lie in there: at 5e5 / 5e6 x has 16 for one of y.
constexpr double kReachRoundings = 1.75;

/// Offers pairs of ends that hold the target, by the areas of both pieces, until one is taken. The coordinate of
/// `to` that is finer is solved for, for each value of the coarser and for the ends `from` that there are, the
/// nearest first. Of a coordinate with more than 129 values within reach, so many are tried for `from`.
///
/// @param[in] from, to  the ends, rounded to the nearest doubles; `from` stays where the chord begins at a vertex
/// @param[in] take      told of a pair; true ends the search
/// @return whether one was taken. Ends after so many pairs that were not that a rounding cannot be at fault.
bool offer_nearby_ends(const MeasuredRing& ring, const Chord& chord, const Target& target,
                       const PL_PNT2D_record& from, const PL_PNT2D_record& to,
                       const std::function<bool(const PL_PNT2D_record&, const PL_PNT2D_record&)>& take);

}  // namespace plparcel
