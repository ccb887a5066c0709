#include <cmath>
#include <limits>
#include <random>

#include "plcalc/lines.h"
#include "support/bits.h"

namespace {

using test::down;
using test::kUntouched;
using test::up;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr PL_PNT2D_record kUntouchedPoint = {kUntouched, kUntouched};

// --------------------------------------------------------------------------------------- line with line

struct LinesRow {
    const char* what;
    PL_IMP_LINE_2D_record l1;
    PL_IMP_LINE_2D_record l2;
    bool met;
    PL_PNT2D_record want;
};

const LinesRow kLinesRows[] = {
    {"x = 1 and y = 2", {1, 0, -1}, {0, 1, -2}, true, {1, 2}},
    {"y = 2 and x = 1", {0, 1, -2}, {1, 0, -1}, true, {1, 2}},
    {"a line with itself", {1, 0, -1}, {1, 0, -1}, false, kUntouchedPoint},
    {"the same line at another scale: determinant 0", {1, 2, 3}, {2, 4, 6}, false, kUntouchedPoint},
    {"parallel", {1, 2, 3}, {1, 2, 5}, false, kUntouchedPoint},
    {"lines of zeros meet nothing", {0, 0, 0}, {1, 0, -1}, false, kUntouchedPoint},

    // Coefficients near each other, although the determinant is 1000 times the tolerance.
    {"b differs by PL_EPS: the same line", {1000, 0, 0}, {1000, 1e-7, 0}, false, kUntouchedPoint},
    {"b differs by -PL_EPS: the same line", {1000, 0, 0}, {1000, -1e-7, 0}, false, kUntouchedPoint},
    {"b differs by just more", {1000, 0, 0}, {1000, up(1e-7), 0}, true, {0, 0}},
    {"b and c differ by PL_EPS: the same line", {1000, 0, 0}, {1000, 1e-7, 1e-7}, false, kUntouchedPoint},
    {"c differs by just more", {1000, 0, 0}, {1000, 1e-7, up(1e-7)}, true, {0, -1}},
    {"a differs by PL_EPS: the same line", {0, 1000, 0}, {1e-7, 1000, 0}, false, kUntouchedPoint},
    {"a differs by just more", {0, 1000, 0}, {up(1e-7), 1000, 0}, true, {-0.0, -0.0}},
    {"a differs by -PL_EPS: the same line", {0, 1000, 0}, {-1e-7, 1000, 0}, false, kUntouchedPoint},
    {"a near, b equal, c far", {0, 1000, 0}, {1e-7, 1000, 1}, true, {-0x1.312dp+23, -0.0}},

    {"a and b near, c opposite: its difference counts", {1000, 0, -5}, {1000, 1e-7, 5}, true, {5e-3, -1e8}},
    {"a and b near, c equal: the same line", {1000, 0, 5}, {1000, 1e-7, 5}, false, kUntouchedPoint},

    {"determinant on PL_EPS", {1, 0, -1}, {0, 1e-7, -1}, false, kUntouchedPoint},
    {"determinant on -PL_EPS", {0, 1e-7, -1}, {1, 0, -1}, false, kUntouchedPoint},
    {"determinant just above PL_EPS", {1, 0, -1}, {0, up(1e-7), -1}, true, {1, 0x1.312dp+23}},
    {"determinant just below -PL_EPS", {0, up(1e-7), -1}, {1, 0, -1}, true, {1, 0x1.312dp+23}},

    {"times the inverse, not over the determinant: a unit less",
     {3, 0, -5},
     {0, 1, -2},
     true,
     {0x1.aaaaaaaaaaaaap+0, 2}},
    {"small coordinates are not snapped to zero", {1, 0, -5e-8}, {0, 1, -0x1p-30}, true, {5e-8, 0x1p-30}},
    {"positive determinant: the origin is +0.0", {1, 0, 0}, {0, 1, 0}, true, {0, 0}},
    {"negative determinant: the origin is -0.0", {0, 1, 0}, {1, 0, 0}, true, {-0.0, -0.0}},
    {"site coordinates: never fused",
     {-0x1.0170a3d71p+6, -0x1.5628f5c28f8p+7, 0x1.a741223a63p+29},
     {0x1.f375c28f6p+7, 0x1.68533333334p+9, -0x1.bc7ed3af574p+31},
     true,
     {0x1.d70fabf725efp+18, 0x1.31991d241fedp+22}},
    {"a NaN is neither parallel nor the same", {kNan, 0, 0}, {0, 1, -2}, true, {kNan, kNan}},
    {"an infinite determinant has the inverse 0", {kInf, 0, 0}, {0, 1, -2}, true, {-0.0, kNan}},
};

TEST(IntersectIle, Table)
{
    for (const LinesRow& row : kLinesRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        EXPECT_EQ(PlFunz_intersect_ile(&row.l1, &row.l2, &got), row.met);
        EXPECT_POINT(got, (row.want));
    }
}

// ------------------------------------------------------------------------------------- line with segment

struct LineSegmentRow {
    const char* what;
    PL_IMP_LINE_2D_record line;
    PL_LINE_2D_record seg;
    bool met;
    PL_PNT2D_record want;
};

// 500000 and its margin of 0.0500001: from here on a start counts as to the right of the end.
const double kMarginEast = 500000.0 + (500000.0 + 1.0) * 1e-7;

const LineSegmentRow kLineSegmentRows[] = {
    {"x = 1 through the middle", {1, 0, -1}, {{0, 0}, {2, 4}}, true, {1, 2}},
    {"x = 1 through the middle, segment right to left", {1, 0, -1}, {{2, 4}, {0, 0}}, true, {1, 2}},
    {"outside: false, and the meeting point is written all the same",
     {0, 1, 0},
     {{0, 1}, {1, 2}},
     false,
     {-1, 0}},
    {"at the start", {1, 0, 0}, {{0, 0}, {2, 4}}, true, {0, -0.0}},
    {"at the end", {1, 0, -2}, {{0, 0}, {2, 4}}, true, {2, 4}},
    {"beyond the end, on 1 + 2e-7", {1, 0, -(1 + 2e-7)}, {{0, 0}, {1, 0}}, true, {1 + 2e-7, 0}},
    {"beyond the end, just outside", {1, 0, -up(1 + 2e-7)}, {{0, 0}, {1, 0}}, false, {up(1 + 2e-7), 0}},
    {"before the start, on -1e-7", {1, 0, 1e-7}, {{0, 0}, {1, 0}}, true, {-1e-7, -0.0}},
    {"before the start, just outside", {1, 0, up(1e-7)}, {{0, 0}, {1, 0}}, false, {down(-1e-7), -0.0}},
    {"parallel to the segment", {0, 1, -3}, {{0, 1}, {5, 1}}, false, kUntouchedPoint},
    {"along the segment, the same coefficients", {0, 5, -5}, {{0, 1}, {5, 1}}, false, kUntouchedPoint},
    {"along the segment, at another scale", {0, 1, -1}, {{0, 1}, {5, 1}}, false, kUntouchedPoint},

    {"segment without length, on the line", {1, -1, 0}, {{2, 2}, {2, 2}}, true, {2, 2}},
    {"segment without length, 1e-12 off the line", {1, -1, 1e-12}, {{2, 2}, {2, 2}}, false, kUntouchedPoint},
    {"segment without length, the last bit off", {1, 0, -up(2)}, {{2, 2}, {2, 2}}, false, kUntouchedPoint},
    {"without length, ends 1e-7 apart: the start counts", {1, 0, 0}, {{0, 3}, {1e-7, 3}}, true, {0, 3}},
    {"without length: the end on the line is not enough",
     {1, 0, -1e-7},
     {{0, 3}, {1e-7, 3}},
     false,
     kUntouchedPoint},
    {"ends just further apart: a segment",
     {1, 0, 0},
     {{0, 3}, {up(1e-7), 3}},
     true,
     {-0.0, 0x1.8000000000001p+1}},
    {"the same, and half the normal: parallel", {0.5, 0, 0}, {{0, 3}, {up(1e-7), 3}}, false, kUntouchedPoint},
    {"without length: a and b not confused", {2, 5, -16}, {{3, 2}, {3, 2}}, true, {3, 2}},
    {"without length: a and b not confused, off", {5, 2, -16}, {{3, 2}, {3, 2}}, false, kUntouchedPoint},
    {"without length: c with its sign", {2, 5, 16}, {{3, 2}, {3, 2}}, false, kUntouchedPoint},
    {"without length, at the origin: -0.0 equals 0.0", {1, 1, 0}, {{0, 0}, {0, 0}}, true, {0, 0}},
    {"a line of zeros holds any point", {0, 0, 0}, {{3, 2}, {3, 2}}, true, {3, 2}},

    // Half a metre is a near-tie of y at five million metres: the box then has its y from the end alone. The
    // meeting point is 0.75 North of one end and 0.25 North of the other.
    {"right to left: turned round, the southern end rules, out of reach",
     {0, 1, -5000000.75},
     {{500000.0625, 5000000}, {500000, 5000000.5}},
     false,
     {499999.96875, 5000000.75}},
    {"left to right to the southern end: out of reach",
     {0, 1, -5000000.75},
     {{500000, 5000000.5}, {500000.0625, 5000000}},
     false,
     {499999.96875, 5000000.75}},
    {"right to left by less than the margin of x: not turned, the northern end rules",
     {0, 1, -5000000.75},
     {{500000.03125, 5000000}, {500000, 5000000.5}},
     true,
     {499999.984375, 5000000.75}},
    {"right to left by exactly the margin of the end's x: not turned",
     {0, 1, -5000000.75},
     {{kMarginEast, 5000000}, {500000, 5000000.5}},
     true,
     {0x1.e847fe64faea2p+18, 5000000.75}},
    {"right to left by just more: turned",
     {0, 1, -5000000.75},
     {{up(kMarginEast), 5000000}, {500000, 5000000.5}},
     false,
     {0x1.e847fe6b71821p+18, 5000000.75}},
    {"centimetre coordinates, turned round: out of reach",
     {-20, 10, -0x1.312d03535p+25},
     {{500000.0797, 5000000}, {500000, 5000000.4134}},
     false,
     {0x1.e847fdbbd2abcp+18, 0x1.312d026087225p+22}},

    {"a NaN in the line", {kNan, 0, 0}, {{0, 0}, {1, 0}}, false, {kNan, kNan}},
    {"a NaN in the segment", {1, 0, -0.5}, {{0, kNan}, {1, 0}}, false, {kNan, kNan}},
    {"a NaN point without length has length", {1, 0, 0}, {{kNan, 0}, {kNan, 0}}, false, {kNan, kNan}},
};

TEST(IntersectIls, Table)
{
    for (const LineSegmentRow& row : kLineSegmentRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        EXPECT_EQ(PlFunz_intersect_ils(&row.line, &row.seg, &got), row.met);
        EXPECT_POINT(got, (row.want));
    }
}

TEST(IntersectIls, TheSegmentIsNotTurnedForTheCaller)
{
    const PL_IMP_LINE_2D_record line = {1, 0, -1};
    const PL_LINE_2D_record seg = {{2, 4}, {0, 0}};
    PL_LINE_2D_record given = seg;
    PL_PNT2D_record got = {};
    EXPECT_TRUE(PlFunz_intersect_ils(&line, &given, &got));
    EXPECT_POINT(given.start, (seg.start));
    EXPECT_POINT(given.end, (seg.end));
}

// ------------------------------------------------------------------------------------ segment with segment

struct SegmentsRow {
    const char* what;
    PL_LINE_2D_record s1;
    PL_LINE_2D_record s2;
    bool met;
    PL_PNT2D_record want;
};

constexpr PL_LINE_2D_record kUnit = {{0, 0}, {1, 0}};

// Crosses the unit segment, or its extension, at the parameter x.
PL_LINE_2D_record upright(double x)
{
    return {{x, -1}, {x, 1}};
}

const SegmentsRow kSegmentsRows[] = {
    {"across", {{0, 0}, {2, 0}}, {{1, -1}, {1, 1}}, true, {1, 0}},
    {"a shared end", kUnit, {{1, 0}, {1, 1}}, true, {1, 0}},
    {"a shared start", kUnit, {{0, 0}, {0, 1}}, true, {0, 0}},
    {"1.5e-7 beyond the end is inside", kUnit, upright(1.00000015), true, {1.00000015, 0}},
    {"1.5e-7 before the start is outside", kUnit, upright(-1.5e-7), false, kUntouchedPoint},
    {"1.5e-7 beyond the end of the second is inside", upright(1.00000015), kUnit, true, {1.00000015, 0}},
    {"1.5e-7 before the start of the second is outside", upright(-1.5e-7), kUnit, false, kUntouchedPoint},
    {"first: on 1 + 2e-7", kUnit, upright(1 + 2e-7), true, {1 + 2e-7, 0}},
    {"first: just beyond", kUnit, upright(up(1 + 2e-7)), false, kUntouchedPoint},
    {"first: on -1e-7, which is snapped to 0", kUnit, upright(-1e-7), true, {0, 0}},
    {"first: just before", kUnit, upright(down(-1e-7)), false, kUntouchedPoint},
    {"second: on 1 + 2e-7", upright(1 + 2e-7), kUnit, true, {1 + 2e-7, 0}},
    {"second: just beyond", upright(up(1 + 2e-7)), kUnit, false, kUntouchedPoint},
    {"second: on -1e-7, which is snapped to 0", upright(-1e-7), kUnit, true, {0, 0}},
    {"second: just before", upright(down(-1e-7)), kUnit, false, kUntouchedPoint},

    {"second: times the inverse it ends on 1 + 2e-7, over the determinant it would be beyond",
     kUnit,
     {{0.5, -0x1.c00005df3d11ep+2}, {0.5, -0x1.77cf4478p-20}},
     true,
     {0.5, 0}},
    {"second: times the inverse it ends beyond 1 + 2e-7, over the determinant it would not",
     kUnit,
     {{0.5, -0x1.19999d4a7e288p+0}, {0.5, -0x1.d872477p-23}},
     false,
     kUntouchedPoint},
    {"second: times the inverse it begins on -1e-7, over the determinant it would be before",
     kUnit,
     {{0.5, 0x1.e32f0ee144532p-21}, {0.5, 0x1.200001e32f0eep+3}},
     true,
     {0.5, 0}},

    {"second: on 1 + 2e-7 with two products, beyond it with a fused one",
     {{0x1.d87a869d04ce1p+2, 0x1.b287b6bd374bap-1}, {0x1.420bd700b474cp+6, 0x1.d5b28cc976201p+5}},
     {{0x1.cc29aaf529b8ep+4, 0x1.78cf66b47ef46p+3}, {0x1.7359c6fa3cd66p+4, 0x1.abe59d11e53e5p+3}},
     true,
     {0x1.7359c5d03bd92p+4, 0x1.abe59dbd50713p+3}},
    {"second: before -1e-7 with two products, on it with a fused one",
     {{0x1.9007d6ab7cdbcp+2, 0x1.0662fcaf58dccp+2}, {0x1.9925ac10adc76p+5, 0x1.cb53c35d75914p+5}},
     {{0x1.28f7555b1f199p+5, 0x1.46190c20a7a7dp+5}, {0x1.dc3079d6c616cp+4, 0x1.6c69a13cf2868p+5}},
     false,
     kUntouchedPoint},

    {"parallel", kUnit, {{0, 1}, {1, 1}}, false, kUntouchedPoint},
    {"overlapping", {{0, 0}, {2, 0}}, {{1, 0}, {3, 0}}, false, kUntouchedPoint},
    {"the same", kUnit, kUnit, false, kUntouchedPoint},
    {"first without length", {{1, 0}, {1, 0}}, upright(1), false, kUntouchedPoint},
    {"second without length", kUnit, {{0.5, 0}, {0.5, 0}}, false, kUntouchedPoint},
    {"determinant on -PL_EPS", kUnit, {{0.5, 0}, {0.5, 1e-7}}, false, kUntouchedPoint},
    {"determinant on PL_EPS", kUnit, {{0.5, 1e-7}, {0.5, 0}}, false, kUntouchedPoint},
    {"determinant just below -PL_EPS", kUnit, {{0.5, 0}, {0.5, up(1e-7)}}, true, {0.5, 0}},
    {"determinant just above PL_EPS", kUnit, {{0.5, up(1e-7)}, {0.5, 0}}, true, {0.5, 0}},

    {"x 5e-8 becomes 0.0", {{5e-8, 2}, {5e-8, 4}}, {{-1, 3}, {1, 3}}, true, {0, 3}},
    {"x on PL_EPS becomes 0.0", {{1e-7, 2}, {1e-7, 4}}, {{-1, 3}, {1, 3}}, true, {0, 3}},
    {"x on -PL_EPS becomes 0.0", {{-1e-7, 2}, {-1e-7, 4}}, {{-1, 3}, {1, 3}}, true, {0, 3}},
    {"x just above PL_EPS stays", {{up(1e-7), 2}, {up(1e-7), 4}}, {{-1, 3}, {1, 3}}, true, {up(1e-7), 3}},
    {"y on PL_EPS becomes 0.0", {{2, 1e-7}, {4, 1e-7}}, {{3, -1}, {3, 1}}, true, {3, 0}},
    {"y on -PL_EPS becomes 0.0", {{2, -1e-7}, {4, -1e-7}}, {{3, -1}, {3, 1}}, true, {3, 0}},
    {"y just below -PL_EPS stays",
     {{2, down(-1e-7)}, {4, down(-1e-7)}},
     {{3, -1}, {3, 1}},
     true,
     {3, down(-1e-7)}},

    {"general, computed along the first",
     {{22.91, 5.16}, {57, 59.04}},
     {{90.65, 97.54}, {56.49, 58.42}},
     true,
     {0x1.c756e0e6f5acp+5, 0x1.d7469ea8b6af2p+5}},
    {"the same two swapped: along the other, other bits",
     {{90.65, 97.54}, {56.49, 58.42}},
     {{22.91, 5.16}, {57, 59.04}},
     true,
     {0x1.c756e0e6f5abep+5, 0x1.d7469ea8b6af1p+5}},
    {"first reaches, second does not", {{0, 0}, {4, 0}}, {{1, 1}, {1, 3}}, false, kUntouchedPoint},
    {"second reaches, first does not", {{1, 1}, {1, 3}}, {{0, 0}, {4, 0}}, false, kUntouchedPoint},
    {"a NaN is nowhere on a segment", {{kNan, 0}, {1, 0}}, upright(0.5), false, kUntouchedPoint},
    {"a NaN in the second", kUnit, {{0.5, -1}, {0.5, kNan}}, false, kUntouchedPoint},
    {"an infinite end", {{0, 0}, {kInf, 0}}, upright(0.5), false, kUntouchedPoint},
};

TEST(IntersectLs, Table)
{
    for (const SegmentsRow& row : kSegmentsRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record got = kUntouchedPoint;
        EXPECT_EQ(PlFunz_intersect_ls(&row.s1, &row.s2, &got), row.met);
        EXPECT_POINT(got, (row.want));
    }
}

// --------------------------------------------------------------------------------------------- properties

class RandomSegments : public ::testing::Test {
protected:
    PL_PNT2D_record point() { return {coordinate_(random_), coordinate_(random_)}; }
    PL_LINE_2D_record segment() { return {point(), point()}; }

