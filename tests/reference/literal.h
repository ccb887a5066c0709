#pragma once

// Literal forms. The subdivision: every trial line measures every vertex and meets every side anew. It
// keeps nothing between trials, so it has nothing to keep wrongly; the library's form must equal it to the
// last bit, results and working values.

#include <cstdint>
#include <vector>

#include "plcalc/kernel.h"

namespace reference {

using Point = PL_PNT2D_record;
using Line = PL_IMP_LINE_2D_record;

/// Working values under the names that CFrazArea gives them.
class LiteralCut {
public:
    /// The request as CFrazArea takes it.
    LiteralCut(const std::vector<Point>& ring, Point p1, Point p2, int modo, int tipo_area, double valore1,
               double valore2);

    /// A request by one value.
    LiteralCut(const std::vector<Point>& ring, Point p1, Point p2, int modo, double requested);

    /// As Esegui; a second time it starts from what the first one left.
    bool run();

    std::vector<Point> Poligono;
    Point PuntoLato1;
    Point PuntoLato2;
    int Modo;
    int TipoArea;
    double Valore1;
    double Valore2;
    Point PuntoRis1 = {};
    Point PuntoRis2 = {};
    Point PuntoMedio = {};
    Point PuntoVertice = {};
    std::int32_t NumIntersez = 0;
    std::int32_t NumPuntiParz = 0;
    bool Trovato = false;
    std::int32_t NumPunti = 0;
    std::int32_t IndiceInizio = 0;
    double DistLinea = 0.0;
    double AngLinea = 0.0;
    double AreaParziale = 0.0;
    double AreaRichiesta = 0.0;
    double AngInizio = 0.0;
    double AngAmpiezza = 0.0;
    Line RettaBase = {};
    Line RettaMobile = {};
    Line RettaAux = {};
    std::vector<Point> VettPoligono;
    std::vector<Point> VettParziale;
    std::vector<std::int32_t> VettIndici;

    long trials = 0;  ///< areas evaluated

private:
    void read_request();
    bool parallel();
    bool perpendicular();
    bool through_vertex();
    void bisect(Point q);
    void area_before_line(Point& r1, Point& r2);
    double area_in_wedge();
    std::int32_t find_side(Point p1, Point p2) const;
    const Point& at(std::int32_t j) const;
    void append(const Point& p);
    void outermost(Point& r1, Point& r2, const Point& p);
    void number_from_start();
    bool met() const;
};

/// As PlFunz_inpolygon, with every comparison made anew at every edge, for comparing bit and cost.
bool literal_inpolygon(const PL_PNT2D_record* pt, const PL_PNT2D_record* vertices, const int* count,
                       int* rightmostIndex);

}  // namespace reference
