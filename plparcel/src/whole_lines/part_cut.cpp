#include "whole_lines/part_cut.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "boundary/joined_rings.h"
#include "boundary/locate.h"
#include "boundary/measured_ring.h"
#include "boundary/meeting_sides.h"
#include "lines/direction.h"
#include "verdict/judge.h"
#include "verdict/nearby_ends.h"
#include "verdict/target.h"
#include "verdict/whole_verdict.h"
#include "whole_lines/level_frame.h"
#include "whole_lines/part_lines.h"

namespace plparcel {
namespace {

// All ends of a line lie within this many spacings of each other, across it.
constexpr double kStraight = 14.0;

// Vertices that a line may touch once it is rounded lie no more than so many spacings from where it was found.
constexpr double kMayTouch = 24.0;

// A line that misses by no more than so many times what is granted may be moved, by its rounding, to hold.
constexpr double kMayMiss = 2.0;

using Rings = std::vector<Ring>;

// What is left to cut, and how the next line runs.
struct Stage {
    Rings rings;   // the outer one anticlockwise, the holes clockwise
    WidePoint up;  // levels grow that way; of about unit length
    PL_PNT2D_record zero = {};
    PartRequest::Where where = PartRequest::Where::above;
    bool has_base = false;
    bool along_base = false;  // otherwise across it
    std::size_t base = 0;
    std::size_t alternative = 0;
    bool zero_stays = false;  // `zero` is a vertex, and a line that ends there ends there to the last bit
};

// Two pieces and the line between them.
struct Cut2 {
    Status status = Status::line_leaves_parcel;
    PartLine line;
    std::vector<PL_PNT2D_record> ends;  // from left to right
    Rings request;                      // its outer ring first
    Rings rest;
    Wide asked;
    Wide request_area;
    Wide rest_area;
    bool meets_again = false;
    std::size_t trials = 0;
};

// A line, and of each ring whether the line crosses it, and otherwise whether it lies in the piece above.
struct Placed : PartLine {
    std::vector<bool> crosses;
    std::vector<bool> has_above;
};

void append(Ring& ring, const PL_PNT2D_record& p)
{
    if (ring.empty() || !same_place(ring.back(), p))
        ring.push_back(p);
}

Ring closed_once(Ring ring)
{
    while (ring.size() > 1 && same_place(ring.front(), ring.back()))
        ring.pop_back();
    return ring;
}

bool holds(const Wide& got, const Wide& wanted, const Target& target)
{
    return std::fabs((got - wanted).value()) <= target.granted(wanted);
}

class PartCut {
public:
    explicit PartCut(const Stage& stage)
        : stage_(stage), frame_(stage.rings, stage.zero, stage.up), rings_(frame_.rings()),
          spacing_(frame_.spacing()), lines_(rings_, frame_.seen())
    {
        for (const Ring& ring : stage.rings)
            areas_.push_back(MeasuredRing(ring).signed_area());
        for (const Wide& area : areas_)
            area_ = area_ + area;
    }

    Cut2 cut_area(const Target& target) const
    {
        PartRequest request = part_request();
        request.request = frame_.area_to_frame(target.asked);
        request.rest = frame_.area_to_frame(area_ - target.asked);
        request.granted = frame_.area_to_frame(target.granted());
        Cut2 made;
        if (request.where == PartRequest::Where::with_base && area_below() > request.request)
            made.status = Status::base_reaches_behind;
        if (request.where == PartRequest::Where::without_base && area_below() > request.rest)
            made.status = Status::base_reaches_behind;
        Passed passed;
        for (const PartLine& line : lines_.all_lines(request))
            if (passes(line, target, made) && is_chosen(made, passed))
                return made;
        return none_of(std::move(made), passed);
    }

