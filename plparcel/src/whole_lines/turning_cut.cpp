#include "whole_lines/turning_cut.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "boundary/joined_rings.h"
#include "boundary/local_ring.h"
#include "boundary/locate.h"
#include "boundary/measured_ring.h"
#include "lines/direction.h"
#include "plparcel/extent.h"
#include "verdict/judge.h"
#include "verdict/target.h"
#include "whole_lines/part_cut.h"
#include "whole_lines/turning_parts.h"
#include "whole_lines/turning_profile.h"

namespace plparcel {
namespace {

// A point may lie so many times the parcel's extent away: directions to two vertices then still differ by all that 106
// bits can tell.
constexpr double kFarthest = 1e6;

// Where a line cannot be rounded well, for a hole that it touches, it is laid by these many spacings of doubles beside the
// point, and turned so that it holds the amount: a line through a corner of a hole often touches it there.
constexpr double kBeside[] = {12.0, -12.0, 48.0, -48.0};

// It is turned by no more than this, about the sine of the angle: in a parcel so small that it takes more, doubles are too
// coarse.
constexpr double kMostTurned = 1e-4;

// Where doubles are too coarse for so many lines, they are for the others: as many as vertices make up this, but some.
constexpr std::size_t kMostWork = 400000;
constexpr std::size_t kLeastFailures = 4;
constexpr std::size_t kMostFailures = 64;

Pivot refused(Status status)
{
    Pivot none;
    none.refusal = status;
    return none;
}

bool has_inside_on_left(const CheckedParcel& parcel, std::size_t ring)
{
    return (parcel.clean[ring].ring.turn() > 0.0) == (ring == 0);
}

// At a vertex or a place on a side, turning from the side or what is left of it.
Pivot on_boundary(const PL_PNT2D_record& point, const WidePoint& first, bool inside_on_left)
{
    Pivot pivot;
    pivot.point = point;
    pivot.first = first;
    pivot.on_boundary = true;
    pivot.clockwise = !inside_on_left;
    return pivot;
}

Pivot at_vertex(const CheckedParcel& parcel, std::size_t ring, std::size_t vertex)
{
    const MeasuredRing& of = parcel.clean[ring].ring;
    return on_boundary(of[vertex], from_to(of[vertex], of.at(vertex + 1)), has_inside_on_left(parcel, ring));
}

Pivot at_distance(const CheckedParcel& parcel, std::size_t ring, std::size_t side, double along)
{
    const MeasuredRing& of = parcel.clean[ring].ring;
    const double beyond = along - side_length(of, side);
    const double reach = kSideRoundings * of.spacing();
    if (!(along >= -reach) || !(beyond <= reach))
        return refused(Status::no_such_place);
    const PL_PNT2D_record place = place_on_side(of, side, along);
    for (const std::size_t vertex : {side, (side + 1) % of.size()})
        if (is_at_vertex(of, of[vertex], place))
            return at_vertex(parcel, ring, vertex);
    return on_boundary(place, from_to(of[side], of.at(side + 1)), has_inside_on_left(parcel, ring));
}

// A point on the boundary is that vertex or place of a ring that has the parcel on its left.
Pivot at_location(const CheckedParcel& parcel, std::size_t ring, const Location& location,
                  const PL_PNT2D_record& point)
{
    const MeasuredRing& of = parcel.clean[ring].ring;
    const bool as_it_runs = has_inside_on_left(parcel, ring);
    const std::size_t i = location.index;
    if (location.where == Location::Where::at_vertex)
        return on_boundary(of[i], from_to(of[i], of.at(as_it_runs ? i + 1 : i + of.size() - 1)), true);
    const WidePoint side = from_to(of[i], of.at(i + 1));
    return on_boundary(point, as_it_runs ? side : side * -1.0, true);
}

bool is_far(const MeasuredRing& outer, const PL_PNT2D_record& point)
{
    const double most = kFarthest * outer.extent().largest();
    return !(std::fabs(point.x - outer[0].x) <= most && std::fabs(point.y - outer[0].y) <= most);
}

Pivot at_point(const CheckedParcel& parcel, const PL_PNT2D_record& point, double bearing)
{
    if (!std::isfinite(bearing))
        return refused(Status::no_direction);
    if (is_far(parcel.clean[0].ring, point))
        return refused(Status::point_outside);
    for (std::size_t ring = 0; ring < parcel.clean.size(); ++ring) {
        const Location location = locate(parcel.clean[ring].ring, point);
        if (location.where == Location::Where::at_vertex || location.where == Location::Where::on_side)
            return at_location(parcel, ring, location, point);
    }
    Pivot pivot;
    pivot.point = point;
    pivot.first = direction_of(bearing);
    pivot.clockwise = true;
    return pivot;
}

// A line through a point has the amount on its right on the ground. One through a place on the boundary has it where the
// side lies that it turns away from: on the right as it turns. For `opposite` it is the other side.
bool is_amount_on_left(const Pivot& pivot, Measured measured)
{
    return pivot.on_boundary == (measured == Measured::opposite);
}

// There and back.
WidePoint on_ground(const Pivot& pivot, const WidePoint& v)
{
    return pivot.clockwise ? WidePoint{-v.x, v.y} : v;
}

KnownLine known_line_of(const Pivot& pivot, bool amount_on_left, const WidePoint& direction)
{
    const WidePoint run = about_unit(on_ground(pivot, direction));
    KnownLine known;
    known.point = pivot.point;
    known.ends_there = pivot.on_boundary;
    const bool on_right = amount_on_left == pivot.clockwise;
    known.up = on_right ? WidePoint{-run.y, run.x} : WidePoint{run.y, -run.x};
    return known;
}

// What the line turns over, anticlockwise: mirrored if it turns clockwise on the ground.
class Turning {
public:
    Turning(const WholeParcel& parcel, const Pivot& pivot, Measured measured, double of_parcel)
        : rings_of_(parcel.rings), parcel_(parcel.area), of_parcel_(of_parcel), rings_(parcel.rings),
          outer_(parcel.rings.front()), local_(outer_), pivot_(pivot),
          profile_(profile_about(local_.to_local(pivot.point))),
          amount_on_left_(is_amount_on_left(pivot, measured))
    {}

