#include "survey/side_range.h"

#include <limits>

#include "support/bits.h"

namespace {

using plcalc::ordered_bits;
using plcalc::side_range;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(SideRange, WidenedByAMillimetre)
{
    EXPECT_EQ(side_range(2.0, 5.0).low, ordered_bits(2.0 - 0.001));
    EXPECT_EQ(side_range(2.0, 5.0).high, ordered_bits(5.0 + 0.001));
    EXPECT_EQ(side_range(5.0, 2.0).low, ordered_bits(2.0 - 0.001));
    EXPECT_EQ(side_range(5.0, 2.0).high, ordered_bits(5.0 + 0.001));
    EXPECT_EQ(side_range(3.0, 3.0).low, ordered_bits(3.0 - 0.001));
    EXPECT_EQ(side_range(3.0, 3.0).high, ordered_bits(3.0 + 0.001));
}

TEST(SideRange, HoldsItsLimits)
{
    const plcalc::SideRange range = {ordered_bits(2.0), ordered_bits(5.0)};
    EXPECT_TRUE(range.holds(2.0));
    EXPECT_TRUE(range.holds(5.0));
    EXPECT_FALSE(range.holds(test::down(2.0)));
    EXPECT_FALSE(range.holds(test::up(5.0)));
    EXPECT_FALSE(range.holds(kNan));
    EXPECT_FALSE(range.holds(-kNan));
}

TEST(SideRange, HoldsNothingWhenALimitIsNoNumber)
{
    for (const double nan : {kNan, -kNan})
        for (const double v : {0.0, 2.0, nan, std::numeric_limits<double>::infinity()}) {
            EXPECT_FALSE(side_range(nan, 2.0).holds(v));
            EXPECT_FALSE(side_range(2.0, nan).holds(v));
            EXPECT_FALSE(side_range(nan, nan).holds(v));
        }
}

}  // namespace
