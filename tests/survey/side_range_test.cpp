#include "survey/side_range.h"

#include <limits>

#include "support/bits.h"

namespace {

using plcalc::side_range;

TEST(SideRange, WidenedByAMillimetre)
{
    EXPECT_BITS(side_range(2.0, 5.0).low, 2.0 - 0.001);
    EXPECT_BITS(side_range(2.0, 5.0).high, 5.0 + 0.001);
    EXPECT_BITS(side_range(5.0, 2.0).low, 2.0 - 0.001);
    EXPECT_BITS(side_range(5.0, 2.0).high, 5.0 + 0.001);
    EXPECT_BITS(side_range(3.0, 3.0).low, 3.0 - 0.001);
    EXPECT_BITS(side_range(3.0, 3.0).high, 3.0 + 0.001);
}

TEST(SideRange, HoldsItsLimits)
{
    const plcalc::SideRange range = {2.0, 5.0};
    EXPECT_TRUE(range.holds(2.0));
    EXPECT_TRUE(range.holds(5.0));
    EXPECT_FALSE(range.holds(test::down(2.0)));
    EXPECT_FALSE(range.holds(test::up(5.0)));
    EXPECT_FALSE(range.holds(std::numeric_limits<double>::quiet_NaN()));
}

}  // namespace
