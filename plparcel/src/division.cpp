#include "plparcel/division.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "amounts.h"
#include "boundary/joined_rings.h"
#include "boundary/local_ring.h"
#include "boundary/locate.h"
#include "boundary/ring_check.h"
#include "line_start.h"
#include "lines/direction.h"
#include "lines/point_lines.h"
#include "numbers/wide.h"
#include "one_cut.h"
#include "verdict/staked_out.h"
#include "verdict/target.h"
#include "whole_lines/part_cut.h"
#include "whole_lines/turning_cut.h"
#include "whole_lines/whole_cut.h"
#include "whole_lines/whole_parcel.h"

namespace plparcel {
namespace {

// Where doubles cannot hold that, the part of a wider tolerance that the line may use up before it is rounded.
constexpr double kForTheLine = 0.5;

// What is left after a cut begins and ends with the line, so that the line is its last side.
Stage after(const Stage& stage, const PL_PNT2D_record& from, MeasuredRing rest)
{
    Stage next;
    next.ring = std::move(rest);
    next.measured = Measured::from_reference;
    next.index = next.ring.size() - 1;
    next.ask_library = stage.ask_library;
    const bool from_is_last = same_place(next.ring[next.index], from);
    switch (stage.cut) {
    case Cut::through_point:
        // The next line starts at the point, and its piece lies at the half of this line that runs to its end.
        next.cut = Cut::through_place;
        next.measured = from_is_last ? Measured::from_reference : Measured::opposite;
        next.point = foot_on_side(next.ring, next.index, stage.point);
        break;
    case Cut::through_vertex:
    case Cut::through_place:
        next.cut = Cut::through_vertex;
        next.measured = stage.measured;
        next.index = from_is_last ? next.index : 0;
        break;
    default:
        break;  // parallel to the line before, whichever way that was found
    }
    return next;
}

Piece piece_of(MeasuredRing ring, const Wide& asked, std::size_t amount)
{
    Piece piece;
    piece.amount = amount;
    piece.area = ring.area().value();
    piece.asked = asked.value();
    piece.residual = (ring.area() - asked).value();
    piece.ring = ring.take_ring();
    return piece;
}

// Entry i: all areas after the i-th together.
std::vector<Wide> sums_after(const std::vector<Wide>& areas)
{
    std::vector<Wide> sums(areas.size());
    for (std::size_t i = areas.size() - 1; i > 0; --i)
        sums[i - 1] = sums[i] + areas[i];
    return sums;
}

// The next cut of a series, of an area or of a width. With widths among the amounts, `left` is what should be left
// before it; without, the rests are known.
Attempt next_cut(const Stage& stage, const Reference& reference, const Shares& shares, std::size_t i,
                 const Target& target)
{
    if (shares.widths.empty())
        return make_cut(stage, reference, target);
    const Wide left = target.asked + target.rest;
    if (shares.widths[i] > 0.0)
        return make_strip(stage, reference, shares.widths[i], left, target.parcel);
    Attempt none;
    none.status = Status::amount_too_large;
    return target.rest > 0.0 ? make_cut(stage, reference, target) : none;
}

void refuse(Division& division, Status status, std::size_t at_amount)
{
    division.status = status;
    division.at_amount = at_amount;
    division.lines.clear();
    division.pieces.clear();
    division.held.clear();
}

// With two pieces to a line, each amount is one piece.
void hold_one_each(Division& division)
{
    division.held.clear();
    for (const Piece& piece : division.pieces)
        division.held.push_back({piece.asked, piece.area, piece.residual, 1});
}

// Cuts within a tolerance, a part of the parcel. Returns what each piece should hold.
std::vector<Wide> cut_all(Stage stage, const Reference& reference, const Shares& shares, const Wide& parcel,
                          double of_parcel, Division& division)
{
    const std::vector<Wide>& areas = shares.pieces;
    const std::vector<Wide> rests = sums_after(areas);
    std::vector<Wide> wanted;
    Wide left = parcel;
    for (std::size_t i = 0; i + 1 < areas.size(); ++i) {
        const Wide rest = shares.widths.empty() ? rests[i] : left - areas[i];
        Attempt attempt = next_cut(stage, reference, shares, i, {areas[i], rest, parcel, of_parcel});
        if (stage.ask_library)
            division.bare.push_back(attempt.bare);
        division.trials += attempt.trials;
        division.status = attempt.status;
        if (attempt.status != Status::divided) {
            refuse(division, attempt.status, i);
            return {};
        }
        division.lines.push_back(attempt.line);
        division.pieces.push_back(piece_of(std::move(attempt.cutting.request), attempt.asked, i));
        wanted.push_back(attempt.asked);
        left = left - attempt.asked;
        stage = after(stage, division.lines.back().from, std::move(attempt.cutting.rest));
    }
    wanted.push_back(shares.widths.empty() ? areas.back() : left);
    division.pieces.push_back(piece_of(std::move(stage.ring), wanted.back(), areas.size() - 1));
    hold_one_each(division);
    return wanted;
}

// The point inside at which further lines start; the first line runs through it.
std::optional<PL_PNT2D_record> meeting_point(const Line& line, const Division& division)
{
    if (line.cut != Cut::through_point || division.lines.size() < 2 ||
        same_place(division.lines[0].from, division.lines[1].from))
        return std::nullopt;
    return division.lines[1].from;
}

// Parts the first line in two there. The point becomes a corner of its piece, as it is one of the others.
void part_at(const PL_PNT2D_record& point, Division& division)
{
    DividingLine& line = division.lines[0];
    line.segments = {{line.from, point}, {point, line.to}};
    division.pieces[0].ring.push_back(point);  // the line closes the ring
}

// What each amount holds of all its pieces; each piece of an amount is told what that holds.
void hold_together(Division& division, const std::vector<Wide>& got, const std::vector<Wide>& asked)
{
    division.held.clear();
    for (std::size_t i = 0; i < asked.size(); ++i)
        division.held.push_back({asked[i].value(), got[i].value(), (got[i] - asked[i]).value(), 0});
    for (Piece& piece : division.pieces) {
        ++division.held[piece.amount].pieces;
        piece.residual = division.held[piece.amount].residual;
    }
}

// Replaces the lines by rounded ones.
void round_lines(const std::vector<Ring>& boundary, const std::vector<Wide>& asked, const Wide& parcel,
                 const Request& request, Division& division)
{
    if (const std::optional<PL_PNT2D_record> point = meeting_point(request.line, division))
        part_at(*point, division);
    std::optional<StakedOut> staked = stake_out(boundary, division, asked, parcel, request.rounding);
    if (!staked)
        return refuse(division, Status::not_reached, 0);
    for (std::size_t i = 0; i < division.lines.size(); ++i) {
        DividingLine& line = division.lines[i];
        line.segments = std::move(staked->lines[i]);
        line.from = line.segments.front().from;
        line.to = line.segments.back().to;
    }
    std::vector<Wide> got(asked.size());
    for (std::size_t i = 0; i < division.pieces.size(); ++i) {
        Piece& piece = division.pieces[i];
        StakedPiece& rounded = staked->pieces[i];
        piece.area = rounded.area.value();
        piece.ring = std::move(rounded.rings.front());
        piece.holes.assign(rounded.rings.begin() + 1, rounded.rings.end());
        got[piece.amount] = got[piece.amount] + rounded.area;
    }
    hold_together(division, got, asked);
    division.decimals = staked->decimals;
}

// Cuts with all digits and rounds the lines if that is asked for. `cut` cuts within a part of the parcel and returns
// what each amount should hold.
template <class CutAll>
void cut_and_round(const std::vector<Ring>& boundary, const Wide& parcel, const Request& request,
                   Division& division, const CutAll& cut)
{
    const Rounding& rounding = request.rounding;
    std::vector<Wide> asked = cut(kAsExactAsDoubles);
    if (!rounding.decimals)
        return;
    if (division.status == Status::not_reached && rounding.tolerance > kAsExactAsDoubles) {
        division.bare.clear();
        asked = cut(kForTheLine * rounding.tolerance);
    }
    if (division.status == Status::divided)
        round_lines(boundary, asked, parcel, request, division);
}

bool is_usable(const Rounding& rounding)
{
    constexpr double kMostTolerance = 0.01;
    return !rounding.decimals || (*rounding.decimals >= 0 && *rounding.decimals <= kMostDecimals &&
                                  rounding.tolerance > 0.0 && rounding.tolerance <= kMostTolerance);
}

bool is_known(const Request& request)
{
    const Cut cut = request.line.cut;
    const bool known = cut == Cut::parallel || cut == Cut::perpendicular || is_free(cut) || has_start(cut);
    return known &&
           (request.measured == Measured::from_reference || request.measured == Measured::opposite) &&
           (request.pieces == Pieces::two || request.pieces == Pieces::any);
}

// What is wrong with a request for whole lines.
std::optional<Status> refusal_of_whole(const CheckedParcel& parcel, const Request& request)
{
    const Line& line = request.line;
    if (!is_known(request))
        return Status::unknown_request;
    if (!is_usable(request.rounding))
        return Status::unusable_rounding;
    if (has_start(line.cut))
        return refusal_of_start(parcel, line, request.pieces);
    if (request.alternative > 0 && request.pieces == Pieces::any)
        return Status::no_further_line;  // there is one whole line of a direction for each amount
    return refusal_of_direction(parcel, line);
}

bool has_width(const std::vector<Amount>& amounts)
{
    return std::any_of(amounts.begin(), amounts.end(),
                       [](const Amount& amount) { return amount.given == Given::as_width; });
}

// Where the parcel is so small beside its coordinates that most doubles hold nothing: lines of one segment are searched
// for more thoroughly. They answer for the whole lines where these meet the parcel nowhere else.
void divide_by_single_segments(const Ring& ring, Request request, Division& division)
{
    request.pieces = Pieces::two;
    request.ask_library = false;
    Division other = divide(ring, request);
    const auto is_part = [](const DividingLine& line) { return line.meets_again; };
    if (other.status != Status::divided || std::any_of(other.lines.begin(), other.lines.end(), is_part))
        return;
    other.trials += division.trials;
    division = std::move(other);
}

}  // namespace

Division divide(const Parcel& parcel, const Request& request)
{
    if (parcel.holes.empty() && request.pieces == Pieces::two)
        return divide(parcel.outer, request);
    Division division;
    const CheckedParcel checked_parcel = checked(parcel);
    division.ring = checked_parcel.report;
    if (division.ring.status != BoundaryStatus::usable)
        return division;
    if (const std::optional<Status> refusal = refusal_of_whole(checked_parcel, request)) {
        division.status = *refusal;
        return division;
    }
    if (has_start(request.line.cut) && has_width(request.amounts)) {
        division.status = Status::no_width;
        return division;
    }
    const Shares shares = share_out(request.amounts, checked_parcel.area);
    if (shares.refusal) {
        division.status = *shares.refusal;
        division.at_amount = shares.at_amount;
        return division;
    }
    if (has_start(request.line.cut) && shares.pieces.size() > 2) {
        division.status = Status::only_one_amount;
        return division;
    }
    const WholeParcel whole = whole_parcel(checked_parcel, request.line);
    const bool turns = has_start(request.line.cut);
    cut_and_round(whole.rings, whole.area, request, division, [&](double of_parcel) {
        if (turns && request.pieces == Pieces::two)
            return cut_parts_through(whole, pivot_of(checked_parcel, request.line), request, shares,
                                     of_parcel, division);
        if (turns)
            return cut_through(whole, pivot_of(checked_parcel, request.line), request, shares, of_parcel,
                               division);
        return request.pieces == Pieces::two ? cut_parts(whole, request, shares, of_parcel, division)
                                             : cut_whole(whole, request, shares, of_parcel, division);
    });
    if (request.pieces == Pieces::any && !turns && division.status == Status::not_reached &&
        parcel.holes.empty())
        divide_by_single_segments(parcel.outer, request, division);
    return division;
}

Division divide(const Ring& ring, const Request& request)
{
    if (request.pieces == Pieces::any)
        return divide(Parcel{ring, {}}, request);
    Division division;
    CleanRing clean = without_repeats(ring);
    division.ring = report_on(clean);
    if (division.ring.status != BoundaryStatus::usable)
        return division;

    if (!is_known(request)) {
        division.status = Status::unknown_request;
        return division;
    }
    const LineStart start = start_of(clean, request);
    if (start.refusal) {
        division.status = *start.refusal;
        return division;
    }
    if (!is_usable(request.rounding)) {
        division.status = Status::unusable_rounding;
        return division;
    }
    if (has_start(request.line.cut) && has_width(request.amounts)) {
        division.status = Status::no_width;
        return division;
    }
    FirstStage first = first_stage(std::move(clean), request, start);
    Stage& stage = first.stage;
    const Wide parcel = stage.ring.area();
    const Shares shares = share_out(request.amounts, parcel);
    if (shares.refusal) {
        division.status = *shares.refusal;
        division.at_amount = shares.at_amount;
        return division;
    }
    stage.ask_library = request.ask_library && is_of_the_library(request.line.cut);
    stage.alternative = request.alternative;
    const std::vector<Ring> boundary(1, stage.ring.ring());
    cut_and_round(boundary, parcel, request, division, [&](double of_parcel) {
        return cut_all(stage, first.reference, shares, parcel, of_parcel, division);
    });
    return division;
}

std::vector<Division> all_divisions(const Ring& ring, const Request& request)
{
    return all_divisions(Parcel{ring, {}}, request);
}

std::vector<Division> all_divisions(const Parcel& parcel, const Request& request)
{
    std::vector<Division> all;
    Request next = request;
    do {
        all.push_back(divide(parcel, next));
        ++next.alternative;
    } while (all.back().status == Status::divided);
    if (all.size() > 1)
        all.pop_back();
    return all;
}

const char* describe(BoundaryStatus status) noexcept
{
    switch (status) {
    case BoundaryStatus::usable:
        return "the boundary can be worked on";
    case BoundaryStatus::not_finite:
        return "a coordinate is not finite";
    case BoundaryStatus::out_of_range:
        return "the parcel is too large or too small to compute with";
    case BoundaryStatus::too_few_vertices:
        return "the parcel has fewer than three different vertices";
    case BoundaryStatus::flat:
        return "all vertices of the parcel lie on one line, or next to it";
    case BoundaryStatus::meets_itself:
        return "the boundary crosses or touches itself";
    case BoundaryStatus::rings_meet:
        return "a hole crosses or touches another ring";
    case BoundaryStatus::hole_outside:
        return "a hole lies outside the outer ring";
    case BoundaryStatus::hole_in_hole:
        return "a hole lies in another hole";
    }
    return "unknown status";
}

const char* describe(Status status) noexcept
{
    switch (status) {
    case Status::divided:
        return "divided as asked";
    case Status::unusable_boundary:
        return "the boundary of the parcel cannot be worked on";
    case Status::unknown_request:
        return "there is no such kind of cut, measure or amount";
    case Status::no_such_index:
        return "the parcel has no side or vertex of that index";
    case Status::side_without_length:
        return "the side has no length";
    case Status::no_direction:
        return "the bearing or the segment gives the line no direction";
    case Status::no_width:
        return "a line through a vertex, a place or a point cuts off no width";
    case Status::no_such_place:
        return "the place does not lie on that side";
    case Status::point_outside:
        return "the point lies outside the parcel";
    case Status::only_one_amount:
        return "a whole line through a vertex, a place or a point cuts off one amount only";
    case Status::no_amount:
        return "no amount is given";
    case Status::unusable_rounding:
        return "the number of decimals is not 0 to 17, or the tolerance not above 0 and at most 0.01";
    case Status::unusable_amount:
        return "an amount is given by something that is not a number to compute with";
    case Status::amount_too_small:
        return "the amount is not above zero";
    case Status::amount_too_large:
        return "the amount is not below what there is to cut";
    case Status::base_reaches_behind:
        return "the part of the parcel behind the base side alone is more than the amount";
    case Status::no_line_through_point:
        return "no straight line through the point cuts that amount off";
    case Status::line_leaves_parcel:
        return "every line that holds the amount makes more than two pieces";
    case Status::no_further_line:
        return "there are fewer lines that hold the amount";
    case Status::not_reached:
        return "the coordinates are too coarse to hold the amount within the tolerance";
    }
    return "unknown status";
}

const char* describe(const Division& division) noexcept
{
    return division.status == Status::unusable_boundary ? describe(division.ring.status)
                                                        : describe(division.status);
}

}  // namespace plparcel
