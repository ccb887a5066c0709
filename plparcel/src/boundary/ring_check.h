#pragma once

// From the vertices as they were handed over to a ring that can be worked on.

#include <cstddef>
#include <vector>

#include "boundary/measured_ring.h"
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

/// A parcel that is checked.
struct CheckedParcel {
    RingReport report;
    std::vector<CleanRing> clean;  ///< its rings, the outer one first
    /// Unless it is unusable: the same rings, the outer one anticlockwise, the holes clockwise, each begun at its
    /// westmost vertex, and the holes from West to East: so that nothing depends on how they were handed over.
    std::vector<Ring> rings;
    Wide area;
};

CheckedParcel checked(const Parcel& parcel);

/// Says whether a ring can be worked on, and what it measures.
RingReport report_on(const CleanRing& clean);

}  // namespace plparcel
