#include <limits>
#include <random>
#include <type_traits>

#include "plcalc/lines.h"
#include "support/bits.h"

namespace {

using test::down;
using test::kUntouched;
using test::up;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr PL_IMP_LINE_2D_record kUntouchedLine = {kUntouched, kUntouched, kUntouched};

// The result comes last in one and first in the other: both orders are settled.
static_assert(std::is_same<decltype(&PlFunz_linepntperpend),
                           void (*)(const PL_IMP_LINE_2D_record*, const PL_PNT2D_record*,
                                    PL_IMP_LINE_2D_record*) noexcept>::value,
              "perpendicular: line, point, result");
static_assert(
    std::is_same<decltype(&PlFunz_linepntparallel), void (*)(PL_IMP_LINE_2D_record*, const PL_PNT2D_record*,
                                                             const PL_IMP_LINE_2D_record*) noexcept>::value,
    "parallel: result, point, line");

// -------------------------------------------------------------------------------- line through two points

struct LineEqRow {
    const char* what;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    int rc;
    PL_IMP_LINE_2D_record want;
};

const LineEqRow kLineEqRows[] = {
    {"along +x from the origin: a is the negated zero", {0, 0}, {2, 0}, 0, {-0.0, 2, 0}},
    {"left of the direction is positive: (0, 1) gives +1", {0, 0}, {1, 0}, 0, {-0.0, 1, 0}},
    {"four different coordinates", {1, 2}, {4, 6}, 0, {-4, 3, -2}},
    {"the ends swapped: all three signs turn", {4, 6}, {1, 2}, 0, {4, -3, 2}},
    {"equal points", {3, 4}, {3, 4}, 2, kUntouchedLine},
    {"on PL_EPS on both axes", {0, 0}, {1e-7, -1e-7}, 2, kUntouchedLine},
    {"on PL_EPS on both axes, other signs", {0, 0}, {-1e-7, 1e-7}, 2, kUntouchedLine},
    {"x just outside", {0, 0}, {up(1e-7), 0}, 0, {-0.0, up(1e-7), 0}},
    {"x just outside to the left", {0, 0}, {down(-1e-7), 0}, 0, {-0.0, down(-1e-7), 0}},
    {"y just outside", {0, 0}, {0, up(1e-7)}, 0, {down(-1e-7), 0, 0}},
    {"y just outside downwards", {0, 0}, {0, down(-1e-7)}, 0, {up(1e-7), 0, -0.0}},
    {"x on PL_EPS and y just outside", {0, 0}, {1e-7, up(1e-7)}, 0, {down(-1e-7), 1e-7, 0}},
    {"y on PL_EPS and x just outside", {0, 0}, {up(1e-7), 1e-7}, 0, {-1e-7, up(1e-7), 0}},
    {"away from the origin the difference 1e-7 rounds to just above it: a line",
     {1, 1},
     {1 + 1e-7, 1 - 1e-7},
     0,
     {0x1.ad7f29a8p-24, 0x1.ad7f29bp-24, -0x1.ad7f29acp-23}},
    {"site coordinates: two products, then their difference, never fused",
     {500134.36, 5000847.43},
     {500763.77, 5000255.07},
     0,
     {0x1.282e147aep+9, 0x1.3ab47ae147cp+9, -0x1.9a89bf34cfcp+31}},
    {"a NaN is not short", {kNan, 0}, {0, 0}, 0, {-0.0, kNan, kNan}},
    {"a NaN in y", {0, 0}, {0, kNan}, 0, {kNan, 0, kNan}},
    {"an infinite end", {0, 0}, {kInf, 0}, 0, {-0.0, kInf, kNan}},
};

TEST(LineEq, Table)
{
    for (const LineEqRow& row : kLineEqRows) {
        SCOPED_TRACE(row.what);
        PL_IMP_LINE_2D_record got = kUntouchedLine;
        EXPECT_EQ(PlFunz_lineeq_ile(&row.p1, &row.p2, &got), row.rc);
        EXPECT_LINE(got, (row.want));
    }
}

// -------------------------------------------------------------------------------------------- normal form

struct NormalRow {
    const char* what;
    PL_IMP_LINE_2D_record line;
    int rc;
    PL_IMP_LINE_2D_record want;
};

// a*a rounds to 0x1.ad7f29abcaf46p-24, two units below 1e-7; the square of b fills them up.
constexpr double kShortA = 0x1.4b96be9c2da2bp-12;
constexpr double kTwoUnitsB = 0x1.6a09e667f3bcdp-38;
constexpr double kThreeUnitsB = 0x1.bb67ae8584caap-38;

const NormalRow kNormalRows[] = {
    {"c negative: signs stay", {0, 2, -4}, 0, {0, 1, -2}},
    {"c positive: turned, a becomes -0.0", {0, -2, 4}, 0, {-0.0, 1, -2}},
    {"c positive: turned, also when b was positive", {0, 2, 4}, 0, {-0.0, -1, -2}},
    {"c negative: b may stay negative", {0, -2, -4}, 0, {0, -1, -2}},
    {"through the origin with b negative: turned, c becomes -0.0; times a rounded 1/5, not over 5",
     {3, -4, 0},
     0,
     {-0x1.3333333333334p-1, 0x1.999999999999ap-1, -0.0}},
    {"through the origin with b positive: stays",
     {-3, 4, 0},
     0,
     {-0x1.3333333333334p-1, 0x1.999999999999ap-1, 0}},
    {"vertical through the origin, a positive", {3, 0, 0}, 0, {1, 0, 0}},
    {"vertical through the origin, a negative: the sign of a stays", {-3, 0, 0}, 0, {-1, 0, 0}},
    {"through the origin, b on -PL_EPS: stays", {0x1p+20, -1e-7, 0}, 0, {1, -1e-7 * 0x1p-20, 0}},
    {"through the origin, b just below -PL_EPS: turned",
     {0x1p+20, down(-1e-7), 0},
     0,
     {-1, up(1e-7) * 0x1p-20, -0.0}},
    {"c on PL_EPS, b positive: counts as through the origin", {0, 2, 1e-7}, 0, {0, 1, 0.5e-7}},
    {"c just above PL_EPS: turned", {0, 2, up(1e-7)}, 0, {-0.0, -1, -0.5 * up(1e-7)}},
    {"c on PL_EPS, b negative: turned for b", {0, -2, 1e-7}, 0, {-0.0, 1, -0.5e-7}},
    {"c on -PL_EPS, b negative: turned for b", {0, -2, -1e-7}, 0, {-0.0, 1, 0.5e-7}},
    {"c just below -PL_EPS, b negative: c decides", {0, -2, down(-1e-7)}, 0, {0, -1, -0.5 * up(1e-7)}},
    {"the sum of squares is tested, not its root", {1e-4, 2e-4, 5}, 3, {1e-4, 2e-4, 5}},
    {"sum of squares on PL_EPS", {kShortA, kTwoUnitsB, -1}, 3, {kShortA, kTwoUnitsB, -1}},
    {"sum of squares just above PL_EPS",
     {kShortA, kThreeUnitsB, -1},
     0,
     {0x1.ffffffffffffep-1, 0x1.56539bf495dadp-26, -0x1.8b48e29793d2ep+11}},
    {"no direction", {0, 0, 5}, 3, {0, 0, 5}},
    {"site coordinates",
     {0x1.282e147aep+9, 0x1.3ab47ae147cp+9, -0x1.9a89bf34cfcp+31},
     0,
     {0x1.5ee60a5caa6bbp-1, 0x1.74d8969c0ab8p-1, -0x1.e662525840e12p+21}},
    {"the sum of squares overflows: its inverse root is 0", {1e200, 0, -1}, 0, {0, 0, -0.0}},
    {"a NaN in the normal spreads", {kNan, 1, 1}, 0, {kNan, kNan, kNan}},
    {"a NaN in c has no sign: the normal stays", {0, -2, kNan}, 0, {0, -1, kNan}},
    {"a NaN in c of a line without direction stays there", {0, 0, kNan}, 3, {0, 0, kNan}},
};

TEST(Normal, Table)
{
    for (const NormalRow& row : kNormalRows) {
        SCOPED_TRACE(row.what);
        PL_IMP_LINE_2D_record got = row.line;
        EXPECT_EQ(PlFunz_normal_ile(&got), row.rc);
        EXPECT_LINE(got, (row.want));
    }
}

// -------------------------------------------------------------------------------- perpendicular, parallel

struct ThroughPointRow {
    const char* what;
    PL_IMP_LINE_2D_record line;
    PL_PNT2D_record p;
    PL_IMP_LINE_2D_record perpendicular;
    PL_IMP_LINE_2D_record parallel;
};

const ThroughPointRow kThroughPointRows[] = {
    {"y = 2 through (5, 7)", {0, 1, -2}, {5, 7}, {1, -0.0, -5}, {0, 1, -7}},
    {"all different; the given c plays no part", {3, 4, 9}, {1, 2}, {4, -3, 2}, {3, 4, -11}},
    {"negative a", {-3, 4, 9}, {1, 2}, {4, 3, -10}, {-3, 4, -5}},
    {"through the origin", {3, 4, 9}, {0, 0}, {4, -3, 0}, {3, 4, -0.0}},
    {"a line without direction stays one", {0, 0, 5}, {1, 1}, {0, -0.0, 0}, {0, 0, -0.0}},
    {"site coordinates: never fused",
     {0x1.20d70a3d72p+9, 0x1.8ad9999999cp+8, -0x1.0dd4eb8a81cp+31},
     {500893.48, 5000491.61},
     {0x1.8ad9999999cp+8, -0x1.20d70a3d72p+9, 0x1.40c7f0b561412p+31},
     {0x1.20d70a3d72p+9, 0x1.8ad9999999cp+8, -0x1.0dddb38378854p+31}},
    {"a NaN in the point reaches c only", {3, 4, 9}, {kNan, 2}, {4, -3, kNan}, {3, 4, kNan}},
    {"an infinite point against a zero coefficient", {0, 1, 0}, {0, kInf}, {1, -0.0, kNan}, {0, 1, -kInf}},
};

TEST(LinePntPerpend, Table)
{
    for (const ThroughPointRow& row : kThroughPointRows) {
        SCOPED_TRACE(row.what);
        PL_IMP_LINE_2D_record got = kUntouchedLine;
        PlFunz_linepntperpend(&row.line, &row.p, &got);
        EXPECT_LINE(got, (row.perpendicular));
    }
}

TEST(LinePntPerpend, ResultMayBeTheGivenLine)
{
    for (const ThroughPointRow& row : kThroughPointRows) {
        SCOPED_TRACE(row.what);
        PL_IMP_LINE_2D_record line = row.line;
        PlFunz_linepntperpend(&line, &row.p, &line);
        EXPECT_LINE(line, (row.perpendicular));
    }
}

TEST(LinePntParallel, Table)
{
    for (const ThroughPointRow& row : kThroughPointRows) {
        SCOPED_TRACE(row.what);
        PL_IMP_LINE_2D_record got = kUntouchedLine;
        PlFunz_linepntparallel(&got, &row.p, &row.line);
        EXPECT_LINE(got, (row.parallel));
    }
}

TEST(LinePntParallel, ResultMayBeTheGivenLine)
{
    for (const ThroughPointRow& row : kThroughPointRows) {
        SCOPED_TRACE(row.what);
        PL_IMP_LINE_2D_record line = row.line;
        PlFunz_linepntparallel(&line, &row.p, &line);
        EXPECT_LINE(line, (row.parallel));
    }
}

// --------------------------------------------------------------------------------- ordinate and abscissa

struct OnLineRow {
    const char* what;
    PL_IMP_LINE_2D_record line;
    double at;
    double ordinate;
    double abscissa;
};

const OnLineRow kOnLineRows[] = {
    {"vertical line: no ordinate", {1, 0, -3}, 77, 0.0, 3},
    {"horizontal line: no abscissa", {0, 1, -3}, 77, 3, 0.0},
    {"exact", {2, 4, -8}, 1, 1.5, 2},
    {"a true zero is negated, the refused one is not", {1, 1, 0}, 0, -0.0, -0.0},
    {"b on PL_EPS is vertical", {1, 1e-7, -3}, 2, 0.0, -(1e-7 * 2 - 3)},
    {"b on -PL_EPS is vertical", {1, -1e-7, -3}, 2, 0.0, -(-1e-7 * 2 - 3)},
    {"b just above PL_EPS", {1, up(1e-7), -3}, 2, 0x1.312dp+23, -(up(1e-7) * 2 - 3)},
    {"b just below -PL_EPS", {1, down(-1e-7), -3}, 2, -0x1.312dp+23, -(down(-1e-7) * 2 - 3)},
    {"a on PL_EPS is horizontal", {1e-7, 1, -3}, 2, -(1e-7 * 2 - 3), 0.0},
    {"a on -PL_EPS is horizontal", {-1e-7, 1, -3}, 2, -(-1e-7 * 2 - 3), 0.0},
    {"a just above PL_EPS", {up(1e-7), 1, -3}, 2, -(up(1e-7) * 2 - 3), 0x1.312dp+23},
    {"a just below -PL_EPS", {down(-1e-7), 1, -3}, 2, -(down(-1e-7) * 2 - 3), -0x1.312dp+23},
    {"last bits: product, sum, quotient",
     {8.04, -7.42, -3718.2},
     7799.24,
     0x1.f0dd2ca18581ap+12,
     0x1.dec44cd3522cbp+12},
    {"no direction at all", {0, 0, 5}, 1, 0.0, 0.0},
    {"a NaN coefficient is no zero", {kNan, kNan, 0}, 1, kNan, kNan},
    {"a NaN argument", {2, 4, -8}, kNan, kNan, kNan},
};

TEST(Ordinate, Table)
{
    for (const OnLineRow& row : kOnLineRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_ordinate_ile(&row.line, row.at), row.ordinate);
    }
}

