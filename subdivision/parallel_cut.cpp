#include <cstddef>

#include "plcalc/lines.h"
#include "plcalc/subdivision.h"
#include "plcalc/survey.h"
#include "subdivision/search.h"

namespace {

// Thirty halvings bring a strip to a billionth of its depth: what has not met the request by then will not.
constexpr int kMaxBisections = 30;

// The vertex after the two of the base side, where the sweep starts.
constexpr std::int32_t kFirstSwept = 2;

}  // namespace

// Sweeps the vertices in the ring's order, a line parallel to the base side through each, until one cuts
// off more than the request; the line asked for lies between that vertex and the base side.
bool CFrazArea::CalcolaFrazionLineaPar()
{
    Trovato = false;
    PlFunz_lineeq_ile(&PuntoLato1, &PuntoLato2, &RettaBase);
    IndiceInizio = plcalc::find_side(VettPoligono, NumPunti, PuntoLato1, PuntoLato2);
    if (IndiceInizio < 0)
        return false;
    for (std::int32_t j = 0; j <= NumPunti; ++j)
        VettIndici[static_cast<std::size_t>(j)] = plcalc::round_from(IndiceInizio, j, NumPunti);
    if (NumPunti < kFirstSwept)
        return false;  // one point: there is no vertex to sweep to

    std::int32_t v = kFirstSwept;
    do {
        PL_PNT2D_record q = VettPoligono[static_cast<std::size_t>(VettIndici[static_cast<std::size_t>(v)])];
        PlFunz_linepntparallel(&RettaMobile, &q, &RettaBase);
        CalcDistPuntoDaRetta(&RettaBase, &q, DistLinea, AngLinea);
        // A line of the sweep is a probe: its second end is not the result's.
        PL_PNT2D_record probe_end = {};
        if (CalcAreaDaPuntoPrimaDiVertice(PuntoRis1, probe_end) && AreaParziale > AreaRichiesta)
            TrovatoPuntoMaxEtMedioConPuntoPrec(q);
        ++v;
    } while (v < NumPunti && !Trovato);
    return true;
}

// Halves the distance between the base line and q until the line there cuts off the request. The bound on
// the wrong side moves to the chord's second end, which is as far from the base line as the midpoint was.
void CFrazArea::TrovatoPuntoMaxEtMedioConPuntoPrec(PL_PNT2D_record& q)
{
    Trovato = false;
    PL_IMP_LINE_2D_record perpendicular = {};
    PlFunz_linepntperpend(&RettaBase, &q, &perpendicular);
    PL_PNT2D_record f = {};
    PlFunz_intersect_ile(&RettaBase, &perpendicular, &f);

    for (int bisections = 0; bisections < kMaxBisections && !Trovato;) {
        const PL_PNT2D_record m = {(q.x + f.x) * 0.5, (q.y + f.y) * 0.5};
        PlFunz_linepntparallel(&RettaMobile, &m, &RettaBase);
        CalcDistPuntoDaRetta(&RettaBase, &m, DistLinea, AngLinea);
        CalcAreaDaPuntoPrimaDiVertice(PuntoRis1, PuntoRis2);

        if (plcalc::meets_request(AreaParziale, AreaRichiesta)) {
            Trovato = true;
        } else {
            ++bisections;
            (AreaParziale < AreaRichiesta ? f : q) = PuntoRis2;
        }
    }
}
