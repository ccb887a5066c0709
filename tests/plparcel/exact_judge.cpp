#include "exact_judge.h"

#include <gmpxx.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace plparcel_test {
namespace {

using plparcel::Cut;
using plparcel::Division;
using plparcel::Measured;
using plparcel::Request;
using plparcel::Ring;
using plparcel::Status;
using Number = mpq_class;

struct Point {
    Number x;
    Number y;
};

using Polygon = std::vector<Point>;

Point operator-(const Point& a, const Point& b)
{
    return {a.x - b.x, a.y - b.y};
}

Point operator+(const Point& a, const Point& b)
{
    return {a.x + b.x, a.y + b.y};
}

Point at_part(const Point& a, const Point& b, const Number& part)
{
    return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
}

Number cross(const Point& a, const Point& b)
{
    return a.x * b.y - a.y * b.x;
}

Number dot(const Point& a, const Point& b)
{
    return a.x * b.x + a.y * b.y;
}

Point exact(const PL_PNT2D_record& p)
{
    return {Number(p.x), Number(p.y)};
}

Polygon exact(const Ring& ring)
{
    Polygon polygon;
    for (const PL_PNT2D_record& p : ring)
        polygon.push_back(exact(p));
    return polygon;
}

const Point& vertex(const Polygon& polygon, std::size_t i)
{
    return polygon[i % polygon.size()];
}

// Twice the area, above zero anticlockwise.
Number twice_area(const Polygon& polygon)
{
    Number twice = 0;
    for (std::size_t i = 1; i + 1 < polygon.size(); ++i)
        twice += cross(polygon[i] - polygon[0], polygon[i + 1] - polygon[0]);
    return twice;
}

bool segments_meet(const Point& a, const Point& b, const Point& c, const Point& d)
{
    const auto on = [](const Point& p, const Point& q, const Point& r) {
        return sgn(cross(q - p, r - p)) == 0 && sgn(dot(p - r, q - r)) <= 0;
    };
    const int ab = sgn(cross(b - a, c - a)) * sgn(cross(b - a, d - a));
    const int cd = sgn(cross(d - c, a - c)) * sgn(cross(d - c, b - c));
    return (ab < 0 && cd < 0) || on(a, b, c) || on(a, b, d) || on(c, d, a) || on(c, d, b);
}

bool is_simple(const Polygon& polygon)
{
    const std::size_t n = polygon.size();
    if (n < 3)
        return false;
    for (std::size_t i = 0; i < n; ++i) {
        const Point& a = vertex(polygon, i);
        const Point& b = vertex(polygon, i + 1);
        const Point& c = vertex(polygon, i + 2);
        if (sgn(cross(b - a, c - b)) == 0 && sgn(dot(b - a, c - b)) <= 0)
            return false;
        for (std::size_t k = i + 2; k < n; ++k) {
            const bool neighbours = i == 0 && k + 1 == n;
            if (!neighbours && segments_meet(a, b, vertex(polygon, k), vertex(polygon, k + 1)))
                return false;
        }
    }
    return true;
}

// A line that holds the amount, or comes within the tolerance of it.
struct Line {
    Point from;
    Point to;
    std::size_t from_side = 0;
    std::size_t to_side = 0;
};

// What the request is about, exactly.
struct Case {
    Polygon ring;
    Request request;
    Number parcel;
    Number asked;
    Number spacing;
    bool anticlockwise = true;

    Number rest() const { return parcel - asked; }

    // How far rounding takes an end from where it was found.
    Number rounding = 0;

    // Of one piece, as it is returned.
    Number granted(const Number& amount) const
    {
        const Number of_parcel =
            parcel * Number(request.rounding.decimals ? request.rounding.tolerance : 1e-9);
        const Number of_piece = amount * Number(0.01);
        return std::min(of_parcel, of_piece);
    }

    // Of one piece, as it is found.
    Number tolerance(const Number& amount) const
    {
        const Number of_parcel = parcel * Number(1e-9);
        const Number of_piece = amount * Number(0.01);
        return std::min(of_parcel, of_piece);
    }

