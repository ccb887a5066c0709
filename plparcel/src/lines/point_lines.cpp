#include "lines/point_lines.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "lines/ray.h"
#include "lines/round_view.h"

namespace plparcel {
namespace {

// An area that misses what is wanted by no more than this part of the parcel holds it.
constexpr double kRim = 1e-28;

// The ring is mirrored, so that anticlockwise in here is clockwise on the ground, as bearings run.
WidePoint mirrored(const WidePoint& p)
{
    return {-p.x, p.y};
}

bool is_zero(const Wide& a)
{
    return !(a < 0.0) && !(a > 0.0);
}

bool same_place(const WidePoint& a, const WidePoint& b)
{
    return is_zero(a.x - b.x) && is_zero(a.y - b.y);
}

// A direction in which something changes: one half of the line comes to another side, or nothing for the first
// direction and the one against it.
struct Event {
    enum class Of { ahead, behind, nothing };

    WidePoint direction;
    Of of = Of::nothing;
    std::size_t side = 0;  // the one that the half then ends on
};

// The sides on which the line ends, ahead of the point and behind it.
struct Ends {
    std::size_t ahead;
    std::size_t behind;
};

// A line in one direction, from the point.
struct Line {
    WidePoint ahead;
    WidePoint behind;
    Ends sides;
    Wide right;  // the area on its right
};

// What one half of the line has swept: alpha t / (1 + beta t).
struct Swept {
    Wide alpha;
    Wide beta;
};

// The parts of the way at which right(0) - ahead + behind is as wanted; `more` is right(0) less what is wanted. A root
// at one of the two vertices is left to the line through it.
std::vector<Wide> roots(const Wide& more, const Swept& ahead, const Swept& behind)
{
    const Wide a = more * ahead.beta * behind.beta - ahead.alpha * behind.beta + behind.alpha * ahead.beta;
    const Wide b = more * (ahead.beta + behind.beta) - ahead.alpha + behind.alpha;
    const Wide discriminant = b * b - a * more * 4.0;
    if (discriminant < 0.0)
        return {};
    const Wide root = sqrt(discriminant);
    const Wide half = (b < 0.0 ? b - root : b + root) * -0.5;  // the larger of the two by magnitude
    std::vector<Wide> found;
    for (const Wide& t : {half / a, more / half})
        if (t > kRim && t < Wide(1.0) - kRim)
            found.push_back(t);
    std::sort(found.begin(), found.end());
    return found;
}

class TurningLine {
public:
    TurningLine(const LocalRing& ring, double turn, const PointRequest& request)
        : request_(request), turn_(turn), first_(mirrored(request.first))
    {
        const std::size_t n = ring.size();
        for (std::size_t k = 0; k < n; ++k)
            points_.push_back(mirrored(ring.at(k) - request.point));
        twice_area_.emplace_back(0.0);
        for (std::size_t k = 0; k < n; ++k)
            twice_area_.push_back(twice_area_.back() + cross(points_[k], at(k + 1)));
        parcel_ = abs(twice_area_.back()) * 0.5;
        rim_ = kRim * parcel_.hi;
    }

    PointLines run()
    {
        std::vector<std::size_t> next_vertex(points_.size());
        for (std::size_t k = 0; k < next_vertex.size(); ++k)
            next_vertex[k] = (k + 1) % next_vertex.size();
        const std::vector<Sector> sectors = seen_all_round(points_, next_vertex, first_);
        const std::vector<Event> events = events_of(sectors);
        Ends now = ends_before(events);
        Line arriving = line_in(events.front().direction, now);
        for (std::size_t i = 0; i < events.size();) {
            const WidePoint& direction = events[i].direction;
            for (; i < events.size() && !comes_before_(direction, events[i].direction); ++i)
                pass(events[i], now);
            const WidePoint& next = events[i % events.size()].direction;
            const Line leaving = line_in(direction, now);
            if (!spans_.empty())
                spans_.back().end = {arriving.right, rims_.size(), true};
            rims_.push_back({direction, {arriving.ahead, leaving.ahead}, {arriving.behind, leaving.behind}});
            at_vertices(direction, arriving, leaving);
            arriving = line_in(next, now);
            between(direction, next, leaving, arriving);
        }
        spans_.back().end = {arriving.right, 0, true};
        return finished();
    }

private:
    const WidePoint& at(std::size_t i) const { return around(points_, i); }

