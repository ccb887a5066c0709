// Lines of a direction that no side gives, and amounts that are widths.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "lines/direction.h"
#include "plparcel/division.h"
#include "support/bits.h"

namespace {

using plparcel::along_segment;
using plparcel::Amount;
using plparcel::area;
using plparcel::at_bearing;
using plparcel::divide;
using plparcel::Division;
using plparcel::Line;
using plparcel::Measured;
using plparcel::parallel_to;
using plparcel::perpendicular_to;
using plparcel::Request;
using plparcel::Ring;
using plparcel::share;
using plparcel::Status;
using plparcel::through_vertex;
using plparcel::width;

constexpr Measured kHere = Measured::from_reference;
constexpr Measured kThere = Measured::opposite;
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

const Ring kLot = {{0, 0}, {100, 0}, {100, 50}, {0, 50}};
// Two arms, the right one wider, on a strip.
const Ring kU = {{0, 0}, {100, 0}, {100, 60}, {60, 60}, {60, 20}, {30, 20}, {30, 60}, {0, 60}};

Division cut(const Ring& ring, const Line& line, std::vector<Amount> amounts, Measured measured = kHere)
{
    Request request;
    request.line = line;
    request.amounts = std::move(amounts);
    request.measured = measured;
    return divide(ring, request);
}

TEST(Directions, OfABearing)
{
    const double half = std::sqrt(0.5);
    const struct {
        const char* what;
        double bearing_gon;
        double east;
        double north;
    } rows[] = {{"North", 0, 0, 1},
                {"East", 100, 1, 0},
                {"South", 200, 0, -1},
                {"West", 300, -1, 0},
                {"West, the other way round", -100, -1, 0},
                {"North, after ten turns", 4000, 0, 1},
                {"North-East", 50, half, half},
                {"South-East", 150, half, -half},
                {"South-West", 250, -half, -half},
                {"North-West, twice round backwards", -850, -half, half},
                {"a third of a right angle", 100.0 / 3.0, 0.5, std::sqrt(0.75)}};
    for (const auto& row : rows) {
        const plparcel::WidePoint d = plparcel::direction_of(row.bearing_gon);
        EXPECT_NEAR(d.x.value(), row.east, 1.2e-16) << row.what;
        EXPECT_NEAR(d.y.value(), row.north, 1.2e-16) << row.what;
        EXPECT_LT(std::fabs((dot(d, d) - 1.0).value()), 1e-30) << row.what;
    }
    EXPECT_EQ(plparcel::direction_of(100).y.value(), 0.0) << "exact along an axis";
}

struct CutRow {
    const char* what;
    Ring ring;
    Line line;
    std::vector<Amount> amounts;
    Measured measured;
    std::vector<PL_LINE_2D_record> lines;
};

TEST(Directions, LinesOfABearingOrASegment)
{
    const CutRow rows[] = {
        {"North: what lies on the right", kLot, at_bearing(0), {area(1000)}, kHere, {{{80, 0}, {80, 50}}}},
        {"North: what lies on the left", kLot, at_bearing(0), {area(1000)}, kThere, {{{20, 0}, {20, 50}}}},
        {"South", kLot, at_bearing(200), {area(1000)}, kHere, {{{20, 50}, {20, 0}}}},
        {"North-East, half", kLot, at_bearing(50), {share(1, 2)}, kHere, {{{25, 0}, {75, 50}}}},
        {"along a road to the East",
         kLot,
         along_segment({1000, 700}, {1001, 700}),
         {area(1000), area(500)},
         kHere,
         {{{0, 10}, {100, 10}}, {{0, 15}, {100, 15}}}},
        {"along a road to the West",
         kLot,
         along_segment({1001, 700}, {1000, 700}),
         {area(1000), area(500)},
         kHere,
         {{{100, 40}, {0, 40}}, {{100, 35}, {0, 35}}}},
        {"either arm holds it: the wider one, whose line is nearer to the farthest vertex",
         kU,
         along_segment({0, 0}, {1, 0}),
         {area(300)},
         kThere,
         {{{60, 52.5}, {100, 52.5}}}},
    };
    for (const CutRow& row : rows) {
        SCOPED_TRACE(row.what);
        const Division division = cut(row.ring, row.line, row.amounts, row.measured);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        ASSERT_EQ(division.lines.size(), row.lines.size());
        for (std::size_t i = 0; i < row.lines.size(); ++i) {
            EXPECT_NEAR(division.lines[i].from.x, row.lines[i].start.x, 1e-13);
            EXPECT_NEAR(division.lines[i].from.y, row.lines[i].start.y, 1e-13);
            EXPECT_NEAR(division.lines[i].to.x, row.lines[i].end.x, 1e-13);
            EXPECT_NEAR(division.lines[i].to.y, row.lines[i].end.y, 1e-13);
        }
    }
}

TEST(Directions, WidthsPlaceTheLines)
{
    const CutRow rows[] = {
        {"strips along a side",
         kLot,
         parallel_to(0),
         {width(10), width(5)},
         kHere,
         {{{0, 10}, {100, 10}}, {{0, 15}, {100, 15}}}},
        {"from the far vertex", kLot, parallel_to(0), {width(10)}, kThere, {{{0, 40}, {100, 40}}}},
        {"frontages from the side's second end",
         kLot,
         perpendicular_to(0),
         {width(20), width(20)},
         kHere,
         {{{80, 0}, {80, 50}}, {{60, 0}, {60, 50}}}},
        {"and from its first end",
         kLot,
         perpendicular_to(0),
         {width(20), width(20)},
         kThere,
         {{{20, 0}, {20, 50}}, {{40, 0}, {40, 50}}}},
        {"along another side", kLot, perpendicular_to(1), {width(20)}, kHere, {{{100, 30}, {0, 30}}}},
        {"from the vertex farthest right", kLot, at_bearing(0), {width(12)}, kHere, {{{88, 0}, {88, 50}}}},
        {"from the vertex farthest left", kLot, at_bearing(0), {width(12)}, kThere, {{{12, 0}, {12, 50}}}},
        {"a width, an area, a width",
         kLot,
         parallel_to(0),
         {width(10), area(500), width(5)},
         kHere,
         {{{0, 10}, {100, 10}}, {{0, 15}, {100, 15}}, {{0, 20}, {100, 20}}}},
        {"widths of a few centimetres",
         kLot,
         parallel_to(0),
         {width(0.0625), width(0.03125)},
         kHere,
         {{{0, 0.0625}, {100, 0.0625}}, {{0, 0.09375}, {100, 0.09375}}}},
        {"in kilometres, of an area below a tenth",
         {{0, 0}, {0.25, 0}, {0.25, 0.125}, {0, 0.125}},
         parallel_to(0),
         {width(0.03125), width(0.03125)},
         kHere,
         {{{0, 0.03125}, {0.25, 0.03125}}, {{0, 0.0625}, {0.25, 0.0625}}}},
        {"across the strip of a U", kU, parallel_to(0), {width(15)}, kHere, {{{0, 15}, {100, 15}}}},
        {"at the floor between its arms", kU, parallel_to(0), {width(20)}, kHere, {{{0, 20}, {30, 20}}}},
    };
    for (const CutRow& row : rows) {
        SCOPED_TRACE(row.what);
        const Division division = cut(row.ring, row.line, row.amounts, row.measured);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        ASSERT_EQ(division.lines.size(), row.lines.size());
        ASSERT_EQ(division.pieces.size(), row.lines.size() + 1);
        for (std::size_t i = 0; i < row.lines.size(); ++i) {
            EXPECT_EQ(division.lines[i].from.x, row.lines[i].start.x);
            EXPECT_EQ(division.lines[i].from.y, row.lines[i].start.y);
            EXPECT_EQ(division.lines[i].to.x, row.lines[i].end.x);
            EXPECT_EQ(division.lines[i].to.y, row.lines[i].end.y);
            EXPECT_EQ(division.pieces[i].residual, 0.0);
        }
        EXPECT_GT(division.pieces.back().area, 0.0);
    }
}

TEST(Directions, Refusals)
{
    const struct {
        const char* what;
        Line line;
        std::vector<Amount> amounts;
        Status status;
        std::size_t at_amount;
    } rows[] = {
        {"an infinite bearing", at_bearing(kInf), {area(1)}, Status::no_direction, 0},
        {"a bearing that is no number", at_bearing(kNan), {area(1)}, Status::no_direction, 0},
        {"a segment of one point", along_segment({7, 7}, {7, 7}), {area(1)}, Status::no_direction, 0},
        {"one with an end that is no number",
         along_segment({7, 7}, {8, kNan}),
         {area(1)},
         Status::no_direction,
         0},
        {"one with an end at infinity", along_segment({7, 7}, {kInf, 8}), {area(1)}, Status::no_direction, 0},
        {"a width from a vertex", through_vertex(0), {width(1)}, Status::no_width, 0},
        {"a width and an area from a vertex", through_vertex(0), {width(1), area(100)}, Status::no_width, 0},
        {"an area and a width from a vertex", through_vertex(0), {area(100), width(1)}, Status::no_width, 0},
        {"a width as large as the parcel", parallel_to(0), {width(50)}, Status::amount_too_large, 0},
        {"one just below is cut", parallel_to(0), {width(49.999)}, Status::divided, 0},
        {"beyond what is left", parallel_to(0), {width(30), width(20)}, Status::amount_too_large, 1},
        {"more than a width leaves", parallel_to(0), {width(30), area(2000)}, Status::amount_too_large, 1},
        {"areas that leave nothing for the width",
         parallel_to(0),
         {area(5000), width(1)},
         Status::amount_too_large,
         0},
        {"no width", parallel_to(0), {width(0)}, Status::amount_too_small, 0},
        {"a width that is no number", parallel_to(0), {width(kNan)}, Status::unusable_amount, 0},
    };
    for (const auto& row : rows) {
        const Division division = cut(kLot, row.line, row.amounts);
        EXPECT_EQ(division.status, row.status) << row.what << ": " << describe(division);
        EXPECT_EQ(division.at_amount, row.at_amount) << row.what;
        Request whole;
        whole.line = row.line;
        whole.amounts = row.amounts;
        whole.pieces = plparcel::Pieces::any;
        EXPECT_EQ(divide(kLot, whole).status, row.status) << row.what << ", by a whole line";
    }
}

// At 20 below the top both arms hold a strip: the one on the left is nearer to the side's beginning.
TEST(Directions, OfTwoStripsTheSecondCanBeHad)
{
    Request request;
    request.line = parallel_to(0);
    request.amounts = {width(20)};
    request.measured = kThere;
    const PL_LINE_2D_record lines[] = {{{0, 40}, {30, 40}}, {{60, 40}, {100, 40}}};
    for (request.alternative = 0; request.alternative < 2; ++request.alternative) {
        const Division division = divide(kU, request);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_POINT(division.lines[0].from, (lines[request.alternative].start));
        EXPECT_POINT(division.lines[0].to, (lines[request.alternative].end));
    }
    EXPECT_EQ(divide(kU, request).status, Status::no_further_line);
}

// To the level of its upper corners a trapezium's strip ends at both; the line comes from either side of them.
TEST(Directions, AStripThatEndsAtVerticesCountsOnce)
{
    const Ring house = {{0, 0}, {40, 0}, {40, 20}, {20, 30}, {0, 20}};
    Request request;
    request.line = parallel_to(0);
    request.amounts = {width(20)};
    const Division division = divide(house, request);
    ASSERT_EQ(division.status, Status::divided);
    EXPECT_POINT(division.lines[0].from, (PL_PNT2D_record{0, 20}));
    EXPECT_POINT(division.lines[0].to, (PL_PNT2D_record{40, 20}));
    request.alternative = 1;
    EXPECT_EQ(divide(house, request).status, Status::no_further_line);
}

TEST(Directions, AStripUpToTheTipIsAll)
{
    const Ring triangle = {{0, 0}, {100, 0}, {50, 50}};
    EXPECT_EQ(cut(triangle, parallel_to(0), {width(50)}).status, Status::amount_too_large);
    EXPECT_EQ(cut(triangle, perpendicular_to(0), {width(100)}).status, Status::amount_too_large);
    EXPECT_EQ(cut(triangle, parallel_to(0), {area(900), width(40)}).status, Status::amount_too_large);
    EXPECT_EQ(cut(triangle, parallel_to(0), {width(49)}).status, Status::divided);
}

// A notch comes down from the top to 20, but for roundings: doubles are 2.2e-14 apart at 100. A line that passes its tip
// within four of them leaves a slab on which two pieces hang.
TEST(Directions, AStripWhoseLinePassesATipByARoundingLeavesTheParcel)
{
    const auto below = [](double tip, double high) {
        const Ring notched = {{0, 0}, {100, 0}, {100, 50}, {60, 50}, {50, tip}, {40, 50}, {0, 50}};
        return cut(notched, parallel_to(0), {width(high)}).status;
    };
    EXPECT_EQ(below(20 + 0x1p-46, 20), Status::line_leaves_parcel);
    EXPECT_EQ(below(20 + 0x1p-44, 20), Status::line_leaves_parcel);
    EXPECT_EQ(below(20 + 0x1p-43, 20), Status::divided);
}

TEST(Directions, CFrazAreaIsNotAskedWhatItDoesNotKnow)
{
    Request request;
    request.line = at_bearing(0);
    request.amounts = {area(1000)};
    request.ask_library = true;
    const Division division = divide(kLot, request);
    ASSERT_EQ(division.status, Status::divided);
    EXPECT_TRUE(division.bare.empty());
    EXPECT_FALSE(division.lines[0].library_agrees);
}

// What is asked of a width is what lies between the lines before they are rounded.
TEST(Directions, AWidthAsksForTheAreaThatItHolds)
{
    const Ring triangle = {{500000, 5000000}, {500097, 5000003}, {500041, 5000071}};
    const Division division = cut(triangle, at_bearing(33.3), {width(17.3)});
    ASSERT_EQ(division.status, Status::divided);
    EXPECT_NEAR(division.pieces[0].asked, division.pieces[0].area, 1e-6);
    EXPECT_NEAR(division.pieces[0].asked + division.pieces[1].asked, division.ring.area, 1e-9);
}

// The vertex at which a ring begins changes no bit.
TEST(Directions, TheFirstVertexChangesNothing)
{
    const Ring star = {{500000.1, 5000000.7}, {500040.3, 5000011.9}, {500097.2, 5000003.3},
                       {500062.6, 5000038.4}, {500091.7, 5000088.8}, {500049.9, 5000059.1},
                       {500013.2, 5000091.6}, {500033.8, 5000045.5}};
    const Division first = cut(star, at_bearing(77.7), {share(1, 4), width(8), share(1, 9)});
    ASSERT_EQ(first.status, Status::divided) << describe(first);
    for (std::size_t k = 1; k < star.size(); ++k) {
        Ring moved(star.begin() + static_cast<std::ptrdiff_t>(k), star.end());
        moved.insert(moved.end(), star.begin(), star.begin() + static_cast<std::ptrdiff_t>(k));
        const Division other = cut(moved, at_bearing(77.7), {share(1, 4), width(8), share(1, 9)});
        ASSERT_EQ(other.lines.size(), first.lines.size());
        for (std::size_t i = 0; i < first.lines.size(); ++i) {
            EXPECT_BITS(other.lines[i].from.x, first.lines[i].from.x);
            EXPECT_BITS(other.lines[i].from.y, first.lines[i].from.y);
            EXPECT_BITS(other.lines[i].to.x, first.lines[i].to.x);
            EXPECT_BITS(other.lines[i].to.y, first.lines[i].to.y);
        }
    }
}

}  // namespace
