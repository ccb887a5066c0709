#include <cmath>
#include <vector>

#include "kernel/shoelace.h"
#include "plcalc/survey.h"

namespace {

PL_PNT2D_record plan_point(const CPoint3dVector& pts, int i)
{
    const double x = pts.GetXcoordAt(i);
    return {x, pts.GetYcoordAt(i)};
}

double side_length(const PL_PNT2D_record& from, const PL_PNT2D_record& to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    return std::sqrt(dy * dy + dx * dx);
}

}  // namespace

double AreaCalcolataSgn(const CPoint3dVector& pts)
{
    // Each vertex is read once and in order, and the first term already needs the last one: hence a copy.
    const int n = pts.GetNoPoits();
    std::vector<PL_PNT2D_record> ring;
    ring.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i)
        ring.push_back(plan_point(pts, i));
    return plcalc::shoelace_area(ring.data(), ring.size());
}

double AreaCalcolata(const CPoint3dVector& pts)
{
    return std::fabs(AreaCalcolataSgn(pts));
}

double PeriCalcolato(const CPoint3dVector& pts)
{
    const int n = pts.GetNoPoits();
    if (n < 1)
        return 0.0;

    const PL_PNT2D_record first = plan_point(pts, 0);
    PL_PNT2D_record from = first;
    double sum = 0.0;
    for (int i = 1; i < n; ++i) {
        const PL_PNT2D_record to = plan_point(pts, i);
        sum = side_length(from, to) + sum;
        from = to;
    }
    return side_length(from, first) + sum;
}
