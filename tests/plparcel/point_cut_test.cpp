// Lines from a place on the boundary, and through a point inside.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "plparcel/division.h"
#include "plparcel/extent.h"
#include "plparcel/feasible.h"
#include "support/bits.h"
#include "support/parcel_kinds.h"
#include "support/rings.h"

namespace {

using plparcel::area;
using plparcel::Cut;
using plparcel::divide;
using plparcel::Division;
using plparcel::Line;
using plparcel::Measured;
using plparcel::Request;
using plparcel::Ring;
using plparcel::share;
using plparcel::Status;
using plparcel::through_place;
using plparcel::through_point;

//   3 ------- 2      5 --- 4
//   |         |      |     |
//   |         |      |     3 --- 2
//   |         |      |           |
//   0 ------- 1      0 --------- 1
const Ring kSquare = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
const Ring kSquareClockwise = {{0, 0}, {0, 100}, {100, 100}, {100, 0}};
const Ring kEl = {{0, 0}, {100, 0}, {100, 50}, {50, 50}, {50, 100}, {0, 100}};
// A vertex in the middle of the bottom.
const Ring kStraightOn = {{0, 0}, {50, 0}, {100, 0}, {100, 100}, {0, 100}};
const double kNan = std::nan("");

Division cut(const Ring& ring, const Line& line, double asked, Measured measured = Measured::from_reference)
{
    Request request;
    request.line = line;
    request.amounts = {area(asked)};
    request.measured = measured;
    return divide(ring, request);
}

struct Row {
    const char* what;
    const Ring& ring;
    Line line;
    double asked;
    Measured measured;
    Status status;
    PL_PNT2D_record from;
    PL_PNT2D_record to;
};

constexpr Measured kNear = Measured::from_reference;
constexpr Measured kFar = Measured::opposite;

void expect_row(const Row& row, std::size_t first)
{
    Line line = row.line;
    if (line.cut == Cut::through_place && line.index < row.ring.size())
        line.index = (line.index + row.ring.size() - first) % row.ring.size();
    const Division division = cut(test::begun_at(row.ring, first), line, row.asked, row.measured);
    EXPECT_EQ(division.status, row.status) << describe(division);
    if (division.status != Status::divided || row.status != Status::divided)
        return;
    EXPECT_POINT(division.lines[0].from, (row.from));
    EXPECT_POINT(division.lines[0].to, (row.to));
    EXPECT_NEAR(division.pieces[0].area, row.asked, 1e-9 * division.ring.area);
}

// Whichever vertex the ring begins at.
void expect_rows(const std::vector<Row>& rows)
{
    for (const Row& row : rows)
        for (std::size_t first = 0; first < row.ring.size(); ++first) {
            SCOPED_TRACE(row.what);
            SCOPED_TRACE(first);
            expect_row(row, first);
        }
}

TEST(PlaceCut, StartsAtTheDistanceAlongTheSide)
{
    expect_rows({
        {"a triangle ahead of the place",
         kSquare,
         through_place(0, 20),
         2000,
         kNear,
         Status::divided,
         {20, 0},
         {100, 50}},
        {"behind it", kSquare, through_place(0, 20), 500, kFar, Status::divided, {20, 0}, {0, 50}},
        {"straight across", kSquare, through_place(0, 20), 8000, kNear, Status::divided, {20, 0}, {20, 100}},
        {"to a vertex", kSquare, through_place(0, 20), 4000, kNear, Status::divided, {20, 0}, {100, 100}},
        {"clockwise, side 3 runs along the bottom to the West",
         kSquareClockwise,
         through_place(3, 20),
         2000,
         kNear,
         Status::divided,
         {80, 0},
         {0, 50}},
        {"at the side's first end: the vertex",
         kSquare,
         through_place(0, 0),
         2500,
         kNear,
         Status::divided,
         {0, 0},
         {100, 50}},
        {"at its other end",
         kSquare,
         through_place(0, 100),
         2500,
         kNear,
         Status::divided,
         {100, 0},
         {50, 100}},
        {"a hair beyond it, as rounding brings it",
         kSquare,
         through_place(0, test::up(100.0)),
         2500,
         kNear,
         Status::divided,
         {100, 0},
         {50, 100}},
        {"on a side in one line with the next",
         kStraightOn,
         through_place(0, 20),
         2000,
         kNear,
         Status::divided,
         {20, 0},
         {100, 50}},
        {"between 1750, to the reflex vertex of an L, and 2500, past it",
         kEl,
         through_place(0, 80),
         2000,
         kNear,
         Status::line_leaves_parcel,
         {},
         {}},
        {"past the reflex vertex",
         kEl,
         through_place(0, 80),
         2500.5,
         kNear,
         Status::divided,
         {80, 0},
         {19.99, 100}},
        {"to the reflex vertex", kEl, through_place(0, 80), 1750, kNear, Status::divided, {80, 0}, {50, 50}},
        {"beyond the end", kSquare, through_place(0, 100.001), 2500, kNear, Status::no_such_place, {}, {}},
        {"before the beginning",
         kSquare,
         through_place(0, -0.001),
         2500,
         kNear,
         Status::no_such_place,
         {},
         {}},
        {"no number", kSquare, through_place(0, kNan), 2500, kNear, Status::no_such_place, {}, {}},
        {"no such side", kSquare, through_place(4, 20), 2500, kNear, Status::no_such_index, {}, {}},
    });
}

// Spacings are 2^-45 at 128. 2.5 of them beyond an end of the side the place is that end; more is nowhere.
TEST(PlaceCut, APlaceARoundingBeyondASideIsItsEnd)
{
    const Ring narrow = {{0, 0}, {1, 0}, {1, 128}, {0, 128}};
    constexpr double kReach = 2.5 * 0x1p-45;
    expect_rows({
        {"before the side", narrow, through_place(0, -kReach), 32, kNear, Status::divided, {0, 0}, {1, 64}},
        {"a hair more",
         narrow,
         through_place(0, test::down(-kReach)),
         32,
         kNear,
         Status::no_such_place,
         {},
         {}},
        {"beyond the side",
         narrow,
         through_place(0, 1 + kReach),
         96,
         kNear,
         Status::divided,
         {1, 0},
         {0, 64}},
        {"a hair more",
         narrow,
         through_place(0, test::up(1 + kReach)),
         96,
         kNear,
         Status::no_such_place,
         {},
         {}},
    });
    // A whole line too, past a hole.
    const plparcel::Parcel holed = {narrow, {{{0.25, 120}, {0.75, 120}, {0.5, 125}}}};
    const auto status = [&holed](double along) {
        Request request;
        request.line = through_place(0, along);
        request.amounts = {plparcel::area(32)};
        return divide(holed, request).status;
    };
    EXPECT_EQ(status(-kReach), Status::divided);
    EXPECT_EQ(status(test::down(-kReach)), Status::no_such_place);
    EXPECT_EQ(status(1 + kReach), Status::divided);
    EXPECT_EQ(status(test::up(1 + kReach)), Status::no_such_place);
}

TEST(PlaceCut, StartsAtAPointOnTheBoundary)
{
    const PL_PNT2D_record third = {100.0 / 3.0, 0.0};
    expect_rows({
        {"the amount on the right of the line",
         kSquare,
         through_point({20, 0}),
         2000,
         kNear,
         Status::divided,
         {20, 0},
         {100, 50}},
        {"on its left", kSquare, through_point({20, 0}), 500, kFar, Status::divided, {20, 0}, {0, 50}},
        {"whichever way the ring runs",
         kSquareClockwise,
         through_point({20, 0}),
         2000,
         kNear,
         Status::divided,
         {20, 0},
         {100, 50}},
        {"to the last bit",
         kSquare,
         through_point(third),
         5000,
         kNear,
         Status::divided,
         third,
         {100.0 - third.x, 100}},
        {"a vertex", kSquare, through_point({100, 100}), 2500, kNear, Status::divided, {100, 100}, {0, 50}},
        {"next to it",
         kSquare,
         through_point({100, test::up(100)}),
         2500,
         kNear,
         Status::divided,
         {100, 100},
         {0, 50}},
        {"a hair outside: on the boundary",
         kSquare,
         through_point({20, -0x1p-46}),
         2000,
         kNear,
         Status::divided,
         {20, -0x1p-46},
         {100, 50}},
        {"2.5 spacings of 2^-52 * 100 are 5.6e-14: more is outside",
         kSquare,
         through_point({20, -5.7e-14}),
         2000,
         kNear,
         Status::point_outside,
         {},
         {}},
        {"on the prolongation of a side",
         kSquare,
         through_point({120, 0}),
         2000,
         kNear,
         Status::point_outside,
         {},
         {}},
        {"outside, in the notch of an L",
         kEl,
         through_point({75, 75}),
         2000,
         kNear,
         Status::point_outside,
         {},
         {}},
        {"as far inside: on the boundary",
         kSquare,
         through_point({20, 0x1p-46}),
         2000,
         kNear,
         Status::divided,
         {20, 0x1p-46},
         {100, 50}},
        {"4 spacings are 8.9e-14: a vertex",
         kSquare,
         through_point({100, 8.5e-14}),
         2500,
         kNear,
         Status::divided,
         {100, 0},
         {50, 100}},
        {"no vertex: the far end is half of that off 50",
         kSquare,
         through_point({100, 9.5e-14}),
         2500,
         kNear,
         Status::divided,
         {100, 9.5e-14},
         {50 - 4.75e-14, 100}},
        {"above", kSquare, through_point({50, 101}), 2000, kNear, Status::point_outside, {}, {}},
        {"below", kSquare, through_point({50, -1}), 2000, kNear, Status::point_outside, {}, {}},
        {"on the left", kSquare, through_point({-1, 50}), 2000, kNear, Status::point_outside, {}, {}},
        {"on the right", kSquare, through_point({101, 50}), 2000, kNear, Status::point_outside, {}, {}},
        {"no number", kSquare, through_point({kNan, 0}), 2000, kNear, Status::point_outside, {}, {}},
        {"a bearing that is no number",
         kSquare,
         through_point({20, 0}, kNan),
         2000,
         kNear,
         Status::no_direction,
         {},
         {}},
        {"infinite", kSquare, through_point({0, HUGE_VAL}), 2000, kNear, Status::point_outside, {}, {}},
    });
}

// Doubles are whole numbers here, and a point within 2.5 of a side lies on it: the nearer one counts, wherever the ring
// begins.
//      7-----------------------6
//      |                    4--5
//      |                    3--2
//      0-----------------------1
TEST(PlaceCut, BetweenTwoSidesStartsOnTheNearerOne)
{
    constexpr double kWhole = 0x1p52;
    const Ring shape = {{0, 0}, {200, 0}, {200, 98}, {100, 98}, {100, 100}, {200, 100}, {200, 200}, {0, 200}};
    for (std::size_t first = 0; first < shape.size(); ++first) {
        Ring ring = test::begun_at(shape, first);
        for (PL_PNT2D_record& p : ring)
            p = {p.x + kWhole, p.y + kWhole};
        const Division division = cut(ring, through_point({kWhole + 150, kWhole + 98}), 4900, kFar);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_POINT(division.lines[0].from, (PL_PNT2D_record{kWhole + 150, kWhole + 98}));
        EXPECT_POINT(division.lines[0].to, (PL_PNT2D_record{kWhole + 150, kWhole}));
    }
}

// Doubles are 1e-9 apart here, and the parcels a few metres large. Where the nearest end of the line misses the amount, the
// start does not give way.
TEST(PlaceCut, StartsWhereItWasToldToTheLastBit)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> part(0.0, 1.0);
    int divided = 0;
    for (int i = 0; i < 600; ++i) {
        const double x = 500000 + 100 * part(random);
        const double y = 5500000 + 100 * part(random);
        const double length = 0.2 + 4 * part(random);
        const double width = 0.1 + part(random);
        const Ring far = {{x, y},
                          {x + length, y + 0.3 * width * part(random)},
                          {x + length * (0.5 + part(random)), y + width},
                          {x - 0.2 * width * part(random), y + width * (0.5 + part(random))}};
        const double at = part(random);
        const PL_PNT2D_record start = {far[0].x + at * (far[1].x - far[0].x),
                                       far[0].y + at * (far[1].y - far[0].y)};
        Request request;
        request.line = through_point(start);
        request.amounts = {plparcel::share(0.01 + 0.98 * part(random), 1)};
        const Division division = divide(far, request);
        if (division.status != Status::divided)
            continue;
        ++divided;
        EXPECT_POINT(division.lines[0].from, (start));
    }
    EXPECT_GT(divided, 300);
}

