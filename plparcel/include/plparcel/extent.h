#pragma once

/// @file
/// The box around a parcel, and the spacing of doubles where it lies.

#include "plparcel/boundary.h"

namespace plparcel {

/// The upright box around a ring.
struct Extent {
    PL_PNT2D_record low = {};   ///< south-west corner
    PL_PNT2D_record high = {};  ///< north-east corner

    /// @return extent from West to East, caller's unit
    PLPARCEL_API double width() const noexcept;

    /// @return extent from South to North, caller's unit
    PLPARCEL_API double height() const noexcept;

    /// @return the larger of the two, caller's unit
    PLPARCEL_API double largest() const noexcept;
};

/// @param[in] ring  any ring of finite coordinates
/// @return the box around it, exactly; for no vertices an empty one at the origin
PLPARCEL_API Extent extent_of(const Ring& ring) noexcept;

/// @param[in] ring  any ring of finite coordinates
/// @return the largest coordinate, by magnitude, times 2^-52, caller's unit: neighbouring doubles of that size are
///         that far apart, or half as far. 0 for no vertices.
PLPARCEL_API double coordinate_spacing(const Ring& ring) noexcept;

}  // namespace plparcel
