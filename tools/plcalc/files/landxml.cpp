#include "files/landxml.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <utility>
#include <vector>

#include <cpl_conv.h>
#include <ogrsf_frmts.h>

#include "console/outcome.h"
#include "files/xml_reader.h"

namespace tool {
namespace {

// Two elements of a boundary meet where their ends are no farther apart, in the unit of the file.
constexpr double kLargestGap = 0.001;

constexpr LandXmlUnit kUnits[] = {{"meter", 1.0, true, "squareMeter"},
                                  {"foot", 0.3048, false, "squareFoot"},
                                  {"USSurveyFoot", 1200.0 / 3937.0, false, "squareFoot"},
                                  {"millimeter", 0.001, true, "squareMillimeter"},
                                  {"centimeter", 0.01, true, "squareCentimeter"},
                                  {"kilometer", 1000.0, true, ""},
                                  {"inch", 0.0254, false, "squareInch"},
                                  {"mile", 1609.344, false, "squareMiles"}};

struct Point {
    double east = 0.0;
    double north = 0.0;
    std::optional<double> height;
};

// A point of a boundary: where it is, or the name of the CgPoint that says so.
struct Corner {
    std::string name;
    Point at;
};

struct Element {
    std::vector<Corner> points;    // from its start to its end
    std::optional<Corner> centre;  // of a Curve
    bool clockwise = false;
};

struct ReadLandParcel {
    std::string name;
    std::string description;
    std::string state;
    std::vector<std::vector<Element>> boundaries;  // the outer one, then those of its holes
};

// A boundary as GDAL has it.
struct ReadRing {
    std::unique_ptr<OGRCompoundCurve> curve = std::make_unique<OGRCompoundCurve>();
    bool closed = false;
    bool has_heights = false;
    std::string names;  // of its points, on lines
};

bool is_named(xmlNode* node, const char* name)
{
    return node->type == XML_ELEMENT_NODE && text_of(node->name) == name;
}

std::string taken(xmlChar* text)
{
    const std::unique_ptr<xmlChar, decltype(xmlFree)> owner(text, xmlFree);
    return text_of(text);
}

std::string attribute(xmlNode* node, const char* name)
{
    return taken(xmlGetProp(node, reinterpret_cast<const xmlChar*>(name)));
}

std::vector<double> numbers_in(const std::string& text)
{
    std::vector<double> numbers;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        char* end = nullptr;
        const double value = CPLStrtod(word.c_str(), &end);
        if (*end != '\0' || !std::isfinite(value))
            return {};
        numbers.push_back(value);
    }
    return numbers;
}

// Reads the file once, then resolves the references.
class LandXmlReader {
public:
    LandXmlReader(const std::string& file, const std::string& shown) : shown_(shown)
    {
        const XmlReader reader = open_xml(file);
        if (reader == nullptr)
            refuse("", "the file cannot be read", "check its permissions");
        int state = xmlTextReaderRead(reader.get());
        for (; state == 1; state = xmlTextReaderRead(reader.get()))
            if (xmlTextReaderNodeType(reader.get()) == XML_READER_TYPE_ELEMENT)
                read(reader.get());
        if (state < 0)
            refuse("",
                   "the file is no XML from line " +
                       std::to_string(xmlTextReaderGetParserLineNumber(reader.get())) + " on",
                   "export it again");
    }

