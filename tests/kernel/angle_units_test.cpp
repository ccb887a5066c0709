#include "kernel/angle_units.h"

#include "kernel/near.h"
#include "kernel/tolerance.h"

namespace {

using plcalc::kDegrees;
using plcalc::kPseudoTurn;
using plcalc::kRadians;
using test::kInf;
using test::kNan;

TEST(AngleUnits, ConstantsKeepTheirBits)
{
    EXPECT_BITS(plcalc::kPi, 0x1.921fb54442d18p+1);
    EXPECT_BITS(kRadians.quarter, 0x1.921fb54442d18p+0);
    EXPECT_BITS(kRadians.half, 0x1.921fb54442d18p+1);
    EXPECT_BITS(kRadians.three_quarters, 0x1.2d97c7f3321d2p+2);
    EXPECT_BITS(kRadians.full, 0x1.921fb54442d18p+2);
    EXPECT_BITS(kRadians.per_rad, 1.0);
    EXPECT_BITS(kDegrees.quarter, 90.0);
    EXPECT_BITS(kDegrees.half, 180.0);
    EXPECT_BITS(kDegrees.three_quarters, 270.0);
    EXPECT_BITS(kDegrees.full, 360.0);
    EXPECT_BITS(kPseudoTurn, 4.0);

    // One double above the one nearest to 180 / pi, which is 57.29577951308232: this one is settled.
    EXPECT_BITS(kDegrees.per_rad, 0x1.ca5dc1a63c1f9p+5);
    // Thirteen digits of pi / 180, 950 doubles below the nearest one.
    EXPECT_BITS(plcalc::kRadPerDeg, 0x1.1df46a2529983p-6);
}

TEST(AngleUnits, SelectorsKeepTheirNumbers)
{
    EXPECT_EQ(plcalc::kPolarDegrees, 0);
    EXPECT_EQ(plcalc::kPolarRadians, 1);
    EXPECT_EQ(plcalc::kPolarPseudo, 2);
    EXPECT_EQ(plcalc::kArcAnglePseudo, 0);
    EXPECT_EQ(plcalc::kArcAngleDegrees, 1);
    EXPECT_EQ(plcalc::kArcAngleRadians, 2);
    EXPECT_EQ(plcalc::kPseudoToDegrees, 0);
    EXPECT_EQ(plcalc::kPseudoToRadians, 1);
    EXPECT_EQ(plcalc::kQuadrantOfVector, 0);
    EXPECT_EQ(plcalc::kQuadrantOfPseudo, 1);
    EXPECT_EQ(plcalc::kQuadrantOfDegrees, 2);
}

struct TurnRow {
    const char* what;
    double angle;
    double turn;
    double near_one_turn;  // bring_near
    double dropped;        // drop_turns
    double within;         // within_one_turn
};

const double kTwoPi = 0x1.921fb54442d18p+2;

// The bounds are computed apart: turn - (turn + 1) * 1e-7. Results of many turns are a replay of the single
// subtractions with their rounding; results beyond 65536 turns are exact remainders.
const TurnRow kTurnRows[] = {
    {"pseudo: nothing to do", 0.5, kPseudoTurn, 0.5, 0.5, 0.5},
    {"pseudo: -0.0 stays", -0.0, kPseudoTurn, -0.0, -0.0, -0.0},
    {"pseudo: on -PL_EPS: stays", -1e-7, kPseudoTurn, -1e-7, -1e-7, -1e-7},
    {"pseudo: the next double below -PL_EPS: a turn is added, and taken off again by the upper margin",
     -0x1.ad7f29abcaf49p-24, kPseudoTurn, -0x1.ad7f29abcaf49p-24, -0x1.ad7f29abcaf49p-24, -0x1.ad7f29ap-24},
    {"pseudo: just below the upper margin", 0x1.fffffbce4217cp+1, kPseudoTurn, 0x1.fffffbce4217cp+1,
     0x1.fffffbce4217cp+1, 0x1.fffffbce4217cp+1},
    {"pseudo: on the upper margin: a turn back, and slightly negative", 3.9999995, kPseudoTurn, 3.9999995,
     -0x1.0c6f7a0cp-21, -0x1.0c6f7a0cp-21},
    {"pseudo: one turn", 4, kPseudoTurn, 4, 0.0, 0.0},
    {"pseudo: minus one turn", -4, kPseudoTurn, -4, -4, 0.0},
    {"pseudo: two turns and a bit", 8.1, kPseudoTurn, 8.1, 0x1.999999999998p-4, 0x1.999999999998p-4},
    {"pseudo: three turns back and a bit", -11.9, kPseudoTurn, -11.9, -11.9, 0x1.999999999998p-4},
    {"pseudo: a hundred turns and a bit", 400.7, kPseudoTurn, 400.7, 0x1.66666666666p-1, 0x1.66666666666p-1},
    {"pseudo: a hundred turns back and a bit", -400.7, kPseudoTurn, -400.7, -400.7, 0x1.a66666666668p+1},
    {"pseudo: exactly 65536 turns: step by step", 262144, kPseudoTurn, 262144, 0.0, 0.0},
    {"pseudo: exactly 65536 turns back: step by step", -262144, kPseudoTurn, -262144, -262144, 0.0},
    {"pseudo: the next double: remainder", 0x1.0000000000001p+18, kPseudoTurn, 0x1p-34, 0x1p-34, 0x1p-34},
    {"pseudo: the next double, backwards", -0x1.0000000000001p+18, kPseudoTurn, -0x1p-34, -0x1p-34, -0x1p-34},
    {"pseudo: the next double inside, step by step", 0x1.fffffffffffffp+17, kPseudoTurn,
     0x1.fffffffffffffp+17, -0x1p-35, -0x1p-35},
    {"pseudo: an angle that no step would change", 1e300, kPseudoTurn, 0.0, 0.0, 0.0},
    {"pseudo: the same backwards", -1e300, kPseudoTurn, -0.0, -0.0, -0.0},
    {"pseudo: largest double", 0x1.fffffffffffffp+1023, kPseudoTurn, 0.0, 0.0, 0.0},
    {"pseudo: infinity", kInf, kPseudoTurn, kNan, kNan, kNan},
    {"pseudo: minus infinity", -kInf, kPseudoTurn, kNan, kNan, kNan},
    {"pseudo: NaN", kNan, kPseudoTurn, kNan, kNan, kNan},
    {"rad: nothing to do", 0x1.921fb54442d18p-1, kTwoPi, 0x1.921fb54442d18p-1, 0x1.921fb54442d18p-1,
     0x1.921fb54442d18p-1},
    {"rad: -0.0 stays", -0.0, kTwoPi, -0.0, -0.0, -0.0},
    {"rad: on -PL_EPS: stays", -1e-7, kTwoPi, -1e-7, -1e-7, -1e-7},
    {"rad: the next double below -PL_EPS: a turn is added, and taken off again by the upper margin",
     -0x1.ad7f29abcaf49p-24, kTwoPi, -0x1.ad7f29abcaf49p-24, -0x1.ad7f29abcaf49p-24, -0x1.ad7f29cp-24},
    {"rad: just below the upper margin", 0x1.921fb2363c251p+2, kTwoPi, 0x1.921fb2363c251p+2,
     0x1.921fb2363c251p+2, 0x1.921fb2363c251p+2},
    {"rad: on the upper margin: a turn back, and slightly negative", 0x1.921fb2363c252p+2, kTwoPi,
     0x1.921fb2363c252p+2, -0x1.8703563p-21, -0x1.8703563p-21},
    {"rad: one turn", 0x1.921fb54442d18p+2, kTwoPi, 0x1.921fb54442d18p+2, 0.0, 0.0},
    {"rad: minus one turn", -0x1.921fb54442d18p+2, kTwoPi, -0x1.921fb54442d18p+2, -0x1.921fb54442d18p+2, 0.0},
    {"rad: two turns and a bit", 0x1.9552e8777604bp+3, kTwoPi, 0x1.9552e8777604bp+3, 0x1.999999999998p-4,
     0x1.999999999998p-4},
    {"rad: three turns back and a bit", -0x1.2bfe2e5998838p+4, kTwoPi, -0x1.2bfe2e5998838p+4,
     -0x1.2bfe2e5998838p+4, 0x1.9999999999ap-4},
    {"rad: a hundred turns and a bit", 0x1.3a825f36edcd5p+9, kTwoPi, 0x1.3a825f36edcd5p+9,
     0x1.6666666668dcp-1, 0x1.6666666668dcp-1},
    {"rad: a hundred turns back and a bit", -0x1.3a825f36edcd5p+9, kTwoPi, -0x1.3a825f36edcd5p+9,
     -0x1.3a825f36edcd5p+9, 0x1.6552e87775b6p+2},
    {"rad: exactly 65536 turns: step by step", 0x1.921fb54442d18p+18, kTwoPi, 0x1.921fb54442d18p+18,
     0x1.c9b2938p-22, 0x1.c9b2938p-22},
    {"rad: exactly 65536 turns back: step by step", -0x1.921fb54442d18p+18, kTwoPi, -0x1.921fb54442d18p+18,
     -0x1.921fb54442d18p+18, -0x1.c9b2938p-22},
    {"rad: the next double: remainder", 0x1.921fb54442d19p+18, kTwoPi, 0x1p-34, 0x1p-34, 0x1p-34},
    {"rad: the next double, backwards", -0x1.921fb54442d19p+18, kTwoPi, -0x1p-34, -0x1p-34, -0x1p-34},
    {"rad: the next double inside, step by step", 0x1.921fb54442d17p+18, kTwoPi, 0x1.921fb54442d17p+18,
     0x1.c9a2938p-22, 0x1.c9a2938p-22},
    {"rad: an angle that no step would change", 1e300, kTwoPi, 0x1.63d315c34e8cp+2, 0x1.63d315c34e8cp+2,
     0x1.63d315c34e8cp+2},
    {"rad: the same backwards", -1e300, kTwoPi, -0x1.63d315c34e8cp+2, -0x1.63d315c34e8cp+2,
     0x1.7264fc07a22cp-1},
    {"rad: largest double", 0x1.fffffffffffffp+1023, kTwoPi, 0x1.294b5eb559b4p-1, 0x1.294b5eb559b4p-1,
     0x1.294b5eb559b4p-1},
    {"rad: infinity", kInf, kTwoPi, kNan, kNan, kNan},
    {"rad: minus infinity", -kInf, kTwoPi, kNan, kNan, kNan},
    {"rad: NaN", kNan, kTwoPi, kNan, kNan, kNan},
    {"deg: nothing to do", 45, 360, 45, 45, 45},
    {"deg: -0.0 stays", -0.0, 360, -0.0, -0.0, -0.0},
    {"deg: on -PL_EPS: stays", -1e-7, 360, -1e-7, -1e-7, -1e-7},
    {"deg: the next double below -PL_EPS: a turn is added, and taken off again by the upper margin",
     -0x1.ad7f29abcaf49p-24, 360, -0x1.ad7f29abcaf49p-24, -0x1.ad7f29abcaf49p-24, -0x1.ad7f3p-24},
    {"deg: just below the upper margin", 0x1.67fffda257ae3p+8, 360, 0x1.67fffda257ae3p+8,
     0x1.67fffda257ae3p+8, 0x1.67fffda257ae3p+8},
    {"deg: on the upper margin: a turn back, and slightly negative", 0x1.67fffda257ae4p+8, 360,
     0x1.67fffda257ae4p+8, -0x1.2ed428ep-15, -0x1.2ed428ep-15},
    {"deg: one turn", 360, 360, 360, 0.0, 0.0},
    {"deg: minus one turn", -360, 360, -360, -360, 0.0},
    {"deg: two turns and a bit", 720.1, 360, 720.1, 0x1.999999999ap-4, 0x1.999999999ap-4},
    {"deg: three turns back and a bit", -1079.9, 360, -1079.9, -1079.9, 0x1.9999999998p-4},
    {"deg: a hundred turns and a bit", 36000.7, 360, 36000.7, 0x1.666666666p-1, 0x1.666666666p-1},
    {"deg: a hundred turns back and a bit", -36000.7, 360, -36000.7, -36000.7, 0x1.674cccccccdp+8},
    {"deg: exactly 65536 turns: step by step", 0x1.68p+24, 360, 0x1.68p+24, 0.0, 0.0},
    {"deg: exactly 65536 turns back: step by step", -0x1.68p+24, 360, -0x1.68p+24, -0x1.68p+24, 0.0},
    {"deg: the next double: remainder", 0x1.6800000000001p+24, 360, 0x1p-28, 0x1p-28, 0x1p-28},
    {"deg: the next double, backwards", -0x1.6800000000001p+24, 360, -0x1p-28, -0x1p-28, -0x1p-28},
    {"deg: the next double inside, step by step", 0x1.67fffffffffffp+24, 360, 0x1.67fffffffffffp+24, -0x1p-28,
     -0x1p-28},
    {"deg: an angle that no step would change", 1e300, 360, 0.0, 0.0, 0.0},
    {"deg: the same backwards", -1e300, 360, -0.0, -0.0, -0.0},
    {"deg: largest double", 0x1.fffffffffffffp+1023, 360, 128, 128, 128},
    {"deg: infinity", kInf, 360, kNan, kNan, kNan},
    {"deg: minus infinity", -kInf, 360, kNan, kNan, kNan},
    {"deg: NaN", kNan, 360, kNan, kNan, kNan},
};

TEST(Turns, Table)
{
    for (const TurnRow& row : kTurnRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(plcalc::bring_near(row.angle, row.turn), row.near_one_turn);
        EXPECT_BITS(plcalc::drop_turns(row.angle, row.turn), row.dropped);
        EXPECT_BITS(plcalc::within_one_turn(row.angle, row.turn), row.within);
    }
}

TEST(Turns, SixtyFiveThousandAreStillTakenOneByOne)
{
    // A counted loop instead of one that looks at the angle. The remainder of the division is 0, the steps
    // arrive somewhere else.
    double rest = 65536.0 * kTwoPi;
    for (int turn = 0; turn < 65536; ++turn)
        rest = rest - kTwoPi;
    EXPECT_NE(rest, 0.0);
    EXPECT_BITS(plcalc::drop_turns(65536.0 * kTwoPi, kTwoPi), rest);
    EXPECT_BITS(plcalc::within_one_turn(65536.0 * kTwoPi, kTwoPi), rest);
}

TEST(Turns, EveryAngleEndsWithinOneTurn)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> turns(-70000, 70000);
    for (const double turn : {kPseudoTurn, kTwoPi, 360.0}) {
        for (int i = 0; i < 300; ++i) {
            const double angle = turns(random) * turn;
            const double within = plcalc::within_one_turn(angle, turn);
            EXPECT_GE(within, -plcalc::scaled_tol(turn)) << angle;
            EXPECT_LT(within, turn - plcalc::scaled_tol(turn)) << angle;

            // Each step may round by half of the angle's last bit.
            const long double whole = std::round((static_cast<long double>(angle) - within) / turn);
            const long double off = static_cast<long double>(angle) - whole * turn - within;
            EXPECT_LE(std::fabs(off), 70000 * 0x1p-53L * std::fabs(angle)) << angle;
        }
    }
}

}  // namespace
