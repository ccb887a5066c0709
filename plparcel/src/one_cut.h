#pragma once

// One cut: tries the lines of the kind that hold the amount, and keeps the first that the judge lets pass.

#include <cstddef>

#include "boundary/measured_ring.h"
#include "plparcel/division.h"
#include "verdict/judge.h"

namespace plparcel {

/// One cut of a series: what is left of the parcel, and from where the next amount is measured.
struct Stage {
    MeasuredRing ring;
    Cut cut = Cut::parallel;
    std::size_t index = 0;  ///< side or vertex of `ring`
    Measured measured = Measured::from_reference;
    bool ask_library = false;
};

/// The side of the whole parcel that all lines of a series take their direction from; without effect through a
/// vertex.
struct Reference {
    Cut cut;
    PL_PNT2D_record a;
    PL_PNT2D_record b;
};

/// One cut, made or not.
struct Attempt {
    Status status = Status::line_leaves_parcel;
    Cutting cutting;
    DividingLine line;
    BareAnswer bare;
    std::size_t trials = 0;
};

/// @param[in] stage      a simple ring, a side of it that has length, or a vertex
/// @param[in] reference  where the line's direction comes from
/// @param[in] target     what it should cut off
Attempt make_cut(const Stage& stage, const Reference& reference, const Target& target);

}  // namespace plparcel
