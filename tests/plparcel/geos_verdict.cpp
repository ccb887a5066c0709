#include "geos_verdict.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>
#include <vector>

#include "support/measures.h"

namespace plparcel_test {
namespace {

using plparcel::Cut;
using plparcel::Division;
using plparcel::Measured;
using plparcel::Request;
using plparcel::Ring;

constexpr double kOfParcel = 1e-9;

// How far the line is prolonged, of the parcel's size: its ends are rounded and may lie a hair inside.
constexpr double kProlonged = 1e-6;

// A face no larger than this part of the parcel is what rounding leaves between the line and a vertex.
constexpr double kNoFace = 1e-11;

constexpr double kSpacing = std::numeric_limits<double>::epsilon();

const PL_PNT2D_record& at(const Ring& ring, std::size_t i)
{
    return ring[i % ring.size()];
}

double size_of(const Ring& ring)
{
    double size = 0.0;
    for (const PL_PNT2D_record& p : ring)
        size = std::max({size, std::fabs(p.x - ring[0].x), std::fabs(p.y - ring[0].y)});
    return size;
}

// One rounding of the largest coordinate.
double coordinate_rounding(const Ring& ring)
{
    double largest = 0.0;
    for (const PL_PNT2D_record& p : ring)
        largest = std::max({largest, std::fabs(p.x), std::fabs(p.y)});
    return largest * kSpacing;
}

PL_PNT2D_record between(const PL_PNT2D_record& a, const PL_PNT2D_record& b, double t)
{
    return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
}

// A little to the right of the line's middle.
PL_PNT2D_record right_of(const Ring& ring, const plparcel::DividingLine& line)
{
    const PL_PNT2D_record& from = line.from;
    const PL_PNT2D_record& to = line.to;
    const PL_PNT2D_record middle = between(from, to, 0.5);
    const double step = kProlonged * size_of(ring) / std::hypot(to.x - from.x, to.y - from.y);
    return {middle.x + step * (to.y - from.y), middle.y - step * (to.x - from.x)};
}

// A point in the piece of the request, or next to it.
PL_PNT2D_record point_of_request(const Ring& ring, const Request& request, const plparcel::DividingLine& line)
{
    const PL_PNT2D_record& a = at(ring, request.line.index);
    const PL_PNT2D_record& b = at(ring, request.line.index + 1);
    if (request.line.cut == Cut::at_bearing || request.line.cut == Cut::along_segment ||
        request.line.cut == Cut::through_point)
        return right_of(ring, line);
    if (request.line.cut == Cut::through_place)
        return between(line.from, b, kProlonged);
    if (request.line.cut != Cut::perpendicular)
        return between(a, b, 0.5);
    // Ahead of the line's middle.
    const PL_PNT2D_record middle = between(line.from, line.to, 0.5);
    const double step = kProlonged * size_of(ring) / std::hypot(b.x - a.x, b.y - a.y);
    return {middle.x + step * (b.x - a.x), middle.y + step * (b.y - a.y)};
}

// Sine of the angle by which the line does not run as asked, times its length.
double off_direction(const Ring& ring, const Request& request, const plparcel::DividingLine& line)
{
    const PL_PNT2D_record& a = at(ring, request.line.index);
    const PL_PNT2D_record& b = at(ring, request.line.index + 1);
    const test::Vector side = test::from_to(a, b);
    const test::Vector run = test::from_to(line.from, line.to);
    const test::Vector along = test::from_to(request.line.a, request.line.b);
    const double bearing_rad = request.line.bearing * (std::acos(-1.0) / 200.0);
    const test::Vector bearing = {std::sin(bearing_rad), std::cos(bearing_rad)};
    switch (request.line.cut) {
    case Cut::parallel:
        return static_cast<double>(std::fabs(test::cross(side, run)) / test::length(side));
    case Cut::perpendicular:
        return static_cast<double>(std::fabs(test::dot(side, run)) / test::length(side));
    case Cut::at_bearing:
        // The bearing in radians is good to some units in the last place.
        return static_cast<double>(
            std::fmax(0.0L, std::fabs(test::cross(bearing, run)) - 1e-15L * test::length(run)));
    case Cut::along_segment:
        return static_cast<double>(std::fabs(test::cross(along, run)) / test::length(along));
    case Cut::through_place: {
        // The place is rounded, and the end once more.
        const double length = static_cast<double>(test::length(side));
        const PL_PNT2D_record place = between(a, b, request.line.along / length);
        return 0.5 * std::hypot(line.from.x - place.x, line.from.y - place.y);
    }
    case Cut::through_point: {
        // Up to six roundings, of which four count.
        const test::Vector to_point = test::from_to(line.from, request.line.a);
        const bool starts_there = line.from.x == request.line.a.x && line.from.y == request.line.a.y;
        const double off = static_cast<double>(std::fabs(test::cross(run, to_point)) / test::length(run));
        return starts_there ? 0.0 : off * 4.0 / 6.0;
    }
    case Cut::through_vertex:
        break;
    }
    return line.from.x == a.x && line.from.y == a.y ? 0.0 : HUGE_VAL;
}

std::string number(double v)
{
    std::ostringstream text;
    text.precision(17);
    text << v;
    return text.str();
}

// From the ring's first vertex: exact wherever the ring's coordinates are large beside its size, and there GEOS
// would otherwise move lines onto vertices that they pass within a millionth.
PL_PNT2D_record moved(const PL_PNT2D_record& p, const PL_PNT2D_record& origin)
{
    return {p.x - origin.x, p.y - origin.y};
}

Ring from_first(const Ring& ring)
{
    Ring out;
    for (const PL_PNT2D_record& p : ring)
        out.push_back(moved(p, ring[0]));
    return out;
}

plparcel::DividingLine moved_line(plparcel::DividingLine line, const PL_PNT2D_record& origin)
{
    line.from = moved(line.from, origin);
    line.to = moved(line.to, origin);
    return line;
}

bool is_vertex(const Ring& ring, const PL_PNT2D_record& p)
{
    return std::any_of(ring.begin(), ring.end(),
                       [&p](const PL_PNT2D_record& v) { return v.x == p.x && v.y == p.y; });
}

// The faces of the ring cut along the line, those of no size left out.
std::vector<witness::Geometry> faces(const witness::Geos& geos, const Ring& ring,
                                     const plparcel::DividingLine& line)
{
    const double length = std::hypot(line.to.x - line.from.x, line.to.y - line.from.y);
    const double more = kProlonged * size_of(ring) / length;
    // At a vertex the line ends exactly: prolonged, it might pass a re-entrant one by a hair.
    const PL_LINE_2D_record prolonged = {
        is_vertex(ring, line.from) ? line.from : between(line.from, line.to, -more),
        is_vertex(ring, line.to) ? line.to : between(line.from, line.to, 1.0 + more)};
    const double no_face = kNoFace * static_cast<double>(std::fabs(test::signed_area(ring)));
    std::vector<witness::Geometry> all = geos.split(ring, prolonged);
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&](const witness::Geometry& face) { return geos.area(face) <= no_face; }),
              all.end());
    return all;
}

}  // namespace

