#include "answers/stakeout.h"

#include <algorithm>
#include <cmath>

#include "answers/measure.h"
#include "plcalc/survey.h"

namespace tool {
namespace {

// The base line's own frame. It starts at the line's first point, because implicit lines lose digits far from
// the origin. A power of two makes it some thousands long, because the library takes a line shorter than
// 3.2e-4 for none. Differences of neighbouring coordinates and powers of two are exact.
class BaseFrame {
public:
    explicit BaseFrame(const BaseLine& base) : origin_(base.from.at)
    {
        constexpr int kLengthExponent = 12;
        const double run = std::max(std::fabs(base.to.at.x - origin_.x), std::fabs(base.to.at.y - origin_.y));
        scale_ = std::ldexp(1.0, kLengthExponent - std::ilogb(run));
    }

    PL_PNT2D_record to_local(const PL_PNT2D_record& p) const
    {
        return {(p.x - origin_.x) * scale_, (p.y - origin_.y) * scale_};
    }

    double from_local(double length) const { return length / scale_; }

private:
    PL_PNT2D_record origin_;
    double scale_ = 1.0;
};

void set_polar(const Setup& setup, const PL_PNT2D_record& at, SetOut& values)
{
    const std::optional<double> towards = bearing_gon(setup.station.at, at);
    const std::optional<double> zero = bearing_gon(setup.station.at, setup.orientation.at);
    if (towards && zero)
        values.angle_gon = LimiteAng0_400(*towards - *zero);
    values.distance = PlFunz_distance(&setup.station.at, &at);
}

void set_offsets(const BaseLine& base, const PL_PNT2D_record& at, SetOut& values)
{
    const BaseFrame frame(base);
    const PL_PNT2D_record from = {};
    const PL_PNT2D_record to = frame.to_local(base.to.at);
    const PL_PNT2D_record point = frame.to_local(at);
    PL_PNT2D_record foot = {};
    // "+ 0.0" turns the "-0.0" of a point on the line into "0.0".
    values.ordinate = frame.from_local(DistSegmDaPt(&from, &to, &point, &foot)) + 0.0;
    values.abscissa = frame.from_local(DistPtSuSegmDaPt(&from, &to, &from, &foot)) + 0.0;
}

}  // namespace

std::vector<SetOut> set_out(const Setup& setup, const BaseLine& base, const std::vector<NamedPoint>& points,
                            double ground_factor)
{
    std::vector<SetOut> all;
    for (const NamedPoint& point : points) {
        SetOut values;
        values.point = point;
        set_polar(setup, point.at, values);
        set_offsets(base, point.at, values);
        values.distance /= ground_factor;
        values.abscissa /= ground_factor;
        values.ordinate /= ground_factor;
        all.push_back(values);
    }
    return all;
}

}  // namespace tool
