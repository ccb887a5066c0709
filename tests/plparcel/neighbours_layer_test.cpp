// Layers of parcels of which some are divided: GEOS says whether gaps or overlaps are left.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "plparcel/division.h"
#include "plparcel/neighbours.h"
#include "support/bits.h"
#include "text_of.h"
#include "witness/geos.h"

namespace {

using parcel_test::text_of;
using plparcel::Parcel;
using plparcel::Ring;
using plparcel::SharedSides;
using plparcel::WithPoints;
using Random = std::mt19937_64;

int whole(Random& random, int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(random);
}

// Where a layer lies. All its coordinates are doubles exactly: vertices on a side lie on it to the last bit.
struct Frame {
    int across = 1;  // the direction of its rows
    int up = 0;
    double scale = 0.25;
    PL_PNT2D_record origin = {};

    PL_PNT2D_record at(int x, int y) const
    {
        return {origin.x + scale * (across * x - up * y), origin.y + scale * (up * x + across * y)};
    }
};

Frame random_frame(Random& random)
{
    Frame frame;
    frame.across = whole(random, 1, 7);
    frame.up = whole(random, -5, 5);
    if (whole(random, 0, 1) == 1)
        frame.origin = {500000.0 + whole(random, 0, 99999), 5000000.0 + whole(random, 0, 99999)};
    return frame;
}

// A rectangle of the frame with the given places on its lower and upper side.
Ring rectangle(const Frame& frame, int west, int east, int south, int north, const std::set<int>& below,
               const std::set<int>& above)
{
    Ring ring;
    ring.push_back(frame.at(west, south));
    for (const int x : below)
        if (x > west && x < east)
            ring.push_back(frame.at(x, south));
    ring.push_back(frame.at(east, south));
    ring.push_back(frame.at(east, north));
    for (auto x = above.rbegin(); x != above.rend(); ++x)
        if (*x > west && *x < east)
            ring.push_back(frame.at(*x, north));
    ring.push_back(frame.at(west, north));
    return ring;
}

void turn_anyhow(Random& random, Ring& ring)
{
    std::rotate(ring.begin(), ring.begin() + whole(random, 0, static_cast<int>(ring.size()) - 1), ring.end());
    if (whole(random, 0, 1) == 1)
        std::reverse(ring.begin(), ring.end());
}

// Rows of rectangles, each row parted anyhow; some have another parcel in a hole. In half of the layers parcels have
// their neighbours' corners as vertices, in the others only their own:
//
//     +--------+----+---------+
//     |        |    |  +--+   |
//     |        |    |  +--+   |
//     +---+----+--+-+-+-------+
//     |   |       |   |       |
//     +---+-------+---+-------+
std::vector<Parcel> random_layer(Random& random)
{
    constexpr int kWidth = 240;
    constexpr int kHeight = 80;
    const Frame frame = random_frame(random);
    const bool noded = whole(random, 0, 1) == 1;
    const int rows = whole(random, 1, 4);
    std::vector<std::set<int>> parted;
    for (int row = 0; row < rows; ++row) {
        parted.push_back({0, kWidth});
        for (int i = whole(random, 0, 3); i > 0; --i)
            parted.back().insert(20 * whole(random, 1, 11));
    }
    std::vector<Parcel> layer;
    for (int row = 0; row < rows; ++row) {
        const auto of_row = [&](int k) {
            return noded && k >= 0 && k < rows ? parted[static_cast<std::size_t>(k)] : std::set<int>();
        };
        const std::set<int>& ends = parted[static_cast<std::size_t>(row)];
        for (auto east = std::next(ends.begin()); east != ends.end(); ++east) {
            const int west = *std::prev(east);
            const int south = kHeight * row;
            Parcel parcel = {
                rectangle(frame, west, *east, south, south + kHeight, of_row(row - 1), of_row(row + 1)), {}};
            if (whole(random, 0, 4) == 0) {
                Ring island =
                    rectangle(frame, west + 5, *east - 7, south + 30, south + whole(random, 40, 60), {}, {});
                parcel.holes.push_back(island);
                turn_anyhow(random, parcel.holes.back());
                layer.push_back({island, {}});
                turn_anyhow(random, layer.back().outer);
            }
            turn_anyhow(random, parcel.outer);
            layer.push_back(parcel);
        }
    }
    return layer;
}

plparcel::Request random_request(Random& random, const Parcel& parcel)
{
    plparcel::Request request;
    const auto side = static_cast<std::size_t>(whole(random, 0, static_cast<int>(parcel.outer.size()) - 1));
    switch (whole(random, 0, 4)) {
    case 0:
        request.line = plparcel::parallel_to(side);
        break;
    case 1:
        request.line = plparcel::perpendicular_to(side);
        break;
    case 2:
        request.line = plparcel::through_vertex(side);
        break;
    case 3:
        request.line = plparcel::through_place(side, whole(random, 1, 9));
        break;
    default:
        request.line = plparcel::at_bearing(whole(random, 0, 399));
        break;
    }
    const bool one =
        request.line.cut == plparcel::Cut::through_vertex || request.line.cut == plparcel::Cut::through_place;
    request.pieces = one ? plparcel::Pieces::two : plparcel::Pieces::any;
    request.amounts = {plparcel::share(whole(random, 20, 30), 100.0)};
    if (!one && whole(random, 0, 1) == 1)
        request.amounts = plparcel::equal_parts(static_cast<std::size_t>(whole(random, 2, 5)));
    constexpr int kDecimals[] = {-1, 1, 2, 3, 4, 4};
    const int decimals = kDecimals[whole(random, 0, 5)];
    if (decimals >= 0)
        request.rounding.decimals = decimals;
    request.rounding.tolerance = 1e-2;
    return request;
}

struct Judged {
    const witness::Geos& geos;
    std::vector<witness::Geometry> shapes;
    double area = 0.0;

