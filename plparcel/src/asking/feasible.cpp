#include "plparcel/feasible.h"

#include <algorithm>
#include <utility>

#include "amounts.h"
#include "boundary/joined_rings.h"
#include "boundary/locate.h"
#include "boundary/ring_check.h"
#include "line_start.h"
#include "lines/area_ranges.h"
#include "lines/direction.h"
#include "numbers/wide.h"
#include "one_cut.h"
#include "verdict/target.h"
#include "whole_lines/part_cut.h"
#include "whole_lines/turning_cut.h"
#include "whole_lines/whole_parcel.h"

namespace plparcel {
namespace {

Feasible refused(Status status, double parcel)
{
    Feasible none;
    none.refusal = status;
    none.parcel = parcel;
    return none;
}

bool is_known(Measured measured)
{
    return measured == Measured::from_reference || measured == Measured::opposite;
}

// What is wrong with a line, whatever the amount.
std::optional<Status> refusal_of_whole(const CheckedParcel& parcel, const Line& line, Pieces pieces)
{
    if (has_start(line.cut))
        return refusal_of_start(parcel, line, pieces);
    if (!is_free(line.cut) && line.cut != Cut::parallel && line.cut != Cut::perpendicular)
        return Status::unknown_request;
    return refusal_of_direction(parcel, line);
}

// The area changes without a jump as a line turns about a point. Nothing and all of the parcel are not had.
AmountRange of_turning_line(const CheckedParcel& parcel, const Line& line, Measured measured)
{
    constexpr double kNothing = 1e-24;
    const WholeParcel whole = whole_parcel(parcel, line);
    const LeastAndMost found = areas_through(whole, pivot_of(parcel, line), measured);
    const Wide nothing = whole.area * kNothing;
    const bool has_least = found.least > nothing;
    const bool has_most = whole.area - found.most > nothing;
    return {has_least ? found.least.value() : 0.0, has_most ? found.most.value() : whole.area.value(),
            has_least, has_most};
}

Feasible of_whole_lines(const CheckedParcel& parcel, const Line& line, Measured measured)
{
    Feasible all;
    all.parcel = parcel.report.area;
    all.refusal = refusal_of_whole(parcel, line, Pieces::any);
    if (!all.refusal && has_start(line.cut))
        all.ranges = {of_turning_line(parcel, line, measured)};
    else if (!all.refusal)
        all.ranges = {{0.0, all.parcel, false, false}};
    return all;
}

std::vector<AmountRange> rounded(const std::vector<AreaRange>& areas)
{
    std::vector<AmountRange> ranges;
    ranges.reserve(areas.size());
    for (const AreaRange& area : areas)
        ranges.push_back({area.least.value(), area.most.value(), area.least_is_had, area.most_is_had});
    return ranges;
}

Request request_for(const Line& line, Measured measured)
{
    Request request;
    request.line = line;
    request.measured = measured;
    return request;
}

std::vector<AreaRange> areas_beside_holes(const CheckedParcel& parcel, const Line& line, Measured measured)
{
    const WholeParcel whole = whole_parcel(parcel, line);
    const Wide granted = parcel.area * kAsExactAsDoubles;
    if (has_start(line.cut))
        return areas_of_parts_through(whole, pivot_of(parcel, line), measured, granted);
    return areas_of_parts(whole, request_for(line, measured), granted);
}

Feasible of_two_pieces_beside_holes(const CheckedParcel& parcel, const Line& line, Measured measured)
{
    Feasible found;
    found.parcel = parcel.report.area;
    found.refusal = refusal_of_whole(parcel, line, Pieces::two);
    if (!found.refusal)
        found.ranges = rounded(areas_beside_holes(parcel, line, measured));
    return found;
}

Feasible of_two_pieces(const CleanRing& clean, const Line& line, Measured measured)
{
    const Request request = request_for(line, measured);
    Feasible found;
    found.parcel = clean.ring.area().value();
    if (!is_free(line.cut) && !has_start(line.cut) && line.cut != Cut::parallel &&
        line.cut != Cut::perpendicular)
        return refused(Status::unknown_request, found.parcel);
    const LineStart start = start_of(clean, request);
    if (start.refusal)
        return refused(*start.refusal, found.parcel);
    const FirstStage first = first_stage(clean, request, start);
    const Wide granted = clean.ring.area() * kAsExactAsDoubles;
    found.ranges = rounded(areas_of_cuts(first.stage, first.reference, granted));
    return found;
}

Feasible of_two_pieces(const CheckedParcel& parcel, const Line& line, Measured measured)
{
    return parcel.clean.size() == 1 ? of_two_pieces(parcel.clean.front(), line, measured)
                                    : of_two_pieces_beside_holes(parcel, line, measured);
}

// The sides of all rings by their length, the longest first.
std::vector<BoundaryPlace> longest_first(const CheckedParcel& parcel)
{
    struct Side {
        BoundaryPlace place;
        double length;
    };
    std::vector<Side> sides;
    for (std::size_t ring = 0; ring < parcel.clean.size(); ++ring) {
        const CleanRing& of = parcel.clean[ring];
        for (std::size_t i = 0; i < of.place.size(); ++i)
            if (of.place[i] != around(of.place, i + 1))
                sides.push_back({{ring, i}, side_length(of.ring, of.place[i])});
    }
    std::stable_sort(sides.begin(), sides.end(),
                     [](const Side& a, const Side& b) { return a.length > b.length; });
    std::vector<BoundaryPlace> places;
    places.reserve(sides.size());
    for (const Side& side : sides)
        places.push_back(side.place);
    return places;
}

std::vector<Line> lines_of(const CheckedParcel& parcel)
{
    std::vector<Line> lines;
    for (const BoundaryPlace& side : longest_first(parcel)) {
        lines.push_back(parallel_to(side.index, side.ring));
        lines.push_back(perpendicular_to(side.index, side.ring));
    }
    for (std::size_t ring = 0; ring < parcel.clean.size(); ++ring) {
        const CleanRing& of = parcel.clean[ring];
        std::vector<bool> is_listed(of.ring.size(), false);
        for (std::size_t i = 0; i < of.place.size(); ++i) {
            if (!is_listed[of.place[i]]) {
                lines.push_back(through_vertex(i));
                lines.back().ring = ring;
            }
            is_listed[of.place[i]] = true;
        }
    }
    return lines;
}

// The range that an amount lies in, by more than a margin.
const AmountRange* range_around(const std::vector<AmountRange>& ranges, double amount, double margin)
{
    const auto is_around = [&](const AmountRange& range) {
        return range.least + margin < amount && amount < range.most - margin;
    };
    const auto found = std::find_if(ranges.begin(), ranges.end(), is_around);
    return found == ranges.end() ? nullptr : &*found;
}

}  // namespace

Feasible feasible(const Parcel& parcel, const Line& line, Measured measured, Pieces pieces)
{
    const CheckedParcel checked_parcel = checked(parcel);
    if (checked_parcel.report.status != BoundaryStatus::usable)
        return refused(Status::unusable_boundary, 0.0);
    const double whole = checked_parcel.report.area;
    if (!is_known(measured) || (pieces != Pieces::two && pieces != Pieces::any))
        return refused(Status::unknown_request, whole);
    if (pieces == Pieces::any)
        return of_whole_lines(checked_parcel, line, measured);
    return of_two_pieces(checked_parcel, line, measured);
}

NearestAmounts nearest_amounts(const std::vector<AmountRange>& ranges, double amount) noexcept
{
    NearestAmounts nearest;
    for (const AmountRange& range : ranges) {
        const bool reaches_up = range.most > amount || (range.most_is_had && !(range.most < amount));
        const bool reaches_down = range.least < amount || (range.least_is_had && !(range.least > amount));
        if (reaches_up && reaches_down)
            return {amount, amount, true, true};
        if (!reaches_up) {
            nearest.below = range.most;
            nearest.below_is_had = range.most_is_had;
        } else if (!nearest.above) {
            nearest.above = range.least;
            nearest.above_is_had = range.least_is_had;
        }
    }
    return nearest;
}

Alternatives alternatives_for(const Parcel& parcel, const Amount& amount, Measured measured, std::size_t most)
{
    constexpr std::size_t kMostWork = 4000000;
    constexpr std::size_t kLeastLines = 4;
    constexpr double kMarginSpacings = 8.0;
    Alternatives found;
    const CheckedParcel checked_parcel = checked(parcel);
    const CleanRing& clean = checked_parcel.clean.front();
    if (checked_parcel.report.status != BoundaryStatus::usable)
        found.refusal = Status::unusable_boundary;
    else if (!is_known(measured) || amount.given == Given::as_width)
        found.refusal = Status::unknown_request;
    if (found.refusal)
        return found;
    const Shares shares = share_out({amount}, checked_parcel.area);
    found.refusal = shares.refusal;
    if (found.refusal)
        return found;

    const double asked = shares.pieces.front().value();
    const double margin = kAsExactAsDoubles * checked_parcel.report.area +
                          kMarginSpacings * clean.ring.spacing() * clean.ring.extent().largest();
    const std::vector<Line> lines = lines_of(checked_parcel);
    const std::size_t vertices = JoinedRings(checked_parcel.rings).size();
    found.of = lines.size();
    found.looked_at = std::min({most, lines.size(), std::max(kMostWork / vertices, kLeastLines)});
    const Measured other = measured == Measured::opposite ? Measured::from_reference : Measured::opposite;
    const double whole = checked_parcel.report.area;
    for (std::size_t i = 0; i < found.looked_at; ++i) {
        const std::vector<AmountRange> ranges = of_two_pieces(checked_parcel, lines[i], measured).ranges;
        if (const AmountRange* range = range_around(ranges, asked, margin)) {
            found.lines.push_back({lines[i], measured, *range});
        } else if (const AmountRange* left = range_around(ranges, whole - asked, margin)) {
            const AmountRange of_other = {whole - left->most, whole - left->least, left->most_is_had,
                                          left->least_is_had};
            found.lines.push_back({lines[i], other, of_other});
        }
    }
    return found;
}

}  // namespace plparcel