    Number tolerance() const
    {
        const Number of_asked = tolerance(asked);
        const Number of_rest = tolerance(rest());
        return std::min(of_asked, of_rest);
    }
};

Case case_of(const Ring& ring, const Request& request)
{
    Case c;
    c.ring = exact(ring);
    c.request = request;
    const Number twice = twice_area(c.ring);
    c.anticlockwise = sgn(twice) > 0;
    c.parcel = abs(twice) / 2;
    const plparcel::Amount& amount = request.amounts[0];
    c.asked = Number(amount.first);
    if (amount.given == plparcel::Given::as_share)
        c.asked = c.parcel * Number(amount.first) / Number(amount.second);
    double largest = 0.0;
    for (const PL_PNT2D_record& p : ring)
        largest = std::max({largest, std::fabs(p.x), std::fabs(p.y)});
    c.spacing = Number(std::ldexp(largest, -52));
    return c;
}

// The piece from the line's `from` along the ring to its `to`.
Polygon piece_after(const Case& c, const Line& line)
{
    Polygon piece = {line.from};
    for (std::size_t side = line.from_side; side != line.to_side;) {
        side = (side + 1) % c.ring.size();
        piece.push_back(c.ring[side]);
    }
    piece.push_back(line.to);
    return piece;
}

Number area_after(const Case& c, const Line& line)
{
    return twice_area(piece_after(c, line)) / (c.anticlockwise ? 2 : -2);
}

bool is_between_sides(const Case& c, std::size_t side, const Line& line)
{
    for (std::size_t at = line.from_side; at != line.to_side;) {
        at = (at + 1) % c.ring.size();
        if (at == side)
            return at != line.to_side;
    }
    return false;
}

// Part of the way from one border of a family of lines to the other at which the area is met, for an area that is
// a polynomial of the second degree of that part: its values at 0, 1/2 and 1.
Number part_that_holds(const std::array<Number, 3>& area, const Number& wanted)
{
    const Number second = 2 * (area[0] - 2 * area[1] + area[2]);
    const Number first = area[2] - area[0] - second;
    const bool grows = area[2] > area[0];
    Number low = 0;
    Number high = 1;
    for (int bit = 0; bit < 120; ++bit) {
        const Number middle = (low + high) / 2;
        const Number value = area[0] + middle * (first + middle * second);
        ((value < wanted) == grows ? low : high) = middle;
    }
    return low;
}

// The lines of one family between two sides: those that hold the wanted area, or at a border come close enough.
template <class Family>
void collect(const Case& c, const Number& wanted, const Family& line_at, bool& holds_exactly,
             std::vector<Line>& lines)
{
    const Number parts[] = {0, Number(1) / 2, 1};
    std::array<Number, 3> area;
    for (std::size_t i = 0; i < 3; ++i)
        area[i] = area_after(c, line_at(parts[i]));
    if (area[0] == area[2])
        return;
    const Number low = std::min(area[0], area[2]);
    const Number high = std::max(area[0], area[2]);
    if (low < wanted && wanted < high) {
        holds_exactly = true;
        lines.push_back(line_at(part_that_holds(area, wanted)));
    }
    for (const std::size_t border : {std::size_t{0}, std::size_t{2}})
        if (abs(area[border] - wanted) <= c.tolerance())
            lines.push_back(line_at(parts[border]));
}

bool is_free(Cut cut)
{
    return cut == Cut::at_bearing || cut == Cut::along_segment;
}

// The direction that the request names: of a side, a segment, or a bearing. That of a bearing is good to the 64 bits of
// the machine's own sine and cosine, a thousandth of a spacing.
Point run_of(const Case& c)
{
    const plparcel::Line& line = c.request.line;
    if (line.cut == Cut::along_segment)
        return exact(line.b) - exact(line.a);
    if (line.cut == Cut::at_bearing) {
        const long double turn = std::fmod(static_cast<long double>(line.bearing), 400.0L);
        const long double bearing_rad = turn * (std::acos(-1.0L) / 200.0L);
        const auto number = [](long double v) -> Number {
            const double high = static_cast<double>(v);
            return Number(high) + Number(static_cast<double>(v - high));
        };
        return {number(std::sin(bearing_rad)), number(std::cos(bearing_rad))};
    }
    return vertex(c.ring, line.index + 1) - vertex(c.ring, line.index);
}

// Where levels begin.
const Point& level_zero(const Case& c)
{
    return vertex(c.ring, is_free(c.request.line.cut) ? 0 : c.request.line.index);
}

Point on_level(const Case& c, std::size_t side, const std::vector<Number>& levels, const Number& level)
{
    const std::size_t next = (side + 1) % c.ring.size();
    return at_part(c.ring[side], c.ring[next], (level - levels[side]) / (levels[next] - levels[side]));
}

// Parallels and perpendiculars.
void collect_levels(const Case& c, bool& holds_exactly, std::vector<Line>& lines)
{
    const std::size_t n = c.ring.size();
    const Point& a = level_zero(c);
    const Point run = run_of(c);
    const bool parallel = c.request.line.cut == Cut::parallel;
    // Across the lines: to the left of a parallel, ahead of a perpendicular, to the right of the others.
    const Point side = {-run.y, run.x};
    const Point up = parallel ? side : (is_free(c.request.line.cut) ? Point{run.y, -run.x} : run);
    std::vector<Number> levels;
    std::vector<Number> along;
    for (const Point& p : c.ring) {
        levels.push_back(dot(up, p - a));
        along.push_back(-cross(up, p - a));
    }
    std::vector<Number> sorted = levels;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    for (std::size_t k = 0; k + 1 < sorted.size(); ++k) {
        const Number low = sorted[k];
        const Number high = sorted[k + 1];
        const Number middle = (low + high) / 2;
        std::vector<std::pair<Number, std::size_t>> met;
        for (std::size_t i = 0; i < n; ++i) {
            const std::size_t j = (i + 1) % n;
            if ((levels[i] < middle) != (levels[j] < middle))
                met.emplace_back(
                    along[i] + (along[j] - along[i]) * (middle - levels[i]) / (levels[j] - levels[i]), i);
        }
        std::sort(met.begin(), met.end());
        for (std::size_t m = 0; m + 1 < met.size(); m += 2) {
            // Levels grow to the left of `along`; an anticlockwise boundary runs upwards on the inside's right.
            Line line;
            line.from_side = c.anticlockwise ? met[m + 1].second : met[m].second;
            line.to_side = c.anticlockwise ? met[m].second : met[m + 1].second;
            const bool of_after = (parallel ? is_between_sides(c, c.request.line.index, line) : true) !=
                                  (c.request.measured == Measured::opposite);
            const auto line_at = [&](const Number& part) {
                const Number level = low + (high - low) * part;
                Line made = line;
                made.from = on_level(c, line.from_side, levels, level);
                made.to = on_level(c, line.to_side, levels, level);
                return made;
            };
            collect(c, of_after ? c.asked : c.rest(), line_at, holds_exactly, lines);
        }
    }
}

// Around a vertex, from the direction of the side after it on.
struct Around {
    Point first;
    int turn;

