// growth [cuts]: how the time of a cut grows with the vertices of convex and of coast-like rings, for each kind of
// cut and for base sides in the directions near which bearings jump or count as those of an axis.

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>
#include <vector>

#include "plcalc/plcalc.h"
#include "shapes.h"

namespace {

constexpr int kMostCuts = 10000;

using Ring = std::vector<PL_PNT2D_record>;

struct Shape {
    const char* name;
    Ring (*make)(int n, unsigned seed);
};

const Shape kConvex = {"convex", [](int n, unsigned) { return bench::convex_ring(n); }};
const Shape kCoast = {"coast", bench::coast_ring};
const Shape kCoastOnMap = {"coast on a map", [](int n, unsigned seed) {
                               Ring ring = bench::coast_ring(n, seed);
                               for (PL_PNT2D_record& p : ring)
                                   p = {p.x + 500000.0, p.y + 5000000.0};
                               return ring;
                           }};

// How a base side is laid through its first point.
struct Base {
    const char* direction;
    void (*lay)(const PL_PNT2D_record& from, PL_PNT2D_record& to);
};

const Base kAnyBase = {"any", [](const PL_PNT2D_record&, PL_PNT2D_record&) {}};

const Base kBases[] = {
    {"level", [](const PL_PNT2D_record& from, PL_PNT2D_record& to) { to.y = from.y; }},
    {"upright", [](const PL_PNT2D_record& from, PL_PNT2D_record& to) { to.x = from.x; }},
    {"upright, 1e-9 to the right",
     [](const PL_PNT2D_record& from, PL_PNT2D_record& to) { to.x = from.x + 1e-9 * (to.y - from.y); }},
    {"upright, 1e-9 to the left",
     [](const PL_PNT2D_record& from, PL_PNT2D_record& to) { to.x = from.x - 1e-9 * (to.y - from.y); }},
    {"a gon from level",
     [](const PL_PNT2D_record& from, PL_PNT2D_record& to) { to.y = from.y + 0.0157093 * (to.x - from.x); }},
};

// Base side or vertex anywhere, request between 2 and 98 % of the parcel.
double seconds_of_a_cut(const Shape& shape, const Base& base, int n, int modo, unsigned seed)
{
    Ring ring = shape.make(n, seed);
    std::mt19937 random(seed + 1);
    const std::size_t side = random() % ring.size();
    base.lay(ring[side], ring[(side + 1) % ring.size()]);
    CPoint3dVector parcel;
    for (const PL_PNT2D_record& p : ring)
        parcel.Append(p.x, p.y, 0.0);
    const double share = 0.02 + 0.96 * (static_cast<double>(random() % 10000) / 10000.0);
    CFrazArea cut(parcel, ring[side], ring[(side + 1) % ring.size()], modo, 1, share * AreaCalcolata(parcel),
                  0.0);
    double x1 = 0, y1 = 0, z1 = 0, x2 = 0, y2 = 0, z2 = 0;
    const std::clock_t start = std::clock();
    cut.Esegui(x1, y1, z1, x2, y2, z2);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void print_row(const Shape& shape, const Base& base, int n, int modo, int cuts)
{
    std::vector<double> seconds;
    for (int i = 0; i < cuts; ++i)
        seconds.push_back(seconds_of_a_cut(shape, base, n, modo, static_cast<unsigned>(i)));
    std::sort(seconds.begin(), seconds.end());
    std::printf("| %s | %s | %d | %d | %.3f | %.3f | %.3f |\n", shape.name, base.direction, modo, n,
                1e3 * seconds[seconds.size() / 2], 1e3 * seconds[seconds.size() * 9 / 10],
                1e3 * seconds.back());
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv)
{
    const int cuts = argc > 1 ? std::atoi(argv[1]) : 100;
    if (argc > 2 || cuts < 1 || cuts > kMostCuts) {
        std::fprintf(stderr, "usage: growth [cuts], a whole number from 1 to %d\n", kMostCuts);
        return 2;
    }
    std::printf("%d cuts each, milliseconds of the processor\n\n"
                "| ring | base side | mode | vertices | median | 9 of 10 | worst |\n",
                cuts);
    std::printf("| --- | --- | --- | --- | --- | --- | --- |\n");
    for (const Shape& shape : {kConvex, kCoast, kCoastOnMap})
        for (int modo = 0; modo < 3; ++modo)
            for (const int n : {1024, 4096, 16384, 65536})
                print_row(shape, kAnyBase, n, modo, cuts);
    // Of the kinds that have a base side. In the perpendicular mode its lines run across it.
    for (const Base& base : kBases)
        for (int modo = 0; modo < 2; ++modo)
            for (const int n : {4096, 16384, 65536})
                print_row(kCoast, base, n, modo, cuts);
    return 0;
}
