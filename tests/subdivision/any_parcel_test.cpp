// What holds on every parcel, sensible or not: each call ends, true and false mean what the contract says, the
// working members agree with one another, and the ends of a line that is found lie on the boundary.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include "support/bits.h"
#include "support/cut_state.h"
#include "support/measures.h"
#include "support/rings.h"

namespace {

using In = CFrazAreaInspector;
using test::Ring;

constexpr int kParcels = 3000;

// A crossing lies on the line of a side and at most 0.001 outside the side's box. At the coordinates of a map
// the line itself is off by some 1e-9 of its distance from the origin, and by more where the two cross at a
// sharp angle.
constexpr long double kOutsideCorner = 0.001415L;
constexpr long double kRoundingLocal = 1e-6L;

std::size_t upto(std::mt19937_64& random, std::size_t n)
{
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
}

Ring random_ring(std::mt19937_64& random)
{
    const double size = std::pow(10.0, std::uniform_real_distribution<double>(0.0, 4.0)(random));
    Ring ring = test::parcel_ring(random, size);
    if (upto(random, 2) == 0)
        ring = test::reversed(ring);
    if (upto(random, 3) == 0)
        ring = test::with_vertices_on_sides(random, ring);
    if (upto(random, 3) == 0)
        ring = test::with_repeated_vertices(random, ring);
    return ring;
}

// Coordinates that no survey has, and rings without order.
Ring wild_ring(std::mt19937_64& random)
{
    const double strange[] = {std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              0.0,
                              -0.0,
                              1e-7,
                              1e-300,
                              std::numeric_limits<double>::denorm_min(),
                              1e18,
                              -1e160,
                              std::numeric_limits<double>::max()};
    Ring ring = upto(random, 2) == 0 ? random_ring(random) : Ring(upto(random, 6));
    for (PL_PNT2D_record& p : ring) {
        if (upto(random, 3) == 0)
            p.x = strange[upto(random, std::size(strange))];
        if (upto(random, 3) == 0)
            p.y = strange[upto(random, std::size(strange))];
    }
    return ring;
}

bool same(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return p.x == q.x && p.y == q.y;
}

struct Request {
    Ring ring;
    std::size_t side;
    int modo;
    double area;
};

std::string shown(const Request& r)
{
    char number[80];
    std::snprintf(number, sizeof number, "side %zu, modo %d, area %a, ring", r.side, r.modo, r.area);
    std::string text = number;
    for (const PL_PNT2D_record& p : r.ring) {
        std::snprintf(number, sizeof number, "\n    {%a, %a}", p.x, p.y);
        text += number;
    }
    return text;
}

Request random_request(std::mt19937_64& random, const Ring& ring)
{
    const double area = static_cast<double>(std::fabs(test::signed_area(ring)));
    const double factors[] = {0.0, 1.0, 1.5, -0.5, std::uniform_real_distribution<double>(0.0, 1.0)(random)};
    const double share = upto(random, 4) == 0 ? factors[upto(random, std::size(factors))] : factors[4];
    return {ring, ring.empty() ? 0 : upto(random, ring.size()), static_cast<int>(upto(random, 3)),
            share * area};
}

// Whether the mode promises true: the reference is in the ring, and there are enough points. A perpendicular
// may still meet nothing.
bool reference_found(const Request& r, const PL_PNT2D_record& p1, const PL_PNT2D_record& p2)
{
    for (std::size_t k = 0; k < r.ring.size(); ++k)
        if (same(r.ring[k], p1) && (r.modo == 2 || same(r.ring[(k + 1) % r.ring.size()], p2)))
            return r.modo == 2 || r.ring.size() > 1;
    return false;
}

void expect_members_agree(CFrazArea& cut)
{
    const std::int32_t n = In::NumPunti(cut);
    EXPECT_EQ(In::VettPoligono(cut).size(), static_cast<std::size_t>(n) + 1);
    EXPECT_GE(In::VettIndici(cut).size(), static_cast<std::size_t>(n) + 1);
    for (const std::int32_t index : In::VettIndici(cut)) {
        EXPECT_GE(index, 0);
        EXPECT_LE(index, n);
    }
    EXPECT_EQ(In::VettParziale(cut).size(), static_cast<std::size_t>(In::NumPuntiParz(cut)));
    EXPECT_LE(In::NumIntersez(cut), In::NumPuntiParz(cut));
    EXPECT_FALSE(In::AreaParziale(cut) < 0.0);
}

void expect_answer_keeps_its_word(CFrazArea& cut, const test::Answer& answer, const Request& r, bool found)
{
    EXPECT_BITS(answer.z1, 0.0);
    EXPECT_BITS(answer.z2, 0.0);
    EXPECT_POINT(answer.p1, (In::PuntoRis1(cut)));
    EXPECT_POINT(answer.p2, (In::PuntoRis2(cut)));
    if (r.modo == 1)
        EXPECT_TRUE(found || !answer.done);
    else
        EXPECT_EQ(answer.done, found);
    if (!answer.done) {
        EXPECT_POINT(answer.p1, ({0.0, 0.0}));
        EXPECT_POINT(answer.p2, ({0.0, 0.0}));
        EXPECT_FALSE(In::Trovato(cut));
    }
    if (In::Trovato(cut) && In::AreaRichiesta(cut) > 0.0) {
        EXPECT_LT(std::fabs(In::AreaParziale(cut) - In::AreaRichiesta(cut)) / In::AreaRichiesta(cut), 1e-6);
    }
}

test::Answer run_and_check(const Request& r, CFrazArea& cut)
{
    const test::Answer answer = test::run(cut);
    const bool found =
        reference_found(r, r.ring.empty() ? PL_PNT2D_record{0, 0} : r.ring[r.side],
                        r.ring.empty() ? PL_PNT2D_record{0, 0} : r.ring[(r.side + 1) % r.ring.size()]);
    expect_answer_keeps_its_word(cut, answer, r, found);
    expect_members_agree(cut);
    return answer;
}

CFrazArea cut_of(const CPoint3dVector& parcel, const Request& r)
{
    const PL_PNT2D_record p1 = r.ring.empty() ? PL_PNT2D_record{0, 0} : r.ring[r.side];
    const PL_PNT2D_record p2 = r.ring.empty() ? PL_PNT2D_record{0, 0} : r.ring[(r.side + 1) % r.ring.size()];
    return CFrazArea(parcel, p1, p2, r.modo, 1, r.area, 0.0);
}

void expect_ends_on_boundary(const Request& r, CFrazArea& cut, const test::Answer& line, long double allowed)
{
    // With fewer crossings, one end of the line is no crossing.
    if (!In::Trovato(cut) || In::NumIntersez(cut) < (r.modo == 2 ? 1 : 2))
        return;
    if (r.modo != 2) {
        EXPECT_LE(test::distance_to_boundary(r.ring, line.p1), allowed);
    }
    EXPECT_LE(test::distance_to_boundary(r.ring, line.p2), allowed);
}

TEST(AnyParcel, NearTheOriginAFoundLineEndsOnTheBoundary)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < kParcels; ++i) {
        const Request r = random_request(random, random_ring(random));
        const CPoint3dVector parcel = test::parcel_of(r.ring);
        CFrazArea cut = cut_of(parcel, r);
        const test::Answer line = run_and_check(r, cut);
        expect_ends_on_boundary(r, cut, line, kOutsideCorner + kRoundingLocal);
        if (HasFailure())
            FAIL() << shown(r);
    }
}

TEST(AnyParcel, AtTheCoordinatesOfAMapTheAnswerKeepsItsWord)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < kParcels; ++i) {
        const Request r = random_request(random, test::at_utm_size(random, random_ring(random)));
        const CPoint3dVector parcel = test::parcel_of(r.ring);
        CFrazArea cut = cut_of(parcel, r);
        run_and_check(r, cut);
        if (HasFailure())
            FAIL() << shown(r);
    }
}

TEST(AnyParcel, WhateverTheNumbersItEndsAndKeepsItsWord)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < kParcels; ++i) {
        const Request r = random_request(random, wild_ring(random));
        const CPoint3dVector parcel = test::parcel_of(r.ring);
        CFrazArea cut = cut_of(parcel, r);
        run_and_check(r, cut);
        // A second call starts from what the first one left; a copy must do the same.
        CFrazArea copy(cut);
        const test::Answer second = test::run(cut);
        const test::Answer of_copy = test::run(copy);
        EXPECT_EQ(second.done, of_copy.done);
        EXPECT_STATE(test::state_of(copy), test::state_of(cut));
        expect_members_agree(cut);
        if (HasFailure())
            FAIL() << shown(r);
    }
}

}  // namespace
