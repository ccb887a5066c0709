#pragma once

// The range that a side covers on one axis: internal, not installed; for survey/ and subdivision/.

namespace plcalc {

/// A point this far outside a side's range still counts as on the side, in the caller's unit: with metres the
/// millimetre to which corners are staked out. The geometric tolerance is another matter: it covers rounding.
constexpr double kStakeOutMargin = 0.001;

/// The range between two coordinates, widened by the stake-out margin of 0.001 on either side.
struct SideRange {
    double low;
    double high;

    /// Both limits included; false for NaN.
    bool holds(double v) const noexcept { return v >= low && v <= high; }
};

/// @param[in] lim1, lim2  the coordinates in either order
inline SideRange side_range(double lim1, double lim2) noexcept
{
    if (lim1 < lim2)
        return {lim1 - kStakeOutMargin, lim2 + kStakeOutMargin};
    return {lim2 - kStakeOutMargin, lim1 + kStakeOutMargin};
}

}  // namespace plcalc
