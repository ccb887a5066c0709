#include "writing/layer_writer.h"

#include <filesystem>
#include <system_error>

#include <cpl_conv.h>
#include <cpl_string.h>

#include "answers/heights.h"
#include "console/outcome.h"
#include "files/vector_file.h"
#include "plcalc/kernel.h"
#include "writing/columns.h"
#include "writing/with_heights.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPieces = "pieces";
constexpr const char* kLines = "lines";

std::string lines_file_of(const std::string& file)
{
    const fs::path path(file);
    return (path.parent_path() / (path.stem().string() + "-lines" + path.extension().string())).string();
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

}  // namespace

LayerWriter::LayerWriter(const std::string& file, bool overwrite, const ParcelFile& parcels)
    : file_(file), format_(OutputFormat::for_file(file).value()), output_(file, overwrite, parcels.files())
{
    const OGRSpatialReference* const crs = is_plane(parcels.crs()) ? parcels.crs() : nullptr;
    heights_ = parcels.has_heights();
    if (format_.holds_degrees() && crs == nullptr)
        refuse_format("stores degrees, and the input has no CRS to convert from");
    if (overwrite && format_.keeps_other_layers())
        open_copy();
    if (dataset_ == nullptr)
        create_files(overwrite, parcels);
    make_layers(parcels.columns(), crs);
}

// Where the file is a database already, a copy of it without our layers; no dataset otherwise. The file itself is not
// opened: SQLite may change even what it only reads.
void LayerWriter::open_copy()
{
    std::error_code error;
    if (!fs::exists(output_.target(), error))
        return;
    output_.copy_existing();
    const char* const only[] = {format_.driver().GetDescription(), nullptr};
    dataset_.reset(
        GDALDataset::Open(output_.path().c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE, only, nullptr, nullptr));
    if (dataset_ == nullptr) {
        fs::remove(output_.path(), error);
        return;
    }
    for (int i = dataset_->GetLayerCount() - 1; i >= 0; --i) {
        const std::string name = dataset_->GetLayer(i)->GetName();
        if (EQUAL(name.c_str(), kPieces) || EQUAL(name.c_str(), kLines))
            require(dataset_->DeleteLayer(i) == OGRERR_NONE);
    }
}

