#pragma once

// What every harness asks with: a check that ends the program and shows the operands, comparisons by bits, and
// what an output holds before a call.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <vector>

#include "plcalc/kernel.h"

namespace fuzz {

/// The numbers that the current input has given so far, for the report of a failed check.
inline std::vector<double>& operands()
{
    static std::vector<double> read;
    return read;
}

[[noreturn]] inline void fail(const char* file, int line, const char* claim)
{
    std::fprintf(stderr, "%s:%d: does not hold: %s\noperands in the order in which they were read:\n", file,
                 line, claim);
    for (const double v : operands())
        std::fprintf(stderr, "  %a  (%.17g)\n", v, v);
    std::abort();
}

/// FUZZ_CHECK(claim): ends the program when the claim does not hold, in every kind of build.
#define FUZZ_CHECK(claim) ((claim) ? static_cast<void>(0) : ::fuzz::fail(__FILE__, __LINE__, #claim))

// ------------------------------------------------------------------------------------------- comparisons

/// The same bits, or two NaN: their sign and payload are the platform's.
inline bool same(double got, double want)
{
    if (std::isnan(got) || std::isnan(want))
        return std::isnan(got) && std::isnan(want);
    return std::memcmp(&got, &want, sizeof got) == 0;
}

inline bool same(const PL_PNT2D_record& got, const PL_PNT2D_record& want)
{
    return same(got.x, want.x) && same(got.y, want.y);
}

inline bool same(const PL_LINE_2D_record& got, const PL_LINE_2D_record& want)
{
    return same(got.start, want.start) && same(got.end, want.end);
}

inline bool same(const PL_IMP_LINE_2D_record& got, const PL_IMP_LINE_2D_record& want)
{
    return same(got.a, want.a) && same(got.b, want.b) && same(got.c, want.c);
}

inline bool same(const PL_RECT_2D_record& got, const PL_RECT_2D_record& want)
{
    return same(got.xmin, want.xmin) && same(got.ymin, want.ymin) && same(got.xmax, want.xmax) &&
           same(got.ymax, want.ymax);
}

inline bool same(const ARC_2D_record& got, const ARC_2D_record& want)
{
    return same(got.centre, want.centre) && same(got.radius, want.radius) &&
           got.angle_type == want.angle_type && same(got.start_angle, want.start_angle) &&
           same(got.end_angle, want.end_angle);
}

/// Equal numbers, or two NaN; 0.0 and -0.0 are equal.
inline bool equal(double got, double want)
{
    return got == want || (std::isnan(got) && std::isnan(want));
}

inline bool equal(const PL_PNT2D_record& got, const PL_PNT2D_record& want)
{
    return equal(got.x, want.x) && equal(got.y, want.y);
}

inline bool near(double got, double want, double tol)
{
    return std::fabs(got - want) <= tol;
}

inline bool within(double v, double low, double high)
{
    return v >= low && v <= high;
}

/// Exactly +0.0.
inline bool positive_zero(double v)
{
    return v == 0.0 && !std::signbit(v);
}

/// What snapping leaves: +0.0, more than the tolerance, or NaN.
inline bool snapped(const PL_PNT2D_record& p)
{
    for (const double v : {p.x, p.y})
        if (!positive_zero(v) && std::fabs(v) <= PL_EPS)
            return false;
    return true;
}

// ------------------------------------------------------------------------- numbers that relations hold for

/// All of magnitude limit or less; false with a NaN. Relations with a tolerance are asked of such numbers only.
inline bool all_within(double limit, std::initializer_list<double> values)
{
    for (const double v : values)
        if (!(std::fabs(v) <= limit))
            return false;
    return true;
}

inline bool all_within(double limit, std::initializer_list<PL_PNT2D_record> points)
{
    for (const PL_PNT2D_record& p : points)
        if (!all_within(limit, {p.x, p.y}))
            return false;
    return true;
}

inline bool all_finite(std::initializer_list<double> values)
{
    for (const double v : values)
        if (!std::isfinite(v))
            return false;
    return true;
}

inline bool all_finite(std::initializer_list<PL_PNT2D_record> points)
{
    for (const PL_PNT2D_record& p : points)
        if (!all_finite({p.x, p.y}))
            return false;
    return true;
}

/// Distance without the library's help.
inline double apart(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return std::hypot(p.x - q.x, p.y - q.y);
}

// ------------------------------------------------------------------------------------------ untouched outputs

constexpr double kUntouched = 0x1.5p+77;
constexpr int kUntouchedInt = -77;
constexpr PL_PNT2D_record kNoPoint = {kUntouched, kUntouched};
constexpr PL_IMP_LINE_2D_record kNoLine = {kUntouched, kUntouched, kUntouched};
constexpr PL_RECT_2D_record kNoRect = {kUntouched, kUntouched, kUntouched, kUntouched};
constexpr ARC_2D_record kNoArc = {kNoPoint, kUntouched, static_cast<PL_AngleMeasType>(kUntouchedInt),
                                  kUntouched, kUntouched};

}  // namespace fuzz