std::string geos_objection(const witness::Geos& geos, const Ring& ring, const Request& request, double asked,
                           const Division& division)
{
    if (division.lines.size() != 1 || division.pieces.size() != 2)
        return "not one line and two pieces";
    const plparcel::DividingLine& line = division.lines[0];
    const double parcel = static_cast<double>(std::fabs(test::signed_area(ring)));
    const double rounding = coordinate_rounding(ring);
    // GEOS rounds the points where its lines cross, as the division rounds the ends.
    const double tolerance =
        kOfParcel * parcel + rounding * std::hypot(line.to.x - line.from.x, line.to.y - line.from.y);

    if (off_direction(ring, request, line) > 4.0 * rounding)
        return "the line does not run as asked";
    const std::vector<witness::Geometry> found = faces(geos, from_first(ring), moved_line(line, ring[0]));
    if (found.size() != 2)
        return std::to_string(found.size()) + " faces";
    const witness::Geometry probe =
        geos.point(point_of_request(from_first(ring), request, moved_line(line, ring[0])));
    const bool first = geos.distance(found[0], probe) < geos.distance(found[1], probe);
    const bool wants_probe = request.measured == Measured::from_reference;
    const double got = geos.area(found[first == wants_probe ? 0 : 1]);
    if (!(std::fabs(got - asked) <= tolerance))
        return "the face holds " + number(got) + ", asked " + number(asked);

    for (const plparcel::Piece& piece : division.pieces) {
        const witness::Geometry polygon = geos.polygon(piece.ring);
        if (!geos.is_valid(polygon))
            return "a piece is no valid polygon";
        if (!(std::fabs(geos.area(polygon) - piece.area) <= kNoFace * parcel))
            return "a piece holds " + number(geos.area(polygon)) + ", not " + number(piece.area);
        if (!(std::fabs(piece.area - piece.asked) <= kOfParcel * parcel))
            return "a piece misses what it should hold by " + number(piece.area - piece.asked);
    }
    return "";
}

}  // namespace plparcel_test
