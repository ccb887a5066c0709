// The line with the decimals that are staked out.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "plparcel/division.h"
#include "plparcel/rounding.h"
#include "support/bits.h"
#include "support/rings.h"
#include "verdict/piece_net.h"

namespace {

using plparcel::Cut;
using plparcel::divide;
using plparcel::Division;
using plparcel::equal_parts;
using plparcel::Request;
using plparcel::Ring;
using plparcel::rounded_to;
using plparcel::share;
using plparcel::Status;

const Ring kLot = {{0, 0}, {100, 0}, {100, 50}, {0, 50}};
// No decimal number lies on its long sides.
const Ring kSlant = {{10, 20}, {131.7, 53.3}, {120.1, 97.4}, {-3.1, 61.9}};

const Ring kStrip = {{0, 0}, {100, 0}, {100, 0.3}, {0, 0.3}};
const Ring kFlat = {{0, 0}, {1000, 0}, {0, 1}};

Request request(Cut cut, std::size_t index, plparcel::Amount amount, int decimals, double tolerance = 1e-6)
{
    Request made;
    made.line = {cut, index};
    made.amounts = {amount};
    made.rounding.decimals = decimals;
    made.rounding.tolerance = tolerance;
    return made;
}

bool has_decimals(const PL_PNT2D_record& p, int decimals)
{
    return p.x == rounded_to(p.x, decimals) && p.y == rounded_to(p.y, decimals);
}

// 0.03 across, where y has steps of 9.3e-10.
const Ring kTiny = {{501377.85941864562, 5020476.2007296644},
                    {501377.83438809507, 5020476.187706654},
                    {501377.83714382054, 5020476.1833247645},
                    {501377.85422664776, 5020476.1934890747}};

struct StakedRow {
    const char* what;
    Ring ring;
    Request request;
    std::optional<int> decimals;
};

const StakedRow kStaked[] = {
    {"a line at 10, exactly", kLot, request(Cut::parallel, 0, plparcel::area(1000), 0), 0},
    {"a line at 12.345, as asked", kLot, request(Cut::parallel, 0, plparcel::area(1234.5), 3), 3},
    {"12.345 to a decimal misses by 1e-3 of the parcel", kLot,
     request(Cut::parallel, 0, plparcel::area(1234.5), 1), 3},
    {"and holds it to one decimal where so much is granted", kLot,
     request(Cut::parallel, 0, plparcel::area(1234.5), 1, 0.0011), 1},
    {"a third: 16.6667 misses by 6.7e-7", kLot, request(Cut::parallel, 0, share(1, 3), 4), 4},
    {"a third: 16.667 misses by 6.7e-6", kLot, request(Cut::parallel, 0, share(1, 3), 3), 4},
    {"a third: 16.667 is granted", kLot, request(Cut::parallel, 0, share(1, 3), 3, 6.7e-6), 3},
    {"a third: 16.667 is not quite granted", kLot, request(Cut::parallel, 0, share(1, 3), 3, 6.6e-6), 4},
    {"a hundredth of itself: 5e-4 high to four decimals", kLot,
     request(Cut::parallel, 0, plparcel::area(0.0548), 4, 0.01), 5},
    {"a strip of 0.3: 67 is both ends to whole numbers", kStrip,
     request(Cut::perpendicular, 0, share(1, 3), 0, 0.01), 1},
    {"a hill of 2 in 1000: to one decimal, 0.3 is 50 from where the line meets the slope", kFlat,
     request(Cut::parallel, 0, plparcel::area(218.75), 1, 0.01), 2},
    {"a sliver of 0.002 that fewer decimals make a line", kLot,
     request(Cut::through_vertex, 0, plparcel::area(0.1), 0, 0.01), 3},
    {"nine decimals are as coarse as doubles there", kTiny, request(Cut::parallel, 0, share(1, 2), 9, 2.7e-9),
     11},
    {"from a vertex with one decimal", kSlant, request(Cut::through_vertex, 1, share(1, 3), 4), 4},
};

TEST(StakedOut, HasAsFewDecimalsAsHoldTheAmounts)
{
    for (const StakedRow& row : kStaked) {
        SCOPED_TRACE(row.what);
        const Division division = divide(row.ring, row.request);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_EQ(division.decimals, row.decimals);
        for (const plparcel::DividingLine& line : division.lines) {
            EXPECT_TRUE(has_decimals(line.from, *row.decimals));
            EXPECT_TRUE(has_decimals(line.to, *row.decimals));
            ASSERT_EQ(line.segments.size(), 1u);
            EXPECT_BITS(line.segments[0].from.x, line.from.x);
            EXPECT_BITS(line.segments[0].from.y, line.from.y);
            EXPECT_BITS(line.segments[0].to.x, line.to.x);
            EXPECT_BITS(line.segments[0].to.y, line.to.y);
        }
    }
}

TEST(StakedOut, PiecesHaveTheRoundedEndsAsCorners)
{
    const Division division = divide(kLot, request(Cut::parallel, 0, share(1, 3), 4));
    ASSERT_EQ(division.status, Status::divided);
    EXPECT_POINT(division.lines[0].from, (PL_PNT2D_record{0, 16.6667}));
    EXPECT_POINT(division.lines[0].to, (PL_PNT2D_record{100, 16.6667}));
    EXPECT_NEAR(division.pieces[0].area, 1666.67, 1e-12 * 1666.67);
    EXPECT_NEAR(division.pieces[1].area, 3333.33, 1e-12 * 3333.33);
    EXPECT_NEAR(division.pieces[0].residual, 1666.67 - 5000.0 / 3.0, 1e-12);
    EXPECT_EQ(division.pieces[0].ring.size(), 4u);
}

TEST(StakedOut, EachPieceIsHeldOnce)
{
    const Division division = divide(kLot, request(Cut::parallel, 0, share(1, 3), 4));
    ASSERT_EQ(division.held.size(), 2u);
    EXPECT_EQ(division.held[0].area, division.pieces[0].area);
    EXPECT_EQ(division.held[1].area, division.pieces[1].area);
}

// From 0.3 beside a corner to 0.3 beside the one across; to whole numbers, from corner to corner.
TEST(StakedOut, AnEndThatIsRoundedOntoACornerBecomesThatCorner)
{
    for (std::size_t first = 0; first < kLot.size(); ++first) {
        Request half = request(Cut::through_place, (4 - first) % 4, share(1, 2), 0, 0.01);
        half.line.along = 0.3;
        const Division division = divide(test::begun_at(kLot, first), half);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_EQ(division.decimals, 0);
        EXPECT_POINT(division.lines[0].from, (PL_PNT2D_record{0, 0}));
        EXPECT_POINT(division.lines[0].to, (PL_PNT2D_record{100, 50}));
        for (const plparcel::Piece& piece : division.pieces) {
            EXPECT_EQ(piece.ring.size(), 3u);
            EXPECT_EQ(piece.area, 2500.0);
        }
    }
}

// The line runs through the hole's corner (10.4, 20.3) and out of it at (19.8, 20). To whole numbers both lie on its other
// corners, and nothing would be left of it.
TEST(StakedOut, AHoleKeepsItsCorners)
{
    const plparcel::Parcel parcel = {{{0, 0}, {100, 0}, {100, 100}, {0, 100}},
                                     {{{10, 20}, {20, 20}, {10.4, 20.3}}}};
    Request asked;
    asked.line = plparcel::along_segment({10.4, 20.3}, {19.8, 20});
    asked.amounts = {plparcel::area(100 * (20.3 - (50 - 10.4) * 0.3 / 9.4) - 0.5 * 9.8 * 0.3)};
    asked.rounding.decimals = 0;
    asked.rounding.tolerance = 0.01;
    asked.pieces = plparcel::Pieces::any;
    const Division division = divide(parcel, asked);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.decimals, 1);
    ASSERT_EQ(division.lines[0].segments.size(), 2U);
    EXPECT_POINT(division.lines[0].segments[0].to, (PL_PNT2D_record{10.4, 20.3}));
    EXPECT_POINT(division.lines[0].segments[1].from, (PL_PNT2D_record{19.8, 20}));
}

