#include "lines/segment_box.h"

#include "kernel/tolerance.h"

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
