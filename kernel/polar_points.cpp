#include <cmath>

#include "kernel/angle_units.h"
#include "kernel/tolerance.h"

namespace {

// Offsets of a distance in a direction given in radians. The direction is brought below a quarter turn
// first, so that sine and cosine see small arguments. The distance keeps its sign.
PL_PNT2D_record offset_rad(double dist, double dir_rad)
{
    using plcalc::above;
    using plcalc::kRadians;

    const double turned = plcalc::within_one_turn(dir_rad, kRadians.full);
    if (above(turned, kRadians.three_quarters)) {
        const double rest = turned - kRadians.three_quarters;
        return {dist * std::sin(rest), -dist * std::cos(rest)};
    }
    if (above(turned, kRadians.half)) {
        const double rest = turned - kRadians.half;
        return {-dist * std::cos(rest), -dist * std::sin(rest)};
    }
    if (above(turned, kRadians.quarter)) {
        const double rest = turned - kRadians.quarter;
        return {-dist * std::sin(rest), dist * std::cos(rest)};
    }
    return {dist * std::cos(turned), dist * std::sin(turned)};
}

// Point at a distance in a direction given as a pseudo-angle. In this unit alone the distance loses its sign.
PL_PNT2D_record polar_point_pseudo(const PL_PNT2D_record& origin, double dist, double a_pseudo)
{
    using plcalc::at_most;
    using plcalc::is_near;

    const double a = plcalc::within_one_turn(a_pseudo, plcalc::kPseudoTurn);
    double quadrant = 0.0;
    const double t = std::modf(a, &quadrant);

    // t is tan(half the angle within the quadrant), from which cosine and sine follow without a root.
    const double r = std::fabs(dist) / (t * t + 1.0);
    const double along = (1.0 - t * t) * r;
    const double across = 2.0 * t * r;

    // At 1 and 2 the next quadrant's formula is right, since t is 0 there. A value just below has t near 1:
    // below 1 it lands a quarter turn early, at +x, and below 2 a quarter turn late, at -y. For 3 there is no
    // such case, and it gives -x. All three stay, to keep results comparable between versions.
    if (at_most(a, 1.0)) {
        if (is_near(a, 1.0))
            return {origin.x + across, origin.y + along};
        return {origin.x + along, origin.y + across};
    }
    if (at_most(a, 2.0)) {
        if (is_near(a, 2.0))
            return {origin.x - along, origin.y - across};
        return {origin.x - across, origin.y + along};
    }
    if (at_most(a, 3.0))
        return {origin.x - along, origin.y - across};
    return {origin.x + across, origin.y - along};
}

}  // namespace

void PlFunz_pntangledist(int unit, const PL_PNT2D_record* origin, double dist, double angle,
                         PL_PNT2D_record* out) noexcept
{
    if (unit == plcalc::kPolarPseudo) {
        *out = polar_point_pseudo(*origin, dist, angle);
    } else {
        const double dir_rad = unit == plcalc::kPolarDegrees ? angle * plcalc::kRadPerDeg : angle;
        // The offsets are written to out first, so it must not be the origin's record.
        *out = offset_rad(dist, dir_rad);
        out->x = origin->x + out->x;
        out->y = origin->y + out->y;
    }
    PlFunz_snap_zero(out->x);
    PlFunz_snap_zero(out->y);
}
