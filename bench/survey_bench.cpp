#include <benchmark/benchmark.h>

#include "peers/peers.h"
#include "plcalc/survey.h"
#include "shapes.h"

namespace {

CPoint3dVector parcel_of(const bench::Ring& ring)
{
    CPoint3dVector parcel;
    for (const PL_PNT2D_record& p : ring)
        parcel.Append(p.x, p.y, 0.0);
    return parcel;
}

template <double (*measure)(const CPoint3dVector&)> void measure_ring(benchmark::State& state)
{
    const CPoint3dVector parcel = parcel_of(bench::dented_ring(static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(measure(parcel));
}

template <std::unique_ptr<bench::Peer> (*make)(const bench::Ring&), double (bench::Peer::*measure)() const>
void peer_measure_ring(benchmark::State& state)
{
    const auto parcel = make(bench::dented_ring(static_cast<int>(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(((*parcel).*measure)());
}

void sizes(benchmark::internal::Benchmark* b)
{
    b->Arg(4)->Arg(16)->Arg(64)->Arg(256)->Arg(1024);
}

using bench::Peer;
BENCHMARK_TEMPLATE(measure_ring, AreaCalcolata)->Name("area/plcalc")->Apply(sizes);
BENCHMARK_TEMPLATE(peer_measure_ring, bench::geos_parcel, &Peer::area)->Name("area/GEOS")->Apply(sizes);
BENCHMARK_TEMPLATE(peer_measure_ring, bench::boost_parcel, &Peer::area)->Name("area/Boost")->Apply(sizes);
BENCHMARK_TEMPLATE(peer_measure_ring, bench::cgal_parcel, &Peer::area)->Name("area/CGAL")->Apply(sizes);
BENCHMARK_TEMPLATE(measure_ring, PeriCalcolato)->Name("perimeter/plcalc")->Apply(sizes);
BENCHMARK_TEMPLATE(peer_measure_ring, bench::geos_parcel, &Peer::perimeter)
    ->Name("perimeter/GEOS")
    ->Apply(sizes);
BENCHMARK_TEMPLATE(peer_measure_ring, bench::boost_parcel, &Peer::perimeter)
    ->Name("perimeter/Boost")
    ->Apply(sizes);
BENCHMARK_TEMPLATE(peer_measure_ring, bench::cgal_parcel, &Peer::perimeter)
    ->Name("perimeter/CGAL")
    ->Apply(sizes);

void polar_set_out(benchmark::State& state)
{
    const PL_PNT2D_record station = {100.0, 200.0};
    const PL_PNT2D_record ref = {150.0, 280.0};
    double angle = 123.4567;
    for (auto _ : state) {
        PL_PNT2D_record out;
        benchmark::DoNotOptimize(angle);
        CalcPtAngDist(&station, &ref, angle, 42.0, &out);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(polar_set_out)->Name("polar_set_out/plcalc");

void right_angle_offset(benchmark::State& state)
{
    const PL_PNT2D_record a = {100.0, 200.0};
    const PL_PNT2D_record b = {150.0, 280.0};
    double absc = 12.0;
    for (auto _ : state) {
        PL_PNT2D_record out;
        benchmark::DoNotOptimize(absc);
        CalcPtSquadro(&a, &b, absc, 3.0, &out);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(right_angle_offset)->Name("right_angle_offset/plcalc");

void foot_and_distance(benchmark::State& state)
{
    const PL_IMP_LINE_2D_record line = {-80.0, 50.0, -2000.0};
    PL_PNT2D_record p = {120.0, 200.0};
    for (auto _ : state) {
        double dist = 0.0;
        double gon = 0.0;
        benchmark::DoNotOptimize(p);
        CalcDistPuntoDaRetta(&line, &p, dist, gon);
        benchmark::DoNotOptimize(dist);
        benchmark::DoNotOptimize(gon);
    }
}
BENCHMARK(foot_and_distance)->Name("foot_and_distance/plcalc");

}  // namespace
