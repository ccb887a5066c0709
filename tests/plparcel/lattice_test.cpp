// Rings on a small lattice: GEOS judges both the rings and the divisions.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "geos_verdict.h"
#include "lattice.h"
#include "plparcel/division.h"
#include "support/bits.h"
#include "witness/geos.h"

namespace {

using parcel_test::changed;
using parcel_test::has_repeats;
using parcel_test::lattice_ring;
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

std::string shown(const Ring& ring, const Request& request)
{
    std::string text = "cut " + std::to_string(static_cast<int>(request.line.cut)) + " index " +
                       std::to_string(request.line.index) + " measured " +
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
        EXPECT_EQ(is_simple, geos.is_valid(geos.polygon(ring))) << shown(
            ring, Request{plparcel::parallel_to(0), {plparcel::share(1, 1)}, Measured::from_reference});
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
        request.line.cut = static_cast<Cut>(whole(random, 0, 4));
        request.line.bearing = 25.0 * whole(random, 0, 15);
        request.line.a = ring[0];
        request.line.b = ring[2];
        request.line.index = static_cast<std::size_t>(whole(random, 0, static_cast<int>(ring.size()) - 1));
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

// A line clear of all vertices but its ends, prolonged beyond them.
bool is_clear(const Ring& ring, const plparcel::DividingLine& line)
{
    const double dx = line.to.x - line.from.x;
    const double dy = line.to.y - line.from.y;
    const double length = std::hypot(dx, dy);
    return std::none_of(ring.begin(), ring.end(), [&](const PL_PNT2D_record& v) {
        return std::fabs((v.y - line.from.y) * dx - (v.x - line.from.x) * dy) <= 1e-6 * length;
    });
}

TEST(Lattice, WholeLinesMakeTheFacesOfGeos)
{
    Random random = test::random_source();
    const witness::Geos geos;
    std::size_t compared = 0;
    std::size_t turned = 0;
    for (int i = 0; i < 10000; ++i) {
        const Ring ring = lattice_ring(random);
        if (plparcel::check_ring(ring).status != plparcel::BoundaryStatus::usable || has_repeats(ring))
            continue;
        Request request;
        request.pieces = plparcel::Pieces::any;
        const auto side = static_cast<std::size_t>(whole(random, 0, static_cast<int>(ring.size()) - 1));
        const plparcel::Line lines[] = {
            plparcel::at_bearing(25.0 * whole(random, 0, 15)), plparcel::parallel_to(side),
            plparcel::through_vertex(side),
            plparcel::through_point({0.5 * whole(random, -4, 14), 0.5 * whole(random, -4, 14)})};
        const int way = whole(random, 0, 3);
        request.line = lines[way];
        request.amounts = {plparcel::share(whole(random, 1, 15), 16)};
        const Division division = plparcel::divide(ring, request);
        if (way >= 2 && division.status == Status::no_line_through_point)
            continue;
        ASSERT_EQ(division.status, Status::divided) << describe(division) << ": " << shown(ring, request);
        turned += way >= 2 ? 1 : 0;
        const plparcel::DividingLine& line = division.lines[0];
        if (!is_clear(ring, line))
            continue;
        const double x = 1e-6 * (line.to.x - line.from.x);
        const double y = 1e-6 * (line.to.y - line.from.y);
        std::vector<double> areas;
        for (const witness::Geometry& face :
             geos.split(ring, {{line.from.x - x, line.from.y - y}, {line.to.x + x, line.to.y + y}}))
            areas.push_back(geos.area(face));
        std::vector<double> pieces;
        for (const plparcel::Piece& piece : division.pieces)
            pieces.push_back(piece.area);
        std::sort(areas.begin(), areas.end());
        std::sort(pieces.begin(), pieces.end());
        // GEOS also makes faces of what lies outside, between the line and the boundary.
        double sum = 0.0;
        auto face = areas.begin();
        for (const double piece : pieces) {
            face = std::find_if(face, areas.end(), [&](double area) {
                return std::fabs(area - piece) <= 1e-9 * division.ring.area;
            });
            ASSERT_NE(face, areas.end()) << "no face of " << piece << ": " << shown(ring, request);
            ++face;
            sum += piece;
        }
        EXPECT_NEAR(sum, division.ring.area, 1e-9 * division.ring.area) << shown(ring, request);
        ++compared;
    }
    std::printf("  %zu compared, %zu lines through vertices and points\n", compared, turned);
    EXPECT_GT(compared, 1000U);
    EXPECT_GT(turned, 1000U);
}

}  // namespace
