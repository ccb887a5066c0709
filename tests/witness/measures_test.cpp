// Area, direction and perimeter of rings, against GEOS.

#include <cmath>

#include "plcalc/survey.h"
#include "witness/cases.h"
#include "witness/geos.h"

namespace {

using witness::Ring;

// Sum of the terms' sizes in a shoelace sum of x differences times y, and of y differences times x with x
// counted from the first vertex: the first is the library's, the second the one of GEOS. Rounding is
// proportional to it.
double term_sizes(const Ring& ring)
{
    const std::size_t n = ring.size();
    double ours = 0.0;
    double theirs = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const PL_PNT2D_record& before = ring[(i + n - 1) % n];
        const PL_PNT2D_record& after = ring[(i + 1) % n];
        ours += std::fabs((before.x - after.x) * ring[i].y) / 2.0;
        theirs += std::fabs((before.y - after.y) * (ring[i].x - ring[0].x)) / 2.0;
    }
    return ours + theirs;
}

class Measures : public ::testing::TestWithParam<witness::Size> {};

// Three roundings in a term and one for each addition, on either side.
TEST_P(Measures, SignedAreaIsThatOfGeos)
{
    const witness::Geos geos;
    witness::Random random(GetParam());
    witness::Worst absolute;
    witness::Worst of_bound;
    for (int i = 0; i < witness::cases(); ++i) {
        const Ring ring = witness::random_ring(random, GetParam());
        const CPoint3dVector points = test::parcel_of(ring);
        const double bound = (static_cast<double>(ring.size()) + 4.0) * witness::kRounding * term_sizes(ring);

        const double theirs = geos.area(geos.polygon(ring));
        const double ours = AreaCalcolataSgn(points);
        ASSERT_EQ(AreaCalcolata(points), std::fabs(ours)) << "case " << i;
        ASSERT_LE(std::fabs(std::fabs(ours) - theirs), bound) << "case " << i;
        if (theirs > bound) {
            ASSERT_EQ(ours > 0.0, geos.is_anticlockwise(ring)) << "case " << i;
        }
        absolute.note(std::fabs(std::fabs(ours) - theirs), i);
        of_bound.note(std::fabs(std::fabs(ours) - theirs) / bound, i);
    }
    witness::report("area, %s: largest difference %.3g, %.2f of what rounding allows", GetParam().name,
                    absolute.value(), of_bound.value());
}

// Only positive numbers are added: four roundings in a length and one for each addition, on either side.
TEST_P(Measures, PerimeterIsThatOfGeos)
{
    const witness::Geos geos;
    witness::Random random(GetParam());
    witness::Worst relative;
    for (int i = 0; i < witness::cases(); ++i) {
        const Ring ring = witness::random_ring(random, GetParam());
        const double theirs = geos.length(geos.closed_line(ring));
        const double ours = PeriCalcolato(test::parcel_of(ring));
        const double bound = 2.0 * (static_cast<double>(ring.size()) + 4.0) * witness::kRounding;
        ASSERT_LE(std::fabs(ours - theirs), bound * theirs) << "case " << i;
        relative.note(std::fabs(ours - theirs) / theirs, i);
    }
    witness::report("perimeter, %s: largest difference %.3g of the perimeter", GetParam().name,
                    relative.value());
}

INSTANTIATE_TEST_SUITE_P(AtSize, Measures, ::testing::ValuesIn(witness::kSizes), witness::size_name);

}  // namespace
