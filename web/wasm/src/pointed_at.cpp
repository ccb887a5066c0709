#include "pointed_at.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "plcalc/kernel.h"
#include "plcalc/lines.h"
#include "plcalc/survey.h"
#include "plparcel/extent.h"

namespace web {
namespace {

using plparcel::Amount;
using plparcel::Cut;
using plparcel::Measured;
using plparcel::Parcel;
using plparcel::Request;
using plparcel::Ring;
using Point = PL_PNT2D_record;

// A ray is drawn so many extents long, and so ends outside.
constexpr double kRayExtents = 4.0;

// A crossing nearer than this part of the extent is where the ray starts.
constexpr double kStartExtents = 1e-7;

Point relative(const Point& p, const Point& origin)
{
    return {p.x - origin.x, p.y - origin.y};
}

// Near the origin differences keep their digits.
Ring relative(const Ring& ring, const Point& origin)
{
    Ring local;
    for (const Point& p : ring)
        local.push_back(relative(p, origin));
    return local;
}

const Ring* ring_of(const Parcel& parcel, std::size_t ring)
{
    if (ring == 0)
        return &parcel.outer;
    return ring <= parcel.holes.size() ? &parcel.holes[ring - 1] : nullptr;
}

struct Direction {
    Point a;
    Point b;
};

std::optional<Direction> side_of(const Parcel& parcel, const plparcel::Line& line)
{
    const Ring* ring = ring_of(parcel, line.ring);
    if (ring == nullptr || line.index >= ring->size())
        return std::nullopt;
    return Direction{(*ring)[line.index], (*ring)[(line.index + 1) % ring->size()]};
}

// A line that runs as those of the division do.
std::optional<Direction> direction_of(const Parcel& parcel, const plparcel::Line& line)
{
    switch (line.cut) {
    case Cut::parallel:
        return side_of(parcel, line);
    case Cut::perpendicular: {
        const std::optional<Direction> side = side_of(parcel, line);
        if (!side)
            return std::nullopt;
        return Direction{side->a, {side->a.x - (side->b.y - side->a.y), side->a.y + (side->b.x - side->a.x)}};
    }
    case Cut::at_bearing: {
        const Point from = parcel.outer.front();
        const double length = plparcel::extent_of(parcel.outer).largest();
        return Direction{
            from,
            {from.x + CalcCoordEst(length, line.bearing), from.y + CalcCoordNord(length, line.bearing)}};
    }
    case Cut::along_segment:
        return Direction{line.a, line.b};
    default:
        return std::nullopt;
    }
}

// How far the points of the parcel lie to the right of a line, caller's unit.
double right_of(const Direction& line, const Point& p)
{
    const Point a = {0.0, 0.0};
    const Point b = relative(line.b, line.a);
    const Point pt = relative(p, line.a);
    Point foot = a;
    return DistSegmDaPt(&a, &b, &pt, &foot);
}

// A width is counted from the side, or from the vertex farthest out; see plparcel::width().
std::optional<Amount> width_at(const Parcel& parcel, const Request& request, const Direction& line,
                               const Point& target)
{
    double most = right_of(line, parcel.outer.front());
    double least = most;
    for (const Point& p : parcel.outer) {
        most = std::max(most, right_of(line, p));
        least = std::min(least, right_of(line, p));
    }
    const double at = right_of(line, target);
    if (!(at > least && at < most))
        return std::nullopt;

    const bool near = request.measured == Measured::from_reference;
    if (request.line.cut != Cut::parallel) {
        // A perpendicular's own way is to the left of its side, and its amount lies ahead, at the second end.
        const double from =
            request.line.cut == Cut::perpendicular ? right_of(line, side_of(parcel, request.line)->b) : most;
        const double to = request.line.cut == Cut::perpendicular ? 0.0 : least;
        const double distance = near ? from - at : at - to;
        return distance > 0.0 ? std::optional<Amount>(plparcel::width(distance)) : std::nullopt;
    }
    // The parcel lies on the left of an anticlockwise ring, and on the right of an anticlockwise hole.
    const Ring& ring = *ring_of(parcel, request.line.ring);
    const bool right = plparcel::check_ring(ring).anticlockwise == (request.line.ring > 0);
    const double inward = right ? at : -at;
    const double farthest = right ? most : -least;
    const double distance = near ? inward : farthest - inward;
    return distance > 0.0 ? std::optional<Amount>(plparcel::width(distance)) : std::nullopt;
}

// Where a ray first leaves the ring.
struct Hit {
    std::size_t side;
    Point at;
};

std::optional<Hit> first_hit(const Ring& ring, const Point& start, const Point& target)
{
    const double extent = plparcel::extent_of(ring).largest();
    const double length = PlFunz_distance(&start, &target);
    if (!(length > 0.0))
        return std::nullopt;
    const double stretch = kRayExtents * extent / length;
    const PL_LINE_2D_record ray = {
        start, {start.x + stretch * (target.x - start.x), start.y + stretch * (target.y - start.y)}};
    std::optional<Hit> hit;
    double nearest = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_LINE_2D_record side = {ring[i], ring[(i + 1) % ring.size()]};
        Point at;
        if (!PlFunz_intersect_ls(&ray, &side, &at))
            continue;
        const double distance = PlFunz_distance(&start, &at);
        if (distance > kStartExtents * extent && (!hit || distance < nearest)) {
            hit = Hit{i, at};
            nearest = distance;
        }
    }
    return hit;
}

// The area on the way round from a place on one side to a place on another, along the ring.
std::optional<Amount> area_between(const Ring& ring, const Hit& from, const Hit& to, const Point* through)
{
    Ring piece = {from.at};
    for (std::size_t i = from.side; i != to.side; i = (i + 1) % ring.size())
        piece.push_back(ring[(i + 1) % ring.size()]);
    piece.push_back(to.at);
    if (through != nullptr)
        piece.push_back(*through);
    const plparcel::RingReport report = plparcel::check_ring(piece);
    return report.status == plparcel::BoundaryStatus::usable
               ? std::optional<Amount>(plparcel::area(report.area))
               : std::nullopt;
}

std::optional<Amount> rest_of(const Ring& ring, const std::optional<Amount>& amount)
{
    if (!amount)
        return std::nullopt;
    return plparcel::area(plparcel::check_ring(ring).area - amount->first);
}

// From a vertex or a place on a side.
std::optional<Amount> area_from(const Ring& ring, const Hit& start, const Request& request,
                                const Point& target)
{
    const std::optional<Hit> end = first_hit(ring, start.at, target);
    if (!end)
        return std::nullopt;
    const std::optional<Amount> ahead = area_between(ring, start, *end, nullptr);
    return request.measured == Measured::from_reference ? ahead : rest_of(ring, ahead);
}

// The side that a point lies on.
std::optional<std::size_t> side_at(const Ring& ring, const Point& point)
{
    const double near = kStartExtents * plparcel::extent_of(ring).largest();
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point& a = ring[i];
        const Point& b = ring[(i + 1) % ring.size()];
        const double ends = PlFunz_distance(&a, &point) + PlFunz_distance(&point, &b);
        if (ends - PlFunz_distance(&a, &b) <= near)
            return i;
    }
    return std::nullopt;
}