    // 0 in the half turn that begins with `first`, 1 in the other.
    int half(const Point& d) const
    {
        const int side = turn * sgn(cross(first, d));
        return side > 0 || (side == 0 && sgn(dot(first, d)) > 0) ? 0 : 1;
    }

    bool operator()(const Point& a, const Point& b) const
    {
        return half(a) != half(b) ? half(a) < half(b) : turn * sgn(cross(a, b)) > 0;
    }
};

void collect_rays(const Case& c, bool& holds_exactly, std::vector<Line>& lines)
{
    const std::size_t n = c.ring.size();
    const std::size_t v = c.request.line.index;
    const Point& start = c.ring[v];
    const Around before = {vertex(c.ring, v + 1) - start, c.anticlockwise ? 1 : -1};
    const Point last = vertex(c.ring, v + n - 1) - start;
    std::vector<Point> directions;
    for (std::size_t k = 1; k < n; ++k) {
        const Point d = vertex(c.ring, v + k) - start;
        if (!before(last, d))
            directions.push_back(d);
    }
    std::sort(directions.begin(), directions.end(), before);
    for (std::size_t k = 0; k + 1 < directions.size(); ++k) {
        const Point& right = directions[k];
        const Point& left = directions[k + 1];
        if (!before(right, left))
            continue;
        const Point between = {right.x + left.x, right.y + left.y};
        Number nearest;
        std::size_t met = n;
        for (std::size_t i = 1; i + 1 < n; ++i) {
            const std::size_t side = (v + i) % n;
            const Point p = c.ring[side] - start;
            const Point q = vertex(c.ring, side + 1) - start;
            const Number off_p = cross(between, p);
            const Number off_q = cross(between, q);
            if (sgn(off_p) * sgn(off_q) >= 0)
                continue;
            const Number way = dot(at_part(p, q, off_p / (off_p - off_q)), between);
            if (sgn(way) > 0 && (met == n || way < nearest)) {
                nearest = way;
                met = side;
            }
        }
        if (met == n)
            continue;
        const auto hit = [&](const Point& d) -> Number {
            const Point p = c.ring[met] - start;
            const Point q = vertex(c.ring, met + 1) - start;
            const Number off_p = cross(d, p);
            return off_p / (off_p - cross(d, q));
        };
        const Number from_part = hit(right);
        const Number to_part = hit(left);
        const auto line_at = [&](const Number& part) {
            Line made;
            made.from = start;
            made.from_side = v;
            made.to_side = met;
            made.to = at_part(c.ring[met], vertex(c.ring, met + 1), from_part + (to_part - from_part) * part);
            return made;
        };
        const bool of_after = c.request.measured == Measured::from_reference;
        collect(c, of_after ? c.asked : c.rest(), line_at, holds_exactly, lines);
    }
}

// Lines through a point inside, in all directions. Between two that meet vertices the line ends on the same two sides,
// and the area turns back at most once, where both halves are of the same length.
class ChordsThrough {
public:
    ChordsThrough(const Case& c, const Point& p) : c_(c), p_(p) {}

    void collect(const Number& wanted_after, bool& holds_exactly, std::vector<Line>& lines)
    {
        wanted_ = wanted_after;
        holds_exactly_ = &holds_exactly;
        lines_ = &lines;
        const std::vector<Point> directions = all_directions();
        const std::size_t n = directions.size();
        std::vector<Line> between;
        for (std::size_t k = 0; k < n; ++k)
            between.push_back(sides_between(directions[k], directions[(k + 1) % n]));
        for (std::size_t k = 0; k < n; ++k) {
            const Line& before = between[(k + n - 1) % n];
            for (const std::size_t behind : {before.from_side, between[k].from_side})
                for (const std::size_t ahead : {before.to_side, between[k].to_side})
                    border(line_in(directions[k], behind, ahead));
            inside(between[k], directions[k], directions[(k + 1) % n]);
        }
    }

private:
    std::vector<Point> all_directions() const
    {
        std::vector<Point> directions;
        for (const Point& v : c_.ring) {
            directions.push_back(v - p_);
            directions.push_back(p_ - v);
        }
        const Around before = {{1, 0}, 1};
        std::sort(directions.begin(), directions.end(), before);
        const auto same_direction = [&before](const Point& a, const Point& b) { return !before(a, b); };
        directions.erase(std::unique(directions.begin(), directions.end(), same_direction), directions.end());
        return directions;
    }

    Line sides_between(const Point& right, const Point& left) const
    {
        const Point d = {right.x + left.x, right.y + left.y};
        Line line;
        Number ahead = 0;
        Number behind = 0;
        for (std::size_t side = 0; side < c_.ring.size(); ++side) {
            const Point a = c_.ring[side] - p_;
            const Point b = vertex(c_.ring, side + 1) - p_;
            const Number off_a = cross(d, a);
            const Number off_b = cross(d, b);
            if (sgn(off_a) * sgn(off_b) >= 0)
                continue;
            const Number way = dot(at_part(a, b, off_a / (off_a - off_b)), d);
            if (sgn(way) > 0 && (sgn(ahead) == 0 || way < ahead)) {
                ahead = way;
                line.to_side = side;
            }
            if (sgn(way) < 0 && (sgn(behind) == 0 || way > behind)) {
                behind = way;
                line.from_side = side;
            }
        }
        return line;
    }

