#pragma once

/// @file
/// Heights of points on a parcel's boundary, from those of its vertices.
///
/// Parcels are divided in the plane. Where the vertices have heights, the ends of the lines get theirs from the sides on
/// which they lie:
///
/// ```cpp
/// const plparcel::Heights heights(lot, {112.4, 113.0, 113.1, 112.2}, division.decimals);
/// for (const PL_PNT2D_record& corner : division.pieces[0].ring)
///     stake_out(corner, heights.at(corner));
/// ```

#include <memory>
#include <optional>
#include <vector>

#include "plparcel/boundary.h"
#include "plparcel/export.h"

namespace plparcel {

/// Tells the height of any point on a boundary whose vertices have heights. The same serves for any other number that
/// vertices have, such as the measures of a GIS.
class Heights {
public:
    /// @param[in] parcel    any rings; not kept
    /// @param[in] heights   of the vertices of the outer ring, then of each hole, in their order and in any unit. NaN, an
    ///                      infinite one, and one that is missing at the end of the list: the vertex has none
    /// @param[in] decimals  of the points that will be asked for: Division::decimals; none: they have all their digits
    /// @param[in] off_boundary  how far they may lie off it for another reason, such as the distance of SharedSides; caller's unit
    ///
    /// Cost        n log n.
    PLPARCEL_API Heights(const Parcel& parcel, const std::vector<double>& heights,
                         const std::optional<int>& decimals = std::nullopt, double off_boundary = 0.0);

    /// A vertex has its own height, the first of those that lie at the same place. Between two vertices the height changes
    /// evenly along the side. May be called by several threads at the same time.
    ///
    /// @param[in] p  a point of the boundary, up to the rounding of its coordinates
    /// @return the height in the unit of those handed over; nothing where the vertex, or an end of the side, has none, and
    ///         for a point that is not on the boundary
    ///
    /// Tolerance   A point no farther from the nearest side than off_boundary, than a unit of its last decimal, than
    ///             0.001, and than a millionth of the outer ring's extent, whichever is most, lies on it. Of sides that are equally near, the first
    ///             counts. A point beyond both ends has the height of the nearer one.
    /// Degenerate  A side with a coordinate that is not finite, and a point with one, have no heights.
    PLPARCEL_API std::optional<double> at(const PL_PNT2D_record& p) const;

private:
    class Index;
    std::shared_ptr<const Index> index_;
};

}  // namespace plparcel
