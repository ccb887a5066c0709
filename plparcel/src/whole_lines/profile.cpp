#include "whole_lines/profile.h"

#include <algorithm>
#include <numeric>

namespace plparcel {
namespace {

Wide along_side(const std::vector<WidePoint>& frame, std::size_t from, std::size_t to, const Wide& level)
{
    const WidePoint& a = frame[from];
    const WidePoint& b = frame[to];
    return a.x + (b.x - a.x) * ((level - a.y) / (b.y - a.y));
}

Wide between(const Wide& low, const Wide& high, const Wide& part)
{
    return low + (high - low) * part;
}

}  // namespace

Profile::Profile(const JoinedRings& rings, const std::vector<WidePoint>& frame)
    : frame_(frame), order_(frame.size())
{
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    std::stable_sort(order_.begin(), order_.end(),
                     [&frame](std::size_t a, std::size_t b) { return frame[a].y < frame[b].y; });
    for (const std::size_t vertex : order_)
        if (levels_.empty() || levels_.back() < frame[vertex].y)
            levels_.push_back(frame[vertex].y);
    while (leaves_ + 1 < levels_.size())
        leaves_ *= 2;

    std::vector<Cover> covers;
    for (std::size_t side = 0; side < frame.size(); ++side)
        cover(side, rings, covers);
    sum_up(covers, rings);
    sum_down();

    below_.resize(levels_.size());
    for (std::size_t slab = 0; slab + 1 < levels_.size(); ++slab) {
        const Wide width = (low_[leaves_ + slab] + high_[leaves_ + slab]) * 0.5;
        const Wide grown = (levels_[slab + 1] - levels_[slab]) * width;
        below_[slab + 1] = below_[slab] + std::max(grown, Wide(0.0));
    }
}

// The nodes that together are all slabs that a side reaches over.
void Profile::cover(std::size_t side, const JoinedRings& rings, std::vector<Cover>& covers)
{
    const std::size_t one = index_of(frame_[side].y);
    const std::size_t other = index_of(frame_[rings.next(side)].y);
    std::size_t begin = std::min(one, other) + leaves_;
    std::size_t end = std::max(one, other) + leaves_;
    for (; begin < end; begin /= 2, end /= 2) {
        if (begin % 2 == 1)
            covers.push_back({begin++, side});
        if (end % 2 == 1)
            covers.push_back({--end, side});
    }
}

void Profile::sum_up(const std::vector<Cover>& covers, const JoinedRings& rings)
{
    first_.assign(2 * leaves_ + 1, 0);
    for (const Cover& c : covers)
        ++first_[c.node + 1];
    std::partial_sum(first_.begin(), first_.end(), first_.begin());
    std::vector<std::size_t> place(first_.begin(), first_.end() - 1);
    sides_.resize(covers.size());
    low_.resize(2 * leaves_);
    high_.resize(2 * leaves_);
    for (const Cover& c : covers) {
        sides_[place[c.node]++] = c.side;
        std::size_t begin = c.node;
        std::size_t end = c.node + 1;
        for (; begin < leaves_; begin *= 2, end *= 2) {
        }
        const std::size_t next = rings.next(c.side);
        const Wide low = along_side(frame_, c.side, next, rim(begin - leaves_));
        const Wide high = along_side(frame_, c.side, next, rim(end - leaves_));
        // A boundary that rises has the inside on its left.
        const bool right = frame_[c.side].y < frame_[next].y;
        low_[c.node] = right ? low_[c.node] + low : low_[c.node] - low;
        high_[c.node] = right ? high_[c.node] + high : high_[c.node] - high;
    }
}

// Each node hands what it holds to its two halves.
void Profile::sum_down()
{
    for (std::size_t node = 1; node < leaves_; ++node) {
        std::size_t begin = node;
        std::size_t middle = 2 * node + 1;
        std::size_t end = node + 1;
        for (; begin < leaves_; begin *= 2, end *= 2) {
        }
        for (; middle < leaves_; middle *= 2) {
        }
        const Wide& low = rim(begin - leaves_);
        const Wide& high = rim(end - leaves_);
        if (!(low < high))
            continue;  // beyond the highest level
        const Wide part = (rim(middle - leaves_) - low) / (high - low);
        const Wide at_middle = between(low_[node], high_[node], part);
        low_[2 * node] = low_[2 * node] + low_[node];
        high_[2 * node] = high_[2 * node] + at_middle;
        low_[2 * node + 1] = low_[2 * node + 1] + at_middle;
        high_[2 * node + 1] = high_[2 * node + 1] + high_[node];
    }
}

std::size_t Profile::index_of(const Wide& level) const
{
    return static_cast<std::size_t>(std::lower_bound(levels_.begin(), levels_.end(), level) -
                                    levels_.begin());
}

// The slab that a level lies in; at a rim the one below.
std::size_t Profile::slab_of(const Wide& level) const
{
    return std::clamp<std::size_t>(index_of(level), 1, levels_.size() - 1) - 1;
}

Wide Profile::width_at(const Wide& level) const
{
    const std::size_t slab = slab_of(level);
    const Wide part = (level - levels_[slab]) / (levels_[slab + 1] - levels_[slab]);
    return between(low_[leaves_ + slab], high_[leaves_ + slab], part);
}

Wide Profile::area_below(const Wide& level) const
{
    if (!(level > levels_.front()))
        return 0.0;
    if (!(level < levels_.back()))
        return below_.back();
    const std::size_t slab = slab_of(level);
    return below_[slab] + (level - levels_[slab]) * (low_[leaves_ + slab] + width_at(level)) * 0.5;
}

// Within a slab the area grows by
//     width_low * u + (width_high - width_low) * u^2 / 2 = grown / height,    u = (level - low) / height
// and the root is written so that no two nearly equal numbers are subtracted.
Wide Profile::level_of(const Wide& area) const
{
    const auto above = std::lower_bound(below_.begin() + 1, below_.end(), area);
    if (above == below_.end())
        return levels_.back();
    const std::size_t slab = static_cast<std::size_t>(above - below_.begin()) - 1;
    const Wide height = levels_[slab + 1] - levels_[slab];
    const Wide& low = low_[leaves_ + slab];
    const Wide widening = high_[leaves_ + slab] - low;
    const Wide grown = (area - below_[slab]) / height;
    const Wide u = grown * 2.0 / (low + sqrt(low * low + widening * grown * 2.0));
    return u < 1.0 ? levels_[slab] + height * u : levels_[slab + 1];
}

std::vector<std::size_t> Profile::sides_at(const Wide& level) const
{
    std::vector<std::size_t> found;
    for (std::size_t node = leaves_ + slab_of(level); node > 0; node /= 2)
        for (std::size_t i = first_[node]; i < first_[node + 1]; ++i)
            found.push_back(sides_[i]);
    return found;
}

std::vector<std::size_t> Profile::vertices_between(const Wide& low, const Wide& high) const
{
    std::vector<std::size_t> found;
    auto place =
        std::lower_bound(order_.begin(), order_.end(), low,
                         [this](std::size_t vertex, const Wide& level) { return frame_[vertex].y < level; });
    for (; place != order_.end() && !(frame_[*place].y > high); ++place)
        found.push_back(*place);
    return found;
}

}  // namespace plparcel
