#include "plparcel/feasible.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "amounts.h"
#include "boundary/locate.h"
#include "boundary/ring_check.h"
#include "line_start.h"
#include "lines/direction.h"
#include "numbers/wide.h"
#include "one_cut.h"
#include "verdict/target.h"
#include "whole_lines/turning_cut.h"

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

// What is wrong with a line of which any number of pieces may come.
std::optional<Status> refusal_of_whole(const CheckedParcel& parcel, const Line& line)
{
    if (has_start(line.cut))
        return pivot_of(parcel, line).refusal;
    if (is_free(line.cut))
        return has_direction(line) ? std::nullopt : std::optional<Status>(Status::no_direction);
    if (line.cut != Cut::parallel && line.cut != Cut::perpendicular)
        return Status::unknown_request;
    if (line.ring >= parcel.clean.size() || line.index >= parcel.clean[line.ring].place.size())
        return Status::no_such_index;
    const std::vector<std::size_t>& place = parcel.clean[line.ring].place;
    if (place[line.index] == around(place, line.index + 1))
        return Status::side_without_length;
    return std::nullopt;
}

// The area changes without a jump as a line turns about a point. Nothing and all of the parcel are not had.
AmountRange of_turning_line(const CheckedParcel& parcel, const Line& line, Measured measured)
{
    constexpr double kNothing = 1e-24;
    WholeParcel whole;
    whole.rings = parcel.rings;
    whole.area = parcel.area;
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
    all.refusal = refusal_of_whole(parcel, line);
    if (!all.refusal && has_start(line.cut))
        all.ranges = {of_turning_line(parcel, line, measured)};
    else if (!all.refusal)
        all.ranges = {{0.0, all.parcel, false, false}};
    return all;
}

Feasible of_two_pieces(const CleanRing& clean, const Line& line, Measured measured)
{
    Request request;
    request.line = line;
    request.measured = measured;
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
    for (const AreaRange& range : areas_of_cuts(first.stage, first.reference, granted))
        found.ranges.push_back(
            {range.least.value(), range.most.value(), range.least_is_had, range.most_is_had});
    return found;
}

// The sides by their length, the longest first.
std::vector<std::size_t> longest_first(const CleanRing& clean)
{
    std::vector<std::size_t> sides;
    std::vector<double> lengths;
    for (std::size_t i = 0; i < clean.place.size(); ++i) {
        const std::size_t side = clean.place[i];
        const bool has_length = side != around(clean.place, i + 1);
        lengths.push_back(has_length ? side_length(clean.ring, side) : 0.0);
        if (has_length)
            sides.push_back(i);
    }
    std::stable_sort(sides.begin(), sides.end(),
                     [&](std::size_t a, std::size_t b) { return lengths[a] > lengths[b]; });
    return sides;
}

std::vector<Line> lines_of(const CleanRing& clean)
{
    std::vector<Line> lines;
    for (const std::size_t side : longest_first(clean)) {
        lines.push_back(parallel_to(side));
        lines.push_back(perpendicular_to(side));
    }
    std::vector<bool> is_listed(clean.ring.size(), false);
    for (std::size_t i = 0; i < clean.place.size(); ++i) {
        if (!is_listed[clean.place[i]])
            lines.push_back(through_vertex(i));
        is_listed[clean.place[i]] = true;
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
    if (!parcel.holes.empty())
        return refused(Status::only_without_holes, whole);
    return of_two_pieces(checked_parcel.clean.front(), line, measured);
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
    else if (!parcel.holes.empty())
        found.refusal = Status::only_without_holes;
    if (found.refusal)
        return found;
    const Shares shares = share_out({amount}, checked_parcel.area);
    found.refusal = shares.refusal;
    if (found.refusal)
        return found;

    const double asked = shares.pieces.front().value();
    const double margin = kAsExactAsDoubles * checked_parcel.report.area +
                          kMarginSpacings * clean.ring.spacing() * clean.ring.extent().largest();
    const std::vector<Line> lines = lines_of(clean);
    found.of = lines.size();
    found.looked_at = std::min({most, lines.size(), std::max(kMostWork / clean.ring.size(), kLeastLines)});
    const Measured other = measured == Measured::opposite ? Measured::from_reference : Measured::opposite;
    const double whole = checked_parcel.report.area;
    for (std::size_t i = 0; i < found.looked_at; ++i) {
        const std::vector<AmountRange> ranges = of_two_pieces(clean, lines[i], measured).ranges;
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