    GDALDatasetUniquePtr dataset() const
    {
        GDALDriver* const memory = GetGDALDriverManager()->GetDriverByName("Memory");
        GDALDatasetUniquePtr dataset(memory->Create("", 0, 0, 0, GDT_Unknown, nullptr));
        OGRSpatialReference crs = this->crs();
        OGRLayer* const layer = dataset->CreateLayer("Parcels", crs.IsEmpty() ? nullptr : &crs, wkbUnknown);
        for (const char* column : {"name", "desc", "state"}) {
            OGRFieldDefn field(column, OFTString);
            layer->CreateField(&field);
        }
        GIntBig number = 0;
        for (const ReadLandParcel& parcel : parcels_) {
            OGRFeature feature(layer->GetLayerDefn());
            feature.SetFID(++number);
            feature.SetField("name", parcel.name.c_str());
            feature.SetField("desc", parcel.description.c_str());
            feature.SetField("state", parcel.state.c_str());
            add_boundaries(parcel, feature);
            if (layer->CreateFeature(&feature) != OGRERR_NONE)
                throw std::bad_alloc();
        }
        return dataset;
    }

private:
    [[noreturn]] void refuse(const std::string& parcel, const std::string& problem,
                             const std::string& advice) const
    {
        throw Failure(ExitStatus::unusable_input, {shown_, parcel.empty() ? "" : "parcel " + parcel}, problem,
                      advice);
    }

    void read(xmlTextReader* reader)
    {
        const std::string name = text_of(xmlTextReaderConstLocalName(reader));
        const bool wanted = name == "CgPoint" || name == "Parcel" || name == "CoordinateSystem" ||
                            name == "Metric" || name == "Imperial";
        xmlNode* const node = wanted ? xmlTextReaderExpand(reader) : nullptr;
        if (node == nullptr)
            return;
        if (name == "CgPoint")
            read_point(node);
        else if (name == "Parcel")
            read_parcel(node);
        else if (name == "CoordinateSystem")
            epsg_ = attribute(node, "epsgCode");
        else
            unit_ = attribute(node, "linearUnit");
    }

    Corner corner_of(xmlNode* node, const std::string& parcel) const
    {
        Corner corner;
        corner.name = attribute(node, "pntRef");
        if (!corner.name.empty())
            return corner;
        const std::vector<double> numbers = numbers_in(taken(xmlNodeGetContent(node)));
        if (numbers.size() < 2 || numbers.size() > 3)
            refuse(parcel, "a point is neither northing and easting nor a reference",
                   "export the file again");
        corner.at = point_of(numbers, 0, numbers.size() == 3);
        return corner;
    }

    static Point point_of(const std::vector<double>& numbers, std::size_t first, bool has_height)
    {
        return {numbers[first + 1], numbers[first],
                has_height ? std::optional<double>(numbers[first + 2]) : std::nullopt};
    }

    void read_point(xmlNode* node)
    {
        const std::string name = attribute(node, "name");
        const std::string reference = attribute(node, "pntRef");
        const std::vector<double> numbers = numbers_in(taken(xmlNodeGetContent(node)));
        if (!reference.empty())
            aliases_[name] = reference;
        else if (numbers.size() == 2 || numbers.size() == 3)
            points_[name] = point_of(numbers, 0, numbers.size() == 3);
    }

    void read_parcel(xmlNode* node)
    {
        ReadLandParcel parcel;
        parcel.name = attribute(node, "name");
        parcel.description = attribute(node, "desc");
        parcel.state = attribute(node, "state");
        for (xmlNode* child = node->children; child != nullptr; child = child->next)
            if (is_named(child, "CoordGeom")) {
                parcel.boundaries.emplace_back();
                for (xmlNode* element = child->children; element != nullptr; element = element->next)
                    if (element->type == XML_ELEMENT_NODE)
                        read_element(element, parcel);
            }
        if (!parcel.boundaries.empty())
            parcels_.push_back(std::move(parcel));
    }

