// Records with their setters, inverse, squares, distance, same point, snapping, tolerant minimum and maximum.

#include <cstring>

#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "kernel/tolerance.h"
#include "plcalc/kernel.h"
#include "plcalc/version.h"

namespace {

using fuzz::Reader;
using fuzz::same;

// Each value goes to its own field, whatever it is.
void check_setters(const double (&v)[6], PL_AngleMeasType type)
{
    PL_PNT2D_record pnt = fuzz::kNoPoint;
    PlFunz_set_pnt_2d(v[0], v[1], &pnt);
    FUZZ_CHECK(same(pnt, {v[0], v[1]}));

    PL_PNT3D_record pnt3 = {fuzz::kUntouched, fuzz::kUntouched, fuzz::kUntouched};
    PlFunz_set_pnt_3d(v[0], v[1], v[2], &pnt3);
    FUZZ_CHECK(same(pnt3.x, v[0]) && same(pnt3.y, v[1]) && same(pnt3.z, v[2]));

    PL_LINE_2D_record seg = {fuzz::kNoPoint, fuzz::kNoPoint};
    PlFunz_set_line_2d(v[0], v[1], v[2], v[3], &seg);
    FUZZ_CHECK(same(seg, {{v[0], v[1]}, {v[2], v[3]}}));

    PL_RECT_2D_record rect = fuzz::kNoRect;
    PlFunz_set_rect_2d(v[0], v[1], v[2], v[3], &rect);
    FUZZ_CHECK(same(rect, {v[0], v[1], v[2], v[3]}));

    PL_RECT_3D_record box = {};
    PlFunz_set_rect_3d(v[0], v[1], v[2], v[3], v[4], v[5], &box);
    FUZZ_CHECK(same(box.xmin, v[0]) && same(box.ymin, v[1]) && same(box.zmin, v[2]));
    FUZZ_CHECK(same(box.xmax, v[3]) && same(box.ymax, v[4]) && same(box.zmax, v[5]));

    ARC_2D_record arc = fuzz::kNoArc;
    PlFunz_set_arc_2d(v[0], v[1], v[2], type, v[3], v[4], &arc);
    FUZZ_CHECK(same(arc, {{v[0], v[1]}, v[2], type, v[3], v[4]}));
    PlFunz_set_arc_2d(v[0], v[1], v[2], type, v[3], v[4], nullptr);
}

void check_numbers(double a, double b)
{
    const double inverse = PlFunz_inverse(a);
    FUZZ_CHECK(std::isnan(inverse) == std::isnan(a));
    if (std::fabs(a) <= PL_EPS)
        FUZZ_CHECK(fuzz::positive_zero(inverse));
    else if (!std::isnan(a))
        FUZZ_CHECK(std::fabs(inverse) <= 1e7 && std::signbit(inverse) == std::signbit(a));
    FUZZ_CHECK(same(PlFunz_inverse(-a), std::fabs(a) <= PL_EPS ? 0.0 : -inverse));

    const double squares = PlFunz_sumsqrdparms(a, b);
    FUZZ_CHECK(squares >= 0.0 || std::isnan(squares));
    FUZZ_CHECK(std::isnan(squares) == (std::isnan(a) || std::isnan(b)));
    FUZZ_CHECK(same(squares, PlFunz_sumsqrdparms(b, -a)));

    double snapped = a;
    PlFunz_snap_zero(snapped);
    FUZZ_CHECK(std::fabs(a) <= PL_EPS ? fuzz::positive_zero(snapped) : same(snapped, a));

    // b wins every near-tie, and a NaN is no winner.
    const double larger = PlFunz_max_tol(a, b);
    FUZZ_CHECK(same(larger, b) || (same(larger, a) && a > b));
    const double smaller = PlFunz_min_tol(a, b);
    FUZZ_CHECK(same(smaller, b) || (same(smaller, a) && a < b));
    FUZZ_CHECK(same(smaller, b) || same(larger, b));
}

void check_points(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    const double dist = PlFunz_distance(&p, &q);
    FUZZ_CHECK(dist >= 0.0 || std::isnan(dist));
    FUZZ_CHECK(same(dist, PlFunz_distance(&q, &p)));
    const bool finite = fuzz::all_finite({p, q});
    if (finite) {
        FUZZ_CHECK(!std::isnan(dist));
        FUZZ_CHECK(fuzz::positive_zero(PlFunz_distance(&p, &p)));
    }
    if (fuzz::all_within(1e150, {p, q}))
        FUZZ_CHECK(fuzz::near(dist, fuzz::apart(p, q), 1e-15 * dist + 1e-160));

    FUZZ_CHECK(std::strcmp(PlFunz_version(), PLCALC_VERSION) == 0);
    const bool one = PlFunz_samepnt(&p, &q);
    FUZZ_CHECK(one == PlFunz_samepnt(&q, &p));
    FUZZ_CHECK(PlFunz_samepnt(&p, &p) == fuzz::all_finite({p}));
    if (one)
        FUZZ_CHECK(finite && dist <= 1.5e-7);
    else if (finite)
        FUZZ_CHECK(dist >= PL_EPS);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    double v[6];
    for (double& number : v)
        number = in.number();
    check_setters(v, static_cast<PL_AngleMeasType>(in.selector()));
    check_numbers(v[0], v[1]);
    check_numbers(v[1], v[0]);
    const PL_PNT2D_record p = in.point();
    const PL_PNT2D_record q = in.point();
    check_points(p, q);
    return 0;
}
