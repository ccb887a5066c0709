#pragma once

// The extent of a segment on one axis: internal, not installed; for survey/ and subdivision/.

namespace plcalc {

/// The range between two coordinates, widened by the stake-out margin of 0.001 on either side.
struct Extent {
    double low;
    double high;

    /// Both limits included; false for NaN.
    bool holds(double v) const noexcept { return v >= low && v <= high; }
};

/// @param[in] lim1, lim2  the coordinates in either order
Extent extent_between(double lim1, double lim2) noexcept;

}  // namespace plcalc