TEST(PlaceCut, EqualPartsFanOut)
{
    Request request;
    request.line = through_place(0, 50);
    request.amounts = plparcel::equal_parts(4);
    const Division division = divide(kSquare, request);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    const PL_PNT2D_record ends[] = {{100, 100}, {50, 100}, {0, 100}};
    ASSERT_EQ(division.lines.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_POINT(division.lines[i].from, ({50, 0}));
        EXPECT_POINT(division.lines[i].to, (ends[i]));
    }
}

TEST(PointCut, RunsThroughThePoint)
{
    expect_rows({
        {"the least corner, from 25 inside of both its sides",
         kSquare,
         through_point({25, 25}),
         1250,
         kNear,
         Status::divided,
         {0, 50},
         {50, 0}},
        {"less than that",
         kSquare,
         through_point({25, 25}),
         1249,
         kNear,
         Status::no_line_through_point,
         {},
         {}},
        {"less by what is granted",
         kSquare,
         through_point({25, 25}),
         1250 - 0.9e-5,
         kNear,
         Status::divided,
         {0, 50},
         {50, 0}},
        {"by a little more",
         kSquare,
         through_point({25, 25}),
         1250 - 1.1e-5,
         kNear,
         Status::no_line_through_point,
         {},
         {}},
        {"legs 75 and 37.5: the first from the North",
         kSquare,
         through_point({25, 25}),
         1406.25,
         kNear,
         Status::divided,
         {0, 37.5},
         {75, 0}},
        {"from South-East on the other",
         kSquare,
         through_point({25, 25}, 150),
         1406.25,
         kNear,
         Status::divided,
         {0, 75},
         {37.5, 0}},
        {"on the left of the line",
         kSquare,
         through_point({25, 25}),
         1406.25,
         kFar,
         Status::divided,
         {75, 0},
         {0, 37.5}},
        {"whichever way the ring runs",
         kSquareClockwise,
         through_point({25, 25}),
         1406.25,
         kNear,
         Status::divided,
         {0, 37.5},
         {75, 0}},
        {"the diagonal", kSquare, through_point({25, 25}), 5000, kNear, Status::divided, {0, 0}, {100, 100}},
        {"the middle: the line at the bearing",
         kSquare,
         through_point({50, 50}),
         5000,
         kNear,
         Status::divided,
         {50, 0},
         {50, 100}},
        {"another bearing",
         kSquare,
         through_point({50, 50}, 350),
         5000,
         kNear,
         Status::divided,
         {100, 0},
         {0, 100}},
        {"the middle, and anything but half",
         kSquare,
         through_point({50, 50}),
         4000,
         kNear,
         Status::no_line_through_point,
         {},
         {}},
        {"to the reflex vertex of an L",
         kEl,
         through_point({25, 25}),
         3750,
         kNear,
         Status::divided,
         {0, 0},
         {50, 50}},
        {"through a vertex on a straight side",
         kStraightOn,
         through_point({50, 50}),
         5000,
         kNear,
         Status::divided,
         {50, 0},
         {50, 100}},
    });
}

