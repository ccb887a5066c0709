#include "subdivision/side_index.h"

#include <algorithm>

namespace plcalc {

SideIndex::SideIndex(std::size_t count) : width_(1)
{
    while (width_ < count)
        width_ *= 2;
    // Positions beyond the last one do not widen a range.
    ranges_.assign(2 * width_, {INT64_MAX, INT64_MIN});
}

void SideIndex::build() noexcept
{
    for (std::size_t i = width_ - 1; i > 0; --i)
        ranges_[i] = {std::min(ranges_[2 * i].low, ranges_[2 * i + 1].low),
                      std::max(ranges_[2 * i].high, ranges_[2 * i + 1].high)};
}

std::size_t SideIndex::end_of(std::size_t at, Place place, const Range& asked) const noexcept
{
    std::size_t i = width_ + at;
    std::size_t size = 1;
    for (;;) {
        // Moves up while the wider stretch that begins here is at this place too.
        while (i % 2 == 0 && ranges_[i / 2].from(asked) == place) {
            i /= 2;
            size *= 2;
        }
        if (ranges_[i].from(asked) == place) {
            at += size;
            ++i;
            if ((i & (i - 1)) == 0)
                return at;  // past the last stretch of this step, and so past everything
            continue;
        }
        if (size == 1)
            return at;
        i *= 2;
        size /= 2;
    }
}

}  // namespace plcalc
