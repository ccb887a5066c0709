#pragma once

// A line among parallels: internal, not installed; for lines/, survey/ and subdivision/.

#include <cmath>

#include "kernel/primitives.h"

namespace plcalc {

/// Where a fixed line meets the parallels a*x + b*y + c = 0 that differ in c alone.
///
/// A search that moves a line asks this again and again, and so does whoever drops perpendiculars from many
/// points. What does not depend on c is computed once. The operations and their bits are those of a single
/// intersection, which uses this class too.
class MeetsParallels {
public:
    /// Meets nothing.
    MeetsParallels() = default;

    /// @param[in] fixed  the line that stays
    /// @param[in] a, b   coefficients of the parallels
    MeetsParallels(const PL_IMP_LINE_2D_record& fixed, double a, double b) noexcept
        : a_(fixed.a), b_(fixed.b), c_(fixed.c), same_direction_(agree(fixed.a, a) && agree(fixed.b, b))
    {
        const double det = b * fixed.a - fixed.b * a;
        parallel_ = is_zero(det);
        if (parallel_)
            return;
        inv_ = inverse(det);
        ca_ = fixed.c * a;
        cb_ = fixed.c * b;
    }

    /// Whether the parallel with this c is met at all. It is not when it is parallel to the fixed line, and not
    /// when its three coefficients agree with those of the fixed line within PL_EPS.
    bool meets(double c) const noexcept { return !parallel_ && !(same_direction_ && is_zero(c_ - c)); }

    /// x of the meeting point. It takes three operations from c, each weakly monotone in c.
    double x_at(double c) const noexcept { return (b_ * c - cb_) * inv_; }

    /// y of the meeting point; as x_at.
    double y_at(double c) const noexcept { return (ca_ - a_ * c) * inv_; }

    /// Whether one of the parallels may be the fixed line itself, so that the two do not meet.
    bool may_be_one() const noexcept { return parallel_ || same_direction_; }

    /// Magnitude of 1 / the determinant, by which the crossings are multiplied; 0 when nothing is met.
    double inverse_determinant() const noexcept { return std::fabs(inv_); }

    /// Whether they meet but for lines that are one.
    bool have_direction() const noexcept { return !parallel_; }

private:
    // |v - w| <= PL_EPS; most are told apart by their bits.
    static bool agree(double v, double w) noexcept
    {
        return !surely_apart(ordered_high(v), ordered_high(w)) && is_zero(v - w);
    }

    double a_ = 0.0;  // the fixed line
    double b_ = 0.0;
    double c_ = 0.0;
    double ca_ = 0.0;  // its c times the parallels' a and b
    double cb_ = 0.0;
    double inv_ = 0.0;  // inverse of the determinant
    bool parallel_ = true;
    bool same_direction_ = false;  // a and b agree, so that c decides whether the lines are one
};

}  // namespace plcalc
