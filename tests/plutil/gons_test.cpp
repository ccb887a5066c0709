#include <cmath>

#include "kernel/near.h"
#include "plutil/plutil.h"

namespace {

using test::kInf;
using test::kNan;

struct BearingRow {
    const char* what;
    double a;
    double b;
    double want;
    int apart;  // doubles that the platform's arctangent may be off, and its product: 2; 0 where not asked
};

const BearingRow kBearingRows[] = {
    {"north", 0.0, 1, 0.0, 0},
    {"east", 1, 0.0, 100, 0},
    {"south", 0.0, -1, 200, 0},
    {"west", -1, 0.0, 300, 0},
    {"north, of any length", 0.0, 1e-300, 0.0, 0},
    {"east, of any length", 1e300, 0.0, 100, 0},
    {"north with -0.0", -0.0, 1, 0.0, 0},
    {"south with -0.0: the half turn", -0.0, -1, 200, 0},
    {"east with -0.0", 1, -0.0, 100, 0},
    {"west with -0.0", -1, -0.0, 300, 0},
    {"smallest east", 5e-324, 0.0, 100, 0},
    {"smallest west", -5e-324, 0.0, 300, 0},
    {"smallest north", 0.0, 5e-324, 0.0, 0},
    {"smallest south", 0.0, -5e-324, 200, 0},
    {"smallest south, a -0.0", -0.0, -5e-324, 200, 0},
    {"zero vector", 0.0, 0.0, 0.0, 0},
    {"zero vector of -0.0", -0.0, -0.0, 0.0, 0},
    {"zero vector, a -0.0", -0.0, 0.0, 0.0, 0},
    {"zero vector, b -0.0: not south", 0.0, -0.0, 0.0, 0},
    {"infinitely far north, west of it: no -0.0", -1, test::kInf, 0.0, 0},
    {"so little west of north that the angle vanishes", -1e-300, 1e300, 0.0, 0},
    {"northeast", 1, 1, 50, 2},
    {"southeast", 1, -1, 150, 2},
    {"southwest", -1, -1, 250, 2},
    {"northwest", -1, 1, 350, 2},
    {"first argument over second: from north, 40.97 gons", 3, 4, 0x1.47bb801b93443p+5, 2},
    {"swapped: 59.03 gons", 4, 3, 0x1.d8447fe46cbbdp+5, 2},
    {"a tenth north is not nothing", 1, 0.1, 0x1.769e9d3115acfp+6, 2},
    {"a tenth east is not nothing", 0.1, 1, 0x1.96162ceea530ep+2, 2},
    {"second quadrant", 3, -4, 0x1.3e111ff91b2efp+7, 2},
    {"third quadrant", -3, -4, 0x1.e1eee006e4d11p+7, 2},
    {"fourth quadrant", -3, 4, 0x1.67088ffc8d978p+8, 2},
    {"within 1e-10 of a turn is kept here", -1e-13, 1, 0x1.8ffffffffff9p+8, 2},
    {"the last double below a turn", -9e-16, 1, 0x1.8ffffffffffffp+8, 2},
    {"so near north from the west that it rounds to a turn: 0", -4e-16, 1, 0.0, 0},
    {"nearer still", -1e-300, 1, 0.0, 0},
    {"no tolerance: a hair east of north", 1e-12, 1, 0x1.17fd03a5404ecp-34, 2},
    {"a hair east of south", 1e-12, -1, 0x1.8fffffffff74p+7, 2},
    {"a hair west of south", -1e-12, -1, 0x1.90000000008cp+7, 2},
    {"no overflow", 1e308, 1e308, 50, 2},
    {"no underflow", 5e-324, 5e-324, 50, 2},
    {"infinitely far east", kInf, 1, 100, 2},
    {"infinitely far west", -kInf, 1, 300, 2},
    {"infinitely far north", 1, kInf, 0.0, 0},
    {"infinitely far south, east of it", 1, -kInf, 200, 2},
    {"infinitely far south, west of it", -1, -kInf, 200, 2},
    {"infinitely far northeast", kInf, kInf, 50, 2},
    {"infinitely far southwest", -kInf, -kInf, 250, 2},
    {"infinite beside a zero: north", 0.0, kInf, 0.0, 0},
    {"infinite beside a zero: south", 0.0, -kInf, 200, 0},
    {"infinite beside a zero: west", -kInf, 0.0, 300, 0},
    {"NaN a", kNan, 1, kNan, 0},
    {"NaN b", 1, kNan, kNan, 0},
    {"NaN beside a zero a", 0.0, kNan, kNan, 0},
    {"NaN beside a zero b", kNan, 0.0, kNan, 0},
    {"NaN twice", kNan, kNan, kNan, 0},
};

TEST(AngoloDaAsseRifer, Table)
{
    for (const BearingRow& row : kBearingRows) {
        SCOPED_TRACE(row.what);
        EXPECT_NEAR_BITS(AngoloDaAsseRifer(row.a, row.b), row.want, row.apart);
    }
}

TEST(AngoloDaAsseRifer, IsThePlatformsArctangentTimesOneFactor)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> component(-1000, 1000);
    for (int i = 0; i < 10000; ++i) {
        const double a = component(random);
        const double b = component(random);
        const double product = std::atan2(a, b) * 0x1.fd4bbab8b494cp+5;
        const double want = a < 0.0 ? product + 400.0 : product;
        EXPECT_BITS(AngoloDaAsseRifer(a, b), want);
        EXPECT_GE(want, 0.0);
        EXPECT_LT(want, 400.0);
    }
}

