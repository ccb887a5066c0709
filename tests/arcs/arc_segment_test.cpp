#include "arcs/arc_segment.h"

#include "arc_checks.h"
#include "plcalc/arcs.h"

namespace {

using test::down;
using test::kHalfPi;
using test::kInf;
using test::kNaN;
using test::kPi;
using test::kThreeHalfPi;
using test::kTwoPi;
using test::kUntouched;
using test::tol;
using test::unknown;
using test::up;

struct SegRectRow {
    const char* what;
    PL_LINE_2D_record seg;
    PL_RECT_2D_record want;
};

const SegRectRow kSegRectRows[] = {
    {"rising", {{1, 2}, {3, 5}}, {1, 2, 3, 5}},
    {"falling backwards", {{3, 2}, {1, 5}}, {1, 2, 3, 5}},
    {"backwards", {{3, 5}, {1, 2}}, {1, 2, 3, 5}},
    {"no length", {{3, 5}, {3, 5}}, {3, 5, 3, 5}},
    {"smaller by the margin: the end stands on both sides",
     {{1000 - tol(1000), 0}, {1000, 1}},
     {1000, 0, 1000, 1}},
    {"smaller by just more", {{down(1000 - tol(1000)), 0}, {1000, 1}}, {down(1000 - tol(1000)), 0, 1000, 1}},
    {"larger by the margin", {{0, 1000 + tol(1000)}, {1, 1000}}, {0, 1000, 1, 1000}},
    {"larger by just more", {{0, up(1000 + tol(1000))}, {1, 1000}}, {0, 1000, 1, up(1000 + tol(1000))}},
    {"5 cm at national coordinates: its box is its end",
     {{483112.27, 4912877.91}, {483112.31, 4912877.94}},
     {483112.31, 4912877.94, 483112.31, 4912877.94}},
    {"NaN start: the end", {{kNaN, kNaN}, {1, 2}}, {1, 2, 1, 2}},
    {"NaN end: NaN", {{1, 2}, {kNaN, kNaN}}, {kNaN, kNaN, kNaN, kNaN}},
};

TEST(SegRect, Table)
{
    for (const SegRectRow& row : kSegRectRows) {
        SCOPED_TRACE(row.what);
        PL_RECT_2D_record rect = {kUntouched, kUntouched, kUntouched, kUntouched};
        PlFunz_seg_rect(&row.seg, &rect);
        EXPECT_BITS(rect.xmin, row.want.xmin);
        EXPECT_BITS(rect.ymin, row.want.ymin);
        EXPECT_BITS(rect.xmax, row.want.xmax);
        EXPECT_BITS(rect.ymax, row.want.ymax);
    }
}

struct InRectRow {
    const char* what;
    PL_RECT_2D_record rect;
    PL_PNT2D_record p;
    int want;
};

const InRectRow kInRectRows[] = {
    {"inside", {-100, -200, 300, 400}, {0, 0}, 1},
    {"left of it", {-100, -200, 300, 400}, {-101, 0}, 0},
    {"right of it", {-100, -200, 300, 400}, {301, 0}, 0},
    {"below", {-100, -200, 300, 400}, {0, -201}, 0},
    {"above", {-100, -200, 300, 400}, {0, 401}, 0},
    {"a corner", {-100, -200, 300, 400}, {-100, 400}, 1},
    {"on the margin of the right side", {-100, -200, 300, 400}, {300 + tol(300), 0}, 1},
    {"just outside it", {-100, -200, 300, 400}, {up(300 + tol(300)), 0}, 0},
    {"on the margin of the upper side", {-100, -200, 300, 400}, {0, 400 + tol(400)}, 1},
    {"just outside it", {-100, -200, 300, 400}, {0, up(400 + tol(400))}, 0},
    {"on the margin of the left side", {-100, -200, 300, 400}, {-100 - tol(-100), 0}, 1},
    {"just outside it", {-100, -200, 300, 400}, {down(-100 - tol(-100)), 0}, 0},
    {"on the margin of the lower side", {-100, -200, 300, 400}, {0, -200 - tol(-200)}, 1},
    {"just outside it", {-100, -200, 300, 400}, {0, down(-200 - tol(-200))}, 0},
    {"the left margin is that of the left side", {500, 0, 600, 1}, {500 - tol(500), 0}, 1},
    {"just outside it", {500, 0, 600, 1}, {down(500 - tol(500)), 0}, 0},
    {"the lower margin is that of the lower side", {0, 500, 1, 600}, {0, 500 - tol(500)}, 1},
    {"just outside it", {0, 500, 1, 600}, {0, down(500 - tol(500))}, 0},
    {"the right margin shrinks with the side", {-600, 0, -500, 1}, {-500 + tol(-500), 0}, 1},
    {"just outside it", {-600, 0, -500, 1}, {up(-500 + tol(-500)), 0}, 0},
    {"the upper margin shrinks with the side", {0, -600, 1, -500}, {0, -500 + tol(-500)}, 1},
    {"just outside it", {0, -600, 1, -500}, {0, up(-500 + tol(-500))}, 0},
    {"a point: that point", {1000, 1000, 1000, 1000}, {1000, 1000}, 1},
    {"a point: absolute margin, not the wider scaled one", {1000, 1000, 1000, 1000}, {1000.00005, 1000}, 0},
    {"a point: inside PL_EPS", {0, 0, 1e-7, -1e-7}, {-1e-7, 1e-7}, 1},
    {"a point: the lower corner is the point", {0, 0, 1e-7, 1e-7}, {up(1e-7), 0}, 0},
    {"a point: the lower corner is the point, y", {0, 0, 1e-7, 1e-7}, {0, up(1e-7)}, 0},
    {"no longer a point: scaled margin from the upper corner", {0, 0, up(1e-7), 0}, {2e-7, 0}, 1},
    {"a line is no point", {1000, 5, 1000, 7}, {1000.00005, 6}, 1},
    {"inside out: nothing is in it", {300, 400, -100, -200}, {0, 0}, 0},
    {"NaN x", {-100, -200, 300, 400}, {kNaN, 0}, 0},
    {"NaN y", {-100, -200, 300, 400}, {0, kNaN}, 0},
    {"a NaN side", {-100, -200, kNaN, 400}, {0, 0}, 0},
    {"infinite sides have no margin", {-kInf, -kInf, kInf, kInf}, {0, 0}, 1},
};

TEST(PointInRect, Table)
{
    for (const InRectRow& row : kInRectRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(PlFunz_pnt_in_rect(&row.rect, &row.p), row.want);
    }
}

struct RelationRow {
    const char* what;
    PL_LINE_2D_record a;
    PL_LINE_2D_record b;
    int want;
};

const RelationRow kRelationRows[] = {
    {"across", {{0, -1}, {0, 1}}, {{-1, 0}, {1, 0}}, 1},
    {"across, upside down", {{0, 1}, {0, -1}}, {{-1, 0}, {1, 0}}, 1},
    {"across the line far beyond the segment", {{100, -1}, {100, 1}}, {{-1, 0}, {1, 0}}, 1},
    {"on one side", {{0, 1}, {5, 2}}, {{-1, 0}, {1, 0}}, 2},
    {"on the other side", {{0, -1}, {5, -2}}, {{-1, 0}, {1, 0}}, 2},
    {"the ends of the second do not count: not across the first", {{-1, 0}, {1, 0}}, {{5, -1}, {5, 1}}, 2},
    {"first end on the line", {{0, 0}, {0, 1}}, {{-1, 0}, {1, 0}}, 0},
    {"second end on the line", {{0, 1}, {0, 0}}, {{-1, 0}, {1, 0}}, 0},
    {"oblique", {{0, 3}, {3, 0}}, {{0, 0}, {2, 2}}, 1},
    {"oblique, on one side", {{0, 3}, {3, 4}}, {{0, 0}, {2, 2}}, 2},
    {"product on -1e-7: no", {{0, 1e-7}, {0, -1}}, {{0, 0}, {1, 0}}, 0},
    {"product just below -1e-7: across", {{0, up(1e-7)}, {0, -1}}, {{0, 0}, {1, 0}}, 1},
    {"product on 1e-7: no", {{0, 1e-7}, {0, 1}}, {{0, 0}, {1, 0}}, 0},
    {"product just above 1e-7: one side", {{0, up(1e-7)}, {0, 1}}, {{0, 0}, {1, 0}}, 2},
    {"not divided by any length: a cross of 3 cm arms is none",
     {{0, -0.01}, {0, 0.01}},
     {{-0.01, 0}, {0.01, 0}},
     0},
    {"the same cross in a long segment is one", {{0, -0.01}, {0, 0.01}}, {{-1, 0}, {1, 0}}, 1},
    {"the second side is measured from the end: a rounding error decides, across",
     {{-1e6, -1e6}, {37.122, 40.67}},
     {{29.16, 26.34}, {68.97, 97.99}},
     1},
    {"the second side is measured from the end: exactly on the line",
     {{1e6, -1e6}, {73.17, 16.856}},
     {{77.23, 2.69}, {56.93, 73.52}},
     0},
    // b runs along (1, 1) and a starts (1, 1) ahead of its start: differences first, products then.
    {"exactly on the line, far north: no product of a coordinate",
     {{0x1.252fa7ae147b0p+18, 0x1.313468f5c28f6p+22}, {3e5, 5.1e6}},
     {{0x1.252f67ae147b0p+18, 0x1.313464f5c28f6p+22}, {0x1.2530200000000p+18, 0x1.3134707ae147bp+22}},
     0},
    {"exactly on the line, far east",
     {{0x1.313468f5c28f6p+22, 0x1.252fa7ae147b0p+18}, {5.1e6, 3e5}},
     {{0x1.313464f5c28f6p+22, 0x1.252f67ae147b0p+18}, {0x1.3134707ae147bp+22, 0x1.2530200000000p+18}},
     0},
    {"no length of the second", {{0, 1}, {0, -1}}, {{3, 3}, {3, 3}}, 0},
    {"NaN", {{kNaN, 1}, {0, -1}}, {{-1, 0}, {1, 0}}, 0},
    {"infinite", {{0, kInf}, {0, -kInf}}, {{-1, 0}, {1, 0}}, 1},
};

TEST(SegRelation, Table)
{
    for (const RelationRow& row : kRelationRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(PlFunz_seg_relation(&row.a, &row.b), row.want);
    }
}

struct ToDegreesRow {
    const char* what;
    double rad;
    double deg;
};

const ToDegreesRow kToDegreesRows[] = {
    {"the constant itself, three digits short", 1.0, 0x1.ca5dc1a63cbbp+5},
    {"half a turn falls short of 180", kPi, 0x1.68000000007a2p+7},
    {"a turn falls short of 360", kTwoPi, 0x1.68000000007a2p+8},
    {"odd", -1.0, -0x1.ca5dc1a63cbbp+5},
    {"not brought into a turn", 100.0, 0x1.66193f49df722p+12},
    {"zero", 0.0, 0.0},
    {"zero keeps its sign", -0.0, -0.0},
    {"infinite", kInf, kInf},
    {"NaN", kNaN, kNaN},
};

TEST(RadToDeg, Table)
{
    for (const ToDegreesRow& row : kToDegreesRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_rad_to_deg(row.rad), row.deg);
    }
}