// The hole's lower side rises by 0.2 in 980. The line at 20.1 runs into the hole at its left side, and out of it again 500
// from the left. To whole numbers it would lie at 20, where it meets the lower side 490 farther on.
TEST(StakedOut, ALineMeetsTheSideOfAHoleNotFarFromItsEnd)
{
    const plparcel::Parcel parcel = {{{0, 0}, {1000, 0}, {1000, 100}, {0, 100}},
                                     {{{10, 20}, {990, 20.2}, {990, 80}, {10, 80}}}};
    Request asked;
    asked.amounts = {plparcel::area(20100 - 0.5 * 490 * 0.1)};
    asked.rounding = {0, 0.01};
    asked.pieces = plparcel::Pieces::any;
    for (std::size_t first = 0; first < parcel.outer.size(); ++first) {
        asked.line = plparcel::parallel_to((4 - first) % 4);
        const Division division =
            divide(plparcel::Parcel{test::begun_at(parcel.outer, first), parcel.holes}, asked);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_EQ(division.decimals, 1);
        ASSERT_EQ(division.lines[0].segments.size(), 2U);
        EXPECT_POINT(division.lines[0].segments[0].to, (PL_PNT2D_record{10, 20.1}));
        EXPECT_POINT(division.lines[0].segments[1].from, (PL_PNT2D_record{500, 20.1}));
    }
}

