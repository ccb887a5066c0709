#pragma once

// Doubles near a line's ends that hold what the nearest ones do not.

#include <functional>
#include <vector>

#include "boundary/measured_ring.h"
#include "lines/chord.h"
#include "verdict/target.h"

namespace plparcel {

/// How far an end may be moved on each axis, in spacings of doubles at the ring's largest coordinate. Where an end's
/// own coordinate is smaller, more doubles lie within reach: at 5e5 / 5e6 x has 16 of them for each one of y.
constexpr double kReachRoundings = 1.75;

/// The doubles within reach, the nearest first; where there are more than `most` on a side, so many of them.
std::vector<double> doubles_near(double v, double reach, double most = 24.0);

/// Offers pairs of ends that hold the target, by the areas of both pieces, until one is taken. The coordinate of
/// `to` that is finer is solved for, for each value of the coarser and for the ends `from` that there are, the
/// nearest first. Where a coordinate of `from` has more than 129 values within reach, 129 of them are tried.
///
/// @param[in] from, to  the ends, rounded to the nearest doubles; `from` stays where the chord begins at a vertex
/// @param[in] take      told of a pair; true ends the search
/// @return whether one was taken. After 64 pairs that were not, the search gives up: rounding is not at fault then.
bool offer_nearby_ends(const MeasuredRing& ring, const Chord& chord, const Target& target,
                       const PL_PNT2D_record& from, const PL_PNT2D_record& to,
                       const std::function<bool(const PL_PNT2D_record&, const PL_PNT2D_record&)>& take);

}  // namespace plparcel
