// New points on boundaries that parcels share.

#include "plparcel/neighbours.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kept/file_in_memory.h"
#include "plparcel/division.h"
#include "plparcel/rounding.h"
#include "support/rings.h"
#include "text_of.h"

namespace {

using parcel_test::text_of;
using plparcel::Division;
using plparcel::NewPoint;
using plparcel::Parcel;
using plparcel::Request;
using plparcel::Ring;
using plparcel::SharedSides;
using plparcel::WithPoints;

const double kNaN = std::numeric_limits<double>::quiet_NaN();

Division halved(const Parcel& parcel, const plparcel::Line& line, std::optional<int> decimals = {},
                std::size_t parts = 2)
{
    Request request;
    request.line = line;
    request.amounts = plparcel::equal_parts(parts);
    request.rounding.decimals = decimals;
    request.pieces = plparcel::Pieces::any;
    Division division = plparcel::divide(parcel, request);
    EXPECT_EQ(division.status, plparcel::Status::divided) << describe(division);
    return division;
}

// "50 0 on 0 0, 100 0".
std::string shown(const std::vector<NewPoint>& points)
{
    std::string text;
    for (const NewPoint& point : points)
        text += (text.empty() ? "" : "; ") + text_of({point.at}) + " on " +
                text_of({point.side.from, point.side.to});
    return text;
}

const Parcel kSquare = {{{0, 0}, {100, 0}, {100, 100}, {0, 100}}, {}};

TEST(NewPoints, AreTheEndsOfLinesOnSides)
{
    EXPECT_EQ(shown(new_points(kSquare, halved(kSquare, plparcel::perpendicular_to(0)))),
              "50 0 on 0 0, 100 0; 50 100 on 100 100, 0 100");
    EXPECT_EQ(shown(new_points(kSquare, halved(kSquare, plparcel::perpendicular_to(0), {}, 4))),
              "25 0 on 0 0, 100 0; 50 0 on 0 0, 100 0; 75 0 on 0 0, 100 0; "
              "75 100 on 100 100, 0 100; 50 100 on 100 100, 0 100; 25 100 on 100 100, 0 100");
}

TEST(NewPoints, AreNoneAtVertices)
{
    EXPECT_EQ(shown(new_points(kSquare, halved(kSquare, plparcel::through_vertex(0)))), "");
    // With decimals the vertex is a corner of the pieces although it has more digits than they.
    const Parcel parcel = {{{0.00003, 0.00004}, {100, 0}, {100, 100}, {0, 100}}, {}};
    const Division division = halved(parcel, plparcel::through_vertex(0), 4);
    EXPECT_EQ(division.lines[0].from.x, 0.0);
    EXPECT_EQ(shown(new_points(parcel, division)), "");
    for (const Parcel& piece : pieces_with_corners(parcel, division))
        EXPECT_NE(text_of(piece.outer).find("3e-05 4e-05"), std::string::npos) << text_of(piece.outer);
}

TEST(NewPoints, AreThoseOfTheParcelWithoutRepeatedVertices)
{
    const Parcel closed = {{{0, 0}, {100, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}}, {}};
    EXPECT_EQ(shown(new_points(closed, halved(closed, plparcel::perpendicular_to(0)))),
              "50 0 on 0 0, 100 0; 50 100 on 100 100, 0 100");
}

// Two vertices come to the same place as they are rounded. The one in the West, and of two there the southern one, is the
// corner of the pieces, wherever the ring begins.
TEST(NewPoints, OfTwoVerticesRoundedToOneThePiecesHaveTheWestern)
{
    Ring ring = {{0.2, 0}, {100, 0}, {100, 100}, {0, 100}, {0.1, 0.3}, {0.1, 0.2}};
    Division division;
    division.decimals = 0;
    division.pieces.resize(1);
    division.pieces[0].ring = {{0, 0}, {100, 0}, {0, 100}};
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const std::vector<Parcel> pieces = pieces_with_corners({ring, {}}, division);
        EXPECT_EQ(text_of(pieces[0].outer), "0.1 0.2, 100 0, 0 100") << i;
        std::rotate(ring.begin(), ring.begin() + 1, ring.end());
    }
}

TEST(NewPoints, LieOnHolesThatRunEitherWay)
{
    for (const bool turned : {false, true}) {
        Ring hole = {{40, 40}, {40, 60}, {60, 60}, {60, 40}};
        if (turned)
            hole = {{40, 40}, {60, 40}, {60, 60}, {40, 60}};
        const Parcel parcel = {kSquare.outer, {hole}};
        EXPECT_EQ(new_points(parcel, halved(parcel, plparcel::perpendicular_to(0))).size(), 4u);
    }
}

TEST(NewPoints, AreNoneOfARefusal)
{
    Request request;
    request.amounts = {plparcel::area(2e4)};
    const Division division = plparcel::divide(kSquare, request);
    EXPECT_NE(division.status, plparcel::Status::divided);
    EXPECT_TRUE(new_points(kSquare, division).empty());
    EXPECT_TRUE(pieces_with_corners(kSquare, division).empty());
}

