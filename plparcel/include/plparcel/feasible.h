#pragma once

/// @file
/// What could be asked instead: the amounts that a line can cut off, and the lines that can cut off an amount.
///
/// A line that makes two pieces does not exist for every amount. The sweep that looks for the line knows all amounts:
///
/// ```cpp
/// const plparcel::Feasible feasible = plparcel::feasible(parcel, plparcel::parallel_to(2));
/// for (const plparcel::AmountRange& range : feasible.ranges)
///     say(range.least, range.most);                                // 0 to 1200, 2900 to 5000
/// const plparcel::NearestAmounts nearest = plparcel::nearest_amounts(feasible.ranges, 2000.0);  // 1200 and 2900
/// ```

#include <cstddef>
#include <optional>
#include <vector>

#include "plparcel/boundary.h"
#include "plparcel/division.h"
#include "plparcel/export.h"
#include "plparcel/line.h"

namespace plparcel {

/// From the least of some amounts to the greatest, without a gap.
struct AmountRange {
    double least = 0.0;  ///< unit squared
    double most = 0.0;   ///< unit squared
    /// Whether the least amount is had itself. It is where the line that holds it ends at a vertex; it is not where that line
    /// touches a vertex on its way, and nothing and all of the parcel are not. A line that touches a corner of a hole has
    /// ranges on both sides of its amount. Beside holes a line next to the one that touches may hold the amount within the
    /// tolerance, and divide() takes it: such an end is not called had, though it is. Where a point inside lies in line
    /// with two vertices, an end that belongs to the line through both may be told either way; and where the area is all
    /// but greatest or least there, a line beside it may hold the amount within the tolerance. Beside holes a line along a
    /// side on which its place lies, or in line with vertices from which the boundary turns back to different sides of it, is
    /// not called had either.
    bool least_is_had = false;
    bool most_is_had = false;  ///< likewise, of the greatest
};

/// What a line can cut off.
struct Feasible {
    std::optional<Status> refusal;  ///< what divide() answers, whatever the amount; then there are no ranges
    std::vector<AmountRange> ranges;  ///< from the smallest amounts on, apart from each other
    double parcel = 0.0;  ///< area of the parcel, unit squared; 0 for a boundary that cannot be used
};

/// The amounts that one line of a kind can cut off a parcel.
///
/// @param[in] parcel    as for divide()
/// @param[in] line      how the line runs
/// @param[in] measured  which piece holds the amount
/// @param[in] pieces    for `any` everything between nothing and the parcel can be had, by lines that have a direction;
///                      through a vertex, a place or a point there is one range
/// @return the ranges. A line through a point inside may run either way, so that both pieces have the same
///
/// Tolerance   divide() accepts a line to a vertex that misses its amount by 1e-9 of the parcel, and by a hundredth of the
///             piece: amounts so near to an end that is had are had as well. Where an end is not had, neither are amounts
///             whose line passes the vertex that it touches within four spacings of doubles. Ranges that lie no further
///             than 1e-9 of the parcel apart are one when one of the two ends is had; shorter ones of which no end is had
///             are left out.
/// Refused     An amount inside a range may still be refused as not_reached, where doubles lie too far apart for it.
/// Exactness   The ends are computed with 106 bits and rounded once. Costs n log n, and n log^2 n beside holes, where
///             each row of vertices that are level but for four spacings takes as many steps as the line there meets
///             sides. Whole lines through a point, and beside holes those that start somewhere or go through a point, cost
///             that only while the sides that a line crosses are few: otherwise n times these at worst.
PLPARCEL_API Feasible feasible(const Parcel& parcel, const Line& line,
                               Measured measured = Measured::from_reference, Pieces pieces = Pieces::two);

/// The amounts nearest to one that cannot be had.
struct NearestAmounts {
    std::optional<double> below;  ///< the greatest that is not above it, unit squared; none if there is none
    std::optional<double> above;  ///< the least that is not below it
    bool below_is_had = false;    ///< otherwise everything up to there is had, but not this amount itself
    bool above_is_had = false;    ///< likewise, from there on
};

/// @param[in] ranges  of feasible()
/// @param[in] amount  unit squared
/// @return the amounts; both are the amount itself where a range has it
PLPARCEL_API NearestAmounts nearest_amounts(const std::vector<AmountRange>& ranges, double amount) noexcept;

/// A line that can cut off an amount.
struct Alternative {
    Line line;                                     ///< how it runs
    Measured measured = Measured::from_reference;  ///< which of its pieces can hold the amount
    AmountRange range;                             ///< the range that the amount lies in
};

/// Lines that can cut off an amount.
struct Alternatives {
    std::optional<Status> refusal;   ///< why there can be none: the boundary, or the amount
    std::vector<Alternative> lines;  ///< in the order in which they were looked at
    std::size_t looked_at = 0;       ///< how many lines were looked at
    std::size_t of = 0;              ///< how many there are; when more than looked_at, the list is not whole
};

/// The sides, perpendiculars and vertices of a parcel that can hold an amount in two pieces, of all its rings.
///
/// @param[in] parcel    as for divide()
/// @param[in] amount    an area, product or share
/// @param[in] measured  which piece should hold it; where only the other one can, Alternative::measured says so
/// @param[in] most      how many lines to look at, at most
/// @return the lines: for each side, the longest first, the parallel and then the perpendicular, and after that the vertices
///         in their order. Neighbours in one straight line are looked at one by one. Each amount lies within its range by
///         more than the tolerance of divide(), and eight spacings of doubles times the parcel's extent
///
/// Degenerate  A width places a line, whatever the amount: unknown_request.
/// Exactness   Costs what feasible() does for each line that is looked at, on a parcel of n vertices 3 n^2 log n for all.
///             So no more lines are looked at than 4,000,000 / n, but four at least: on 1,000 vertices all, on 100,000
///             forty.
PLPARCEL_API Alternatives alternatives_for(const Parcel& parcel, const Amount& amount,
                                           Measured measured = Measured::from_reference,
                                           std::size_t most = static_cast<std::size_t>(-1));

}  // namespace plparcel
