#pragma once

// What the tables of this folder share: numbers that have no literal, and comparison within an ulp.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

#include "support/bits.h"

namespace test {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kPi = 3.141592653589793;
constexpr double kThreeHalfPi = 4.71238898038469;
constexpr double kTwoPi = 6.283185307179586;

/// The margin around a reference value.
constexpr double tol(double r)
{
    return ((r < 0.0 ? -r : r) + 1.0) * 1e-7;
}

/// An angle_type that no header names.
inline PL_AngleMeasType unknown(int value)
{
    return static_cast<PL_AngleMeasType>(value);
}

/// All five fields the same; the record's padding is nobody's business.
inline bool same_arc(const ARC_2D_record& a, const ARC_2D_record& b)
{
    return same_bits("", "", a.centre.x, b.centre.x) && same_bits("", "", a.centre.y, b.centre.y) &&
           same_bits("", "", a.radius, b.radius) && a.angle_type == b.angle_type &&
           same_bits("", "", a.start_angle, b.start_angle) && same_bits("", "", a.end_angle, b.end_angle);
}

/// How many doubles lie from a to b; 0 for equal bits and for two NaNs.
inline std::int64_t ulps_apart(double a, double b)
{
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b) ? 0 : std::numeric_limits<std::int64_t>::max();
    std::int64_t bits[2];
    std::memcpy(&bits[0], &a, sizeof a);
    std::memcpy(&bits[1], &b, sizeof b);
    for (std::int64_t& v : bits) {
        if (v < 0)
            v = std::numeric_limits<std::int64_t>::min() - v;
    }
    // Halves first: a difference of far apart values would overflow.
    if (std::fabs(static_cast<double>(bits[0]) / 2 - static_cast<double>(bits[1]) / 2) > 1e15)
        return std::numeric_limits<std::int64_t>::max();
    return bits[0] > bits[1] ? bits[0] - bits[1] : bits[1] - bits[0];
}

/// For EXPECT_PRED_FORMAT3. With 0 ulps the bits must be the same.
inline ::testing::AssertionResult within_ulps(const char* got_text, const char*, const char*, double got,
                                              double want, int ulps)
{
    if (ulps == 0)
        return same_bits(got_text, "", got, want);
    if (ulps_apart(got, want) <= ulps)
        return ::testing::AssertionSuccess();
    char text[160];
    std::snprintf(text, sizeof text, "\n  got    %a (%.17g)\n  wanted %a (%.17g) within %d ulp", got, got,
                  want, want, ulps);
    return ::testing::AssertionFailure() << got_text << text;
}

}  // namespace test

#define EXPECT_ULPS(got, want, ulps) EXPECT_PRED_FORMAT3(::test::within_ulps, got, want, ulps)
