#include "plparcel/division.h"

#include <cmath>
#include <utility>

#include "amounts.h"
#include "judge.h"
#include "level_cut.h"
#include "library_search.h"
#include "local_ring.h"
#include "ring_check.h"
#include "vertex_cut.h"
#include "wide.h"

namespace plparcel {
namespace {

// One cut of a series: what is left of the parcel, and from where the next amount is measured.
struct Stage {
    Ring ring;
    Cut cut = Cut::parallel;
    std::size_t index = 0;  // side or vertex of `ring`
    Measured measured = Measured::from_reference;
};

// The side of the whole parcel that all lines of a series take their direction from; without effect through a
// vertex.
struct Reference {
    Cut cut;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
};

// One cut, made or not.
struct Attempt {
    Status status = Status::line_leaves_parcel;
    Cutting cutting;
    DividingLine line;
    BareAnswer bare;
    std::size_t trials = 0;
};

// A vector of the same direction, its longer component 1 to 2.
WidePoint about_unit(const WidePoint& v)
{
    const int exponent = std::ilogb(std::fmax(std::fabs(v.x.value()), std::fabs(v.y.value())));
    return {scaled(v.x, -exponent), scaled(v.y, -exponent)};
}

// Where a reference runs, as levels see it: across the lines, and into the parcel when the lines go with its
// side.
WidePoint up_direction(const Stage& stage, const Reference& reference, double turn)
{
    const WidePoint run = about_unit(from_to(reference.a, reference.b));
    if (stage.cut == Cut::perpendicular)
        return run;
    const WidePoint up = reference.cut == Cut::parallel ? WidePoint{-run.y, run.x} : run;
    // The base side is the parcel's own, or a line that was cut before: into what is left.
    const WidePoint side = from_to(stage.ring[stage.index], around(stage.ring, stage.index + 1));
    const WidePoint into = {-side.y * turn, side.x * turn};
    return dot(up, into) < 0.0 ? WidePoint{-up.x, -up.y} : up;
}

// Whether the unlimited line crosses a side beside those that the line ends on, or at whose end it ends. Both
// hair's breadths beside the line must: it may run along a side or touch a vertex without meeting the inside.
bool meets_again(const Ring& ring, const Cutting& cutting)
{
    const WidePoint run = from_to(cutting.from, cutting.to);
    const auto is_end = [&cutting](const PL_PNT2D_record& p) {
        return same_place(p, cutting.from) || same_place(p, cutting.to);
    };
    bool on_the_left = false;
    bool on_the_right = false;
    for (std::size_t side = 0; side < ring.size(); ++side) {
        const PL_PNT2D_record& a = ring[side];
        const PL_PNT2D_record& b = around(ring, side + 1);
        if (side == cutting.from_side || side == cutting.to_side || is_end(a) || is_end(b))
            continue;
        const Wide off_a = cross(run, from_to(cutting.from, a));
        const Wide off_b = cross(run, from_to(cutting.from, b));
        on_the_left = on_the_left || (off_a > 0.0) != (off_b > 0.0);
        on_the_right = on_the_right || (off_a < 0.0) != (off_b < 0.0);
    }
    return on_the_left && on_the_right;
}

// Whether a line is the one that the library found, brought to rest: both in a frame 4096 to 8192 across. Where
// the parcel ends in a tip, or an end lies on a side that the line meets at a sharp angle, a millionth of the area
// is a thousandth of that.
bool is_beside(const Chord& line, const PL_LINE_2D_record& found)
{
    constexpr double kBeside = 8.0;
    const auto near = [](const WidePoint& p, const PL_PNT2D_record& q) {
        return std::fabs(p.x.value() - q.x) <= kBeside && std::fabs(p.y.value() - q.y) <= kBeside;
    };
    return (near(line.from, found.start) && near(line.to, found.end)) ||
           (near(line.from, found.end) && near(line.to, found.start));
}

// Everything about one cut that its steps share.
class OneCut {
public:
    OneCut(const Stage& stage, const Reference& reference, const Target& target)
        : stage_(stage), reference_(reference), target_(target), local_(stage.ring),
          turn_(area_of(stage.ring) > 0.0 ? 1.0 : -1.0), request_(local_.area_to_local(target.asked)),
          rest_(local_.area_to_local(area_of(stage.ring) * turn_ - target.asked))
    {}

