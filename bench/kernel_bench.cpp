#include <benchmark/benchmark.h>

#include "plcalc/kernel.h"

namespace {

void distance(benchmark::State& state)
{
    PL_PNT2D_record p = {3.0, 4.0};
    const PL_PNT2D_record q = {100.0, 200.0};
    for (auto _ : state) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(PlFunz_distance(&p, &q));
    }
}
BENCHMARK(distance)->Name("distance/plcalc");

void arctan_deg(benchmark::State& state)
{
    double x = 3.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(PlFunz_arctan_deg(x, -4.0));
    }
}
BENCHMARK(arctan_deg)->Name("arctan_deg/plcalc");

void polar_point(benchmark::State& state)
{
    const int unit = static_cast<int>(state.range(0));
    const PL_PNT2D_record origin = {100.0, 200.0};
    double angle = 1.3;
    PL_PNT2D_record out;
    for (auto _ : state) {
        benchmark::DoNotOptimize(angle);
        PlFunz_pntangledist(unit, &origin, 50.0, angle, &out);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(polar_point)->Name("polar_point/plcalc/unit")->Arg(0)->Arg(1)->Arg(2);

void rotation(benchmark::State& state)
{
    const PL_PNT2D_record centre = {100.0, 200.0};
    double angle = 30.0;
    for (auto _ : state) {
        double m[3][3];
        PlFunz_getidmatrix2d(m);
        benchmark::DoNotOptimize(angle);
        PlFunz_rotationmatrix2d(angle, &centre, m);
        benchmark::DoNotOptimize(m);
    }
}
BENCHMARK(rotation)->Name("rotation_matrix/plcalc");

}  // namespace
