#include "whole_lines/turning_profile.h"

#include <algorithm>
#include <numeric>

namespace plparcel {
namespace {

bool is_zero(const Wide& a)
{
    return !(a < 0.0) && !(a > 0.0);
}

}  // namespace

TurningProfile::TurningProfile(const JoinedRings& rings, const std::vector<WidePoint>& points, double turn,
                               const WidePoint& first)
    : first_(about_unit(first))
{
    put_in_order(points);
    for (std::size_t side = 0; side < points.size(); ++side)
        add_side(side, rings.next(side), points, turn);
    sum_whole_parts();
    build_tree();
}

// The directions of the vertices, those on the right of the first line turned half round.
void TurningProfile::put_in_order(const std::vector<WidePoint>& points)
{
    std::vector<WidePoint> seen(points.size());
    std::vector<std::size_t> order;
    for (std::size_t v = 0; v < points.size(); ++v) {
        off_.push_back(cross(first_, points[v]));
        seen[v] = off_[v] < 0.0 ? points[v] * -1.0 : points[v];
        if (!is_zero(off_[v]))
            order.push_back(v);
    }
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return cross(seen[a], seen[b]) > 0.0; });
    directions_ = {first_};
    direction_.resize(points.size());
    for (const std::size_t v : order) {
        if (directions_.size() == 1 || cross(directions_.back(), seen[v]) > 0.0)
            directions_.push_back(about_unit(seen[v]));
        direction_[v] = directions_.size() - 1;
    }
    directions_.push_back(first_ * -1.0);
}

// Of a place on the first line: the first direction, or the one against it.
std::size_t TurningProfile::rim_of(const WidePoint& seen) const
{
    return dot(first_, seen) > 0.0 ? 0 : directions_.size() - 1;
}

void TurningProfile::add_side(std::size_t a, std::size_t b, const std::vector<WidePoint>& points, double turn)
{
    const Wide& off_a = off_[a];
    const Wide& off_b = off_[b];
    const auto seen = [](const WidePoint& p, bool ahead) { return ahead ? p : p * -1.0; };
    const auto direction = [&](std::size_t v, bool ahead) {
        return is_zero(off_[v]) ? rim_of(seen(points[v], ahead)) : direction_[v];
    };
    // A product of the two might be too small for a number.
    const bool crosses = (off_a < 0.0 && off_b > 0.0) || (off_a > 0.0 && off_b < 0.0);
    if (!crosses) {
        const bool ahead = off_a > 0.0 || off_b > 0.0;
        add_part(a, seen(points[a], ahead), seen(points[b], ahead), direction(a, ahead), direction(b, ahead),
                 ahead, turn);
        return;
    }
    const WidePoint met = points[a] + (points[b] - points[a]) * (off_a / (off_a - off_b));
    for (const bool first_half : {true, false}) {
        const bool ahead = (first_half ? off_a : off_b) > 0.0;
        const WidePoint at_rim = seen(met, ahead);
        const std::size_t rim = rim_of(at_rim);
        if (first_half)
            add_part(a, seen(points[a], ahead), at_rim, direction_[a], rim, ahead, turn);
        else
            add_part(a, at_rim, seen(points[b], ahead), rim, direction_[b], ahead, turn);
    }
}

// One in line with the point is swept in no time.
void TurningProfile::add_part(std::size_t side, const WidePoint& a, const WidePoint& b, std::size_t from,
                              std::size_t to, bool ahead, double turn)
{
    if (is_zero(cross(a, b)) || from == to)
        return;
    if (from < to)
        parts_.push_back({side, a, b, from, to, ahead, turn > 0.0});
    else
        parts_.push_back({side, b, a, to, from, ahead, turn < 0.0});
}

