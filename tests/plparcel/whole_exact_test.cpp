// Whole lines before a judge in rational numbers of any length. It shares nothing with the search: it clips the parcel
// along each line, measures what lies below, and looks at every side of every piece.

#include <gmpxx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "exact_judge.h"
#include "lattice.h"
#include "plparcel/division.h"
#include "plparcel/extent.h"
#include "support/bits.h"
#include "support/parcel_kinds.h"
#include "support/rings.h"

namespace {

using plparcel::Cut;
using plparcel::Division;
using plparcel::Measured;
using plparcel::Parcel;
using plparcel::Piece;
using plparcel::Request;
using plparcel::Ring;
using plparcel::Status;
using Number = mpq_class;

constexpr double kUtmEast = 500000.0;
constexpr double kUtmNorth = 5000000.0;

struct Point {
    Number x;
    Number y;
};

Point operator-(const Point& a, const Point& b)
{
    return {a.x - b.x, a.y - b.y};
}

Number cross(const Point& a, const Point& b)
{
    return a.x * b.y - a.y * b.x;
}

Number dot(const Point& a, const Point& b)
{
    return a.x * b.x + a.y * b.y;
}

using Polygon = std::vector<Point>;

Polygon exact(const Ring& ring)
{
    Polygon polygon;
    for (const PL_PNT2D_record& p : ring)
        polygon.push_back({Number(p.x), Number(p.y)});
    return polygon;
}

const Point& after(const Polygon& polygon, std::size_t i)
{
    return polygon[(i + 1) % polygon.size()];
}

Number signed_area(const Polygon& polygon)
{
    Number twice = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i)
        twice += cross(polygon[i], after(polygon, i));
    return twice / 2;
}

// Area of outer rings less holes, whichever way they run.
Number area_of(const std::vector<Polygon>& rings)
{
    Number area = abs(signed_area(rings[0]));
    for (std::size_t i = 1; i < rings.size(); ++i)
        area -= abs(signed_area(rings[i]));
    return area;
}

// What of a polygon lies below a level; its parts may hang together along the level.
Polygon below(const Polygon& polygon, const Point& up, const Number& level)
{
    Polygon kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& a = polygon[i];
        const Point& b = after(polygon, i);
        const Number off_a = dot(up, a) - level;
        const Number off_b = dot(up, b) - level;
        if (sgn(off_a) <= 0)
            kept.push_back(a);
        if (sgn(off_a) * sgn(off_b) < 0) {
            const Number part = off_a / (off_a - off_b);
            kept.push_back({a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part});
        }
    }
    return kept;
}

bool on(const Point& a, const Point& b, const Point& p)
{
    return sgn(cross(b - a, p - a)) == 0 && sgn(dot(a - p, b - p)) <= 0;
}

bool meet(const Point& a, const Point& b, const Point& c, const Point& d)
{
    const int one = sgn(cross(b - a, c - a)) * sgn(cross(b - a, d - a));
    const int other = sgn(cross(d - c, a - c)) * sgn(cross(d - c, b - c));
    return (one < 0 && other < 0) || on(a, b, c) || on(a, b, d) || on(c, d, a) || on(c, d, b);
}

bool is_in(const Polygon& polygon, const Point& p)
{
    bool inside = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& a = polygon[i];
        const Point& b = after(polygon, i);
        if ((a.y > p.y) != (b.y > p.y) && (sgn(cross(b - a, p - a)) > 0) == (b.y > a.y))
            inside = !inside;
    }
    return inside;
}

// Simple rings, apart from each other, all but the first in the first.
std::string objection_to_rings(const std::vector<Polygon>& rings)
{
    for (std::size_t r = 0; r < rings.size(); ++r) {
        const std::size_t n = rings[r].size();
        if (n < 3)
            return "a ring of two points";
        for (std::size_t i = 0; i < n; ++i) {
            const Point& a = rings[r][i];
            const Point& b = after(rings[r], i);
            const Point& c = after(rings[r], i + 1);
            if (sgn(cross(b - a, c - b)) == 0 && sgn(dot(b - a, c - b)) <= 0)
                return "a spike";
            for (std::size_t k = i + 2; k < n; ++k)
                if (!(i == 0 && k + 1 == n) && meet(a, b, rings[r][k], after(rings[r], k)))
                    return "a ring meets itself";
            for (std::size_t s = r + 1; s < rings.size(); ++s)
                for (std::size_t k = 0; k < rings[s].size(); ++k)
                    if (meet(a, b, rings[s][k], after(rings[s], k)))
                        return "two rings meet";
        }
        if (r > 0 && !is_in(rings[0], rings[r][0]))
            return "a hole lies outside";
    }
    return "";
}

std::vector<Polygon> rings_of(const Ring& outer, const std::vector<Ring>& holes)
{
    std::vector<Polygon> rings = {exact(outer)};
    for (const Ring& hole : holes)
        rings.push_back(exact(hole));
    return rings;
}

// The direction across the lines, from where the first amount lies.
Point up_of(const Parcel& parcel, const Request& request)
{
    const plparcel::Line& line = request.line;
    const Ring& ring = line.ring == 0 ? parcel.outer : parcel.holes[line.ring - 1];
    const PL_PNT2D_record& a = ring[line.index % ring.size()];
    const PL_PNT2D_record& b = ring[(line.index + 1) % ring.size()];
    Point run = {Number(b.x) - Number(a.x), Number(b.y) - Number(a.y)};
    if (line.cut == Cut::along_segment)
        run = {Number(line.b.x) - Number(line.a.x), Number(line.b.y) - Number(line.a.y)};
    if (line.cut == Cut::at_bearing) {
        const long double bearing_rad =
            std::fmod(static_cast<long double>(line.bearing), 400.0L) * (std::acos(-1.0L) / 200.0L);
        const auto number = [](long double v) -> Number {
            const double high = static_cast<double>(v);
            return Number(high) + Number(static_cast<double>(v - high));
        };
        run = {number(std::sin(bearing_rad)), number(std::cos(bearing_rad))};
    }
    Point up = {-run.y, run.x};
    if (line.cut == Cut::perpendicular)
        up = {-run.x, -run.y};
    if (line.cut == Cut::parallel && (sgn(signed_area(exact(ring))) > 0) != (line.ring == 0))
        up = {run.y, -run.x};
    return request.measured == Measured::opposite ? Point{-up.x, -up.y} : up;
}

// A piece's side lies along a side of the parcel, or along one of the lines.
bool is_side_or_line(const std::vector<Polygon>& parcel, const Point& p, const Point& q, const Point& up,
                     const std::vector<Number>& levels, const Number& reach, const Number& rounding)
{
    const Number up2 = dot(up, up);
    const Number of_line = 15 * reach + 2 * rounding;
    const Number of_side = Number(2.55) * reach + rounding;
    for (const Number& level : levels) {
        const Number off_p = dot(up, p) - level;
        const Number off_q = dot(up, q) - level;
        if (off_p * off_p <= of_line * of_line * up2 && off_q * off_q <= of_line * of_line * up2)
            return true;
    }
    for (const Polygon& ring : parcel) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Point d = after(ring, i) - ring[i];
            const Number far = of_side * of_side * dot(d, d);
            const Number off_p = cross(d, p - ring[i]);
            const Number off_q = cross(d, q - ring[i]);
            if (off_p * off_p <= far && off_q * off_q <= far)
                return true;
        }
    }
    return false;
}

struct Judged {
    std::vector<Polygon> parcel;
    Number area;
    Number spacing;
    Point up;
    std::vector<Number> asked;  // of each amount, and the rest
    Number rounding = 0;        // how far rounding takes an end
    Number of_parcel = 1e-9;    // how far an amount may be missed
};

Number tolerance(const Judged& judged, std::size_t band, const Number& of_parcel)
{
    const Number granted = judged.area * of_parcel;
    const Number of_piece = judged.asked[band] * Number(0.01);
    return std::min(granted, of_piece);
}

// As it is returned.
Number tolerance(const Judged& judged, std::size_t band)
{
    return tolerance(judged, band, judged.of_parcel);
}

std::string objection_to_decimals(const Request& request, const Division& division)
{
    if (!request.rounding.decimals)
        return division.decimals ? "no decimals were asked for" : "";
    if (!division.decimals)
        return "";
    if (*division.decimals < *request.rounding.decimals)
        return "fewer decimals than were asked for";
    for (const plparcel::DividingLine& line : division.lines)
        for (const plparcel::Segment& s : line.segments)
            for (const double v : {s.from.x, s.from.y, s.to.x, s.to.y})
                if (!plparcel_test::has_decimals(v, *division.decimals))
                    return "an end has more decimals than is said";
    return "";
}

bool same(const Point& a, const Point& b)
{
    return a.x == b.x && a.y == b.y;
}

// Where the line through an end of a segment and its other one meets the boundary next to the end. Nothing where a
// vertex is so near that it might meet another side.
bool foot_of(const Judged& judged, const Point& end, const Point& other, Point& foot)
{
    const Number near = 70 * (judged.rounding + 4 * judged.spacing);
    bool found = false;
    Number least2;
    for (const Polygon& ring : judged.parcel) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Point& a = ring[i];
            const Point& b = after(ring, i);
            if (dot(a - end, a - end) <= near * near)
                return false;
            const Number off_a = cross(other - end, a - end);
            const Number off_b = cross(other - end, b - end);
            if (sgn(off_a) * sgn(off_b) > 0 || off_a == off_b)
                continue;
            const Number part = off_a / (off_a - off_b);
            const Point met = {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
            const Number off2 = dot(met - end, met - end);
            if (!found || off2 < least2) {
                found = true;
                least2 = off2;
                foot = met;
            }
        }
    }
    return found;
}