    std::mt19937_64 random_ = test::random_source();
    std::uniform_real_distribution<double> coordinate_{-100.0, 100.0};
};

// Twice the area of the triangle a, b, p: positive with p on the left of a to b.
long double side(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    const long double abx = static_cast<long double>(b.x) - a.x;
    const long double aby = static_cast<long double>(b.y) - a.y;
    const long double apx = static_cast<long double>(p.x) - a.x;
    const long double apy = static_cast<long double>(p.y) - a.y;
    return abx * apy - aby * apx;
}

long double length(const PL_LINE_2D_record& seg)
{
    return std::hypot(static_cast<long double>(seg.end.x) - seg.start.x,
                      static_cast<long double>(seg.end.y) - seg.start.y);
}

double distance_off(const PL_LINE_2D_record& seg, const PL_PNT2D_record& p)
{
    return static_cast<double>(std::fabs(side(seg.start, seg.end, p)) / length(seg));
}

// Sine of the angle between two segments: the condition of their meeting point.
double sine_between(const PL_LINE_2D_record& s1, const PL_LINE_2D_record& s2)
{
    const PL_PNT2D_record tip = {s1.start.x + s2.end.x - s2.start.x, s1.start.y + s2.end.y - s2.start.y};
    return static_cast<double>(std::fabs(side(s1.start, s1.end, tip)) / (length(s1) * length(s2)));
}

bool well_conditioned(const PL_LINE_2D_record& s1, const PL_LINE_2D_record& s2)
{
    return length(s1) > 1.0L && length(s2) > 1.0L && sine_between(s1, s2) > 0.01;
}

constexpr int kRounds = 5000;

TEST_F(RandomSegments, MeetingPointOfTwoLinesLiesOnBoth)
{
    int met = 0;
    for (int i = 0; i < kRounds; ++i) {
        const PL_LINE_2D_record s1 = segment();
        const PL_LINE_2D_record s2 = segment();
        if (!well_conditioned(s1, s2))
            continue;
        PL_IMP_LINE_2D_record l1 = {};
        PL_IMP_LINE_2D_record l2 = {};
        ASSERT_EQ(PlFunz_lineeq_ile(&s1.start, &s1.end, &l1), 0);
        ASSERT_EQ(PlFunz_lineeq_ile(&s2.start, &s2.end, &l2), 0);
        PL_PNT2D_record p = {};
        ASSERT_TRUE(PlFunz_intersect_ile(&l1, &l2, &p));
        // Coefficients rounded at 2e4 over a length of 1 and a sine of 0.01: below 1e-8.
        ASSERT_LT(distance_off(s1, p), 1e-7);
        ASSERT_LT(distance_off(s2, p), 1e-7);
        ++met;
    }
    EXPECT_GT(met, kRounds / 2);
}

TEST_F(RandomSegments, TwoSegmentsMeetExactlyWhenEachSeparatesTheOthersEnds)
{
    int met = 0;
    for (int i = 0; i < kRounds; ++i) {
        const PL_LINE_2D_record s1 = segment();
        const PL_LINE_2D_record s2 = segment();
        if (!well_conditioned(s1, s2))
            continue;
        const long double a = side(s1.start, s1.end, s2.start);
        const long double b = side(s1.start, s1.end, s2.end);
        const long double c = side(s2.start, s2.end, s1.start);
        const long double d = side(s2.start, s2.end, s1.end);
        const long double nearest =
            std::fmin(std::fmin(std::fabs(a), std::fabs(b)), std::fmin(std::fabs(c), std::fabs(d)));
        if (nearest < 0.1L)
            continue;  // an end so near the other segment is a matter of the margins
        PL_PNT2D_record p = kUntouchedPoint;
        const bool separated = (a < 0) != (b < 0) && (c < 0) != (d < 0);
        ASSERT_EQ(PlFunz_intersect_ls(&s1, &s2, &p), separated);
        if (!separated) {
            EXPECT_POINT(p, (kUntouchedPoint));
            continue;
        }
        ASSERT_LT(distance_off(s1, p), 1e-7);
        ASSERT_LT(distance_off(s2, p), 1e-7);
        ++met;
    }
    EXPECT_GT(met, kRounds / 10);
}

TEST_F(RandomSegments, LineMeetsASegmentExactlyWhenItSeparatesItsEnds)
{
    int met = 0;
    for (int i = 0; i < kRounds; ++i) {
        const PL_LINE_2D_record cut = segment();
        const PL_LINE_2D_record seg = segment();
        if (!well_conditioned(cut, seg))
            continue;
        const long double a = side(cut.start, cut.end, seg.start);
        const long double b = side(cut.start, cut.end, seg.end);
        if (std::fmin(std::fabs(a), std::fabs(b)) < 1.0L)
            continue;
        PL_IMP_LINE_2D_record line = {};
        ASSERT_EQ(PlFunz_lineeq_ile(&cut.start, &cut.end, &line), 0);
        PL_PNT2D_record p = kUntouchedPoint;
        ASSERT_EQ(PlFunz_intersect_ils(&line, &seg, &p), (a < 0) != (b < 0));
        // Written inside and outside alike.
        ASSERT_LT(distance_off(cut, p), 1e-7);
        ASSERT_LT(distance_off(seg, p), 1e-7);
        met += (a < 0) != (b < 0) ? 1 : 0;
    }
    EXPECT_GT(met, kRounds / 5);
}

}  // namespace
