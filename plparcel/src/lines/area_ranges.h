#pragma once

// Areas that lines of one kind can cut off.

#include <vector>

#include "numbers/wide.h"

namespace plparcel {

/// From the one to the other, without a gap. An end is had unless the line that holds it touches the boundary on its way.
struct AreaRange {
    Wide least;
    Wide most;
    bool least_is_had = true;
    bool most_is_had = true;
};

/// The ranges in their order, apart from each other, between nothing and the whole.
///
/// @param[in] ranges   in any order, overlapping or not
/// @param[in] whole    neither nothing nor this is had; what comes beside either for the roundings of 106 bits is that
/// @param[in] granted  by how much a line to a vertex may miss an area: ranges no further apart are one where one of the two
///                     ends is had; shorter ones of which no end is had are left out
std::vector<AreaRange> united(std::vector<AreaRange> ranges, const Wide& whole, const Wide& granted);

/// What the other piece holds.
std::vector<AreaRange> of_other_piece(const std::vector<AreaRange>& ranges, const Wide& whole);

}  // namespace plparcel
