#include "support/bare_cut.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "plcalc/subdivision.h"
#include "support/cut_inspector.h"

namespace {

using bare_cut::Mode;
using bare_cut::Request;
using bare_cut::Ring;
using test::cross;
using test::dot;
using test::from_to;
using test::length;
using test::Real;
using test::Vector;

constexpr int kAreaAsValue = 1;
constexpr Real kHeld = 1e-6L;  // of the parcel's area

// Of the parcel's size: an end this near to the boundary is on it, and a part of the line this short is none.
// That is a tenth of a millimetre on a hundred metres.
constexpr Real kOnBoundary = 1e-6L;

// A side counts as met up to 0.001 beyond its end on each axis. Rounding at a local origin can put an end off
// the boundary by the second figure at most, which is of the parcel's size; an end that is farther off lies
// beyond a side.
constexpr Real kSideMargin = 0.00142L;
constexpr Real kMeasurable = 1e-9L;

// The sine of an angle that counts as flat; also the height over a side, of the parcel's size, that counts as
// none.
constexpr Real kFlat = 1e-7L;

const PL_PNT2D_record& at(const Ring& ring, std::size_t i)
{
    return ring[i % ring.size()];
}

Real size_of(const Ring& ring)
{
    Real size = 0;
    for (const PL_PNT2D_record& p : ring)
        size = std::max(size, length(from_to(ring[0], p)));
    return size;
}

bool is_anticlockwise(const Ring& ring)
{
    return test::signed_area(ring) > 0;
}

// Where on the boundary a point lies: the index of the side, plus the fraction of the side before the point.
struct Place {
    Real position;
    Real off;
};

Place place_of(const Ring& ring, const PL_PNT2D_record& p)
{
    Place best = {0, HUGE_VALL};
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vector side = from_to(ring[i], at(ring, i + 1));
        const Vector w = from_to(ring[i], p);
        const Real d2 = dot(side, side);
        const Real t = d2 > 0 ? std::min<Real>(1, std::max<Real>(0, dot(w, side) / d2)) : 0;
        const Real off = length({w.x - t * side.x, w.y - t * side.y});
        if (off < best.off)
            best = {static_cast<Real>(i) + t, off};
    }
    return best;
}

// Half-open crossing count.
bool contains(const Ring& ring, const Vector& from_first)
{
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vector a = from_to(ring[0], ring[i]);
        const Vector b = from_to(ring[0], at(ring, i + 1));
        if ((a.y > from_first.y) == (b.y > from_first.y))
            continue;
        const Real x = a.x + (from_first.y - a.y) / (b.y - a.y) * (b.x - a.x);
        inside = inside != (from_first.x < x);
    }
    return inside;
}

// The boundary divides the chord into parts; the middle of each part must lie in the parcel.
bool runs_inside(const Ring& ring, const PL_LINE_2D_record& chord)
{
    const Vector d = from_to(chord.start, chord.end);
    std::vector<Real> stops = {0, 1};
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vector side = from_to(ring[i], at(ring, i + 1));
        const Vector w = from_to(chord.start, ring[i]);
        const Real det = cross(d, side);
        const Real t = det != 0 ? cross(w, side) / det : -1;
        const Real u = det != 0 ? cross(w, d) / det : -1;
        if (t > 0 && t < 1 && u >= 0 && u <= 1)
            stops.push_back(t);
    }
    std::sort(stops.begin(), stops.end());

    const Vector start = from_to(ring[0], chord.start);
    const Real negligible = kOnBoundary * size_of(ring) / length(d);
    for (std::size_t i = 0; i + 1 < stops.size(); ++i) {
        const Real middle = (stops[i] + stops[i + 1]) / 2;
        if (stops[i + 1] - stops[i] > negligible &&
            !contains(ring, {start.x + middle * d.x, start.y + middle * d.y}))
            return false;
    }
    return true;
}

// Area between the chord and the boundary from `from` onwards to `to`.
Real area_between(const Ring& ring, const Place& from, const PL_PNT2D_record& p_from, const Place& to,
                  const PL_PNT2D_record& p_to)
{
    const Real n = static_cast<Real>(ring.size());
    const Real end = to.position < from.position ? to.position + n : to.position;
    Ring piece = {p_from};
    for (Real v = std::floor(from.position) + 1; v <= end; ++v)
        piece.push_back(at(ring, static_cast<std::size_t>(v)));
    piece.push_back(p_to);
    return std::fabs(test::signed_area(piece));
}

// Whether the piece bounded by the boundary from `from` to `to` is the one that should hold the request.
bool holds_request(const Request& r, const PL_LINE_2D_record& chord, const Place& from, const Place& to)
{
    if (r.mode == Mode::kPerpendicular) {
        // The piece lies right of the chord when the ring runs anticlockwise; the request lies ahead.
        const Vector d = from_to(chord.start, chord.end);
        const bool right_is_ahead = dot({d.y, -d.x}, from_to(first(r), second(r))) > 0;
        return right_is_ahead == is_anticlockwise(r.ring);
    }
    // Along the side, or next to the side after the vertex.
    const Real n = static_cast<Real>(r.ring.size());
    const auto onwards = [n, &from](Real position) { return std::fmod(position - from.position + n, n); };
    return onwards(static_cast<Real>(r.side) + 0.5L) < onwards(to.position);
}

