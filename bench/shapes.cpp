#include "shapes.h"

#include <cmath>
#include <random>

namespace bench {

namespace {

constexpr double kTwoPi = 6.283185307179586;

std::vector<PL_PNT2D_record> ring(int n, double dent)
{
    std::vector<PL_PNT2D_record> points;
    for (int i = 0; i < n; ++i) {
        const double dir = kTwoPi * (i + 0.3 * std::sin(2.0 * i)) / n;
        const double r = i % 3 == 2 ? 1.0 - dent : 1.0;
        const double x = 90.0 * r * std::cos(dir);
        const double y = 60.0 * r * std::sin(dir);
        points.push_back({400.0 + 0.8 * x - 0.6 * y, 300.0 + 0.6 * x + 0.8 * y});
    }
    return points;
}

}  // namespace

std::vector<PL_PNT2D_record> convex_ring(int n)
{
    return ring(n, 0.0);
}

std::vector<PL_PNT2D_record> dented_ring(int n)
{
    return ring(n, 0.1);
}

namespace {

// Every side stays within a rhombus about it, 28 degrees wide at its ends, in which those of its four parts lie side by
// side: a bulge this high over the middle third is the highest for which they do, and so the ring is simple.
constexpr double kBulge = 0.26;

void add_parts(std::vector<PL_PNT2D_record>& finer, const PL_PNT2D_record& p, const PL_PNT2D_record& q,
               int bulge)
{
    const double dx = q.x - p.x;
    const double dy = q.y - p.y;
    const double high = kBulge * bulge;
    const double start = bulge == 0 ? 0.25 : 1.0 / 3.0;
    finer.push_back(p);
    finer.push_back({p.x + start * dx, p.y + start * dy});
    finer.push_back({p.x + 0.5 * dx - high * dy, p.y + 0.5 * dy + high * dx});
    finer.push_back({q.x - start * dx, q.y - start * dy});
}

}  // namespace

std::vector<PL_PNT2D_record> slit_ring(int n)
{
    constexpr double kHalfOpen = 0.02;  // of the slit, in radians
    std::vector<PL_PNT2D_record> points = {{395, 300.5}, {405, 300.5}};
    for (int i = 0; i < n - 3; ++i) {
        const double dir = kHalfOpen + (kTwoPi - 2.0 * kHalfOpen) * i / (n - 4);
        points.push_back({400.0 + 90.0 * std::cos(dir), 300.0 + 60.0 * std::sin(dir)});
    }
    points.push_back({395, 299.5});
    return points;
}

std::vector<PL_PNT2D_record> coast_ring(int n, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<PL_PNT2D_record> ring = {{0, 0}, {9000, -1000}, {10000, 8000}, {1000, 9000}};
    while (static_cast<int>(ring.size()) < n) {
        std::vector<PL_PNT2D_record> finer;
        for (std::size_t i = 0; i < ring.size(); ++i)
            add_parts(finer, ring[i], ring[(i + 1) % ring.size()], static_cast<int>(random() % 5) % 3 - 1);
        ring = finer;
    }
    return ring;
}

}  // namespace bench