TEST(PointCut, OfManyPartsGoesRoundThePoint)
{
    Request request;
    request.line = through_point({50, 50});
    request.amounts = {share(1, 2), share(1, 8), share(1, 4)};
    const Division division = divide(kSquare, request);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    ASSERT_EQ(division.lines.size(), 3U);
    ASSERT_EQ(division.pieces.size(), 4U);
    const PL_PNT2D_record ends[] = {{50, 100}, {0, 100}, {0, 0}};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_POINT(division.lines[i].from, (i == 0 ? PL_PNT2D_record{50, 0} : PL_PNT2D_record{50, 50}));
        EXPECT_POINT(division.lines[i].to, (ends[i]));
    }
    EXPECT_BITS(division.pieces[3].area, 1250.0);
}

// A line through the point ends at a vertex and makes pieces that miss by a little less than is granted; turned on, it would
// end far beyond the vertex. Above (4, 9) to (9, 9) lie 5/2, beside (5, 4) to (6, 6) lies 1.
TEST(PointCut, ALineToAVertexBesideTheAmountIsTakenWhicheverWayItTurns)
{
    const struct {
        Ring ring;
        PL_PNT2D_record point;
        double asked;
        PL_PNT2D_record vertex;
        PL_PNT2D_record other;
    } rows[] = {
        {{{12, 10}, {4, 9}, {1, 11}, {3, 7}}, {5, 9}, 2.5 - 5e-9, {4, 9}, {9, 9}},
        {{{0, 0}, {7, 0}, {7, 6}, {5, 6}, {5, 4}, {4, 4}, {4, 3}, {2, 3}, {2, 2}, {0, 2}},
         {5.5, 5},
         25 + 1.3e-8,
         {5, 4},
         {6, 6}},
    };
    for (const auto& row : rows) {
        for (const double sign : {1.0, -1.0}) {
            const auto seen = [sign](const PL_PNT2D_record& p) { return PL_PNT2D_record{sign * p.x, p.y}; };
            Ring ring;
            for (const PL_PNT2D_record& p : row.ring)
                ring.push_back(seen(p));
            const Division division = cut(ring, through_point(seen(row.point)), row.asked);
            ASSERT_EQ(division.status, Status::divided) << describe(division) << sign;
            const PL_PNT2D_record vertex = seen(row.vertex);
            const plparcel::DividingLine& line = division.lines[0];
            const bool is_from_vertex = line.from.x == vertex.x && line.from.y == vertex.y;
            EXPECT_POINT(is_from_vertex ? line.from : line.to, (vertex));
            EXPECT_POINT(is_from_vertex ? line.to : line.from, (seen(row.other)));
        }
    }
}