    Point hit(const Point& d, std::size_t side) const
    {
        const Point& a = c_.ring[side];
        const Point& b = vertex(c_.ring, side + 1);
        const Number off_a = cross(d, a - p_);
        return at_part(a, b, off_a / (off_a - cross(d, b - p_)));
    }

    Line line_in(const Point& d, std::size_t behind, std::size_t ahead) const
    {
        return {hit(d, behind), hit(d, ahead), behind, ahead};
    }

    void border(const Line& line)
    {
        if (abs(area_after(c_, line) - wanted_) <= c_.tolerance())
            lines_->push_back(line);
    }

    void inside(const Line& sides, const Point& right, const Point& left)
    {
        const auto line_at = [&](const Number& t) {
            return line_in(at_part(right, left, t), sides.from_side, sides.to_side);
        };
        // Lengths in those of the direction: quotients of which only the denominators depend on t.
        const auto denominator = [&](const Number& t, std::size_t side) {
            const Point along = vertex(c_.ring, side + 1) - c_.ring[side];
            return Number(cross(at_part(right, left, t), along) / cross(c_.ring[side] - p_, along));
        };
        const Number at_right = denominator(0, sides.to_side) + denominator(0, sides.from_side);
        const Number at_left = denominator(1, sides.to_side) + denominator(1, sides.from_side);
        std::vector<Number> parts = {0};
        if (sgn(at_right) * sgn(at_left) < 0) {
            parts.push_back(at_right / (at_right - at_left));
            border(line_at(parts.back()));
        }
        parts.push_back(1);
        for (std::size_t k = 0; k + 1 < parts.size(); ++k) {
            Number low = parts[k];
            Number high = parts[k + 1];
            const bool below_first = area_after(c_, line_at(low)) < wanted_;
            if (below_first == (area_after(c_, line_at(high)) < wanted_))
                continue;
            for (int bit = 0; bit < 110; ++bit) {
                const Number middle = (low + high) / 2;
                ((area_after(c_, line_at(middle)) < wanted_) == below_first ? low : high) = middle;
            }
            *holds_exactly_ = true;
            lines_->push_back(line_at(low));
        }
    }

    const Case& c_;
    Point p_;
    Number wanted_;
    bool* holds_exactly_ = nullptr;
    std::vector<Line>* lines_ = nullptr;
};

Number largest_of(const Point& d)
{
    const Number x = abs(d.x);
    const Number y = abs(d.y);
    return std::max(x, y);
}

// Clear of every vertex between its ends by so much more than what counts as touching that no rounding matters, its
// ends on vertices or clear of them.
bool lies_clear(const Case& c, const Line& line)
{
    const Number reach = 8 * c.spacing;
    const Point run = line.to - line.from;
    const Number length2 = dot(run, run);
    if (largest_of(run) <= 4 * reach)
        return false;
    for (const Point& v : c.ring) {
        const Point w = v - line.from;
        const Number from_end = largest_of(w);
        const Number to_end = largest_of(v - line.to);
        const Number near = std::min(from_end, to_end);
        if (sgn(near) == 0)
            continue;
        if (near <= reach)
            return false;
        const Number off = cross(run, w);
        const Number along = dot(run, w);
        const bool beside = sgn(along) > 0 && along < length2;
        if (beside && off * off <= reach * reach * length2)
            return false;
    }
    return true;
}

// The doubles within one and a half spacings of a number; where they lie densely, two hundred of them.
std::vector<double> doubles_near(const Number& v, const Number& spacing)
{
    const double near = v.get_d();
    const double next = std::nextafter(std::fabs(near), std::numeric_limits<double>::infinity());
    const double step = std::max(next - std::fabs(near), spacing.get_d() / 64);
    std::vector<double> found;
    for (int i = -100; i <= 100; ++i) {
        const double d = near + i * step;
        if (abs(Number(d) - v) <= spacing * Number(1.5))
            found.push_back(d);
    }
    return found;
}

std::vector<PL_PNT2D_record> points_near(const Point& p, const Number& spacing)
{
    std::vector<PL_PNT2D_record> found;
    for (const double x : doubles_near(p.x, spacing))
        for (const double y : doubles_near(p.y, spacing))
            found.push_back({x, y});
    return found;
}

using Real = long double;

// Area of a piece by its two ends on the line, to the precision of long double on differences from one end.
class AreaOfEnds {
public:
    AreaOfEnds(const Case& c, const Line& line)
    {
        const Polygon piece = piece_after(c, line);
        const Point& first = piece[1];
        const Point& last = piece[piece.size() - 2];
        origin_ = {first.x.get_d(), first.y.get_d()};
        Polygon between(piece.begin() + 1, piece.end() - 1);
        const int sign = c.anticlockwise ? 1 : -1;
        between_ = real(twice_area(between) * sign / 2);
        last_x_ = real(last.x - first.x);
        last_y_ = real(last.y - first.y);
        sign_ = static_cast<Real>(sign) / 2;
    }

    Real operator()(const PL_PNT2D_record& from, const PL_PNT2D_record& to) const
    {
        const Real fx = static_cast<Real>(from.x) - origin_.x;
        const Real fy = static_cast<Real>(from.y) - origin_.y;
        const Real tx = static_cast<Real>(to.x) - origin_.x;
        const Real ty = static_cast<Real>(to.y) - origin_.y;
        return between_ + sign_ * (last_x_ * ty - last_y_ * tx + tx * fy - ty * fx);
    }