    Cut2 cut_width(double width, const Wide& left, const Wide& parcel, double of_parcel) const
    {
        const PartRequest request = part_request();
        const Wide level = level_at(width);
        Cut2 made;
        made.status = Status::amount_too_large;
        Passed passed;
        for (const PartLine& line : lines_.lines_at(request, level)) {
            const Wide above = frame_.area_to_parcel(line.above);
            const Wide asked = line.request_above ? above : area_ - above;
            const Wide rest = left - asked;
            if (!(std::min(asked, rest) > 0.0))
                continue;
            if (made.status == Status::amount_too_large)
                made.status = Status::line_leaves_parcel;
            if (passes(line, {asked, rest, parcel, of_parcel}, made) && is_chosen(made, passed))
                return made;
        }
        return none_of(std::move(made), passed);
    }

    // The lines at level 0 that end at that point, or with one that does not stay, run through it.
    std::vector<Cut2> cut_at_zero(const Target& target, PartsOfLine& parts) const
    {
        std::vector<Cut2> all;
        for (const PartLine& line : lines_.lines_at(part_request(), 0.0)) {
            const Wide request = area_ - frame_.area_to_parcel(line.above);
            if (!has_zero(line) || abs(request - target.asked) > kMayMiss * target.granted())
                continue;
            Cut2 made;
            const bool divides = passes(line, target, made);
            parts.trials += made.trials;
            parts.any_missing = parts.any_missing || made.status == Status::not_reached;
            const auto is_same = [&made](const Cut2& other) {
                return std::equal(other.ends.begin(), other.ends.end(), made.ends.begin(), made.ends.end(),
                                  same_place);
            };
            if (divides && std::none_of(all.begin(), all.end(), is_same))
                all.push_back(std::move(made));
        }
        return all;
    }

    std::vector<AreaRange> areas(const Wide& granted) const
    {
        std::vector<AreaRange> ranges =
            lines_.areas(part_request(), frame_.length_to_frame(kTouchRoundings * spacing_));
        for (AreaRange& range : ranges) {
            range.least = frame_.area_to_parcel(range.least);
            range.most = frame_.area_to_parcel(range.most);
        }
        return united(std::move(ranges), area_, granted);
    }

private:
    using Passed = std::vector<std::vector<PL_PNT2D_record>>;

    bool is_chosen(const Cut2& made, Passed& passed) const
    {
        const auto is_same = [&made](const std::vector<PL_PNT2D_record>& ends) {
            return std::equal(ends.begin(), ends.end(), made.ends.begin(), made.ends.end(), same_place);
        };
        if (std::any_of(passed.begin(), passed.end(), is_same) ||
            (made.line.beside_the_amount && !passed.empty()))
            return false;
        if (passed.size() == stage_.alternative)
            return true;
        passed.push_back(made.ends);
        return false;
    }

    static Cut2 none_of(Cut2 made, const Passed& passed)
    {
        if (!passed.empty())
            made.status = Status::no_further_line;
        return made;
    }

    PartRequest part_request() const
    {
        PartRequest request;
        request.where = stage_.where;
        request.has_base = stage_.has_base;
        request.base = stage_.base;
        return request;
    }

    // What lies below level 0.
    Wide area_below() const
    {
        Wide below;
        for (std::size_t side = 0; side < frame_.seen().size(); ++side) {
            WidePoint a = frame_.seen()[side];
            WidePoint b = frame_.seen()[rings_.next(side)];
            const auto at_zero = [&](const WidePoint& p, const WidePoint& q) -> WidePoint {
                return {p.x + (q.x - p.x) * (-p.y / (q.y - p.y)), 0.0};
            };
            if (!(a.y < 0.0) && !(b.y < 0.0))
                continue;
            if (a.y > 0.0)
                a = at_zero(a, b);
            else if (b.y > 0.0)
                b = at_zero(a, b);
            below = below + (a.x + b.x) * (b.y - a.y) * 0.5;
        }
        return below;
    }

    // Where a line lies that is so far from where its piece begins.
    Wide level_at(double width) const
    {
        const Wide away = frame_.length_to_frame(width);
        switch (stage_.where) {
        case PartRequest::Where::with_base:
            return away;
        case PartRequest::Where::without_base:
            return lines_.highest() - away;
        case PartRequest::Where::above:
            return (stage_.has_base ? frame_.seen()[rings_.next(stage_.base)].y : lines_.highest()) - away;
        default:
            return (stage_.has_base ? frame_.seen()[stage_.base].y : lines_.lowest()) + away;
        }
    }

