#include "reading/drawing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

#include <cpl_conv.h>

#include "reading/boundary.h"
#include "reading/layer_choice.h"
#include "text/numbers.h"

namespace tool {
namespace {

constexpr const char* kArcStep = "OGR_ARC_STEPSIZE";  // the angle of a chord, degrees
constexpr const char* kFullTurn = "360";
constexpr const char* kFineStep = "0.1";

OGRFeatureUniquePtr next_with_step(OGRLayer& layer, const char* step)
{
    CPLSetThreadLocalConfigOption(kArcStep, step);
    OGRFeatureUniquePtr feature(layer.GetNextFeature());
    CPLSetThreadLocalConfigOption(kArcStep, nullptr);
    return feature;
}

// The same point, but for the rounding of the turn that brought it there.
bool same(const OGRLineString& a, int i, const OGRLineString& b, int j)
{
    constexpr double kRounding = 1e-12;
    const double reach = kRounding * (1.0 + std::fabs(a.getX(i)) + std::fabs(a.getY(i)));
    return std::fabs(a.getX(i) - b.getX(j)) <= reach && std::fabs(a.getY(i) - b.getY(j)) <= reach;
}

double distance(const OGRLineString& line, int i, int j)
{
    return std::hypot(line.getX(j) - line.getX(i), line.getY(j) - line.getY(i));
}

// Of the circle through three points of an arc: the product of the sides over four times the area.
double radius_of(const OGRLineString& arc, int first, int steps)
{
    const int a = first;
    const int b = first + std::max(1, steps / 3);
    const int c = std::max(b + 1, first + 2 * (steps / 3));
    const double cross = (arc.getX(b) - arc.getX(a)) * (arc.getY(c) - arc.getY(a)) -
                         (arc.getX(c) - arc.getX(a)) * (arc.getY(b) - arc.getY(a));
    return distance(arc, a, b) * distance(arc, b, c) * distance(arc, c, a) / (2.0 * std::fabs(cross));
}

// How many steps of an arc a chord may span.
int steps_in_chord(const OGRLineString& fine, int first, int steps, double tolerance, const Place& place)
{
    constexpr double kMostTurn_rad = 0.7853981633974483;  // an eighth of a circle
    const double radius = radius_of(fine, first, steps);
    const double step_rad = 2.0 * std::asin(std::min(1.0, distance(fine, first, first + 1) / (2.0 * radius)));
    const double turn_rad = 2.0 * std::acos(std::max(0.0, 1.0 - tolerance / radius));
    const double allowed = std::floor(std::min(turn_rad, kMostTurn_rad) / step_rad * (1.0 + 1e-9));
    if (!(allowed >= 1.0))
        throw Failure(ExitStatus::wrong_use, place,
                      "--arcs " + shortest(tolerance) + " is too small for an arc with a radius of " +
                          fixed(radius, 3),
                      "allow " + fixed(radius * (1.0 - std::cos(step_rad / 2.0)) + 0.0005, 3));
    return static_cast<int>(std::min<double>(allowed, steps));
}

void add_vertex(OGRLineString& line, const OGRLineString& from, int i)
{
    const int last = line.getNumPoints() - 1;
    if (last >= 0 && line.getX(last) == from.getX(i) && line.getY(last) == from.getY(i))
        return;
    if (from.Is3D())
        line.addPoint(from.getX(i), from.getY(i), from.getZ(i));
    else
        line.addPoint(from.getX(i), from.getY(i));
}

[[noreturn]] void refuse_reading(const Place& place)
{
    throw Failure(ExitStatus::unusable_input, place,
                  "the boundary could not be read a second time, to look for arcs",
                  "leave the file alone until plcalc is done");
}

bool is_finite(const OGRLineString& line)
{
    for (int i = 0; i < line.getNumPoints(); ++i)
        if (!std::isfinite(line.getX(i)) || !std::isfinite(line.getY(i)))
            return false;
    return true;
}

OpenLine open_line_of(const OGRLineString& line)
{
    OpenLine open;
    for (int i = 0; i < line.getNumPoints(); ++i) {
        open.points.push_back({line.getX(i), line.getY(i)});
        open.heights.push_back(line.Is3D() ? line.getZ(i) : std::numeric_limits<double>::quiet_NaN());
    }
    return open;
}

// A layer's open lines.
struct OnLayer {
    std::vector<OpenLine> lines;
    std::vector<OGRFeatureUniquePtr> features;
    std::vector<bool> has_arcs;
};

std::string first_line(const std::string& text)
{
    const std::string line = text.substr(0, text.find_first_of("\r\n"));
    const std::size_t first = line.find_first_not_of(" \t");
    return first == std::string::npos ? "" : line.substr(first, line.find_last_not_of(" \t") + 1 - first);
}

void note_gap(const JoinedLines& joined, DrawnLines& drawn)
{
    if (joined.lines.size() < 2 || joined.loose.size() != 2)
        return;
    const PL_PNT2D_record& from = joined.loose[0];
    const double gap = std::hypot(joined.loose[1].x - from.x, joined.loose[1].y - from.y);
    if (gap < drawn.gap || std::isnan(drawn.gap)) {
        drawn.gap = gap;
        drawn.gap_at = from;
    }
}

}  // namespace

OGRFeatureUniquePtr next_without_arcs(OGRLayer& layer)
{
    return next_with_step(layer, kFullTurn);
}

OGRFeatureUniquePtr next_with_fine_arcs(OGRLayer& layer)
{
    return next_with_step(layer, kFineStep);
}

bool is_freeform(const OGRFeature& feature)
{
    const std::string classes = feature.GetFieldAsString("SubClasses");
    return classes.find("AcDbEllipse") != std::string::npos ||
           classes.find("AcDbSpline") != std::string::npos;
}

OGRLineString with_chords(const OGRLineString& ends, const OGRLineString& fine, double tolerance,
                          const Place& place)
{
    OGRLineString line;
    int at = 0;
    if (ends.getNumPoints() == 0 || fine.getNumPoints() == 0 || !same(ends, 0, fine, 0))
        refuse_reading(place);
    add_vertex(line, ends, 0);
    for (int i = 1; i < ends.getNumPoints(); ++i) {
        int next = at + 1;
        while (next < fine.getNumPoints() && !same(ends, i, fine, next))
            ++next;
        if (next >= fine.getNumPoints())
            refuse_reading(place);
        const int steps = next - at;
        const int most = steps > 1 ? steps_in_chord(fine, at, steps, tolerance, place) : 1;
        const int chords = (steps + most - 1) / most;
        for (int chord = 1; chord < chords; ++chord)
            add_vertex(line, fine, at + chord * steps / chords);
        add_vertex(line, ends, i);
        at = next;
    }
    return line;
}

DrawnLines join_drawn_lines(OGRLayer& ends, OGRLayer& fine, GDALDataset& dataset, const Source& source)
{
    std::map<std::string, OnLayer> layers;
    ends.ResetReading();
    fine.ResetReading();
    while (const OGRFeatureUniquePtr feature = next_without_arcs(ends)) {
        const OGRFeatureUniquePtr finer = next_with_fine_arcs(fine);
        const std::string layer = feature->GetFieldAsString("Layer");
        const OGRGeometry* const geometry = feature->GetGeometryRef();
        if (geometry == nullptr || wkbFlatten(geometry->getGeometryType()) != wkbLineString ||
            is_hidden(*feature, dataset) || (source.layer && *source.layer != layer))
            continue;
        const Place place = {source.file, feature_name(*feature, ends, dataset)};
        if (finer == nullptr || finer->GetFID() != feature->GetFID() || finer->GetGeometryRef() == nullptr ||
            wkbFlatten(finer->GetGeometryRef()->getGeometryType()) != wkbLineString)
            refuse_reading(place);
        const OGRLineString& finer_line = *finer->GetGeometryRef()->toLineString();
        if (bounds_area(finer_line) || !is_finite(finer_line) || finer_line.getNumPoints() < 2)
            continue;
        OnLayer& on_layer = layers[layer];
        const bool has_arcs = finer_line.getNumPoints() != geometry->toLineString()->getNumPoints();
        on_layer.has_arcs.push_back(has_arcs);
        on_layer.lines.push_back(
            open_line_of(has_arcs && source.arcs && !is_freeform(*feature)
                             ? with_chords(*geometry->toLineString(), finer_line, *source.arcs, place)
                             : *geometry->toLineString()));
        on_layer.features.emplace_back(feature->Clone());
        on_layer.features.back()->SetGeometry(nullptr);
    }
    ends.ResetReading();
    fine.ResetReading();
    DrawnLines drawn;
    drawn.gap = std::numeric_limits<double>::quiet_NaN();
    const double tolerance = source.join.value_or(kJoinTolerance);
    for (auto& [name, on_layer] : layers)
        for (JoinedLines& joined : join_lines(on_layer.lines, tolerance)) {
            if (joined.kind == Join::open) {
                drawn.left += joined.lines.size();
                note_gap(joined, drawn);
                continue;
            }
            DrawnLoop loop;
            loop.layer = name;
            bool wanted = !source.feature;
            for (const std::size_t line : joined.lines) {
                loop.has_arcs = loop.has_arcs || on_layer.has_arcs[line];
                loop.is_freeform = loop.is_freeform || is_freeform(*on_layer.features[line]);
                wanted = wanted || on_layer.features[line]->GetFID() == *source.feature;
            }
            const std::size_t first = *std::min_element(joined.lines.begin(), joined.lines.end());
            loop.feature = std::move(on_layer.features[first]);
            loop.joined = std::move(joined);
            if (wanted)
                drawn.loops.push_back(std::move(loop));
        }
    return drawn;
}

// Whether a text is one that we write, and no name.
static bool is_remark(const std::string& layer, const std::string& text)
{
    return layer == kPointLabelsLayer || (layer == kUndividedLayer && text.rfind(kRefused, 0) == 0);
}

DrawnMarks DrawnMarks::texts(OGRLayer& entities, GDALDataset& dataset,
                             const std::optional<std::string>& layer)
{
    std::vector<Mark> texts;
    for (const OGRFeatureUniquePtr& feature : entities) {
        const OGRGeometry* const geometry = feature->GetGeometryRef();
        const std::string line = first_line(feature->GetFieldAsString("Text"));
        if (geometry == nullptr || wkbFlatten(geometry->getGeometryType()) != wkbPoint || line.empty() ||
            is_hidden(*feature, dataset))
            continue;
        const std::string on = feature->GetFieldAsString("Layer");
        if (layer ? *layer != on : is_remark(on, line))
            continue;
        texts.push_back({geometry->toPoint()->getX(), geometry->toPoint()->getY(), line});
    }
    entities.ResetReading();
    return DrawnMarks(std::move(texts));
}

DrawnMarks::DrawnMarks(std::vector<Mark> marks) : marks_(std::move(marks))
{
    CPLRectObj bounds = {0.0, 0.0, 0.0, 0.0};
    if (!marks_.empty())
        bounds_of(&marks_.front(), &bounds);
    for (const Mark& mark : marks_) {
        bounds = {std::min(bounds.minx, mark.east), std::min(bounds.miny, mark.north),
                  std::max(bounds.maxx, mark.east), std::max(bounds.maxy, mark.north)};
    }
    by_place_.reset(CPLQuadTreeCreate(&bounds, bounds_of));
    CPLQuadTreeSetMaxDepth(by_place_.get(), CPLQuadTreeGetAdvisedMaxDepth(static_cast<int>(marks_.size())));
    for (Mark& mark : marks_)
        CPLQuadTreeInsert(by_place_.get(), &mark);
}

void DrawnMarks::bounds_of(const void* mark, CPLRectObj* bounds)
{
    const Mark& at = *static_cast<const Mark*>(mark);
    *bounds = {at.east, at.north, at.east, at.north};
}

namespace {

OGRLinearRing boundary_ring(const plparcel::Ring& ring)
{
    OGRLinearRing boundary;
    for (const PL_PNT2D_record& p : ring)
        boundary.addPoint(p.x, p.y);
    boundary.closeRings();
    return boundary;
}

bool is_at_inside(const Mark& mark, const OGRLinearRing& boundary)
{
    const OGRPoint at(mark.east, mark.north);
    return boundary.isPointInRing(&at, TRUE) != 0;
}

}  // namespace

bool DrawnMarks::is_inside(std::size_t mark, const plparcel::Ring& ring) const
{
    return is_at_inside(marks_[mark], boundary_ring(ring));
}

std::vector<std::size_t> DrawnMarks::all_inside(const plparcel::Ring& ring) const
{
    const OGRLinearRing boundary = boundary_ring(ring);
    OGREnvelope extent;
    boundary.getEnvelope(&extent);
    const CPLRectObj area = {extent.MinX, extent.MinY, extent.MaxX, extent.MaxY};
    int count = 0;
    const std::unique_ptr<void*, decltype(&VSIFree)> found(CPLQuadTreeSearch(by_place_.get(), &area, &count),
                                                           &VSIFree);
    std::vector<std::size_t> marks;
    for (int i = 0; i < count; ++i) {
        const Mark* const mark = static_cast<const Mark*>(found.get()[i]);
        if (is_at_inside(*mark, boundary))
            marks.push_back(static_cast<std::size_t>(mark - marks_.data()));
    }
    return marks;
}

std::optional<std::string> DrawnMarks::inside(const plparcel::Ring& ring,
                                              const std::vector<plparcel::Ring>& holes) const
{
    std::optional<std::string> name;
    for (const std::size_t i : all_inside(ring)) {
        if (std::any_of(holes.begin(), holes.end(),
                        [&](const plparcel::Ring& hole) { return is_inside(i, hole); }))
            continue;
        if (name && *name != marks_[i].line)
            return std::nullopt;
        name = marks_[i].line;
    }
    return name;
}

}  // namespace tool
