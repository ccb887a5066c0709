#include <cmath>
#include <limits>
#include <random>

#include "plcalc/survey.h"
#include "support/bits.h"

namespace {

using test::down;
using test::kUntouched;
using test::up;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// -------------------------------------------------------------------------------------------------- heights

struct HeightRow {
    const char* what;
    CPoint3d p1;
    CPoint3d p2;
    PL_PNT2D_record at;
    double want;
};

const HeightRow kHeightRows[] = {
    {"at the first end", {0, 0, 10}, {3, 4, 20}, {0, 0}, 10},
    {"at the second end", {0, 0, 10}, {3, 4, 20}, {3, 4}, 20},
    {"at the midpoint", {0, 0, 10}, {3, 4, 20}, {1.5, 2}, 15},
    {"beyond the second end", {0, 0, 10}, {3, 4, 20}, {6, 8}, 30},
    {"behind the first end: the distance has no sign", {0, 0, 10}, {3, 4, 20}, {-3, -4}, 20},
    {"off the segment: the straight distance, not the projection", {0, 0, 10}, {3, 4, 20}, {-4, 3}, 20},
    {"falling", {0, 0, 10}, {3, 4, 0}, {6, 8}, -10},
    {"not from the origin", {100, 200, 10}, {106, 208, 30}, {103, 204}, 20},
    {"the run is taken from the first end", {6, 8, 30}, {0, 0, 10}, {3, 4}, 20},
    {"slope first: a third, times 5, is a unit below 5 / 3",
     {0, 0, 0},
     {3, 0, 1},
     {5, 0},
     0x1.aaaaaaaaaaaaap+0},
    {"last bits: squares of y and x summed unfused, two roots",
     {500430.88, 5000275.44, 0.76},
     {500754.63, 5000001.73, 17.88},
     {500953.78, 5000812.95},
     0x1.f0ae2a4704f5dp+4},
    {"ends equal in plan, elsewhere: infinite", {1, 1, 0}, {1, 1, 5}, {4, 5}, kInf},
    {"ends equal in plan, falling: minus infinity", {1, 1, 5}, {1, 1, 0}, {4, 5}, -kInf},
    {"ends equal in plan, at that point: not a number", {1, 1, 0}, {1, 1, 5}, {1, 1}, kNan},
    {"all equal: not a number", {1, 1, 5}, {1, 1, 5}, {4, 5}, kNan},
    {"a NaN coordinate", {0, 0, 10}, {3, 4, 20}, {kNan, 4}, kNan},
};

TEST(Quota, Table)
{
    for (const HeightRow& row : kHeightRows) {
        SCOPED_TRACE(row.what);
        double got = kUntouched;
        CalcoloQuotaSuSegmento(row.p1.x, row.p1.y, row.p1.z, row.p2.x, row.p2.y, row.p2.z, row.at.x, row.at.y,
                               got);
        EXPECT_BITS(got, row.want);
    }
}

TEST(Quota, IsLinearAlongTheSegment)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> coordinate(-1000.0, 1000.0);
    std::uniform_real_distribution<double> ahead(0.0, 2.0);
    for (int i = 0; i < 2000; ++i) {
        const CPoint3d p1 = {coordinate(random), coordinate(random), coordinate(random)};
        const CPoint3d p2 = {coordinate(random), coordinate(random), coordinate(random)};
        if (std::hypot(p2.x - p1.x, p2.y - p1.y) < 1.0)
            continue;
        const double t = ahead(random);
        double z = kUntouched;
        CalcoloQuotaSuSegmento(p1.x, p1.y, p1.z, p2.x, p2.y, p2.z, p1.x + t * (p2.x - p1.x),
                               p1.y + t * (p2.y - p1.y), z);
        // The place on the segment is rounded at 1e3, which a steep short segment magnifies.
        ASSERT_NEAR(z, p1.z + t * (p2.z - p1.z), 1e-8);
    }
}

// ---------------------------------------------------------------------------------------------------- boxes

struct BoxRow {
    const char* what;
    CPoint3d p1;
    CPoint3d p2;
    PL_RECT_3D_record want;
};

