#include "arcs/circle_segment.h"

#include "arc_checks.h"

namespace {

using test::down;
using test::kInf;
using test::kNaN;
using test::kUntouched;
using test::tol;
using test::up;

TEST(CircleRecord, FieldsInOrder)
{
    PL_CIRCLE_2D_record circle = {kUntouched, kUntouched, kUntouched};
    PlFunz_set_circle(1.5, -2.5, 3.5, &circle);
    EXPECT_BITS(circle.x, 1.5);
    EXPECT_BITS(circle.y, -2.5);
    EXPECT_BITS(circle.radius, 3.5);
}

TEST(ParamLineRecord, ArgumentsGoAxisByAxis)
{
    PL_PARAM_LINE_2D_record line = {kUntouched, kUntouched, kUntouched, kUntouched};
    PlFunz_set_param_line(1, 2, 3, 4, &line);
    EXPECT_BITS(line.x, 1.0);
    EXPECT_BITS(line.dx, 2.0);
    EXPECT_BITS(line.y, 3.0);
    EXPECT_BITS(line.dy, 4.0);
    EXPECT_BITS(*(&line.x + 1), 3.0) << "the record goes point by point";
}

struct TwoPointsRow {
    const char* what;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    int rc;
    PL_PARAM_LINE_2D_record want;
};

const TwoPointsRow kTwoPointsRows[] = {
    {"from the first to the second", {1, 2}, {4, 6}, 0, {1, 2, 3, 4}},
    {"and back", {4, 6}, {1, 2}, 0, {4, 6, -3, -4}},
    {"equal points", {1, 2}, {1, 2}, 2, {kUntouched, kUntouched, kUntouched, kUntouched}},
    {"on PL_EPS on both axes", {0, 0}, {1e-7, -1e-7}, 2, {kUntouched, kUntouched, kUntouched, kUntouched}},
    {"x just outside", {0, 0}, {up(1e-7), 1e-7}, 0, {0, 0, up(1e-7), 1e-7}},
    {"y just outside", {0, 0}, {-1e-7, -up(1e-7)}, 0, {0, 0, -1e-7, -up(1e-7)}},
    {"NaN is not short", {0, 0}, {kNaN, 0}, 0, {0, 0, kNaN, 0}},
    {"infinite", {0, 0}, {kInf, 1}, 0, {0, 0, kInf, 1}},
};

TEST(ParamLine, ThroughTwoPoints)
{
    for (const TwoPointsRow& row : kTwoPointsRows) {
        SCOPED_TRACE(row.what);
        PL_PARAM_LINE_2D_record line = {kUntouched, kUntouched, kUntouched, kUntouched};
        EXPECT_EQ(PlFunz_param_line_2p(&row.a, &row.b, &line), row.rc);
        EXPECT_BITS(line.x, row.want.x);
        EXPECT_BITS(line.y, row.want.y);
        EXPECT_BITS(line.dx, row.want.dx);
        EXPECT_BITS(line.dy, row.want.dy);
    }
}

struct NormaliseRow {
    const char* what;
    double dx;
    double dy;
    int rc;
    double want_dx;
    double want_dy;
};

const NormaliseRow kNormaliseRows[] = {
    {"3-4-5: times the reciprocal", 3.0, 4.0, 0, 0x1.3333333333334p-1, 0x1.999999999999ap-1},
    {"times the reciprocal differs from divided by the root", 3.0, 6.0, 0, 0x1.c9f25c5bfeddap-2,
     0x1.c9f25c5bfeddap-1},
    {"backwards", -3.0, -4.0, 0, -0x1.3333333333334p-1, -0x1.999999999999ap-1},
    {"already of length one", 1.0, 0.0, 0, 1.0, 0.0},
    {"no length", 0.0, 0.0, 4, 0.0, 0.0},
    {"the square just below PL_EPS", 0x1.4b96be9c2da2bp-12, 2.5724394843074972e-12, 4, 0x1.4b96be9c2da2bp-12,
     0x1.6a09e667f3bcdp-39},
    {"the square on PL_EPS, a length of 3.16e-4", 0x1.4b96be9c2da2bp-12, 5.1448789686149945e-12, 4,
     0x1.4b96be9c2da2bp-12, 0x1.6a09e667f3bcdp-38},
    {"the square just above PL_EPS", 0x1.4b96be9c2da2bp-12, 6.173854762337993e-12, 0, 0x1.ffffffffffffep-1,
     0x1.4f6902a5612b4p-26},
    {"the square overflows", 1e200, 0.0, 0, 0.0, 0.0},
    {"NaN", kNaN, 1.0, 0, kNaN, kNaN},
    {"infinite", kInf, 1.0, 0, kNaN, 0.0},
};

TEST(ParamLine, Normalise)
{
    for (const NormaliseRow& row : kNormaliseRows) {
        SCOPED_TRACE(row.what);
        PL_PARAM_LINE_2D_record line = {7, 8, row.dx, row.dy};
        EXPECT_EQ(PlFunz_param_line_normalise(&line), row.rc);
        EXPECT_BITS(line.x, 7.0);
        EXPECT_BITS(line.y, 8.0);
        EXPECT_BITS(line.dx, row.want_dx);
        EXPECT_BITS(line.dy, row.want_dy);
    }
}

struct CrossingRow {
    const char* what;
    PL_CIRCLE_2D_record circle;
    PL_LINE_2D_record seg;
    int n;
    PL_PNT2D_record q1;
    PL_PNT2D_record q2;
};

const CrossingRow kCrossingRows[] = {
    {"through the centre", {0, 0, 5}, {{-10, 0}, {10, 0}}, 2, {-5.0, 0.0}, {5.0, 0.0}},
    {"the first point is the one nearer the segment's start",
     {0, 0, 5},
     {{10, 0}, {-10, 0}},
     2,
     {5.0, 0.0},
     {-5.0, 0.0}},
    {"3-4-5", {0, 0, 5}, {{-10, 3}, {10, 3}}, 2, {-4.0, 3.0}, {4.0, 3.0}},
    {"upward, left of the centre", {10, 20, 5}, {{7, 0}, {7, 100}}, 2, {7.0, 16.0}, {7.0, 24.0}},
    {"oblique",
     {10, 20, 5},
     {{0, 11}, {21, 29}},
     2,
     {0x1.9b1b1b1b1b1b3p+2, 0x1.0818181818182p+4},
     {0x1.c000000000001p+3, 23.0}},
    {"oblique, backwards: other bits",
     {10, 20, 5},
     {{21, 29}, {0, 11}},
     2,
     {0x1.bffffffffffffp+3, 23.0},
     {0x1.9b1b1b1b1b1bp+2, 0x1.0818181818181p+4}},
    {"ends before the circle: both points are written all the same",
     {0, 0, 5},
     {{-10, 0}, {-6, 0}},
     0,
     {-5.0, 0.0},
     {5.0, 0.0}},
    {"begins behind the circle", {0, 0, 5}, {{6, 0}, {10, 0}}, 0, {-5.0, 0.0}, {5.0, 0.0}},
    {"wholly inside the circle", {0, 0, 5}, {{-1, 0}, {1, 0}}, 0, {-5.0, 0.0}, {5.0, 0.0}},
    {"ends inside: the nearer point alone", {0, 0, 5}, {{-10, 0}, {0, 0}}, 1, {-5.0, 0.0}, {5.0, 0.0}},
    {"begins inside: the farther point alone moves to the first place",
     {0, 0, 5},
     {{0, 0}, {10, 0}},
     1,
     {5.0, 0.0},
     {5.0, 0.0}},
    {"ends on the circle", {0, 0, 5}, {{-10, 0}, {-5, 0}}, 1, {-5.0, 0.0}, {5.0, 0.0}},
    {"the box has a margin", {0, 0, 5}, {{5 + tol(5.0), 0}, {10, 0}}, 1, {5.0, 0.0}, {5.0, 0.0}},
    {"outside the margin of the box",
     {0, 0, 5},
     {{5.0000007, 0}, {10, 0}},
     0,
     {-0x1.4000000000001p+2, 0.0},
     {5.0, 0.0}},
    {"clear of the circle: nothing is written",
     {0, 0, 5},
     {{-10, 6}, {10, 6}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"touches", {0, 0, 5}, {{-10, 5}, {10, 5}}, 1, {0.0, 5.0}, {kUntouched, kUntouched}},
    {"touches beyond the segment: the point is written",
     {0, 0, 5},
     {{1, 5}, {10, 5}},
     0,
     {0.0, 5.0},
     {kUntouched, kUntouched}},
    {"touches at the segment's start",
     {0, 0, 5},
     {{0, -5}, {10, -5}},
     1,
     {0.0, -5.0},
     {kUntouched, kUntouched}},
    {"half chord squared on PL_EPS: a touch",
     {0, 0, 0x1.4b96be9c2da2cp-12},
     {{-1, 0x1p-38}, {1, 0x1p-38}},
     1,
     {0.0, 0x1p-38},
     {kUntouched, kUntouched}},
    {"half chord squared just above PL_EPS: two points",
     {0, 0, 0x1.4b96be9c2da2cp-12},
     {{-1, 2e-12}, {1, 2e-12}},
     2,
     {-0x1.4b96be9c2d8p-12, 0x1.19799812dea11p-39},
     {0x1.4b96be9c2ep-12, 0x1.19799812dea11p-39}},
    {"half chord squared just below PL_EPS: a touch",
     {0, 0, 0x1.4b96be9c2da2bp-12},
     {{-1, 0}, {1, 0}},
     1,
     {0.0, 0.0},
     {kUntouched, kUntouched}},
    {"half chord squared on -PL_EPS: a touch",
     {0, 0, 0x1p-38},
     {{-1, 0x1.4b96be9c2da2cp-12}, {1, 0x1.4b96be9c2da2cp-12}},
     1,
     {0.0, 0x1.4b96be9c2da2cp-12},
     {kUntouched, kUntouched}},
    {"half chord squared just below -PL_EPS: a miss",
     {0, 0, 2e-12},
     {{-1, 0x1.4b96be9c2da2cp-12}, {1, 0x1.4b96be9c2da2cp-12}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"a miss by 0.3 mm on a small circle, a touch by the square",
     {0, 0, 1e-4},
     {{-1, 3e-4}, {1, 3e-4}},
     1,
     {0.0, 0x1.3a92a30553261p-12},
     {kUntouched, kUntouched}},
    {"no length: nothing is written",
     {0, 0, 5},
     {{5, 0}, {5, 0}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"length within PL_EPS on both axes",
     {0, 0, 5},
     {{5, 0}, {5.00000005, 1e-7}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"0.3 mm long: the direction keeps its length, and the middle of the segment comes out",
     {0.00015, 0, 0.5},
     {{0, 0}, {3e-4, 0}},
     1,
     {0x1.3a92a4e05056ap-13, 0.0},
     {0x1.3a92a4e05056ap-13, 0.0}},
    {"0.4 mm long: a proper direction, and it lies inside the circle",
     {0.0002, 0, 0.5},
     {{0, 0}, {4e-4, 0}},
     0,
     {-0x1.ffcb923a29c78p-2, 0.0},
     {0x1.001a36e2eb1c4p-1, 0.0}},
    {"no radius, through the centre: a touch",
     {1, 2, 0},
     {{0, 2}, {3, 2}},
     1,
     {1.0, 2.0},
     {kUntouched, kUntouched}},
    {"the sign of the radius does not count", {0, 0, -5}, {{-10, 3}, {10, 3}}, 2, {-4.0, 3.0}, {4.0, 3.0}},
    {"national coordinates",
     {483112.27, 4912877.91, 250.5},
     {{482800.5, 4912700.25}, {483400.75, 4913001.5}},
     2,
     {0x1.d794614a99bcbp+18, 0x1.2bd9b3c4884dp+22},
     {0x1.d80400aa2209ap+18, 0x1.2bdd34186c05fp+22}},
    {"NaN centre", {kNaN, 0, 5}, {{-10, 0}, {10, 0}}, 0, {kNaN, kNaN}, {kNaN, kNaN}},
    {"NaN segment", {0, 0, 5}, {{-10, 0}, {10, kNaN}}, 0, {kNaN, kNaN}, {kNaN, kNaN}},
    {"infinite radius", {0, 0, kInf}, {{-10, 0}, {10, 0}}, 0, {-kInf, kNaN}, {kInf, kNaN}},
    {"infinite segment", {0, 0, 5}, {{-10, 0}, {kInf, 0}}, 0, {kNaN, kNaN}, {kNaN, kNaN}},
};

TEST(CircleSegment, Table)
{
    for (const CrossingRow& row : kCrossingRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record q1 = {kUntouched, kUntouched};
        PL_PNT2D_record q2 = {kUntouched, kUntouched};
        int n = -99;
        EXPECT_EQ(PlFunz_intcircleseg(&row.circle, &row.seg, &q1, &q2, &n), row.n > 0);
        EXPECT_EQ(n, row.n);
        EXPECT_POINT(q1, (row.q1));
        EXPECT_POINT(q2, (row.q2));
    }
}

TEST(CircleSegment, PointsLieOnBoth)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-100.0, 100.0);
    int found[3] = {};
    for (int i = 0; i < 20000; ++i) {
        const PL_CIRCLE_2D_record circle = {any(random), any(random), 1.0 + std::fabs(any(random))};
        const PL_LINE_2D_record seg = {{any(random), any(random)}, {any(random), any(random)}};
        PL_PNT2D_record q[2] = {};
        int n = 0;
        PlFunz_intcircleseg(&circle, &seg, &q[0], &q[1], &n);
        ++found[n];

        const PL_PNT2D_record centre = {circle.x, circle.y};
        const double length = PlFunz_distance(&seg.start, &seg.end);
        for (int k = 0; k < n; ++k) {
            ASSERT_NEAR(PlFunz_distance(&q[k], &centre), circle.radius, 1e-6) << i;
            const double detour =
                PlFunz_distance(&seg.start, &q[k]) + PlFunz_distance(&q[k], &seg.end) - length;
            ASSERT_NEAR(detour, 0.0, 1e-4) << i;
        }
        if (n == 2) {
            ASSERT_LT(PlFunz_distance(&seg.start, &q[0]), PlFunz_distance(&seg.start, &q[1]) + 1e-6) << i;
        }

        // The ends tell how many there must be: one when only one of them is inside the circle.
        const bool start_inside = PlFunz_distance(&seg.start, &centre) < circle.radius;
        const bool end_inside = PlFunz_distance(&seg.end, &centre) < circle.radius;
        if (start_inside != end_inside) {
            ASSERT_EQ(n, 1) << i;
        } else if (start_inside) {
            ASSERT_EQ(n, 0) << i;
        } else {
            ASSERT_NE(n, 1) << i;
        }
    }
    EXPECT_GT(found[0], 1000);
    EXPECT_GT(found[1], 1000);
    EXPECT_GT(found[2], 1000);
}

}  // namespace
