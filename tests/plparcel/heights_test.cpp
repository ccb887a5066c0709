#include "plparcel/heights.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <random>

#include <gtest/gtest.h>

namespace {

using plparcel::Heights;
using plparcel::Parcel;
using plparcel::Ring;

const double kNone = std::nan("");

//  40 ----------- none
//  |   1 --- 2    |
//  |   3 --- none |
//  10 ----------- 20
const Parcel kHigh = {{{0, 0}, {100, 0}, {100, 50}, {0, 50}}, {{{20, 40}, {40, 40}, {40, 30}, {20, 30}}}};
const std::vector<double> kHeights = {10, 20, kNone, 40, 1, 2, INFINITY, 3};

TEST(Heights, ChangeEvenlyAlongASide)
{
    const Heights heights(kHigh, kHeights);
    const struct {
        const char* what;
        PL_PNT2D_record p;
        std::optional<double> height;
    } rows[] = {
        {"a vertex", {0, 0}, 10.0},
        {"a vertex without a height", {100, 50}, {}},
        {"the last vertex of a ring", {0, 50}, 40.0},
        {"a quarter of a side", {25, 0}, 12.5},
        {"three quarters", {75, 0}, 17.5},
        {"a tenth", {10, 0}, 11.0},
        {"the side that closes the ring", {0, 40}, 34.0},
        {"a side with one height", {100, 25}, {}},
        {"inside", {50, 25}, {}},
        {"a vertex of the hole", {20, 40}, 1.0},
        {"half of a side of the hole", {30, 40}, 1.5},
        {"the side that closes the hole", {20, 35}, 2.0},
        {"an infinite height is none", {40, 30}, {}},
        {"in the hole", {30, 35}, {}},
        {"just beyond a vertex", {-0.0009, 0}, 10.0},
        {"just beyond, with one height only", {100.0005, -1e-4}, 20.0},
        {"just inside a millimetre", {25, 9.9e-4}, 12.5},
        {"on a millimetre", {25, -1e-3}, 12.5},
        {"just outside a millimetre", {25, -1.01e-3}, {}},
        {"nowhere", {kNone, 0}, {}},
        {"at no level", {0, kNone}, {}},
        {"infinitely far away", {INFINITY, 0}, {}},
        {"very far away", {1e300, -1e300}, {}},
    };
    for (const auto& row : rows) {
        const std::optional<double> height = heights.at(row.p);
        ASSERT_EQ(height.has_value(), row.height.has_value()) << row.what;
        EXPECT_NEAR(height.value_or(0.0), row.height.value_or(0.0), 1e-12) << row.what;
    }
}

TEST(Heights, OfPointsAsNearAsTheirDecimalsOrTheParcelSay)
{
    EXPECT_TRUE(Heights(kHigh, kHeights, 2).at({25, 0.0099}));
    EXPECT_FALSE(Heights(kHigh, kHeights, 2).at({25, 0.0101}));
    EXPECT_FALSE(Heights(kHigh, kHeights, 4).at({25, 0.0011})) << "never less than a millimetre";
    EXPECT_TRUE(Heights(kHigh, kHeights, 4).at({25, 0.0009}));
    EXPECT_FALSE(Heights(kHigh, kHeights, INT_MAX).at({25, 0.0011}));
    EXPECT_TRUE(Heights(kHigh, kHeights, INT_MIN).at({50, -1e6})) << "everything is near";
    EXPECT_TRUE(Heights(kHigh, kHeights, 4, 0.5).at({25, 0.4999}));
    EXPECT_FALSE(Heights(kHigh, kHeights, 4, 0.5).at({25, 0.5001}));
    EXPECT_FALSE(Heights(kHigh, kHeights, 4, kNone).at({25, 0.0011}));
    // A millionth of the extent, wherever the ring begins.
    Ring large = {{0, 0}, {2000, 0}, {4000, 0}, {4000, 3000}, {0, 3000}};
    for (std::size_t i = 0; i < large.size(); ++i) {
        const Heights far({large, {}}, {1, 1, 1, 1, 1});
        EXPECT_TRUE(far.at({1000, -0.0039}));
        EXPECT_FALSE(far.at({1000, -0.0041}));
        std::rotate(large.begin(), large.begin() + 1, large.end());
    }
}

TEST(Heights, OnShortSidesAndBesideVerticesThatRepeat)
{
    const Heights narrow({{{0, 0}, {0.2, 0}, {0.2, 50}, {0, 50}}, {}}, {10, 20, 20, 10});
    EXPECT_NEAR(narrow.at({0.05, 0}).value(), 12.5, 1e-12);
    const Heights twice({{{0, 0}, {0, 0}, {100, 0}, {100, 50}, {0, 50}}, {}}, {10, 11, 20, 20, 10});
    EXPECT_EQ(twice.at({0, 0}), 10.0) << "the first of those at one place";
    EXPECT_NEAR(twice.at({25, 0}).value(), 13.25, 1e-12);
    const Heights touched({{{0, 0}, {100, 0}, {100, 50}, {0, 50}}, {{{50, 0}, {60, 20}, {40, 20}}}},
                          {10, 20, 20, 10, 1, 2, 3});
    EXPECT_EQ(touched.at({50, 0}), 1.0) << "a hole's vertex on the outer ring has its own";
}

//   4 3 2 -------- 1 ---------- 0    Two long sides, 8 apart, and a point in the middle. Neither is nearer: it has the height
//   |               o           |    of the one that the ring names first, wherever it lies.
//   5 ------------- 6 -- 7 - 8 -9
TEST(Heights, OfTwoSidesAsNearTheFirstCounts)
{
    Ring ring = {{100, 8}, {40, 8}, {20, 8}, {10, 8}, {0, 8}, {0, 0}, {60, 0}, {80, 0}, {90, 0}, {100, 0}};
    std::vector<double> heights = {1, 1, 1, 1, 1, 2, 2, 2, 2, 2};
    EXPECT_EQ(Heights({ring, {}}, heights, {}, 5.0).at({50, 4}), 1.0);
    std::rotate(ring.begin(), ring.begin() + 5, ring.end());
    std::rotate(heights.begin(), heights.begin() + 5, heights.end());
    EXPECT_EQ(Heights({ring, {}}, heights, {}, 5.0).at({50, 4}), 2.0);
}

TEST(Heights, OfListsThatAreTooShort)
{
    const Heights first(kHigh, {10, 20});
    EXPECT_EQ(first.at({100, 0}), 20.0);
    EXPECT_FALSE(first.at({0, 50}));
    EXPECT_FALSE(Heights(kHigh, {}).at({0, 0}));
    EXPECT_FALSE(Heights({}, {1, 2, 3}).at({0, 0}));
    const Heights broken({{{kNone, 0}, {100, 0}, {100, 50}}, {}}, {1, 2, 3});
    EXPECT_NEAR(broken.at({100, 25}).value(), 2.5, 1e-12);
    EXPECT_FALSE(broken.at({kNone, 0}));
    EXPECT_FALSE(Heights({{{INFINITY, 0}, {100, 0}, {100, 50}}, {}}, {1, 2, 3}).at({INFINITY, 0}));
    EXPECT_FALSE(Heights({{{0, INFINITY}, {100, 0}, {100, 50}}, {}}, {1, 2, 3}).at({0, INFINITY}));
    const Heights one({{{0, 0}, {100, 0}, {100, 50}, {0, 50}}, {}}, {10});
    EXPECT_EQ(one.at({-5e-4, -1e-4}), 10.0) << "beside the first vertex, the only one with a height";
}

// Against the nearest of all sides, one after another: a star of thousands of vertices, whose heights rise with the angle.
TEST(Heights, TheNearestOfManySides)
{
    constexpr std::size_t kCount = 2000;
    constexpr double kTurn = 6.283185307179586;
    std::mt19937_64 chance(19);
    std::uniform_real_distribution<double> far(50.0, 90.0);
    Parcel star;
    std::vector<double> heights;
    for (std::size_t i = 0; i < kCount; ++i) {
        const double angle = kTurn * static_cast<double>(i) / kCount;
        const double radius = far(chance);
        star.outer.push_back({radius * std::cos(angle), radius * std::sin(angle)});
        heights.push_back(static_cast<double>(i));
    }
    const Heights known(star, heights);
    std::uniform_real_distribution<double> part(0.0, 1.0);
    for (std::size_t i = 0; i + 1 < kCount; ++i) {
        const double along = part(chance);
        const PL_PNT2D_record& a = star.outer[i];
        const PL_PNT2D_record& b = star.outer[i + 1];
        const std::optional<double> height = known.at({a.x + along * (b.x - a.x), a.y + along * (b.y - a.y)});
        ASSERT_TRUE(height) << i;
        EXPECT_NEAR(*height, static_cast<double>(i) + along, 1e-9) << i;
    }
}

}  // namespace