// Each segment prolonged or shortened to the boundary, as people will stake it out who know the boundary.
std::string objection_up_to_the_boundary(const Judged& judged, const Division& division)
{
    std::map<std::pair<double, double>, Point> feet;
    for (const plparcel::DividingLine& line : division.lines) {
        for (const plparcel::Segment& s : line.segments) {
            const Polygon ends = exact({s.from, s.to});
            for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
                Point foot;
                if (!foot_of(judged, ends[i], ends[1 - i], foot))
                    return "";
                feet[{i == 0 ? s.from.x : s.to.x, i == 0 ? s.from.y : s.to.y}] = foot;
            }
        }
    }
    std::vector<Number> got(judged.asked.size());
    for (const Piece& piece : division.pieces) {
        std::vector<Ring> rings = piece.holes;
        rings.insert(rings.begin(), piece.ring);
        std::vector<Polygon> prolonged;
        for (const Ring& ring : rings) {
            prolonged.push_back(exact(ring));
            for (std::size_t i = 0; i < ring.size(); ++i)
                if (const auto foot = feet.find({ring[i].x, ring[i].y}); foot != feet.end())
                    prolonged.back()[i] = foot->second;
        }
        got[piece.amount] += area_of(prolonged);
    }
    for (std::size_t band = 0; band < got.size(); ++band) {
        const Number miss = abs(got[band] - judged.asked[band]);
        if (miss > tolerance(judged, band) * Number(1.0 + 1e-9))
            return "up to the boundary, an amount is not held";
    }
    return "";
}

std::string objection_to_rounding(const Judged& judged, const Request& request, const Division& division)
{
    const std::string fault = objection_to_decimals(request, division);
    if (!fault.empty() || !request.rounding.decimals)
        return fault;
    return objection_up_to_the_boundary(judged, division);
}

std::string objection(const Judged& judged, const Division& division)
{
    if (division.lines.size() + 1 != judged.asked.size() || division.held.size() != judged.asked.size())
        return "not as many lines as amounts";
    std::vector<Number> levels;
    Number asked = 0;
    for (std::size_t i = 0; i < division.lines.size(); ++i) {
        Number sum = 0;
        int ends = 0;
        for (const plparcel::Segment& s : division.lines[i].segments) {
            for (const PL_PNT2D_record& p : {s.from, s.to}) {
                sum += dot(judged.up, {Number(p.x), Number(p.y)});
                ++ends;
            }
        }
        levels.push_back(sum / ends);
        // What lies below the line is what was asked up to there. Its ends' roundings move it by some spacings.
        asked += judged.asked[i];
        std::vector<Polygon> kept;
        for (const Polygon& ring : judged.parcel)
            kept.push_back(below(ring, judged.up, levels.back()));
        Number miss = area_of(kept) - asked;
        Number width = 0;
        for (const plparcel::Segment& s : division.lines[i].segments)
            width += std::hypot(s.to.x - s.from.x, s.to.y - s.from.y);
        if (abs(miss) >
            tolerance(judged, i) * static_cast<int>(i + 1) + (16 * judged.spacing + judged.rounding) * width)
            return "a line lies elsewhere";
    }
    std::vector<Number> got(judged.asked.size());
    Number all = 0;
    for (const Piece& piece : division.pieces) {
        const std::vector<Polygon> rings = rings_of(piece.ring, piece.holes);
        if (std::string fault = objection_to_rings(rings); !fault.empty())
            return "a piece: " + fault;
        if (piece.amount >= got.size())
            return "a piece of no amount";
        const Number area = area_of(rings);
        got[piece.amount] += area;
        all += area;
        for (const Polygon& ring : rings) {
            for (std::size_t k = 0; k < ring.size(); ++k) {
                if (!is_side_or_line(judged.parcel, ring[k], after(ring, k), judged.up, levels,
                                     judged.spacing, judged.rounding))
                    return "a side of a piece is neither boundary nor line";
                const Number level = dot(judged.up, ring[k]);
                const Number slack = (15 * judged.spacing + 2 * judged.rounding) *
                                     Number(std::sqrt(dot(judged.up, judged.up).get_d()));
                if ((piece.amount > 0 && level < levels[piece.amount - 1] - slack) ||
                    (piece.amount < levels.size() && level > levels[piece.amount] + slack))
                    return "a piece lies beyond its lines";
            }
        }
    }
    for (std::size_t band = 0; band < got.size(); ++band) {
        const Number miss = abs(got[band] - judged.asked[band]);
        if (miss > tolerance(judged, band) * Number(1.0 + 1e-9))
            return "an amount is not held";
    }
    if (abs(all - judged.area) > judged.area * judged.of_parcel * static_cast<int>(got.size()))
        return "the pieces are not the parcel";
    return "";
}

std::mt19937_64& generator()
{
    static std::mt19937_64 random = test::random_source();
    return random;
}

std::size_t less_than(std::size_t n)
{
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(generator());
}

double between(double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(generator());
}

// Holes anywhere in the ring, some touching; those that make no parcel are left out again.
Parcel with_holes(const Ring& outer, double step)
{
    Parcel parcel = {outer, {}};
    const plparcel::Extent extent = plparcel::extent_of(outer);
    const std::size_t wanted = less_than(5);
    for (std::size_t i = 0; i < wanted; ++i) {
        const double size = between(0.02, 0.3) * extent.largest();
        const double x = between(extent.low.x, extent.high.x);
        const double y = between(extent.low.y, extent.high.y);
        Ring hole;
        const std::size_t n = 3 + less_than(4);
        const double first_rad = less_than(2) == 0 ? 0.0 : between(0.0, 6.0);
        for (std::size_t k = 0; k < n; ++k) {
            const double dir_rad =
                first_rad + 6.283185307179586 * static_cast<double>(k) / static_cast<double>(n);
            hole.push_back({x + size * std::cos(dir_rad), y + size * std::sin(dir_rad)});
        }
        if (step > 0.0)
            for (PL_PNT2D_record& p : hole)
                p = {std::round(p.x / step) * step, std::round(p.y / step) * step};
        if (hole.front().x == hole.back().x && hole.front().y == hole.back().y)
            continue;
        parcel.holes.push_back(hole);
        if (check_parcel(parcel).status != plparcel::BoundaryStatus::usable ||
            check_parcel(parcel).repeated > 0)
            parcel.holes.pop_back();
    }
    return parcel;
}

Parcel any_parcel()
{
    const std::vector<test::ParcelKind>& kinds = test::parcel_kinds();
    const std::size_t way = less_than(7);
    Ring ring = kinds[less_than(kinds.size())].make(generator());
    double step = 0.0;
    if (way == 0)
        ring = parcel_test::lattice_ring(generator());
    const double factor = way == 1 ? between(0.01, 0.2) : (way == 2 ? 0.05 : 1.0);
    const double east = way == 1 || way == 3 ? kUtmEast : 0.0;
    const double north = way == 1 || way == 3 ? kUtmNorth : 0.0;
    if (way == 0 || way == 2)
        step = 1.0;
    for (PL_PNT2D_record& p : ring) {
        p = {p.x * factor + east, p.y * factor + north};
        if (step > 0.0)
            p = {std::round(p.x), std::round(p.y)};
    }
    if (way == 6) {  // a few to some hundred spacings of doubles across
        const double size = std::exp2(between(2.0, 9.0)) * 0x1p-30 / plparcel::extent_of(ring).largest();
        for (PL_PNT2D_record& p : ring)
            p = {kUtmEast + size * p.x, kUtmNorth + size * p.y};
    }
    return with_holes(ring, step);
}

Request any_request(const Parcel& parcel)
{
    Request request;
    request.pieces = plparcel::Pieces::any;
    constexpr Cut kCuts[] = {Cut::parallel, Cut::perpendicular, Cut::at_bearing, Cut::along_segment};
    request.line.cut = kCuts[less_than(4)];
    request.line.ring = less_than(parcel.holes.size() + 1);
    const Ring& ring = request.line.ring == 0 ? parcel.outer : parcel.holes[request.line.ring - 1];
    request.line.index = less_than(ring.size());
    request.line.bearing = less_than(3) == 0 ? 50.0 * static_cast<double>(less_than(8)) : between(0.0, 400.0);
    request.line.a = parcel.outer[0];
    request.line.b = parcel.outer[2];
    request.measured = static_cast<Measured>(less_than(2));
    // Of whole squares, halves of them: many lie at the level of a vertex.
    const double squares = 2.0 * check_parcel(parcel).area;
    const bool is_of_squares = squares >= 2.0 && squares < 1e4 && squares == std::floor(squares);
    const std::size_t of = is_of_squares ? static_cast<std::size_t>(squares) : 2 + less_than(11);
    if (less_than(3) == 0)
        request.amounts = plparcel::equal_parts(2 + less_than(4));
    else
        request.amounts = {
            plparcel::share(static_cast<double>(1 + less_than(of - 1)), static_cast<double>(of))};
    return request;
}

// To as few decimals as the extent asks for, to fewer, and to more.
plparcel::Rounding any_rounding(const Parcel& parcel)
{
    const double extent = plparcel::extent_of(parcel.outer).largest();
    const int fair = static_cast<int>(std::ceil(-std::log10(2e-6 * extent)));
    plparcel::Rounding rounding;
    rounding.decimals = std::min(17, std::max(0, fair + static_cast<int>(less_than(5)) - 2));
    rounding.tolerance = std::pow(10.0, between(-9.0, -3.0));
    return rounding;
}

Judged judged(const Parcel& parcel, const Request& request)
{
    Judged made;
    made.parcel = rings_of(parcel.outer, parcel.holes);
    made.area = area_of(made.parcel);
    double spacing = plparcel::coordinate_spacing(parcel.outer);
    made.spacing = Number(spacing);
    made.up = up_of(parcel, request);
    Number rest = made.area;
    for (const plparcel::Amount& amount : request.amounts) {
        made.asked.push_back(made.area * Number(amount.first) / Number(amount.second));
        rest -= made.asked.back();
    }
    made.asked.push_back(rest);
    if (request.rounding.decimals)
        made.of_parcel = request.rounding.tolerance;
    return made;
}

void look_at_rounding(const Division& division, Judged& judged)
{
    if (division.decimals)
        judged.rounding = plparcel_test::most_rounding(*division.decimals);
}

