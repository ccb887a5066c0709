#include "writing/drawing_writer.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>

#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>

#include "answers/division_points.h"
#include "answers/heights.h"
#include "console/outcome.h"
#include "files/vector_file.h"
#include "plparcel/extent.h"
#include "reading/boundary.h"
#include "reading/crs.h"
#include "reading/drawing.h"
#include "text/numbers.h"

namespace tool {
namespace {

constexpr const char* kPieces = "pieces";
constexpr const char* kLines = "lines";
constexpr const char* kPoints = "points";
constexpr const char* kLabels = "labels";
constexpr const char* kNeighbours = "neighbours";

// Layers with the number that DXF gives to their colour.
using Layers = std::vector<std::pair<const char*, int>>;

Layers layers_with(const NeighbourHeights& neighbours)
{
    Layers layers = {{kPieces, 3},           {kHolesLayer, 8}, {kLines, 1},         {kPoints, 5},
                     {kPointLabelsLayer, 5}, {kLabels, 7},     {kUndividedLayer, 6}};
    if (neighbours)
        layers.emplace_back(kNeighbours, 4);
    return layers;
}

// A circle with a cross, one percent of the screen high.
constexpr const char* kPointMode = "34";
constexpr const char* kPointSize = "-1.0";

// Height of text, parts of the root of the smallest piece's area: three lines of ten letters fit a square piece.
constexpr double kTextHeight = 1.0 / 12.0;

// Handles of the layers, below those that GDAL gives to entities and above those of its template.
constexpr int kFirstHandle = 0x1F000;

// The number that DXF gives to a unit of length; 0 where it has none.
int unit_number(const LengthUnit& unit)
{
    constexpr std::pair<double, int> kUnits[] = {{1.0, 6},    {0.3048, 2}, {1200.0 / 3937.0, 21},
                                                 {0.0254, 1}, {0.001, 4},  {0.01, 5},
                                                 {1000.0, 7}, {0.9144, 10}};
    for (const auto& [metres, number] : kUnits)
        if (!unit.name.empty() && std::fabs(unit.metres - metres) < 1e-9 * metres)
            return number;
    return 0;
}

// A DXF file is pairs of lines: what the value is, and the value.
struct Pair {
    std::string code;
    std::string value;
};

std::vector<Pair> pairs_of(const std::string& text)
{
    std::vector<Pair> pairs;
    std::istringstream lines(text);
    for (Pair pair; std::getline(lines, pair.code) && std::getline(lines, pair.value);) {
        for (std::string* line : {&pair.code, &pair.value})
            if (!line->empty() && line->back() == '\r')
                line->pop_back();
        pairs.push_back(pair);
    }
    return pairs;
}

void set_variable(std::vector<Pair>& pairs, const std::string& name, const std::string& value)
{
    for (std::size_t i = 0; i + 1 < pairs.size(); ++i)
        if (pairs[i].value == name)
            pairs[i + 1].value = value;
}

// Puts our layers behind layer 0, as copies of it with another name, colour and handle.
void add_layers(std::vector<Pair>& pairs, const Layers& wanted)
{
    const auto is = [](const char* code, const char* value) {
        return [=](const Pair& pair) { return atoi(pair.code.c_str()) == atoi(code) && pair.value == value; };
    };
    const auto zero = std::find_if(pairs.begin(), pairs.end(), is("0", "LAYER"));
    const auto end = std::find_if(zero, pairs.end(), is("0", "ENDTAB"));
    std::vector<Pair> layers;
    int handle = kFirstHandle;
    for (const auto& [name, colour] : wanted) {
        for (auto pair = zero; pair != end; ++pair) {
            layers.push_back(*pair);
            const int code = atoi(pair->code.c_str());
            if (code == 2)
                layers.back().value = name;
            if (code == 5)
                layers.back().value = CPLSPrintf("%X", handle++);
            if (code == 62)
                layers.back().value = std::to_string(colour);
        }
    }
    pairs.insert(end, layers.begin(), layers.end());
}

// GDAL's own template with the unit, how points look, and our layers. Empty where GDAL has none.
std::string drawing_template(const LengthUnit& unit, const Layers& layers)
{
    const char* const path = CPLFindFile("gdal", "header.dxf");
    GByte* bytes = nullptr;
    if (path == nullptr || VSIIngestFile(nullptr, path, &bytes, nullptr, -1) == FALSE)
        return "";
    const std::unique_ptr<GByte, decltype(&VSIFree)> content(bytes, &VSIFree);
    std::vector<Pair> pairs = pairs_of(reinterpret_cast<const char*>(content.get()));
    const int number = unit_number(unit);
    const bool metric = number != 1 && number != 2 && number != 10 && number != 21;
    set_variable(pairs, "$INSUNITS", std::to_string(number));
    set_variable(pairs, "$MEASUREMENT", metric ? "1" : "0");
    set_variable(pairs, "$PDMODE", kPointMode);
    set_variable(pairs, "$PDSIZE", kPointSize);
    add_layers(pairs, layers);
    std::string text;
    for (const Pair& pair : pairs)
        text += pair.code + "\n" + pair.value + "\n";
    return text;
}

OGRLineString line_between(const PL_PNT2D_record& from, const PL_PNT2D_record& to, const Heights* heights)
{
    OGRLineString line;
    add_points(line, {from, to}, heights);
    return line;
}

// GDAL closes the polyline of a polygon by its flag; a vertex that repeats the first would be one too many.
OGRPolygon open_polygon(const plparcel::Ring& ring, const Heights* heights = nullptr)
{
    OGRLinearRing boundary;
    add_points(boundary, ring, heights);
    OGRPolygon polygon;
    polygon.addRing(&boundary);
    return polygon;
}

OGRPoint point_at(const PL_PNT2D_record& p, const Heights& heights)
{
    const std::optional<double> height = heights.at(p);
    return height ? OGRPoint(p.x, p.y, *height) : OGRPoint(p.x, p.y);
}

// A point inside, and in none of the holes; the first vertex where there is none.
OGRPoint place_in(const plparcel::Ring& ring, const std::vector<plparcel::Ring>& holes = {})
{
    OGRPolygon polygon = open_polygon(ring);
    for (const plparcel::Ring& hole : holes)
        polygon.addRing(open_polygon(hole).getExteriorRing());
    polygon.closeRings();
    OGRPoint place(ring.front().x, ring.front().y);
    CPLPushErrorHandler(CPLQuietErrorHandler);
    const bool found = polygon.PointOnSurface(&place) == OGRERR_NONE;
    CPLPopErrorHandler();
    return found ? place : OGRPoint(ring.front().x, ring.front().y);
}

// A ring that is drawn; not closed, as in open_polygon().
struct DrawnRing {
    OGRLinearRing ring;
    bool is_hole;
};

// Everything that an undivided parcel has for a boundary, as far as its numbers can be drawn.
std::vector<DrawnRing> rings_of(const ReadParcel& read)
{
    std::vector<DrawnRing> rings;
    for (std::size_t i = 0; i <= read.parcel.holes.size(); ++i)
        rings.push_back({ring_of(read.parcel, i), i > 0});
    const OGRGeometry* const geometry = read.feature != nullptr ? read.feature->GetGeometryRef() : nullptr;
    if (geometry != nullptr && read.parcel.ring.empty()) {
        const std::unique_ptr<OGRGeometry> polygons(
            OGRGeometryFactory::forceToMultiPolygon(geometry->getLinearGeometry()));
        if (wkbFlatten(polygons->getGeometryType()) == wkbMultiPolygon) {
            rings.clear();
            for (const OGRPolygon* polygon : *polygons->toMultiPolygon())
                for (const OGRLinearRing* boundary : *polygon) {
                    rings.push_back({*boundary, boundary != polygon->getExteriorRing()});
                    const int last = boundary->getNumPoints() - 1;
                    if (last > 0 && boundary->getX(0) == boundary->getX(last) &&
                        boundary->getY(0) == boundary->getY(last))
                        rings.back().ring.setNumPoints(last);
                }
        }
    }
    const auto cannot_be_drawn = [](const DrawnRing& drawn) {
        bool can_be = !drawn.ring.IsEmpty();
        for (const OGRPoint& p : drawn.ring)
            can_be = can_be && std::isfinite(p.getX()) && std::isfinite(p.getY());
        return !can_be;
    };
    rings.erase(std::remove_if(rings.begin(), rings.end(), cannot_be_drawn), rings.end());
    return rings;
}

OGRPolygon polygon_of(OGRLinearRing ring)
{
    OGRPolygon polygon;
    polygon.addRing(&ring);
    return polygon;
}

double text_height(const plparcel::Division& division)
{
    double least = division.ring.area;
    for (const plparcel::Piece& piece : division.pieces)
        least = std::min(least, piece.area);
    return kTextHeight * std::sqrt(least);
}

// For a text between the quotes of a style.
std::string quoted(const std::string& text)
{
    std::string safe;
    for (const char c : text)
        safe += c == '"' ? std::string("\\\"") : std::string(1, c);
    return safe;
}

}  // namespace

bool DrawingWriter::writes(const std::string& file)
{
    return EQUAL(CPLGetExtension(file.c_str()), "dxf");
}

DrawingWriter::DrawingWriter(const std::string& file, bool overwrite, const ParcelFile& parcels,
                             const NeighbourHeights& neighbours, const std::vector<std::string>& others)
    : file_(file), output_(file, overwrite, parcels.files(), others), several_parcels_(parcels.count() > 1)
{
    const std::string header = drawing_template(unit_of(parcels.crs()), layers_with(neighbours));
    require(!header.empty());
    template_ = CPLSPrintf("/vsimem/plcalc-%p.dxf", static_cast<void*>(this));
    VSILFILE* const memory = VSIFOpenL(template_.c_str(), "wb");
    require(memory != nullptr && VSIFWriteL(header.data(), 1, header.size(), memory) == header.size());
    require(VSIFCloseL(memory) == 0);
    CPLStringList options;
    options.SetNameValue("HEADER", template_.c_str());
    GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName("DXF");
    require(driver != nullptr);
    dataset_.reset(driver->Create(output_.path().c_str(), 0, 0, 0, GDT_Unknown, options.List()));
    require(dataset_ != nullptr);
    // Without this option a polygon would be a solid hatch.
    CPLSetThreadLocalConfigOption("DXF_WRITE_HATCH", "NO");
    entities_ = dataset_->CreateLayer("entities");
    CPLSetThreadLocalConfigOption("DXF_WRITE_HATCH", nullptr);
    require(entities_ != nullptr);
    messages_.clear();
}

DrawingWriter::~DrawingWriter()
{
    dataset_.reset();
    if (!template_.empty())
        VSIUnlink(template_.c_str());
}

void DrawingWriter::require(bool ok) const
{
    if (ok)
        return;
    if (output_.disk_is_full())
        throw disk_full(file_);
    throw Failure(ExitStatus::failed, {file_, ""}, "the file could not be written" + messages_.remark(),
                  "try another format, such as GeoPackage (.gpkg)");
}

// Returns whether heights were lost, because a vertex has none.
bool DrawingWriter::draw(const char* layer, OGRGeometry&& geometry, const std::string& style)
{
    const bool lost = geometry.Is3D() && flatten_unless_all_known(geometry);
    const OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(entities_->GetLayerDefn()));
    feature->SetField("Layer", layer);
    feature->SetGeometry(&geometry);
    if (!style.empty())
        feature->SetStyleString(style.c_str());
    require(entities_->CreateFeature(feature.get()) == OGRERR_NONE);
    ++written_;
    return lost;
}

