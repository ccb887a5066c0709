#include <cmath>
#include <cstddef>

#include "plcalc/lines.h"
#include "plcalc/subdivision.h"
#include "subdivision/partial_polygon.h"
#include "subdivision/search.h"
#include "subdivision/vertex_trials.h"

namespace plcalc {

namespace {

// One wedge less than this is evaluated at most: by then the fan is halved to a rounding error of its width.
constexpr int kMaxWedges = 50;

// Gons to radians at ten significant digits, deliberately. It costs 8e-10 rad on a full turn, a micrometre
// at a kilometre, and the search measures what the ray cuts off. It stays, to keep results comparable between
// versions.
constexpr double kRayRadPerGon = 0.01570796327;

// The fan of directions in which the vertex sees the parcel, in gons from the direction of point 1. Wedges are
// measured from the edge `anchor`; the search runs from `open` towards it.
struct Fan {
    double open;
    double anchor;
};

// Both edges start in the direction of point 1, at 0.
void widen(Fan& fan, double turned, bool clockwise)
{
    if (clockwise) {
        if (turned < fan.open)
            fan.open = turned;
        if (turned > fan.anchor)
            fan.anchor = turned;
    } else {
        if (turned > fan.open)
            fan.open = turned;
        if (turned < fan.anchor)
            fan.anchor = turned;
    }
}

}  // namespace

/// The search for a line through the vertex, over the working values of its object.
class VertexSearch {
public:
    explicit VertexSearch(CFrazArea& cut)
        : cut_(cut), trials_(cut.VettPoligono, cut.VettIndici, cut.NumPunti, cut.PuntoVertice),
          piece_(trials_.points())
    {}

    // Halves the angle between the two edges of the fan until the wedge between the anchor and the ray holds
    // the request.
    void turn(bool clockwise)
    {
        const double first_gon = trials_.seen_at_gon(1);
        const Fan fan = open_fan(clockwise);
        double wide = fan.open;      // a wedge up to here holds too much
        double narrow = fan.anchor;  // up to here too little
        const double anchor_gon = LimiteAng0_400(first_gon + fan.anchor);
        for (int wedges = 1; wedges < kMaxWedges && !cut_.Trovato; ++wedges) {
            const double ray = (wide + narrow) * 0.5;
            cut_.AngAmpiezza = std::fabs(ray - fan.anchor);
            cut_.AngInizio = clockwise ? LimiteAng0_400(first_gon + ray) : anchor_gon;
            lay((first_gon + ray) * kRayRadPerGon);
            cut_off();
            const PartialPolygon::Verdict verdict = piece_.against(cut_.AreaRichiesta);
            if (verdict == PartialPolygon::Verdict::kMeets)
                cut_.Trovato = true;
            else
                (verdict == PartialPolygon::Verdict::kBelow ? narrow : wide) = ray;
        }
        cut_.AreaParziale = show_piece();
    }

    // The wedge that the object holds.
    double measure()
    {
        trials_.lay_ray(cut_.RettaAux);
        cut_off();
        return show_piece();
    }

private:
    // From each point to the next the turn is below half a circle, so the sum of the turns gives the whole fan.
    Fan open_fan(bool clockwise) const
    {
        Fan fan = {0.0, 0.0};
        double turned = 0.0;
        double before_gon = trials_.seen_at_gon(1);
        for (std::int32_t at = 2; at < cut_.NumPunti; ++at) {
            const double dir_gon = trials_.seen_at_gon(at);
            turned += LimiteAng200_200(dir_gon - before_gon);
            before_gon = dir_gon;
            widen(fan, turned, clockwise);
        }
        return fan;
    }

    // The wedge: the points that the vertex sees within it, and the ray's crossings. The vertex itself comes in
    // with point 1, when that lies in the wedge.
    void cut_off()
    {
        cut_.NumIntersez = 0;
        cut_.PuntoRis1 = cut_.PuntoVertice;
        piece_.clear();
        trials_.lay_wedge(cut_.AngInizio, cut_.AngAmpiezza);

        for (std::int32_t at = 1; at < cut_.NumPunti; ++at) {
            PL_PNT2D_record crossing = {};
            if (at > 1 && trials_.meets_side(at, crossing)) {
                piece_.append_point(crossing);
                cut_.TrovaLimitiSegmento2(cut_.PuntoRis1, cut_.PuntoRis2, crossing);
            }
            if (trials_.in_wedge(at))
                piece_.append_vertices(at == 1 ? 0 : at, at);
        }
    }

    // Writes its area and its points into the object.
    double show_piece()
    {
        piece_.write_to(cut_.VettParziale);
        cut_.NumPuntiParz = piece_.size();
        return piece_.area();
    }

    void lay(double ray_rad)
    {
        const PL_PNT2D_record& vertex = cut_.PuntoVertice;
        const PL_PNT2D_record on_ray = {vertex.x + std::cos(ray_rad), vertex.y + std::sin(ray_rad)};
        PlFunz_lineeq_ile(&vertex, &on_ray, &cut_.RettaAux);
        trials_.lay_ray(cut_.RettaAux, ray_rad);
    }

    CFrazArea& cut_;
    VertexTrials trials_;
    PartialPolygon piece_;
};

}  // namespace plcalc

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

    plcalc::VertexSearch(*this).turn(clockwise);
    return true;
}

double CFrazArea::CalcAreaDaVertice()
{
    return plcalc::VertexSearch(*this).measure();
}
