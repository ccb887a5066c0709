#pragma once

// Pieces of right-angle offsets, feet and their directions: internal, not installed; for survey/ and subdivision/.

#include "lines/parallels.h"
#include "plcalc/kernel.h"

namespace plcalc {

/// Drops perpendiculars from one point after the other on a line.
///
/// The perpendiculars are parallel to each other, so everything but their constant term is computed once. The
/// feet have the bits of PlFunz_linepntperpend and PlFunz_intersect_ile.
class FeetOnLine {
public:
    explicit FeetOnLine(const PL_IMP_LINE_2D_record& line) noexcept
        : a_(line.a), b_(line.b), perpendiculars_(line, line.b, line.a * -1.0)
    {}

    /// Foot of the perpendicular from pt. A line without direction gives false and leaves foot as it was.
    bool find(const PL_PNT2D_record& pt, PL_PNT2D_record& foot) const noexcept
    {
        const double c = a_ * pt.y - b_ * pt.x;
        if (!perpendiculars_.meets(c))
            return false;
        foot = {perpendiculars_.x_at(c), perpendiculars_.y_at(c)};
        return true;
    }

    /// Whether the line has a direction, so that there are feet.
    bool have_direction() const noexcept { return perpendiculars_.have_direction(); }

private:
    double a_;
    double b_;
    MeetsParallels perpendiculars_;
};

/// Direction from one point to another in gons, counted anticlockwise from +x; 0 for equal points.
double direction_gon(const PL_PNT2D_record& from, const PL_PNT2D_record& to) noexcept;

}  // namespace plcalc
