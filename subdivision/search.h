#pragma once

// What the searches share: finding the reference side or vertex, and when to stop. Internal, not installed;
// for subdivision/.

#include <cstdint>
#include <vector>

#include "plcalc/kernel.h"

namespace plcalc {

/// Index of the first side that runs from p1 to p2 in the ring's order; -1 for none. Points are compared by ==,
/// without any tolerance: -0.0 equals 0.0, and a NaN is never found.
///
/// @param[in] ring  n points and a copy of the first, so that the closing side is found too
/// @param[in] n     number of points without that copy
std::int32_t find_side(const std::vector<PL_PNT2D_record>& ring, std::int32_t n, const PL_PNT2D_record& p1,
                       const PL_PNT2D_record& p2) noexcept;

/// Index of the first of n points that is p, compared as in find_side; -1 for none.
std::int32_t find_vertex(const std::vector<PL_PNT2D_record>& ring, std::int32_t n,
                         const PL_PNT2D_record& p) noexcept;

/// Index of the j-th point counted from `start`, round the ring of n points.
std::int32_t round_from(std::int32_t start, std::int32_t j, std::int32_t n) noexcept;

/// Whether the area meets the request, which ends every search: they must differ by less than a relative 1e-6.
/// Requests should be above zero.
///
/// The difference is divided by the request, whatever that is. So no area meets 0.0 or NaN, every area meets a
/// negative request, and every area except 0 meets -0.0. An area that is NaN meets nothing.
bool meets_request(double area, double requested) noexcept;

}  // namespace plcalc