struct LimitRow {
    const char* what;
    double angle;
    double want;
};

const LimitRow kTurnRows[] = {
    {"zero", 0.0, 0.0},
    {"-0.0 becomes 0.0", -0.0, 0.0},
    {"inside", 123.456, 123.456},
    {"a turn", 400, 0.0},
    {"minus a turn: +0.0", -400, 0.0},
    {"two turns", 800, 0.0},
    {"past a turn", 450.25, 50.25},
    {"three turns and a bit", 1234.5, 34.5},
    {"below zero", -1, 399},
    {"minus two turns and a bit", -801.5, 398.5},
    {"half a turn", 200, 200},
    {"minus half a turn", -200, 200},
    {"just outside 1e-10 below a turn", 0x1.8fffffffff92p+8, 0x1.8fffffffff92p+8},
    {"on 1e-10 below a turn: the start", 0x1.8fffffffff921p+8, 0.0},
    {"just inside", 0x1.8fffffffff922p+8, 0.0},
    {"the last double below a turn", 0x1.8ffffffffffffp+8, 0.0},
    {"2e-10 below a turn is kept", 0x1.8fffffffff242p+8, 0x1.8fffffffff242p+8},
    {"the same margin a turn on", 0x1.8fffffffffc91p+9, 0.0},
    {"outside, a turn on", 0x1.8fffffffffc8ep+9, 0x1.8fffffffff91cp+8},
    {"1e-10 below zero: the start", -1e-10, 0.0},
    {"2e-10 below zero: kept", -2e-10, 0x1.8fffffffff242p+8},
    {"so little below zero that the sum is a turn", -1e-20, 0.0},
    {"smallest below zero", -5e-324, 0.0},
    {"a hair above zero stays", 1e-300, 1e-300},
    {"a hair above a turn", 0x1.9000000000001p+8, 0x1p-44},
    {"1e15 gons: exact remainder", 0x1.c6bf526340001p+49, 0.125},
    {"largest double: exact remainder", 0x1.fffffffffffffp+1023, 368},
    {"its opposite", -0x1.fffffffffffffp+1023, 32},
    {"infinity", kInf, kNan},
    {"minus infinity", -kInf, kNan},
    {"NaN", kNan, kNan},
};