std::string shown(const Parcel& parcel, const Request& request)
{
    char text[300];
    std::snprintf(
        text, sizeof text,
        "cut %d ring %zu index %zu bearing %.17g measured %d amounts %zu of %.17g/%.17g decimals %d "
        "within %.17g\n",
        static_cast<int>(request.line.cut), request.line.ring, request.line.index, request.line.bearing,
        static_cast<int>(request.measured), request.amounts.size(), request.amounts[0].first,
        request.amounts[0].second, request.rounding.decimals.value_or(-1), request.rounding.tolerance);
    std::string all = text;
    std::vector<Ring> rings = {parcel.outer};
    rings.insert(rings.end(), parcel.holes.begin(), parcel.holes.end());
    for (const Ring& ring : rings) {
        all += "{";
        for (const PL_PNT2D_record& p : ring) {
            std::snprintf(text, sizeof text, "{%.17g, %.17g}, ", p.x, p.y);
            all += text;
        }
        all += "}\n";
    }
    return all;
}

// Doubles so far apart that a line's roundings alone are most of what an amount may miss.
bool is_too_coarse(const Judged& judged)
{
    Number least = judged.area;
    for (std::size_t band = 0; band < judged.asked.size(); ++band) {
        const Number granted = tolerance(judged, band);
        least = std::min(least, granted);
    }
    return least < 30 * judged.spacing * Number(std::sqrt(judged.area.get_d()));
}

// With decimals it says so.
std::string shown(const Division& division)
{
    return std::string(describe(division)) + (division.decimals ? ", to decimals" : "");
}

bool is_plain(const Parcel& parcel)
{
    const plparcel::RingReport report = check_parcel(parcel);
    return report.status == plparcel::BoundaryStatus::usable && report.repeated == 0 && !report.closed;
}

TEST(WholeLinesExact, NoWrongDivisionAndNoRefusal)
{
    const char* chosen = std::getenv("PLCALC_DIVISIONS");
    const int count = chosen != nullptr ? std::max(1, std::atoi(chosen)) : 3000;
    std::map<std::string, int> tally;
    std::size_t pieces = 0;
    std::size_t with_hole = 0;
    for (int i = 0; i < count;) {
        const Parcel parcel = any_parcel();
        if (!is_plain(parcel))
            continue;
        ++i;
        Request request = any_request(parcel);
        if (i % 2 == 0)
            request.rounding = any_rounding(parcel);
        const Division division = divide(parcel, request);
        Judged exactly = judged(parcel, request);
        look_at_rounding(division, exactly);
        const bool coarse = is_too_coarse(exactly);
        ++tally[shown(division) + (coarse ? ", doubles far apart" : "")];
        with_hole += parcel.holes.empty() ? 0 : 1;
        pieces += division.pieces.size();
        std::string fault = division.status == Status::divided ? objection(exactly, division) : "refused";
        if (fault.empty())
            fault = objection_to_rounding(exactly, request, division);
        const bool is_due = coarse && division.status == Status::not_reached;
        EXPECT_TRUE(fault.empty() || is_due)
            << fault << ", " << describe(division) << ": " << shown(parcel, request);
    }
    for (const auto& [what, times] : tally)
        std::printf("  %7d %s\n", times, what.c_str());
    std::printf("  %zu pieces, %zu parcels with holes\n", pieces, with_hole);
}

// A place where a line at some level meets a side.
struct Met {
    Number along;
    std::size_t ring;
    std::size_t side;
    bool at_point = false;  // at the vertex about which the line turns
};

// A line that begins on a ring, comes back to it, and meets no ring twice on its way.
struct Run {
    std::vector<Met> met;  // two for each segment
    Number level;
};

// All such lines of a parcel, found level by level; the piece above each is walked round and measured.
class Runs {
public:
    Runs(const Judged& judged, const Parcel& parcel, const Request& request)
        : judged_(judged), request_(request), rings_(judged.parcel)
    {
        for (std::size_t r = 0; r < rings_.size(); ++r)
            if ((sgn(signed_area(rings_[r])) > 0) != (r == 0))
                std::reverse(rings_[r].begin(), rings_[r].end());
        const Ring& of_line = request.line.ring == 0 ? parcel.outer : parcel.holes[request.line.ring - 1];
        const std::size_t n = of_line.size();
        base_a_ = exact({of_line[request.line.index % n]})[0];
        base_b_ = exact({of_line[(request.line.index + 1) % n]})[0];
        Judged without_decimals = judged;
        without_decimals.of_parcel = 1e-9;
        is_coarse_ = is_too_coarse(without_decimals);
    }

    // Those along the line through a point that begin or end there, or have the point within a segment.
    std::vector<Run> through(const Point& point, bool ends_there) const
    {
        const Number level = level_of(point);
        std::vector<Run> found;
        for (const bool just_above : {false, true}) {
            std::vector<Met> row = row_at(level, just_above);
            for (Met& met : row)
                met.at_point = ends_there && same(at(met, level), point);
            for (std::size_t i = 0; i < row.size(); i += 2) {
                for (std::size_t j = i + 1; j < row.size(); j += 2) {
                    Run run;
                    run.level = level;
                    run.met.assign(row.begin() + static_cast<std::ptrdiff_t>(i),
                                   row.begin() + static_cast<std::ptrdiff_t>(j + 1));
                    const bool is_new = std::none_of(found.begin(), found.end(),
                                                     [&](const Run& other) { return is_same(run, other); });
                    if (parts_in_two(run.met) && has_point(run, point, ends_there) && is_new)
                        found.push_back(run);
                }
            }
        }
        return found;
    }

    // Of the piece above a line through the same sides in another direction.
    Number area_above(Run run, const Point& point) const
    {
        run.level = level_of(point);
        point_ = point;
        return above(run).area;
    }

    bool is_clear(Run run, const Point& point) const
    {
        run.level = level_of(point);
        point_ = point;
        return lies_clear(run);
    }

    // Whether a line holds the amount, clear of all vertices between its ends; or one at a vertex all but holds it.
    bool hold_one(bool nearly) const
    {
        return any_run([&](const Run& run, const Number& low, const Number& high) {
            return nearly ? run_holds_nearly(run, low, high) : run_holds(run, low, high);
        });
    }

    // How many lines hold the amount exactly.
    std::size_t count_holding() const
    {
        std::size_t count = 0;
        any_run([&](const Run& run, const Number& low, const Number& high) {
            count += run_holds(run, low, high) ? 1 : 0;
            return false;
        });
        return count;
    }

    // Whether a line of one segment holds the amount, and doubles next to its ends hold it too.
    bool doubles_hold_one() const
    {
        return any_run([&](Run run, const Number& low, const Number& high) {
            if (run.met.size() != 2 || !run_holds(run, low, high))
                return false;
            run.level = level_that_holds(run, low, high);
            return doubles_hold(run, area_above(run, low, high).is_asked);
        });
    }

    // What the request holds where a line comes to the level of a vertex, from above or from below.
    std::vector<Number> at_rims() const
    {
        std::vector<Number> areas;
        any_run([&](const Run& run, const Number& low, const Number& high) {
            const SlabArea above = area_above(run, low, high);
            for (const Number& area : {above.at(0), above.at(1)})
                areas.push_back(above.is_asked ? area : Number(judged_.area - area));
            return false;
        });
        return areas;
    }

private:
    Number level_of(const Point& p) const { return dot(judged_.up, p); }

    bool is_same(const Run& one, const Run& other) const
    {
        return std::equal(one.met.begin(), one.met.end(), other.met.begin(), other.met.end(),
                          [](const Met& a, const Met& b) {
                              return a.ring == b.ring && (a.side == b.side || (a.at_point && b.at_point));
                          });
    }

    bool has_point(const Run& run, const Point& point, bool ends_there) const
    {
        if (ends_there)
            return std::any_of(run.met.begin(), run.met.end(), [](const Met& m) { return m.at_point; });
        const Number along = -cross(judged_.up, point);
        for (std::size_t i = 0; i < run.met.size(); i += 2)
            if (run.met[i].along < along && along < run.met[i + 1].along)
                return true;
        return false;
    }

    Point at(const Met& met, const Number& level) const
    {
        if (met.at_point)
            return point_;
        const Point& a = rings_[met.ring][met.side];
        const Point& b = after(rings_[met.ring], met.side);
        const Number part = (level - level_of(a)) / (level_of(b) - level_of(a));
        return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
    }

    // Just below the level, or just above it.
    std::vector<Met> row_at(const Number& level, bool just_above = false) const
    {
        const auto is_below = [&](const Point& p) {
            return just_above ? level_of(p) <= level : level_of(p) < level;
        };
        std::vector<Met> row;
        for (std::size_t r = 0; r < rings_.size(); ++r) {
            for (std::size_t i = 0; i < rings_[r].size(); ++i) {
                if (is_below(rings_[r][i]) == is_below(after(rings_[r], i)))
                    continue;
                Met met = {0, r, i, false};
                met.along = -cross(judged_.up, at(met, level));
                row.push_back(met);
            }
        }
        std::sort(row.begin(), row.end(), [](const Met& a, const Met& b) { return a.along < b.along; });
        return row;
    }

    static bool parts_in_two(const std::vector<Met>& met)
    {
        if (met.front().ring != met.back().ring)
            return false;
        for (std::size_t i = 2; i < met.size(); i += 2)
            for (std::size_t k = 0; k < i; k += 2)
                if (met[i].ring == met[k].ring)
                    return false;
        return true;
    }

