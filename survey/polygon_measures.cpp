#include <array>
#include <cmath>
#include <cstddef>
#include <memory>

#include "kernel/primitives.h"
#include "kernel/shoelace.h"
#include "plcalc/survey.h"

namespace {

// Rings up to this size, a kilobyte, are copied to the stack. Most parcels are smaller.
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

// Each vertex is read once and in order, but the first share already needs the last vertex: hence a copy. It is
// made four points at a time, because counting single points would take as long as copying them.
inline double area_of_copy(const CPoint3dVector& pts, int n, PL_PNT2D_record* ring)
{
    int i = 0;
    for (; i <= n - 4; i += 4)
        for (int k = 0; k < 4; ++k)
            ring[i + k] = plan_point(pts, i + k);
    for (; i < n; ++i)
        ring[i] = plan_point(pts, i);
    return plcalc::shoelace_area(ring, static_cast<std::size_t>(n));
}

double area_of_large_ring(const CPoint3dVector& pts, int n)
{
    const std::size_t size = static_cast<std::size_t>(n);
    // The compiler adds a branch for more points than an int can count; coverage leaves it out.
    const std::unique_ptr<PL_PNT2D_record[]> ring(new PL_PNT2D_record[size]);  // GCOVR_EXCL_BR_LINE
    return area_of_copy(pts, n, ring.get());
}

inline double signed_area(const CPoint3dVector& pts)
{
    const int n = pts.GetNoPoits();
    if (n > kSmallRing)
        return area_of_large_ring(pts, n);
    if (n < 1)
        return 0.0;
    std::array<PL_PNT2D_record, kSmallRing> ring;
    return area_of_copy(pts, n, ring.data());
}

}  // namespace

double AreaCalcolataSgn(const CPoint3dVector& pts)
{
    return signed_area(pts);
}

double AreaCalcolata(const CPoint3dVector& pts)
{
    return std::fabs(signed_area(pts));
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
