#include "subdivision/clearance.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>

#include "plcalc/survey.h"
#include "support/bits.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

using plcalc::Clearance;
using plcalc::inverse_bound;

static_assert(LDBL_MANT_DIG >= 64, "offsets are taken in a long double that is longer than a double");

TEST(Clearance, InverseBoundIsAPowerOfTwoNotBelowTheInverse)
{
    EXPECT_BITS(inverse_bound(1.0), 1.0);
    EXPECT_BITS(inverse_bound(3.0), 0.5);
    EXPECT_BITS(inverse_bound(0.75), 2.0);
    EXPECT_BITS(inverse_bound(test::down(2.0)), 1.0);
    EXPECT_BITS(inverse_bound(2.0), 0.5);
    for (const double v : {0.0, 0x1p-1074, 0x1p-1023, kInf})
        EXPECT_BITS(inverse_bound(v), kInf);
    EXPECT_TRUE(std::isnan(inverse_bound(kNan)));
    for (const double v : {0x1p-1022, 1e-300, 1e-7, 123.0, 1e300, 0x1p+1022})
        EXPECT_GE(inverse_bound(v), 1.0 / v);
}

long double off(const PL_IMP_LINE_2D_record& line, const PL_PNT2D_record& p)
{
    return static_cast<long double>(line.a) * p.x + static_cast<long double>(line.b) * p.y + line.c;
}

struct Met {
    int all = 0;
    int beyond_half = 0;       // of the margin
    int beyond_stake_out = 0;  // the stake-out margin alone would not hold these
};

// Sides with both ends on one side of a line, the nearer one at up to twice the margin; many at right angles to it and
// diagonal, where the stake-out margin reaches farthest.
Met meet(std::mt19937_64& random, double size, double longest)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    Met met;
    for (int i = 0; i < 200000; ++i) {
        const double dir = i % 2 == 0 ? 0.7853981633974483 : 6.3 * unit(random);
        const double turn = i % 4 < 2 ? 1.5707963267948966 : 6.3 * unit(random);
        const double base = std::pow(10.0, 3.0 * unit(random) - 1.0);
        const double length = longest * std::pow(10.0, -2.0 * unit(random));
        PL_IMP_LINE_2D_record line = {-base * std::sin(dir), base * std::cos(dir), 0.0};
        const PL_PNT2D_record to = {size * unit(random), size * unit(random)};
        const PL_PNT2D_record from = {to.x + length * std::cos(dir + turn),
                                      to.y + length * std::sin(dir + turn)};
        const double coefficients = std::fabs(line.a) + std::fabs(line.b);
        const Clearance clearance({from, to}, coefficients);
        const double margin = clearance.of_side(from, to);
        // The margin covers the worst that rounding can do; what it does as a rule is far less.
        const double part = i % 3 == 0 ? std::pow(10.0, -3.0 * unit(random)) : 2.0 * unit(random);
        const long double away =
            static_cast<long double>(part) * margin * (off(line, from) > off(line, to) ? 1 : -1);
        line.c = static_cast<double>(away - off(line, to));

        const long double off1 = off(line, from);
        const long double off2 = off(line, to);
        const long double nearer = std::min(std::fabs(off1), std::fabs(off2));
        PL_PNT2D_record crossing = {};
        if ((off1 > 0) != (off2 > 0) || !IntersezLineaInSegmOK(from, to, line, crossing))
            continue;
        ++met.all;
        met.beyond_half += nearer > margin / 2 ? 1 : 0;
        met.beyond_stake_out += nearer > coefficients * 0.00101 ? 1 : 0;
        EXPECT_LE(nearer, margin) << "size " << size << ", length " << length;
    }
    return met;
}

TEST(Clearance, HoldsEverySideThatIsMet)
{
    std::mt19937_64 random = test::random_source();
    const Met local = meet(random, 100.0, 50.0);
    EXPECT_GT(local.all, 10000);
    EXPECT_GT(local.beyond_half, 1000) << "half the margin would do";

    const Met national = meet(random, 5e6, 10.0);
    EXPECT_GT(national.all, 1000);
    EXPECT_GT(national.beyond_stake_out, 20) << "rounding would need no margin";

    const Met continental = meet(random, 1e12, 1e9);
    EXPECT_GT(continental.beyond_stake_out, 100) << "rounding would need no margin";
}

TEST(Clearance, OfASideWithoutLengthIsNone)
{
    const Clearance clearance({{3, 4}}, 1.0);
    EXPECT_BITS(clearance.of_side({3, 4}, {3, 4}), 0.0);
    EXPECT_BITS(clearance.of_side({3, 4}, {3 + 0x1p-30, 4}), 0.0);
    EXPECT_GT(clearance.of_side({3, 4}, {3 + 0x1p-20, 4}), 0.001);
}

TEST(Clearance, CannotBeToldOfWhatIsNoNumber)
{
    EXPECT_FALSE(Clearance({{kNan, 0}, {1, 0}}, 1.0).of_side({0, 0}, {1, 0}) < kInf);
    EXPECT_FALSE(Clearance({{0, -kNan}, {1, 0}}, 1.0).of_side({0, 0}, {1, 0}) < kInf);
    EXPECT_FALSE(Clearance({{kInf, 0}, {1, 0}}, 1.0).of_side({0, 0}, {1, 0}) < kInf);
    EXPECT_FALSE(Clearance({{1e200, 0}, {1, 0}}, 1.0).of_side({0, 0}, {1, 0}) < kInf);
}

}  // namespace
