#include "plparcel/extent.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using plparcel::coordinate_spacing;
using plparcel::Extent;
using plparcel::extent_of;

TEST(Extent, IsTheBoxAroundTheVertices)
{
    const Extent extent = extent_of({{4.0, 1.0}, {-2.0, 8.0}, {3.0, -5.0}, {1.0, 2.0}});
    EXPECT_EQ(extent.low.x, -2.0);
    EXPECT_EQ(extent.low.y, -5.0);
    EXPECT_EQ(extent.high.x, 4.0);
    EXPECT_EQ(extent.high.y, 8.0);
    EXPECT_EQ(extent.width(), 6.0);
    EXPECT_EQ(extent.height(), 13.0);
    EXPECT_EQ(extent.largest(), 13.0);
}

TEST(Extent, TakesTheWidthWhereThatIsLarger)
{
    EXPECT_EQ(extent_of({{0.0, 0.0}, {7.0, 3.0}}).largest(), 7.0);
}

TEST(Extent, OfOneVertexIsThatVertex)
{
    const Extent extent = extent_of({{500000.25, 5500000.5}});
    EXPECT_EQ(extent.low.x, 500000.25);
    EXPECT_EQ(extent.high.y, 5500000.5);
    EXPECT_EQ(extent.largest(), 0.0);
}

TEST(Extent, OfNothingIsTheOrigin)
{
    const Extent extent = extent_of({});
    EXPECT_EQ(extent.low.x, 0.0);
    EXPECT_EQ(extent.high.y, 0.0);
}

TEST(Extent, BeyondTheLargestDoubleIsInfinite)
{
    EXPECT_TRUE(std::isinf(extent_of({{-1e308, 0.0}, {1e308, 0.0}}).largest()));
}

TEST(CoordinateSpacing, IsThatOfTheLargestCoordinateWhateverItsSign)
{
    const double above_2_22 = std::nextafter(4194304.0, 1e9) - 4194304.0;
    EXPECT_EQ(coordinate_spacing({{500000.0, 4194304.0}, {1.0, 2.0}}), above_2_22);
    EXPECT_EQ(coordinate_spacing({{1.0, 2.0}, {-4194304.0, 5.0}}), above_2_22);
    EXPECT_EQ(coordinate_spacing({}), 0.0);
}

// At the end of a binade it is all but twice the room that there is.
TEST(CoordinateSpacing, IsNeverLessThanTheRoomBetweenDoubles)
{
    for (const double x : {1.0, 1.5, 1.9999999, 5499999.75, 1e90, 1e-90})
        EXPECT_GE(coordinate_spacing({{x, 0.0}}), std::nextafter(x, std::numeric_limits<double>::max()) - x);
}

}  // namespace
