#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "plcalc/survey.h"
#include "support/bits.h"
#include "support/measures.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

using test::Ring;

// Heights that would show if they took part.
CPoint3dVector points_of(const Ring& ring)
{
    CPoint3dVector pts;
    for (const PL_PNT2D_record& p : ring)
        pts.Append(p.x, p.y, 1e6 + p.x);
    return pts;
}

struct RingRow {
    const char* what;
    Ring ring;
    double area;
    double perimeter;
};

const RingRow kRingRows[] = {
    {"no vertex", {}, 0, 0},
    {"one vertex", {{3, 4}}, 0, 0},
    {"one vertex at infinity is as far from itself as NaN", {{kInf, 4}}, kNan, kNan},
    {"two vertices: no area, there and back", {{0, 0}, {3, 4}}, 0, 10},
    {"unit square, anticlockwise", {{0, 0}, {1, 0}, {1, 1}, {0, 1}}, 1, 4},
    {"unit square, clockwise", {{0, 1}, {1, 1}, {1, 0}, {0, 0}}, -1, 4},
    {"unit square, closed by the caller", {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}}, 1, 4},
    {"unit square off the origin", {{10, 20}, {11, 20}, {11, 21}, {10, 21}}, 1, 4},
    {"3-4-5 triangle", {{0, 0}, {4, 0}, {4, 3}}, 6, 12},
    {"figure eight, equal lobes", {{0, 0}, {2, 2}, {2, 0}, {0, 2}}, 0, 0x1.3504f333f9de6p+3},
    {"figure eight, lobes of +1 and -4", {{-1, -1}, {2, 2}, {2, -2}, {-1, 1}}, -3, 0x1.cf876ccdf6cd8p+3},
    {"all in one line", {{0, 0}, {1, 0}, {5, 0}}, 0, 10},
    {"the same vertex three times", {{7, 9}, {7, 9}, {7, 9}}, 0, 0},

    {"site coordinates, last bits: products as they are, no shift of the origin, sum in index order",
     {{500038.54, 5000021.43},
      {500086.99, 5000020.67},
      {500116.59, 5000051.15},
      {500091.28, 5000065.91},
      {500006.01, 5000078.97}},
     0x1.ecd13c35f8p+11,
     0x1.109b244daa62dp+8},
    {"the same backwards: other last bits",
     {{500006.01, 5000078.97},
      {500091.28, 5000065.91},
      {500116.59, 5000051.15},
      {500086.99, 5000020.67},
      {500038.54, 5000021.43}},
     -0x1.ecd13c361p+11,
     0x1.109b244daa62ep+8},
    {"the same closed by the caller: other last bits of the area",
     {{500038.54, 5000021.43},
      {500086.99, 5000020.67},
      {500116.59, 5000051.15},
      {500091.28, 5000065.91},
      {500006.01, 5000078.97},
      {500038.54, 5000021.43}},
     0x1.ecd13c361p+11,
     0x1.109b244daa62dp+8},
    {"sides 1, 1, 2^53 and back: in index order the small ones add up first",
     {{0, 0}, {1, 0}, {2, 0}, {2 + 0x1p+53, 0}},
     0,
     0x1.0000000000001p+54},
    {"the same from the second vertex: they drown", {{1, 0}, {2, 0}, {2 + 0x1p+53, 0}, {0, 0}}, 0, 0x1p+54},

    // Half of each term, not half of the sum: visible where a sum overflows or a half underflows.
    {"doubled it would overflow",
     {{0, 0}, {0x1p+512, 0}, {0x1p+512, 0x1p+511}, {0, 0x1p+511}},
     0x1p+1023,
     kInf},
    {"a product that overflows before it is halved",
     {{0, 0}, {0x1p+600, 0}, {0x1p+600, 0x1p+424}},
     kInf,
     kInf},
    {"two halves of the smallest number are two zeros", {{0, 0}, {1, 0}, {1, 5e-324}, {0, 5e-324}}, 0, 2},
    {"a NaN ordinate", {{0, 0}, {1, kNan}, {1, 1}}, kNan, kNan},
    {"an infinite abscissa", {{0, 0}, {kInf, 0}, {1, 1}}, kNan, kInf},
};

TEST(Area, Table)
{
    for (const RingRow& row : kRingRows) {
        SCOPED_TRACE(row.what);
        const CPoint3dVector pts = points_of(row.ring);
        EXPECT_BITS(AreaCalcolataSgn(pts), row.area);
        EXPECT_BITS(AreaCalcolata(pts), std::fabs(row.area));
    }
}

