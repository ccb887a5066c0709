#pragma once

// The range that a side covers on one axis: internal, not installed; for survey/ and subdivision/.

#include <cstdint>

#include "kernel/bit_order.h"

namespace plcalc {

/// A point this far outside a side's range still counts as on the side, in the caller's unit: with metres the
/// millimetre to which corners are staked out. The geometric tolerance is another matter: it covers rounding.
constexpr double kStakeOutMargin = 0.001;

/// The range between two coordinates, widened by the stake-out margin of 0.001 on either side.
/// Kept by its ordered bits, since every side is asked again and again.
struct SideRange {
    std::int64_t low;
    std::int64_t high;

    /// Both limits included; false for NaN, and everywhere when a limit is NaN.
    bool holds(double v) const noexcept
    {
        const std::int64_t bits = ordered_bits(v);
        return low <= bits && bits <= high;
    }
};

/// @param[in] lim1, lim2  the coordinates in either order
inline SideRange side_range(double lim1, double lim2) noexcept
{
    const bool rising = ordered_bits(lim1) < ordered_bits(lim2);
    const std::int64_t low = ordered_bits((rising ? lim1 : lim2) - kStakeOutMargin);
    const std::int64_t high = ordered_bits((rising ? lim2 : lim1) + kStakeOutMargin);
    if (ordered_nan(low) || ordered_nan(high))
        return {INT64_MAX, INT64_MIN};
    return {low, high};
}

/// As side_range(lim1, lim2).holds(v), which most values between the limits need not make.
inline bool in_side_range(double v, double lim1, double lim2) noexcept
{
    const std::int64_t bits = ordered_bits(v);
    const std::int64_t bits1 = ordered_bits(lim1);
    const std::int64_t bits2 = ordered_bits(lim2);
    const bool between = bits1 < bits2 ? bits1 <= bits && bits <= bits2 : bits2 <= bits && bits <= bits1;
    if (between && !ordered_nan(bits1) && !ordered_nan(bits2))
        return true;
    return side_range(lim1, lim2).holds(v);
}

}  // namespace plcalc