    void add(const Parcel& parcel)
    {
        shapes.push_back(geos.polygon(parcel.outer, parcel.holes));
        area += geos.area(shapes.back());
    }

    // Why the parcels do not lie side by side; empty where they do.
    std::string objection() const
    {
        const witness::Geometry all = geos.united(shapes);
        if (geos.rings(all) != 1)
            return "a gap";
        if (!(std::fabs(geos.area(all) - area) <= 1e-10 * area))
            return "areas";
        for (std::size_t i = 0; i < shapes.size(); ++i)
            for (std::size_t k = 0; k < i; ++k)
                if (geos.insides_meet(shapes[i], shapes[k]))
                    return "an overlap";
        return "";
    }
};

std::size_t wanted_layers()
{
    const char* const chosen = std::getenv("PLCALC_DIVISIONS");
    return chosen != nullptr ? static_cast<std::size_t>(std::atol(chosen)) / 10 : 400;
}

TEST(NeighboursLayers, HaveNeitherGapsNorOverlaps)
{
    Random random = test::random_source();
    const witness::Geos geos;
    std::size_t inserted = 0;
    std::size_t bent = 0;
    std::size_t beside = 0;
    for (std::size_t i = 0; i < wanted_layers(); ++i) {
        const std::vector<Parcel> layer = random_layer(random);
        std::vector<plparcel::NewPoint> points;
        std::vector<Parcel> pieces;
        std::vector<Parcel> undivided;
        for (const Parcel& parcel : layer) {
            plparcel::Division division;
            if (whole(random, 0, 2) > 0)
                division = plparcel::divide(parcel, random_request(random, parcel));
            const std::vector<plparcel::NewPoint> more = new_points(parcel, division);
            points.insert(points.end(), more.begin(), more.end());
            for (const Parcel& piece : pieces_with_corners(parcel, division))
                pieces.push_back(piece);
            if (division.pieces.empty())
                undivided.push_back(parcel);
        }
        const SharedSides shared(points, 0.001, [&](const SharedSides::Take& take) {
            for (const Parcel& parcel : layer)
                take(parcel);
        });
        Judged before = {geos, {}};
        Judged after = {geos, {}};
        Judged whole_layer = {geos, {}};
        std::size_t beside_here = 0;
        for (const Parcel& parcel : layer)
            whole_layer.add(parcel);
        for (const std::vector<Parcel>* parcels : {&pieces, &undivided})
            for (const Parcel& parcel : *parcels) {
                const WithPoints with = shared.with_points(parcel);
                before.add(parcel);
                after.add(with.parcel);
                inserted += with.inserted;
                beside_here += with.beside;
                EXPECT_FALSE(with.left_out) << i;
                EXPECT_NEAR(after.geos.area(after.shapes.back()) - before.geos.area(before.shapes.back()),
                            with.area_change, 1e-9)
                    << i;
            }
        beside += beside_here;
        bent += before.objection().empty() ? 0 : 1;
        const std::string objection = beside_here == 0 ? after.objection() : "";
        EXPECT_EQ(objection, "") << i;
        // Together they cover what the layer covered, up to what the rounding of points moves the outer sides.
        const witness::Geometry moved =
            geos.difference(geos.united(after.shapes), geos.united(whole_layer.shapes));
        EXPECT_LE(geos.area(moved), 0.05 * 4000.0) << i;
        if (HasFailure()) {
            for (const Parcel& parcel : layer)
                std::printf("parcel %s\n", text_of(parcel.outer).c_str());
            for (const plparcel::NewPoint& p : points)
                std::printf("point %s\n", text_of({p.at, p.side.from, p.side.to}).c_str());
            break;
        }
    }
    std::printf(
        "%zu points inserted; %zu layers had gaps or overlaps without them; %zu points beside vertices\n",
        inserted, bent, beside);
    EXPECT_GT(inserted, wanted_layers());
    EXPECT_GT(bent, wanted_layers() / 4);
}

}  // namespace
