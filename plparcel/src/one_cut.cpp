#include "one_cut.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "boundary/local_ring.h"
#include "lines/level_cut.h"
#include "lines/library_search.h"
#include "lines/point_lines.h"
#include "lines/vertex_lines.h"
#include "numbers/wide.h"

namespace plparcel {
namespace {

// The direction in which levels grow: across the lines, and for parallels to a side or an earlier line into the
// parcel.
WidePoint up_direction(const Stage& stage, const Reference& reference, double turn)
{
    const WidePoint run = about_unit(reference.run);
    if (stage.cut == Cut::perpendicular)
        return run;
    if (is_free(stage.cut))
        return {run.y, -run.x};
    const WidePoint up = reference.cut == Cut::perpendicular ? run : WidePoint{-run.y, run.x};
    // The base side is the parcel's own, or a line that was cut before: into what is left.
    const WidePoint side = from_to(stage.ring[stage.index], stage.ring.at(stage.index + 1));
    const WidePoint into = {-side.y * turn, side.x * turn};
    return dot(up, into) < 0.0 ? WidePoint{-up.x, -up.y} : up;
}

// Where a piece lies just beside the line of a cut, on its left or on its right: the places along the line at which
// the piece begins and ends, in turn.
std::vector<Wide> inside_beside(const MeasuredRing& piece, const Cutting& cutting, bool on_the_left)
{
    const WidePoint run = from_to(cutting.from, cutting.to);
    const auto is_beyond = [on_the_left](const Wide& off) { return on_the_left ? off > 0.0 : off < 0.0; };
    std::vector<Wide> crossed;
    for (std::size_t side = 0; side < piece.size(); ++side) {
        const WidePoint a = from_to(cutting.from, piece[side]);
        const WidePoint b = from_to(cutting.from, piece.at(side + 1));
        const Wide off_a = cross(run, a);
        const Wide off_b = cross(run, b);
        if (is_beyond(off_a) != is_beyond(off_b))
            crossed.push_back(dot(run, a + (b - a) * (off_a / (off_a - off_b))));
    }
    std::sort(crossed.begin(), crossed.end());
    return crossed;
}

// Whether the unlimited line runs through the inside of a piece for longer than `reach`. There the piece lies on both
// sides of the line; where the line only runs along a side or touches a vertex, it does not.
bool meets_inside(const MeasuredRing& piece, const Cutting& cutting, double reach)
{
    const std::vector<Wide> left = inside_beside(piece, cutting, true);
    const std::vector<Wide> right = inside_beside(piece, cutting, false);
    const WidePoint run = from_to(cutting.from, cutting.to);
    const Wide shortest = sqrt(dot(run, run)) * reach;
    std::size_t l = 0;
    std::size_t r = 0;
    while (l + 1 < left.size() && r + 1 < right.size()) {
        const Wide& begin = left[l] > right[r] ? left[l] : right[r];
        const Wide& end = left[l + 1] < right[r + 1] ? left[l + 1] : right[r + 1];
        if (end - begin > shortest)
            return true;
        (left[l + 1] < right[r + 1] ? l : r) += 2;
    }
    return false;
}

// Whether the line meets the ring again beyond its ends. Between them it is a side of both pieces, each of which lies
// on one side of it only.
bool meets_again(const MeasuredRing& ring, const Cutting& cutting)
{
    const double reach = kTouchRoundings * ring.spacing();
    return meets_inside(cutting.request, cutting, reach) || meets_inside(cutting.rest, cutting, reach);
}

// Whether a line is the one that the library found, to within the library's millionth of the area. Both are in a frame
// 4096 to 8192 across. Where the parcel ends in a tip, or the line meets a side at a sharp angle, a millionth of the
// area moves an end by a thousandth of that.
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
        const std::vector<Chord> lines = all_lines(attempt.status);
        Passed passed;
        for (const Chord& line : lines) {
            if (!passes(line, target_, attempt) || !is_chosen(line, attempt, passed))
                continue;
            attempt.line.library_agrees = attempt.bare.done && is_beside(line, found);
            return attempt;
        }
        return none_of(attempt, passed);
    }