    // The boundary of the piece above or below that runs along the line, and the sides of the parcel on it.
    Polygon round(const Run& run, bool above, std::vector<std::pair<std::size_t, std::size_t>>& sides) const
    {
        const std::size_t n = run.met.size();
        Polygon walked;
        std::size_t arrived = above ? 0 : n - 1;
        do {
            const std::size_t left = above ? arrived + 1 : arrived - 1;
            walked.push_back(at(run.met[arrived], run.level));
            walked.push_back(at(run.met[left], run.level));
            const std::size_t ring = run.met[left].ring;
            std::size_t side = run.met[left].side;
            std::size_t next = n;
            while (next == n) {
                side = (side + 1) % rings_[ring].size();
                walked.push_back(rings_[ring][side]);
                for (std::size_t i = 0; i < n; ++i)
                    if (run.met[i].ring == ring && run.met[i].side == side)
                        next = i;
                if (next == n)
                    sides.emplace_back(ring, side);
            }
            arrived = next;
        } while (arrived != (above ? 0 : n - 1));
        return walked;
    }

    struct Piece2 {
        Number area;
        bool has_base;
    };

    // The piece above.
    Piece2 above(const Run& run) const
    {
        std::vector<std::pair<std::size_t, std::size_t>> sides;
        Polygon walked = round(run, true, sides);
        bool is_above = true;
        if (sgn(signed_area(walked)) < 0) {
            sides.clear();
            walked = round(run, false, sides);
            is_above = false;
        }
        Number area = signed_area(walked);
        bool has_base = std::any_of(sides.begin(), sides.end(),
                                    [&](const auto& s) { return is_base(s.first, s.second); });
        for (std::size_t r = 0; r < rings_.size(); ++r) {
            const bool crossed =
                std::any_of(run.met.begin(), run.met.end(), [r](const Met& m) { return m.ring == r; });
            if (crossed || !is_in(walked, rings_[r][0]))
                continue;
            area += signed_area(rings_[r]);
            for (std::size_t i = 0; i < rings_[r].size(); ++i)
                has_base = has_base || is_base(r, i);
        }
        return is_above ? Piece2{area, has_base} : Piece2{judged_.area - area, !has_base};
    }

    bool is_base(std::size_t ring, std::size_t side) const
    {
        const Point& a = rings_[ring][side];
        const Point& b = after(rings_[ring], side);
        return (same(a, base_a_) && same(b, base_b_)) || (same(a, base_b_) && same(b, base_a_));
    }

    // What division.h says of lines that touch: they pass a vertex within four spacings, or end within four of a vertex that is
    // none of their side's. Rounding its ends takes a line one further; where doubles are so far apart that the ends are moved
    // to hold the amount, up to four.
    bool lies_clear(const Run& run) const
    {
        const Number reach = (is_coarse_ ? 8 : 5) * judged_.spacing;
        const Number at_end = 3 * judged_.spacing;
        const Number up2 = dot(judged_.up, judged_.up);
        const Number unit = Number(std::sqrt(up2.get_d()));
        for (std::size_t i = 0; i < run.met.size(); i += 2) {
            const Point a = at(run.met[i], run.level);
            const Point b = at(run.met[i + 1], run.level);
            const Number length = -cross(judged_.up, b - a);
            for (std::size_t r = 0; r < rings_.size(); ++r) {
                for (std::size_t v = 0; v < rings_[r].size(); ++v) {
                    const Point& p = rings_[r][v];
                    const Number off = level_of(p) - run.level;
                    const Number along = -cross(judged_.up, p - a);
                    if (off * off <= reach * reach * up2 && along > at_end * unit &&
                        along < length - at_end * unit)
                        return false;
                    if ((is_end(p, a, reach) && !is_of(run.met[i], r, v)) ||
                        (is_end(p, b, reach) && !is_of(run.met[i + 1], r, v)))
                        return false;
                }
            }
            // A segment that is next to nothing, or a ring that is met with one vertex only.
            const Point next = at(run.met[(i + 2) % run.met.size()], run.level);
            if (is_end(a, b, reach) || is_end(b, next, reach))
                return false;
        }
        return true;
    }

    // Whether a vertex is an end of the side that is met.
    bool is_of(const Met& met, std::size_t ring, std::size_t vertex) const
    {
        if (met.ring != ring)
            return false;
        return vertex == met.side || vertex == (met.side + 1) % rings_[ring].size() ||
               (met.at_point && same(rings_[ring][vertex], point_));
    }

    static bool is_end(const Point& v, const Point& end, const Number& reach)
    {
        return dot(v - end, v - end) <= reach * reach;
    }

    // Of all lines between two sides, from one vertex to the next; ends with the first for which `is_it` is true.
    template <typename IsIt> bool any_run(const IsIt& is_it) const
    {
        std::vector<Number> levels;
        for (const Polygon& ring : rings_)
            for (const Point& p : ring)
                levels.push_back(level_of(p));
        std::sort(levels.begin(), levels.end());
        levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
        for (std::size_t k = 0; k + 1 < levels.size(); ++k) {
            const std::vector<Met> row = row_at((levels[k] + levels[k + 1]) / 2);
            for (std::size_t i = 0; i < row.size(); i += 2) {
                for (std::size_t j = i + 1; j < row.size(); j += 2) {
                    Run run;
                    run.met.assign(row.begin() + static_cast<std::ptrdiff_t>(i),
                                   row.begin() + static_cast<std::ptrdiff_t>(j + 1));
                    if (parts_in_two(run.met) && is_it(run, levels[k], levels[k + 1]))
                        return true;
                }
            }
        }
        return false;
    }

    // What lies above a line, of the part of the slab below it.
    struct SlabArea {
        Number constant;
        Number first;
        Number second;
        bool is_asked;  // the request lies above

        Number at(const Number& part) const { return constant + part * (first + part * second); }
    };

    SlabArea area_above(Run run, const Number& low, const Number& high) const
    {
        // A quadratic of the level, through three values inside.
        Number value[3];
        bool has_base = false;
        for (int i = 0; i < 3; ++i) {
            run.level = low + (high - low) * (i + 1) / 4;
            const Piece2 piece = above(run);
            value[i] = piece.area;
            has_base = piece.has_base;
        }
        SlabArea area;
        area.second = 8 * (value[0] - 2 * value[1] + value[2]);
        area.first = 4 * (value[1] - value[0]) - area.second * 3 / 4;
        area.constant = value[0] - area.first / 4 - area.second / 16;
        // judged.up points away from where the request lies, but for parallels only the base side tells.
        area.is_asked =
            request_.line.cut == Cut::parallel && has_base == (request_.measured == Measured::from_reference);
        return area;
    }

    const Number& wanted_above(const SlabArea& area) const
    {
        return area.is_asked ? judged_.asked[0] : judged_.asked[1];
    }

    bool run_holds(Run run, const Number& low, const Number& high) const
    {
        const SlabArea area = area_above(run, low, high);
        const Number& wanted = wanted_above(area);
        if (!(wanted < area.at(0) && wanted > area.at(1)))
            return false;
        run.level = level_that_holds(run, low, high);
        return lies_clear(run);
    }

    Number level_that_holds(const Run& run, const Number& low, const Number& high) const
    {
        const SlabArea area = area_above(run, low, high);
        Number near = 0;
        Number far = 1;
        for (int bit = 0; bit < 100; ++bit) {
            const Number middle = (near + far) / 2;
            (area.at(middle) > wanted_above(area) ? near : far) = middle;
        }
        return low + (high - low) * near;
    }

    // The doubles within one and a half spacings of a number; where they lie densely, two hundred of them.
    std::vector<double> doubles_near(const Number& v) const
    {
        const double near = v.get_d();
        const double next = std::nextafter(std::fabs(near), HUGE_VAL);
        const double step = std::max(next - std::fabs(near), judged_.spacing.get_d() / 64);
        std::vector<double> found;
        for (int i = -100; i <= 100; ++i)
            if (abs(Number(near + i * step) - v) <= judged_.spacing * Number(1.5))
                found.push_back(near + i * step);
        return found;
    }

    // The ends move by next to nothing, so that long double is enough for what the pieces gain by it.
    bool doubles_hold(const Run& run, bool asked_above) const
    {
        using Real = long double;
        const auto real = [](const Number& v) -> Real {
            const double high = v.get_d();
            const Number rest = v - Number(high);
            return static_cast<Real>(high) + rest.get_d();
        };
        struct Move {
            Real x;
            Real y;
        };
        const auto half_cross = [](const Move& a, const Move& b) { return (a.x * b.y - a.y * b.x) / 2; };
        const auto from_to = [&real](const Point& a, const Point& b) {
            const Point d = b - a;
            return Move{real(d.x), real(d.y)};
        };
        const Point ends[] = {at(run.met[0], run.level), at(run.met[1], run.level)};
        std::vector<Move> moves[2];
        for (const std::size_t end : {std::size_t{0}, std::size_t{1}})
            for (const double x : doubles_near(ends[end].x))
                for (const double y : doubles_near(ends[end].y))
                    moves[end].push_back(from_to(ends[end], {Number(x), Number(y)}));
        // The piece above comes from where the left side begins, and goes on to where the right one ends. The piece below comes
        // from where the right one begins.
        const Polygon& left_ring = rings_[run.met[0].ring];
        const Polygon& right_ring = rings_[run.met[1].ring];
        const Move left_above = from_to(left_ring[run.met[0].side], ends[1]);
        const Move right_above = from_to(ends[0], after(right_ring, run.met[1].side));
        const Move left_below = from_to(ends[1], after(left_ring, run.met[0].side));
        const Move right_below = from_to(right_ring[run.met[1].side], ends[0]);
        const Real over = real(above(run).area - judged_.asked[asked_above ? 0 : 1]);
        // What is judged at the limit in one sum and in another may differ by a hair.
        const Real granted_above = 0.999L * real(tolerance(judged_, asked_above ? 0 : 1));
        const Real granted_below = 0.999L * real(tolerance(judged_, asked_above ? 1 : 0));
        for (const Move& a : moves[0]) {
            for (const Move& b : moves[1]) {
                const Real both = half_cross(a, b);
                const Real more_above = over + half_cross(a, left_above) + half_cross(b, right_above) + both;
                const Real more_below = -over + half_cross(a, left_below) + half_cross(b, right_below) - both;
                if (std::fabs(more_above) <= granted_above && std::fabs(more_below) <= granted_below)
                    return true;
            }
        }
        return false;
    }

