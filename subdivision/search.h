#pragma once

// What the searches share: finding the reference side or vertex, and when to stop. Internal, not installed;
// for subdivision/.

#include <cstdint>
#include <vector>

#include "plcalc/kernel.h"

namespace plcalc {

/// Index of the first side that runs from p1 to p2, to the last bit and in the ring's order; -1 for none.
///
/// @param[in] ring  n points and a copy of the first, so that the closing side is found too
/// @param[in] n     number of points without that copy
std::int32_t find_side(const std::vector<PL_PNT2D_record>& ring, std::int32_t n, const PL_PNT2D_record& p1,
                       const PL_PNT2D_record& p2) noexcept;

/// Index of the first of n points that is p, to the last bit; -1 for none.
std::int32_t find_vertex(const std::vector<PL_PNT2D_record>& ring, std::int32_t n,
                         const PL_PNT2D_record& p) noexcept;

/// Index of the j-th point counted from `start`, round the ring of n points.
std::int32_t round_from(std::int32_t start, std::int32_t j, std::int32_t n) noexcept;

/// Whether the area meets the request within the relative 1e-6, strictly, that ends every search. Never for
/// a request of zero, always for a negative one: callers ask for areas above zero.
bool meets_request(double area, double requested) noexcept;

}  // namespace plcalc
