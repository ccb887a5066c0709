#include "writing/layer_writer.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <cpl_conv.h>
#include <cpl_string.h>

#include "answers/heights.h"
#include "console/outcome.h"
#include "files/vector_file.h"
#include "plcalc/kernel.h"
#include "writing/columns.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPieces = "pieces";
constexpr const char* kLines = "lines";
constexpr const char* kNeighbours = "neighbours";

// OUT-lines.shp of OUT.shp.
std::string file_beside(const std::string& file, const std::string& layer)
{
    const fs::path path(file);
    return (path.parent_path() / (path.stem().string() + "-" + layer + path.extension().string())).string();
}

// CRS and index that other programs put beside a Shapefile, and that GDAL does not list.
const char* const kBesideShapefile[] = {".qpj", ".sbn", ".sbx"};

// The files of an existing dataset that lie beside it and have its name.
std::vector<fs::path> files_there(const std::string& file)
{
    std::error_code error;
    std::vector<fs::path> files;
    if (!fs::exists(file, error))
        return files;
    const GDALDatasetUniquePtr there = open_vector_file(file);
    for (const std::string& name : there != nullptr ? files_of(*there) : std::vector<std::string>()) {
        const fs::path path(name);
        if (path.parent_path() == fs::path(file).parent_path() && path.stem() == fs::path(file).stem())
            files.push_back(path);
    }
    for (const char* ending : kBesideShapefile)
        if (EQUAL(CPLGetExtension(file.c_str()), "shp"))
            files.push_back(fs::path(file).replace_extension(ending));
    return files;
}

bool is_plane(const OGRSpatialReference* crs)
{
    return crs != nullptr && !crs->IsGeographic() && !crs->IsGeocentric();
}

template <typename Value> void set(OGRFeature& feature, int place, const Value& value)
{
    if (place >= 0)
        feature.SetField(place, value);
}

void add_ring(OGRPolygon& polygon, const plparcel::Ring& ring, const Heights* heights)
{
    OGRLinearRing boundary;
    add_points(boundary, ring, heights);
    boundary.closeRings();
    polygon.addRing(&boundary);
}

OGRPolygon polygon_of(const plparcel::Ring& ring, const std::vector<plparcel::Ring>& holes,
                      const Heights* heights)
{
    OGRPolygon polygon;
    add_ring(polygon, ring, heights);
    for (const plparcel::Ring& hole : holes)
        add_ring(polygon, hole, heights);
    return polygon;
}

OGRPolygon polygon_of(const Parcel& parcel)
{
    OGRPolygon polygon;
    for (std::size_t i = 0; i <= parcel.holes.size(); ++i) {
        OGRLinearRing ring = ring_of(parcel, i);
        ring.closeRings();
        polygon.addRing(&ring);
    }
    return polygon;
}

OGRLineString line_of(const PrintedLine& line, const Heights* heights)
{
    OGRLineString segment;
    add_points(segment, {line.start, line.end}, heights);
    return segment;
}

const std::vector<std::pair<const char*, OGRFieldType>> kPieceColumns = {
    {"parcel", OFTInteger64}, {"piece", OFTInteger}, {"asked", OFTReal},     {"area", OFTReal},
    {"residual", OFTReal},    {"share", OFTReal},    {"amount", OFTInteger}, {"status", OFTString}};
const std::vector<std::pair<const char*, OGRFieldType>> kLineColumns = {
    {"parcel", OFTInteger64}, {"line", OFTInteger}, {"length", OFTReal}};
const std::vector<std::pair<const char*, OGRFieldType>> kNeighbourColumns = {
    {"parcel", OFTInteger64}, {"points", OFTInteger}, {"area", OFTReal}, {"change", OFTReal}};

}  // namespace

