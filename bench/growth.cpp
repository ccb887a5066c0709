// growth [cuts]: how the time of a cut grows with the vertices of convex and of coast-like rings, for each kind of
// cut.

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

const Shape kShapes[] = {
    {"convex", [](int n, unsigned) { return bench::convex_ring(n); }},
    {"coast", bench::coast_ring},
};

// Base side or vertex anywhere, request between 2 and 98 % of the parcel.
double seconds_of_a_cut(const Shape& shape, int n, int modo, unsigned seed)
{
    const Ring ring = shape.make(n, seed);
    CPoint3dVector parcel;
    for (const PL_PNT2D_record& p : ring)
        parcel.Append(p.x, p.y, 0.0);
    std::mt19937 random(seed + 1);
    const std::size_t side = random() % ring.size();
    const double share = 0.02 + 0.96 * (static_cast<double>(random() % 10000) / 10000.0);
    CFrazArea cut(parcel, ring[side], ring[(side + 1) % ring.size()], modo, 1, share * AreaCalcolata(parcel),
                  0.0);
    double x1 = 0, y1 = 0, z1 = 0, x2 = 0, y2 = 0, z2 = 0;
    const std::clock_t start = std::clock();
    cut.Esegui(x1, y1, z1, x2, y2, z2);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void print_row(const Shape& shape, int n, int modo, int cuts)
{
    std::vector<double> seconds;
    for (int i = 0; i < cuts; ++i)
        seconds.push_back(seconds_of_a_cut(shape, n, modo, static_cast<unsigned>(i)));
    std::sort(seconds.begin(), seconds.end());
    std::printf("| %s | %d | %d | %.3f | %.3f | %.3f |\n", shape.name, modo, n,
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
                "| ring | mode | vertices | median | 9 of 10 | worst |\n",
                cuts);
    std::printf("| --- | --- | --- | --- | --- | --- |\n");
    for (const Shape& shape : kShapes)
        for (int modo = 0; modo < 3; ++modo)
            for (const int n : {1024, 4096, 16384, 65536})
                print_row(shape, n, modo, cuts);
    return 0;
}
