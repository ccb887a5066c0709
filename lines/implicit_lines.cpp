#include "lines/implicit_lines.h"

#include "plcalc/lines.h"

int PlFunz_lineeq_ile(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2,
                      PL_IMP_LINE_2D_record* out) noexcept
{
    return plcalc::line_between(*p1, *p2, *out);
}

int PlFunz_normal_ile(PL_IMP_LINE_2D_record* line) noexcept
{
    return plcalc::normalise(*line);
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
