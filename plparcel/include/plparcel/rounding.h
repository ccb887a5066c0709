#pragma once

/// @file
/// A dividing line as it is staked out: with so many decimals.

#include <optional>

#include "plparcel/export.h"

namespace plparcel {

/// A number with more decimals is not written with decimals, but with all its digits.
constexpr int kMostDecimals = 17;

/// @param[in] value     any number below 1e280
/// @param[in] decimals  0 to kMostDecimals
/// @return the double nearest to the decimal number that is nearest to the value; of two as near, the one whose last
///         decimal is even. It is the value printed with so many decimals and read again, but never -0.
///
/// Exactness   Rounded once from the value itself, in whole steps of the last decimal. 1.005 lies below the middle
///             of 1.00 and 1.01, as doubles go, and becomes 1.0.
PLPARCEL_API double rounded_to(double value, int decimals) noexcept;

/// How a division is written down.
///
/// Without decimals the ends of its lines have all the digits of a double, and every amount is held within 1e-9 of the
/// parcel. With decimals the ends are rounded first, because the rounded line is the one that is staked
/// out: pieces and areas are those of the rounded ends, and the tolerance is the one stated here.
struct Rounding {
    /// Of the ends of all segments, 0 to 17: each coordinate is the double nearest to a decimal number of so many
    /// decimals. None: all digits.
    std::optional<int> decimals;
    /// By how much an amount may be missed, as a part of the parcel: above 0, at most 0.01. Without effect where there
    /// are no decimals. An amount must also be held within a hundredth of itself.
    double tolerance = 1e-6;
};

}  // namespace plparcel
