#include "lines/area_ranges.h"

#include <algorithm>

namespace plparcel {
namespace {

// Of 106 bits, all but those that a sum over the boundary may use up.
constexpr double kRim = 1e-24;

bool is_same(const Wide& a, const Wide& b, const Wide& rim)
{
    return !(abs(a - b) > rim);
}

// Ends no further apart than what is granted stand for each other.
void extend(AreaRange& range, const AreaRange& by, const Wide& granted)
{
    if (is_same(range.least, by.least, granted))
        range.least_is_had = range.least_is_had || by.least_is_had;
    if (is_same(range.most, by.most, granted))
        range.most_is_had = range.most_is_had || by.most_is_had;
    else if (by.most > range.most)
        range.most_is_had = by.most_is_had;
    if (by.most > range.most)
        range.most = by.most;
}

// Whether no amount between two ranges is out of reach, the second beginning no earlier.
bool follows(const AreaRange& range, const AreaRange& next, const Wide& granted)
{
    const Wide gap = next.least - range.most;
    return range.most_is_had || next.least_is_had ? !(gap > granted) : gap < -granted;
}

}  // namespace

std::vector<AreaRange> united(std::vector<AreaRange> ranges, const Wide& whole, const Wide& granted)
{
    const Wide rim = whole * kRim;
    const auto is_short = [&](const AreaRange& range) { return !(range.most - range.least > granted); };
    const auto holds_none = [&](const AreaRange& range) {
        return !(range.most > rim) || !(range.least < whole - rim) ||
               (is_short(range) && !range.least_is_had && !range.most_is_had);
    };
    ranges.erase(std::remove_if(ranges.begin(), ranges.end(), holds_none), ranges.end());
    for (AreaRange& range : ranges) {
        if (is_short(range))
            range.least_is_had = range.most_is_had = true;  // the one end stands for the other
        if (!(range.least > rim))
            range = {0.0, range.most, false, range.most_is_had};
        if (!(range.most < whole - rim))
            range = {range.least, whole, range.least_is_had, false};
    }
    std::sort(ranges.begin(), ranges.end(), [](const AreaRange& a, const AreaRange& b) {
        return a.least < b.least || (!(b.least < a.least) && a.most < b.most);
    });
    std::vector<AreaRange> apart;
    for (AreaRange& range : ranges) {
        if (!apart.empty() && follows(apart.back(), range, granted)) {
            extend(apart.back(), range, granted);
            continue;
        }
        if (!apart.empty() && range.least < apart.back().most)
            range.least = apart.back().most;  // by less than what is granted
        apart.push_back(range);
    }
    return apart;
}

std::vector<AreaRange> of_other_piece(const std::vector<AreaRange>& ranges, const Wide& whole)
{
    std::vector<AreaRange> others;
    for (auto range = ranges.rbegin(); range != ranges.rend(); ++range)
        others.push_back(
            {whole - range->most, whole - range->least, range->most_is_had, range->least_is_had});
    return others;
}

}  // namespace plparcel
