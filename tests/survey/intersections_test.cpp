#include <cmath>
#include <limits>
#include <random>
#include <utility>

#include "plcalc/lines.h"
#include "plcalc/survey.h"
#include "support/bits.h"

namespace {

using test::down;
using test::kUntouched;
using test::up;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kMargin = 0.001;
constexpr PL_PNT2D_record kUntouchedPoint = {kUntouched, kUntouched};

// -------------------------------------------------------------------------------------------------- ranges

struct RangeRow {
    const char* what;
    double val;
    double lim1;
    double lim2;
    bool want;
};

const RangeRow kRangeRows[] = {
    {"equal limits, on them", 5.0, 5.0, 5.0, true},
    {"between", 3.0, 2.0, 5.0, true},
    {"0.0005 below", 1.9995, 2.0, 5.0, true},
    {"0.0005 above", 5.0005, 2.0, 5.0, true},
    {"0.002 below", 1.998, 2.0, 5.0, false},
    {"0.002 above", 5.002, 2.0, 5.0, false},
    {"on the lower bound", 2.0 - kMargin, 2.0, 5.0, true},
    {"just below the lower bound", down(2.0 - kMargin), 2.0, 5.0, false},
    {"on the upper bound", 5.0 + kMargin, 2.0, 5.0, true},
    {"just above the upper bound", up(5.0 + kMargin), 2.0, 5.0, false},
    {"equal limits, on the lower bound", 5.0 - kMargin, 5.0, 5.0, true},
    {"equal limits, just below", down(5.0 - kMargin), 5.0, 5.0, false},
    {"equal limits, on the upper bound", 5.0 + kMargin, 5.0, 5.0, true},
    {"equal limits, just above", up(5.0 + kMargin), 5.0, 5.0, false},
    {"negative limits", -5.0 - kMargin, -5.0, -2.0, true},
    {"negative limits, just below", down(-5.0 - kMargin), -5.0, -2.0, false},
    {"the margin does not grow with the numbers", 5000000.0011, 5000000.0, 5000000.0, false},
    {"at large numbers, inside", 5000000.0009, 5000000.0, 5000000.0, true},
    {"the margin does not shrink with the numbers", -0.001, 0.0, 1e-9, true},
    {"a NaN value", kNan, 2.0, 5.0, false},
    {"a NaN limit", 3.0, kNan, 5.0, false},
    {"unlimited", 3.0, -kInf, kInf, true},
};

TEST(TrovatoVal, TableInEitherOrderOfTheLimits)
{
    for (const RangeRow& row : kRangeRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(TrovatoValNeiLimiti(row.val, row.lim1, row.lim2), row.want);
        EXPECT_EQ(TrovatoValNeiLimiti(row.val, row.lim2, row.lim1), row.want);
    }
}

struct InBoxRow {
    const char* what;
    PL_PNT2D_record pt;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    bool want;
};

const InBoxRow kInBoxRows[] = {
    {"in the box, off the segment's line", {2, 5}, {1, 2}, {4, 6}, true},
    {"vertical segment, x 0.0009 aside", {3.0009, 5}, {3, 2}, {3, 6}, true},
    {"vertical segment, x 0.0011 aside", {3.0011, 5}, {3, 2}, {3, 6}, false},
    {"West, on the margin", {1 - kMargin, 3}, {1, 2}, {4, 6}, true},
    {"West, just outside", {down(1 - kMargin), 3}, {1, 2}, {4, 6}, false},
    {"East, on the margin", {4 + kMargin, 3}, {1, 2}, {4, 6}, true},
    {"East, just outside", {up(4 + kMargin), 3}, {1, 2}, {4, 6}, false},
    {"South, on the margin", {2, 2 - kMargin}, {1, 2}, {4, 6}, true},
    {"South, just outside", {2, down(2 - kMargin)}, {1, 2}, {4, 6}, false},
    {"North, on the margin", {2, 6 + kMargin}, {1, 2}, {4, 6}, true},
    {"North, just outside", {2, up(6 + kMargin)}, {1, 2}, {4, 6}, false},
    {"x in the range of y only", {5, 5}, {1, 2}, {4, 6}, false},
    {"y in the range of x only", {3, 1}, {1, 2}, {4, 6}, false},
    {"a NaN", {3, kNan}, {1, 2}, {4, 6}, false},
};

TEST(TrovatoPunto, TableInEitherOrderOfTheEnds)
{
    for (const InBoxRow& row : kInBoxRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(TrovatoPuntoInSegmento(row.pt, row.a, row.b), row.want);
        EXPECT_EQ(TrovatoPuntoInSegmento(row.pt, row.b, row.a), row.want);
    }
}

// ------------------------------------------------------------------------------------------- line with line

TEST(RetteByLine, MeetsWithItsBitsAndLeavesTheResultAloneOtherwise)
{
    PL_PNT2D_record out = kUntouchedPoint;
    EXPECT_TRUE(CalcoloIntersezioneRette({1, 0, -1}, {0, 1, -2}, out));
    EXPECT_POINT(out, ({1, 2}));
    // The order of the two lines shows in the sign of a zero.
    EXPECT_TRUE(CalcoloIntersezioneRette({1, 0, 0}, {0, 1, 0}, out));
    EXPECT_POINT(out, ({0, 0}));
    EXPECT_TRUE(CalcoloIntersezioneRette({0, 1, 0}, {1, 0, 0}, out));
    EXPECT_POINT(out, ({-0.0, -0.0}));
    out = kUntouchedPoint;
    EXPECT_FALSE(CalcoloIntersezioneRette({1, 2, 3}, {2, 4, 7}, out));
    EXPECT_POINT(out, (kUntouchedPoint));
}

struct FourPointsRow {
    const char* what;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    PL_PNT2D_record p3;
    PL_PNT2D_record p4;
    bool met;
    PL_PNT2D_record want;
};

const FourPointsRow kRetteRows[] = {
    {"between the points", {0, 0}, {2, 0}, {1, -1}, {1, 1}, true, {1, 0}},
    {"beyond the points", {0, 0}, {1, 0}, {4, 3}, {4, 5}, true, {4, 0}},
    {"last bits, through implicit lines",
     {64.53, 21.23},
     {41.21, 9.3},
     {82.73, 68.73},
     {28.37, 23.79},
     true,
     {-0x1.33a348f21cf76p+5, -0x1.f7468f0e849dfp+4}},
    {"parallel: the first point", {3, 4}, {5, 4}, {0, 1}, {5, 1}, false, {3, 4}},
    {"the same line: the first point", {1, 2}, {3, 6}, {2, 4}, {4, 8}, false, {1, 2}},
    {"determinant on PL_EPS counts as parallel", {7, 0}, {8, 0}, {0, 0}, {1, 1e-7}, false, {7, 0}},
    {"determinant just above: they meet at the origin", {7, 0}, {8, 0}, {0, 0}, {1, up(1e-7)}, true, {0, 0}},
    {"first pair equal: a line of zeros meets nothing", {3, 4}, {3, 4}, {0, 1}, {5, 9}, false, {3, 4}},
    {"second pair equal", {3, 4}, {5, 5}, {0, 1}, {0, 1}, false, {3, 4}},
    {"second pair within PL_EPS", {0, 4}, {1e9, 4}, {0, 0}, {0, 1e-7}, false, {0, 4}},
    {"second pair just outside, the first line long", {0, 4}, {1e9, 4}, {0, 0}, {0, up(1e-7)}, true, {0, 4}},
};

TEST(Rette, Table)
{
    for (const FourPointsRow& row : kRetteRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        EXPECT_EQ(CalcoloIntersezioneRette(row.p1.x, row.p1.y, row.p2.x, row.p2.y, row.p3.x, row.p3.y,
                                           row.p4.x, row.p4.y, got.x, got.y),
                  row.met);
        EXPECT_POINT(got, (row.want));
    }
}

const FourPointsRow kExtRows[] = {
    {"between the points", {0, 0}, {2, 0}, {1, -1}, {1, 1}, true, {1, 0}},
    {"beyond the points", {0, 0}, {1, 0}, {4, 3}, {4, 5}, true, {4, 0}},
    {"behind the points", {0, 0}, {1, 0}, {-4, 3}, {-4, 5}, true, {-4, 0}},
    {"last bits: one quotient, then along the first line",
     {64.53, 21.23},
     {41.21, 9.3},
     {82.73, 68.73},
     {28.37, 23.79},
     true,
     {-0x1.33a348f21cf7p+5, -0x1.f7468f0e849d7p+4}},
    {"the pairs swapped: along the other line, other bits",
     {82.73, 68.73},
     {28.37, 23.79},
     {64.53, 21.23},
     {41.21, 9.3},
     true,
     {-0x1.33a348f21cf72p+5, -0x1.f7468f0e849dcp+4}},
    {"the same line: the second point", {0, 0}, {3, 6}, {1, 2}, {2, 4}, true, {3, 6}},
    {"the same line: difference plus start, which rounds past the second point",
     {91.59, 5},
     {15.4, 5},
     {3, 5},
     {9, 5},
     true,
     {0x1.eccccccccccdp+3, 5}},
    {"the same vertical line: likewise",
     {5, 91.59},
     {5, 15.4},
     {5, 3},
     {5, 9},
     true,
     {5, 0x1.eccccccccccdp+3}},
    {"parallel: untouched", {0, 0}, {1, 0}, {0, 1}, {5, 1}, false, kUntouchedPoint},
    {"parallel, the smallest distance apart",
     {0, 0},
     {1, 0},
     {0, 5e-324},
     {1, 5e-324},
     false,
     kUntouchedPoint},
    {"almost parallel, where the implicit form gives up", {0, 0}, {1, 0}, {0, 1e-9}, {1, 0}, true, {1, 0}},
    {"almost parallel to the last subnormal", {0, 0}, {1, 0}, {0, 5e-324}, {1, 0}, true, {1, 0}},
    {"tiny first pair", {0, 0}, {0x1p-600, 0}, {0, 1}, {0, 2}, true, {0, 0}},
    {"first pair equal: parallel to anything, through it", {2, 3}, {2, 3}, {7, 8}, {9, 1}, true, {2, 3}},
    {"second pair equal, on the first line: the second point", {0, 0}, {2, 2}, {1, 1}, {1, 1}, true, {2, 2}},
    {"second pair equal, off the first line", {0, 0}, {2, 2}, {1, 2}, {1, 2}, false, kUntouchedPoint},
    {"a NaN is not parallel", {kNan, 0}, {1, 0}, {0, 1}, {5, 2}, true, {kNan, kNan}},
    {"parallel, then a NaN: not the same", {0, 0}, {0, 0}, {kInf, 0}, {1, 0}, true, {kNan, kNan}},
};

TEST(RetteExt, Table)
{
    for (const FourPointsRow& row : kExtRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        EXPECT_EQ(CalcoloIntersezioneRetteExt(row.p1.x, row.p1.y, row.p2.x, row.p2.y, row.p3.x, row.p3.y,
                                              row.p4.x, row.p4.y, got.x, got.y),
                  row.met);
        EXPECT_POINT(got, (row.want));
    }
}

struct OrdinateRow {
    const char* what;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    double x;
    double want;
};

const OrdinateRow kOrdinateRows[] = {
    {"between", {0, 0}, {10, 5}, 4, 2},
    {"beyond", {0, 0}, {10, 5}, 20, 10},
    {"behind", {0, 0}, {10, 5}, -4, -2},
    {"the points swapped", {10, 5}, {0, 0}, 4, 2},
    {"vertical: 0.0, no ordinate", {1, 1}, {1, 5}, 1, 0.0},
    {"vertical to PL_EPS", {0, 1}, {1e-7, 5}, 0, 0.0},
    {"just not vertical", {0, 1}, {up(1e-7), 5}, 0, 1},
    {"equal points: 0.0", {3, 3}, {3, 3}, 9, 0.0},
    {"site coordinates, last bits, through the implicit line",
     {500393.23, 5000157.52},
     {500401.15, 5000477.5},
     500935.71,
     0x1.3285ea22c9786p+22},
    {"a NaN abscissa", {0, 0}, {10, 5}, kNan, kNan},
};

TEST(CalcCoordY, Table)
{
    for (const OrdinateRow& row : kOrdinateRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(CalcCoordYsuSegmento(row.p1.x, row.p1.y, row.p2.x, row.p2.y, row.x), row.want);
    }
}

// --------------------------------------------------------------------------------------- line with segment

struct LineInSegmRow {
    const char* what;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    PL_IMP_LINE_2D_record line;
    bool met;
    PL_PNT2D_record want;
};

// The segment's line comes first into the intersection: y = 0 then comes out as -0.0 against x = const.
const LineInSegmRow kLineInSegmRows[] = {
    {"across the middle", {0, 0}, {1, 0}, {1, 0, -0.5}, true, {0.5, -0.0}},
    {"through the start, both zeros negative: the segment's line is the first",
     {0, 0},
     {1, 0},
     {1, 0, 0},
     true,
     {-0.0, -0.0}},
    {"0.0005 beyond the end", {0, 0}, {1, 0}, {1, 0, -1.0005}, true, {1.0005, -0.0}},
    {"0.0005 before the start", {0, 0}, {1, 0}, {1, 0, 0.0005}, true, {-0.0005, -0.0}},
    {"on the margin beyond the end", {0, 0}, {1, 0}, {1, 0, -(1 + kMargin)}, true, {1 + kMargin, -0.0}},
    {"just outside it", {0, 0}, {1, 0}, {1, 0, -up(1 + kMargin)}, false, {up(1 + kMargin), -0.0}},
    {"on the margin before the start", {0, 0}, {1, 0}, {1, 0, kMargin}, true, {-kMargin, -0.0}},
    {"just outside it, at the start", {0, 0}, {1, 0}, {1, 0, up(kMargin)}, false, {-up(kMargin), -0.0}},
    {"vertical segment, just outside", {0, 0}, {0, 1}, {0, 1, -up(1 + kMargin)}, false, {0, up(1 + kMargin)}},
    {"vertical segment, on the margin", {0, 0}, {0, 1}, {0, 1, -(1 + kMargin)}, true, {0, 1 + kMargin}},
    {"far outside: the meeting point is written all the same",
     {0, 0},
     {1, 0},
     {1, 0, -50},
     false,
     {50, -0.0}},
    {"parallel: untouched", {0, 0}, {1, 0}, {0, 1, -5}, false, kUntouchedPoint},
    {"along it: untouched", {0, 0}, {1, 0}, {0, 1, 0}, false, kUntouchedPoint},
    {"segment without length: untouched", {3, 4}, {3, 4}, {1, 0, -3}, false, kUntouchedPoint},
    {"a segment just longer than PL_EPS, a long normal",
     {0, 0},
     {up(1e-7), 0},
     {0x1p+30, 0, 0},
     true,
     {-0.0, -0.0}},
    {"a line of zeros: untouched", {0, 0}, {1, 0}, {0, 0, 0}, false, kUntouchedPoint},
    {"a NaN line: written, and nowhere", {0, 0}, {1, 0}, {kNan, 0, 0}, false, {kNan, kNan}},
};

TEST(LineaInSegm, Table)
{
    for (const LineInSegmRow& row : kLineInSegmRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        EXPECT_EQ(IntersezLineaInSegmOK(row.a, row.b, row.line, got), row.met);
        EXPECT_POINT(got, (row.want));
    }
}

// ------------------------------------------------------------------------------------------ trim and extend

struct CimaRow {
    const char* what;
    PL_LINE_2D_record s1;
    PL_LINE_2D_record s2;
    bool met;
    PL_LINE_2D_record want1;
    PL_LINE_2D_record want2;
};

const CimaRow kCimaRows[] = {
    {"extended to the corner, ends b",
     {{0, 0}, {2, 0}},
     {{4, 5}, {4, 1}},
     true,
     {{0, 0}, {4, -0.0}},
     {{4, 5}, {4, -0.0}}},
    {"extended to the corner, ends a",
     {{2, 0}, {0, 0}},
     {{4, 1}, {4, 5}},
     true,
     {{4, -0.0}, {0, 0}},
     {{4, -0.0}, {4, 5}}},
    {"trimmed: the short leg goes",
     {{0, 0}, {5, 0}},
     {{4, -1}, {4, 5}},
     true,
     {{0, 0}, {4, 0}},
     {{4, 0}, {4, 5}}},
    {"midway on the first: b moves",
     {{0, 0}, {4, 0}},
     {{2, 1}, {2, 5}},
     true,
     {{0, 0}, {2, 0}},
     {{2, 0}, {2, 5}}},
    {"midway on the second: b moves",
     {{1, 0}, {5, 0}},
     {{0, -2}, {0, 2}},
     true,
     {{0, 0}, {5, 0}},
     {{0, -2}, {0, 0}}},
    {"the last bit before midway: a moves",
     {{0, 0}, {up(4), 0}},
     {{2, 1}, {2, 5}},
     true,
     {{2, 0}, {up(4), 0}},
     {{2, 0}, {2, 5}}},
    {"squares a unit apart, roots equal: the squares tell",
     {{6.9, 4.7}, {1.2, 1.4}},
     {{0.7499999999999996, 8.75}, {-2.5500000000000007, 14.45}},
     true,
     {{0x1.0333333333333p+2, 0x1.8666666666668p+1}, {1.2, 1.4}},
     {{0x1.0333333333333p+2, 0x1.8666666666668p+1}, {-2.5500000000000007, 14.45}}},
    {"parallel: nothing moves",
     {{0, 0}, {2, 0}},
     {{0, 1}, {2, 1}},
     false,
     {{0, 0}, {2, 0}},
     {{0, 1}, {2, 1}}},
    {"in one line: nothing moves",
     {{0, 0}, {2, 0}},
     {{3, 0}, {4, 0}},
     false,
     {{0, 0}, {2, 0}},
     {{3, 0}, {4, 0}}},
    {"first without length: nothing moves",
     {{1, 1}, {1, 1}},
     {{0, 3}, {2, 4}},
     false,
     {{1, 1}, {1, 1}},
     {{0, 3}, {2, 4}}},
    {"second without length: nothing moves",
     {{0, 3}, {2, 4}},
     {{1, 1}, {1, 1}},
     false,
     {{0, 3}, {2, 4}},
     {{1, 1}, {1, 1}}},
    {"a NaN is never nearer: both ends b",
     {{kNan, 0}, {2, 0}},
     {{4, 5}, {4, 1}},
     true,
     {{kNan, 0}, {kNan, kNan}},
     {{4, 5}, {kNan, kNan}}},
};

TEST(Cima, Table)
{
    for (const CimaRow& row : kCimaRows) {
        SCOPED_TRACE(row.what);
        PL_LINE_2D_record s1 = row.s1;
        PL_LINE_2D_record s2 = row.s2;
        EXPECT_EQ(CimaSegm(&s1.start, &s1.end, &s2.start, &s2.end), row.met);
        EXPECT_POINT(s1.start, (row.want1.start));
        EXPECT_POINT(s1.end, (row.want1.end));
        EXPECT_POINT(s2.start, (row.want2.start));
        EXPECT_POINT(s2.end, (row.want2.end));
    }
}

// Both lines pass through the shared record, so they meet there; rounding puts the meeting point a unit beside
// it, and the shared record, the nearer end of both, moves by that unit.
constexpr PL_PNT2D_record kFarEnd1 = {8.1, 0.7};
constexpr PL_PNT2D_record kCorner = {5.0, 5.5};
constexpr PL_PNT2D_record kFarEnd2 = {0.4, 3.4};
constexpr PL_PNT2D_record kMeeting = {0x1.4000000000001p+2, 0x1.6000000000001p+2};

TEST(Cima, EndOfOneAndStartOfTheOtherMayBeOneRecord)
{
    PL_PNT2D_record a1 = kFarEnd1;
    PL_PNT2D_record shared = kCorner;
    PL_PNT2D_record b2 = kFarEnd2;
    ASSERT_TRUE(CimaSegm(&a1, &shared, &shared, &b2));
    EXPECT_POINT(a1, (kFarEnd1));
    EXPECT_POINT(shared, (kMeeting));
    EXPECT_POINT(b2, (kFarEnd2));
}

TEST(Cima, BothEndsMayBeOneRecord)
{
    PL_PNT2D_record a1 = kFarEnd1;
    PL_PNT2D_record shared = kCorner;
    PL_PNT2D_record a2 = kFarEnd2;
    ASSERT_TRUE(CimaSegm(&a1, &shared, &a2, &shared));
    EXPECT_POINT(a1, (kFarEnd1));
    EXPECT_POINT(shared, (kMeeting));
    EXPECT_POINT(a2, (kFarEnd2));
}

// ----------------------------------------------------------------------------------------------- properties

class RandomPairs : public ::testing::Test {
protected:
    PL_PNT2D_record point() { return {coordinate_(random_), coordinate_(random_)}; }