    // One after another, until one is taken.
    void lines(const Shares& shares, const std::function<bool(const TurningLine&)>& take) const
    {
        turning_lines(profile_, request_for(shares, !pivot_.on_boundary), take);
    }

    KnownLine known_line(const TurningLine& line) const
    {
        return known_line_of(pivot_, amount_on_left_, line.direction);
    }

    // The line that holds as much and lies by so many spacings beside the point. Of several the one that runs most nearly
    // as the line through the point does.
    std::optional<KnownLine> known_line_beside(const TurningLine& line, const Shares& shares, double by) const
    {
        const KnownLine through = known_line(line);
        double spacing = 0.0;
        for (const Ring& ring : rings_of_)
            spacing = std::max(spacing, coordinate_spacing(ring));
        const WidePoint beside = through.up * local_.length_to_local(by * spacing);
        const TurningProfile profile = profile_about(local_.to_local(pivot_.point) + beside);
        std::optional<TurningLine> nearest;
        const WidePoint run = about_unit(line.direction);
        const auto off = [&run](const TurningLine& other) {
            return abs(cross(run, about_unit(other.direction)));
        };
        turning_lines(profile, request_for(shares, true), [&](const TurningLine& other) {
            if (dot(run, other.direction) > 0.0 && (!nearest || off(other) < off(*nearest)))
                nearest = other;
            return false;
        });
        if (!nearest || off(*nearest) > kMostTurned)
            return std::nullopt;
        KnownLine known = known_line(*nearest);
        known.level = dot(known.up, beside);
        known.ends_there = false;
        return known;
    }

    std::size_t vertices() const { return rings_.size(); }

    LeastAndMost areas() const
    {
        const LeastAndMost found = least_and_most(profile_, !pivot_.on_boundary);
        const Wide least = local_.area_to_parcel(found.least);
        const Wide most = local_.area_to_parcel(found.most);
        return amount_on_left_ ? LeastAndMost{least, most} : LeastAndMost{parcel_ - most, parcel_ - least};
    }

private:
    TurningProfile profile_about(const WidePoint& point) const
    {
        std::vector<WidePoint> points;
        points.reserve(rings_.size());
        for (const PL_PNT2D_record& p : rings_.points())
            points.push_back(on_ground(pivot_, local_.to_local(p) - point));
        return {rings_, points, pivot_.clockwise ? -1.0 : 1.0, on_ground(pivot_, pivot_.first)};
    }

    TurningRequest request_for(const Shares& shares, bool full_turn) const
    {
        const Target target = {shares.pieces[0], shares.pieces[1], parcel_, of_parcel_};
        TurningRequest request;
        request.left = local_.area_to_local(shares.pieces[amount_on_left_ ? 0 : 1]);
        request.granted = local_.area_to_local(target.granted());
        request.full_turn = full_turn;
        return request;
    }

