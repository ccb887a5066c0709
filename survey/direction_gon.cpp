#include "survey/direction_gon.h"

namespace plcalc {

namespace {

// Degrees to gons: the double nearest 10/9.
constexpr double kGonPerDeg = 1.1111111111111112;

}  // namespace

double direction_gon(const PL_PNT2D_record& from, const PL_PNT2D_record& to) noexcept
{
    return PlFunz_arctan_deg(to.x - from.x, to.y - from.y) * kGonPerDeg;
}

}  // namespace plcalc