    PL_PNT2D_record end_at(std::size_t side, const Wide& level) const
    {
        const std::size_t next = rings_.next(side);
        const Wide part = (level - frame_.seen()[side].y) / (frame_.seen()[next].y - frame_.seen()[side].y);
        const std::vector<WidePoint>& points = frame_.points();
        const WidePoint p = frame_.local().to_parcel(points[side] + (points[next] - points[side]) * part);
        return {p.x.value(), p.y.value()};
    }

    bool ends_at_zero(std::size_t side) const
    {
        return same_place(rings_[side], stage_.zero) || same_place(rings_.end_of(side), stage_.zero);
    }

    // Whether a line ends there to the last bit.
    bool stays(std::size_t side) const { return stage_.zero_stays && ends_at_zero(side); }

    bool has_zero(const PartLine& line) const
    {
        if (stage_.zero_stays)
            return std::any_of(line.sides.begin(), line.sides.end(),
                               [this](std::size_t side) { return ends_at_zero(side); });
        for (std::size_t i = 0; i < line.sides.size(); i += 2)
            if (met_along(line.sides[i], line.level) < 0.0 && met_along(line.sides[i + 1], line.level) > 0.0)
                return true;
        return false;
    }

    // The end of its side that a point is next to, or the point.
    PL_PNT2D_record on_vertex(std::size_t side, const PL_PNT2D_record& p) const
    {
        const double reach = kVertexRoundings * spacing_;
        for (const PL_PNT2D_record& v : {rings_[side], rings_.end_of(side)})
            if (std::fabs(v.x - p.x) <= reach && std::fabs(v.y - p.y) <= reach)
                return v;
        return p;
    }

    // Where a line comes to a side at a sharp angle, it may pass an end of that side so closely that it touches it once it is
    // rounded: then that is where its own end lies. Along a side it does not run: it ends before it, or begins behind it.
    PL_PNT2D_record on_passed_vertex(const PartLine& line, std::size_t end, const PL_PNT2D_record& p) const
    {
        const std::size_t side = line.sides[end];
        const Wide reach = frame_.length_to_frame(0.5 * kMayTouch * spacing_);
        const double to_right = end % 2 == 0 ? 1.0 : -1.0;
        std::optional<std::size_t> passed;
        for (const std::size_t v : {side, rings_.next(side)}) {
            const WidePoint& seen = frame_.seen()[v];
            if (!(abs(seen.y - line.level) > reach) &&
                (!passed || (seen.x - frame_.seen()[*passed].x) * to_right > 0.0))
                passed = v;
        }
        return passed ? rings_[*passed] : p;
    }

    bool passes(const PartLine& line, const Target& target, Cut2& made) const
    {
        ++made.trials;
        const Verdict verdict = judge(placed(line), target, made);
        if (verdict == Verdict::divides) {
            made.status = Status::divided;
            made.line = line;
            made.asked = target.asked;
            made.meets_again = meets_again(line);
        } else if (verdict == Verdict::misses && !line.beside_the_amount) {
            made.status = Status::not_reached;
        }
        return verdict == Verdict::divides;
    }

    Verdict judge(const Placed& line, const Target& target, Cut2& made) const
    {
        std::vector<PL_PNT2D_record> found;
        made.ends.clear();
        for (const std::size_t side : line.sides) {
            found.push_back(stays(side) ? stage_.zero : end_at(side, line.level));
            made.ends.push_back(stays(side) ? stage_.zero : on_vertex(side, found.back()));
        }
        const Verdict at_vertices = judge_rounded(line, target, made);
        if (at_vertices == Verdict::divides)
            return at_vertices;
        if (at_vertices == Verdict::leaves_the_parcel) {
            for (std::size_t i = 0; i < found.size(); ++i)
                made.ends[i] = stays(line.sides[i]) ? stage_.zero : on_passed_vertex(line, i, made.ends[i]);
            if (judge_rounded(line, target, made) == Verdict::divides)
                return Verdict::divides;
        }
        made.ends = found;
        const Verdict as_found = judge_rounded(line, target, made);
        if (as_found == Verdict::divides || (as_found != Verdict::misses && as_found == at_vertices))
            return as_found;
        if (line.sides.size() == 2 && rings_.ring_of(line.sides[0]) == 0)
            return look_nearby(line, target, made);
        balance(line, target, made);
        return judge_rounded(line, target, made) == Verdict::divides ? Verdict::divides : Verdict::misses;
    }

