#include <cmath>
#include <cstddef>

#include "plcalc/lines.h"
#include "plcalc/subdivision.h"
#include "subdivision/search.h"

namespace {

// At most one wedge fewer is evaluated: the fan is then halved to a rounding error of its width.
constexpr int kMaxWedges = 50;

// Gons to radians at ten significant digits, deliberately. It costs 8e-10 rad on a full turn, a micrometre
// at a kilometre, and the search measures what the ray cuts off. Dividing lines on file carry it.
constexpr double kRadPerGon = 0.01570796327;

// Points on the edges of the wedge count, rounding or not.
constexpr double kWedgeStartGon = -1e-10;
constexpr double kWedgeWidening = 1.0000000001;

// The fan of directions in which the vertex sees the parcel, in gons from the direction of point 1. The
// search runs from `open` towards `anchor`, the edge from which wedges are measured.
struct Fan {
    double open;
    double anchor;
};

double direction_gon(const PL_PNT2D_record& from, const PL_PNT2D_record& to)
{
    return AngoloDaAsseRifer(to.y - from.y, to.x - from.x);
}

void widen(Fan& fan, double turned, bool clockwise)
{
    if (clockwise) {
        if (turned <= 0.0 && turned < fan.open)
            fan.open = turned;
        if (turned > 0.0 && turned > fan.anchor)
            fan.anchor = turned;
    } else {
        if (turned >= 0.0 && turned > fan.open)
            fan.open = turned;
        if (turned < 0.0 && turned < fan.anchor)
            fan.anchor = turned;
    }
}

}  // namespace

// Halves the angle between the two edges of the fan until the wedge between the anchor and the ray holds
// the request.
bool CFrazArea::CalcolaFrazionPuntoVer()
{
    Trovato = false;
    PuntoVertice = PuntoLato1;
    IndiceInizio = plcalc::find_vertex(VettPoligono, NumPunti, PuntoVertice);
    if (IndiceInizio < 0)
        return false;
    const bool clockwise = AreaCalcolataDaVettSgn(NumPunti, VettPoligono) < 0.0;
    for (std::int32_t j = 0; j <= NumPunti; ++j)
        VettIndici[static_cast<std::size_t>(j)] = plcalc::round_from(IndiceInizio, j, NumPunti);
    const auto seen_at_gon = [this](std::int32_t j) {
        const std::int32_t index = VettIndici[static_cast<std::size_t>(j)];
        return direction_gon(PuntoVertice, VettPoligono[static_cast<std::size_t>(index)]);
    };

    // From point to point the turn is below half a circle, so the sum unwinds the directions.
    const double first_gon = seen_at_gon(1);
    Fan fan = {0.0, 0.0};
    double turned = 0.0;
    double before_gon = first_gon;
    for (std::int32_t j = 2; j < NumPunti; ++j) {
        const double dir_gon = seen_at_gon(j);
        turned += LimiteAng200_200(dir_gon - before_gon);
        before_gon = dir_gon;
        widen(fan, turned, clockwise);
    }

    const double anchor = fan.anchor;
    double wide = fan.open;      // a wedge up to here holds too much
    double narrow = fan.anchor;  // up to here too little
    for (int wedges = 1; wedges < kMaxWedges && !Trovato; ++wedges) {
        const double ray = (wide + narrow) * 0.5;
        AngAmpiezza = std::fabs(ray - anchor);
        AngInizio = LimiteAng0_400(first_gon + (clockwise ? ray : anchor));
        const double ray_rad = (first_gon + ray) * kRadPerGon;
        const PL_PNT2D_record on_ray = {PuntoVertice.x + std::cos(ray_rad),
                                        PuntoVertice.y + std::sin(ray_rad)};
        PlFunz_lineeq_ile(&PuntoVertice, &on_ray, &RettaAux);
        AreaParziale = CalcAreaDaVertice();

        if (plcalc::meets_request(AreaParziale, AreaRichiesta))
            Trovato = true;
        else
            (AreaParziale < AreaRichiesta ? narrow : wide) = ray;
    }
    return true;
}

// Area of the wedge: the points that the vertex sees within it, and the ray's crossings. The vertex itself
// comes in with point 1, when that lies in the wedge.
double CFrazArea::CalcAreaDaVertice()
{
    NumIntersez = 0;
    PuntoRis1 = PuntoVertice;
    VettParziale.clear();
    NumPuntiParz = 0;

    for (std::int32_t j = 1; j < NumPunti; ++j) {
        PL_PNT2D_record crossing = {};
        if (j > 1 && TrovataIntersezValidaSegmConLato2(j, RettaAux, crossing)) {
            IncrementaVett(crossing);
            TrovaLimitiSegmento2(PuntoRis1, PuntoRis2, crossing);
        }

        const std::int32_t index = VettIndici[static_cast<std::size_t>(j)];
        const PL_PNT2D_record& point = VettPoligono[static_cast<std::size_t>(index)];
        const double from_start_gon = LimiteAng0_400(direction_gon(PuntoVertice, point) - AngInizio);
        if (from_start_gon >= kWedgeStartGon && from_start_gon <= AngAmpiezza * kWedgeWidening) {
            if (j == 1)
                IncrementaVett(PuntoVertice);
            IncrementaVett(point);
        }
    }
    return AreaCalcolataDaVett(NumPuntiParz, VettParziale);
}
