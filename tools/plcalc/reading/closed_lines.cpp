#include "reading/closed_lines.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <cpl_string.h>

#include "plparcel/extent.h"
#include "reading/boundary.h"
#include "reading/layer_choice.h"

namespace tool {
namespace {

ClosedLine closed_line_of(const OGRLineString& line)
{
    ClosedLine closed;
    for (int i = 0; i < line.getNumPoints(); ++i) {
        closed.ring.push_back({line.getX(i), line.getY(i)});
        closed.heights.push_back(line.Is3D() ? line.getZ(i) : std::numeric_limits<double>::quiet_NaN());
    }
    drop_closing_vertex(closed.ring);
    closed.heights.resize(closed.ring.size());
    return closed;
}

double area_of(const plparcel::Ring& ring)
{
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record& a = ring[i];
        const PL_PNT2D_record& b = ring[(i + 1) % ring.size()];
        twice += (a.x - ring[0].x) * (b.y - ring[0].y) - (b.x - ring[0].x) * (a.y - ring[0].y);
    }
    return std::fabs(twice) / 2.0;
}

// A point inside: the middle of the widest part of a level line that goes through no vertex.
PL_PNT2D_record place_inside(const plparcel::Ring& ring)
{
    std::vector<double> levels;
    for (const PL_PNT2D_record& p : ring)
        levels.push_back(p.y);
    std::sort(levels.begin(), levels.end());
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    if (levels.size() < 2)
        return ring.front();
    const std::size_t middle = levels.size() / 2;
    const double level = (levels[middle - 1] + levels[middle]) / 2.0;
    std::vector<double> crossings;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record& a = ring[i];
        const PL_PNT2D_record& b = ring[(i + 1) % ring.size()];
        if ((a.y > level) != (b.y > level))
            crossings.push_back(a.x + (level - a.y) / (b.y - a.y) * (b.x - a.x));
    }
    std::sort(crossings.begin(), crossings.end());
    PL_PNT2D_record place = ring.front();
    double widest = 0.0;
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
        if (crossings[i + 1] - crossings[i] > widest) {
            widest = crossings[i + 1] - crossings[i];
            place = {crossings[i] + widest / 2.0, level};
        }
    return place;
}

bool holds(const plparcel::Extent& outer, const plparcel::Extent& inner)
{
    return outer.low.x <= inner.low.x && outer.low.y <= inner.low.y && inner.high.x <= outer.high.x &&
           inner.high.y <= outer.high.y;
}

std::vector<Mark> places_in(const std::vector<ClosedLine>& lines)
{
    std::vector<Mark> places;
    for (const ClosedLine& line : lines) {
        const PL_PNT2D_record place = place_inside(line.ring);
        places.push_back({place.x, place.y, line.feature});
    }
    return places;
}

}  // namespace

std::vector<ClosedLine> closed_lines_of(OGRLayer& ends, OGRLayer& fine, GDALDataset& dataset,
                                        const Source& source)
{
    std::vector<ClosedLine> lines;
    ends.ResetReading();
    fine.ResetReading();
    while (const OGRFeatureUniquePtr feature = next_without_arcs(ends)) {
        const OGRFeatureUniquePtr finer = next_with_fine_arcs(fine);
        const OGRGeometry* const geometry = feature->GetGeometryRef();
        const OGRGeometry* const fine_geometry = finer != nullptr ? finer->GetGeometryRef() : nullptr;
        if (geometry == nullptr || fine_geometry == nullptr ||
            wkbFlatten(geometry->getGeometryType()) != wkbLineString ||
            wkbFlatten(fine_geometry->getGeometryType()) != wkbLineString || !bounds_area(*fine_geometry) ||
            is_hidden(*feature, dataset))
            continue;
        const OGRLineString& coarse = *geometry->toLineString();
        const OGRLineString& line = *fine_geometry->toLineString();
        const Place place = {source.file, feature_name(*feature, ends, dataset)};
        const bool has_arcs = line.getNumPoints() != coarse.getNumPoints();
        const bool as_chords = has_arcs && source.arcs && !is_freeform(*feature);
        lines.push_back(closed_line_of(as_chords ? with_chords(coarse, line, *source.arcs, place) : line));
        lines.back().layer = feature->GetFieldAsString("Layer");
        lines.back().feature = place.feature;
        lines.back().has_arcs = has_arcs && !as_chords;
        const bool usable =
            lines.back().ring.size() > 2 &&
            std::all_of(lines.back().ring.begin(), lines.back().ring.end(),
                        [](const auto& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
        if (!usable)
            lines.pop_back();
    }
    ends.ResetReading();
    fine.ResetReading();
    return lines;
}

ClosedLines::ClosedLines(std::vector<ClosedLine> lines) : lines_(std::move(lines)), places_(places_in(lines_))
{
    for (const ClosedLine& line : lines_)
        areas_.push_back(area_of(line.ring));
}

std::vector<const ClosedLine*> ClosedLines::inside(const plparcel::Ring& ring, const std::string& layer) const
{
    const double area = area_of(ring);
    const plparcel::Extent extent = plparcel::extent_of(ring);
    std::vector<std::size_t> found;
    for (const std::size_t i : places_.all_inside(ring))
        if (EQUAL(lines_[i].layer.c_str(), layer.c_str()) && areas_[i] < area &&
            holds(extent, plparcel::extent_of(lines_[i].ring)))
            found.push_back(i);
    std::sort(found.begin(), found.end(), [this](std::size_t a, std::size_t b) {
        return areas_[a] > areas_[b] || (!(areas_[b] > areas_[a]) && a < b);
    });
    std::vector<const ClosedLine*> outermost;
    for (const std::size_t i : found) {
        const auto has_it = [&](const ClosedLine* other) {
            return holds(plparcel::extent_of(other->ring), plparcel::extent_of(lines_[i].ring)) &&
                   places_.is_inside(i, other->ring);
        };
        if (std::none_of(outermost.begin(), outermost.end(), has_it))
            outermost.push_back(&lines_[i]);
    }
    return outermost;
}

}  // namespace tool
