#include "arcs/arc_angle.h"

#include <algorithm>
#include <vector>

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
using test::tol;
using test::up;

struct HalftanRow {
    const char* what;
    double m;
    double want;
};

const HalftanRow kHalftanRows[] = {
    {"zero", 0.0, 0.0},
    {"-0.0 comes back as +0.0", -0.0, 0.0},
    {"on PL_EPS: zero", 1e-7, 0.0},
    {"on -PL_EPS: zero", -1e-7, 0.0},
    {"just outside PL_EPS: few digits are left, not m / 2", up(1e-7), 0x1.a39ddffffffffp-25},
    {"just outside -PL_EPS", -up(1e-7), -0x1.a39ddffffffffp-25},
    {"an eighth of a turn: sqrt(2) - 1", 1.0, 0x1.a827999fcef34p-2},
    {"odd", -1.0, -0x1.a827999fcef34p-2},
    {"3-4-5", 0.75, 0x1.5555555555555p-2},
    {"4-3-5", 4.0 / 3.0, 0x1.0000000000001p-1},
    {"nearly a quarter turn", 1e8, 0x1.ffffffaa19c47p-1},
    {"rounds to one", 1e17, 1.0},
    {"the square overflows", 1e200, kInf},
    {"infinite", kInf, kNaN},
    {"NaN", kNaN, kNaN},
};

TEST(Halftan, Table)
{
    for (const HalftanRow& row : kHalftanRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_halftan(row.m), row.want);
    }
}

struct VectorRow {
    const char* what;
    PL_PNT2D_record vec;
    int want;
};

const VectorRow kVectorRows[] = {
    {"both components on -PL_EPS", {-1e-7, -1e-7}, 1},
    {"left of the margin", {-2e-7, 0}, 2},
    {"below the margin", {0, -2e-7}, 4},
    {"the origin", {0, 0}, 1},
    {"+x", {1, 0}, 1},
    {"+y", {0, 1}, 1},
    {"-x", {-1, 0}, 2},
    {"-y", {0, -1}, 4},
    {"first", {1, 1}, 1},
    {"second", {-1, 1}, 2},
    {"third", {-1, -1}, 3},
    {"fourth", {1, -1}, 4},
    {"x just outside, y on -PL_EPS", {down(-1e-7), -1e-7}, 2},
    {"x just outside, y just outside", {down(-1e-7), down(-1e-7)}, 3},
    {"x on -PL_EPS, y just outside", {-1e-7, down(-1e-7)}, 4},
    {"x just inside, y just inside", {up(-1e-7), up(-1e-7)}, 1},
    {"NaN x", {kNaN, 1}, 4},
    {"NaN x, y below", {kNaN, -1}, 4},
    {"NaN y, x right", {1, kNaN}, 4},
    {"NaN y, x left", {-1, kNaN}, 4},
    {"infinite", {-kInf, kInf}, 2},
    {"infinite the other way", {-kInf, -kInf}, 3},
};

TEST(Quadrant, OfVector)
{
    for (const VectorRow& row : kVectorRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(PlFunz_quadrant(0, 100.0, &row.vec), row.want);
        EXPECT_EQ(PlFunz_quadrant(0, kNaN, &row.vec), row.want) << "the angle is not read";
    }
}

struct AngleRow {
    const char* what;
    int mode;
    double angle;
    int want;
};

