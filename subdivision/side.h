#pragma once

// A side of the working polygon as trial lines meet it: internal, not installed; for subdivision/.

#include "lines/implicit_lines.h"
#include "lines/parallels.h"
#include "survey/side_range.h"

namespace plcalc {

/// The line of a side. For a side without length it is all zeros and meets nothing.
inline PL_IMP_LINE_2D_record side_line(const PL_PNT2D_record& from, const PL_PNT2D_record& to) noexcept
{
    PL_IMP_LINE_2D_record line = {};
    line_between(from, to, line);
    return line;
}

/// Whether a line meets a side, and where, with the bits of IntersezLineaInSegmOK. When it does not, crossing
/// stays as it was.
///
/// @param[in] side      the side's line among the parallels of the trial line
/// @param[in] from, to  its ends
/// @param[in] c         constant term of the trial line
inline bool meets_within(const MeetsParallels& side, const PL_PNT2D_record& from, const PL_PNT2D_record& to,
                         double c, PL_PNT2D_record& crossing) noexcept
{
    if (!side.meets(c))
        return false;
    const double x = side.x_at(c);
    if (!in_side_range(x, from.x, to.x))
        return false;
    const double y = side.y_at(c);
    if (!in_side_range(y, from.y, to.y))
        return false;
    crossing = {x, y};
    return true;
}

}  // namespace plcalc
