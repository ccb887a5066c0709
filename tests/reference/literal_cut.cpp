#include "reference/literal.h"

#include <cmath>

#include "plutil/plutil.h"

namespace reference {

namespace {

double length(const Point& p, const Point& q)
{
    const double dy = p.y - q.y;
    const double dx = p.x - q.x;
    return std::sqrt(dy * dy + dx * dx);
}

double signed_area(const std::vector<Point>& points, std::int32_t count)
{
    const std::size_t n = static_cast<std::size_t>(count);
    std::vector<double> x(n + 2);
    std::vector<double> y(n + 2);
    for (std::size_t i = 0; i < n; ++i) {
        x[i + 1] = points[i].x;
        y[i + 1] = points[i].y;
    }
    x[0] = x[n];
    y[0] = y[n];
    x[n + 1] = x[1];
    y[n + 1] = y[1];
    double sum = 0.0;
    for (std::size_t i = 1; i <= n; ++i)
        sum = sum + (x[i - 1] - x[i + 1]) * y[i] * 0.5;
    return sum;
}

bool small(double v)
{
    return std::fabs(v) <= 1e-7;
}

bool line_through(const Point& p, const Point& q, Line& line)
{
    const double dx = q.x - p.x;
    const double dy = q.y - p.y;
    if (small(dx) && small(dy))
        return false;
    line.a = -dy;
    line.b = dx;
    line.c = p.x * q.y - p.y * q.x;
    return true;
}

Line perpendicular_through(const Line& line, const Point& p)
{
    return {line.b, line.a * -1.0, line.a * p.y - line.b * p.x};
}

Line parallel_through(const Line& line, const Point& p)
{
    return {line.a, line.b, -(p.y * line.b + p.x * line.a)};
}

bool meet(const Line& l1, const Line& l2, Point& out)
{
    if (small(l1.a - l2.a) && small(l1.b - l2.b) && small(l1.c - l2.c))
        return false;
    const double det = l2.b * l1.a - l1.b * l2.a;
    if (small(det))
        return false;
    const double inv = 1.0 / det;
    out.x = (l1.b * l2.c - l1.c * l2.b) * inv;
    out.y = (l1.c * l2.a - l1.a * l2.c) * inv;
    return true;
}

bool between(double v, double p, double q)
{
    const double low = p < q ? p - 0.001 : q - 0.001;
    const double high = p < q ? q + 0.001 : p + 0.001;
    return v >= low && v <= high;
}

bool line_cuts(const Point& a, const Point& b, const Line& line, Point& out)
{
    Line side = {};
    line_through(a, b, side);
    return meet(side, line, out) && between(out.x, a.x, b.x) && between(out.y, a.y, b.y);
}

double degrees(double x, double y)
{
    if (small(x)) {
        if (small(y))
            return 0.0;
        return y > 1e-7 ? 90.0 : 270.0;
    }
    if (small(y))
        return x > 0.0 ? 0.0 : 180.0;
    const double r = std::atan(std::fabs(y / x)) * 57.29577951308233;
    if (x > 1e-7)
        return y > 1e-7 ? r : 360.0 - r;
    return y > 1e-7 ? 180.0 - r : 180.0 + r;
}

void measure(const Line& line, const Point& p, double& dist, double& gon)
{
    Point foot = {};
    meet(line, perpendicular_through(line, p), foot);
    dist = length(foot, p);
    gon = degrees(p.x - foot.x, p.y - foot.y) * 1.1111111111111112;
}

double bearing(const Point& from, const Point& to)
{
    return AngoloDaAsseRifer(to.y - from.y, to.x - from.x);
}

}  // namespace

LiteralCut::LiteralCut(const std::vector<Point>& ring, Point p1, Point p2, int modo, int tipo_area,
                       double valore1, double valore2)
    : Poligono(ring), PuntoLato1(p1), PuntoLato2(p2), Modo(modo), TipoArea(tipo_area), Valore1(valore1),
      Valore2(valore2)
{}

LiteralCut::LiteralCut(const std::vector<Point>& ring, Point p1, Point p2, int modo, double requested)
    : LiteralCut(ring, p1, p2, modo, 1, requested, 0.0)
{}

bool LiteralCut::run()
{
    read_request();
    if (Modo == 0)
        return parallel();
    if (Modo == 1)
        return perpendicular();
    return Modo == 2 && through_vertex();
}

void LiteralCut::read_request()
{
    const std::size_t n = Poligono.size();
    NumPunti = static_cast<std::int32_t>(n);
    VettPoligono.resize(n + 1);
    VettIndici.resize(n + 1);
    for (std::size_t i = 0; i < n; ++i)
        VettPoligono[i] = Poligono[i];
    VettPoligono[n] = VettPoligono[0];
    if (TipoArea == 0)
        AreaRichiesta = Valore2 * Valore1;
    else if (TipoArea == 1)
        AreaRichiesta = Valore1;
}

const Point& LiteralCut::at(std::int32_t j) const
{
    return VettPoligono[static_cast<std::size_t>(VettIndici[static_cast<std::size_t>(j)])];
}

std::int32_t LiteralCut::find_side(Point p1, Point p2) const
{
    for (std::int32_t k = 0; k < NumPunti; ++k) {
        const Point& a = VettPoligono[static_cast<std::size_t>(k)];
        const Point& b = VettPoligono[static_cast<std::size_t>(k) + 1];
        if (a.x == p1.x && a.y == p1.y && b.x == p2.x && b.y == p2.y)
            return k;
    }
    return -1;
}

void LiteralCut::number_from_start()
{
    for (std::int32_t j = 0; j <= NumPunti; ++j)
        VettIndici[static_cast<std::size_t>(j)] = (IndiceInizio + j) % NumPunti;
}

bool LiteralCut::met() const
{
    return std::fabs(AreaParziale - AreaRichiesta) / AreaRichiesta < 1e-6;
}

void LiteralCut::append(const Point& p)
{
    VettParziale.push_back(p);
    NumPuntiParz += 1;
}

void LiteralCut::outermost(Point& r1, Point& r2, const Point& p)
{
    NumIntersez += 1;
    if (NumIntersez == 1) {
        r1 = p;
    } else if (NumIntersez == 2) {
        r2 = p;
    } else if (length(PuntoMedio, p) > length(PuntoMedio, r1)) {
        if (length(r1, p) < length(r2, p))
            r1 = p;
        else
            r2 = p;
    }
    if (NumIntersez >= 2)
        PuntoMedio = {(r1.x + r2.x) * 0.5, (r1.y + r2.y) * 0.5};
}

void LiteralCut::area_before_line(Point& r1, Point& r2)
{
    ++trials;
    NumIntersez = 0;
    VettParziale.clear();
    VettParziale.push_back(VettPoligono[static_cast<std::size_t>(IndiceInizio)]);
    VettParziale.push_back(VettPoligono[static_cast<std::size_t>((IndiceInizio + 1) % NumPunti)]);
    NumPuntiParz = 2;
    for (std::int32_t j = 1; j < NumPunti; ++j) {
        Point p = {};
        if (line_cuts(at(j), at(j + 1), RettaMobile, p)) {
            append(p);
            outermost(r1, r2, p);
        }
        double dist = 0.0;
        double gon = 0.0;
        measure(RettaBase, at(j + 1), dist, gon);
        if (!(dist > DistLinea && AngLinea - 1.0 <= gon && gon <= AngLinea + 1.0))
            append(at(j + 1));
    }
    AreaParziale = std::fabs(signed_area(VettParziale, NumPuntiParz));
}

bool LiteralCut::parallel()
{
    Trovato = false;
    line_through(PuntoLato1, PuntoLato2, RettaBase);
    IndiceInizio = find_side(PuntoLato1, PuntoLato2);
    if (IndiceInizio < 0)
        return false;
    number_from_start();
    if (NumPunti < 2)
        return false;
    std::int32_t v = 2;
    do {
        const Point q = at(v);
        RettaMobile = parallel_through(RettaBase, q);
        measure(RettaBase, q, DistLinea, AngLinea);
        Point scratch = {};
        area_before_line(PuntoRis1, scratch);
        if (AreaParziale > AreaRichiesta)
            bisect(q);
        ++v;
    } while (v < NumPunti && !Trovato);
    return true;
}

void LiteralCut::bisect(Point q)
{
    int iterations = 0;
    Trovato = false;
    Point f = {};
    meet(RettaBase, perpendicular_through(RettaBase, q), f);
    do {
        const Point m = {(q.x + f.x) * 0.5, (q.y + f.y) * 0.5};
        RettaMobile = parallel_through(RettaBase, m);
        measure(RettaBase, m, DistLinea, AngLinea);
        area_before_line(PuntoRis1, PuntoRis2);
        if (met()) {
            Trovato = true;
        } else {
            iterations += 1;
            if (AreaParziale < AreaRichiesta)
                f = PuntoRis2;
            else
                q = PuntoRis2;
        }
    } while (!Trovato && iterations < 30);
}

bool LiteralCut::perpendicular()
{
    Trovato = false;
    const Point a = PuntoLato1;
    const Point b = PuntoLato2;
    const Point m = {(b.x + a.x) * 0.5, (b.y + a.y) * 0.5};
    Line side = {};
    line_through(a, b, side);
    const Line across = perpendicular_through(side, m);
    IndiceInizio = find_side(a, b);
    if (IndiceInizio < 0)
        return false;
    const auto vertex = [this](std::int32_t j) {
        return VettPoligono[static_cast<std::size_t>((IndiceInizio + j) % NumPunti)];
    };

    std::int32_t s = 1;
    Point c = {};
    while (s < NumPunti && !line_cuts(vertex(s), vertex(s + 1), across, c))
        ++s;
    if (s >= NumPunti)
        return false;

    std::vector<Point> piece = {m};
    for (std::int32_t j = 1; j <= s; ++j)
        piece.push_back(vertex(j));
    piece.push_back(c);
    PuntoLato1 = c;
    PuntoLato2 = m;
    AreaRichiesta = std::fabs(signed_area(piece, static_cast<std::int32_t>(piece.size()))) - AreaRichiesta;
    if (AreaRichiesta < 0.0) {
        piece = {c};
        for (std::int32_t j = s + 1; j <= NumPunti; ++j)
            piece.push_back(vertex(j));
        piece.push_back(m);
        AreaRichiesta = -AreaRichiesta;
        PuntoLato1 = m;
        PuntoLato2 = c;
    }
    NumPunti = static_cast<std::int32_t>(piece.size());
    piece.push_back(piece.front());
    VettPoligono = piece;
    if (VettIndici.size() < piece.size())
        VettIndici.resize(piece.size());
    return parallel();
}

bool LiteralCut::through_vertex()
{
    Trovato = false;
    PuntoVertice = PuntoLato1;
    IndiceInizio = -1;
    for (std::int32_t k = 0; k < NumPunti && IndiceInizio < 0; ++k) {
        const Point& p = VettPoligono[static_cast<std::size_t>(k)];
        if (p.x == PuntoVertice.x && p.y == PuntoVertice.y)
            IndiceInizio = k;
    }
    if (IndiceInizio < 0)
        return false;
    const bool clockwise = signed_area(VettPoligono, NumPunti) < 0.0;
    number_from_start();

    const double b0 = bearing(PuntoVertice, at(1));
    double e1 = 0.0;
    double e2 = 0.0;
    double acc = 0.0;
    double prev = b0;
    for (std::int32_t j = 2; j < NumPunti; ++j) {
        const double b = bearing(PuntoVertice, at(j));
        acc = acc + LimiteAng200_200(b - prev);
        prev = b;
        if (clockwise) {
            if (acc <= 0.0 && acc < e1)
                e1 = acc;
            if (acc > 0.0 && acc > e2)
                e2 = acc;
        } else {
            if (acc >= 0.0 && acc > e1)
                e1 = acc;
            if (acc < 0.0 && acc < e2)
                e2 = acc;
        }
    }
    const double anchor = e2;
    int iterations = 1;
    do {
        const double mid = (e1 + e2) * 0.5;
        AngAmpiezza = std::fabs(mid - anchor);
        AngInizio = LimiteAng0_400(clockwise ? b0 + mid : b0 + anchor);
        const double theta = (b0 + mid) * 0.01570796327;
        const Point r = {PuntoVertice.x + std::cos(theta), PuntoVertice.y + std::sin(theta)};
        line_through(PuntoVertice, r, RettaAux);
        AreaParziale = area_in_wedge();
        if (met())
            Trovato = true;
        else if (AreaParziale < AreaRichiesta)
            e2 = mid;
        else
            e1 = mid;
        iterations += 1;
    } while (!Trovato && iterations < 50);
    return true;
}

double LiteralCut::area_in_wedge()
{
    ++trials;
    NumIntersez = 0;
    PuntoRis1 = PuntoVertice;
    VettParziale.clear();
    NumPuntiParz = 0;
    for (std::int32_t j = 1; j < NumPunti; ++j) {
        Point c = {};
        if (j > 1 && line_cuts(at(j - 1), at(j), RettaAux, c)) {
            append(c);
            NumIntersez += 1;
            if (NumIntersez == 1 || length(PuntoRis1, c) > length(PuntoRis1, PuntoRis2))
                PuntoRis2 = c;
        }
        const double r = LimiteAng0_400(bearing(PuntoVertice, at(j)) - AngInizio);
        if (r >= -1e-10 && r <= AngAmpiezza * 1.0000000001) {
            if (j == 1)
                append(PuntoVertice);
            append(at(j));
        }
    }
    return std::fabs(signed_area(VettParziale, NumPuntiParz));
}

}  // namespace reference
