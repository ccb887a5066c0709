
#include "kernel/square_root.h"
#include "kernel/tolerance.h"
#include "plcalc/lines.h"

namespace {

constexpr int kRcSamePoints = 2;
constexpr int kRcNoNormal = 3;

// The direction of the unit normal: from the origin to the line, and for a line through the origin upward.
bool points_the_wrong_way(const PL_IMP_LINE_2D_record& line)
{
    if (line.c > PL_EPS)
        return true;
    return plcalc::is_zero(line.c) && line.b < -PL_EPS;
}

}  // namespace

int PlFunz_lineeq_ile(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2,
                      PL_IMP_LINE_2D_record* out) noexcept
{
    const double dx = p2->x - p1->x;
    const double dy = p2->y - p1->y;
    if (plcalc::is_short(dx, dy))
        return kRcSamePoints;

    // The normal (a, b) is the direction p1 to p2 turned to the left.
    *out = {-dy, dx, p1->x * p2->y - p1->y * p2->x};
    return 0;
}

int PlFunz_normal_ile(PL_IMP_LINE_2D_record* line) noexcept
{
    // The sum of squares is tested, not its root: normals up to 3.16e-4 long are refused.
    const double length2 = PlFunz_sumsqrdparms(line->a, line->b);
    if (plcalc::is_zero(length2))
        return kRcNoNormal;

    double k = 1.0 / plcalc::square_root(length2);
    if (points_the_wrong_way(*line))
        k = -k;
    *line = {line->a * k, line->b * k, line->c * k};
    return 0;
}

void PlFunz_linepntperpend(const PL_IMP_LINE_2D_record* line, const PL_PNT2D_record* p,
                           PL_IMP_LINE_2D_record* out) noexcept
{
    *out = {line->b, line->a * -1.0, line->a * p->y - line->b * p->x};
}

void PlFunz_linepntparallel(PL_IMP_LINE_2D_record* out, const PL_PNT2D_record* p,
                            const PL_IMP_LINE_2D_record* line) noexcept
{
    *out = {line->a, line->b, -(p->y * line->b + p->x * line->a)};
}

double PlFunz_ordinate_ile(const PL_IMP_LINE_2D_record* line, double x) noexcept
{
    if (plcalc::is_zero(line->b))
        return 0.0;
    return -(line->a * x + line->c) / line->b;
}

double PlFunz_abscissa_ile(const PL_IMP_LINE_2D_record* line, double y) noexcept
{
    if (plcalc::is_zero(line->a))
        return 0.0;
    return -(line->b * y + line->c) / line->a;
}