TEST(LimiteAng0_400, Table)
{
    for (const LimitRow& row : kTurnRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(LimiteAng0_400(row.angle), row.want);
    }
}

const LimitRow kHalfTurnRows[] = {
    {"zero", 0.0, 0.0},
    {"-0.0 becomes 0.0", -0.0, 0.0},
    {"inside", 123.456, 123.456},
    {"inside, negative", -123.456, -123.456},
    {"half a turn stays", 200, 200},
    {"minus half a turn is half a turn", -200, 200},
    {"just below half a turn", 0x1.8ffffffffffffp+7, 0x1.8ffffffffffffp+7},
    {"just above half a turn", 0x1.9000000000001p+7, -0x1.8ffffffffffffp+7},
    {"just above minus half a turn", -0x1.8ffffffffffffp+7, -0x1.8ffffffffffffp+7},
    {"just below minus half a turn", -0x1.9000000000001p+7, 0x1.8ffffffffffffp+7},
    {"a turn", 400, 0.0},
    {"minus a turn: +0.0", -400, 0.0},
    {"a turn and a half", 600, 200},
    {"minus a turn and a half", -600, 200},
    {"three quarters", 300, -100},
    {"minus three quarters", -300, 100},
    {"just below a turn: no margin here", 0x1.8ffffffffffffp+8, -0x1p-44},
    {"just above minus a turn", -0x1.8ffffffffffffp+8, 0x1p-44},
    {"a hair below zero stays", -1e-20, -1e-20},
    {"many turns", 4001.25, 1.25},
    {"many turns back", -4201.25, 198.75},
    {"largest double: exact remainder", 0x1.fffffffffffffp+1023, -32},
    {"its opposite", -0x1.fffffffffffffp+1023, 32},
    {"infinity", kInf, kNan},
    {"minus infinity", -kInf, kNan},
    {"NaN", kNan, kNan},
};

TEST(LimiteAng200_200, Table)
{
    for (const LimitRow& row : kHalfTurnRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(LimiteAng200_200(row.angle), row.want);
    }
}

TEST(Limits, ArePeriodicInRangeAndSettled)
{
    // Angles in steps of 2^-20 gon: adding whole turns is exact, so the results agree to the bit.
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<int> step(0, 400 * (1 << 20) - 1);
    std::uniform_int_distribution<int> turns(-1000000, 1000000);
    for (int i = 0; i < 20000; ++i) {
        const double angle = step(random) * 0x1p-20;
        const double far = angle + turns(random) * 400.0;

        EXPECT_BITS(LimiteAng0_400(far), angle);
        EXPECT_BITS(LimiteAng200_200(far), angle > 200.0 ? angle - 400.0 : angle);
    }
}

TEST(Limits, StayInRangeWhateverTheAngle)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> exponent(-80, 1023);
    for (int i = 0; i < 20000; ++i) {
        const double angle = std::ldexp(mantissa(random), exponent(random));
        const double within_turn = LimiteAng0_400(angle);
        EXPECT_GE(within_turn, 0.0) << angle;
        EXPECT_LT(within_turn, 400.0 - 1e-10) << angle;
        EXPECT_BITS(LimiteAng0_400(within_turn), within_turn);

        // The remainder of smallest magnitude is the same but for the tie at half a turn.
        const double within_half = LimiteAng200_200(angle);
        const double nearest = std::remainder(angle, 400.0);
        EXPECT_EQ(within_half, nearest == -200.0 ? 200.0 : nearest) << angle;
        EXPECT_BITS(LimiteAng200_200(within_half), within_half);
    }
}

struct DisplacementRow {
    const char* what;
    double distance;
    double bearing;
    double east;
    double north;
    int apart;  // doubles that the platform's sine and cosine may be off: one, and two after the product
};

