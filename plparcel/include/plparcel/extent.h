#pragma once

/// @file
/// How large a parcel's numbers are: the box around it, and the room between two doubles where it lies.

#include "plparcel/division.h"

namespace plparcel {

/// The upright box around a ring.
struct Extent {
    PL_PNT2D_record low = {};   ///< south-west corner
    PL_PNT2D_record high = {};  ///< north-east corner

    /// @return how far it reaches from West to East, caller's unit
    PLPARCEL_API double width() const noexcept;

    /// @return how far it reaches from South to North, caller's unit
    PLPARCEL_API double height() const noexcept;

    /// @return the larger of the two, caller's unit
    PLPARCEL_API double largest() const noexcept;
};

/// @param[in] ring  any ring of finite coordinates
/// @return the box around it, exactly; at the origin for no vertices
PLPARCEL_API Extent extent_of(const Ring& ring) noexcept;

/// @param[in] ring  any ring of finite coordinates
/// @return the largest coordinate times 2^-52, caller's unit: doubles of that size lie so far apart, or half as
///         far. 0 for no vertices.
PLPARCEL_API double coordinate_spacing(const Ring& ring) noexcept;

}  // namespace plparcel