TEST(PointCut, AllLinesCanBeHadInTheirOrder)
{
    const struct {
        const char* what;
        const Ring& ring;
        Line line;
        double asked;
        std::vector<PL_LINE_2D_record> lines;
    } rows[] = {
        {"both legs",
         kSquare,
         through_point({25, 25}),
         1406.25,
         {{{0, 37.5}, {75, 0}}, {{0, 75}, {37.5, 0}}}},
        {"the diagonal either way, to a vertex only once",
         kSquare,
         through_point({25, 25}),
         5000,
         {{{0, 0}, {100, 100}}, {{100, 100}, {0, 0}}}},
        {"the least corner, and what is less by what is granted: once",
         kSquare,
         through_point({25, 25}),
         1250 - 0.9e-5,
         {{{0, 50}, {50, 0}}}},
        {"from a corner, and less by what is granted the diagonal: the one that holds it",
         kSquare,
         plparcel::through_vertex(0),
         5000 - 0x1p-20,
         {{{0, 0}, {100, 100 - 0x1p-20 / 50}}}},
        {"a parallel: one", kSquare, plparcel::parallel_to(0), 2500, {{{0, 25}, {100, 25}}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Request request;
        request.line = row.line;
        request.amounts = {area(row.asked)};
        const std::vector<Division> all = plparcel::all_divisions(row.ring, request);
        ASSERT_EQ(all.size(), row.lines.size());
        for (std::size_t i = 0; i < all.size(); ++i) {
            ASSERT_EQ(all[i].status, Status::divided) << describe(all[i]);
            EXPECT_POINT(all[i].lines[0].from, (row.lines[i].start));
            EXPECT_POINT(all[i].lines[0].to, (row.lines[i].end));
        }
        request.alternative = all.size();
        EXPECT_EQ(divide(row.ring, request).status, Status::no_further_line);
    }
}

// The roof's sides lean in by 2 in 5. The line from (x, 0) through (50, 10) meets the right side at 10 (100 - x) /
// (54 - x) up and cuts off 5 (100 - x)^2 / (54 - x): at x = 0 as much as at x = 400/27, and less in between. So do the
// lines from the other lower corner and from its mirror.
TEST(PointCut, TwoLinesThatHoldAsMuchAndLessBetweenThem)
{
    const Ring roof = {{0, 0}, {100, 0}, {80, 50}, {20, 50}};
    Request request;
    request.line = through_point({50, 10});
    request.amounts = {area(25000.0 / 27)};
    const std::vector<Division> all = plparcel::all_divisions(roof, request);
    const PL_LINE_2D_record lines[] = {{{400.0 / 27, 0}, {2100.0 / 23, 500.0 / 23}},
                                       {{0, 0}, {2500.0 / 27, 500.0 / 27}},
                                       {{200.0 / 27, 500.0 / 27}, {100, 0}},
                                       {{200.0 / 23, 500.0 / 23}, {2300.0 / 27, 0}}};
    ASSERT_EQ(all.size(), 4U);
    for (std::size_t i = 0; i < all.size(); ++i) {
        ASSERT_EQ(all[i].status, Status::divided) << describe(all[i]);
        EXPECT_NEAR(all[i].lines[0].from.x, lines[i].start.x, 1e-13);
        EXPECT_NEAR(all[i].lines[0].from.y, lines[i].start.y, 1e-13);
        EXPECT_NEAR(all[i].lines[0].to.x, lines[i].end.x, 1e-13);
        EXPECT_NEAR(all[i].lines[0].to.y, lines[i].end.y, 1e-13);
    }
}

// From either lower corner 625 lies below the line, and 700 below the level one between them.
TEST(PointCut, FromCornerToCornerWhatIsBetweenHoldsMore)
{
    const Ring tent = {{0, 0}, {100, 0}, {52, 16}, {48, 16}};
    Request request;
    request.line = through_point({50, 10});
    request.amounts = {area(625)};
    const std::vector<Division> all = plparcel::all_divisions(tent, request);
    ASSERT_EQ(all.size(), 2U);
    ASSERT_EQ(all[1].status, Status::divided);
    EXPECT_POINT(all[0].lines[0].from, (PL_PNT2D_record{0, 0}));
    EXPECT_POINT(all[0].lines[0].to, (PL_PNT2D_record{62.5, 12.5}));
    EXPECT_POINT(all[1].lines[0].from, (PL_PNT2D_record{37.5, 12.5}));
    EXPECT_POINT(all[1].lines[0].to, (PL_PNT2D_record{100, 0}));
}

// 1 ------------ 0   Through the middle (0, 0), from the tip 4 to the tip 8. Turned a hair to either side, the line ends at
// |           .- 9   the wall behind one of them. On its right lie (-3, -3), (0, -10), (10, -10), (10, 0) and (3, 3), twice
// |         8        30 + 100 + 100 + 30 = 260.
// |           `- 7
// |   4          |
// |  / \         |
// 2 3   5 ------ 6
TEST(PointCut, FromTipToTip)
{
    const Ring wedged = {{10, 10}, {-10, 10}, {-10, -10}, {-6, -10}, {-3, -3},
                         {0, -10}, {10, -10}, {10, 0},    {3, 3},    {10, 8}};
    for (const bool is_mirrored : {true, false})
        for (int quarters = 0; quarters < 4; ++quarters) {
            Ring ring;
            for (PL_PNT2D_record p : wedged) {
                p.x = is_mirrored ? -p.x : p.x;
                for (int i = 0; i < quarters; ++i)
                    p = {-p.y, p.x};
                ring.push_back(p);
            }
            Request request;
            request.line = through_point({0, 0});
            request.amounts = {area(130)};
            for (const Measured measured : {kNear, kFar}) {
                request.measured = measured;
                int from_tip_to_tip = 0;
                for (const Division& division : plparcel::all_divisions(ring, request)) {
                    ASSERT_EQ(division.status, Status::divided) << describe(division);
                    const PL_PNT2D_record& from = division.lines[0].from;
                    const PL_PNT2D_record& to = division.lines[0].to;
                    from_tip_to_tip +=
                        std::abs(from.x) == 3 && std::abs(from.y) == 3 && to.x == -from.x && to.y == -from.y;
                }
                EXPECT_EQ(from_tip_to_tip, 1) << is_mirrored << ' ' << quarters;
            }
        }
}

TEST(PointCut, WithoutALineTheReasonIsTold)
{
    Request request;
    request.line = through_point({25, 25});
    request.amounts = {area(1249)};
    const std::vector<Division> all = plparcel::all_divisions(kSquare, request);
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].status, Status::no_line_through_point);
}