TEST(Abscissa, Table)
{
    for (const OnLineRow& row : kOnLineRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_abscissa_ile(&row.line, row.at), row.abscissa);
    }
}

// --------------------------------------------------------------------------------------------- properties

class RandomLines : public ::testing::Test {
protected:
    PL_PNT2D_record point() { return {coordinate_(random_), coordinate_(random_)}; }

    std::mt19937_64 random_ = test::random_source();
    std::uniform_real_distribution<double> coordinate_{-1000.0, 1000.0};
};

long double value_at(const PL_IMP_LINE_2D_record& line, const PL_PNT2D_record& p)
{
    return static_cast<long double>(line.a) * p.x + static_cast<long double>(line.b) * p.y + line.c;
}

constexpr int kRounds = 2000;

TEST_F(RandomLines, LeftOfTheDirectionIsPositive)
{
    for (int i = 0; i < kRounds; ++i) {
        const PL_PNT2D_record p1 = point();
        const PL_PNT2D_record p2 = point();
        PL_IMP_LINE_2D_record line = {};
        ASSERT_EQ(PlFunz_lineeq_ile(&p1, &p2, &line), 0);
        const PL_PNT2D_record left = {p1.x - (p2.y - p1.y), p1.y + (p2.x - p1.x)};
        ASSERT_GT(value_at(line, left), 0.0L);
        // c is rounded three times at magnitudes up to 2e6: 5e-10.
        ASSERT_NEAR(static_cast<double>(value_at(line, p1)), 0.0, 1e-9);
        ASSERT_NEAR(static_cast<double>(value_at(line, p2)), 0.0, 1e-9);
    }
}

