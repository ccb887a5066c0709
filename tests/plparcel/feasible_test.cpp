// What could be asked instead: the amounts that a line can cut off, and the lines that can cut off an amount.

#include "plparcel/feasible.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "plparcel/extent.h"
#include "support/bits.h"
#include "support/parcel_kinds.h"
#include "support/rings.h"

namespace {

using plparcel::Alternative;
using plparcel::Alternatives;
using plparcel::AmountRange;
using plparcel::Cut;
using plparcel::divide;
using plparcel::Feasible;
using plparcel::Line;
using plparcel::Measured;
using plparcel::NearestAmounts;
using plparcel::parallel_to;
using plparcel::Parcel;
using plparcel::perpendicular_to;
using plparcel::Pieces;
using plparcel::Request;
using plparcel::Ring;
using plparcel::Status;
using plparcel::through_place;
using plparcel::through_point;
using plparcel::through_vertex;

//   5 --- 4            11-10    7--6   5--4(90,50)      3 ------- 2
//   |     |             |  |    |  |   |  |             |         |
//   |     3 --- 2       |  9----8  7---6  |             |         |
//   |           |       |                 |             |         |
//   0 --------- 1       0 --------------- 1             0 ------- 1
const Ring kEl = {{0, 0}, {100, 0}, {100, 50}, {50, 50}, {50, 100}, {0, 100}};                 // 7500
const Ring kU = {{0, 0}, {90, 0}, {90, 50}, {60, 50}, {60, 20}, {30, 20}, {30, 50}, {0, 50}};  // 3600
const Ring kSquare = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};

constexpr Measured kFar = Measured::opposite;

// "0..1800) [2500..3600": a bracket where an end is had.
std::string said(const Feasible& feasible)
{
    if (feasible.refusal)
        return describe(*feasible.refusal);
    std::ostringstream text;
    for (const AmountRange& range : feasible.ranges)
        text << (text.tellp() > 0 ? " " : "") << (range.least_is_had ? "[" : "(") << range.least << " "
             << range.most << (range.most_is_had ? "]" : ")");
    return text.str();
}

std::string ranges(const Ring& ring, const Line& line, Measured measured = Measured::from_reference)
{
    return said(feasible({ring, {}}, line, measured));
}

Status status_of(const Parcel& parcel, const Line& line, Measured measured, double amount)
{
    Request request;
    request.line = line;
    request.measured = measured;
    request.amounts = {plparcel::area(amount)};
    return divide(parcel, request).status;
}

TEST(Feasible, ParallelsAndPerpendiculars)
{
    EXPECT_EQ(ranges(kSquare, parallel_to(0)), "(0 10000)");
    EXPECT_EQ(ranges(kEl, parallel_to(0)), "(0 7500)");
    // Side 2 runs along the inner corner. Lines below it leave the upper part to its piece, 2500 and more; the line at its
    // level touches it.
    EXPECT_EQ(ranges(kEl, parallel_to(2)), "(2500 7500)");
    EXPECT_EQ(ranges(kEl, parallel_to(2), kFar), "(0 5000)");
    // The U: below its inner side 1800, and then one of two legs, 900 each, less what is cut off.
    EXPECT_EQ(ranges(kU, parallel_to(0)), "(0 1800) [2700 3600)");
    EXPECT_EQ(ranges(kU, parallel_to(0), kFar), "(0 900] (1800 3600)");
    EXPECT_EQ(ranges(kU, parallel_to(2)), "(0 900] (1800 3600)") << "the top of a leg";
    EXPECT_EQ(ranges(kU, parallel_to(4)), "(1800 3600)") << "the inner side, with both legs";
    EXPECT_EQ(ranges(kU, parallel_to(4), kFar), "(0 1800)");
    EXPECT_EQ(ranges(kU, perpendicular_to(0)), "(0 3600)");
    EXPECT_EQ(ranges(kU, plparcel::at_bearing(100)), "(0 1800) [2700 3600)")
        << "East: what is asked is below";
    EXPECT_EQ(ranges(kU, plparcel::along_segment({500, 7}, {400, 7})), "(0 900] (1800 3600)");
}

TEST(Feasible, FromAVertexOrAPlace)
{
    EXPECT_EQ(ranges(kSquare, through_vertex(0)), "(0 10000)");
    // From (0, 0) of the L all but what the inner corner hides: up to it lie 5000 - 1250, and beyond it nothing is hidden,
    // since it lies on the diagonal.
    EXPECT_EQ(ranges(kEl, through_vertex(0)), "(0 7500)");
    // From (100, 0) to the inner corner: 1250. The line on beyond it touches it, and runs to (0, 100), which leaves 2500.
    EXPECT_EQ(ranges(kEl, through_vertex(1)), "(0 1250] (2500 7500)");
    EXPECT_EQ(ranges(kEl, through_vertex(1), kFar), "(0 5000) [6250 7500)");
    EXPECT_EQ(ranges(test::reversed(kEl), through_vertex(5)), "(0 5000) [6250 7500)") << "clockwise";
    EXPECT_EQ(ranges(kSquare, through_place(0, 50)), "(0 10000)");
    EXPECT_EQ(ranges(test::reversed(kSquare), through_place(1, 50)), "(0 10000)");
    EXPECT_EQ(ranges(kSquare, through_point({50, 0})), "(0 10000)");
    EXPECT_EQ(ranges(kSquare, through_place(0, 0)), "(0 10000)") << "a place at a vertex";
}

TEST(Feasible, ThroughAPointInside)
{
    EXPECT_EQ(ranges(kSquare, through_point({25, 25})), "[1250 8750]");
    EXPECT_EQ(ranges(kSquare, through_point({50, 50})), "[5000 5000]");
    EXPECT_EQ(ranges(kSquare, through_point({150, 50})), describe(Status::point_outside));
    // In a leg of the U, in the middle between its sides: a line from one to the other leaves 300 above it. A line that
    // passes the inner corner (30, 20) runs on to (45, 0). On it 50 * (7.5 + 45) / 2 lie to the left, but it touches
    // the corner.
    EXPECT_EQ(ranges(kU, through_point({15, 40})), "[300 1312.5) (2287.5 3300]");
}