    std::vector<Event> events_of(const std::vector<Sector>& sectors) const
    {
        const WidePoint against = first_ * -1.0;
        std::vector<Event> ahead = {{first_, Event::Of::nothing, {}}};
        std::vector<Event> behind;
        for (const Sector& sector : sectors) {
            ahead.push_back({sector.begin, Event::Of::ahead, sector.side});
            behind.push_back({sector.begin * -1.0, Event::Of::behind, sector.side});
        }
        const auto order = [this](const Event& a, const Event& b) {
            return comes_before_(a.direction, b.direction);
        };
        // The second half turn against the line is the first one of the line.
        const auto half = std::find_if(ahead.begin() + 1, ahead.end(),
                                       [&](const Event& e) { return !comes_before_(e.direction, against); });
        std::rotate(behind.begin(), behind.begin() + (half - ahead.begin() - 1), behind.end());
        ahead.insert(half, {against, Event::Of::nothing, {}});
        std::vector<Event> events;
        std::merge(ahead.begin(), ahead.end(), behind.begin(), behind.end(), std::back_inserter(events),
                   order);
        return events;
    }

    static Ends ends_before(const std::vector<Event>& events)
    {
        Ends ends = {};
        for (const Event& event : events)
            pass(event, ends);
        return ends;
    }

    static void pass(const Event& event, Ends& ends)
    {
        if (event.of == Event::Of::ahead)
            ends.ahead = event.side;
        if (event.of == Event::Of::behind)
            ends.behind = event.side;
    }

    // Where a direction, or the one against it, meets a side; a vertex exactly where it runs through that.
    WidePoint hit(std::size_t side, const WidePoint& direction) const
    {
        const WidePoint& a = points_[side];
        const WidePoint& b = at(side + 1);
        const Wide off_a = cross(direction, a);
        const Wide off_b = cross(direction, b);
        return is_zero(off_b) ? b : a + (b - a) * (off_a / (off_a - off_b));
    }

    Line line_in(const WidePoint& direction, const Ends& sides) const
    {
        Line line = {hit(sides.ahead, direction), hit(sides.behind, direction), sides, 0.0};
        const std::size_t first = sides.behind + 1;
        const std::size_t last = sides.ahead;
        Wide between = twice_area_[last] - twice_area_[first];
        if (last < first)
            between = between + twice_area_.back();
        const Wide twice = cross(line.behind, at(first)) + between + cross(points_[last], line.ahead);
        const Wide after = twice * (-0.5 * turn_);
        line.right = turn_ > 0.0 ? after : parcel_ - after;
        return line;
    }

    // All lines in a direction through vertices: each half may end where it ended before, or where it ends from now on.
    void at_vertices(const WidePoint& direction, const Line& arriving, const Line& leaving)
    {
        std::vector<Line> lines = {arriving};
        const bool both_change =
            arriving.sides.ahead != leaving.sides.ahead && arriving.sides.behind != leaving.sides.behind;
        if (both_change) {
            lines.push_back(line_in(direction, {arriving.sides.ahead, leaving.sides.behind}));
            lines.push_back(line_in(direction, {leaving.sides.ahead, arriving.sides.behind}));
        }
        lines.push_back(leaving);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const auto end = lines.begin() + static_cast<std::ptrdiff_t>(i);
            const bool is_there = std::any_of(lines.begin(), end, [&line = lines[i]](const Line& other) {
                return same_place(other.ahead, line.ahead) && same_place(other.behind, line.behind);
            });
            if (!is_there)
                propose(lines[i]);
        }
    }