std::vector<plparcel::AmountRange> amounts_through(const Ring& ring, const PL_PNT2D_record& point)
{
    return plparcel::feasible({ring, {}}, through_point(point)).ranges;
}

TEST(PointCut, TellsWhatCanBeHad)
{
    const struct {
        const char* what;
        Ring ring;
        PL_PNT2D_record point;
        std::vector<plparcel::AmountRange> ranges;
    } rows[] = {
        {"near a corner", kSquare, {25, 25}, {{1250, 8750}}},
        {"clockwise", kSquareClockwise, {25, 25}, {{1250, 8750}}},
        {"the middle: half", kSquare, {50, 50}, {{5000, 5000}}},
        {"on the boundary", kSquare, {50, 0}, {{0, 10000}}},
        {"outside", kSquare, {150, 0}, {}},
        {"no number", kSquare, {kNan, 0}, {}},
        {"no parcel", {{0, 0}, {1, 1}}, {0.5, 0.5}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const std::vector<plparcel::AmountRange> ranges = amounts_through(row.ring, row.point);
        ASSERT_EQ(ranges.size(), row.ranges.size());
        for (std::size_t i = 0; i < ranges.size(); ++i) {
            EXPECT_NEAR(ranges[i].least, row.ranges[i].least, 1e-9);
            EXPECT_NEAR(ranges[i].most, row.ranges[i].most, 1e-9);
        }
    }
}

// Between two ranges nothing is had, and inside of each everything is.
TEST(PointCut, InARangeEverythingIsHadAndBetweenThemNothing)
{
    // A comb: from its back, past the feet of its teeth.
    const Ring comb = {{0, 0},   {90, 0},  {90, 50}, {70, 50}, {70, 20}, {50, 20},
                       {50, 50}, {30, 50}, {30, 20}, {20, 20}, {20, 50}, {0, 50}};
    const PL_PNT2D_record point = {60, 10};
    const std::vector<plparcel::AmountRange> ranges = amounts_through(comb, point);
    ASSERT_GT(ranges.size(), 1U);
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        const double within = ranges[i].most - ranges[i].least;
        ASSERT_GT(within, 0.0);
        for (const double part : {0.01, 0.3, 0.5, 0.99})
            EXPECT_EQ(cut(comb, through_point(point), ranges[i].least + part * within).status,
                      Status::divided);
        if (i == 0)
            continue;
        EXPECT_EQ(cut(comb, through_point(point), 0.5 * (ranges[i - 1].most + ranges[i].least)).status,
                  Status::no_line_through_point);
    }
}

TEST(PointCut, OnSmallParcelsAtUtmSize)
{
    for (const double size : {0.5, 5.0, 50.0}) {
        SCOPED_TRACE(size);
        Ring ring = kSquare;
        for (PL_PNT2D_record& p : ring)
            p = {500000.0 + 0.01 * size * p.x, 5000000.0 + 0.01 * size * p.y};
        const PL_PNT2D_record point = {500000.0 + 0.3 * size, 5000000.0 + 0.35 * size};
        const Division division = cut(ring, through_point(point), 0.4 * size * size);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        const plparcel::DividingLine& line = division.lines[0];
        const double dx = line.to.x - line.from.x;
        const double dy = line.to.y - line.from.y;
        const double off = (dx * (point.y - line.from.y) - dy * (point.x - line.from.x)) / std::hypot(dx, dy);
        EXPECT_LE(std::fabs(off), 6.0 * plparcel::coordinate_spacing(ring));
    }
}

// ---- Whole lines

const plparcel::Parcel kHoled = {kSquare, {{{40, 40}, {40, 60}, {60, 60}, {60, 40}}}};

Request whole(const Line& line, const std::vector<plparcel::Amount>& amounts,
              Measured measured = Measured::from_reference)
{
    Request request;
    request.line = line;
    request.amounts = amounts;
    request.measured = measured;
    request.pieces = plparcel::Pieces::any;
    return request;
}

struct WholeRow {
    const char* what;
    plparcel::Parcel parcel;
    Line line;
    double asked;
    Measured measured;
    PL_PNT2D_record from;
    PL_PNT2D_record to;
    std::size_t segments;
    std::size_t pieces;
};

