#include "plcalc/kernel.h"

#include <cmath>

#include "kernel/near.h"

namespace {

using test::kInf;
using test::kNan;

struct ArctanRow {
    const char* what;
    double x;
    double y;
    double rad;
    double deg;
    int apart;  // doubles that the platform's arctangent may be off; 0 where it is not asked
};

const ArctanRow kArctanRows[] = {
    {"null vector", 0.0, 0.0, 0.0, 0.0, 0},
    {"+y", 0.0, 5, 0x1.921fb54442d18p+0, 90, 0},
    {"-y", 0.0, -5, 0x1.2d97c7f3321d2p+2, 270, 0},
    {"-x", -5, 0.0, 0x1.921fb54442d18p+1, 180, 0},
    {"+x", 5, 0.0, 0.0, 0.0, 0},
    {"x inside PL_EPS counts as the axis", 1e-8, 2, 0x1.921fb54442d18p+0, 90, 0},
    {"fourth quadrant", 1, -1, 0x1.5fdbbe9bba775p+2, 315, 1},
    {"second quadrant", -1, 1, 0x1.2d97c7f3321d2p+1, 135, 1},
    {"third quadrant", -1, -1, 0x1.f6a7a2955385ep+1, 225, 1},
    {"first quadrant", 1, 1, 0x1.921fb54442d18p-1, 0x1.6800000000001p+5, 1},
    {"null vector within PL_EPS on both", 1e-7, -1e-7, 0.0, 0.0, 0},
    {"null vector of -0.0", -0.0, -0.0, 0.0, 0.0, 0},
    {"both the next double outside", 0x1.ad7f29abcaf49p-24, 0x1.ad7f29abcaf49p-24, 0x1.921fb54442d18p-1,
     0x1.6800000000001p+5, 1},
    {"outside in the second quadrant", -0x1.ad7f29abcaf49p-24, 0x1.ad7f29abcaf49p-24, 0x1.2d97c7f3321d2p+1,
     135, 1},
    {"outside in the third quadrant", -0x1.ad7f29abcaf49p-24, -0x1.ad7f29abcaf49p-24, 0x1.f6a7a2955385ep+1,
     225, 1},
    {"outside in the fourth quadrant", 0x1.ad7f29abcaf49p-24, -0x1.ad7f29abcaf49p-24, 0x1.5fdbbe9bba775p+2,
     315, 1},
    {"x on PL_EPS, y just outside: +y", 1e-7, 0x1.ad7f29abcaf49p-24, 0x1.921fb54442d18p+0, 90, 0},
    {"x on -PL_EPS, y just outside: +y", -1e-7, 0x1.ad7f29abcaf49p-24, 0x1.921fb54442d18p+0, 90, 0},
    {"x on PL_EPS, y just outside below: -y", 1e-7, -0x1.ad7f29abcaf49p-24, 0x1.2d97c7f3321d2p+2, 270, 0},
    {"x on -PL_EPS, y just outside below: -y", -1e-7, -0x1.ad7f29abcaf49p-24, 0x1.2d97c7f3321d2p+2, 270, 0},
    {"y on PL_EPS, x just outside: +x", 0x1.ad7f29abcaf49p-24, 1e-7, 0.0, 0.0, 0},
    {"y on -PL_EPS, x just outside: +x", 0x1.ad7f29abcaf49p-24, -1e-7, 0.0, 0.0, 0},
    {"y on PL_EPS, x just outside to the left: -x", -0x1.ad7f29abcaf49p-24, 1e-7, 0x1.921fb54442d18p+1, 180,
     0},
    {"y on -PL_EPS: -x", -0x1.ad7f29abcaf49p-24, -1e-7, 0x1.921fb54442d18p+1, 180, 0},
    {"x on PL_EPS beside a long y: the axis", 1e-7, 1000, 0x1.921fb54442d18p+0, 90, 0},
    {"x just outside beside a long y: an angle", 0x1.ad7f29abcaf49p-24, 1000, 0x1.921fb543d4dep+0,
     0x1.67ffffff9d912p+6, 1},
    {"y on -PL_EPS beside a long x: 0", 1000, -1e-7, 0.0, 0.0, 0},
    {"y just outside beside a long x: almost a turn", 1000, -0x1.ad7f29abcaf49p-24, 0x1.921fb5442754ap+2,
     0x1.67ffffffe7644p+8, 1},
    {"so flat that the result rounds up to the full turn", 1e9, -2e-7, 0x1.921fb54442d18p+2, 360, 1},
    {"so flat that the result rounds to the half turn, from above", -1e9, 2e-7, 0x1.921fb54442d18p+1, 180, 1},
    {"swapped arguments: 36.87 degrees", 4, 3, 0x1.4978fa3269ee1p-1, 0x1.26f58ce59e23dp+5, 1},
    {"swapped arguments: 53.13 degrees", 3, 4, 0x1.dac670561bb4fp-1, 0x1.a90a731a61dc5p+5, 1},
    {"3-4-5 in the second quadrant", -4, 3, 0x1.3fc176b7a856p+1, 0x1.1e429cc698771p+7, 1},
    {"3-4-5 in the third", -4, -3, 0x1.e47df3d0dd4dp+1, 0x1.b1bd63396788fp+7, 1},
    {"3-4-5 in the fourth", 4, -3, 0x1.68f095fdf593cp+2, 0x1.43214e634c3b8p+8, 1},
    {"degree factor is one double above the nearest: last bit", 37, 9, 0x1.e8ac01258c2a3p-3,
     0x1.b57b59184b49p+3, 1},
    {"quotient overflows: a quarter turn all the same", 2e-7, 1e308, 0x1.921fb54442d18p+0,
     0x1.6800000000001p+6, 1},
    {"quotient underflows: no angle", 1e308, 2e-7, 2e-315, 0x0.0000566721813p-1022, 1},
    {"x infinite", kInf, 1, 0.0, 0.0, 1},
    {"x infinite, y negative: the full turn itself", kInf, -1, 0x1.921fb54442d18p+2, 360, 1},
    {"x minus infinite", -kInf, 1, 0x1.921fb54442d18p+1, 180, 1},
    {"y infinite", 1, kInf, 0x1.921fb54442d18p+0, 0x1.6800000000001p+6, 1},
    {"y minus infinite", -1, -kInf, 0x1.2d97c7f3321d2p+2, 270, 1},
    {"both infinite: no quotient", kInf, -kInf, kNan, kNan, 0},
    {"y infinite on the axis", 0.0, kInf, 0x1.921fb54442d18p+0, 90, 0},
    {"y minus infinite on the axis", 0.0, -kInf, 0x1.2d97c7f3321d2p+2, 270, 0},
    {"x infinite on the axis", -kInf, 0.0, 0x1.921fb54442d18p+1, 180, 0},
    {"NaN y on the axis is not above PL_EPS", 0.0, kNan, 0x1.2d97c7f3321d2p+2, 270, 0},
    {"NaN x on the axis is not above 0", kNan, 0.0, 0x1.921fb54442d18p+1, 180, 0},
    {"NaN x", kNan, 1, kNan, kNan, 0},
    {"NaN y", -1, kNan, kNan, kNan, 0},
};

TEST(Arctan, Table)
{
    for (const ArctanRow& row : kArctanRows) {
        SCOPED_TRACE(row.what);
        EXPECT_NEAR_BITS(PlFunz_arctan_rad(row.x, row.y), row.rad, row.apart);
        EXPECT_NEAR_BITS(PlFunz_arctan_deg(row.x, row.y), row.deg, row.apart);
    }
}

TEST(Arctan, IsTheAcuteAngleOfTheQuotientInItsQuadrant)
{
    // With the platform's arctangent every bit is settled: quotient, arctangent, factor, one sum.
    const double pi = 0x1.921fb54442d18p+1;
    const double two_pi = 0x1.921fb54442d18p+2;
    const double deg_per_rad = 0x1.ca5dc1a63c1f9p+5;
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> component(0.001, 1000);
    for (int i = 0; i < 10000; ++i) {
        const double x = component(random);
        const double y = component(random);
        const double quotient = y / x;
        const double acute = std::atan(quotient);
        EXPECT_BITS(PlFunz_arctan_rad(x, y), acute);
        EXPECT_BITS(PlFunz_arctan_rad(-x, y), pi - acute);
        EXPECT_BITS(PlFunz_arctan_rad(-x, -y), pi + acute);
        EXPECT_BITS(PlFunz_arctan_rad(x, -y), two_pi - acute);

        const double acute_deg = acute * deg_per_rad;
        EXPECT_BITS(PlFunz_arctan_deg(x, y), acute_deg);
        EXPECT_BITS(PlFunz_arctan_deg(-x, y), 180.0 - acute_deg);
        EXPECT_BITS(PlFunz_arctan_deg(-x, -y), 180.0 + acute_deg);
        EXPECT_BITS(PlFunz_arctan_deg(x, -y), 360.0 - acute_deg);
    }
}

TEST(Arctan, AgreesWithAtan2)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> component(-1000, 1000);
    for (int i = 0; i < 10000; ++i) {
        const double x = component(random);
        const double y = component(random);
        const long double signed_rad = std::atan2(static_cast<long double>(y), static_cast<long double>(x));
        const long double rad = signed_rad < 0 ? signed_rad + 2 * std::acos(-1.0L) : signed_rad;

        // Two roundings of at most half of 8.9e-16, the one of the quotient, and the same in degrees.
        EXPECT_NEAR(PlFunz_arctan_rad(x, y), static_cast<double>(rad), 2e-15) << x << ' ' << y;
        EXPECT_NEAR(PlFunz_arctan_deg(x, y), static_cast<double>(rad * 180 / std::acos(-1.0L)), 1.5e-13)
            << x << ' ' << y;
    }
}

