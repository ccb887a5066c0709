#include "lines/point_line.h"

#include <cmath>
#include <limits>
#include <random>

#include "plcalc/lines.h"
#include "support/bits.h"

namespace {

using test::down;
using test::up;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// ------------------------------------------------------------------------------------------ signed distance

struct DistanceRow {
    const char* what;
    PL_PNT2D_record p;
    PL_LINE_2D_record seg;
    double want;
};

const DistanceRow kDistanceRows[] = {
    {"above a line through the origin", {0, 5}, {{0, 0}, {10, 0}}, 5},
    {"below it", {0, -5}, {{0, 0}, {10, 0}}, -5},
    {"beyond its end: not clamped", {20, 5}, {{0, 0}, {10, 0}}, 5},
    {"above, segment the other way", {0, 5}, {{10, 0}, {0, 0}}, 5},
    {"the origin's side", {0, 0}, {{0, 2}, {10, 2}}, -2},
    {"the far side", {0, 3}, {{0, 2}, {10, 2}}, 1},
    {"the origin's side, segment the other way", {0, 0}, {{10, 2}, {0, 2}}, -2},
    {"on the line", {7, 2}, {{0, 2}, {10, 2}}, 0},
    {"vertical through the origin: by the direction, here upward", {5, 3}, {{0, 0}, {0, 10}}, -5},
    {"vertical through the origin, downward", {5, 3}, {{0, 10}, {0, 0}}, 5},
    {"vertical, far side", {9, 3}, {{7, 10}, {7, 0}}, 2},

    {"without length: distance from the start", {4, 5}, {{1, 1}, {1, 1}}, 5},
    {"without length: on PL_EPS on both axes", {3, 4}, {{0, 0}, {1e-7, -1e-7}}, 5},
    {"without length: from the start, not from the end", {1, 1}, {{1, 1}, {1 + 0x1p-24, 1 + 0x1p-24}}, 0},
    // Length just above PL_EPS, yet below 3.16e-4: the line stays raw and so does the value.
    {"x just above PL_EPS: a raw value", {3, 4}, {{0, 0}, {up(1e-7), 0}}, 4 * up(1e-7)},
    {"y just above PL_EPS: a raw value", {3, 4}, {{0, 0}, {0, up(1e-7)}}, 3 * -up(1e-7)},
    {"y just below -PL_EPS: a raw value", {3, 4}, {{0, 0}, {0, down(-1e-7)}}, 3 * up(1e-7)},
    {"a tenth of a millimetre long: a raw value", {0, 5}, {{0, 0}, {1e-4, 0}}, 5 * 1e-4},
    {"just below 3.16e-4: a raw value", {4, -3}, {{0, 0}, {3e-4, 1e-4}}, -0x1.54c985f06f694p-10},
    {"just above 3.16e-4: a distance", {4, -3}, {{0, 0}, {3.1623e-4, 0}}, -3},

    {"site coordinates, last bits",
     {500822.53, 5000860.87},
     {{500529.9, 5000554.22}, {500515.53, 5000797.68}},
     0x1.36309baa4ep+8},
    {"a NaN point", {kNan, 0}, {{0, 2}, {10, 2}}, kNan},
    {"a NaN end is not without length", {0, 0}, {{0, kNan}, {0, 0}}, kNan},
    {"an infinite end", {0, 1}, {{0, 0}, {kInf, 0}}, kNan},
};

TEST(DistPntLn, Table)
{
    for (const DistanceRow& row : kDistanceRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_distpntln_ls(&row.p, &row.seg), row.want);
    }
}

// --------------------------------------------------------------------------------------------- collinearity

struct InLineRow {
    const char* what;
    PL_PNT2D_record p0;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    bool want;
};

