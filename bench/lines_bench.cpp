#include <benchmark/benchmark.h>

#include <vector>

#include "peers/peers.h"
#include "plcalc/lines.h"
#include "shapes.h"

namespace {

using Meet = bool (*)(const PL_LINE_2D_record&, const PL_LINE_2D_record&, PL_PNT2D_record&);

bool plcalc_segments(const PL_LINE_2D_record& s, const PL_LINE_2D_record& t, PL_PNT2D_record& out)
{
    return PlFunz_intersect_ls(&s, &t, &out);
}

std::vector<PL_LINE_2D_record> sides_of(const bench::Ring& ring)
{
    std::vector<PL_LINE_2D_record> sides;
    for (std::size_t i = 0; i < ring.size(); ++i)
        sides.push_back({ring[i], ring[(i + 1) % ring.size()]});
    return sides;
}

// Every side of one ring with every side of another that lies across it.
void segments(benchmark::State& state, Meet meet)
{
    const bench::Ring ring = bench::convex_ring(16);
    bench::Ring across = ring;
    for (PL_PNT2D_record& p : across)
        p = {400.0 + (p.y - 300.0), 300.0 + (p.x - 400.0)};
    const std::vector<PL_LINE_2D_record> some = sides_of(ring);
    const std::vector<PL_LINE_2D_record> others = sides_of(across);
    int met = 0;
    for (auto _ : state) {
        for (const PL_LINE_2D_record& s : some) {
            for (const PL_LINE_2D_record& t : others) {
                PL_PNT2D_record out = {};
                met += meet(s, t, out) ? 1 : 0;
                benchmark::DoNotOptimize(out);
            }
        }
    }
    benchmark::DoNotOptimize(met);
}
BENCHMARK_CAPTURE(segments, plcalc, plcalc_segments)->Name("segment_intersection/plcalc/256");
BENCHMARK_CAPTURE(segments, geos, bench::geos_segments)->Name("segment_intersection/GEOS/256");
BENCHMARK_CAPTURE(segments, boost, bench::boost_segments)->Name("segment_intersection/Boost/256");
BENCHMARK_CAPTURE(segments, cgal, bench::cgal_segments)->Name("segment_intersection/CGAL/256");

using Measure = double (*)(const PL_LINE_2D_record&, const bench::Ring&);

double plcalc_distances(const PL_LINE_2D_record& line, const bench::Ring& points)
{
    double sum = 0.0;
    for (const PL_PNT2D_record& p : points)
        sum += PlFunz_distpntln_ls(&p, &line);
    return sum;
}

void distances(benchmark::State& state, Measure measure)
{
    const bench::Ring points = bench::convex_ring(static_cast<int>(state.range(0)));
    const PL_LINE_2D_record line = {{0.0, 250.0}, {1000.0, 320.0}};
    for (auto _ : state)
        benchmark::DoNotOptimize(measure(line, points));
}
BENCHMARK_CAPTURE(distances, plcalc, plcalc_distances)->Name("line_distance/plcalc")->Arg(16)->Arg(256);
BENCHMARK_CAPTURE(distances, geos, bench::geos_distances)->Name("line_distance/GEOS")->Arg(16)->Arg(256);
BENCHMARK_CAPTURE(distances, boost, bench::boost_distances)->Name("line_distance/Boost")->Arg(16)->Arg(256);
BENCHMARK_CAPTURE(distances, cgal, bench::cgal_distances)->Name("line_distance/CGAL")->Arg(16)->Arg(256);

}  // namespace