    bool run_holds_nearly(Run run, const Number& low, const Number& high) const
    {
        const SlabArea area = area_above(run, low, high);
        const Number granted = tolerance(judged_, 0, Number(1e-9));
        const Number granted_rest = tolerance(judged_, 1, Number(1e-9));
        const Number both = std::min(granted, granted_rest);
        for (const int rim : {0, 1}) {
            const Number miss = abs(area.at(rim) - wanted_above(area));
            run.level = rim == 0 ? low : high;
            if (miss <= both * Number(0.9) && lies_clear(run))
                return true;
        }
        return false;
    }

    const Judged& judged_;
    const Request& request_;
    std::vector<Polygon> rings_;
    Point base_a_;
    Point base_b_;
    mutable Point point_;  // about which the line turns
    bool is_coarse_ = false;
};

// The piece of the request has the side, or lies on the side of the line that was asked for.
std::string objection_to_place(const Judged& judged, const Request& request, const Parcel& parcel,
                               const Division& division)
{
    const std::vector<Polygon> piece = rings_of(division.pieces[0].ring, division.pieces[0].holes);
    const Ring& of_line = request.line.ring == 0 ? parcel.outer : parcel.holes[request.line.ring - 1];
    const Polygon base = exact(
        {of_line[request.line.index % of_line.size()], of_line[(request.line.index + 1) % of_line.size()]});
    const plparcel::Segment& segment = division.lines[0].segments[0];
    const Polygon ends = exact({segment.from, segment.to});
    bool has_base = false;
    int above = 0;
    for (std::size_t r = 0; r < piece.size(); ++r) {
        // Inside on the left.
        const bool turn = (sgn(signed_area(piece[r])) > 0) == (r == 0);
        for (std::size_t i = 0; i < piece[r].size(); ++i) {
            const Point& p = turn ? piece[r][i] : after(piece[r], i);
            const Point& q = turn ? after(piece[r], i) : piece[r][i];
            // Rounded to decimals, a line along the side has the ends of the side rounded too: to the decimals, and these to
            // the nearest doubles.
            const Number near = judged.rounding == 0 ? Number(0) : judged.rounding + judged.spacing / 2;
            const auto is = [&near](const Point& a, const Point& b) {
                return abs(a.x - b.x) <= near && abs(a.y - b.y) <= near;
            };
            for (const std::size_t way : {std::size_t{0}, std::size_t{1}}) {
                has_base = has_base || (is(p, base[way]) && is(q, base[1 - way]));
                if (same(p, ends[way]) && same(q, ends[1 - way]))
                    above = sgn(-cross(judged.up, q - p));
            }
        }
    }
    if (request.line.cut == Cut::parallel)
        return has_base == (request.measured == Measured::from_reference) ? "" : "the base side is elsewhere";
    return above < 0 ? "" : "the request lies on the other side";
}

std::string objection_to_two(const Judged& judged, const Request& request, const Parcel& parcel,
                             const Division& division)
{
    if (division.lines.size() != 1 || division.pieces.size() != 2 || division.held.size() != 2)
        return "not one line and two pieces";
    Number low = 0;
    Number high = 0;
    Number sum = 0;
    bool is_first = true;
    for (const plparcel::Segment& segment : division.lines[0].segments) {
        for (const PL_PNT2D_record& p : {segment.from, segment.to}) {
            const Number level = dot(judged.up, exact({p})[0]);
            low = is_first || level < low ? level : low;
            high = is_first || level > high ? level : high;
            sum += level;
            is_first = false;
        }
    }
    const Number slack =
        (14 * judged.spacing + 2 * judged.rounding) * Number(std::sqrt(dot(judged.up, judged.up).get_d()));
    if (high - low > slack * Number(1.000001))
        return "the line is not straight";
    const std::vector<Number> levels = {sum / static_cast<int>(2 * division.lines[0].segments.size())};
    Number all = 0;
    for (std::size_t i = 0; i < 2; ++i) {
        const std::vector<Polygon> rings = rings_of(division.pieces[i].ring, division.pieces[i].holes);
        if (std::string fault = objection_to_rings(rings); !fault.empty())
            return "a piece: " + fault;
        const Number area = area_of(rings);
        const Number miss = abs(area - judged.asked[i]);
        if (miss > tolerance(judged, i) * Number(1.0 + 1e-9))
            return "an amount is not held";
        all += area;
        for (const Polygon& ring : rings)
            for (std::size_t k = 0; k < ring.size(); ++k)
                if (!is_side_or_line(judged.parcel, ring[k], after(ring, k), judged.up, levels,
                                     judged.spacing, judged.rounding))
                    return "a side of a piece is neither boundary nor line";
    }
    if (abs(all - judged.area) > judged.area * judged.of_parcel * 2)
        return "the pieces are not the parcel";
    return objection_to_place(judged, request, parcel, division);
}

std::string objection_to_refusal(const Judged& judged, const Request& request, const Parcel& parcel,
                                 Status status, bool coarse)
{
    const Runs runs(judged, parcel, request);
    if (status == Status::not_reached && coarse)
        return !request.rounding.decimals && runs.doubles_hold_one() ? "doubles hold it" : "";
    if (status != Status::not_reached && status != Status::line_leaves_parcel &&
        status != Status::base_reaches_behind)
        return "no reason to refuse";
    if (runs.hold_one(false))
        return "a line holds it";
    // Where doubles are far apart, what a line misses by itself leaves no room for its roundings.
    return !coarse && runs.hold_one(true) ? "a line holds it nearly" : "";
}

bool is_same_line(const plparcel::DividingLine& one, const plparcel::DividingLine& other)
{
    const auto same = [](const plparcel::Segment& a, const plparcel::Segment& b) {
        return a.from.x == b.from.x && a.from.y == b.from.y && a.to.x == b.to.x && a.to.y == b.to.y;
    };
    return std::equal(one.segments.begin(), one.segments.end(), other.segments.begin(), other.segments.end(),
                      same);
}

// One request for two pieces, and for a second line where there is one.
void look_at_two(const Parcel& parcel, Request request, std::map<std::string, int>& tally)
{
    const Division division = divide(parcel, request);
    Judged exactly = judged(parcel, request);
    look_at_rounding(division, exactly);
    const bool coarse = is_too_coarse(exactly);
    std::string what = shown(division);
    if (division.status == Status::divided && division.lines[0].segments.size() > 1)
        what += ", across holes";
    if (division.status == Status::divided && division.lines[0].meets_again)
        what += ", a part of the line";
    ++tally[what + (coarse ? ", doubles far apart" : "")];
    std::string fault = division.status == Status::divided
                            ? objection_to_two(exactly, request, parcel, division)
                            : objection_to_refusal(exactly, request, parcel, division.status, coarse);
    if (fault.empty() && division.status == Status::divided)
        fault = objection_to_rounding(exactly, request, division);
    EXPECT_EQ(fault, "") << describe(division) << ": " << shown(parcel, request);
    if (division.status != Status::divided)
        return;
    request.alternative = 1;
    const Division other = divide(parcel, request);
    ++tally[std::string("another line: ") + describe(other)];
    EXPECT_TRUE(other.status == Status::divided || other.status == Status::no_further_line ||
                (coarse && other.status == Status::not_reached))
        << describe(other) << ": " << shown(parcel, request);
    // With decimals, only where doubles hold no first line a second one is looked for within the wider tolerance.
    Judged without_decimals = exactly;
    without_decimals.of_parcel = 1e-9;
    const bool has_no_other = other.status == Status::no_further_line && !is_too_coarse(without_decimals);
    if (has_no_other && request.line.index % 4 == 0) {
        EXPECT_LE(Runs(exactly, parcel, request).count_holding(), 1U) << shown(parcel, request);
    }
    if (other.status == Status::divided) {
        Judged by_other = judged(parcel, request);
        look_at_rounding(other, by_other);
        EXPECT_EQ(objection_to_two(by_other, request, parcel, other), "") << shown(parcel, request);
        EXPECT_EQ(objection_to_rounding(by_other, request, other), "") << shown(parcel, request);
        // Lines that run closer to each other than that may be the same once they are rounded to decimals.
        EXPECT_FALSE(!other.decimals && is_same_line(division.lines[0], other.lines[0]))
            << shown(parcel, request);
    }
}

TEST(WholeLinesExact, NoWrongDivisionInTwoAndNoFalseRefusal)
{
    const char* chosen = std::getenv("PLCALC_DIVISIONS");
    const int count = chosen != nullptr ? std::max(1, std::atoi(chosen)) : 1500;
    std::map<std::string, int> tally;
    for (int i = 0; i < count;) {
        const Parcel parcel = any_parcel();
        if (!is_plain(parcel) || parcel.holes.empty())
            continue;
        ++i;
        Request request = any_request(parcel);
        request.pieces = plparcel::Pieces::two;
        request.amounts.resize(1);
        if (i % 2 == 0)
            request.rounding = any_rounding(parcel);
        look_at_two(parcel, request, tally);
    }
    for (const auto& [what, times] : tally)
        std::printf("  %7d %s\n", times, what.c_str());
}