// The line of half the slope from (13/7, 2/7) to the left side: to whole numbers it runs from (2, 0), above which the
// left side has ended.
TEST(StakedOut, ALineThatWouldPassBeyondTheEndOfItsSideNeedsMoreDecimals)
{
    Request asked;
    asked.line = plparcel::along_segment({0, 0}, {2, 1});
    asked.amounts = {share(1, 7)};
    asked.rounding = {0, 0.01};
    const Division division = divide({{1, 2}, {2, 0}, {0, 0}}, asked);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.decimals, 2);
}

// A line that goes on along a side, from the L's inner corner.
TEST(StakedOut, ALineThatProlongsASide)
{
    const Ring l = {{0, 0}, {100, 0}, {100, 40}, {40, 40}, {40, 100}, {0, 100}};
    const Division division = divide(l, request(Cut::perpendicular, 4, plparcel::area(4000), 2));
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.decimals, 2);
    EXPECT_POINT(division.lines[0].from, (PL_PNT2D_record{40, 40}));
    EXPECT_POINT(division.lines[0].to, (PL_PNT2D_record{40, 0}));
}

// Half of a triangle of 1e-12 is 5e-25, and a hundred-millionth of that is less than 17 decimals can hold.
TEST(StakedOut, WhereNoDecimalsHoldItTheLineHasAllDigits)
{
    const Ring tiny = {{0, 0}, {1e-12, 0}, {0, 1e-12}};
    const Division division = divide(tiny, request(Cut::parallel, 0, share(1, 3), 17, 1e-8));
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_FALSE(division.decimals);
    EXPECT_NEAR(division.pieces[0].area, 1e-24 / 6, 1e-33);
}

// The left side leans by 3e-8 in 26, and the line due North meets it at that slant: from an end that is rounded to a decimal it
// lies far along the line, whatever decimal that is. The line is 1.52e-8 from the corner: 1.52e-8 * 13.2 / 2 = 1e-7.
TEST(StakedOut, ALineAlmostAlongASideHasAllDigits)
{
    Request sliver;
    sliver.line = plparcel::at_bearing(0);
    sliver.measured = plparcel::Measured::opposite;
    sliver.amounts = {plparcel::area(1e-7)};
    sliver.rounding = {3, 1e-6};
    const Division division = divide({{100, 100}, {150, 100}, {150, 126}, {100.00000003, 126}}, sliver);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_FALSE(division.decimals);
    EXPECT_NEAR(division.pieces[0].area, 1e-7, 1e-9);
    EXPECT_NEAR(division.lines[0].from.x, 100 + 1.519e-8, 1e-11);
    EXPECT_NEAR(division.lines[0].to.y, 113.166, 1e-2);
}

