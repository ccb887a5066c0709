#pragma once

// What of a ring is seen from one of its vertices.

#include <cstddef>
#include <vector>

#include "boundary/local_ring.h"
#include "numbers/wide.h"

namespace plparcel {

/// A place on a side, counted from the vertex that looks: side k runs from the k-th vertex after it to the next.
struct Sight {
    std::size_t side = 0;
    Wide part;  ///< 0 at the side's first end, 1 at the other: a vertex is given by exactly these
};

/// A part of a side that a vertex sees, from its one end to the other.
struct SeenPart {
    Sight begin;
    Sight end;
    /// Whether a line to that end meets no vertex on its way, which it does within the reach of rounding.
    bool begin_is_clear = true;
    bool end_is_clear = true;
};

/// Which of some places a vertex sees: those to which a straight line meets no other side on its way. A line that
/// touches a vertex on its way may count as seen. Found by turning a ray around the vertex once.
///
/// @param[in] turn  1 when the ring runs anticlockwise, -1 clockwise
/// @return one entry for each place
std::vector<bool> seen_from(const LocalRing& ring, double turn, std::size_t vertex,
                            const std::vector<Sight>& places);

/// All that a vertex sees, in the order in which the ray passes over it.
///
/// @param[in] reach  a vertex so near to a line lies on it, local units
std::vector<SeenPart> all_seen_from(const LocalRing& ring, double turn, std::size_t vertex,
                                    const Wide& reach);

}  // namespace plparcel