    Swept swept_by(std::size_t side, const WidePoint& from, const WidePoint& to) const
    {
        const WidePoint along = at(side + 1) - points_[side];
        const Wide quotient = cross(to, along) / cross(from, along);
        return {cross(hit(side, from), hit(side, to)) * 0.5 * quotient, quotient - 1.0};
    }

    // Whether what is wanted may lie between two lines: no further from the first one's area than all that either half
    // sweeps. Asked in doubles, since most lines are nowhere near.
    bool may_hold(const Line& first, const Line& last) const
    {
        constexpr double kRoundings = 1e-12;
        const double lost = 0.5 * std::fabs(cross(first.ahead, last.ahead).hi);
        const double won = 0.5 * std::fabs(cross(first.behind, last.behind).hi);
        const double reach = request_.granted.hi + kRoundings * parcel_.hi;
        const double more = first.right.hi - request_.on_right.hi;
        return -won - reach <= more && more <= lost + reach;
    }

    // Which half is longer: above zero the one ahead.
    static double longer(const Line& line)
    {
        return (dot(line.ahead, line.ahead) - dot(line.behind, line.behind)).value();
    }

    void between(const WidePoint& from, const WidePoint& to, const Line& first, const Line& last)
    {
        spans_.push_back({{first.right, rims_.size() - 1, true}, {}});
        const bool turns_back = longer(first) * longer(last) < 0.0;
        const bool may_hold_it = may_hold(first, last);
        if (!turns_back && !may_hold_it)
            return;
        const Ends& sides = first.sides;
        const WidePoint u = about_unit(from);
        const WidePoint f = about_unit(to) - u;
        const auto line_at = [&](const Wide& t) { return line_in(u + f * t, sides); };
        const Swept ahead = swept_by(sides.ahead, u, u + f);
        const Swept behind = swept_by(sides.behind, u, u + f);
        std::vector<Wide> parts;
        if (may_hold_it && holds(first) && holds(last) && holds(line_at(0.5)))
            parts.assign(1, 0.5);
        else if (may_hold_it)
            parts = roots(first.right - request_.on_right, ahead, behind);
        for (const Wide& t : parts)
            exact_.push_back(chord_of(line_at(t)));
        if (!turns_back)
            return;
        // Where both halves are of the same length.
        const Wide root_ahead = sqrt(ahead.alpha);
        const Wide root_behind = sqrt(behind.alpha);
        const Wide t = (root_behind - root_ahead) / (root_ahead * behind.beta - root_behind * ahead.beta);
        if (!(t > 0.0 && t < 1.0))
            return;
        const Line extreme = line_at(t);
        spans_.back().end = {extreme.right, 0, false};
        spans_.push_back({{extreme.right, 0, false}, {}});
        if (parts.empty())
            propose(extreme);
    }

    bool holds(const Line& line) const { return !(abs(line.right - request_.on_right) > rim_); }

    void propose(const Line& line)
    {
        if (holds(line)) {
            exact_.push_back(chord_of(line));
        } else if (!(abs(line.right - request_.on_right) > request_.granted)) {
            beside_.push_back(chord_of(line));
            beside_.back().beside_the_amount = true;
        }
    }

    Chord chord_of(const Line& line) const
    {
        Chord chord;
        chord.from = request_.point + mirrored(line.behind);
        chord.to = request_.point + mirrored(line.ahead);
        chord.from_side = line.sides.behind;
        chord.to_side = line.sides.ahead;
        chord.request_after_from = (turn_ > 0.0) == request_.request_on_right;
        return chord;
    }

    // A direction in which a half of the line comes to another side: the line that arrives there, and the one that leaves.
    struct Rim {
        WidePoint direction;
        WidePoint ahead[2];
        WidePoint behind[2];
    };