    // Other doubles near the two ends. What the holes take of the pieces does not depend on them.
    Verdict look_nearby(const Placed& line, const Target& target, Cut2& made) const
    {
        Wide above;
        Wide below;
        for (std::size_t ring = 1; ring < rings_.rings(); ++ring) {
            Wide& holes = line.has_above[ring] ? above : below;
            holes = holes + areas_[ring];
        }
        Target of_outer = target;
        of_outer.asked = target.asked - (line.request_above ? above : below);
        of_outer.rest = target.rest - (line.request_above ? below : above);
        // From the right end, unless the left one stays.
        const std::size_t right = stays(line.sides[0]) ? 0 : 1;
        Chord chord;
        chord.from_side = line.sides[right];
        chord.to_side = line.sides[1 - right];
        chord.request_after_from = line.request_above == (right == 1);
        chord.from_stays = stage_.zero_stays;
        const PL_PNT2D_record to = made.ends[1 - right];
        const PL_PNT2D_record from = made.ends[right];
        const auto divides = [&](const PL_PNT2D_record& start, const PL_PNT2D_record& end) {
            made.ends[right] = start;
            made.ends[1 - right] = end;
            return judge_rounded(line, target, made) == Verdict::divides;
        };
        return offer_nearby_ends(frame_.outer(), chord, of_outer, from, to, divides) ? Verdict::divides
                                                                                     : Verdict::misses;
    }

    // Moves one end after another so that the piece above comes as near to what it should hold as it can.
    void balance(const Placed& line, const Target& target, Cut2& made) const
    {
        const Wide wanted = line.request_above ? target.asked : target.rest;
        double over = (area_above(line, made.ends) - wanted).value();
        const double reach = kReachRoundings * spacing_;
        const double enough = 0.25 * target.granted();
        for (std::size_t i = 0; i < made.ends.size() && std::fabs(over) > enough; ++i) {
            const std::size_t side = line.sides[i];
            if (stays(side))
                continue;
            const PL_PNT2D_record other = made.ends[i ^ 1U];
            const bool is_left = i % 2 == 0;
            const WidePoint base =
                is_left ? from_to(rings_[side], other) : from_to(other, rings_.end_of(side));
            const PL_PNT2D_record was = made.ends[i];
            double best = over;
            for (const double x : doubles_near(was.x, reach)) {
                for (const double y : doubles_near(was.y, reach)) {
                    const double grown = 0.5 * ((x - was.x) * base.y.value() - (y - was.y) * base.x.value());
                    if (std::fabs(over + grown) < std::fabs(best)) {
                        best = over + grown;
                        made.ends[i] = {x, y};
                    }
                }
            }
            over = best;
        }
    }

    Wide area_above(const Placed& line, const std::vector<PL_PNT2D_record>& ends) const
    {
        Wide area = MeasuredRing(component(line, ends, true)).signed_area();
        for (std::size_t ring = 0; ring < rings_.rings(); ++ring)
            if (!line.crosses[ring] && line.has_above[ring])
                area = area + areas_[ring];
        return area;
    }

    Verdict judge_rounded(const Placed& line, const Target& target, Cut2& made) const
    {
        if (!lie_well(line, made.ends))
            return Verdict::misses;
        if (touches_a_vertex(line, made.ends))
            return Verdict::leaves_the_parcel;
        std::optional<Rings> above = piece(line, made.ends, true);
        std::optional<Rings> below = piece(line, made.ends, false);
        if (!above || !below)
            return Verdict::misses;
        const std::optional<Wide> area_above = area_of_piece(*above);
        const std::optional<Wide> area_below = area_of_piece(*below);
        if (!area_above || !area_below)
            return Verdict::leaves_the_parcel;
        made.request = std::move(line.request_above ? *above : *below);
        made.rest = std::move(line.request_above ? *below : *above);
        made.request_area = line.request_above ? *area_above : *area_below;
        made.rest_area = line.request_above ? *area_below : *area_above;
        return holds(made.request_area, target.asked, target) && holds(made.rest_area, target.rest, target)
                   ? Verdict::divides
                   : Verdict::misses;
    }