// Two corners stand on one line from where it begins, the one before the other; a few spacings of doubles off it they still do.
TEST(Feasible, CornersAHairOffALineAreOnIt)
{
    const double spacing = 0x1p-52 * 64.0;
    // Walls from the left and from the right, seen from between them.
    const auto two_walls = [](double off) {
        return Ring{{0, 0},     {100, 0}, {100, 25}, {50, 30},       {100, 35},
                    {100, 100}, {0, 100}, {0, 75},   {50 + off, 70}, {0, 65}};
    };
    // A wall from the right and one from above, seen from the corner (0, 0).
    const auto before_another = [](double off) {
        return Ring{{0, 0},     {100, 0},  {100, 10}, {40, 40 + off}, {100, 20},
                    {100, 100}, {80, 100}, {70, 70},  {60, 100},      {0, 100}};
    };
    // Eighty teeth of half a unit at the top, from above down to the level of the point.
    const auto before_teeth = [](double off) {
        Ring ring = {{0, 0}, {100, 0}, {100, 100}};
        for (int i = 79; i >= 0; --i) {
            ring.push_back({10.25 + i, 100.0});
            ring.push_back({10.0 + i, 50.0 + (i % 3) * off});
            ring.push_back({9.75 + i, 100.0});
        }
        ring.push_back({0, 100});
        return ring;
    };
    // The walls take 250 each away, and are each other's image in the point: any line through it halves the rest.
    EXPECT_EQ(ranges(two_walls(0), through_point({50, 50})), "[4750 4750]");
    // Below the ray to (40, 40) there are 800, and 1500 from there to the wall; above the ray to (70, 70) 4400 of all 9400.
    EXPECT_EQ(ranges(before_another(0), through_vertex(0)), "(0 2300] (5000 9400)");
    for (const double off : {1.0, 2.0, 4.0, -1.0, -2.0, -4.0}) {
        for (const Measured measured : {Measured::from_reference, kFar}) {
            EXPECT_EQ(ranges(two_walls(off * spacing), through_point({50, 50}), measured),
                      ranges(two_walls(0), through_point({50, 50}), measured))
                << off;
            EXPECT_EQ(ranges(before_teeth(off * spacing), through_point({1, 50}), measured),
                      ranges(before_teeth(0), through_point({1, 50}), measured))
                << off;
            EXPECT_EQ(ranges(before_another(off * spacing), through_vertex(0), measured),
                      ranges(before_another(0), through_vertex(0), measured))
                << off;
        }
    }
}

TEST(Feasible, AnyNumberOfPieces)
{
    const Parcel holed = {kSquare, {{{20, 20}, {20, 80}, {80, 80}, {80, 20}}}};
    EXPECT_EQ(said(feasible({kU, {}}, parallel_to(0), kFar, Pieces::any)), "(0 3600)");
    EXPECT_EQ(said(feasible(holed, parallel_to(2, 1), kFar, Pieces::any)), "(0 6400)");
    const auto whole = [](const Parcel& parcel, const Line& line, Measured measured) {
        return said(feasible(parcel, line, measured, Pieces::any));
    };
    EXPECT_EQ(whole({kSquare, {}}, perpendicular_to(3), kFar), "(0 10000)");
    EXPECT_EQ(whole({kSquare, {}}, plparcel::at_bearing(50), kFar), "(0 10000)");
    EXPECT_EQ(whole({kSquare, {}}, through_vertex(0), kFar), "(0 10000)");
    EXPECT_EQ(whole({kSquare, {}}, through_point({25, 25}), kFar), "[1250 8750]");
    EXPECT_EQ(whole({kSquare, {}}, through_point({-5, 50}), kFar), "(0 10000)") << "outside";
    EXPECT_EQ(whole({{{0, 0}, {1000, 0}, {1000, 10}, {0, 10}}, {}}, through_point({1, 1}), kFar), "[2 9998]")
        << "from where a side is a thousand times as far at its end as at its beginning";
    EXPECT_EQ(whole(holed, through_point({50, 50}), kFar), "[3200 3200]") << "in the hole, its middle";
    // From straight on, 2500 as far as at right angles, and then up to the line along the side, run the other way.
    const Ring el = {{0, 0}, {100, 0}, {100, 50}, {50, 50}, {50, 100}, {0, 100}};
    EXPECT_EQ(whole({el, {}}, through_vertex(3), Measured::from_reference), "[2500 5000]");
    EXPECT_EQ(whole({el, {}}, through_vertex(3), kFar), "[2500 5000]");
    EXPECT_EQ(whole({el, {}}, through_vertex(6), kFar), describe(Status::no_such_index));
}

TEST(Feasible, RefusesWhatDivideRefuses)
{
    const double nan = std::nan("");
    EXPECT_EQ(ranges({{0, 0}, {1, 1}}, parallel_to(0)), describe(Status::unusable_boundary));
    EXPECT_EQ(ranges(kSquare, parallel_to(4)), describe(Status::no_such_index));
    EXPECT_EQ(ranges({{0, 0}, {0, 0}, {1, 0}, {1, 1}}, parallel_to(0)),
              describe(Status::side_without_length));
    EXPECT_EQ(ranges(kSquare, plparcel::at_bearing(nan)), describe(Status::no_direction));
    EXPECT_EQ(ranges(kSquare, through_place(0, 101)), describe(Status::no_such_place));
    Line unknown;
    unknown.cut = static_cast<Cut>(77);
    EXPECT_EQ(ranges(kSquare, unknown), describe(Status::unknown_request));
    EXPECT_EQ(said(feasible({kSquare, {}}, unknown, kFar, Pieces::any)), describe(Status::unknown_request));
    EXPECT_EQ(said(feasible({kSquare, {}}, parallel_to(0), static_cast<Measured>(7))),
              describe(Status::unknown_request));
    EXPECT_EQ(said(feasible({kSquare, {}}, parallel_to(9), kFar, Pieces::any)),
              describe(Status::no_such_index));
    EXPECT_EQ(feasible({kSquare, {}}, parallel_to(9)).parcel, 10000.0);
    EXPECT_EQ(said(feasible({kSquare, {}}, parallel_to(0), kFar, static_cast<Pieces>(7))),
              describe(Status::unknown_request));
    const Parcel holed = {kSquare, {{{20, 20}, {20, 80}, {80, 80}, {80, 20}}}};
    EXPECT_EQ(said(feasible(holed, parallel_to(0, 2))), describe(Status::no_such_index));
    EXPECT_EQ(said(feasible(holed, perpendicular_to(4, 1))), describe(Status::no_such_index));
    EXPECT_EQ(said(feasible(holed, plparcel::at_bearing(nan))), describe(Status::no_direction));
    EXPECT_EQ(said(feasible(holed, unknown)), describe(Status::unknown_request));
    const Parcel repeated = {kSquare, {{{20, 20}, {20, 20}, {20, 80}, {80, 80}, {80, 20}}}};
    EXPECT_EQ(said(feasible(repeated, parallel_to(0, 1))), describe(Status::side_without_length));
}

