#include "writing/landxml_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <set>
#include <utility>

#include <cpl_conv.h>
#include <libxml/xmlIO.h>

#include "answers/division_points.h"
#include "answers/heights.h"
#include "console/outcome.h"
#include "files/xml_reader.h"
#include "reading/crs.h"
#include "text/numbers.h"

namespace tool {
namespace {

const xmlChar* xml(const char* text)
{
    return reinterpret_cast<const xmlChar*>(text);
}

// When the file is made; SOURCE_DATE_EPOCH makes two runs the same.
std::tm now()
{
    const char* const stated = std::getenv("SOURCE_DATE_EPOCH");
    const std::time_t seconds =
        stated != nullptr ? static_cast<std::time_t>(std::strtoll(stated, nullptr, 10)) : std::time(nullptr);
    std::tm time = {};
    gmtime_r(&seconds, &time);
    return time;
}

std::string formatted(const std::tm& time, const char* format)
{
    std::array<char, 32> text = {};
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

// All digits and no exponent, which not every reader takes.
std::string plain(double value)
{
    std::array<char, 400> text = {};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return {text.data(), end.ptr};
}

// Northing, easting and height.
std::string coordinates(const PL_PNT2D_record& p, const std::optional<double>& height)
{
    return plain(p.y) + " " + plain(p.x) + (height ? " " + plain(*height) : "");
}

bool is_finite(const plparcel::Ring& ring)
{
    return std::all_of(ring.begin(), ring.end(),
                       [](const PL_PNT2D_record& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

}  // namespace

bool LandXmlWriter::writes(const std::string& file)
{
    const std::string ending = CPLGetExtension(file.c_str());
    return EQUAL(ending.c_str(), "xml") || EQUAL(ending.c_str(), "landxml");
}

LandXmlWriter::LandXmlWriter(const std::string& file, bool overwrite, const ParcelFile& parcels,
                             const std::vector<std::string>& others)
    : file_(file), output_(file, overwrite, parcels.files(), others),
      unit_(landxml_unit(unit_of(parcels.crs()).metres)), several_parcels_(parcels.count() > 1),
      points_(nullptr, xmlFreeTextWriter), parcels_(nullptr, xmlFreeTextWriter)
{
    const LengthUnit unit = unit_of(parcels.crs());
    if (unit.name.empty())
        throw Failure(ExitStatus::wrong_use, {file_, ""},
                      "LandXML states a unit of length, and the input has none",
                      "name the CRS, as in --crs EPSG:25832 or, for a site in metres, --crs "
                      "'LOCAL_CS[\"site\",UNIT[\"metre\",1]]'");
    if (unit_ == nullptr)
        throw Failure(ExitStatus::wrong_use, {file_, ""}, "LandXML has no unit of length " + unit.name,
                      "write a GeoPackage (.gpkg)");
    silence_xml_errors();
    points_file_ = std::fopen(output_.path().c_str(), "wb");
    parcels_file_ = std::tmpfile();
    require(points_file_ != nullptr && parcels_file_ != nullptr);
    points_ = writer_to(points_file_);
    parcels_ = writer_to(parcels_file_);
    write_head(parcels);
}

LandXmlWriter::~LandXmlWriter()
{
    points_.reset();
    parcels_.reset();
    for (std::FILE* file : {points_file_, parcels_file_})
        if (file != nullptr)
            std::fclose(file);
}

void LandXmlWriter::require(bool ok) const
{
    if (ok)
        return;
    if (output_.disk_is_full())
        throw disk_full(file_);
    throw Failure(ExitStatus::failed, {file_, ""}, "the file could not be written",
                  "check the folder and the room on the disk");
}

// The file stays open when the writer goes.
LandXmlWriter::Writer LandXmlWriter::writer_to(std::FILE* file) const
{
    xmlOutputBuffer* const buffer = xmlOutputBufferCreateFile(file, nullptr);
    require(buffer != nullptr);
    Writer writer(xmlNewTextWriter(buffer), xmlFreeTextWriter);
    require(writer != nullptr);
    xmlTextWriterSetIndent(writer.get(), 1);
    return writer;
}

void LandXmlWriter::start(const Writer& writer, const char* element, const Attributes& attributes) const
{
    require(xmlTextWriterStartElement(writer.get(), xml(element)) >= 0);
    for (const auto& [name, value] : attributes)
        require(xmlTextWriterWriteAttribute(writer.get(), xml(name), xml(value.c_str())) >= 0);
}

void LandXmlWriter::end(const Writer& writer) const
{
    require(xmlTextWriterEndElement(writer.get()) >= 0);
}

void LandXmlWriter::text(const Writer& writer, const std::string& words) const
{
    require(xmlTextWriterWriteString(writer.get(), xml(words.c_str())) >= 0);
}

void LandXmlWriter::write_head(const ParcelFile& parcels)
{
    const std::tm time = now();
    require(xmlTextWriterStartDocument(points_.get(), nullptr, "UTF-8", nullptr) >= 0);
    start(points_, "LandXML",
          {{"xmlns", kLandXml},
           {"version", "1.2"},
           {"date", formatted(time, "%Y-%m-%d")},
           {"time", formatted(time, "%H:%M:%S")}});
    start(points_, "Units", {});
    const std::string area = *unit_->area != '\0' ? unit_->area : "squareMeter";
    start(points_, unit_->metric ? "Metric" : "Imperial",
          {{"areaUnit", area},
           {"linearUnit", unit_->name},
           {"volumeUnit", unit_->metric ? "cubicMeter" : "cubicFeet"},
           {"temperatureUnit", unit_->metric ? "celsius" : "fahrenheit"},
           {"pressureUnit", unit_->metric ? "HPA" : "inHG"}});
    end(points_);
    end(points_);
    const char* const code = parcels.crs()->GetAuthorityCode(nullptr);
    const char* const authority = parcels.crs()->GetAuthorityName(nullptr);
    const std::string name = crs_name(parcels.crs());
    if (code != nullptr && authority != nullptr && EQUAL(authority, "EPSG")) {
        start(points_, "CoordinateSystem", {{"name", name}, {"epsgCode", code}});
        end(points_);
    }
    start(points_, "Application", {{"name", "plcalc"}});
    end(points_);
    start(points_, "CgPoints", {});
    start(parcels_, "Parcels", {});
}

void LandXmlWriter::write_boundary(const std::vector<Corner>& corners)
{
    start(parcels_, "CoordGeom", {});
    const auto write_end = [&](const char* element, const Corner& corner) {
        start(parcels_, element, corner.first.empty() ? Attributes() : Attributes{{"pntRef", corner.first}});
        if (corner.first.empty())
            text(parcels_, corner.second);
        end(parcels_);
    };
    for (std::size_t i = 0; i < corners.size(); ++i) {
        start(parcels_, "Line", {});
        write_end("Start", corners[i]);
        write_end("End", corners[(i + 1) % corners.size()]);
        end(parcels_);
    }
    end(parcels_);
}

void LandXmlWriter::write_parcel(const Attributes& attributes,
                                 const std::vector<std::vector<Corner>>& boundaries)
{
    start(parcels_, "Parcel", attributes);
    for (const std::vector<Corner>& boundary : boundaries)
        write_boundary(boundary);
    end(parcels_);
    ++written_;
}

std::string LandXmlWriter::parcel_name(const ReadParcel& read) const
{
    return read.parcel.place.name.empty() && several_parcels_ ? std::to_string(parcels_read_)
                                                              : read.parcel.place.name;
}

void LandXmlWriter::add(const ReadParcel& read, const Answer& answer)
{
    ++parcels_read_;
    const DivisionPoints points = points_of(answer);
    const Heights heights(answer);
    const std::string prefix = several_parcels_ ? std::to_string(parcels_read_) + "." : "";
    std::set<std::string> taken;
    std::vector<Corner> corners;
    for (std::size_t i = 0; i < points.points.size(); ++i) {
        const DivisionPoint& point = points.points[i];
        std::string name = prefix + point.name;
        for (int again = 2; !taken.insert(name).second; ++again)
            name = prefix + point.name + "_" + std::to_string(again);
        start(points_, "CgPoint", {{"name", name}, {"code", point.code()}});
        text(points_, coordinates(point.at, heights.at(point.at)));
        end(points_);
        corners.emplace_back(name, "");
    }
    for (std::size_t i = 0; i < points.pieces.size(); ++i) {
        Attributes attributes = {{"name", piece_title(parcel_name(read), i)}};
        if (*unit_->area != '\0')
            attributes.emplace_back("area", plain(answer.printed.areas[i]));
        attributes.emplace_back("state", "proposed");
        std::vector<std::vector<Corner>> boundaries;
        const auto add = [&](const std::vector<std::size_t>& ring) {
            boundaries.emplace_back();
            for (const std::size_t corner : ring)
                boundaries.back().push_back(corners[corner]);
        };
        add(points.pieces[i].ring);
        for (const std::vector<std::size_t>& hole : points.pieces[i].holes)
            add(hole);
        write_parcel(attributes, boundaries);
    }
}

void LandXmlWriter::add_refused(const ReadParcel& read, const std::string& reason)
{
    ++parcels_read_;
    write_undivided(read, parcel_name(read), "refused: " + reason);
}

void LandXmlWriter::add_neighbour(const ReadParcel& read, const Insertion& insertion)
{
    const std::string& name = read.parcel.place.name;
    write_undivided(read, name.empty() ? read.parcel.place.feature : name,
                    "neighbour with new points: " + std::to_string(insertion.points));
}

void LandXmlWriter::write_undivided(const ReadParcel& read, const std::string& name, const std::string& words)
{
    std::vector<std::vector<Corner>> boundaries;
    for (std::size_t k = 0; k <= read.parcel.holes.size(); ++k) {
        const plparcel::Ring& ring = k == 0 ? read.parcel.ring : read.parcel.holes[k - 1];
        if (ring.empty() || !is_finite(ring))
            return;
        boundaries.emplace_back();
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const std::size_t vertex = number_of(read.parcel, k, i);
            const bool has_heights = !read.parcel.heights.empty();
            boundaries.back().emplace_back(
                "",
                coordinates(ring[i], has_heights ? known_height(read.parcel.heights[vertex]) : std::nullopt));
        }
    }
    write_parcel({{"name", name}, {"desc", words}, {"state", "existing"}}, boundaries);
}

// Ends the parcels and puts them behind the points.
void LandXmlWriter::append_parcels()
{
    require(xmlTextWriterEndDocument(parcels_.get()) >= 0);
    parcels_.reset();
    require(std::fflush(parcels_file_) == 0 && std::ferror(parcels_file_) == 0);
    std::rewind(parcels_file_);
    std::vector<char> block(1 << 16);
    for (std::size_t size; (size = std::fread(block.data(), 1, block.size(), parcels_file_)) > 0;)
        require(xmlTextWriterWriteRawLen(points_.get(), xml(block.data()), static_cast<int>(size)) >= 0);
    require(std::ferror(parcels_file_) == 0);
}

std::vector<std::string> LandXmlWriter::commit()
{
    end(points_);  // the points
    append_parcels();
    require(xmlTextWriterEndDocument(points_.get()) >= 0);
    points_.reset();
    const bool whole = std::ferror(points_file_) == 0;
    const bool closed = std::fclose(points_file_) == 0;
    points_file_ = nullptr;
    require(whole && closed && count_landxml_parcels(output_.path()) == written_);
    output_.commit();
    return {file_};
}

}  // namespace tool
