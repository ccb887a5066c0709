#include "survey/extent.h"

#include <limits>

#include "support/bits.h"

namespace {

using plcalc::extent_between;

TEST(Extent, WidenedByAMillimetre)
{
    EXPECT_BITS(extent_between(2.0, 5.0).low, 2.0 - 0.001);
    EXPECT_BITS(extent_between(2.0, 5.0).high, 5.0 + 0.001);
    EXPECT_BITS(extent_between(5.0, 2.0).low, 2.0 - 0.001);
    EXPECT_BITS(extent_between(5.0, 2.0).high, 5.0 + 0.001);
    EXPECT_BITS(extent_between(3.0, 3.0).low, 3.0 - 0.001);
    EXPECT_BITS(extent_between(3.0, 3.0).high, 3.0 + 0.001);
}

TEST(Extent, HoldsItsLimits)
{
    const plcalc::Extent extent = {2.0, 5.0};
    EXPECT_TRUE(extent.holds(2.0));
    EXPECT_TRUE(extent.holds(5.0));
    EXPECT_FALSE(extent.holds(test::down(2.0)));
    EXPECT_FALSE(extent.holds(test::up(5.0)));
    EXPECT_FALSE(extent.holds(std::numeric_limits<double>::quiet_NaN()));
}

}  // namespace