    static Real real(const Number& v)
    {
        const double high = v.get_d();
        const Number rest = v - Number(high);
        return static_cast<Real>(high) + rest.get_d();
    }

private:
    PL_PNT2D_record origin_ = {};
    Real between_ = 0;
    Real last_x_ = 0;
    Real last_y_ = 0;
    Real sign_ = 0;
};

Line reversed(const Line& line)
{
    return {line.to, line.from, line.to_side, line.from_side};
}

bool request_is_after(const Case& c, const Line& line)
{
    const Number after = area_after(c, line);
    const Number miss = abs(after - c.asked);
    const Number other_miss = abs(c.parcel - after - c.asked);
    return miss <= other_miss;
}

// Whether doubles next to a line's ends hold the amount.
bool doubles_hold(const Case& c, const Line& line)
{
    const AreaOfEnds after(c, line);
    const AreaOfEnds before(c, reversed(line));
    const bool request_after = request_is_after(c, line);
    const Number rest = c.rest();
    const Number& of_after = request_after ? c.asked : rest;
    const Number& of_before = request_after ? rest : c.asked;
    // A hair inside, so that what is judged at the limit in one sum and in another does not differ.
    const Real inside = 0.999L;
    const Real wanted_after = AreaOfEnds::real(of_after);
    const Real wanted_before = AreaOfEnds::real(of_before);
    const Real reach_after = inside * AreaOfEnds::real(c.tolerance(of_after));
    const Real reach_before = inside * AreaOfEnds::real(c.tolerance(of_before));
    const bool from_vertex = c.request.line.cut == Cut::through_vertex;
    const std::vector<PL_PNT2D_record> froms =
        from_vertex ? std::vector<PL_PNT2D_record>{{line.from.x.get_d(), line.from.y.get_d()}}
                    : points_near(line.from, c.spacing);
    const std::vector<PL_PNT2D_record> tos = points_near(line.to, c.spacing);
    for (const PL_PNT2D_record& from : froms)
        for (const PL_PNT2D_record& to : tos)
            if (std::fabs(after(from, to) - wanted_after) <= reach_after &&
                std::fabs(before(to, from) - wanted_before) <= reach_before)
                return true;
    return false;
}

// Where the line of a request starts, or what it goes through.
struct Start {
    enum class Where { vertex, side, inside, outside };