// The margin is (|second direction| + 1) * 1e-7 radians: 1.7853981634e-7 against the direction of (1, 1).
// The ordinates were solved to fifty digits; an arctangent that is an ulp off moves the angle by 1e-16.
const InLineRow kInLineRows[] = {
    {"opposite sides", {0, 0}, {1, 1}, {-2, -2}, true},
    {"opposite sides, the first folded", {0, 0}, {-2, -2}, {1, 1}, true},
    {"the same ray", {0, 0}, {1, 1}, {5, 5}, true},
    {"the same ray, not from the origin", {10, 20}, {11, 21}, {15, 25}, true},
    {"2.5e-8 apart", {0, 0}, {1, 1}, {2, 2.0000001}, true},
    {"a right angle", {0, 0}, {1, 1}, {-1, 1}, false},
    {"mirrored", {0, 0}, {1, 1}, {1, -1}, false},

    {"1e-14 inside the margin", {0, 0}, {1, 0x1.000005fda541ap+0}, {1, 1}, true},
    {"1e-14 outside the margin", {0, 0}, {1, 0x1.000005fda54cep+0}, {1, 1}, false},
    {"1e-14 inside the margin, below", {0, 0}, {1, 0x1.fffff404b5c49p-1}, {1, 1}, true},
    {"1e-14 outside the margin, below", {0, 0}, {1, 0x1.fffff404b5ae1p-1}, {1, 1}, false},
    {"outside by 1e-14 seen from the smaller, inside seen from the larger: the second direction counts",
     {0, 0},
     {1, 1},
     {1, 0x1.000005fda54cep+0},
     true},

    // Folding takes off 3.1415926535892, so a folded direction is 5.9e-13 ahead.
    {"inside the margin by half the cut with all of pi, outside with the short one",
     {0, 0},
     {-1, -0x1.000005fda4a40p+0},
     {1, 1},
     false},
    {"outside the margin by half the cut with all of pi, inside with the short one",
     {0, 0},
     {-1, -0x1.fffff404b472dp-1},
     {1, 1},
     true},
    {"2e-14 outside the margin, folded: a digit more or less would show",
     {0, 0},
     {-1, -0x1.000005fda4049p+0},
     {1, 1},
     false},
    {"2e-14 inside the margin, folded", {0, 0}, {-1, -0x1.000005fda3ee0p+0}, {1, 1}, true},
    {"folded, inside with either", {0, 0}, {-1, -0x1.000005fda384ep+0}, {1, 1}, true},

    // The fold begins 4.14e-7 before half a turn: 3.5e-7 and 4.1e-7 are folded, 4.2e-7 and 4.8e-7 are not.
    {"both just inside the fold", {0, 0}, {-1, 3.5e-7}, {-1, 4.1e-7}, true},
    {"both just outside the fold", {0, 0}, {-1, 4.2e-7}, {-1, 4.8e-7}, true},
    {"on either side of where the fold begins", {0, 0}, {-1, 4.1e-7}, {-1, 4.2e-7}, false},
    {"the same swapped", {0, 0}, {-1, 4.2e-7}, {-1, 4.1e-7}, false},

    {"just below a full turn against 0: not folded together", {0, 0}, {1, -1e-6}, {1, 0}, false},
    {"the same swapped", {0, 0}, {1, 0}, {1, -1e-6}, false},
    {"just below a full turn against half a turn: as far apart as they are after one fold",
     {0, 0},
     {1, -1e-6},
     {-1, 0},
     false},
    {"p1 at p0 has direction 0, and half a turn folds to about 0", {0, 0}, {0, 0}, {-3, 0}, true},
    {"p1 at p0 against straight up", {0, 0}, {0, 0}, {0, 3}, false},
    {"p2 at p0", {0, 0}, {-3, 0}, {0, 0}, true},
    {"p2 at p0 against straight up", {0, 0}, {0, 3}, {0, 0}, false},
    {"all three equal", {7, 7}, {7, 7}, {7, 7}, true},
    {"straight up and straight down", {3, 3}, {3, 5}, {3, -5}, true},
};

TEST(PntsInLine, Table)
{
    for (const InLineRow& row : kInLineRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(PlFunz_pnts_in_line(&row.p0, &row.p1, &row.p2), row.want);
    }
}

// ----------------------------------------------------------------------------------------------- properties

class RandomPoints : public ::testing::Test {
protected:
    PL_PNT2D_record point() { return {coordinate_(random_), coordinate_(random_)}; }

    std::mt19937_64 random_ = test::random_source();
    std::uniform_real_distribution<double> coordinate_{-100.0, 100.0};
};

constexpr int kRounds = 5000;

