#include "survey/offsets.h"

#include <cmath>
#include <limits>
#include <random>

#include "plcalc/lines.h"
#include "plcalc/survey.h"
#include "support/bits.h"

namespace {

using test::down;
using test::kUntouched;
using test::up;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr PL_PNT2D_record kUntouchedPoint = {kUntouched, kUntouched};

// Directions on the axes are exact, or nearly so: sine and cosine see 0, or an angle whose cosine is a residue
// of 3e-13 that drowns in the coordinate. Elsewhere another mathematical library may differ in the last bit
// of sine, cosine or arctangent, and the coordinate by a unit: EXPECT_POINT_ULP allows that one.
bool within_a_unit(double got, double want)
{
    return got == want || got == up(want) || got == down(want);
}

::testing::AssertionResult near_point(const char* got_text, const char* want_text, const PL_PNT2D_record& got,
                                      const PL_PNT2D_record& want)
{
    if (within_a_unit(got.x, want.x) && within_a_unit(got.y, want.y))
        return ::testing::AssertionSuccess();
    return test::same_point(got_text, want_text, got, want);
}

#define EXPECT_POINT_ULP(got, want) EXPECT_PRED_FORMAT2(near_point, got, want)

// --------------------------------------------------------------------------------- along a segment or a line

struct AlongRow {
    const char* what;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    PL_PNT2D_record from;
    double dist;
    PL_PNT2D_record want;
};

const AlongRow kAlongRows[] = {
    {"East, off the segment", {0, 0}, {10, 0}, {5, 5}, 2, {7, 5}},
    {"East, back", {0, 0}, {10, 0}, {5, 5}, -2, {3, 5}},
    {"North: the short degree leaves 3e-13 per unit to the East",
     {0, 0},
     {0, 10},
     {5, 5},
     2,
     {0x1.400000000029cp+2, 7}},
    {"North, back", {0, 0}, {0, 10}, {5, 5}, -2, {0x1.3fffffffffd64p+2, 3}},
    {"West", {0, 0}, {-10, 0}, {5, 5}, 2, {3, 0x1.4000000000538p+2}},
    {"South", {0, 0}, {0, -10}, {5, 5}, 2, {0x1.3fffffffff82cp+2, 3}},
    {"North from x = 0: the residue is snapped to zero", {0, 0}, {0, 10}, {0, 0}, 1000, {0, 1000}},
    {"the segment's place and length do not count", {100, 7}, {100.5, 7}, {5, 5}, 2, {7, 5}},
    {"the segment the other way", {10, 0}, {0, 0}, {5, 5}, 2, {3, 0x1.4000000000538p+2}},
    {"equal ends: along +x", {3, 3}, {3, 3}, {5, 5}, 2, {7, 5}},
    {"ends within PL_EPS: along +x", {0, 0}, {-1e-7, 1e-7}, {5, 5}, 2, {7, 5}},
    {"distance 0", {1, 2}, {4, 9}, {500123.45, 5000678.9}, 0, {500123.45, 5000678.9}},
    {"distance 0 next to the origin: snapped all the same", {1, 2}, {4, 9}, {5e-8, -1e-7}, 0, {0, 0}},
    {"a 3-4-5 slope", {0, 0}, {3, 4}, {0, 0}, 5, {0x1.8000000000628p+1, 0x1.ffffffffffb62p+1}},
    {"a 3-4-5 slope, second quadrant",
     {0, 0},
     {-3, 4},
     {0, 0},
     5,
     {-0x1.7fffffffff14bp+1, 0x1.0000000000584p+2}},
    {"a 3-4-5 slope, third quadrant",
     {0, 0},
     {-3, -4},
     {0, 0},
     5,
     {-0x1.8000000001b08p+1, -0x1.fffffffffebbap+1}},
    {"a 3-4-5 slope, fourth quadrant",
     {0, 0},
     {3, -4},
     {0, 0},
     5,
     {0x1.7ffffffffdc67p+1, -0x1.0000000000d59p+2}},
};

TEST(AlongSegment, Table)
{
    for (const AlongRow& row : kAlongRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        CalcPtAtDistSuSegm(&row.a, &row.b, &row.from, row.dist, &got);
        EXPECT_POINT_ULP(got, row.want);
    }
}

TEST(AlongSegment, EqualEndsAndDistanceZeroAreExact)
{
    const PL_PNT2D_record a = {1, 2};
    const PL_PNT2D_record b = {4, 9};
    const PL_PNT2D_record from = {500123.45, -5000678.9};
    PL_PNT2D_record got = kUntouchedPoint;
    CalcPtAtDistSuSegm(&a, &b, &from, 0.0, &got);
    EXPECT_POINT(got, (from));
    CalcPtAtDistSuSegm(&a, &a, &from, 0.25, &got);
    EXPECT_POINT(got, ({from.x + 0.25, from.y}));
    CalcPtAtDistSuSegm(&a, &b, &from, kNan, &got);
    EXPECT_POINT(got, ({kNan, kNan}));
}

struct AlongLineRow {
    const char* what;
    PL_IMP_LINE_2D_record line;
    PL_PNT2D_record from;
    double dist;
    PL_PNT2D_record want;
};

const AlongLineRow kAlongLineRows[] = {
    {"the line of (0, 0) to (10, 0): against that order",
     {-0.0, 10, 0},
     {5, 5},
     2,
     {3, 0x1.4000000000538p+2}},
    {"the same, back", {-0.0, 10, 0}, {5, 5}, -2, {7, 0x1.3fffffffffac8p+2}},
    {"b negative: East", {0, -1, 0}, {5, 5}, 2, {7, 5}},
    {"a positive: North", {1, 0, 0}, {5, 5}, 2, {0x1.400000000029cp+2, 7}},
    {"a negative: South", {-1, 0, 0}, {5, 5}, 2, {0x1.3fffffffff82cp+2, 3}},
    {"c plays no part", {0, -1, 77}, {5, 5}, 2, {7, 5}},
    {"no direction: East", {0, 0, 5}, {5, 5}, 2, {7, 5}},
    {"a normal within PL_EPS: East", {1e-7, 1e-7, 5}, {5, 5}, 2, {7, 5}},
    {"a normal just longer: North", {up(1e-7), 1e-7, 5}, {5, 5}, 2, {0x1.400000000029cp+2, 7}},
};

TEST(AlongLine, Table)
{
    for (const AlongLineRow& row : kAlongLineRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        CalcPtAtDistSuLineaImp(&row.line, &row.from, row.dist, &got);
        EXPECT_POINT_ULP(got, row.want);
    }
}

// ---------------------------------------------------------------------------------- signed distance, two points

struct SignedRow {
    const char* what;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    PL_PNT2D_record from;
    PL_PNT2D_record target;
    double want;
};

const SignedRow kSignedRows[] = {
    {"ahead", {0, 0}, {10, 0}, {2, 0}, {5, 0}, 3},
    {"behind", {0, 0}, {10, 0}, {5, 0}, {2, 0}, -3},
    {"the segment turned round", {10, 0}, {0, 0}, {2, 0}, {5, 0}, -3},
    {"equal points: a tie, -0.0", {0, 0}, {10, 0}, {2, 0}, {2, 0}, -0.0},
    {"equal points off the segment: -0.0", {0, 0}, {10, 10}, {5, 7}, {5, 7}, -0.0},
    {"straight aside: a tie is behind", {0, 0}, {10, 0}, {2, 0}, {2, 5}, -5},
    {"straight aside, the other side", {0, 0}, {10, 0}, {2, 0}, {2, -5}, -5},
    {"off the line, ahead: the straight distance", {0, 0}, {10, 0}, {2, 0}, {5, 4}, 5},
    {"off the line, behind", {0, 0}, {10, 0}, {2, 0}, {-1, 4}, -5},
    {"both off the line", {0, 0}, {10, 0}, {7, 7}, {10, 11}, 5},
    {"equal ends: along +x", {3, 3}, {3, 3}, {2, 0}, {5, 0}, 3},
    {"equal ends: against +x", {3, 3}, {3, 3}, {5, 0}, {2, 0}, -3},
    {"a slope, ahead", {0, 0}, {3, 4}, {0, 0}, {3, 4}, 5},
    {"a slope, behind", {0, 0}, {3, 4}, {0, 0}, {-3, -4}, -5},
    {"upward, ahead", {0, 0}, {0, 4}, {7, 1}, {7, 3}, 2},
    {"upward, behind", {0, 0}, {0, 4}, {7, 3}, {7, 1}, -2},
    {"a NaN is never nearer", {0, 0}, {10, 0}, {2, 0}, {kNan, 0}, kNan},
};

TEST(DistPtSuSegm, Table)
{
    for (const SignedRow& row : kSignedRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(DistPtSuSegmDaPt(&row.a, &row.b, &row.from, &row.target), row.want);
    }
}

// -------------------------------------------------------------------------------- signed distance from a line

struct FootRow {
    const char* what;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    PL_PNT2D_record pt;
    double want;
    PL_PNT2D_record foot;
};

// The foot is the base line met with its perpendicular, in this order: hence the y of -0.0.
const FootRow kFootRows[] = {
    {"right of the direction", {0, 0}, {10, 0}, {3, -2}, 2, {3, -0.0}},
    {"left of it", {0, 0}, {10, 0}, {3, 2}, -2, {3, -0.0}},
    {"the base turned round", {10, 0}, {0, 0}, {3, -2}, -2, {3, -0.0}},
    {"the base turned round, other side", {10, 0}, {0, 0}, {3, 2}, 2, {3, -0.0}},
    {"on the line: a tie, -0.0", {0, 0}, {10, 0}, {3, 0}, -0.0, {3, -0.0}},
    {"on a sloping line", {1, 1}, {2, 2}, {1.5, 1.5}, -0.0, {1.5, 1.5}},
    {"beyond the end", {0, 0}, {10, 0}, {20, -2}, 2, {20, -0.0}},
    {"before the start", {0, 0}, {10, 0}, {-20, -2}, 2, {-20, -0.0}},
    {"upward, right", {0, 0}, {0, 4}, {3, 1}, 3, {0, 1}},
    {"upward, left", {0, 0}, {0, 4}, {-3, 1}, -3, {0, 1}},
    {"a diagonal, right", {1, 1}, {2, 2}, {2, 1}, 0x1.6a09e667f3bcdp-1, {1.5, 1.5}},
    {"a diagonal, left", {1, 1}, {2, 2}, {1, 2}, -0x1.6a09e667f3bcdp-1, {1.5, 1.5}},
    {"over the start, left", {0, 0}, {1, 0}, {0, 3}, -3, {0, -0.0}},
    {"over the start, right", {0, 0}, {1, 0}, {0, -3}, 3, {-0.0, -0.0}},

    // foot holds (1, 1) before the call.
    {"equal ends: from what foot held, +x as the direction", {9, 9}, {9, 9}, {1, -2}, 3, {1, 1}},
    {"equal ends, other side", {9, 9}, {9, 9}, {1, 4}, -3, {1, 1}},
    {"equal ends, 1e-8 past a right angle to the left", {9, 9}, {9, 9}, {101, 1 + 0x1p-20}, -100, {1, 1}},
    {"equal ends, 1e-8 short of it, to the right", {9, 9}, {9, 9}, {101, 1 - 0x1p-20}, 100, {1, 1}},
    {"a base below 3.16e-4 has no foot either: its square is the determinant",
     {0, 0},
     {3e-4, 1e-4},
     {3, -2},
     0x1.cd82b446159f3p+1,
     {1, 1}},
    {"a base above 3.16e-4 has one", {0, 0}, {4e-4, 0}, {3, -2}, 2, {0x1.8000000000001p+1, -0.0}},
    {"a NaN point", {0, 0}, {10, 0}, {kNan, 2}, kNan, {kNan, kNan}},
};

TEST(DistSegm, Table)
{
    for (const FootRow& row : kFootRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record foot = {1, 1};
        EXPECT_BITS(DistSegmDaPt(&row.a, &row.b, &row.pt, &foot), row.want);
        EXPECT_POINT(foot, (row.foot));
    }
}

struct RettaRow {
    const char* what;
    PL_IMP_LINE_2D_record line;
    PL_PNT2D_record pt;
    double dist;
    double angle_gon;
};

const RettaRow kRettaRows[] = {
    {"point to the East: 0", {1, 0, 0}, {3, 2}, 3, 0},
    {"point to the North: 100", {0, 1, 0}, {3, 2}, 2, 100},
    {"point to the West: 200", {1, 0, 0}, {-3, 2}, 3, 200},
    {"point to the South: 300", {0, 1, 0}, {3, -2}, 2, 300},
    {"not by the line's own direction", {0, -1, 0}, {3, 2}, 2, 100},
    {"a line off the origin", {0, 1, -2}, {3, 7}, 5, 100},
    {"on the line: 0 and 0", {0, 1, 0}, {3, 0}, 0, 0},
    {"1e-7 off the line: no direction yet", {0, 1, 0}, {3, 1e-7}, 1e-7, 0},
    {"just further: 100", {0, 1, 0}, {3, up(1e-7)}, up(1e-7), 100},
    {"a hair below a full turn rounds up to exactly 400", {1e9, -2e-7, 0}, {1e9, -2e-7}, 1e9, 400},
    {"a diagonal: 350", {1, -1, 0}, {2, 1}, 0x1.6a09e667f3bcdp-1, 350},
    {"a diagonal: 150", {1, -1, 0}, {1, 2}, 0x1.6a09e667f3bcdp-1, 150},
    {"not normalised", {3, 4, 0}, {3, 4}, 5, 0x1.d8447fe46cbbfp+5},
    {"not normalised, other side", {3, 4, 0}, {-3, -4}, 5, 0x1.03088ffc8d978p+8},
    {"no direction: from the origin", {0, 0, 0}, {0, -4}, 4, 300},
    {"no direction, c is no way out", {0, 0, 5}, {3, 0}, 3, 0},
    {"a normal below 3.16e-4 is none: from the origin", {3e-4, 0, -3e-4}, {0, 2}, 2, 100},
    {"a normal above it", {4e-4, 0, -4e-4}, {4, 1}, 3, 0},
    {"a NaN point", {0, 1, 0}, {kNan, 2}, kNan, kNan},
};

TEST(DistPuntoRetta, Table)
{
    for (const RettaRow& row : kRettaRows) {
        SCOPED_TRACE(row.what);
        double dist = kUntouched;
        double angle_gon = kUntouched;
        CalcDistPuntoDaRetta(&row.line, &row.pt, dist, angle_gon);
        EXPECT_BITS(dist, row.dist);
        // On the axes to the bit; elsewhere the arctangent has its ulp.
        if (std::fmod(row.angle_gon, 50.0) == 0.0 || std::isnan(row.angle_gon)) {
            EXPECT_BITS(angle_gon, row.angle_gon);
        } else {
            EXPECT_TRUE(within_a_unit(angle_gon, row.angle_gon)) << angle_gon;
        }
    }
}

// The foot on a line of zeros is the origin, so the direction is that of the point itself: one product with
// the rounded factor, not a quotient by 0.9.
TEST(DistPuntoRetta, AngleIsTheKernelsDegreesTimesTheFactor)
{
    const PL_IMP_LINE_2D_record no_line = {0, 0, 0};
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
    for (int i = 0; i < 1000; ++i) {
        const PL_PNT2D_record p = {coordinate(random), coordinate(random)};
        double dist = kUntouched;
        double angle_gon = kUntouched;
        CalcDistPuntoDaRetta(&no_line, &p, dist, angle_gon);
        EXPECT_BITS(dist, std::sqrt(p.y * p.y + p.x * p.x));
        EXPECT_BITS(angle_gon, PlFunz_arctan_deg(p.x, p.y) * 0x1.1c71c71c71c72p+0);
    }
}

struct InSegmRow {
    const char* what;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    PL_PNT2D_record pt;
    bool met;
    PL_PNT2D_record foot;
};

const InSegmRow kInSegmRows[] = {
    {"from above", {0, 0}, {1, 0}, {0.5, 5}, true, {0.5, 0}},
    {"from below", {0, 0}, {1, 0}, {0.5, -5}, true, {0.5, 0}},
    {"from the segment itself", {0, 0}, {1, 0}, {0.5, 0}, true, {0.5, 0}},
    {"the segment the other way", {1, 0}, {0, 0}, {0.25, 5}, true, {0.25, 0}},
    {"beyond the end, on 1 + 2e-7", {0, 0}, {1, 0}, {1 + 2e-7, 5}, true, {1 + 2e-7, 0}},
    {"just outside: false, the foot is written", {0, 0}, {1, 0}, {up(1 + 2e-7), 5}, false, {up(1 + 2e-7), 0}},
    {"before the start, on -1e-7", {0, 0}, {1, 0}, {-1e-7, 5}, true, {-1e-7, -0.0}},
    {"just outside, at the start", {0, 0}, {1, 0}, {down(-1e-7), 5}, false, {down(-1e-7), -0.0}},
    {"far outside: false, the foot is written", {0, 0}, {1, 0}, {40, 5}, false, {40, 0}},
    {"upright", {0, 0}, {0, 1}, {5, 0.25}, true, {0, 0.25}},
    {"sloping", {1, 1}, {5, 4}, {0, 9}, true, {0x1.0cccccccccccdp+2, 0x1.b333333333333p+1}},
    {"equal ends: the perpendicular of zeros holds the point", {3, 4}, {3, 4}, {7, 8}, true, {3, 4}},
    {"equal ends and a point without bounds", {3, 4}, {3, 4}, {kInf, 8}, false, kUntouchedPoint},
    {"below 3.16e-4 there is no foot", {0, 0}, {3e-4, 0}, {1e-4, 5}, false, kUntouchedPoint},
    {"a NaN point", {0, 0}, {1, 0}, {kNan, 5}, false, {kNan, kNan}},
};

TEST(PerpInSegm, Table)
{
    for (const InSegmRow& row : kInSegmRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        EXPECT_EQ(IntersPerpDaPtInSegm(&row.a, &row.b, &row.pt, &got), row.met);
        EXPECT_POINT(got, (row.foot));
    }
}

// --------------------------------------------------------------------------------------------- right-angle offset

struct SquadroRow {
    const char* what;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    double absc;
    double ord;
    PL_PNT2D_record want;
};

const SquadroRow kSquadroRows[] = {
    {"nothing to set out", {7, 8}, {9, 3}, 0, 0, {7, 8}},
    {"ahead, right", {0, 0}, {10, 0}, 4, 3, {0x1.ffffffffff82cp+1, -3}},
    {"ahead, left", {0, 0}, {10, 0}, 4, -3, {0x1.00000000003eap+2, 3}},
    {"behind, positive: the sides have swapped, left", {0, 0}, {10, 0}, -4, 3, {-0x1.ffffffffff82cp+1, 3}},
    {"behind, negative: right", {0, 0}, {10, 0}, -4, -3, {-0x1.00000000003eap+2, -3}},
    {"at a, positive: right", {0, 0}, {10, 0}, 0, 3, {0, -3}},
    {"at a, negative: left", {0, 0}, {10, 0}, 0, -3, {0, 3}},
    {"an abscissa of -0.0 is not behind", {0, 0}, {10, 0}, -0.0, 3, {0, -3}},
    {"the smallest negative abscissa is", {0, 0}, {10, 0}, -5e-324, 3, {0, 3}},
    {"upward, ahead, right", {0, 0}, {0, 10}, 4, 3, {3, 0x1.ffffffffff058p+1}},
    {"upward, behind, left", {0, 0}, {0, 10}, -4, 3, {-3, -0x1.ffffffffff058p+1}},
    {"sloping", {0, 0}, {3, 4}, 5, 10, {0x1.5fffffffffb51p+3, -0x1.00000000025ccp+1}},
    {"sloping, behind", {100, 200}, {103, 204}, -5, 10, {0x1.6400000000096p+6, 0x1.9400000000097p+7}},
    {"equal ends: both distances along +x", {5, 5}, {5, 5}, 4, 3, {6, 5}},
    {"equal ends, behind", {5, 5}, {5, 5}, -4, 3, {4, 5}},
};

TEST(Squadro, Table)
{
    for (const SquadroRow& row : kSquadroRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        CalcPtSquadro(&row.a, &row.b, row.absc, row.ord, &got);
        EXPECT_POINT_ULP(got, row.want);
    }
}

TEST(Squadro, ResultMayBeAnEndOfTheBaseLine)
{
    for (const SquadroRow& row : kSquadroRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record a = row.a;
        CalcPtSquadro(&a, &row.b, row.absc, row.ord, &a);
        EXPECT_POINT_ULP(a, row.want);
        PL_PNT2D_record b = row.b;
        CalcPtSquadro(&row.a, &b, row.absc, row.ord, &b);
        EXPECT_POINT_ULP(b, row.want);
    }
}

TEST(Squadro, NanSpreads)
{
    const PL_PNT2D_record a = {0, 0};
    const PL_PNT2D_record b = {10, 0};
    PL_PNT2D_record got = kUntouchedPoint;
    CalcPtSquadro(&a, &b, kNan, 3, &got);
    EXPECT_POINT(got, ({kNan, kNan}));
    CalcPtSquadro(&a, &b, 4, kNan, &got);
    EXPECT_POINT(got, ({kNan, kNan}));
}

// -------------------------------------------------------------------------------------------------- polar set-out

struct PolarRow {
    const char* what;
    PL_PNT2D_record station;
    PL_PNT2D_record ref;
    double angle_gon;
    double dist;
    PL_PNT2D_record want;
};

// Bearings from North towards East: exact on the four axes.
const PolarRow kPolarRows[] = {
    {"towards a reference in the North", {100, 200}, {100, 260}, 0, 5, {100, 205}},
    {"towards a reference in the East", {100, 200}, {160, 200}, 0, 5, {105, 200}},
    {"towards a reference in the South", {100, 200}, {100, 140}, 0, 5, {100, 195}},
    {"towards a reference in the West", {100, 200}, {40, 200}, 0, 5, {95, 200}},
    {"clockwise: 100 gon from North is East", {100, 200}, {100, 260}, 100, 5, {105, 200}},
    {"100 gon from East is South", {100, 200}, {160, 200}, 100, 5, {100, 195}},
    {"anticlockwise: -100 gon from North is West", {100, 200}, {100, 260}, -100, 5, {95, 200}},
    {"past a full turn: 300 and 200 is East", {100, 200}, {40, 200}, 200, 5, {105, 200}},
    {"a whole turn more", {100, 200}, {160, 200}, 400, 5, {105, 200}},
    {"many turns back", {100, 200}, {160, 200}, -4000, 5, {105, 200}},
    {"a distance backwards", {100, 200}, {160, 200}, 0, -5, {95, 200}},
    {"no distance", {100, 200}, {160, 230}, 33, 0, {100, 200}},
    {"reference equal to station: oriented to the North", {100, 200}, {100, 200}, 0, 5, {100, 205}},
    {"reference equal to station, 100 gon", {100, 200}, {100, 200}, 100, 5, {105, 200}},
    {"1e-11 gon before North is North, 1000 km out", {0, 0}, {0, 10}, -1e-11, 0x1p+20, {0, 0x1p+20}},
    {"the reference's distance plays no part", {100, 200}, {100, 1e9}, 0, 5, {100, 205}},
    {"a 3-4-5 slope", {1000, 2000}, {1003, 2004}, 0, 5, {1003, 2004}},
    {"a 3-4-5 slope, quarter turn clockwise", {1000, 2000}, {1003, 2004}, 100, 5, {1004, 1997}},
    {"half a right angle", {0, 0}, {0, 10}, 50, 10, {0x1.c48c6001f0acp+2, 0x1.c48c6001f0acp+2}},
    {"three halves of a right angle", {0, 0}, {0, 10}, 150, 10, {0x1.c48c6001f0acp+2, -0x1.c48c6001f0acp+2}},
};

TEST(PtAngDist, Table)
{
    for (const PolarRow& row : kPolarRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        CalcPtAngDist(&row.station, &row.ref, row.angle_gon, row.dist, &got);
        EXPECT_POINT_ULP(got, row.want);
    }
}

TEST(PtAngDist, ResultMayBeTheStationOrTheReference)
{
    for (const PolarRow& row : kPolarRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record station = row.station;
        CalcPtAngDist(&station, &row.ref, row.angle_gon, row.dist, &station);
        EXPECT_POINT_ULP(station, row.want);
        PL_PNT2D_record ref = row.ref;
        CalcPtAngDist(&row.station, &ref, row.angle_gon, row.dist, &ref);
        EXPECT_POINT_ULP(ref, row.want);
    }
}

TEST(PtAngDist, NothingFiniteFromANonFiniteAngle)
{
    const PL_PNT2D_record station = {100, 200};
    const PL_PNT2D_record ref = {160, 200};
    for (const double angle_gon : {kNan, kInf, -kInf}) {
        PL_PNT2D_record got = kUntouchedPoint;
        CalcPtAngDist(&station, &ref, angle_gon, 5, &got);
        EXPECT_POINT(got, ({kNan, kNan}));
    }
}

// ------------------------------------------------------------------------------------------------------ properties

class RandomBase : public ::testing::Test {
protected:
    PL_PNT2D_record point() { return {coordinate_(random_), coordinate_(random_)}; }