    Where where = Where::outside;
    std::size_t index = 0;  // the vertex or the side
    Point p;
};

bool is_inside(const Case& c, const Point& p)
{
    bool inside = false;
    for (std::size_t i = 0; i < c.ring.size(); ++i) {
        const Point& a = c.ring[i];
        const Point& b = vertex(c.ring, i + 1);
        if ((a.y > p.y) != (b.y > p.y) && (sgn(cross(b - a, p - a)) > 0) == (b.y > a.y))
            inside = !inside;
    }
    return inside;
}

Number distance2(const Point& a, const Point& b, const Point& p)
{
    const Point d = b - a;
    const Number along = dot(d, p - a);
    const Number length2 = dot(d, d);
    if (sgn(along) < 0)
        return dot(p - a, p - a);
    if (along > length2)
        return dot(p - b, p - b);
    return cross(d, p - a) * cross(d, p - a) / length2;
}

// The place on a side, rounded to doubles.
Point place_of(const Case& c)
{
    const Point& a = vertex(c.ring, c.request.line.index);
    const Point d = vertex(c.ring, c.request.line.index + 1) - a;
    constexpr int kBits = 256;
    const mpf_class length = sqrt(mpf_class(dot(d, d), kBits));
    const Point p = at_part(a, a + d, Number(c.request.line.along) / Number(length));
    const auto nearest = [](const Number& v) {
        double best = v.get_d();  // towards zero
        for (const double other : {std::nextafter(best, HUGE_VAL), std::nextafter(best, -HUGE_VAL)})
            if (abs(Number(other) - v) < abs(Number(best) - v))
                best = other;
        return Number(best);
    };
    return {nearest(p.x), nearest(p.y)};
}

// Within four spacings of a vertex on each axis; on a side, within two and a half of it.
Start start_of(const Case& c)
{
    const bool by_side = c.request.line.cut == Cut::through_place;
    Start start;
    start.p = by_side ? place_of(c) : exact(c.request.line.a);
    Number least = -1;
    for (std::size_t i = 0; i < c.ring.size(); ++i) {
        const Point w = start.p - c.ring[i];
        if (largest_of(w) <= 4 * c.spacing && (sgn(least) < 0 || dot(w, w) < least)) {
            least = dot(w, w);
            start.where = Start::Where::vertex;
            start.index = i;
        }
    }
    if (start.where == Start::Where::vertex)
        return start;
    if (by_side) {
        start.where = Start::Where::side;
        start.index = c.request.line.index;
        return start;
    }
    for (std::size_t i = 0; i < c.ring.size(); ++i) {
        const Number off2 = distance2(c.ring[i], vertex(c.ring, i + 1), start.p);
        if (off2 <= c.spacing * c.spacing * Number(6.25) && (sgn(least) < 0 || off2 < least)) {
            least = off2;
            start.where = Start::Where::side;
            start.index = i;
        }
    }
    if (start.where != Start::Where::side && is_inside(c, start.p))
        start.where = Start::Where::inside;
    return start;
}

bool starts_at_a_point(const Case& c)
{
    return c.request.line.cut == Cut::through_place || c.request.line.cut == Cut::through_point;
}

// The same request from a vertex: of the ring, or put in where the line starts.
Case from_vertex(const Case& c, const Start& start)
{
    Case same = c;
    same.request.line.cut = Cut::through_vertex;
    same.request.line.index = start.index;
    if (start.where == Start::Where::side) {
        same.request.line.index = start.index + 1;
        same.ring.insert(same.ring.begin() + static_cast<std::ptrdiff_t>(start.index) + 1, start.p);
    }
    // On the right of a line into the parcel lies what comes next in an anticlockwise ring.
    if (c.request.line.cut == Cut::through_point && !c.anticlockwise)
        same.request.measured =
            c.request.measured == Measured::opposite ? Measured::from_reference : Measured::opposite;
    return same;
}

std::string objection_to_refusal(const Case& c, Status status);

std::string objection_to_refused_point(const Case& c, Status status)
{
    if (status == Status::no_such_place)
        return "the place is on the side";
    const Start start = start_of(c);
    if (status == Status::point_outside)
        return start.where == Start::Where::outside ? "" : "the point is not outside";
    if (start.where == Start::Where::outside)
        return "the point is outside";
    return start.where == Start::Where::inside ? "inside"
                                               : objection_to_refusal(from_vertex(c, start), status);
}

std::string objection_to_refusal(const Case& c, Status status)
{
    if (status == Status::point_outside || status == Status::no_such_place)
        return objection_to_refused_point(c, status);
    if (status == Status::amount_too_large)
        return c.asked * (1 + Number(0x1p-52)) >= c.parcel ? "" : "there is more than that to cut";
    if (status == Status::amount_too_small)
        return sgn(c.asked) <= 0 ? "" : "the amount is above zero";
    if (c.asked >= c.parcel)
        return "the amount is no less than the parcel";
    if (starts_at_a_point(c)) {
        const std::string objection = objection_to_refused_point(c, status);
        if (objection != "inside")
            return objection;
    }
    bool holds_exactly = false;
    std::vector<Line> lines;
    if (c.request.line.cut == Cut::through_vertex)
        collect_rays(c, holds_exactly, lines);
    else if (c.request.line.cut == Cut::through_point)
        ChordsThrough(c, exact(c.request.line.a))
            .collect(c.anticlockwise == (c.request.measured == Measured::from_reference) ? c.asked : c.rest(),
                     holds_exactly, lines);
    else
        collect_levels(c, holds_exactly, lines);
    if (status == Status::no_line_through_point && holds_exactly)
        return "a line through the point holds it";
    const bool too_coarse = status == Status::not_reached;
    for (const Line& line : lines) {
        if (!lies_clear(c, line) || (too_coarse && !doubles_hold(c, line)))
            continue;
        return "a line holds it, from " + std::to_string(line.from.x.get_d()) + " " +
               std::to_string(line.from.y.get_d()) + " to " + std::to_string(line.to.x.get_d()) + " " +
               std::to_string(line.to.y.get_d());
    }
    return "";
}

bool is_on_boundary(const Case& c, const Point& p)
{
    const Number reach = c.spacing * Number(2.5) + c.rounding;
    const Number reach2 = reach * reach;
    for (std::size_t i = 0; i < c.ring.size(); ++i) {
        const Point d = vertex(c.ring, i + 1) - c.ring[i];
        const Point w = p - c.ring[i];
        const Number along = dot(d, w);
        const Number length2 = dot(d, d);
        const Point past = p - vertex(c.ring, i + 1);
        const Number off2 = sgn(along) < 0    ? dot(w, w)
                            : along > length2 ? dot(past, past)
                                              : Number(cross(d, w) * cross(d, w) / length2);
        if (off2 <= reach2)
            return true;
    }
    return false;
}

bool same(const Point& a, const Point& b)
{
    return a.x == b.x && a.y == b.y;
}

// Whether a piece is one end, vertices of the ring one after another, and the other end; and which vertices.
bool is_walk(const Case& c, const Polygon& piece, const Point& from, const Point& to, std::vector<bool>& seen)
{
    const std::size_t n = piece.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Point& first = piece[i];
        const Point& last = vertex(piece, i + n - 1);
        if (!((same(first, from) && same(last, to)) || (same(first, to) && same(last, from))))
            continue;
        std::size_t at = c.ring.size();
        for (std::size_t k = 1; k + 1 < n; ++k) {
            const Point& p = vertex(piece, i + k);
            if (at == c.ring.size()) {
                at = 0;
                while (at < c.ring.size() && !same(c.ring[at], p))
                    ++at;
            } else {
                at = (at + 1) % c.ring.size();
            }
            if (at == c.ring.size() || !same(c.ring[at], p))
                return false;
            seen[at] = true;
        }
        return true;
    }
    return false;
}

bool has_side(const Polygon& piece, const Point& a, const Point& b)
{
    for (std::size_t i = 0; i < piece.size(); ++i)
        if (same(piece[i], a) && same(vertex(piece, i + 1), b))
            return true;
    return false;
}

// The same for a line through a point or from a place.
bool lies_on_the_right(const Case& c, const Polygon& piece, const Point& from, const Point& to)
{
    const bool right = c.anticlockwise ? has_side(piece, to, from) : has_side(piece, from, to);
    return right == (c.request.measured == Measured::from_reference);
}

