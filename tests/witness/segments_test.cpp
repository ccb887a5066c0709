// Where two segments meet, against GEOS, which decides exactly.
//
// The library decides with tolerances. Outside their zone both agree. Inside it the library's window is the
// wider one, so that it never misses a meeting that GEOS finds, except between segments that it takes for
// parallel. The zone, with t and u the parameters of the two segments and `rounding` the error that doubles can
// bring into them:
//   parallel   |determinant| <= 1e-7 + rounding
//   end        t or u in [-1e-7 - rounding, rounding] or [1 - rounding, 1 + 2e-7 + rounding]
// A meeting point is compared where rounding leaves 1e-9 of the extent to it; flatter crossings are counted.

#include <algorithm>
#include <cmath>

#include "plcalc/lines.h"
#include "support/bits.h"
#include "witness/cases.h"
#include "witness/geos.h"

namespace {

constexpr double kParallel = 1e-7;       // of the determinant
constexpr double kBeforeStart = 1e-7;    // of the parameter
constexpr double kBeyondEnd = 2e-7;      // of the parameter
constexpr double kSamePlace = 1e-9;      // of the extent
constexpr double kSnappedToZero = 1e-7;  // coordinates this small come out as 0.0

// Where a parameter lies, as far as doubles can tell.
enum class Where { kOutside, kZone, kInside };

// The parameters in long double, and how wrong they may be in double.
struct Meeting {
    long double determinant;
    long double determinant_error;
    long double t;
    long double u;
    long double t_error;
    long double u_error;
};

// Each difference, product and sum rounds once; the quotient and the reciprocal once more.
Meeting meeting_of(const PL_LINE_2D_record& s1, const PL_LINE_2D_record& s2)
{
    using Real = long double;
    const Real ex = static_cast<Real>(s2.end.x) - s2.start.x;
    const Real ey = static_cast<Real>(s2.end.y) - s2.start.y;
    const Real dx = static_cast<Real>(s1.end.x) - s1.start.x;
    const Real dy = static_cast<Real>(s1.end.y) - s1.start.y;
    const Real wx = static_cast<Real>(s2.start.x) - s1.start.x;
    const Real wy = static_cast<Real>(s2.start.y) - s1.start.y;
    const Real five = 5 * witness::kRounding;

    Meeting m = {};
    m.determinant = dy * ex - dx * ey;
    m.determinant_error = five * (std::fabs(dy * ex) + std::fabs(dx * ey));
    m.t = (wy * ex - wx * ey) / m.determinant;
    m.u = (wy * dx - wx * dy) / m.determinant;
    const Real size = std::fabs(m.determinant);
    const Real t_terms = five * (std::fabs(wy * ex) + std::fabs(wx * ey));
    const Real u_terms = five * (std::fabs(wy * dx) + std::fabs(wx * dy));
    m.t_error = (t_terms + std::fabs(m.t) * m.determinant_error) / size + std::fabs(m.t) * five;
    m.u_error = (u_terms + std::fabs(m.u) * m.determinant_error) / size + std::fabs(m.u) * five;
    return m;
}

Where place(long double parameter, long double error)
{
    if (parameter < -kBeforeStart - error || parameter > 1.0L + kBeyondEnd + error)
        return Where::kOutside;
    if (parameter > error && parameter < 1.0L - error)
        return Where::kInside;
    return Where::kZone;
}

PL_PNT2D_record along(const PL_PNT2D_record& from, const PL_PNT2D_record& to, double t)
{
    return {from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)};
}

// A parameter that is anywhere, or as near to an end as the tolerances are wide.
double aimed_parameter(witness::Random& random)
{
    if (random.chance(0.5))
        return random.between(-0.5, 1.5);
    const double off = random.by_magnitude(1e-9, 1e-5) * (random.chance(0.5) ? 1.0 : -1.0);
    return (random.chance(0.5) ? 0.0 : 1.0) + off;
}

struct Pair {
    PL_LINE_2D_record s1;
    PL_LINE_2D_record s2;
};