struct PseudoRow {
    const char* what;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    double angle;
    double dist;
};

const PseudoRow kPseudoRows[] = {
    {"northeast: half of 90", {0.0, 0.0}, {1, 1}, 45, 2},
    {"-x", {0.0, 0.0}, {-1, 0.0}, 180, 1},
    {"-y", {0.0, 0.0}, {0.0, -1}, 270, 1},
    {"-PL_EPS is no downward direction: slightly negative",
     {0.0, 0.0},
     {1, -1e-7},
     -0x1.2dfd6752230bep-17,
     0x1.000000000002dp+0},
    {"the next double down: almost a turn",
     {0.0, 0.0},
     {1, -0x1.ad7f29abcaf49p-24},
     0x1.67ffff69014c5p+8,
     0x1.000000000002dp+0},
    {"+x", {0.0, 0.0}, {1, 0.0}, 0.0, 1},
    {"+y", {0.0, 0.0}, {0.0, 1}, 90, 1},
    {"northwest", {0.0, 0.0}, {-1, 1}, 135, 2},
    {"southwest", {0.0, 0.0}, {-1, -1}, 225, 2},
    {"southeast", {0.0, 0.0}, {1, -1}, 315, 2},
    {"from p1 to p2, not back", {1, 1}, {0.0, 0.0}, 225, 2},
    {"differences, not coordinates", {10, 20}, {13, 24}, 0x1.9b6db6db6db6dp+5, 25},
    {"swapped", {13, 24}, {10, 20}, 0x1.cedb6db6db6dbp+7, 25},
    {"the same point", {7, -3}, {7, -3}, 0.0, 0.0},
    {"both within PL_EPS: direction 0, the distance is kept",
     {0.0, 0.0},
     {1e-7, -1e-7},
     0.0,
     0x1.6849b86a12b9ap-46},
    {"x just outside", {0.0, 0.0}, {0x1.ad7f29abcaf49p-24, -1e-7}, -45, 2e-14},
    {"y just outside", {0.0, 0.0}, {-1e-7, 0x1.ad7f29abcaf49p-24}, 0x1.6800000000001p+5, 2e-14},
    {"y just outside, downwards", {0.0, 0.0}, {1e-7, -0x1.ad7f29abcaf49p-24}, 315, 2e-14},
    {"x just outside, to the left: a half turn is drawn from",
     {0.0, 0.0},
     {-0x1.ad7f29abcaf49p-24, 1e-7},
     135,
     2e-14},
    {"dx on -PL_EPS is not leftward: below 90",
     {0.0, 0.0},
     {-1e-7, 1},
     0x1.67fffda405315p+6,
     0x1.000000000002dp+0},
    {"dx the next double left: above 90",
     {0.0, 0.0},
     {-0x1.ad7f29abcaf49p-24, 1},
     0x1.6800025bfacebp+6,
     0x1.000000000002dp+0},
    {"dx on -PL_EPS, downwards: above 270",
     {0.0, 0.0},
     {-1e-7, -1},
     0x1.0e000096feb3bp+8,
     0x1.000000000002dp+0},
    {"dx the next double left, downwards: below 270",
     {0.0, 0.0},
     {-0x1.ad7f29abcaf49p-24, -1},
     0x1.0dffff69014c5p+8,
     0x1.000000000002dp+0},
    {"leftward wins over downward",
     {0.0, 0.0},
     {-1, -0x1.ad7f29abcaf49p-24},
     0x1.6800012dfd675p+7,
     0x1.000000000002dp+0},
    {"-PL_EPS downward and leftward: just above 180",
     {0.0, 0.0},
     {-1, -1e-7},
     0x1.6800012dfd675p+7,
     0x1.000000000002dp+0},
    {"-0.0 upwards comes out as -0.0", {0.0, 0.0}, {1, -0.0}, -0.0, 1},
    {"not the true angle: 26.57 degrees is 30", {0.0, 0.0}, {2, 1}, 30, 5},
    {"so flat that it rounds up to a full turn", {0.0, 0.0}, {1e9, -2e-7}, 360, 1e18},
    {"last bits", {0.1, 0.2}, {93.44, 75.51}, 0x1.4183609ddd8bp+5, 0x1.c17f9d14e3bcep+13},
    {"infinite x", {0.0, 0.0}, {kInf, 1}, 0.0, kInf},
    {"NaN x", {0.0, 0.0}, {kNan, 1}, kNan, kNan},
    {"NaN y", {0.0, 0.0}, {1, kNan}, kNan, kNan},
};

