// Errors of the geometry functions. The truth is computed in long double from coordinate differences, which
// are exact or nearly so whatever the coordinates' size: its own error is a thousandth of a double's.

#include <cfloat>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "limits.h"
#include "plcalc/lines.h"
#include "plcalc/survey.h"
#include "support/measures.h"
#include "support/rings.h"
#include "tables.h"

static_assert(LDBL_MANT_DIG >= 64, "the measurement needs a long double that is longer than a double");

namespace {

using accuracy::Errors;
using test::cross;
using test::from_to;
using test::length;
using test::perimeter;
using test::Real;
using test::Vector;

struct Size {
    const char* name;
    double extent;
    PL_PNT2D_record origin;
};
constexpr Size kUnit = {"unit (0 to 1)", 1.0, {0.0, 0.0}};
constexpr Size kSite = {"site (0 to 1000)", 1000.0, {0.0, 0.0}};
constexpr Size kUtm = {"UTM (5e5, 5e6 + 0 to 1000)", 1000.0, {500000.0, 5000000.0}};
constexpr Size kSizes[] = {kUnit, kSite, kUtm};

// Lines cross at 20 gons or more, so that the tables show the functions and not the flat crossing.
constexpr double kLeastSine = 0.309;

// How far `got` is from the point at `offset` from `from`.
Real off(const PL_PNT2D_record& got, const PL_PNT2D_record& from, const Vector& offset)
{
    const Vector g = from_to(from, got);
    return length({g.x - offset.x, g.y - offset.y});
}

// Two segments that cross within both, and a point, all within the size's square.
struct Case {
    PL_LINE_2D_record s1;
    PL_LINE_2D_record s2;
    PL_PNT2D_record p;
};

class Source {
public:
    explicit Source(std::uint64_t seed) : random_(seed) {}

    std::mt19937_64& random() { return random_; }

    double between(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }

    PL_PNT2D_record point(const Size& size)
    {
        const double x = size.origin.x + between(0.0, size.extent);
        return {x, size.origin.y + between(0.0, size.extent)};
    }

    // A segment of a given length through a point, which divides it anywhere.
    PL_LINE_2D_record through(const PL_PNT2D_record& p, double dir_rad, double side)
    {
        const double before = side * between(0.1, 0.9);
        const double after = side - before;
        return {{p.x - before * std::cos(dir_rad), p.y - before * std::sin(dir_rad)},
                {p.x + after * std::cos(dir_rad), p.y + after * std::sin(dir_rad)}};
    }

