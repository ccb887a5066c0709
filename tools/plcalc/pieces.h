#pragma once

// Cuts a ring along a line and measures both pieces, without regard to how the line was found. All of it in
// long double, on local coordinates.

#include <cstddef>
#include <vector>

#include "plcalc/kernel.h"

namespace tool {

/// A ring parted in two by a straight line.
///
///            to                 Ring anticlockwise, as here: the piece after `from` lies to the right
///        +---o------.           of from-to, the piece after `to` to the left. Ring clockwise: the
///       /    |       \          other way round.
///      '-----o--------'
///           from   --> ring
struct Parting {
    PL_PNT2D_record from = {};  ///< the line's ends, on the boundary
    PL_PNT2D_record to = {};
    std::size_t from_side = 0;  ///< the sides that they lie on; side i runs from vertex i to i + 1
    std::size_t to_side = 0;
};

/// Area of a ring, positive anticlockwise, unit squared.
long double signed_area(const std::vector<PL_PNT2D_record>& ring);

/// How far from the boundary the library may report an end: it takes a meeting point up to 0.001 beyond the end
/// of a side, in x and in y, a little more on the slant.
constexpr long double kLibrarySlack = 0.0015L;

/// Parts a ring along the line from p to q.
///
/// @param[in]  ring     a simple ring, the first vertex not repeated; repeated neighbours do no harm
/// @param[in]  p, q     ends of the line
/// @param[in]  slack    an end up to this far from the boundary is moved along the line onto it
/// @param[out] parting  written only when true is returned
/// @return false when an end is not at the boundary, or the line between the ends touches the boundary or
///         runs outside: then it does not part the ring in two
bool part_ring(const std::vector<PL_PNT2D_record>& ring, const PL_PNT2D_record& p, const PL_PNT2D_record& q,
               long double slack, Parting& parting);

/// Area of the piece along the ring from the line's `from` on to its `to`, unit squared.
long double area_after_from(const std::vector<PL_PNT2D_record>& ring, const Parting& parting);

/// Area of the other piece, along the ring from `to` on to `from`.
long double area_after_to(const std::vector<PL_PNT2D_record>& ring, const Parting& parting);

}  // namespace tool
