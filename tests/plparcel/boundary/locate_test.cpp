#include "boundary/locate.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "support/bits.h"
#include "support/rings.h"

namespace {

using plparcel::is_at_vertex;
using plparcel::is_on_side;
using plparcel::locate;
using plparcel::Location;
using plparcel::MeasuredRing;
using plparcel::Ring;

// Spacings are 1/8 where 2^49 is the largest coordinate, and coordinates here have more digits: 2.5 spacings are 5/16, four
// are 1/2.
//    3 ------- 2 (2^49)
//    |         |
//    0 ------- 1
constexpr double kFar = 0x1p49;
const Ring kSquare = {{0, 0}, {kFar, 0}, {kFar, kFar}, {0, kFar}};
constexpr double kOnSide = 2.5 / 8.0;
constexpr double kAtVertex = 4.0 / 8.0;

TEST(Locate, OnASideWithinTwoAndAHalfSpacings)
{
    const MeasuredRing ring(kSquare);
    const struct {
        const char* what;
        std::size_t side;
        PL_PNT2D_record p;
        bool is_on;
    } rows[] = {
        {"in the middle", 0, {64, 0}, true},
        {"a little inside", 0, {64, test::down(kOnSide)}, true},
        {"as far inside as counts", 0, {64, kOnSide}, true},
        {"farther inside", 0, {64, test::up(kOnSide)}, false},
        {"as far outside as counts", 0, {64, -kOnSide}, true},
        {"farther outside", 0, {64, -test::up(kOnSide)}, false},
        {"at its beginning", 0, {0, 0}, true},
        {"a little before it", 0, {-test::down(kOnSide), 0}, true},
        {"as far before it as counts", 0, {-kOnSide, 0}, true},
        {"farther before it", 0, {-test::up(kOnSide), 0}, false},
        {"as far beyond the end of a side that runs down", 3, {0, -kOnSide}, true},
        {"a little farther", 3, {0, -test::up(kOnSide)}, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(is_on_side(ring, row.side, row.p), row.is_on) << row.what;
}

TEST(Locate, AtAVertexWithinFourSpacingsOnEachAxis)
{
    const MeasuredRing ring(kSquare);
    for (const double sign : {-1.0, 1.0}) {
        EXPECT_TRUE(is_at_vertex(ring, {0, 0}, {sign * kAtVertex, sign * kAtVertex}));
        EXPECT_FALSE(is_at_vertex(ring, {0, 0}, {sign * test::up(kAtVertex), 0}));
        EXPECT_FALSE(is_at_vertex(ring, {0, 0}, {0, sign * test::up(kAtVertex)}));
    }
}

// Wherever the ring begins.
TEST(Locate, TellsTheVertexOrTheSideOrInsideOrOutside)
{
    const struct {
        const char* what;
        PL_PNT2D_record p;
        Location::Where where;
        std::size_t index;  // in kSquare
    } rows[] = {
        {"a vertex", {0, 0}, Location::Where::at_vertex, 0},
        {"beside it, on both of its sides", {-kAtVertex, kAtVertex}, Location::Where::at_vertex, 0},
        {"the second", {kFar, 0}, Location::Where::at_vertex, 1},
        {"the third", {kFar, kFar}, Location::Where::at_vertex, 2},
        {"the last", {0, kFar}, Location::Where::at_vertex, 3},
        {"on the first side", {64, -kOnSide}, Location::Where::on_side, 0},
        {"on the second", {kFar, 64}, Location::Where::on_side, 1},
        {"on the third", {64, kFar}, Location::Where::on_side, 2},
        {"on the last", {kOnSide, 64}, Location::Where::on_side, 3},
        {"inside", {test::up(kOnSide), 64}, Location::Where::inside, 0},
        {"outside", {-test::up(kOnSide), 64}, Location::Where::outside, 0},
        {"far outside", {-64, 64}, Location::Where::outside, 0},
    };
    for (const auto& row : rows)
        for (std::size_t first = 0; first < kSquare.size(); ++first) {
            SCOPED_TRACE(first);
            const Location location = locate(MeasuredRing(test::begun_at(kSquare, first)), row.p);
            EXPECT_EQ(location.where, row.where) << row.what;
            const bool is_of_boundary =
                row.where == Location::Where::at_vertex || row.where == Location::Where::on_side;
            const std::size_t wanted =
                is_of_boundary ? (row.index + kSquare.size() - first) % kSquare.size() : 0;
            EXPECT_EQ(location.index, wanted) << row.what;
        }
}

TEST(Locate, OfTwoVerticesAsNearItIsTheFirst)
{
    const Ring ring = {{0, 0}, {kAtVertex, 0}, {kFar, kFar}, {0, kFar}};
    const Location location = locate(MeasuredRing(ring), {0.5 * kAtVertex, 0});
    EXPECT_EQ(location.where, Location::Where::at_vertex);
    EXPECT_EQ(location.index, 0U);
}

}  // namespace