    // Ends near their sides, each segment from left to right, and all on one straight line.
    bool lie_well(const PartLine& line, const std::vector<PL_PNT2D_record>& ends) const
    {
        const WidePoint right = {stage_.up.y, -stage_.up.x};
        Wide low;
        Wide high;
        for (std::size_t i = 0; i < ends.size(); ++i) {
            const std::size_t side = line.sides[i];
            const bool runs_on = i % 2 == 0 || dot(right, from_to(ends[i - 1], ends[i])) > 0.0;
            if (!runs_on ||
                !is_near_side(rings_[side], rings_.end_of(side), ends[i], kSideRoundings * spacing_))
                return false;
            const Wide off = dot(stage_.up, from_to(ends[0], ends[i]));
            low = off < low ? off : low;
            high = off > high ? off : high;
        }
        return !(high - low > frame_.up_length() * (kStraight * spacing_));
    }

    // Vertices next to an end do not count: the pieces show how the sides go on from there.
    bool touches_a_vertex(const PartLine& line, const std::vector<PL_PNT2D_record>& ends) const
    {
        const double reach = kTouchRoundings * spacing_;
        const Wide away = frame_.length_to_frame(kMayTouch * spacing_);
        const std::vector<std::size_t> near = lines_.vertices_between(line.level - away, line.level + away);
        for (std::size_t i = 0; i < ends.size(); i += 2) {
            const WidePoint run = from_to(ends[i], ends[i + 1]);
            const double length = std::hypot(run.x.value(), run.y.value());
            for (const std::size_t v : near) {
                const WidePoint w = from_to(ends[i], rings_[v]);
                const double along = (dot(run, w) / length).value();
                const double off = (cross(run, w) / length).value();
                if (std::fabs(off) <= reach && along > reach && along < length - reach)
                    return true;
            }
        }
        return false;
    }

    // The tour comes to a ring between the right end of a segment and its left one, or begins between them: then the ring
    // lies above that segment.
    Placed placed(const PartLine& line) const
    {
        Placed made;
        static_cast<PartLine&>(made) = line;
        made.crosses.resize(rings_.rings());
        made.has_above.resize(rings_.rings());
        for (const std::size_t side : line.sides)
            made.crosses[rings_.ring_of(side)] = true;
        std::vector<std::pair<std::size_t, int>> ends;
        for (std::size_t i = 0; i < line.places.size(); ++i)
            ends.emplace_back(line.places[i], i % 2 == 0 ? 1 : -1);
        std::sort(ends.begin(), ends.end());
        int beyond = line.holds_start ? 1 : 0;
        std::size_t left = ends.size();
        const std::vector<std::size_t>& rings = lines_.rings_on_tour();
        for (auto ring = rings.rbegin(); ring != rings.rend(); ++ring) {
            for (; left > 0 && ends[left - 1].first > lines_.place_of_ring(*ring); --left)
                beyond += ends[left - 1].second;
            made.has_above[*ring] = beyond == 1;
        }
        return made;
    }

    // The boundary of one piece that runs along the line.
    Ring component(const PartLine& line, const std::vector<PL_PNT2D_record>& ends, bool above) const
    {
        const std::size_t n = ends.size();
        Ring ring;
        for (std::size_t k = 0; k < n; k += 2) {
            // Above: to the right, and up from there to the next segment. Below: the other way round.
            const std::size_t first = above ? k : n - 1 - k;
            const std::size_t last = above ? k + 1 : n - 2 - k;
            const std::size_t next = above ? (last + 1) % n : (last + n - 1) % n;
            append(ring, ends[first]);
            append(ring, ends[last]);
            for (std::size_t v = line.sides[last]; v != line.sides[next];) {
                v = rings_.next(v);
                append(ring, rings_[v]);
            }
        }
        return closed_once(std::move(ring));
    }

