#include "arcs/arc_segment.h"

#include "arcs/arc.h"
#include "arcs/arc_angle.h"
#include "arcs/circle_segment.h"
#include "kernel/angle_units.h"
#include "kernel/tolerance.h"
#include "plcalc/arcs.h"

namespace {

// Radians to degrees at twelve significant digits, deliberately. A full turn comes out off by 1.1e-10 degrees,
// far inside the margin of the sweep test, which alone uses it. It stays, to keep results comparable between
// versions.
constexpr double kDegPerRadShort = 57.2957795131;

constexpr int kOppositeSides = 1;
constexpr int kSameSide = 2;
constexpr int kTouching = 0;

// The directions that an arc covers, in degrees.
struct SweepDeg {
    PL_PNT2D_record centre;
    double start_deg;
    double end_deg;
};

// Crossings of circle and segment, not yet tested against the sweep.
struct Crossings {
    int n;
    PL_PNT2D_record q1;
    PL_PNT2D_record q2;
};

bool in_rect(const PL_RECT_2D_record& rect, const PL_PNT2D_record& p)
{
    return PlFunz_pnt_in_rect(&rect, &p) == 1;
}

// Unlike everywhere else an unknown unit is read as degrees here. The contract says so.
double arc_angle_deg(PL_AngleMeasType angle_type, double angle)
{
    switch (angle_type) {
    case PL_RADIANS:
        return PlFunz_rad_to_deg(angle);
    case PL_PSEUDO_ANGLE:
        return PlFunz_pseudo_to_angle(plcalc::kPseudoToDegrees, angle);
    default:
        return angle;
    }
}

SweepDeg sweep_of(const ARC_2D_record& arc)
{
    return {arc.centre, arc_angle_deg(arc.angle_type, arc.start_angle),
            arc_angle_deg(arc.angle_type, arc.end_angle)};
}

PL_RECT_2D_record rect_of(const ARC_2D_record& arc)
{
    PL_PNT2D_record start = {};
    PL_PNT2D_record end = {};
    PlFunz_arc_end_pnts(&arc, &start, &end);
    PL_RECT_2D_record rect = {};
    PlFunz_arc_rect(&arc, &start, &end, &rect);
    return rect;
}

PL_RECT_2D_record rect_of(const PL_LINE_2D_record& seg)
{
    PL_RECT_2D_record rect = {};
    PlFunz_seg_rect(&seg, &rect);
    return rect;
}

Crossings circle_crossings(const ARC_2D_record& arc, const PL_LINE_2D_record& seg)
{
    PL_CIRCLE_2D_record circle = {};
    PlFunz_set_circle(arc.centre.x, arc.centre.y, arc.radius, &circle);
    Crossings found = {};
    PlFunz_intcircleseg(&circle, &seg, &found.q1, &found.q2, &found.n);
    return found;
}

// Whether a corner of one box lies in the other box. The last four corners are no ends of the segment.
bool boxes_share_corner(const PL_RECT_2D_record& arc_rect, const PL_RECT_2D_record& seg_rect,
                        const PL_LINE_2D_record& seg)
{
    return in_rect(arc_rect, seg.start) || in_rect(arc_rect, seg.end) ||
           in_rect(seg_rect, {arc_rect.xmin, arc_rect.ymin}) ||
           in_rect(seg_rect, {arc_rect.xmax, arc_rect.ymax}) || in_rect(arc_rect, {seg.start.x, seg.end.y}) ||
           in_rect(arc_rect, {seg.end.x, seg.start.y}) || in_rect(seg_rect, {arc_rect.xmin, arc_rect.ymax}) ||
           in_rect(seg_rect, {arc_rect.xmax, arc_rect.ymin});
}

// Cheap comparisons come first: a segment that is far from the arc then costs no root and no arctangent.
bool may_meet(const PL_RECT_2D_record& arc_rect, const PL_RECT_2D_record& seg_rect,
              const PL_LINE_2D_record& seg)
{
    if (boxes_share_corner(arc_rect, seg_rect, seg))
        return true;
    const PL_LINE_2D_record diagonal = {{arc_rect.xmin, arc_rect.ymin}, {arc_rect.xmax, arc_rect.ymax}};
    return PlFunz_seg_relation(&diagonal, &seg) == kOppositeSides;
}

bool full_circle(const SweepDeg& sweep)
{
    return plcalc::is_near(sweep.end_deg, sweep.start_deg);
}

bool holds(const SweepDeg& sweep, const PL_PNT2D_record& q)
{
    const double dir_deg = PlFunz_arcangle(plcalc::kArcAngleDegrees, &sweep.centre, &q);
    return plcalc::in_sweep(dir_deg, sweep.start_deg, sweep.end_deg);
}

bool report_one(const PL_PNT2D_record& q, PL_PNT2D_record* pnt1, int* n_pnts)
{
    *n_pnts = 1;
    *pnt1 = q;
    return true;
}

bool report_pair(const SweepDeg& sweep, const Crossings& found, PL_PNT2D_record* pnt1, PL_PNT2D_record* pnt2,
                 int* n_pnts)
{
    // A full circle that is crossed twice gives only the farther point. That stays, to keep results comparable
    // between versions.
    if (full_circle(sweep))
        return report_one(found.q2, pnt1, n_pnts);

    const bool first = holds(sweep, found.q1);
    const bool second = holds(sweep, found.q2);
    if (first && second) {
        *n_pnts = 2;
        *pnt1 = found.q1;
        *pnt2 = found.q2;
        return true;
    }
    if (first)
        return report_one(found.q1, pnt1, n_pnts);
    if (second)
        return report_one(found.q2, pnt1, n_pnts);
    return false;
}

}  // namespace