LayerWriter::LayerWriter(const std::string& file, bool overwrite, const ParcelFile& parcels,
                         const NeighbourHeights& neighbours, const std::vector<std::string>& others)
    : file_(file), format_(OutputFormat::for_file(file).value())
{
    parts_.resize(neighbours ? kNeighboursPart + 1 : kNeighboursPart);
    parts_[kPiecesPart].name = kPieces;
    parts_[kLinesPart].name = kLines;
    if (neighbours)
        parts_[kNeighboursPart].name = kNeighbours;
    for (Part& part : parts_)
        part.file = file;
    parts_.front().output = std::make_unique<PendingOutput>(file, overwrite, parcels.files(), others);
    const OGRSpatialReference* const crs = is_plane(parcels.crs()) ? parcels.crs() : nullptr;
    heights_ = written_of(parcels.heights(), "");
    if (neighbours)
        neighbour_heights_ = written_of(*neighbours, " of neighbours");
    if (format_.holds_degrees() && crs == nullptr)
        refuse_format("stores degrees, and the input has no CRS to convert from");
    if (overwrite && format_.keeps_other_layers())
        open_copy();
    if (parts_.front().dataset == nullptr)
        create_files(overwrite, parcels, others);
    make_layers(parcels.columns(), crs);
}

// What can be written of the heights; why not more, is kept.
LayerWriter::Written LayerWriter::written_of(const KnownHeights& known, const char* whose)
{
    if (!known.any())
        return Written::none;
    const HeightsHeld held = format_.heights_held();
    if (known.all() && held != HeightsHeld::none)
        return Written::all;
    if (held == HeightsHeld::each)
        return Written::some;
    const std::string format = std::string(", and this format (") + format_.driver().GetDescription() + ") ";
    not_held_ += std::string("Heights") + whose + " are not written: " +
                 (held == HeightsHeld::none ? format.substr(2 + 4) + "holds none"
                                            : "some vertices have none" + format + "holds all or none") +
                 "; write a GeoPackage (.gpkg) to keep them\n";
    return Written::none;
}

OGRwkbGeometryType LayerWriter::type_of(OGRwkbGeometryType flat, Written heights)
{
    return heights == Written::none ? flat : wkbSetZ(flat);
}

// A GeoPackage says of each layer that all shapes have heights, or none, or any.
void LayerWriter::declare_optional_heights()
{
    if (!EQUAL(format_.driver().GetDescription(), "GPKG"))
        return;
    for (const Part& part : parts_) {
        const Written heights =
            &part == &parts_[kPiecesPart] || &part == &parts_[kLinesPart] ? heights_ : neighbour_heights_;
        if (heights == Written::some)
            dataset().ReleaseResultSet(dataset().ExecuteSQL(
                ("UPDATE gpkg_geometry_columns SET z = 2 WHERE table_name = '" + part.name + "'").c_str(),
                nullptr, nullptr));
    }
}

std::vector<std::string> LayerWriter::files_for(const std::string& file)
{
    return {file, file_beside(file, kLines), file_beside(file, kNeighbours)};
}

// Where the file is a database already, a copy of it without our layers; no dataset otherwise. The file itself is not
// opened: SQLite may change even what it only reads.
void LayerWriter::open_copy()
{
    std::error_code error;
    if (!fs::exists(output().target(), error))
        return;
    output().copy_existing();
    const char* const only[] = {format_.driver().GetDescription(), nullptr};
    GDALDatasetUniquePtr& copy = parts_.front().dataset;
    copy.reset(
        GDALDataset::Open(output().path().c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE, only, nullptr, nullptr));
    if (copy == nullptr) {
        fs::remove(output().path(), error);
        return;
    }
    for (int i = copy->GetLayerCount() - 1; i >= 0; --i) {
        const std::string name = copy->GetLayer(i)->GetName();
        const auto is_ours = [&](const Part& part) { return EQUAL(name.c_str(), part.name.c_str()); };
        if (std::any_of(parts_.begin(), parts_.end(), is_ours))
            require(copy->DeleteLayer(i) == OGRERR_NONE);
        else if (EQUAL(name.c_str(), kNeighbours))
            left_over_ = "layer " + name + " of " + file_;
    }
}

void LayerWriter::create_files(bool overwrite, const ParcelFile& parcels,
                               const std::vector<std::string>& others)
{
    for (Part& part : parts_) {
        const bool is_first = &part == &parts_.front();
        if (!is_first && format_.holds_two_layers())
            return;
        if (!is_first) {
            part.file = file_beside(file_, part.name);
            part.output = std::make_unique<PendingOutput>(part.file, overwrite, parcels.files(), others);
        }
        part.dataset.reset(
            format_.driver().Create(part.output->path().c_str(), 0, 0, 0, GDT_Unknown, nullptr));
        require(part.dataset != nullptr);
    }
    for (Part& part : parts_)
        part.name = fs::path(part.file).stem().string();
    std::error_code error;
    const std::string beside = file_beside(file_, kNeighbours);
    if (overwrite && parts_.size() <= kNeighboursPart && fs::exists(beside, error))
        left_over_ = beside;
}

