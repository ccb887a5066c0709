#pragma once

// Implicit lines for use inside other functions: internal, not installed; for lines/, survey/ and subdivision/.

#include "kernel/primitives.h"

namespace plcalc {

constexpr int kRcSamePoints = 2;
constexpr int kRcNoNormal = 3;

/// The line through two points that are (dx, dy) apart. Its normal (a, b) is the vector from p1 to p2, turned
/// to the left.
inline PL_IMP_LINE_2D_record line_along(const PL_PNT2D_record& p1, const PL_PNT2D_record& p2, double dx,
                                        double dy) noexcept
{
    return {-dy, dx, p1.x * p2.y - p1.y * p2.x};
}

/// As PlFunz_lineeq_ile.
inline int line_between(const PL_PNT2D_record& p1, const PL_PNT2D_record& p2,
                        PL_IMP_LINE_2D_record& out) noexcept
{
    const double dx = p2.x - p1.x;
    const double dy = p2.y - p1.y;
    if (is_short(dx, dy))
        return kRcSamePoints;
    out = line_along(p1, p2, dx, dy);
    return 0;
}

/// Whether the unit normal must be reversed, so that it points from the origin to the line, or upward for a
/// line through the origin.
inline bool points_the_wrong_way(const PL_IMP_LINE_2D_record& line) noexcept
{
    if (line.c > PL_EPS)
        return true;
    return is_zero(line.c) && line.b < -PL_EPS;
}

/// As PlFunz_normal_ile.
inline int normalise(PL_IMP_LINE_2D_record& line) noexcept
{
    // The sum of squares is tested, not its root: normals up to 3.16e-4 long are refused.
    const double length2 = sum_of_squares(line.a, line.b);
    if (is_zero(length2))
        return kRcNoNormal;

    double k = 1.0 / square_root(length2);
    if (points_the_wrong_way(line))
        k = -k;
    line = {line.a * k, line.b * k, line.c * k};
    return 0;
}

}  // namespace plcalc
