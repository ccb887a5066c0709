// What WebAssembly exports. The host asks for room for its numbers (plc_input), writes them there, calls, and reads the answer
// from plc_result on. Both buffers belong to this module and are used again by the next call.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "exports.h"
#include "names.h"
#include "packed.h"
#include "plcalc/survey.h"
#include "plparcel/division.h"
#include "plparcel/feasible.h"
#include "pointed_at.h"
#include "reading/joined_lines.h"

#ifdef __wasm__
#define PLC_EXPORT(name) extern "C" __attribute__((export_name(#name)))
#else
#define PLC_EXPORT(name) extern "C"
#endif

namespace {

using plparcel::Amount;
using plparcel::Parcel;
using plparcel::Ring;
using web::PackedReader;
using web::PackedWriter;
using Point = PL_PNT2D_record;

// Behind plparcel's kinds of amounts: a number of equal parts.
constexpr std::size_t kParts = 4;

// More parts than this fill the memory that a browser allows.
constexpr std::size_t kMostParts = 1000000;

std::vector<double>& input()
{
    static std::vector<double> numbers;
    return numbers;
}

std::vector<double>& result()
{
    static std::vector<double> numbers;
    return numbers;
}

double none()
{
    return std::numeric_limits<double>::quiet_NaN();
}

// ------------------------------------------------------------------------------------------- requests

plparcel::Line read_line(PackedReader& from)
{
    plparcel::Line line;
    line.cut = static_cast<plparcel::Cut>(static_cast<int>(from.index() & 0xff));
    line.index = from.index();
    line.ring = from.index();
    line.bearing = from.number();
    line.a = from.point();
    line.b = from.point();
    line.along = from.number();
    return line;
}

void read_amounts(PackedReader& from, std::vector<Amount>& amounts)
{
    const std::size_t n = from.count(3);
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t given = from.index();
        const double first = from.number();
        const double second = from.number();
        if (given != kParts) {
            amounts.push_back({static_cast<plparcel::Given>(static_cast<int>(given & 0xff)), first, second});
            continue;
        }
        const bool usable = first >= 0.0 && first <= static_cast<double>(kMostParts);
        const std::vector<Amount> parts = plparcel::equal_parts(usable ? static_cast<std::size_t>(first) : 0);
        amounts.insert(amounts.end(), parts.begin(), parts.end());
    }
}

plparcel::Request read_request(PackedReader& from)
{
    plparcel::Request request;
    request.line = read_line(from);
    request.measured = static_cast<plparcel::Measured>(static_cast<int>(from.index() & 0xff));
    request.alternative = from.index();
    request.pieces = static_cast<plparcel::Pieces>(static_cast<int>(from.index() & 0xff));
    const double decimals = from.number();
    if (!std::isnan(decimals))
        request.rounding.decimals = std::abs(decimals) < 1000.0 ? static_cast<int>(decimals) : -1;
    request.rounding.tolerance = from.number();
    read_amounts(from, request.amounts);
    return request;
}

// ------------------------------------------------------------------------------------------- answers

void write_report(PackedWriter& to, const plparcel::RingReport& report)
{
    to.number(static_cast<double>(report.status));
    to.count(report.repeated);
    to.flag(report.closed);
    to.count(report.meeting_sides[0]);
    to.count(report.meeting_sides[1]);
    to.count(report.meeting_rings[0]);
    to.count(report.meeting_rings[1]);
    to.count(report.at_ring);
    to.flag(report.anticlockwise);
    to.number(report.area);
    to.number(report.perimeter);
}

double bearing_gon(const Point& from, const Point& to)
{
    const double east = to.x - from.x;
    const double north = to.y - from.y;
    return east == 0.0 && north == 0.0 ? none() : AngoloDaAsseRifer(east, north);
}

void write_line(PackedWriter& to, const plparcel::DividingLine& line)
{
    to.point(line.from);
    to.point(line.to);
    to.flag(line.meets_again);
    to.number(PlFunz_distance(&line.from, &line.to));
    to.number(bearing_gon(line.from, line.to));
    to.count(line.segments.size());
    for (const plparcel::Segment& segment : line.segments) {
        to.point(segment.from);
        to.point(segment.to);
    }
}

