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

}  // namespace
