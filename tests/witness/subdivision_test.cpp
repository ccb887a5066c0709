// GEOS measures the area that a dividing line cuts off a convex parcel: it nodes and polygonises the ring and
// the line, extended beyond both ends, and measures the piece on the request's side.
//
// The parcel lies at a local origin. At UTM size its first vertex is subtracted first and added to the line
// afterwards, as an application should do. The piece holds the request within 1e-6 of it, in the perpendicular
// cut within 1e-6 of the rest that is cut off one half. These cases are counted and left out:
//   millimetre  the dividing line, or the perpendicular through the side's middle, passes within
//               0.001 * sqrt(2) of a vertex: a side counts as met up to 0.001 beyond its ends on each axis
//   short base  the base line, the side or in the perpendicular cut the perpendicular's part in the parcel, is
//               3.2e-4 long or shorter: the square of it is then no determinant above 1e-7, and no point has
//               a foot on it
//   small rest  perpendicular cut: the request is the half ahead to a hundredth of the parcel, and 30
//               bisections need not reach 1e-6 of so small a rest
//   band        the searched line's normal lies within 1e-6 gon of +x, where directions jump from 400 to 0

#include <cmath>
#include <cstddef>

#include "plcalc/subdivision.h"
#include "support/bits.h"
#include "support/measures.h"
#include "witness/cases.h"
#include "witness/geos.h"

