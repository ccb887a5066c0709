#include <cstddef>

#include "plcalc/lines.h"
#include "plcalc/subdivision.h"
#include "plcalc/survey.h"
#include "subdivision/search.h"

// Splits the parcel by the perpendicular through the base side's midpoint, keeps the half in which the line
// must lie, and cuts the rest of the request off it by a parallel to that perpendicular.
bool CFrazArea::CalcolaFrazionLineaPerp()
{
    Trovato = false;
    const PL_PNT2D_record a = PuntoLato1;
    const PL_PNT2D_record b = PuntoLato2;
    const PL_PNT2D_record m = {(b.x + a.x) * 0.5, (b.y + a.y) * 0.5};
    PL_IMP_LINE_2D_record side = {};
    PlFunz_lineeq_ile(&a, &b, &side);
    PL_IMP_LINE_2D_record perpendicular = {};
    PlFunz_linepntperpend(&side, &m, &perpendicular);

    IndiceInizio = plcalc::find_side(VettPoligono, NumPunti, a, b);
    if (IndiceInizio < 0)
        return false;
    const auto vertex = [this](std::int32_t j) -> const PL_PNT2D_record& {
        return VettPoligono[static_cast<std::size_t>(plcalc::round_from(IndiceInizio, j, NumPunti))];
    };

    // The first other side that the perpendicular meets.
    std::int32_t s = 1;
    PL_PNT2D_record c = {};
    while (s < NumPunti && !IntersezLineaInSegmOK(vertex(s), vertex(s + 1), perpendicular, c))
        ++s;
    if (s >= NumPunti)
        return false;

    // The half ahead: from the midpoint along the side, round to the crossing.
    std::vector<PL_PNT2D_record> half;
    half.reserve(static_cast<std::size_t>(NumPunti) + 3);
    half.push_back(m);
    for (std::int32_t j = 1; j <= s; ++j)
        half.push_back(vertex(j));
    half.push_back(c);
    const double area_ahead = AreaCalcolataDaVett(static_cast<int>(half.size()), half);
    PuntoLato1 = c;
    PuntoLato2 = m;
    AreaRichiesta = area_ahead - AreaRichiesta;

    if (AreaRichiesta < 0.0) {
        // The half ahead is too small: the half behind gives what is missing.
        half.clear();
        half.push_back(c);
        for (std::int32_t j = s + 1; j <= NumPunti; ++j)
            half.push_back(vertex(j));
        half.push_back(m);
        AreaRichiesta = -AreaRichiesta;
        PuntoLato1 = m;
        PuntoLato2 = c;
    }

    // The half becomes the working polygon. It can have a vertex more than the parcel.
    NumPunti = static_cast<std::int32_t>(half.size());
    half.push_back(half.front());
    VettPoligono.swap(half);
    if (VettIndici.size() < VettPoligono.size())
        VettIndici.resize(VettPoligono.size());
    return CalcolaFrazionLineaPar();
}
