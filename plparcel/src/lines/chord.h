#pragma once

// A line that may divide a parcel, as the cuts propose it and the judge sees it.

#include <cstddef>

#include "numbers/wide.h"

namespace plparcel {

/// A segment between two sides of the ring, in the ring's own frame.
///
///            to                 The piece after `from` is bounded by the ring from `from` on to `to` and by
///        +---o------.           the chord. Ring anticlockwise, as here: it lies to the right of from-to.
///       /    |       \          Ring clockwise: to the left.
///      '-----o--------'
///           from   --> ring
struct Chord {
    WidePoint from;
    WidePoint to;
    std::size_t from_side = 0;  ///< the sides that they lie on
    std::size_t to_side = 0;
    bool request_after_from = false;  ///< the piece after `from` is the one that should hold the request
    bool from_stays = false;         ///< `from` was given, as a vertex or by its coordinates, and stays there
    bool beside_the_amount = false;  ///< ends on vertices, and holds the amount not exactly but near enough
};

}  // namespace plparcel