    Attempt make_strip(double width) const
    {
        const LevelCut levels(local_, level_request());
        const Wide level = level_at(levels, width);
        Attempt attempt;
        attempt.status = Status::amount_too_large;
        Passed passed;
        for (const Chord& line : levels.lines_at(level)) {
            const Wide asked = local_.area_to_parcel(levels.request_area(line, level));
            const Wide rest = target_.rest - asked;
            if (!(std::min(asked, rest) > 0.0))
                continue;
            if (attempt.status == Status::amount_too_large)
                attempt.status = Status::line_leaves_parcel;
            if (passes(line, {asked, rest, target_.parcel}, attempt) && is_chosen(line, attempt, passed))
                return attempt;
        }
        return none_of(attempt, passed);
    }

    std::vector<AreaRange> areas(const Wide& granted) const
    {
        const Wide whole = local_.area_to_local(stage_.ring.area());
        std::vector<AreaRange> ranges = united(areas_of_lines(), whole, local_.area_to_local(granted));
        if (!is_request_measured())
            ranges = of_other_piece(ranges, whole);
        for (AreaRange& range : ranges) {
            range.least = local_.area_to_parcel(range.least);
            range.most = local_.area_to_parcel(range.most);
        }
        return ranges;
    }

private:
    // Whether areas_of_lines() speaks of the request: lines from the boundary have it after them or before.
    bool is_request_measured() const
    {
        const bool starts = stage_.cut == Cut::through_vertex || stage_.cut == Cut::through_place;
        return !starts || stage_.measured == Measured::from_reference;
    }

    std::vector<AreaRange> areas_of_lines() const
    {
        const Wide reach = local_.length_to_local(kTouchRoundings * stage_.ring.spacing());
        switch (stage_.cut) {
        case Cut::through_vertex:
            return areas_from_vertex(local_, turn_, stage_.index, reach);
        case Cut::through_place:
            return areas_from_vertex(local_.with_vertex_on(stage_.index, local_.to_local(stage_.point)),
                                     turn_, stage_.index + 1, reach);
        case Cut::through_point: {
            // The line may run either way: both pieces have the same areas.
            PointRequest turning = {};
            turning.point = local_.to_local(stage_.point);
            turning.first = stage_.first;
            turning.reach = reach;
            return lines_through_point(local_, turn_, turning).ranges;
        }
        default:
            return LevelCut(local_, level_request()).areas(reach);
        }
    }

    using Passed = std::vector<DividingLine>;  // lines that divide, but come before the one that is asked for

    // Whether a line that passes is the one that is asked for. The same line comes more than once where it ends at a
    // vertex. One that holds the amount only nearly stands for those that hold it, and counts only as the first.
    bool is_chosen(const Chord& line, const Attempt& attempt, Passed& passed) const
    {
        const bool is_known = std::any_of(passed.begin(), passed.end(), [&](const DividingLine& other) {
            return same_place(other.from, attempt.line.from) && same_place(other.to, attempt.line.to);
        });
        if (is_known || (line.beside_the_amount && !passed.empty()))
            return false;
        if (passed.size() == stage_.alternative)
            return true;
        passed.push_back(attempt.line);
        return false;
    }

    static Attempt none_of(Attempt attempt, const Passed& passed)
    {
        if (!passed.empty())
            attempt.status = Status::no_further_line;
        return attempt;
    }

    std::vector<Chord> all_lines(Status& otherwise) const
    {
        switch (stage_.cut) {
        case Cut::through_vertex:
        case Cut::through_place:
            return lines_from_the_boundary();
        case Cut::through_point:
            return lines_through_the_point(otherwise);
        default:
            return lines_of_levels(otherwise);
        }
    }

    // Judges a line. `attempt` becomes divided, or too coarse for it, or stays what it was.
    bool passes(const Chord& line, const Target& target, Attempt& attempt) const
    {
        ++attempt.trials;
        const Verdict verdict = judge(stage_.ring, local_, line, target, attempt.cutting);
        if (verdict == Verdict::divides) {
            attempt.status = Status::divided;
            attempt.asked = target.asked;
            attempt.line = dividing_line(attempt.cutting);
        } else if (verdict == Verdict::misses && !line.beside_the_amount) {
            attempt.status = Status::not_reached;
        }
        return verdict == Verdict::divides;
    }

