#include "arcs/arc_distance.h"

#include <cmath>

#include "arcs/arc.h"
#include "kernel/tolerance.h"
#include "plcalc/arcs.h"

double PlFunz_distpntarc_ends(const ARC_2D_record* arc, const PL_PNT2D_record* p) noexcept
{
    PL_PNT2D_record start_point = {};
    PL_PNT2D_record end_point = {};
    PlFunz_arc_end_pnts(arc, &start_point, &end_point);
    const double from_start = PlFunz_distance(p, &start_point);
    const double from_end = PlFunz_distance(p, &end_point);
    return plcalc::below(from_start, from_end) ? from_start : from_end;
}

double PlFunz_distpntarc(const ARC_2D_record* arc, const PL_PNT2D_record* p) noexcept
{
    const double dir = PlFunz_arcangle(plcalc::arcangle_unit(arc->angle_type), &arc->centre, p);
    if (plcalc::in_sweep(dir, arc->start_angle, arc->end_angle))
        return std::fabs(PlFunz_distance(&arc->centre, p) - arc->radius);
    return std::fabs(PlFunz_distpntarc_ends(arc, p));
}
