// Numbers with so many decimals.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "plparcel/rounding.h"
#include "support/bits.h"

namespace {

using plparcel::rounded_to;

struct DecimalRow {
    const char* what;
    double value;
    int decimals;
    double rounded;
};

const DecimalRow kDecimals[] = {
    {"two decimals, up", 1.238, 2, 1.24},
    {"two decimals, down", 1.234, 2, 1.23},
    {"a tie goes to the even one: 0.125", 0.125, 2, 0.12},
    {"a tie goes to the even one: 0.375", 0.375, 2, 0.38},
    {"1.005 lies below the tie", 1.005, 2, 1.0},
    {"1.165 lies above it", 1.165, 2, 1.17},
    {"a hair above the tie", 0x1.0000000000001p-3, 2, 0.13},
    {"no decimals", 2.5, 0, 2.0},
    {"no decimals, odd", 3.5, 0, 4.0},
    {"below zero", -1.238, 2, -1.24},
    {"below zero, a tie", -0.125, 2, -0.12},
    {"never -0", -0.001, 2, 0.0},
    {"-0 itself", -0.0, 2, 0.0},
    {"UTM, to the tenth of a millimetre", 5087654.32104999, 4, 5087654.321},
    {"finer than doubles there", 5087654.32104999, 12, 5087654.32104999},
    {"all that there are", 0.1, 17, 0.1},
    {"seventeen decimals of a third", 1.0 / 3.0, 17, 0.33333333333333331},
    {"2^53 and more", 0x1p53 + 2, 0, 0x1p53 + 2},
    // 2^53 + 0.78 units of the last decimal; 2^53 and 2^53 + 1 of them are written down as other doubles or this one.
    {"next to 2^53 units", 0x1.ad7f29abcaf49p+29, 7, 0x1.ad7f29abcaf49p+29},
    {"large", 1e200, 4, 1e200},
    {"tiny", 1e-300, 17, 0.0},
};

TEST(Decimals, RoundToTheNearestDecimalNumber)
{
    for (const DecimalRow& row : kDecimals) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(rounded_to(row.value, row.decimals), row.rounded);
    }
}

// The C library prints to the nearest decimal number and reads to the nearest double.
TEST(Decimals, AreThoseThatArePrintedAndReadAgain)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < 200000; ++i) {
        const double size = std::pow(10.0, std::uniform_real_distribution<double>(-6.0, 13.0)(random));
        const double value = std::uniform_real_distribution<double>(-size, size)(random);
        const int decimals = std::uniform_int_distribution<int>(0, plparcel::kMostDecimals)(random);
        char text[80];
        std::snprintf(text, sizeof text, "%.*f", decimals, value);
        EXPECT_BITS(rounded_to(value, decimals), std::strtod(text, nullptr) + 0.0);
    }
}

}  // namespace
