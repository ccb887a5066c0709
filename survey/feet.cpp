#include "survey/feet.h"

namespace plcalc {

namespace {

// Degrees to gons: the double nearest 10/9.
constexpr double kGonPerDeg = 1.1111111111111112;

}  // namespace

FeetOnLine::FeetOnLine(const PL_IMP_LINE_2D_record& line) noexcept
    : a_(line.a), b_(line.b), perpendiculars_(line, line.b, line.a * -1.0)
{}

bool FeetOnLine::find(const PL_PNT2D_record& pt, PL_PNT2D_record& foot) const noexcept
{
    const double c = a_ * pt.y - b_ * pt.x;
    if (!perpendiculars_.meets(c))
        return false;
    foot = {perpendiculars_.x_at(c), perpendiculars_.y_at(c)};
    return true;
}

double direction_gon(const PL_PNT2D_record& from, const PL_PNT2D_record& to) noexcept
{
    return PlFunz_arctan_deg(to.x - from.x, to.y - from.y) * kGonPerDeg;
}

}  // namespace plcalc