// A line runs either way: of the two amounts, the one on the target's own right, as if it ran from the point to the target.
std::optional<Amount> area_through(const Ring& ring, const Point& point, const Point& target,
                                   Measured measured)
{
    const Point behind = {2.0 * point.x - target.x, 2.0 * point.y - target.y};
    const std::optional<Hit> end = first_hit(ring, point, target);
    std::optional<Hit> start = first_hit(ring, point, behind);
    if (const std::optional<std::size_t> side = side_at(ring, point))
        start = Hit{*side, point};  // a line from the boundary
    if (!end || !start)
        return std::nullopt;
    const bool clockwise = !plparcel::check_ring(ring).anticlockwise;
    const bool ahead_is_right = !clockwise;
    const std::optional<Amount> ahead = area_between(ring, *start, *end, &point);
    return ahead_is_right == (measured == Measured::from_reference) ? ahead : rest_of(ring, ahead);
}

// On the right of a line from a through b, be the ring convex or not: what lies on its left is cut away along it, and edges along
// the line that run to and fro bound nothing.
double area_right_of(const Ring& ring, const Direction& line)
{
    CPoint3dVector kept;
    const std::size_t n = ring.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Point& p = ring[i];
        const Point& next = ring[(i + 1) % n];
        const double at = right_of(line, p);
        const double then = right_of(line, next);
        if (at >= 0.0)
            kept.Append(p.x, p.y, 0.0);
        if ((at >= 0.0) != (then >= 0.0)) {
            const double part = at / (at - then);
            kept.Append(p.x + part * (next.x - p.x), p.y + part * (next.y - p.y), 0.0);
        }
    }
    return AreaCalcolata(kept);
}