const DisplacementRow kDisplacementRows[] = {
    {"north", 5, 0.0, 0.0, 5, 0},
    {"north, two turns on", 5, 800, 0.0, 5, 0},
    {"north, a turn back", 5, -400, 0.0, 5, 0},
    {"north, negative distance", -5, 0.0, 0.0, -5, 0},
    {"north, no distance", 0.0, 0.0, 0.0, 0.0, 0},
    {"north, distance -0.0", -0.0, 0.0, 0.0, 0.0, 0},
    {"east", 5, 100, 5, 0.0, 0},
    {"east, two turns on", 5, 900, 5, 0.0, 0},
    {"east, a turn back", 5, -300, 5, 0.0, 0},
    {"east, negative distance", -5, 100, -5, 0.0, 0},
    {"east, no distance", 0.0, 100, 0.0, 0.0, 0},
    {"east, distance -0.0", -0.0, 100, 0.0, 0.0, 0},
    {"south", 5, 200, 0.0, -5, 0},
    {"south, two turns on", 5, 1000, 0.0, -5, 0},
    {"south, a turn back", 5, -200, 0.0, -5, 0},
    {"south, negative distance", -5, 200, 0.0, 5, 0},
    {"south, no distance", 0.0, 200, 0.0, 0.0, 0},
    {"south, distance -0.0", -0.0, 200, 0.0, 0.0, 0},
    {"west", 5, 300, -5, 0.0, 0},
    {"west, two turns on", 5, 1100, -5, 0.0, 0},
    {"west, a turn back", 5, -100, -5, 0.0, 0},
    {"west, negative distance", -5, 300, 5, 0.0, 0},
    {"west, no distance", 0.0, 300, 0.0, 0.0, 0},
    {"west, distance -0.0", -0.0, 300, 0.0, 0.0, 0},
    {"a hair before east", 1e10, 0x1.8ffffffffffffp+6, 1e10, 0x1.48bd16544cecfp-21, 2},
    {"a hair after east", 1e10, 0x1.9000000000001p+6, 1e10, -0x1.2b9b0a15be612p-19, 2},
    {"a hair before south", 1e10, 0x1.8ffffffffffffp+7, 0x1.7c353795133b4p-19, -1e10, 2},
    {"a hair after south", 1e10, 0x1.9000000000001p+7, -0x1.2b9b0a15be612p-18, -1e10, 2},
    {"a hair before west", 1e10, 0x1.2bfffffffffffp+8, -1e10, -0x1.e8208dca899dap-18, 2},
    {"a hair after west", 1e10, 0x1.2c00000000001p+8, -1e10, 0x1.2b9b0a15be612p-17, 2},
    {"a hair before north: no margin here", 1e10, 0x1.8ffffffffffffp+8, -0x1.e8208dca899dap-18, 1e10, 2},
    {"the same below zero: rounds to north", 1e10, -1e-20, 0.0, 1e10, 2},
    {"a hair after north", 1e10, 1e-20, 0x1.ba23cdd5122b5p-40, 1e10, 2},
    {"2e-14 below zero is a hair before north", 1e10, -3e-14, -0x1.e8208dca899dap-18, 1e10, 2},
    {"thirty degrees: half the distance, short by rounding", 2, 0x1.0aaaaaaaaaaabp+5, 1, 0x1.bb67ae8584caap+0,
     2},
    {"northeast", 1, 50, 0x1.6a09e667f3bcdp-1, 0x1.6a09e667f3bccp-1, 2},
    {"southeast", 1, 150, 0x1.6a09e667f3bccp-1, -0x1.6a09e667f3bcdp-1, 2},
    {"southwest", 1, 250, -0x1.6a09e667f3bcdp-1, -0x1.6a09e667f3bccp-1, 2},
    {"northwest", 1, 350, -0x1.6a09e667f3bccp-1, 0x1.6a09e667f3bcdp-1, 2},
    {"first quadrant", 123.45, 37.5, 0x1.1257305218275p+6, 0x1.9a9466dcc3617p+6, 2},
    {"second quadrant", 123.45, 137.5, 0x1.9a9466dcc3617p+6, -0x1.1257305218275p+6, 2},
    {"third quadrant", 123.45, 237.5, -0x1.1257305218275p+6, -0x1.9a9466dcc3617p+6, 2},
    {"fourth quadrant", 123.45, 337.5, -0x1.9a9466dcc3617p+6, 0x1.1257305218275p+6, 2},
    {"negative distance points the opposite way", -123.45, 37.5, -0x1.1257305218275p+6, -0x1.9a9466dcc3617p+6,
     2},
    {"below zero is the fourth quadrant", 123.45, -37.5, -0x1.1257305218275p+6, 0x1.9a9466dcc3617p+6, 2},
    {"many turns", 123.45, 400037.5, 0x1.1257305218275p+6, 0x1.9a9466dcc3617p+6, 2},
    {"infinite bearing", 1, kInf, kNan, kNan, 0},
    {"minus infinite bearing", 1, -kInf, kNan, kNan, 0},
    {"NaN bearing", 1, kNan, kNan, kNan, 0},
    {"NaN distance", kNan, 37.5, kNan, kNan, 0},
    {"infinite distance", kInf, 137.5, kInf, -kInf, 0},
};