void measure(const Request& r, const PL_LINE_2D_record& chord, bare_cut::Division& division)
{
    const Real limit = kOnBoundary * size_of(r.ring);
    const Place start = place_of(r.ring, chord.start);
    const Place end = place_of(r.ring, chord.end);
    const Real end_off = std::max(start.off, end.off);
    division.beyond_end = end_off > kMeasurable * size_of(r.ring) && end_off <= kSideMargin;
    division.inside =
        end_off <= limit && length(from_to(chord.start, chord.end)) > limit && runs_inside(r.ring, chord);
    if (!division.inside)
        return;
    const Real piece = area_between(r.ring, start, chord.start, end, chord.end);
    division.piece = holds_request(r, chord, start, end) ? piece : division.parcel - piece;
}

Request changed(const Request& r, const Vector& cosine_sine)
{
    const PL_PNT2D_record origin = r.ring[0];
    Request out = r;
    for (PL_PNT2D_record& p : out.ring) {
        const Vector v = from_to(origin, p);
        p = {static_cast<double>(v.x * cosine_sine.x + v.y * cosine_sine.y),
             static_cast<double>(v.y * cosine_sine.x - v.x * cosine_sine.y)};
    }
    return out;
}

Vector direction(const Request& r)
{
    const Vector d = from_to(first(r), second(r));
    const Real size = length(d);
    return {d.x / size, d.y / size};
}

}  // namespace

namespace bare_cut {

Request request_on(std::mt19937_64& random, const Ring& ring, Mode mode, double part)
{
    const auto whole = [&random](std::size_t low, std::size_t high) {
        return std::uniform_int_distribution<std::size_t>(low, high)(random);
    };
    const double area = part * static_cast<double>(std::fabs(test::signed_area(ring)));
    Request r = {whole(0, 1) == 0 ? ring : test::reversed(ring), 0, mode, area};
    r.side = whole(0, ring.size() - 1);
    return r;
}

bool Division::succeeded(double requested) const
{
    return done && inside && std::fabs(piece - requested) <= kHeld * parcel;
}

bool Division::other_piece_holds(double requested) const
{
    return inside && std::fabs(parcel - piece - requested) <= kHeld * parcel;
}

const PL_PNT2D_record& first(const Request& request)
{
    return request.ring[request.side];
}

const PL_PNT2D_record& second(const Request& request)
{
    return at(request.ring, request.side + 1);
}

Division divide(const Request& request)
{
    const CPoint3dVector parcel = test::parcel_of(request.ring);
    CFrazArea cut(parcel, first(request), second(request), static_cast<int>(request.mode), kAreaAsValue,
                  request.area, 0.0);
    PL_LINE_2D_record chord = {};
    double z1 = 0.0;
    double z2 = 0.0;
    Division division = {};
    division.parcel = std::fabs(test::signed_area(request.ring));
    division.done = cut.Esegui(chord.start.x, chord.start.y, z1, chord.end.x, chord.end.y, z2);
    division.found = CFrazAreaInspector::Trovato(cut);
    division.ran_out = chord.end.x == 0.0 && chord.end.y == 0.0;
    if (division.done && !division.ran_out)
        measure(request, chord, division);
    return division;
}

Request at_local_origin(const Request& request)
{
    return changed(request, {1, 0});
}

Request turned_to_x(const Request& request)
{
    return changed(request, direction(request));
}

Request turned_to_y(const Request& request)
{
    const Vector d = direction(request);
    return changed(request, {d.y, -d.x});
}

bool has_part_behind(const Request& request)
{
    const PL_PNT2D_record& a = first(request);
    const PL_PNT2D_record& b = second(request);
    const Vector d = from_to(a, b);
    const Real size = size_of(request.ring);
    if (request.mode == Mode::kParallel) {
        const Real ahead = is_anticlockwise(request.ring) ? 1 : -1;
        return std::any_of(request.ring.begin(), request.ring.end(), [&](const PL_PNT2D_record& p) {
            return ahead * cross(d, from_to(a, p)) < -kFlat * size * length(d);
        });
    }
    // How often the boundary crosses the perpendicular through the middle, the base side included.
    int crossings = 0;
    const auto ahead_of_middle = [&](const PL_PNT2D_record& p) {
        return dot(from_to(a, p), d) - dot(d, d) / 2 > 0;
    };
    for (std::size_t i = 0; i < request.ring.size(); ++i)
        crossings += ahead_of_middle(request.ring[i]) != ahead_of_middle(at(request.ring, i + 1)) ? 1 : 0;
    return crossings > 2;
}

bool sees_whole_parcel(const Request& request)
{
    const Real turn = is_anticlockwise(request.ring) ? 1 : -1;
    const PL_PNT2D_record& v = first(request);
    for (std::size_t i = 0; i < request.ring.size(); ++i) {
        const Vector side = from_to(request.ring[i], at(request.ring, i + 1));
        const Real limit = kFlat * size_of(request.ring) * length(side);
        if (turn * cross(side, from_to(request.ring[i], v)) < -limit)
            return false;
    }
    return true;
}

bool is_reflex(const Request& request)
{
    const std::size_t n = request.ring.size();
    const Vector in = from_to(at(request.ring, request.side + n - 1), first(request));
    const Vector out = from_to(first(request), second(request));
    const Real turn = is_anticlockwise(request.ring) ? 1 : -1;
    return turn * cross(in, out) < -kFlat * length(in) * length(out);
}

}  // namespace bare_cut
