#include "witness/cases.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace {

using test::Ring;

constexpr int kDefaultCases = 10000;

// Which side of a-b the point c lies on.
double turn(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool cross(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c,
           const PL_PNT2D_record& d)
{
    return (turn(a, b, c) > 0.0) != (turn(a, b, d) > 0.0) && (turn(c, d, a) > 0.0) != (turn(c, d, b) > 0.0);
}

// Turns round the stretch between two sides that cross, which shortens the ring: it ends.
void untangle(Ring& ring)
{
    const std::size_t n = ring.size();
    bool crossing = true;
    while (crossing) {
        crossing = false;
        for (std::size_t i = 0; i + 2 < n; ++i) {
            for (std::size_t j = i + 2; j < n; ++j) {
                const bool neighbours = i == 0 && j + 1 == n;
                if (neighbours || !cross(ring[i], ring[i + 1], ring[j], ring[(j + 1) % n]))
                    continue;
                std::reverse(ring.begin() + static_cast<std::ptrdiff_t>(i + 1),
                             ring.begin() + static_cast<std::ptrdiff_t>(j + 1));
                crossing = true;
            }
        }
    }
}

// Random points, untangled: nothing about it is regular.
Ring crooked_ring(witness::Random& random, const witness::Size& size)
{
    Ring ring;
    for (int n = random.integer(3, 12); n > 0; --n)
        ring.push_back(random.point(size));
    untangle(ring);
    return ring;
}

// A building with its walls along the axes: a base line with a vertex now and then, and columns of different
// heights on it, the last one at the first vertex.
Ring stepped_ring(witness::Random& random, int columns, double size)
{
    const double half = size / 2.0;
    const double step = size / columns;
    Ring ring = {{-half, -half}};
    for (int i = 1; i < columns; ++i)
        if (random.chance(0.3))
            ring.push_back({i * step - half, -half});
    ring.push_back({half, -half});
    for (int i = columns; i > 0; --i) {
        const double top = size * random.between(0.1, 1.0) - half;
        ring.push_back({i == columns ? half : i * step - half, top});
        ring.push_back({(i - 1) * step - half, top});
    }
    return ring;
}

// A parcel as surveyors meet them, near the origin.
Ring random_parcel(witness::Random& random, double size)
{
    const auto n = static_cast<std::size_t>(random.integer(4, 24));
    switch (random.integer(0, 6)) {
    case 0:
        return test::comb_ring(random.source(), n / 4 + 1, size);
    case 1:
        return test::l_ring(random.source(), size);
    case 2:
        return test::t_ring(random.source(), size);
    case 3:
        return test::dented_ring(random.source(), n, size);
    case 4:
        return test::convex_ring(random.source(), n, size);
    case 5:
        return stepped_ring(random, random.integer(1, 8), size);
    default:
        return test::star_ring(random.source(), n, size);
    }
}

}  // namespace

namespace witness {

int cases()
{
    const char* chosen = std::getenv("PLCALC_WITNESS_CASES");
    return chosen != nullptr ? std::max(1, std::atoi(chosen)) : kDefaultCases;
}

double Random::between(double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(source_);
}

double Random::by_magnitude(double low, double high)
{
    return std::exp(between(std::log(low), std::log(high)));
}

int Random::integer(int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(source_);
}

bool Random::chance(double p)
{
    return between(0.0, 1.0) < p;
}

PL_PNT2D_record Random::point(const Size& size)
{
    const double x = size.origin.x + between(0.0, size.extent);
    return {x, size.origin.y + between(0.0, size.extent)};
}

Ring random_ring(Random& random, const Size& size)
{
    if (random.chance(0.5))
        return crooked_ring(random, size);
    const double half = size.extent / 2.0;
    Ring ring = random_parcel(random, size.extent);
    for (PL_PNT2D_record& p : ring)
        p = {p.x + half + size.origin.x, p.y + half + size.origin.y};
    return random.chance(0.5) ? test::reversed(ring) : ring;
}

void report(const char* format, ...)
{
    std::printf("  ");
    std::va_list arguments;
    va_start(arguments, format);
    std::vprintf(format, arguments);
    va_end(arguments);
    std::printf("\n");
}

std::string size_name(const ::testing::TestParamInfo<Size>& info)
{
    return info.param.name;
}

}  // namespace witness