// A third of 4.5 where doubles are whole numbers: areas are multiples of a half, and 1.5 is one; a quarter, 1.125, is
// none.
TEST(StakedOut, WhereDoublesHoldNoSuchAmountItIsNotReached)
{
    const Ring whole = {{0x1p52, 0x1p52}, {0x1p52 + 3, 0x1p52}, {0x1p52, 0x1p52 + 3}};
    for (const double tolerance : {1e-9, 1e-3})
        EXPECT_EQ(divide(whole, request(Cut::through_vertex, 0, share(1, 4), 2, tolerance)).status,
                  Status::not_reached);
    EXPECT_EQ(divide(whole, request(Cut::through_vertex, 0, share(1, 3), 2)).status, Status::divided);
}

// A third of 4.5, along the level side: the line at 1.73 ends in whole numbers at (1, 2) and (2, 1). Below it lie 1.5, but
// prolonged to the boundary, as decimals ask for, it runs from (0, 3) to (1.5, 1.5), and 2.25 lie below.
TEST(StakedOut, ALineThatHoldsItOnlyBetweenItsEndsIsNotStakedOut)
{
    Request third;
    third.line = plparcel::along_segment({0, 0}, {3, 0});
    third.amounts = {share(1, 3)};
    const Ring whole = {{0x1p52, 0x1p52}, {0x1p52 + 3, 0x1p52 + 3}, {0x1p52, 0x1p52 + 3}};
    const Division found = divide(whole, third);
    ASSERT_EQ(found.status, Status::divided);
    EXPECT_POINT(found.lines[0].from, (PL_PNT2D_record{0x1p52 + 1, 0x1p52 + 2}));
    EXPECT_POINT(found.lines[0].to, (PL_PNT2D_record{0x1p52 + 2, 0x1p52 + 1}));
    third.rounding = {2, 0.01};
    EXPECT_EQ(divide(whole, third).status, Status::not_reached);
}

TEST(StakedOut, WithoutDecimalsTheLineHasAllDigits)
{
    Request all = request(Cut::parallel, 0, share(1, 3), 4);
    all.rounding.decimals.reset();
    const Division division = divide(kLot, all);
    ASSERT_EQ(division.status, Status::divided);
    EXPECT_FALSE(division.decimals);
    EXPECT_EQ(division.lines[0].from.y, 50.0 / 3.0);
}

//  +-----+     +-----+
//  |     |     |     |    1000 lie below the gap's foot
//  |     +-----+     |
//  +-----------------+
const plparcel::Parcel kGap = {{{0, 0}, {100, 0}, {100, 50}, {70, 50}, {70, 10}, {30, 10}, {30, 50}, {0, 50}},
                               {}};
const plparcel::Parcel kYard = {kLot, {{{40, 20}, {40, 30}, {60, 30}, {60, 20}}}};