void PlFunz_seg_rect(const PL_LINE_2D_record* seg, PL_RECT_2D_record* rect) noexcept
{
    PlFunz_set_rect_2d(PlFunz_min_tol(seg->start.x, seg->end.x), PlFunz_min_tol(seg->start.y, seg->end.y),
                       PlFunz_max_tol(seg->start.x, seg->end.x), PlFunz_max_tol(seg->start.y, seg->end.y),
                       rect);
}

int PlFunz_pnt_in_rect(const PL_RECT_2D_record* rect, const PL_PNT2D_record* p) noexcept
{
    const PL_PNT2D_record low = {rect->xmin, rect->ymin};
    const PL_PNT2D_record high = {rect->xmax, rect->ymax};
    if (PlFunz_samepnt(&low, &high))
        return PlFunz_samepnt(p, &low) ? 1 : 0;
    return plcalc::at_most(p->x, rect->xmax) && plcalc::at_most(p->y, rect->ymax) &&
                   plcalc::at_least(p->x, rect->xmin) && plcalc::at_least(p->y, rect->ymin)
               ? 1
               : 0;
}

int PlFunz_seg_relation(const PL_LINE_2D_record* a, const PL_LINE_2D_record* b) noexcept
{
    const double dx = b->end.x - b->start.x;
    const double dy = b->end.y - b->start.y;
    // The second side is measured from the other end of b, which gives the same sign but other bits.
    const double side1 = (a->start.y - b->start.y) * dx - (a->start.x - b->start.x) * dy;
    const double side2 = (a->end.y - b->end.y) * dx - (a->end.x - b->end.x) * dy;
    const double product = side1 * side2;
    if (product > PL_EPS)
        return kSameSide;
    return product < -PL_EPS ? kOppositeSides : kTouching;
}

double PlFunz_rad_to_deg(double a) noexcept
{
    return a * kDegPerRadShort;
}

bool PlFunz_intarcline_ls(const ARC_2D_record* arc, const PL_LINE_2D_record* seg, PL_PNT2D_record* pnt1,
                          PL_PNT2D_record* pnt2, int* n_pnts) noexcept
{
    *n_pnts = 0;
    const PL_RECT_2D_record arc_rect = rect_of(*arc);
    const PL_RECT_2D_record seg_rect = rect_of(*seg);
    if (!may_meet(arc_rect, seg_rect, *seg))
        return false;

    const Crossings found = circle_crossings(*arc, *seg);
    if (found.n == 0)
        return false;
    const bool first_in_box = in_rect(seg_rect, found.q1);
    if (found.n == 2) {
        if (!first_in_box && !in_rect(seg_rect, found.q2))
            return false;
        return report_pair(sweep_of(*arc), found, pnt1, pnt2, n_pnts);
    }

    // A single point must also lie in the arc's own box; two points need not.
    if (!first_in_box || !in_rect(arc_rect, found.q1))
        return false;
    const SweepDeg sweep = sweep_of(*arc);
    if (full_circle(sweep) || holds(sweep, found.q1))
        return report_one(found.q1, pnt1, n_pnts);
    return false;
}
