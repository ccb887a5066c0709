#include "kernel/bit_order.h"

#include <cmath>
#include <limits>
#include <vector>

#include "kernel/tolerance.h"
#include "support/bits.h"

namespace {

using plcalc::ordered_bits;
using plcalc::ordered_high;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(BitOrder, OrdersAsTheDoublesDo)
{
    const std::vector<double> rising = {-kInf,   -1e300,        -2.0, -1.0,      test::up(-1.0),
                                        -1e-300, -0x1p-1074,    0.0,  0x1p-1074, 1e-300,
                                        1.0,     test::up(1.0), 2.0,  1e300,     kInf};
    for (std::size_t i = 0; i < rising.size(); ++i)
        for (std::size_t j = 0; j < rising.size(); ++j)
            EXPECT_EQ(ordered_bits(rising[i]) < ordered_bits(rising[j]), rising[i] < rising[j])
                << rising[i] << " and " << rising[j];
    EXPECT_EQ(ordered_bits(-0.0), ordered_bits(0.0));
    EXPECT_EQ(ordered_bits(test::up(1.0)), ordered_bits(1.0) + 1);
    EXPECT_EQ(ordered_bits(test::up(-1.0)), ordered_bits(-1.0) + 1);
    EXPECT_EQ(plcalc::kOrderedOne, ordered_bits(1.0));
    EXPECT_EQ(plcalc::kOrderedInfinity, ordered_bits(kInf));
}

TEST(BitOrder, KnowsNoNumbers)
{
    EXPECT_TRUE(plcalc::ordered_nan(ordered_bits(kNan)));
    EXPECT_TRUE(plcalc::ordered_nan(ordered_bits(-kNan)));
    EXPECT_FALSE(plcalc::ordered_nan(ordered_bits(kInf)));
    EXPECT_FALSE(plcalc::ordered_nan(ordered_bits(-kInf)));
    EXPECT_FALSE(plcalc::ordered_nan(ordered_bits(0.0)));
}

bool apart(double a, double b)
{
    return plcalc::surely_apart(ordered_high(a), ordered_high(b));
}

struct ApartRow {
    const char* what;
    double a;
    double b;
    bool want;
};

const ApartRow kRows[] = {
    {"one unit", 1.0, 2.0, true},
    {"one unit at national size: not sure", 5000000.0, 5000001.0, false},
    {"ten units at national size", 5000000.0, 5000010.0, true},
    {"equal", 3.0, 3.0, false},
    {"upper halves one apart: not sure", 1.0, test::down(1.0 + 0x1p-19), false},
    {"two apart: sure", 1.0, 1.0 + 0x1p-19, true},
    {"two apart, though no more than 2^32 and one neighbours: sure", test::down(1.0 + 0x1p-20), 1.0 + 0x1p-19,
     true},
    {"across zero", -1.0, 1.0, true},
    {"the greatest numbers across zero", -1.7e308, 1.7e308, true},
    {"below one the margin is absolute: not sure", 0.5, 0.9, false},
    {"one below one: not sure", 0.9, 5.0, false},
    {"the other below one: not sure", 5.0, -0.9, false},
    {"an infinite margin holds every number", 1.0, kInf, false},
    {"infinite first", kInf, 1.0, false},
    {"no number", kNan, 1.0, false},
    {"no number second", 1.0, kNan, false},
};

TEST(BitOrder, SurelyApartTable)
{
    for (const ApartRow& row : kRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(apart(row.a, row.b), row.want);
        EXPECT_EQ(apart(-row.a, -row.b), row.want);
    }
}

// Never sure of what the margin would hold: pairs around the margin, at every size.
TEST(BitOrder, SurelyApartIsNeverWrong)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> size(-2.0, 20.0);
    std::uniform_real_distribution<double> share(0.0, 40.0);
    int sure = 0;
    for (int i = 0; i < 200000; ++i) {
        const double b = std::pow(10.0, size(random)) * (i % 2 == 0 ? 1.0 : -1.0);
        const double a = b + share(random) * plcalc::scaled_tol(b) * (i % 4 < 2 ? 1.0 : -1.0);
        if (apart(a, b)) {
            ++sure;
            EXPECT_FALSE(plcalc::is_near(a, b)) << a << " and " << b;
            EXPECT_FALSE(plcalc::is_near(b, a)) << b << " and " << a;
        }
    }
    EXPECT_GT(sure, 20000) << "hardly ever sure: it would spare nothing";
}

}  // namespace