    void read_element(xmlNode* node, ReadLandParcel& parcel) const
    {
        const std::string kind = text_of(node->name);
        if (kind == "Feature")
            return;
        if (kind != "Line" && kind != "Curve" && kind != "IrregularLine")
            refuse(parcel.name, "its boundary has an element " + kind,
                   "replace it with lines and curves before you export it");
        Element element;
        std::optional<Corner> end;
        std::vector<Corner> between;
        for (xmlNode* child = node->children; child != nullptr; child = child->next) {
            if (is_named(child, "Start"))
                element.points.insert(element.points.begin(), corner_of(child, parcel.name));
            else if (is_named(child, "End"))
                end = corner_of(child, parcel.name);
            else if (is_named(child, "Center"))
                element.centre = corner_of(child, parcel.name);
            else if (is_named(child, "PntList2D") || is_named(child, "PntList3D"))
                between = list_of(child, is_named(child, "PntList3D"), parcel.name);
        }
        if (element.points.size() != 1 || !end || (kind == "Curve" && !element.centre))
            refuse(parcel.name, "a " + kind + " lacks its start, end or centre", "export the file again");
        if (kind != "Curve")
            element.centre.reset();
        element.clockwise = attribute(node, "rot") != "ccw";
        element.points.insert(element.points.end(), between.begin(), between.end());
        element.points.push_back(*end);
        parcel.boundaries.back().push_back(std::move(element));
    }

    // The points of an irregular line, of which the first and the last may be its ends.
    std::vector<Corner> list_of(xmlNode* node, bool with_heights, const std::string& parcel) const
    {
        const std::vector<double> numbers = numbers_in(taken(xmlNodeGetContent(node)));
        const std::size_t size = with_heights ? 3 : 2;
        if (numbers.empty() || numbers.size() % size != 0)
            refuse(parcel, "a list of points is broken", "export the file again");
        std::vector<Corner> corners;
        for (std::size_t i = 0; i < numbers.size(); i += size)
            corners.push_back({"", point_of(numbers, i, with_heights)});
        return corners;
    }

    Point resolved(const Corner& corner, const std::string& parcel) const
    {
        if (corner.name.empty())
            return corner.at;
        const auto alias = aliases_.find(corner.name);
        const auto point = points_.find(alias != aliases_.end() ? alias->second : corner.name);
        if (point == points_.end())
            refuse(parcel, "the point '" + corner.name + "' is missing",
                   "export the points with the parcels");
        return point->second;
    }

    static double gap(const Point& a, const Point& b)
    {
        return std::hypot(b.east - a.east, b.north - a.north);
    }

    // The elements head to tail: one that is drawn backwards is turned.
    std::vector<Element> in_order(std::vector<Element> elements, const ReadLandParcel& parcel) const
    {
        for (std::size_t i = 0; i < elements.size(); ++i) {
            Element& element = elements[i];
            for (Corner& corner : element.points)
                corner.at = resolved(corner, parcel.name);
            if (element.centre)
                element.centre->at = resolved(*element.centre, parcel.name);
            if (i == 0)
                continue;
            const auto from_last = [&](const Corner& corner) {
                return gap(elements[i - 1].points.back().at, corner.at);
            };
            if (i == 1 && from_last(element.points.front()) > kLargestGap &&
                from_last(element.points.back()) > kLargestGap)
                turn(elements[0]);
            if (from_last(element.points.front()) > kLargestGap)
                turn(element);
            if (from_last(element.points.front()) > kLargestGap)
                refuse(parcel.name,
                       "its boundary has a gap between elements " + std::to_string(i) + " and " +
                           std::to_string(i + 1),
                       "close it before you export it");
        }
        return elements;
    }

    static void turn(Element& element)
    {
        element.points = {element.points.rbegin(), element.points.rend()};
        element.clockwise = !element.clockwise;
    }

    // The middle of an arc.
    static Point middle(const Point& from, const Point& to, const Point& centre, bool clockwise)
    {
        constexpr double kTurn_rad = 6.283185307179586;
        const double start_rad = std::atan2(from.north - centre.north, from.east - centre.east);
        double turn_rad = std::atan2(to.north - centre.north, to.east - centre.east) - start_rad;
        if (clockwise && turn_rad >= 0.0)
            turn_rad -= kTurn_rad;
        if (!clockwise && turn_rad <= 0.0)
            turn_rad += kTurn_rad;
        const double radius = gap(from, centre);
        const double at_rad = start_rad + turn_rad / 2.0;
        Point point = {centre.east + radius * std::cos(at_rad), centre.north + radius * std::sin(at_rad), {}};
        if (from.height && to.height)
            point.height = (*from.height + *to.height) / 2.0;
        return point;
    }