namespace {

using witness::Ring;

enum Mode { kParallel = 0, kPerpendicular = 1, kVertex = 2 };
constexpr const char* kModeNames[] = {"parallel", "perpendicular", "vertex"};

constexpr int kAreaAsValue = 1;
constexpr double kRelArea = 1e-6;
constexpr double kSmallRest = 0.01;          // of the parcel
constexpr double kSideMargin = 0.001414214;  // a thousandth on both axes
constexpr double kShortBase = 3.2e-4;
constexpr double kBandGon = 1e-6;
constexpr double kGonPerRad = 63.66197723675813;

struct Request {
    Ring ring;
    std::size_t side;
    Mode mode;
    double area;
};

const PL_PNT2D_record& first(const Request& r)
{
    return r.ring[r.side];
}

const PL_PNT2D_record& second(const Request& r)
{
    return r.ring[(r.side + 1) % r.ring.size()];
}

PL_PNT2D_record middle(const Request& r)
{
    return {(first(r).x + second(r).x) / 2.0, (first(r).y + second(r).y) / 2.0};
}

Request random_request(witness::Random& random, const witness::Size& size, Mode mode)
{
    Request r = {};
    const auto n = static_cast<std::size_t>(random.integer(3, 12));
    const double extent = size.extent * random.between(0.5, 1.0);
    r.ring = random.chance(0.2) ? test::turned_rectangle(random.source(), extent)
                                : test::convex_ring(random.source(), n, extent);
    if (random.chance(0.5))
        r.ring = test::reversed(r.ring);
    for (PL_PNT2D_record& p : r.ring)
        p = {p.x + size.origin.x, p.y + size.origin.y};
    r.side = static_cast<std::size_t>(random.integer(0, static_cast<int>(r.ring.size()) - 1));
    r.mode = mode;
    r.area = static_cast<double>(std::fabs(test::signed_area(r.ring))) * random.between(0.01, 0.99);
    return r;
}

// The dividing line, searched at a local origin.
bool divide(const Request& r, PL_LINE_2D_record& chord)
{
    const bool far = std::fabs(r.ring[0].y) > 1e6;
    const PL_PNT2D_record origin = far ? r.ring[0] : PL_PNT2D_record{0.0, 0.0};
    const auto local = [&](const PL_PNT2D_record& p) {
        return PL_PNT2D_record{p.x - origin.x, p.y - origin.y};
    };
    Ring ring;
    for (const PL_PNT2D_record& p : r.ring)
        ring.push_back(local(p));

    const CPoint3dVector parcel = test::parcel_of(ring);
    CFrazArea cut(parcel, local(first(r)), local(second(r)), r.mode, kAreaAsValue, r.area, 0.0);
    double z1 = 0.0;
    double z2 = 0.0;
    const bool done = cut.Esegui(chord.start.x, chord.start.y, z1, chord.end.x, chord.end.y, z2);
    chord = {{chord.start.x + origin.x, chord.start.y + origin.y},
             {chord.end.x + origin.x, chord.end.y + origin.y}};
    return done;
}

PL_LINE_2D_record extended(const PL_LINE_2D_record& s, double by)
{
    const double dx = s.end.x - s.start.x;
    const double dy = s.end.y - s.start.y;
    const double f = by / std::sqrt(dx * dx + dy * dy);
    return {{s.start.x - f * dx, s.start.y - f * dy}, {s.end.x + f * dx, s.end.y + f * dy}};
}

// Whether a point is on the side of the line where the request lies.
bool on_request_side(const Request& r, const PL_LINE_2D_record& line, const PL_PNT2D_record& p)
{
    if (r.mode == kPerpendicular) {
        const double ahead = (p.x - line.start.x) * (second(r).x - first(r).x) +
                             (p.y - line.start.y) * (second(r).y - first(r).y);
        return ahead > 0.0;
    }
    const PL_PNT2D_record known = middle(r);
    return (test::side_of(line.start, line.end, p) > 0) == (test::side_of(line.start, line.end, known) > 0);
}

// Area of the piece on the request's side; the line must cut the parcel in two.
double area_of_piece(const witness::Geos& geos, const Request& r, const PL_LINE_2D_record& line, double reach)
{
    const std::vector<witness::Geometry> pieces = geos.split(r.ring, extended(line, reach));
    EXPECT_EQ(pieces.size(), 2U);
    for (const witness::Geometry& piece : pieces)
        if (on_request_side(r, line, geos.centroid(piece)))
            return geos.area(piece);
    return -1.0;
}

PL_LINE_2D_record perpendicular_through_middle(const Request& r, double reach)
{
    const PL_PNT2D_record m = middle(r);
    const double dx = second(r).x - first(r).x;
    const double dy = second(r).y - first(r).y;
    const double f = reach / std::sqrt(dx * dx + dy * dy);
    return {m, {m.x - f * dy, m.y + f * dx}};
}

// Length of the line from the middle of the side to where the perpendicular leaves the parcel.
double depth_at_middle(const Request& r)
{
    const PL_LINE_2D_record up = perpendicular_through_middle(r, 1.0);
    const std::size_t n = r.ring.size();
    double depth = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const PL_PNT2D_record& a = r.ring[i];
        const PL_PNT2D_record& b = r.ring[(i + 1) % n];
        const auto sa = static_cast<double>(test::side_of(up.start, up.end, a));
        const auto sb = static_cast<double>(test::side_of(up.start, up.end, b));
        if (i == r.side || (sa > 0.0) == (sb > 0.0))
            continue;
        const double t = sa / (sa - sb);
        const PL_PNT2D_record at = {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
        depth = PlFunz_distance(&up.start, &at);
    }
    return depth;
}

bool has_short_base(const Request& r)
{
    if (r.mode == kPerpendicular)
        return depth_at_middle(r) <= kShortBase;
    return r.mode == kParallel && PlFunz_distance(&first(r), &second(r)) <= kShortBase;
}

bool passes_by_vertex(const Request& r, const PL_LINE_2D_record& line)
{
    for (std::size_t i = 0; i < r.ring.size(); ++i) {
        if (r.mode == kVertex && i == r.side)
            continue;
        if (test::distance_to_line(line.start, line.end, r.ring[i]) <= kSideMargin)
            return true;
    }
    return false;
}

// The searched line's normal is the side's in the parallel cut, the side itself in the perpendicular one.
bool in_band(const Request& r)
{
    const double dx = second(r).x - first(r).x;
    const double dy = second(r).y - first(r).y;
    if (r.mode == kVertex)
        return false;
    const double gon = (r.mode == kParallel ? std::atan2(dx, -dy) : std::atan2(dy, dx)) * kGonPerRad;
    return std::fabs(std::remainder(gon, 200.0)) <= kBandGon;
}

struct Tally {
    int compared = 0;
    int millimetre = 0;
    int short_base = 0;
    int small_rest = 0;
    int band = 0;
    witness::Worst of_request;
    witness::Worst of_limit;
};

// Whether a case lies outside the zone before the search is known; counts it otherwise.
bool is_comparable(const witness::Geos& geos, const Request& r, double reach, double& searched, Tally& tally)
{
    searched = r.area;
    if (in_band(r)) {
        ++tally.band;
        return false;
    }
    if (has_short_base(r)) {
        ++tally.short_base;
        return false;
    }
    if (r.mode != kPerpendicular)
        return true;

    const PL_LINE_2D_record perpendicular = perpendicular_through_middle(r, reach);
    searched = std::fabs(area_of_piece(geos, r, perpendicular, reach) - r.area);
    if (searched <= kSmallRest * static_cast<double>(std::fabs(test::signed_area(r.ring)))) {
        ++tally.small_rest;
        return false;
    }
    if (passes_by_vertex(r, perpendicular)) {
        ++tally.millimetre;
        return false;
    }
    return true;
}

void compare(const witness::Geos& geos, const Request& r, const witness::Size& size, int index, Tally& tally)
{
    const double reach = 3.0 * size.extent;
    double searched = 0.0;
    if (!is_comparable(geos, r, reach, searched, tally))
        return;
    PL_LINE_2D_record chord = {};
    ASSERT_TRUE(divide(r, chord)) << "case " << index;
    if (passes_by_vertex(r, chord)) {
        ++tally.millimetre;
        return;
    }

    // Beside the search's own limit only the rounding of the line's ends, at the coordinates' size.
    const double coordinate = std::fabs(size.origin.x) + std::fabs(size.origin.y) + size.extent;
    const double rounding = 16.0 * witness::kRounding * coordinate * size.extent;
    const double limit = kRelArea * searched + rounding;
    const double gap = std::fabs(area_of_piece(geos, r, chord, reach) - r.area);
    ++tally.compared;
    ASSERT_LE(gap, limit) << "case " << index << ", side " << r.side << " of " << r.ring.size();
    tally.of_request.note(gap / r.area, index);
    tally.of_limit.note(gap / searched, index);
}

class Subdivision : public ::testing::TestWithParam<witness::Size> {};

void witness_mode(Mode mode, const witness::Size& size)
{
    const witness::Geos geos;
    witness::Random random(size);
    Tally tally;
    for (int i = 0; i < witness::cases() && !::testing::Test::HasFailure(); ++i)
        compare(geos, random_request(random, size, mode), size, i, tally);
    witness::report(
        "%s cut, %s: %d pieces hold the request, at most %.3g of it (%.3g of what is searched) off",
        kModeNames[mode], size.name, tally.compared, tally.of_request.value(), tally.of_limit.value());
    witness::report(
        "%s cut, %s: left out %d within a millimetre, %d short bases, %d small rests, %d in the band",
        kModeNames[mode], size.name, tally.millimetre, tally.short_base, tally.small_rest, tally.band);
    EXPECT_GT(tally.compared, witness::cases() / 2);
}

TEST_P(Subdivision, ParallelCutHoldsTheRequest)
{
    witness_mode(kParallel, GetParam());
}

TEST_P(Subdivision, PerpendicularCutHoldsTheRequest)
{
    witness_mode(kPerpendicular, GetParam());
}

TEST_P(Subdivision, VertexCutHoldsTheRequest)
{
    witness_mode(kVertex, GetParam());
}

INSTANTIATE_TEST_SUITE_P(AtSize, Subdivision, ::testing::ValuesIn(witness::kSizes), witness::size_name);

}  // namespace
