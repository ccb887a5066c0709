#include "answers/nearness.h"

#include <cmath>

namespace tool {
namespace {

// From a point to a segment.
double distance(const PL_PNT2D_record& p, const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    const double along = length2 > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / length2 : 0.0;
    const double part = std::fmin(1.0, std::fmax(0.0, along));
    return std::hypot(a.x + part * dx - p.x, a.y + part * dy - p.y);
}

}  // namespace

std::vector<NearSide> lines_at_sides(const Answer& answer)
{
    const double reach = kStakeoutMetres / answer.parcel.unit.metres;
    const Corners corners = corners_of(answer.parcel);
    std::vector<NearSide> found;
    for (std::size_t i = 0; i < answer.printed.lines.size(); ++i) {
        const PrintedLine& line = answer.printed.lines[i];
        for (std::size_t side = 0; side < corners.size(); ++side) {
            const PL_PNT2D_record& a = corners.at[side];
            const PL_PNT2D_record& b = corners.at[corners.next[side]];
            if (distance(line.start, a, b) <= reach && distance(line.end, a, b) <= reach) {
                found.push_back({i, side});
                break;
            }
        }
    }
    return found;
}

}  // namespace tool
