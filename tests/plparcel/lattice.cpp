#include "lattice.h"

#include <cstddef>

#include "support/rings.h"

namespace parcel_test {
namespace {

using Random = std::mt19937_64;

int whole(Random& random, int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(random);
}

}  // namespace

Ring lattice_ring(std::mt19937_64& random)
{
    Ring ring;
    if (whole(random, 0, 1) == 0) {
        for (int n = whole(random, 3, 8); n > 0; --n)
            ring.push_back({1.0 * whole(random, 0, 5), 1.0 * whole(random, 0, 5)});
        return ring;
    }
    const int columns = whole(random, 1, 5);
    ring = {{0.0, 0.0}, {1.0 * columns, 0.0}};
    for (int i = columns; i > 0; --i) {
        const double top = whole(random, 1, 4);
        ring.push_back({1.0 * i, top});
        ring.push_back({i - 1.0, top});
    }
    return ring;
}

bool has_repeats(const Ring& ring)
{
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record& next = ring[(i + 1) % ring.size()];
        if (ring[i].x == next.x && ring[i].y == next.y)
            return true;
    }
    return false;
}

Ring changed(std::mt19937_64& random, const Ring& ring)
{
    // Turned by a quarter, enlarged by something odd, moved: what is exact stays so, more or less.
    const double scale = whole(random, 0, 1) == 0 ? 1.0 : 17.3;
    const double east = whole(random, 0, 1) == 0 ? 0.0 : 5e5 + 0.1;
    Ring out;
    for (const PL_PNT2D_record& p : ring)
        out.push_back({scale * p.y + east, -scale * p.x});
    return whole(random, 0, 1) == 0 ? out : test::reversed(out);
}

}  // namespace parcel_test
