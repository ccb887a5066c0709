#pragma once

// Says whether a line divides a ring as asked, from the coordinates that would be returned. Shares nothing with
// the cuts that propose the line but the arithmetic.

#include "boundary/local_ring.h"
#include "boundary/measured_ring.h"
#include "lines/chord.h"
#include "numbers/wide.h"
#include "plparcel/division.h"
#include "verdict/target.h"

namespace plparcel {

/// A line that passes within this many times the spacing of doubles, at the ring's largest coordinate, of a vertex
/// touches it: on which side it passes is a matter of rounding.
constexpr double kTouchRoundings = 4.0;

/// A line as it would be returned, and the two pieces that it makes: each begins at one of its ends and ends at the other.
struct Cutting {
    PL_PNT2D_record from = {};
    PL_PNT2D_record to = {};
    std::size_t from_side = 0;
    std::size_t to_side = 0;
    MeasuredRing request;  ///< the piece that should hold what is asked
    MeasuredRing rest;     ///< the other one
};

enum class Verdict {
    divides,            ///< two simple rings, and both hold what they should
    leaves_the_parcel,  ///< the line meets the boundary between its ends, or runs outside
    misses              ///< two pieces that hold something else, or the ends do not lie where they should
};

/// Rounds a chord to the parcel's coordinates and judges it. An end next to a vertex is moved onto it. Where the
/// rounded line misses the target, the other neighbours of the coordinates are tried, and then all doubles within some
/// spacings: on a parcel of a few units at 5e6 these can hold an area that the nearest ones do not.
///
/// @param[out] cutting  for `divides` complete, otherwise undefined
Verdict judge(const MeasuredRing& ring, const LocalRing& local, const Chord& chord, const Target& target,
              Cutting& cutting);

}  // namespace plparcel
