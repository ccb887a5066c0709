// Prints, call by call, the double operations by kind and their weighted sum.

#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

#include "counters.h"
#include "plcalc/plcalc.h"
#include "reference/literal_cut.h"
#include "reference/literal_polygon.h"
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

void count_cut(const char* kind, int modo, const std::vector<PL_PNT2D_record>& ring)
{
    const CPoint3dVector parcel = parcel_of(ring);
    const double area = 0.37 * AreaCalcolata(parcel);
    const std::string what =
        std::string(kind) + ", mode " + std::to_string(modo) + ", n = " + std::to_string(ring.size());
    CFrazArea cut(parcel, ring[0], ring[1], modo, 1, area, 0.0);
    double x1 = 0, y1 = 0, z1 = 0, x2 = 0, y2 = 0, z2 = 0;
    count(what, [&] { cut.Esegui(x1, y1, z1, x2, y2, z2); });
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

}  // namespace

int main()
{
    print_head();
    for (int n : {4, 16, 64, 256})
        count_point_in_polygon(n);
    for (int modo = 0; modo < 3; ++modo) {
        for (int n : {4, 16, 64, 256})
            count_cut("convex", modo, bench::convex_ring(n));
        for (int n : {16, 64})
            count_cut("dented", modo, bench::dented_ring(n));
    }
    return 0;
}
