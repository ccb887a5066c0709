// plparcel: division with proof. What it calls divided is looked at again, in long double.

#include "plparcel/division.h"

#include <cmath>
#include <cstddef>
#include <vector>

#include "fuzz/check.h"
#include "fuzz/parcel.h"
#include "fuzz/reader.h"
#include "plparcel/extent.h"

namespace {

using fuzz::Reader;
using fuzz::Ring;
using plparcel::BoundaryStatus;
using plparcel::Cut;
using plparcel::Division;
using plparcel::Status;
using Real = long double;

constexpr int kMostParts = 6;

plparcel::Amount read_amount(Reader& in, const Ring& ring)
{
    const int kind = in.below(5);
    if (kind == 0)
        return plparcel::area(in.number());
    if (kind == 1) {
        const double length = in.number();
        return plparcel::product(length, in.number());
    }
    if (kind == 2) {
        const double part = in.byte();
        return plparcel::share(part, in.byte());
    }
    if (kind == 3) {
        const auto given = static_cast<plparcel::Given>(in.selector());
        const double first = in.number();
        const double second = in.number();
        return given == plparcel::Given::as_width ? plparcel::width(first)
                                                  : plparcel::Amount{given, first, second};
    }
    return plparcel::area(std::fabs(fuzz::area_of(ring)) * in.byte() / 255.0);
}

// The same line as callers describe it.
plparcel::Line as_described(const plparcel::Line& line)
{
    switch (line.cut) {
    case Cut::parallel:
        return plparcel::parallel_to(line.index);
    case Cut::perpendicular:
        return plparcel::perpendicular_to(line.index);
    case Cut::through_vertex:
        return plparcel::through_vertex(line.index);
    case Cut::at_bearing:
        return plparcel::at_bearing(line.bearing);
    case Cut::along_segment:
        return plparcel::along_segment(line.a, line.b);
    case Cut::through_place:
        return plparcel::through_place(line.index, line.along);
    case Cut::through_point:
        return plparcel::through_point(line.a, line.bearing);
    }
    return line;  // a number that is no cut
}

plparcel::Request read_request(Reader& in, const Ring& ring)
{
    plparcel::Request request;
    request.line.cut = static_cast<Cut>(in.selector());
    request.measured = static_cast<plparcel::Measured>(in.selector());
    request.line.index = in.byte();
    if (!ring.empty() && request.line.index < 250)
        request.line.index %= ring.size();
    request.ask_library = request.line.index % 2 == 1;
    const int amounts = in.below(kMostParts);
    if (amounts == 0)
        request.amounts = plparcel::equal_parts(static_cast<std::size_t>(in.below(kMostParts + 1)));
    for (int i = 1; i < amounts; ++i)
        request.amounts.push_back(read_amount(in, ring));
    request.line.bearing = in.number();
    request.line.a = in.point();
    request.line.b = in.point();
    constexpr int kAnyStart = 4;
    const int start = in.below(kAnyStart);
    if (start >= 2)
        request.line.cut = start == 2 ? Cut::through_place : Cut::through_point;
    if (start >= 2 && !ring.empty()) {
        // Half-way between two vertices: often inside, and on a side, at a vertex or in line with others.
        const PL_PNT2D_record& v = ring[in.byte() % ring.size()];
        const PL_PNT2D_record& w = ring[in.byte() % ring.size()];
        request.line.a = {0.5 * v.x + 0.5 * w.x, 0.5 * v.y + 0.5 * w.y};
    }
    request.line.along = request.line.bearing;
    request.line = as_described(request.line);
    request.alternative = static_cast<std::size_t>(in.below(kAnyStart)) % 2;
    request.pieces = static_cast<plparcel::Pieces>(in.byte() % 2);
    return request;
}

Real off_line(const PL_PNT2D_record& p, const PL_PNT2D_record& from, Real run_x, Real run_y)
{
    return ((static_cast<Real>(p.y) - from.y) * run_x - (static_cast<Real>(p.x) - from.x) * run_y) /
           std::hypot(run_x, run_y);
}

Real distance_to_side(const PL_PNT2D_record& p, const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    const Real run_x = static_cast<Real>(b.x) - a.x;
    const Real run_y = static_cast<Real>(b.y) - a.y;
    const Real along = (static_cast<Real>(p.x) - a.x) * run_x + (static_cast<Real>(p.y) - a.y) * run_y;
    if (!(along > 0.0L))
        return fuzz::apart(p, a);
    if (along > run_x * run_x + run_y * run_y)
        return fuzz::apart(p, b);
    return std::fabs(off_line(p, a, run_x, run_y));
}

Real distance_to_boundary(const Ring& ring, const PL_PNT2D_record& p)
{
    Real least = fuzz::apart(p, ring.front());
    for (std::size_t i = 0; i < ring.size(); ++i)
        least = std::fmin(least, distance_to_side(p, ring[i], ring[fuzz::index_after(ring, i)]));
    return least;
}

// Roundings of the two ends, and of one that was moved onto a vertex.
constexpr double kEndSpacings = 12.0;

bool is_free(Cut cut)
{
    return cut == Cut::at_bearing || cut == Cut::along_segment;
}

void check_free_direction(const plparcel::Line& asked, const plparcel::DividingLine& line, double spacing)
{
    const Real bearing_rad =
        std::fmod(static_cast<Real>(asked.bearing), 400.0L) * (std::acos(-1.0L) / 200.0L);
    const bool is_bearing = asked.cut == Cut::at_bearing;
    const Real run_x = is_bearing ? std::sin(bearing_rad) : static_cast<Real>(asked.b.x) - asked.a.x;
    const Real run_y = is_bearing ? std::cos(bearing_rad) : static_cast<Real>(asked.b.y) - asked.a.y;
    FUZZ_CHECK(std::fabs(off_line(line.to, line.from, run_x, run_y)) <= kEndSpacings * spacing);
}

// A line through a point inside has it on its way; those after it start there, beside the first line.
void check_point(const Ring& ring, const PL_PNT2D_record& p, const plparcel::DividingLine& line,
                 double spacing)
{
    const bool starts_there = fuzz::apart(p, line.from) <= kEndSpacings * spacing;
    FUZZ_CHECK(starts_there || distance_to_boundary(ring, line.from) <= 4.0 * spacing);
    FUZZ_CHECK(distance_to_boundary(ring, line.to) <= 4.0 * spacing);
    FUZZ_CHECK(distance_to_side(p, line.from, line.to) <= kEndSpacings * spacing);
}

void check_line(const Ring& ring, const plparcel::Request& request, const plparcel::DividingLine& line,
                double spacing)
{
    FUZZ_CHECK(!fuzz::same(line.from, line.to));
    if (request.line.cut == Cut::through_point) {
        check_point(ring, request.line.a, line, spacing);
        return;
    }
    FUZZ_CHECK(distance_to_boundary(ring, line.from) <= 4.0 * spacing);
    FUZZ_CHECK(distance_to_boundary(ring, line.to) <= 4.0 * spacing);
    if (is_free(request.line.cut)) {
        check_free_direction(request.line, line, spacing);
        return;
    }
    const PL_PNT2D_record& a = ring[request.line.index];
    const PL_PNT2D_record& b = ring[fuzz::index_after(ring, request.line.index)];
    if (request.line.cut == Cut::through_vertex) {
        FUZZ_CHECK(fuzz::equal(line.from, a));
        return;
    }
    if (request.line.cut == Cut::through_place) {
        FUZZ_CHECK(distance_to_side(line.from, a, b) <= kEndSpacings * spacing);
        FUZZ_CHECK(std::fabs(fuzz::apart(line.from, a) - request.line.along) <= kEndSpacings * spacing);
        return;
    }
    const Real run_x = static_cast<Real>(b.x) - a.x;
    const Real run_y = static_cast<Real>(b.y) - a.y;
    const Real aside = request.line.cut == Cut::parallel ? off_line(line.to, line.from, run_x, run_y)
                                                         : off_line(line.to, line.from, -run_y, run_x);
    FUZZ_CHECK(std::fabs(aside) <= kEndSpacings * spacing);
}

void check_divided(const Ring& ring, const plparcel::Request& request, const Division& division)
{
    constexpr double kOfParcel = 1e-9;
    constexpr double kOfPiece = 0.01;
    constexpr double kRounding = 1e-15;
    FUZZ_CHECK(!division.lines.empty() && division.lines.size() <= request.amounts.size());
    FUZZ_CHECK(division.pieces.size() == division.lines.size() + 1);
    const Cut cut = request.line.cut;
    const bool of_library = cut == Cut::parallel || cut == Cut::perpendicular || cut == Cut::through_vertex;
    const bool asked_library = request.ask_library && of_library;
    FUZZ_CHECK(division.bare.size() == (asked_library ? division.lines.size() : 0));
    FUZZ_CHECK(division.trials >= division.lines.size());

    const double spacing = plparcel::coordinate_spacing(ring);
    for (const plparcel::DividingLine& line : division.lines)
        check_line(ring, request, line, spacing);

    const double parcel = division.ring.area;
    const double rounding = 1e-17 * division.ring.perimeter * division.ring.perimeter;  // of long doubles
    double sum = 0.0;
    for (const plparcel::Piece& piece : division.pieces) {
        FUZZ_CHECK(piece.ring.size() >= 3 && piece.area > 0.0 && piece.asked > 0.0);
        FUZZ_CHECK(std::fabs(piece.residual) <= (kOfParcel + kRounding) * parcel);
        FUZZ_CHECK(std::fabs(piece.residual) <= (kOfPiece + kRounding) * piece.asked);
        FUZZ_CHECK(fuzz::near(piece.area - piece.asked, piece.residual, kRounding * piece.area));
        const double area = fuzz::area_of(piece.ring);
        const double signed_area = division.ring.anticlockwise ? piece.area : -piece.area;
        FUZZ_CHECK(fuzz::near(area, signed_area, 1e-12 * parcel + rounding));
        sum += piece.area;
    }
    FUZZ_CHECK(fuzz::near(sum, parcel, kOfParcel * static_cast<double>(division.pieces.size()) * parcel));
}

// A whole line passes the vertex or the point that it goes through, but for roundings and corners of holes that it touches.
void check_turned(const plparcel::Parcel& parcel, const plparcel::Line& asked,
                  const plparcel::DividingLine& line, double spacing)
{
    constexpr double kBeside = 1100.0;
    if (asked.cut != Cut::through_vertex && asked.cut != Cut::through_point)
        return;
    const Ring& ring = asked.ring == 0 ? parcel.outer : parcel.holes[asked.ring - 1];
    const PL_PNT2D_record& p = asked.cut == Cut::through_point ? asked.a : ring[asked.index];
    const Real run_x = static_cast<Real>(line.to.x) - line.from.x;
    const Real run_y = static_cast<Real>(line.to.y) - line.from.y;
    const Real away = fuzz::apart(p, line.from) / std::hypot(run_x, run_y);
    FUZZ_CHECK(std::fabs(off_line(p, line.from, run_x, run_y)) <= kBeside * spacing * (1.0L + 2.0L * away));
}

// The parts of whole lines lie on the boundary and in line; each amount is held by all of its pieces together.
void check_whole(const plparcel::Parcel& parcel, const plparcel::Request& request, const Division& division)
{
    constexpr double kStraight = 16.0;
    FUZZ_CHECK(!division.lines.empty() && division.held.size() == division.lines.size() + 1);
    FUZZ_CHECK(division.lines.size() <= request.amounts.size());
    double spacing = plparcel::coordinate_spacing(parcel.outer);
    for (const Ring& hole : parcel.holes)
        spacing = std::fmax(spacing, plparcel::coordinate_spacing(hole));
    for (const plparcel::DividingLine& line : division.lines) {
        check_turned(parcel, request.line, line, spacing);
        FUZZ_CHECK(!line.segments.empty());
        const Real run_x = static_cast<Real>(line.to.x) - line.from.x;
        const Real run_y = static_cast<Real>(line.to.y) - line.from.y;
        for (const plparcel::Segment& segment : line.segments) {
            for (const PL_PNT2D_record& p : {segment.from, segment.to}) {
                Real least = distance_to_boundary(parcel.outer, p);
                for (const Ring& hole : parcel.holes)
                    least = std::fmin(least, distance_to_boundary(hole, p));
                FUZZ_CHECK(least <= 4.0 * spacing);
                FUZZ_CHECK(std::fabs(off_line(p, line.from, run_x, run_y)) <= kStraight * spacing);
            }
        }
    }
    double sum = 0.0;
    for (const plparcel::Held& held : division.held) {
        FUZZ_CHECK(held.pieces > 0 && held.area > 0.0 && held.asked > 0.0);
        FUZZ_CHECK(std::fabs(held.residual) <= (1e-9 + 1e-15) * division.ring.area);
        FUZZ_CHECK(std::fabs(held.residual) <= (0.01 + 1e-15) * held.asked);
        sum += held.area;
    }
    for (const plparcel::Piece& piece : division.pieces)
        FUZZ_CHECK(piece.ring.size() >= 3 && piece.area > 0.0 && piece.amount < division.held.size());
    FUZZ_CHECK(fuzz::near(sum, division.ring.area,
                          1e-9 * static_cast<double>(division.held.size()) * division.ring.area));
}

// Holes are read last, so that older inputs have none.
void check_with_holes(Reader& in, const Ring& outer, const plparcel::Request& request)
{
    plparcel::Parcel parcel = {outer, {}};
    const int holes = in.below(3);
    for (int i = 0; i < holes; ++i)
        parcel.holes.push_back(fuzz::read_ring(in));
    if (parcel.holes.empty())
        return;
    const plparcel::RingReport report = plparcel::check_parcel(parcel);
    FUZZ_CHECK(report.at_ring <= parcel.holes.size());
    const Division division = plparcel::divide(parcel, request);
    FUZZ_CHECK(division.ring.status == report.status);
    if (division.status == Status::divided)
        check_whole(parcel, request, division);
    else
        FUZZ_CHECK(division.lines.empty() && division.pieces.empty() && division.held.empty());
}

// A plainly convex parcel has a line for every request between nothing and all of it.
bool must_divide(const Ring& ring, const plparcel::Request& request)
{
    const bool known = (request.line.cut == Cut::parallel || request.line.cut == Cut::perpendicular ||
                        request.line.cut == Cut::through_vertex) &&
                       (request.measured == plparcel::Measured::from_reference ||
                        request.measured == plparcel::Measured::opposite);
    const bool has_direction = request.line.cut != Cut::through_vertex &&
                               request.line.cut != Cut::through_place &&
                               request.line.cut != Cut::through_point;
    if (!has_direction && request.pieces == plparcel::Pieces::any)
        return false;
    if (!known || request.alternative > 0 || request.line.index >= ring.size() || !fuzz::plainly_convex(ring))
        return false;
    const double parcel = std::fabs(fuzz::area_of(ring));
    double sum = 0.0;
    for (const plparcel::Amount& amount : request.amounts) {
        if (amount.given != plparcel::Given::as_area || !(amount.first >= 0.001 * parcel))
            return false;
        sum += amount.first;
    }
    return sum > 0.0 && sum <= 0.999 * parcel;
}

bool same(const Division& one, const Division& other)
{
    bool same = one.status == other.status && one.lines.size() == other.lines.size();
    for (std::size_t i = 0; same && i < one.lines.size(); ++i)
        same = fuzz::same(one.lines[i].from, other.lines[i].from) &&
               fuzz::same(one.lines[i].to, other.lines[i].to);
    return same;
}

// Each of the lines that hold the amount is one that divide() gives, and the first is the one that it gives at once.
void check_all(const Ring& ring, const plparcel::Request& request, const Division& first)
{
    const std::vector<Division> all = plparcel::all_divisions(ring, request);
    FUZZ_CHECK(!all.empty() && same(all.front(), first));
    for (const Division& division : all)
        FUZZ_CHECK(division.status == Status::divided || all.size() == 1);
}

// The ends are what their decimals say, and the pieces hold their amounts as closely as is asked.
void check_rounded(const Ring& ring, plparcel::Request request, int decimals)
{
    request.rounding.decimals = decimals;
    const Division division = plparcel::divide(ring, request);
    if (division.status != Status::divided)
        return;
    FUZZ_CHECK(!division.decimals || *division.decimals >= decimals);
    for (const plparcel::DividingLine& line : division.lines)
        for (const PL_PNT2D_record& p : {line.from, line.to})
            FUZZ_CHECK(!division.decimals ||
                       (fuzz::equal(p, {plparcel::rounded_to(p.x, *division.decimals),
                                        plparcel::rounded_to(p.y, *division.decimals)})));
    for (const plparcel::Piece& piece : division.pieces)
        FUZZ_CHECK(std::fabs(piece.residual) <= (request.rounding.tolerance + 1e-15) * division.ring.area);
}

void check_report(const Ring& ring, const plparcel::RingReport& report)
{
    FUZZ_CHECK(report.repeated <= ring.size());
    if (report.status == BoundaryStatus::meets_itself)
        FUZZ_CHECK(report.meeting_sides[0] < report.meeting_sides[1] &&
                   report.meeting_sides[1] < ring.size());
    if (report.status != BoundaryStatus::usable) {
        FUZZ_CHECK(report.area == 0.0 && report.perimeter == 0.0 && !report.anticlockwise);
        return;
    }
    const double area = fuzz::area_of(ring);
    FUZZ_CHECK(report.area > 0.0 && report.perimeter > 0.0);
    const double around = report.perimeter * report.perimeter;
    FUZZ_CHECK(fuzz::near(std::fabs(area), report.area, 1e-15 * (around + report.area)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const Ring ring = fuzz::read_ring(in);
    const plparcel::Request request = read_request(in, ring);

    const plparcel::RingReport report = plparcel::check_ring(ring);
    check_report(ring, report);

    const Division division = plparcel::divide(ring, request);
    FUZZ_CHECK(division.ring.status == report.status && fuzz::same(division.ring.area, report.area));
    FUZZ_CHECK((division.status == Status::unusable_boundary) == (report.status != BoundaryStatus::usable));
    FUZZ_CHECK(plparcel::describe(division)[0] != '\0');
    if (division.status == Status::divided && request.pieces == plparcel::Pieces::any)
        check_whole({ring, {}}, request, division);
    else if (division.status == Status::divided)
        check_divided(ring, request, division);
    else
        FUZZ_CHECK(division.lines.empty() && division.pieces.empty());
    if (must_divide(ring, request))
        FUZZ_CHECK(division.status == Status::divided);
    FUZZ_CHECK(same(division, plparcel::divide(ring, request)));
    check_with_holes(in, ring, request);
    check_all(ring, request, division);
    constexpr int kMostRead = 8;
    check_rounded(ring, request, in.below(kMostRead));
    return 0;
}
