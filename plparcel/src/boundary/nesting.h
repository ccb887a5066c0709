#pragma once

// Whether several rings are the boundary of one parcel.

#include <cstddef>

#include "boundary/joined_rings.h"

namespace plparcel {

/// What keeps rings from being a boundary.
struct RingFault {
    enum class Kind {
        none,
        meet,       ///< sides `one` and `other` meet
        outside,    ///< ring `ring` does not lie in the first
        in_another  ///< ring `ring` lies in a hole
    };
    Kind kind = Kind::none;
    std::size_t one = 0;
    std::size_t other = 0;
    std::size_t ring = 0;
};

/// @param[in] rings  no vertex repeated; the first ring runs anticlockwise, the others, its holes, clockwise
/// @return none, or the first fault. Costs n log n.
RingFault fault_of(const JoinedRings& rings);

}  // namespace plparcel
