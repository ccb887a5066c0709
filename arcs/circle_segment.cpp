#include "arcs/circle_segment.h"

#include "kernel/square_root.h"
#include "kernel/tolerance.h"
#include "lines/point_line.h"

namespace {

constexpr int kRcSamePoints = 2;
constexpr int kRcNoDirection = 4;

PL_PNT2D_record point_at(const PL_PARAM_LINE_2D_record& line, double t)
{
    return {line.x + t * line.dx, line.y + t * line.dy};
}

}  // namespace

void PlFunz_set_circle(double x, double y, double r, PL_CIRCLE_2D_record* out) noexcept
{
    *out = {x, y, r};
}

void PlFunz_set_param_line(double x, double dx, double y, double dy, PL_PARAM_LINE_2D_record* out) noexcept
{
    *out = {x, y, dx, dy};
}

int PlFunz_param_line_2p(const PL_PNT2D_record* a, const PL_PNT2D_record* b,
                         PL_PARAM_LINE_2D_record* out) noexcept
{
    const double dx = b->x - a->x;
    const double dy = b->y - a->y;
    if (plcalc::is_short(dx, dy))
        return kRcSamePoints;
    PlFunz_set_param_line(a->x, dx, a->y, dy, out);
    return 0;
}

int PlFunz_param_line_normalise(PL_PARAM_LINE_2D_record* line) noexcept
{
    const double length2 = PlFunz_sumsqrdparms(line->dx, line->dy);
    if (plcalc::is_zero(length2))
        return kRcNoDirection;
    const double k = 1.0 / plcalc::square_root(length2);
    line->dx = line->dx * k;
    line->dy = line->dy * k;
    return 0;
}

bool PlFunz_intcircleseg(const PL_CIRCLE_2D_record* circle, const PL_LINE_2D_record* seg, PL_PNT2D_record* q1,
                         PL_PNT2D_record* q2, int* n) noexcept
{
    *n = 0;
    PL_PARAM_LINE_2D_record line;
    PlFunz_set_param_line(0.0, 0.0, 0.0, 0.0, &line);
    if (PlFunz_param_line_2p(&seg->start, &seg->end, &line) == kRcSamePoints)
        return false;
    // The direction of a segment up to 3.16e-4 long stays as long as the segment, and what follows uses it so.
    PlFunz_param_line_normalise(&line);

    const double wx = circle->x - line.x;
    const double wy = circle->y - line.y;
    const double from_line = line.dx * wy - line.dy * wx;
    const double half_chord2 = circle->radius * circle->radius - from_line * from_line;
    if (half_chord2 < -PL_EPS)
        return false;

    const double foot = line.dy * wy + line.dx * wx;
    if (plcalc::is_zero(half_chord2)) {  // a touch
        *q1 = point_at(line, foot);
        if (PlFunz_pnt_in_segbox(seg, q1))
            *n = 1;
        return *n > 0;
    }

    const double half_chord = plcalc::square_root(half_chord2);
    *q1 = point_at(line, foot - half_chord);
    *q2 = point_at(line, foot + half_chord);
    if (PlFunz_pnt_in_segbox(seg, q1))
        *n += 1;
    if (PlFunz_pnt_in_segbox(seg, q2)) {
        if (*n == 0)
            *q1 = *q2;
        *n += 1;
    }
    return *n > 0;
}
