#include <cmath>
#include <cstddef>

#include "kernel/primitives.h"
#include "kernel/shoelace.h"
#include "plcalc/subdivision.h"
#include "plcalc/survey.h"

namespace {

// Squares that differ by more than this factor have different roots, though each is rounded.
constexpr double kOfSquares = 1.0 + 0x1p-48;

double squared_distance(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    const double dy = p.y - q.y;
    const double dx = p.x - q.x;
    return dy * dy + dx * dx;
}

// Whether CalcDist from p to q is greater than from r to s. Roots are taken only of squares that are nearly equal.
bool farther(const PL_PNT2D_record& p, const PL_PNT2D_record& q, const PL_PNT2D_record& r,
             const PL_PNT2D_record& s)
{
    const double far2 = squared_distance(p, q);
    const double near2 = squared_distance(r, s);
    if (far2 <= near2)
        return false;
    return far2 > near2 * kOfSquares || plcalc::distance(p, q) > plcalc::distance(r, s);
}

PL_PNT2D_record midpoint(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
}

}  // namespace

double CFrazArea::AreaCalcolataDaVettSgn(int count, const std::vector<PL_PNT2D_record>& points) const noexcept
{
    return plcalc::shoelace_area(points.data(), static_cast<std::size_t>(count));
}

double CFrazArea::AreaCalcolataDaVett(int count, const std::vector<PL_PNT2D_record>& points) const noexcept
{
    return std::fabs(AreaCalcolataDaVettSgn(count, points));
}

double CFrazArea::CalcDist(const PL_PNT2D_record& a, const PL_PNT2D_record& b) const noexcept
{
    return PlFunz_distance(&a, &b);
}

void CFrazArea::IncrementaVett(const PL_PNT2D_record& p)
{
    VettParziale.push_back(p);
    NumPuntiParz += 1;
}

// Keeps the two outermost crossings. A third one outside the chord takes the place of the nearer end.
void CFrazArea::TrovaLimitiSegmento(PL_PNT2D_record& r1, PL_PNT2D_record& r2,
                                    const PL_PNT2D_record& p) noexcept
{
    NumIntersez += 1;
    if (NumIntersez == 1)
        r1 = p;
    else if (NumIntersez == 2)
        r2 = p;
    else if (farther(PuntoMedio, p, PuntoMedio, r1))
        (farther(r2, p, r1, p) ? r1 : r2) = p;

    if (NumIntersez >= 2)
        PuntoMedio = midpoint(r1, r2);
}

// Keeps the crossing farthest from r1; the earlier one on a tie.
void CFrazArea::TrovaLimitiSegmento2(const PL_PNT2D_record& r1, PL_PNT2D_record& r2,
                                     const PL_PNT2D_record& p) noexcept
{
    NumIntersez += 1;
    if (NumIntersez == 1 || farther(r1, p, r1, r2))
        r2 = p;
}

bool CFrazArea::TrovataIntersezValidaSegmConLato2(int i, const PL_IMP_LINE_2D_record& line,
                                                  PL_PNT2D_record& out) const noexcept
{
    const std::size_t side = static_cast<std::size_t>(i);
    const PL_PNT2D_record& from = VettPoligono[static_cast<std::size_t>(VettIndici[side - 1])];
    const PL_PNT2D_record& to = VettPoligono[static_cast<std::size_t>(VettIndici[side])];
    return IntersezLineaInSegmOK(from, to, line, out);
}
