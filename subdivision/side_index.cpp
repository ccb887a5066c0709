#include "subdivision/side_index.h"

#include <algorithm>

namespace plcalc {

namespace {

// The first position from `at` on for which this does not hold: up while it holds for the wider stretch that begins
// here, on past the stretch, and down to where it ends.
template <class Holds> std::size_t first_without(std::size_t at, std::size_t width, Holds holds) noexcept
{
    std::size_t i = width + at;
    std::size_t size = 1;
    for (;;) {
        while (i % 2 == 0 && holds(i / 2)) {
            i /= 2;
            size *= 2;
        }
        while (!holds(i)) {
            if (size == 1)
                return at;
            i *= 2;
            size /= 2;
        }
        at += size;
        ++i;
        if ((i & (i - 1)) == 0)
            return at;  // that was the last stretch of its step
    }
}

}  // namespace

// Positions that are not there widen nothing.
SideIndex::SideIndex(std::size_t count) : width_(1)
{
    while (width_ < count)
        width_ *= 2;
    nodes_.assign(2 * width_, {INT64_MAX, INT64_MIN});
}

void SideIndex::build() noexcept
{
    for (std::size_t i = width_ - 1; i > 0; --i) {
        const Range& left = nodes_[2 * i];
        const Range& right = nodes_[2 * i + 1];
        nodes_[i] = {std::min(left.low, right.low), std::max(left.high, right.high)};
    }
}

std::size_t SideIndex::end_of(std::size_t at, Place place, const Range& asked) const noexcept
{
    if (place == Place::kBelow)
        return first_without(at, width_, [&](std::size_t i) { return nodes_[i].high < asked.low; });
    return first_without(at, width_, [&](std::size_t i) { return nodes_[i].low > asked.high; });
}

std::size_t SideIndex::end_within(std::size_t at, const Range& wide) const noexcept
{
    return first_without(at, width_, [&](std::size_t i) { return nodes_[i].within(wide); });
}

}  // namespace plcalc