const AngleRow kAngleRows[] = {
    {"degrees: within the margin above 90", 2, 90.000005, 1},
    {"degrees: a turn and a quarter", 2, 450.0, 1},
    {"degrees: negative", 2, -90.0, 3},
    {"degrees: zero", 2, 0.0, 1},
    {"degrees: on -PL_EPS", 2, -1e-7, 1},
    {"degrees: just below -PL_EPS a turn is added, and taken off again", 2, down(-1e-7), 4},
    {"degrees: a hair below zero is fourth", 2, -2e-7, 4},
    {"degrees: each quadrant has its closing axis, 90", 2, 90.0, 1},
    {"degrees: 180", 2, 180.0, 2},
    {"degrees: 270", 2, 270.0, 3},
    {"degrees: a full turn is zero", 2, 360.0, 1},
    {"degrees: on the margin above 90", 2, 90.0 + tol(90.0), 1},
    {"degrees: just outside the margin above 90", 2, up(90.0 + tol(90.0)), 2},
    {"degrees: on the margin above 180", 2, 180.0 + tol(180.0), 2},
    {"degrees: just outside the margin above 180", 2, up(180.0 + tol(180.0)), 3},
    {"degrees: on the margin above 270", 2, 270.0 + tol(270.0), 3},
    {"degrees: just outside the margin above 270", 2, up(270.0 + tol(270.0)), 4},
    {"degrees: on the margin below a turn it comes to lie below zero: fourth", 2, 360.0 - tol(360.0), 4},
    {"degrees: many turns", 2, 360.0 * 1000.0 + 100.0, 2},
    {"degrees: many turns back", 2, -360.0 * 1000.0 - 100.0, 3},
    {"degrees: more turns than any survey holds", 2, 360e9 + 200.0, 3},
    {"degrees: infinite", 2, kInf, 4},
    {"degrees: infinite the other way", 2, -kInf, 4},
    {"degrees: NaN", 2, kNaN, 4},
    {"degrees: the largest double ends", 2, 1.7976931348623157e308, 2},
    {"radians: zero", 3, 0.0, 1},
    {"radians: 2 is second, in degrees it would be first", 3, 2.0, 2},
    {"radians: any other mode", -1, 2.0, 2},
    {"radians: any other mode, large", 77, 2.0, 2},
    {"radians: on -PL_EPS", 3, -1e-7, 1},
    {"radians: a hair below zero is fourth", 3, -2e-7, 4},
    {"radians: on the margin above a quarter", 3, kHalfPi + tol(kHalfPi), 1},
    {"radians: just outside the margin above a quarter", 3, up(kHalfPi + tol(kHalfPi)), 2},
    {"radians: on the margin above a half", 3, kPi + tol(kPi), 2},
    {"radians: just outside the margin above a half", 3, up(kPi + tol(kPi)), 3},
    {"radians: on the margin above three quarters", 3, kThreeHalfPi + tol(kThreeHalfPi), 3},
    {"radians: just outside the margin above three quarters", 3, up(kThreeHalfPi + tol(kThreeHalfPi)), 4},
    {"radians: a full turn", 3, kTwoPi, 1},
    {"radians: infinite", 3, kInf, 4},
    {"radians: NaN", 3, kNaN, 4},
    {"pseudo: only axes have a number; between them it is 4", 1, 0.5, 4},
    {"pseudo: second quadrant, 4 all the same", 1, 1.5, 4},
    {"pseudo: third quadrant, 4 all the same", 1, 2.5, 4},
    {"pseudo: +x", 1, 0.0, 1},
    {"pseudo: +y is 2, not 1", 1, 1.0, 2},
    {"pseudo: -x is 3", 1, 2.0, 3},
    {"pseudo: -y", 1, 3.0, 4},
    {"pseudo: a full turn", 1, 4.0, 1},
    {"pseudo: on PL_EPS", 1, 1e-7, 1},
    {"pseudo: just outside PL_EPS", 1, up(1e-7), 4},
    {"pseudo: on -PL_EPS", 1, -1e-7, 1},
    {"pseudo: a hair below zero", 1, -2e-7, 4},
    {"pseudo: last outside the margin below 1", 1, 0x1.fffff94a03595p-1, 4},
    {"pseudo: first inside the margin below 1", 1, 0x1.fffff94a03596p-1, 2},
    {"pseudo: last inside the margin above 1", 1, 0x1.0000035afe535p+0, 2},
    {"pseudo: first outside the margin above 1", 1, 0x1.0000035afe536p+0, 4},
    {"pseudo: last outside the margin below 2", 1, 0x1.fffffaf78282fp+0, 4},
    {"pseudo: first inside the margin below 2", 1, 0x1.fffffaf782830p+0, 3},
    {"pseudo: last inside the margin above 2", 1, 0x1.000002843ebe8p+1, 3},
    {"pseudo: first outside the margin above 2", 1, 0x1.000002843ebe9p+1, 4},
    {"pseudo: five is one", 1, 5.0, 2},
    {"pseudo: minus two is two", 1, -2.0, 3},
    {"pseudo: infinite", 1, kInf, 4},
    {"pseudo: NaN", 1, kNaN, 4},
};

