#pragma once

// The signed area of a ring: internal, not installed; for survey/ and subdivision/.

#include <cstddef>

#include "plcalc/kernel.h"

namespace plcalc {

/// Twice the share below, which is half of this to the last bit.
inline double twice_shoelace_share(const PL_PNT2D_record& before, const PL_PNT2D_record& p,
                                   const PL_PNT2D_record& after) noexcept
{
    return (before.x - after.x) * p.y;
}

/// Share of a point in the signed area of its ring, between the points before and after it.
inline double shoelace_share(const PL_PNT2D_record& before, const PL_PNT2D_record& p,
                             const PL_PNT2D_record& after) noexcept
{
    return twice_shoelace_share(before, p, after) * 0.5;
}

/// Signed area of the closed ring of the first n points, positive anticlockwise; 0 for n = 0.
///
/// The shares are added in index order, each to the sum so far: another order gives other bits.
inline double shoelace_area(const PL_PNT2D_record* points, std::size_t n) noexcept
{
    if (n == 0)
        return 0.0;
    PL_PNT2D_record before = points[0];
    PL_PNT2D_record at = points[n > 1 ? 1 : 0];
    double sum = shoelace_share(points[n - 1], before, at) + 0.0;  // a share of -0.0 leaves the sum at 0.0
    if (n == 1)
        return sum;
    for (std::size_t i = 2; i < n; ++i) {
        const PL_PNT2D_record after = points[i];
        sum = shoelace_share(before, at, after) + sum;
        before = at;
        at = after;
    }
    return shoelace_share(before, at, points[0]) + sum;
}

}  // namespace plcalc
