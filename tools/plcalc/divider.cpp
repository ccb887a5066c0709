#include "divider.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "local_frame.h"
#include "pieces.h"
#include "plcalc/subdivision.h"
#include "plcalc/survey.h"

namespace tool {
namespace {

using Ring = std::vector<PL_PNT2D_record>;

// A line is right when the piece misses the request by no more than this part of the parcel: a square
// decimetre on a hectare. The library's own test is relative to what it searches, which in a perpendicular
// cut is the rest after the side's midpoint and not the request.
constexpr long double kRelParcelTol = 1e-6L;

// Nor by more than this part of the smaller piece: of a request of a millionth of the parcel, the test above
// would let pass whatever came out, nothing at all included.
constexpr long double kRelPieceTol = 0.01L;

// An end that is off by a rounding is off by more along the line, where the line meets the boundary at a slant:
// 64 times as much at one degree. A slant still flatter asks for more decimals.
constexpr long double kSlantAllowance = 64.0L;

constexpr std::size_t kMinVertices = 3;

// The parcel as the library takes it, and where the request's side or vertex is in it.
struct Prepared {
    Ring ring;                // in the local frame, no neighbours that coincide
    std::size_t start = 0;    // first end of the side, or the vertex
    bool has_length = false;  // the side has a direction
};

// As the library sees it: a step of PL_EPS or less on both axes has no direction.
bool coincide(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return std::fabs(a.x - b.x) <= PL_EPS && std::fabs(a.y - b.y) <= PL_EPS;
}

// Drops every vertex that coincides with the one kept before it, and the last ones that coincide with the
// first: the search through a vertex takes its first direction towards the next one, and a repeated vertex
// has none to give.
Prepared prepare(const Ring& ring, const LocalFrame& frame, std::size_t number)
{
    Prepared prepared;
    std::vector<std::size_t> kept_as(ring.size());
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record p = frame.to_local(ring[i]);
        if (prepared.ring.empty() || !coincide(prepared.ring.back(), p))
            prepared.ring.push_back(p);
        kept_as[i] = prepared.ring.size() - 1;
    }
    while (prepared.ring.size() > 1 && coincide(prepared.ring.back(), prepared.ring.front()))
        prepared.ring.pop_back();

    for (std::size_t& index : kept_as)
        if (index >= prepared.ring.size())
            index = 0;

