#pragma once

// Which sides and vertices a parallel comes near: internal, not installed; for subdivision/.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "kernel/bit_order.h"

namespace plcalc {

/// The constants of the parallels that come near each side, in the ring's order, as a pyramid: each step up holds
/// the least and the greatest of two neighbours below. So the next side that a line comes near is found without
/// passing those in between.
///
/// Constants by their ordered bits. A position is out of reach of a range of constants when its own range lies
/// wholly below it or wholly above it.
class SideIndex {
public:
    enum class Place : std::uint8_t { kBelow, kNear, kAbove };

    struct Range {
        std::int64_t low;
        std::int64_t high;

        Place from(const Range& asked) const noexcept
        {
            if (high < asked.low)
                return Place::kBelow;
            return low > asked.high ? Place::kAbove : Place::kNear;
        }

        bool within(const Range& wide) const noexcept { return low >= wide.low && high <= wide.high; }
        bool holds(std::int64_t v) const noexcept { return low <= v && v <= high; }
    };

    /// Room for positions 0 to count - 1.
    explicit SideIndex(std::size_t count);

    /// Notes the range of one position; build() when all are there.
    void note(std::size_t at, const Range& range) noexcept { nodes_[width_ + at] = range; }
    void build() noexcept;

    Place place(std::size_t at, const Range& asked) const noexcept { return nodes_[width_ + at].from(asked); }

    /// The first position from `at` on that is at another place than this one, which is below or above; past the
    /// last one for none.
    std::size_t end_of(std::size_t at, Place place, const Range& asked) const noexcept;

    /// The first position from `at` on whose own range does not lie wholly within another; past the last one for
    /// none.
    std::size_t end_within(std::size_t at, const Range& wide) const noexcept;

private:
    std::size_t width_;         // positions, rounded up to a power of two
    std::vector<Range> nodes_;  // the two below i are at 2 i and 2 i + 1; positions from width_ on
};

}  // namespace plcalc