// Amounts that a line at a vertex holds, and those that it misses by a little less or more than may be missed.
TEST(WholeLinesExact, NoFalseRefusalBesideAVertex)
{
    const char* chosen = std::getenv("PLCALC_DIVISIONS");
    const int count = chosen != nullptr ? std::max(1, std::atoi(chosen)) : 1000;
    std::map<std::string, int> tally;
    for (int i = 0; i < count;) {
        const Parcel parcel = any_parcel();
        if (!is_plain(parcel) || parcel.holes.empty())
            continue;
        Request request = any_request(parcel);
        request.pieces = plparcel::Pieces::two;
        const double whole = check_parcel(parcel).area;
        request.amounts = {plparcel::share(1, 2)};
        const std::vector<Number> rims = Runs(judged(parcel, request), parcel, request).at_rims();
        for (int of_parcel = 0; of_parcel < 6; ++of_parcel) {
            constexpr double kMisses[] = {0.0, 0.1, 0.3, 0.45, 0.49, 0.6, 0.9, 0.99, 1.01, 1.5, 3.0, 30.0};
            const double rim = rims[less_than(rims.size())].get_d();
            const double granted = std::min(1e-9 * whole, 0.01 * std::min(rim, whole - rim));
            const double miss = kMisses[less_than(std::size(kMisses))] * granted;
            const double asked = less_than(2) == 0 ? rim + miss : rim - miss;
            constexpr double kNothing = 1e-15;
            if (!(asked > kNothing * whole && asked < (1.0 - kNothing) * whole))
                continue;
            request.amounts = {plparcel::share(asked, whole)};
            request.rounding = i % 4 == 0 ? any_rounding(parcel) : plparcel::Rounding{};
            look_at_two(parcel, request, tally);
            ++i;
        }
    }
    for (const auto& [what, times] : tally)
        std::printf("  %7d %s\n", times, what.c_str());
}

// ---- Whole lines through a vertex, a place or a point

// The point about which lines turn; on the boundary the direction of the side that they turn away from, and whether the
// parcel lies on its left.
struct Pivot {
    bool is_usable = true;  // not all but on the boundary
    PL_PNT2D_record point = {};
    bool on_boundary = false;
    Point side;
    bool inside_on_left = true;
};

PL_PNT2D_record place_at(const PL_PNT2D_record& a, const PL_PNT2D_record& b, double along)
{
    const Point d = exact({b})[0] - exact({a})[0];
    mpf_class length(0, 300);
    length = sqrt(mpf_class(dot(d, d), 300));
    const Number part = Number(along) / Number(length);
    // get_d() cuts off; the nearest double is half a spacing further.
    const auto nearest = [](const Number& n) {
        const double cut_off = n.get_d();
        const double next = std::nextafter(cut_off, sgn(n) < 0 ? -HUGE_VAL : HUGE_VAL);
        return abs(Number(next) - n) < abs(n - Number(cut_off)) ? next : cut_off;
    };
    return {nearest(Number(a.x) + d.x * part), nearest(Number(a.y) + d.y * part)};
}

// Of a point that was given: exactly at a vertex or on a side, or well away from all of them.
Pivot pivot_at(const Parcel& parcel, const PL_PNT2D_record& point)
{
    Pivot pivot;
    pivot.point = point;
    const Point p = exact({point})[0];
    const double far = 0.9e6 * plparcel::extent_of(parcel.outer).largest();
    pivot.is_usable = std::hypot(point.x - parcel.outer[0].x, point.y - parcel.outer[0].y) < far;
    for (std::size_t r = 0; r <= parcel.holes.size(); ++r) {
        Polygon ring = exact(r == 0 ? parcel.outer : parcel.holes[r - 1]);
        if ((sgn(signed_area(ring)) > 0) != (r == 0))
            std::reverse(ring.begin(), ring.end());
        const double spacing = plparcel::coordinate_spacing(r == 0 ? parcel.outer : parcel.holes[r - 1]);
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Point d = after(ring, i) - ring[i];
            const Point w = p - ring[i];
            const Number off = cross(d, w);
            const Number reach = Number(8 * spacing);
            const bool beside = off * off <= reach * reach * dot(d, d);
            const bool at_begin = dot(w, w) <= reach * reach;
            const Point to_end = p - after(ring, i);
            const bool at_end = dot(to_end, to_end) <= reach * reach;
            if (sgn(dot(w, w)) == 0 ||
                (sgn(off) == 0 && on(ring[i], after(ring, i), p) && !at_end && !at_begin)) {
                pivot.on_boundary = true;
                pivot.side = d;
            } else if (at_begin || (at_end && sgn(dot(to_end, to_end)) != 0) ||
                       (!at_end && beside && sgn(dot(w, d)) > 0 && dot(w, d) < dot(d, d))) {
                pivot.is_usable = false;
            }
        }
    }
    return pivot;
}

Pivot pivot_of(const Parcel& parcel, const plparcel::Line& line)
{
    if (line.cut == Cut::through_point)
        return pivot_at(parcel, line.a);
    const Ring& ring = line.ring == 0 ? parcel.outer : parcel.holes[line.ring - 1];
    const PL_PNT2D_record& a = ring[line.index];
    const PL_PNT2D_record& b = ring[(line.index + 1) % ring.size()];
    Pivot pivot;
    pivot.on_boundary = true;
    pivot.point = line.cut == Cut::through_vertex ? a : place_at(a, b, line.along);
    pivot.side = exact({b})[0] - exact({a})[0];
    const double reach = 4.0 * plparcel::coordinate_spacing(ring);
    const auto is_at = [&](const PL_PNT2D_record& v) {
        return std::fabs(pivot.point.x - v.x) <= reach && std::fabs(pivot.point.y - v.y) <= reach;
    };
    pivot.is_usable = line.cut == Cut::through_vertex || !(is_at(a) || is_at(b));
    pivot.inside_on_left = (sgn(signed_area(exact(ring))) > 0) == (line.ring == 0);
    return pivot;
}

Request any_turning_request(const Parcel& parcel)
{
    Request request = any_request(parcel);
    constexpr Cut kCuts[] = {Cut::through_vertex, Cut::through_place, Cut::through_point};
    request.line.cut = kCuts[less_than(3)];
    const Ring& ring = request.line.ring == 0 ? parcel.outer : parcel.holes[request.line.ring - 1];
    const PL_PNT2D_record& a = ring[request.line.index];
    const PL_PNT2D_record& b = ring[(request.line.index + 1) % ring.size()];
    request.line.along = std::hypot(b.x - a.x, b.y - a.y) * between(0.05, 0.95);
    const plparcel::Extent extent = plparcel::extent_of(parcel.outer);
    const double beyond = less_than(3) == 0 ? 2.0 * extent.largest() : 0.0;
    request.line.a = {between(extent.low.x - beyond, extent.high.x + beyond),
                      between(extent.low.y - beyond, extent.high.y + beyond)};
    const std::size_t way = less_than(6);
    if (way == 0)
        request.line.a = {std::round(request.line.a.x), std::round(request.line.a.y)};
    if (way == 1)
        request.line.a = a;
    if (way == 2)
        request.line.a = {(extent.low.x + extent.high.x) / 2, (extent.low.y + extent.high.y) / 2};
    const std::size_t of = 2 + less_than(11);
    request.amounts = {plparcel::share(static_cast<double>(1 + less_than(of - 1)), static_cast<double>(of))};
    return request;
}

// How much too much lies on the right of a line through a point.
class Excess {
public:
    Excess(const Judged& judged, const Pivot& pivot, bool amount_on_right)
        : judged_(judged), point_(exact({pivot.point})[0]), wanted_(judged.asked[amount_on_right ? 0 : 1])
    {}

    Number operator()(const Point& run) const
    {
        const Point up = {-run.y, run.x};
        std::vector<Polygon> kept;
        for (const Polygon& ring : judged_.parcel)
            kept.push_back(below(ring, up, dot(up, point_)));
        return area_of(kept) - wanted_;
    }

    const Point& point() const { return point_; }

private:
    const Judged& judged_;
    Point point_;
    Number wanted_;
};

// From a direction on, anticlockwise through half a turn: to all vertices.
std::vector<Point> to_vertices(const Judged& judged, const Point& point, const Point& first)
{
    std::vector<Point> runs;
    for (const Polygon& ring : judged.parcel) {
        for (const Point& v : ring) {
            Point d = v - point;
            const int side = sgn(cross(first, d));
            if (side < 0)
                d = {-d.x, -d.y};
            if (side != 0)
                runs.push_back(d);
        }
    }
    std::sort(runs.begin(), runs.end(), [](const Point& a, const Point& b) { return sgn(cross(a, b)) > 0; });
    runs.insert(runs.begin(), first);
    runs.push_back({-first.x, -first.y});
    return runs;
}

// And some directions between.
std::vector<Point> half_turn(const Judged& judged, const Point& point, const Point& first)
{
    const std::vector<Point> runs = to_vertices(judged, point, first);
    constexpr int kBetween = 4;
    std::vector<Point> all;
    for (std::size_t i = 0; i + 1 < runs.size(); ++i) {
        all.push_back(runs[i]);
        const Number one = std::max(Number(abs(runs[i].x)), Number(abs(runs[i].y)));
        const Number other = std::max(Number(abs(runs[i + 1].x)), Number(abs(runs[i + 1].y)));
        for (int k = 1; k < kBetween && sgn(cross(runs[i], runs[i + 1])) != 0; ++k) {
            const Number a = Number(kBetween - k) / one;
            const Number b = Number(k) / other;
            all.push_back({runs[i].x * a + runs[i + 1].x * b, runs[i].y * a + runs[i + 1].y * b});
        }
    }
    all.push_back(runs.back());
    return all;
}

// How often the area on the right passes what is wanted, for certain; and whether a line all but holds it.
struct Passed {
    std::size_t times = 0;
    bool holds_nearly = false;
};

Passed passed_in(const Judged& judged, const Excess& excess, const Point& first)
{
    const Number granted = std::min(tolerance(judged, 0), tolerance(judged, 1));
    Passed passed;
    int sign = 0;
    for (const Point& run : half_turn(judged, excess.point(), first)) {
        const Number more = excess(run);
        if (abs(more) <= granted * Number(0.9))
            passed.holds_nearly = true;
        if (abs(more) <= 2 * granted)
            continue;
        passed.times += sign != 0 && sgn(more) != sign ? 1 : 0;
        sign = sgn(more);
    }
    return passed;
}