//   3 ------------- 2      .-------------.      .-------------.
//   |    .---.      |      |      ^      |      |  .  ...  .  |  a U of a hole,
//   |    |   |      |      |     / \     |      |  | |   | |  |  its bay 40 wide
//   |    '---'      |      |     \ /     |      |  | '---' |  |  and 30 deep
//   |               |      |      v      |      |  '-------'  |
//   0 ------------- 1      '-------------'      '-------------'
TEST(Feasible, BesideHoles)
{
    const Ring block = {{20, 20}, {20, 80}, {80, 80}, {80, 20}};
    const Ring diamond = {{50, 20}, {20, 50}, {50, 80}, {80, 50}};
    const Ring u = {{20, 20}, {80, 20}, {80, 60}, {70, 60}, {70, 30}, {30, 30}, {30, 60}, {20, 60}};
    const auto holed = [](const std::vector<Ring>& holes, const Line& line,
                          Measured measured = Measured::from_reference) {
        return said(feasible({kSquare, holes}, line, measured));
    };
    // The line may run across the hole, in two segments.
    EXPECT_EQ(holed({block}, parallel_to(0)), "(0 6400)");
    EXPECT_EQ(holed({block}, perpendicular_to(0), kFar), "(0 6400)");
    EXPECT_EQ(holed({block}, parallel_to(0, 1)), "[2000 6400)")
        << "along its western side, and from there on";
    EXPECT_EQ(holed({block}, plparcel::along_segment({0, 0}, {7, 0})), "(0 6400)");
    // Where it only touches one of the corners of the diamond it makes other pieces: 2000 below the lowest, 6200 in the
    // lower ones of the two.
    EXPECT_EQ(holed({diamond}, parallel_to(0)), "(0 2000) (2000 6200) (6200 8200)");
    EXPECT_EQ(holed({diamond}, plparcel::at_bearing(100), kFar), "(0 2000) (2000 6200) (6200 8200)");
    // All of 10000 less 60 * 40 and the bay's 40 * 30. Below the bay's floor 3000 less 60 * 10; in the bay it is only the bay
    // that is cut off, 1200 at most; above it 4000.
    EXPECT_EQ(holed({u}, parallel_to(0)), "(0 2400] (4800 8800)");
    EXPECT_EQ(holed({u}, parallel_to(0), kFar), "(0 4000) [6400 8800)");
    // The line over the bay has the bay below it, and what is asked is the piece with the side.
    EXPECT_EQ(holed({u}, parallel_to(2)), "(0 4000) [6400 8800)");
    // A line across the bay and through both of its walls: first the outer parts and then the inner one.
    EXPECT_EQ(holed({u}, perpendicular_to(0)), "(0 8800)");
    // Two holes beside each other, both are crossed.
    EXPECT_EQ(holed({{{10, 40}, {10, 60}, {30, 60}, {30, 40}}, {{70, 45}, {70, 65}, {90, 65}, {90, 45}}},
                    parallel_to(0)),
              "(0 9200)");
}

//   100 by 100, a hole of 60 by 60 in the middle
//   3 --------------- 2
//   |   .-----------. |      From the corner 0 the line to (100, 25) passes the hole's corner (80, 20).
//   |   |           | |      Through Q, the hole's corner (20, 20), and through R, the middle of a side of the hole, lines
//   |   R           | |      make two pieces as long as they run across the hole.
//   |   Q-----------' |      Through P (50, 10) lines turned no more than to (0, 0) leave 1000 below them; the one past (80, 20)
//   |       P         |      begins at (20, 0) and ends at (100, 80 / 3): 3200 / 3.
//   0 --------------- 1      On the right of a line that climbs s through R lie 5400 - 800 / s - 200 s, at most 4600.
TEST(Feasible, BesideHolesThroughAVertexAPlaceOrAPoint)
{
    const auto in_ring = [](std::size_t ring, Line line) {
        line.ring = ring;
        return line;
    };
    const Parcel holed = {kSquare, {{{20, 20}, {20, 80}, {80, 80}, {80, 20}}}};
    const struct {
        const char* what;
        Line line;
        const char* want;
    } rows[] = {
        {"from a corner, past the hole, across it, and past it", through_vertex(0),
         "(0 1250) (1250 5150) (5150 6400)"},
        {"through a corner of the hole, and along its sides", in_ring(1, through_vertex(0)), "[2000 4400]"},
        {"from a place", through_place(0, 50), "(0 833.333) (833.333 5566.67) (5566.67 6400)"},
        {"from a place by its coordinates", through_point({50, 0}),
         "(0 833.333) (833.333 5566.67) (5566.67 6400)"},
        {"through a place on the hole's side", in_ring(1, through_place(0, 30)), "[1800 4600]"},
        {"through a point", through_point({50, 10}), "[1000 1066.67) (1066.67 5333.33) (5333.33 5400]"},
        {"through a point, from another direction on", through_point({50, 10}, 80),
         "[1000 1066.67) (1066.67 5333.33) (5333.33 5400]"},
        {"in the hole", through_point({50, 50}), describe(Status::point_outside)},
    };
    for (const auto& row : rows)
        for (const Measured measured : {Measured::from_reference, kFar})
            EXPECT_EQ(said(feasible(holed, row.line, measured)), row.want) << row.what;
    const Parcel clockwise = {test::reversed(kSquare), holed.holes};
    EXPECT_EQ(said(feasible(clockwise, through_vertex(0))), "(0 1250) (1250 5150) (5150 6400)");
}

// Beside (11, 5) a triangle's side from (11, 3) to (11, 4) hangs straight below it, its tip (10, 2) to the left. A line down along
// that side leaves 2.9 on its left, one past the tip 5.15625 less the triangle's 0.5. To the West the line touches the
// corner (6, 7): above it lie 12.5 of 60.5, and behind the corner up to (1, 9) one more.
TEST(Feasible, AlongAHolesSideInLineWithTheVertex)
{
    const Parcel parcel = {{{3, 3}, {7, 2}, {12, 1}, {12, 3}, {11, 5}, {11, 10}, {6, 7}, {2, 9}, {0, 9}},
                           {{{10, 2}, {11, 3}, {11, 4}}}};
    EXPECT_EQ(said(feasible(parcel, through_vertex(4), kFar)),
              "(0 2.9) (2.9 4.65625) (4.65625 47) [48 60.5)");
}

// A line turns about the corner (1, 2) of a triangle, from one of its sides to the other. Upright, along the side to (1, 3), it
// leaves the corners (0, 2), (1, 0) and (1, 4.5) on its left: 2.25. Along the side to (3, 1) it runs from (1 / 6, 29 / 12) to
// (3.4, 0.8), and 433 / 120 lie below it.
TEST(Feasible, AboutAHolesCornerFromOneOfItsSidesToTheOther)
{
    const Parcel parcel = {{{2, 7}, {3, 7}, {5, 4}, {6, 4}, {4, 1}, {1, 0}, {0, 2}},
                           {{{1, 2}, {3, 1}, {1, 3}}}};
    Line line = through_vertex(0);
    line.ring = 1;
    EXPECT_EQ(said(feasible(parcel, line, kFar)), "[2.25 18.8917]") << "of 22.5";
    EXPECT_EQ(said(feasible(parcel, line)), "[3.60833 20.25]");
}

