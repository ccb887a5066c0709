#include "writing/with_heights.h"

#include <cstddef>
#include <optional>

namespace tool {

void add_points(OGRLineString& line, const std::vector<PL_PNT2D_record>& points, const Heights* known)
{
    const std::optional<std::vector<double>> heights =
        known != nullptr ? known->at_all(points) : std::nullopt;
    for (std::size_t i = 0; i < points.size(); ++i)
        line.addPoint(points[i].x, points[i].y, heights ? (*heights)[i] : 0.0);
    if (!heights)
        line.flattenTo2D();
}

}  // namespace tool
