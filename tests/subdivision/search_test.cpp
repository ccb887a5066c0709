#include "subdivision/search.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/bits.h"

namespace {

using Points = std::vector<PL_PNT2D_record>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// Four points and the closing copy.
const Points kRing = {{1, 2}, {5, 2}, {5, 7}, {1, 7}, {1, 2}};

struct FindRow {
    const char* what;
    Points ring;
    std::int32_t n;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    std::int32_t want_side;    // of p1-p2
    std::int32_t want_vertex;  // of p1
};

const FindRow kFindRows[] = {
    {"the first side", kRing, 4, {1, 2}, {5, 2}, 0, 0},
    {"a side in the middle", kRing, 4, {5, 2}, {5, 7}, 1, 1},
    {"the closing side, found through the copy", kRing, 4, {1, 7}, {1, 2}, 3, 3},
    {"against the ring", kRing, 4, {5, 2}, {1, 2}, -1, 1},
    {"a diagonal", kRing, 4, {1, 2}, {5, 7}, -1, 0},
    {"x of the first point a bit up", kRing, 4, {test::up(1), 2}, {5, 2}, -1, -1},
    {"y of the first point a bit down", kRing, 4, {1, test::down(2)}, {5, 2}, -1, -1},
    {"x of the second point a bit down", kRing, 4, {1, 2}, {test::down(5), 2}, -1, 0},
    {"y of the second point a bit up", kRing, 4, {1, 2}, {5, test::up(2)}, -1, 0},
    {"-0.0 and 0.0 are one coordinate",
     {{0.0, -0.0}, {3, 0.0}, {0.0, -0.0}},
     2,
     {-0.0, 0.0},
     {3, -0.0},
     0,
     0},
    {"a NaN is no coordinate, not even its own",
     {{kNaN, 1}, {2, 3}, {kNaN, 1}},
     2,
     {kNaN, 1},
     {2, 3},
     -1,
     -1},
    {"infinity is equal to itself", {{kInf, 1}, {2, 3}, {kInf, 1}}, 2, {kInf, 1}, {2, 3}, 0, 0},
    {"the same side twice: the first",
     {{1, 2}, {5, 2}, {9, 9}, {1, 2}, {5, 2}, {1, 2}},
     5,
     {1, 2},
     {5, 2},
     0,
     0},
    {"the vertex twice, the side only later",
     {{1, 2}, {9, 9}, {1, 2}, {5, 2}, {1, 2}},
     4,
     {1, 2},
     {5, 2},
     2,
     0},
    {"one point: the side that leads to its own copy", {{1, 2}, {1, 2}}, 1, {1, 2}, {1, 2}, 0, 0},
    {"a side beyond n does not count", kRing, 2, {5, 7}, {1, 7}, -1, -1},
    {"the side that ends on entry n does", kRing, 2, {5, 2}, {5, 7}, 1, 1},
    {"no points, one zero entry", {{0, 0}}, 0, {0, 0}, {0, 0}, -1, -1},
};

TEST(FindSide, Table)
{
    for (const FindRow& row : kFindRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(plcalc::find_side(row.ring, row.n, row.p1, row.p2), row.want_side);
    }
}

TEST(FindVertex, Table)
{
    for (const FindRow& row : kFindRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(plcalc::find_vertex(row.ring, row.n, row.p1), row.want_vertex);
    }
}

TEST(RoundFrom, GoesOnAtZeroAfterTheLastPoint)
{
    EXPECT_EQ(plcalc::round_from(0, 0, 4), 0);
    EXPECT_EQ(plcalc::round_from(2, 1, 4), 3);
    EXPECT_EQ(plcalc::round_from(2, 2, 4), 0);
    EXPECT_EQ(plcalc::round_from(3, 4, 4), 3);
    EXPECT_EQ(plcalc::round_from(0, 1, 1), 0);
}

struct MeetsRow {
    const char* what;
    double area;
    double requested;
    bool want;
};

const MeetsRow kMeetsRows[] = {
    {"exactly the request", 250.0, 250.0, true},
    {"1e-6 above, on the bound: 1 in a million divides to the double 1e-6", 1000001.0, 1e6, false},
    {"a hair nearer from above", test::down(1000001.0), 1e6, true},
    {"1e-6 below, on the bound", 999999.0, 1e6, false},
    {"a hair nearer from below", test::up(999999.0), 1e6, true},
    {"the quotient rounds to 1e-6; times a reciprocal it would stay below", 0x1.f2eaa2dfed5d1p+48,
     0x1.f2ea822d81401p+48, false},
    {"the quotient rounds to the double below 1e-6; times a reciprocal it would reach it",
     0x1.5121f12c1afc1p+50, 0x1.5121db13f7001p+50, true},
    {"relative to the request, not to the area: 999999 misses a million", 999999.0, 1e6, false},
    {"relative to the request, not to the area: a million meets 1000001", 1e6, 1000001.0, true},
    {"a request of zero, met exactly: zero over zero", 0.0, 0.0, false},
    {"a request of zero, missed", 1e-300, 0.0, false},
    {"a request below zero is always met", 5000.0, -1.0, true},
    {"a request of -0.0 with an area: minus infinity is small", 5000.0, -0.0, true},
    {"NaN area", kNaN, 100.0, false},
    {"NaN request", 100.0, kNaN, false},
    {"infinite request", 100.0, kInf, false},
    {"infinite area", kInf, 100.0, false},
};

TEST(MeetsRequest, Table)
{
    for (const MeetsRow& row : kMeetsRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(plcalc::meets_request(row.area, row.requested), row.want);
    }
}

}  // namespace
