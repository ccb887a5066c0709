#include "lines/trapeziums.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

#include "boundary/joined_rings.h"
#include "boundary/local_ring.h"
#include "support/bits.h"
#include "support/parcel_kinds.h"

namespace {

using plparcel::along_at;
using plparcel::Ring;
using plparcel::Trapezium;
using plparcel::trapeziums;
using plparcel::Wide;
using plparcel::WidePoint;

std::vector<WidePoint> wide(const Ring& ring)
{
    std::vector<WidePoint> points;
    for (const PL_PNT2D_record& p : ring)
        points.push_back({p.x, p.y});
    return points;
}

struct Expected {
    std::size_t left;
    std::size_t right;
    double low;
    double high;
};

void expect_trapeziums(const char* what, const Ring& ring, const std::vector<Expected>& wanted)
{
    SCOPED_TRACE(what);
    const std::vector<Trapezium> found = trapeziums(wide(ring));
    ASSERT_EQ(found.size(), wanted.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_EQ(found[i].left, wanted[i].left) << i;
        EXPECT_EQ(found[i].right, wanted[i].right) << i;
        EXPECT_BITS(found[i].low.value(), wanted[i].low);
        EXPECT_BITS(found[i].high.value(), wanted[i].high);
    }
}

TEST(Trapeziums, ReachFromVertexToVertex)
{
    expect_trapeziums("a square is one", {{0, 0}, {9, 0}, {9, 9}, {0, 9}}, {{3, 1, 0, 9}});
    expect_trapeziums("clockwise", {{0, 9}, {9, 9}, {9, 0}, {0, 0}}, {{3, 1, 0, 9}});
    expect_trapeziums("a triangle, two", {{0, 0}, {9, 4}, {5, 9}}, {{2, 0, 0, 4}, {2, 1, 4, 9}});
    // The right arm ends at 8, the left one at 5: that makes no rim in the right one.
    const Ring u = {{0, 0}, {9, 0}, {9, 8}, {6, 8}, {6, 3}, {4, 3}, {4, 5}, {0, 5}};
    expect_trapeziums("a U", u, {{7, 1, 0, 3}, {7, 5, 3, 5}, {3, 1, 3, 8}});
    Ring upside_down;
    for (const PL_PNT2D_record& p : u)
        upside_down.push_back({p.x, -p.y});
    expect_trapeziums("upside down", upside_down, {{3, 1, -8, -3}, {7, 5, -5, -3}, {7, 1, -3, 0}});
    expect_trapeziums("two feet, each on a vertex", {{4, 3}, {8, 0}, {4, 9}, {0, 0}},
                      {{2, 3, 0, 3}, {0, 1, 0, 3}, {2, 1, 3, 9}});
}

// Beside a hole the inside goes on for ever: only its bays count, and they end where one of their two sides does.
//     .   .---.
//     |\  |   |
//     | \/    |      the bay from 4 to 7, its left side goes on to 9
//     '-------'
TEST(Trapeziums, OfAHoleAreItsBays)
{
    const std::vector<WidePoint> hole = wide({{0, 0}, {0, 9}, {2, 4}, {4, 7}, {9, 7}, {9, 0}});
    const plparcel::JoinedRings one(Ring(hole.size()));
    const std::vector<Trapezium> found = trapeziums(hole, one);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].left, 1U);
    EXPECT_EQ(found[0].right, 2U);
    EXPECT_BITS(found[0].low.value(), 4.0);
    EXPECT_BITS(found[0].high.value(), 7.0);
}

//                1     The boundary crosses itself at the level 4.85. What lies right of that runs the other way
//   3 --       / |     round: the upright side 1 would be a left one, with nothing on its right.
//   |     -- /   |
//   |      /  -- 2
//   |   /
//   0 /
TEST(Trapeziums, AnEarThatRunsTheOtherWayRoundHasNone)
{
    expect_trapeziums("crossed", {{0, 0}, {9, 9}, {9, 3}, {0, 7}}, {{3, 0, 0, 3}, {3, 2, 3, 7}});
}

//  6 -------- 5 3 -------- 2     A gap from above, 2^-70 wide where it begins, slants down to 4: its sides are told
//  |           \\            |     apart in 106 bits only. Above and below the level 0.
//  |             4           |
//  0 ----------------------- 1
TEST(Trapeziums, OnBothSidesOfAGapThatDoublesCannotSee)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-90.0, 90.0);
    for (int i = 0; i < 1000; ++i) {
        const double low = i % 2 == 0 ? -200.0 : 0.0;
        const double mouth = any(random);
        const WidePoint tip = {any(random), low + 100.0 + any(random)};
        const Wide high = low + 200.0;
        const std::vector<WidePoint> ring = {
            {-100.0, low}, {100.0, low},  {100.0, high}, {Wide(mouth) + 0x1p-70, high},
            tip,           {mouth, high}, {-100.0, high}};
        const std::vector<Trapezium> found = trapeziums(ring);
        ASSERT_EQ(found.size(), 3U) << i;
        EXPECT_TRUE(found[0].left == 6 && found[0].right == 1) << i << ": below the gap";
        EXPECT_TRUE(found[1].left == 6 && found[1].right == 4) << i << ": on its left";
        EXPECT_TRUE(found[2].left == 3 && found[2].right == 1) << i << ": on its right";
    }
}