    // A base line of at least a unit.
    void draw_base()
    {
        do {
            a_ = point();
            b_ = point();
        } while (std::hypot(b_.x - a_.x, b_.y - a_.y) < 1.0);
    }

    // Along and across the base, in long double: across is positive to the right.
    long double along(const PL_PNT2D_record& p) const { return (dx() * px(p) + dy() * py(p)) / length(); }
    long double across(const PL_PNT2D_record& p) const { return (dy() * px(p) - dx() * py(p)) / length(); }
    long double length() const { return std::hypot(dx(), dy()); }

    std::mt19937_64 random_ = test::random_source();
    std::uniform_real_distribution<double> coordinate_{-1000.0, 1000.0};
    std::uniform_real_distribution<double> angle_gon_{0.0, 400.0};
    PL_PNT2D_record a_ = {};
    PL_PNT2D_record b_ = {};

private:
    long double dx() const { return static_cast<long double>(b_.x) - a_.x; }
    long double dy() const { return static_cast<long double>(b_.y) - a_.y; }
    long double px(const PL_PNT2D_record& p) const { return static_cast<long double>(p.x) - a_.x; }
    long double py(const PL_PNT2D_record& p) const { return static_cast<long double>(p.y) - a_.y; }
};

constexpr int kRounds = 3000;

// Coordinates of 1000 over a base of 1, and the short degree: a few 1e-9 at 1000 from the base.
constexpr double kNear = 2e-8;

TEST_F(RandomBase, FootIsTheNearestPointAndTheSignTellsTheSide)
{
    for (int i = 0; i < kRounds; ++i) {
        draw_base();
        const PL_PNT2D_record p = point();
        PL_PNT2D_record foot = kUntouchedPoint;
        const double d = DistSegmDaPt(&a_, &b_, &p, &foot);
        // The foot's error grows with the coordinates over the length of the base.
        const double tol = kNear * (1.0 + 1000.0 / static_cast<double>(length()));
        ASSERT_NEAR(static_cast<double>(along(foot)), static_cast<double>(along(p)), tol);
        ASSERT_NEAR(static_cast<double>(across(foot)), 0.0, tol);
        if (std::fabs(across(p)) > 1e-3L) {
            ASSERT_NEAR(d, static_cast<double>(across(p)), tol);
        }
    }
}

TEST_F(RandomBase, AReversedBaseTurnsTheSigns)
{
    for (int i = 0; i < kRounds; ++i) {
        draw_base();
        const PL_PNT2D_record p = point();
        const PL_PNT2D_record q = point();
        if (std::fabs(across(p)) < 1e-3L || std::fabs(along(p) - along(q)) < 1e-3L)
            continue;
        PL_PNT2D_record foot = {};
        const double there = DistSegmDaPt(&a_, &b_, &p, &foot);
        const double back = DistSegmDaPt(&b_, &a_, &p, &foot);
        ASSERT_EQ(there > 0.0, back < 0.0);
        ASSERT_NEAR(there, -back, kNear * (1.0 + 1000.0 / static_cast<double>(length())));
        EXPECT_BITS(DistPtSuSegmDaPt(&a_, &b_, &p, &q), -DistPtSuSegmDaPt(&b_, &a_, &p, &q));
        ASSERT_EQ(DistPtSuSegmDaPt(&a_, &b_, &p, &q) > 0.0, along(q) > along(p));
    }
}

TEST_F(RandomBase, SquadroComesBackAsAbscissaAndOrdinate)
{
    for (int i = 0; i < kRounds; ++i) {
        draw_base();
        const double absc = coordinate_(random_);
        const double ord = coordinate_(random_);
        if (std::fabs(absc) < 1e-3 || std::fabs(ord) < 1e-3)
            continue;
        PL_PNT2D_record p = {};
        CalcPtSquadro(&a_, &b_, absc, ord, &p);
        PL_PNT2D_record foot = {};
        const double tol = kNear * (1.0 + 1000.0 / static_cast<double>(length()));
        ASSERT_NEAR(DistSegmDaPt(&a_, &b_, &p, &foot), absc >= 0.0 ? ord : -ord, tol);
        ASSERT_NEAR(DistPtSuSegmDaPt(&a_, &b_, &a_, &foot), absc, tol);
    }
}

TEST_F(RandomBase, PerpendicularFallsOnTheSegmentExactlyWhenThePointIsBesideIt)
{
    int met = 0;
    for (int i = 0; i < kRounds; ++i) {
        draw_base();
        const PL_PNT2D_record p = point();
        const long double t = along(p) / length();
        // The margins are below 1001e-7 here; a short or nearly axis-parallel base is left to the table.
        if (length() < 10.0L || std::fabs(t) < 1e-3L || std::fabs(t - 1.0L) < 1e-3L ||
            std::fmin(std::fabs(b_.x - a_.x), std::fabs(b_.y - a_.y)) < 1.0)
            continue;
        PL_PNT2D_record foot = kUntouchedPoint;
        ASSERT_EQ(IntersPerpDaPtInSegm(&a_, &b_, &p, &foot), t > 0.0L && t < 1.0L);
        ASSERT_NEAR(static_cast<double>(across(foot)), 0.0, 1e-6);
        ASSERT_NEAR(static_cast<double>(along(foot) - along(p)), 0.0, 1e-6);
        met += t > 0.0L && t < 1.0L ? 1 : 0;
    }
    EXPECT_GT(met, kRounds / 10);
}

TEST_F(RandomBase, DistanceFromALineIsUnsignedAndItsAnglePointsAwayFromTheLine)
{
    constexpr double kRadPerGon = 0.015707963267948967;
    for (int i = 0; i < kRounds; ++i) {
        draw_base();
        const PL_PNT2D_record p = point();
        if (std::fabs(across(p)) < 1e-2L)
            continue;
        PL_IMP_LINE_2D_record line = {};
        ASSERT_EQ(PlFunz_lineeq_ile(&a_, &b_, &line), 0);
        double dist = kUntouched;
        double angle_gon = kUntouched;
        CalcDistPuntoDaRetta(&line, &p, dist, angle_gon);
        const double tol = kNear * (1.0 + 1000.0 / static_cast<double>(length()));
        ASSERT_NEAR(dist, static_cast<double>(std::fabs(across(p))), tol);
        // Going back by the distance along the angle leads to the line.
        const PL_PNT2D_record back = {p.x - dist * std::cos(angle_gon * kRadPerGon),
                                      p.y - dist * std::sin(angle_gon * kRadPerGon)};
        ASSERT_NEAR(static_cast<double>(across(back)), 0.0, tol * (1.0 + dist));
        ASSERT_GE(angle_gon, 0.0);
        ASSERT_LE(angle_gon, 400.0);
    }
}

TEST_F(RandomBase, PolarSetOutHasItsAngleAndDistanceAndLeadsBack)
{
    std::uniform_real_distribution<double> distance(1.0, 1000.0);
    for (int i = 0; i < kRounds; ++i) {
        draw_base();
        const double angle_gon = angle_gon_(random_);
        const double dist = distance(random_);
        PL_PNT2D_record p = {};
        CalcPtAngDist(&a_, &b_, angle_gon, dist, &p);
        ASSERT_NEAR(std::hypot(p.x - a_.x, p.y - a_.y), dist, 1e-9);
        // Clockwise from the base: the ordinate is to the right for 0 to 200 gon.
        const double rad = angle_gon * 0.015707963267948967;
        ASSERT_NEAR(static_cast<double>(along(p)), dist * std::cos(rad), 1e-9);
        ASSERT_NEAR(static_cast<double>(across(p)), dist * std::sin(rad), 1e-9);
        PL_PNT2D_record home = {};
        CalcPtAngDist(&p, &a_, 0.0, dist, &home);
        ASSERT_NEAR(home.x, a_.x, 1e-9);
        ASSERT_NEAR(home.y, a_.y, 1e-9);
        CalcPtAngDist(&p, &a_, 200.0, -dist, &home);
        ASSERT_NEAR(home.x, a_.x, 1e-9);
        ASSERT_NEAR(home.y, a_.y, 1e-9);
    }
}

using plcalc::FeetOnLine;

TEST(FeetOnLine, OneLineManyPoints)
{
    const FeetOnLine feet({0.0, 10.0, -20.0});  // y = 2
    PL_PNT2D_record foot = {};
    ASSERT_TRUE(feet.find({3.0, 7.0}, foot));
    EXPECT_POINT(foot, (PL_PNT2D_record{3.0, 2.0}));
    ASSERT_TRUE(feet.find({-4.5, -1.0}, foot));
    EXPECT_POINT(foot, (PL_PNT2D_record{-4.5, 2.0}));
    ASSERT_TRUE(feet.find({8.0, 2.0}, foot));
    EXPECT_POINT(foot, (PL_PNT2D_record{8.0, 2.0}));
}

TEST(FeetOnLine, WithoutDirectionThereIsNone)
{
    const FeetOnLine feet({0.0, 0.0, 5.0});
    PL_PNT2D_record foot = {test::kUntouched, test::kUntouched};
    EXPECT_FALSE(feet.find({3.0, 7.0}, foot));
    EXPECT_POINT(foot, (PL_PNT2D_record{test::kUntouched, test::kUntouched}));
}

TEST(DirectionGon, AxesAndDiagonal)
{
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {5, 1}), 0.0);
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {1, 5}), 90.0 * 1.1111111111111112);
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {-5, 1}), 180.0 * 1.1111111111111112);
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {1, -5}), 270.0 * 1.1111111111111112);
    EXPECT_BITS(plcalc::direction_gon({1, 1}, {1, 1}), 0.0);
}

}  // namespace