void TurningProfile::sum_whole_parts()
{
    whole_.resize(directions_.size());
    for (const Part& part : parts_) {
        const Wide triangle = cross(part.begin, part.end) * 0.5;
        const Wide swept = part.leaves ? triangle : -triangle;
        scale_ = scale_ + abs(triangle);
        whole_[part.to].swept = whole_[part.to].swept + swept;
        whole_[part.to].left = part.ahead ? whole_[part.to].left - swept : whole_[part.to].left + swept;
        if (part.ahead)
            whole_[0].left = whole_[0].left + swept;
    }
    for (std::size_t i = 1; i < whole_.size(); ++i) {
        whole_[i].swept = whole_[i].swept + whole_[i - 1].swept;
        whole_[i].left = whole_[i].left + whole_[i - 1].left;
    }
}

void TurningProfile::build_tree()
{
    while (leaves_ + 1 < directions_.size())
        leaves_ *= 2;
    std::vector<Cover> covers;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        std::size_t begin = parts_[i].from + leaves_;
        std::size_t end = parts_[i].to + leaves_;
        for (; begin < end; begin /= 2, end /= 2) {
            if (begin % 2 == 1)
                covers.push_back({begin++, i});
            if (end % 2 == 1)
                covers.push_back({--end, i});
        }
    }
    node_first_.assign(2 * leaves_ + 1, 0);
    for (const Cover& c : covers)
        ++node_first_[c.node + 1];
    std::partial_sum(node_first_.begin(), node_first_.end(), node_first_.begin());
    std::vector<std::size_t> place(node_first_.begin(), node_first_.end() - 1);
    in_node_.resize(covers.size());
    for (const Cover& c : covers)
        in_node_[place[c.node]++] = c.part;
}

std::vector<std::size_t> TurningProfile::parts_in(std::size_t sector) const
{
    std::vector<std::size_t> found;
    for (std::size_t node = leaves_ + sector; node > 0; node /= 2)
        for (std::size_t i = node_first_[node]; i < node_first_[node + 1]; ++i)
            found.push_back(in_node_[i]);
    return found;
}

WidePoint TurningProfile::hit(const Part& part, std::size_t direction) const
{
    if (direction == part.from)
        return part.begin;
    if (direction == part.to)
        return part.end;
    const Wide off_begin = cross(directions_[direction], part.begin);
    const Wide off_end = cross(directions_[direction], part.end);
    return part.begin + (part.end - part.begin) * (off_begin / (off_begin - off_end));
}

TurningProfile::State TurningProfile::at(std::size_t direction) const
{
    State state = whole_[direction];
    if (direction + 1 == directions_.size())
        return state;
    for (const std::size_t i : parts_in(direction)) {
        const Part& part = parts_[i];
        const Wide triangle = cross(part.begin, hit(part, direction)) * 0.5;
        const Wide swept = part.leaves ? triangle : -triangle;
        state.swept = state.swept + swept;
        state.left = part.ahead ? state.left - swept : state.left + swept;
    }
    return state;
}

// The ray runs in the direction u + t f and meets the part along s at w0 / (1 + bend t), w0 where u meets it. It has
// swept half the cross product of that and w0. A part along which the ray runs at first passes the point within a rounding: it
// sweeps nothing.
TurningProfile::Term TurningProfile::swept_along(const Part& part, std::size_t direction) const
{
    const WidePoint along = part.end - part.begin;
    const Wide off = cross(directions_[direction], along);
    if (is_zero(off))
        return {0.0, 0.0};
    const Wide quotient = cross(directions_[direction + 1], along) / off;
    const Wide growth = cross(hit(part, direction), hit(part, direction + 1)) * 0.5 * quotient;
    return {growth, quotient - 1.0};
}

std::vector<TurningProfile::Term> TurningProfile::terms(std::size_t direction) const
{
    std::vector<Term> all;
    for (const std::size_t i : parts_in(direction)) {
        const Term swept = swept_along(parts_[i], direction);
        all.push_back({parts_[i].leaves == parts_[i].ahead ? -swept.growth : swept.growth, swept.bend});
    }
    return all;
}

}  // namespace plparcel