    const std::vector<Ring>& rings_of_;
    Wide parcel_;
    double of_parcel_;
    JoinedRings rings_;
    MeasuredRing outer_;
    LocalRing local_;
    const Pivot& pivot_;
    TurningProfile profile_;
    bool amount_on_left_;
};

// With a place on a side as a vertex.
std::vector<Ring> with_vertex_at(std::vector<Ring> rings, const PL_PNT2D_record& place)
{
    const auto has_place = [&place](const Ring& ring) {
        return std::any_of(ring.begin(), ring.end(),
                           [&place](const PL_PNT2D_record& p) { return same_place(p, place); });
    };
    if (std::any_of(rings.begin(), rings.end(), has_place))
        return rings;
    for (Ring& ring : rings) {
        const Location location = locate(MeasuredRing(ring), place);
        if (location.where != Location::Where::on_side)
            continue;
        ring.insert(ring.begin() + static_cast<std::ptrdiff_t>(location.index) + 1, place);
        return rings;
    }
    return rings;
}

std::vector<Ring> with_vertex_at_pivot(const std::vector<Ring>& rings, const Pivot& pivot)
{
    if (pivot.on_boundary)
        return with_vertex_at(rings, pivot.point);
    return rings;
}

PL_PNT2D_record mirrored(const PL_PNT2D_record& p)
{
    return {-p.x, p.y};
}

// As they are seen where the line turns anticlockwise.
std::vector<Ring> seen_from(const Pivot& pivot, std::vector<Ring> rings)
{
    if (!pivot.clockwise)
        return rings;
    for (Ring& ring : rings) {
        std::reverse(ring.begin(), ring.end());
        for (PL_PNT2D_record& p : ring)
            p = mirrored(p);
    }
    return rings;
}

// Parts of the line, likewise.
class PartsTurning {
public:
    PartsTurning(const std::vector<Ring>& rings, const Pivot& pivot)
        : seen_(seen_from(pivot, rings)), rings_(seen_), outer_(seen_.front()), local_(outer_),
          parts_(parts_about(pivot))
    {}

    std::vector<TurningLine> lines(const Wide& left, double granted) const
    {
        return parts_.lines(local_.area_to_local(left), local_.area_to_local(granted));
    }

    // On the left of the line.
    std::vector<AreaRange> areas() const
    {
        double spacing = 0.0;
        for (const Ring& ring : seen_)
            spacing = std::max(spacing, coordinate_spacing(ring));
        std::vector<AreaRange> ranges = parts_.areas(local_.length_to_local(kTouchRoundings * spacing));
        for (AreaRange& range : ranges) {
            range.least = local_.area_to_parcel(range.least);
            range.most = local_.area_to_parcel(range.most);
        }
        return ranges;
    }

private:
    TurningParts parts_about(const Pivot& pivot) const
    {
        const PL_PNT2D_record point = pivot.clockwise ? mirrored(pivot.point) : pivot.point;
        std::vector<WidePoint> points;
        std::optional<std::size_t> vertex;
        for (std::size_t i = 0; i < rings_.size(); ++i) {
            points.push_back(local_.to_local(rings_[i]) - local_.to_local(point));
            if (pivot.on_boundary && same_place(rings_[i], point))
                vertex = i;
        }
        return {rings_, points, vertex, on_ground(pivot, pivot.first)};
    }