// Half of the pairs anyhow; the others meet at chosen parameters, share an end, or are nearly parallel.
Pair random_pair(witness::Random& random, const witness::Size& size)
{
    Pair pair = {{random.point(size), random.point(size)}, {random.point(size), random.point(size)}};
    switch (random.integer(0, 7)) {
    case 0:
    case 1: {
        const PL_PNT2D_record at = along(pair.s1.start, pair.s1.end, aimed_parameter(random));
        pair.s2.end = along(pair.s2.start, at, 1.0 / std::max(0.1, random.between(0.1, 2.0)));
        break;
    }
    case 2:
        pair.s2.start = random.chance(0.5) ? pair.s1.start : pair.s1.end;
        break;
    case 3: {
        const double t = random.between(0.0, 1.0);
        const PL_PNT2D_record at = along(pair.s1.start, pair.s1.end, t);
        const double tilt = random.by_magnitude(1e-12, 1e-2);
        const double dx = pair.s1.end.x - pair.s1.start.x;
        const double dy = pair.s1.end.y - pair.s1.start.y;
        pair.s2 = {{at.x - 0.3 * (dx - tilt * dy), at.y - 0.3 * (dy + tilt * dx)},
                   {at.x + 0.3 * (dx - tilt * dy), at.y + 0.3 * (dy + tilt * dx)}};
        break;
    }
    default:
        break;
    }
    return pair;
}

// How far apart the two answers are on one axis; a snapped coordinate has moved by up to the snap.
double apart(double ours, double theirs)
{
    const double gap = std::fabs(ours - theirs);
    return ours == 0.0 ? std::max(0.0, gap - kSnappedToZero) : gap;
}

struct Tally {
    int agreed = 0;
    int met = 0;
    int parallel = 0;
    int at_end = 0;
    int flat = 0;
    witness::Worst place;
};

// Where both see a meeting point: it must be the same, unless rounding alone can move it too far.
void compare_places(const Pair& pair, const Meeting& m, const PL_PNT2D_record& ours,
                    const PL_PNT2D_record& theirs, const witness::Size& size, int index, Tally& tally)
{
    const double dx = pair.s1.end.x - pair.s1.start.x;
    const double dy = pair.s1.end.y - pair.s1.start.y;
    const double limit = kSamePlace * size.extent;
    ++tally.met;
    if (static_cast<double>(m.t_error) * std::max(std::fabs(dx), std::fabs(dy)) > limit / 2.0) {
        ++tally.flat;
        return;
    }
    const double gap = std::max(apart(ours.x, theirs.x), apart(ours.y, theirs.y));
    ASSERT_LE(gap, limit) << "case " << index;
    tally.place.note(gap, index);
}

// The two verdicts, by where the parameters lie.
void compare_verdicts(const Meeting& m, bool we_see, bool geos_sees, int index, Tally& tally)
{
    const Where on1 = place(m.t, m.t_error);
    const Where on2 = place(m.u, m.u_error);
    if (on1 == Where::kOutside || on2 == Where::kOutside) {
        ++tally.agreed;
        ASSERT_FALSE(geos_sees) << "case " << index;
        ASSERT_FALSE(we_see) << "case " << index;
    } else if (on1 == Where::kInside && on2 == Where::kInside) {
        ++tally.agreed;
        ASSERT_TRUE(geos_sees) << "case " << index;
        ASSERT_TRUE(we_see) << "case " << index;
    } else {
        ++tally.at_end;
        ASSERT_TRUE(we_see || !geos_sees) << "case " << index;
    }
}

void compare(const witness::Geos& geos, const Pair& pair, const witness::Size& size, int index, Tally& tally)
{
    const Meeting m = meeting_of(pair.s1, pair.s2);
    if (std::fabs(m.determinant) <= kParallel + m.determinant_error) {
        ++tally.parallel;
        return;
    }
    PL_PNT2D_record theirs = {};
    PL_PNT2D_record ours = {test::kUntouched, test::kUntouched};
    const bool geos_sees = geos.segments_meet(pair.s1, pair.s2, theirs);
    const bool we_see = PlFunz_intersect_ls(&pair.s1, &pair.s2, &ours);
    compare_verdicts(m, we_see, geos_sees, index, tally);
    if (we_see && geos_sees)
        compare_places(pair, m, ours, theirs, size, index, tally);
}

class Segments : public ::testing::TestWithParam<witness::Size> {};

TEST_P(Segments, MeetWhereGeosSaysSo)
{
    const witness::Geos geos;
    witness::Random random(GetParam());
    Tally tally;
    for (int i = 0; i < witness::cases() && !HasFatalFailure(); ++i)
        compare(geos, random_pair(random, GetParam()), GetParam(), i, tally);
    witness::report("segments, %s: %d outside the zone agree, %d in it at an end, %d in it as parallel",
                    GetParam().name, tally.agreed, tally.at_end, tally.parallel);
    witness::report("segments, %s: %d meeting points, at most %.3g apart; %d more cross too flatly",
                    GetParam().name, tally.met - tally.flat, tally.place.value(), tally.flat);
    EXPECT_GT(tally.agreed, witness::cases() / 2);
    EXPECT_GT(tally.met, witness::cases() / 10);
}

INSTANTIATE_TEST_SUITE_P(AtSize, Segments, ::testing::ValuesIn(witness::kSizes), witness::size_name);

}  // namespace
