#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

#include "peers/peers.h"
#include "plcalc/subdivision.h"
#include "plcalc/survey.h"
#include "shapes.h"

namespace {

constexpr double kShare = 0.37;
constexpr double kRelTol = 1e-6;
constexpr double kTwoPi = 6.283185307179586;

using Shape = bench::Ring (*)(int);

void cut(benchmark::State& state, int modo, Shape shape)
{
    const bench::Ring ring = shape(static_cast<int>(state.range(0)));
    CPoint3dVector parcel;
    for (const PL_PNT2D_record& p : ring)
        parcel.Append(p.x, p.y, 0.0);
    const double area = kShare * AreaCalcolata(parcel);
    for (auto _ : state) {
        CFrazArea request(parcel, ring[0], ring[1], modo, 1, area, 0.0);
        double x1 = 0, y1 = 0, z1 = 0, x2 = 0, y2 = 0, z2 = 0;
        benchmark::DoNotOptimize(request.Esegui(x1, y1, z1, x2, y2, z2));
    }
}

// Halves a bound until the area on the near side is a share of the parcel's. The bisection that users of a
// general library write, with that library's intersection inside.
template <class AreaAt> double bisect(double low, double high, double wanted, AreaAt area_at)
{
    for (int step = 0; step < 60; ++step) {
        const double middle = 0.5 * (low + high);
        const double got = area_at(middle);
        if (std::fabs(got - wanted) < kRelTol * wanted)
            return middle;
        (got < wanted ? low : high) = middle;
    }
    return low;
}

struct Base {
    PL_PNT2D_record from;
    double ux, uy;  // along the base side
};

Base base_of(const bench::Ring& ring)
{
    const double dx = ring[1].x - ring[0].x;
    const double dy = ring[1].y - ring[0].y;
    const double length = std::sqrt(dx * dx + dy * dy);
    return {ring[0], dx / length, dy / length};
}

// Everything on the parcel's side of the base, up to a depth.
bench::Ring strip(const Base& base, double depth)
{
    constexpr double kFar = 1e4;
    const auto at = [&](double along, double across) {
        return PL_PNT2D_record{base.from.x + along * base.ux - across * base.uy,
                               base.from.y + along * base.uy + across * base.ux};
    };
    return {at(-kFar, -kFar), at(kFar, -kFar), at(kFar, depth), at(-kFar, depth)};
}

template <std::unique_ptr<bench::Peer> (*make)(const bench::Ring&)>
void peer_parallel(benchmark::State& state, Shape shape)
{
    const bench::Ring ring = shape(static_cast<int>(state.range(0)));
    const auto parcel = make(ring);
    const double wanted = kShare * std::fabs(parcel->area());
    const Base base = base_of(ring);
    for (auto _ : state)
        benchmark::DoNotOptimize(bisect(0.0, 200.0, wanted, [&](double depth) {
            return std::fabs(parcel->area_within(strip(base, depth)));
        }));
}

// The wedge from the side after the vertex to a ray.
template <std::unique_ptr<bench::Peer> (*make)(const bench::Ring&)>
void peer_vertex(benchmark::State& state, Shape shape)
{
    const bench::Ring ring = shape(static_cast<int>(state.range(0)));
    const auto parcel = make(ring);
    const double wanted = kShare * std::fabs(parcel->area());
    const Base base = base_of(ring);
    const double first = std::atan2(base.uy, base.ux);
    for (auto _ : state)
        benchmark::DoNotOptimize(bisect(0.0, 0.499 * kTwoPi, wanted, [&](double turn) {
            constexpr double kFar = 1e4;
            const auto at = [&](double dir) {
                return PL_PNT2D_record{base.from.x + kFar * std::cos(first + dir),
                                       base.from.y + kFar * std::sin(first + dir)};
            };
            return std::fabs(parcel->area_within({base.from, at(0.0), at(0.5 * turn), at(turn)}));
        }));
}

// The parcel turned so that its base lies on y = 0, then clipped to a rectangle: what GEOS does fastest.
void geos_clip_parallel(benchmark::State& state, Shape shape)
{
    bench::Ring ring = shape(static_cast<int>(state.range(0)));
    const Base base = base_of(ring);
    for (PL_PNT2D_record& p : ring) {
        const double dx = p.x - base.from.x;
        const double dy = p.y - base.from.y;
        p = {dx * base.ux + dy * base.uy, dy * base.ux - dx * base.uy};
    }
    const bench::GeosClipped parcel(ring);
    const double wanted = kShare * parcel.area_below(1e6);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            bisect(0.0, 200.0, wanted, [&](double depth) { return parcel.area_below(depth); }));
}

void sizes(benchmark::internal::Benchmark* b)
{
    b->Arg(4)->Arg(16)->Arg(64)->Arg(256)->Arg(1024);
}

// CGAL constructs exactly: a cut takes minutes beyond.
void small_sizes(benchmark::internal::Benchmark* b)
{
    b->Arg(4)->Arg(16)->Arg(64);
}

BENCHMARK_CAPTURE(cut, 0c, 0, bench::convex_ring)->Name("parallel_cut_convex/plcalc")->Apply(sizes);
BENCHMARK_CAPTURE(cut, 0d, 0, bench::dented_ring)->Name("parallel_cut_concave/plcalc")->Apply(sizes);
BENCHMARK_CAPTURE(cut, 1c, 1, bench::convex_ring)->Name("perpendicular_cut_convex/plcalc")->Apply(sizes);
BENCHMARK_CAPTURE(cut, 1d, 1, bench::dented_ring)->Name("perpendicular_cut_concave/plcalc")->Apply(sizes);
BENCHMARK_CAPTURE(cut, 2c, 2, bench::convex_ring)->Name("vertex_cut_convex/plcalc")->Apply(sizes);
BENCHMARK_CAPTURE(cut, 2d, 2, bench::dented_ring)->Name("vertex_cut_concave/plcalc")->Apply(sizes);

template <std::unique_ptr<bench::Peer> (*make)(const bench::Ring&)>
bool register_peer(const std::string& peer, void (*which)(benchmark::internal::Benchmark*))
{
    benchmark::RegisterBenchmark(("parallel_cut_convex/" + peer).c_str(), peer_parallel<make>,
                                 bench::convex_ring)
        ->Apply(which);
    benchmark::RegisterBenchmark(("vertex_cut_convex/" + peer).c_str(), peer_vertex<make>, bench::convex_ring)
        ->Apply(which);
    return true;
}
const bool kPeers = register_peer<bench::geos_parcel>("GEOS", sizes) &&
                    register_peer<bench::boost_parcel>("Boost", sizes) &&
                    register_peer<bench::cgal_parcel>("CGAL", small_sizes);
BENCHMARK_CAPTURE(geos_clip_parallel, c, bench::convex_ring)
    ->Name("parallel_cut_convex/GEOS-clip")
    ->Apply(sizes);

}  // namespace
