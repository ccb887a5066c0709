#include "vertex_lines.h"

#include <cmath>

namespace plparcel {
namespace {

// An area that is larger than a triangle by this part of what was summed up ends with it: rounding must not lose the
// line to a vertex behind which the boundary turns back.
constexpr double kRim = 1e-28;

// How much of a triangle is wanted, as a part of it; below 0 when that is none or more.
Wide part_of(const Wide& missing, const Wide& triangle, double rim)
{
    const Wide inwards = triangle < 0.0 ? -missing : missing;
    const Wide size = abs(triangle);
    if (inwards < 0.0 || inwards > size + rim || !(size > 0.0))
        return -1.0;
    return inwards < size ? inwards / size : Wide(1.0);
}

}  // namespace

std::vector<Chord> lines_from_vertex(const LocalRing& ring, double turn, std::size_t vertex,
                                     const Wide& after_from)
{
    const WidePoint& start = ring.at(vertex);
    const std::size_t n = ring.size();
    std::vector<Chord> lines;
    Wide swept;  // up to the side's first end
    for (std::size_t k = 1; k + 1 < n; ++k) {
        const WidePoint& a = ring.at(vertex + k);
        const WidePoint& b = ring.at(vertex + k + 1);
        const Wide triangle = cross(a - start, b - start) * (0.5 * turn);
        const Wide missing = after_from - swept;
        const double rim = kRim * (std::fabs(swept.hi) + std::fabs(triangle.hi));
        swept = swept + triangle;
        const Wide part = part_of(missing, triangle, rim);
        if (part < 0.0)
            continue;
        Chord line;
        line.from = start;
        line.to = a + (b - a) * part;
        line.from_side = vertex;
        line.to_side = (vertex + k) % n;
        line.from_vertex = true;
        lines.push_back(line);
    }
    return lines;
}

}  // namespace plparcel
