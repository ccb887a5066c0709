#pragma once

// Heights of the points of a parcel's boundary.

#include <cstddef>
#include <optional>
#include <vector>

#include "answers/printed_division.h"
#include "answers/question.h"

namespace tool {

/// The point of a side that is nearest to another point.
struct Foot {
    double part;      ///< of the side, from its first end: 0 to 1
    double distance;  ///< from the other point

    /// Its height, which changes evenly along the side; at an end, the height of the other end does not matter.
    ///
    /// @param[in] from, to  the heights of the side's ends, NaN for one without
    double height(double from, double to) const;
};

Foot foot_on(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p);

/// Tells the height of any point on a boundary whose vertices have heights. It refers to the parcel, which must
/// outlive it.
class Heights {
public:
    /// @param[in] decimals  of the points that are asked for; none: as many as printed_division.h says
    explicit Heights(const Parcel& parcel, const std::optional<int>& decimals = std::nullopt);

    /// Of a division: the ends of its lines and points of neighbours may lie as far off a side as they do in the answer.
    explicit Heights(const Answer& answer);

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
