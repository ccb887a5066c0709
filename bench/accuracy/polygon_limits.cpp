// Where PlFunz_inpolygon is wrong: how far from the boundary, and how nearly level with a corner. The truth is the
// crossing count in long double; star-shaped parcels are simple, so there is one.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "limits.h"
#include "plcalc/arcs.h"
#include "support/measures.h"
#include "support/rings.h"
#include "tables.h"

namespace {

using test::Real;

constexpr std::size_t kCorners = 12;
constexpr double kExtent = 100.0;
constexpr int kPointsPerRing = 20;

// Farther from the boundary than this, nobody expects a doubt.
constexpr Real kFar = 0.1L;

bool truly_inside(const PL_PNT2D_record& p, const test::Ring& ring)
{
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const test::Vector a = test::from_to(p, ring[i]);
        const test::Vector b = test::from_to(p, ring[(i + 1) % ring.size()]);
        if ((a.y > 0) != (b.y > 0) && a.x - a.y * (b.x - a.x) / (b.y - a.y) > 0)
            inside = !inside;
    }
    return inside;
}

Real off_level(const PL_PNT2D_record& p, const test::Ring& ring)
{
    Real least = kExtent;
    for (const PL_PNT2D_record& corner : ring)
        least = std::min(least, std::fabs(test::from_to(p, corner).y));
    return least;
}

// As the header advises: the ring begins at a corner that the point is not level with, and from which no side runs
// level or plumb.
bool begins_well(const PL_PNT2D_record& p, const test::Ring& ring)
{
    const PL_PNT2D_record& first = ring.front();
    const double margin = 3e-7 * (std::fabs(first.x) + std::fabs(first.y) + 1.0);
    const auto level = [&](const PL_PNT2D_record& q) { return std::fabs(q.y - first.y) < margin; };
    const auto plumb = [&](const PL_PNT2D_record& q) { return std::fabs(q.x - first.x) < margin; };
    const PL_PNT2D_record& before = ring.back();
    const PL_PNT2D_record& after = ring[1];
    return !level(p) && !level(before) && !level(after) && !plumb(before) && !plumb(after);
}

struct Wrongs {
    int points = 0;
    int wrong = 0;
    int far = 0;          // of these, farther from the boundary than kFar
    Real farthest = 0;    // from the boundary
    Real most_level = 0;  // how far these are from level with a corner, at most
};

void note(Wrongs& wrongs, const PL_PNT2D_record& p, const test::Ring& ring)
{
    const int n = static_cast<int>(ring.size());
    int rightmost = 0;
    ++wrongs.points;
    if (PlFunz_inpolygon(&p, ring.data(), &n, &rightmost) == truly_inside(p, ring))
        return;
    ++wrongs.wrong;
    const Real off = test::distance_to_boundary(ring, p);
    wrongs.farthest = std::max(wrongs.farthest, off);
    if (off > kFar) {
        ++wrongs.far;
        wrongs.most_level = std::max(wrongs.most_level, off_level(p, ring));
    }
}

Wrongs measure(std::uint64_t seed, const PL_PNT2D_record& origin, bool advised, int points)
{
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> across(-0.6 * kExtent, 0.6 * kExtent);
    Wrongs wrongs;
    while (wrongs.points < points) {
        test::Ring ring = test::star_ring(random, kCorners, kExtent);
        for (PL_PNT2D_record& p : ring)
            p = {p.x + origin.x, p.y + origin.y};
        for (int i = 0; i < kPointsPerRing; ++i) {
            const PL_PNT2D_record p = {across(random) + origin.x, across(random) + origin.y};
            if (!advised || begins_well(p, ring))
                note(wrongs, p, ring);
        }
    }
    return wrongs;
}

}  // namespace

void accuracy::print_polygon_limits(std::uint64_t seed, int cases)
{
    struct Row {
        const char* name;
        PL_PNT2D_record origin;
        bool advised;
    };
    constexpr PL_PNT2D_record kLocal = {0.0, 0.0};
    constexpr PL_PNT2D_record kUtm = {500000.0, 5000000.0};
    constexpr Row kRows[] = {{"local origin, begun anywhere", kLocal, false},
                             {"local origin, begun at a corner off the point's level", kLocal, true},
                             {"UTM (5e5, 5e6), begun anywhere", kUtm, false},
                             {"UTM (5e5, 5e6), begun at a corner off the point's level", kUtm, true}};
    std::vector<std::vector<std::string>> table = {
        {"ring of 12, 100 across", "points", "wrong", "farthest from the boundary",
         "wrong and more than 0.1 from it", "of these, farthest from level with a corner"}};
    for (const Row& row : kRows) {
        const Wrongs wrongs = measure(seed, row.origin, row.advised, 200 * cases);
        table.push_back({row.name, count(wrongs.points), count(wrongs.wrong), scientific(wrongs.farthest),
                         count(wrongs.far), wrongs.far > 0 ? scientific(wrongs.most_level) : "none"});
    }
    print_table("Points in polygons", table);
}
