#include "brute_force.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

#include "support/measures.h"

namespace plparcel_test {
namespace {

using plparcel::Cut;
using plparcel::Measured;
using plparcel::Request;
using plparcel::Ring;
using Point = test::Vector;
using test::cross;
using test::Real;

// A line's part in the parcel: its ends, the sides that they lie on.
struct Part {
    Point p;
    Point q;
    std::size_t p_side;
    std::size_t q_side;
};

Point local(const Ring& ring, std::size_t i)
{
    return test::from_to(ring[0], ring[i % ring.size()]);
}

Point minus(const Point& a, const Point& b)
{
    return {a.x - b.x, a.y - b.y};
}

// Area of the piece from p along the ring to q.
Real area_after(const Ring& ring, const Part& part)
{
    std::vector<Point> piece = {part.p};
    for (std::size_t side = part.p_side; side != part.q_side; side = (side + 1) % ring.size())
        piece.push_back(local(ring, side + 1));
    piece.push_back(part.q);
    Real twice = 0;
    for (std::size_t i = 0; i < piece.size(); ++i)
        twice += cross(piece[i], piece[(i + 1) % piece.size()]);
    return std::fabs(twice / 2);
}

// The parts in the parcel of the line through `at` along `run`, by a half-open count of crossings.
std::vector<Part> parts_of_line(const Ring& ring, const Point& at, const Point& run)
{
    struct Crossing {
        Real along;
        Point p;
        std::size_t side;
    };
    std::vector<Crossing> found;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point a = local(ring, i);
        const Point b = local(ring, i + 1);
        const Real off_a = cross(run, minus(a, at));
        const Real off_b = cross(run, minus(b, at));
        if ((off_a > 0) == (off_b > 0))
            continue;
        const Real t = off_a / (off_a - off_b);
        const Point p = {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
        found.push_back({(p.x - at.x) * run.x + (p.y - at.y) * run.y, p, i});
    }
    std::sort(found.begin(), found.end(),
              [](const Crossing& a, const Crossing& b) { return a.along < b.along; });
    std::vector<Part> parts;
    for (std::size_t i = 0; i + 1 < found.size(); i += 2)
        parts.push_back({found[i].p, found[i + 1].p, found[i].side, found[i + 1].side});
    return parts;
}

// Whether the side i belongs to the piece after p.
bool is_after(const Ring& ring, const Part& part, std::size_t i)
{
    const std::size_t n = ring.size();
    const std::size_t way = (i + n - part.p_side) % n;
    return way != 0 && way < (part.q_side + n - part.p_side) % n;
}

// Of parallels and perpendiculars: the piece that should hold the request.
Real request_area(const Ring& ring, const Request& request, const Part& part, Real parcel)
{
    const Real after = area_after(ring, part);
    bool wants_after = is_after(ring, part, request.line.index);
    if (request.line.cut == Cut::perpendicular) {
        // The piece after p lies right of p-q in an anticlockwise ring.
        const Point ahead = minus(local(ring, request.line.index + 1), local(ring, request.line.index));
        const bool ahead_is_right = cross(minus(part.q, part.p), ahead) < 0;
        wants_after = ahead_is_right == (test::signed_area(ring) > 0);
    }
    if (request.measured == Measured::opposite)
        wants_after = !wants_after;
    return wants_after ? after : parcel - after;
}

using Sides = std::pair<std::size_t, std::size_t>;
using Areas = std::map<Sides, Real>;

// Whether between two lines that meet the same sides the asked area lies.
bool is_between(const Areas& before, const Areas& now, double asked)
{
    return std::any_of(now.begin(), now.end(), [&](const auto& entry) {
        const auto other = before.find(entry.first);
        return other != before.end() && (other->second < asked) != (entry.second < asked);
    });
}

Areas areas_at_level(const Ring& ring, const Request& request, const Point& at, const Point& run, Real parcel)
{
    Areas areas;
    for (const Part& part : parts_of_line(ring, at, run))
        areas[{part.p_side, part.q_side}] = request_area(ring, request, part, parcel);
    return areas;
}

bool level_exists(const Ring& ring, const Request& request, double asked, int trials)
{
    const Real parcel = std::fabs(test::signed_area(ring));
    const Point a = local(ring, request.line.index);
    const Point side = minus(local(ring, request.line.index + 1), a);
    const Point run = request.line.cut == Cut::parallel ? side : Point{-side.y, side.x};
    const Point up = {-run.y, run.x};
    Real low = HUGE_VALL;
    Real high = -HUGE_VALL;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point v = minus(local(ring, i), a);
        const Real level = (v.x * up.x + v.y * up.y) / (up.x * up.x + up.y * up.y);
        low = std::min(low, level);
        high = std::max(high, level);
    }
    Areas before;
    for (int i = 1; i < trials; ++i) {
        const Real level = low + (high - low) * i / trials;
        Areas now = areas_at_level(ring, request, {a.x + level * up.x, a.y + level * up.y}, run, parcel);
        if (is_between(before, now, asked))
            return true;
        before = std::move(now);
    }
    return false;
}

// The first part of a ray from the vertex, if it starts into the parcel.
Areas areas_on_ray(const Ring& ring, const Request& request, const Point& run, Real parcel)
{
    const std::size_t n = ring.size();
    const Point v = local(ring, request.line.index);
    Real first = HUGE_VALL;
    Part part = {v, v, request.line.index, request.line.index};
    for (std::size_t k = 1; k + 1 < n; ++k) {
        const std::size_t i = (request.line.index + k) % n;
        const Point a = minus(local(ring, i), v);
        const Point b = minus(local(ring, i + 1), v);
        const Real off_a = cross(run, a);
        const Real off_b = cross(run, b);
        if ((off_a > 0) == (off_b > 0))
            continue;
        const Real t = off_a / (off_a - off_b);
        const Point p = {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
        const Real along = p.x * run.x + p.y * run.y;
        if (along > 0 && along < first) {
            first = along;
            part.q = {v.x + p.x, v.y + p.y};
            part.q_side = i;
        }
    }
    if (part.q_side == request.line.index)
        return {};
    const Real after = area_after(ring, part);
    return {{{part.p_side, part.q_side}, request.measured == Measured::opposite ? parcel - after : after}};
}

// Rays within the angle of the vertex only: others start outside of the parcel.
bool ray_exists(const Ring& ring, const Request& request, double asked, int trials)
{
    constexpr Real kTurn = 6.283185307179586476925L;
    const std::size_t n = ring.size();
    const Real parcel = std::fabs(test::signed_area(ring));
    const Point v = local(ring, request.line.index);
    const Point next = minus(local(ring, request.line.index + 1), v);
    const Point last = minus(local(ring, request.line.index + n - 1), v);
    const Real turn = test::signed_area(ring) > 0 ? 1 : -1;
    const Real start = std::atan2(next.y, next.x);
    Real opening = turn * (std::atan2(last.y, last.x) - start);
    if (opening < 0)
        opening += kTurn;
    Areas before;
    for (int i = 1; i < trials; ++i) {
        const Real dir = start + turn * opening * i / trials;
        Areas now = areas_on_ray(ring, request, {std::cos(dir), std::sin(dir)}, parcel);
        if (is_between(before, now, asked))
            return true;
        before = std::move(now);
    }
    return false;
}

}  // namespace

bool line_exists(const Ring& ring, const Request& request, double asked, int trials)
{
    return request.line.cut == Cut::through_vertex ? ray_exists(ring, request, asked, trials)
                                                   : level_exists(ring, request, asked, trials);
}

}  // namespace plparcel_test
