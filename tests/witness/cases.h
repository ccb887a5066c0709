#pragma once

// The number of cases, their coordinates, and the largest differences.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "plcalc/kernel.h"
#include "support/bits.h"
#include "support/rings.h"

namespace witness {

/// Half the spacing of doubles just above 1: the relative error of one rounding.
constexpr double kRounding = 0x1p-53;

/// Coordinates of a case: within `extent` East and North of the origin.
struct Size {
    const char* name;
    double extent;           ///< caller's unit
    PL_PNT2D_record origin;  ///< caller's unit
    unsigned stream;         ///< tells the random numbers of one size from those of another
};
constexpr Size kUnit = {"unit", 1.0, {0.0, 0.0}, 0};
constexpr Size kSite = {"site", 1000.0, {0.0, 0.0}, 1};
constexpr Size kUtm = {"UTM", 1000.0, {500000.0, 5000000.0}, 2};
constexpr Size kSizes[] = {kUnit, kSite, kUtm};

/// Cases per witness and coordinate size: PLCALC_WITNESS_CASES from the environment, by default 10000.
int cases();

/// Random numbers of the witnesses.
class Random {
public:
    /// Each size has a stream of its own, made from the printed seed.
    explicit Random(const Size& size) : source_(test::random_source()() + size.stream) {}

    std::mt19937_64& source() { return source_; }
    double between(double low, double high);       ///< uniform
    double by_magnitude(double low, double high);  ///< uniform in the logarithm, for low and high above 0
    int integer(int low, int high);                ///< uniform, both ends included
    bool chance(double p);
    PL_PNT2D_record point(const Size& size);  ///< uniform in the size's square

private:
    std::mt19937_64 source_;
};

using test::Ring;

/// A random simple ring, in either direction: half of them are random points untangled, half parcels of all kinds.
Ring random_ring(Random& random, const Size& size);

/// The largest of the values noted, and the case that gave it.
class Worst {
public:
    void note(double value, int index)
    {
        if (value > value_) {
            value_ = value;
            index_ = index;
        }
    }
    double value() const { return value_; }
    int index() const { return index_; }

private:
    double value_ = 0.0;
    int index_ = -1;
};

/// One line of a witness's summary, printed like printf whether or not the test passes.
[[gnu::format(printf, 1, 2)]] void report(const char* format, ...);

/// Names a test after its coordinate size.
std::string size_name(const ::testing::TestParamInfo<Size>& info);

}  // namespace witness