void write_piece(PackedWriter& to, const plparcel::Piece& piece)
{
    to.count(piece.amount);
    to.number(piece.area);
    to.number(piece.asked);
    to.number(piece.residual);
    to.rings(piece.ring, piece.holes);
}

void write_division(PackedWriter& to, const plparcel::Division& division)
{
    to.number(static_cast<double>(division.status));
    to.count(division.at_amount);
    write_report(to, division.ring);
    to.number(division.decimals ? *division.decimals : none());
    to.count(division.lines.size());
    for (const plparcel::DividingLine& line : division.lines)
        write_line(to, line);
    to.count(division.pieces.size());
    for (const plparcel::Piece& piece : division.pieces)
        write_piece(to, piece);
    to.count(division.held.size());
    for (const plparcel::Held& held : division.held) {
        to.number(held.asked);
        to.number(held.area);
        to.number(held.residual);
        to.count(held.pieces);
    }
}

// Inside a parcel, that is outside its holes.
double inner_angle(const Point& before, const Point& at, const Point& after, bool inside_on_left)
{
    const double back = bearing_gon(at, before);
    const double on = bearing_gon(at, after);
    return LimiteAng0_400(inside_on_left ? on - back : back - on);
}

void write_measures(PackedWriter& to, const Ring& ring, bool is_hole)
{
    const bool inside_on_left = plparcel::check_ring(ring).anticlockwise != is_hole;
    const std::size_t n = ring.size();
    to.count(n);
    for (std::size_t i = 0; i < n; ++i) {
        const Point& after = ring[(i + 1) % n];
        to.number(PlFunz_distance(&ring[i], &after));
        to.number(bearing_gon(ring[i], after));
        to.number(inner_angle(ring[(i + n - 1) % n], ring[i], after, inside_on_left));
    }
}

}  // namespace

PLC_EXPORT(plc_input) double* plc_input(std::uint32_t count)
{
    input().resize(count);
    return input().data();
}

PLC_EXPORT(plc_result) const double* plc_result()
{
    return result().data();
}

PLC_EXPORT(plc_result_length) std::uint32_t plc_result_length()
{
    return static_cast<std::uint32_t>(result().size());
}

PLC_EXPORT(plc_divide) void plc_divide()
{
    PackedReader from(input());
    const Parcel parcel = from.parcel();
    const plparcel::Request request = read_request(from);
    PackedWriter to(result());
    write_division(to, parcel.holes.empty() ? plparcel::divide(parcel.outer, request)
                                            : plparcel::divide(parcel, request));
}

PLC_EXPORT(plc_check) void plc_check()
{
    PackedReader from(input());
    const Parcel parcel = from.parcel();
    PackedWriter to(result());
    write_report(to, plparcel::check_parcel(parcel));
}

PLC_EXPORT(plc_measure) void plc_measure()
{
    PackedReader from(input());
    const Parcel parcel = from.parcel();
    PackedWriter to(result());
    write_report(to, plparcel::check_parcel(parcel));
    to.count(1 + parcel.holes.size());
    write_measures(to, parcel.outer, false);
    for (const Ring& hole : parcel.holes)
        write_measures(to, hole, true);
}

PLC_EXPORT(plc_amount_at) void plc_amount_at()
{
    PackedReader from(input());
    const Parcel parcel = from.parcel();
    const plparcel::Request request = read_request(from);
    const std::optional<Amount> amount = web::amount_at(parcel, request, from.point());
    PackedWriter to(result());
    to.flag(amount.has_value());
    to.number(amount ? static_cast<double>(amount->given) : none());
    to.number(amount ? amount->first : none());
}