TEST_F(RandomPoints, DistanceIsTheOneOfTheLineAndNegativeOnTheOriginsSide)
{
    int checked = 0;
    for (int i = 0; i < kRounds; ++i) {
        const PL_PNT2D_record p = point();
        const PL_LINE_2D_record seg = {point(), point()};
        const PL_LINE_2D_record back = {seg.end, seg.start};
        const long double dx = static_cast<long double>(seg.end.x) - seg.start.x;
        const long double dy = static_cast<long double>(seg.end.y) - seg.start.y;
        const long double length = std::hypot(dx, dy);
        const long double of_point = (dx * (p.y - static_cast<long double>(seg.start.y)) -
                                      dy * (p.x - static_cast<long double>(seg.start.x))) /
                                     length;
        const long double of_origin =
            (dy * static_cast<long double>(seg.start.x) - dx * static_cast<long double>(seg.start.y)) /
            length;
        if (length < 1.0L || std::fabs(of_origin) < 1e-3L)
            continue;
        const double want = static_cast<double>(of_origin < 0 ? of_point : -of_point);
        ASSERT_NEAR(PlFunz_distpntln_ls(&p, &seg), want, 1e-10);
        EXPECT_BITS(PlFunz_distpntln_ls(&p, &back), PlFunz_distpntln_ls(&p, &seg));
        ++checked;
    }
    EXPECT_GT(checked, kRounds / 2);
}

TEST_F(RandomPoints, PointsOfOneLineAreInLineAndOthersAreNot)
{
    std::uniform_real_distribution<double> factor(0.5, 3.0);
    std::uniform_real_distribution<double> aside(0.01, 0.5);
    for (int i = 0; i < kRounds; ++i) {
        const PL_PNT2D_record p0 = point();
        const PL_PNT2D_record p1 = point();
        const PL_PNT2D_record d = {p1.x - p0.x, p1.y - p0.y};
        // Near +x the directions wrap at a full turn, which is not folded; near p0 there is no direction.
        if (std::fabs(d.y) < 0.01 || std::hypot(d.x, d.y) < 1.0)
            continue;
        const double k = i % 2 == 0 ? factor(random_) : -factor(random_);
        const PL_PNT2D_record p2 = {p0.x + k * d.x, p0.y + k * d.y};
        ASSERT_TRUE(PlFunz_pnts_in_line(&p0, &p1, &p2));
        const double off = aside(random_);
        const PL_PNT2D_record beside = {p2.x - off * d.y, p2.y + off * d.x};
        ASSERT_FALSE(PlFunz_pnts_in_line(&p0, &p1, &beside));
    }
}

// ---------------------------------------------------------------------------------------- box of a segment

struct BoxRow {
    const char* what;
    PL_LINE_2D_record seg;
    PL_PNT2D_record p;
    bool want;
};

