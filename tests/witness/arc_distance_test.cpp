// Distance of points from arcs, against the distance that GEOS measures to a line string of 4096 chords.
//
// A chord lies inside its circle by at most the sagitta. So the two distances differ by that, by rounding, and
// by two rules of the library. A point just beyond an end of the arc, within the margin, is measured along the
// radius instead of from the end. And when the two ends are equally far, within 1e-7 of the distance plus one,
// the library takes the one at end_angle, even if it is farther by that much.

#include <algorithm>
#include <cmath>

#include "plcalc/arcs.h"
#include "witness/cases.h"
#include "witness/geos.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr int kChords = 4096;
constexpr int kPointsPerArc = 10;

// The margin of a comparison of angles is (|angle| + 1) * 1e-7 in the arc's unit: at a full turn 7.3e-7 rad,
// 6.3e-7 rad in degrees, and in pseudo-angles, which are at most twice as steep, 1e-6 rad. A direction is
// along an axis when the other component is within 1e-7.
constexpr double kEndMarginRad = 1.01e-6;
constexpr double kAxisSnap = 1.01e-7;

// Angles turned from one unit to another with thirteen digits, then sine and cosine: on a radius of 1.
constexpr double kTrigonometry = 5e-12;

struct RandomArc {
    ARC_2D_record arc;
    double from_rad;
    double sweep_rad;
};

// A pseudo-angle: the quadrant and the tangent of half the angle in it.
double pseudo_of(double dir_rad)
{
    const double quarters = std::floor(dir_rad / (kPi / 2.0));
    return quarters + std::tan((dir_rad - quarters * kPi / 2.0) / 2.0);
}

double in_unit(PL_AngleMeasType unit, double dir_rad)
{
    const double within = dir_rad >= 2.0 * kPi ? dir_rad - 2.0 * kPi : dir_rad;
    switch (unit) {
    case PL_DEGREES:
        return within * 180.0 / kPi;
    case PL_PSEUDO_ANGLE:
        return pseudo_of(within);
    default:
        return within;
    }
}

// Pseudo-angles just below a quarter turn set out a point a quarter turn off, as the header says.
bool near_quarter_turn(double dir_rad)
{
    return std::fabs(std::remainder(dir_rad, kPi / 2.0)) < 1e-6;
}

RandomArc random_arc(witness::Random& random, const witness::Size& size)
{
    RandomArc made = {};
    const PL_PNT2D_record centre = random.point(size);
    do {
        made.from_rad = random.between(0.0, 2.0 * kPi);
        // Neither so short nor so nearly a full turn that both ends fall into one margin.
        made.sweep_rad = random.between(0.001, 2.0 * kPi - 0.001);
    } while (near_quarter_turn(made.from_rad) || near_quarter_turn(made.from_rad + made.sweep_rad));
    const auto unit = static_cast<PL_AngleMeasType>(random.integer(PL_RADIANS, PL_PSEUDO_ANGLE));
    made.arc = {centre, size.extent * random.by_magnitude(0.01, 1.0), unit, in_unit(unit, made.from_rad),
                in_unit(unit, made.from_rad + made.sweep_rad)};
    return made;
}

witness::Ring chords_of(const RandomArc& made)
{
    witness::Ring points;
    for (int i = 0; i <= kChords; ++i) {
        const double dir_rad = made.from_rad + made.sweep_rad * i / kChords;
        points.push_back({made.arc.centre.x + made.arc.radius * std::cos(dir_rad),
                          made.arc.centre.y + made.arc.radius * std::sin(dir_rad)});
    }
    return points;
}

// A point anywhere, near the arc, beside one of its ends, or at the centre.
PL_PNT2D_record random_point(witness::Random& random, const RandomArc& made)
{
    const int kind = random.integer(0, 9);
    double dir_rad = random.between(0.0, 2.0 * kPi);
    double r = made.arc.radius * random.between(0.0, 3.0);
    if (kind == 0)
        r = 0.0;
    if (kind == 1 || kind == 2)
        r = made.arc.radius * (1.0 + random.between(-1e-3, 1e-3));
    if (kind == 3 || kind == 4)
        dir_rad = made.from_rad + (kind == 3 ? 0.0 : made.sweep_rad) +
                  random.by_magnitude(1e-8, 1e-2) * (random.chance(0.5) ? 1.0 : -1.0);
    return {made.arc.centre.x + r * std::cos(dir_rad), made.arc.centre.y + r * std::sin(dir_rad)};
}

double turned_from(double dir_rad, double end_rad)
{
    return std::fabs(std::remainder(dir_rad - end_rad, 2.0 * kPi));
}

// What the margin at the ends can change in the distance of a point whose direction lies in it.
double end_allowance(const RandomArc& made, const PL_PNT2D_record& p)
{
    const double r = PlFunz_distance(&made.arc.centre, &p);
    const double margin = kEndMarginRad + kAxisSnap / std::max(r, kAxisSnap);
    const double dir_rad = std::atan2(p.y - made.arc.centre.y, p.x - made.arc.centre.x);
    if (turned_from(dir_rad, made.from_rad) > margin &&
        turned_from(dir_rad, made.from_rad + made.sweep_rad) > margin)
        return 0.0;
    const double along_radius = std::fabs(r - made.arc.radius);
    return std::sqrt(along_radius * along_radius + r * made.arc.radius * margin * margin) - along_radius;
}

// What the choice between two ends about equally far can change.
double tie_allowance(const witness::Ring& chords, const PL_PNT2D_record& p)
{
    const double from_start = PlFunz_distance(&chords.front(), &p);
    const double from_end = PlFunz_distance(&chords.back(), &p);
    const double gap = from_end - from_start;
    return gap > 0.0 && gap <= (from_end + 1.0) * 1.001e-7 ? gap : 0.0;
}

class ArcDistance : public ::testing::TestWithParam<witness::Size> {};

TEST_P(ArcDistance, IsThatOfGeosToTheChords)
{
    const witness::Size& size = GetParam();
    const witness::Geos geos;
    witness::Random random(size);
    const double coordinate = std::fabs(size.origin.x) + std::fabs(size.origin.y) + size.extent;
    witness::Worst apart;
    witness::Worst of_bound;
    int index = 0;
    while (index < witness::cases()) {
        const RandomArc made = random_arc(random, size);
        const witness::Ring points = chords_of(made);
        const witness::Geometry chords = geos.line(points);
        const double sagitta = made.arc.radius * (1.0 - std::cos(made.sweep_rad / kChords / 2.0));
        for (int k = 0; k < kPointsPerArc; ++k, ++index) {
            const PL_PNT2D_record p = random_point(random, made);
            const double ours = PlFunz_distpntarc(&made.arc, &p);
            const double theirs = geos.distance(chords, geos.point(p));
            const double far = std::max(made.arc.radius, PlFunz_distance(&made.arc.centre, &p));
            const double bound = sagitta + end_allowance(made, p) + tie_allowance(points, p) +
                                 far * kTrigonometry + 8.0 * witness::kRounding * (coordinate + far);
            ASSERT_LE(std::fabs(ours - theirs), bound) << "case " << index;
            apart.note(std::fabs(ours - theirs), index);
            of_bound.note(std::fabs(ours - theirs) / bound, index);
        }
    }
    witness::report("arc distance, %s: largest difference %.3g, %.2f of the bound", size.name, apart.value(),
                    of_bound.value());
}

INSTANTIATE_TEST_SUITE_P(AtSize, ArcDistance, ::testing::ValuesIn(witness::kSizes), witness::size_name);

}  // namespace
