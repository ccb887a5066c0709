#include <array>
#include <cmath>
#include <cstddef>
#include <memory>

#include "kernel/primitives.h"
#include "kernel/shoelace.h"
#include "plcalc/survey.h"

namespace {

// The shares of rings up to here stay on the stack, half a kilobyte; most parcels are smaller.
constexpr int kSmallRing = 64;

PL_PNT2D_record plan_point(const CPoint3dVector& pts, int i)
{
    const double x = pts.GetXcoordAt(i);
    return {x, pts.GetYcoordAt(i)};
}

double side_length(const PL_PNT2D_record& from, const PL_PNT2D_record& to)
{
    return plcalc::step_length(to.x - from.x, to.y - from.y);
}

// The sum of the shares, in the order of the vertices. The first share needs the last vertex, and each vertex is
// read once and in order: so the shares are noted while reading, and added up after.
double area_by_shares(const CPoint3dVector& pts, int n, double* shares)
{
    const PL_PNT2D_record first = plan_point(pts, 0);
    const PL_PNT2D_record second = n > 1 ? plan_point(pts, 1) : first;
    PL_PNT2D_record before = first;
    PL_PNT2D_record at = second;
    for (int i = 2; i < n; ++i) {
        const PL_PNT2D_record after = plan_point(pts, i);
        shares[i - 1] = plcalc::shoelace_share(before, at, after);
        before = at;
        at = after;
    }
    // Now at the last vertex, which of a single one is the first.
    shares[n - 1] = plcalc::shoelace_share(before, at, first);
    shares[0] = plcalc::shoelace_share(at, first, second);

    double sum = 0.0;
    for (int i = 0; i < n; ++i)
        sum = shares[i] + sum;
    return sum;
}

}  // namespace

double AreaCalcolataSgn(const CPoint3dVector& pts)
{
    const int n = pts.GetNoPoits();
    if (n < 1)
        return 0.0;
    if (n <= kSmallRing) {
        std::array<double, kSmallRing> shares;
        return area_by_shares(pts, n, shares.data());
    }
    const std::unique_ptr<double[]> shares(new double[static_cast<std::size_t>(n)]);
    return area_by_shares(pts, n, shares.get());
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
