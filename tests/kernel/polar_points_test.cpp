#include "plcalc/kernel.h"

#include <cmath>

#include "kernel/near.h"

namespace {

using test::kInf;
using test::kNan;

constexpr int kUnitDegrees = 0;
constexpr int kUnitRadians = 1;
constexpr int kUnitPseudo = 2;

struct PolarRow {
    const char* what;
    int unit;
    double x;  // origin
    double y;
    double dist;
    double angle;
    double want_x;
    double want_y;
    int apart;  // doubles that the platform's sine and cosine may be off: one, and two after the product
};

void expect_polar_point(const PolarRow& row)
{
    SCOPED_TRACE(row.what);
    PL_PNT2D_record out = {test::kUntouched, test::kUntouched};
    const PL_PNT2D_record origin = {row.x, row.y};
    PlFunz_pntangledist(row.unit, &origin, row.dist, row.angle, &out);
    EXPECT_NEAR_BITS(out.x, row.want_x, row.apart);
    EXPECT_NEAR_BITS(out.y, row.want_y, row.apart);
}

// Distances of 1e10 make visible which of two neighbouring formulas was taken: at the margins their results
// differ by 6e-17 of the distance.
const PolarRow kAngleRows[] = {
    {"90 degrees: a residue of 1.5e-12 in x", 0, 10, 10, 5, 90, 0x1.4000000000343p+3, 15, 1},
    {"minus a quarter turn", 1, 10, 10, 5, -0x1.921fb54442d18p+0, 10, 5, 1},
    {"a negative distance points the opposite way", 1, 10, 10, -5, 0.0, 5, 10, 0},
    {"zero angle", 1, 10, 10, 5, 0.0, 15, 10, 0},
    {"the residue of 3e-13 is snapped to 0", 0, 0.0, 0.0, 1, 90, 0.0, 1, 1},
    {"the residue of 3e-13 shows on a long distance", 0, 0.0, 0.0, 1e10, 90, 0x1.84e84d8d6544dp-9, 1e10, 2},
    {"180 degrees: the factor falls short by 6e-13", 0, 0.0, 0.0, 1e10, 180, -1e10, 0x1.84de07a4b2a27p-8, 2},
    {"270 degrees: by 9e-13", 0, 0.0, 0.0, 1e10, 270, -0x1.23a3f44159513p-7, -1e10, 2},
    {"360 degrees: in the margin, a turn back", 0, 0.0, 0.0, 1e10, 360, 1e10, -0x1.84d3c1bcp-7, 2},
    {"unit 3 is radians", 3, 0.0, 0.0, 2, 1, 0x1.14a280fb5068cp+0, 0x1.aed548f090ceep+0, 2},
    {"unit -1 is radians", -1, 0.0, 0.0, 2, 1, 0x1.14a280fb5068cp+0, 0x1.aed548f090ceep+0, 2},
    {"unit 1 is radians", 1, 0.0, 0.0, 2, 1, 0x1.14a280fb5068cp+0, 0x1.aed548f090ceep+0, 2},
    {"unit 0 is degrees", 0, 0.0, 0.0, 2, 1, 0x1.ffec097f5af8ap+0, 0x1.1df0b2b89d968p-5, 2},
    {"second quadrant", 0, 0.0, 0.0, 2, 120, -0x1.fffffffffe7e7p-1, 0x1.bb67ae858539fp+0, 2},
    {"third quadrant", 0, 0.0, 0.0, 2, 200, -0x1.e11f64252350ap+0, -0x1.5e3a87489e062p-1, 2},
    {"fourth quadrant", 0, 0.0, 0.0, 2, 300, 0x1.fffffffffc3c6p-1, -0x1.bb67ae8585e0dp+0, 2},
    {"second quadrant, negative distance", 0, 0.0, 0.0, -2, 120, 0x1.fffffffffe7e7p-1, -0x1.bb67ae858539fp+0,
     2},
    {"third quadrant, negative distance", 0, 0.0, 0.0, -2, 200, 0x1.e11f64252350ap+0, 0x1.5e3a87489e062p-1,
     2},
    {"fourth quadrant, negative distance", 0, 0.0, 0.0, -2, 300, -0x1.fffffffffc3c6p-1, 0x1.bb67ae8585e0dp+0,
     2},
    {"distance 0 is the origin", 0, 3, -4, 0.0, 77, 3, -4, 0},
    {"distance -0.0 too", 0, 3, -4, -0.0, 200, 3, -4, 0},
    {"origin -0.0 and no distance: +0.0", 0, -0.0, -0.0, 0.0, 0.0, 0.0, 0.0, 0},
    {"quarter turn, exactly", 1, 0.0, 0.0, 1e10, 0x1.921fb54442d18p+0, 0x1.48bd16544cecfp-21, 1e10, 2},
    {"inside the margin of the quarter turn", 1, 0.0, 0.0, 1e10, 0x1.921fb99468dd1p+0, -0x1.41597b7cab6e8p+11,
     0x1.2a05f1fffff53p+33, 2},
    {"on the margin of the quarter turn", 1, 0.0, 0.0, 1e10, 0x1.921fb99468dd2p+0, -0x1.41597b8153865p+11,
     0x1.2a05f1fffff53p+33, 2},
    {"just outside the margin of the quarter turn", 1, 0.0, 0.0, 1e10, 0x1.921fb99468dd3p+0,
     -0x1.41597b87445b4p+11, 0x1.2a05f1fffff53p+33, 2},
    {"half turn, exactly", 1, 0.0, 0.0, 1e10, 0x1.921fb54442d18p+1, -1e10, 0x1.48bd16544cecfp-21, 2},
    {"inside the margin of the half turn", 1, 0.0, 0.0, 1e10, 0x1.921fb8bda9484p+1, -0x1.2a05f1ffffe3fp+33,
     -0x1.02d97b7f0719bp+12, 2},
    {"on the margin of the half turn", 1, 0.0, 0.0, 1e10, 0x1.921fb8bda9485p+1, -0x1.2a05f1ffffe3fp+33,
     -0x1.02d97b83af318p+12, 2},
    {"just outside the margin of the half turn", 1, 0.0, 0.0, 1e10, 0x1.921fb8bda9486p+1,
     -0x1.2a05f1ffffe3fp+33, -0x1.02d97b88fba7dp+12, 2},
    {"three-quarter turn, exactly", 1, 0.0, 0.0, 1e10, 0x1.2d97c7f3321d2p+2, -0x1.48bd16544cecfp-21, -1e10,
     2},
    {"inside the margin of the three-quarter turn", 1, 0.0, 0.0, 1e10, 0x1.2d97ca588f10fp+2,
     0x1.65063938bc516p+12, -0x1.2a05f1ffffca8p+33, 2},
    {"on the margin of the three-quarter turn", 1, 0.0, 0.0, 1e10, 0x1.2d97ca588f11p+2, 0x1.650639420c80fp+12,
     -0x1.2a05f1ffffca8p+33, 2},
    {"just outside the margin of the three-quarter turn", 1, 0.0, 0.0, 1e10, 0x1.2d97ca588f111p+2,
     0x1.6506394c010f2p+12, -0x1.2a05f1ffffca8p+33, 2},
    {"on -PL_EPS: stays", 1, 0.0, 0.0, 1e10, -1e-7, 0x1.2a05f1fffffe6p+33, -0x1.f3ffffffffffp+9, 2},
    {"just below -PL_EPS: comes round and back, rounded", 1, 0.0, 0.0, 1e10, -0x1.ad7f29abcaf49p-24,
     0x1.2a05f1fffffe6p+33, -0x1.f400001786369p+9, 2},
    {"just below the margin of a full turn", 1, 0.0, 0.0, 1e10, 0x1.921fb2363c251p+2, 0x1.2a05f1ffffa91p+33,
     -0x1.c732f70faacb4p+12, 2},
    {"on the margin of a full turn: a turn back", 1, 0.0, 0.0, 1e10, 0x1.921fb2363c252p+2,
     0x1.2a05f1ffffa91p+33, -0x1.c732f705b63d2p+12, 2},
    {"a full turn", 1, 0.0, 0.0, 1e10, 0x1.921fb54442d18p+2, 1e10, 0.0, 0},
    {"minus a full turn", 1, 0.0, 0.0, 1e10, -0x1.921fb54442d18p+2, 1e10, 0.0, 0},
    {"ten turns and one radian, step by step", 1, 0.0, 0.0, 1e10, 0x1.fea7a2955385ep+5, 0x1.420b96d2ae701p+32,
     0x1.f58e485814371p+32, 2},
    {"a thousand radians back", 1, 0.0, 0.0, 1e10, -1000, 0x1.4f343caae33e7p+32, -0x1.ecdbce0d554cp+32, 2},
    {"ten thousand degrees", 0, 0.0, 0.0, 1e10, 10000, 0x1.9e026fc15fb06p+30, -0x1.257ede6d16fb1p+33, 2},
    {"minus ten thousand degrees", 0, 0.0, 0.0, 1e10, -10000, 0x1.9e026fc15fb09p+30, 0x1.257ede6d16fb1p+33,
     2},
    {"65536 turns: taken off one by one, with their rounding", 1, 0.0, 0.0, 1e10, 0x1.921fb54442d18p+18,
     0x1.2a05f1ffffe24p+33, 0x1.0a6a406d586eap+12, 2},
    {"65536 turns back", 1, 0.0, 0.0, 1e10, -0x1.921fb54442d18p+18, 0x1.2a05f1ffffe24p+33,
     -0x1.0a6a406d586eap+12, 2},
    {"the next double: remainder", 1, 0.0, 0.0, 1e10, 0x1.921fb54442d19p+18, 1e10, 0x1.2a05f2p-1, 2},
    {"65536 turns in degrees are fewer in radians: one by one", 0, 0.0, 0.0, 1e10, 0x1.68p+24,
     0x1.2a05f1ffffec2p+33, 0x1.b39f906bb0e55p+11, 2},
    {"1e300 radians: remainder", 1, 0.0, 0.0, 1, 1e300, 0x1.7fc3f18dde1dbp-1, -0x1.52ec076f4df9bp-1, 2},
    {"-1e300 radians: remainder", 1, 0.0, 0.0, 1, -1e300, 0x1.7fc3f18dde1dbp-1, 0x1.52ec076f4df9bp-1, 2},
    {"1e300 degrees: remainder", 0, 0.0, 0.0, 1, 1e300, -0x1.392cefc872f14p-5, 0x1.ffa02f4e4da17p-1, 2},
    {"1e308 degrees are finite radians too", 0, 0.0, 0.0, 1, 1e308, 0x1.fe649841c1cccp-3,
     -0x1.efd86e105b12dp-1, 2},
    {"largest double", 1, 0.0, 0.0, 1, 0x1.fffffffffffffp+1023, 0x1.ac15e48c1813ap-1, 0x1.18de30098ff11p-1,
     2},
    {"on PL_EPS: snapped", 1, 0.0, 0.0, 1e-7, 0.0, 0.0, 0.0, 0},
    {"just outside PL_EPS: kept", 1, 0.0, 0.0, 0x1.ad7f29abcaf49p-24, 0.0, 0x1.ad7f29abcaf49p-24, 0.0, 0},
    {"on -PL_EPS: snapped", 1, 0.0, 0.0, -1e-7, 0.0, 0.0, 0.0, 0},
    {"just outside -PL_EPS: kept", 1, 0.0, 0.0, -0x1.ad7f29abcaf49p-24, 0.0, -0x1.ad7f29abcaf49p-24, 0.0, 0},
    {"the sum is snapped, not the offset", 1, -1, 1, 1, 0.0, 0.0, 1, 0},
    {"y is snapped too", 1, 0.0, 5e-8, 1, 0.0, 1, 0.0, 0},
    {"y just outside is kept", 1, 0.0, 0x1.ad7f29abcaf49p-24, 1, 0.0, 1, 0x1.ad7f29abcaf49p-24, 0},
    {"infinite degrees", 0, 1, 2, 3, kInf, kNan, kNan, 0},
    {"minus infinite degrees", 0, 1, 2, 3, -kInf, kNan, kNan, 0},
    {"NaN degrees", 0, 1, 2, 3, kNan, kNan, kNan, 0},
    {"infinite radians", 1, 1, 2, 3, kInf, kNan, kNan, 0},
    {"minus infinite radians", 1, 1, 2, 3, -kInf, kNan, kNan, 0},
    {"NaN radians", 1, 1, 2, 3, kNan, kNan, kNan, 0},
    {"NaN distance", 1, 1, 2, kNan, 1, kNan, kNan, 0},
    {"infinite distance along +x: y has no value", 1, 1, 2, kInf, 0.0, kInf, kNan, 0},
    {"NaN in the origin stays on its axis", 1, kNan, 2, 1, 0.0, kNan, 2, 0},
    {"NaN in the origin, y", 1, 2, kNan, 1, 0.0, 3, kNan, 0},
};

TEST(PolarPoint, DegreesAndRadians)
{
    for (const PolarRow& row : kAngleRows)
        expect_polar_point(row);
}

// No sine, no cosine: every bit is settled.
const PolarRow kPseudoRows[] = {
    {"half a tangent: 53.13 degrees", 2, 0.0, 0.0, 1, 0.5, 0x1.3333333333334p-1, 0.8, 0},
    {"one: +y", 2, 0.0, 0.0, 1, 1, 0.0, 1, 0},
    {"two: -x", 2, 0.0, 0.0, 1, 2, -1, 0.0, 0},
    {"three: -x as well, not -y", 2, 0.0, 0.0, 1, 3, -1, 0.0, 0},
    {"three and a half: 323.13 degrees", 2, 0.0, 0.0, 1, 3.5, 0.8, -0x1.3333333333334p-1, 0},
    {"minus one comes to three", 2, 0.0, 0.0, 1, -1, -1, 0.0, 0},
    {"one and a half", 2, 0.0, 0.0, 1, 1.5, -0.8, 0x1.3333333333334p-1, 0},
    {"two and a half", 2, 0.0, 0.0, 1, 2.5, -0x1.3333333333334p-1, -0.8, 0},
    {"zero: +x", 2, 0.0, 0.0, 1, 0.0, 1, 0.0, 0},
    {"-0.0: +x", 2, 0.0, 0.0, 1, -0.0, 1, 0.0, 0},
    {"a hair below one lands on +x, a quarter turn early", 2, 0.0, 0.0, 1, 0.9999999, 0x1.fffffffffffd3p-1,
     0x1.ad7f2b109370cp-24, 0},
    {"a hair below two lands on -y", 2, 0.0, 0.0, 1, 1.9999999, -0x1.ad7f2b189370fp-24, -0x1.fffffffffffd4p-1,
     0},
    {"a hair above one goes on from +y", 2, 0.0, 0.0, 1, 1.0000001, 0x1.ad7f29affffb5p-23,
     0x1.fffffffffff4cp-1, 0},
    {"a hair above two goes on from -x", 2, 0.0, 0.0, 1, 2.0000001, -0x1.fffffffffff4cp-1,
     -0x1.ad7f299ffffb5p-23, 0},
    {"a hair below three is where it should be: nearly -y", 2, 0.0, 0.0, 1, 2.9999999, -0x1.ad7f2b089370cp-24,
     -0x1.fffffffffffd4p-1, 0},
    {"a hair above three goes on from -x, a quarter turn early", 2, 0.0, 0.0, 1, 3.0000001,
     -0x1.fffffffffff4cp-1, -0x1.ad7f299ffffb5p-23, 0},
    {"just outside the margin below 1: no jump", 2, 0.0, 0.0, 1, 0.9999998, 0x1.ad7f2c7d26e1bp-23,
     0x1.fffffffffff4dp-1, 0},
    {"the first double within the margin below 1: jumps", 2, 0.0, 0.0, 1, 0x1.fffff94a03596p-1,
     0x1.fffffffffff4cp-1, 0x1.ad7f2c7926e19p-23, 0},
    {"just inside the margin above 1", 2, 0.0, 0.0, 1, 0x1.0000035afe534p+0, 0x1.ad7f299fffed2p-22,
     0x1.ffffffffffd3p-1, 0},
    {"on the margin above 1", 2, 0.0, 0.0, 1, 1.0000002, 0x1.ad7f29a7ffed2p-22, 0x1.ffffffffffd3p-1, 0},
    {"just outside the margin above 1", 2, 0.0, 0.0, 1, 0x1.0000035afe536p+0, -0x1.ad7f29afffed2p-22,
     0x1.ffffffffffd3p-1, 0},
    {"just outside the margin below 2: no jump", 2, 0.0, 0.0, 1, 0x1.fffffaf78282fp+0, -0x1.ffffffffffe69p-1,
     0x1.421f626e4bbdfp-22, 0},
    {"the first double within the margin below 2: jumps", 2, 0.0, 0.0, 1, 1.9999997, -0x1.421f626a4bbdcp-22,
     -0x1.ffffffffffe69p-1, 0},
    {"just inside the margin above 2", 2, 0.0, 0.0, 1, 0x1.000002843ebe7p+1, -0x1.ffffffffff9abp-1,
     -0x1.421f5f37ffe02p-21, 0},
    {"on the margin above 2", 2, 0.0, 0.0, 1, 2.0000003, -0x1.ffffffffff9abp-1, -0x1.421f5f3fffe02p-21, 0},
    {"just outside the margin above 2", 2, 0.0, 0.0, 1, 0x1.000002843ebe9p+1, -0x1.ffffffffff9abp-1,
     -0x1.421f5f47ffe02p-21, 0},
    {"just inside the margin above 3: from -x", 2, 0.0, 0.0, 1, 0x1.8000035afe534p+1, -0x1.ffffffffff4bdp-1,
     -0x1.ad7f299fffb46p-21, 0},
    {"on the margin above 3: from -x", 2, 0.0, 0.0, 1, 3.0000004, -0x1.ffffffffff4bdp-1,
     -0x1.ad7f29a7ffb46p-21, 0},
    {"just outside the margin above 3: from -y", 2, 0.0, 0.0, 1, 0x1.8000035afe536p+1, 0x1.ad7f29afffb46p-21,
     -0x1.ffffffffff4bdp-1, 0},
    {"just outside where a margin below 3 would be", 2, 0.0, 0.0, 1, 0x1.7ffffca501acap+1,
     -0x1.ad7f2f514dc3ap-22, -0x1.ffffffffffd31p-1, 0},
    {"where a margin below 3 would begin", 2, 0.0, 0.0, 1, 2.9999996, -0x1.ad7f2f494dc33p-22,
     -0x1.ffffffffffd31p-1, 0},
    {"on -PL_EPS: stays, below +x", 2, 0.0, 0.0, 1, -1e-7, 0x1.fffffffffff4cp-1, -0x1.ad7f29abcaefdp-23, 0},
    {"just below -PL_EPS: comes round and back", 2, 0.0, 0.0, 1, -0x1.ad7f29abcaf49p-24, 0x1.fffffffffff4cp-1,
     -0x1.ad7f299ffffb5p-23, 0},
    {"just below the margin of a turn: nearly +x from -y", 2, 0.0, 0.0, 1, 0x1.fffffbce4217cp+1,
     0x1.ffffffffffb9ap-1, -0x1.0c6f7e75ccc0ep-21, 0},
    {"on the margin of a turn: below +x", 2, 0.0, 0.0, 1, 3.9999995, 0x1.fffffffffee68p-1,
     -0x1.0c6f7a0bffb63p-20, 0},
    {"a turn", 2, 0.0, 0.0, 1, 4, 1, 0.0, 0},
    {"minus a turn", 2, 0.0, 0.0, 1, -4, 1, 0.0, 0},
    {"five: one", 2, 0.0, 0.0, 1, 5, 0.0, 1, 0},
    {"a hundred turns and a half", 2, 0.0, 0.0, 1, 400.5, 0x1.3333333333334p-1, 0.8, 0},
    {"a hundred turns back and a half", 2, 0.0, 0.0, 1, -400.5, 0.8, -0x1.3333333333334p-1, 0},
    {"65536 turns and nothing", 2, 0.0, 0.0, 1, 262144, 1, 0.0, 0},
    {"65536 turns back", 2, 0.0, 0.0, 1, -262144, 1, 0.0, 0},
    {"65536 turns and one and a half: remainder", 2, 0.0, 0.0, 1, 262145.5, -0.8, 0x1.3333333333334p-1, 0},
    {"backwards: remainder 2.5", 2, 0.0, 0.0, 1, -262145.5, -0x1.3333333333334p-1, -0.8, 0},
    {"1e300: remainder", 2, 0.0, 0.0, 1, 1e300, 1, 0.0, 0},
    {"-1e300: remainder", 2, 0.0, 0.0, 1, -1e300, 1, 0.0, 0},
    {"largest double", 2, 0.0, 0.0, 1, 0x1.fffffffffffffp+1023, 1, 0.0, 0},
    {"the sign of the distance is dropped", 2, 0.0, 0.0, -5, 0.5, 3, 4, 0},
    {"and kept out of +y too", 2, 0.0, 0.0, -5, 1, 0.0, 5, 0},
    {"and out of the third branch", 2, 0.0, 0.0, -5, 2.5, -3, -4, 0},
    {"and out of the fourth", 2, 0.0, 0.0, -5, 3.5, 4, -3, 0},
    {"from an origin", 2, 10, 20, 5, 0.5, 13, 24, 0},
    {"from an origin, second quadrant", 2, 10, 20, 5, 1.5, 6, 23, 0},
    {"from an origin, third quadrant", 2, 10, 20, 5, 2.5, 7, 16, 0},
    {"from an origin, fourth quadrant", 2, 10, 20, 5, 3.5, 14, 17, 0},
    {"from an origin, on one", 2, 10, 20, 5, 1, 10, 25, 0},
    {"from an origin, on two", 2, 10, 20, 5, 2, 5, 20, 0},
    {"last bits of the rational sine and cosine", 2, 0.0, 0.0, 0.7, 0.3, 0x1.2b36f53242b37p-1,
     0x1.8a919d5b98a91p-2, 0},
    {"last bits, second quadrant", 2, 0.1, 0.2, 93.44, 1.7, -0x1.5ec8ad2fc385bp+6, 0x1.017669b2e4077p+5, 0},
    {"a coordinate within PL_EPS is 0", 2, -3, -4, 5, 0.5, 0.0, 0.0, 0},
    {"on PL_EPS in x: snapped", 2, 0.0, 5, 1e-7, 0.0, 0.0, 5, 0},
    {"just outside PL_EPS in x", 2, 0.0, 5, 0x1.ad7f29abcaf49p-24, 0.0, 0x1.ad7f29abcaf49p-24, 5, 0},
    {"on PL_EPS in y: snapped", 2, 5, 0.0, 1e-7, 1, 5, 0.0, 0},
    {"just outside PL_EPS in y", 2, 5, 0.0, 0x1.ad7f29abcaf49p-24, 1, 5, 0x1.ad7f29abcaf49p-24, 0},
    {"distance -0.0", 2, 0.0, 0.0, -0.0, 2.5, 0.0, 0.0, 0},
    {"infinite angle", 2, 1, 2, 3, kInf, kNan, kNan, 0},
    {"minus infinite angle", 2, 1, 2, 3, -kInf, kNan, kNan, 0},
    {"NaN angle", 2, 1, 2, 3, kNan, kNan, kNan, 0},
    {"NaN distance", 2, 1, 2, kNan, 0.5, kNan, kNan, 0},
    {"infinite distance", 2, 1, 2, -kInf, 0.5, kInf, kInf, 0},
    {"infinite distance along +x: y has no value", 2, 1, 2, kInf, 0.0, kInf, kNan, 0},
    {"NaN in the origin stays on its axis", 2, kNan, 2, 5, 0.5, kNan, 6, 0},
};

TEST(PolarPoint, PseudoAngles)
{
    for (const PolarRow& row : kPseudoRows)
        expect_polar_point(row);
}

TEST(PolarPoint, OffsetsGoThroughTheResultInDegreesAndRadians)
{
    PL_PNT2D_record p = {10, 20};
    PlFunz_pntangledist(kUnitRadians, &p, 5, 0, &p);
    EXPECT_POINT(p, ({10, 0}));  // twice the offset, the origin is gone

    p = {10, 20};
    PlFunz_pntangledist(kUnitDegrees, &p, 5, 0, &p);
    EXPECT_POINT(p, ({10, 0}));

    p = {10, 20};
    PlFunz_pntangledist(kUnitPseudo, &p, 5, 0.5, &p);
    EXPECT_POINT(p, ({13, 24}));
}

TEST(PolarPoint, TakesSineAndCosineOfTheRestOfTheQuarterTurn)
{
    // With the platform's sine and cosine every bit is settled, in all four quadrants.
    const double pi = 0x1.921fb54442d18p+1;
    const double half_pi = 0x1.921fb54442d18p+0;
    const double three_half_pi = 0x1.2d97c7f3321d2p+2;
    const PL_PNT2D_record origin = {0.5, -0.25};
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> acute(0.001, 1.57);
    std::uniform_real_distribution<double> distance(-1000, 1000);
    for (int i = 0; i < 5000; ++i) {
        const double dist = distance(random);
        const double first = acute(random);
        const double second = first + half_pi;
        const double third = first + pi;
        const double fourth = first + three_half_pi;
        const double rest2 = second - half_pi;
        const double rest3 = third - pi;
        const double rest4 = fourth - three_half_pi;

        PL_PNT2D_record p;
        PlFunz_pntangledist(kUnitRadians, &origin, dist, first, &p);
        EXPECT_POINT(p, ({origin.x + dist * std::cos(first), origin.y + dist * std::sin(first)}));
        PlFunz_pntangledist(kUnitRadians, &origin, dist, second, &p);
        EXPECT_POINT(p, ({origin.x - dist * std::sin(rest2), origin.y + dist * std::cos(rest2)}));
        PlFunz_pntangledist(kUnitRadians, &origin, dist, third, &p);
        EXPECT_POINT(p, ({origin.x - dist * std::cos(rest3), origin.y - dist * std::sin(rest3)}));
        PlFunz_pntangledist(kUnitRadians, &origin, dist, fourth, &p);
        EXPECT_POINT(p, ({origin.x + dist * std::sin(rest4), origin.y - dist * std::cos(rest4)}));

        // Degrees are radians times the short factor, nothing else.
        const double deg = first * 100;
        PL_PNT2D_record in_degrees;
        PlFunz_pntangledist(kUnitDegrees, &origin, dist, deg, &in_degrees);
        const double factor = 0x1.1df46a2529983p-6;
        PlFunz_pntangledist(kUnitRadians, &origin, dist, deg * factor, &p);
        EXPECT_POINT(in_degrees, (p));
    }
}

TEST(PolarPoint, ArctanBringsTheDirectionBack)
{
    const PL_PNT2D_record origin = {0, 0};
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> distance(1, 1000);
    std::uniform_real_distribution<double> direction(0.01, 359.99);
    for (int i = 0; i < 5000; ++i) {
        const double dist = distance(random);
        const double deg = direction(random);
        PL_PNT2D_record p;
        PlFunz_pntangledist(kUnitDegrees, &origin, dist, deg, &p);
        // The short factor takes up to 1.2e-12 rad off, 7e-11 degrees. Within PL_EPS of an axis both snap.
        EXPECT_NEAR(PlFunz_arctan_deg(p.x, p.y), deg, 1e-7 / dist * 60 + 1e-10);
        EXPECT_NEAR(PlFunz_distance(&origin, &p), dist, 1e-12 * dist);

        const double rad = deg * 0.017453292519943295;
        PlFunz_pntangledist(kUnitRadians, &origin, dist, rad, &p);
        EXPECT_NEAR(PlFunz_arctan_rad(p.x, p.y), rad, 1e-7 / dist + 1e-14);
    }
}

TEST(PolarPoint, PseudoAngleIsAQuadrantAndATangent)
{
    const PL_PNT2D_record origin = {3, -7};
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> tangent(1e-6, 1 - 1e-6);
    std::uniform_int_distribution<int> quadrant(0, 3);
    for (int i = 0; i < 5000; ++i) {
        const double t = tangent(random);
        const int q = quadrant(random);
        PL_PNT2D_record rational;
        PL_PNT2D_record trigonometric;
        PlFunz_pntangledist(kUnitPseudo, &origin, 10, q + t, &rational);
        PlFunz_pntangledist(kUnitRadians, &origin, 10, q * 0x1.921fb54442d18p+0 + 2 * std::atan(t),
                            &trigonometric);
        EXPECT_NEAR(rational.x, trigonometric.x, 2e-14);
        EXPECT_NEAR(rational.y, trigonometric.y, 2e-14);
    }
}

}  // namespace
