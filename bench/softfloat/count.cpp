// Prints, call by call, the double operations by kind and their weighted sum.

#include <cstdio>
#include <cstring>
#include <string>

#include "counters.h"
#include "plcalc/plcalc.h"
#include "reference/literal.h"
#include "shapes.h"

namespace {

using softfloat::counts;
using softfloat::Kind;
using softfloat::kKinds;

void print_head()
{
    std::printf("%-34s", "call");
    for (int kind = 0; kind < kKinds; ++kind)
        std::printf(" %9s", softfloat::name(static_cast<Kind>(kind)));
    std::printf(" %11s\n", "weighted");
}

template <class Work> void count(const std::string& what, Work work)
{
    softfloat::reset();
    work();
    const auto now = counts;
    const std::uint64_t sum = softfloat::weighted();
    std::printf("%-34s", what.c_str());
    for (const std::uint64_t n : now)
        std::printf(" %9llu", static_cast<unsigned long long>(n));
    std::printf(" %11llu\n", static_cast<unsigned long long>(sum));
}

CPoint3dVector parcel_of(const std::vector<PL_PNT2D_record>& ring)
{
    CPoint3dVector parcel;
    for (const PL_PNT2D_record& p : ring)
        parcel.Append(p.x, p.y, 0.0);
    return parcel;
}

void count_cut(const char* kind, int modo, const std::vector<PL_PNT2D_record>& ring, bool literally = true)
{
    const CPoint3dVector parcel = parcel_of(ring);
    const double area = 0.37 * AreaCalcolata(parcel);
    const std::string what =
        std::string(kind) + ", mode " + std::to_string(modo) + ", n = " + std::to_string(ring.size());
    CFrazArea cut(parcel, ring[0], ring[1], modo, 1, area, 0.0);
    double x1 = 0, y1 = 0, z1 = 0, x2 = 0, y2 = 0, z2 = 0;
    count(what, [&] { cut.Esegui(x1, y1, z1, x2, y2, z2); });
    if (!literally)
        return;
    reference::LiteralCut literal(ring, ring[0], ring[1], modo, area);
    count("  literally", [&] { literal.run(); });
}

void count_point_in_polygon(int n)
{
    const std::vector<PL_PNT2D_record> ring = bench::convex_ring(n);
    const PL_PNT2D_record point = {410.0, 310.0};
    int rightmost = 0;
    reference::literal_inpolygon(&point, ring.data(), &n, &rightmost);
    const std::string what = "point in polygon, n = " + std::to_string(n);
    count(what, [&] { PlFunz_inpolygon(&point, ring.data(), &n, &rightmost); });
    count("  literally", [&] { reference::literal_inpolygon(&point, ring.data(), &n, &rightmost); });
}

void count_small_calls()
{
    const PL_PNT2D_record p = {410.0, 310.0};
    const PL_PNT2D_record q = {480.0, 290.0};
    const PL_PNT2D_record r = {455.0, 340.0};
    const PL_LINE_2D_record s = {p, q};
    const PL_LINE_2D_record t = {{440.0, 250.0}, r};
    PL_PNT2D_record out = {};
    double dist = 0.0;
    double gon = 0.0;
    PL_IMP_LINE_2D_record line = {};
    count("line through two points", [&] { PlFunz_lineeq_ile(&p, &q, &line); });
    count("segment intersection", [&] { PlFunz_intersect_ls(&s, &t, &out); });
    count("line and segment", [&] { PlFunz_intersect_ils(&line, &t, &out); });
    count("distance from a line", [&] { PlFunz_distpntln_ls(&r, &s); });
    count("distance and side of a line", [&] { CalcDistPuntoDaRetta(&line, &r, dist, gon); });
    count("direction, degrees", [&] { PlFunz_arctan_deg(45.0, -30.0); });
    count("direction, pseudo-angle", [&] { PlFunz_arcangle(0, &p, &r); });
    count("polar point, radians", [&] { PlFunz_pntangledist(1, &p, 25.0, 2.5, &out); });
    count("polar point, pseudo-angle", [&] { PlFunz_pntangledist(2, &p, 25.0, 1.5, &out); });
    count("polar set-out, gons", [&] { CalcPtAngDist(&p, &q, 50.0, 25.0, &out); });
    count("right-angle offset", [&] { CalcPtSquadro(&p, &q, 10.0, 5.0, &out); });
    ARC_2D_record arc = {};
    count("arc through three points", [&] { PlFunz_arc_3pnts(&p, &r, &q, &arc); });
    count("distance from an arc", [&] { PlFunz_distpntarc(&arc, &r); });
    PL_PNT2D_record out2 = {};
    int n = 0;
    count("arc and segment", [&] { PlFunz_intarcline_ls(&arc, &t, &out, &out2, &n); });
}

void count_measures(int n)
{
    const CPoint3dVector parcel = parcel_of(bench::convex_ring(n));
    count("area, n = " + std::to_string(n), [&] { AreaCalcolata(parcel); });
    count("perimeter, n = " + std::to_string(n), [&] { PeriCalcolato(parcel); });
}

}  // namespace

int main()
{
    print_head();
    count_small_calls();
    for (int n : {16, 256})
        count_measures(n);
    for (int n : {4, 16, 64, 256})
        count_point_in_polygon(n);
    for (int modo = 0; modo < 3; ++modo) {
        for (int n : {4, 16, 64, 256})
            count_cut("convex", modo, bench::convex_ring(n));
        for (int n : {16, 64})
            count_cut("dented", modo, bench::dented_ring(n));
        for (int n : {1024, 4096})  // the literal form takes minutes
            count_cut("convex", modo, bench::convex_ring(n), false);
    }
    count_cut("half behind", 0, bench::slit_ring(64));
    return 0;
}