TEST(TurningWholeLine, CutsOffTheAmount)
{
    const plparcel::Parcel square = {kSquare, {}};
    const plparcel::Parcel clockwise = {kSquareClockwise, {}};
    const plparcel::Parcel el = {kEl, {}};
    const WholeRow rows[] = {
        {"from a vertex", square, plparcel::through_vertex(0), 2500, kNear, {0, 0}, {100, 50}, 1, 2},
        {"on the other side", square, plparcel::through_vertex(0), 2500, kFar, {0, 0}, {50, 100}, 1, 2},
        {"clockwise: side 0 runs North, and the amount lies on its side",
         clockwise,
         plparcel::through_vertex(0),
         2500,
         kNear,
         {50, 100},
         {0, 0},
         1,
         2},
        {"from a place", square, through_place(0, 20), 2000, kNear, {20, 0}, {100, 50}, 1, 2},
        {"from a point on the boundary",
         square,
         through_point({20, 0}),
         2000,
         kNear,
         {20, 0},
         {100, 50},
         1,
         2},
        {"a point inside", square, through_point({25, 25}), 1406.25, kNear, {0, 37.5}, {75, 0}, 1, 2},
        {"at the point's least corner", square, through_point({25, 25}), 1250, kNear, {0, 50}, {50, 0}, 1, 2},
        {"less by what is granted",
         square,
         through_point({25, 25}),
         1250 - 0.9e-5,
         kNear,
         {0, 50},
         {50, 0},
         1,
         2},
        {"a point outside", square, through_point({-100, 50}), 5000, kNear, {0, 50}, {100, 50}, 1, 2},
        {"a point outside, on the left of the line",
         square,
         through_point({-100, 50}),
         5000,
         kFar,
         {0, 50},
         {100, 50},
         1,
         2},
        {"through a reflex vertex, on both sides of it",
         el,
         plparcel::through_vertex(3),
         3750,
         kNear,
         {50, 50},
         {0, 0},
         1,
         2},
        {"along a side", el, plparcel::through_vertex(3), 5000, kNear, {50, 50}, {50, 0}, 1, 2},
        {"in a hole", kHoled, through_point({50, 50}), 4800, kNear, {50, 0}, {50, 100}, 2, 2},
        {"from a vertex across a hole",
         kHoled,
         plparcel::through_vertex(0),
         4800,
         kNear,
         {0, 0},
         {100, 100},
         2,
         2},
        {"from a place at a corner", kHoled, through_place(0, 0), 4800, kNear, {0, 0}, {100, 100}, 2, 2},
        {"from the middle of a hole's side",
         kHoled,
         [] {
             Line l = through_place(0, 10);
             l.ring = 1;
             return l;
         }(),
         4800,
         kNear,
         {100, 50},
         {0, 50},
         2,
         2},
    };
    for (const WholeRow& row : rows) {
        SCOPED_TRACE(row.what);
        const Division division = divide(row.parcel, whole(row.line, {area(row.asked)}, row.measured));
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        const auto is_near = [](const PL_PNT2D_record& a, const PL_PNT2D_record& b) {
            return std::hypot(a.x - b.x, a.y - b.y) < 1e-11;
        };
        const plparcel::DividingLine& line = division.lines[0];
        EXPECT_TRUE(is_near(line.from, row.from)) << line.from.x << " " << line.from.y;
        EXPECT_TRUE(is_near(line.to, row.to)) << line.to.x << " " << line.to.y;
        EXPECT_EQ(line.segments.size(), row.segments);
        EXPECT_EQ(division.pieces.size(), row.pieces);
        EXPECT_NEAR(division.held[0].area, row.asked, 1e-9 * division.ring.area);
    }
}

TEST(TurningWholeLine, IsRefusedWithTheReason)
{
    const auto status = [](const Request& request) { return divide(kHoled, request).status; };
    const auto one = [&](const Line& line, double asked) { return status(whole(line, {area(asked)})); };
    EXPECT_EQ(one(through_point({20, 20}), 700), Status::no_line_through_point);
    EXPECT_EQ(one(through_point({20, 20}), 800 - 0.97e-5), Status::no_line_through_point)
        << "0.96e-5 is granted";
    EXPECT_EQ(one(through_point({1.1e8, 0}), 700), Status::point_outside)
        << "over a million times the extent";
    EXPECT_EQ(one(through_point({0.9e8, 0}), 700), Status::divided);
    EXPECT_EQ(one(through_point({50, 1.1e8}), 700), Status::point_outside);
    EXPECT_EQ(one(through_point({kNan, 0}), 700), Status::point_outside);
    EXPECT_EQ(one(through_point({20, 20}, kNan), 700), Status::no_direction);
    EXPECT_EQ(one(through_place(0, 100.001), 700), Status::no_such_place);
    EXPECT_EQ(one(through_place(0, -0.001), 700), Status::no_such_place);
    const Ring repeated = {{0, 0}, {0, 0}, {100, 0}, {0, 100}};
    EXPECT_EQ(divide(repeated, whole(through_place(0, 0), {area(700)})).status, Status::side_without_length);
    EXPECT_EQ(one(plparcel::through_vertex(4), 700), Status::no_such_index);
    Line of_hole = plparcel::through_vertex(0);
    of_hole.ring = 2;
    EXPECT_EQ(one(of_hole, 700), Status::no_such_index);
    EXPECT_EQ(status(whole(through_point({20, 20}), {area(700), area(700)})), Status::only_one_amount);
    EXPECT_EQ(status(whole(through_point({50, 50}), {share(1, 2), share(1, 2)})), Status::divided)
        << "the second is what is left";
    EXPECT_EQ(status(whole(through_point({20, 20}), {plparcel::width(7)})), Status::no_width);
    Request second = whole(plparcel::through_vertex(0), {share(1, 2)});
    second.alternative = 1;
    EXPECT_EQ(status(second), Status::no_further_line);
    // 1250 is the least that a line through this point can cut off the square.
    Request least = whole(through_point({25, 25}), {area(1250 - 1e-6)});
    EXPECT_EQ(divide(kSquare, least).status, Status::divided) << "within a billionth of the parcel";
    least.alternative = 1;
    EXPECT_EQ(divide(kSquare, least).status, Status::no_further_line);
}

