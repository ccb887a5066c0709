// Where a line parts a ring, and where it does not. Every figure is from the drawing board.

#include "answers/pieces.h"

#include <algorithm>

#include "support/bits.h"

namespace {

using Ring = std::vector<PL_PNT2D_record>;
using tool::part_ring;

constexpr long double kSlack = 0.0015L;

const Ring kRectangle = {{0, 0}, {100, 0}, {100, 50}, {0, 50}};

//   U, open to the North, its arms 10 wide and its bottom 5 deep
const Ring kU = {{0, 0}, {30, 0}, {30, 20}, {20, 20}, {20, 5}, {10, 5}, {10, 20}, {0, 20}};

Ring reversed(Ring ring)
{
    std::reverse(ring.begin(), ring.end());
    return ring;
}

TEST(Pieces, SignedAreaFollowsTheDirection)
{
    EXPECT_EQ(tool::signed_area(kRectangle), 5000.0L);
    EXPECT_EQ(tool::signed_area(reversed(kRectangle)), -5000.0L);
    EXPECT_EQ(tool::signed_area(kU), 30.0L * 5 + 2 * 10 * 15);
    EXPECT_EQ(tool::signed_area({}), 0.0L);
    EXPECT_EQ(tool::signed_area({{1, 2}}), 0.0L);
    EXPECT_EQ(tool::signed_area({{1, 2}, {3, 4}}), 0.0L);
    EXPECT_EQ(tool::signed_area({{5e6, 5e6}, {5e6 + 1, 5e6}, {5e6 + 1, 5e6 + 1}}), 0.5L);
}

struct PartedRow {
    const char* what;
    Ring ring;
    PL_PNT2D_record p, q;
};

const PartedRow kParted[] = {
    {"level line to the East", kRectangle, {0, 10}, {100, 10}},
    {"the same to the West", kRectangle, {100, 10}, {0, 10}},
    {"ring clockwise: the ring goes up on the left", reversed(kRectangle), {0, 10}, {100, 10}},
    {"from a vertex", kRectangle, {0, 0}, {100, 20}},
    {"from vertex to vertex", kRectangle, {0, 0}, {100, 50}},
    {"between neighbouring sides", kRectangle, {90, 0}, {100, 10}},
    {"through one arm of the U", kU, {0, 10}, {10, 10}},
    {"from a reflex vertex down", kU, {10, 5}, {10, 0}},
    {"from a reflex vertex across the arm", kU, {10, 5}, {0, 5}},
    {"collinear vertex at the line's end",
     {{0, 0}, {40, 0}, {100, 0}, {100, 50}, {0, 50}},
     {40, 0},
     {40, 50}},
    {"repeated vertex at the line's end",
     {{0, 0}, {40, 0}, {40, 0}, {100, 0}, {100, 50}, {0, 50}},
     {40, 0},
     {40, 50}},
};

TEST(Pieces, PartsRings)
{
    for (const PartedRow& row : kParted) {
        SCOPED_TRACE(row.what);
        PL_LINE_2D_record ends = {};
        if (!part_ring(row.ring, row.p, row.q, kSlack, ends)) {
            ADD_FAILURE();
            continue;
        }
        EXPECT_POINT(ends.start, (row.p));
        EXPECT_POINT(ends.end, (row.q));
    }
}

struct RefusedRow {
    const char* what;
    Ring ring;
    PL_PNT2D_record p, q;
};

const RefusedRow kRefused[] = {
    {"no length", kRectangle, {0, 10}, {0, 10}},
    {"end inside", kRectangle, {0, 10}, {99, 10}},
    {"end outside", kRectangle, {0, 10}, {101, 10}},
    {"beside the ring", kRectangle, {0, 60}, {100, 60}},
    {"along a side", kRectangle, {0, 0}, {100, 0}},
    {"part of a side", kRectangle, {20, 0}, {80, 0}},
    {"through the gap of the U", kU, {0, 10}, {30, 10}},
    {"through a gap next to an end",
     {{0, 0}, {30, 0}, {30, 20}, {0.01, 20}, {0.01, 5}, {0.001, 5}, {0.001, 20}, {0, 20}},
     {0, 10},
     {30, 10}},
    {"across the gap only", kU, {10, 10}, {20, 10}},
    {"outside, from top to top", kU, {10, 20}, {20, 20}},
    {"along the floor of the gap and on", kU, {0, 5}, {30, 5}},
    {"touching a reflex corner on its way",
     {{0, 0}, {20, 0}, {20, 20}, {10, 10}, {0, 20}},
     {0, 10},
     {20, 10}},
    {"not a number", kRectangle, {0, std::numeric_limits<double>::quiet_NaN()}, {100, 10}},
    {"infinite", kRectangle, {0, 10}, {std::numeric_limits<double>::infinity(), 10}},
};

TEST(Pieces, RefusesWhatDoesNotPartInTwo)
{
    for (const RefusedRow& row : kRefused) {
        SCOPED_TRACE(row.what);
        PL_LINE_2D_record ends = {};
        EXPECT_FALSE(part_ring(row.ring, row.p, row.q, kSlack, ends));
        EXPECT_FALSE(part_ring(reversed(row.ring), row.p, row.q, kSlack, ends));
        EXPECT_FALSE(part_ring(row.ring, row.q, row.p, kSlack, ends));
    }
}

// An end beside the boundary comes back to where the line meets it. Farther off it is no end.
TEST(Pieces, EndsComeBackAlongTheLine)
{
    PL_LINE_2D_record ends = {};
    ASSERT_TRUE(part_ring(kRectangle, {-0.001, 10}, {100.001, 10}, kSlack, ends));
    EXPECT_NEAR(ends.start.x, 0.0, 1e-12);
    EXPECT_NEAR(ends.end.x, 100.0, 1e-12);
    ASSERT_TRUE(part_ring(kRectangle, {0.001, 10}, {99.999, 10}, kSlack, ends));
    EXPECT_NEAR(ends.start.x, 0.0, 1e-12);
    EXPECT_NEAR(ends.end.x, 100.0, 1e-12);
    EXPECT_TRUE(part_ring(kRectangle, {-0.00149, 10}, {100, 10}, kSlack, ends));
    EXPECT_FALSE(part_ring(kRectangle, {-0.00151, 10}, {100, 10}, kSlack, ends));
    EXPECT_FALSE(part_ring(kRectangle, {0, 10}, {100.00151, 10}, kSlack, ends));
    EXPECT_FALSE(part_ring(kRectangle, {0, 10}, {99.99849, 10}, kSlack, ends));
}

TEST(Pieces, LeavesTheResultAloneWhenItRefuses)
{
    PL_LINE_2D_record ends = {};
    ends.start = {test::kUntouched, test::kUntouched};
    ends.end = {77, 78};
    EXPECT_FALSE(part_ring(kU, {0, 10}, {30, 10}, kSlack, ends));
    EXPECT_POINT(ends.start, ({test::kUntouched, test::kUntouched}));
    EXPECT_POINT(ends.end, ({77, 78}));
}

}  // namespace