    Attempt make() const
    {
        Attempt attempt;
        PL_LINE_2D_record found = {};
        ask_library(attempt.bare, found);
        const std::vector<Chord> lines =
            stage_.cut == Cut::through_vertex ? lines_from_the_vertex() : lines_of_levels(attempt.status);
        for (const Chord& line : lines) {
            ++attempt.trials;
            const Verdict verdict = judge(stage_.ring, local_, line, target_, attempt.cutting);
            if (verdict == Verdict::divides) {
                attempt.status = Status::divided;
                attempt.line = dividing_line(attempt.cutting);
                attempt.line.found =
                    attempt.bare.done && is_beside(line, found) ? Found::by_search : Found::by_sweep;
                break;
            }
            if (verdict == Verdict::misses)
                attempt.status = Status::not_reached;
        }
        return attempt;
    }

private:
    void ask_library(BareAnswer& bare, PL_LINE_2D_record& line) const
    {
        const bool from_reference = stage_.measured == Measured::from_reference;
        const Wide& measured = from_reference ? target_.asked : target_.rest;
        bare.done = search_line(stage_.ring, local_, {stage_.cut, stage_.index, measured.value()}, line);
        bare.line = {rounded(line.start), rounded(line.end)};
    }

    PL_PNT2D_record rounded(const PL_PNT2D_record& local) const
    {
        const WidePoint p = local_.to_parcel({local.x, local.y});
        return {p.x.value(), p.y.value()};
    }

    // Parallels and perpendiculars; and what it means when none of them divides.
    std::vector<Chord> lines_of_levels(Status& otherwise) const
    {
        LevelRequest request = {};
        request.up = up_direction(stage_, reference_, turn_);
        request.zero = local_.at(stage_.index);
        request.base = stage_.index;
        request.from_base = stage_.cut == Cut::parallel;
        request.opposite = stage_.measured == Measured::opposite;
        request.request = request_;
        request.rest = rest_;
        request.turn = turn_;
        const LevelCut levels(local_, request);
        const Wide& of_base = request.opposite ? rest_ : request_;
        if (request.from_base && levels.area_below() > of_base)
            otherwise = Status::base_reaches_behind;
        return levels.all_lines();
    }

    std::vector<Chord> lines_from_the_vertex() const
    {
        const bool after = stage_.measured == Measured::from_reference;
        std::vector<Chord> lines = lines_from_vertex(local_, turn_, stage_.index, after ? request_ : rest_);
        for (Chord& line : lines)
            line.request_after_from = after;
        return lines;
    }

    // Parallel as the side runs, perpendicular from the end nearer to the side's line.
    DividingLine dividing_line(const Cutting& cutting) const
    {
        DividingLine line;
        line.from = cutting.from;
        line.to = cutting.to;
        line.meets_again = meets_again(stage_.ring, cutting);
        const WidePoint run = from_to(reference_.a, reference_.b);
        const Wide off_from = abs(cross(run, from_to(reference_.a, line.from)));
        const Wide off_to = abs(cross(run, from_to(reference_.a, line.to)));
        const bool against = dot(run, from_to(line.from, line.to)) < 0.0;
        if ((reference_.cut == Cut::parallel && against) ||
            (reference_.cut == Cut::perpendicular && off_to < off_from))
            std::swap(line.from, line.to);
        return line;
    }

    const Stage& stage_;
    const Reference& reference_;
    const Target& target_;
    LocalRing local_;
    double turn_;
    Wide request_;  // the area to cut off, local units
    Wide rest_;     // what then remains: of the ring as it is, not as the target has it
};

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
        Attempt attempt = OneCut(stage, reference, target).make();
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