// 0.3857 more lie below 10.00643; at 10.006 they would be 0.36, which misses by 8e-6 of the parcel.
TEST(StakedOut, EachEndOfAWholeLineIsRounded)
{
    Request whole = request(Cut::parallel, 0, plparcel::area(1000.3 + 60.0 / 700.0), 3);
    whole.pieces = plparcel::Pieces::any;
    const Division division = divide(kGap, whole);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.decimals, 4);
    ASSERT_EQ(division.lines[0].segments.size(), 2u);
    EXPECT_POINT(division.lines[0].segments[0].from, (PL_PNT2D_record{0, 10.0064}));
    EXPECT_POINT(division.lines[0].segments[0].to, (PL_PNT2D_record{30, 10.0064}));
    EXPECT_POINT(division.lines[0].segments[1].from, (PL_PNT2D_record{70, 10.0064}));
    EXPECT_POINT(division.lines[0].segments[1].to, (PL_PNT2D_record{100, 10.0064}));
    EXPECT_POINT(division.lines[0].from, (PL_PNT2D_record{0, 10.0064}));
    EXPECT_POINT(division.lines[0].to, (PL_PNT2D_record{100, 10.0064}));
    ASSERT_EQ(division.pieces.size(), 3u);
    EXPECT_EQ(division.pieces[0].amount, 0u);
    EXPECT_NEAR(division.held[0].area, 1000.384, 1e-9);
    EXPECT_EQ(division.held[1].pieces, 2u);
    EXPECT_NEAR(division.held[1].area, division.pieces[1].area + division.pieces[2].area, 1e-9);
    EXPECT_NEAR(division.pieces[1].residual, division.held[1].residual, 0.0);
}

// Across the yard, at 25: 80 times 0.0004 is 6.7e-6 of 4800.
TEST(StakedOut, ALineAcrossAHoleIsRoundedOnBothSidesOfIt)
{
    for (const plparcel::Pieces pieces : {plparcel::Pieces::two, plparcel::Pieces::any}) {
        Request half = request(Cut::parallel, 0, plparcel::area(2400.032), 3, 6.7e-6);
        half.pieces = pieces;
        const Division division = divide(kYard, half);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_EQ(division.decimals, 3);
        ASSERT_EQ(division.lines[0].segments.size(), 2u);
        EXPECT_POINT(division.lines[0].segments[0].to, (PL_PNT2D_record{40, 25}));
        EXPECT_POINT(division.lines[0].segments[1].from, (PL_PNT2D_record{60, 25}));
        EXPECT_EQ(division.pieces[0].area, 2400.0);
        EXPECT_NEAR(division.held[0].residual, -0.032, 1e-12);
        half.rounding.tolerance = 6.6e-6;
        EXPECT_EQ(divide(kYard, half).decimals, 4);
    }
}

// The yard lies beyond the line, and stays a hole of its piece.
TEST(StakedOut, AHoleBesideTheLineIsCounted)
{
    const Division division = divide(kYard, request(Cut::parallel, 0, share(1, 3), 2));
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_POINT(division.lines[0].from, (PL_PNT2D_record{0, 16}));
    EXPECT_EQ(division.pieces[0].area, 1600.0);
    EXPECT_EQ(division.pieces[1].area, 3200.0);
    EXPECT_EQ(division.pieces[1].holes.size(), 1u);
}

// The hole's tip lies at 25 and the line two tenths of a millimetre above: to three decimals the line would run into it.
TEST(StakedOut, ALineIsNotRoundedIntoAHole)
{
    const plparcel::Parcel tip = {kLot, {{{40, 20}, {50, 25}, {60, 20}}}};
    for (const plparcel::Pieces pieces : {plparcel::Pieces::two, plparcel::Pieces::any}) {
        Request asked = request(Cut::parallel, 0, plparcel::area(2450.02), 3, 0.01);
        asked.pieces = pieces;
        const Division division = divide(tip, asked);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_EQ(division.decimals, 4);
        EXPECT_EQ(division.lines[0].from.y, 25.0002);
    }
}

// Where a corner reaches up to the line, two segments end there; below lie two pieces.
TEST(StakedOut, ACornerThatReachesUpToTheLineIsAnEndOfBoth)
{
    const plparcel::Parcel notch = {
        {{0, 0}, {40, 0}, {50.00004, 25.00004}, {60, 0}, {100, 0}, {100, 50}, {0, 50}}, {}};
    Request asked = request(Cut::parallel, 5, plparcel::area(100 * 24.99996), 3, 1e-5);
    asked.pieces = plparcel::Pieces::any;
    const Division division = divide(notch, asked);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.decimals, 3);
    ASSERT_EQ(division.pieces.size(), 3u);
    ASSERT_EQ(division.lines[0].segments.size(), 2u);
    EXPECT_POINT(division.lines[0].segments[0].to, (PL_PNT2D_record{50, 25}));
    EXPECT_POINT(division.lines[0].segments[1].from, (PL_PNT2D_record{50, 25}));
    EXPECT_EQ(division.held[0].area, 2500.0);
}