    // One end of a range of areas: a line at a rim, or one between two rims, where the area is greatest or least.
    struct SpanEnd {
        Wide right;
        std::size_t rim = 0;
        bool at_rim = false;
    };

    // The areas grow or sink from one end to the other.
    struct Span {
        SpanEnd begin;
        SpanEnd end;
    };

    static Wide length_of(const WidePoint& v) { return sqrt(dot(v, v)); }

    // How far one half of a line at each rim can reach without meeting a vertex on its way. Where it jumps from one
    // side to another, the line that reaches farther touches the vertex on which the other one ends; and so does a line at
    // a rim next to it, within the reach of rounding.
    std::vector<double> clear_ways(const WidePoint (Rim::*half)[2]) const
    {
        constexpr std::size_t kMostBeside = 64;
        const std::size_t n = rims_.size();
        const std::size_t most = std::min(kMostBeside, n);
        std::vector<double> ways(n, std::numeric_limits<double>::infinity());
        for (std::size_t i = 0; i < n; ++i) {
            const Wide one = length_of((rims_[i].*half)[0]);
            const Wide other = length_of((rims_[i].*half)[1]);
            if (!(abs(one - other) > request_.reach))
                continue;
            const double way = (one < other ? one : other).value();
            ways[i] = std::fmin(ways[i], way);
            // To either side, beyond the first direction too.
            for (const std::size_t step : {std::size_t{1}, n - 1})
                for (std::size_t k = 1; k < most && is_beside(rims_[i], rims_[(i + k * step) % n], way); ++k)
                    ways[(i + k * step) % n] = std::fmin(ways[(i + k * step) % n], way);
        }
        return ways;
    }

    bool is_beside(const Rim& one, const Rim& next, double way) const
    {
        const Wide sine = abs(cross(one.direction, next.direction)) /
                          (length_of(one.direction) * length_of(next.direction));
        return dot(one.direction, next.direction) > 0.0 && !(sine * way > request_.reach);
    }

    // Whether the line at an end of a range meets the boundary at its ends only.
    bool is_clear(const SpanEnd& end, bool arrives, const std::vector<double>& ahead,
                  const std::vector<double>& behind) const
    {
        if (!end.at_rim)
            return true;
        const Rim& rim = rims_[end.rim];
        const std::size_t line = arrives ? 0 : 1;
        return !(length_of(rim.ahead[line]) - ahead[end.rim] > request_.reach) &&
               !(length_of(rim.behind[line]) - behind[end.rim] > request_.reach);
    }

    PointLines finished()
    {
        PointLines all;
        all.lines = std::move(exact_);
        all.lines.insert(all.lines.end(), beside_.begin(), beside_.end());
        const std::vector<double> ahead = clear_ways(&Rim::ahead);
        const std::vector<double> behind = clear_ways(&Rim::behind);
        for (const Span& span : spans_) {
            const bool begin_is_had = is_clear(span.begin, false, ahead, behind);
            const bool end_is_had = is_clear(span.end, true, ahead, behind);
            const bool sinks = span.end.right < span.begin.right;
            all.ranges.push_back(sinks
                                     ? AreaRange{span.end.right, span.begin.right, end_is_had, begin_is_had}
                                     : AreaRange{span.begin.right, span.end.right, begin_is_had, end_is_had});
        }
        return all;
    }

    const PointRequest& request_;
    double turn_;
    WidePoint first_;
    ComesBefore comes_before_{first_};
    std::vector<WidePoint> points_;  // from the point
    std::vector<Wide> twice_area_;   // entry i: sum of cross(k, k + 1) over the vertices before i
    Wide parcel_;
    Wide rim_;
    std::vector<Chord> exact_;
    std::vector<Chord> beside_;
    std::vector<Rim> rims_;
    std::vector<Span> spans_;
};

}  // namespace

PointLines lines_through_point(const LocalRing& ring, double turn, const PointRequest& request)
{
    return TurningLine(ring, turn, request).run();
}

}  // namespace plparcel