TEST_F(RandomLines, SwappedEndsTurnEverySign)
{
    for (int i = 0; i < kRounds; ++i) {
        const PL_PNT2D_record p1 = point();
        const PL_PNT2D_record p2 = point();
        PL_IMP_LINE_2D_record there = {};
        PL_IMP_LINE_2D_record back = {};
        ASSERT_EQ(PlFunz_lineeq_ile(&p1, &p2, &there), 0);
        ASSERT_EQ(PlFunz_lineeq_ile(&p2, &p1, &back), 0);
        EXPECT_LINE(back, ({-there.a, -there.b, -there.c}));
    }
}

TEST_F(RandomLines, NormalFormIsTheSameLineOfUnitNormalAwayFromTheOrigin)
{
    for (int i = 0; i < kRounds; ++i) {
        const PL_PNT2D_record p1 = point();
        const PL_PNT2D_record p2 = point();
        PL_IMP_LINE_2D_record line = {};
        ASSERT_EQ(PlFunz_lineeq_ile(&p1, &p2, &line), 0);
        ASSERT_EQ(PlFunz_normal_ile(&line), 0);
        const long double a = line.a;
        const long double b = line.b;
        ASSERT_NEAR(static_cast<double>(a * a + b * b), 1.0, 1e-15);
        ASSERT_LT(line.c, 0.0);
        ASSERT_NEAR(static_cast<double>(value_at(line, p1)), 0.0, 1e-9);
        ASSERT_NEAR(static_cast<double>(value_at(line, p2)), 0.0, 1e-9);
    }
}

