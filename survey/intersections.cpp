#include "plcalc/lines.h"
#include "plcalc/survey.h"
#include "survey/side_range.h"

namespace {

// The end of a segment that is nearer to the meeting point moves onto it; on a tie the second one.
void snap_nearer_end(PL_PNT2D_record* a, PL_PNT2D_record* b, const PL_PNT2D_record& meeting)
{
    double angle = 0.0;
    double from_a2 = 0.0;
    double from_b2 = 0.0;
    PlFunz_pseudo_angdist(a, &meeting, &angle, &from_a2);
    PlFunz_pseudo_angdist(b, &meeting, &angle, &from_b2);
    *(from_a2 < from_b2 ? a : b) = meeting;
}

// The line through two points; when they coincide, a line of zeros, which meets nothing.
PL_IMP_LINE_2D_record line_through(double x1, double y1, double x2, double y2)
{
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    PlFunz_set_pnt_2d(x1, y1, &p1);
    PlFunz_set_pnt_2d(x2, y2, &p2);
    PL_IMP_LINE_2D_record line = {};
    PlFunz_lineeq_ile(&p1, &p2, &line);
    return line;
}

}  // namespace

bool TrovatoValNeiLimiti(double val, double lim1, double lim2) noexcept
{
    return plcalc::side_range(lim1, lim2).holds(val);
}

bool TrovatoPuntoInSegmento(const PL_PNT2D_record& pt, const PL_PNT2D_record& a,
                            const PL_PNT2D_record& b) noexcept
{
    return TrovatoValNeiLimiti(pt.x, a.x, b.x) && TrovatoValNeiLimiti(pt.y, a.y, b.y);
}

bool CalcoloIntersezioneRette(const PL_IMP_LINE_2D_record& l1, const PL_IMP_LINE_2D_record& l2,
                              PL_PNT2D_record& out) noexcept
{
    return PlFunz_intersect_ile(&l1, &l2, &out);
}

bool CalcoloIntersezioneRette(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                              double y4, double& xOut, double& yOut) noexcept
{
    const PL_IMP_LINE_2D_record l1 = line_through(x1, y1, x2, y2);
    const PL_IMP_LINE_2D_record l2 = line_through(x3, y3, x4, y4);
    PL_PNT2D_record meeting = {};
    if (!PlFunz_intersect_ile(&l1, &l2, &meeting)) {
        // The outputs are always written, and the first point is at least on the first line.
        xOut = x1;
        yOut = y1;
        return false;
    }
    xOut = meeting.x;
    yOut = meeting.y;
    return true;
}

bool CalcoloIntersezioneRetteExt(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                                 double y4, double& xOut, double& yOut) noexcept
{
    const double d1x = x2 - x1;
    const double d1y = y2 - y1;
    const double d2x = x4 - x3;
    const double d2y = y4 - y3;
    const double den = d2y * d1x - d2x * d1y;
    const double ex = x1 - x3;
    const double ey = y1 - y3;

    // Exact comparisons, because this function is there for lines that are almost parallel.
    if (den == 0.0) {
        if (ex * d1y != ey * d1x)
            return false;
        xOut = d1x + x1;
        yOut = d1y + y1;
        return true;
    }
    const double t = (ey * d2x - ex * d2y) / den;
    xOut = t * d1x + x1;
    yOut = t * d1y + y1;
    return true;
}

double CalcCoordYsuSegmento(double x1, double y1, double x2, double y2, double x) noexcept
{
    const PL_IMP_LINE_2D_record line = line_through(x1, y1, x2, y2);
    return PlFunz_ordinate_ile(&line, x);
}

bool IntersezLineaInSegmOK(const PL_PNT2D_record& a, const PL_PNT2D_record& b,
                           const PL_IMP_LINE_2D_record& line, PL_PNT2D_record& out) noexcept
{
    PL_IMP_LINE_2D_record segment_line = {};
    PlFunz_lineeq_ile(&a, &b, &segment_line);
    return CalcoloIntersezioneRette(segment_line, line, out) && TrovatoPuntoInSegmento(out, a, b);
}

bool CimaSegm(PL_PNT2D_record* a1, PL_PNT2D_record* b1, PL_PNT2D_record* a2, PL_PNT2D_record* b2) noexcept
{
    PL_IMP_LINE_2D_record l1 = {};
    PL_IMP_LINE_2D_record l2 = {};
    PlFunz_lineeq_ile(a1, b1, &l1);
    PlFunz_lineeq_ile(a2, b2, &l2);
    PL_PNT2D_record meeting = {};
    if (!PlFunz_intersect_ile(&l1, &l2, &meeting))
        return false;
    snap_nearer_end(a1, b1, meeting);
    snap_nearer_end(a2, b2, meeting);
    return true;
}
