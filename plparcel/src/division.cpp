#include "plparcel/division.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "amounts.h"
#include "boundary/ring_check.h"
#include "numbers/wide.h"
#include "one_cut.h"

namespace plparcel {
namespace {

// What is left after a cut begins and ends with the line, so that the line is its last side.
Stage after(const Stage& stage, MeasuredRing rest)
{
    Stage next;
    next.ring = std::move(rest);
    next.measured = Measured::from_reference;
    next.index = next.ring.size() - 1;
    next.ask_library = stage.ask_library;
    if (stage.cut != Cut::through_vertex)
        return next;  // parallel to the line before, whichever way that was found
    next.cut = Cut::through_vertex;
    next.measured = stage.measured;
    // The rest was walked from the line's far end when it lies before the vertex, otherwise from the vertex.
    next.index = stage.measured == Measured::from_reference ? next.ring.size() - 1 : 0;
    return next;
}

Piece piece_of(MeasuredRing ring, const Wide& asked)
{
    Piece piece;
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

void cut_all(Stage stage, const Reference& reference, const std::vector<Wide>& areas, const Wide& parcel,
             Division& division)
{
    const std::vector<Wide> rests = sums_after(areas);
    for (std::size_t i = 0; i + 1 < areas.size(); ++i) {
        Attempt attempt = make_cut(stage, reference, {areas[i], rests[i], parcel});
        if (stage.ask_library)
            division.bare.push_back(attempt.bare);
        division.trials += attempt.trials;
        division.status = attempt.status;
        if (attempt.status != Status::divided) {
            division.at_amount = i;
            division.lines.clear();
            division.pieces.clear();
            return;
        }
        division.lines.push_back(attempt.line);
        division.pieces.push_back(piece_of(std::move(attempt.cutting.request), areas[i]));
        stage = after(stage, std::move(attempt.cutting.rest));
    }
    division.pieces.push_back(piece_of(std::move(stage.ring), areas.back()));
}

// Begun at the side or vertex that is cut from. The parcel's frame lies at the first vertex and sums start there:
// which coordinate a tie between two doubles is rounded to must not depend on where the caller began.
MeasuredRing begun_at(Ring ring, std::size_t start)
{
    std::rotate(ring.begin(), ring.begin() + static_cast<std::ptrdiff_t>(start), ring.end());
    return MeasuredRing(std::move(ring));
}

bool is_known(const Request& request)
{
    const bool cut = request.line.cut == Cut::parallel || request.line.cut == Cut::perpendicular ||
                     request.line.cut == Cut::through_vertex;
    return cut && (request.measured == Measured::from_reference || request.measured == Measured::opposite);
}

}  // namespace

Division divide(const Ring& ring, const Request& request)
{
    Division division;
    CleanRing clean = without_repeats(ring);
    division.ring = report_on(clean);
    if (division.ring.status != BoundaryStatus::usable)
        return division;

    if (!is_known(request)) {
        division.status = Status::unknown_request;
        return division;
    }
    if (request.line.index >= ring.size()) {
        division.status = Status::no_such_index;
        return division;
    }
    const std::size_t start = clean.place[request.line.index];
    if (request.line.cut != Cut::through_vertex && around(clean.place, request.line.index + 1) == start) {
        division.status = Status::side_without_length;
        return division;
    }
    MeasuredRing measured = begun_at(clean.ring.take_ring(), start);
    const Wide parcel = measured.area();
    const Shares shares = share_out(request.amounts, parcel);
    if (shares.refusal) {
        division.status = *shares.refusal;
        division.at_amount = shares.at_amount;
        return division;
    }

    const Reference reference = {request.line.cut, measured[0], measured[1]};
    cut_all({std::move(measured), request.line.cut, 0, request.measured, request.ask_library}, reference,
            shares.pieces, parcel, division);
    return division;
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
    case Status::no_amount:
        return "no amount is given";
    case Status::unusable_amount:
        return "an amount is given by something that is not a number to compute with";
    case Status::amount_too_small:
        return "the amount is not above zero";
    case Status::amount_too_large:
        return "the amount is not below what there is to cut";
    case Status::base_reaches_behind:
        return "the part of the parcel behind the base side alone is more than the amount";
    case Status::line_leaves_parcel:
        return "every line that holds the amount makes more than two pieces";
    case Status::not_reached:
        return "the coordinates are too coarse to hold the amount within 1e-9 of the parcel";
    }
    return "unknown status";
}

const char* describe(const Division& division) noexcept
{
    return division.status == Status::unusable_boundary ? describe(division.ring.status)
                                                        : describe(division.status);
}

}  // namespace plparcel