// The ring's own way round, and that of its holes, stay.
TEST(StakedOut, ClockwisePiecesStayClockwise)
{
    plparcel::Parcel yard = {test::reversed(kLot), kYard.holes};
    const Division division = divide(yard, request(Cut::parallel, 2, share(1, 3), 2));
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_FALSE(plparcel::check_ring(division.pieces[0].ring).anticlockwise);
    EXPECT_TRUE(plparcel::check_ring(division.pieces[1].holes.at(0)).anticlockwise);
    EXPECT_EQ(division.pieces[0].area, 1600.0);
}

// Half of the lot by a line through (50.1, 25.1), and two quarters by lines from there: a corner of all four.
TEST(StakedOut, LinesThatGoRoundAPointMeetThere)
{
    Request quarters;
    quarters.line = plparcel::through_point({50.12345, 25.1}, 30);
    quarters.amounts = {share(1, 2), share(1, 4), share(1, 8)};
    quarters.rounding.decimals = 3;
    const Division division = divide(kLot, quarters);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    ASSERT_TRUE(division.decimals);
    const PL_PNT2D_record point = {rounded_to(50.12345, *division.decimals), 25.1};
    ASSERT_EQ(division.lines[0].segments.size(), 2u);
    EXPECT_POINT(division.lines[0].segments[0].to, (point));
    EXPECT_POINT(division.lines[1].from, (point));
    EXPECT_POINT(division.lines[2].from, (point));
    double all = 0.0;
    for (const plparcel::Piece& piece : division.pieces) {
        int times = 0;
        for (const PL_PNT2D_record& p : piece.ring)
            times += p.x == point.x && p.y == point.y ? 1 : 0;
        EXPECT_EQ(times, 1);
        EXPECT_NEAR(piece.area, piece.asked, 5000 * 1e-6);
        all += piece.area;
    }
    EXPECT_NEAR(all, 5000.0, 1e-9);  // all ends lie on the lot's level and upright sides
}

TEST(StakedOut, RoundingsThatMakeNoSenseAreRefused)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const int decimals : {-1, 18})
        EXPECT_EQ(divide(kLot, request(Cut::parallel, 0, share(1, 3), decimals)).status,
                  Status::unusable_rounding);
    for (const double tolerance : {0.0, -1e-6, 0.0100000001, nan})
        EXPECT_EQ(divide(kLot, request(Cut::parallel, 0, share(1, 3), 4, tolerance)).status,
                  Status::unusable_rounding);
    EXPECT_EQ(divide(kLot, request(Cut::parallel, 0, share(1, 3), 4, 0.01)).status, Status::divided);
    EXPECT_EQ(divide(kLot, request(Cut::parallel, 0, share(1, 3), 17)).status, Status::divided);
    Request whole = request(Cut::parallel, 0, share(1, 3), 18);
    whole.pieces = plparcel::Pieces::any;
    EXPECT_EQ(divide(kLot, whole).status, Status::unusable_rounding);
}

// Thirds from the middle of a side: half of 1667 more than the 2500 up to the corner, so 16.67 from the corner.
TEST(StakedOut, LinesFromAPointOnTheBoundary)
{
    const Ring square = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    Request thirds;
    thirds.line = plparcel::through_point({50, 0});
    thirds.amounts = plparcel::equal_parts(3);
    thirds.rounding = {2, 1e-4};
    const Division division = divide(square, thirds);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    ASSERT_EQ(division.lines.size(), 2U);
    EXPECT_EQ(division.decimals, 2);
    std::vector<double> ends;
    for (const plparcel::DividingLine& line : division.lines) {
        EXPECT_POINT(line.from, (PL_PNT2D_record{50, 0}));
        EXPECT_EQ(line.segments.size(), 1U);
        EXPECT_EQ(line.to.y, 100);
        ends.push_back(line.to.x);
    }
    std::sort(ends.begin(), ends.end());
    EXPECT_EQ(ends, (std::vector<double>{16.67, 83.33}));
}

