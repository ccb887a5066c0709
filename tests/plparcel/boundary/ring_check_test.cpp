#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "plparcel/division.h"
#include "support/bits.h"

namespace {

using plparcel::BoundaryStatus;
using plparcel::check_ring;
using plparcel::Ring;
using plparcel::RingReport;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(RingCheck, SaysWhetherARingCanBeWorkedOn)
{
    const struct {
        const char* what;
        Ring ring;
        BoundaryStatus status;
    } rows[] = {
        {"nothing", {}, BoundaryStatus::too_few_vertices},
        {"a point", {{1, 2}}, BoundaryStatus::too_few_vertices},
        {"two points", {{1, 2}, {3, 4}}, BoundaryStatus::too_few_vertices},
        {"two points, closed", {{1, 2}, {3, 4}, {1, 2}}, BoundaryStatus::too_few_vertices},
        {"one point, four times", {{1, 2}, {1, 2}, {1, 2}, {1, 2}}, BoundaryStatus::too_few_vertices},
        {"there and back on one line", {{0, 0}, {1, 1}, {2, 2}, {1.5, 1.5}}, BoundaryStatus::flat},
        {"a triangle", {{0, 0}, {1, 0}, {0, 1}}, BoundaryStatus::usable},
        {"a triangle a hair from flat", {{0, 0}, {1, 0x1.0000000000001p-88}, {2, 0}}, BoundaryStatus::usable},
        {"and a bit flatter", {{0, 0}, {1, 0x1p-88}, {2, 0}}, BoundaryStatus::flat},
        {"the same upright and clockwise",
         {{0, 0}, {0x1.0000000000001p-88, 1}, {0, 2}},
         BoundaryStatus::usable},
        {"and a bit flatter, upright", {{0, 0}, {0x1p-88, 1}, {0, 2}}, BoundaryStatus::flat},
        {"coordinates of which no products can be compared",
         {{0x1p-1054, -0x1.e8p-791}, {0x1p-1028, 0x1.bp-977}, {0x1p145, 0x1.ep-879}, {0x1p-1007, 0}, {0, 0}},
         BoundaryStatus::flat},
        {"a NaN", {{0, 0}, {1, 0}, {0, kNan}}, BoundaryStatus::not_finite},
        {"an infinite East", {{0, 0}, {kInf, 0}, {0, 1}}, BoundaryStatus::not_finite},
        {"an infinite vertex among too few", {{0, 0}, {-kInf, 0}}, BoundaryStatus::not_finite},
        {"an extent that overflows", {{-1.5e308, 0}, {1.5e308, 0}, {0, 1}}, BoundaryStatus::out_of_range},
        {"2^300 across", {{0, 0}, {0x1p300, 0}, {0, 0x1p300}}, BoundaryStatus::usable},
        {"a bit more", {{0, 0}, {0x1.0000000000001p300, 0}, {0, 0x1p300}}, BoundaryStatus::out_of_range},
        {"2^-300 across", {{0, 0}, {0x1p-300, 0}, {0, 0x1p-300}}, BoundaryStatus::usable},
        {"a bit less",
         {{0, 0}, {0x1.fffffffffffffp-301, 0}, {0, 0x1.fffffffffffffp-301}},
         BoundaryStatus::out_of_range},
        {"a bow tie", {{0, 0}, {1, 1}, {1, 0}, {0, 1}}, BoundaryStatus::meets_itself},
        {"a bow tie of no area", {{0, 0}, {2, 2}, {2, 0}, {0, 2}}, BoundaryStatus::meets_itself},
        {"a vertex on another side", {{0, 0}, {4, 0}, {4, 4}, {2, 0}, {0, 4}}, BoundaryStatus::meets_itself},
        {"one double above that side",
         {{0, 0}, {4, 0}, {4, 4}, {2, std::numeric_limits<double>::denorm_min()}, {0, 4}},
         BoundaryStatus::usable},
        {"a vertex twice, not in a row",
         {{0, 0}, {2, 2}, {4, 0}, {4, 4}, {2, 2}, {0, 4}},
         BoundaryStatus::meets_itself},
        {"a spike", {{0, 0}, {4, 0}, {4, 4}, {4, 6}, {4, 4}, {0, 4}}, BoundaryStatus::meets_itself},
        {"a spike back to the first vertex", {{0, 0}, {4, 0}, {0, 0}, {0, 4}}, BoundaryStatus::meets_itself},
        {"a side that runs back beyond the start of the one before",
         {{0, 0}, {4, 0}, {-2, 0}, {0, 4}},
         BoundaryStatus::meets_itself},
        {"a spike that comes back part of the way",
         {{0, 0}, {4, 0}, {4, 6}, {4, 4}, {0, 4}},
         BoundaryStatus::meets_itself},
        {"a side that lies in another",
         {{0, 0}, {6, 0}, {6, 4}, {4, 0}, {2, 0}, {0, 4}},
         BoundaryStatus::meets_itself},
        {"a side around another",
         {{2, 0}, {4, 0}, {6, 4}, {8, 0}, {0, 0}, {0, 4}},
         BoundaryStatus::meets_itself},
        {"vertices on sides, straight on", {{0, 0}, {2, 0}, {4, 0}, {4, 4}, {0, 4}}, BoundaryStatus::usable},
        {"an E, whose sides see each other's lines",
         {{0, 0}, {9, 0}, {9, 1}, {1, 1}, {1, 2}, {9, 2}, {9, 3}, {1, 3}, {1, 4}, {9, 4}, {9, 5}, {0, 5}},
         BoundaryStatus::usable},
    };
    for (const auto& row : rows)
        EXPECT_EQ(check_ring(row.ring).status, row.status) << row.what;
}

// The doubles nearest to 0.3, 0.9 and 0.1, 0.3 do not lie on one line through the origin. Twice the area of the
// sliver is 0.3 * 0.3 - 0.1 * 0.9, of which doubles see the last bit at best.
TEST(RingCheck, DecidesBeyondDoublePrecision)
{
    const double rounded = 0.1 * 0.9;
    const double twice = std::fma(0.3, 0.3, -rounded) - std::fma(0.1, 0.9, -rounded);
    ASSERT_NE(twice, 0.0);
    const RingReport report = check_ring({{0, 0}, {0.3, 0.9}, {0.1, 0.3}});
    EXPECT_EQ(report.status, BoundaryStatus::usable);
    EXPECT_EQ(report.anticlockwise, twice > 0.0);
    EXPECT_BITS(report.area, std::fabs(twice) / 2.0);
}

TEST(RingCheck, ReportsWhatItToleratesAndMeasures)
{
    const RingReport plain = check_ring({{0, 0}, {100, 0}, {100, 50}, {0, 50}});
    EXPECT_EQ(plain.repeated, 0U);
    EXPECT_FALSE(plain.closed);
    EXPECT_TRUE(plain.anticlockwise);
    EXPECT_BITS(plain.area, 5000.0);
    EXPECT_BITS(plain.perimeter, 300.0);

    EXPECT_FALSE(check_ring({{7, 7}}).closed) << "one vertex closes nothing";

    const RingReport messy =
        check_ring({{0, 0}, {0, 0}, {0, 50}, {100, 50}, {100, 50}, {100, 50}, {100, 0}, {0, 0}, {0, 0}});
    EXPECT_EQ(messy.status, BoundaryStatus::usable);
    EXPECT_EQ(messy.repeated, 4U);
    EXPECT_TRUE(messy.closed);
    EXPECT_FALSE(messy.anticlockwise);
    EXPECT_BITS(messy.area, 5000.0);
    EXPECT_BITS(messy.perimeter, 300.0);
}

TEST(RingCheck, AreaLosesNothingAtLargeCoordinates)
{
    // A unit square at 5e15, where doubles are 1 apart: products of its coordinates are good to 4e15 only.
    const double e = 5e15;
    EXPECT_BITS(check_ring({{e, e}, {e + 1, e}, {e + 1, e + 1}, {e, e + 1}}).area, 1.0);
}

TEST(RingCheck, NamesTheSidesThatMeetAsTheyWereCounted)
{
    // Sides 0, 1 and 3 have length; the vertices 2 and 3 are one.
    const RingReport report = check_ring({{0, 0}, {1, 1}, {1, 0}, {1, 0}, {0, 1}, {0, 0}});
    EXPECT_EQ(report.status, BoundaryStatus::meets_itself);
    EXPECT_EQ(report.meeting_sides[0], 0U);
    EXPECT_EQ(report.meeting_sides[1], 3U);

    // The lower one first, wherever they lie.
    for (const Ring& ring : {Ring{{2, 0}, {4, 2}, {4, 0}, {0, 2}}, Ring{{0, 2}, {2, 4}, {0, 4}, {2, 0}}}) {
        const RingReport crossed = check_ring(ring);
        EXPECT_EQ(crossed.status, BoundaryStatus::meets_itself);
        EXPECT_EQ(crossed.meeting_sides[0], 0U);
        EXPECT_EQ(crossed.meeting_sides[1], 2U);
    }
}

// Exact, on whole coordinates.
double cross(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

double dot(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    return (b.x - a.x) * (p.x - a.x) + (b.y - a.y) * (p.y - a.y);
}

bool lies_on(const PL_PNT2D_record& p, const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return cross(a, b, p) == 0.0 && dot(p, a, b) <= 0.0;
}

bool sides_meet(const Ring& ring, std::size_t i, std::size_t j)
{
    const std::size_t n = ring.size();
    const PL_PNT2D_record& a = ring[i];
    const PL_PNT2D_record& b = ring[(i + 1) % n];
    const PL_PNT2D_record& c = ring[j];
    const PL_PNT2D_record& d = ring[(j + 1) % n];
    if (j == (i + 1) % n)
        return cross(b, a, d) == 0.0 && dot(b, a, d) > 0.0;
    if (i == (j + 1) % n)
        return cross(a, b, c) == 0.0 && dot(a, b, c) > 0.0;
    return (cross(a, b, c) * cross(a, b, d) < 0.0 && cross(c, d, a) * cross(c, d, b) < 0.0) ||
           lies_on(c, a, b) || lies_on(d, a, b) || lies_on(a, c, d) || lies_on(b, c, d);
}

bool any_sides_meet(const Ring& ring)
{
    for (std::size_t i = 0; i < ring.size(); ++i)
        for (std::size_t j = i + 1; j < ring.size(); ++j)
            if (sides_meet(ring, i, j))
                return true;
    return false;
}

// Few places for many vertices: sides cross, touch, run back and lie in each other.
TEST(RingCheck, FindsSidesThatMeetAsAllPairsTell)
{
    std::mt19937_64 random = test::random_source();
    int simple = 0;
    int meeting = 0;
    for (int i = 0; i < 100000; ++i) {
        Ring ring;
        const std::size_t places = 2 + random() % 5;
        for (std::size_t n = 3 + random() % 7; n > 0; --n)
            ring.push_back({static_cast<double>(random() % places), static_cast<double>(random() % places)});
        const RingReport report = check_ring(ring);
        if (report.repeated > 0 || report.closed || report.status == BoundaryStatus::flat)
            continue;
        ASSERT_EQ(report.status == BoundaryStatus::usable, !any_sides_meet(ring));
        ++(report.status == BoundaryStatus::usable ? simple : meeting);
        ASSERT_TRUE(report.status == BoundaryStatus::usable ||
                    sides_meet(ring, report.meeting_sides[0], report.meeting_sides[1]));
    }
    EXPECT_GT(simple, 5000);
    EXPECT_GT(meeting, 20000);
}

}  // namespace