    std::optional<Rings> piece(const Placed& line, const std::vector<PL_PNT2D_record>& ends, bool above) const
    {
        constexpr std::size_t kMinVertices = 3;
        Ring along_line = component(line, ends, above);
        if (along_line.size() < kMinVertices)
            return std::nullopt;
        Rings rings;
        for (std::size_t ring = 0; ring < rings_.rings(); ++ring)
            if (!line.crosses[ring] && line.has_above[ring] == above)
                rings.push_back(stage_.rings[ring]);
        // Round a hole, the piece beyond the line keeps the outer ring.
        const bool has_outer = !line.crosses[0] && line.has_above[0] == above;
        rings.insert(has_outer ? rings.end() : rings.begin(), std::move(along_line));
        return rings;
    }

    // Where a line at a level meets a side, along the line.
    Wide met_along(std::size_t side, const Wide& level) const
    {
        const WidePoint& a = frame_.seen()[side];
        const WidePoint& b = frame_.seen()[rings_.next(side)];
        return a.x + (b.x - a.x) * ((level - a.y) / (b.y - a.y));
    }

    // Where the sides are met that have an end more than a reach above a level, and another that lies no higher; with
    // `way` -1 below it, and no lower.
    std::vector<Wide> met_beyond(const Wide& level, const Wide& reach, double way) const
    {
        const auto is_beyond = [&](std::size_t vertex) {
            return (frame_.seen()[vertex].y - level) * way > reach;
        };
        std::vector<Wide> found;
        for (std::size_t side = 0; side < frame_.seen().size(); ++side)
            if (is_beyond(side) != is_beyond(rings_.next(side)))
                found.push_back(met_along(side, level));
        std::sort(found.begin(), found.end());
        return found;
    }

    // Whether the line, prolonged beyond its ends, runs through the inside for longer than a touch.
    bool meets_again(const PartLine& line) const
    {
        if (line.alone)
            return false;
        const Wide reach = frame_.length_to_frame(kTouchRoundings * spacing_);
        const std::vector<Wide> below = met_beyond(line.level, reach, -1.0);
        const std::vector<Wide> above = met_beyond(line.level, reach, 1.0);
        const Wide left = met_along(line.sides.front(), line.level);
        const Wide right = met_along(line.sides.back(), line.level);
        std::size_t l = 0;
        std::size_t r = 0;
        while (l + 1 < below.size() && r + 1 < above.size()) {
            const Wide& begin = std::max(below[l], above[r]);
            const Wide& end = std::min(below[l + 1], above[r + 1]);
            const bool is_outside = end < left + reach || begin > right - reach;
            if (is_outside && end - begin > reach)
                return true;
            (below[l + 1] < above[r + 1] ? l : r) += 2;
        }
        return false;
    }

