#include <utility>

#include "lines/implicit_lines.h"
#include "lines/parallels.h"
#include "lines/point_line.h"
#include "plcalc/lines.h"

namespace {

// Whether the parameter of a segment, 0 at its start and 1 at its end, lies on it. The lower margin is absolute
// and the upper one scaled, which makes it twice as wide. That stays, to keep results comparable between
// versions.
bool on_segment(double parameter)
{
    return parameter >= -PL_EPS && plcalc::at_most(parameter, 1.0);
}

// A segment without length is a point: on the line only when the equation holds exactly.
bool point_on_line(const PL_IMP_LINE_2D_record& line, const PL_PNT2D_record& p)
{
    return line.b * p.y + line.a * p.x == -line.c;
}

}  // namespace

bool PlFunz_intersect_ile(const PL_IMP_LINE_2D_record* l1, const PL_IMP_LINE_2D_record* l2,
                          PL_PNT2D_record* out) noexcept
{
    const plcalc::MeetsParallels meeting(*l1, l2->a, l2->b);
    if (!meeting.meets(l2->c))
        return false;
    *out = {meeting.x_at(l2->c), meeting.y_at(l2->c)};
    return true;
}

bool PlFunz_intersect_ils(const PL_IMP_LINE_2D_record* line, const PL_LINE_2D_record* seg,
                          PL_PNT2D_record* out) noexcept
{
    PL_IMP_LINE_2D_record segment_line = {};
    if (plcalc::line_between(seg->start, seg->end, segment_line) == plcalc::kRcSamePoints) {
        if (!point_on_line(*line, seg->start))
            return false;
        *out = seg->start;
        return true;
    }

    // From left to right: when the y of both ends nearly tie, the limits of the box come from the second end.
    PL_LINE_2D_record ordered = *seg;
    if (plcalc::above(ordered.start.x, ordered.end.x))
        std::swap(ordered.start, ordered.end);

    // The meeting point stays in out even when it lies outside the segment: the contract says so.
    return PlFunz_intersect_ile(line, &segment_line, out) && PlFunz_pnt_in_segbox(&ordered, out);
}

bool PlFunz_intersect_ls(const PL_LINE_2D_record* s1, const PL_LINE_2D_record* s2,
                         PL_PNT2D_record* out) noexcept
{
    const double ex = s2->end.x - s2->start.x;
    const double ey = s2->end.y - s2->start.y;
    const double dx = s1->end.x - s1->start.x;
    const double dy = s1->end.y - s1->start.y;
    const double wx = s2->start.x - s1->start.x;
    const double wy = s2->start.y - s1->start.y;

    const double den = dy * ex - dx * ey;
    if (plcalc::is_zero(den))
        return false;

    const double inv = plcalc::inverse(den);
    const double t = (wy * ex - wx * ey) * inv;
    const double u = (wy * dx - wx * dy) * inv;
    if (!on_segment(t) || !on_segment(u))
        return false;

    *out = {t * dx + s1->start.x, t * dy + s1->start.y};
    PlFunz_snap_zero(out->x);
    PlFunz_snap_zero(out->y);
    return true;
}
