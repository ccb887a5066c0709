#include "lines/level_cut.h"

#include <algorithm>
#include <utility>

#include "lines/vertex_rows.h"

namespace plparcel {
namespace {

// Whether the walk along the ring from side `from` to side `to` passes `side`, the two ends not counted.
bool is_passed(std::size_t side, std::size_t from, std::size_t to, std::size_t n)
{
    const std::size_t way = (side + n - from) % n;
    return way != 0 && way < (to + n - from) % n;
}

// Some units in the last place of 106 bits: an area that misses a trapezium by no more is on its rim.
constexpr double kRim = 2e-28;

}  // namespace

LevelCut::LevelCut(const LocalRing& ring, const LevelRequest& request)
    : ring_(ring), request_(request), up2_(dot(request.up, request.up))
{
    const WidePoint right = {request.up.y, -request.up.x};
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const WidePoint v = ring.at(i) - request.zero;
        frame_.push_back({dot(right, v), dot(request.up, v)});
    }
    Wide sum;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        twice_area_.push_back(sum);
        sum = sum + cross(frame_[i], frame_at(i + 1));
    }
    twice_area_.push_back(sum);
    for (std::size_t i = 0; i < frame_.size(); ++i) {
        const bool rises = frame_[i].y < frame_at(i + 1).y;
        low_ends_.push_back(rises ? frame_[i].y : frame_at(i + 1).y);
        high_ends_.push_back(rises ? frame_at(i + 1).y : frame_[i].y);
    }
    std::sort(low_ends_.begin(), low_ends_.end());
    std::sort(high_ends_.begin(), high_ends_.end());
    lowest_ = low_ends_.front();
    highest_ = high_ends_.back();
}

WidePoint LevelCut::on_side(std::size_t side, const Wide& level) const
{
    const WidePoint& a = frame_[side];
    const WidePoint& b = frame_at(side + 1);
    const WidePoint& p = ring_.at(side);
    return p + (ring_.at(side + 1) - p) * ((level - a.y) / (b.y - a.y));
}

// Twice the sum of the walk from `from` along the ring to `to` and straight back.
Wide LevelCut::area_above(const Chord& chord, const Wide& level) const
{
    const std::size_t n = frame_.size();
    const std::size_t first = (chord.from_side + 1) % n;
    const std::size_t last = chord.to_side;
    const WidePoint from = {along_at(frame_, chord.from_side, level), level};
    const WidePoint to = {along_at(frame_, chord.to_side, level), level};
    Wide walk = twice_area_[last] - twice_area_[first];
    if (last < first)
        walk = walk + twice_area_[n];
    const Wide twice = cross(from, frame_[first]) + walk + cross(frame_[last], to) + cross(to, from);
    return twice * (0.5 * request_.turn);
}

// The area above sinks from the one at `low` by the trapezium below the line:
//     width_low * u + (width_high - width_low) * u^2 / 2 = sunk / height,    u = (level - low) / height
// and the root is written so that no two nearly equal numbers are subtracted.
bool LevelCut::solve(const Trapezium& trapezium, Candidate& found) const
{
    const Wide& low = trapezium.low;
    const Wide& high = trapezium.high;
    found = between_sides(trapezium);
    Chord& chord = found.chord;
    const Wide wanted = (chord.request_after_from ? request_.request : request_.rest) * up2_;
    const Wide height = high - low;
    const Wide width_low = along_at(frame_, trapezium.right, low) - along_at(frame_, trapezium.left, low);
    const Wide width_high = along_at(frame_, trapezium.right, high) - along_at(frame_, trapezium.left, high);
    const Wide widening = width_high - width_low;
    const Wide sunk = (area_above(chord, low) - wanted) / height;
    const Wide whole = (width_low + width_high) * 0.5;
    const Wide outside = sunk < 0.0 ? -sunk : sunk - whole;
    chord.beside_the_amount = outside > whole * kRim;
    if (chord.beside_the_amount && outside > request_.granted * up2_ / height)
        return false;

    const Wide under_root = width_low * width_low + widening * sunk * 2.0;
    const Wide divisor = width_low + (under_root > 0.0 ? sqrt(under_root) : Wide(0.0));
    Wide u = divisor > 0.0 ? sunk * 2.0 / divisor : Wide(0.0);
    u = u < 0.0 ? Wide(0.0) : (u > 1.0 ? Wide(1.0) : u);
    complete(trapezium, low + height * u, found);
    return true;
}

LevelCut::Candidate LevelCut::between_sides(const Trapezium& trapezium) const
{
    Candidate found = {};
    Chord& chord = found.chord;
    // The boundary runs upwards on the inside's right when it runs anticlockwise, on its left otherwise.
    chord.from_side = request_.turn > 0.0 ? trapezium.right : trapezium.left;
    chord.to_side = request_.turn > 0.0 ? trapezium.left : trapezium.right;
    const bool base_above = is_passed(request_.base, chord.from_side, chord.to_side, frame_.size());
    chord.request_after_from = (request_.from_base ? base_above : true) != request_.opposite;
    return found;
}