// Where a whole line turns, and which way it runs: amounts from a vertex or a place lie on the side on which the ring goes on.
struct Pivot {
    Point at;
    std::optional<Point> ahead;  // of the ring; nothing for a point, whose amount lies on the right
};

std::optional<Pivot> pivot_of(const Parcel& parcel, const plparcel::Line& line)
{
    if (line.cut == Cut::through_point)
        return Pivot{line.a, std::nullopt};
    const std::optional<Direction> side = side_of(parcel, line);
    if (!side || (line.cut != Cut::through_vertex && line.cut != Cut::through_place))
        return std::nullopt;
    Pivot pivot = {side->a, side->b};
    if (line.cut == Cut::through_place)
        CalcPtAtDistSuSegm(&side->a, &side->b, &side->a, line.along, &pivot.at);
    return pivot;
}

std::optional<Amount> area_of_whole_line(const Parcel& parcel, const Request& request, const Point& target)
{
    const std::optional<Pivot> pivot = pivot_of(parcel, request.line);
    if (!pivot || PlFunz_samepnt(&pivot->at, &target))
        return std::nullopt;
    const Point origin = parcel.outer.front();
    Direction line = {relative(pivot->at, origin), relative(target, origin)};
    const bool swapped = request.measured == Measured::opposite;
    const bool on_left = pivot->ahead && right_of(line, relative(*pivot->ahead, origin)) < 0.0;
    if (on_left != swapped)
        line = {line.b, line.a};
    double area = area_right_of(relative(parcel.outer, origin), line);
    for (const Ring& hole : parcel.holes)
        area -= area_right_of(relative(hole, origin), line);
    return plparcel::area(area);
}

}  // namespace

std::optional<Amount> amount_at(const Parcel& parcel, const Request& request, const Point& target)
{
    if (parcel.outer.empty())
        return std::nullopt;
    if (const std::optional<Direction> direction = direction_of(parcel, request.line))
        return width_at(parcel, request, *direction, target);
    if (request.pieces == plparcel::Pieces::any)
        return area_of_whole_line(parcel, request, target);

    const Point origin = parcel.outer.front();
    const Ring ring = relative(parcel.outer, origin);
    const Point to = relative(target, origin);
    const plparcel::Line& line = request.line;
    if (line.cut == Cut::through_point)
        return area_through(ring, relative(line.a, origin), to, request.measured);
    if (line.ring != 0 || line.index >= ring.size())
        return std::nullopt;
    if (line.cut == Cut::through_vertex)
        return area_from(ring, {line.index, ring[line.index]}, request, to);
    if (line.cut != Cut::through_place)
        return std::nullopt;
    Hit start = {line.index, {}};
    CalcPtAtDistSuSegm(&ring[line.index], &ring[(line.index + 1) % ring.size()], &ring[line.index],
                       line.along, &start.at);
    return area_from(ring, start, request, to);
}

double along_side(const Ring& ring, std::size_t side, const Point& target)
{
    if (side >= ring.size())
        return 0.0;
    const Point a = {0.0, 0.0};
    const Point b = relative(ring[(side + 1) % ring.size()], ring[side]);
    const Point pt = relative(target, ring[side]);
    Point foot = a;
    DistSegmDaPt(&a, &b, &pt, &foot);
    const double along = DistPtSuSegmDaPt(&a, &b, &a, &foot);
    return std::min(std::max(along, 0.0), PlFunz_distance(&a, &b));
}

}  // namespace web
