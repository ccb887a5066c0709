#pragma once

// What the two pieces of a cut should hold, and how nearly.

#include <algorithm>

#include "numbers/wide.h"

namespace plparcel {

/// The tolerance of a line with all its digits, as a part of the parcel.
constexpr double kAsExactAsDoubles = 1e-9;

struct Target {
    Wide asked;   ///< area of the piece that holds the request, unit squared
    Wide rest;    ///< area of the other piece
    Wide parcel;  ///< area of the whole parcel, of which the tolerance is a part
    /// Both pieces hold what they should within this part of the whole parcel.
    double of_parcel = kAsExactAsDoubles;

    /// By how much a piece may miss what it should hold, unit squared.
    double granted(const Wide& piece) const
    {
        // Within this part of themselves: for a request of a billionth of the parcel the part of the parcel alone
        // would accept any piece, even an empty one.
        constexpr double kOfPiece = 0.01;
        return std::min(of_parcel * parcel.value(), kOfPiece * piece.value());
    }

    /// By how much a line may miss what both should hold.
    double granted() const { return granted(std::min(asked, rest)); }
};

}  // namespace plparcel
