#include "kernel/square_root.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint64_t kFractionBits = 52;
constexpr std::uint64_t kHiddenBit = std::uint64_t(1) << kFractionBits;
constexpr std::int32_t kExponentOfOne = 1023;
constexpr std::int32_t kExponentAbove = 2047;  // infinities and NaN

// A double v > 0 as fraction * 2^exponent, the exponent even and fraction from 2^52 up to, not including, 2^54.
struct EvenParts {
    std::uint64_t fraction;
    std::int32_t exponent;
};

EvenParts even_parts(std::uint64_t bits)
{
    std::uint64_t fraction = bits & (kHiddenBit - 1);
    std::int32_t exponent = static_cast<std::int32_t>(bits >> kFractionBits);
    if (exponent == 0)  // subnormal: no hidden bit
        exponent = 1;
    else
        fraction |= kHiddenBit;
    while (fraction < kHiddenBit) {
        fraction <<= 1;
        --exponent;
    }
    exponent -= kExponentOfOne + static_cast<std::int32_t>(kFractionBits);
    if (exponent % 2 != 0) {
        fraction <<= 1;
        --exponent;
    }
    return {fraction, exponent};
}

constexpr std::uint32_t floor_root(std::uint64_t v)
{
    std::uint64_t root = 0;
    for (std::uint64_t bit = std::uint64_t(1) << 31; bit != 0; bit >>= 1)
        if ((root + bit) * (root + bit) <= v)
            root += bit;
    return static_cast<std::uint32_t>(root);
}

// 1 / sqrt(x) for x from 1/4 to 1 in steps of 1/128, at the middle of each step, in units of 2^-14. Good to
// seven bits.
constexpr std::size_t kFirstStep = 32;
constexpr std::size_t kSteps = 96;

constexpr std::array<std::uint16_t, kSteps> inverse_roots()
{
    std::array<std::uint16_t, kSteps> table = {};
    for (std::size_t i = 0; i < kSteps; ++i) {
        const std::uint64_t twice_middle = 2 * (kFirstStep + i) + 1;
        table[i] = static_cast<std::uint16_t>(floor_root((std::uint64_t(1) << 36) / twice_middle));
    }
    return table;
}

constexpr std::array<std::uint16_t, kSteps> kInverseRoots = inverse_roots();

// One step of Newton's method for 1 / sqrt(x): r (3 - x r^2) / 2. x in units of 2^-32, r of 2^-30.
std::uint32_t improve(std::uint32_t r, std::uint32_t x)
{
    const std::uint64_t r2 = (std::uint64_t(r) * r) >> 32;  // 2^-28
    const std::uint64_t xr2 = (r2 * x) >> 32;               // 2^-28, near 1
    const std::uint64_t rest = (std::uint64_t(3) << 28) - xr2;
    return static_cast<std::uint32_t>((r * rest) >> 29);
}

// sqrt(fraction * 2^52) to a few units: a root of half the bits, and one correction by the remainder.
std::uint64_t near_root(std::uint64_t fraction)
{
    const std::uint32_t x = static_cast<std::uint32_t>(fraction >> 22);
    std::uint32_t r = std::uint32_t(kInverseRoots[(x >> 25) - kFirstStep]) << 16;
    r = improve(r, x);
    r = improve(r, x);

    std::uint64_t half = (std::uint64_t(x) * r) >> 30;
    if (half > UINT32_MAX)
        half = UINT32_MAX;
    const std::int64_t remainder = static_cast<std::int64_t>((fraction << 10) - half * half);
    const std::int64_t correction =
        (remainder / 256 * static_cast<std::int64_t>(r)) / (std::int64_t(1) << 34);
    return (half << 21) + static_cast<std::uint64_t>(correction);
}

// The root of fraction * 2^52 to the nearest unit. It is never halfway: that would take a square of more bits.
std::uint64_t rounded_root(std::uint64_t fraction)
{
    std::uint64_t root = near_root(fraction);
    // What the square lacks fits 64 bits, though the square does not.
    std::int64_t lack = static_cast<std::int64_t>((fraction << kFractionBits) - root * root);
    while (lack < 0) {
        --root;
        lack += static_cast<std::int64_t>(2 * root + 1);
    }
    while (lack > static_cast<std::int64_t>(2 * root)) {
        lack -= static_cast<std::int64_t>(2 * root + 1);
        ++root;
    }
    return lack > static_cast<std::int64_t>(root) ? root + 1 : root;
}

}  // namespace

namespace plcalc {

double square_root_in_integers(double v) noexcept
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &v, sizeof bits);
    const bool negative = (bits >> 63) != 0;
    if ((bits << 1) == 0)
        return v;  // 0.0 and -0.0 are their own roots
    if (negative || (bits >> kFractionBits) == kExponentAbove)
        return negative ? (v - v) / (v - v) : v + v;  // NaN, or infinity as it is

    const EvenParts parts = even_parts(bits);
    const std::int32_t exponent = (parts.exponent - static_cast<std::int32_t>(kFractionBits)) / 2 +
                                  kExponentOfOne + static_cast<std::int32_t>(kFractionBits);
    // The root's highest bit is the hidden one: it counts as one in the exponent.
    bits = (static_cast<std::uint64_t>(exponent - 1) << kFractionBits) + rounded_root(parts.fraction);
    double root = 0.0;
    std::memcpy(&root, &bits, sizeof root);
    return root;
}

}  // namespace plcalc