    ReadRing ring_of(const std::vector<Element>& boundary, const ReadLandParcel& parcel) const
    {
        const std::vector<Element> elements = in_order(boundary, parcel);
        ReadRing ring;
        if (elements.empty())
            return ring;
        const Point first = elements.front().points.front().at;
        ring.closed = gap(elements.back().points.back().at, first) <= kLargestGap;
        Point last = first;
        for (std::size_t i = 0; i < elements.size(); ++i) {
            const Element& element = elements[i];
            std::vector<Point> points = {last};
            for (std::size_t k = 1; k < element.points.size(); ++k)
                if (gap(element.points[k].at, points.back()) > 0.0)
                    points.push_back(element.points[k].at);
            if (ring.closed && i + 1 == elements.size())
                points.back() = first;
            if (points.size() < 2)
                continue;
            if (element.centre)
                points.insert(points.begin() + 1,
                              middle(points.front(), points.back(), element.centre->at, element.clockwise));
            auto* const curve =
                element.centre ? new OGRCircularString : static_cast<OGRSimpleCurve*>(new OGRLineString);
            for (const Point& p : points) {
                ring.has_heights = ring.has_heights || p.height;
                curve->addPoint(p.east, p.north, p.height.value_or(std::nan("")));
            }
            ring.curve->addCurveDirectly(curve);
            ring.names += element.points.front().name + "\n";
            for (std::size_t k = 2; k < points.size(); ++k)
                ring.names += "\n";
            last = points.back();
        }
        return ring;
    }

    void add_boundaries(const ReadLandParcel& parcel, OGRFeature& feature) const
    {
        std::vector<ReadRing> rings;
        bool has_heights = false;
        std::string names;
        for (const std::vector<Element>& boundary : parcel.boundaries) {
            rings.push_back(ring_of(boundary, parcel));
            has_heights = has_heights || rings.back().has_heights;
            names += rings.back().names;
        }
        if (rings.size() == 1 && rings.front().curve->IsEmpty())
            return;
        if (rings.size() > 1 && !lie_in_the_first(rings))
            refuse(parcel.name,
                   "it has several boundaries (" + std::to_string(rings.size()) +
                       "), and the others are no holes in the first",
                   "export each as a parcel of its own");
        if (!has_heights)
            for (ReadRing& ring : rings)
                ring.curve->flattenTo2D();
        set_geometry(std::move(rings), feature);
        if (names.find_first_not_of('\n') != std::string::npos)
            feature.SetNativeData(names.c_str());
    }

    static OGRLinearRing straight(const OGRCompoundCurve& boundary)
    {
        const std::unique_ptr<OGRLineString> line(boundary.CurveToLine());
        OGRLinearRing ring;
        ring.addSubLineString(line.get());
        return ring;
    }

    static OGRPolygon area_in(const OGRCompoundCurve& boundary)
    {
        OGRLinearRing ring = straight(boundary);
        OGRPolygon polygon;
        polygon.addRing(&ring);
        return polygon;
    }

    // Whether all but the first may be holes in it; whether they meet is checked with the parcel.
    static bool lie_in_the_first(const std::vector<ReadRing>& rings)
    {
        const bool closed =
            std::all_of(rings.begin(), rings.end(), [](const ReadRing& ring) { return ring.closed; });
        if (!closed)
            return false;
        const OGRPolygon first = area_in(*rings.front().curve);
        return std::all_of(rings.begin() + 1, rings.end(), [&](const ReadRing& ring) {
            const OGRPolygon other = area_in(*ring.curve);
            return first.Contains(&other) != FALSE;
        });
    }