PLC_EXPORT(plc_along_side) void plc_along_side()
{
    PackedReader from(input());
    const Parcel parcel = from.parcel();
    const std::size_t ring = from.index();
    const std::size_t side = from.index();
    const bool outer = ring == 0 || ring > parcel.holes.size();
    PackedWriter to(result());
    to.number(web::along_side(outer ? parcel.outer : parcel.holes[ring - 1], side, from.point()));
}

PLC_EXPORT(plc_feasible) void plc_feasible()
{
    PackedReader from(input());
    const Parcel parcel = from.parcel();
    const plparcel::Request request = read_request(from);
    const plparcel::Feasible feasible =
        plparcel::feasible(parcel, request.line, request.measured, request.pieces);
    PackedWriter to(result());
    to.number(feasible.refusal ? static_cast<double>(*feasible.refusal) : none());
    to.count(feasible.ranges.size());
    for (const plparcel::AmountRange& range : feasible.ranges) {
        to.number(range.least);
        to.number(range.most);
        to.flag(range.least_is_had);
        to.flag(range.most_is_had);
    }
}

PLC_EXPORT(plc_alternatives) void plc_alternatives()
{
    PackedReader from(input());
    const Parcel parcel = from.parcel();
    const plparcel::Request request = read_request(from);
    const std::size_t most = from.index();
    plparcel::Alternatives alternatives;
    if (!request.amounts.empty())
        alternatives = plparcel::alternatives_for(parcel, request.amounts.front(), request.measured, most);
    PackedWriter to(result());
    to.count(alternatives.lines.size());
    for (const plparcel::Alternative& alternative : alternatives.lines) {
        to.number(static_cast<double>(alternative.line.cut));
        to.count(alternative.line.index);
        to.count(alternative.line.ring);
        to.flag(alternative.measured == plparcel::Measured::opposite);
    }
}

PLC_EXPORT(plc_join) void plc_join()
{
    PackedReader from(input());
    const double tolerance = from.number();
    std::vector<tool::OpenLine> lines;
    for (std::size_t left = from.count(1); left > 0; --left) {
        tool::OpenLine line;
        line.points = from.ring();
        line.points.resize(std::max<std::size_t>(line.points.size(), 2),
                           line.points.empty() ? Point{} : line.points.back());
        line.heights.assign(line.points.size(), none());
        lines.push_back(std::move(line));
    }
    PackedWriter to(result());
    const std::vector<tool::JoinedLines> groups = tool::join_lines(lines, tolerance);
    to.count(groups.size());
    for (const tool::JoinedLines& group : groups) {
        to.number(static_cast<double>(group.kind));
        to.number(group.widest_gap);
        to.count(group.repeated);
        to.count(group.lines.size());
        for (const std::size_t line : group.lines)
            to.count(line);
        to.ring(group.ring);
        to.ring(group.loose);
        to.point(group.fork);
    }
}

PLC_EXPORT(plc_length) double plc_length(double x1, double y1, double x2, double y2)
{
    const Point from = {x1, y1};
    const Point to = {x2, y2};
    return PlFunz_distance(&from, &to);
}

PLC_EXPORT(plc_bearing) double plc_bearing(double x1, double y1, double x2, double y2)
{
    return bearing_gon({x1, y1}, {x2, y2});
}

PLC_EXPORT(plc_rounded) double plc_rounded(double value, int decimals)
{
    return plparcel::rounded_to(value, decimals);
}

PLC_EXPORT(plc_status_name) const char* plc_status_name(std::int32_t status)
{
    return web::name_of(static_cast<plparcel::Status>(status));
}

PLC_EXPORT(plc_status_reason) const char* plc_status_reason(std::int32_t status)
{
    return plparcel::describe(static_cast<plparcel::Status>(status));
}

PLC_EXPORT(plc_boundary_name) const char* plc_boundary_name(std::int32_t status)
{
    return web::name_of(static_cast<plparcel::BoundaryStatus>(status));
}

PLC_EXPORT(plc_boundary_reason) const char* plc_boundary_reason(std::int32_t status)
{
    return plparcel::describe(static_cast<plparcel::BoundaryStatus>(status));
}