    std::vector<Ring> seen_;
    JoinedRings rings_;
    MeasuredRing outer_;
    LocalRing local_;
    TurningParts parts_;
};

Division cut_along_one(const WholeParcel& parcel, const Turning& turning, const TurningLine& line,
                       const Request& request, const Shares& shares, double of_parcel, const Division& so_far)
{
    Division tried = so_far;
    cut_along(parcel, request, shares, of_parcel, turning.known_line(line), tried);
    for (const double by : kBeside) {
        if (tried.status == Status::divided)
            break;
        if (const std::optional<KnownLine> beside = turning.known_line_beside(line, shares, by))
            cut_along(parcel, request, shares, of_parcel, *beside, tried);
    }
    return tried;
}

}  // namespace

Pivot pivot_of(const CheckedParcel& parcel, const Line& line)
{
    if (line.cut == Cut::through_point)
        return at_point(parcel, line.a, line.bearing);
    if (line.ring >= parcel.clean.size() || line.index >= parcel.clean[line.ring].place.size())
        return refused(Status::no_such_index);
    const std::vector<std::size_t>& place = parcel.clean[line.ring].place;
    const std::size_t index = place[line.index];
    if (line.cut == Cut::through_vertex)
        return at_vertex(parcel, line.ring, index);
    if (index == around(place, line.index + 1))
        return refused(Status::side_without_length);
    return at_distance(parcel, line.ring, index, line.along);
}

std::optional<Status> refusal_of_start(const CheckedParcel& parcel, const Line& line, Pieces pieces)
{
    const Pivot pivot = pivot_of(parcel, line);
    if (pivot.refusal || pivot.on_boundary || pieces == Pieces::any)
        return pivot.refusal;
    for (std::size_t ring = 0; ring < parcel.clean.size(); ++ring) {
        const Location location = locate(parcel.clean[ring].ring, pivot.point);
        if ((location.where == Location::Where::inside) != (ring == 0))
            return Status::point_outside;
    }
    return std::nullopt;
}

std::vector<Wide> cut_through(const WholeParcel& parcel, const Pivot& pivot, const Request& request,
                              const Shares& shares, double of_parcel, Division& division)
{
    const Turning turning(parcel, pivot, request.measured, of_parcel);
    const std::size_t most_failures =
        std::clamp(kMostWork / turning.vertices(), kLeastFailures, kMostFailures);
    std::size_t passed = 0;
    std::size_t failed = 0;
    std::size_t offered = 0;
    bool is_found = false;
    turning.lines(shares, [&](const TurningLine& line) {
        ++offered;
        if (line.beside_the_amount && request.alternative > 0)
            return true;
        Division tried = cut_along_one(parcel, turning, line, request, shares, of_parcel, division);
        division.trials = tried.trials;
        if (tried.status != Status::divided)
            return ++failed == most_failures;
        is_found = passed++ == request.alternative;
        if (is_found)
            division = std::move(tried);
        return is_found;
    });
    if (is_found)
        return shares.pieces;
    division.status = offered > failed ? Status::no_further_line : Status::not_reached;
    if (offered == 0)
        division.status = Status::no_line_through_point;
    return {};
}

std::vector<Wide> cut_parts_through(const WholeParcel& parcel, const Pivot& pivot, const Request& request,
                                    const Shares& shares, double of_parcel, Division& division)
{
    const std::vector<Ring> rings = with_vertex_at_pivot(parcel.rings, pivot);
    const Target target = {shares.pieces[0], shares.pieces[1], parcel.area, of_parcel};
    const bool amount_on_left = is_amount_on_left(pivot, request.measured);
    const std::size_t most_failures =
        std::clamp(kMostWork / JoinedRings(rings).size(), kLeastFailures, kMostFailures);
    std::size_t passed = 0;
    std::size_t failed = 0;
    bool are_too_coarse = false;
    for (const TurningLine& line :
         PartsTurning(rings, pivot).lines(shares.pieces[amount_on_left ? 0 : 1], target.granted())) {
        if (line.beside_the_amount && passed > 0)
            break;
        const PartsOfLine parts =
            cut_by_parts_of(rings, parcel.clockwise, known_line_of(pivot, amount_on_left, line.direction),
                            on_ground(pivot, line.direction), target);
        const std::vector<Division>& found = parts.divisions;
        division.trials += parts.trials;
        // A place that is rounded may itself take so much that no part of the line is left to be judged.
        are_too_coarse = are_too_coarse || parts.trials == 0 || parts.any_missing;
        if (found.empty() && ++failed == most_failures)
            break;
        if (request.alternative < passed + found.size()) {
            const Division& chosen = found[request.alternative - passed];
            division.status = Status::divided;
            division.lines = chosen.lines;
            division.pieces = chosen.pieces;
            division.held = chosen.held;
            return shares.pieces;
        }
        passed += found.size();
    }
    if (passed > 0)
        division.status = Status::no_further_line;
    else if (failed > 0)
        division.status = are_too_coarse ? Status::not_reached : Status::line_leaves_parcel;
    else
        division.status = Status::no_line_through_point;
    return {};
}

LeastAndMost areas_through(const WholeParcel& parcel, const Pivot& pivot, Measured measured)
{
    return Turning(parcel, pivot, measured, kAsExactAsDoubles).areas();
}

std::vector<AreaRange> areas_of_parts_through(const WholeParcel& parcel, const Pivot& pivot,
                                              Measured measured, const Wide& granted)
{
    const std::vector<Ring> rings = with_vertex_at_pivot(parcel.rings, pivot);
    std::vector<AreaRange> all = PartsTurning(rings, pivot).areas();
    // What a place takes that is rounded is no amount.
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&](const AreaRange& range) {
                                 return !(range.most > granted) || !(range.least < parcel.area - granted);
                             }),
              all.end());
    const std::vector<AreaRange> on_left = united(std::move(all), parcel.area, granted);
    return is_amount_on_left(pivot, measured) ? on_left : of_other_piece(on_left, parcel.area);
}

}  // namespace plparcel
