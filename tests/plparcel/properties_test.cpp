// What must hold for any parcel: moved, reversed, measured from the other side, cut into parts.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "brute_force.h"
#include "plparcel/division.h"
#include "support/bits.h"
#include "support/measures.h"
#include "support/parcel_kinds.h"
#include "support/rings.h"

namespace {

using plparcel::Cut;
using plparcel::divide;
using plparcel::Division;
using plparcel::Measured;
using plparcel::Request;
using plparcel::Ring;
using plparcel::Status;

using Random = std::mt19937_64;

std::size_t whole(Random& random, std::size_t low, std::size_t high)
{
    return std::uniform_int_distribution<std::size_t>(low, high)(random);
}

double between(Random& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

Ring any_ring(Random& random)
{
    const std::vector<test::ParcelKind>& kinds = test::parcel_kinds();
    const Ring ring = kinds[whole(random, 0, kinds.size() - 1)].make(random);
    return whole(random, 0, 1) == 0 ? ring : test::reversed(ring);
}

Request any_request(Random& random, const Ring& ring)
{
    Request request;
    request.line.cut = static_cast<Cut>(whole(random, 0, 2));
    request.line.index = whole(random, 0, ring.size() - 1);
    request.measured = whole(random, 0, 1) == 0 ? Measured::from_reference : Measured::opposite;
    request.amounts = {plparcel::share(between(random, 0.01, 0.99), 1.0)};
    return request;
}

std::string shown(const Ring& ring, const Request& request)
{
    std::string text = "cut " + std::to_string(static_cast<int>(request.line.cut)) + " index " +
                       std::to_string(request.line.index) + " measured " +
                       std::to_string(static_cast<int>(request.measured)) + " ring";
    char point[80];
    for (const PL_PNT2D_record& p : ring) {
        std::snprintf(point, sizeof point, " {%a, %a}", p.x, p.y);
        text += point;
    }
    return text;
}

double distance(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

// Whether two divisions have one line, its direction left aside, within a rounding of large coordinates that an
// acute angle multiplies.
void expect_same_line(const Division& a, const Division& b, const std::string& what)
{
    ASSERT_EQ(a.status, b.status) << what;
    if (a.status != Status::divided)
        return;
    constexpr double kNear = 1e-5;
    const plparcel::DividingLine& l = a.lines.at(0);
    const plparcel::DividingLine& m = b.lines.at(0);
    const double straight = std::max(distance(l.from, m.from), distance(l.to, m.to));
    const double crossed = std::max(distance(l.from, m.to), distance(l.to, m.from));
    EXPECT_LE(std::min(straight, crossed), kNear) << what;
}

constexpr int kCases = 3000;

TEST(Properties, TheOtherSideAsksForTheRest)
{
    Random random = test::random_source();
    for (int i = 0; i < kCases; ++i) {
        const Ring ring = any_ring(random);
        Request request = any_request(random, ring);
        const double part = request.amounts[0].first;
        const Division one = divide(ring, request);
        request.measured =
            request.measured == Measured::opposite ? Measured::from_reference : Measured::opposite;
        request.amounts = {plparcel::share(1.0 - part, 1.0)};
        expect_same_line(one, divide(ring, request), shown(ring, request));
    }
}

TEST(Properties, ARingTheOtherWayRoundHasTheSameLines)
{
    Random random = test::random_source();
    for (int i = 0; i < kCases; ++i) {
        const Ring ring = any_ring(random);
        const std::size_t n = ring.size();
        Request request = any_request(random, ring);
        const Division one = divide(ring, request);
        // Vertex 0 stays, the others count backwards; so do the sides. Ahead and after become behind and before.
        request.line.index = request.line.cut == Cut::through_vertex ? (n - request.line.index) % n
                                                                     : n - 1 - request.line.index;
        if (request.line.cut != Cut::parallel)
            request.measured =
                request.measured == Measured::opposite ? Measured::from_reference : Measured::opposite;
        expect_same_line(one, divide(test::reversed(ring), request), shown(ring, request));
    }
}

TEST(Properties, APowerOfTwoChangesNothing)
{
    Random random = test::random_source();
    for (int i = 0; i < kCases; ++i) {
        const Ring ring = any_ring(random);
        const Request request = any_request(random, ring);
        const int exponent = static_cast<int>(whole(random, 0, 40)) - 20;
        Ring scaled;
        for (const PL_PNT2D_record& p : ring)
            scaled.push_back({std::ldexp(p.x, exponent), std::ldexp(p.y, exponent)});
        const Division one = divide(ring, request);
        const Division other = divide(scaled, request);
        ASSERT_EQ(one.status, other.status);
        if (one.status != Status::divided)
            continue;
        EXPECT_BITS(other.lines[0].from.x, std::ldexp(one.lines[0].from.x, exponent));
        EXPECT_BITS(other.lines[0].to.y, std::ldexp(one.lines[0].to.y, exponent));
        EXPECT_BITS(other.pieces[0].area, std::ldexp(one.pieces[0].area, 2 * exponent));
    }
}

TEST(Properties, EqualPartsAreEqualAndAddUp)
{
    Random random = test::random_source();
    int divided = 0;
    for (int i = 0; i < kCases / 3; ++i) {
        const Ring ring = any_ring(random);
        Request request = any_request(random, ring);
        const std::size_t n = whole(random, 2, 9);
        request.amounts = plparcel::equal_parts(n);
        const Division division = divide(ring, request);
        if (division.status != Status::divided)
            continue;
        ++divided;
        ASSERT_EQ(division.pieces.size(), n);
        ASSERT_EQ(division.lines.size(), n - 1);
        long double sum = 0.0L;
        const long double parcel = std::fabs(test::signed_area(ring));
        for (const plparcel::Piece& piece : division.pieces) {
            const long double got = std::fabs(test::signed_area(piece.ring));
            EXPECT_LE(std::fabs(got - parcel / static_cast<long double>(n)), 1e-9L * parcel)
                << shown(ring, request);
            EXPECT_EQ(test::signed_area(piece.ring) > 0, test::signed_area(ring) > 0);
            sum += got;
        }
        EXPECT_LE(std::fabs(sum - parcel), 1e-9L * parcel) << shown(ring, request);
    }
    EXPECT_GT(divided, kCases / 3 / 2);
}

// The reason of a refusal is the truth: no line of that kind does it.
TEST(Properties, WhatIsRefusedCannotBeDone)
{
    constexpr int kTrials = 150;
    Random random = test::random_source();
    int refused = 0;
    int existing = 0;
    for (int i = 0; i < 2 * kCases; ++i) {
        const Ring ring = any_ring(random);
        const Request request = any_request(random, ring);
        const Division division = divide(ring, request);
        const auto parcel = static_cast<double>(std::fabs(test::signed_area(ring)));
        const bool exists =
            plparcel_test::line_exists(ring, request, request.amounts[0].first * parcel, kTrials);
        existing += exists ? 1 : 0;
        if (division.status == Status::divided || division.status == Status::not_reached)
            continue;
        ++refused;
        EXPECT_FALSE(exists) << describe(division.status) << " of " << request.amounts[0].first << ", "
                             << shown(ring, request);
    }
    EXPECT_GT(refused, 2 * kCases / 100);
    EXPECT_GT(existing, kCases);
    std::printf("  %d of %d refused, and no line found for any\n", refused, 2 * kCases);
}

}  // namespace
