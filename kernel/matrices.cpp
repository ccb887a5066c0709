#include <cmath>

#include "kernel/angle_units.h"

namespace {

// A factor at or below this, negative ones included, counts as no scale. A factor has no unit, so this is not
// PL_EPS, which is a length.
constexpr double kLeastScale = 1e-7;

// M := M * T. The product is built in an array of its own, because each entry needs a whole row of M.
void append(const double (&T)[3][3], double (*M)[3])
{
    double P[3][3];
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            P[r][c] = M[r][0] * T[0][c] + M[r][1] * T[1][c] + M[r][2] * T[2][c];
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            M[r][c] = P[r][c];
}

}  // namespace

void PlFunz_getidmatrix2d(double (*M)[3]) noexcept
{
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            M[r][c] = r == c ? 1.0 : 0.0;
}

void PlFunz_rotationmatrix2d(double angleDeg, const PL_PNT2D_record* centre, double (*M)[3]) noexcept
{
    const double turn_rad = angleDeg * plcalc::kRadPerDeg;
    const double s = std::sin(turn_rad);
    const double c = std::cos(turn_rad);

    double T[3][3];
    PlFunz_getidmatrix2d(T);
    T[0][0] = c;
    T[0][1] = s;
    T[1][0] = -s;
    T[1][1] = c;
    T[2][0] = (1.0 - c) * centre->x + centre->y * s;
    T[2][1] = centre->y - (centre->y * c + centre->x * s);
    append(T, M);
}

void PlFunz_translatematrix2d(double dx, double dy, double (*M)[3]) noexcept
{
    double T[3][3];
    PlFunz_getidmatrix2d(T);
    T[2][0] = dx;
    T[2][1] = dy;
    append(T, M);
}

void PlFunz_scalematrix2d(double sx, double sy, const PL_PNT2D_record* centre, double (*M)[3]) noexcept
{
    // Only both together count as "no scale given". A mirror in both axes is such a case.
    if (sx <= kLeastScale && sy <= kLeastScale) {
        sx = 1.0;
        sy = 1.0;
    }

    double T[3][3];
    PlFunz_getidmatrix2d(T);
    T[0][0] = sx;
    T[1][1] = sy;
    T[2][0] = (1.0 - sx) * centre->x;
    T[2][1] = (1.0 - sy) * centre->y;
    append(T, M);
}

void PlFunz_transformpnt2d(const double (*M)[3], const PL_PNT2D_record* in, PL_PNT2D_record* out) noexcept
{
    // x is stored before y is computed, and y reads x again: with one record for both, y comes from the new x.
    // That stays, to keep results comparable between versions; TrasfPt works in place.
    out->x = (M[1][0] * in->y + M[0][0] * in->x) + M[2][0];
    out->y = (M[1][1] * in->y + M[0][1] * in->x) + M[2][1];
}

void TrasfPt(const double (&M)[3][3], double x, double y, double& xOut, double& yOut) noexcept
{
    PL_PNT2D_record in;
    PlFunz_set_pnt_2d(x, y, &in);
    PL_PNT2D_record image;
    PlFunz_transformpnt2d(M, &in, &image);
    xOut = image.x;
    yOut = image.y;
}
