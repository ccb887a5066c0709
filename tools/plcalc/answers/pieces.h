#pragma once

// Finds where a line given by two points parts a ring, without regard to how the line was found. Computes in
// long double, on local coordinates.

#include <vector>

#include "plcalc/kernel.h"

namespace tool {

/// Area of a ring, positive anticlockwise, unit squared.
long double signed_area(const std::vector<PL_PNT2D_record>& ring);

/// Parts a ring along the line from p to q.
///
/// @param[in]  ring   a simple ring, the first vertex not repeated; repeated neighbours do no harm
/// @param[in]  p, q   ends of the line
/// @param[in]  slack  an end up to this far from the boundary is moved along the line onto it
/// @param[out] ends   the ends on the boundary; written only when true is returned
/// @return false when an end is not at the boundary, or the line between the ends touches the boundary or
///         runs outside: then it does not part the ring in two
bool part_ring(const std::vector<PL_PNT2D_record>& ring, const PL_PNT2D_record& p, const PL_PNT2D_record& q,
               long double slack, PL_LINE_2D_record& ends);

}  // namespace tool