// Whether an end is a point, as far as rounding goes.
bool is_at(const Case& c, const Point& end, const Point& p)
{
    return c.request.rounding.decimals ? largest_of(end - p) <= c.rounding + c.spacing : same(end, p);
}

bool passes_the_start(const Case& c, const Point& from, const Point& to)
{
    const Start start = start_of(c);
    if (start.where == Start::Where::vertex)
        return is_at(c, from, c.ring[start.index]);
    if (start.where == Start::Where::side && c.request.line.cut == Cut::through_point)
        return is_at(c, from, start.p);
    const Point w = start.p - from;
    if (start.where == Start::Where::side)
        return largest_of(w) <= 3 * c.spacing + c.rounding;
    const Number reach = 6 * c.spacing + c.rounding;
    const Point run = to - from;
    const Number off = cross(run, w);
    // The point may lie so near to the boundary that the end is rounded past it.
    const Number past = c.rounding * Number(std::sqrt(dot(run, run).get_d()));
    return start.where == Start::Where::inside && dot(run, w) > -past && dot(run, w) < dot(run, run) + past &&
           off * off <= reach * reach * dot(run, run);
}

// Whether the piece that should hold the request lies where it was asked to.
bool lies_where_asked(const Case& c, const Polygon& piece, const Point& from, const Point& to)
{
    if (c.request.line.cut == Cut::through_point)
        return lies_on_the_right(c, piece, from, to);
    if (c.request.line.cut == Cut::through_place) {
        // What is next to the rest of the side follows its end.
        Case directed = c;
        if (!c.anticlockwise)
            directed.request.measured =
                c.request.measured == Measured::opposite ? Measured::from_reference : Measured::opposite;
        return lies_on_the_right(directed, piece, from, to);
    }
    const Point& a = vertex(c.ring, c.request.line.index);
    const Point& b = vertex(c.ring, c.request.line.index + 1);
    const bool near = c.request.measured == Measured::from_reference;
    if (c.request.line.cut == Cut::through_vertex) {
        // Along the side after the vertex, or the one before; the line may end on that side.
        const Point& before = vertex(c.ring, c.request.line.index + c.ring.size() - 1);
        const Point& along = near ? b : before;
        const Number reach = 8 * c.spacing + 2 * c.rounding;
        const auto runs_along = [&](const Point& p) {
            return !same(p, from) && largest_of(p - a) > reach &&
                   cross(along - a, p - a) * cross(along - a, p - a) <=
                       reach * reach * dot(along - a, along - a) &&
                   sgn(dot(along - a, p - a)) > 0;
        };
        for (std::size_t i = 0; i < piece.size(); ++i)
            if (same(piece[i], from))
                return near ? runs_along(vertex(piece, i + 1))
                            : runs_along(vertex(piece, i + piece.size() - 1));
        return false;
    }
    if (c.request.line.cut == Cut::parallel)
        return has_side(piece, a, b) == near;
    const bool forward = has_side(piece, from, to);
    const Point run = forward ? to - from : from - to;
    const Point inward = c.anticlockwise ? Point{-run.y, run.x} : Point{run.y, -run.x};
    const Point asked = run_of(c);
    const Point towards = is_free(c.request.line.cut) ? Point{asked.y, -asked.x} : asked;
    return (sgn(dot(inward, towards)) > 0) == near;
}

bool runs_as_asked(const Case& c, const Point& from, const Point& to)
{
    if (starts_at_a_point(c))
        return passes_the_start(c, from, to);
    const Point& a = vertex(c.ring, c.request.line.index);
    if (c.request.line.cut == Cut::through_vertex)
        return is_at(c, from, a);
    const Point side = run_of(c);
    const Point run = to - from;
    if (c.request.line.cut != Cut::perpendicular && sgn(dot(side, run)) <= 0)
        return false;
    const Number aside = c.request.line.cut == Cut::perpendicular ? dot(side, run) : cross(side, run);
    const Number reach = 12 * c.spacing + 2 * c.rounding;
    return aside * aside <= reach * reach * dot(side, side);
}

// The line through two points, prolonged or shortened to the boundary, as a cut of the ring.
struct LineToTheBoundary {
    std::vector<Polygon> pieces;
    Number off2[2];       // from each end to where the line meets the boundary; squared
    std::size_t side[2];  // the sides that it meets there
};

LineToTheBoundary to_the_boundary(const Case& c, const Point& from, const Point& to)
{
    const Point run = to - from;
    const Number length2 = dot(run, run);
    Number first_along;
    Number last_along;
    Line line;
    bool has_first = false;
    bool has_last = false;
    for (std::size_t i = 0; i < c.ring.size(); ++i) {
        const Point& a = c.ring[i];
        const Point& b = vertex(c.ring, i + 1);
        const Number off_a = cross(run, a - from);
        const Number off_b = cross(run, b - from);
        if (sgn(off_a) * sgn(off_b) > 0 || off_a == off_b)
            continue;
        const Point at = at_part(a, b, off_a / (off_a - off_b));
        const Number along = dot(run, at - from) / length2;
        if (2 * along < 1 && (!has_first || along > first_along)) {
            has_first = true;
            first_along = along;
            line.from = at;
            line.from_side = i;
        }
        if (2 * along > 1 && (!has_last || along < last_along)) {
            has_last = true;
            last_along = along;
            line.to = at;
            line.to_side = i;
        }
    }
    if (!has_first || !has_last)
        return {};
    LineToTheBoundary found;
    found.pieces = {piece_after(c, line), piece_after(c, reversed(line))};
    found.side[0] = line.from_side;
    found.side[1] = line.to_side;
    found.off2[0] = first_along * first_along * length2;
    found.off2[1] = (last_along - 1) * (last_along - 1) * length2;
    return found;
}