void DrawingWriter::draw_label(const char* layer, const std::string& text, const OGRPoint& place,
                               double height, Hangs hangs)
{
    constexpr double kGap = 0.5;  // between point and text, heights of text
    const double gap = hangs == Hangs::centred ? 0.0 : kGap * height;
    draw(layer, OGRPoint(place.getX() + gap, place.getY() + gap),
         "LABEL(t:\"" + quoted(text) + "\",s:" + CPLSPrintf("%.6gg", height) +
             (hangs == Hangs::centred ? ",p:5)" : ",p:1)"));
}

void DrawingWriter::add(const ReadParcel& read, const Answer& answer)
{
    const plparcel::Division& division = answer.printed.proven;
    const int decimals = answer.printed.resolution.area_decimals;
    const double height = text_height(division);
    const Heights known(answer);
    bool lost = false;
    const std::string number =
        several_parcels_ && read.feature != nullptr ? std::to_string(read.feature->GetFID()) : "";
    const std::string& parcel = read.parcel.place.name.empty() ? number : read.parcel.place.name;
    for (std::size_t i = 0; i < division.pieces.size(); ++i) {
        const plparcel::Piece& piece = division.pieces[i];
        const bool is_rest = piece.amount + 1 == division.held.size();
        const plparcel::Held& held = division.held[piece.amount];
        lost = draw(kPieces, open_polygon(piece.ring, &known)) || lost;
        for (const plparcel::Ring& hole : piece.holes)
            lost = draw(kHolesLayer, open_polygon(hole, &known)) || lost;
        draw_label(kLabels,
                   piece_title(parcel, i) + "\n" + fixed(piece.area, decimals) + "\n" +
                       (is_rest           ? "rest"
                        : held.pieces > 1 ? "of " + fixed(held.area, decimals)
                                          : "asked " + fixed(piece.asked, decimals)),
                   place_in(piece.ring, piece.holes), height, Hangs::centred);
    }
    for (const PrintedLine& line : answer.printed.lines)
        lost = draw(kLines, line_between(line.start, line.end, &known)) || lost;
    if (lost)
        lost_.add(read.parcel.place);
    const DivisionPoints points = points_of(answer);
    for (std::size_t i = points.corners; i < points.points.size(); ++i) {
        if (!points.points[i].is_new)
            continue;
        const OGRPoint at = point_at(points.points[i].at, known);
        ++points_;
        draw(kPoints, OGRPoint(at));
        draw_label(kPointLabelsLayer,
                   several_parcels_ ? "P" + std::to_string(points_) : points.points[i].name, at, height,
                   Hangs::upper_right);
    }
}