TEST(PseudoAngleDistance, Table)
{
    for (const PseudoRow& row : kPseudoRows) {
        SCOPED_TRACE(row.what);
        double angle = test::kUntouched;
        double dist = test::kUntouched;
        PlFunz_pseudo_angdist(&row.p1, &row.p2, &angle, &dist);
        EXPECT_BITS(angle, row.angle);
        EXPECT_BITS(dist, row.dist);
    }
}

TEST(PseudoAngleDistance, ReadsBothPointsBeforeItWrites)
{
    PL_PNT2D_record p1 = {1, 2};
    PL_PNT2D_record p2 = {4, 5};
    PlFunz_pseudo_angdist(&p1, &p2, &p1.x, &p2.y);
    EXPECT_POINT(p1, ({45, 2}));
    EXPECT_POINT(p2, ({4, 18}));
}

TEST(PseudoAngleDistance, OrdersDirectionsAsTheTrueAngleDoes)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<int> step(-1000, 1000);
    const PL_PNT2D_record origin = {0, 0};
    double before_pseudo = 0.0;
    double before_deg = 0.0;
    for (int i = 0; i < 20000; ++i) {
        const PL_PNT2D_record p = {static_cast<double>(step(random)), static_cast<double>(step(random))};
        double pseudo = 0.0;
        double dist = 0.0;
        PlFunz_pseudo_angdist(&origin, &p, &pseudo, &dist);
        EXPECT_BITS(dist, p.x * p.x + p.y * p.y);
        if (p.x == 0.0 && p.y == 0.0)
            continue;

        const double rad = std::atan2(p.y, p.x);
        const double deg = (rad < 0.0 ? rad + 0x1.921fb54442d18p+2 : rad) * 0x1.ca5dc1a63c1f9p+5;
        EXPECT_NEAR(pseudo, deg, 4.1);             // the diamond is never further from the circle
        if (std::fabs(deg - before_deg) > 1e-5) {  // different directions of such steps lie 2e-5 apart
            EXPECT_EQ(pseudo < before_pseudo, deg < before_deg) << p.x << ' ' << p.y;
        }
        before_pseudo = pseudo;
        before_deg = deg;
    }
}

TEST(PseudoAngleDistance, SwappedPointsLieHalfATurnApart)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<int> coordinate(-1000, 1000);
    for (int i = 0; i < 5000; ++i) {
        const PL_PNT2D_record p = {static_cast<double>(coordinate(random)),
                                   static_cast<double>(coordinate(random))};
        const PL_PNT2D_record q = {p.x + 1.0 + std::fabs(p.y), static_cast<double>(coordinate(random))};
        double there = 0.0;
        double back = 0.0;
        double dist_there = 0.0;
        double dist_back = 0.0;
        PlFunz_pseudo_angdist(&p, &q, &there, &dist_there);
        PlFunz_pseudo_angdist(&q, &p, &back, &dist_back);
        EXPECT_NEAR(std::fabs(there - back), 180.0, 1e-12);
        EXPECT_BITS(dist_there, dist_back);
    }
}

}  // namespace
