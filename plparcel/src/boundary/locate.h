#pragma once

// Where a point lies: at a vertex, on a side, inside or outside.

#include <cstddef>

#include "boundary/measured_ring.h"

namespace plparcel {

/// A point within this many times the spacing of doubles, at the ring's largest coordinate, of a vertex, on each axis,
/// is that vertex: a line's end there would leave a side of a nanometre, or lie beyond the vertex.
constexpr double kVertexRoundings = 4.0;

/// A point within this many times that spacing of a side lies on it: rounding each axis to the third nearest double at
/// worst takes it 1.5 spacings on each, 2.1 in all.
constexpr double kSideRoundings = 2.5;

struct Location {
    enum class Where { at_vertex, on_side, inside, outside };

    Where where = Where::outside;
    std::size_t index = 0;  ///< the vertex, or the side
};

/// Whether two points are no further apart than that, on each axis.
bool is_at_vertex(const MeasuredRing& ring, const PL_PNT2D_record& vertex, const PL_PNT2D_record& p);

/// Whether a point lies on a side, its ends and a little beyond included.
bool is_on_side(const MeasuredRing& ring, std::size_t side, const PL_PNT2D_record& p);

/// @param[in] ring  simple; its first vertex changes nothing but the index
/// @return the vertex or side nearest to the point, if it lies at one, otherwise inside or outside; a point that is not
///         finite lies outside. Decided with 106 bits.
Location locate(const MeasuredRing& ring, const PL_PNT2D_record& p);

/// The place on a side at a distance from its first end, rounded to the nearest double on each axis.
PL_PNT2D_record place_on_side(const MeasuredRing& ring, std::size_t side, double along);

/// The place on a side that is nearest to a point beside it, rounded likewise.
PL_PNT2D_record foot_on_side(const MeasuredRing& ring, std::size_t side, const PL_PNT2D_record& p);

/// Length of a side, caller's unit.
double side_length(const MeasuredRing& ring, std::size_t side);

}  // namespace plparcel