TEST(NewPoints, OfAnythingEnd)
{
    Division division;
    division.pieces.resize(2);
    division.pieces[0].ring = {{0, 0}, {1, 0}, {0, 0}, {1, 0}};
    division.pieces[1].ring = {{0, 0}, {50, 0}, {kNaN, 0}, {50, 0}};
    new_points(kSquare, division);
    new_points({}, division);
    new_points({{{kNaN, kNaN}}, {{}}}, division);
    // More decimals than a division can have: nothing is rounded.
    division.decimals = plparcel::kMostDecimals + 1;
    EXPECT_EQ(text_of(pieces_with_corners(kSquare, division)[0].outer), "0 0, 1 0, 0 0, 1 0");
}

// From (0, 0) the sides lead to (50, 0) and from there round and round a triangle, never to (100, 0).
TEST(NewPoints, OfAWayThatComesBackToItself)
{
    Division division;
    division.pieces.resize(2);
    division.pieces[0].ring = {{0, 0}, {50, 0}, {70, 50}};
    division.pieces[1].ring = {{50, 0}, {40, 10}, {45, 20}};
    EXPECT_EQ(shown(new_points(kSquare, division)), "");
}

// One side from (0, 0) to (100, 0) of the parcel above it, with points, and a neighbour below.
struct Row {
    const char* what;
    std::vector<PL_PNT2D_record> points;
    double within;
    Ring neighbour;
    std::string want;
    std::size_t beside = 0;
};

const Ring kBelow = {{100, 0}, {0, 0}, {0, -50}, {100, -50}};

const Row kRows[] = {
    {"the same side", {{40, 0}}, 0.001, kBelow, "100 0, 40 0, 0 0, 0 -50, 100 -50"},
    {"the same side, the ring the other way round",
     {{40, 0}},
     0.001,
     {{100, -50}, {0, -50}, {0, 0}, {100, 0}},
     "100 -50, 0 -50, 0 0, 40 0, 100 0"},
    {"two points in the order of the neighbour",
     {{40, 0}, {70, 0}},
     0.001,
     kBelow,
     "100 0, 70 0, 40 0, 0 0, 0 -50, 100 -50"},
    {"a point a hair off the side", {{40, 7e-5}}, 0.0, kBelow, "100 0, 40 7e-05, 0 0, 0 -50, 100 -50"},
    {"a point far off the side, rounded to whole units",
     {{40, 0.5}},
     0.001,
     kBelow,
     "100 0, 40 0.5, 0 0, 0 -50, 100 -50"},
    {"between two points far off the side",
     {{40, 0.5}, {50, 0.5}, {60, 0.5}},
     0.001,
     {{60, 0.5}, {40, 0.5}, {50, -50}},
     "60 0.5, 50 0.5, 40 0.5, 50 -50"},
    {"the neighbour has the point", {{40, 0}}, 0.001, {{100, 0}, {40, 0}, {0, 0}, {0, -50}}, ""},
    {"the neighbour has only a part of the side, with the point",
     {{40, 0}},
     0.001,
     {{60, 0}, {0, 0}, {0, -50}},
     "60 0, 40 0, 0 0, 0 -50"},
    {"the neighbour has only the other part", {{40, 0}}, 0.001, {{60, 0}, {100, 0}, {60, -50}}, ""},
    {"a longer side gets the ends of the divided one as well",
     {{40, 0}},
     0.001,
     {{200, 0}, {-100, 0}, {0, -50}},
     "200 0, 100 0, 40 0, 0 0, -100 0, 0 -50"},
    {"longer at one end",
     {{40, 0}},
     0.001,
     {{100, 0}, {-100, 0}, {0, -50}},
     "100 0, 40 0, 0 0, -100 0, 0 -50"},
    {"longer, inside the distance",
     {{40, 0}},
     0.001,
     {{100, -0.001}, {-100, -0.001}, {0, -50}},
     "100 -0.001, 40 0, 0 0, -100 -0.001, 0 -50"},
    {"longer, just outside the distance",
     {{40, 0}},
     0.001,
     {{100, -0.0010001}, {-100, -0.0010001}, {0, -50}},
     ""},
    {"inside the distance where both are, and outside beyond the first end",
     {{40, 0}},
     0.001,
     {{100, 0}, {-100, -0.0015}, {0, -50}},
     "100 0, 40 0, 0 0, -100 -0.0015, 0 -50"},
    {"inside the distance where both are, and outside beyond the other end",
     {{40, 0}},
     0.001,
     {{200, -0.0015}, {0, 0}, {0, -50}},
     "200 -0.0015, 100 0, 40 0, 0 0, 0 -50"},
    {"from one side of it to the other",
     {{40, 0}},
     0.001,
     {{100, -0.0009}, {-100, 0.0009}, {0, -50}},
     "100 -9e-04, 40 0, 0 0, -100 9e-04, 0 -50"},
    {"inside the distance at one end only", {{40, 0}}, 0.001, {{100, 0}, {-100, -0.0021}, {0, -50}}, ""},
    {"an end beside that of the divided side is the same corner",
     {{40, 0}},
     0.001,
     {{100.0004, 0.0003}, {-0.0004, -0.0003}, {0, -50}},
     "100.0004 3e-04, 40 0, -4e-04 -3e-04, 0 -50"},
    {"a point beside a vertex is the vertex", {{40, 0}}, 0.001, {{40.001, 0}, {0, 0}, {0, -50}}, "", 1},
    {"a point farther from the vertex than the distance",
     {{40, 0}},
     0.001,
     {{40.00101, 0}, {0, 0}, {0, -50}},
     "40.00101 0, 40 0, 0 0, 0 -50"},
    {"a point beside a vertex that both have",
     {{0.0005, 0}},
     0.001,
     {{60, 0}, {0, 0}, {0, -50}},
     "60 0, 5e-04 0, 0 0, 0 -50"},
    {"a neighbour that only touches a corner", {{40, 0}}, 0.001, {{0, 0}, {-50, 0}, {0, -50}}, ""},
    {"a neighbour that touches the side at a vertex", {{40, 0}}, 0.001, {{40, 0}, {20, -50}, {60, -50}}, ""},
    {"side in line with the divided one", {{40, 0}}, 0.001, {{200, 0}, {100, 0}, {150, -50}}, ""},
    {"a flat angle away", {{40, 0}}, 0.001, {{100, 0}, {-100, -1}, {0, -50}}, ""},
    {"on both sides of a thin strip",
     {{40, 0}},
     0.001,
     {{100, 0}, {0, 0}, {0, -0.01}, {100, -0.01}},
     "100 0, 40 0, 0 0, 0 -0.01, 100 -0.01"},
    {"a closing vertex and repeated ones stay",
     {{40, 0}},
     0.001,
     {{100, 0}, {100, 0}, {0, 0}, {0, -50}, {100, 0}},
     "100 0, 100 0, 40 0, 0 0, 0 -50, 100 0"},
    {"points at one place are one", {{40, 0}, {40, 0}}, 0.001, kBelow, "100 0, 40 0, 0 0, 0 -50, 100 -50"},
    {"two points side by side, the southern one first",
     {{40, 0.5}, {40, -0.5}},
     0.001,
     kBelow,
     "100 0, 40 0.5, 40 -0.5, 0 0, 0 -50, 100 -50"},
    {"the same two, told the other way round",
     {{40, -0.5}, {40, 0.5}},
     0.001,
     kBelow,
     "100 0, 40 0.5, 40 -0.5, 0 0, 0 -50, 100 -50"},
    {"a point beside two vertices counts once",
     {{40, 0}},
     0.001,
     {{100, 0}, {40.0005, 0}, {40, -50}, {39.9997, 0}, {0, 0}, {0, -60}, {100, -60}},
     "",
     1},
    {"of two points the one beside a vertex counts",
     {{20, 0}, {40, 0}, {60, 0}},
     0.001,
     {{100, 0}, {60, 0}, {40.0005, 0}, {40, -50}},
     "",
     1},
    {"a point beside a vertex, at the place of another one",
     {{40, 0}},
     0.001,
     {{100, 0}, {40.0005, 0}, {40, -50}, {40, 0}, {0, 0}, {0, -60}, {100, -60}},
     ""},
    {"a distance that is no number", {{40, 0}}, kNaN, kBelow, "100 0, 40 0, 0 0, 0 -50, 100 -50"},
    {"a vertex that is no number",
     {{40, 0}},
     0.001,
     {{kNaN, 0}, {0, 0}, {100, 0}},
     "nan 0, 0 0, 40 0, 100 0"},
    {"a point that is no number", {{40, kNaN}}, 0.001, kBelow, ""},
    {"no vertices", {{40, 0}}, 0.001, {}, ""},
};

