#pragma once

// Whole straight lines through a point that have an area on their left.

#include <functional>
#include <optional>
#include <vector>

#include "numbers/wide.h"
#include "whole_lines/turning_profile.h"

namespace plparcel {

/// Part of all triangles together, see TurningProfile::scale(): an area that misses by no more than this is held.
constexpr double kHeldExactly = 1e-28;

struct TurningLine {
    WidePoint direction;
    bool beside_the_amount = false;  ///< holds the area not exactly but near enough
};

/// What is asked of the lines. Areas are those of the profile.
struct TurningRequest {
    Wide left;     ///< area on the left of the line
    Wide granted;  ///< by how much a line may miss it
    bool full_turn =
        true;  ///< otherwise half a turn, its two ends included: they are one line, run either way
};

/// First those that hold the area, as the line turns anticlockwise from the profile's first direction on; then those
/// through a vertex, or at which the area is greatest or least, that miss it by no more than is granted, in the same order.
/// Where the area stays as the line turns, the lines through vertices and one between each two of them stand for all.
///
/// Half turns and, of these, ranges of directions are left out as a whole where what they sweep is less than the area
/// misses. Between two vertices the area is developed in powers of the way, of which 16 are computed and the rest
/// estimated, so that it has no root there, or grows or falls throughout; otherwise the range is halved.
///
/// Costs n log n, and for each range of directions that is not left out the number of sides that a line meets there.
///
/// @param[in] take  told of one line after another; true ends the search
void turning_lines(const TurningProfile& profile, const TurningRequest& request,
                   const std::function<bool(const TurningLine&)>& take);

/// Where a function of the way between two directions next to each other is zero.
struct TurningZeros {
    std::vector<Wide> exact;  ///< on the way from 0 to 1, those within; for a range of zeros one
    std::optional<Wide>
        nearest;  ///< where it comes nearest to zero and turns back, if by no more than is granted
    Wide miss;    ///< by which it misses there
};

/// @param[in] terms    the function grows by these
/// @param[in] begin    its value at the first direction
/// @param[in] end      and at the second
/// @param[in] scale    what rounding errors are measured by, see TurningProfile::scale()
TurningZeros turning_zeros(std::vector<TurningProfile::Term> terms, const Wide& begin, const Wide& end,
                           const Wide& scale, const Wide& granted);

/// The least and the greatest area on the left of the line.
struct LeastAndMost {
    Wide least;
    Wide most;
};

/// The same between two directions next to each other.
///
/// @param[in] terms  the area grows by these
/// @param[in] begin  the area at the first direction
/// @param[in] end    and at the second
/// @param[in] scale  what rounding errors are measured by, see TurningProfile::scale()
LeastAndMost least_and_most_between(std::vector<TurningProfile::Term> terms, const Wide& begin,
                                    const Wide& end, const Wide& scale);

/// @param[in] full_turn  see TurningRequest
LeastAndMost least_and_most(const TurningProfile& profile, bool full_turn);

}  // namespace plparcel
