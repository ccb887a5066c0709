#include "arcs/arc_rect.h"

#include "arcs/arc_angle.h"
#include "kernel/angle_units.h"
#include "kernel/tolerance.h"
#include "plcalc/arcs.h"

namespace {

int quadrant_from(const PL_PNT2D_record& centre, const PL_PNT2D_record& p)
{
    const PL_PNT2D_record vec = {p.x - centre.x, p.y - centre.y};
    return PlFunz_quadrant(plcalc::kQuadrantOfVector, 0.0, &vec);
}

PL_RECT_2D_record chord_rect(const PL_PNT2D_record& s, const PL_PNT2D_record& e)
{
    return {PlFunz_min_tol(s.x, e.x), PlFunz_min_tol(s.y, e.y), PlFunz_max_tol(s.x, e.x),
            PlFunz_max_tol(s.y, e.y)};
}

PL_RECT_2D_record circle_rect(const ARC_2D_record& arc)
{
    return {arc.centre.x - arc.radius, arc.centre.y - arc.radius, arc.centre.x + arc.radius,
            arc.centre.y + arc.radius};
}

// The sweep passes the axis on which a quadrant begins: the circle reaches its extreme there.
void reach_axis_into(int quadrant, const PL_RECT_2D_record& circle, PL_RECT_2D_record& rect)
{
    switch (quadrant) {
    case 1:
        rect.xmax = circle.xmax;
        break;
    case 2:
        rect.ymax = circle.ymax;
        break;
    case 3:
        rect.xmin = circle.xmin;
        break;
    default:
        rect.ymin = circle.ymin;
        break;
    }
}

}  // namespace

void PlFunz_arc_rect_same_quadrant(PL_RECT_2D_record* rect, const PL_PNT2D_record* start_pnt,
                                   const PL_PNT2D_record* end_pnt, int quadrant,
                                   const ARC_2D_record* arc) noexcept
{
    // Anticlockwise, x falls in the upper half and grows in the lower one. Ends in the other order mean
    // that the sweep goes nearly all the way round.
    const bool lower_half = quadrant == 3 || quadrant == 4;
    const bool all_round =
        lower_half ? plcalc::at_most(end_pnt->x, start_pnt->x) : plcalc::at_most(start_pnt->x, end_pnt->x);
    *rect = all_round ? circle_rect(*arc) : chord_rect(*start_pnt, *end_pnt);
}

void PlFunz_arc_rect_quadrants(const ARC_2D_record* arc, const PL_PNT2D_record* start_pnt,
                               const PL_PNT2D_record* end_pnt, PL_RECT_2D_record* rect) noexcept
{
    const int from = quadrant_from(arc->centre, *start_pnt);
    const int to = quadrant_from(arc->centre, *end_pnt);
    if (from == to) {
        PlFunz_arc_rect_same_quadrant(rect, start_pnt, end_pnt, from, arc);
        return;
    }

    *rect = chord_rect(*start_pnt, *end_pnt);
    const PL_RECT_2D_record circle = circle_rect(*arc);
    for (int quadrant = from; quadrant != to;) {
        quadrant = quadrant % 4 + 1;
        reach_axis_into(quadrant, circle, *rect);
    }
}

void PlFunz_arc_rect(const ARC_2D_record* arc, const PL_PNT2D_record* start_pnt,
                     const PL_PNT2D_record* end_pnt, PL_RECT_2D_record* rect) noexcept
{
    PL_RECT_2D_record found = {};
    PlFunz_arc_rect_quadrants(arc, start_pnt, end_pnt, &found);
    PlFunz_set_rect_2d(found.xmin, found.ymin, found.xmax, found.ymax, rect);
}
