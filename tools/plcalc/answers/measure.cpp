#include "answers/measure.h"

#include <cstddef>

#include "plcalc/survey.h"

namespace tool {
namespace {

using Ring = std::vector<PL_PNT2D_record>;

// Relative to the first vertex, because the sums of the area lose digits far from the origin.
CPoint3dVector around_first(const Ring& ring)
{
    CPoint3dVector points;
    points.Reserve(static_cast<int>(ring.size()));
    for (const PL_PNT2D_record& p : ring)
        points.Append(p.x - ring[0].x, p.y - ring[0].y, 0.0);
    return points;
}

// The inside lies to the left of an anticlockwise ring, and bearings count to the right.
std::optional<double> inner_angle(const PL_PNT2D_record& before, const PL_PNT2D_record& at,
                                  const PL_PNT2D_record& after, bool anticlockwise)
{
    const std::optional<double> back = bearing_gon(at, before);
    const std::optional<double> on = bearing_gon(at, after);
    if (!back || !on)
        return std::nullopt;
    return LimiteAng0_400(anticlockwise ? *on - *back : *back - *on);
}

// Seen from the parcel, the angles of a hole are the rest of the turn.
void take_out(Measures& measures, const Measures& hole)
{
    measures.area -= hole.area;
    measures.perimeter += hole.perimeter;
    measures.sides.insert(measures.sides.end(), hole.sides.begin(), hole.sides.end());
    for (const MeasuredVertex& vertex : hole.vertices)
        measures.vertices.push_back(
            {vertex.angle_gon ? LimiteAng0_400(-*vertex.angle_gon) : vertex.angle_gon});
}

}  // namespace

std::optional<double> bearing_gon(const PL_PNT2D_record& from, const PL_PNT2D_record& to)
{
    const double east = to.x - from.x;
    const double north = to.y - from.y;
    if (east == 0.0 && north == 0.0)
        return std::nullopt;
    return AngoloDaAsseRifer(east, north);
}

Measures measure(const Ring& ring)
{
    const CPoint3dVector points = around_first(ring);
    Measures measures;
    measures.anticlockwise = AreaCalcolataSgn(points) > 0.0;
    measures.area = AreaCalcolata(points);
    measures.perimeter = PeriCalcolato(points);
    const std::size_t n = ring.size();
    for (std::size_t i = 0; i < n; ++i) {
        const PL_PNT2D_record& after = ring[(i + 1) % n];
        measures.sides.push_back({PlFunz_distance(&ring[i], &after), bearing_gon(ring[i], after)});
        measures.vertices.push_back(
            {inner_angle(ring[(i + n - 1) % n], ring[i], after, measures.anticlockwise)});
    }
    return measures;
}

Measures measure(const Parcel& parcel)
{
    Measures measures = measure(parcel.ring);
    for (const plparcel::Ring& hole : parcel.holes)
        take_out(measures, measure(hole));
    measures.area /= parcel.ground_factor * parcel.ground_factor;
    measures.perimeter = on_ground(parcel, measures.perimeter);
    for (MeasuredSide& side : measures.sides)
        side.length = on_ground(parcel, side.length);
    return measures;
}

}  // namespace tool
