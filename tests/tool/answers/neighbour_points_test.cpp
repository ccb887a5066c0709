// Points of neighbours in parcels and in pieces: their heights, and what the pieces and their amounts hold with them.

#include "answers/neighbour_points.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using plparcel::Ring;

tool::Parcel parcel_of(Ring ring, std::vector<Ring> holes = {}, std::vector<double> heights = {})
{
    tool::Parcel parcel;
    parcel.ring = std::move(ring);
    parcel.holes = std::move(holes);
    parcel.heights = std::move(heights);
    return parcel;
}

// Cut perpendicularly to side 1.
tool::Asked share(double of, double parts, double tolerance)
{
    tool::Asked asked;
    asked.request.line.cut = plparcel::Cut::perpendicular;
    asked.request.amounts = {plparcel::share(of, parts)};
    asked.request.rounding.tolerance = tolerance;
    asked.number = 1;
    asked.amounts = {"a share"};
    return asked;
}

std::string text_of(const Ring& ring)
{
    std::string text;
    for (const PL_PNT2D_record& p : ring)
        text += (text.empty() ? "" : ", ") + std::to_string(static_cast<int>(p.x)) + " " +
                std::to_string(static_cast<int>(p.y));
    return text;
}

// A rectangle of 100 by 50 with its base along (4, 3). A quarter on the right of the line from (60, 45) to (30, 85), which
// is a quarter of the opposite side.
const Ring kSlanted = {{0, 0}, {80, 60}, {50, 100}, {-30, 40}};

// Those of one division, for the parcels of a layer.
tool::NeighbourPoints points_of(const tool::Parcel& lot, const tool::Asked& asked, double within,
                                const std::vector<tool::Parcel>& layer)
{
    tool::NeighbourPoints points(within);
    points.note(tool::answer(lot, asked));
    points.note_layer([&](const auto& take) { std::for_each(layer.begin(), layer.end(), take); });
    return points;
}

TEST(NeighbourPoints, HaveHeightsBetweenThoseOfTheirSides)
{
    const Ring around = {{-100, -100}, {200, -100}, {200, 200}, {-100, 200}};
    const struct {
        const char* what;
        tool::Parcel neighbour;
        const char* ring;
        const char* hole;
        std::vector<double> heights;
    } rows[] = {
        {"sides after other sides",
         parcel_of(around, {kSlanted}, {1, 2, 3, 4, 10, 30, 50, 70}),
         "-100 -100, 200 -100, 200 200, -100 200",
         "0 0, 60 45, 80 60, 50 100, 30 85, -30 40",
         {1, 2, 3, 4, 10, 25, 30, 50, 55, 70}},
        {"the last side, and backwards",
         parcel_of(around, {{{0, 0}, {-30, 40}, {50, 100}, {80, 60}}}, {1, 2, 3, 4, 10, 70, 50, 30}),
         "-100 -100, 200 -100, 200 200, -100 200",
         "0 0, -30 40, 30 85, 50 100, 80 60, 60 45",
         {1, 2, 3, 4, 10, 70, 55, 50, 30, 25}},
        {"of the outer ring, before a hole",
         parcel_of({{80, 60}, {50, 100}, {-30, 40}, {0, 0}}, {{{20, 40}, {30, 40}, {20, 50}}},
                   {30, 50, 70, 10, 1, 2, 3}),
         "80 60, 50 100, 30 85, -30 40, 0 0, 60 45",
         "20 40, 30 40, 20 50",
         {30, 50, 55, 70, 10, 25, 1, 2, 3}},
        {"without heights",
         parcel_of(kSlanted, {{{20, 40}, {30, 40}, {20, 50}}}),
         "0 0, 60 45, 80 60, 50 100, 30 85, -30 40",
         "20 40, 30 40, 20 50",
         {}},
    };
    const tool::Parcel lot = parcel_of(kSlanted);
    const tool::Asked asked = share(1, 4, 1e-6);
    for (const auto& row : rows) {
        tool::NeighbourPoints points(0.0);
        points.note(tool::answer(lot, asked));
        points.note_layer([&](const auto& take) { take(row.neighbour); });
        tool::Parcel neighbour = row.neighbour;
        const tool::Insertion insertion = points.insert_in(neighbour);
        EXPECT_EQ(insertion.points, 2u) << row.what;
        EXPECT_EQ(insertion.left_out, 0u) << row.what;
        EXPECT_EQ(text_of(neighbour.ring), row.ring) << row.what;
        EXPECT_EQ(text_of(neighbour.holes.at(0)), row.hole) << row.what;
        EXPECT_EQ(neighbour.heights, row.heights) << row.what;
    }
}