//     7-6          From P, (0, 3), a line to 8 leaves 0.5 above it; on past 8 it leaves 4 more in the chimney, and touches 8.
//   9-8 |   3-2    It comes down the chimney to 5, (3, 2), where 10.5 lie above it; on past 5 it leaves 6 + 2 / 3 more in the
//   P   5---4 |    tower, and touches 5.
//   0---------1
TEST(Feasible, PastTheCornersOfAChimney)
{
    const Ring house = {{0, 0}, {7, 0}, {7, 4}, {5, 4}, {5, 2}, {3, 2}, {3, 7}, {1, 7}, {1, 4}, {0, 4}};
    EXPECT_EQ(ranges(house, through_place(9, 1), kFar), "(0 0.5] (4.5 10.5] (17.1667 30)");
    EXPECT_EQ(ranges(house, through_place(9, 1)), "(0 12.8333) [19.5 25.5) [29.5 30)");
}

// Through (2, 6) a line cuts off most and least where it ends in the corners (1, 5) and (3, 7) beside (1, 7).
TEST(Feasible, TheLeastThroughAPointIsHadBetweenTwoVertices)
{
    const Ring outer = {{0, 0}, {7, 0}, {7, 2}, {6, 2}, {6, 6}, {4, 6},
                        {4, 7}, {3, 7}, {1, 7}, {1, 5}, {0, 5}};
    const Parcel parcel = {outer, {{{1, 4}, {2, 4}, {3, 3}, {3, 5}}}};
    for (std::size_t first = 0; first < outer.size(); ++first)
        EXPECT_EQ(said(feasible({test::begun_at(outer, first), parcel.holes}, through_point({2, 6}))),
                  "[2 36.5]")
            << first;
}

//   5 --- 4         From the inner corner of the L: straight up first, then round to the right. The line past the hole's corner
//   |     |         (10, 20) ends at (0, 12.5): 2500 and half of 50 by 37.5.
//   |     3 --- 2
//   | []        |
//   0 --------- 1
TEST(Feasible, BesideHolesThroughAnInnerCorner)
{
    const Parcel holed = {kEl, {{{10, 10}, {10, 20}, {20, 20}, {20, 10}}}};
    for (const Measured measured : {Measured::from_reference, kFar})
        EXPECT_EQ(said(feasible(holed, through_vertex(3), measured)),
                  "(0 3437.5) (3437.5 3962.5) (3962.5 7400)");
}

//   5 ------- 4             From the corner 0 the side from 2 to 3 is seen end on. The line to 3 leaves 2500 on its right, and
//   | |] .    |             makes two pieces. Those past the hole's corners, (20, 60) and (10, 80), leave 625 and 1466.67 on
//   |       . 3 - . 2       their left.
//   0 ------------- 1
TEST(Feasible, BesideHolesAlongASideInLineWithTheVertex)
{
    const Parcel holed = {{{0, 0}, {100, 0}, {100, 50}, {60, 30}, {60, 100}, {0, 100}},
                          {{{10, 60}, {10, 80}, {20, 80}, {20, 60}}}};
    EXPECT_EQ(said(feasible(holed, through_vertex(0))), "(0 5933.33) (5933.33 6775) (6775 7400)");
    EXPECT_EQ(said(feasible(holed, through_vertex(0), kFar)), "(0 625) (625 1466.67) (1466.67 7400)");
}

//      4 --- 3         The same with a side that runs straight up from above the vertex 1, from (0, 40) to (0, 80): 4000 lie
//      |     |         on the right of the line to it. Past the hole's corners, (-30, 35) and (-40, 25), 685.71 more, and all
//   6  5     |         but 781.25.
//   | []     |
//   0 -- 1 - 2
TEST(Feasible, BesideHolesAlongAnUprightSideInLineWithTheVertex)
{
    const Parcel holed = {{{-50, 0}, {0, 0}, {50, 0}, {50, 80}, {0, 80}, {0, 40}, {-50, 40}},
                          {{{-40, 25}, {-40, 35}, {-30, 35}, {-30, 25}}}};
    EXPECT_EQ(said(feasible(holed, through_vertex(1))), "(0 4685.71) (4685.71 5118.75) (5118.75 5900)");
}

//   +------- 64     The hole's corners B and A stand in line with the vertex but for 2^-71 of a turn: between them numbers of
//   |   D--C  |     106 bits hold no lines. The line at 45 degrees ends at B and goes on from A, which makes two pieces, of
//   |    \/   |     2048 on its right. On the left of the one to D lie 28.44 * 64 / 2.
//   |    BA   |
//   0 --------+
TEST(Feasible, BesideHolesWhoseCornersAreAllButInLineWithTheVertex)
{
    constexpr double kHair = 0x1p-30;
    const Parcel holed = {{{0, 0}, {64, 0}, {64, 64}, {0, 64}},
                          {{{32, 32 - kHair}, {20, 45}, {34, 50}, {32 + kHair, 32}}}};
    EXPECT_EQ(said(feasible(holed, through_vertex(0))), "(0 3064.78) (3064.78 3975)");
    EXPECT_EQ(status_of(holed, through_vertex(0), Measured::from_reference, 2048), Status::divided);
}

// Lines at the level of a hole's tips touch it, also where a vertex of the outer ring lies a few spacings of doubles off that
// level.
TEST(Feasible, BesideHolesATipAHairOffTheLevelOfAnotherVertex)
{
    constexpr double kSpacing = 0x1p-46;
    const Ring diamond = {{50, 20}, {20, 50}, {50, 80}, {80, 50}};
    for (const double off : {1.0, 2.0, -1.0, -3.0}) {
        const Ring outer = {{0, 0},     {100, 0}, {100, 20 + off * kSpacing}, {100, 80 - off * kSpacing},
                            {100, 100}, {0, 100}};
        for (const Measured measured : {Measured::from_reference, kFar})
            EXPECT_EQ(said(feasible({outer, {diamond}}, plparcel::at_bearing(100), measured)),
                      "(0 2000) (2000 6200) (6200 8200)")
                << off;
    }
}