TEST(Quadrant, OfAngle)
{
    const PL_PNT2D_record unread = {-1, -1};
    for (const AngleRow& row : kAngleRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(PlFunz_quadrant(row.mode, row.angle, &unread), row.want);
        EXPECT_EQ(PlFunz_quadrant(row.mode, row.angle, nullptr), row.want) << "the vector is not read";
    }
}

TEST(Quadrant, NeverFallsAsTheAngleGrows)
{
    std::mt19937_64 random = test::random_source();
    for (const int mode : {2, 3}) {
        const double turn = mode == 2 ? 360.0 : kTwoPi;
        std::uniform_real_distribution<double> any(0.0, turn * (1 - 1e-6));
        std::vector<double> angles(2000);
        for (double& angle : angles)
            angle = any(random);
        std::sort(angles.begin(), angles.end());
        int before = 1;
        for (const double angle : angles) {
            const int now = PlFunz_quadrant(mode, angle, nullptr);
            ASSERT_LE(before, now) << angle;
            before = now;
        }
        EXPECT_EQ(before, 4);
    }
}

struct PseudoRow {
    const char* what;
    double pseudo;
    double want_rad;
    double want_deg;
    int ulps;  // through the platform's arctangent: one ulp of its own, one of the product or sum
};

const PseudoRow kPseudoRows[] = {
    {"negative", -0.5, 0.0, 0.0, 0},
    {"zero", 0.0, 0.0, 0.0, 0},
    {"on PL_EPS: zero", 1e-7, 0.0, 0.0, 0},
    {"just above PL_EPS: twice the tangent", up(1e-7), 0x1.ad7f29abcaf3p-23, 0x1.80816651a01eep-17, 2},
    {"a half", 0.5, 0x1.dac670561bb4fp-1, 0x1.a90a731a61dc5p+5, 2},
    {"an eighth of a turn", 0x1.a827999fcef32p-2, 0x1.921fb54442d18p-1, 0x1.6800000000001p+5, 2},
    {"exactly 1", 1.0, 0x1.921fb54442d18p+0, 90.0, 0},
    {"exactly 2", 2.0, 0x1.921fb54442d18p+1, 180.0, 0},
    {"exactly 3", 3.0, 0x1.2d97c7f3321d2p+2, 270.0, 0},
    {"inside the margin of 2", 2.0000002, 0x1.921fb54442d18p+1, 180.0, 0},
    {"inside the margin below 1", 1.0 - 1.9e-7, 0x1.921fb54442d18p+0, 90.0, 0},
    {"outside the margin below 1", 1.0 - 2.1e-7, 0x1.921fb1be515a3p+0, 0x1.67fffcd889d6dp+6, 2},
    {"inside the margin above 1", 1.0 + 1.9e-7, 0x1.921fb54442d18p+0, 90.0, 0},
    {"outside the margin above 1", 1.0 + 2.1e-7, 0x1.921fbc5025b3cp+0, 0x1.6800064eec476p+6, 2},
    {"inside the margin below 2", 2.0 - 2.9e-7, 0x1.921fb54442d18p+1, 180.0, 0},
    {"outside the margin below 2", 2.0 - 3.1e-7, 0x1.921fb2aa8a7d6p+1, 0x1.67fffdac0435p+7, 2},
    {"outside the margin above 2", 2.0 + 3.1e-7, 0x1.921fba77b36c4p+1, 0x1.680004a7f789fp+7, 2},
    {"inside the margin below 3", 3.0 - 3.9e-7, 0x1.2d97c7f3321d2p+2, 270.0, 0},
    {"outside the margin below 3", 3.0 - 4.1e-7, 0x1.2d97c63af6262p+2, 0x1.0dfffe75e1beap+8, 2},
    {"inside the margin above 3", 3.0 + 3.9e-7, 0x1.2d97c7f3321d2p+2, 270.0, 0},
    {"outside the margin above 3", 3.0 + 4.1e-7, 0x1.2d97cb63a9ff6p+2, 0x1.0e0003143c783p+8, 2},
    {"second quadrant", 1.5, 0x1.3fc176b7a856p+1, 0x1.1e429cc698771p+7, 2},
    {"third quadrant", 2.25, 0x1.d0d6a1369bd34p+1, 0x1.a0251d01f5c06p+7, 2},
    {"fourth quadrant", 3.75, 0x1.7ff6067fcc98ap+2, 0x1.57bd63396788fp+8, 2},
    {"last below the margin of a turn", down(4.0 - tol(4.0)), 0x1.921fb32b63d49p+2, 0x1.67fffe1f5e383p+8, 2},
    {"on the margin below a turn: a turn less, a hair below zero", 4.0 - tol(4.0), -0x1.0c6f7a0bffe76p-20,
     -0x1.e0a1bfe728875p-15, 2},
    {"inside the margin below a turn", 4.0 - 2e-7, -0x1.ad7f29affff9bp-22, -0x1.8081665564531p-16, 2},
    {"less than PL_EPS below a turn: zero", 4.0 - 5e-8, 0.0, 0.0, 0},
    {"a turn", 4.0, 0.0, 0.0, 0},
    {"5 is 1", 5.0, 0x1.921fb54442d18p+0, 90.0, 0},
    {"6 is 2", 6.0, 0x1.921fb54442d18p+1, 180.0, 0},
    {"7 is 3", 7.0, 0x1.2d97c7f3321d2p+2, 270.0, 0},
    {"4.5 is 0.5", 4.5, 0x1.dac670561bb4fp-1, 0x1.a90a731a61dc5p+5, 2},
    {"9.5 is 1.5", 9.5, 0x1.3fc176b7a856p+1, 0x1.1e429cc698771p+7, 2},
    {"less than PL_EPS above 5: a quarter", 5.0 + 5e-8, 0x1.921fb54442d18p+0, 90.0, 0},
    {"less than PL_EPS above 6: a half", 6.0 + 5e-8, 0x1.921fb54442d18p+1, 180.0, 0},
    {"less than PL_EPS above 7: three quarters", 7.0 + 5e-8, 0x1.2d97c7f3321d2p+2, 270.0, 0},
    {"a hair below 5: second quadrant in radians, still the first in degrees", 5.0 - 1e-7,
     0x1.921fb46d833bfp+1, 0x1.67fffe7f7e987p+6, 2},
    {"a hair above 5: a quarter in radians, next to nothing in degrees", 5.0 + 1.5e-7, 0x1.921fba4cc04e8p+0,
     0x1.20610cbc7684ap-16, 2},
    {"outside the margin below 5: both units agree again", 5.0 - 2.1e-7, 0x1.921fb1be515a5p+0,
     0x1.67fffcd889d6fp+6, 2},
    {"outside the margin above 5: both units agree again", 5.0 + 2.1e-7, 0x1.921fbc5025b38p+0,
     0x1.6800064eec472p+6, 2},
    {"a hair below 6: third quadrant in both", 6.0 - 2e-7, 0x1.2d97c71c7286ep+2, 0x1.0dffff3fbf4bap+8, 2},
    {"outside the margin below 6", 6.0 - 3.1e-7, 0x1.921fb2aa8a7d6p+1, 0x1.67fffdac0435p+7, 2},
    {"a hair below 7: fourth quadrant in both", 7.0 - 3e-7, 0x1.921fb402236f2p+2, 0x1.67fffedf9ef07p+8, 2},
    {"outside the margin below 7", 7.0 - 4.1e-7, 0x1.2d97c63af6262p+2, 0x1.0dfffe75e1beap+8, 2},
    {"last outside the margin below 1", 0x1.fffff94a03595p-1, 0x1.921fb396c3a5p+1, 0x1.67fffcfefd2e6p+6, 2},
    {"first inside the margin below 1", 0x1.fffff94a03596p-1, 0x1.921fb54442d18p+0, 90.0, 0},
    {"last inside the margin above 1", 0x1.0000035afe535p+0, 0x1.921fb54442d18p+0, 90.0, 0},
    {"first outside the margin above 1", 0x1.0000035afe536p+0, 0x1.921fbbfa3f784p+0, 0x1.6800060205995p+6, 2},
    {"last outside the margin below 2", 0x1.fffffaf78282fp+0, 0x1.921fb2c0040cap+1, 0x1.67fffdbf3de0ep+7, 2},
    {"first inside the margin below 2", 0x1.fffffaf782830p+0, 0x1.921fb54442d18p+1, 180.0, 0},
    {"last inside the margin above 2", 0x1.000002843ebe8p+1, 0x1.921fb54442d18p+1, 180.0, 0},
    {"first outside the margin above 2", 0x1.000002843ebe9p+1, 0x1.921fba4cc04eap+1, 0x1.6800048184331p+7, 2},
    {"last outside the margin below 3", 0x1.7ffffca501acap+1, 0x1.2d97c645b2eddp+2, 0x1.0dfffe7f7e94ap+8, 2},
    {"first inside the margin below 3", 0x1.7ffffca501acbp+1, 0x1.2d97c7f3321d2p+2, 270.0, 0},
    {"last inside the margin above 3", 0x1.8000035afe535p+1, 0x1.2d97c7f3321d2p+2, 270.0, 0},
    {"first outside the margin above 3", 0x1.8000035afe536p+1, 0x1.2d97cb4e30708p+2, 0x1.0e00030102ccbp+8, 2},
    {"a turn up, last below the margin of 1: both units agree", 0x1.3fffff29406b2p+2, 0x1.921fb1e944786p+0,
     0x1.67fffcfefd2e4p+6, 2},
    {"a turn up, on the margin of 1 or in it: second quadrant in radians alone", 0x1.3fffff29406b3p+2,
     0x1.921fb396c3a51p+1, 0x1.67fffcfefd2e7p+6, 2},
    {"a turn up, last inside the margin above 1: next to nothing in degrees alone", 0x1.400000d6bf94dp+2,
     0x1.921fbbfa3f78p+0, 0x1.8081664711651p-16, 2},
    {"a turn up, first outside the margin above 1: both units agree", 0x1.400000d6bf94ep+2,
     0x1.921fbbfa3f788p+0, 0x1.6800060205999p+6, 2},
    {"a turn up, last below the margin of 2", 0x1.7ffffebde0a0bp+2, 0x1.921fb2c0040c9p+1,
     0x1.67fffdbf3de0cp+7, 2},
    {"a turn up, on the margin of 2 or in it", 0x1.7ffffebde0a0cp+2, 0x1.2d97c6b112bacp+2,
     0x1.0dfffedf9ef07p+8, 2},
    {"a turn up, last below the margin of 3", 0x1.bffffe5280d65p+2, 0x1.2d97c645b2eddp+2,
     0x1.0dfffe7f7e94ap+8, 2},
    {"a turn up, on the margin of 3 or in it", 0x1.bffffe5280d66p+2, 0x1.921fb396c3a24p+2,
     0x1.67fffe7f7e94bp+8, 2},
    {"a turn up, last within PL_EPS of 1: a quarter", 0x1.4000006b5fca6p+2, 0x1.921fb54442d18p+0, 90.0, 0},
    {"a turn up, first beyond it", 0x1.4000006b5fca7p+2, 0x1.921fb89f4125p+0, 0x1.80816663b7456p-17, 2},
    {"a turn up, last within PL_EPS of 2: a half", 0x1.8000006b5fca6p+2, 0x1.921fb54442d18p+1, 180.0, 0},
    {"a turn up, first beyond it", 0x1.8000006b5fca7p+2, 0x1.921fb6f1c1fb4p+1, 0x1.6800018081666p+7, 2},
    {"a turn up, last within PL_EPS of 3: three quarters", 0x1.c000006b5fca6p+2, 0x1.2d97c7f3321d2p+2, 270.0,
     0},
    {"a turn up, first beyond it", 0x1.c000006b5fca7p+2, 0x1.2d97c8c9f1b2p+2, 0x1.0e0000c040b33p+8, 2},
    {"more turns than any survey holds", 4e9 + 1.5, 0x1.3fc176b7a856p+1, 0x1.1e429cc698771p+7, 2},
    {"infinite", kInf, 0.0, 0.0, 0},
    {"infinite the other way", -kInf, 0.0, 0.0, 0},
    {"NaN", kNaN, 0.0, 0.0, 0},
};

