// Heights on a segment, boxes, tests by a tolerance of the caller's, and area and perimeter of a ring.

#include "fuzz/check.h"
#include "fuzz/parcel.h"
#include "fuzz/reader.h"
#include "plcalc/survey.h"

namespace {

using fuzz::Reader;
using fuzz::Ring;
using fuzz::same;

void check_height(const double (&v)[6], const PL_PNT2D_record& at)
{
    double z = fuzz::kUntouched;
    CalcoloQuotaSuSegmento(v[0], v[1], v[2], v[3], v[4], v[5], at.x, at.y, z);
    const double length = std::hypot(v[3] - v[0], v[4] - v[1]);
    if (!fuzz::all_within(1e6, {v[0], v[1], v[2], v[3], v[4], v[5], at.x, at.y}) || length < 1e-2)
        return;
    const double run = fuzz::apart(at, {v[0], v[1]});
    FUZZ_CHECK(fuzz::near(z, v[2] + (v[5] - v[2]) * (run / length), 1e-9 * (1.0 + std::fabs(z))));
    CalcoloQuotaSuSegmento(v[0], v[1], v[2], v[3], v[4], v[5], v[0], v[1], z);
    FUZZ_CHECK(z == v[2]);
}

// Both values are kept, the smaller one first.
void check_axis(double low, double high, double a, double b)
{
    FUZZ_CHECK((same(low, a) && same(high, b)) || (same(low, b) && same(high, a)));
    FUZZ_CHECK(!(low > high));
}

void check_box(const double (&v)[6])
{
    PL_RECT_3D_record box = {};
    CalcoloBdry(v[0], v[1], v[2], v[3], v[4], v[5], &box);
    check_axis(box.xmin, box.xmax, v[0], v[3]);
    check_axis(box.ymin, box.ymax, v[1], v[4]);
    check_axis(box.zmin, box.zmax, v[2], v[5]);
}

void check_tolerance(double v, double tol, const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    const bool zero = NumeroEstZero(v, tol);
    FUZZ_CHECK(zero == NumeroEstZero(-v, tol));
    FUZZ_CHECK(!zero || (tol >= 0.0 && !std::isnan(v)));
    FUZZ_CHECK(NumeroEstZero(v, v) == (v >= 0.0));

    const bool one = StessoPunto(p, q, tol);
    FUZZ_CHECK(one == StessoPunto(q, p, tol));
    FUZZ_CHECK(!one || tol >= 0.0);
    const bool equal = p.x == q.x && p.y == q.y && fuzz::all_finite({p, q});
    FUZZ_CHECK(StessoPunto(p, q, 0.0) == equal);
}

void check_ring(const Ring& ring)
{
    const CPoint3dVector parcel = fuzz::parcel_of(ring);
    const double signed_area = AreaCalcolataSgn(parcel);
    const double area = AreaCalcolata(parcel);
    const double perimeter = PeriCalcolato(parcel);
    FUZZ_CHECK(area >= 0.0 || std::isnan(area));
    FUZZ_CHECK(same(area, std::fabs(signed_area)));
    FUZZ_CHECK(perimeter >= 0.0 || std::isnan(perimeter));
    if (ring.empty())
        FUZZ_CHECK(area == 0.0 && perimeter == 0.0);

    double extent = 0.0;
    for (const PL_PNT2D_record& p : ring) {
        if (!fuzz::all_within(1e8, {p}))
            return;
        extent = std::fmax(extent, std::fmax(std::fabs(p.x), std::fabs(p.y)));
    }
    // The products are as large as the coordinates make them: that is where the digits go.
    const double n = static_cast<double>(ring.size());
    const double rounding = 1e-14 * n * (extent * extent + 1e-290);
    FUZZ_CHECK(fuzz::near(signed_area, fuzz::area_of(ring), rounding));
    FUZZ_CHECK(fuzz::near(perimeter, fuzz::perimeter_of(ring), 1e-14 * n * perimeter + 1e-150));
    // No ring, crossing itself or not, holds more than the circle of its perimeter.
    FUZZ_CHECK(area <= perimeter * perimeter / (4.0 * 3.141592653589793) + rounding);

    Ring reversed(ring.rbegin(), ring.rend());
    FUZZ_CHECK(fuzz::near(AreaCalcolataSgn(fuzz::parcel_of(reversed)), -signed_area, 2.0 * rounding));
    if (!ring.empty()) {
        Ring closed = ring;
        closed.push_back(ring.front());
        FUZZ_CHECK(fuzz::near(AreaCalcolataSgn(fuzz::parcel_of(closed)), signed_area, 2.0 * rounding));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    double v[6];
    for (double& number : v)
        number = in.number();
    const PL_PNT2D_record p = in.point();
    const PL_PNT2D_record q = in.point();
    const Ring ring = fuzz::read_ring(in);

    check_height(v, p);
    check_box(v);
    check_tolerance(v[0], v[1], p, q);
    check_ring(ring);
    return 0;
}
