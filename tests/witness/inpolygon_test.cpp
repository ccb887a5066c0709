// Points in simple rings, against GEOS, for points whose ray is level with no vertex.
//
// With margin(v) = (|v| + 1) * 1e-7, these cases are the zone in which the library's tolerances may decide
// otherwise than GEOS; they are counted and left out:
//   level     |y of the point - y of a vertex| <= max(margin(y), 2e-7 * height of the ring)
//   boundary  the boundary meets the point's parallel to the x axis within 2 * margin(x), or within 1e-7 of
//             the ray's length, of the point
//   start     vertex 0 lies inside a run, in line with both neighbours: |dx| <= margin(x) of both, or |dy| <=
//             margin(y) of both. The walk round the ring then begins at no corner, and its answer is not
//             reliable.

#include <algorithm>
#include <cmath>

#include "plcalc/arcs.h"
#include "witness/cases.h"
#include "witness/geos.h"

namespace {

using witness::Ring;

constexpr int kPointsPerRing = 10;
constexpr double kRayBeyond = 1000.0;  // the ray ends this far east of the ring

double margin(double v)
{
    return (std::fabs(v) + 1.0) * 1e-7;
}

struct Box {
    PL_PNT2D_record low;
    PL_PNT2D_record high;
};

Box box_of(const Ring& ring)
{
    Box box = {ring[0], ring[0]};
    for (const PL_PNT2D_record& p : ring) {
        box.low = {std::min(box.low.x, p.x), std::min(box.low.y, p.y)};
        box.high = {std::max(box.high.x, p.x), std::max(box.high.y, p.y)};
    }
    return box;
}

bool level(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return std::fabs(p.y - q.y) <= margin(q.y);
}

bool plumb(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return std::fabs(p.x - q.x) <= margin(q.x);
}

bool starts_at_corner(const Ring& ring)
{
    const PL_PNT2D_record& before = ring.back();
    const PL_PNT2D_record& after = ring[1];
    return !(level(before, ring[0]) && level(ring[0], after)) &&
           !(plumb(before, ring[0]) && plumb(ring[0], after));
}

bool level_with_vertex(const Ring& ring, const Box& box, const PL_PNT2D_record& p)
{
    const double near = std::max(margin(p.y), 2e-7 * (box.high.y - box.low.y));
    return std::any_of(ring.begin(), ring.end(),
                       [&](const PL_PNT2D_record& v) { return std::fabs(v.y - p.y) <= near; });
}

bool near_boundary(const Ring& ring, const Box& box, const PL_PNT2D_record& p)
{
    const double near = std::max(2.0 * margin(p.x), 1e-7 * (box.high.x + kRayBeyond - p.x));
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record& a = ring[i];
        const PL_PNT2D_record& b = ring[(i + 1) % ring.size()];
        if ((a.y > p.y) == (b.y > p.y))
            continue;
        const double x = a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x);
        if (std::fabs(x - p.x) <= near)
            return true;
    }
    return false;
}

// In the ring's box widened by a tenth, or beside one of its sides.
PL_PNT2D_record random_point(witness::Random& random, const Ring& ring, const Box& box)
{
    const double width = box.high.x - box.low.x;
    const double height = box.high.y - box.low.y;
    if (random.chance(0.7))
        return {random.between(box.low.x - width * 0.1, box.high.x + width * 0.1),
                random.between(box.low.y - height * 0.1, box.high.y + height * 0.1)};
    const auto i = static_cast<std::size_t>(random.integer(0, static_cast<int>(ring.size()) - 1));
    const PL_PNT2D_record& a = ring[i];
    const PL_PNT2D_record& b = ring[(i + 1) % ring.size()];
    const double t = random.between(0.0, 1.0);
    const double off = random.by_magnitude(1e-6, 1e-2) * width * (random.chance(0.5) ? 1.0 : -1.0);
    return {a.x + t * (b.x - a.x) + off, a.y + t * (b.y - a.y)};
}

struct Tally {
    int compared = 0;
    int inside = 0;
    int level = 0;
    int boundary = 0;
    int start = 0;
    int start_differs = 0;
};

void compare(const witness::Geos& geos, const witness::Geometry& polygon, const Ring& ring, int& rightmost,
             const PL_PNT2D_record& p, int index, Tally& tally)
{
    const Box box = box_of(ring);
    if (level_with_vertex(ring, box, p)) {
        ++tally.level;
        return;
    }
    if (near_boundary(ring, box, p)) {
        ++tally.boundary;
        return;
    }
    const int n = static_cast<int>(ring.size());
    const bool ours = PlFunz_inpolygon(&p, ring.data(), &n, &rightmost);
    const bool theirs = geos.contains(polygon, geos.point(p));
    if (!starts_at_corner(ring)) {
        ++tally.start;
        tally.start_differs += ours != theirs ? 1 : 0;
        return;
    }
    ++tally.compared;
    tally.inside += ours ? 1 : 0;
    ASSERT_EQ(ours, theirs) << "case " << index;
}

class InPolygon : public ::testing::TestWithParam<witness::Size> {};

TEST_P(InPolygon, IsWhatGeosContains)
{
    const witness::Geos geos;
    witness::Random random(GetParam());
    Tally tally;
    int index = 0;
    while (index < witness::cases() && !HasFatalFailure()) {
        Ring ring = witness::random_ring(random, GetParam());
        if (random.chance(0.5)) {
            const int first = random.integer(0, static_cast<int>(ring.size()) - 1);
            std::rotate(ring.begin(), ring.begin() + first, ring.end());
        }
        const witness::Geometry polygon = geos.polygon(ring);
        ASSERT_TRUE(geos.is_valid(polygon)) << "case " << index;
        const Box box = box_of(ring);
        int rightmost = 0;
        for (int k = 0; k < kPointsPerRing; ++k, ++index)
            compare(geos, polygon, ring, rightmost, random_point(random, ring, box), index, tally);
    }
    witness::report(
        "in polygon, %s: %d points agree, %d of them inside; left out %d level, %d at the boundary",
        GetParam().name, tally.compared, tally.inside, tally.level, tally.boundary);
    witness::report("in polygon, %s: %d points in rings that begin within a run, %d answered otherwise",
                    GetParam().name, tally.start, tally.start_differs);
    EXPECT_GT(tally.compared, witness::cases() / 2);
    EXPECT_GT(tally.inside, witness::cases() / 10);
}

INSTANTIATE_TEST_SUITE_P(AtSize, InPolygon, ::testing::ValuesIn(witness::kSizes), witness::size_name);

}  // namespace