// The line's ends, and what its place in the order depends on.
void LevelCut::complete(const Trapezium& trapezium, const Wide& level, Candidate& found) const
{
    Chord& chord = found.chord;
    chord.from = on_side(chord.from_side, level);
    chord.to = on_side(chord.to_side, level);

    // What lies ahead of a perpendicular runs along its base side from there.
    const bool on_base = request_.base == chord.from_side;
    const Wide base_middle = (frame_[request_.base].y + frame_at(request_.base + 1).y) * 0.5;
    found.preferred = request_.free || (request_.from_base ? level > 0.0 : on_base);
    found.alone = meets_twice_only(trapezium, level);
    found.distance = abs(level - (request_.free ? begin() : base_middle)).value();
    found.level = level.value();
    found.along = along_at(frame_, trapezium.left, level).value();
}

// A line meets as many sides as have begun and not ended. At the level of a vertex the lines just above and just
// below count instead, as far as they lie in the trapezium.
bool LevelCut::meets_twice_only(const Trapezium& trapezium, const Wide& level) const
{
    const auto up_to = [&level](const std::vector<Wide>& levels) {
        return std::upper_bound(levels.begin(), levels.end(), level) - levels.begin();
    };
    const auto below = [&level](const std::vector<Wide>& levels) {
        return std::lower_bound(levels.begin(), levels.end(), level) - levels.begin();
    };
    const bool just_below = below(low_ends_) - below(high_ends_) == 2;
    const bool just_above = up_to(low_ends_) - up_to(high_ends_) == 2;
    return (just_below && trapezium.low < level) || (just_above && level < trapezium.high);
}

// Of two that are equally good, the lower one, or the one on the left, comes first.
bool LevelCut::is_better(const Candidate& a, const Candidate& b)
{
    if (a.preferred != b.preferred)
        return a.preferred;
    if (a.alone != b.alone)
        return a.alone;
    if (a.distance != b.distance)
        return a.distance < b.distance;
    return a.level != b.level ? a.level < b.level : a.along < b.along;
}

std::vector<Chord> LevelCut::all_lines() const
{
    std::vector<Candidate> all;
    for (const Trapezium& trapezium : trapeziums(frame_)) {
        Candidate found = {};
        if (solve(trapezium, found))
            all.push_back(found);
    }
    return in_order(std::move(all));
}

std::vector<Chord> LevelCut::lines_at(const Wide& level) const
{
    std::vector<Candidate> all;
    for (const Trapezium& trapezium : trapeziums(frame_)) {
        if (level < trapezium.low || level > trapezium.high)
            continue;
        all.push_back(between_sides(trapezium));
        complete(trapezium, level, all.back());
    }
    return in_order(std::move(all));
}

Wide LevelCut::request_area(const Chord& chord, const Wide& level) const
{
    const Wide above = area_above(chord, level);
    return (chord.request_after_from ? above : twice_area_.back() * (0.5 * request_.turn) - above) / up2_;
}

std::vector<AreaRange> LevelCut::areas(const Wide& reach) const
{
    const Wide in_frame = reach * scale();
    const VertexRows rows(frame_, in_frame);
    std::vector<AreaRange> ranges;
    for (const Trapezium& trapezium : trapeziums(frame_)) {
        const Chord chord = between_sides(trapezium).chord;
        const auto is_had = [&](const Wide& level) {
            return !rows.has_between(level, along_at(frame_, trapezium.left, level),
                                     along_at(frame_, trapezium.right, level));
        };
        const AreaRange range = {request_area(chord, trapezium.low), request_area(chord, trapezium.high),
                                 is_had(trapezium.low), is_had(trapezium.high)};
        const bool sinks = range.most < range.least;
        ranges.push_back(sinks ? AreaRange{range.most, range.least, range.most_is_had, range.least_is_had}
                               : range);
    }
    return ranges;
}

std::vector<Chord> LevelCut::in_order(std::vector<Candidate> all)
{
    std::stable_sort(all.begin(), all.end(), is_better);
    std::vector<Chord> lines;
    lines.reserve(all.size());
    for (const Candidate& candidate : all)
        lines.push_back(candidate.chord);
    return lines;
}

// The area of the ring with everything above level 0 cut away. Parts below may then hang together only along level 0,
// which adds no area.
Wide LevelCut::area_below() const
{
    Wide twice;
    for (std::size_t i = 0; i < frame_.size(); ++i) {
        WidePoint a = frame_[i];
        WidePoint b = frame_at(i + 1);
        if (!(a.y < 0.0) && !(b.y < 0.0))
            continue;
        if (a.y > 0.0)
            a = {along_at(frame_, i, 0.0), 0.0};
        if (b.y > 0.0)
            b = {along_at(frame_, i, 0.0), 0.0};
        twice = twice + cross(a, b);
    }
    return twice * (0.5 * request_.turn) / up2_;
}

}  // namespace plparcel