TEST(SharedSides, GiveANeighbourThePoints)
{
    for (const Row& row : kRows) {
        std::vector<NewPoint> points;
        for (const PL_PNT2D_record& p : row.points)
            points.push_back({p, {{0, 0}, {100, 0}}});
        const SharedSides shared(points, row.within);
        const WithPoints with = shared.with_points({row.neighbour, {}});
        EXPECT_EQ(text_of(with.parcel.outer), row.want.empty() ? text_of(row.neighbour) : row.want)
            << row.what;
        EXPECT_EQ(with.inserted, with.parcel.outer.size() - row.neighbour.size()) << row.what;
        EXPECT_EQ(with.beside, row.beside) << row.what;
        EXPECT_FALSE(with.left_out) << row.what;
        // The same from the other end of the side.
        for (NewPoint& point : points)
            std::swap(point.side.from, point.side.to);
        EXPECT_EQ(text_of(SharedSides(points, row.within).with_points({row.neighbour, {}}).parcel.outer),
                  text_of(with.parcel.outer))
            << row.what;
    }
}

// One of the eight ways to lay squared paper on squared paper, and another size of the squares. Doubles are not rounded.
struct Laid {
    unsigned way;
    double size;

    PL_PNT2D_record operator()(const PL_PNT2D_record& p) const
    {
        const PL_PNT2D_record turned = (way & 1) != 0 ? PL_PNT2D_record{p.y, p.x} : p;
        return {(way & 2) != 0 ? -turned.x * size : turned.x * size,
                (way & 4) != 0 ? -turned.y * size : turned.y * size};
    }

    Ring operator()(const Ring& ring) const
    {
        Ring laid;
        std::transform(ring.begin(), ring.end(), std::back_inserter(laid),
                       [this](const PL_PNT2D_record& p) { return (*this)(p); });
        return laid;
    }
};

template <class Look> void look_at_all_ways(const Look& look)
{
    for (const double size : {0x1p-30, 1.0, 0x1p30})
        for (unsigned way = 0; way < 8; ++way) {
            SCOPED_TRACE("way " + std::to_string(way) + ", size " + std::to_string(size));
            look(Laid{way, size});
        }
}

