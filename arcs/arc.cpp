#include "arcs/arc.h"

#include <utility>

#include "kernel/square_root.h"
#include "kernel/tolerance.h"
#include "plcalc/arcs.h"

namespace {

constexpr int kRcCollinear = 5;

// Whether the way from `from` up to `to` passes `via`. All are in radians within one turn, and `from` is below
// `to`.
bool passes(double from, double via, double to)
{
    return plcalc::at_most(via, to) && plcalc::at_least(via, from);
}

// The two end angles, in the order in which the anticlockwise sweep contains the middle point.
std::pair<double, double> sweep_through(double dir1, double dir2, double dir3)
{
    if (plcalc::below(dir1, dir3))
        return passes(dir1, dir2, dir3) ? std::make_pair(dir1, dir3) : std::make_pair(dir3, dir1);
    if (plcalc::above(dir1, dir3))
        return passes(dir3, dir2, dir1) ? std::make_pair(dir3, dir1) : std::make_pair(dir1, dir3);
    return {dir1, dir3};
}

}  // namespace

namespace plcalc {

bool in_sweep(double dir, double start, double end) noexcept
{
    if (below(end, start))
        return !(below(dir, start) && above(dir, end));
    return at_least(dir, start) && at_most(dir, end);
}

}  // namespace plcalc

int PlFunz_arc_3pnts(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2, const PL_PNT2D_record* p3,
                     ARC_2D_record* arc) noexcept
{
    // Relative to p1, so that large coordinates cost no digits.
    const double ax = p2->x - p1->x;
    const double ay = p2->y - p1->y;
    const double bx = p3->x - p1->x;
    const double by = p3->y - p1->y;
    const double cross = ax * by - bx * ay;
    if (plcalc::is_zero(cross))
        return kRcCollinear;

    // The centre is where the perpendicular bisectors meet.
    const double k = PlFunz_inverse(2.0 * cross);
    const double a2 = PlFunz_sumsqrdparms(ax, ay);
    const double b2 = PlFunz_sumsqrdparms(bx, by);
    const double ux = (a2 * by - b2 * ay) * k;
    const double uy = (b2 * ax - a2 * bx) * k;
    const PL_PNT2D_record centre = {p1->x + ux, p1->y + uy};

    const double dir1 = PlFunz_arcangle(plcalc::kArcAngleRadians, &centre, p1);
    const double dir3 = PlFunz_arcangle(plcalc::kArcAngleRadians, &centre, p3);
    const double dir2 = PlFunz_arcangle(plcalc::kArcAngleRadians, &centre, p2);
    const std::pair<double, double> sweep = sweep_through(dir1, dir2, dir3);
    *arc = {centre, plcalc::square_root(uy * uy + ux * ux), PL_RADIANS, sweep.first, sweep.second};
    return 0;
}

void PlFunz_arc_end_pnts(const ARC_2D_record* arc, PL_PNT2D_record* start_point,
                         PL_PNT2D_record* end_point) noexcept
{
    const int unit = plcalc::polar_unit(arc->angle_type);
    PlFunz_pntangledist(unit, &arc->centre, arc->radius, arc->start_angle, start_point);
    PlFunz_pntangledist(unit, &arc->centre, arc->radius, arc->end_angle, end_point);
}
