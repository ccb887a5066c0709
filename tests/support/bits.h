#pragma once

// Comparison of doubles by their bits, and the source of random numbers.

#include <gtest/gtest.h>

#include <random>

#include "plcalc/kernel.h"

namespace test {

/// For EXPECT_PRED_FORMAT2: whether two doubles have the same bits, so that -0.0 is not 0.0; any NaN equals any
/// NaN. Prints both in hexadecimal and in decimal.
::testing::AssertionResult same_bits(const char* got_text, const char* want_text, double got, double want);

/// Points, compared coordinate by coordinate.
::testing::AssertionResult same_point(const char* got_text, const char* want_text, const PL_PNT2D_record& got,
                                      const PL_PNT2D_record& want);

/// Lines, compared coefficient by coefficient.
::testing::AssertionResult same_line(const char* got_text, const char* want_text,
                                     const PL_IMP_LINE_2D_record& got, const PL_IMP_LINE_2D_record& want);

/// The next double up or down.
double up(double v);
double down(double v);

/// A value that no computation gives by chance. Tests fill outputs with it, to see whether they are written.
constexpr double kUntouched = 0x1.5p+77;

/// Random numbers of a property test. The seed is PLCALC_SEED from the environment, otherwise a fixed one;
/// it is printed, so that a failure can be repeated.
std::mt19937_64 random_source();

}  // namespace test

#define EXPECT_BITS(got, want) EXPECT_PRED_FORMAT2(::test::same_bits, got, want)
#define EXPECT_POINT(got, want) EXPECT_PRED_FORMAT2(::test::same_point, got, (PL_PNT2D_record want))
#define EXPECT_LINE(got, want) EXPECT_PRED_FORMAT2(::test::same_line, got, (PL_IMP_LINE_2D_record want))
