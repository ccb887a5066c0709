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

}  // namespace