TEST_F(RandomLines, PerpendicularAndParallelPassThroughThePoint)
{
    for (int i = 0; i < kRounds; ++i) {
        const PL_IMP_LINE_2D_record line = {coordinate_(random_), coordinate_(random_), coordinate_(random_)};
        const PL_PNT2D_record p = point();
        PL_IMP_LINE_2D_record perpendicular = {};
        PL_IMP_LINE_2D_record parallel = {};
        PlFunz_linepntperpend(&line, &p, &perpendicular);
        PlFunz_linepntparallel(&parallel, &p, &line);
        ASSERT_NEAR(static_cast<double>(value_at(perpendicular, p)), 0.0, 1e-9);
        ASSERT_NEAR(static_cast<double>(value_at(parallel, p)), 0.0, 1e-9);
        ASSERT_EQ(line.a * perpendicular.a + line.b * perpendicular.b, 0.0);
        ASSERT_EQ(line.a * parallel.b - line.b * parallel.a, 0.0);
    }
}

TEST_F(RandomLines, OrdinateAndAbscissaAreOnTheLine)
{
    for (int i = 0; i < kRounds; ++i) {
        const PL_IMP_LINE_2D_record line = {coordinate_(random_), coordinate_(random_), coordinate_(random_)};
        const double at = coordinate_(random_);
        const PL_PNT2D_record above = {at, PlFunz_ordinate_ile(&line, at)};
        const PL_PNT2D_record beside = {PlFunz_abscissa_ile(&line, at), at};
        // The residue is the rounding of a*x, c and the quotient, all of magnitude 1e6 here.
        ASSERT_NEAR(static_cast<double>(value_at(line, above)), 0.0, 2e-9);
        ASSERT_NEAR(static_cast<double>(value_at(line, beside)), 0.0, 2e-9);
    }
}

}  // namespace