// Points beside each other as seen from the side have no such order.
bool has_points_beside_each_other(const Row& row)
{
    return row.points.size() == 2 && row.points[0].x == row.points[1].x && row.points[0].y != row.points[1].y;
}

TEST(SharedSides, GiveTheSameHoweverTheParcelsLie)
{
    for (const Row& row : kRows) {
        if (has_points_beside_each_other(row))
            continue;
        SCOPED_TRACE(row.what);
        const auto with_points = [&row](const Laid& laid) {
            std::vector<NewPoint> points;
            for (const PL_PNT2D_record& p : row.points)
                points.push_back({laid(p), {laid({0, 0}), laid({100, 0})}});
            return SharedSides(points, row.within * laid.size).with_points({laid(row.neighbour), {}});
        };
        const WithPoints want = with_points({0, 1.0});
        look_at_all_ways([&](const Laid& laid) {
            const WithPoints with = with_points(laid);
            EXPECT_EQ(text_of(with.parcel.outer), text_of(laid(want.parcel.outer)));
            EXPECT_EQ(text_of(with.existing), text_of(laid(want.existing)));
            EXPECT_EQ(with.beside, want.beside);
            EXPECT_NEAR(with.farthest_beside, want.farthest_beside * laid.size, 1e-12 * laid.size);
        });
    }
}

// Doubles below 128 are 2^-46 apart: four spacings of the side's far end are 2^-44.
TEST(SharedSides, AreOneWithinFourSpacings)
{
    constexpr double kFourSpacings = 0x1p-44;
    const struct {
        double within;
        double off;
        std::size_t inserted;
    } rows[] = {
        {0.0, kFourSpacings, 3},
        {0.0, kFourSpacings * 1.0625, 0},
        {-1.0, kFourSpacings, 3},
        {kNaN, kFourSpacings, 3},
        {kFourSpacings / 2, kFourSpacings, 3},
        {kFourSpacings / 2, kFourSpacings * 1.0625, 0},
        {kFourSpacings * 2, kFourSpacings * 2, 3},
        {kFourSpacings * 2, kFourSpacings * 2.125, 0},
    };
    for (const auto& row : rows)
        look_at_all_ways([&row](const Laid& laid) {
            const SharedSides shared({{laid({40, 0}), {laid({0, 0}), laid({64, 0})}}},
                                     row.within * laid.size);
            for (const double off : {row.off, -row.off})
                EXPECT_EQ(shared.with_points({laid({{128, off}, {-128, off}, {0, -50}}), {}}).inserted,
                          row.inserted)
                    << row.within << ", " << off;
        });
}

TEST(SharedSides, LeaveOutPointsOfSidesThatAreNone)
{
    const struct {
        const char* what;
        plparcel::Segment side;
        std::size_t inserted;
    } rows[] = {
        {"a side", {{0, 0}, {100, 0}}, 1},
        {"from nowhere", {{kNaN, 0}, {100, 0}}, 0},
        {"to nowhere", {{0, 0}, {100, kNaN}}, 0},
        {"no length", {{40, 0}, {40, 0}}, 0},
        {"just too short, to the north", {{0, 0}, {0, 1e-90}}, 0},
        {"just long enough", {{0, 0}, {0, 1.01e-90}}, 1},
        {"just too short, to the west", {{0, 0}, {-1e-90, 0}}, 0},
        {"just long enough", {{0, 0}, {-1.01e-90, 0}}, 1},
        {"just too short, to the south", {{0, 0}, {0, -1e-90}}, 0},
        {"just long enough", {{0, 0}, {0, -1.01e-90}}, 1},
        {"from infinitely far", {{-std::numeric_limits<double>::infinity(), 0}, {100, 0}}, 0},
        {"to a place just inside 1e90", {{0, 0}, {9.9e89, 0}}, 1},
        {"on it", {{0, 0}, {1e90, 0}}, 1},
        {"just outside", {{0, 0}, {1.1e90, 0}}, 0},
        {"on it, in the north", {{0, 0}, {0, 1e90}}, 1},
        {"just outside", {{0, 0}, {0, 1.1e90}}, 0},
        {"on it, in the west", {{-1e90, 0}, {100, 0}}, 1},
        {"just outside", {{-1.1e90, 0}, {100, 0}}, 0},
        {"on it, in the south", {{0, -1e90}, {0, 100}}, 1},
        {"just outside", {{0, -1.1e90}, {0, 100}}, 0},
    };
    for (const auto& row : rows) {
        const SharedSides shared({{{40, 0}, row.side}}, 0.001);
        EXPECT_EQ(shared.with_points({{row.side.from, row.side.to, {50, -50}}, {}}).inserted, row.inserted)
            << row.what;
    }
}

