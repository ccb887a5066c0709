#include "level_cut.h"

#include <algorithm>

namespace plparcel {
namespace {

// Whether a side of the walk from `from` on to `to` is `side`, the two ends not counted.
bool is_passed(std::size_t side, std::size_t from, std::size_t to, std::size_t n)
{
    const std::size_t way = (side + n - from) % n;
    return way != 0 && way < (to + n - from) % n;
}

// Half a unit in the last place of 106 bits, with room: an area that far outside a slab is on its rim.
constexpr double kRim = 1e-28;

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
}

Wide LevelCut::along_at(std::size_t side, const Wide& level) const
{
    const WidePoint& a = frame_[side];
    const WidePoint& b = frame_at(side + 1);
    return a.x + (b.x - a.x) * ((level - a.y) / (b.y - a.y));
}

WidePoint LevelCut::on_side(std::size_t side, const Wide& level) const
{
    const WidePoint& a = frame_[side];
    const WidePoint& b = frame_at(side + 1);
    const WidePoint& p = ring_.at(side);
    return p + (ring_.at(side + 1) - p) * ((level - a.y) / (b.y - a.y));
}

std::vector<Wide> LevelCut::sorted_levels() const
{
    std::vector<Wide> levels;
    for (const WidePoint& v : frame_)
        levels.push_back(v.y);
    std::sort(levels.begin(), levels.end());
    return levels;
}

// No vertex lies between the two levels.
std::vector<LevelCut::Span> LevelCut::spans(const Wide& low, const Wide& high) const
{
    const Wide middle = low + (high - low) * 0.5;
    if (!(low < middle) || !(middle < high))
        return {};
    struct Crossing {
        std::size_t side;
        Wide along;
    };
    std::vector<Crossing> found;
    for (std::size_t side = 0; side < frame_.size(); ++side)
        if ((frame_[side].y < middle) != (frame_at(side + 1).y < middle))
            found.push_back({side, along_at(side, middle)});
    std::sort(found.begin(), found.end(),
              [](const Crossing& a, const Crossing& b) { return a.along < b.along; });

    std::vector<Span> row;
    for (std::size_t i = 0; i + 1 < found.size(); i += 2)
        row.push_back({found[i].side, found[i + 1].side});
    return row;
}

// Twice the sum of the walk from `from` along the ring to `to` and straight back.
Wide LevelCut::area_above(const Chord& chord, const Wide& level) const
{
    const std::size_t n = frame_.size();
    const std::size_t first = (chord.from_side + 1) % n;
    const std::size_t last = chord.to_side;
    const WidePoint from = {along_at(chord.from_side, level), level};
    const WidePoint to = {along_at(chord.to_side, level), level};
    Wide walk = twice_area_[last] - twice_area_[first];
    if (last < first)
        walk = walk + twice_area_[n];
    const Wide twice = cross(from, frame_[first]) + walk + cross(frame_[last], to) + cross(to, from);
    return twice * (0.5 * request_.turn);
}

// The area above sinks from the one at `low` by the trapezium below the line:
//     width_low * u + (width_high - width_low) * u^2 / 2 = sunk / height,    u = (level - low) / height
// and the root is written so that nothing is subtracted from its like.
bool LevelCut::solve(const Span& span, const Wide& low, const Wide& high, Candidate& found) const
{
    Chord& chord = found.chord;
    // The boundary runs upwards on the inside's right when it runs anticlockwise, on its left otherwise.
    chord.from_side = request_.turn > 0.0 ? span.right : span.left;
    chord.to_side = request_.turn > 0.0 ? span.left : span.right;
    const bool base_above = is_passed(request_.base, chord.from_side, chord.to_side, frame_.size());
    chord.request_after_from = (request_.from_base ? base_above : true) != request_.opposite;

    const Wide wanted = (chord.request_after_from ? request_.request : request_.rest) * up2_;
    const Wide height = high - low;
    const Wide width_low = along_at(span.right, low) - along_at(span.left, low);
    const Wide width_high = along_at(span.right, high) - along_at(span.left, high);
    const Wide widening = width_high - width_low;
    const Wide sunk = (area_above(chord, low) - wanted) / height;
    const Wide rim = (width_low + width_high) * kRim;
    if (sunk < -rim || sunk > (width_low + width_high) * 0.5 + rim)
        return false;

    const Wide under_root = width_low * width_low + widening * sunk * 2.0;
    const Wide divisor = width_low + (under_root > 0.0 ? sqrt(under_root) : Wide(0.0));
    Wide u = divisor > 0.0 ? sunk * 2.0 / divisor : Wide(0.0);
    u = u < 0.0 ? Wide(0.0) : (u > 1.0 ? Wide(1.0) : u);
    const Wide level = low + height * u;
    chord.from = on_side(chord.from_side, level);
    chord.to = on_side(chord.to_side, level);

    const bool on_base = request_.base == chord.from_side || request_.base == chord.to_side;
    const Wide base_middle = (frame_[request_.base].y + frame_at(request_.base + 1).y) * 0.5;
    found.preferred = request_.from_base ? level > 0.0 : on_base;
    found.distance = abs(level - base_middle);
    return true;
}

std::vector<Chord> LevelCut::all_lines() const
{
    const std::vector<Wide> levels = sorted_levels();
    std::vector<Candidate> all;
    for (std::size_t i = 0; i + 1 < levels.size(); ++i) {
        const std::vector<Span> row = spans(levels[i], levels[i + 1]);
        for (const Span& span : row) {
            Candidate found = {};
            found.alone = row.size() == 1;
            if (solve(span, levels[i], levels[i + 1], found))
                all.push_back(found);
        }
    }
    std::stable_sort(all.begin(), all.end(), [](const Candidate& a, const Candidate& b) {
        if (a.preferred != b.preferred)
            return a.preferred;
        if (a.alone != b.alone)
            return a.alone;
        return a.distance < b.distance;
    });
    std::vector<Chord> lines;
    lines.reserve(all.size());
    for (const Candidate& candidate : all)
        lines.push_back(candidate.chord);
    return lines;
}

// The ring with what is above taken off; a part that hangs together only along level 0 adds nothing there.
Wide LevelCut::area_below() const
{
    Wide twice;
    for (std::size_t i = 0; i < frame_.size(); ++i) {
        WidePoint a = frame_[i];
        WidePoint b = frame_at(i + 1);
        if (!(a.y < 0.0) && !(b.y < 0.0))
            continue;
        if (a.y > 0.0)
            a = {along_at(i, 0.0), 0.0};
        if (b.y > 0.0)
            b = {along_at(i, 0.0), 0.0};
        twice = twice + cross(a, b);
    }
    return twice * (0.5 * request_.turn) / up2_;
}

}  // namespace plparcel
