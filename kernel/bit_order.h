#pragma once

// Doubles compared by their bits: internal, not installed. This is for loops on targets where every double
// operation is a routine; elsewhere it is as good as any other comparison.

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

/// The magnitude of v as a whole number that orders as magnitudes do; a NaN is greater than every other.
inline std::uint64_t magnitude_bits(double v) noexcept
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &v, sizeof bits);
    return bits & ~(std::uint64_t(1) << 63);
}

/// The greater of two magnitudes; NaN when one is.
inline double greater_magnitude(double v, double w) noexcept
{
    const std::uint64_t bits_v = magnitude_bits(v);
    const std::uint64_t bits_w = magnitude_bits(w);
    const std::uint64_t bits = bits_v < bits_w ? bits_w : bits_v;
    double greater = 0.0;
    std::memcpy(&greater, &bits, sizeof greater);
    return greater;
}

/// The upper half of ordered_bits: 32 bits, enough to tell most doubles apart. It orders as the doubles do,
/// except that doubles which differ only in the lower half are equal.
inline std::int32_t ordered_high(double v) noexcept
{
    std::int64_t bits = 0;
    std::memcpy(&bits, &v, sizeof bits);
    const std::int32_t high = static_cast<std::int32_t>(bits >> 32);
    return high >= 0 ? high : INT32_MIN - high;
}

constexpr std::int32_t kOrderedHighOne = 1023 << 20;
constexpr std::int32_t kOrderedHighInfinity = 2047 << 20;

/// Whether v, given by its ordered_high, is a number other than the infinities.
constexpr bool ordered_high_finite(std::int32_t v) noexcept
{
    return v < kOrderedHighInfinity && v > -kOrderedHighInfinity;
}

/// Whether two doubles, given by their ordered_high, are farther apart than (|b| + 1) * 1e-7 beyond doubt;
/// false may mean either.
///
/// Answers for magnitudes from 1 up, where the margin is at most 2e-7 of |b|. Upper halves that differ by 2
/// have more than 2^32 doubles between them, and those span at least 2^32 * 2^-53 * m = 4.8e-7 m from a
/// magnitude m upward: more than that margin, whichever of the two is the larger. Of different sign they are 2
/// apart at least, and more than the sum of both margins.
constexpr bool surely_apart(std::int32_t a, std::int32_t b) noexcept
{
    const auto beyond_one = [](std::int32_t v) {
        const std::uint32_t size = static_cast<std::uint32_t>(v < 0 ? -v : v);
        constexpr std::uint32_t one = kOrderedHighOne;
        return size - one < kOrderedHighInfinity - one;
    };
    return beyond_one(a) && beyond_one(b) && (a > b + 1 || b > a + 1);
}

}  // namespace plcalc
