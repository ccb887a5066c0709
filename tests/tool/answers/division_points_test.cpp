// Names of points and pieces, the side on which each new point lies, and its height.

#include "answers/division_points.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "answers/heights.h"

namespace {

using Names = std::vector<std::string>;
using plparcel::Cut;

struct Divided {
    tool::Parcel parcel;
    tool::Asked asked;

    Divided(plparcel::Ring ring, Cut cut, long long number, std::size_t parts)
    {
        parcel.ring = std::move(ring);
        asked.request.line.cut = cut;
        asked.request.amounts = plparcel::equal_parts(parts);
        asked.number = number;
        asked.amounts.assign(parts - 1, "1/" + std::to_string(parts));
    }

    tool::DivisionPoints points() const { return tool::points_of(tool::answer(parcel, asked)); }
};

Names names(const tool::DivisionPoints& points, const std::vector<std::size_t>& of)
{
    Names names;
    for (const std::size_t i : of)
        names.push_back(points.points.at(i).name);
    return names;
}

//   4 +---P2--P4---+ 3
//     |   |   |    |
//   1 +---P1--P3---+ 2     perpendicular to side 1: the first piece lies towards 2
const plparcel::Ring kLot = {{0, 0}, {90, 0}, {90, 50}, {0, 50}};

TEST(DivisionPoints, NewPointsLieAlongTheirSidesInOrder)
{
    const tool::DivisionPoints points = Divided(kLot, Cut::perpendicular, 1, 3).points();
    ASSERT_EQ(points.points.size(), 8u);
    ASSERT_EQ(points.lines.size(), 2u);
    EXPECT_EQ(names(points, points.along(0)), (Names{"1", "P3", "P1", "2"}));
    EXPECT_EQ(names(points, points.along(1)), (Names{"2", "3"}));
    EXPECT_EQ(names(points, points.along(2)), (Names{"3", "P2", "P4", "4"}));
    EXPECT_EQ(names(points, points.along(3)), (Names{"4", "1"}));
    EXPECT_EQ(points.points[4].at.x, 60.0);
    EXPECT_EQ(points.points[4].at.y, 0.0);
    ASSERT_EQ(points.pieces.size(), 3u);
    for (const tool::DivisionPoints::Piece& piece : points.pieces)
        EXPECT_EQ(piece.ring.size(), 4u);
}

TEST(DivisionPoints, AClockwiseParcelHasThemInItsOwnOrder)
{
    const tool::DivisionPoints points =
        Divided({{0, 50}, {90, 50}, {90, 0}, {0, 0}}, Cut::perpendicular, 1, 3).points();
    EXPECT_EQ(names(points, points.along(0)).size(), 4u);
    const std::vector<std::size_t> side = points.along(0);
    for (std::size_t i = 0; i + 1 < side.size(); ++i)
        EXPECT_NEAR(points.points[side[i + 1]].at.x - points.points[side[i]].at.x, 30.0, 1e-9);
}

TEST(DivisionPoints, TheEndOfALineAtACornerIsTheCorner)
{
    const tool::DivisionPoints points = Divided(kLot, Cut::through_vertex, 1, 4).points();
    ASSERT_EQ(points.lines.size(), 3u);
    for (const tool::DivisionPoints::Line& line : points.lines)
        EXPECT_EQ(line.from, 0u);
    // Half of the lot: the line in the middle is the diagonal, to the last bit or next to it.
    EXPECT_GE(points.points.size(), 6u);
    EXPECT_LE(points.points.size(), 7u);
}

// The line has four decimals and the corner more: it starts there all the same.
TEST(DivisionPoints, ALineFromACornerWithMoreDecimalsStartsThere)
{
    const tool::DivisionPoints points =
        Divided({{0.00012, 0.00026}, {90, 0}, {90, 50}, {0, 50}}, Cut::through_vertex, 1, 3).points();
    ASSERT_EQ(points.lines.size(), 2u);
    for (const tool::DivisionPoints::Line& line : points.lines)
        EXPECT_EQ(line.from, 0u);
    EXPECT_EQ(points.points.size(), 6u);
}

TEST(DivisionPoints, CornersThatRepeatAreNoTrouble)
{
    const tool::DivisionPoints points =
        Divided({{0, 0}, {0, 0}, {90, 0}, {90, 50}, {0, 50}}, Cut::parallel, 4, 2).points();
    EXPECT_EQ(names(points, points.along(0)), (Names{"1", "2"}));
    std::size_t on_sides = 0;
    for (const std::vector<std::size_t>& on : points.on_side)
        on_sides += on.size();
    EXPECT_EQ(on_sides, 2u);
}

TEST(DivisionPoints, NewPointsOnTheSideAfterACornerThatRepeats)
{
    const tool::DivisionPoints points =
        Divided({{0, 0}, {0, 0}, {90, 0}, {90, 50}, {0, 50}}, Cut::perpendicular, 2, 2).points();
    EXPECT_EQ(names(points, points.along(0)), (Names{"1", "2"})) << "a side without length";
    EXPECT_EQ(names(points, points.along(1)), (Names{"2", "P1", "3"}));
    EXPECT_EQ(names(points, points.along(3)), (Names{"4", "P2", "5"}));
}

TEST(DivisionPoints, OnlyNamesOfPAndANumberAreCounted)
{
    Divided divided(kLot, Cut::perpendicular, 1, 2);
    divided.parcel.point_names = {"109", "Q12", "P", "Px8"};
    EXPECT_EQ(divided.points().points[4].name, "P1");
}

TEST(DivisionPoints, NamesOfTheFileAreKept)
{
    Divided divided(kLot, Cut::perpendicular, 1, 2);
    divided.parcel.point_names = {"101", "P7", "", "p3"};
    const tool::DivisionPoints points = divided.points();
    EXPECT_EQ(points.points[0].name, "101");
    EXPECT_EQ(points.points[2].name, "3") << "without one, the number";
    EXPECT_EQ(points.points[4].name, "P8") << "no name twice";
    EXPECT_EQ(points.points[5].name, "P9");
    divided.parcel.point_names = {"101", "P7", "", "p8"};
    EXPECT_EQ(divided.points().points[4].name, "P9") << "nor the same in small letters";
}

TEST(DivisionPoints, PiecesAreNamedAfterTheirParcel)
{
    EXPECT_EQ(tool::piece_title("", 0), "A");
    EXPECT_EQ(tool::piece_title("", 25), "Z");
    EXPECT_EQ(tool::piece_title("", 26), "AA");
    EXPECT_EQ(tool::piece_title("", 27), "AB");
    EXPECT_EQ(tool::piece_title("1234/5", 0), "1234/5a");
    EXPECT_EQ(tool::piece_title("North", 1), "North-B");
}

// The parcel lies to the left of an outer ring that runs anticlockwise, and of a hole that runs clockwise.
TEST(Corners, OfTwoHolesAreNumberedOnAfterTheRing)
{
    tool::Parcel parcel;
    parcel.ring = {{0, 0}, {90, 0}, {90, 50}, {0, 50}};
    parcel.holes = {{{10, 10}, {20, 10}, {10, 20}}, {{50, 10}, {50, 20}, {60, 10}}};
    const tool::Corners corners = tool::corners_of(parcel);
    using Indices = std::vector<std::size_t>;
    EXPECT_EQ(corners.ring, (Indices{0, 0, 0, 0, 1, 1, 1, 2, 2, 2}));
    EXPECT_EQ(corners.next, (Indices{1, 2, 3, 0, 5, 6, 4, 8, 9, 7}));
    EXPECT_EQ(corners.before, (Indices{3, 0, 1, 2, 6, 4, 5, 9, 7, 8}));
    EXPECT_EQ(corners.inside_left, (std::vector<bool>{true, false, true}));
}

// Far from the origin the sums of an area must be taken from a vertex.
TEST(Corners, KnowOnWhichSideTheParcelLiesWhereverItIs)
{
    for (const double east : {0.0, 3000.0, -3000.0})
        for (const double north : {0.0, 5000.0, -5000.0}) {
            tool::Parcel parcel;
            parcel.ring = {{0, 0}, {90, 0}, {90, 50}, {0, 50}};
            parcel.holes = {{{10, 10}, {20, 10}, {10, 20}}, {{50, 10}, {50, 20}, {60, 10}}};
            for (plparcel::Ring* const ring : {&parcel.ring, &parcel.holes[0], &parcel.holes[1]})
                for (PL_PNT2D_record& p : *ring)
                    p = {p.x + east, p.y + north};
            EXPECT_EQ(tool::corners_of(parcel).inside_left, (std::vector<bool>{true, false, true}));
            std::reverse(parcel.ring.begin(), parcel.ring.end());
            EXPECT_EQ(tool::corners_of(parcel).inside_left, (std::vector<bool>{false, false, true}));
        }
}

TEST(Corners, HaveNumbersInRingsOfAnySize)
{
    tool::Parcel parcel;
    parcel.ring.resize(7);
    parcel.holes = {plparcel::Ring(3), plparcel::Ring(4), plparcel::Ring(5)};
    const struct {
        std::size_t ring;
        std::size_t index;
        std::size_t number;
    } rows[] = {{0, 0, 0}, {0, 6, 6}, {1, 0, 7}, {1, 2, 9}, {2, 0, 10}, {2, 3, 13}, {3, 0, 14}, {3, 4, 18}};
    for (const auto& row : rows) {
        EXPECT_EQ(tool::number_of(parcel, row.ring, row.index), row.number);
        const std::optional<tool::RingIndex> there = tool::in_ring(parcel, row.number);
        ASSERT_TRUE(there) << row.number;
        EXPECT_EQ(there->ring, row.ring) << row.number;
        EXPECT_EQ(there->index, row.index) << row.number;
        EXPECT_EQ(there->first, row.number - row.index) << row.number;
    }
    EXPECT_FALSE(tool::in_ring(parcel, 19));
    EXPECT_EQ(tool::vertex_count(parcel), 19u);
}

tool::Parcel with_heights(plparcel::Ring ring, std::vector<double> heights)
{
    tool::Parcel parcel;
    parcel.ring = std::move(ring);
    parcel.heights = std::move(heights);
    return parcel;
}

//  40 ----------- none
//  |              |
//  10 ----------- 20
const plparcel::Ring kHigh = {{0, 0}, {100, 0}, {100, 50}, {0, 50}};

TEST(Heights, OfParcelsThatMayHaveNone)
{
    const tool::Parcel parcel = with_heights(kHigh, {10, 20, std::nan(""), 40});
    const tool::Heights heights(parcel);
    EXPECT_EQ(heights.at({0, 0}), 10.0);
    EXPECT_FALSE(heights.at({100, 50}));
    EXPECT_TRUE(heights.at_all({{0, 0}, {25, 0}}));
    EXPECT_FALSE(heights.at_all({{0, 0}, {50, 50}}));
    EXPECT_FALSE(heights.at({25, 0.0099}));
    EXPECT_TRUE(tool::Heights(parcel, 2).at({25, 0.0099}));
    EXPECT_FALSE(tool::Heights(with_heights(kHigh, {})).at({0, 0}));
}

// A side of 50 along (3, 4); what lies to its left is a multiple of (-4, 3).
TEST(Foot, OnASlantedSide)
{
    const PL_PNT2D_record a = {10, 20};
    const PL_PNT2D_record b = {40, 60};
    const struct {
        const char* what;
        PL_PNT2D_record a, b, p;
        double part, distance;
    } rows[] = {
        {"to the left, near the start", a, b, {9, 27}, 0.1, 5.0},
        {"to the right, near the end", a, b, {41, 53}, 0.9, 5.0},
        {"the same side backwards", b, a, {41, 53}, 0.1, 5.0},
        {"on the side", a, b, {25, 40}, 0.5, 0.0},
        {"before the start", a, b, {4, 12}, 0.0, 10.0},
        {"behind the end", a, b, {52, 76}, 1.0, 20.0},
        {"a side without length", {3, 4}, {3, 4}, {6, 8}, 0.0, 5.0},
    };
    for (const auto& row : rows) {
        const tool::Foot foot = tool::foot_on(row.a, row.b, row.p);
        EXPECT_NEAR(foot.part, row.part, 1e-15) << row.what;
        EXPECT_NEAR(foot.distance, row.distance, 1e-14) << row.what;
    }
}

TEST(Foot, AtAnEndHasItsHeightWhateverTheOtherIs)
{
    const double none = std::nan("");
    EXPECT_EQ((tool::Foot{0.25, 0.0}.height(10, 30)), 15.0);
    EXPECT_EQ((tool::Foot{0.0, 0.0}.height(10, none)), 10.0);
    EXPECT_EQ((tool::Foot{1.0, 0.0}.height(none, 30)), 30.0);
    EXPECT_TRUE(std::isnan(tool::Foot{0.25, 0.0}.height(10, none)));
    EXPECT_TRUE(std::isnan(tool::Foot{0.0, 0.0}.height(none, 30)));
}

TEST(KnownHeights, AreAllOrSomeOrNone)
{
    using Lists = std::vector<std::vector<double>>;
    const double none = std::nan("");
    const struct {
        const char* what;
        Lists lists;
        bool any, all;
    } rows[] = {
        {"of nothing", {}, false, false},
        {"of vertices without", {{}}, false, false},
        {"of one without", {{none}}, false, false},
        {"of all", {{5, 6}, {7}}, true, true},
        {"not of the first parcel", {{}, {5}}, true, false},
        {"not of the last parcel", {{5}, {}}, true, false},
        {"not of the first vertex", {{none, 5}}, true, false},
        {"not of the last vertex", {{5, none}}, true, false},
    };
    for (const auto& row : rows) {
        tool::KnownHeights one_by_one;
        tool::KnownHeights together;
        for (const std::vector<double>& list : row.lists) {
            one_by_one.add(list);
            tool::KnownHeights part;
            part.add(list);
            together.add(part);
        }
        for (const tool::KnownHeights& known : {one_by_one, together}) {
            EXPECT_EQ(known.any(), row.any) << row.what;
            EXPECT_EQ(known.all(), row.all) << row.what;
            EXPECT_EQ(known.partly(), row.any && !row.all) << row.what;
        }
    }
}

}  // namespace
