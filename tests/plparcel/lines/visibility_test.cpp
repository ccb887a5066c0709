#include "lines/visibility.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "boundary/local_ring.h"
#include "boundary/measured_ring.h"
#include "lines/ray.h"
#include "support/bits.h"
#include "support/rings.h"

namespace {

using plparcel::LocalRing;
using plparcel::MeasuredRing;
using plparcel::Ring;
using plparcel::Sight;

std::vector<bool> seen(const Ring& ring, std::size_t vertex, const std::vector<Sight>& places)
{
    const MeasuredRing measured(ring);
    return seen_from(LocalRing(measured), measured.turn(), vertex, places);
}

//   7 --- 6           3 --- 2      From the vertex 0 the right arm is hidden but for the foot of its outer wall: the
//   |     |           |     |      corner 4 stands before the rest.
//   |     5 --------- 4     |
//   0 --------------------- 1
const Ring kU = {{0, 0}, {100, 0}, {100, 60}, {70, 60}, {70, 20}, {30, 20}, {30, 60}, {0, 60}};

TEST(Visibility, EndsWhereACornerStandsBefore)
{
    const struct {
        const char* what;
        Sight place;
        bool seen;
    } rows[] = {
        {"the outer wall of the right arm, at its foot", {1, 0.25}, true},
        {"just below 28.57, where the line past the corner meets it", {1, 0.476}, true},
        {"just above that", {1, 0.477}, false},
        {"the end of the right arm", {2, 0.5}, false},
        {"the wall within the right arm, from behind", {3, 0.5}, false},
        {"the floor of the gap, from below", {4, 0.5}, true},
        {"the wall within the left arm", {5, 0.5}, true},
        {"the end of the left arm", {6, 0.5}, true},
        {"a corner", {4, 0.0}, true},
        {"the same as the end of the side before", {3, 1.0}, true},
        {"the corner behind it", {3, 0.0}, false},
        {"the next corner, along the side", {1, 0.0}, true},
        {"the corner before, along the side", {6, 1.0}, true},
    };
    std::vector<Sight> places;
    for (const auto& row : rows)
        places.push_back(row.place);
    const Ring clockwise = test::reversed(kU);
    const std::vector<bool> got = seen(kU, 0, places);
    for (std::size_t i = 0; i < places.size(); ++i)
        EXPECT_EQ(got[i], rows[i].seen) << rows[i].what;
    // The other way round, sides count backwards.
    for (Sight& place : places)
        place = {kU.size() - 1 - place.side, plparcel::Wide(1.0) - place.part};
    const std::vector<bool> mirrored = seen(clockwise, 0, places);
    for (std::size_t i = 0; i < places.size(); ++i)
        EXPECT_EQ(mirrored[i], got[i]) << rows[i].what;
}

//         3 ----------- 2      From the vertex 0 the corners 4 and 5 lie a hair above the prolongation of the side
//         |             |      that ends in 1: 4, the nearer one, in a direction to which the ray comes first.
//   5 --- 4     0 ----- 1
//   |           |
//   6 --------- 7
TEST(Visibility, CornersAHairFromTheProlongationOfTheFirstSide)
{
    const Ring ring = {{0, 0},      {100, 0},     {100, 100},   {-10, 100},
                       {-10, 9e-7}, {-100, 4e-6}, {-100, -100}, {0, -100}};
    EXPECT_EQ(seen(ring, 0, {{3, 0.5}, {4, 0.5}, {5, 0.5}, {6, 0.5}}),
              (std::vector<bool>{true, true, true, true}));
}

//     5   .3         From the vertex 0 the corner 4 lies beside the line to 2, by a hundredth or by three of them. In local units
//     |  /  \        that is 0.64, within a reach of 1, or 1.92. Seen from 4 it is the far corner 2 that would lie beside
//     | /    2       the line, by ten times as much.
//     |4     |
//     0 ---- 1
TEST(Visibility, ALineThatPassesANearCornerIsNotClear)
{
    const plparcel::Wide reach = 1.0;
    for (const bool is_beside : {true, false}) {
        const Ring ring = {{0, 0}, {100, 0}, {100, 20}, {60, 60}, {10, is_beside ? 2.01 : 2.03}, {5, 60}};
        const MeasuredRing measured(ring);
        const std::vector<plparcel::SeenPart> parts =
            all_seen_from(LocalRing(measured), measured.turn(), 0, reach);
        ASSERT_EQ(parts.size(), 3U);
        EXPECT_EQ(parts[0].begin.side, 1U);
        EXPECT_TRUE(parts[0].begin_is_clear);
        EXPECT_EQ(parts[0].end_is_clear, !is_beside) << "from 1 up to 2";
        EXPECT_EQ(parts[1].begin_is_clear, !is_beside);
        EXPECT_FALSE(parts[1].end_is_clear) << "behind the corner 4";
        EXPECT_EQ(parts[2].begin.side, 4U);
        EXPECT_TRUE(parts[2].begin_is_clear) << "the corner itself";

        // The other way round, the ray comes to the corner 4 first.
        const MeasuredRing clockwise(test::reversed(ring));
        const std::vector<plparcel::SeenPart> back =
            all_seen_from(LocalRing(clockwise), clockwise.turn(), 0, reach);
        ASSERT_EQ(back.size(), 3U);
        EXPECT_TRUE(back[0].end_is_clear) << "the corner itself";
        EXPECT_FALSE(back[1].begin_is_clear);
        EXPECT_EQ(back[1].end_is_clear, !is_beside);
        EXPECT_EQ(back[2].begin_is_clear, !is_beside);
    }
}

// 5  3           From 0 the line to the corner 4 goes on to the side from 2 to 3, where x and y are equal: (10 - 6t, 5 + 5t)
//  \ / \         with t = 5/11. The side ends just before that corner.
//   4   2
// 0 --- 1
TEST(Visibility, BehindACornerTheSideBeforeItIsSeenUpToThatLine)
{
    const MeasuredRing ring({{0, 0}, {10, 0}, {10, 5}, {4, 10}, {3, 3}, {0, 10}});
    const std::vector<plparcel::SeenPart> parts = all_seen_from(LocalRing(ring), ring.turn(), 0, 1e-9);
    ASSERT_EQ(parts.size(), 3U);
    EXPECT_EQ(parts[1].end.side, 2U);
    EXPECT_NEAR(parts[1].end.part.value(), 5.0 / 11.0, 1e-15);
    EXPECT_EQ(parts[2].begin.side, 4U);
    EXPECT_EQ(parts[2].begin.part.value(), 0.0);
}

double cross(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

// Whole coordinates times 2, so that middles of sides are whole as well and all of this is exact.
enum class Seen { yes, no, touching };

Seen seen_by_all_sides(const Ring& ring, double turn, std::size_t vertex, std::size_t side,
                       const PL_PNT2D_record& p)
{
    const std::size_t n = ring.size();
    const PL_PNT2D_record& v = ring[vertex];
    const PL_PNT2D_record& next = ring[(vertex + 1) % n];
    const PL_PNT2D_record& last = ring[(vertex + n - 1) % n];
    const double after = turn * cross(v, next, p);
    const double before = turn * cross(v, last, p);
    const bool convex = turn * cross(v, next, last) > 0.0;
    if (convex ? after < 0.0 || before > 0.0 : after < 0.0 && before > 0.0)
        return Seen::no;
    if (after == 0.0 || before == 0.0)
        return Seen::touching;
    bool touches = false;
    for (std::size_t i = 0; i < n; ++i) {
        if (i == vertex || i == (vertex + n - 1) % n || i == side)
            continue;
        const PL_PNT2D_record& a = ring[i];
        const PL_PNT2D_record& b = ring[(i + 1) % n];
        const double off_a = cross(v, p, a);
        const double off_b = cross(v, p, b);
        const double off_v = cross(a, b, v);
        const double off_p = cross(a, b, p);
        if (off_a * off_b < 0.0 && off_v * off_p < 0.0)
            return Seen::no;
        touches = touches || (off_a * off_b <= 0.0 && off_v * off_p <= 0.0);
    }
    return touches ? Seen::touching : Seen::yes;
}

TEST(Visibility, IsWhatNoSideStandsBefore)
{
    std::mt19937_64 random = test::random_source();
    int yes = 0;
    int no = 0;
    for (int i = 0; i < 60000; ++i) {
        Ring ring;
        for (std::size_t n = 4 + random() % 7; n > 0; --n)
            ring.push_back(
                {4.0 * static_cast<double>(random() % 7), 4.0 * static_cast<double>(random() % 7)});
        const plparcel::RingReport report = plparcel::check_ring(ring);
        if (report.status != plparcel::BoundaryStatus::usable || report.repeated > 0 || report.closed)
            continue;
        const double turn = report.anticlockwise ? 1.0 : -1.0;
        const std::size_t n = ring.size();
        const std::size_t vertex = random() % n;
        std::vector<Sight> places;
        for (std::size_t k = 1; k + 1 < n; ++k)
            for (const double part : {0.25, 0.5, 0.75})
                places.push_back({k, part});
        const std::vector<bool> got = seen(ring, vertex, places);
        for (std::size_t k = 0; k < places.size(); ++k) {
            const std::size_t side = (vertex + places[k].side) % n;
            const PL_PNT2D_record& a = ring[side];
            const PL_PNT2D_record& b = ring[(side + 1) % n];
            const double part = places[k].part.hi;
            const PL_PNT2D_record p = {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
            const Seen wanted = seen_by_all_sides(ring, turn, vertex, side, p);
            if (wanted == Seen::touching)
                continue;
            ++(wanted == Seen::yes ? yes : no);
            ASSERT_EQ(got[k], wanted == Seen::yes)
                << "of " << n << " vertices, from " << vertex << " to side " << side;
        }
    }
    EXPECT_GT(yes, 10000);
    EXPECT_GT(no, 10000);
}

// Two sides 2^-70 apart, given by other points of their lines: in doubles their ways along the ray differ by nothing but
// rounding. The nearer one comes first, whether the sides are long or as short as a millionth.
TEST(Ray, OrdersSidesThatDoublesCannotTellApart)
{
    using plparcel::Wide;
    using plparcel::WidePoint;
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(0.1, 1.0);
    const Wide apart(0x1p-70);
    for (int i = 0; i < 2000; ++i) {
        const double size = i % 2 == 0 ? 1.0 : 1e-6;
        // On the line from (1, 0) in a direction, exactly.
        const WidePoint along = {Wide(any(random)) - 0.5, Wide(any(random)) + 0.5};
        const auto on_line = [&](double part, const Wide& off) {
            return WidePoint{Wide(1.0) + along.x * part + off, along.y * part};
        };
        const auto span = [&](const Wide& off) {
            return plparcel::Span{on_line(-size * any(random), off), on_line(size * any(random), off)};
        };
        const std::vector<plparcel::Span> spans = {span(0.0), span(apart)};
        const WidePoint ray = {Wide(1.0), Wide(0.0)};
        const plparcel::IsNearer is_nearer(spans, ray);
        EXPECT_TRUE(is_nearer(0, 1)) << i;
        EXPECT_FALSE(is_nearer(1, 0)) << i;
        EXPECT_FALSE(is_nearer(0, 0)) << i;
    }
}

// A side that runs almost along the ray and crosses it at 1.05, by 2^-70 to either side: in doubles its way is anything.
// Sides before it and behind it are told all the same.
TEST(Ray, OrdersSidesBesideOneThatRunsAlongIt)
{
    using plparcel::Wide;
    using plparcel::WidePoint;
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    std::uniform_real_distribution<double> part(0.05, 0.95);
    for (int i = 0; i < 3000; ++i) {
        const WidePoint ray = {Wide(any(random)), Wide(any(random))};
        const WidePoint left = {-ray.y, ray.x};
        const auto across = [&](double way) {
            return plparcel::Span{ray * way - left * 0.3, ray * way + left * 0.3};
        };
        const double before = 1.0 * part(random);
        const std::vector<plparcel::Span> spans = {
            across(before), {ray - left * 0x1p-70, ray * 1.1 + left * 0x1p-70}, across(1.1 + part(random))};
        const plparcel::IsNearer is_nearer(spans, ray);
        EXPECT_TRUE(is_nearer(0, 1) && is_nearer(1, 2) && is_nearer(0, 2)) << i;
        EXPECT_FALSE(is_nearer(1, 0) || is_nearer(2, 1) || is_nearer(2, 0)) << i;
    }
}

}  // namespace
