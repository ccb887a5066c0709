#include "arcs/arc.h"

#include "arc_checks.h"
#include "plcalc/arcs.h"

namespace {

using test::down;
using test::kHalfPi;
using test::kInf;
using test::kNaN;
using test::kPi;
using test::kThreeHalfPi;
using test::kUntouched;
using test::tol;
using test::unknown;
using test::up;

struct ThreePointsRow {
    const char* what;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    PL_PNT2D_record p3;
    PL_PNT2D_record centre;
    double radius;
    double start_rad;
    double end_rad;
    int ulps;  // of the angles, which go through the platform's arctangent; centre and radius are exact
};

// Margin rows: circle of radius 1000 about the origin, ends near the directions 2 and 6 rad; the middle point
// lies 1e-10 rad inside or outside the margin of an end, or so near its rim that the margins
// taken from one side of the comparison and from the other differ.
const ThreePointsRow kThreePointsRows[] = {
    {"clockwise over the top: the ends change places",
     {0, 0},
     {1, 1},
     {2, 0},
     {1.0, 0.0},
     1.0,
     0.0,
     0x1.921fb54442d18p+1,
     2},
    {"anticlockwise over the top", {2, 0}, {1, 1}, {0, 0}, {1.0, 0.0}, 1.0, 0.0, 0x1.921fb54442d18p+1, 2},
    {"the middle outside from first to last: across +x",
     {1, 0},
     {0, -1},
     {0, 1},
     {0.0, 0.0},
     1.0,
     0x1.921fb54442d18p+0,
     0.0,
     2},
    {"the other way round", {0, 1}, {0, -1}, {1, 0}, {0.0, 0.0}, 1.0, 0x1.921fb54442d18p+0, 0.0, 2},
    {"across +x by itself",
     {0, -1},
     {1, 0},
     {0, 1},
     {0.0, 0.0},
     1.0,
     0x1.2d97c7f3321d2p+2,
     0x1.921fb54442d18p+0,
     2},
    {"across +x backwards",
     {0, 1},
     {1, 0},
     {0, -1},
     {0.0, 0.0},
     1.0,
     0x1.2d97c7f3321d2p+2,
     0x1.921fb54442d18p+0,
     2},
    {"not about the origin",
     {110, 240},
     {107, 244},
     {95, 238},
     {0x1.9aba2e8ba2e8cp+6, 0x1.db45d1745d174p+7},
     0x1.ec2fd7f833d5fp+2,
     0x1.3fe71acfb708ap-2,
     0x1.8c11b79a8ba88p+1,
     2},
    {"national coordinates",
     {483112.27, 4912877.91},
     {483150.04, 4912901.3},
     {483171.88, 4912860.15},
     {0x1.d7d1aaab35243p+18, 0x1.2bdb9c1060356p+22},
     0x1.f2b2eb39f244fp+4,
     0x1.7b556974e7f3cp+2,
     0x1.759385381f026p+1,
     2},
    {"cross product just above PL_EPS",
     {0, 0},
     {1, 0},
     {0, up(1e-7)},
     {0x1p-1, 0x1.ad7f29abcaf4ap-25},
     0x1.0000000000016p-1,
     0x1.921fb54442d18p+1,
     0x1.921fb54442d18p+1,
     2},
    {"cross product just below -PL_EPS",
     {0, 0},
     {1, 0},
     {0, -up(1e-7)},
     {0x1p-1, -0x1.ad7f29abcaf4ap-25},
     0x1.0000000000016p-1,
     0x1.921fb54442d18p+1,
     0x1.921fb54442d18p+1,
     2},
    {"nearly straight: a large circle",
     {0, 0},
     {50, 0.001},
     {100, 0},
     {50.0, -0x1.312cfffdf3b65p+20},
     0x1.312d00020c49cp+20,
     0x1.921d162d91b69p+0,
     0x1.9222545aeb568p+0,
     2},
    {"above the last, inside its margin",
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {0x1.e015d25c74c63p+9, -0x1.176a320c5a0bp+8},
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {0x1.cc5f2p-23, 0x1.06bdbp-23},
     0x1.f3ffffffd0ac3p+9,
     0x1.0000000087281p+1,
     0x1.7fffffffcf3e5p+2,
     2},
    {"above the last, beyond its margin by 3e-14",
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {0x1.e015d25cb0cbbp+9, -0x1.176a320abd883p+8},
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {0x1.7112p-26, -0x1.c3844p-23},
     0x1.f4000001adc2ep+9,
     0x1.8000000035d79p+2,
     0x1.ffffffffb5464p+0,
     2},
    {"above the last, outside its margin",
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {0x1.e015d25cecc8p+9, -0x1.176a320921443p+8},
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {0x1.ffce8p-27, -0x1.c07c4p-25},
     0x1.f400000073436p+9,
     0x1.800000000ca2cp+2,
     0x1.fffffffff700ap+0,
     2},
    {"below the first, inside its margin",
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {-0x1.a0258535597a8p+8, 0x1.c6a6162bf7bb6p+9},
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {0x1.f6b15p-24, 0x1.2303bp-23},
     0x1.f3ffffff5ffa7p+9,
     0x1.000000005982ep+1,
     0x1.7fffffffd33e9p+2,
     2},
    {"below the first, inside its margin by 1.5e-14",
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {-0x1.a0258533d2ffep+8, 0x1.c6a6162c5115ap+9},
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {-0x1.d59bdp-24, -0x1.0fdc8p-23},
     0x1.f4000000957d6p+9,
     0x1.ffffffff58c2ap+0,
     0x1.8000000029cf6p+2,
     2},
    {"below the first, outside its margin",
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {-0x1.a02585324c66cp+8, 0x1.c6a6162caa77p+9},
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {0x1.03a5bcp-22, 0x1.2ca028p-22},
     0x1.f3fffffeb563p+9,
     0x1.7fffffffa3884p+2,
     0x1.00000000b8ef6p+1,
     2},
    {"falling: above the first, inside its margin",
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {0x1.e015d25c74c63p+9, -0x1.176a320c5a0bp+8},
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {0x1.7448ep-24, 0x1.af09ep-24},
     0x1.f3ffffff897dbp+9,
     0x1.00000000424a5p+1,
     0x1.7fffffffdedadp+2,
     2},
    {"falling: above the first, beyond its margin by 3e-14",
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {0x1.e015d25cb0cbdp+9, -0x1.176a320abd874p+8},
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {0x1.3ad1p-24, 0x1.6c806p-24},
     0x1.f3ffffff9bc8ep+9,
     0x1.7fffffffe3f8ap+2,
     0x1.00000000380ebp+1,
     2},
    {"falling: above the first, outside its margin",
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {0x1.e015d25cecc83p+9, -0x1.176a320921435p+8},
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {0x1.0713dp-23, 0x1.3098b8p-23},
     0x1.f3ffffff58828p+9,
     0x1.7fffffffd127dp+2,
     0x1.000000005db06p+1,
     2},
    {"falling: below the last, inside its margin",
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {-0x1.a0258535597afp+8, 0x1.c6a6162bf7bb4p+9},
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {0x1.c35bep-24, 0x1.18238ep-21},
     0x1.f40000006068ep+9,
     0x1.00000000abe92p+1,
     0x1.7fffffff6e35dp+2,
     2},
    {"falling: below the last, inside its margin by 1.5e-14",
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {-0x1.a0258533d3002p+8, 0x1.c6a6162c5115ap+9},
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {0x1.207e5p-22, 0x1.e8ddd4p-21},
     0x1.f3fffffff861cp+9,
     0x1.0000000156a25p+1,
     0x1.7ffffffefb08ap+2,
     2},
    {"falling: below the last, outside its margin",
     {0x1.e015cbf3f5223p+9, -0x1.176a5e1707efp+8},
     {-0x1.a02585324c668p+8, 0x1.c6a6162caa77p+9},
     {-0x1.a025971477d59p+8, 0x1.c6a612150ca0cp+9},
     {0x1.40a33p-23, 0x1.3a71b6p-21},
     0x1.f40000002b935p+9,
     0x1.7fffffff59f3p+2,
     0x1.00000000d0a23p+1,
     2},
    {"ends in one direction, rising inside the margin: as they come",
     {-0x1.eeff0a20ec26fp+9, 0x1.1a3d71b248c5bp+7},
     {0x1.b6ca916355860p+9, 0x1.df6cf019143ccp+8},
     {-0x1.eeff0bfa52da5p+9, 0x1.1a3d3dce2669ep+7},
     {-0x1.7002p-26, 0x1.fbe228p-24},
     0x1.f3ffffffae9f8p+9,
     0x1.800000003eb25p+1,
     0x1.8000035b0611ap+1,
     2},
    {"ends in one direction, rising, inside the margin of the last only",
     {-0x1.eeff0a20ec26fp+9, 0x1.1a3d71b248c5bp+7},
     {0x1.b6ca916355860p+9, 0x1.df6cf019143ccp+8},
     {-0x1.eeff0bfa7126fp+9, 0x1.1a3d3dcad42fbp+7},
     {0x1.da71p-27, -0x1.4763ap-24},
     0x1.f40000003474dp+9,
     0x1.7fffffffd795bp+1,
     0x1.8000035ad5ebep+1,
     2},
    {"ends in one direction, rising outside the margin: nearly a turn",
     {-0x1.eeff0a20ec26fp+9, 0x1.1a3d71b248c5bp+7},
     {0x1.b6ca916355860p+9, 0x1.df6cf019143ccp+8},
     {-0x1.eeff0bfa8f769p+9, 0x1.1a3d3dc7819f8p+7},
     {-0x1.8838p-28, 0x1.0ea77p-25},
     0x1.f3ffffffea512p+9,
     0x1.8000035b46076p+1,
     0x1.8000000010b4ap+1,
     2},
    {"ends in one direction, falling inside the margin: as they come",
     {-0x1.eeff0a20ec26fp+9, 0x1.1a3d71b248c5bp+7},
     {0x1.b6ca916355860p+9, 0x1.df6cf019143ccp+8},
     {-0x1.eeff08478522dp+9, 0x1.1a3da5966a3ffp+7},
     {-0x1.36584p-25, 0x1.ac4ea8p-23},
     0x1.f3ffffff76bf6p+9,
     0x1.8000000069bf2p+1,
     0x1.7ffffca5a26b4p+1,
     2},
    {"ends in one direction, falling outside the margin: nearly a turn",
     {-0x1.eeff0a20ec26fp+9, 0x1.1a3d71b248c5bp+7},
     {0x1.b6ca916355860p+9, 0x1.df6cf019143ccp+8},
     {-0x1.eeff084748867p+9, 0x1.1a3da59d0f0b4p+7},
     {-0x1.36d08p-26, 0x1.acf358p-24},
     0x1.f3ffffffbb453p+9,
     0x1.8000000034f3ep+1,
     0x1.7ffffca4ffac8p+1,
     2},
    {"ends in one direction, falling, outside the margin of the last only",
     {-0x1.eeff0a20ec26fp+9, 0x1.1a3d71b248c5bp+7},
     {0x1.b6ca916355860p+9, 0x1.df6cf019143ccp+8},
     {-0x1.eeff084766d30p+9, 0x1.1a3da599bcd20p+7},
     {0x1.2fa7p-27, -0x1.a30f2p-25},
     0x1.f400000021929p+9,
     0x1.7fffffffe6226p+1,
     0x1.7ffffca4e7d1ep+1,
     2},
    {"all three in one direction from a far centre: as they come, falling",
     {-58.902968937, 37.821161411},
     {1.324e-06, 2.062e-06},
     {58.902968937, -37.821161411},
     {-0x1.0196210069b69p+29, -0x1.912ac7ec41e13p+29},
     0x1.dcbeba88baab3p+29,
     0x1.0000012cb5708p+0,
     0x1.fffffda69821dp-1,
     2},
    {"all three in one direction from a far centre: as they come, rising",
     {58.902968937, -37.821161411},
     {1.324e-06, 2.062e-06},
     {-58.902968937, 37.821161411},
     {-0x1.0196210bdeaa7p+29, -0x1.912ac7fe19aebp+29},
     0x1.dcbeba9def05fp+29,
     0x1.fffffda698222p-1,
     0x1.0000012cb5705p+0,
     2},
    {"all three in one direction, falling by 3e-14 more than the margin of the last: anticlockwise",
     {0x1.1fad626937fc2p+8, 0x1.5465060576f8ep+6},
     {0x1.ac50c88266bb8p-17, -0x1.69fb56dbb0325p-15},
     {-0x1.1fad626937fc2p+8, -0x1.5465060576f8ep+6},
     {-0x1.0e857697fc9e4p+28, 0x1.c9402f9646fc9p+29},
     0x1.dcd6500103a1cp+29,
     0x1.3ffffebde0a0bp+2,
     0x1.400001421f5f5p+2,
     2},
    {"NaN is never collinear: it comes out in the record",
     {kNaN, 0},
     {1, 1},
     {2, 0},
     {kNaN, kNaN},
     kNaN,
     0.0,
     0.0,
     2},
    {"infinite", {0, 0}, {kInf, 1}, {2, 0}, {kNaN, kNaN}, kNaN, 0.0, 0.0, 2},
};

TEST(ArcThroughThreePoints, Table)
{
    for (const ThreePointsRow& row : kThreePointsRows) {
        SCOPED_TRACE(row.what);
        ARC_2D_record arc = {{kUntouched, kUntouched}, kUntouched, unknown(9), kUntouched, kUntouched};
        EXPECT_EQ(PlFunz_arc_3pnts(&row.p1, &row.p2, &row.p3, &arc), 0);
        EXPECT_POINT(arc.centre, (row.centre));
        EXPECT_BITS(arc.radius, row.radius);
        EXPECT_EQ(arc.angle_type, PL_RADIANS);
        EXPECT_ULPS(arc.start_angle, row.start_rad, row.ulps);
        EXPECT_ULPS(arc.end_angle, row.end_rad, row.ulps);
    }
}

struct CollinearRow {
    const char* what;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    PL_PNT2D_record p3;
};

const CollinearRow kCollinearRows[] = {
    {"on one line", {0, 0}, {1, 1}, {2, 2}},
    {"on one line, not in order", {0, 0}, {5, 0}, {2, 0}},
    {"second on the first", {3, 4}, {3, 4}, {7, 1}},
    {"third on the first", {3, 4}, {7, 1}, {3, 4}},
    {"third on the second", {3, 4}, {7, 1}, {7, 1}},
    {"all the same", {3, 4}, {3, 4}, {3, 4}},
    {"cross product exactly PL_EPS", {0, 0}, {1, 0}, {0, 1e-7}},
    {"cross product exactly -PL_EPS", {0, 0}, {1, 0}, {0, -1e-7}},
    {"an area, not an angle: a right angle of 0.3 mm sides", {0, 0}, {3e-4, 0}, {0, 3e-4}},
};

TEST(ArcThroughThreePoints, CollinearLeavesTheRecordAlone)
{
    for (const CollinearRow& row : kCollinearRows) {
        SCOPED_TRACE(row.what);
        const ARC_2D_record stale = {{1, 2}, 3, PL_DEGREES, 4, 5};
        ARC_2D_record arc = stale;
        EXPECT_EQ(PlFunz_arc_3pnts(&row.p1, &row.p2, &row.p3, &arc), 5);
        EXPECT_TRUE(test::same_arc(arc, stale));
    }
}

struct EndsRow {
    const char* what;
    ARC_2D_record arc;
    PL_PNT2D_record start;
    PL_PNT2D_record end;
    int ulps;  // sine and cosine of the platform; pseudo-angles use neither
};

const EndsRow kEndsRows[] = {
    {"radians",
     {{10, 20}, 5, PL_RADIANS, 0.5, kPi},
     {0x1.cc69c81fc9729p+3, 0x1.665aa2915dc77p+4},
     {5.0, 20.0},
     1},
    {"degrees",
     {{10, 20}, 5, PL_DEGREES, 30, 200},
     {0x1.ca906689b988p+3, 0x1.67fffffffff88p+4},
     {0x1.534c6168c9edap+2, 0x1.24a36d6e53a78p+4},
     1},
    {"degrees go by the shortened factor: a residue in x",
     {{10, 20}, 5, PL_DEGREES, 90, 270},
     {0x1.4000000000343p+3, 25.0},
     {0x1.3fffffffff637p+3, 15.0},
     1},
    {"pseudo-angle", {{10, 20}, 5, PL_PSEUDO_ANGLE, 0.5, 1.5}, {13.0, 24.0}, {6.0, 23.0}, 0},
    {"pseudo-angle 3 is -x, not -y", {{10, 20}, 5, PL_PSEUDO_ANGLE, 3, 3.5}, {5.0, 20.0}, {14.0, 17.0}, 0},
    {"pseudo-angle: the sign of the radius is dropped",
     {{10, 20}, -5, PL_PSEUDO_ANGLE, 0, 1},
     {15.0, 20.0},
     {10.0, 25.0},
     0},
    {"radians keep the sign of the radius",
     {{10, 20}, -5, PL_RADIANS, 0, 1},
     {5.0, 20.0},
     {0x1.d31a6f62edbe8p+2, 0x1.f95d5934d2bf6p+3},
     1},
    {"angle_type 7: radians",
     {{10, 20}, 5, unknown(7), 0.5, 2},
     {0x1.cc69c81fc9729p+3, 0x1.665aa2915dc77p+4},
     {0x1.fad5404b5ec5ep+2, 0x1.88be694b0c42bp+4},
     1},
    {"angle_type -1: radians",
     {{10, 20}, 5, unknown(-1), 0.5, 2},
     {0x1.cc69c81fc9729p+3, 0x1.665aa2915dc77p+4},
     {0x1.fad5404b5ec5ep+2, 0x1.88be694b0c42bp+4},
     1},
    {"angle_type 3: radians",
     {{10, 20}, 5, unknown(3), 0.5, 2},
     {0x1.cc69c81fc9729p+3, 0x1.665aa2915dc77p+4},
     {0x1.fad5404b5ec5ep+2, 0x1.88be694b0c42bp+4},
     1},
    {"end before start",
     {{10, 20}, 5, PL_RADIANS, 6, 1},
     {0x1.d9a0932f58aedp+3, 0x1.29a59212a3349p+4},
     {0x1.9672c84e8920cp+3, 0x1.8351536596a05p+4},
     1},
    {"any number of turns",
     {{10, 20}, 5, PL_DEGREES, 1000, -1000},
     {0x1.5bc8a11d8c158p+3, 0x1.e26e46417a0eep+3},
     {0x1.5bc8a11d8c158p+3, 0x1.8ec8dcdf42f89p+4},
     1},
    {"no radius", {{10, 20}, 0, PL_RADIANS, 1, 2}, {10.0, 20.0}, {10.0, 20.0}, 0},
    {"snapped to zero", {{0, 0}, 1, PL_DEGREES, 90, 180}, {0.0, 1.0}, {-1.0, 0.0}, 1},
    {"infinite angles end in NaN", {{10, 20}, 5, PL_RADIANS, kInf, -kInf}, {kNaN, kNaN}, {kNaN, kNaN}, 0},
    {"NaN angle", {{10, 20}, 5, PL_DEGREES, kNaN, 0}, {kNaN, kNaN}, {15.0, 20.0}, 0},
};

TEST(ArcEndPoints, Table)
{
    for (const EndsRow& row : kEndsRows) {
        SCOPED_TRACE(row.what);
        const ARC_2D_record arc = row.arc;
        PL_PNT2D_record start = {kUntouched, kUntouched};
        PL_PNT2D_record end = {kUntouched, kUntouched};
        PlFunz_arc_end_pnts(&arc, &start, &end);
        EXPECT_ULPS(start.x, row.start.x, row.ulps);
        EXPECT_ULPS(start.y, row.start.y, row.ulps);
        EXPECT_ULPS(end.x, row.end.x, row.ulps);
        EXPECT_ULPS(end.y, row.end.y, row.ulps);
        EXPECT_TRUE(test::same_arc(arc, row.arc));
    }
}

// The circle through three points is as good as its triangle: those with an angle below 6 degrees are left out.
bool is_slim(const PL_PNT2D_record& p1, const PL_PNT2D_record& p2, const PL_PNT2D_record& p3)
{
    const double a = PlFunz_distance(&p1, &p2);
    const double b = PlFunz_distance(&p2, &p3);
    const double c = PlFunz_distance(&p3, &p1);
    const double cross = std::fabs((p2.x - p1.x) * (p3.y - p1.y) - (p3.x - p1.x) * (p2.y - p1.y));
    return cross < 0.1 * a * b || cross < 0.1 * b * c || cross < 0.1 * c * a;
}

TEST(ArcThroughThreePoints, HoldsItsThreePoints)
{
    std::mt19937_64 random = test::random_source();
    for (const double origin : {0.0, 500000.0}) {
        std::uniform_real_distribution<double> any(origin - 100.0, origin + 100.0);
        int tried = 0;
        while (tried < 5000) {
            const PL_PNT2D_record p1 = {any(random), any(random)};
            const PL_PNT2D_record p2 = {any(random), any(random)};
            const PL_PNT2D_record p3 = {any(random), any(random)};
            if (is_slim(p1, p2, p3))
                continue;
            ++tried;
            ARC_2D_record arc = {};
            ASSERT_EQ(PlFunz_arc_3pnts(&p1, &p2, &p3, &arc), 0);
            for (const PL_PNT2D_record* p : {&p1, &p2, &p3})
                ASSERT_NEAR(PlFunz_distpntarc(&arc, p), 0.0, 1e-6) << p->x << ' ' << p->y;

            PL_PNT2D_record start = {};
            PL_PNT2D_record end = {};
            PlFunz_arc_end_pnts(&arc, &start, &end);
            const bool as_given = PlFunz_distance(&start, &p1) < PlFunz_distance(&start, &p3);
            ASSERT_NEAR(PlFunz_distance(&start, as_given ? &p1 : &p3), 0.0, 1e-4);
            ASSERT_NEAR(PlFunz_distance(&end, as_given ? &p3 : &p1), 0.0, 1e-4);

            // Anticlockwise from start to end: the given order when p2 lies right of the chord p1-p3.
            const double cross = (p2.x - p1.x) * (p3.y - p1.y) - (p3.x - p1.x) * (p2.y - p1.y);
            ASSERT_EQ(as_given, cross > 0.0);
        }
    }
}

struct UnitRow {
    const char* what;
    PL_AngleMeasType angle_type;
    int arcangle;
    int polar;
};

// Three numberings of the same three units; only the pairs below make an arc's ends lie in its own sweep.
const UnitRow kUnitRows[] = {
    {"radians", PL_RADIANS, 2, 1},
    {"degrees", PL_DEGREES, 1, 0},
    {"pseudo-angle", PL_PSEUDO_ANGLE, 0, 2},
    {"unknown: radians", test::unknown(3), 2, 1},
    {"unknown: radians", test::unknown(7), 2, 1},
    {"unknown, negative: radians", test::unknown(-1), 2, 1},
    {"unknown, lowest: radians", test::unknown(std::numeric_limits<std::int32_t>::min()), 2, 1},
    {"unknown, highest: radians", test::unknown(std::numeric_limits<std::int32_t>::max()), 2, 1},
};

TEST(ArcUnits, Table)
{
    for (const UnitRow& row : kUnitRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(plcalc::arcangle_unit(row.angle_type), row.arcangle);
        EXPECT_EQ(plcalc::polar_unit(row.angle_type), row.polar);
    }
}

struct SweepRow {
    const char* what;
    double dir;
    double start;
    double end;
    bool want;
};

const SweepRow kSweepRows[] = {
    {"in the middle", 30, 10, 50, true},
    {"before", 5, 10, 50, false},
    {"behind", 55, 10, 50, false},
    {"on the start", 10, 10, 50, true},
    {"on the end", 50, 10, 50, true},
    {"on the margin below the start", 300 - tol(300), 300, 350, true},
    {"just outside the margin below the start", down(300 - tol(300)), 300, 350, false},
    {"on the margin above the end", 350 + tol(350), 300, 350, true},
    {"just outside the margin above the end", up(350 + tol(350)), 300, 350, false},
    {"the margin at zero is absolute", -1e-7, 0, 1, true},
    {"just outside it", down(-1e-7), 0, 1, false},
    {"start and end equal: that direction alone", 20, 20, 20, true},
    {"start and end equal: no other", 21, 20, 20, false},
    {"as stored: a turn more is another direction", 370, 10, 50, false},
    {"across zero: after the start", 350, 300, 60, true},
    {"across zero: zero", 0, 300, 60, true},
    {"across zero: before the end", 30, 300, 60, true},
    {"across zero: the gap", 100, 300, 60, false},
    {"across zero: on the margin below the start", 300 - tol(300), 300, 60, true},
    {"across zero: just outside the margin below the start", down(300 - tol(300)), 300, 60, false},
    {"across zero: on the margin above the end", 260 + tol(260), 300, 260, true},
    {"across zero: just outside the margin above the end", up(260 + tol(260)), 300, 260, false},
    {"end on the margin below the start: does not cross zero", 310, 300, 300 - tol(300), false},
    {"end just outside that margin: crosses zero", 310, 300, down(300 - tol(300)), true},
    {"negative angles: the margin grows with their size", down(-300 - tol(-300)), -300, -250, false},
    {"negative angles: on the margin", -300 - tol(-300), -300, -250, true},
    {"a NaN direction is not between", kNaN, 10, 50, false},
    {"a NaN direction is not in the gap either", kNaN, 300, 60, true},
    {"a NaN start: not across zero, and nothing is above it", 30, kNaN, 50, false},
    {"a NaN end", 30, 10, kNaN, false},
    {"an infinite direction", kInf, 10, 50, false},
    {"an infinite direction across zero", kInf, 300, 60, true},
    {"everything from a finite start on", 1e300, 10, kInf, true},
    {"everything up to the end from minus infinity", 30, -kInf, 50, true},
    {"an infinite start has no margin: nothing is above it", 30, kInf, 50, false},
};

TEST(Sweep, Table)
{
    for (const SweepRow& row : kSweepRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(plcalc::in_sweep(row.dir, row.start, row.end), row.want);
    }
}

}  // namespace