// Returns the first ring, or an empty one where there is nothing to draw.
OGRLinearRing DrawingWriter::draw_undivided(const ReadParcel& read, const char* layer)
{
    const std::vector<DrawnRing> rings = rings_of(read);
    bool lost = false;
    for (const DrawnRing& drawn : rings)
        lost = draw(drawn.is_hole ? kHolesLayer : layer, polygon_of(drawn.ring)) || lost;
    if (lost)
        lost_.add(read.parcel.place);
    return rings.empty() ? OGRLinearRing() : rings.front().ring;
}

void DrawingWriter::add_refused(const ReadParcel& read, const std::string& reason)
{
    plparcel::Ring outer;
    for (const OGRPoint& p : draw_undivided(read, kUndividedLayer))
        outer.push_back({p.getX(), p.getY()});
    if (outer.empty())
        return;
    const std::string text = kRefused + reason;
    const plparcel::Extent extent = plparcel::extent_of(outer);
    const double height = std::max(extent.width(), extent.height()) / static_cast<double>(text.size());
    draw_label(kUndividedLayer, text, place_in(outer), height, Hangs::centred);
}

void DrawingWriter::add_neighbour(const ReadParcel& read, const Insertion& /*insertion*/)
{
    draw_undivided(read, kNeighbours);
}

std::vector<std::string> DrawingWriter::commit()
{
    messages_.clear();
    dataset_.reset();
    require(!messages_.failed());
    // Read it back, because a full disk is not always reported.
    const GDALDatasetUniquePtr read_back = open_vector_file(output_.path());
    require(read_back != nullptr && read_back->GetLayerCount() > 0);
    std::size_t count = 0;
    for ([[maybe_unused]] const OGRFeatureUniquePtr& feature : *read_back->GetLayer(0))
        ++count;
    require(count == written_ && !messages_.failed());
    output_.commit();
    return {file_};
}

}  // namespace tool