// The wall from the right ends at (40, 40), on the line from the corner to the tip (70, 70) of the one from above, or so many
// spacings of doubles off it. The line to the upper tip is had where it passes the lower one: 4950 on its right.
TEST(Feasible, BesideHolesACornerThatALinePasses)
{
    constexpr double kSpacing = 0x1p-46;
    const struct {
        const char* what;
        double off;
        const char* want;
    } rows[] = {
        {"on the line", 0, "(0 2300] (4950 9350)"},
        {"above it", 2, "(0 2300] (4950 9350)"},
        {"below it, as good as on it", -2, "(0 2300] (4950 9350)"},
        {"just below it", -20, "(0 2300] [4950 9350)"},
        {"below it", -300, "(0 2300] [4950 9350)"},
    };
    for (const auto& row : rows) {
        const Ring outer = {{0, 0},    {100, 0},   {100, 10}, {40, 40 + row.off * kSpacing},
                            {100, 20}, {100, 100}, {80, 100}, {70, 70},
                            {60, 100}, {0, 100}};
        const Parcel holed = {outer, {{{85, 90}, {85, 95}, {95, 95}, {95, 90}}}};
        EXPECT_EQ(said(feasible(holed, through_vertex(0))), row.want) << row.what;
    }
}

//   +--------------+     The upright line through (50, 50) runs from tip to tip, and both walls end on other sides of it. Beside
//   |______        |     holes no such line is found: the ends of the range are not had, and divide() says so too.
//   |______>       |
//   |      o       |
//   |      <_______|
//   +--------------+
TEST(Feasible, BesideHolesFromTheTipOfAWallToThatOfAnother)
{
    const Ring outer = {{0, 0},     {100, 0}, {100, 5}, {50, 10}, {100, 15},
                        {100, 100}, {0, 100}, {0, 75},  {50, 70}, {0, 65}};
    const Parcel holed = {outer, {{{5, 85}, {5, 90}, {10, 90}, {10, 85}}}};
    for (const Measured measured : {Measured::from_reference, kFar}) {
        EXPECT_EQ(said(feasible(holed, through_point({50, 50}), measured)), "(3750 5725)");
        EXPECT_EQ(said(feasible({outer, {}}, through_point({50, 50}), measured)), "[3750 5750]");
        EXPECT_NE(status_of(holed, through_point({50, 50}), measured, 3750), Status::divided);
        EXPECT_EQ(status_of({outer, {}}, through_point({50, 50}), measured, 3750), Status::divided);
    }
}

// The square with the hole in its middle, larger and turned so that no place is exact on its side, by a good third of a right angle
// or next to none, and by quarters, and far away. From a place the lines past the hole's nearer corners end on the sides or at the top.
TEST(Feasible, BesideHolesFromAPlaceThatIsRounded)
{
    // On the right of the line from (away, 0) past the hole's corner (80, 20), or (80, 80).
    const auto beside_the_hole = [](double away) {
        const double corner = away < 80 ? 20 : 80;
        const double at_top = away + (80 - away) / corner * 100;
        return at_top < 100 ? 100 * (100 - (away + at_top) / 2)
                            : (100 - away) * (100 - away) * corner / (80 - away) / 2;
    };
    constexpr double kFarAway = 0x1p23;
    // The way to which the first side leads.
    const PL_PNT2D_record ways[] = {{4, 3},   {-3, 4},   {-4, -3},   {3, -4},
                                    {300, 1}, {-1, 300}, {-300, -1}, {1, -300}};
    for (const PL_PNT2D_record& way : ways) {
        const auto turned = [&way](const Ring& ring) {
            Ring result;
            for (const PL_PNT2D_record& p : ring)
                result.push_back(
                    {kFarAway + way.x * p.x - way.y * p.y, kFarAway + way.y * p.x + way.x * p.y});
            return result;
        };
        const Parcel holed = {turned(kSquare), {turned({{20, 20}, {20, 80}, {80, 80}, {80, 20}})}};
        const double larger = way.x * way.x + way.y * way.y;
        const double whole = 6400 * larger;
        for (const double away : {0.7, 0.9, 2.7, 10.7, 33.3, 49.1, 50.0, 61.3, 77.7, 97.3, 98.6, 99.1}) {
            const double right = larger * beside_the_hole(away);
            const double left = larger * beside_the_hole(100 - away);
            const Feasible found = feasible(holed, through_place(0, std::sqrt(larger) * away));
            ASSERT_EQ(found.ranges.size(), 3U) << away << ": " << said(found);
            const double ends[] = {0, right, right, whole - left, whole - left, whole};
            for (std::size_t i = 0; i < 3; ++i) {
                EXPECT_NEAR(found.ranges[i].least, ends[2 * i], 1e-9 * whole) << away;
                EXPECT_NEAR(found.ranges[i].most, ends[2 * i + 1], 1e-9 * whole) << away;
                EXPECT_FALSE(found.ranges[i].least_is_had || found.ranges[i].most_is_had) << away;
            }
        }
    }
}

// From a place on a hole, past two others. Lines in 4000 directions, cut with GEOS, made these amounts; where a line touches a
// corner two ranges may meet.
TEST(Feasible, BesideHolesFromAPlaceOnOneOfThem)
{
    const Ring lot = {{0, 0}, {12, 0}, {12, 12}, {0, 12}};
    const struct {
        Parcel parcel;
        Line line;
        std::vector<std::pair<double, double>> want;
    } rows[] = {
        {{lot,
          {{{7, 3}, {7, 4}, {5, 4}},
           {{7, 10}, {9, 9}, {10, 7}, {9, 7}, {8, 6}, {8, 8}},
           {{3, 6}, {5, 7}, {6, 8}}}},
         through_place(3, 0.5),
         {{70.32, 106.05}, {137.82, 138}}},
        {{lot,
          {{{3, 2}, {4, 2}, {5, 2}, {6, 1}, {5, 3}, {3, 4}},
           {{9, 7}, {9, 5}, {10, 6}, {11, 6}, {10, 7}, {11, 8}}}},
         through_place(1, 0.5),
         {{0, 0.32}, {27.69, 92.34}}},
    };
    for (const auto& row : rows) {
        Line line = row.line;
        line.ring = 2;
        const Feasible found = feasible(row.parcel, line);
        std::vector<std::pair<double, double>> joined;
        for (const AmountRange& range : found.ranges)
            if (!joined.empty() && range.least - joined.back().second < 1e-9)
                joined.back().second = range.most;
            else
                joined.emplace_back(range.least, range.most);
        ASSERT_EQ(joined.size(), row.want.size()) << said(found);
        for (std::size_t i = 0; i < joined.size(); ++i) {
            EXPECT_NEAR(joined[i].first, row.want[i].first, 0.03);
            EXPECT_NEAR(joined[i].second, row.want[i].second, 0.03);
        }
    }
}

