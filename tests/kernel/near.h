#pragma once

// Comparison that forgives the last bit of a platform's sine, cosine or arctangent, and the two values that
// are no numbers.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "support/bits.h"

namespace test {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// How many doubles lie from a to b, both of one sign and not zero.
inline std::int64_t doubles_between(double a, double b)
{
    std::int64_t bits_a = 0;
    std::int64_t bits_b = 0;
    std::memcpy(&bits_a, &a, sizeof a);
    std::memcpy(&bits_b, &b, sizeof b);
    return bits_a > bits_b ? bits_a - bits_b : bits_b - bits_a;
}

/// For EXPECT_PRED_FORMAT3: at most `apart` doubles from each other. Zeros, NaN, infinities and a wrong sign
/// are compared by bits: no error of a sine excuses them.
inline ::testing::AssertionResult near_bits(const char* got_text, const char* want_text, const char*,
                                            double got, double want, int apart)
{
    const bool comparable = std::isfinite(got) && std::isfinite(want) && got != 0.0 && want != 0.0 &&
                            std::signbit(got) == std::signbit(want);
    if (comparable && doubles_between(got, want) <= apart)
        return ::testing::AssertionSuccess();
    return same_bits(got_text, want_text, got, want);
}

}  // namespace test

#define EXPECT_NEAR_BITS(got, want, apart) EXPECT_PRED_FORMAT3(::test::near_bits, got, want, apart)
