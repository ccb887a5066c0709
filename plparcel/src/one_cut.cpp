#include "one_cut.h"

#include <cmath>
#include <utility>
#include <vector>

#include "level_cut.h"
#include "library_search.h"
#include "local_ring.h"
#include "vertex_lines.h"
#include "wide.h"

namespace plparcel {
namespace {

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
    const WidePoint side = from_to(stage.ring[stage.index], stage.ring.at(stage.index + 1));
    const WidePoint into = {-side.y * turn, side.x * turn};
    return dot(up, into) < 0.0 ? WidePoint{-up.x, -up.y} : up;
}

// Whether the unlimited line crosses a side beside those that the line ends on, or at whose end it ends. Both
// hair's breadths beside the line must: it may run along a side or touch a vertex without meeting the inside.
bool meets_again(const MeasuredRing& ring, const Cutting& cutting)
{
    const WidePoint run = from_to(cutting.from, cutting.to);
    const auto is_end = [&cutting](const PL_PNT2D_record& p) {
        return same_place(p, cutting.from) || same_place(p, cutting.to);
    };
    bool on_the_left = false;
    bool on_the_right = false;
    for (std::size_t side = 0; side < ring.size(); ++side) {
        const PL_PNT2D_record& a = ring[side];
        const PL_PNT2D_record& b = ring.at(side + 1);
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
        : stage_(stage), reference_(reference), target_(target), local_(stage.ring), turn_(stage.ring.turn()),
          request_(local_.area_to_local(target.asked)),
          rest_(local_.area_to_local(stage.ring.area() - target.asked))
    {}

    Attempt make() const
    {
        Attempt attempt;
        PL_LINE_2D_record found = {};
        if (stage_.ask_library)
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

}  // namespace

Attempt make_cut(const Stage& stage, const Reference& reference, const Target& target)
{
    return OneCut(stage, reference, target).make();
}

}  // namespace plparcel
