#include "survey/offsets.h"

#include "kernel/angle_units.h"
#include "plcalc/lines.h"
#include "plcalc/survey.h"

namespace {

constexpr double kQuarterTurnDeg = 90.0;

// Degrees to gons: the double nearest 10/9.
constexpr double kGonPerDeg = 1.1111111111111112;

double direction_deg(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return PlFunz_arctan_deg(b.x - a.x, b.y - a.y);
}

double distance2(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    double angle = 0.0;
    double dist2 = 0.0;
    PlFunz_pseudo_angdist(&p, &q, &angle, &dist2);
    return dist2;
}

// The distance of two points, positive when the second one lies ahead: the distance is set out both ways, and
// the nearer end tells. A tie counts as behind, so that equal points give -0.0.
double signed_distance(const PL_PNT2D_record& from, const PL_PNT2D_record& target, double dist,
                       double dir_deg)
{
    PL_PNT2D_record ahead = {};
    PL_PNT2D_record behind = {};
    PlFunz_pntangledist(plcalc::kPolarDegrees, &from, dist, dir_deg, &ahead);
    PlFunz_pntangledist(plcalc::kPolarDegrees, &from, -dist, dir_deg, &behind);
    return distance2(target, ahead) < distance2(target, behind) ? dist : -dist;
}

}  // namespace

namespace plcalc {

double direction_gon(const PL_PNT2D_record& from, const PL_PNT2D_record& to) noexcept
{
    return PlFunz_arctan_deg(to.x - from.x, to.y - from.y) * kGonPerDeg;
}

}  // namespace plcalc

void CalcPtAtDistSuSegm(const PL_PNT2D_record* a, const PL_PNT2D_record* b, const PL_PNT2D_record* from,
                        double dist, PL_PNT2D_record* out) noexcept
{
    PlFunz_pntangledist(plcalc::kPolarDegrees, from, dist, direction_deg(*a, *b), out);
}

void CalcPtAtDistSuLineaImp(const PL_IMP_LINE_2D_record* line, const PL_PNT2D_record* from, double dist,
                            PL_PNT2D_record* out) noexcept
{
    PlFunz_pntangledist(plcalc::kPolarDegrees, from, dist, PlFunz_arctan_deg(-line->b, line->a), out);
}

double DistPtSuSegmDaPt(const PL_PNT2D_record* a, const PL_PNT2D_record* b, const PL_PNT2D_record* from,
                        const PL_PNT2D_record* target) noexcept
{
    return signed_distance(*from, *target, PlFunz_distance(from, target), direction_deg(*a, *b));
}

double DistSegmDaPt(const PL_PNT2D_record* a, const PL_PNT2D_record* b, const PL_PNT2D_record* pt,
                    PL_PNT2D_record* foot) noexcept
{
    PL_IMP_LINE_2D_record line = {};
    PlFunz_lineeq_ile(a, b, &line);
    plcalc::FeetOnLine(line).find(*pt, *foot);  // a line without direction has none: foot stays
    // A quarter turn clockwise from the segment: right is positive.
    return signed_distance(*foot, *pt, PlFunz_distance(foot, pt), direction_deg(*a, *b) - kQuarterTurnDeg);
}

void CalcDistPuntoDaRetta(const PL_IMP_LINE_2D_record* line, const PL_PNT2D_record* pt, double& dist,
                          double& angle) noexcept
{
    PL_PNT2D_record foot = {};
    plcalc::FeetOnLine(*line).find(*pt, foot);
    dist = PlFunz_distance(&foot, pt);
    angle = plcalc::direction_gon(foot, *pt);
}

bool IntersPerpDaPtInSegm(const PL_PNT2D_record* a, const PL_PNT2D_record* b, const PL_PNT2D_record* pt,
                          PL_PNT2D_record* out) noexcept
{
    PL_LINE_2D_record segment;
    PlFunz_set_line_2d(a->x, a->y, b->x, b->y, &segment);
    PL_IMP_LINE_2D_record line = {};
    PlFunz_lineeq_ile(a, b, &line);
    PL_IMP_LINE_2D_record perpendicular = {};
    PlFunz_linepntperpend(&line, pt, &perpendicular);
    return PlFunz_intersect_ils(&perpendicular, &segment, out);
}

void CalcPtSquadro(const PL_PNT2D_record* a, const PL_PNT2D_record* b, double absc, double ord,
                   PL_PNT2D_record* out) noexcept
{
    PL_PNT2D_record foot = {};
    CalcPtAtDistSuSegm(a, b, a, absc, &foot);
    PL_IMP_LINE_2D_record line = {};
    PlFunz_lineeq_ile(a, b, &line);
    PL_IMP_LINE_2D_record perpendicular = {};
    PlFunz_linepntperpend(&line, &foot, &perpendicular);

    // Along the perpendicular a positive distance leads to the left of the way from a to b. Behind a the two
    // sides are exchanged: the sign of the ordinate follows that of the abscissa.
    CalcPtAtDistSuLineaImp(&perpendicular, &foot, absc >= 0.0 ? -ord : ord, out);
}

void CalcPtAngDist(const PL_PNT2D_record* station, const PL_PNT2D_record* ref, double angle, double dist,
                   PL_PNT2D_record* out) noexcept
{
    const double dy = ref->y - station->y;
    const double dx = ref->x - station->x;
    const double bearing_gon = LimiteAng0_400(AngoloDaAsseRifer(dx, dy) + angle);
    out->x = station->x + CalcCoordEst(dist, bearing_gon);
    out->y = station->y + CalcCoordNord(dist, bearing_gon);
}