    Case make(const Size& size, double side)
    {
        const PL_PNT2D_record at = point(size);
        const double dir_rad = between(0.0, 6.283185307179586);
        double turn_rad = 0.0;
        do
            turn_rad = between(0.0, 3.141592653589793);
        while (std::sin(turn_rad) < kLeastSine);
        return {through(at, dir_rad, side), through(at, dir_rad + turn_rad, side), point(size)};
    }

private:
    std::mt19937_64 random_;
};

// From the start of s1 to where the lines of s1 and s2 meet.
Vector meeting(const Case& c)
{
    const Vector d = from_to(c.s1.start, c.s1.end);
    const Vector e = from_to(c.s2.start, c.s2.end);
    const Real t = cross(from_to(c.s1.start, c.s2.start), e) / cross(d, e);
    return {t * d.x, t * d.y};
}

// From the start of s1 to the foot of p on its line.
Vector foot(const Case& c)
{
    const Vector d = from_to(c.s1.start, c.s1.end);
    const Vector w = from_to(c.s1.start, c.p);
    const Real t = (w.x * d.x + w.y * d.y) / (d.x * d.x + d.y * d.y);
    return {t * d.x, t * d.y};
}

Real distance_from_line(const Case& c)
{
    const Vector d = from_to(c.s1.start, c.s1.end);
    return std::fabs(cross(d, from_to(c.s1.start, c.p))) / length(d);
}

// Every measurement gives the error of one call.
Real meet_segments(const Case& c)
{
    PL_PNT2D_record at = c.s1.start;
    PlFunz_intersect_ls(&c.s1, &c.s2, &at);
    return off(at, c.s1.start, meeting(c));
}

Real meet_lines(const Case& c)
{
    PL_IMP_LINE_2D_record l1 = {};
    PL_IMP_LINE_2D_record l2 = {};
    PlFunz_lineeq_ile(&c.s1.start, &c.s1.end, &l1);
    PlFunz_lineeq_ile(&c.s2.start, &c.s2.end, &l2);
    PL_PNT2D_record at = c.s1.start;
    PlFunz_intersect_ile(&l1, &l2, &at);
    return off(at, c.s1.start, meeting(c));
}

Real meet_by_equations(const Case& c)
{
    PL_PNT2D_record at = c.s1.start;
    CalcoloIntersezioneRette(c.s1.start.x, c.s1.start.y, c.s1.end.x, c.s1.end.y, c.s2.start.x, c.s2.start.y,
                             c.s2.end.x, c.s2.end.y, at.x, at.y);
    return off(at, c.s1.start, meeting(c));
}

Real meet_line_and_segment(const Case& c)
{
    PL_IMP_LINE_2D_record l1 = {};
    PlFunz_lineeq_ile(&c.s1.start, &c.s1.end, &l1);
    PL_PNT2D_record at = c.s1.start;
    PlFunz_intersect_ils(&l1, &c.s2, &at);
    return off(at, c.s1.start, meeting(c));
}

Real meet_explicit(const Case& c)
{
    PL_PNT2D_record at = c.s1.start;
    CalcoloIntersezioneRetteExt(c.s1.start.x, c.s1.start.y, c.s1.end.x, c.s1.end.y, c.s2.start.x,
                                c.s2.start.y, c.s2.end.x, c.s2.end.y, at.x, at.y);
    return off(at, c.s1.start, meeting(c));
}

Real foot_of_perpendicular(const Case& c)
{
    PL_PNT2D_record at = c.s1.start;
    DistSegmDaPt(&c.s1.start, &c.s1.end, &c.p, &at);
    return off(at, c.s1.start, foot(c));
}

Real distance_by_foot(const Case& c)
{
    PL_PNT2D_record at = c.s1.start;
    return std::fabs(DistSegmDaPt(&c.s1.start, &c.s1.end, &c.p, &at)) - distance_from_line(c);
}

Real distance_by_normal(const Case& c)
{
    return std::fabs(PlFunz_distpntln_ls(&c.p, &c.s1)) - distance_from_line(c);
}

Real distance_from_equation(const Case& c)
{
    PL_IMP_LINE_2D_record l1 = {};
    PlFunz_lineeq_ile(&c.s1.start, &c.s1.end, &l1);
    double dist = 0.0;
    double angle_gon = 0.0;
    CalcDistPuntoDaRetta(&l1, &c.p, dist, angle_gon);
    return dist - distance_from_line(c);
}

Real distance_of_points(const Case& c)
{
    return PlFunz_distance(&c.s1.start, &c.p) - length(from_to(c.s1.start, c.p));
}

struct Measurement {
    const char* name;
    Real (*error)(const Case&);
};
constexpr Measurement kMeasurements[] = {
    {"meeting point of segments, `PlFunz_intersect_ls`", meet_segments},
    {"meeting point of explicit lines, `CalcoloIntersezioneRetteExt`", meet_explicit},
    {"meeting point of implicit lines, `PlFunz_intersect_ile`", meet_lines},
    {"the same from points, `CalcoloIntersezioneRette`", meet_by_equations},
    {"meeting point of a line and a segment, `PlFunz_intersect_ils`", meet_line_and_segment},
    {"foot of a perpendicular, `DistSegmDaPt`", foot_of_perpendicular},
    {"distance from a line by its foot, `DistSegmDaPt`", distance_by_foot},
    {"distance from a line by its normal form, `PlFunz_distpntln_ls`", distance_by_normal},
    {"distance from a line by its equation, `CalcDistPuntoDaRetta`", distance_from_equation},
    {"distance of points, `PlFunz_distance`", distance_of_points},
};

std::string measure(const Measurement& m, Source& source, const Size& size, double side, int cases)
{
    Errors errors;
    for (int i = 0; i < cases; ++i)
        errors.note(m.error(source.make(size, side)));
    return errors.median_and_largest();
}

void print_by_coordinates(Source& source, int cases)
{
    std::vector<std::vector<std::string>> rows = {{"operation", kUnit.name, kSite.name, kUtm.name}};
    for (const Measurement& m : kMeasurements) {
        std::vector<std::string> row = {m.name};
        for (const Size& size : kSizes)
            row.push_back(measure(m, source, size, size.extent / 10.0, cases));
        rows.push_back(row);
    }
    accuracy::print_table("Errors by coordinate size, sides a tenth of the extent: median / largest", rows);
}

void print_by_side(Source& source, int cases)
{
    std::vector<std::vector<std::string>> rows = {
        {"operation at UTM size", "side 1", "side 10", "side 100", "side 1000"}};
    for (const Measurement& m : kMeasurements) {
        std::vector<std::string> row = {m.name};
        for (const double side : {1.0, 10.0, 100.0, 1000.0})
            row.push_back(measure(m, source, kUtm, side, cases));
        rows.push_back(row);
    }
    accuracy::print_table("Errors by length of the sides, UTM size: median / largest", rows);
}

struct RingErrors {
    Errors area;
    Errors relative;
    Errors perimeter;
};

RingErrors measure_rings(Source& source, double extent, const PL_PNT2D_record& origin, int cases)
{
    RingErrors errors;
    for (int i = 0; i < cases; ++i) {
        test::Ring ring = test::star_ring(source.random(), 12, extent);
        CPoint3dVector points;
        for (PL_PNT2D_record& p : ring) {
            p = {p.x + origin.x + extent / 2.0, p.y + origin.y + extent / 2.0};
            points.Append(p.x, p.y, 0.0);
        }
        const Real area = test::signed_area(ring);
        errors.area.note(AreaCalcolataSgn(points) - area);
        errors.relative.note((AreaCalcolataSgn(points) - area) / area);
        errors.perimeter.note(PeriCalcolato(points) - perimeter(ring));
    }
    return errors;
}

void print_rings(Source& source, int cases)
{
    struct Row {
        const char* name;
        double extent;
        PL_PNT2D_record origin;
    };
    constexpr Row kRows[] = {
        {"unit, 1 across", 1.0, {0.0, 0.0}},       {"site, 100 across", 100.0, {0.0, 0.0}},
        {"site, 1000 across", 1000.0, {0.0, 0.0}}, {"UTM, 10 across", 10.0, kUtm.origin},
        {"UTM, 100 across", 100.0, kUtm.origin},   {"UTM, 1000 across", 1000.0, kUtm.origin}};
    std::vector<std::vector<std::string>> rows = {
        {"ring of 12", "area, square units", "area, of the area", "perimeter, units"}};
    for (const Row& row : kRows) {
        RingErrors errors = measure_rings(source, row.extent, row.origin, cases);
        rows.push_back({row.name, errors.area.median_and_largest(), errors.relative.median_and_largest(),
                        errors.perimeter.median_and_largest()});
    }
    accuracy::print_table("Errors of `AreaCalcolataSgn` and `PeriCalcolato`: median / largest", rows);
}

}  // namespace

namespace accuracy {

void print_geometry_limits(std::uint64_t seed, int cases)
{
    Source source(seed);
    print_by_coordinates(source, cases);
    print_by_side(source, cases);
    print_rings(source, cases);
}

}  // namespace accuracy