//   +--------+--------+ 64   The lot is divided in two halves of 4096. The neighbour, whose boundary lies one unit below that
//   |        |        |      of the lot, gets a line in the middle of a half: the half grows by a triangle of 64 by 1.
//   +--------+--------+ 0
//   +--.-----------.--+ -1
TEST(NeighbourPoints, AreaOfAPieceThatBendsToThem)
{
    const struct {
        const char* what;
        double tolerance;
        double ground_factor;
        std::size_t missed;
    } rows[] = {
        {"32 of 8192 are within the tolerance", 0.00391, 1.0, 0},
        {"they are the tolerance", 0.00390625, 1.0, 0},
        {"they are more than the tolerance", 0.0039, 1.0, 1},
        {"a millionth is allowed", 1e-6, 1.0, 1},
        {"four times as much on the ground, within the tolerance", 0.00391, 0.5, 0},
        {"and more than it", 0.0039, 0.5, 1},
    };
    for (const auto& row : rows) {
        const double square = row.ground_factor * row.ground_factor;
        tool::Parcel lot = parcel_of({{0, 0}, {128, 0}, {128, 64}, {0, 64}});
        lot.ground_factor = row.ground_factor;
        const tool::Parcel neighbour = parcel_of({{0, -1}, {128, -1}, {128, -65}, {0, -65}});
        const tool::Asked half = share(1, 2, row.tolerance);
        const tool::Asked quarter = share(1, 4, 1e-6);
        tool::Answer answer = tool::answer(lot, half);
        tool::NeighbourPoints points(2.0);
        const tool::Answer beside = tool::answer(neighbour, quarter);
        ASSERT_TRUE(answer.printed.done() && beside.printed.done()) << row.what;
        points.note(beside);
        points.note_layer([&](const auto& take) {
            take(lot);
            take(neighbour);
        });
        const tool::Insertion insertion = points.insert_in_pieces(answer);
        EXPECT_EQ(insertion.points, 1u) << row.what;
        EXPECT_EQ(insertion.missed, row.missed) << row.what;
        EXPECT_EQ(insertion.area_change, 32.0 / square) << row.what;
        EXPECT_EQ(insertion.largest_change, 32.0 / square) << row.what;
        EXPECT_EQ(answer.printed.off_boundary, 2.0) << row.what;
        ASSERT_EQ(answer.printed.proven.pieces.size(), 2u) << row.what;
        const std::size_t bent = answer.printed.proven.pieces[0].ring.size() == 5 ? 0 : 1;
        for (const std::size_t i : {bent, 1 - bent}) {
            const double change = i == bent ? 32.0 / square : 0.0;
            const plparcel::Piece& piece = answer.printed.proven.pieces[i];
            EXPECT_EQ(piece.ring.size(), i == bent ? 5u : 4u) << row.what;
            EXPECT_EQ(answer.printed.areas.at(i), 4096.0 / square + change) << row.what;
            EXPECT_EQ(piece.area, 4096.0 / square + change) << row.what;
            EXPECT_EQ(piece.residual, change) << row.what;
            EXPECT_EQ(answer.printed.proven.held.at(i).area, 4096.0 / square + change) << row.what;
            EXPECT_EQ(answer.printed.proven.held.at(i).residual, change) << row.what;
        }
    }
}

// A new vertex has a coordinate of the old one after it. Names of corners are told by their numbers, which are others now.
TEST(NeighbourPoints, OfAParcelAlongTheAxes)
{
    const Ring lot = {{0, 0}, {80, 0}, {80, 60}, {0, 60}};
    tool::Parcel neighbour = parcel_of(lot, {}, {10, 50, 80, 40});
    neighbour.point_names = {"A", "B", "C", "D"};
    tool::Parcel far = parcel_of({{500, 0}, {580, 0}, {580, 60}});
    far.point_names = {"A", "B", "C"};
    const tool::NeighbourPoints points = points_of(parcel_of(lot), share(1, 4, 1e-6), 0.0, {neighbour, far});
    EXPECT_EQ(points.insert_in(neighbour).points, 2u);
    EXPECT_EQ(text_of(neighbour.ring), "0 0, 60 0, 80 0, 80 60, 60 60, 0 60");
    EXPECT_EQ(neighbour.heights, (std::vector<double>{10, 40, 50, 80, 70, 40}));
    EXPECT_TRUE(neighbour.point_names.empty());
    // One that gets none keeps its names.
    EXPECT_EQ(points.insert_in(far).points, 0u);
    EXPECT_EQ(far.point_names.size(), 3u);
}

// The ends of the line are rounded to a tenth of a millimetre, so that they lie that far off a slanted side.
TEST(NeighbourPoints, LieAsFarOffAsTheyAreLookedForAndRounded)
{
    const tool::Parcel lot = parcel_of(kSlanted);
    const tool::Asked seventh = share(1, 7, 1e-6);
    tool::Answer answer = tool::answer(lot, seventh);
    points_of(lot, seventh, 2.0, {lot}).insert_in_pieces(answer);
    EXPECT_GT(answer.printed.off_boundary, 2.0);
    EXPECT_LT(answer.printed.off_boundary, 2.0001);
}

// Spikes reach down to half a unit above the side of the lot, where the neighbour's point lies one unit above it.
TEST(NeighbourPoints, LeaveAParcelAsItWasThatWouldMeetItself)
{
    const tool::Parcel neighbour = parcel_of({{0, 1}, {128, 1}, {128, -63}, {0, -63}});
    const tool::Asked quarter = share(1, 4, 1e-6);
    tool::Parcel lot = parcel_of(
        {{0, 0}, {128, 0}, {128, 64}, {97, 64}, {96, 0.5}, {95, 64}, {33, 64}, {32, 0.5}, {31, 64}, {0, 64}});
    tool::NeighbourPoints points(2.0);
    points.note(tool::answer(neighbour, quarter));
    points.note_layer([&](const auto& take) { take(lot); });
    const tool::Insertion insertion = points.insert_in(lot);
    EXPECT_EQ(insertion.left_out, 1u);
    EXPECT_EQ(insertion.points, 0u);
    EXPECT_EQ(lot.ring.size(), 10u);
}

}  // namespace
