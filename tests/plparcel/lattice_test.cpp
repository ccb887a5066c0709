// Rings on a small lattice, where everything that is rare elsewhere happens all the time: vertices level with each
// other, sides in one line, lines that run through vertices and along sides, rings that touch themselves. GEOS
// judges both the rings and the divisions.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <map>
#include <random>
#include <string>

#include "geos_verdict.h"
#include "plparcel/division.h"
#include "support/bits.h"
#include "support/rings.h"
#include "witness/geos.h"

namespace {

using plparcel::Cut;
using plparcel::Division;
using plparcel::Measured;
using plparcel::Request;
using plparcel::Ring;
using plparcel::Status;

using Random = std::mt19937_64;

int whole(Random& random, int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(random);
}

// Any ring on the points of a square, mostly not simple; or a walk round columns of whole heights, always simple
// but for columns of no height.
Ring lattice_ring(Random& random)
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

Ring changed(Random& random, const Ring& ring)
{
    // Turned by a quarter, enlarged by something odd, moved: what is exact stays so, more or less.
    const double scale = whole(random, 0, 1) == 0 ? 1.0 : 17.3;
    const double east = whole(random, 0, 1) == 0 ? 0.0 : 5e5 + 0.1;
    Ring out;
    for (const PL_PNT2D_record& p : ring)
        out.push_back({scale * p.y + east, -scale * p.x});
    return whole(random, 0, 1) == 0 ? out : test::reversed(out);
}

std::string shown(const Ring& ring, const Request& request)
{
    std::string text = "cut " + std::to_string(static_cast<int>(request.cut)) + " index " +
                       std::to_string(request.index) + " measured " +
                       std::to_string(static_cast<int>(request.measured)) + " share " +
                       std::to_string(request.amounts[0].first / request.amounts[0].second) + " ring";
    char point[80];
    for (const PL_PNT2D_record& p : ring) {
        std::snprintf(point, sizeof point, " {%.17g, %.17g}", p.x, p.y);
        text += point;
    }
    return text;
}

TEST(Lattice, RingsAreSimpleWhereGeosSaysSo)
{
    Random random = test::random_source();
    const witness::Geos geos;
    int simple = 0;
    for (int i = 0; i < 20000; ++i) {
        const Ring ring = lattice_ring(random);
        const bool is_simple = plparcel::check_ring(ring).status == plparcel::BoundaryStatus::usable;
        EXPECT_EQ(is_simple, geos.is_valid(geos.polygon(ring)))
            << shown(ring, Request{Cut::parallel, 0, {plparcel::share(1, 1)}, Measured::from_reference});
        simple += is_simple ? 1 : 0;
    }
    EXPECT_GT(simple, 8000);
    EXPECT_LT(simple, 19000);
}

TEST(Lattice, DividedIsRight)
{
    Random random = test::random_source();
    const witness::Geos geos;
    std::map<Status, int> tally;
    for (int i = 0; i < 20000; ++i) {
        const Ring lattice = lattice_ring(random);
        if (plparcel::check_ring(lattice).status != plparcel::BoundaryStatus::usable || has_repeats(lattice))
            continue;
        const Ring ring = changed(random, lattice);
        Request request;
        request.cut = static_cast<Cut>(whole(random, 0, 2));
        request.index = static_cast<std::size_t>(whole(random, 0, static_cast<int>(ring.size()) - 1));
        request.measured = whole(random, 0, 1) == 0 ? Measured::from_reference : Measured::opposite;
        // Sixteenths and twelfths: half of the areas under the lattice's lines are among them.
        const int of = whole(random, 0, 1) == 0 ? 16 : 12;
        request.amounts = {plparcel::share(whole(random, 1, of - 1), of)};
        const Division division = plparcel::divide(ring, request);
        ++tally[division.status];
        if (division.status != Status::divided)
            continue;
        const double asked = division.pieces.at(0).asked;
        EXPECT_EQ(plparcel_test::geos_objection(geos, ring, request, asked, division), "")
            << shown(ring, request);
    }
    for (const auto& [status, times] : tally)
        std::printf("  %d: %s\n", times, describe(status));
    EXPECT_GT(tally[Status::divided], 6000);
    EXPECT_EQ(tally[Status::not_reached], 0);
}

}  // namespace