TEST(PseudoToAngle, Table)
{
    for (const PseudoRow& row : kPseudoRows) {
        SCOPED_TRACE(row.what);
        EXPECT_ULPS(PlFunz_pseudo_to_angle(1, row.pseudo), row.want_rad, row.ulps);
        for (const int degrees : {0, 2, -1, 77})
            EXPECT_ULPS(PlFunz_pseudo_to_angle(degrees, row.pseudo), row.want_deg, row.ulps);
    }
}

struct ArcAngleRow {
    const char* what;
    PL_PNT2D_record from;
    PL_PNT2D_record to;
    double pseudo;
    double deg;
    double rad;
    int ulps;  // of degrees and radians, for the platform's arctangent; the pseudo-angle is exact
};

const ArcAngleRow kArcAngleRows[] = {
    {"an eighth of a turn: the root costs three ulps of 45",
     {0, 0},
     {1, 1},
     0x1.a827999fcef34p-2,
     0x1.6800000000003p+5,
     0x1.921fb54442d1ap-1,
     2},
    {"+y", {0, 0}, {0, 2}, 1.0, 90.0, 0x1.921fb54442d18p+0, 0},
    {"-x", {0, 0}, {-2, 0}, 2.0, 180.0, 0x1.921fb54442d18p+1, 0},
    {"-y", {0, 0}, {0, -2}, 3.0, 270.0, 0x1.2d97c7f3321d2p+2, 0},
    {"+x", {0, 0}, {2, 0}, 0.0, 0.0, 0.0, 0},
    {"third quadrant", {0, 0}, {-1, -1}, 0x1.3504f333f9de6p+1, 225.0, 0x1.f6a7a2955385ep+1, 2},
    {"fourth quadrant", {0, 0}, {1, -1}, 0x1.b504f333f9de6p+1, 315.0, 0x1.5fdbbe9bba775p+2, 2},
    {"second quadrant", {0, 0}, {-1, 1}, 0x1.6a09e667f3bcdp+0, 0x1.0e00000000001p+7, 0x1.2d97c7f3321d2p+1, 2},
    {"first quadrant, 3-4-5",
     {0, 0},
     {4, 3},
     0x1.5555555555555p-2,
     0x1.26f58ce59e23dp+5,
     0x1.4978fa3269ee1p-1,
     2},
    {"second quadrant, the opposite leg is x",
     {0, 0},
     {-3, 4},
     0x1.5555555555555p+0,
     0x1.fb7ac672cf11ep+6,
     0x1.1b6e192ebbe44p+1,
     2},
    {"third quadrant", {0, 0}, {-4, -3}, 0x1.2aaaaaaaaaaabp+1, 0x1.b1bd63396789p+7, 0x1.e47df3d0dd4d1p+1, 2},
    {"fourth quadrant, the opposite leg is x",
     {0, 0},
     {3, -4},
     0x1.aaaaaaaaaaaabp+1,
     0x1.32deb19cb3c48p+8,
     0x1.56c6e7397f5aep+2,
     2},
    {"fourth quadrant, 5-12-13: a division, not a reciprocal",
     {0, 0},
     {12, -5},
     0x1.d555555555556p+1,
     0x1.51615087e03adp+8,
     0x1.78db734b4bab8p+2,
     2},
    {"from one to the other, not back",
     {10, 20},
     {13, 24},
     0x1.0000000000001p-1,
     0x1.a90a731a61dc6p+5,
     0x1.dac670561bb51p-1,
     2},
    {"back", {13, 24}, {10, 20}, 0x1.4p+1, 0x1.d2429cc698771p+7, 0x1.0468a8ace4df6p+2, 2},
    {"national coordinates",
     {483112.27, 4912877.91},
     {483105.4, 4912951.02},
     0x1.0c00603835cb6p+0,
     0x1.7d790b0376517p+6,
     0x1.aa1bf6ccd9672p+0,
     2},
    {"equal points", {3, 4}, {3, 4}, 0.0, 0.0, 0.0, 0},
    {"on PL_EPS on both axes: equal", {0, 0}, {1e-7, 1e-7}, 0.0, 0.0, 0.0, 0},
    {"on -PL_EPS on both axes: equal", {0, 0}, {-1e-7, -1e-7}, 0.0, 0.0, 0.0, 0},
    {"x just outside", {0, 0}, {up(1e-7), 1e-7}, 0x1.a827999fcef31p-2, 45.0, 0x1.921fb54442d17p-1, 2},
    {"y just outside, x on PL_EPS: straight up",
     {0, 0},
     {1e-7, up(1e-7)},
     1.0,
     90.0,
     0x1.921fb54442d18p+0,
     0},
    {"x on PL_EPS: straight up", {0, 0}, {1e-7, 1}, 1.0, 90.0, 0x1.921fb54442d18p+0, 0},
    {"x just outside PL_EPS: a direction of its own",
     {0, 0},
     {up(1e-7), 1},
     0x1.fffffca501af8p-1,
     90.0,
     0x1.921fb54442d18p+0,
     2},
    {"x on -PL_EPS: straight up", {0, 0}, {-1e-7, 1}, 1.0, 90.0, 0x1.921fb54442d18p+0, 0},
    {"x just below -PL_EPS: second quadrant, whose half tangent is lost",
     {0, 0},
     {down(-1e-7), 1},
     0x1.000000d1cefp+0,
     90.0,
     0x1.921fb54442d18p+0,
     2},
    {"y on PL_EPS in the second quadrant: -x", {0, 0}, {-0.5, 1e-7}, 2.0, 180.0, 0x1.921fb54442d18p+1, 0},
    {"y just outside PL_EPS in the second quadrant",
     {0, 0},
     {-0.5, up(1e-7)},
     0x1.fffffca501b24p+0,
     180.0,
     0x1.921fb54442d18p+1,
     2},
    {"y on PL_EPS, x so small that it shows", {0, 0}, {-2e-7, 1e-7}, 2.0, 180.0, 0x1.921fb54442d18p+1, 0},
    {"y just outside, x so small that it shows",
     {0, 0},
     {-2e-7, up(1e-7)},
     0x1.9e3779b97f4a8p+0,
     0x1.32deb19cb3c48p+7,
     0x1.56c6e7397f5aep+1,
     2},
    {"y on -PL_EPS: still the second quadrant, -x",
     {0, 0},
     {-2e-7, -1e-7},
     2.0,
     180.0,
     0x1.921fb54442d18p+1,
     0},
    {"y just below -PL_EPS: third quadrant",
     {0, 0},
     {-2e-7, down(-1e-7)},
     0x1.1e3779b97f4a8p+1,
     0x1.9d214e634c3b9p+7,
     0x1.cd78834f06482p+1,
     2},
    {"x on -PL_EPS below: fourth quadrant",
     {0, 0},
     {-1e-7, -2e-7},
     0x1.61c8864680b58p+1,
     0x1.fd826ccb3a923p+7,
     0x1.1c905357f506bp+2,
     2},
    {"x just below -PL_EPS: third quadrant",
     {0, 0},
     {down(-1e-7), -2e-7},
     0x1.4f1bbcdcbfa54p+1,
     0x1.e6deb19cb3c48p+7,
     0x1.0feb60edd061dp+2,
     2},
    {"y on -PL_EPS: first quadrant, a pseudo-angle below zero",
     {0, 0},
     {2e-7, -1e-7},
     -0x1.e3779b97f4a8p-3,
     0.0,
     0.0,
     0},
    {"y just below -PL_EPS: fourth quadrant",
     {0, 0},
     {2e-7, down(-1e-7)},
     0x1.cf1bbcdcbfa54p+1,
     0x1.4d6f58ce59e24p+8,
     0x1.74734e3ee1163p+2,
     2},
    {"a hair below +x, unit length: half tangent zero", {0, 0}, {1, -1e-7}, 0.0, 0.0, 0.0, 0},
    {"just too far below +x: nearly a turn",
     {0, 0},
     {1, -2e-7},
     0x1.fffffe5280d92p+1,
     -0x1.808163d0d07acp-16,
     -0x1.ad7f26dffff9bp-22,
     2},
    {"NaN x to the East: no quadrant", {0, 0}, {kNaN, 1}, 0.0, 0.0, 0.0, 0},
    {"NaN x, y below", {0, 0}, {kNaN, -1}, kNaN, 0.0, 0.0, 0},
    {"NaN x, y on -PL_EPS: no direction at all", {0, 0}, {kNaN, -1e-7}, 0.0, 0.0, 0.0, 0},
    {"NaN x, y just below -PL_EPS", {0, 0}, {kNaN, down(-1e-7)}, kNaN, 0.0, 0.0, 0},
    {"NaN x, y zero", {0, 0}, {kNaN, 0}, 0.0, 0.0, 0.0, 0},
    {"NaN y", {0, 0}, {1, kNaN}, 0.0, 0.0, 0.0, 0},
    {"infinite on both axes", {0, 0}, {kInf, kInf}, kNaN, 0.0, 0.0, 0},
    {"infinite x", {0, 0}, {kInf, 1}, 0.0, 0.0, 0.0, 0},
    {"infinite y, third quadrant", {0, 0}, {-1, -kInf}, kNaN, 0.0, 0.0, 0},
    {"infinite -x, second quadrant", {0, 0}, {-kInf, 1}, kNaN, 0.0, 0.0, 0},
};