TEST(Perimeter, Table)
{
    for (const RingRow& row : kRingRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PeriCalcolato(points_of(row.ring)), row.perimeter);
    }
}

// ----------------------------------------------------------------------------------------------- properties

class RandomRings : public ::testing::Test {
protected:
    // Any closed line, crossing itself or not.
    Ring ring()
    {
        std::uniform_int_distribution<int> count(3, 40);
        std::uniform_real_distribution<double> coordinate(-1000.0, 1000.0);
        Ring points(static_cast<std::size_t>(count(random_)));
        for (PL_PNT2D_record& p : points)
            p = {coordinate(random_), coordinate(random_)};
        return points;
    }

    std::mt19937_64 random_ = test::random_source();
};

// Both in long double and by other sums than the library's.
double exact_area(const Ring& ring)
{
    return static_cast<double>(test::signed_area(ring));
}

double exact_perimeter(const Ring& ring)
{
    return static_cast<double>(test::perimeter(ring));
}

// The signed area as it is defined, over arrays with a wrapped entry at either end.
double area_over_arrays(const Ring& ring)
{
    const std::size_t n = ring.size();
    std::vector<double> x(n + 2);
    std::vector<double> y(n + 2);
    for (std::size_t i = 0; i < n; ++i) {
        x[i + 1] = ring[i].x;
        y[i + 1] = ring[i].y;
    }
    x[0] = x[n];
    x[n + 1] = x[1];
    double sum = 0.0;
    for (std::size_t i = 1; i <= n; ++i) {
        const double term = ((x[i - 1] - x[i + 1]) * y[i]) * 0.5;
        sum = term + sum;
    }
    return sum;
}

// Small rings are copied to the stack, larger ones to the heap: the bits are the same on either side.
TEST_F(RandomRings, AnySizeHasTheSameBits)
{
    std::uniform_real_distribution<double> coordinate(-1000.0, 1000.0);
    for (std::size_t n : {1U, 2U, 3U, 63U, 64U, 65U, 66U, 500U}) {
        Ring points(n);
        for (PL_PNT2D_record& p : points)
            p = {coordinate(random_), coordinate(random_)};
        EXPECT_BITS(AreaCalcolataSgn(points_of(points)), area_over_arrays(points)) << n << " vertices";
    }
}

constexpr int kRounds = 500;

// Forty terms of 1e6, each rounded to 1e-10.
constexpr double kAreaNear = 2e-8;
constexpr double kPerimeterNear = 1e-9;

TEST_F(RandomRings, AgreeWithLongDouble)
{
    for (int i = 0; i < kRounds; ++i) {
        const Ring points = ring();
        const CPoint3dVector pts = points_of(points);
        ASSERT_NEAR(AreaCalcolataSgn(pts), exact_area(points), kAreaNear);
        ASSERT_NEAR(PeriCalcolato(pts), exact_perimeter(points), kPerimeterNear);
        EXPECT_BITS(AreaCalcolata(pts), std::fabs(AreaCalcolataSgn(pts)));
    }
}

TEST_F(RandomRings, AReversedRingTurnsTheSignOfTheArea)
{
    for (int i = 0; i < kRounds; ++i) {
        const Ring points = ring();
        const Ring reversed(points.rbegin(), points.rend());
        ASSERT_NEAR(AreaCalcolataSgn(points_of(reversed)), -AreaCalcolataSgn(points_of(points)), kAreaNear);
        ASSERT_NEAR(PeriCalcolato(points_of(reversed)), PeriCalcolato(points_of(points)), kPerimeterNear);
    }
}

TEST_F(RandomRings, ARepeatedFirstVertexAddsNothing)
{
    for (int i = 0; i < kRounds; ++i) {
        const Ring points = ring();
        Ring closed = points;
        closed.push_back(points.front());
        ASSERT_NEAR(AreaCalcolataSgn(points_of(closed)), AreaCalcolataSgn(points_of(points)), kAreaNear);
        // The last side has length 0: not a bit changes.
        EXPECT_BITS(PeriCalcolato(points_of(closed)), PeriCalcolato(points_of(points)));
    }
}

TEST_F(RandomRings, TheContainerIsLeftAsItWas)
{
    const Ring points = ring();
    const CPoint3dVector pts = points_of(points);
    AreaCalcolata(pts);
    PeriCalcolato(pts);
    ASSERT_EQ(pts.GetNoPoits(), static_cast<int>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_POINT(
            (PL_PNT2D_record{pts.GetXcoordAt(static_cast<int>(i)), pts.GetYcoordAt(static_cast<int>(i))}),
            (points[i]));
}

}  // namespace
