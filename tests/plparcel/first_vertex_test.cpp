// A ring begun at another vertex is the same parcel: the same status, and the same lines to the last bit.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "lattice.h"
#include "plparcel/division.h"
#include "support/bits.h"
#include "support/parcel_kinds.h"
#include "support/rings.h"

namespace {

using plparcel::Cut;
using plparcel::divide;
using plparcel::Division;
using plparcel::Line;
using plparcel::Measured;
using plparcel::Request;
using plparcel::Ring;
using plparcel::RingReport;
using plparcel::Status;

using Random = std::mt19937_64;

std::size_t whole(Random& random, std::size_t low, std::size_t high)
{
    return std::uniform_int_distribution<std::size_t>(low, high)(random);
}

// Of the kinds of parcels, with vertices on sides and vertices twice now and then, either way round.
Ring any_ring(Random& random)
{
    const std::vector<test::ParcelKind>& kinds = test::parcel_kinds();
    Ring ring = kinds[whole(random, 0, kinds.size() - 1)].make(random);
    if (whole(random, 0, 3) == 0)
        ring = test::with_repeated_vertices(random, ring);
    return whole(random, 0, 1) == 0 ? ring : test::reversed(ring);
}

// Along, across or from a side or vertex; from a place on a side; through a point between three vertices, often in line
// with some; at a bearing, often along an axis or a diagonal.
Line any_line(Random& random, const Ring& ring)
{
    const std::size_t index = whole(random, 0, ring.size() - 1);
    const double part = static_cast<double>(whole(random, 0, 8)) / 8.0;
    const PL_PNT2D_record& a = ring[index];
    const PL_PNT2D_record& b = ring[(index + 1) % ring.size()];
    const PL_PNT2D_record& c = ring[whole(random, 0, ring.size() - 1)];
    const std::size_t kind = whole(random, 0, 5);
    if (kind == 5)
        return plparcel::at_bearing(25.0 * static_cast<double>(whole(random, 0, 15)));
    if (kind == 3)
        return plparcel::through_place(index, part * std::hypot(b.x - a.x, b.y - a.y));
    if (kind == 4)
        return plparcel::through_point(
            {0.5 * c.x + 0.5 * (a.x + part * (b.x - a.x)), 0.5 * c.y + 0.5 * (a.y + part * (b.y - a.y))},
            50.0 * static_cast<double>(whole(random, 0, 7)));
    Line line;
    line.cut = static_cast<Cut>(kind);
    line.index = index;
    return line;
}

Request any_request(Random& random, const Ring& ring)
{
    Request request;
    request.line = any_line(random, ring);
    request.measured = whole(random, 0, 1) == 0 ? Measured::from_reference : Measured::opposite;
    const double of = whole(random, 0, 1) == 0 ? 16.0 : 12.0;
    if (whole(random, 0, 3) == 0)
        request.amounts = plparcel::equal_parts(whole(random, 2, 5));
    else
        request.amounts = {plparcel::share(static_cast<double>(whole(random, 1, 11)), of)};
    return request;
}

std::string shown(const Ring& ring, const Request& request, std::size_t begun_at)
{
    char text[160];
    std::snprintf(text, sizeof text,
                  "begun at %zu, cut %d, index %zu, measured %d, %zu amounts, share %g of %g, ring", begun_at,
                  static_cast<int>(request.line.cut), request.line.index, static_cast<int>(request.measured),
                  request.amounts.size(), request.amounts[0].first, request.amounts[0].second);
    std::string all = text;
    for (const PL_PNT2D_record& p : ring) {
        std::snprintf(text, sizeof text, " {%a, %a}", p.x, p.y);
        all += text;
    }
    return all;
}

Division begun_at(const Ring& ring, const Request& request, std::size_t vertex)
{
    Request moved = request;
    moved.line.index = (request.line.index + ring.size() - vertex) % ring.size();
    return divide(test::begun_at(ring, vertex), moved);
}

void expect_the_same(const Division& one, const Division& other)
{
    ASSERT_EQ(one.status, other.status);
    EXPECT_EQ(one.at_amount, other.at_amount);
    EXPECT_BITS(one.ring.area, other.ring.area);
    EXPECT_EQ(one.ring.anticlockwise, other.ring.anticlockwise);
    ASSERT_EQ(one.lines.size(), other.lines.size());
    ASSERT_EQ(one.pieces.size(), other.pieces.size());
    for (std::size_t i = 0; i < one.lines.size(); ++i) {
        EXPECT_POINT(one.lines[i].from, (other.lines[i].from));
        EXPECT_POINT(one.lines[i].to, (other.lines[i].to));
        EXPECT_EQ(one.lines[i].meets_again, other.lines[i].meets_again);
    }
    for (std::size_t i = 0; i < one.pieces.size(); ++i)
        EXPECT_BITS(one.pieces[i].area, other.pieces[i].area);
}

void expect_the_same_from_any_vertex(const Ring& ring, const Request& request, const Division& one)
{
    for (std::size_t vertex = 1; vertex < ring.size(); ++vertex) {
        SCOPED_TRACE(shown(ring, request, vertex));
        expect_the_same(one, begun_at(ring, request, vertex));
    }
}

TEST(FirstVertex, OfParcelsOfAnyKindMakesNoDifference)
{
    Random random = test::random_source();
    int divided = 0;
    constexpr int kCases = 2000;
    for (int i = 0; i < kCases; ++i) {
        const Ring ring = any_ring(random);
        const Request request = any_request(random, ring);
        const Division one = divide(ring, request);
        expect_the_same_from_any_vertex(ring, request, one);
        divided += one.status == Status::divided ? 1 : 0;
    }
    EXPECT_GT(divided, kCases / 2);
}

TEST(FirstVertex, OfParcelsOnALatticeMakesNoDifference)
{
    Random random = test::random_source();
    int divided = 0;
    constexpr int kCases = 4000;
    for (int i = 0; i < kCases; ++i) {
        const Ring ring = parcel_test::changed(random, parcel_test::lattice_ring(random));
        const Request request = any_request(random, ring);
        const Division one = divide(ring, request);
        expect_the_same_from_any_vertex(ring, request, one);
        divided += one.status == Status::divided ? 1 : 0;
    }
    EXPECT_GT(divided, kCases / 4);
}

}  // namespace