//           2 ----- 1     A strip that rises by 1.2e-12 along its length, and is 8.7e-19 high: along a level its long sides
//   3 ----- ```````       are a millionth apart, and doubles tell only a thousandth.
//   0 ---
TEST(Trapeziums, BetweenSidesAllButLevelThatDoublesCannotTellApart)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    constexpr double kRise = 0x1.5555555555555p-40;
    constexpr double kHigh = 0x1p-60;
    for (int i = 0; i < 1000; ++i) {
        const Wide low = Wide(any(random)) + any(random) * 0x1p-54;
        const std::vector<WidePoint> ring = {{0.0, low},
                                             {1.0, low + kRise},
                                             {0.75, low + 0.75 * kRise + kHigh},
                                             {0.25, low + 0.25 * kRise + kHigh}};
        const std::vector<Trapezium> found = trapeziums(ring);
        ASSERT_EQ(found.size(), 3U) << i;
        for (std::size_t k = 0; k < found.size(); ++k) {
            EXPECT_EQ(found[k].left, 3 - k) << i;
            EXPECT_EQ(found[k].right, 0U) << i;
        }
    }
}

// Levels 2^-66 of all levels apart are as good as one.
TEST(Trapeziums, BetweenLevelsNextToEachOtherThereAreNone)
{
    const Ring thin = {{0, 0}, {8, 0}, {9, 0x1p-66}, {8, 1}, {0, 1}};
    expect_trapeziums("thin", thin, {{4, 2, 0x1p-66, 1}});
    const double more = std::nextafter(0x1p-66, 1.0);
    const Ring thick = {{0, 0}, {8, 0}, {9, more}, {8, 1}, {0, 1}};
    expect_trapeziums("thick", thick, {{4, 1, 0, more}, {4, 2, more, 1}});
}

Wide area_of(const std::vector<WidePoint>& ring, const Trapezium& t)
{
    const Wide low = along_at(ring, t.right, t.low) - along_at(ring, t.left, t.low);
    const Wide high = along_at(ring, t.right, t.high) - along_at(ring, t.left, t.high);
    return (low + high) * (t.high - t.low) * 0.5;
}

// They fill the ring, and a line in the middle of one runs from its left side to its right one undisturbed.
void expect_right_this_way_up(const Ring& points)
{
    const plparcel::MeasuredRing measured(points);
    const plparcel::LocalRing local(measured);
    std::vector<WidePoint> ring;
    for (std::size_t i = 0; i < local.size(); ++i)
        ring.push_back(local.at(i));
    const std::vector<Trapezium> all = trapeziums(ring);
    Wide sum;
    for (const Trapezium& t : all) {
        ASSERT_TRUE(t.low < t.high);
        const Wide middle = (t.low + t.high) * 0.5;
        const Wide left = along_at(ring, t.left, middle);
        const Wide right = along_at(ring, t.right, middle);
        EXPECT_TRUE(left < right);
        for (std::size_t side = 0; side < ring.size(); ++side) {
            if ((ring[side].y < middle) == (plparcel::around(ring, side + 1).y < middle))
                continue;
            const Wide along = along_at(ring, side, middle);
            EXPECT_FALSE(left < along && along < right) << side;
        }
        sum = sum + area_of(ring, t);
    }
    const Wide area = local.area_to_local(measured.area());
    EXPECT_LE(std::fabs((sum - area).value()), 1e-28 * area.value());
    EXPECT_LE(all.size(), ring.size());
}

void expect_right(Ring ring)
{
    constexpr int kQuarterTurns = 4;
    for (int i = 0; i < kQuarterTurns; ++i) {
        expect_right_this_way_up(ring);
        for (PL_PNT2D_record& p : ring)
            p = {-p.y, p.x};
    }
}

TEST(Trapeziums, FillTheRing)
{
    // Sides that end at a level where others begin, and prolonged would lie among those.
    expect_right({{7, 1}, {8, 3}, {8, 0}, {4, 1}, {1, 1}, {1, 5}, {1, 7}, {4, 4}, {6, 3}, {9, 8}});

    std::mt19937_64 random = test::random_source();
    for (const test::ParcelKind& kind : test::parcel_kinds()) {
        SCOPED_TRACE(kind.name);
        for (int i = 0; i < 100; ++i)
            expect_right(kind.make(random));
    }
    // Whole coordinates: many vertices at one level.
    for (int i = 0; i < 20000; ++i) {
        Ring ring;
        for (int n = 3 + i % 6; n > 0; --n)
            ring.push_back(
                {1.0 * static_cast<double>(random() % 6), 1.0 * static_cast<double>(random() % 6)});
        if (plparcel::check_ring(ring).status == plparcel::BoundaryStatus::usable &&
            plparcel::check_ring(ring).repeated == 0 && !plparcel::check_ring(ring).closed)
            expect_right(ring);
    }
}

}  // namespace