void LayerWriter::refuse_format(const std::string& why) const
{
    throw Failure(ExitStatus::wrong_use, {file_, ""},
                  std::string("this format (") + format_.driver().GetDescription() + ") " + why,
                  "write a GeoPackage (.gpkg)");
}

void LayerWriter::require(bool ok) const
{
    if (ok)
        return;
    if (output().disk_is_full())
        throw disk_full(file_);
    throw Failure(ExitStatus::failed, {file_, ""}, "the file could not be written" + messages_.remark(),
                  "try another format, such as GeoPackage (.gpkg)");
}

void LayerWriter::make_layers(const OGRFeatureDefn& columns, const OGRSpatialReference* crs)
{
    OGRSpatialReference* const shared = const_cast<OGRSpatialReference*>(crs);
    dataset().StartTransaction();
    make_layer(parts_[kPiecesPart], type_of(wkbPolygon, heights_), columns, kPieceColumns, shared);
    make_layer(parts_[kLinesPart], type_of(wkbLineString, heights_), columns, kLineColumns, shared);
    if (parts_.size() > kNeighboursPart)
        make_layer(parts_[kNeighboursPart], type_of(wkbPolygon, neighbour_heights_), columns,
                   kNeighbourColumns, shared);
    messages_.clear();  // drop the warning of a format without columns
}

void LayerWriter::make_layer(Part& part, OGRwkbGeometryType type, const OGRFeatureDefn& columns,
                             const std::vector<std::pair<const char*, OGRFieldType>>& own,
                             OGRSpatialReference* crs)
{
    CPLStringList options = format_.layer_options();
    GDALDataset& in = part.dataset != nullptr ? *part.dataset : dataset();
    part.layer = in.CreateLayer(part.name.c_str(), crs, type, options.List());
    require(part.layer != nullptr);
    if (part.layer->GetLayerDefn()->GetGeomFieldCount() == 0)
        refuse_format("cannot store geometry");
    copy_fields(columns, part);
    part.columns = make_columns(*part.layer, format_, own);
}

void LayerWriter::copy_fields(const OGRFeatureDefn& fields, Part& part)
{
    for (int i = 0; i < fields.GetFieldCount(); ++i) {
        OGRFieldDefn field(fields.GetFieldDefn(i));
        const bool wanted = !is_wkt_column(field.GetNameRef());
        field.SetName(free_name(*part.layer, field.GetNameRef()).c_str());
        part.map.push_back(wanted ? make_column(*part.layer, field, format_) : -1);
    }
}

OGRFeatureUniquePtr LayerWriter::new_feature(const Part& part, const ReadParcel& read) const
{
    OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(part.layer->GetLayerDefn()));
    if (read.feature != nullptr && !part.map.empty())
        feature->SetFieldsFrom(read.feature.get(), part.map.data(), TRUE);
    set(*feature, part.columns[0], read.feature != nullptr ? read.feature->GetFID() : GIntBig(0));
    return feature;
}

// Returns whether heights were lost, because a vertex has none.
bool LayerWriter::set_shape(OGRFeature& feature, OGRGeometry& shape, Written heights)
{
    if (heights == Written::none)
        shape.flattenTo2D();
    const bool lost = shape.Is3D() && flatten_unless_all_known(shape);
    feature.SetGeometry(&shape);
    return lost;
}

void LayerWriter::create(Part& part, OGRFeature& feature)
{
    require(part.layer->CreateFeature(&feature) == OGRERR_NONE);
    ++part.written;
}