TEST(Feasible, RefusesWhatDivideRefusesOfWholeLines)
{
    const struct {
        const char* what;
        Ring ring;
        Line line;
        Status want;
    } rows[] = {
        {"no such ring", kSquare, parallel_to(0, 5), Status::no_such_index},
        {"no such side", kSquare, perpendicular_to(4), Status::no_such_index},
        {"a side of no length",
         {{0, 0}, {0, 0}, {1, 0}, {1, 1}},
         parallel_to(0),
         Status::side_without_length},
        {"a bearing of no number", kSquare, plparcel::at_bearing(std::nan("")), Status::no_direction},
        {"a segment of no length", kSquare, plparcel::along_segment({7, 7}, {7, 7}), Status::no_direction},
        {"a place beyond the side", kSquare, through_place(0, 101), Status::no_such_place},
    };
    for (const auto& row : rows) {
        Request request;
        request.line = row.line;
        request.pieces = Pieces::any;
        request.amounts = {plparcel::area(0.25)};
        EXPECT_EQ(said(feasible({row.ring, {}}, row.line, kFar, Pieces::any)), describe(row.want))
            << row.what;
        EXPECT_EQ(divide(row.ring, request).status, row.want) << row.what;
    }
}

TEST(Feasible, NearestAmounts)
{
    const std::vector<AmountRange> some = {{0, 1800, false, false}, {2700, 3600, true, false}};
    const NearestAmounts between = nearest_amounts(some, 2000);
    EXPECT_EQ(between.below, 1800.0);
    EXPECT_FALSE(between.below_is_had);
    EXPECT_EQ(between.above, 2700.0);
    EXPECT_TRUE(between.above_is_had);
    EXPECT_EQ(nearest_amounts(some, 100).below, 100.0);
    EXPECT_EQ(nearest_amounts(some, 2700).above, 2700.0);
    EXPECT_EQ(nearest_amounts(some, 1800).above, 2700.0) << "the end itself is not had";
    EXPECT_EQ(nearest_amounts(some, 1800).below, 1800.0);
    EXPECT_FALSE(nearest_amounts(some, 1800).below_is_had);
    EXPECT_FALSE(nearest_amounts(some, 4000).above);
    EXPECT_FALSE(nearest_amounts(some, -1).below);
    EXPECT_FALSE(plparcel::nearest_amounts({}, 1).below);
}

TEST(Feasible, NearestAmountsWhereEndsAreHad)
{
    const std::vector<AmountRange> some = {
        {100, 1250, false, true}, {2500, 2500, true, true}, {4000, 6000, false, false}};
    const struct {
        double amount;
        double below;  // 0: none
        double above;
        bool below_is_had;
        bool above_is_had;
    } rows[] = {
        {50, 0, 100, false, false},      {100, 0, 100, false, false},    {1250, 1250, 1250, true, true},
        {1300, 1250, 2500, true, true},  {2500, 2500, 2500, true, true}, {3000, 2500, 4000, true, false},
        {4000, 2500, 4000, true, false}, {5000, 5000, 5000, true, true}, {6000, 6000, 0, false, false},
    };
    for (const auto& row : rows) {
        const NearestAmounts nearest = nearest_amounts(some, row.amount);
        EXPECT_EQ(nearest.below.value_or(0.0), row.below) << row.amount;
        EXPECT_EQ(nearest.above.value_or(0.0), row.above) << row.amount;
        EXPECT_EQ(nearest.below_is_had, row.below_is_had) << row.amount;
        EXPECT_EQ(nearest.above_is_had, row.above_is_had) << row.amount;
    }
}

std::string said(const Alternatives& found)
{
    if (found.refusal)
        return describe(*found.refusal);
    const char* const kinds = "|+v";
    std::string text;
    for (const Alternative& line : found.lines)
        text += (text.empty() ? "" : " ") + std::string(1, kinds[static_cast<int>(line.line.cut)]) +
                std::to_string(line.line.index) + (line.measured == kFar ? "'" : "");
    return text;
}

TEST(Feasible, Alternatives)
{
    // Of the U 2200, which a line along the bottom cannot hold below it.
    const Alternatives found = alternatives_for({kU, {}}, plparcel::area(2200));
    EXPECT_EQ(found.of, 24U);
    EXPECT_EQ(found.looked_at, 24U);
    for (const Alternative& line : found.lines) {
        Request request;
        request.line = line.line;
        request.measured = line.measured;
        request.amounts = {plparcel::area(2200)};
        EXPECT_EQ(divide(kU, request).status, Status::divided) << said(found);
        EXPECT_LT(line.range.least, 2200.0);
        EXPECT_GT(line.range.most, 2200.0);
    }
    // The bottom holds it beyond the line only, the first leg's outer side too; from the corners 2 and 7 the inner
    // corners hide the lines.
    EXPECT_EQ(said(found), "|0' +0 |1 +1 |7 +7' |2 +2 |3 +3' |4 +4 |5 +5 |6 +6 v0 v1' v3 v4 v5 v6'");
    EXPECT_EQ(alternatives_for({kU, {}}, plparcel::area(2200), kFar, 2).looked_at, 2U);
    EXPECT_EQ(said(alternatives_for({kU, {}}, plparcel::area(3600))), describe(Status::amount_too_large));
    EXPECT_EQ(said(alternatives_for({kU, {}}, plparcel::width(5))), describe(Status::unknown_request));
    EXPECT_EQ(said(alternatives_for({{{0, 0}, {1, 1}}, {}}, plparcel::area(1))),
              describe(Status::unusable_boundary));
    EXPECT_EQ(said(alternatives_for({kU, {}}, plparcel::area(1), static_cast<Measured>(7))),
              describe(Status::unknown_request));
    EXPECT_EQ(said(alternatives_for({kU, {}}, plparcel::area(std::nan("")))),
              describe(Status::unusable_amount));
    const Parcel holed = {kSquare, {{{20, 20}, {20, 80}, {80, 80}, {80, 20}}}};
    EXPECT_EQ(said(alternatives_for(holed, plparcel::area(1))),
              "|0 +0 |1 +1 |2 +2 |3 +3 |0' +0 |1' +1 |2' +2 |3' +3 v0 v1 v2 v3")
        << "beside a side of the hole, and on a line through its corners, lie 2000 at least";
    // Vertex 1 stands twice.
    const Ring repeated = {{0, 0}, {100, 0}, {100, 0}, {100, 100}, {0, 100}};
    EXPECT_EQ(alternatives_for({repeated, {}}, plparcel::area(2200)).of, 12U);
}

TEST(Feasible, LooksAtNoMoreLinesThanItSays)
{
    std::mt19937_64 random = test::random_source();
    const Parcel many = {test::star_ring(random, 2500, 1000.0), {}};
    const Alternatives found = alternatives_for(many, plparcel::share(1, 3));
    EXPECT_EQ(found.of, 7500U);
    EXPECT_EQ(found.looked_at, 1600U);
}

// --- against divide(), which proves what it divides; and its refusals are proven by the exact judge ---

int requests()
{
    const char* const text = std::getenv("PLCALC_DIVISIONS");
    return text != nullptr ? std::atoi(text) : 4000;
}