// Points of sides that are none, between others in any order, take nothing from these.
TEST(SharedSides, PointsOfSidesThatAreNoneTakeNothingFromOthers)
{
    for (const PL_PNT2D_record& nowhere :
         {PL_PNT2D_record{kNaN, kNaN}, {kNaN, 0}, {0, kNaN}, {HUGE_VAL, 0}, {0, -HUGE_VAL}, {1.1e90, 0}}) {
        for (const bool is_to : {true, false}) {
            SCOPED_TRACE(text_of({nowhere}));
            std::vector<NewPoint> points;
            Parcel parcel;
            for (int i = 0; i < 40; ++i) {
                const double x = 100.0 * ((i * 17) % 40);
                const PL_PNT2D_record from = {x, 0};
                const PL_PNT2D_record to = {x + 100, 0};
                points.push_back({{x + 40, 0}, {from, to}});
                points.push_back(
                    {{x + 60, 0}, is_to ? plparcel::Segment{from, nowhere} : plparcel::Segment{nowhere, to}});
                parcel.outer.push_back({100.0 * i, 0});
            }
            parcel.outer.push_back({4000, 0});
            parcel.outer.push_back({2000, -500});
            EXPECT_EQ(SharedSides(points, 0.001).with_points(parcel).inserted, 40u);
        }
    }
}

