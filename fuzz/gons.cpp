// The companion library: five operations in gons, and the point container against a plain model of it.

#include <utility>

#include "fuzz/check.h"
#include "fuzz/parcel.h"
#include "fuzz/reader.h"
#include "plutil/plutil.h"

namespace {

using fuzz::Reader;
using fuzz::Ring;
using fuzz::same;

constexpr double kGonPerRad = 63.66197723675813;

double off_by_turns(double a, double b)
{
    return std::fabs(std::remainder(a - b, 400.0));
}

void check_direction(double a, double b)
{
    const double gon = AngoloDaAsseRifer(a, b);
    FUZZ_CHECK(std::isnan(gon) == (std::isnan(a) || std::isnan(b)));
    if (std::isnan(gon))
        return;
    FUZZ_CHECK(gon >= 0.0 && gon < 400.0 && !std::signbit(gon));
    if (a != 0.0 && b != 0.0)
        FUZZ_CHECK(off_by_turns(gon, std::atan2(a, b) * kGonPerRad) <= 1e-12);
    else
        FUZZ_CHECK(gon == (a > 0.0 ? 100.0 : a < 0.0 ? 300.0 : b < 0.0 ? 200.0 : 0.0));
}

void check_reduction(double angle)
{
    const double full = LimiteAng0_400(angle);
    const double half = LimiteAng200_200(angle);
    FUZZ_CHECK(std::isnan(full) == !std::isfinite(angle));
    FUZZ_CHECK(std::isnan(half) == !std::isfinite(angle));
    if (!std::isfinite(angle))
        return;
    FUZZ_CHECK(full >= 0.0 && full < 400.0 - 1e-10 && !std::signbit(full));
    FUZZ_CHECK(half > -200.0 && half <= 200.0 && !(half == 0.0 && std::signbit(half)));
    FUZZ_CHECK(same(LimiteAng0_400(full), full));
    FUZZ_CHECK(same(LimiteAng200_200(half), half));
    // The remainder of a division is exact, whatever the size of the angle.
    FUZZ_CHECK(off_by_turns(half, std::fmod(angle, 400.0)) == 0.0);
    FUZZ_CHECK(off_by_turns(full, half) <= 1.1e-10);
}

void check_displacement(double dist, double angle)
{
    const double east = CalcCoordEst(dist, angle);
    const double north = CalcCoordNord(dist, angle);
    for (const double part : {east, north})
        FUZZ_CHECK(!(part == 0.0 && std::signbit(part)));
    FUZZ_CHECK(!std::isnan(dist) || (std::isnan(east) && std::isnan(north)));
    FUZZ_CHECK(std::isfinite(angle) || (std::isnan(east) && std::isnan(north)));
    if (!fuzz::all_finite({dist, angle}))
        return;
    FUZZ_CHECK(std::fabs(east) <= std::fabs(dist) && std::fabs(north) <= std::fabs(dist));
    if (!fuzz::within(std::fabs(dist), 1e-100, 1e100))
        return;
    FUZZ_CHECK(fuzz::near(std::hypot(east, north) / std::fabs(dist), 1.0, 1e-15));
    // The direction of the displacement is the bearing that it was made with.
    const double bearing = dist > 0.0 ? AngoloDaAsseRifer(east, north) : AngoloDaAsseRifer(-east, -north);
    FUZZ_CHECK(off_by_turns(bearing, LimiteAng200_200(angle)) <= 1e-12);
}

void check_holds(const CPoint3dVector& points, const Ring& model)
{
    FUZZ_CHECK(points.GetNoPoits() == static_cast<int>(model.size()));
    for (int i = 0; i < points.GetNoPoits(); ++i) {
        const PL_PNT2D_record& want = model[static_cast<std::size_t>(i)];
        FUZZ_CHECK(same(points.GetXcoordAt(i), want.x) && same(points.GetYcoordAt(i), want.y));
    }
}

// Any order of the container's operations, on two of them, beside plain vectors of points.
void check_container(Reader& in)
{
    const double v[4] = {in.number(), in.number(), in.number(), in.number()};
    CPoint3dVector one = {{v[0], v[1], v[2]}, {v[2], v[3], v[0]}};
    Ring one_model = {{v[0], v[1]}, {v[2], v[3]}};
    CPoint3dVector two;
    Ring two_model;

    const int steps = in.below(48);
    for (int step = 0; step < steps; ++step) {
        const double x = v[in.below(4)];
        const double y = v[in.below(4)];
        switch (in.below(10)) {
        case 0:
            one.Reserve(in.below(200) - 100);
            break;
        case 1:
            one.Clear();
            one_model.clear();
            break;
        case 2:
            two = one;
            two_model = one_model;
            break;
        case 3:
            two = std::move(one);
            two_model = one_model;
            one_model.clear();
            break;
        case 4: {
            CPoint3dVector copy(one);
            copy.Append(x, y, 0.0);
            two = std::move(copy);
            two_model = one_model;
            two_model.push_back({x, y});
            break;
        }
        case 5: {
            const CPoint3dVector taken(std::move(two));
            check_holds(taken, two_model);
            two_model.clear();
            break;
        }
        case 6: {
            CPoint3dVector& itself = one;
            one = itself;
            one = std::move(itself);
            break;
        }
        default:
            one.Append(x, y, fuzz::kUntouched);
            one_model.push_back({x, y});
            break;
        }
        check_holds(one, one_model);
        check_holds(two, two_model);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const double a = in.number();
    const double b = in.number();
    const double angle = in.angle();
    check_direction(a, b);
    check_direction(b, a);
    check_reduction(angle);
    check_reduction(-angle);
    check_displacement(a, angle);
    check_container(in);
    return 0;
}
