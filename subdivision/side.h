#pragma once

// A side of the working polygon as trial lines meet it: internal, not installed; for subdivision/.

#include "lines/implicit_lines.h"
#include "lines/parallels.h"
#include "survey/side_range.h"

namespace plcalc {

/// The range of a side on both axes, the stake-out margin included.
struct SideBox {
    SideRange x;
    SideRange y;
};

inline SideBox box_between(const PL_PNT2D_record& from, const PL_PNT2D_record& to) noexcept
{
    return {side_range(from.x, to.x), side_range(from.y, to.y)};
}

/// The line of a side; zeros, met by nothing, for one without length.
inline PL_IMP_LINE_2D_record side_line(const PL_PNT2D_record& from, const PL_PNT2D_record& to) noexcept
{
    PL_IMP_LINE_2D_record line = {};
    line_between(from, to, line);
    return line;
}

/// Whether a line meets a side, to the last bit as IntersezLineaInSegmOK has it, and where; crossing stays when
/// it does not.
///
/// @param[in] side  the side's line among the parallels of the trial line
/// @param[in] c     constant term of the trial line
inline bool meets_within(const MeetsParallels& side, double c, const SideBox& box,
                         PL_PNT2D_record& crossing) noexcept
{
    if (!side.meets(c))
        return false;
    const double x = side.x_at(c);
    if (!box.x.holds(x))
        return false;
    const double y = side.y_at(c);
    if (!box.y.holds(y))
        return false;
    crossing = {x, y};
    return true;
}

}  // namespace plcalc
