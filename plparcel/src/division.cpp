#include "plparcel/division.h"

#include <utility>

#include "amounts.h"
#include "local_ring.h"
#include "one_cut.h"
#include "ring_check.h"
#include "wide.h"

namespace plparcel {
namespace {

// What is left after a cut begins and ends with the line, so that the line is its last side.
Stage after(const Stage& stage, const Cutting& cutting)
{
    Stage next;
    next.ring = cutting.rest;
    next.measured = Measured::from_reference;
    next.index = next.ring.size() - 1;
    if (stage.cut != Cut::through_vertex)
        return next;  // parallel to the line before, whichever way that was found
    next.cut = Cut::through_vertex;
    next.measured = stage.measured;
    // The rest was walked from the line's far end when it lies before the vertex, otherwise from the vertex.
    next.index = stage.measured == Measured::from_reference ? next.ring.size() - 1 : 0;
    return next;
}

Piece piece_of(Ring ring, const Wide& asked)
{
    Piece piece;
    const Wide got = abs(area_of(ring));
    piece.ring = std::move(ring);
    piece.area = got.value();
    piece.asked = asked.value();
    piece.residual = (got - asked).value();
    return piece;
}

Wide sum_from(const std::vector<Wide>& areas, std::size_t first)
{
    Wide sum;
    for (std::size_t i = first; i < areas.size(); ++i)
        sum = sum + areas[i];
    return sum;
}

void cut_all(Stage stage, const Reference& reference, const std::vector<Wide>& areas, const Wide& parcel,
             Division& division)
{
    for (std::size_t i = 0; i + 1 < areas.size(); ++i) {
        const Target target = {areas[i], sum_from(areas, i + 1), parcel};
        Attempt attempt = make_cut(stage, reference, target);
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
        division.pieces.push_back(piece_of(attempt.cutting.request.ring, areas[i]));
        stage = after(stage, attempt.cutting);
    }
    division.pieces.push_back(piece_of(std::move(stage.ring), areas.back()));
}

bool is_known(const Request& request)
{
    const bool cut = request.cut == Cut::parallel || request.cut == Cut::perpendicular ||
                     request.cut == Cut::through_vertex;
    return cut && (request.measured == Measured::from_reference || request.measured == Measured::opposite);
}

}  // namespace

Division divide(const Ring& ring, const Request& request)
{
    Division division;
    const CleanRing clean = without_repeats(ring);
    division.ring = report_on(clean);
    division.status = division.ring.status;
    if (division.status != Status::divided)
        return division;

    if (!is_known(request)) {
        division.status = Status::unknown_request;
        return division;
    }
    if (request.index >= ring.size()) {
        division.status = Status::no_such_index;
        return division;
    }
    const std::size_t start = clean.place[request.index];
    if (request.cut != Cut::through_vertex && around(clean.place, request.index + 1) == start) {
        division.status = Status::side_without_length;
        return division;
    }
    const Wide parcel = abs(area_of(clean.ring));
    const Shares shares = share_out(request.amounts, parcel);
    division.status = shares.status;
    division.at_amount = shares.at_amount;
    if (shares.status != Status::divided)
        return division;

    const Reference reference = {request.cut, clean.ring[start], around(clean.ring, start + 1)};
    cut_all({clean.ring, request.cut, start, request.measured}, reference, shares.pieces, parcel, division);
    return division;
}

const char* describe(Status status) noexcept
{
    switch (status) {
    case Status::divided:
        return "divided as asked";
    case Status::not_finite:
        return "a coordinate is not finite, or the parcel too large or too small to compute with";
    case Status::degenerate:
        return "the parcel has fewer than three different vertices, or all of them on one line or next to it";
    case Status::ring_not_simple:
        return "the boundary crosses or touches itself";
    case Status::unknown_request:
        return "there is no such kind of cut, measure or amount";
    case Status::no_such_index:
        return "the parcel has no side or vertex of that index";
    case Status::side_without_length:
        return "the side has no length";
    case Status::amount_out_of_range:
        return "the amount is not above zero and below what there is to cut";
    case Status::base_reaches_behind:
        return "the part of the parcel behind the base side alone is more than the amount";
    case Status::line_leaves_parcel:
        return "every line that holds the amount makes more than two pieces";
    case Status::not_reached:
        return "the coordinates are too coarse to hold the amount within 1e-9 of the parcel";
    }
    return "unknown status";
}

}  // namespace plparcel
