#pragma once

// Doubles compared by their bits: internal, not installed; for loops on targets where every double operation
// is a routine, and as good as any comparison elsewhere.

#include <cstdint>
#include <cstring>

namespace plcalc {

/// An integer that orders as the doubles do: equal for -0.0 and 0.0, one apart for neighbours. A NaN lies
/// beyond the infinities.
inline std::int64_t ordered_bits(double v) noexcept
{
    std::int64_t bits = 0;
    std::memcpy(&bits, &v, sizeof bits);
    return bits >= 0 ? bits : INT64_MIN - bits;
}

constexpr std::int64_t kOrderedOne = std::int64_t(1023) << 52;
constexpr std::int64_t kOrderedInfinity = std::int64_t(2047) << 52;

/// Whether v, given by its ordered bits, is a NaN.
constexpr bool ordered_nan(std::int64_t v) noexcept
{
    return v > kOrderedInfinity || v < -kOrderedInfinity;
}

/// Whether two doubles, given by their ordered bits, are farther apart than (|b| + 1) * 1e-7 beyond doubt;
/// false may mean either.
///
/// Answers for magnitudes from 1 up, where the margin is at most 2e-7 of |b|. 2^32 neighbouring doubles from
/// a magnitude m upward span at least 2^32 * 2^-53 * m = 4.8e-7 m, more than that margin whichever of the two
/// is the larger.
constexpr bool surely_apart(std::int64_t a, std::int64_t b) noexcept
{
    const std::int64_t size_a = a < 0 ? -a : a;
    const std::int64_t size_b = b < 0 ? -b : b;
    if (size_a < kOrderedOne || size_b < kOrderedOne || size_a >= kOrderedInfinity ||
        size_b >= kOrderedInfinity)
        return false;
    // Of different sign they are 2 apart at least, and their ordered bits by more than any limit.
    const std::int64_t apart =
        (a < 0) != (b < 0) ? INT64_MAX : (size_a > size_b ? size_a - size_b : size_b - size_a);
    return apart > (std::int64_t(1) << 32);
}

}  // namespace plcalc
