#pragma once

// Heights of the points of a parcel's boundary.

#include <optional>
#include <vector>

#include "answers/printed_division.h"
#include "answers/question.h"
#include "plparcel/heights.h"

namespace tool {

/// Which of the vertices that were looked at have heights.
class KnownHeights {
public:
    /// Those of some vertices, NaN for one without; an empty list stands for vertices that have none.
    void add(const std::vector<double>& heights);

    void add(const KnownHeights& others);

    /// Whether any vertex has one.
    bool any() const { return any_; }

    /// Whether every vertex has one.
    bool all() const { return any_ && !lacking_; }

    /// Whether some have one and others have none.
    bool partly() const { return any_ && lacking_; }

private:
    bool any_ = false;
    bool lacking_ = false;
};

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

/// Tells the height of any point on a boundary whose vertices have heights: plparcel::Heights, of a parcel that may have none.
class Heights {
public:
    /// @param[in] decimals  of the points that are asked for; none: they have all their digits
    explicit Heights(const Parcel& parcel, const std::optional<int>& decimals = std::nullopt);

    /// Of a division: the ends of its lines and points of neighbours may lie as far off a side as they do in the answer.
    explicit Heights(const Answer& answer);

    /// Whether the parcel has heights at all.
    bool any() const { return known_.has_value(); }

    /// As plparcel::Heights::at(); nothing where the parcel has no heights.
    std::optional<double> at(const PL_PNT2D_record& p) const;

    /// Those of several points; nothing unless all have one.
    std::optional<std::vector<double>> at_all(const std::vector<PL_PNT2D_record>& points) const;

private:
    Heights(const Parcel& parcel, const std::optional<int>& decimals, double off_boundary);

    std::optional<plparcel::Heights> known_;
};

}  // namespace tool