Line any_line(std::mt19937_64& random, const Ring& ring)
{
    std::uniform_real_distribution<double> any(0.0, 1.0);
    const std::size_t i = random() % ring.size();
    const PL_PNT2D_record& v = ring[random() % ring.size()];
    const PL_PNT2D_record& w = ring[random() % ring.size()];
    // Every other point lies between two vertices, the rest anywhere between three.
    const PL_PNT2D_record& u = ring[random() % ring.size()];
    const double part = any(random);
    const double rest = random() % 2 == 0 ? 0.0 : (1.0 - part) * any(random);
    const PL_PNT2D_record p = {v.x + part * (w.x - v.x) + rest * (u.x - v.x),
                               v.y + part * (w.y - v.y) + rest * (u.y - v.y)};
    switch (random() % 7) {
    case 0:
        return parallel_to(i);
    case 1:
        return perpendicular_to(i);
    case 2:
        return through_vertex(i);
    case 3:
        return plparcel::at_bearing(400.0 * any(random));
    case 4:
        return plparcel::along_segment(v, {w.x + 1.0, w.y + any(random)});
    case 5:
        return through_place(i, any(random) * std::hypot(ring[(i + 1) % ring.size()].x - ring[i].x,
                                                         ring[(i + 1) % ring.size()].y - ring[i].y));
    default:
        return through_point(p);
    }
}

std::string coordinates(const Ring& ring)
{
    std::ostringstream text;
    text.precision(17);
    for (const PL_PNT2D_record& p : ring)
        text << " " << p.x << " " << p.y;
    return text.str();
}

// Whether a point lies on the line through two vertices, to a billionth.
bool is_in_line(const Ring& ring, const PL_PNT2D_record& p)
{
    for (std::size_t i = 0; i < ring.size(); ++i)
        for (std::size_t k = 0; k < i; ++k) {
            const double off = (ring[i].x - p.x) * (ring[k].y - p.y) - (ring[i].y - p.y) * (ring[k].x - p.x);
            if (std::fabs(off) <= 1e-9 * std::hypot(ring[i].x - p.x, ring[i].y - p.y) *
                                      std::hypot(ring[k].x - p.x, ring[k].y - p.y))
                return true;
        }
    return false;
}

bool is_inside(const Feasible& feasible, double amount, double margin)
{
    for (const AmountRange& range : feasible.ranges)
        if (range.least + margin < amount && amount < range.most - margin)
            return true;
    return false;
}

bool is_outside(const Feasible& feasible, double amount, double margin)
{
    for (const AmountRange& range : feasible.ranges)
        if (range.least - margin <= amount && amount <= range.most + margin)
            return false;
    return true;
}

// A ring, sized and moved into a box around another one; on whole numbers with `rounds`.
Ring hole_for(std::mt19937_64& random, const Ring& outer, bool rounds)
{
    std::uniform_real_distribution<double> any(0.0, 1.0);
    const auto& kinds = test::parcel_kinds();
    Ring hole = kinds[random() % kinds.size()].make(random);
    const plparcel::Extent of = plparcel::extent_of(hole);
    const plparcel::Extent extent = plparcel::extent_of(outer);
    const double size = (0.05 + 0.5 * any(random)) * extent.largest() / of.largest();
    const double x = extent.low.x + any(random) * (extent.high.x - extent.low.x);
    const double y = extent.low.y + any(random) * (extent.high.y - extent.low.y);
    for (PL_PNT2D_record& p : hole) {
        p = {x + size * (p.x - of.low.x), y + size * (p.y - of.low.y)};
        if (rounds)
            p = {std::round(p.x), std::round(p.y)};
    }
    return hole;
}

// With up to four holes; some without.
Parcel any_holed(std::mt19937_64& random)
{
    const auto& kinds = test::parcel_kinds();
    const bool rounds = random() % 3 == 0;
    Parcel parcel = {random() % 4 == 0 ? test::stepped_ring(random, 4, 100.0)
                                       : kinds[random() % kinds.size()].make(random),
                     {}};
    if (rounds)
        for (PL_PNT2D_record& p : parcel.outer)
            p = {std::round(p.x), std::round(p.y)};
    for (int tried = 0; tried < 12 && parcel.holes.size() < 4; ++tried) {
        parcel.holes.push_back(hole_for(random, parcel.outer, rounds));
        if (check_parcel(parcel).status != plparcel::BoundaryStatus::usable)
            parcel.holes.pop_back();
    }
    return parcel;
}

Line any_line(std::mt19937_64& random, const Parcel& parcel)
{
    const std::size_t ring = random() % (parcel.holes.size() + 1);
    Line line = any_line(random, ring == 0 ? parcel.outer : parcel.holes[ring - 1]);
    line.ring = ring;
    return line;
}

std::string coordinates(const Parcel& parcel)
{
    std::string text = coordinates(parcel.outer);
    for (const Ring& hole : parcel.holes)
        text += " hole" + coordinates(hole);
    return text;
}

// Amounts anywhere, and near the ends, where a mistake would be.
std::vector<double> amounts_for(std::mt19937_64& random, const Feasible& feasible, double margin)
{
    std::uniform_real_distribution<double> any(0.0, 1.0);
    std::vector<double> amounts;
    for (int i = 0; i < 4; ++i)
        amounts.push_back(any(random) * feasible.parcel);
    for (const AmountRange& range : feasible.ranges)
        for (const double off : {-1.5 * margin, 1.5 * margin})
            for (const double end : {range.least, range.most})
                amounts.push_back(end + off);
    return amounts;
}

bool is_amount(const Feasible& feasible, double amount)
{
    return amount > 3e-9 * feasible.parcel && amount < (1.0 - 3e-9) * feasible.parcel;
}

// Whether one range ends and the next begins there. A line that touches a corner of a hole holds it; one that runs across
// the corner, but for a hair, holds it but for a hair as well.
bool parts_two(const Feasible& feasible, double amount)
{
    const auto ends_there = [&](const AmountRange& range) { return range.most == amount; };
    const auto begins_there = [&](const AmountRange& range) { return range.least == amount; };
    const std::vector<AmountRange>& all = feasible.ranges;
    return std::any_of(all.begin(), all.end(), ends_there) &&
           std::any_of(all.begin(), all.end(), begins_there);
}