// The point at which further lines start is a corner of all pieces, whichever way they run.
TEST(StakedOut, ThePointInsideIsACornerOfAllPieces)
{
    for (const bool clockwise : {false, true}) {
        for (const auto measured : {plparcel::Measured::from_reference, plparcel::Measured::opposite}) {
            Ring square = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
            if (clockwise)
                std::reverse(square.begin(), square.end());
            Request thirds;
            thirds.line = plparcel::through_point({40, 30}, 10);
            thirds.measured = measured;
            thirds.amounts = plparcel::equal_parts(3);
            thirds.rounding = {2, 1e-4};
            const Division division = divide(square, thirds);
            ASSERT_EQ(division.status, Status::divided) << describe(division);
            ASSERT_EQ(division.lines.size(), 2U);
            const PL_PNT2D_record& point = division.lines[1].from;
            EXPECT_NEAR(point.x, 40, 0.01);
            EXPECT_NEAR(point.y, 30, 0.01);
            EXPECT_EQ(division.lines[0].segments.size(), 2U);
            for (const plparcel::Piece& piece : division.pieces) {
                const auto is_point = [&](const PL_PNT2D_record& p) {
                    return p.x == point.x && p.y == point.y;
                };
                EXPECT_EQ(std::count_if(piece.ring.begin(), piece.ring.end(), is_point), 1);
                EXPECT_NEAR(piece.area, 10000.0 / 3, 1.0);
            }
        }
    }
}

//  3---------------------------2       A gap of a hundredth of a millimetre goes up to 8. To four decimals, the end
//  |          4.5 o=====o|     |       on its left side would lie in the right half of the parcel.
//  0---------------------------1
TEST(StakedOut, AnEndIsNotRoundedAcrossAGap)
{
    const Ring slit = {{0, 0},        {10.00006, 0}, {10.00006, 8},  {10.00007, 8},
                       {10.00007, 0}, {20.00007, 0}, {20.00007, 10}, {0, 10}};
    const Division division = divide(slit, request(Cut::perpendicular, 7, plparcel::area(45.00027), 4, 1e-3));
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.decimals, 5);
    EXPECT_POINT(division.lines[0].to, (PL_PNT2D_record{10.00006, 4.5}));
    // Half a step more to the right there is room for it.
    const Ring wider = {{0, 0},        {10.00006, 0}, {10.00006, 8},  {10.00016, 8},
                        {10.00016, 0}, {20.00007, 0}, {20.00007, 10}, {0, 10}};
    const Division in_the_gap =
        divide(wider, request(Cut::perpendicular, 7, plparcel::area(45.00027), 4, 1e-3));
    ASSERT_EQ(in_the_gap.status, Status::divided) << describe(in_the_gap);
    EXPECT_EQ(in_the_gap.decimals, 4);
}

//  ----------------------------        A gap of a hundredth of a millimetre up to 5, and on to 8. To four decimals, the
//  |             ||            |        end at 4.5 lies beyond it, in the third piece: each piece is simple, but the
//  |2===========7||           3|        boundary crosses itself.
//  |               | |         |
//  |1=========4.5====| |       |
//  -------------------  --------
TEST(StakedOut, AnEndIsNotRoundedIntoAPieceBeyondAGap)
{
    const Ring slit = {{0, 0},      {10.00006, 0}, {10.00006, 5}, {9.9, 6},      {9.9, 8},       {9.9001, 8},
                       {9.9001, 6}, {10.00007, 5}, {10.00007, 0}, {20.00007, 0}, {20.00007, 10}, {0, 10}};
    Request asked = request(Cut::perpendicular, 11, plparcel::area(45.00027), 4, 1e-3);
    asked.amounts.push_back(plparcel::area(24.85006));
    const Division division = divide(slit, asked);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.decimals, 5);
    EXPECT_POINT(division.lines[0].to, (PL_PNT2D_record{10.00006, 4.5}));
}

