// Things in the plane, found by where they lie.

#include "boundary/box_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace {

using plparcel::Box;
using plparcel::Reach;

constexpr std::size_t kCount = 40;

// Of points in a row, a unit apart.
struct BoxOfPoint {
    Box operator()(std::size_t i) const
    {
        const PL_PNT2D_record p = {static_cast<double>(i), 0.0};
        return {p, p};
    }
};

// Those that it tells of, a unit below the way from 10 to 20, until there are so many.
std::vector<std::size_t> told(double distance, std::size_t most)
{
    std::vector<std::size_t> points(kCount);
    std::iota(points.begin(), points.end(), std::size_t{0});
    const plparcel::BoxTree<std::size_t, BoxOfPoint> tree(points);
    std::vector<std::size_t> found;
    tree.near(Reach({10.0, 1.0}, {20.0, 1.0}), distance, [&](std::size_t i) {
        found.push_back(i);
        return found.size() < most;
    });
    return found;
}

TEST(BoxTree, TellsOfAllThatLieWithinTheDistance)
{
    const std::vector<std::size_t> found = told(2.0, kCount + 1);
    for (std::size_t i = 9; i <= 21; ++i)
        EXPECT_EQ(std::count(found.begin(), found.end(), i), 1) << i;
    EXPECT_TRUE(told(0.9, kCount + 1).empty());
}

TEST(BoxTree, StopsWhenItIsTold)
{
    for (std::size_t most = 1; most <= kCount; ++most)
        EXPECT_EQ(told(100.0, most).size(), most);
}

// Doubles have steps of a quarter there, and the middle of a box of a quarter is rounded to one of its ends. From the line
// under 45 degrees the near corner is 1.25 / sqrt(2) = 0.884 away, but 0.97 with the other end for the middle.
TEST(BoxTree, RoundingsCutNothingOff)
{
    for (const double way : {1.0, -1.0})
        for (const double far : {0x1p50, -0x1p50 - 8.0}) {
            const Reach north({0.0, far}, {way, far + 1.0});
            const double corner = far + 1.25;
            EXPECT_TRUE(north.comes_near({{0.0, corner}, {0.0, corner + 0.25}}, 0.9)) << way << ' ' << far;
            const Reach east({far, 0.0}, {far + 1.0, way});
            EXPECT_TRUE(east.comes_near({{corner, 0.0}, {corner + 0.25, 0.0}}, 0.9)) << way << ' ' << far;
        }
}

}  // namespace