Passed lines_there_are(const Judged& judged, const Pivot& pivot, const Request& request)
{
    const bool from_reference = request.measured == Measured::from_reference;
    if (!pivot.on_boundary) {
        const Point east = {1, 0};
        const Passed one = passed_in(judged, Excess(judged, pivot, true), east);
        const Passed other = passed_in(judged, Excess(judged, pivot, false), east);
        return {one.times + other.times, one.holds_nearly || other.holds_nearly};
    }
    // The line turns to the left of the side, which then lies on its right, or to the right of it.
    const Point first = pivot.inside_on_left ? pivot.side : Point{-pivot.side.x, -pivot.side.y};
    const bool on_right = from_reference == pivot.inside_on_left;
    return passed_in(judged, Excess(judged, pivot, on_right), first);
}

// What runs along a line, from end to end.
Point run_of(const Division& division)
{
    return exact({division.lines[0].to})[0] - exact({division.lines[0].from})[0];
}

std::string objection_to_turned(Judged& judged, const Pivot& pivot, const Request& request,
                                const Division& division)
{
    const Point run = run_of(division);
    if (sgn(dot(run, run)) == 0)
        return "a line without length";
    const bool from_reference = request.measured == Measured::from_reference;
    judged.up = from_reference ? Point{-run.y, run.x} : Point{run.y, -run.x};
    // Prolonged from ends that are rounded, or moved past a hole, the line passes the point by so much.
    const Point from = exact({division.lines[0].from})[0];
    const Point way = exact({pivot.point})[0] - from;
    const Number length2 = dot(run, run);
    const Number off = cross(run, way);
    const Number far = 1 + 2 * dot(way, way) / length2;
    if (off * off > length2 * far * judged.spacing * judged.spacing * (1030 * 1030))
        return "the line passes the point";
    if (pivot.on_boundary) {
        const Number side = cross(run, pivot.side);
        const bool lies_right = sgn(side) < 0;
        const Number slack = dot(pivot.side, pivot.side) * (30 * 30) * judged.spacing * judged.spacing;
        if (!lies_right && side * side > slack)
            return "the side lies where the amount does not";
    }
    return objection(judged, division);
}

// Clockwise from the bearing, or away from the side.
bool are_in_order(const std::vector<Division>& all, const Pivot& pivot, const Request& request)
{
    constexpr double kTurn = 2.0 * 3.14159265358979323846;
    const auto direction = [](const Point& d) { return std::atan2(d.x.get_d(), d.y.get_d()); };  // a bearing
    const bool clockwise = !pivot.on_boundary || !pivot.inside_on_left;
    double first = request.line.bearing * kTurn / 400.0;
    if (pivot.on_boundary)
        first = direction(pivot.side);
    double before = 0.0;
    for (const Division& division : all) {
        double turned = std::fmod((direction(run_of(division)) - first) * (clockwise ? 1.0 : -1.0), kTurn);
        turned += turned < -1e-6 ? kTurn : 0.0;
        if (pivot.on_boundary && !pivot.inside_on_left)
            turned = std::fmod(turned + kTurn / 2, kTurn);
        if (turned < before - 1e-6 && turned > 1e-6 && turned < kTurn - 1e-6)
            return false;
        before = std::max(before, turned);
    }
    return true;
}

TEST(WholeLinesExact, NoWrongDivisionThroughAPointAndNoFalseRefusal)
{
    const char* chosen = std::getenv("PLCALC_DIVISIONS");
    const int count = chosen != nullptr ? std::max(1, std::atoi(chosen)) : 1500;
    std::map<std::string, int> tally;
    std::size_t lines = 0;
    for (int i = 0; i < count;) {
        const Parcel parcel = any_parcel();
        if (!is_plain(parcel))
            continue;
        const Request request = any_turning_request(parcel);
        const Pivot pivot = pivot_of(parcel, request.line);
        if (!pivot.is_usable)
            continue;
        ++i;
        Judged exactly = judged(parcel, request);
        const bool coarse = is_too_coarse(exactly);
        const std::vector<Division> all =
            i % 8 == 0 ? all_divisions(parcel, request) : std::vector<Division>{divide(parcel, request)};
        const Status status = all[0].status;
        const char* kKinds[] = {"vertex", "place", "point"};
        ++tally[std::string(kKinds[static_cast<std::size_t>(request.line.cut) == 2
                                       ? 0
                                       : static_cast<std::size_t>(request.line.cut) - 4]) +
                ": " + describe(all[0]) + (coarse ? ", doubles far apart" : "")];
        std::string fault;
        if (status == Status::divided) {
            for (const Division& division : all)
                if (fault.empty())
                    fault = objection_to_turned(exactly, pivot, request, division);
            lines += all.size();
        }
        if (status != Status::divided || i % 8 == 0) {
            const Passed passed = lines_there_are(exactly, pivot, request);
            const std::size_t found = status == Status::divided ? all.size() : 0;
            const bool is_due = coarse && (status == Status::not_reached || found > 0);
            if (status != Status::divided && status != Status::not_reached &&
                status != Status::no_line_through_point)
                fault = "no reason to refuse";
            else if (found < passed.times && !is_due)
                fault = "not all lines were found";
            else if (found == 0 && passed.holds_nearly && !is_due)
                fault = "a line holds it nearly";
            else if (fault.empty() && found > 1 && !coarse && !are_in_order(all, pivot, request))
                fault = "not in order";
        }
        EXPECT_EQ(fault, "") << describe(all[0]) << ": point " << pivot.point.x << " " << pivot.point.y
                             << " along " << request.line.along << " " << shown(parcel, request);
    }
    for (const auto& [what, times] : tally)
        std::printf("  %7d %s\n", times, what.c_str());
    std::printf("  %zu lines\n", lines);
}

// ---- Parts of lines through a vertex, a place or a point that make two pieces

// With a place on a side as a vertex, as the pieces have it.
Judged with_vertex_at(Judged judged, const PL_PNT2D_record& place)
{
    const Point p = exact({place})[0];
    Polygon* nearest = nullptr;
    std::size_t side = 0;
    Number least;
    for (Polygon& ring : judged.parcel) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            if (same(ring[i], p))
                return judged;
            const Point d = after(ring, i) - ring[i];
            const Point w = p - ring[i];
            if (dot(w, d) < 0 || dot(w, d) > dot(d, d))
                continue;
            const Number off2 = cross(d, w) * cross(d, w) / dot(d, d);
            if (nearest == nullptr || off2 < least) {
                nearest = &ring;
                side = i;
                least = off2;
            }
        }
    }
    nearest->insert(nearest->begin() + static_cast<std::ptrdiff_t>(side) + 1, p);
    return judged;
}

Point between(const Point& a, const Point& b, const Number& part)
{
    const Number one = std::max(Number(abs(a.x)), Number(abs(a.y)));
    const Number other = std::max(Number(abs(b.x)), Number(abs(b.y)));
    const Number of_a = (1 - part) / one;
    const Number of_b = part / other;
    return {a.x * of_a + b.x * of_b, a.y * of_a + b.y * of_b};
}

// Between two directions next to each other.
class PartsBetween {
public:
    PartsBetween(Judged judged, const Pivot& pivot, const Request& request, const Parcel& parcel,
                 const Point& from, const Point& to)
        : judged_(std::move(judged)), pivot_(pivot), request_(request), parcel_(parcel),
          point_(exact({pivot.point})[0]), from_(from), to_(to)
    {}

    // How many lines hold the amount exactly, clear of all vertices; and whether one at a vertex holds it nearly.
    Passed passed()
    {
        turn_to(Number(1) / 2);
        std::vector<Run> runs = Runs(judged_, parcel_, request_).through(point_, pivot_.on_boundary);
        for (const Run& run : runs)
            for (const bool asked_above : {false, true})
                if (may_lie(run, asked_above))
                    look(run, judged_.asked[asked_above ? 0 : 1]);
        return passed_;
    }

private:
    void turn_to(const Number& part)
    {
        const Point run = ::between(from_, to_, part);
        judged_.up = {-run.y, run.x};
    }

    // The piece of the request lies on the right of a line from the point, if the side does from which it turns.
    bool may_lie(const Run& run, bool asked_above) const
    {
        if (!pivot_.on_boundary)
            return true;
        std::size_t end = 0;
        while (!run.met[end].at_point)
            ++end;
        const bool on_right = (request_.measured == Measured::from_reference) == pivot_.inside_on_left;
        const bool runs_on = end % 2 == 0;
        return asked_above == (on_right != runs_on);
    }

    Number excess(const Run& run, const Number& wanted, const Number& part)
    {
        turn_to(part);
        return Runs(judged_, parcel_, request_).area_above(run, point_) - wanted;
    }

    bool is_clear(const Run& run, const Number& part)
    {
        turn_to(part);
        return Runs(judged_, parcel_, request_).is_clear(run, point_);
    }

    void look(const Run& run, const Number& wanted)
    {
        const Number granted =
            std::min(tolerance(judged_, 0, Number(1e-9)), tolerance(judged_, 1, Number(1e-9)));
        constexpr int kParts = 4;
        Number more[kParts + 1];
        for (int k = 0; k <= kParts; ++k)
            more[k] = excess(run, wanted, Number(k) / kParts);
        for (const int rim : {0, kParts})
            if (2 * abs(more[rim]) <= granted && is_clear(run, rim == 0 ? 0 : 1))
                passed_.holds_nearly = true;
        for (int k = 0; k < kParts; ++k)
            if (sgn(more[k]) * sgn(more[k + 1]) < 0 && holds_at(run, wanted, root(run, wanted, k, kParts)))
                ++passed_.times;
    }

    // Where a hole comes to lie on the other side of the line, the area jumps past what is wanted.
    bool holds_at(const Run& run, const Number& wanted, const Number& part)
    {
        const Number more = abs(excess(run, wanted, part));
        return more <= judged_.area * Number(1e-12) && is_clear(run, part);
    }

    Number root(const Run& run, const Number& wanted, int k, int parts)
    {
        Number low = Number(k) / parts;
        Number high = Number(k + 1) / parts;
        const int sign = sgn(excess(run, wanted, low));
        for (int bit = 0; bit < 60; ++bit) {
            const Number middle = (low + high) / 2;
            (sgn(excess(run, wanted, middle)) == sign ? low : high) = middle;
        }
        return low;
    }