struct MeetRow {
    const char* what;
    ARC_2D_record arc;
    PL_LINE_2D_record seg;
    int n;
    PL_PNT2D_record pnt1;
    PL_PNT2D_record pnt2;
};

const MeetRow kMeetRows[] = {
    {"upper half circle crossed twice",
     {{0, 0}, 1, PL_RADIANS, 0, kPi},
     {{-2, 0.5}, {2, 0.5}},
     2,
     {-0x1.bb67ae8584caap-1, 0x1p-1},
     {0x1.bb67ae8584ca8p-1, 0x1p-1}},
    {"lower half of the circle: outside the sweep",
     {{0, 0}, 1, PL_RADIANS, 0, kPi},
     {{-2, -0.5}, {2, -0.5}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"a whole circle crossed twice gives the farther point alone",
     {{0, 0}, 1, PL_RADIANS, 0, 0},
     {{-2, 0}, {2, 0}},
     1,
     {1.0, 0.0},
     {kUntouched, kUntouched}},
    {"the farther point, not the one on the right",
     {{0, 0}, 1, PL_RADIANS, 0, 0},
     {{2, 0}, {-2, 0}},
     1,
     {-1.0, 0.0},
     {kUntouched, kUntouched}},
    {"a whole circle left once",
     {{0, 0}, 1, PL_RADIANS, 0, 0},
     {{0, 0}, {2, 0}},
     1,
     {1.0, 0.0},
     {kUntouched, kUntouched}},
    {"a touch", {{0, 0}, 1, PL_RADIANS, 0, kPi}, {{-1, 1}, {1, 1}}, 1, {0.0, 1.0}, {kUntouched, kUntouched}},
    {"no length within PL_EPS",
     {{0, 0}, 1, PL_RADIANS, 0, kPi},
     {{0, 1}, {1e-7, 1}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"angle_type 5: degrees here",
     {{0, 0}, 1, unknown(5), 0, 180},
     {{-2, 0.5}, {2, 0.5}},
     2,
     {-0x1.bb67ae8584caap-1, 0x1p-1},
     {0x1.bb67ae8584ca8p-1, 0x1p-1}},
    {"angle_type 5: degrees, the lower half",
     {{0, 0}, 1, unknown(5), 0, 180},
     {{-2, -0.5}, {2, -0.5}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"angle_type -1: degrees here",
     {{0, 0}, 1, unknown(-1), 0, 180},
     {{-2, 0.5}, {2, 0.5}},
     2,
     {-0x1.bb67ae8584caap-1, 0x1p-1},
     {0x1.bb67ae8584ca8p-1, 0x1p-1}},
    {"angle_type 3: degrees here",
     {{0, 0}, 1, unknown(3), 0, 180},
     {{-2, 0.5}, {2, 0.5}},
     2,
     {-0x1.bb67ae8584caap-1, 0x1p-1},
     {0x1.bb67ae8584ca8p-1, 0x1p-1}},
    {"angle_type 3: were it radians, 0 to 3 would hold the point",
     {{0, 0}, 1, unknown(3), 0, 3},
     {{-2, 0.5}, {2, 0.5}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"inside the box, short of the circle",
     {{0, 0}, 1, PL_RADIANS, 0, kPi},
     {{0.5, -0.1}, {0.5, 0.1}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"degrees",
     {{0, 0}, 1, PL_DEGREES, 0, 180},
     {{-2, 0.5}, {2, 0.5}},
     2,
     {-0x1.bb67ae8584caap-1, 0x1p-1},
     {0x1.bb67ae8584ca8p-1, 0x1p-1}},
    {"degrees are not radians",
     {{0, 0}, 1, PL_DEGREES, 0, 3},
     {{-2, 0.5}, {2, 0.5}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"pseudo-angle",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 0, 2},
     {{-2, 0.5}, {2, 0.5}},
     2,
     {-0x1.bb67ae8584caap-1, 0x1p-1},
     {0x1.bb67ae8584ca8p-1, 0x1p-1}},
    {"pseudo-angle, second quadrant",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 1, 2},
     {{-2, 0.5}, {2, 0.5}},
     1,
     {-0x1.bb67ae8584caap-1, 0x1p-1},
     {kUntouched, kUntouched}},
    {"pseudo-angle is not proportional: 0.5 is 53 degrees",
     {{0, 0}, 5, PL_PSEUDO_ANGLE, 0, 0.5},
     {{-10, 3.9}, {10, 3.9}},
     1,
     {0x1.907fb72e9f7fp+1, 0x1.f333333333333p+1},
     {kUntouched, kUntouched}},
    {"pseudo-angle: just beyond 53 degrees",
     {{0, 0}, 5, PL_PSEUDO_ANGLE, 0, 0.5},
     {{-10, 4.1}, {10, 4.1}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"the nearer point alone is in the sweep",
     {{0, 0}, 5, PL_DEGREES, 90, 180},
     {{-10, 3}, {10, 3}},
     1,
     {-4.0, 3.0},
     {kUntouched, kUntouched}},
    {"the farther point alone is in the sweep: it moves to the first place",
     {{0, 0}, 5, PL_DEGREES, 0, 90},
     {{-10, 3}, {10, 3}},
     1,
     {4.0, 3.0},
     {kUntouched, kUntouched}},
    {"both crossings, neither in the sweep",
     {{0, 0}, 5, PL_DEGREES, 80, 100},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"across +x: the farther point",
     {{0, 0}, 5, PL_DEGREES, 300, 60},
     {{-10, 3}, {10, 3}},
     1,
     {4.0, 3.0},
     {kUntouched, kUntouched}},
    {"across +x: both", {{0, 0}, 5, PL_DEGREES, 300, 60}, {{4, -10}, {4, 10}}, 2, {4.0, -3.0}, {4.0, 3.0}},
    {"across +x: the gap",
     {{0, 0}, 5, PL_DEGREES, 300, 60},
     {{-4, -10}, {-4, 10}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"one crossing, in the sweep",
     {{0, 0}, 5, PL_DEGREES, 0, 90},
     {{0, 0}, {8, 6}},
     1,
     {4.0, 0x1.8000000000001p+1},
     {kUntouched, kUntouched}},
    {"one crossing, outside the sweep",
     {{0, 0}, 5, PL_DEGREES, 0, 30},
     {{0, 0}, {8, 6}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"one crossing, outside the sweep but in its box",
     {{0, 0}, 5, PL_DEGREES, 60, 30},
     {{0, 0}, {7, 7}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"backwards: the points change places",
     {{0, 0}, 1, PL_RADIANS, 0, kPi},
     {{2, 0.5}, {-2, 0.5}},
     2,
     {0x1.bb67ae8584caap-1, 0x1p-1},
     {-0x1.bb67ae8584ca8p-1, 0x1p-1}},
    {"zero to 360 is no whole circle but a sweep: both points",
     {{0, 0}, 5, PL_DEGREES, 0, 360},
     {{-10, 3}, {10, 3}},
     2,
     {-4.0, 3.0},
     {4.0, 3.0}},
    {"360 to zero crosses +x: that direction alone",
     {{0, 0}, 5, PL_DEGREES, 360, 0},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"whole circle: end on the margin of the start",
     {{0, 0}, 5, PL_DEGREES, 350, 350 + tol(350)},
     {{-10, 3}, {10, 3}},
     1,
     {4.0, 3.0},
     {kUntouched, kUntouched}},
    {"end just outside: a hair of an arc",
     {{0, 0}, 5, PL_DEGREES, 350, up(350 + tol(350))},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"whole circle: end on the margin below the start",
     {{0, 0}, 5, PL_DEGREES, 350, 350 - tol(350)},
     {{-10, 3}, {10, 3}},
     1,
     {4.0, 3.0},
     {kUntouched, kUntouched}},
    {"end just below: a whole circle but for a hair",
     {{0, 0}, 5, PL_DEGREES, 350, down(350 - tol(350))},
     {{-10, 3}, {10, 3}},
     2,
     {-4.0, 3.0},
     {4.0, 3.0}},
    {"whole circle at zero: the margin is absolute",
     {{0, 0}, 5, PL_DEGREES, 0, 1e-7},
     {{-10, 3}, {10, 3}},
     1,
     {4.0, 3.0},
     {kUntouched, kUntouched}},
    {"just outside it",
     {{0, 0}, 5, PL_DEGREES, 0, up(1e-7)},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"whole circle in radians",
     {{0, 0}, 5, PL_RADIANS, 2, 2},
     {{-10, 3}, {10, 3}},
     1,
     {4.0, 3.0},
     {kUntouched, kUntouched}},
    {"whole circle in pseudo-angles",
     {{0, 0}, 5, PL_PSEUDO_ANGLE, 1.5, 1.5},
     {{-10, 3}, {10, 3}},
     1,
     {4.0, 3.0},
     {kUntouched, kUntouched}},
    {"whole circle touched",
     {{0, 0}, 5, PL_DEGREES, 0, 0},
     {{-10, 5}, {10, 5}},
     1,
     {0.0, 5.0},
     {kUntouched, kUntouched}},
    {"whole circle, a segment inside",
     {{0, 0}, 5, PL_DEGREES, 0, 0},
     {{-1, 0}, {1, 1}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"whole circle, a segment outside",
     {{0, 0}, 5, PL_DEGREES, 0, 0},
     {{6, 0}, {10, 1}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"the sweep's margin: just beyond the end",
     {{0, 0}, 5, PL_DEGREES, 0, 45},
     {{-7, -7.0000005}, {7, 7.0000005}},
     1,
     {0x1.c48c5ef2c785p+1, 0x1.c48c611119d2ep+1},
     {kUntouched, kUntouched}},
    {"outside the margin",
     {{0, 0}, 5, PL_DEGREES, 0, 45},
     {{-7, -7.0000025}, {7, 7.0000025}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"radians become degrees by the short constant, end: within by 5e-11 degrees",
     {{0, 0}, 1, PL_RADIANS, 5.5, 6.2},
     {{-0x1.fe3ac5c35ce41p+0, 0x1.5454e769964fp-3}, {0x1.fe3ac5c35ce41p+0, -0x1.5454e769964fp-3}},
     1,
     {0x1.fe3ac5c35ce42p-1, -0x1.5454e769964fp-4},
     {kUntouched, kUntouched}},
    {"radians become degrees by the short constant, start: outside by 5e-11 degrees",
     {{0, 0}, 1, PL_RADIANS, 5.5, 6.2},
     {{-0x1.6ad6b6b09db29p+0, 0x1.693ca1ff5f132p+0}, {0x1.6ad6b6b09db29p+0, -0x1.693ca1ff5f132p+0}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"a single point outside the arc's box is none, though in the sweep",
     {{0, 0}, 1, unknown(5), 90, 93.5},
     {{-0.03, 0}, {-0.03, 2}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"of a pair the box is not asked",
     {{0, 0}, 1, unknown(5), 90, 93.5},
     {{-0.03, -2}, {-0.03, 2}},
     1,
     {-0x1.eb851eb851eb8p-6, 0x1.ffc5011b4fa5cp-1},
     {kUntouched, kUntouched}},
    {"a segment whose box is its end: a single point elsewhere on it is none",
     {{999995.02, 1000000}, 5, PL_DEGREES, 0, 0},
     {{1000000, 1000000}, {1000000.05, 1000000}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"a segment whose box is its end: a single point at the end",
     {{999995.05, 1000000}, 5, PL_DEGREES, 0, 0},
     {{1000000, 1000000}, {1000000.05, 1000000}},
     1,
     {0x1.e84801999999ap+19, 1000000.0},
     {kUntouched, kUntouched}},
    {"a segment whose box is its end: of a pair neither is there",
     {{1000000.02, 1000000}, 0.01, PL_DEGREES, 0, 180},
     {{1000000, 1000000}, {1000000.05, 1000000}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"a segment whose box is its end: of a pair the farther is there, both are reported",
     {{1000000.04, 1000000}, 0.01, PL_DEGREES, 0, 180},
     {{1000000, 1000000}, {1000000.05, 1000000}},
     2,
     {0x1.e84800f5c28f6p+19, 1000000.0},
     {0x1.e84801999999ap+19, 1000000.0}},
    {"a segment whose box is its end: of a pair the nearer is there, both are reported",
     {{1000000.06, 1000000}, 0.01, PL_DEGREES, 0, 180},
     {{1000000, 1000000}, {1000000.05, 1000000}},
     2,
     {0x1.e84801999999ap+19, 1000000.0},
     {0x1.e848023d70a3ep+19, 1000000.0}},
    {"no corner in the other box: the diagonal is crossed",
     {{0, 0}, 5, PL_DEGREES, 0, 180},
     {{-10, 2}, {10, 3}},
     2,
     {-0x1.1ce09f5b44527p+2, 0x1.23832343ac5e2p+1},
     {0x1.0cead6425e7f2p+2, 0x1.5ae448a03ca65p+1}},
    {"no corner in the other box, nor the diagonal crossed",
     {{0, 0}, 5, PL_DEGREES, 0, 180},
     {{-10, 6}, {10, 7}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"an arc of 1 mm radius: the diagonal's product is too small, and the crossing is missed",
     {{0, 0}, 1e-3, PL_DEGREES, 0, 180},
     {{-0.002, 0.0005}, {0.002, 0.0005}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"the same arc and a longer segment: met",
     {{0, 0}, 1e-3, PL_DEGREES, 0, 180},
     {{-2, 0.0005}, {2, 0.0005}},
     2,
     {-0x1.c60bf64b488p-11, 0x1.0624dd2f1a9fcp-11},
     {0x1.c60bf64b48p-11, 0x1.0624dd2f1a9fcp-11}},
    {"boxes meet: the start and the south-east corner",
     {{0, 0}, 5, PL_DEGREES, 10, 350},
     {{-2.5, 2.5}, {4, 5.5}},
     1,
     {0x1.00ce150d3a466p+1, 0x1.251bdd7934d52p+2},
     {kUntouched, kUntouched}},
    {"boxes meet: the end and a corner",
     {{0, 0}, 5, PL_DEGREES, 10, 350},
     {{-7, -2.5}, {-3, 3}},
     1,
     {-0x1.3f91cf6baa096p+2, 0x1.09782cbf63328p-2},
     {kUntouched, kUntouched}},
    {"boxes meet: lower corner and upper left corner",
     {{0, 0}, 5, PL_DEGREES, 10, 350},
     {{-10, -6}, {-4, 4}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"boxes meet: upper corner and upper left corner",
     {{0, 0}, 5, PL_DEGREES, 10, 350},
     {{-4, 4}, {6, 6}},
     2,
     {-0x1.49e744a51b23ap+1, 0x1.1235ac55e3afap+2},
     {0x1.7661fee3317bp-1, 0x1.3c8f3ff8e13cbp+2}},
    {"boxes meet: lower corner and lower right corner",
     {{0, 0}, 5, PL_DEGREES, 10, 350},
     {{-6, -6}, {6, -3}},
     2,
     {-0x1.4e4c634f6e58cp+0, -0x1.34e4c634f6e59p+2},
     {0x1.b63540b6c63b4p+1, -0x1.d272afd24e713p+1}},
    {"boxes meet: upper and lower right corner",
     {{0, 0}, 5, PL_DEGREES, 10, 350},
     {{3, -6}, {6, 6}},
     2,
     {0x1.d272afd24e712p+1, -0x1.b63540b6c63b6p+1},
     {0x1.34e4c634f6e58p+2, 0x1.4e4c634f6e588p+0}},
    {"boxes meet: corners beside the segment, upper left",
     {{0, 0}, 5, PL_DEGREES, 10, 350},
     {{4, 8}, {-6.5, 1}},
     2,
     {-0x1.16d91f5532748p-1, 0x1.3e1892b8e6764p+2},
     {-0x1.18388d506d62cp+2, 0x1.3509ee3f6e27p+1}},
    {"boxes meet: corners beside the segment, lower right",
     {{0, 0}, 5, PL_DEGREES, 10, 350},
     {{5.5, 4.5}, {-4, -7}},
     2,
     {0x1.07c370f0fe0ffp+2, 0x1.6a5fe9041641ap+1},
     {-0x1.00482d3e9ae6ep+1, -0x1.253928dbc98bap+2}},
    {"boxes meet: all four corners, the diagonal on one side",
     {{0, 0}, 5, PL_DEGREES, 10, 350},
     {{-9, -6}, {6, 7}},
     2,
     {-0x1.21b7142570b1fp+2, -0x1.0fc5dea74bdf2p+1},
     {0x1.5f5e90407c08p+1, 0x1.0b75c70ae069ep+2}},
    {"boxes meet only by: start of the segment in the arc's box",
     {{10, 20}, 5, PL_PSEUDO_ANGLE, 0, 1},
     {{0x1.3ffffdb17126bp+3, 25}, {-990, -980}},
     1,
     {0x1.3ffffdb171227p+3, 0x1.8ffffffffffdep+4},
     {kUntouched, kUntouched}},
    {"boxes meet only by: end of the segment in the arc's box",
     {{10, 20}, 5, PL_PSEUDO_ANGLE, 0, 1},
     {{-990, -980}, {0x1.3ffffdb17126bp+3, 25}},
     1,
     {0x1.3ffffdb17124p+3, 0x1.8ffffffffffcp+4},
     {kUntouched, kUntouched}},
    {"boxes meet only by: lower left corner of the arc's box",
     {{-10, -20}, 5, PL_PSEUDO_ANGLE, 0, 0},
     {{-1010, -1020}, {-0x1.e000035afe536p+3, -20}},
     1,
     {-15.0, -0x1.3ffffe505852p+4},
     {kUntouched, kUntouched}},
    {"boxes meet only by: upper right corner of the arc's box",
     {{10, 20}, 5, PL_PSEUDO_ANGLE, 0, 0},
     {{1010, 1020}, {0x1.e000035afe536p+3, 20}},
     1,
     {15.0, 0x1.3ffffe505852p+4},
     {kUntouched, kUntouched}},
    {"boxes meet only by: start's x and end's y",
     {{10, 20}, 5, PL_PSEUDO_ANGLE, 0, 2},
     {{14, 12}, {0x1.3ffffd7bc1417p+2, 0x1.3ffffdcc49195p+4}},
     1,
     {0x1.400000000030ap+2, 0x1.3ffffd3d1eae6p+4},
     {kUntouched, kUntouched}},
    {"boxes meet only by: end's x and start's y",
     {{10, 20}, 5, PL_PSEUDO_ANGLE, 0, 2},
     {{0x1.3ffffd7bc1417p+2, 0x1.3ffffdcc49195p+4}, {14, 12}},
     1,
     {0x1.400000000030ep+2, 0x1.3ffffd3d1eae5p+4},
     {kUntouched, kUntouched}},
    {"boxes meet only by: upper left corner of the arc's box",
     {{10, 20}, 5, PL_PSEUDO_ANGLE, 0, 1},
     {{10, 0x1.900002b9eea3cp+4}, {10, 28}},
     1,
     {10.0, 25.0},
     {kUntouched, kUntouched}},
    {"boxes meet only by: lower right corner of the arc's box",
     {{10, 20}, 5, PL_PSEUDO_ANGLE, 0, 1},
     {{0x1.e000035afe536p+3, 20}, {18, 20}},
     1,
     {15.0, 20.0},
     {kUntouched, kUntouched}},
    {"national coordinates",
     {{483112.27, 4912877.91}, 250.5, PL_RADIANS, 0.1, 4.0},
     {{482800.5, 4912700.25}, {483400.75, 4913001.5}},
     2,
     {0x1.d794614a99bcbp+18, 0x1.2bd9b3c4884dp+22},
     {0x1.d80400aa2209ap+18, 0x1.2bdd34186c05fp+22}},
    {"as stored: an arc a turn up is never met",
     {{0, 0}, 5, PL_DEGREES, 370, 530},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"no radius: its centre",
     {{1, 2}, 0, PL_DEGREES, 0, 0},
     {{0, 2}, {3, 2}},
     1,
     {1.0, 2.0},
     {kUntouched, kUntouched}},
    {"a negative radius turns the box inside out, but the diagonal is there",
     {{0, 0}, -5, PL_DEGREES, 0, 0},
     {{-10, 3}, {10, 3}},
     1,
     {4.0, 3.0},
     {kUntouched, kUntouched}},
    {"NaN arc",
     {{kNaN, 0}, 5, PL_DEGREES, 0, 180},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"NaN radius",
     {{0, 0}, kNaN, PL_DEGREES, 0, 180},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"NaN angles: in no sweep",
     {{0, 0}, 5, PL_DEGREES, kNaN, 180},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"infinite angles: in no sweep",
     {{0, 0}, 5, PL_RADIANS, -kInf, kInf},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"NaN segment",
     {{0, 0}, 5, PL_DEGREES, 0, 180},
     {{-10, 3}, {10, kNaN}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"infinite segment",
     {{0, 0}, 5, PL_DEGREES, 0, 180},
     {{-kInf, 3}, {kInf, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
    {"infinite radius",
     {{0, 0}, kInf, PL_DEGREES, 0, 180},
     {{-10, 3}, {10, 3}},
     0,
     {kUntouched, kUntouched},
     {kUntouched, kUntouched}},
};

TEST(ArcSegment, Table)
{
    for (const MeetRow& row : kMeetRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record pnt1 = {kUntouched, kUntouched};
        PL_PNT2D_record pnt2 = {kUntouched, kUntouched};
        int n = -99;
        EXPECT_EQ(PlFunz_intarcline_ls(&row.arc, &row.seg, &pnt1, &pnt2, &n), row.n > 0);
        EXPECT_EQ(n, row.n);
        EXPECT_POINT(pnt1, (row.pnt1));
        EXPECT_POINT(pnt2, (row.pnt2));
    }
}

// Whether a direction lies in the sweep: 1 yes, 0 no, -1 too near an end to say.
int in_sweep_clearly(double dir, double start, double end)
{
    const double sweep = end < start ? end + kTwoPi - start : end - start;
    double from_start = std::fmod(dir - start + 2 * kTwoPi, kTwoPi);
    if (from_start < 1e-4 || from_start > kTwoPi - 1e-4 || std::fabs(from_start - sweep) < 1e-4)
        return -1;
    return from_start < sweep ? 1 : 0;
}

TEST(ArcSegment, MeetingsLieOnBothAndNoneIsMissed)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-100.0, 100.0);
    std::uniform_real_distribution<double> turn(0.0, kTwoPi - 0.01);
    int found[3] = {};
    for (int i = 0; i < 30000; ++i) {
        const ARC_2D_record arc = {
            {any(random), any(random)}, 5.0 + std::fabs(any(random)), PL_RADIANS, turn(random), turn(random)};
        const PL_LINE_2D_record seg = {{any(random), any(random)}, {any(random), any(random)}};
        PL_PNT2D_record p[2] = {};
        int n = 0;
        PlFunz_intarcline_ls(&arc, &seg, &p[0], &p[1], &n);
        ++found[n];
        const double length = PlFunz_distance(&seg.start, &seg.end);
        for (int k = 0; k < n; ++k) {
            ASSERT_NEAR(PlFunz_distpntarc(&arc, &p[k]), 0.0, 1e-4) << i;
            ASSERT_NEAR(PlFunz_distance(&seg.start, &p[k]) + PlFunz_distance(&p[k], &seg.end), length, 1e-4)
                << i;
        }

        // Circle and segment by long double, away from touches and from the ends.
        const long double dx = static_cast<long double>(seg.end.x) - seg.start.x;
        const long double dy = static_cast<long double>(seg.end.y) - seg.start.y;
        const long double wx = static_cast<long double>(seg.start.x) - arc.centre.x;
        const long double wy = static_cast<long double>(seg.start.y) - arc.centre.y;
        const long double a = dx * dx + dy * dy;
        const long double b = wx * dx + wy * dy;
        const long double c = wx * wx + wy * wy - static_cast<long double>(arc.radius) * arc.radius;
        const long double disc = b * b - a * c;
        if (std::fabs(disc) < 1e-3L * a || length < 1)
            continue;
        int want = 0;
        bool sure = true;
        for (const int sign : {-1, 1}) {
            if (disc < 0)
                continue;
            const long double t = (-b + sign * std::sqrt(disc)) / a;
            if (std::fabs(t) < 1e-4L || std::fabs(t - 1) < 1e-4L)
                sure = false;
            if (t < 0 || t > 1)
                continue;
            const double dir = std::atan2(static_cast<double>(wy + t * dy), static_cast<double>(wx + t * dx));
            const int inside = in_sweep_clearly(dir, arc.start_angle, arc.end_angle);
            sure = sure && inside >= 0;
            want += inside;
        }
        if (sure) {
            ASSERT_EQ(n, want) << i;
        }
    }
    for (const int count : found)
        EXPECT_GT(count, 500);
}

}  // namespace
