#pragma once

// How far from a line a side must be to be out of its reach: internal, not installed; for subdivision/.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

#include "kernel/bit_order.h"
#include "kernel/tolerance.h"
#include "survey/side_range.h"

namespace plcalc {

/// A power of two that is at least 1 / v and at most twice that, for a normal v above zero; infinity where
/// there is none, NaN for NaN. It saves a division, which is a routine of 500 instructions on the devices.
inline double inverse_bound(double v) noexcept
{
    std::int64_t bits = 0;
    std::memcpy(&bits, &v, sizeof bits);
    const std::int64_t exponent = bits >> 52;
    if (exponent <= 0 || exponent >= 2046)
        return v != v ? v : INFINITY;
    bits = (2046 - exponent) << 52;
    double bound = 0.0;
    std::memcpy(&bound, &bits, sizeof bound);
    return bound;
}

/// What rounding may do to lines through the points of one parcel.
///
/// docs/exact-and-fast.md proves this: when both ends of a side lie on one side of a line and more than of_side
/// from it, the line does not meet that side, rounding and stake-out margin included.
class Clearance {
public:
    Clearance() = default;

    /// @param[in] points        the points of the parcel
    /// @param[in] coefficients  an upper bound of |a| + |b| of the lines
    Clearance(const std::vector<PL_PNT2D_record>& points, double coefficients) noexcept
    {
        double greatest_x = 0.0;
        double greatest_y = 0.0;
        for (const PL_PNT2D_record& p : points) {
            greatest_x = greater_magnitude(greatest_x, p.x);
            greatest_y = greater_magnitude(greatest_y, p.y);
        }
        const bool x_greater = magnitude_bits(greatest_x) > magnitude_bits(greatest_y);
        greatest_ = x_greater ? greatest_x : greatest_y;
        const double of_greatest = kOfSize * greatest_;
        fixed_ = coefficients * (kStakeOutMargin * 1.01 + of_greatest);
        by_length_ = coefficients * (of_greatest * (x_greater ? greatest_y : greatest_x));
        if (magnitude_bits(greatest_) > magnitude_bits(kGreatestSize))
            fixed_ = INFINITY;
        common_ = fixed_ * 1.125;
        small_inverse_ = magnitude_bits(0.0625 * (fixed_ / by_length_));
        if (!(common_ < INFINITY) || !(by_length_ > 0.0))
            small_inverse_ = 0;
    }

    /// Greatest coordinate in magnitude; NaN when one is no number.
    double greatest() const noexcept { return greatest_; }

    /// What of_side is for all sides except very short ones far from the origin.
    double of_most_sides() const noexcept { return common_; }

    /// What |a x + b y + c| must exceed at both ends, for a line whose |c| is at most 4 coefficients *
    /// greatest(); infinite or NaN when it cannot be told.
    double of_side(const PL_PNT2D_record& from, const PL_PNT2D_record& to) const noexcept
    {
        const double length = greater_magnitude(to.x - from.x, to.y - from.y);
        if (magnitude_bits(length) <= magnitude_bits(PL_EPS))
            return 0.0;  // a side without length, which no line meets
        // As a rule the length adds next to nothing to the stake-out margin.
        const double inverse = inverse_bound(length);
        return magnitude_bits(inverse) <= small_inverse_ ? common_ : fixed_ + by_length_ * inverse;
    }

private:
    static constexpr double kOfSize = 0x1p-47;      // 64 half ulps of 1
    static constexpr double kGreatestSize = 1e150;  // beyond, products may overflow

    double greatest_ = 0.0;
    double fixed_ = 0.0;
    double by_length_ = 0.0;
    double common_ = 0.0;              // for every side that is long enough
    std::uint64_t small_inverse_ = 0;  // a side is, when the bits of its inverse are at most these
};

}  // namespace plcalc