void LayerWriter::create_files(bool overwrite, const ParcelFile& parcels)
{
    GDALDriver& driver = format_.driver();
    dataset_.reset(driver.Create(output_.path().c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    require(dataset_ != nullptr);
    if (format_.holds_two_layers())
        return;
    lines_file_ = lines_file_of(file_);
    lines_output_.emplace(lines_file_, overwrite, parcels.files());
    lines_dataset_.reset(driver.Create(lines_output_->path().c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    require(lines_dataset_ != nullptr);
}

void LayerWriter::refuse_format(const std::string& why) const
{
    throw Failure(ExitStatus::wrong_use, {file_, ""},
                  std::string("this format (") + format_.driver().GetDescription() + ") " + why,
                  "name it .gpkg for a GeoPackage");
}

void LayerWriter::require(bool ok) const
{
    if (ok)
        return;
    if (output_.disk_is_full())
        throw disk_full(file_);
    throw Failure(ExitStatus::failed, {file_, ""}, "the file could not be written" + messages_.remark(),
                  "try another format, such as OUT.gpkg");
}

void LayerWriter::make_layers(const OGRFeatureDefn& columns, const OGRSpatialReference* crs)
{
    OGRSpatialReference* const shared = const_cast<OGRSpatialReference*>(crs);
    const bool two_files = lines_dataset_ != nullptr;
    CPLStringList options = format_.layer_options();
    char** const list = options.List();
    GDALDataset& lines_in = two_files ? *lines_dataset_ : *dataset_;
    const std::string pieces_name = two_files ? fs::path(file_).stem().string() : kPieces;
    const std::string lines_name = two_files ? fs::path(lines_file_).stem().string() : kLines;
    dataset_->StartTransaction();
    pieces_ = dataset_->CreateLayer(pieces_name.c_str(), shared, heights_ ? wkbPolygon25D : wkbPolygon, list);
    require(pieces_ != nullptr);
    if (pieces_->GetLayerDefn()->GetGeomFieldCount() == 0)
        refuse_format("cannot store geometry");
    copy_fields(columns, *pieces_, pieces_map_);
    piece_columns_ = make_columns(*pieces_, format_, kPieceColumns);
    lines_ =
        lines_in.CreateLayer(lines_name.c_str(), shared, heights_ ? wkbLineString25D : wkbLineString, list);
    require(lines_ != nullptr);
    copy_fields(columns, *lines_, lines_map_);
    line_columns_ = make_columns(*lines_, format_, kLineColumns);
    messages_.clear();  // drop the warning of a format without columns
}

void LayerWriter::copy_fields(const OGRFeatureDefn& fields, OGRLayer& target, std::vector<int>& map)
{
    for (int i = 0; i < fields.GetFieldCount(); ++i) {
        OGRFieldDefn field(fields.GetFieldDefn(i));
        const bool wanted = !is_wkt_column(field.GetNameRef());
        field.SetName(free_name(target, field.GetNameRef()).c_str());
        map.push_back(wanted ? make_column(target, field, format_) : -1);
    }
}

OGRFeatureUniquePtr LayerWriter::new_feature(OGRLayer& layer, const ReadParcel& read,
                                             const std::vector<int>& map)
{
    OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer.GetLayerDefn()));
    if (read.feature != nullptr && !map.empty())
        feature->SetFieldsFrom(read.feature.get(), map.data(), TRUE);
    return feature;
}

void LayerWriter::create(OGRLayer& layer, OGRFeature& feature)
{
    require(layer.CreateFeature(&feature) == OGRERR_NONE);
    ++(&layer == pieces_ ? pieces_written_ : lines_written_);
}

void LayerWriter::add(const ReadParcel& read, const Answer& answer)
{
    const plparcel::Division& division = answer.printed.proven;
    const GIntBig fid = read.feature != nullptr ? read.feature->GetFID() : 0;
    const Heights known(read.parcel, division.decimals);
    const Heights* const heights = heights_ ? &known : nullptr;
    for (std::size_t i = 0; i < division.pieces.size(); ++i) {
        const plparcel::Piece& piece = division.pieces[i];
        const OGRFeatureUniquePtr feature = new_feature(*pieces_, read, pieces_map_);
        const OGRPolygon polygon = polygon_of(piece.ring, piece.holes, heights);
        feature->SetGeometry(&polygon);
        set(*feature, piece_columns_[0], fid);
        set(*feature, piece_columns_[1], static_cast<int>(i) + 1);
        set(*feature, piece_columns_[2], piece.asked);
        set(*feature, piece_columns_[3], piece.area);
        set(*feature, piece_columns_[4], piece.residual);
        set(*feature, piece_columns_[5], piece.area / division.ring.area);
        set(*feature, piece_columns_[6], static_cast<int>(piece.amount) + 1);
        set(*feature, piece_columns_[7], "divided");
        create(*pieces_, *feature);
    }
    for (const PrintedLine& line : answer.printed.lines) {
        const OGRFeatureUniquePtr feature = new_feature(*lines_, read, lines_map_);
        const OGRLineString segment = line_of(line, heights);
        feature->SetGeometry(&segment);
        set(*feature, line_columns_[0], fid);
        set(*feature, line_columns_[1], static_cast<int>(line.line) + 1);
        set(*feature, line_columns_[2], on_ground(read.parcel, PlFunz_distance(&line.start, &line.end)));
        create(*lines_, *feature);
    }
}

void LayerWriter::add_refused(const ReadParcel& read, const std::string& reason)
{
    const int status = piece_columns_.back();
    if (status < 0)
        return;
    const OGRFeatureUniquePtr feature = new_feature(*pieces_, read, pieces_map_);
    const OGRGeometry* const geometry = read.feature != nullptr ? read.feature->GetGeometryRef() : nullptr;
    if (geometry != nullptr && wkbFlatten(geometry->getGeometryType()) == wkbPolygon) {
        feature->SetGeometry(geometry);
    } else if (!read.parcel.ring.empty()) {
        const OGRPolygon polygon = polygon_of(read.parcel.ring, read.parcel.holes, nullptr);
        feature->SetGeometry(&polygon);
    }
    if (feature->GetGeometryRef() == nullptr && format_.needs_geometry())
        return;
    set(*feature, piece_columns_[0], read.feature != nullptr ? read.feature->GetFID() : GIntBig(0));
    set(*feature, status, ("refused: " + reason).c_str());
    create(*pieces_, *feature);
}

// Reads the file back, because not every format reports a full disk.
void LayerWriter::require_whole(const std::string& file, const std::string& layer, std::size_t features) const
{
    if (features == 0)
        return;  // some formats have no empty layers, or cannot read them
    const GDALDatasetUniquePtr written = open_vector_file(file);
    require(written != nullptr);
    OGRLayer* const found = lines_output_ ? written->GetLayer(0) : written->GetLayerByName(layer.c_str());
    require(found != nullptr);
    leave_columns(*found, true);
    std::size_t count = 0;
    for ([[maybe_unused]] const OGRFeatureUniquePtr& feature : *found)
        ++count;
    require(count == features && !messages_.failed());
}

std::vector<std::string> LayerWriter::commit()
{
    messages_.clear();
    dataset_->CommitTransaction();
    dataset_.reset();
    lines_dataset_.reset();
    require(!messages_.failed());
    require_whole(output_.path(), kPieces, pieces_written_);
    require_whole(lines_output_ ? lines_output_->path() : output_.path(), kLines, lines_written_);
    output_.commit(files_there(output_.target()));
    if (!lines_output_)
        return {file_};
    lines_output_->commit(files_there(lines_output_->target()));
    return {file_, lines_file_};
}

}  // namespace tool
