#pragma once

// What the two pieces of a cut should hold, and how nearly.

#include <algorithm>

#include "wide.h"

namespace plparcel {

struct Target {
    Wide asked;   ///< area of the piece that holds the request, unit squared
    Wide rest;    ///< area of the other piece
    Wide parcel;  ///< area of the whole parcel, of which the tolerance is a part

    /// By how much a piece may miss what it should hold, unit squared.
    double granted(const Wide& piece) const
    {
        // Both pieces hold what they should within this part of the whole parcel.
        constexpr double kOfParcel = 1e-9;
        // And within this part of themselves: of a request of a billionth of the parcel the test above would let
        // pass whatever came out, nothing at all included.
        constexpr double kOfPiece = 0.01;
        return std::min(kOfParcel * parcel.value(), kOfPiece * piece.value());
    }

    /// By how much a line may miss what both should hold.
    double granted() const { return std::min(granted(asked), granted(rest)); }
};

}  // namespace plparcel
