#include "support/parcel_kinds.h"

#include <cstddef>

namespace {

using test::kKindsAcross;
using test::Ring;

using Random = std::mt19937_64;

double between(Random& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

std::size_t whole(Random& random, std::size_t low, std::size_t high)
{
    return std::uniform_int_distribution<std::size_t>(low, high)(random);
}

// A rectangle at some distance from the origin, its sides along the axes and then turned by `tilt_rad`, either
// way.
Ring tilted_rectangle(Random& random, double tilt_rad)
{
    const double w = between(random, 0.1, 1.0) * kKindsAcross;
    const double h = between(random, 0.1, 1.0) * kKindsAcross;
    const double tilt = whole(random, 0, 1) == 0 ? tilt_rad : -tilt_rad;
    Ring ring = {{0.0, 0.0}, {w, 0.0}, {w, h}, {0.0, h}};
    for (PL_PNT2D_record& p : ring)
        p = {kKindsAcross + p.x - tilt * p.y, kKindsAcross + p.y + tilt * p.x};
    return ring;
}

Ring convex(Random& random, double across)
{
    return test::convex_ring(random, whole(random, 4, 12), across);
}

}  // namespace

namespace test {

const std::vector<ParcelKind>& parcel_kinds()
{
    constexpr double kAcross = kKindsAcross;
    static const std::vector<ParcelKind> kinds = {
        {"triangle", [](Random& r) { return convex_ring(r, 3, kAcross); }, false, false},
        {"convex, 4 to 12 vertices", [](Random& r) { return convex(r, kAcross); }, false, false},
        {"rectangle, turned anyhow", [](Random& r) { return turned_rectangle(r, kAcross); }, false, false},
        {"rectangle along the axes", [](Random& r) { return tilted_rectangle(r, 0.0); }, false, false},
        {"rectangle turned by 1e-9 rad", [](Random& r) { return tilted_rectangle(r, 1e-9); }, false, false},
        {"rectangle turned by 1e-8 rad", [](Random& r) { return tilted_rectangle(r, 1e-8); }, false, false},
        {"rectangle turned by 1e-7 rad", [](Random& r) { return tilted_rectangle(r, 1e-7); }, false, false},
        {"convex with vertices on its sides",
         [](Random& r) { return with_vertices_on_sides(r, convex(r, kAcross)); }, false, false},
        {"mildly concave", [](Random& r) { return dented_ring(r, whole(r, 6, 14), kAcross); }, false, false},
        {"star", [](Random& r) { return star_ring(r, whole(r, 6, 14), kAcross); }, false, true},
        {"comb, 2 to 5 teeth", [](Random& r) { return comb_ring(r, whole(r, 2, 5), kAcross); }, false, true},
        {"L", [](Random& r) { return l_ring(r, kAcross); }, false, true},
        {"T", [](Random& r) { return t_ring(r, kAcross); }, false, true},
        {"convex at UTM size, 10 across", [](Random& r) { return at_utm_size(r, convex(r, kAcross / 10.0)); },
         true, false},
        {"convex at UTM size", [](Random& r) { return at_utm_size(r, convex(r, kAcross)); }, true, false},
        {"convex at UTM size, 1000 across",
         [](Random& r) { return at_utm_size(r, convex(r, kAcross * 10.0)); }, true, false},
    };
    return kinds;
}

}  // namespace test
