#include <benchmark/benchmark.h>

#include "peers/peers.h"
#include "plcalc/arcs.h"
#include "shapes.h"

namespace {

const ARC_2D_record kArc = {{100.0, 200.0}, 50.0, PL_RADIANS, 0.3, 2.5};

void arc_angle(benchmark::State& state)
{
    const int unit = static_cast<int>(state.range(0));
    PL_PNT2D_record to = {30.0, -40.0};
    const PL_PNT2D_record from = {1.0, 2.0};
    for (auto _ : state) {
        benchmark::DoNotOptimize(to);
        benchmark::DoNotOptimize(PlFunz_arcangle(unit, &from, &to));
    }
}
BENCHMARK(arc_angle)->Name("arc_angle/plcalc/unit")->Arg(0)->Arg(1)->Arg(2);

void arc_through_points(benchmark::State& state)
{
    const PL_PNT2D_record p1 = {0.0, 0.0};
    PL_PNT2D_record p2 = {3.0, 1.0};
    const PL_PNT2D_record p3 = {6.0, 0.5};
    for (auto _ : state) {
        ARC_2D_record arc;
        benchmark::DoNotOptimize(p2);
        benchmark::DoNotOptimize(PlFunz_arc_3pnts(&p1, &p2, &p3, &arc));
    }
}
BENCHMARK(arc_through_points)->Name("arc_through_points/plcalc");

void arc_segment(benchmark::State& state)
{
    // Crossing, or far away.
    PL_LINE_2D_record seg = state.range(0) == 0 ? PL_LINE_2D_record{{60.0, 260.0}, {140.0, 210.0}}
                                                : PL_LINE_2D_record{{600.0, 260.0}, {700.0, 210.0}};
    for (auto _ : state) {
        PL_PNT2D_record q1;
        PL_PNT2D_record q2;
        int n = 0;
        benchmark::DoNotOptimize(seg);
        benchmark::DoNotOptimize(PlFunz_intarcline_ls(&kArc, &seg, &q1, &q2, &n));
    }
}
BENCHMARK(arc_segment)->Name("arc_segment/plcalc/far")->Arg(0)->Arg(1);

bench::Ring tested_points()
{
    bench::Ring points;
    for (int i = 0; i < 32; ++i)
        points.push_back({310.0 + 5.7 * i, 260.0 + 2.3 * i});
    return points;
}

void point_in_polygon(benchmark::State& state)
{
    const bench::Ring ring = bench::dented_ring(static_cast<int>(state.range(0)));
    const bench::Ring points = tested_points();
    const int n = static_cast<int>(ring.size());
    int rightmost = 0;
    for (auto _ : state)
        for (const PL_PNT2D_record& p : points)
            benchmark::DoNotOptimize(PlFunz_inpolygon(&p, ring.data(), &n, &rightmost));
}
BENCHMARK(point_in_polygon)->Name("point_in_polygon/plcalc")->Arg(16)->Arg(64)->Arg(256)->Arg(1024);

template <std::unique_ptr<bench::Peer> (*make)(const bench::Ring&)>
void peer_point_in_polygon(benchmark::State& state)
{
    const auto parcel = make(bench::dented_ring(static_cast<int>(state.range(0))));
    const bench::Ring points = tested_points();
    for (auto _ : state)
        for (const PL_PNT2D_record& p : points)
            benchmark::DoNotOptimize(parcel->holds(p));
}
BENCHMARK_TEMPLATE(peer_point_in_polygon, bench::geos_parcel)
    ->Name("point_in_polygon/GEOS")
    ->Arg(16)
    ->Arg(64)
    ->Arg(256)
    ->Arg(1024);
BENCHMARK_TEMPLATE(peer_point_in_polygon, bench::boost_parcel)
    ->Name("point_in_polygon/Boost")
    ->Arg(16)
    ->Arg(64)
    ->Arg(256)
    ->Arg(1024);
BENCHMARK_TEMPLATE(peer_point_in_polygon, bench::cgal_parcel)
    ->Name("point_in_polygon/CGAL")
    ->Arg(16)
    ->Arg(64)
    ->Arg(256)
    ->Arg(1024);

}  // namespace
