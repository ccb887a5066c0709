#pragma once

// Heights of the points of a parcel's boundary.

#include <cstddef>
#include <optional>
#include <vector>

#include "answers/question.h"

namespace tool {

/// Tells the height of any point on a boundary whose vertices have heights. It refers to the parcel, which must
/// outlive it.
class Heights {
public:
    /// @param[in] decimals  of the points that are asked for; none: as many as printed_division.h says
    explicit Heights(const Parcel& parcel, const std::optional<int>& decimals = std::nullopt);

    /// A vertex has its own. Between two vertices the height changes evenly along the side.
    ///
    /// @param[in] p  a point of the boundary, up to the rounding of its coordinates
    /// @return nothing where the vertex, or an end of the side, has no height, and for a point inside
    std::optional<double> at(const PL_PNT2D_record& p) const;

    /// Those of several points; nothing unless all have one.
    std::optional<std::vector<double>> at_all(const std::vector<PL_PNT2D_record>& points) const;

private:
    const Parcel& parcel_;
    Corners corners_;
    double reach_ = 0.0;                 // of a side, for points whose coordinates are rounded
    std::vector<std::size_t> by_place_;  // the vertices in the order of their coordinates
};

}  // namespace tool
