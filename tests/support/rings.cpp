#include "support/rings.h"

#include <algorithm>
#include <cmath>

namespace {

using test::Ring;

constexpr double kTurnRad = 6.283185307179586;

double between(std::mt19937_64& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

bool one_in(std::mt19937_64& random, int n)
{
    return std::uniform_int_distribution<int>(1, n)(random) == 1;
}

Ring turned(const Ring& ring, double by_rad)
{
    Ring out;
    for (const PL_PNT2D_record& p : ring)
        out.push_back({p.x * std::cos(by_rad) - p.y * std::sin(by_rad),
                       p.x * std::sin(by_rad) + p.y * std::cos(by_rad)});
    return out;
}

std::vector<double> sorted_directions(std::mt19937_64& random, std::size_t n)
{
    // One direction in each n-th of the circle, so that no two coincide and the origin is always inside.
    std::vector<double> dirs_rad;
    for (std::size_t i = 0; i < n; ++i)
        dirs_rad.push_back((static_cast<double>(i) + between(random, 0.1, 0.9)) * kTurnRad /
                           static_cast<double>(n));
    return dirs_rad;
}

// n steps along one axis that lead from one end of [0, size] to the other and back. The stops are random
// places, and each belongs to the way there or to the way back.
std::vector<double> there_and_back(std::mt19937_64& random, std::size_t n, double size)
{
    std::vector<double> places;
    for (std::size_t i = 0; i < n; ++i)
        places.push_back(between(random, 0.0, size));
    std::sort(places.begin(), places.end());

    std::vector<double> steps;
    double out = places.front();
    double back = places.front();
    for (std::size_t i = 1; i + 1 < n; ++i) {
        if (one_in(random, 2)) {
            steps.push_back(places[i] - out);
            out = places[i];
        } else {
            steps.push_back(back - places[i]);
            back = places[i];
        }
    }
    steps.push_back(places.back() - out);
    steps.push_back(back - places.back());
    return steps;
}

std::size_t upto(std::mt19937_64& random, std::size_t n)
{
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
}

// Which side of a-b the point c lies on.
double turn(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool do_cross(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c,
              const PL_PNT2D_record& d)
{
    return (turn(a, b, c) > 0.0) != (turn(a, b, d) > 0.0) && (turn(c, d, a) > 0.0) != (turn(c, d, b) > 0.0);
}

// Reverses the stretch between two sides that cross. Each time the ring gets shorter, so this ends.
void untangle(Ring& ring)
{
    const std::size_t n = ring.size();
    bool crossing = true;
    while (crossing) {
        crossing = false;
        for (std::size_t i = 0; i + 2 < n; ++i) {
            for (std::size_t j = i + 2; j < n; ++j) {
                const bool neighbours = i == 0 && j + 1 == n;
                if (neighbours || !do_cross(ring[i], ring[i + 1], ring[j], ring[(j + 1) % n]))
                    continue;
                std::reverse(ring.begin() + static_cast<std::ptrdiff_t>(i + 1),
                             ring.begin() + static_cast<std::ptrdiff_t>(j + 1));
                crossing = true;
            }
        }
    }
}

}  // namespace

namespace test {

Ring ellipse_ring(std::mt19937_64& random, std::size_t n, double size)
{
    const double flat = between(random, 0.3, 1.0);
    Ring ring;
    for (const double dir_rad : sorted_directions(random, n))
        ring.push_back({0.5 * size * std::cos(dir_rad), 0.5 * size * flat * std::sin(dir_rad)});
    return turned(ring, between(random, 0.0, kTurnRad));
}

Ring edge_vector_ring(std::mt19937_64& random, std::size_t n, double size)
{
    std::vector<double> xs = there_and_back(random, n, size);
    std::vector<double> ys = there_and_back(random, n, size);
    std::shuffle(ys.begin(), ys.end(), random);
    std::vector<PL_PNT2D_record> edges;
    for (std::size_t i = 0; i < n; ++i)
        edges.push_back({xs[i], ys[i]});
    std::sort(edges.begin(), edges.end(), [](const PL_PNT2D_record& a, const PL_PNT2D_record& b) {
        return std::atan2(a.y, a.x) < std::atan2(b.y, b.x);
    });

    Ring ring;
    PL_PNT2D_record at = {0.0, 0.0};
    for (const PL_PNT2D_record& edge : edges) {
        ring.push_back(at);
        at = {at.x + edge.x, at.y + edge.y};
    }
    return ring;
}

Ring convex_ring(std::mt19937_64& random, std::size_t n, double size)
{
    return one_in(random, 2) ? ellipse_ring(random, n, size) : edge_vector_ring(random, n, size);
}

Ring turned_rectangle(std::mt19937_64& random, double size)
{
    const double h = size * between(random, 0.05, 1.0);
    return turned({{0.0, 0.0}, {size, 0.0}, {size, h}, {0.0, h}}, between(random, 0.0, kTurnRad));
}

Ring dented_ring(std::mt19937_64& random, std::size_t n, double size)
{
    Ring ring = ellipse_ring(random, n, size);
    for (PL_PNT2D_record& p : ring) {
        if (!one_in(random, 4))
            continue;
        const double scale = between(random, 0.8, 1.0);
        p = {p.x * scale, p.y * scale};
    }
    return ring;
}

Ring star_ring(std::mt19937_64& random, std::size_t n, double size)
{
    Ring ring;
    for (const double dir_rad : sorted_directions(random, n)) {
        const double radius = 0.5 * size * between(random, 0.2, 1.0);
        ring.push_back({radius * std::cos(dir_rad), radius * std::sin(dir_rad)});
    }
    return ring;
}

Ring comb_ring(std::mt19937_64& random, std::size_t teeth, double size)
{
    // The base strip from left to right, then tooth after tooth from right to left.
    const double step = size / static_cast<double>(2 * teeth - 1);
    const double strip = size * between(random, 0.1, 0.4);
    Ring ring = {{0.0, 0.0}, {size, 0.0}};
    for (std::size_t i = 0; i < teeth; ++i) {
        const double right = size - static_cast<double>(2 * i) * step;
        const double left = i + 1 < teeth ? right - step : 0.0;
        const double top = strip + size * between(random, 0.1, 0.5);
        if (i > 0)
            ring.push_back({right, strip});
        ring.push_back({right, top});
        ring.push_back({left, top});
        if (i + 1 < teeth)
            ring.push_back({left, strip});
    }
    return turned(ring, between(random, 0.0, kTurnRad));
}

Ring l_ring(std::mt19937_64& random, double size)
{
    const double w = size * between(random, 0.1, 0.9);
    const double h = size * between(random, 0.1, 0.9);
    return turned({{0.0, 0.0}, {size, 0.0}, {size, h}, {w, h}, {w, size}, {0.0, size}},
                  between(random, 0.0, kTurnRad));
}

Ring t_ring(std::mt19937_64& random, double size)
{
    const double left = size * between(random, 0.1, 0.4);
    const double right = size * between(random, 0.6, 0.9);
    const double h = size * between(random, 0.2, 0.8);
    return turned(
        {{left, 0.0}, {right, 0.0}, {right, h}, {size, h}, {size, size}, {0.0, size}, {0.0, h}, {left, h}},
        between(random, 0.0, kTurnRad));
}

// First the base side, with a vertex now and then, then the columns from right to left. The last one ends at
// the first vertex.
Ring stepped_ring(std::mt19937_64& random, std::size_t columns, double size)
{
    const double half = size / 2.0;
    const double step = size / static_cast<double>(columns);
    const auto place = [&](std::size_t i) {
        return i == columns ? half : static_cast<double>(i) * step - half;
    };
    Ring ring = {{-half, -half}};
    for (std::size_t i = 1; i < columns; ++i)
        if (one_in(random, 3))
            ring.push_back({place(i), -half});
    ring.push_back({half, -half});
    for (std::size_t i = columns; i > 0; --i) {
        const double top = size * between(random, 0.1, 1.0) - half;
        ring.push_back({place(i), top});
        ring.push_back({place(i - 1), top});
    }
    return ring;
}

Ring crooked_ring(std::mt19937_64& random, std::size_t n, double size)
{
    Ring ring;
    for (std::size_t i = 0; i < n; ++i) {
        const double x = size * between(random, -0.5, 0.5);
        ring.push_back({x, size * between(random, -0.5, 0.5)});
    }
    untangle(ring);
    return ring;
}

Ring parcel_ring(std::mt19937_64& random, double size)
{
    const std::size_t n = 4 + upto(random, 21);
    switch (upto(random, 8)) {
    case 0:
        return convex_ring(random, n, size);
    case 1:
        return dented_ring(random, n, size);
    case 2:
        return star_ring(random, n, size);
    case 3:
        return comb_ring(random, n / 4 + 1, size);
    case 4:
        return l_ring(random, size);
    case 5:
        return t_ring(random, size);
    case 6:
        return stepped_ring(random, n / 3, size);
    default:
        return turned_rectangle(random, size);
    }
}

Ring reversed(const Ring& ring)
{
    Ring out(ring);
    if (!out.empty())
        std::reverse(out.begin() + 1, out.end());
    return out;
}

Ring begun_at(const Ring& ring, std::size_t vertex)
{
    Ring out(ring);
    std::rotate(out.begin(), out.begin() + static_cast<std::ptrdiff_t>(vertex), out.end());
    return out;
}

Ring with_vertices_on_sides(std::mt19937_64& random, const Ring& ring)
{
    Ring out;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        out.push_back(ring[i]);
        if (!one_in(random, 3))
            continue;
        const PL_PNT2D_record& next = ring[(i + 1) % ring.size()];
        const double t = between(random, 0.1, 0.9);
        out.push_back({ring[i].x + t * (next.x - ring[i].x), ring[i].y + t * (next.y - ring[i].y)});
    }
    return out;
}

Ring with_repeated_vertices(std::mt19937_64& random, const Ring& ring)
{
    Ring out;
    for (const PL_PNT2D_record& p : ring) {
        out.push_back(p);
        if (one_in(random, 3))
            out.push_back(p);
    }
    return out;
}

CPoint3dVector parcel_of(const Ring& ring)
{
    CPoint3dVector parcel;
    double z = 417.25;
    for (const PL_PNT2D_record& p : ring) {
        parcel.Append(p.x, p.y, z);
        z += 1.5;
    }
    return parcel;
}

Ring at_utm_size(std::mt19937_64& random, const Ring& ring)
{
    const double east = between(random, 2e5, 8e5);
    const double north = between(random, 4e6, 6e6);
    Ring out;
    for (const PL_PNT2D_record& p : ring)
        out.push_back({p.x + east, p.y + north});
    return out;
}

}  // namespace test
