#include <cstddef>

#include "plcalc/subdivision.h"

namespace {

// Kinds of cut.
constexpr std::int32_t kModoParallel = 0;
constexpr std::int32_t kModoPerpendicular = 1;
constexpr std::int32_t kModoVertex = 2;

// Ways to give the requested area. Any other leaves the area as it was.
constexpr std::int32_t kTipoProduct = 0;
constexpr std::int32_t kTipoValue = 1;

}  // namespace

CFrazArea::CFrazArea(const CPoint3dVector& poly, PL_PNT2D_record p1, PL_PNT2D_record p2, int modo,
                     int tipoArea, double valore1, double valore2) noexcept
    : Poligono(poly), PuntoLato1(p1), PuntoLato2(p2), Modo(modo), TipoArea(tipoArea), Valore1(valore1),
      Valore2(valore2), PuntoRis1(), PuntoRis2(), PuntoMedio(), PuntoVertice(), NumIntersez(0),
      NumPuntiParz(0), Trovato(false), NumPunti(0), IndiceInizio(0), DistLinea(0.0), AngLinea(0.0),
      AreaParziale(0.0), AreaRichiesta(0.0), AngInizio(0.0), AngAmpiezza(0.0), RettaBase(), RettaMobile(),
      RettaAux()
{}

CFrazArea::CFrazArea(const CFrazArea& other) = default;

CFrazArea::~CFrazArea() = default;

bool CFrazArea::Esegui(double& x1, double& y1, double& z1, double& x2, double& y2, double& z2)
{
    NumPunti = Poligono.GetNoPoits();
    const std::size_t n = static_cast<std::size_t>(NumPunti);
    VettPoligono.resize(n + 1);
    VettIndici.resize(n + 1);
    VettParziale.reserve(2 * n);
    for (std::int32_t i = 0; i < NumPunti; ++i)
        VettPoligono[static_cast<std::size_t>(i)] = {Poligono.GetXcoordAt(i), Poligono.GetYcoordAt(i)};
    VettPoligono[n] = VettPoligono[0];

    if (TipoArea == kTipoProduct)
        AreaRichiesta = Valore2 * Valore1;
    else if (TipoArea == kTipoValue)
        AreaRichiesta = Valore1;

    bool done = false;
    switch (Modo) {
    case kModoParallel:
        done = CalcolaFrazionLineaPar();
        break;
    case kModoPerpendicular:
        done = CalcolaFrazionLineaPerp();
        break;
    case kModoVertex:
        done = CalcolaFrazionPuntoVer();
        break;
    default:
        break;
    }

    // The outputs are always written: after a failure they hold the previous result.
    x1 = PuntoRis1.x;
    y1 = PuntoRis1.y;
    z1 = 0.0;
    x2 = PuntoRis2.x;
    y2 = PuntoRis2.y;
    z2 = 0.0;
    return done;
}
