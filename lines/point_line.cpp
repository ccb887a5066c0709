#include "lines/point_line.h"

// The one call upward in the library: collinearity is judged by the direction angle of arcs/, so that a
// point is in line here exactly when arcs see it in that direction.
#include "plcalc/arcs.h"

#include "kernel/angle_units.h"
#include "kernel/tolerance.h"
#include "lines/implicit_lines.h"
#include "plcalc/lines.h"

namespace {

// Half a turn in radians at fourteen significant digits, deliberately. The cut is 5.9e-13 rad, far inside the
// margin of the comparison. It stays, to keep results comparable between versions.
constexpr double kHalfTurnRad = 3.1415926535892;

// Makes opposite directions equal. Only one half turn is subtracted: a direction just below a full turn comes
// out near half a turn, not near zero.
double fold_half_turn(double dir_rad)
{
    return plcalc::at_least(dir_rad, kHalfTurnRad) ? dir_rad - kHalfTurnRad : dir_rad;
}

}  // namespace

double PlFunz_distpntln_ls(const PL_PNT2D_record* p, const PL_LINE_2D_record* seg) noexcept
{
    const double dx = seg->end.x - seg->start.x;
    const double dy = seg->end.y - seg->start.y;
    PL_IMP_LINE_2D_record line = plcalc::line_along(seg->start, seg->end, dx, dy);
    // A segment up to 3.16e-4 long has no normal form, and the raw line then gives the result, as the contract
    // says. A segment without length has none either, so its length is tested only then.
    if (plcalc::normalise(line) != 0 && plcalc::is_short(dx, dy))
        return plcalc::distance(*p, seg->start);
    return p->y * line.b + p->x * line.a + line.c;
}

bool PlFunz_pnts_in_line(const PL_PNT2D_record* p0, const PL_PNT2D_record* p1,
                         const PL_PNT2D_record* p2) noexcept
{
    const double dir1_rad = fold_half_turn(PlFunz_arcangle(plcalc::kArcAngleRadians, p0, p1));
    const double dir2_rad = fold_half_turn(PlFunz_arcangle(plcalc::kArcAngleRadians, p0, p2));
    return plcalc::is_near(dir1_rad, dir2_rad);
}

bool PlFunz_pnt_in_segbox(const PL_LINE_2D_record* seg, const PL_PNT2D_record* p) noexcept
{
    using plcalc::at_least;
    using plcalc::at_most;

    const double xmin = PlFunz_min_tol(seg->start.x, seg->end.x);
    const double ymin = PlFunz_min_tol(seg->start.y, seg->end.y);
    const double xmax = PlFunz_max_tol(seg->start.x, seg->end.x);
    const double ymax = PlFunz_max_tol(seg->start.y, seg->end.y);
    return at_least(p->x, xmin) && at_most(p->x, xmax) && at_least(p->y, ymin) && at_most(p->y, ymax);
}