// The margin around a side r is (|r| + 1) * 1e-7.
const BoxRow kBoxRows[] = {
    {"inside the box, off the segment", {{1, 2}, {4, 6}}, {2, 5}, true},
    {"a corner that is no end", {{1, 2}, {4, 6}}, {1, 6}, true},
    {"West side 1: on 1 - 2e-7", {{1, 2}, {4, 6}}, {1 - 2e-7, 3}, true},
    {"West side 1: just outside", {{1, 2}, {4, 6}}, {down(1 - 2e-7), 3}, false},
    {"East side 4: on 4 + 5e-7", {{1, 2}, {4, 6}}, {4 + 5e-7, 3}, true},
    {"East side 4: just outside", {{1, 2}, {4, 6}}, {up(4 + 5e-7), 3}, false},
    {"South side 2: on 2 - 3e-7", {{1, 2}, {4, 6}}, {2, 2 - 3 * 1e-7}, true},
    {"South side 2: just outside", {{1, 2}, {4, 6}}, {2, down(2 - 3 * 1e-7)}, false},
    {"North side 6: on 6 + 7e-7", {{1, 2}, {4, 6}}, {2, 6 + 7 * 1e-7}, true},
    {"North side 6: just outside", {{1, 2}, {4, 6}}, {2, up(6 + 7 * 1e-7)}, false},
    {"side 0: on -1e-7", {{0, 0}, {4, 6}}, {-1e-7, 3}, true},
    {"side 0: just outside", {{0, 0}, {4, 6}}, {down(-1e-7), 3}, false},
    {"the ends the other way: West", {{4, 6}, {1, 2}}, {1 - 2e-7, 3}, true},
    {"the ends the other way: beyond West", {{4, 6}, {1, 2}}, {down(1 - 2e-7), 3}, false},
    {"the ends the other way: East", {{4, 6}, {1, 2}}, {4 + 5e-7, 3}, true},
    {"the ends the other way: beyond East", {{4, 6}, {1, 2}}, {up(4 + 5e-7), 3}, false},
    {"a negative side has the margin of its magnitude", {{-8, -9}, {-3, -5}}, {-8 - 9 * 1e-7, -7}, true},
    {"a negative side, just outside", {{-8, -9}, {-3, -5}}, {down(-8 - 9 * 1e-7), -7}, false},
    {"East of a negative side", {{-8, -9}, {-3, -5}}, {-3 + 4 * 1e-7, -7}, true},
    {"East of a negative side, just outside", {{-8, -9}, {-3, -5}}, {up(-3 + 4 * 1e-7), -7}, false},
    {"East but North of the box", {{1, 2}, {4, 6}}, {5, 7}, false},

    // Ends within each other's margin: the box has no width and lies at the end, not at the start.
    {"near-tie of x: the end's side", {{1, 0}, {1.00000015, 4}}, {1.0000003, 2}, true},
    {"near-tie of x, ends swapped: out of reach", {{1.00000015, 4}, {1, 0}}, {1.0000003, 2}, false},
    {"near-tie of x: the start's side is out of reach", {{1, 0}, {1.00000015, 4}}, {0.9999999, 2}, false},
    {"near-tie of x, ends swapped: the start's side", {{1.00000015, 4}, {1, 0}}, {0.9999999, 2}, true},
    {"near-tie of y: the end's side", {{0, 1}, {4, 1.00000015}}, {2, 1.0000003}, true},
    {"near-tie of y, ends swapped: out of reach", {{4, 1.00000015}, {0, 1}}, {2, 1.0000003}, false},
    {"near-tie of y: the start's side is out of reach", {{0, 1}, {4, 1.00000015}}, {2, 0.9999999}, false},
    {"near-tie of y, ends swapped: the start's side", {{4, 1.00000015}, {0, 1}}, {2, 0.9999999}, true},

    {"a NaN x", {{1, 2}, {4, 6}}, {kNan, 3}, false},
    {"a NaN y", {{1, 2}, {4, 6}}, {2, kNan}, false},
    {"a NaN start leaves the end's box", {{kNan, kNan}, {4, 6}}, {4, 6}, true},
    {"a NaN start, a point elsewhere", {{kNan, kNan}, {4, 6}}, {3, 6}, false},
    {"a NaN end holds nothing", {{1, 2}, {kNan, 6}}, {1, 2}, false},
    {"an infinite segment holds nothing: the margin of an infinite side is infinite",
     {{-kInf, 0}, {kInf, 0}},
     {0, 0},
     false},
};

TEST(PntInSegbox, Table)
{
    for (const BoxRow& row : kBoxRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(PlFunz_pnt_in_segbox(&row.seg, &row.p), row.want);
    }
}

TEST(PntInSegbox, HoldsThePointsOfTheSegmentEitherWayAndNoPointOutside)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> coordinate(-1000.0, 1000.0);
    std::uniform_real_distribution<double> fraction(0.0, 1.0);
    for (int i = 0; i < 2000; ++i) {
        const PL_LINE_2D_record seg = {{coordinate(random), coordinate(random)},
                                       {coordinate(random), coordinate(random)}};
        const PL_LINE_2D_record back = {seg.end, seg.start};
        const double t = fraction(random);
        const PL_PNT2D_record on = {seg.start.x + t * (seg.end.x - seg.start.x),
                                    seg.start.y + t * (seg.end.y - seg.start.y)};
        ASSERT_TRUE(PlFunz_pnt_in_segbox(&seg, &on));
        ASSERT_TRUE(PlFunz_pnt_in_segbox(&back, &on));
        // No margin here is wider than 1001e-7.
        const PL_PNT2D_record beyond_x = {std::fmax(seg.start.x, seg.end.x) + 2e-4, on.y};
        const PL_PNT2D_record beyond_y = {on.x, std::fmin(seg.start.y, seg.end.y) - 2e-4};
        ASSERT_FALSE(PlFunz_pnt_in_segbox(&seg, &beyond_x));
        ASSERT_FALSE(PlFunz_pnt_in_segbox(&seg, &beyond_y));
    }
}

}  // namespace