// Through a corner of a hole most lines only touch the hole: a piece would touch itself there.
TEST(TurningWholeLine, PassesTheHoleThatItTouches)
{
    Line line = plparcel::through_vertex(0);
    line.ring = 1;
    for (const double asked : {1000.0, 3000.0, 4000.0}) {
        const Division division = divide(kHoled, whole(line, {area(asked)}));
        if (division.status == Status::no_line_through_point)
            continue;
        ASSERT_EQ(division.status, Status::divided) << asked << " " << describe(division);
        EXPECT_NEAR(division.held[0].area, asked, 1e-9 * division.ring.area);
        const plparcel::DividingLine& found = division.lines[0];
        const double off = ((40 - found.from.x) * (found.to.y - found.from.y) -
                            (40 - found.from.y) * (found.to.x - found.from.x)) /
                           std::hypot(found.to.x - found.from.x, found.to.y - found.from.y);
        EXPECT_LE(std::fabs(off), 60 * plparcel::coordinate_spacing(kSquare)) << asked;
    }
}

// Every line through the middle halves the parcel: the one at the bearing, those through vertices, and one between
// each two of these.
TEST(TurningWholeLine, AllThatHoldTheAmount)
{
    EXPECT_EQ(all_divisions(kHoled, whole(through_point({50, 50}, 10), {share(1, 2)})).size(), 12U);
    EXPECT_EQ(all_divisions(kHoled, whole(through_point({25, 25}), {area(1406.25)})).size(), 2U);
}

//   5                     From the corner 4 straight down to 1, 160 lie on the right. The point is as far from one as from the
//   |  '-- 4 ---- 3       other: turned a little, the line holds as much but for the square of the angle. It is one line.
//   |      o      |
//   |  .-- 1 ---- 2
//   0
TEST(TurningWholeLine, ThroughAVertexWhereTheAmountGrowsFromNothing)
{
    for (const double way : {1.0, -1.0}) {
        const plparcel::Parcel parcel = {
            {{-20 * way, -8}, {0, 0}, {20 * way, 0}, {20 * way, 8}, {0, 8}, {-20 * way, 16}}, {}};
        const Measured measured = way > 0.0 ? kNear : kFar;
        const std::vector<Division> all =
            all_divisions(parcel, whole(through_point({0, 4}, 100), {area(160)}, measured));
        ASSERT_EQ(all.size(), 1U);
        EXPECT_EQ(all[0].lines[0].from.x, 0);
        EXPECT_EQ(all[0].lines[0].to.x, 0);
    }
}

// A place that doubles cannot put on its side exactly: the line begins along that side, and meets it nowhere or anywhere.
TEST(TurningWholeLine, FromAPlaceARoundingBesideItsSide)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<int> whole(1, 9);
    for (int i = 0; i < 2000; ++i) {
        const double x = whole(random);
        const double y = whole(random) - 5;
        const Ring ring = {{0, 0}, {60 * x, 60 * y}, {60 * x - 20 * y, 60 * y + 20 * x}, {-20 * y, 20 * x}};
        Request request;
        request.line = through_place(static_cast<std::size_t>(whole(random) % 4), whole(random));
        request.pieces = plparcel::Pieces::any;
        request.amounts = {share(10 * whole(random) + whole(random) % 3, 100)};
        const Division division = divide(ring, request);
        EXPECT_EQ(division.status, Status::divided) << i << ": " << describe(division);
    }
    Request request;
    request.line = through_place(0, 8);
    request.pieces = plparcel::Pieces::any;
    request.amounts = {share(26, 100)};
    EXPECT_EQ(divide({{0, 0}, {360, 240}, {280, 360}, {-80, 120}}, request).status, Status::divided);
}

// From a corner of a triangle, to the side across, which is seen at its end up to ten times as far as at its beginning.
// Every share is had, also where the line ends next to a vertex.
TEST(TurningWholeLine, OfATriangleEveryShareIsHad)
{
    for (double ratio = 0.1; ratio < 10.0; ratio *= 1.03) {
        const plparcel::Parcel triangle = {{{0, 0}, {100, 0}, {60 * ratio, 80 * ratio}}, {}};
        for (const double part : {1e-5, 1e-4, 1e-3, 0.5, 1 - 1e-3, 1 - 1e-4, 1 - 1e-5})
            for (const Measured measured : {kNear, kFar})
                EXPECT_EQ(
                    divide(triangle, whole(plparcel::through_vertex(0), {share(part, 1)}, measured)).status,
                    Status::divided)
                    << ratio << " " << part;
    }
}

// The least that a line through a point cuts off a corner is twice the product of its distances from the sides, and the line
// runs twice as far along each. A hair less is held there and nowhere else.
TEST(TurningWholeLine, ALittleLessThanTheLeast)
{
    const plparcel::Parcel square = {kSquare, {}};
    for (const double off : {-1e-2, -1e-4, -1e-6, 0.0, 1e-6, 1e-4, 1e-2}) {
        const PL_PNT2D_record point = {25, 25 + off};
        const double least = 2 * point.x * point.y;
        const Division division = divide(square, whole(through_point(point), {area(least - 0.99e-5)}));
        ASSERT_EQ(division.status, Status::divided) << off;
        EXPECT_NEAR(division.lines[0].from.y, 2 * point.y, 2e-3) << off;
        EXPECT_NEAR(division.lines[0].to.x, 2 * point.x, 2e-3) << off;
        EXPECT_EQ(divide(square, whole(through_point(point), {area(least - 1.01e-5)})).status,
                  Status::no_line_through_point)
            << off;
    }
}

