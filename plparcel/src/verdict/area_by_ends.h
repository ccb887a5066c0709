#pragma once

// The area of a piece as its line's ends move.

#include "boundary/measured_ring.h"
#include "lines/chord.h"
#include "numbers/wide.h"

namespace plparcel {

/// The boundary between the two sides is summed up once, the ends add two triangles to it.
class AreaByEnds {
public:
    /// @param[in] of_after_from  the piece that follows the chord's `from`, or the other one
    AreaByEnds(const MeasuredRing& ring, const Chord& chord, bool of_after_from);

    /// Unit squared, above zero for a piece that runs as the ring does. Summed up in another order than the piece's
    /// own area, and so not the same to the last bit.
    Wide operator()(const PL_PNT2D_record& from, const PL_PNT2D_record& to) const;

    /// How fast the area grows as `to` moves along x, and along y: a length each.
    PL_PNT2D_record growth_with_to(const PL_PNT2D_record& from) const;

private:
    bool after_from_;
    double turn_;
    PL_PNT2D_record first_ = {};  // of the boundary between the two sides
    PL_PNT2D_record last_ = {};
    Wide area_between_;
};

}  // namespace plparcel