// An L whose inner corner is a spacing of doubles inside of what two decimals say. Rounded, a line from there passes
// beside that corner, and ends where it is staked out.
TEST(StakedOut, ALineBesideTheCornerItStartsFromNeedsNoMoreDecimals)
{
    for (const double inward : {-1.0, 0.0, 1.0}) {
        const double corner = std::nextafter(40.1, 40.1 + inward);
        const Ring l = {{0, 0}, {100, 0}, {100, corner}, {corner, corner}, {corner, 100}, {0, 100}};
        const Division division = divide(l, request(Cut::through_vertex, 3, share(1, 4), 2, 1e-4));
        ASSERT_EQ(division.status, Status::divided);
        EXPECT_EQ(division.decimals, 2);
        EXPECT_POINT(division.lines[0].from, (PL_PNT2D_record{40.1, 40.1}));
    }
}

// At 5e6 a spacing of doubles is more than a billionth of so small a parcel, yet far less than a millionth.
TEST(StakedOut, TheStatedToleranceCountsWhereDoublesCannotHoldABillionth)
{
    std::mt19937_64 random = test::random_source();
    int without = 0;
    for (int i = 0; i < 200; ++i) {
        Ring ring = kSlant;
        for (PL_PNT2D_record& p : ring)
            p = {500000.0 + 0.0005 * p.x, 5000000.0 + 0.0005 * p.y};
        Request asked = request(static_cast<Cut>(i % 3), static_cast<std::size_t>(i % 4),
                                share(std::uniform_real_distribution<double>(0.1, 0.9)(random), 1), 7);
        EXPECT_EQ(divide(ring, asked).status, Status::divided);
        asked.pieces = plparcel::Pieces::any;
        EXPECT_EQ(divide(ring, asked).status, Status::divided) << "a whole line";
        asked.pieces = plparcel::Pieces::two;
        asked.rounding.decimals.reset();
        without += divide(ring, asked).status == Status::divided ? 1 : 0;
    }
    EXPECT_LT(without, 200);
}

TEST(StakedOut, RingsAreApart)
{
    const Ring inside = {{40, 20}, {60, 20}, {50, 30}};
    EXPECT_TRUE(plparcel::are_apart({kLot}));
    EXPECT_TRUE(plparcel::are_apart({kLot, inside}));
    EXPECT_FALSE(plparcel::are_apart({kLot, {{40, 20}, {60, 20}, {50, 0}}})) << "up to a side";
    EXPECT_FALSE(plparcel::are_apart({kLot, {{40, 20}, {60, 20}}})) << "no ring";
    EXPECT_FALSE(plparcel::are_apart({kLot, {{40, 20}}})) << "a point";
    EXPECT_FALSE(plparcel::are_apart({{{40, 20}}, kLot}));
}

TEST(StakedOut, ASeriesHoldsPieceByPiece)
{
    for (const Cut cut : {Cut::parallel, Cut::perpendicular, Cut::through_vertex}) {
        Request series = request(cut, 0, share(1, 3), 4);
        series.amounts = equal_parts(7);
        const Division division = divide(kSlant, series);
        ASSERT_EQ(division.status, Status::divided);
        ASSERT_TRUE(division.decimals);
        const double parcel = division.ring.area;
        for (const plparcel::Piece& piece : division.pieces) {
            EXPECT_NEAR(plparcel::check_ring(piece.ring).area, parcel / 7, 1e-6 * parcel);
            EXPECT_EQ(piece.area, plparcel::check_ring(piece.ring).area);
        }
    }
}

}  // namespace
