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

}  // namespace
