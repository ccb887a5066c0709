#pragma once

// The signed area of a ring: internal, not installed; for survey/ and subdivision/.

#include <cstddef>

#include "plcalc/kernel.h"

namespace plcalc {

/// Share of a point in the signed area of its ring, between the points before and after it.
inline double shoelace_share(const PL_PNT2D_record& before, const PL_PNT2D_record& p,
                             const PL_PNT2D_record& after) noexcept
{
    return ((before.x - after.x) * p.y) * 0.5;
}

/// Signed area of the closed ring of the first n points, positive anticlockwise; 0 for n = 0.
///
/// The shares are added in index order, each to the sum so far: the bits depend on it.
double shoelace_area(const PL_PNT2D_record* points, std::size_t n) noexcept;

}  // namespace plcalc
