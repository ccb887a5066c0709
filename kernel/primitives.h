#pragma once

// The smallest computations, for use inside other functions: internal, not installed; for every folder. They
// are inline, because a call through the table of exported functions takes longer than most of them.

#include "kernel/square_root.h"
#include "kernel/tolerance.h"

namespace plcalc {

/// As PlFunz_inverse.
inline double inverse(double v) noexcept
{
    return is_zero(v) ? 0.0 : 1.0 / v;
}

/// As PlFunz_sumsqrdparms.
inline double sum_of_squares(double a, double b) noexcept
{
    return a * a + b * b;
}

/// Length of a step (dx, dy).
inline double step_length(double dx, double dy) noexcept
{
    return square_root(dy * dy + dx * dx);
}

/// As PlFunz_distance.
inline double distance(const PL_PNT2D_record& p1, const PL_PNT2D_record& p2) noexcept
{
    return step_length(p1.x - p2.x, p1.y - p2.y);
}

}  // namespace plcalc