    const Stage& stage_;
    LevelFrame frame_;
    const JoinedRings& rings_;
    double spacing_;
    PartLines lines_;
    std::vector<Wide> areas_;  // of each ring; holes below zero
    Wide area_;
};

// The direction that the request names.
WidePoint run_of(const WholeParcel& parcel, const Line& line)
{
    if (line.cut == Cut::at_bearing)
        return direction_of(line.bearing);
    return line.cut == Cut::along_segment ? from_to(line.a, line.b) : from_to(parcel.a, parcel.b);
}

// In the rings as they run here, the base side may run the other way; the request lies ahead of the line as the side was
// given.
Stage stage_across(Stage stage, bool inside_on_left, bool here)
{
    if (!inside_on_left) {
        stage.up = {-stage.up.x, -stage.up.y};
        stage.where = here ? PartRequest::Where::below : PartRequest::Where::above;
    }
    return stage;
}

Stage first_stage(const WholeParcel& parcel, std::size_t base, const Request& request)
{
    const WidePoint along = about_unit(run_of(parcel, request.line));
    const bool here = request.measured == Measured::from_reference;
    Stage stage;
    stage.rings = parcel.rings;
    stage.alternative = request.alternative;
    stage.where = here ? PartRequest::Where::above : PartRequest::Where::below;
    stage.up = {along.y, -along.x};
    stage.zero = stage.rings.front().front();
    if (is_free(request.line.cut))
        return stage;
    stage.has_base = true;
    stage.base = base;
    stage.zero = parcel.a;
    stage.up = along;
    if (request.line.cut == Cut::perpendicular)
        return stage_across(std::move(stage), parcel.inside_on_left, here);
    stage.where = here ? PartRequest::Where::with_base : PartRequest::Where::without_base;
    stage.up = parcel.inside_on_left ? WidePoint{-along.y, along.x} : WidePoint{along.y, -along.x};
    return stage;
}

// The side that gives the direction, as one of the rings' own; 0 for none.
std::size_t side_between(const WholeParcel& whole)
{
    const JoinedRings rings(whole.rings);
    for (std::size_t side = 0; side < rings.size(); ++side) {
        const PL_PNT2D_record& a = rings[side];
        const PL_PNT2D_record& b = rings.end_of(side);
        if ((same_place(a, whole.a) && same_place(b, whole.b)) ||
            (same_place(a, whole.b) && same_place(b, whole.a)))
            return side;
    }
    return 0;
}

DividingLine line_between(const Cut2& made, bool runs_back)
{
    DividingLine line;
    line.meets_again = made.meets_again;
    for (std::size_t i = 0; i < made.ends.size(); i += 2)
        line.segments.push_back({made.ends[i], made.ends[i + 1]});
    if (runs_back) {
        std::reverse(line.segments.begin(), line.segments.end());
        for (Segment& segment : line.segments)
            std::swap(segment.from, segment.to);
    }
    line.from = line.segments.front().from;
    line.to = line.segments.back().to;
    return line;
}

struct Holding {
    const Rings& rings;
    Wide area;
    Wide asked;
    std::size_t amount;
};

Piece piece_of(const Holding& of, bool clockwise)
{
    Piece piece;
    piece.ring = of.rings.front();
    piece.holes.assign(of.rings.begin() + 1, of.rings.end());
    std::sort(piece.holes.begin(), piece.holes.end(), [](const Ring& a, const Ring& b) {
        return comes_before(*std::min_element(a.begin(), a.end(), comes_before),
                            *std::min_element(b.begin(), b.end(), comes_before));
    });
    piece.amount = of.amount;
    piece.area = of.area.value();
    piece.asked = of.asked.value();
    piece.residual = (of.area - of.asked).value();
    if (clockwise) {
        std::reverse(piece.ring.begin() + 1, piece.ring.end());
        for (Ring& hole : piece.holes)
            std::reverse(hole.begin() + 1, hole.end());
    }
    return piece;
}

// The whole series.
class Series {
public:
    Series(const WholeParcel& parcel, std::size_t base, const Request& request, const Shares& shares,
           double of_parcel)
        : parcel_(parcel), base_(base), request_(request), shares_(shares), of_parcel_(of_parcel)
    {}

    std::vector<Wide> divide(Division& division)
    {
        Stage stage = first_stage(parcel_, base_, request_);
        std::vector<Wide> wanted;
        std::vector<Wide> after(shares_.pieces.size());
        for (std::size_t i = after.size() - 1; i > 0; --i)
            after[i - 1] = after[i] + shares_.pieces[i];
        Wide left = parcel_.area;
        Wide left_area = parcel_.area;
        for (std::size_t i = 0; i + 1 < shares_.pieces.size(); ++i) {
            const Wide rest = shares_.widths.empty() ? after[i] : left - shares_.pieces[i];
            Cut2 made = cut(stage, i, left, rest);
            division.trials += made.trials;
            division.status = made.status;
            if (made.status != Status::divided) {
                division.at_amount = i;
                division.lines.clear();
                division.pieces.clear();
                return {};
            }
            division.lines.push_back(dividing_line(stage, made));
            division.pieces.push_back(piece_of(made.request, made.request_area, made.asked, i));
            wanted.push_back(made.asked);
            left = left - made.asked;
            left_area = made.rest_area;
            stage = next_stage(stage, std::move(made));
        }
        const Wide last = shares_.widths.empty() ? shares_.pieces.back() : left;
        division.pieces.push_back(piece_of(stage.rings, left_area, last, shares_.pieces.size() - 1));
        for (const Piece& piece : division.pieces)
            division.held.push_back({piece.asked, piece.area, piece.residual, 1});
        wanted.push_back(last);
        return wanted;
    }

private:
    Cut2 cut(const Stage& stage, std::size_t i, const Wide& left, const Wide& rest) const
    {
        const PartCut one(stage);
        if (!shares_.widths.empty() && shares_.widths[i] > 0.0)
            return one.cut_width(shares_.widths[i], left, parcel_.area, of_parcel_);
        Cut2 none;
        none.status = Status::amount_too_large;
        return rest > 0.0 ? one.cut_area({shares_.pieces[i], rest, parcel_.area, of_parcel_}) : none;
    }