    prepared.start = kept_as[number - 1];
    prepared.has_length = prepared.start != kept_as[number % ring.size()];
    return prepared;
}

const PL_PNT2D_record& next(const Ring& ring, std::size_t i)
{
    return ring[(i + 1) % ring.size()];
}

CPoint3dVector as_library_points(const Ring& ring)
{
    CPoint3dVector points;
    points.Reserve(static_cast<int>(ring.size()));
    for (const PL_PNT2D_record& p : ring)
        points.Append(p.x, p.y, 0.0);
    return points;
}

// The request in the frame's unit. Powers of two: the area is the same to the last bit.
Request scaled(Request request, double scale)
{
    const bool product = request.given == AreaGiven::as_product;
    request.value1 *= product ? scale : scale * scale;
    request.value2 *= scale;
    return request;
}

// Gives the line its direction: parallel to a side as the side runs, perpendicular to it from its end nearer
// the side. Through a vertex the library's line starts there already.
void orient(Parting& parting, const PL_PNT2D_record& a, const PL_PNT2D_record& b, Cut cut)
{
    const double side_x = b.x - a.x;
    const double side_y = b.y - a.y;
    const auto off_side = [&](const PL_PNT2D_record& p) {
        return std::fabs(side_x * (p.y - a.y) - side_y * (p.x - a.x));
    };
    const bool against =
        (parting.to.x - parting.from.x) * side_x + (parting.to.y - parting.from.y) * side_y < 0.0;
    const bool inwards = off_side(parting.from) > off_side(parting.to);
    if ((cut == Cut::parallel && against) || (cut == Cut::perpendicular && inwards)) {
        std::swap(parting.from, parting.to);
        std::swap(parting.from_side, parting.to_side);
    }
}

// Whether the side i lies in the piece after `from`: the walk from `from` meets it before `to`.
bool side_after_from(const Parting& parting, std::size_t side, std::size_t n)
{
    return (side + n - parting.from_side) % n < (parting.to_side + n - parting.from_side) % n;
}

// Whether the piece after `from` lies ahead of the line, where the side a-b runs to.
bool ahead_after_from(const Parting& parting, const PL_PNT2D_record& a, const PL_PNT2D_record& b,
                      bool anticlockwise)
{
    const double line_x = parting.to.x - parting.from.x;
    const double line_y = parting.to.y - parting.from.y;
    const bool runs_to_the_right = line_y * (b.x - a.x) - line_x * (b.y - a.y) > 0.0;
    return runs_to_the_right == anticlockwise;
}

bool request_after_from(const Parting& parting, const Prepared& prepared, Cut cut, bool anticlockwise)
{
    const Ring& ring = prepared.ring;
    switch (cut) {
    case Cut::parallel:
        return side_after_from(parting, prepared.start, ring.size());
    case Cut::perpendicular:
        return ahead_after_from(parting, ring[prepared.start], next(ring, prepared.start), anticlockwise);
    case Cut::through_vertex:
        break;
    }
    return true;  // the line starts at the vertex, and the side after it follows
}

// Whether the piece is what was asked for.
bool holds(long double got, long double asked, long double parcel)
{
    const long double smaller = std::min(asked, parcel - asked);
    return std::fabs(got - asked) <= std::min(kRelParcelTol * parcel, kRelPieceTol * smaller);
}

// Everything that a division needs before there is a line.
struct Task {
    LocalFrame frame;
    Prepared prepared;
    CPoint3dVector points;
    Request local;  // the request in the frame's unit
};

const PL_PNT2D_record& side_start(const Task& task)
{
    return task.prepared.ring[task.prepared.start];
}

const PL_PNT2D_record& side_end(const Task& task)
{
    return next(task.prepared.ring, task.prepared.start);
}

// Checks what can be checked before there is a line; the task is complete when the outcome is `divided`.
Outcome set_up(const Ring& ring, const Request& request, std::optional<Task>& task, Division& division)
{
    division = {};
    if (!std::isfinite(request.area()) || !(request.area() > 0.0))
        return Outcome::area_not_positive;
    if (ring.size() < kMinVertices)
        return Outcome::ring_not_usable;
    if (request.number < 1 || static_cast<unsigned long long>(request.number) > ring.size())
        return Outcome::no_such_number;

    const std::size_t number = static_cast<std::size_t>(request.number);
    const LocalFrame frame(ring, ring[number - 1], next(ring, number - 1), request.cut);
    const Prepared prepared = prepare(ring, frame, number);
    if (request.cut != Cut::through_vertex && !prepared.has_length)
        return Outcome::side_without_length;

    const CPoint3dVector points = as_library_points(prepared.ring);
    division.anticlockwise = AreaCalcolataSgn(points) > 0.0;
    division.parcel_area = AreaCalcolata(points) / (frame.scale() * frame.scale());
    division.perimeter = PeriCalcolato(points) / frame.scale();
    const bool measurable = std::isfinite(division.parcel_area) && std::isfinite(division.perimeter);
    if (prepared.ring.size() < kMinVertices || !measurable || !(division.parcel_area > 0.0))
        return Outcome::ring_not_usable;
    if (!(request.area() < division.parcel_area))
        return Outcome::area_not_below_parcel;
    task.emplace(Task{frame, prepared, points, scaled(request, frame.scale())});
    return Outcome::divided;
}

bool call_library(const Task& task, PL_PNT2D_record& p, PL_PNT2D_record& q)
{
    CFrazArea search(task.points, side_start(task), side_end(task), static_cast<int>(task.local.cut),
                     static_cast<int>(task.local.given), task.local.value1, task.local.value2);
    double z = 0.0;
    return search.Esegui(p.x, p.y, z, q.x, q.y, z);
}

// Measures both pieces, each bounded by the parting's ends as they stand.
Outcome measure(const Task& task, const Parting& parting, Division& division)
{
    const Ring& ring = task.prepared.ring;
    const bool first = request_after_from(parting, task.prepared, task.local.cut, division.anticlockwise);
    const long double after_from = area_after_from(ring, parting);
    const long double after_to = area_after_to(ring, parting);
    const long double got = first ? after_from : after_to;
    const long double rest = first ? after_to : after_from;
    const double scale2 = task.frame.scale() * task.frame.scale();
    division.request_area = static_cast<double>(got / scale2);
    division.rest_area = static_cast<double>(rest / scale2);

    const long double parcel = static_cast<long double>(division.parcel_area) * scale2;
    return holds(got, task.local.area(), parcel) ? Outcome::divided : Outcome::request_missed;
}

// Takes the line back to the parcel's coordinates and measures the pieces that it makes there: where doubles
// are too coarse for the parcel, at 1e15 for one, the rounding of the ends counts like any other miss.
Outcome check(const Task& task, const PL_PNT2D_record& p, const PL_PNT2D_record& q, Division& division)
{
    Parting parting;
    if (!part_ring(task.prepared.ring, p, q, kLibrarySlack, parting))
        return Outcome::line_leaves_parcel;
    orient(parting, side_start(task), side_end(task), task.local.cut);
    division.from = task.frame.from_local(parting.from);
    division.to = task.frame.from_local(parting.to);
    parting.from = task.frame.to_local(division.from);
    parting.to = task.frame.to_local(division.to);
    return measure(task, parting, division);
}

}  // namespace

Outcome divide(const std::vector<PL_PNT2D_record>& ring, const Request& request, Division& division)
{
    std::optional<Task> task;
    const Outcome outcome = set_up(ring, request, task, division);
    if (!task)
        return outcome;
    PL_PNT2D_record p = {};
    PL_PNT2D_record q = {};
    if (!call_library(*task, p, q))
        return Outcome::no_line;
    return check(*task, p, q, division);
}

Outcome judge(const std::vector<PL_PNT2D_record>& ring, const Request& request, const PL_PNT2D_record& from,
              const PL_PNT2D_record& to, double rounding, Division& division)
{
    std::optional<Task> task;
    const Outcome outcome = set_up(ring, request, task, division);
    if (!task)
        return outcome;
    division.from = from;
    division.to = to;
    Parting parting;
    const long double slack = kLibrarySlack + kSlantAllowance * rounding * task->frame.scale();
    if (!part_ring(task->prepared.ring, task->frame.to_local(from), task->frame.to_local(to), slack, parting))
        return Outcome::line_leaves_parcel;
    return measure(*task, parting, division);
}

}  // namespace tool