// A line that passes a vertex by some spacings of doubles lies so many times farther off where it ends.
double lever(const Parcel& parcel, const Line& line)
{
    if (line.cut != Cut::through_vertex && line.cut != Cut::through_place && line.cut != Cut::through_point)
        return 1.0;
    const Ring& ring = line.ring == 0 ? parcel.outer : parcel.holes[line.ring - 1];
    PL_PNT2D_record start = line.cut == Cut::through_point ? line.a : ring[line.index];
    if (line.cut == Cut::through_place) {
        const PL_PNT2D_record& end = ring[(line.index + 1) % ring.size()];
        const double part = line.along / std::hypot(end.x - start.x, end.y - start.y);
        start = {start.x + part * (end.x - start.x), start.y + part * (end.y - start.y)};
    }
    const double extent = plparcel::extent_of(parcel.outer).largest();
    double nearest = extent;
    const auto look = [&](const Ring& of) {
        for (const PL_PNT2D_record& v : of) {
            const double away = std::hypot(v.x - start.x, v.y - start.y);
            nearest = away > 0.0 ? std::fmin(nearest, away) : nearest;
        }
    };
    look(parcel.outer);
    for (const Ring& hole : parcel.holes)
        look(hole);
    return extent / nearest;
}

TEST(Feasible, BesideHolesWhatIsInsideIsDividedAndWhatIsOutsideIsRefused)
{
    std::mt19937_64 random = test::random_source();
    int inside = 0;
    int outside = 0;
    int ends = 0;
    int beside = 0;  // not called had, but a line next to the one that touches holds as much
    int too_coarse = 0;
    const int most = requests() / 2;
    for (int tried = 0; tried < most;) {
        const Parcel parcel = any_holed(random);
        if (check_parcel(parcel).status != plparcel::BoundaryStatus::usable || parcel.holes.empty())
            continue;
        const Line line = any_line(random, parcel);
        const auto measured = static_cast<Measured>(random() % 2);
        const Feasible feasible = plparcel::feasible(parcel, line, measured);
        if (feasible.refusal) {
            EXPECT_EQ(*feasible.refusal, status_of(parcel, line, measured, 0.5));
            ++tried;
            continue;
        }
        const auto told = [&](double amount, Status status) {
            std::ostringstream text;
            text.precision(17);
            text << " cut " << static_cast<int>(line.cut) << " ring " << line.ring << " index " << line.index
                 << " bearing " << line.bearing << " a " << line.a.x << " " << line.a.y << " b " << line.b.x
                 << " " << line.b.y << " measured " << static_cast<int>(measured) << " amount " << amount
                 << ": " << describe(status) << "; " << said(feasible) << coordinates(parcel);
            return text.str();
        };
        const double margin = 2e-9 * feasible.parcel + 16.0 * plparcel::coordinate_spacing(parcel.outer) *
                                                           plparcel::extent_of(parcel.outer).largest() *
                                                           lever(parcel, line);
        for (const double amount : amounts_for(random, feasible, margin)) {
            const bool is_in = is_inside(feasible, amount, margin);
            if (!is_amount(feasible, amount) || (!is_in && !is_outside(feasible, amount, margin)))
                continue;
            ++tried;
            const Status status = status_of(parcel, line, measured, amount);
            too_coarse += status == Status::not_reached ? 1 : 0;
            if (status == Status::not_reached)
                continue;
            (is_in ? inside : outside) += 1;
            EXPECT_EQ(status == Status::divided, is_in) << told(amount, status);
        }
        for (const AmountRange& range : feasible.ranges) {
            for (const bool least : {true, false}) {
                const double amount = least ? range.least : range.most;
                if (!is_amount(feasible, amount) || parts_two(feasible, amount))
                    continue;
                ++tried;
                ++ends;
                const Status status = status_of(parcel, line, measured, amount);
                if (status == Status::not_reached)
                    continue;
                if (least ? range.least_is_had : range.most_is_had)
                    EXPECT_EQ(status, Status::divided) << "end" << told(amount, status);
                else
                    beside += status == Status::divided ? 1 : 0;
            }
        }
    }
    std::printf("%d inside, %d outside, %d ends, %d of them had beside, %d too coarse\n", inside, outside,
                ends, beside, too_coarse);
    EXPECT_LT(too_coarse, most / 50);
    EXPECT_LE(beside, 5 + ends / 200);
}

TEST(Feasible, WhatIsInsideIsDividedAndWhatIsOutsideIsRefused)
{
    std::mt19937_64 random = test::random_source();
    int inside = 0;
    int outside = 0;
    int ends = 0;
    int too_coarse = 0;
    for (int tried = 0; tried < requests();) {
        const auto& kinds = test::parcel_kinds();
        const test::ParcelKind& kind = kinds[random() % kinds.size()];
        const Ring ring = random() % 4 == 0 ? test::stepped_ring(random, 4, 100.0) : kind.make(random);
        const Line line = any_line(random, ring);
        const auto measured = static_cast<Measured>(random() % 2);
        const Feasible feasible = plparcel::feasible({ring, {}}, line, measured);
        if (feasible.refusal) {
            EXPECT_EQ(*feasible.refusal, status_of({ring, {}}, line, measured, 0.5));
            ++tried;
            continue;
        }
        const double margin = 2e-9 * feasible.parcel +
                              8.0 * plparcel::coordinate_spacing(ring) * plparcel::extent_of(ring).largest();
        for (const double amount : amounts_for(random, feasible, margin)) {
            if (!is_amount(feasible, amount))
                continue;
            const bool is_in = is_inside(feasible, amount, margin);
            if (!is_in && !is_outside(feasible, amount, margin))
                continue;
            ++tried;
            const Status status = status_of({ring, {}}, line, measured, amount);
            too_coarse += status == Status::not_reached ? 1 : 0;
            if (status == Status::not_reached)
                continue;
            (is_in ? inside : outside) += 1;
            EXPECT_EQ(status == Status::divided, is_in)
                << kind.name << " cut " << static_cast<int>(line.cut) << " index " << line.index
                << " bearing " << line.bearing << " amount " << amount << " of " << feasible.parcel << ": "
                << describe(status) << "; " << said(feasible);
        }
        if (line.cut == Cut::through_point && is_in_line(ring, line.a))
            continue;
        for (const AmountRange& range : feasible.ranges) {
            for (const bool least : {true, false}) {
                const double amount = least ? range.least : range.most;
                if (!is_amount(feasible, amount))
                    continue;
                ++tried;
                ++ends;
                const Status status = status_of({ring, {}}, line, measured, amount);
                if (status == Status::not_reached)
                    continue;
                const bool is_had = least ? range.least_is_had : range.most_is_had;
                if (!is_had && line.cut == Cut::through_point)
                    continue;  // a line beside it may hold the amount nearly
                EXPECT_EQ(status == Status::divided, is_had)
                    << "end " << amount << " of " << said(feasible) << " " << kind.name << " cut "
                    << static_cast<int>(line.cut) << " index " << line.index << ": " << describe(status)
                    << coordinates(ring);
            }
        }
    }
    std::printf("%d inside, %d outside, %d ends, %d too coarse\n", inside, outside, ends, too_coarse);
    EXPECT_LT(too_coarse, requests() / 50);
}

}  // namespace