    // What is left begins with the line.
    static Stage next_stage(const Stage& stage, Cut2 made)
    {
        Stage next;
        const bool rest_above = !made.line.request_above;
        next.up = rest_above ? stage.up : WidePoint{-stage.up.x, -stage.up.y};
        next.where = PartRequest::Where::with_base;
        next.has_base = true;
        next.zero = made.ends[rest_above ? 0 : 1];
        next.rings = std::move(made.rest);
        const JoinedRings rings(next.rings);
        for (std::size_t side = 0; side < rings.size(); ++side)
            if (same_place(rings[side], next.zero))
                next.base = side;
        return next;
    }

    DividingLine dividing_line(const Stage& stage, const Cut2& made) const
    {
        const WidePoint to_right = {stage.up.y, -stage.up.x};
        const WidePoint run = run_of(parcel_, request_.line);
        bool runs_back = dot(run, to_right) < 0.0;
        if (request_.line.cut == Cut::perpendicular)
            runs_back = abs(cross(run, from_to(parcel_.a, made.ends.back()))) <
                        abs(cross(run, from_to(parcel_.a, made.ends.front())));
        return line_between(made, runs_back);
    }

    Piece piece_of(const Rings& rings, const Wide& area, const Wide& asked, std::size_t amount) const
    {
        return plparcel::piece_of(Holding{rings, area, asked, amount}, parcel_.clockwise);
    }

    const WholeParcel& parcel_;
    std::size_t base_;
    const Request& request_;
    const Shares& shares_;
    double of_parcel_;
};

}  // namespace

std::vector<Wide> cut_parts(const WholeParcel& parcel, const Request& request, const Shares& shares,
                            double of_parcel, Division& division)
{
    return Series(parcel, side_between(parcel), request, shares, of_parcel).divide(division);
}

PartsOfLine cut_by_parts_of(const std::vector<Ring>& rings, bool clockwise, const KnownLine& line,
                            const WidePoint& run, const Target& target)
{
    Stage stage;
    stage.rings = rings;
    stage.up = line.up;
    stage.zero = line.point;
    stage.zero_stays = line.ends_there;
    stage.where = PartRequest::Where::below;
    const bool runs_back = dot(run, {stage.up.y, -stage.up.x}) < 0.0;
    PartsOfLine parts;
    for (const Cut2& made : PartCut(stage).cut_at_zero(target, parts)) {
        Division division;
        division.status = Status::divided;
        division.lines.push_back(line_between(made, runs_back));
        division.pieces.push_back(piece_of({made.request, made.request_area, target.asked, 0}, clockwise));
        division.pieces.push_back(piece_of({made.rest, made.rest_area, target.rest, 1}, clockwise));
        for (const Piece& piece : division.pieces)
            division.held.push_back({piece.asked, piece.area, piece.residual, 1});
        parts.divisions.push_back(std::move(division));
    }
    return parts;
}

std::vector<AreaRange> areas_of_parts(const WholeParcel& parcel, const Request& request, const Wide& granted)
{
    return PartCut(first_stage(parcel, side_between(parcel), request)).areas(granted);
}

}  // namespace plparcel
