#pragma once

// Whether a ring crosses or touches itself.

#include <cstddef>
#include <optional>
#include <vector>

#include "boundary/joined_rings.h"
#include "boundary/measured_ring.h"

namespace plparcel {

struct SidePair {
    std::size_t one;
    std::size_t other;
};

/// Two sides of a ring without repeats that meet elsewhere than at a common vertex, in no order; nothing if no two do.
/// Decided with 106 bits on the differences of coordinates: exactly wherever those are doubles. Costs n log n,
/// whatever the shape.
std::optional<SidePair> meeting_sides(const MeasuredRing& ring);

/// What a look at several rings finds: two sides that meet, or else what lies south of each ring.
struct Meeting {
    std::optional<SidePair> met;
    /// Unless two sides meet: of each ring the side next to its westmost vertex in the South, or the number of
    /// sides for none.
    std::vector<std::size_t> south_of;
};

/// The same for several rings.
Meeting meeting_sides(const JoinedRings& rings);

/// Whether a vertex lies further West than another, or just as far and further South.
bool comes_before(const PL_PNT2D_record& a, const PL_PNT2D_record& b);

/// Which side of a-b a point lies on: 1 left, -1 right, 0 on its line.
int side_sign(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p);

/// Whether the upright boxes of a-b and c-d come within reach of each other: asked first, since most sides and
/// vertices are nowhere near.
bool boxes_meet(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c,
                const PL_PNT2D_record& d, double reach);

}  // namespace plparcel
