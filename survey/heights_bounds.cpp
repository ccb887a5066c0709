#include <cmath>
#include <utility>

#include "kernel/primitives.h"
#include "plcalc/survey.h"

namespace {

// Equal values, and a NaN, stay as given.
void order(double& low, double& high)
{
    if (low > high)
        std::swap(low, high);
}

}  // namespace

void CalcoloQuotaSuSegmento(double x1, double y1, double z1, double x2, double y2, double z2, double x,
                            double y, double& z) noexcept
{
    const double length = plcalc::step_length(x1 - x2, y1 - y2);
    const double run = plcalc::step_length(x1 - x, y1 - y);
    z = ((z2 - z1) / length) * run + z1;
}

void CalcoloBdry(double x1, double y1, double z1, double x2, double y2, double z2,
                 PL_RECT_3D_record* box) noexcept
{
    order(x1, x2);
    order(y1, y2);
    order(z1, z2);
    PlFunz_set_rect_3d(x1, y1, z1, x2, y2, z2, box);
}

bool NumeroEstZero(double value, const double& tol) noexcept
{
    return std::fabs(value) <= tol;
}

bool StessoPunto(const PL_PNT2D_record& p1, const PL_PNT2D_record& p2, const double& tol) noexcept
{
    return NumeroEstZero(p1.x - p2.x, tol) && NumeroEstZero(p1.y - p2.y, tol);
}