    Judged judged_;
    const Pivot& pivot_;
    const Request& request_;
    const Parcel& parcel_;
    Point point_;
    Point from_;
    Point to_;
    Passed passed_;
};

Passed parts_there_are(const Judged& judged, const Pivot& pivot, const Request& request, const Parcel& parcel)
{
    const Judged with_point = pivot.on_boundary ? with_vertex_at(judged, pivot.point) : judged;
    const Point first = pivot.on_boundary ? pivot.side : Point{1, 0};
    const std::vector<Point> runs = to_vertices(judged, exact({pivot.point})[0], first);
    Passed all;
    for (std::size_t i = 0; i + 1 < runs.size(); ++i) {
        if (sgn(cross(runs[i], runs[i + 1])) == 0 && i + 2 < runs.size())
            continue;
        const Passed passed = PartsBetween(with_point, pivot, request, parcel, runs[i], runs[i + 1]).passed();
        all.times += passed.times;
        all.holds_nearly = all.holds_nearly || passed.holds_nearly;
    }
    return all;
}

// The direction through two ends of a line across which all its ends lie nearest to each other.
Point straightest_run(const Division& division)
{
    std::vector<Point> ends;
    for (const plparcel::Segment& segment : division.lines[0].segments)
        for (const PL_PNT2D_record& p : {segment.from, segment.to})
            ends.push_back(exact({p})[0]);
    Point best;
    Number least2 = -1;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        for (std::size_t k = i + 1; k < ends.size(); ++k) {
            const Point run = ends[k] - ends[i];
            if (sgn(dot(run, run)) == 0)
                continue;
            Number low = 0;
            Number high = 0;
            for (const Point& p : ends) {
                const Number off = cross(run, p - ends[i]);
                low = std::min(low, off);
                high = std::max(high, off);
            }
            const Number spread2 = (high - low) * (high - low) / dot(run, run);
            if (sgn(least2) < 0 || spread2 < least2) {
                best = run;
                least2 = spread2;
            }
        }
    }
    return best;
}

std::string objection_to_part_through(Judged judged, const Pivot& pivot, const Request& request,
                                      const Parcel& parcel, const Division& division)
{
    const Point run = straightest_run(division);
    const bool from_reference = request.measured == Measured::from_reference;
    const bool on_right = from_reference == (!pivot.on_boundary || pivot.inside_on_left);
    judged.up = on_right ? Point{-run.y, run.x} : Point{run.y, -run.x};
    const Point point = exact({pivot.point})[0];
    bool has_point = false;
    for (const plparcel::Segment& segment : division.lines[0].segments) {
        const Point from = exact({segment.from})[0];
        const Point to = exact({segment.to})[0];
        const Point d = to - from;
        const Number off = cross(d, point - from);
        const Number reach = 16 * judged.spacing + 2 * judged.rounding;
        // The point may lie so near to the boundary that the end is rounded past it.
        const Number past = judged.rounding * Number(std::sqrt(dot(d, d).get_d()));
        const bool runs_through = off * off <= reach * reach * dot(d, d) && dot(point - from, d) > -past &&
                                  dot(to - point, d) > -past;
        // A place by its distance along a side is itself rounded, near half way between two doubles either way.
        const Number of_place = request.line.cut == Cut::through_place ? judged.spacing : Number(0);
        // Decimals beside the spacing of doubles: the nearest double lies up to half a spacing from them.
        const Number of_double = sgn(judged.rounding) > 0 ? Number(judged.spacing / 2) : Number(0);
        const Number moved = of_place + judged.rounding + of_double;
        const bool starts_there = abs(from.x - point.x) <= moved && abs(from.y - point.y) <= moved;
        has_point = has_point || (pivot.on_boundary ? starts_there : runs_through);
    }
    if (!has_point)
        return "the point is not on the line";
    return objection_to_two(judged, request, parcel, division);
}

bool is_inside(const Parcel& parcel, const Pivot& pivot)
{
    const Point point = exact({pivot.point})[0];
    if (!is_in(exact(parcel.outer), point))
        return false;
    return std::none_of(parcel.holes.begin(), parcel.holes.end(),
                        [&](const Ring& hole) { return is_in(exact(hole), point); });
}

TEST(WholeLinesExact, NoWrongDivisionInTwoThroughAPointAndNoFalseRefusal)
{
    const char* chosen = std::getenv("PLCALC_DIVISIONS");
    const int count = chosen != nullptr ? std::max(1, std::atoi(chosen)) : 1000;
    std::map<std::string, int> tally;
    for (int i = 0; i < count;) {
        const Parcel parcel = any_parcel();
        if (!is_plain(parcel) || parcel.holes.empty())
            continue;
        Request request = any_turning_request(parcel);
        request.pieces = plparcel::Pieces::two;
        const Pivot pivot = pivot_of(parcel, request.line);
        if (!pivot.is_usable)
            continue;
        if (!pivot.on_boundary && !is_inside(parcel, pivot)) {
            EXPECT_EQ(divide(parcel, request).status, Status::point_outside) << shown(parcel, request);
            continue;
        }
        ++i;
        if (i % 3 == 0)
            request.rounding = any_rounding(parcel);
        const Judged exactly = judged(parcel, request);
        const bool coarse = is_too_coarse(exactly);
        const std::vector<Division> all =
            i % 4 == 0 ? all_divisions(parcel, request) : std::vector<Division>{divide(parcel, request)};
        const Status status = all[0].status;
        std::string what = describe(all[0]);
        if (status == Status::divided && all[0].lines[0].segments.size() > 1)
            what += ", across holes";
        const bool is_vertex = request.line.cut == Cut::through_vertex;
        const bool is_place = request.line.cut == Cut::through_place;
        ++tally[std::string(is_vertex  ? "vertex: "
                            : is_place ? "place: "
                                       : "point: ") +
                what + (coarse ? ", doubles far apart" : "")];
        std::string fault;
        for (const Division& division : all) {
            if (!fault.empty() || status != Status::divided)
                continue;
            Judged by_this = exactly;
            look_at_rounding(division, by_this);
            fault = objection_to_part_through(by_this, pivot, request, parcel, division);
            if (fault.empty())
                fault = objection_to_rounding(by_this, request, division);
        }
        if (fault.empty() && (status != Status::divided || i % 4 == 0)) {
            const Passed passed = parts_there_are(exactly, pivot, request, parcel);
            const std::size_t found = status == Status::divided ? all.size() : 0;
            const bool is_due = coarse && (status == Status::not_reached || found > 0);
            if (status != Status::divided && status != Status::not_reached &&
                status != Status::line_leaves_parcel && status != Status::no_line_through_point)
                fault = "no reason to refuse";
            else if (found < passed.times && !is_due)
                fault = "not all lines were found: " + std::to_string(found) + " of " +
                        std::to_string(passed.times);
            else if (found == 0 && passed.holds_nearly && !is_due)
                fault = "a line holds it nearly";
            ++tally[std::to_string(passed.times) + " lines there are"];
        }
        EXPECT_EQ(fault, "") << describe(all[0]) << ": point " << pivot.point.x << " " << pivot.point.y
                             << " along " << request.line.along << " " << shown(parcel, request);
    }
    for (const auto& [what, times] : tally)
        std::printf("  %7d %s\n", times, what.c_str());
}

// What is not right is seen.
TEST(WholeLinesExact, TheJudgeObjects)
{
    const Parcel parcel = {{{0, 0}, {100, 0}, {100, 60}, {60, 60}, {60, 20}, {30, 20}, {30, 60}, {0, 60}},
                           {{{5, 40}, {10, 40}, {10, 45}}, {{70, 5}, {80, 5}, {80, 10}}}};
    Request request;
    request.pieces = plparcel::Pieces::any;
    request.amounts = {plparcel::share(1, 3), plparcel::share(1, 3)};
    const Division right = divide(parcel, request);
    const Judged exactly = judged(parcel, request);
    ASSERT_EQ(right.status, Status::divided);
    ASSERT_EQ(objection(exactly, right), "");

    Division wrong = right;
    wrong.pieces[0].ring[0].y += 1e-5;
    EXPECT_NE(objection(exactly, wrong), "") << "a vertex moved";
    wrong = right;
    std::swap(wrong.pieces.front().amount, wrong.pieces.back().amount);
    EXPECT_NE(objection(exactly, wrong), "") << "amounts exchanged";
    wrong = right;
    for (Piece& piece : wrong.pieces)
        piece.holes.clear();
    EXPECT_NE(objection(exactly, wrong), "") << "holes left out";
    wrong = right;
    for (plparcel::Segment& segment : wrong.lines[0].segments)
        segment.from.y = segment.to.y = segment.from.y + 1e-5;
    EXPECT_NE(objection(exactly, wrong), "") << "a line elsewhere";
    wrong = right;
    wrong.decimals = 3;
    EXPECT_NE(objection_to_rounding(exactly, request, wrong), "") << "decimals that nobody asked for";
    Request rounded = request;
    rounded.rounding.decimals = 4;
    EXPECT_NE(objection_to_rounding(exactly, rounded, wrong), "") << "fewer decimals";
    rounded.rounding.decimals = 3;
    EXPECT_NE(objection_to_rounding(exactly, rounded, wrong), "") << "more decimals than are said";
    wrong = right;
    const PL_PNT2D_record was = wrong.lines[0].segments[0].from;
    wrong.lines[0].segments[0].from.y += 0.01;
    for (Piece& piece : wrong.pieces)
        for (PL_PNT2D_record& p : piece.ring)
            if (p.x == was.x && p.y == was.y)
                p.y += 0.01;
    EXPECT_NE(objection_up_to_the_boundary(exactly, wrong), "") << "a segment turned";
    wrong = right;
    wrong.pieces.pop_back();
    EXPECT_NE(objection(exactly, wrong), "") << "a piece left out";
    wrong = right;
    wrong.pieces.push_back(wrong.pieces.back());
    EXPECT_NE(objection(exactly, wrong), "") << "a piece twice";
}

}  // namespace
