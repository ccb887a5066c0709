#include "shapes.h"

#include <cmath>

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

}  // namespace bench
