#pragma once

// Which of many spans hold no other one, from slab to slab.
//
//   slab
//    3    |--------------|        A span stands for a line between two sides of one ring, and is written by the places of
//    2    |----|-----|---|        these in the order of all sides. A line that has another such line within it meets the ring
//    1    |----|-----|---|        of that one twice, and makes more than two pieces: the outer span is open in slab 3 only.
//         L    l     r   R

#include <cstddef>
#include <vector>

namespace plparcel {

struct LineSpan {
    std::size_t left = 0;
    std::size_t right = 0;
    std::size_t first_slab = 0;
    std::size_t last_slab = 0;
};

/// A place between the sides of a slab and the one below it.
struct SpanBreak {
    std::size_t slab = 0;
    std::size_t place = 0;
};

/// From one slab to another a span holds no other one, and passes over no break but at its ends.
struct OpenRun {
    std::size_t span = 0;
    std::size_t first_slab = 0;
    std::size_t last_slab = 0;
};

/// @param[in] spans   in a slab no two of them begin or end at the same place
/// @param[in] breaks  these part the runs of the spans around them
/// @param[in] places  how many there are
/// @return all runs. Costs the logarithm of n for each span, break and run
std::vector<OpenRun> open_runs(const std::vector<LineSpan>& spans, const std::vector<SpanBreak>& breaks,
                               std::size_t places);

}  // namespace plparcel