//   2 ----- 1      The vertex 4 lies next to 3 on the diagonal, however near. The line from 3 up to the top leaves 0.6 on its
//   |       |      right, and so does the one that comes from the right side: it lies below 1 - 0.6 of the square.
//   3 4 --- 0
TEST(TurningWholeLine, ThroughAVertexNextToAnother)
{
    for (const double near : {1e-20, 1e-99, 1e-101, 1e-149, 1e-151, 1e-290, 1e-300, 1e-305, 5e-324}) {
        const plparcel::Parcel square = {{{1, 0}, {1, 1}, {0, 1}, {0, 0}, {near, near}}, {}};
        Request request = whole(plparcel::through_vertex(3), {area(0.6)});
        const Division up = divide(square, request);
        ASSERT_EQ(up.status, Status::divided) << near << ": " << describe(up);
        EXPECT_NEAR(up.lines[0].to.x, 0.8, 1e-12) << near;
        EXPECT_EQ(up.lines[0].to.y, 1) << near;
        request.alternative = 1;
        const Division down = divide(square, request);
        ASSERT_EQ(down.status, Status::divided) << near << ": " << describe(down);
        EXPECT_EQ(down.lines[0].from.x, 1) << near;
        EXPECT_NEAR(down.lines[0].from.y, 0.8, 1e-12) << near;
        request.alternative = 2;
        EXPECT_EQ(divide(square, request).status, Status::no_further_line) << near;
    }
}

// Two lines through (50, 20) leave 3500 on one side. Each touches an upper or a lower corner of the hole's nearer side and is
// laid beside the point: the one that runs most nearly as before is taken, not the other one.
TEST(TurningWholeLine, BesideThePointTheNearestOfSeveralIsTaken)
{
    const plparcel::Parcel holed = {kSquare, {{{40, 40}, {60, 40}, {60, 60}, {40, 60}}}};
    for (double bearing = 0.0; bearing < 400.0; bearing += 25.0) {
        for (const double asked : {3500.0, 10000.0 - 400 - 3500}) {
            const std::vector<Division> all =
                all_divisions(holed, whole(through_point({50, 20}, bearing), {area(asked)}));
            ASSERT_EQ(all.size(), 2U) << bearing;
            std::vector<double> at_top;
            for (const Division& division : all) {
                EXPECT_NEAR(division.held[0].area, asked, 1e-5);
                const plparcel::DividingLine& line = division.lines[0];
                at_top.push_back(line.from.y > line.to.y ? line.from.x : line.to.x);
            }
            std::sort(at_top.begin(), at_top.end());
            EXPECT_NEAR(at_top[0], 10, 1e-9) << bearing;
            EXPECT_NEAR(at_top[1], 90, 1e-9) << bearing;
        }
    }
}

// The least that a line through (25, 25) cuts off the corner is 1250. It touches the tip of a hole. Twelve spacings of doubles
// to the one side no line cuts off so little; to the other one it must be turned. Where doubles are too coarse that is too much:
// 12 / 2^24 of the chord's 71 are 5e-5 of 1250, which a line holds that is turned by the square root of that.
TEST(TurningWholeLine, BesideThePointThereMayBeNoLine)
{
    const auto least = [](double away, bool mirrored) {
        const auto at = [&](double x, double y) {
            return mirrored ? PL_PNT2D_record{y + away, x + away} : PL_PNT2D_record{x + away, y + away};
        };
        const plparcel::Parcel holed = {{at(0, 0), at(100, 0), at(100, 100), at(0, 100)},
                                        {{at(30, 20), at(45, 30), at(35, 35)}}};
        return divide(holed, whole(through_point(at(25, 25)), {area(1250)}));
    };
    for (const bool mirrored : {false, true}) {
        const Division near = least(0, mirrored);
        ASSERT_EQ(near.status, Status::divided) << describe(near);
        EXPECT_NEAR(near.lines[0].from.x + near.lines[0].from.y, 50, 1e-9);
        EXPECT_NEAR(near.lines[0].to.x + near.lines[0].to.y, 50, 1e-9);
        EXPECT_EQ(least(0x1p28, mirrored).status, Status::not_reached);
    }
}

// The search begins in a direction that is rounded, next to the one through corners of the hole: to begin there finds the
// same lines as to begin anywhere else.
TEST(PartThroughAPoint, WhereTheSearchBeginsChangesNoLine)
{
    const Ring outer = {{0, 0}, {-1, -4}, {1, -4}, {0, -5}, {4, -6}, {5, -1}, {2, 0}, {1, -1}};
    const Ring holes[] = {
        {{3, -3}, {4, -2}, {4, -1}, {3, -1}, {2, -2}, {3, -2}},
        {{3, -3}, {4, -1.9}, {4, -1}, {3, -1}, {2, -2}, {3, -2}},
        {{3, -2.9}, {4, -2}, {4, -1}, {3, -1}, {2, -2}, {3, -2}},
    };
    for (const Ring& hole : holes) {
        Request request;
        request.line = through_point({1, -5}, 20.0);
        request.amounts = {share(1, 2)};
        const std::vector<Division> wanted = all_divisions(plparcel::Parcel{outer, {hole}}, request);
        ASSERT_EQ(wanted.size(), 2U);
        for (const double bearing : {50.0, 250.0, 0.0, 100.0}) {
            request.line = through_point({1, -5}, bearing);
            const std::vector<Division> found = all_divisions(plparcel::Parcel{outer, {hole}}, request);
            ASSERT_EQ(found.size(), 2U) << bearing << ": " << describe(found[0]);
            const bool in_order = std::fabs(found[0].lines[0].from.x - wanted[0].lines[0].from.x) < 1.0;
            for (std::size_t i = 0; i < 2; ++i) {
                const plparcel::DividingLine& line = found[in_order ? i : 1 - i].lines[0];
                EXPECT_NEAR(line.from.x, wanted[i].lines[0].from.x, 1e-12) << bearing;
                EXPECT_NEAR(line.from.y, wanted[i].lines[0].from.y, 1e-12) << bearing;
                EXPECT_NEAR(line.to.x, wanted[i].lines[0].to.x, 1e-12) << bearing;
                EXPECT_NEAR(line.to.y, wanted[i].lines[0].to.y, 1e-12) << bearing;
            }
        }
    }
}

}  // namespace
