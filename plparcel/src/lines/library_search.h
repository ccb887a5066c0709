#pragma once

// CFrazArea's own answer, asked for where it answers best.

#include <cstddef>

#include "boundary/local_ring.h"
#include "plparcel/division.h"

namespace plparcel {

/// What is asked of CFrazArea.
struct SearchRequest {
    Cut cut;
    std::size_t start;  ///< the vertex, or the side's first end
    double area;        ///< measured from the reference; unit squared
};

/// Moves the parcel to a local origin, scales it, turns its side onto an axis, and calls.
///
/// @param[in]  ring    a simple ring
/// @param[in]  local   the same ring in its own frame
/// @param[in]  wanted  what to search for
/// @param[out] line    the answer in that frame, not turned; unproven
/// @return what Esegui returned
bool search_line(const MeasuredRing& ring, const LocalRing& local, const SearchRequest& wanted,
                 PL_LINE_2D_record& line);

}  // namespace plparcel
