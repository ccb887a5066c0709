// Whole lines before a judge in rational numbers of any length. It shares nothing with the search: it clips the parcel
// along each line, measures what lies below, and looks at every side of every piece.

#include <gmpxx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

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
                     const std::vector<Number>& levels, const Number& reach)
{
    const Number up2 = dot(up, up);
    for (const Number& level : levels) {
        const Number off_p = dot(up, p) - level;
        const Number off_q = dot(up, q) - level;
        if (off_p * off_p <= 225 * reach * reach * up2 && off_q * off_q <= 225 * reach * reach * up2)
            return true;
    }
    for (const Polygon& ring : parcel) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const Point d = after(ring, i) - ring[i];
            const Number far = Number(6.5) * reach * reach * dot(d, d);
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
};

Number tolerance(const Judged& judged, std::size_t band)
{
    const Number of_parcel = judged.area * Number(1e-9);
    const Number of_piece = judged.asked[band] * Number(0.01);
    return std::min(of_parcel, of_piece);
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
        if (abs(miss) > tolerance(judged, i) * static_cast<int>(i + 1) + 16 * judged.spacing * width)
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
                                     judged.spacing))
                    return "a side of a piece is neither boundary nor line";
                const Number level = dot(judged.up, ring[k]);
                const Number slack =
                    15 * judged.spacing * Number(std::sqrt(dot(judged.up, judged.up).get_d()));
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
    if (abs(all - judged.area) > judged.area * Number(1e-9) * static_cast<int>(got.size()))
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
    const std::size_t way = less_than(6);
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
    const std::size_t of = 2 + less_than(11);
    if (less_than(3) == 0)
        request.amounts = plparcel::equal_parts(2 + less_than(4));
    else
        request.amounts = {
            plparcel::share(static_cast<double>(1 + less_than(of - 1)), static_cast<double>(of))};
    return request;
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
    return made;
}

std::string shown(const Parcel& parcel, const Request& request)
{
    char text[300];
    std::snprintf(text, sizeof text,
                  "cut %d ring %zu index %zu bearing %.17g measured %d amounts %zu of %g/%g\n",
                  static_cast<int>(request.line.cut), request.line.ring, request.line.index,
                  request.line.bearing, static_cast<int>(request.measured), request.amounts.size(),
                  request.amounts[0].first, request.amounts[0].second);
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

TEST(WholeLinesExact, NoWrongDivisionAndNoRefusal)
{
    const char* chosen = std::getenv("PLCALC_DIVISIONS");
    const int count = chosen != nullptr ? std::max(1, std::atoi(chosen)) : 3000;
    std::map<std::string, int> tally;
    std::size_t pieces = 0;
    std::size_t with_hole = 0;
    for (int i = 0; i < count;) {
        const Parcel parcel = any_parcel();
        const plparcel::RingReport report = check_parcel(parcel);
        if (report.status != plparcel::BoundaryStatus::usable || report.repeated > 0 || report.closed)
            continue;
        ++i;
        const Request request = any_request(parcel);
        const Division division = divide(parcel, request);
        const Judged exactly = judged(parcel, request);
        const bool coarse = is_too_coarse(exactly);
        ++tally[std::string(describe(division)) + (coarse ? ", doubles far apart" : "")];
        with_hole += parcel.holes.empty() ? 0 : 1;
        pieces += division.pieces.size();
        const std::string fault =
            division.status == Status::divided ? objection(exactly, division) : "refused";
        const bool is_due = coarse && division.status == Status::not_reached;
        EXPECT_TRUE(fault.empty() || is_due)
            << fault << ", " << describe(division) << ": " << shown(parcel, request);
    }
    for (const auto& [what, times] : tally)
        std::printf("  %7d %s\n", times, what.c_str());
    std::printf("  %zu pieces, %zu parcels with holes\n", pieces, with_hole);
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
    wrong.pieces.pop_back();
    EXPECT_NE(objection(exactly, wrong), "") << "a piece left out";
    wrong = right;
    wrong.pieces.push_back(wrong.pieces.back());
    EXPECT_NE(objection(exactly, wrong), "") << "a piece twice";
}

}  // namespace
