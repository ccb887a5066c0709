#pragma once

// What the two pieces of a cut should hold, and how nearly.

#include <algorithm>

#include "numbers/wide.h"

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
        // And within this part of themselves: for a request of a billionth of the parcel the test above alone would
        // accept any piece, even an empty one.
        constexpr double kOfPiece = 0.01;
        return std::min(kOfParcel * parcel.value(), kOfPiece * piece.value());
    }

    /// By how much a line may miss what both should hold.
    double granted() const { return std::min(granted(asked), granted(rest)); }
};

}  // namespace plparcel