const BoxRow kBoxRows[] = {
    {"x and z exchanged, y not", {5, 1, 9}, {2, 7, 3}, {2, 1, 3, 5, 7, 9}},
    {"y exchanged, x and z not", {2, 7, 3}, {5, 1, 9}, {2, 1, 3, 5, 7, 9}},
    {"in order", {1, 2, 3}, {4, 5, 6}, {1, 2, 3, 4, 5, 6}},
    {"only x", {4, 2, 3}, {1, 5, 6}, {1, 2, 3, 4, 5, 6}},
    {"only y", {1, 5, 3}, {4, 2, 6}, {1, 2, 3, 4, 5, 6}},
    {"only z", {1, 2, 6}, {4, 5, 3}, {1, 2, 3, 4, 5, 6}},
    {"all", {4, 5, 6}, {1, 2, 3}, {1, 2, 3, 4, 5, 6}},
    {"equal corners", {1, 2, 3}, {1, 2, 3}, {1, 2, 3, 1, 2, 3}},
    {"equal values stay as given, also zeros of either sign",
     {0.0, -0.0, 0.0},
     {-0.0, 0.0, -0.0},
     {0.0, -0.0, 0.0, -0.0, 0.0, -0.0}},
    {"the last bit", {up(1), down(1), up(2)}, {1, 1, 2}, {1, down(1), 2, up(1), 1, up(2)}},
    {"negative", {-1, -2, -3}, {-4, -5, -6}, {-4, -5, -6, -1, -2, -3}},
    {"a NaN is not above anything: as given", {kNan, 2, kNan}, {1, 1, kNan}, {kNan, 1, kNan, 1, 2, kNan}},
    {"infinities", {kInf, -kInf, 0}, {-kInf, kInf, 0}, {-kInf, -kInf, 0, kInf, kInf, 0}},
};

TEST(Bdry, Table)
{
    for (const BoxRow& row : kBoxRows) {
        SCOPED_TRACE(row.what);
        PL_RECT_3D_record got = {kUntouched, kUntouched, kUntouched, kUntouched, kUntouched, kUntouched};
        CalcoloBdry(row.p1.x, row.p1.y, row.p1.z, row.p2.x, row.p2.y, row.p2.z, &got);
        EXPECT_BITS(got.xmin, row.want.xmin);
        EXPECT_BITS(got.ymin, row.want.ymin);
        EXPECT_BITS(got.zmin, row.want.zmin);
        EXPECT_BITS(got.xmax, row.want.xmax);
        EXPECT_BITS(got.ymax, row.want.ymax);
        EXPECT_BITS(got.zmax, row.want.zmax);
    }
}

// --------------------------------------------------------------------------------------- tolerance tests

struct ZeroRow {
    const char* what;
    double value;
    double tol;
    bool want;
};

const ZeroRow kZeroRows[] = {
    {"on the tolerance", 0.01, 0.01, true},
    {"on the negative tolerance", -0.01, 0.01, true},
    {"just inside", down(0.01), 0.01, true},
    {"just outside", up(0.01), 0.01, false},
    {"just outside, negative", -up(0.01), 0.01, false},
    {"zero in zero tolerance", 0.0, 0.0, true},
    {"negative zero in zero tolerance", -0.0, 0.0, true},
    {"the smallest number in zero tolerance", 5e-324, 0.0, false},
    {"no tolerance of its own: 1e-8 in 1e-9", 1e-8, 1e-9, false},
    {"negative tolerance", 0.0, -1e-9, false},
    {"negative tolerance and its own value", -0.01, -0.01, false},
    {"NaN", kNan, 1.0, false},
    {"NaN tolerance", 0.0, kNan, false},
    {"infinity in an infinite tolerance", kInf, kInf, true},
};

TEST(NumeroZero, Table)
{
    for (const ZeroRow& row : kZeroRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(NumeroEstZero(row.value, row.tol), row.want);
    }
}

struct SameRow {
    const char* what;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    double tol;
    bool want;
};

const SameRow kSameRows[] = {
    {"equal, zero tolerance", {1, 2}, {1, 2}, 0.0, true},
    {"x a bit off, zero tolerance", {1, 2}, {up(1), 2}, 0.0, false},
    {"y a bit off, zero tolerance", {1, 2}, {1, down(2)}, 0.0, false},
    {"0.9 of the tolerance on both axes: a square, not a circle", {0, 0}, {0.9, 0.9}, 1.0, true},
    {"on the tolerance on both axes", {0, 0}, {0.25, -0.25}, 0.25, true},
    {"x just outside", {0, 0}, {up(0.25), 0}, 0.25, false},
    {"x just outside, to the left", {0, 0}, {-up(0.25), 0}, 0.25, false},
    {"y just outside", {0, 0}, {0, up(0.25)}, 0.25, false},
    {"y just outside, downwards", {0, 0}, {0, -up(0.25)}, 0.25, false},
    {"differences, not sums", {3, 4}, {3, 4}, 0.5, true},
    {"negative tolerance", {1, 2}, {1, 2}, -1.0, false},
    {"NaN", {kNan, 2}, {kNan, 2}, 1.0, false},
    {"the same infinity is no difference", {kInf, 0}, {kInf, 0}, 1.0, false},
};

TEST(Stesso, TableInEitherOrderOfThePoints)
{
    for (const SameRow& row : kSameRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(StessoPunto(row.p1, row.p2, row.tol), row.want);
        EXPECT_EQ(StessoPunto(row.p2, row.p1, row.tol), row.want);
    }
}

}  // namespace
