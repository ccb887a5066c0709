// What a caller may rely on: on convex parcels near the origin every request between 5 and 95 % of the
// parcel is met, in each mode and both directions of the ring. The pieces are measured in long double.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "support/bits.h"
#include "support/cut_state.h"
#include "support/measures.h"
#include "support/rings.h"

namespace {

using In = CFrazAreaInspector;
using test::Ring;

constexpr int kRequests = 10000;

// What ends the searches, of the request; and what the library's own sums round, of the parcel.
constexpr long double kRelTol = 1e-6L;
constexpr long double kRounding = 1e-12L;

// What thirty halvings leave of the parcel, at most: the strip between the last two lines is a 2^-30 of the
// depth of the half that is cut, and nowhere more than twice as wide as the half is on average.
constexpr long double kThirtyHalvings = 0x1p-29L;

// Crossings count up to 0.001 outside a side's box; an end that far out is next to a corner.
constexpr long double kOutsideCorner = 0.001415L;
constexpr long double kOnBoundary = 1e-6L;

struct Request {
    Ring ring;
    std::size_t side;
    double area;

    const PL_PNT2D_record& p1() const { return ring[side]; }
    const PL_PNT2D_record& p2() const { return ring[(side + 1) % ring.size()]; }
};

Request random_request(std::mt19937_64& random)
{
    const auto upto = [&random](std::size_t n) {
        return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
    };
    const double size = std::pow(10.0, std::uniform_real_distribution<double>(1.0, 3.0)(random));
    Request r;
    r.ring = test::convex_ring(random, 3 + upto(38), size);
    if (upto(2) == 0)
        r.ring = test::reversed(r.ring);
    r.side = upto(r.ring.size());
    r.area = std::uniform_real_distribution<double>(0.05, 0.95)(random) *
             static_cast<double>(std::fabs(test::signed_area(r.ring)));
    return r;
}

std::string shown(const Request& r)
{
    std::string text = "side " + std::to_string(r.side);
    char number[80];
    std::snprintf(number, sizeof number, ", area %a (%.17g), ring", r.area, r.area);
    text += number;
    for (const PL_PNT2D_record& p : r.ring) {
        std::snprintf(number, sizeof number, "\n    {%a, %a}", p.x, p.y);
        text += number;
    }
    return text;
}

// The part of the parcel on that side of the dividing line on which r lies.
long double piece_with(const Request& request, const test::Answer& line, const PL_PNT2D_record& r)
{
    return test::side_of(line.p1, line.p2, r) >= 0 ? test::area_left_of(request.ring, line.p1, line.p2)
                                                   : test::area_left_of(request.ring, line.p2, line.p1);
}

void expect_on_boundary(const Request& request, const PL_PNT2D_record& end)
{
    const long double off = test::distance_to_boundary(request.ring, end);
    if (off > kOnBoundary) {
        EXPECT_LE(test::distance_to_vertices(request.ring, end), kOutsideCorner)
            << "off by " << static_cast<double>(off);
    }
}

// allowed is how far the measured piece may be from the request.
void expect_piece(const Request& request, long double measured, long double allowed)
{
    const long double rounding = kRounding * std::fabs(test::signed_area(request.ring));
    EXPECT_LE(std::fabs(measured - request.area), allowed + rounding)
        << "measured " << static_cast<double>(measured);
}

TEST(ConvexRequests, AParallelHoldsTheRequestNextToTheSide)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < kRequests; ++i) {
        const Request request = random_request(random);
        const CPoint3dVector parcel = test::parcel_of(request.ring);
        CFrazArea cut(parcel, request.p1(), request.p2(), 0, 1, request.area, 0.0);
        const test::Answer line = test::run(cut);

        EXPECT_TRUE(line.done);
        EXPECT_TRUE(In::Trovato(cut));
        expect_on_boundary(request, line.p1);
        expect_on_boundary(request, line.p2);
        const PL_PNT2D_record middle = {(request.p1().x + request.p2().x) / 2,
                                        (request.p1().y + request.p2().y) / 2};
        expect_piece(request, piece_with(request, line, middle), kRelTol * request.area);
        // Parallel: both ends as far from the side.
        EXPECT_NEAR(static_cast<double>(test::distance_to_line(request.p1(), request.p2(), line.p1)),
                    static_cast<double>(test::distance_to_line(request.p1(), request.p2(), line.p2)), 1e-7);
        if (HasFailure())
            FAIL() << shown(request);
    }
}

TEST(ConvexRequests, APerpendicularHoldsTheRequestAheadAlongTheSide)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < kRequests; ++i) {
        const Request request = random_request(random);
        const CPoint3dVector parcel = test::parcel_of(request.ring);
        CFrazArea cut(parcel, request.p1(), request.p2(), 1, 1, request.area, 0.0);
        const test::Answer line = test::run(cut);

        EXPECT_TRUE(line.done);
        expect_on_boundary(request, line.p1);
        expect_on_boundary(request, line.p2);
        const PL_PNT2D_record ahead = {line.p1.x + (request.p2().x - request.p1().x),
                                       line.p1.y + (request.p2().y - request.p1().y)};
        // The search's tolerance is on the rest that it cuts off the half, which is what AreaRichiesta holds.
        // A request of nearly the half leaves a rest too small for that: the line is then as near as thirty
        // halvings bring it.
        const long double allowed = kRelTol * In::AreaRichiesta(cut);
        const long double finest = kThirtyHalvings * std::fabs(test::signed_area(request.ring));
        EXPECT_TRUE(In::Trovato(cut) || allowed < finest);
        expect_piece(request, piece_with(request, line, ahead), In::Trovato(cut) ? allowed : finest);
        if (HasFailure())
            FAIL() << shown(request);
    }
}

TEST(ConvexRequests, ALineThroughAVertexHoldsTheRequestNextToTheSideAfterIt)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < kRequests; ++i) {
        const Request request = random_request(random);
        const CPoint3dVector parcel = test::parcel_of(request.ring);
        CFrazArea cut(parcel, request.p1(), {0.0, 0.0}, 2, 1, request.area, 0.0);
        const test::Answer line = test::run(cut);

        EXPECT_TRUE(line.done);
        EXPECT_TRUE(In::Trovato(cut));
        EXPECT_POINT(line.p1, (request.p1()));
        expect_on_boundary(request, line.p2);
        expect_piece(request, piece_with(request, line, request.p2()), kRelTol * request.area);
        if (HasFailure())
            FAIL() << shown(request);
    }
}

}  // namespace