TEST(Displacement, Table)
{
    for (const DisplacementRow& row : kDisplacementRows) {
        SCOPED_TRACE(row.what);
        EXPECT_NEAR_BITS(CalcCoordEst(row.distance, row.bearing), row.east, row.apart);
        EXPECT_NEAR_BITS(CalcCoordNord(row.distance, row.bearing), row.north, row.apart);
    }
}

TEST(Displacement, TurnsByQuartersToTheBit)
{
    // Bearings in steps of 2^-20 gon: quarters and whole turns are added exactly.
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<int> step(1, 100 * (1 << 20) - 1);
    std::uniform_int_distribution<int> turns(-1000, 1000);
    std::uniform_real_distribution<double> length(-1000, 1000);
    for (int i = 0; i < 10000; ++i) {
        const double d = length(random);
        const double bearing = step(random) * 0x1p-20;
        const double rad = bearing * 0x1.015bf9217271ap-6;
        const double east = d * std::sin(rad);
        const double north = d * std::cos(rad);
        const double whole = turns(random) * 400.0;

        EXPECT_BITS(CalcCoordEst(d, bearing), east);
        EXPECT_BITS(CalcCoordNord(d, bearing), north);
        EXPECT_BITS(CalcCoordEst(d, bearing + 100), north);
        EXPECT_BITS(CalcCoordNord(d, bearing + 100), -east);
        EXPECT_BITS(CalcCoordEst(d, bearing + 200), -east);
        EXPECT_BITS(CalcCoordNord(d, bearing + 200), -north);
        EXPECT_BITS(CalcCoordEst(d, bearing + 300), -north);
        EXPECT_BITS(CalcCoordNord(d, bearing + 300), east);
        EXPECT_BITS(CalcCoordEst(d, bearing + whole), east);
        EXPECT_BITS(CalcCoordNord(d, bearing + whole), north);
    }
}

TEST(Displacement, HasTheBearingAndTheLengthThatItWasGiven)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> bearing(0, 400);
    std::uniform_real_distribution<double> length(0.001, 1e6);
    for (int i = 0; i < 10000; ++i) {
        const double t = bearing(random);
        const double d = length(random);
        const double east = CalcCoordEst(d, t);
        const double north = CalcCoordNord(d, t);
        EXPECT_NEAR(LimiteAng200_200(AngoloDaAsseRifer(east, north) - t), 0.0, 3e-13);
        EXPECT_NEAR(std::hypot(east, north), d, 1e-15 * d);
    }
    for (const double t : {0.0, 100.0, 200.0, 300.0})
        EXPECT_BITS(AngoloDaAsseRifer(CalcCoordEst(7, t), CalcCoordNord(7, t)), t);
}

}  // namespace
