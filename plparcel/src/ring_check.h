#pragma once

// From the vertices as they were handed over to a ring that can be worked on.

#include <cstddef>
#include <vector>

#include "measured_ring.h"
#include "plparcel/division.h"

namespace plparcel {

/// A ring without the vertices that repeat the one before.
struct CleanRing {
    MeasuredRing ring;
    std::vector<std::size_t> place;  ///< of each vertex as handed over: its index in `ring`
    std::size_t repeated = 0;        ///< how many were left out, beside a closing one
    bool closed = false;             ///< the last one repeats the first
};

CleanRing without_repeats(const Ring& ring);

/// Whether the upright boxes of a-b and c-d come within reach of each other: asked first, since most sides and
/// vertices are nowhere near.
bool boxes_meet(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c,
                const PL_PNT2D_record& d, double reach);

/// Whether two sides of a ring without repeats meet elsewhere than at a common vertex. Decided with
/// 106 bits on the differences of coordinates: exactly wherever those are doubles.
///
/// @param[out] side1, side2  two such sides, in no order; written only when true is returned
bool sides_meet(const MeasuredRing& ring, std::size_t& side1, std::size_t& side2);

/// The same without the sides.
bool meets_itself(const MeasuredRing& ring);

/// Says whether a ring can be worked on, and what it measures.
RingReport report_on(const CleanRing& clean);

}  // namespace plparcel
