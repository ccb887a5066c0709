#include "writing/with_heights.h"

#include <cmath>
#include <optional>

#include "reading/boundary.h"

namespace tool {

void add_points(OGRLineString& line, const std::vector<PL_PNT2D_record>& points, const Heights* known)
{
    for (const PL_PNT2D_record& p : points) {
        if (known != nullptr && known->any())
            line.addPoint(p.x, p.y, known->at(p).value_or(std::nan("")));
        else
            line.addPoint(p.x, p.y);
    }
}

OGRLinearRing ring_of(const Parcel& parcel, std::size_t ring)
{
    const plparcel::Ring& vertices = ring == 0 ? parcel.ring : parcel.holes[ring - 1];
    const std::size_t first = number_of(parcel, ring, 0);
    OGRLinearRing drawn;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const PL_PNT2D_record& p = vertices[i];
        if (parcel.heights.empty())
            drawn.addPoint(p.x, p.y);
        else
            drawn.addPoint(p.x, p.y, parcel.heights[first + i]);
    }
    return drawn;
}

bool flatten_unless_all_known(OGRGeometry& geometry)
{
    const KnownHeights known = heights_of(geometry);
    if (!known.all())
        geometry.flattenTo2D();
    return known.partly();
}

void LostHeights::add(const Place& place)
{
    file_ = place.file;
    features_.add([&] { return place.feature; });
}

std::string LostHeights::text() const
{
    if (features_.count() == 0)
        return "";
    const std::string names = features_.text();
    return "Some shapes are written without heights, because a vertex has none: " + file_ +
           (names.empty() ? "" : " (" + names + ")") + "\n";
}

}  // namespace tool
