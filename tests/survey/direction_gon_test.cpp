#include "survey/direction_gon.h"

#include "support/bits.h"

namespace {

TEST(DirectionGon, AxesAndDiagonal)
{
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {5, 1}), 0.0);
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {1, 5}), 90.0 * 1.1111111111111112);
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {-5, 1}), 180.0 * 1.1111111111111112);
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {1, -5}), 270.0 * 1.1111111111111112);
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {1, 1}), 0.0);
}

}  // namespace
