#pragma once

// The tolerance policy of the whole library: internal, not installed; for every folder.

#include <cfloat>
#include <cmath>

#include "kernel/bit_order.h"
#include "plcalc/kernel.h"

#ifdef __FAST_MATH__
#error "plcalc defines its results to the last bit: build it without -ffast-math"
#endif
#if defined(FLT_EVAL_METHOD) && FLT_EVAL_METHOD != 0
#error                                                                                                       \
    "plcalc needs doubles that are rounded at every operation: on 32-bit x86 build with -msse2 -mfpmath=sse"
#endif

namespace plcalc {

/// (|r| + 1) * PL_EPS: the margin around a reference value r, absolute near zero and relative far away.
constexpr double scaled_tol(double r)
{
    return ((r < 0.0 ? -r : r) + 1.0) * PL_EPS;
}

/// |v| <= PL_EPS; false for NaN. By the bits: a comparison of doubles is a routine on the devices.
inline bool is_zero(double v)
{
    return magnitude_bits(v) <= magnitude_bits(PL_EPS);
}

/// Whether both steps are within PL_EPS: too short to have a direction. False when either is NaN.
inline bool is_short(double dx, double dy)
{
    return is_zero(dx) && is_zero(dy);
}

/// Whether a is clearly below r, the margin taken from r.
constexpr bool below(double a, double r)
{
    return a < r - scaled_tol(r);
}

/// Whether a is clearly above r, the margin taken from r.
constexpr bool above(double a, double r)
{
    return a > r + scaled_tol(r);
}

/// Whether a is at most r plus the margin taken from r. With a NaN this is not the negation of above().
constexpr bool at_most(double a, double r)
{
    return a <= r + scaled_tol(r);
}

/// Whether a is at least r less the margin taken from r. With a NaN this is not the negation of below().
constexpr bool at_least(double a, double r)
{
    return a >= r - scaled_tol(r);
}

/// Whether |a - r| is within the margin taken from r.
inline bool is_near(double a, double r)
{
    return std::fabs(a - r) <= scaled_tol(r);
}

}  // namespace plcalc

/// Sets v to exactly 0.0 when |v| <= PL_EPS; -0.0 becomes 0.0 too. NaN stays.
inline void PlFunz_snap_zero(double& v) noexcept
{
    if (plcalc::is_zero(v))
        v = 0.0;
}

/// Smaller of two values; b wins every near-tie: a only when a < b - tol(b).
inline double PlFunz_min_tol(double a, double b) noexcept
{
    return plcalc::below(a, b) ? a : b;
}

/// Larger of two values; b wins every near-tie: a only when a > b + tol(b).
inline double PlFunz_max_tol(double a, double b) noexcept
{
    return plcalc::above(a, b) ? a : b;
}