    // Where a line lies that is so far from where its piece begins.
    Wide level_at(const LevelCut& levels, double width) const
    {
        const bool opposite = stage_.measured == Measured::opposite;
        const bool from_base = stage_.cut == Cut::parallel;
        Wide begin = levels.begin();
        if (stage_.cut == Cut::perpendicular)
            begin = levels.level_of(opposite ? stage_.index : stage_.index + 1);
        else if (from_base && !opposite)
            begin = 0.0;
        const Wide away = levels.scale() * local_.length_to_local(width);
        return from_base == opposite ? begin - away : begin + away;
    }

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

    LevelRequest level_request() const
    {
        LevelRequest request = {};
        request.up = up_direction(stage_, reference_, turn_);
        request.zero = local_.at(stage_.index);
        request.base = stage_.index;
        request.from_base = stage_.cut == Cut::parallel;
        request.free = is_free(stage_.cut);
        request.opposite = stage_.measured == Measured::opposite;
        request.request = request_;
        request.rest = rest_;
        request.granted = local_.area_to_local(target_.granted());
        request.turn = turn_;
        return request;
    }

    // Lines of one direction. `otherwise` becomes the reason when none of them divides.
    std::vector<Chord> lines_of_levels(Status& otherwise) const
    {
        const LevelCut levels(local_, level_request());
        const Wide& of_base = stage_.measured == Measured::opposite ? rest_ : request_;
        if (stage_.cut == Cut::parallel && levels.area_below() > of_base)
            otherwise = Status::base_reaches_behind;
        return levels.all_lines();
    }

    std::vector<Chord> lines_from_the_boundary() const
    {
        const bool after = stage_.measured == Measured::from_reference;
        const bool at_vertex = stage_.cut == Cut::through_vertex;
        const Wide& after_from = after ? request_ : rest_;
        const Wide granted = local_.area_to_local(target_.granted());
        std::vector<Chord> lines = at_vertex
                                       ? lines_from_vertex(local_, turn_, stage_.index, after_from, granted)
                                       : lines_from_place(local_, turn_, stage_.index,
                                                          local_.to_local(stage_.point), after_from, granted);
        for (Chord& line : lines) {
            line.request_after_from = after;
            line.from_stays = at_vertex || stage_.point_stays;
        }
        return lines;
    }

    // `otherwise` becomes the reason when there are none.
    std::vector<Chord> lines_through_the_point(Status& otherwise) const
    {
        PointRequest request = {};
        request.point = local_.to_local(stage_.point);
        request.first = stage_.first;
        request.request_on_right = stage_.measured == Measured::from_reference;
        request.on_right = request.request_on_right ? request_ : rest_;
        request.granted = local_.area_to_local(target_.granted());
        std::vector<Chord> lines = lines_through_point(local_, turn_, request).lines;
        if (lines.empty())
            otherwise = Status::no_line_through_point;
        return lines;
    }

    // A parallel runs as the side does, a line of a bearing or a segment as these do, a perpendicular starts at the end nearer to the side's line.
    DividingLine dividing_line(const Cutting& cutting) const
    {
        DividingLine line;
        line.from = cutting.from;
        line.to = cutting.to;
        line.meets_again = meets_again(stage_.ring, cutting);
        const WidePoint& run = reference_.run;
        const Wide off_from = abs(cross(run, from_to(reference_.a, line.from)));
        const Wide off_to = abs(cross(run, from_to(reference_.a, line.to)));
        const bool against = dot(run, from_to(line.from, line.to)) < 0.0;
        const bool runs_along = reference_.cut == Cut::parallel || is_free(reference_.cut);
        if ((runs_along && against) || (reference_.cut == Cut::perpendicular && off_to < off_from))
            std::swap(line.from, line.to);
        line.segments = {{line.from, line.to}};
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

Attempt make_strip(const Stage& stage, const Reference& reference, double width, const Wide& left,
                   const Wide& parcel)
{
    return OneCut(stage, reference, {0.0, left, parcel}).make_strip(width);
}

std::vector<AreaRange> areas_of_cuts(const Stage& stage, const Reference& reference, const Wide& granted)
{
    const Target none = {};
    return OneCut(stage, reference, none).areas(granted);
}

}  // namespace plparcel