    std::mt19937_64 random_ = test::random_source();
    std::uniform_real_distribution<double> coordinate_{-100.0, 100.0};
};

long double doubled_area(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    return (static_cast<long double>(b.x) - a.x) * (static_cast<long double>(p.y) - a.y) -
           (static_cast<long double>(b.y) - a.y) * (static_cast<long double>(p.x) - a.x);
}

double length(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

double off_line(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    return static_cast<double>(std::fabs(doubled_area(a, b, p))) / length(a, b);
}

// Sides longer than 1 at an angle whose sine is above 0.01: the meeting point is then good to 1e-8.
bool well_conditioned(const PL_PNT2D_record& a1, const PL_PNT2D_record& b1, const PL_PNT2D_record& a2,
                      const PL_PNT2D_record& b2)
{
    const double l1 = length(a1, b1);
    const double l2 = length(a2, b2);
    const double cross = (b1.x - a1.x) * (b2.y - a2.y) - (b1.y - a1.y) * (b2.x - a2.x);
    return l1 > 1.0 && l2 > 1.0 && std::fabs(cross) > 0.01 * l1 * l2;
}

constexpr int kRounds = 4000;

TEST_F(RandomPairs, BothFormsOfTheIntersectionLieOnBothLines)
{
    int checked = 0;
    for (int i = 0; i < kRounds; ++i) {
        const PL_PNT2D_record p[] = {point(), point(), point(), point()};
        if (!well_conditioned(p[0], p[1], p[2], p[3]))
            continue;
        PL_PNT2D_record x = {};
        PL_PNT2D_record y = {};
        ASSERT_TRUE(CalcoloIntersezioneRette(p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y, p[3].x, p[3].y,
                                             x.x, x.y));
        ASSERT_TRUE(CalcoloIntersezioneRetteExt(p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y, p[3].x,
                                                p[3].y, y.x, y.y));
        ASSERT_LT(off_line(p[0], p[1], x), 1e-7);
        ASSERT_LT(off_line(p[2], p[3], x), 1e-7);
        ASSERT_LT(off_line(p[0], p[1], y), 1e-7);
        ASSERT_LT(off_line(p[2], p[3], y), 1e-7);
        ++checked;
    }
    EXPECT_GT(checked, kRounds / 2);
}

TEST_F(RandomPairs, TheOrdinateIsOnTheLine)
{
    for (int i = 0; i < kRounds; ++i) {
        const PL_PNT2D_record a = point();
        const PL_PNT2D_record b = point();
        if (std::fabs(b.x - a.x) < 0.1)
            continue;
        const double x = coordinate_(random_);
        const PL_PNT2D_record p = {x, CalcCoordYsuSegmento(a.x, a.y, b.x, b.y, x)};
        ASSERT_LT(off_line(a, b, p), 1e-9);
    }
}

TEST_F(RandomPairs, TrimmingMovesTheNearerEndOfEachOntoBothLines)
{
    int checked = 0;
    for (int i = 0; i < kRounds; ++i) {
        const PL_LINE_2D_record s1 = {point(), point()};
        const PL_LINE_2D_record s2 = {point(), point()};
        if (!well_conditioned(s1.start, s1.end, s2.start, s2.end))
            continue;
        PL_LINE_2D_record t1 = s1;
        PL_LINE_2D_record t2 = s2;
        ASSERT_TRUE(CimaSegm(&t1.start, &t1.end, &t2.start, &t2.end));
        for (const auto& pair : {std::make_pair(s1, t1), std::make_pair(s2, t2)}) {
            const PL_LINE_2D_record& before = pair.first;
            const PL_LINE_2D_record& after = pair.second;
            const bool start_moved = !(after.start.x == before.start.x && after.start.y == before.start.y);
            const bool end_moved = !(after.end.x == before.end.x && after.end.y == before.end.y);
            ASSERT_NE(start_moved, end_moved);
            const PL_PNT2D_record& meeting = start_moved ? after.start : after.end;
            ASSERT_LT(off_line(s1.start, s1.end, meeting), 1e-7);
            ASSERT_LT(off_line(s2.start, s2.end, meeting), 1e-7);
            const double from_start = length(before.start, meeting);
            const double from_end = length(before.end, meeting);
            ASSERT_TRUE(start_moved ? from_start <= from_end + 1e-9 : from_end <= from_start + 1e-9);
        }
        ++checked;
    }
    EXPECT_GT(checked, kRounds / 2);
}

TEST_F(RandomPairs, ALineCutsASegmentExactlyWhenItSeparatesItsEnds)
{
    int met = 0;
    for (int i = 0; i < kRounds; ++i) {
        const PL_PNT2D_record p[] = {point(), point(), point(), point()};
        if (!well_conditioned(p[0], p[1], p[2], p[3]))
            continue;
        // An end nearer to the line than 0.2 is a matter of the margin of 0.001 along the segment.
        const double from_a = static_cast<double>(doubled_area(p[2], p[3], p[0])) / length(p[2], p[3]);
        const double from_b = static_cast<double>(doubled_area(p[2], p[3], p[1])) / length(p[2], p[3]);
        if (std::fmin(std::fabs(from_a), std::fabs(from_b)) < 0.2)
            continue;
        PL_IMP_LINE_2D_record line = {};
        ASSERT_EQ(PlFunz_lineeq_ile(&p[2], &p[3], &line), 0);
        PL_PNT2D_record out = kUntouchedPoint;
        const bool separated = (from_a < 0) != (from_b < 0);
        ASSERT_EQ(IntersezLineaInSegmOK(p[0], p[1], line, out), separated);
        ASSERT_LT(off_line(p[0], p[1], out), 1e-7);
        ASSERT_LT(off_line(p[2], p[3], out), 1e-7);
        met += separated ? 1 : 0;
    }
    EXPECT_GT(met, kRounds / 5);
}

}  // namespace