// However far a divided side goes, and in whichever direction: a neighbour's that lies along its beginning gets the point.
// Beyond 1e90 neither is looked at.
TEST(SharedSides, OfAnyLengthUpToTheLimit)
{
    const PL_PNT2D_record directions[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    for (const PL_PNT2D_record& d : directions) {
        SCOPED_TRACE(testing::Message() << d.x << " " << d.y);
        const auto at = [&d](double along, double left) {
            return PL_PNT2D_record{d.x * along - d.y * left, d.y * along + d.x * left};
        };
        const auto inserted = [&](double from, double to, double side_to) {
            const SharedSides shared({{at(40, 0), {at(from, 0), at(to, 0)}}}, 0.001);
            return shared.with_points({{at(0, 0), at(side_to, 0), at(50, -50)}, {}}).inserted;
        };
        EXPECT_EQ(inserted(0, 1000, 100), 1u);
        EXPECT_EQ(inserted(0, 1e9, 100), 1u);
        EXPECT_EQ(inserted(0, 1.1e90, 100), 0u);
        EXPECT_EQ(inserted(-1.1e90, 100, 100), 0u);
        EXPECT_EQ(inserted(0, 100, 1e9), 2u) << "the end of the divided side too";
        EXPECT_EQ(inserted(0, 100, 1.1e90), 0u);
    }
}

// Doubles are 1 apart at 2^52: 3 of them are no distance, 5 are more than 0.001.
TEST(SharedSides, ThatLieBesideEachOtherByRoundingsAreOne)
{
    constexpr double kFar = 0x1p52;
    for (const double sign : {-1.0, 1.0}) {
        for (const bool is_level : {false, true}) {
            SCOPED_TRACE(testing::Message() << sign << is_level);
            const auto at = [&](double along, double off) {
                const double far = sign * (kFar - off);
                return is_level ? PL_PNT2D_record{along, far} : PL_PNT2D_record{far, along};
            };
            const SharedSides shared({{at(400, 0), {at(0, 0), at(1000, 0)}}}, 0.001);
            EXPECT_EQ(shared.with_points({{at(0, 3), at(1000, 3), at(500, 500)}, {}}).inserted, 1u);
            EXPECT_EQ(shared.with_points({{at(0, 5), at(1000, 5), at(500, 500)}, {}}).inserted, 0u);
        }
    }
}

TEST(SharedSides, TellHowFarPointsLieBesideVerticesThatAreNearest)
{
    const SharedSides shared({{{40, 0}, {{0, 0}, {100, 0}}}, {{70, 0}, {{0, 0}, {100, 0}}}}, 0.001);
    const Ring notched = {{100, 0}, {40.0005, 0}, {40, -50}, {39.9997, 0}, {0, 0}, {0, -60}, {100, -60}};
    for (const Ring& ring : {notched, test::reversed(notched)}) {
        const WithPoints with = shared.with_points({ring, {}});
        EXPECT_EQ(with.inserted, 1u) << "70 0";
        EXPECT_EQ(with.beside, 1u);
        EXPECT_NEAR(with.farthest_beside, 0.0003, 1e-9);
    }
    // Both points, the eastern one first.
    const Ring notched_twice = {{100, 0}, {70.0006, 0}, {70, -50}, {40.0005, 0},
                                {0, 0},   {0, -60},     {100, -60}};
    const WithPoints at_two = shared.with_points({notched_twice, {}});
    EXPECT_EQ(at_two.beside, 2u);
    EXPECT_NEAR(at_two.farthest_beside, 0.0006, 1e-9);
    // In a hole: both points, and the farther one counts.
    const Ring around = {{-50, -50}, {150, -50}, {150, 50}, {-50, 50}};
    const WithPoints two = shared.with_points({around, {{{40.0004, 0}, {50, 20}, {69.9992, 0}}}});
    EXPECT_EQ(two.inserted, 0u);
    EXPECT_EQ(two.beside, 2u);
    EXPECT_NEAR(two.farthest_beside, 0.0008, 1e-9);
    // A vertex of the hole is there already.
    const WithPoints there = shared.with_points({around, {{{40.0004, 0}, {50, 20}, {70, 0}}}});
    EXPECT_EQ(there.beside, 1u);
    EXPECT_NEAR(there.farthest_beside, 0.0004, 1e-9);
}

TEST(SharedSides, TellTheChangeOfTheArea)
{
    const SharedSides shared({{{40, 0.5}, {{0, 0}, {100, 0}}}}, 0.001);
    EXPECT_EQ(shared.with_points({kBelow, {}}).area_change, 25.0);
    EXPECT_EQ(shared.with_points({{{0, 0}, {100, 0}, {100, 50}, {0, 50}}, {}}).area_change, -25.0);
    const Ring around = {{-50, -50}, {150, -50}, {150, 50}, {-50, 50}};
    const WithPoints with = shared.with_points({around, {{{0, 0}, {0, 20}, {100, 20}, {100, 0}}}});
    EXPECT_EQ(with.area_change, 25.0);
    EXPECT_EQ(with.inserted, 1u);
    EXPECT_EQ(text_of(with.parcel.holes[0]), "0 0, 0 20, 100 20, 100 0, 40 0.5");
}

//        S------------------E         Two divided sides on one line. The neighbour below has the first one as its own, and the
//               L-----------------    point of the second one lies half a millimetre from its corner E.
TEST(SharedSides, TellAPointOfAnotherSideBesideACorner)
{
    for (const bool turned : {false, true}) {
        const auto at = [&](double x) { return PL_PNT2D_record{turned ? 100 - x : x, 0}; };
        const SharedSides shared({{at(40), {at(0), at(100)}}, {at(99.9995), {at(50), at(150)}}}, 0.001);
        const WithPoints with = shared.with_points({{at(100), at(0), {0, -50}, {100, -50}}, {}});
        EXPECT_EQ(with.inserted, 2u);  // the first side's point, and the end of the second
        EXPECT_EQ(with.beside, 1u);
        EXPECT_NEAR(with.farthest_beside, 0.0005, 1e-12);
    }
}

TEST(SharedSides, LeaveAParcelOutThatWouldMeetItself)
{
    // A spike of the neighbour reaches up to a millimetre below its side, just where the point lies.
    const Ring spiked = {{100, 0}, {0, 0}, {0, -50}, {39, -50}, {40, -0.1}, {41, -50}, {100, -50}};
    const SharedSides shared({{{40, -0.2}, {{0, 0}, {100, 0}}}}, 0.001);
    const WithPoints with = shared.with_points({spiked, {}});
    EXPECT_TRUE(with.left_out);
    EXPECT_EQ(with.inserted, 0u);
    EXPECT_EQ(text_of(with.parcel.outer), text_of(spiked));
    // One that meets itself anyway gets its points.
    const WithPoints crossed = shared.with_points({{{100, 0}, {0, 0}, {100, -50}, {0, -50}}, {}});
    EXPECT_FALSE(crossed.left_out);
    EXPECT_EQ(crossed.inserted, 1u);
}

// Rows of parcels between straight lines, a point on each side. The corners of a row lie in the middle of the next one's
// sides, so that each side lies along two others. The origin is in their middle.
std::vector<Parcel> bricks(int rows, int in_row)
{
    std::vector<Parcel> layer;
    for (int j = 0; j < rows; ++j)
        for (int i = 0; i < in_row; ++i) {
            const double x = 40.0 * (i - in_row / 2) + 13.0 * (j % 3);
            const double y = 30.0 * (j - rows / 2);
            layer.push_back({{{x, y}, {x + 40, y}, {x + 40, y + 30}, {x, y + 30}}, {}});
        }
    return layer;
}

TEST(SharedSides, AreTheSameInAFile)
{
    constexpr std::size_t kBlock = 8192;
    const std::vector<Parcel> layer = bricks(90, 300);
    std::vector<NewPoint> points;
    for (const Parcel& parcel : layer)
        for (std::size_t i = 0; i < 4; ++i) {
            const PL_PNT2D_record& a = parcel.outer[i];
            const PL_PNT2D_record& b = parcel.outer[(i + 1) % 4];
            points.push_back({{a.x + 0.3 * (b.x - a.x), a.y + 0.3 * (b.y - a.y) + 0.0004}, {a, b}});
        }
    const auto all_parcels = [&](const SharedSides::Take& take) {
        for (const Parcel& parcel : layer)
            take(parcel);
    };
    const SharedSides in_memory(points, 0.001, all_parcels);
    parcel_test::FileInMemory file;
    const SharedSides in_file = SharedSides::in_file(
        file.scratch(),
        [&](const SharedSides::TakePoint& take) {
            for (const NewPoint& point : points)
                take(point);
        },
        0.001, all_parcels);
    std::size_t inserted = 0;
    for (const Parcel& parcel : layer) {
        const WithPoints one = in_memory.with_points(parcel);
        const WithPoints other = in_file.with_points(parcel);
        ASSERT_EQ(text_of(one.parcel.outer), text_of(other.parcel.outer));
        ASSERT_EQ(text_of(one.existing), text_of(other.existing));
        ASSERT_EQ(one.beside, other.beside);
        inserted += one.inserted;
    }
    // A point and half of the neighbours' two on each side that somebody shares.
    EXPECT_GT(inserted, 4 * layer.size());
    EXPECT_GT(file.reads, 1000u);  // more than stays in memory
    // What lies near each other lies in one block: each is read a few times only.
    EXPECT_LT(file.reads, 4 * file.bytes.size() / kBlock);
    EXPECT_FALSE(file.is_torn);
}

TEST(SharedSides, LetTheFilesErrorsThrough)
{
    struct Full {};
    const plparcel::Scratch full = {[](std::uint64_t, const void*, std::size_t) { throw Full(); }, {}};
    const auto many = [](const SharedSides::TakePoint& take) {
        for (int i = 0; i < 1000; ++i)
            take({{i + 0.5, 0.0}, {{i + 0.0, 0.0}, {i + 1.0, 0.0}}});
    };
    EXPECT_THROW(SharedSides::in_file(full, many, 0.001), Full);
}

//     +-----------+-----------+      Two neighbours below share the place M, in the middle of the divided side.
//     |     |     |                  Bent at the new point, the side would pass M: the pieces get M as well.
//     A-----N-----------------B
//     +--------M--------------+
TEST(SharedSides, GivePiecesTheNeighboursVertices)
{
    const Ring left = {{70, 0}, {0, 0}, {0, -50}, {70, -50}};
    const Ring right = {{100, 0}, {70, 0}, {70, -50}, {100, -50}};
    const SharedSides shared({{{40, 0.5}, {{0, 0}, {100, 0}}}}, 0.001, [&](const SharedSides::Take& take) {
        take({left, {}});
        take({right, {}});
    });
    const WithPoints piece = shared.with_points({{{40, 0.5}, {100, 0}, {100, 50}, {40, 50}}, {}});
    EXPECT_EQ(text_of(piece.parcel.outer), "40 0.5, 70 0, 100 0, 100 50, 40 50");
    EXPECT_EQ(text_of(piece.existing), "70 0");
    EXPECT_EQ(text_of(shared.with_points({left, {}}).parcel.outer), "70 0, 40 0.5, 0 0, 0 -50, 70 -50");
    EXPECT_EQ(shared.with_points({right, {}}).inserted, 0u);
    // Two hundred parcels in one place, all with the corner M: flats above each other.
    const SharedSides flats({{{40, 0.5}, {{0, 0}, {100, 0}}}}, 0.001, [&](const SharedSides::Take& take) {
        for (int i = 0; i < 200; ++i)
            take({left, {}});
    });
    const WithPoints below_flats = flats.with_points({{{40, 0.5}, {100, 0}, {100, 50}, {40, 50}}, {}});
    EXPECT_EQ(text_of(below_flats.parcel.outer), "40 0.5, 70 0, 100 0, 100 50, 40 50");
    // One neighbour lies all around, and M is a vertex of its hole.
    const SharedSides around({{{40, 0.5}, {{0, 0}, {100, 0}}}}, 0.001, [](const SharedSides::Take& take) {
        take({{{-50, -50}, {150, -50}, {150, 150}, {-50, 150}},
              {{{0, 0}, {0, 50}, {100, 50}, {100, 0}, {70, 0}}}});
    });
    const WithPoints inside = around.with_points({{{40, 0.5}, {100, 0}, {100, 50}, {40, 50}}, {}});
    EXPECT_EQ(text_of(inside.parcel.outer), "40 0.5, 70 0, 100 0, 100 50, 40 50");
    // The line ends at M, or a nanometre beside it.
    for (const double end : {70.0, 70.000000001}) {
        const SharedSides there({{{end, 0}, {{0, 0}, {100, 0}}}}, 0.001, [&](const SharedSides::Take& take) {
            take({left, {}});
            take({right, {}});
        });
        const WithPoints at_end = there.with_points({{{end, 0}, {100, 0}, {100, 50}, {70, 50}}, {}});
        EXPECT_EQ(at_end.inserted, 0u);
        EXPECT_EQ(text_of(at_end.existing), end > 70.0 ? "" : "70 0");
    }
    // Of a longer side the ends of the divided one are corners that were there.
    const WithPoints longer = shared.with_points({{{130, 0}, {-30, 0}, {50, -50}}, {}});
    EXPECT_EQ(text_of(longer.parcel.outer), "130 0, 100 0, 70 0, 40 0.5, 0 0, -30 0, 50 -50");
    EXPECT_EQ(text_of(longer.existing), "100 0, 70 0, 0 0");
}

// A quarter of a unit is the distance: a vertex that near to an end or to a point is that corner or point.
TEST(SharedSides, TakeVerticesForCornersAsFarAsTheDistance)
{
    const struct {
        double vertex;
        const char* want;
    } rows[] = {
        {0.25, "100 0, 40 0.5, 0 0, 50 50"},
        {0.3125, "100 0, 40 0.5, 0.3125 0, 0 0, 50 50"},
        {39.6875, "100 0, 40 0.5, 39.6875 0, 0 0, 50 50"},
        {39.75, "100 0, 40 0.5, 0 0, 50 50"},
        {40.25, "100 0, 40 0.5, 0 0, 50 50"},
        {40.3125, "100 0, 40.3125 0, 40 0.5, 0 0, 50 50"},
        {99.6875, "100 0, 99.6875 0, 40 0.5, 0 0, 50 50"},
        {99.75, "100 0, 40 0.5, 0 0, 50 50"},
    };
    for (const auto& row : rows) {
        const SharedSides shared(
            {{{40, 0.5}, {{0, 0}, {100, 0}}}}, 0.25, [&row](const SharedSides::Take& take) {
                take({{{row.vertex, 0}, {row.vertex < 50 ? 150.0 : -50.0, 0}, {0, -50}}, {}});
            });
        EXPECT_EQ(text_of(shared.with_points({{{100, 0}, {0, 0}, {50, 50}}, {}}).parcel.outer), row.want)
            << row.vertex;
    }
}

// A neighbour's corner M at 20, and the new point N at 40. Longer sides get both where N lies on them, and neither where only
// M does. A vertex beside M is M, and no point beside a vertex.
//
//     A---------N-------------B
//     +----M------------------+
TEST(SharedSides, GiveLongerSidesCornersOnlyWithPoints)
{
    const SharedSides shared({{{40, 0}, {{0, 0}, {100, 0}}}}, 0.001, [](const SharedSides::Take& take) {
        take({{{20, 0}, {0, 0}, {0, -50}, {20, -50}}, {}});
    });
    const struct {
        const char* what;
        Ring ring;
        const char* want;
        const char* existing;
    } rows[] = {
        {"along both", {{10, 0}, {60, 0}, {30, 50}}, "10 0, 20 0, 40 0, 60 0, 30 50", "20 0"},
        {"along M only", {{10, 0}, {30, 0}, {20, 50}}, "10 0, 30 0, 20 50", ""},
        {"from beside M", {{20.0004, 0}, {60, 0}, {30, 50}}, "20.0004 0, 40 0, 60 0, 30 50", ""},
        {"from M", {{20, 0}, {60, 0}, {30, 50}}, "20 0, 40 0, 60 0, 30 50", "20 0"},
    };
    for (const auto& row : rows) {
        const WithPoints with = shared.with_points({row.ring, {}});
        EXPECT_EQ(text_of(with.parcel.outer), row.want) << row.what;
        EXPECT_EQ(text_of(with.existing), row.existing) << row.what;
        EXPECT_EQ(with.beside, 0u) << row.what;
    }
}

// Divided sides that overlap along one line, from 0 to 100 and parts of it. Points at one place are one, whichever side they
// were put on, and a corner of a parcel there stays one.
TEST(SharedSides, JoinThePointsOfSidesThatOverlap)
{
    const auto on = [](double at, double from, double to) { return NewPoint{{at, 0}, {{from, 0}, {to, 0}}}; };
    const Ring all = {{0, 0}, {100, 0}, {50, 50}};
    const struct {
        const char* what;
        std::vector<NewPoint> points;
        const char* want;
        const char* existing;
    } rows[] = {
        {"two sides, one point", {on(40, 0, 100), on(40, 0, 60)}, "0 0, 40 0, 60 0, 100 0, 50 50", "60 0"},
        {"three sides, and two have one point",
         {on(20, 0, 100), on(40, 0, 60), on(40, 10, 90)},
         "0 0, 10 0, 20 0, 40 0, 60 0, 90 0, 100 0, 50 50",
         "10 0, 60 0, 90 0"},
        {"the one has a point where another begins",
         {on(20, 0, 100), on(30, 0, 60), on(50, 30, 90)},
         "0 0, 20 0, 30 0, 50 0, 60 0, 90 0, 100 0, 50 50",
         "30 0, 60 0, 90 0"},
    };
    for (const auto& row : rows) {
        const WithPoints with = SharedSides(row.points, 0.001).with_points({all, {}});
        EXPECT_EQ(text_of(with.parcel.outer), row.want) << row.what;
        EXPECT_EQ(text_of(with.existing), row.existing) << row.what;
    }
    // Sides whose middles doubles do not tell apart are two.
    const SharedSides two({on(1.5, 1, 3), on(2, 1, 3 + 0x1p-51), on(2.5, 1, 3)}, 0.001);
    EXPECT_EQ(text_of(two.with_points({{{1, 0}, {3, 0}, {2, 5}}, {}}).parcel.outer),
              "1 0, 1.5 0, 2 0, 2.5 0, 3 0, 2 5");
    // A side that begins at a corner which two divided sides have.
    const SharedSides shared({on(40, 0, 100), on(40, 0, 60)}, 0.001, [](const SharedSides::Take& take) {
        take({{{20, 0}, {0, 0}, {0, -50}, {20, -50}}, {}});
    });
    EXPECT_EQ(text_of(shared.with_points({{{20, 0}, {40, 0}, {30, 50}}, {}}).existing), "20 0");
}

TEST(SharedSides, GiveBothDividedParcelsEachOthersPoints)
{
    // The same side, then a longer one.
    for (const double more : {0.0, 30.0}) {
        const SharedSides shared(
            {{{40, 0.5}, {{0, 0}, {100, 0}}}, {{60, -0.5}, {{100 + more, 0}, {0.0 - more, 0}}}}, 0.001,
            [&](const SharedSides::Take& take) {
                take({{{0, 0}, {100, 0}, {50, 50}}, {}});
                take({{{100 + more, 0}, {0.0 - more, 0}, {50, -50}}, {}});
            });
        EXPECT_EQ(text_of(shared.with_points({{{40, 0.5}, {100, 0}, {100, 50}}, {}}).parcel.outer),
                  "40 0.5, 60 -0.5, 100 0, 100 50");
        EXPECT_EQ(text_of(shared.with_points({{{60, -0.5}, {0.0 - more, 0}, {50, -50}}, {}}).parcel.outer),
                  more > 0.0 ? "60 -0.5, 40 0.5, 0 0, -30 0, 50 -50" : "60 -0.5, 40 0.5, 0 0, 50 -50");
    }
}

}  // namespace
