#include <array>
#include <cmath>
#include <vector>

#include "kernel/shoelace.h"
#include "kernel/square_root.h"
#include "plcalc/survey.h"

namespace {

// Rings up to here are copied to the stack, a kilobyte; most parcels are smaller.
constexpr int kSmallRing = 64;

PL_PNT2D_record plan_point(const CPoint3dVector& pts, int i)
{
    const double x = pts.GetXcoordAt(i);
    return {x, pts.GetYcoordAt(i)};
}

double side_length(const PL_PNT2D_record& from, const PL_PNT2D_record& to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    return plcalc::square_root(dy * dy + dx * dx);
}

double area_of_copy(const CPoint3dVector& pts, int n, PL_PNT2D_record* ring)
{
    for (int i = 0; i < n; ++i)
        ring[i] = plan_point(pts, i);
    return plcalc::shoelace_area(ring, static_cast<std::size_t>(n));
}

}  // namespace

double AreaCalcolataSgn(const CPoint3dVector& pts)
{
    // Each vertex is read once and in order, and the first share already needs the last one: hence a copy.
    const int n = pts.GetNoPoits();
    if (n <= kSmallRing) {
        std::array<PL_PNT2D_record, kSmallRing> ring;
        return area_of_copy(pts, n, ring.data());
    }
    std::vector<PL_PNT2D_record> ring(static_cast<std::size_t>(n));
    return area_of_copy(pts, n, ring.data());
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