void LayerWriter::add(const ReadParcel& read, const Answer& answer)
{
    const plparcel::Division& division = answer.printed.proven;
    Part& pieces = parts_[kPiecesPart];
    Part& lines = parts_[kLinesPart];
    const Heights known(answer);
    const Heights* const heights = heights_ != Written::none ? &known : nullptr;
    bool lost = false;
    for (std::size_t i = 0; i < division.pieces.size(); ++i) {
        const plparcel::Piece& piece = division.pieces[i];
        const OGRFeatureUniquePtr feature = new_feature(pieces, read);
        OGRPolygon polygon = polygon_of(piece.ring, piece.holes, heights);
        lost = set_shape(*feature, polygon, heights_) || lost;
        set(*feature, pieces.columns[1], static_cast<int>(i) + 1);
        set(*feature, pieces.columns[2], piece.asked);
        set(*feature, pieces.columns[3], piece.area);
        set(*feature, pieces.columns[4], piece.residual);
        set(*feature, pieces.columns[5], piece.area / division.ring.area);
        set(*feature, pieces.columns[6], static_cast<int>(piece.amount) + 1);
        set(*feature, pieces.columns[7], "divided");
        create(pieces, *feature);
    }
    for (const PrintedLine& line : answer.printed.lines) {
        const OGRFeatureUniquePtr feature = new_feature(lines, read);
        OGRLineString segment = line_of(line, heights);
        lost = set_shape(*feature, segment, heights_) || lost;
        set(*feature, lines.columns[1], static_cast<int>(line.line) + 1);
        set(*feature, lines.columns[2], on_ground(read.parcel, PlFunz_distance(&line.start, &line.end)));
        create(lines, *feature);
    }
    if (lost)
        lost_.add(read.parcel.place);
}

void LayerWriter::add_refused(const ReadParcel& read, const std::string& reason)
{
    Part& pieces = parts_[kPiecesPart];
    const int status = pieces.columns.back();
    if (status < 0)
        return;
    const OGRFeatureUniquePtr feature = new_feature(pieces, read);
    const OGRGeometry* const geometry = read.feature != nullptr ? read.feature->GetGeometryRef() : nullptr;
    bool lost = false;
    if (geometry != nullptr && wkbFlatten(geometry->getGeometryType()) == wkbPolygon &&
        !read.has_new_points) {
        const std::unique_ptr<OGRGeometry> own(geometry->clone());
        lost = set_shape(*feature, *own, heights_);
    } else if (!read.parcel.ring.empty()) {
        OGRPolygon polygon = polygon_of(read.parcel);
        lost = set_shape(*feature, polygon, heights_);
    }
    if (feature->GetGeometryRef() == nullptr && format_.needs_geometry())
        return;
    set(*feature, status, ("refused: " + reason).c_str());
    create(pieces, *feature);
    if (lost)
        lost_.add(read.parcel.place);
}

void LayerWriter::add_neighbour(const ReadParcel& read, const Insertion& insertion)
{
    Part& neighbours = parts_[kNeighboursPart];
    const OGRFeatureUniquePtr feature = new_feature(neighbours, read);
    OGRPolygon polygon = polygon_of(read.parcel);
    if (set_shape(*feature, polygon, neighbour_heights_))
        lost_.add(read.parcel.place);
    set(*feature, neighbours.columns[1], static_cast<int>(insertion.points));
    const double square = read.parcel.ground_factor * read.parcel.ground_factor;
    set(*feature, neighbours.columns[2], check(read.parcel).area / square);
    set(*feature, neighbours.columns[3], insertion.area_change);
    create(neighbours, *feature);
}

// Reads the file back, because not every format reports a full disk.
void LayerWriter::require_whole(const Part& part) const
{
    if (part.written == 0)
        return;  // some formats have no empty layers, or cannot read them
    const bool alone = parts_.back().output != nullptr;
    const GDALDatasetUniquePtr written =
        open_vector_file((part.output != nullptr ? *part.output : output()).path());
    require(written != nullptr);
    OGRLayer* const found = alone ? written->GetLayer(0) : written->GetLayerByName(part.name.c_str());
    require(found != nullptr);
    leave_columns(*found, true);
    std::size_t count = 0;
    for ([[maybe_unused]] const OGRFeatureUniquePtr& feature : *found)
        ++count;
    require(count == part.written && !messages_.failed());
}

std::vector<std::string> LayerWriter::commit()
{
    messages_.clear();
    declare_optional_heights();
    dataset().CommitTransaction();
    for (Part& part : parts_)
        part.dataset.reset();
    require(!messages_.failed());
    for (const Part& part : parts_)
        require_whole(part);
    std::vector<std::string> files;
    for (Part& part : parts_)
        if (part.output != nullptr) {
            part.output->commit(files_there(part.output->target()));
            files.push_back(part.file);
        }
    return files;
}

}  // namespace tool