TEST(ArcAngle, Table)
{
    for (const ArcAngleRow& row : kArcAngleRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_arcangle(0, &row.from, &row.to), row.pseudo);
        EXPECT_ULPS(PlFunz_arcangle(1, &row.from, &row.to), row.deg, row.ulps);
        EXPECT_ULPS(PlFunz_arcangle(2, &row.from, &row.to), row.rad, row.ulps);
        for (const int unknown : {7, 3, -1})
            EXPECT_BITS(PlFunz_arcangle(unknown, &row.from, &row.to), 0.0);
    }
}

TEST(ArcAngle, CentreOfAnArcIsTheArc)
{
    // A pointer to an arc record stands for a pointer to its centre.
    const ARC_2D_record arc = {{10, 20}, 5, PL_DEGREES, 0, 90};
    const PL_PNT2D_record p = {10, 25};
    EXPECT_BITS(PlFunz_arcangle(1, reinterpret_cast<const PL_PNT2D_record*>(&arc), &p), 90.0);
}

TEST(ArcAngle, AgreesWithTheArctangent)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-1000.0, 1000.0);
    for (int i = 0; i < 20000; ++i) {
        const PL_PNT2D_record from = {any(random), any(random)};
        const PL_PNT2D_record to = {any(random), any(random)};
        double want = std::atan2(to.y - from.y, to.x - from.x);
        if (want < 0.0)
            want += kTwoPi;
        // The half tangent loses digits by cancellation: 2e-16 absolute on a tangent down to 1e-4 and below.
        const double rad = PlFunz_arcangle(2, &from, &to);
        ASSERT_NEAR(std::remainder(rad - want, kTwoPi), 0.0, 2e-7)
            << from.x << ' ' << from.y << ' ' << to.x << ' ' << to.y;
        ASSERT_NEAR(PlFunz_arcangle(1, &from, &to), rad * (180.0 / kPi), 1e-12);
        const double pseudo = PlFunz_arcangle(0, &from, &to);
        const double quadrant = std::floor(pseudo);
        ASSERT_NEAR(std::remainder(quadrant * kHalfPi + 2.0 * std::atan(pseudo - quadrant) - rad, kTwoPi),
                    0.0, 1e-6);
    }
}

TEST(ArcAngle, PseudoAngleGrowsWithTheDirection)
{
    double before = -1.0;
    const PL_PNT2D_record from = {3, -7};
    for (int i = 0; i < 3600; ++i) {
        const double dir = (i + 0.5) * kTwoPi / 3600;
        const PL_PNT2D_record to = {3 + 50 * std::cos(dir), -7 + 50 * std::sin(dir)};
        const double pseudo = PlFunz_arcangle(0, &from, &to);
        ASSERT_LT(before, pseudo) << i;
        before = pseudo;
    }
    EXPECT_LT(before, 4.0);
}

}  // namespace
