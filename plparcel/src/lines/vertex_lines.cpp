#include "lines/vertex_lines.h"

#include <cmath>

#include "lines/visibility.h"

namespace plparcel {
namespace {

// An area that misses a triangle by no more than this part of what was summed up is on its rim.
constexpr double kRim = 1e-28;

// How much of a triangle is wanted, as a part of it.
struct Part {
    Wide part;     // 0 to 1
    Wide outside;  // by how much what is wanted is below zero, or above the whole triangle
};

Part part_of(const Wide& missing, const Wide& triangle)
{
    const Wide inwards = triangle < 0.0 ? -missing : missing;
    const Wide size = abs(triangle);
    if (inwards < 0.0)
        return {0.0, -inwards};
    if (inwards > size)
        return {1.0, inwards - size};
    return {size > 0.0 ? inwards / size : Wide(0.0), 0.0};
}

}  // namespace

std::vector<Chord> lines_from_vertex(const LocalRing& ring, double turn, std::size_t vertex,
                                     const Wide& after_from, const Wide& granted)
{
    const WidePoint& start = ring.at(vertex);
    const std::size_t n = ring.size();
    std::vector<Sight> ends;
    std::vector<bool> beside;
    Wide swept;  // up to the side's first end
    for (std::size_t k = 1; k + 1 < n; ++k) {
        const Wide triangle =
            cross(ring.at(vertex + k) - start, ring.at(vertex + k + 1) - start) * (0.5 * turn);
        const Wide missing = after_from - swept;
        const double rim = kRim * (std::fabs(swept.hi) + std::fabs(triangle.hi));
        swept = swept + triangle;
        const Part part = part_of(missing, triangle);
        const bool is_beside = part.outside > rim;
        if (is_beside && part.outside > granted)
            continue;
        ends.push_back({k, part.part});
        beside.push_back(is_beside);
    }
    if (ends.empty())
        return {};

    const std::vector<bool> seen = seen_from(ring, turn, vertex, ends);
    std::vector<Chord> lines;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        if (!seen[i])
            continue;
        const WidePoint& a = ring.at(vertex + ends[i].side);
        const WidePoint& b = ring.at(vertex + ends[i].side + 1);
        Chord line;
        line.from = start;
        line.to = a + (b - a) * ends[i].part;
        line.from_side = vertex;
        line.to_side = (vertex + ends[i].side) % n;
        line.from_stays = true;
        line.beside_the_amount = beside[i];
        lines.push_back(line);
    }
    return lines;
}

std::vector<Chord> lines_from_place(const LocalRing& ring, double turn, std::size_t side,
                                    const WidePoint& place, const Wide& after_from, const Wide& granted)
{
    std::vector<Chord> lines =
        lines_from_vertex(ring.with_vertex_on(side, place), turn, side + 1, after_from, granted);
    for (Chord& line : lines) {
        line.from_side = side;
        line.to_side -= line.to_side > side ? 1 : 0;
    }
    return lines;
}

std::vector<AreaRange> areas_from_vertex(const LocalRing& ring, double turn, std::size_t vertex,
                                         const Wide& reach)
{
    const WidePoint& start = ring.at(vertex);
    std::vector<Wide> swept = {0.0, 0.0};  // up to each side's first end
    for (std::size_t k = 1; k + 1 < ring.size(); ++k)
        swept.push_back(swept.back() +
                        cross(ring.at(vertex + k) - start, ring.at(vertex + k + 1) - start) * (0.5 * turn));
    const auto area_up_to = [&](const Sight& sight) {
        return swept[sight.side] + (swept[sight.side + 1] - swept[sight.side]) * sight.part;
    };
    std::vector<AreaRange> ranges;
    for (const SeenPart& part : all_seen_from(ring, turn, vertex, reach))
        ranges.push_back(
            {area_up_to(part.begin), area_up_to(part.end), part.begin_is_clear, part.end_is_clear});
    return ranges;
}

}  // namespace plparcel