    static void set_geometry(std::vector<ReadRing> rings, OGRFeature& feature)
    {
        const bool curved = std::any_of(rings.begin(), rings.end(), [](const ReadRing& ring) {
            return ring.curve->hasCurveGeometry(TRUE) != FALSE;
        });
        if (!rings.front().closed) {
            feature.SetGeometryDirectly(rings.front().curve.release());
        } else if (curved) {
            OGRCurvePolygon polygon;
            for (ReadRing& ring : rings)
                polygon.addRingDirectly(ring.curve.release());
            feature.SetGeometry(&polygon);
        } else {
            OGRPolygon polygon;
            for (const ReadRing& ring : rings) {
                OGRLinearRing sides = straight(*ring.curve);
                polygon.addRing(&sides);
            }
            feature.SetGeometry(&polygon);
        }
    }

    OGRSpatialReference crs() const
    {
        const LandXmlUnit* unit = nullptr;
        for (const LandXmlUnit& known : kUnits)
            unit = unit_ == known.name ? &known : unit;
        OGRSpatialReference crs;
        crs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        const int code = std::atoi(epsg_.c_str());
        if (code > 0 && crs.importFromEPSG(code) == OGRERR_NONE) {
            constexpr double kSameUnit = 1e-9;
            if (unit != nullptr && crs.IsProjected() &&
                std::fabs(crs.GetLinearUnits() - unit->metres) > kSameUnit * unit->metres)
                refuse("", "its unit (" + unit_ + ") is not that of its CRS, EPSG:" + std::to_string(code),
                       "correct one of them");
            return crs;
        }
        crs.Clear();
        if (unit != nullptr) {
            crs.SetLocalCS("unknown");
            crs.SetLinearUnits(unit->name, unit->metres);
        }
        return crs;
    }

    std::string shown_;
    std::string epsg_;
    std::string unit_;
    std::map<std::string, Point> points_;
    std::map<std::string, std::string> aliases_;
    std::vector<ReadLandParcel> parcels_;
};

}  // namespace

const LandXmlUnit* landxml_unit(double metres)
{
    constexpr double kSameUnit = 1e-9;
    for (const LandXmlUnit& unit : kUnits)
        if (std::fabs(unit.metres - metres) <= kSameUnit * metres)
            return &unit;
    return nullptr;
}

bool is_landxml(const std::string& file)
{
    constexpr std::size_t kLooksAt = 4096;
    VSILFILE* const opened = VSIFOpenL(file.c_str(), "rb");
    if (opened == nullptr)
        return false;
    std::string text(kLooksAt, '\0');
    text.resize(VSIFReadL(text.data(), 1, text.size(), opened));
    VSIFCloseL(opened);
    text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());  // UTF-16
    return text.find("<LandXML") != std::string::npos || text.find(":LandXML") != std::string::npos;
}

GDALDatasetUniquePtr open_landxml(const std::string& file, const std::string& shown)
{
    GDALAllRegister();
    return LandXmlReader(file, shown).dataset();
}

std::optional<std::size_t> count_landxml_parcels(const std::string& file)
{
    const XmlReader reader = open_xml(file);
    if (reader == nullptr)
        return std::nullopt;
    std::size_t parcels = 0;
    int state = xmlTextReaderRead(reader.get());
    for (; state == 1; state = xmlTextReaderRead(reader.get()))
        if (xmlTextReaderNodeType(reader.get()) == XML_READER_TYPE_ELEMENT &&
            text_of(xmlTextReaderConstLocalName(reader.get())) == "Parcel")
            ++parcels;
    return state == 0 ? std::optional<std::size_t>(parcels) : std::nullopt;
}

std::string landxml_point_names(const OGRFeature& feature)
{
    const char* const names = const_cast<OGRFeature&>(feature).GetNativeData();
    return names != nullptr ? names : "";
}

}  // namespace tool