// The rounded line as people will read it who stake it out up to the boundary.
std::string objection_to_rounding(const Case& c, const Division& division)
{
    if (division.decimals) {
        if (*division.decimals < *c.request.rounding.decimals)
            return "fewer decimals than were asked for";
        for (const PL_PNT2D_record& p : {division.lines[0].from, division.lines[0].to})
            if (!has_decimals(p.x, *division.decimals) || !has_decimals(p.y, *division.decimals))
                return "an end has more decimals than is said";
    }
    const LineToTheBoundary line =
        to_the_boundary(c, exact(division.lines[0].from), exact(division.lines[0].to));
    const std::vector<Polygon>& pieces = line.pieces;
    if (pieces.empty())
        return "the line does not part the parcel";
    const Number reach = 64 * (c.rounding + 4 * c.spacing);
    for (std::size_t i = 0; i < 2; ++i) {
        if (line.off2[i] <= reach * reach)
            continue;
        const Point end = exact(i == 0 ? division.lines[0].from : division.lines[0].to);
        // Along a side, a hair decides where the line meets it.
        const Number beside = c.rounding + 4 * c.spacing;
        if (distance2(c.ring[line.side[i]], vertex(c.ring, line.side[i] + 1), end) <= beside * beside)
            continue;
        // Rounded beside a corner that points into the parcel, the line ends where it is staked out.
        const bool at_a_vertex = std::any_of(c.ring.begin(), c.ring.end(), [&](const Point& v) {
            return largest_of(v - end) <= c.rounding + 4 * c.spacing;
        });
        return at_a_vertex ? "" : "the boundary is not where the line ends";
    }
    Number areas[2];
    for (std::size_t i = 0; i < 2; ++i)
        areas[i] = twice_area(pieces[i]) / (c.anticlockwise ? 2 : -2);
    const Number rest = c.rest();
    const auto fits = [&](const Number& first, const Number& second) {
        const Number miss = abs(first - c.asked);
        const Number other_miss = abs(second - rest);
        return miss <= c.granted(c.asked) && other_miss <= c.granted(rest);
    };
    if (!fits(areas[0], areas[1]) && !fits(areas[1], areas[0]))
        return "up to the boundary, a piece does not hold its amount";
    return "";
}

std::string objection_to_division(const Case& c, const Division& division)
{
    if (division.lines.size() != 1 || division.pieces.size() != 2)
        return "one line and two pieces were asked for";
    if (division.decimals && !c.request.rounding.decimals)
        return "no decimals were asked for";
    if (c.request.rounding.decimals) {
        const std::string objection = objection_to_rounding(c, division);
        if (!objection.empty())
            return objection;
    }
    const Point from = exact(division.lines[0].from);
    const Point to = exact(division.lines[0].to);
    if (!is_on_boundary(c, from) || !is_on_boundary(c, to))
        return "an end does not lie on the boundary";
    if (!runs_as_asked(c, from, to))
        return "the line does not run as asked";
    std::vector<bool> seen(c.ring.size());
    for (std::size_t i = 0; i < 2; ++i) {
        const Polygon piece = exact(division.pieces[i].ring);
        const Number wanted = i == 0 ? c.asked : c.rest();
        const Number area = twice_area(piece) / (c.anticlockwise ? 2 : -2);
        const Number miss = abs(area - wanted);
        if (!is_simple(piece))
            return "a piece meets itself";
        if (!is_walk(c, piece, from, to, seen))
            return "a piece is not the boundary from end to end";
        if (miss > c.granted(wanted) * Number(1.0 + 1e-12))
            return "a piece does not hold its amount";
        if (i == 0 && !lies_where_asked(c, piece, from, to))
            return "the amount lies on the wrong side";
    }
    const Number reach = 8 * c.spacing + c.rounding;
    for (std::size_t i = 0; i < seen.size(); ++i)
        if (!seen[i] && largest_of(c.ring[i] - from) > reach && largest_of(c.ring[i] - to) > reach)
            return "a vertex belongs to no piece";
    return "";
}

Number power_of_ten(int exponent)
{
    Number power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

}  // namespace

bool has_decimals(double value, int decimals)
{
    const Number power = power_of_ten(decimals);
    const Number half_up = Number(value) * power + Number(1) / 2;
    mpz_class whole;
    mpz_fdiv_q(whole.get_mpz_t(), half_up.get_num_mpz_t(), half_up.get_den_mpz_t());
    const Number decimal = Number(whole) / power;
    const double infinity = std::numeric_limits<double>::infinity();
    const Number off = abs(Number(value) - decimal);
    return off <= abs(Number(std::nextafter(value, -infinity)) - decimal) &&
           off <= abs(Number(std::nextafter(value, infinity)) - decimal);
}

Number most_rounding(int decimals)
{
    return Number(0.7072) / power_of_ten(decimals);
}

std::string exact_objection(const Ring& ring, const Request& request, const Division& division)
{
    Case c = case_of(ring, request);
    if (division.decimals)
        c.rounding = most_rounding(*division.decimals);
    return division.status == Status::divided ? objection_to_division(c, division)
                                              : objection_to_refusal(c, division.status);
}

}  // namespace plparcel_test
