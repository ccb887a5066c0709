#include "reading/parcel_reader.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

#include <cpl_conv.h>
#include <cpl_string.h>

#include "files/vector_file.h"
#include "reading/boundary.h"
#include "reading/csv_points.h"

namespace tool {
namespace {

// A list longer than this is not read, it is looked up.
constexpr std::size_t kMaxListed = 5;

// A text longer than this is quoted by its beginning.
constexpr std::size_t kMaxQuoted = 40;

constexpr const char* kNoGeometry =
    "it has no geometry; draw the parcel or choose another feature with --feature";

// Chords for every tenth of a degree: an arc shorter than that stands out from its chord by less than half a
// millimetre at a radius of a kilometre.
constexpr const char* kFineArcStep = "0.1";

[[noreturn]] void refuse(const std::string& where, const std::string& what)
{
    throw Failure(ExitStatus::unusable_input, where + ": " + what);
}

std::string why_not_opened(const std::string& file, const GdalMessages& messages)
{
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(file, ignored);
    if (!std::filesystem::exists(status))
        return "there is no such file" + messages.remark() + "; check the name";
    if (std::filesystem::is_directory(status))
        return "this is a directory in which GDAL finds no vector file; name the file itself";
    if (!std::ifstream(file).good())
        return "the file may not be read; check its permissions";
    if (std::filesystem::is_regular_file(status) && std::filesystem::file_size(file, ignored) == 0)
        return "the file is empty; write the parcel to it again";
    if (EQUAL(CPLGetExtension(file.c_str()), "csv"))
        return "not a table that GDAL can read; a CSV file needs a header and at least two columns";
    return "not a vector file that GDAL can read" + messages.remark() +
           "; convert it, for example to GeoPackage";
}

// The geometry of a CSV row as it stands there; empty in other formats.
std::string wkt_of(const OGRFeature& feature)
{
    const CPLStringList columns(CSLTokenizeString2(kWktColumns, ",", 0));
    for (int i = 0; i < columns.Count(); ++i) {
        const int field = feature.GetFieldIndex(columns[i]);
        if (field >= 0)
            return feature.GetFieldAsString(field);
    }
    return "";
}

std::string quoted(const std::string& text)
{
    return "'" + (text.size() > kMaxQuoted ? text.substr(0, kMaxQuoted) + "..." : text) + "'";
}

// A row whose WKT is broken comes without a geometry. It may be the parcel that is meant.
bool has_broken_wkt(const OGRFeature& feature)
{
    return feature.GetGeometryRef() == nullptr && !wkt_of(feature).empty();
}

[[noreturn]] void refuse_broken_wkt(const OGRFeature& feature, const std::string& where)
{
    const std::string wkt = wkt_of(feature);
    const bool nan = CPLString(wkt).ifind("nan") != std::string::npos;
    refuse(where, "its WKT " + quoted(wkt) + " cannot be read" +
                      (nan ? ", a coordinate in it is not a number" : "") + "; correct it");
}

void require_open(bool opened, const std::string& file, const GdalMessages& messages)
{
    if (!opened)
        refuse(file, why_not_opened(file, messages));
}

std::vector<OGRLayer*> chosen_layers(GDALDataset& dataset, const Source& source)
{
    std::vector<OGRLayer*> layers;
    std::string names;
    for (OGRLayer* layer : dataset.GetLayers()) {
        if (!source.layer || *source.layer == layer->GetName())
            layers.push_back(layer);
        names += (names.empty() ? "" : ", ") + std::string(layer->GetName());
    }
    if (layers.empty() && source.layer)
        throw Failure(ExitStatus::wrong_use, source.file + ": there is no layer '" + *source.layer +
                                                 "'; it has " + (names.empty() ? "none" : names));
    return layers;
}

// A database understands a filter, or does not, when the first feature is asked for.
void set_filter(OGRLayer& layer, const Source& source, GdalMessages& messages)
{
    if (!source.where)
        return;
    messages.clear();
    const bool set = layer.SetAttributeFilter(source.where->c_str()) == OGRERR_NONE;
    if (set)
        OGRFeatureUniquePtr(layer.GetNextFeature());
    layer.ResetReading();
    if (!set || messages.failed())
        throw Failure(ExitStatus::wrong_use, source.file + ": --where '" + *source.where +
                                                 "' cannot be understood" + messages.remark() +
                                                 "; compare columns as in \"owner = 'Rossi'\"");
}

}  // namespace

// What a layer holds.
struct ParcelFile::Count {
    std::size_t parcels = 0;
    std::size_t others = 0;
    std::string other_kind;          // geometry of the first that bounds no area
    std::string without_geometry;    // name of the first without any, though it could have one
    std::vector<std::string> names;  // of the first parcels
};

ParcelFile::ParcelFile(const Source& source) : source_(source)
{
    GDALAllRegister();
    messages_.clear();
    dataset_ = open_vector_file(source_.file);
    require_open(dataset_ != nullptr, source_.file, messages_);
    const std::vector<OGRLayer*> layers = chosen_layers(*dataset_, source_);
    opening_remark_ = messages_.remark();
    messages_.clear();
    if (is_format("CSV") && layers.size() == 1 && layers[0]->GetGeomType() == wkbNone &&
        find_point_columns(*layers[0]->GetLayerDefn())) {
        if (source_.feature || source_.where)
            throw Failure(ExitStatus::wrong_use, source_.file +
                                                     ": its rows are the vertices of one parcel; leave " +
                                                     (source_.feature ? "--feature" : "--where") + " out");
        of_points_ = true;
        layer_ = layers[0];
        count_ = 1;
        return;
    }
    for (OGRLayer* layer : layers)
        set_filter(*layer, source_, messages_);
    choose_layer(layers);
    layer_->ResetReading();
    if (is_format("DXF"))
        rewind_with_fine_arcs();
}

bool ParcelFile::is_format(const char* name) const
{
    return dataset_->GetDriver() != nullptr && EQUAL(dataset_->GetDriverName(), name);
}

// The layer is named only where there are several.
std::string ParcelFile::name_of(const OGRFeature& feature, OGRLayer& layer) const
{
    const std::string number = "feature " + std::to_string(feature.GetFID());
    return dataset_->GetLayerCount() > 1 ? "layer " + std::string(layer.GetName()) + ": " + number : number;
}

bool ParcelFile::fits(const OGRFeature& feature) const
{
    if (source_.feature)
        return feature.GetFID() == *source_.feature;
    const OGRGeometry* geometry = feature.GetGeometryRef();
    return geometry != nullptr ? bounds_area(*geometry) : is_format("CSV") && has_broken_wkt(feature);
}

ParcelFile::Count ParcelFile::count_in(OGRLayer& layer)
{
    Count count;
    for (const OGRFeatureUniquePtr& feature : layer) {
        if (fits(*feature)) {
            ++count.parcels;
            if (count.names.size() < kMaxListed)
                count.names.push_back(name_of(*feature, layer));
            continue;
        }
        ++count.others;
        const OGRGeometry* geometry = feature->GetGeometryRef();
        if (geometry != nullptr && count.other_kind.empty())
            count.other_kind = geometry->getGeometryName();
        if (geometry == nullptr && layer.GetGeomType() != wkbNone && count.without_geometry.empty())
            count.without_geometry = name_of(*feature, layer);
    }
    if (messages_.failed())
        refuse(source_.file, "it cannot be read to its end" + messages_.remark() + "; repair it");
    return count;
}

void ParcelFile::choose_layer(const std::vector<OGRLayer*>& layers)
{
    Count none;
    std::string list;
    std::size_t with_parcels = 0;
    for (OGRLayer* layer : layers) {
        const Count count = count_in(*layer);
        if (count.parcels == 0) {
            none.others += count.others;
            if (none.other_kind.empty())
                none.other_kind = count.other_kind;
            if (none.without_geometry.empty())
                none.without_geometry = count.without_geometry;
            continue;
        }
        ++with_parcels;
        list +=
            (list.empty() ? "" : ", ") + std::string(layer->GetName()) + ": " + std::to_string(count.parcels);
        layer_ = layer;
        count_ = count.parcels;
        passed_over_ = count.others;
        first_names_ = count.names;
    }
    if (with_parcels == 0)
        refuse_nothing_found(none);
    if (with_parcels > 1)
        throw Failure(ExitStatus::wrong_use, source_.file + ": several layers hold parcels (" + list +
                                                 "); choose one with --layer NAME");
}

void ParcelFile::refuse_nothing_found(const Count& count) const
{
    if (source_.feature)
        throw Failure(ExitStatus::wrong_use, source_.file + ": there is no feature " +
                                                 std::to_string(*source_.feature) +
                                                 (source_.where ? " that --where lets through" : "") +
                                                 "; list them with ogrinfo -al");
    if (count.others == 0 && source_.where)
        throw Failure(ExitStatus::wrong_use, source_.file + ": --where '" + *source_.where +
                                                 "' lets no feature through; list them with ogrinfo -al");
    if (count.others == 0)
        refuse(source_.file,
               "there is no feature in it" + opening_remark_ + "; draw the parcel as a polygon");
    if (count.other_kind.empty() && !count.without_geometry.empty())
        refuse(source_.file + ": " + count.without_geometry, kNoGeometry);
    std::string what =
        "there is no polygon and no closed line in it (features: " + std::to_string(count.others);
    what += count.other_kind.empty() ? ")" : ", the first a " + count.other_kind + ")";
    if (is_format("CSV"))
        what += "; a CSV file needs a header and a column WKT, or a vertex per row in columns E and N";
    else
        what += "; draw the parcel as a polygon";
    refuse(source_.file, what);
}

// The DXF reader replaces arcs by chords without telling, as many as OGR_ARC_STEPSIZE asks for. A boundary
// that grows when it is read again with finer steps had an arc.
void ParcelFile::rewind_with_fine_arcs()
{
    fine_dataset_ = open_vector_file(source_.file);
    require_open(fine_dataset_ != nullptr, source_.file, messages_);
    fine_layer_ = fine_dataset_->GetLayerByName(layer_->GetName());
    if (fine_layer_ != nullptr)
        set_filter(*fine_layer_, source_, messages_);
}

void ParcelFile::require_straight(const OGRFeature& feature, OGRFeature* finer,
                                  const std::string& where) const
{
    if (finer == nullptr || finer->GetFID() != feature.GetFID() || finer->GetGeometryRef() == nullptr)
        refuse(where, "it could not be read a second time, to look for arcs; leave the file as it is");
    if (finer->GetGeometryRef()->WkbSize() != feature.GetGeometryRef()->WkbSize())
        refuse(where, "the boundary has arcs; replace them by chords in the drawing first");
}

Parcel ParcelFile::check(const OGRFeature& feature, OGRFeature* finer, const std::string& where) const
{
    if (is_format("CSV") && has_broken_wkt(feature))
        refuse_broken_wkt(feature, where);
    const OGRGeometry* geometry = feature.GetGeometryRef();
    if (geometry == nullptr)
        refuse(where, kNoGeometry);
    plparcel::Ring ring = usable_ring(*geometry, where);
    const bool crs_stated = !is_format("GeoJSON") && !is_format("GeoJSONSeq");
    require_plane(geometry->getSpatialReference(), crs_stated, ring, where);
    if (fine_dataset_ != nullptr)
        require_straight(feature, finer, where);
    return {where, std::move(ring)};
}

ReadParcel ParcelFile::read_points_as_parcel()
{
    ReadParcel read;
    read.file = source_.file;
    std::vector<PL_PNT2D_record> points =
        read_points(*layer_, *find_point_columns(*layer_->GetLayerDefn()), source_.file);
    if (!messages_.text().empty())
        refuse(source_.file, "the table cannot be read" + messages_.remark() + "; correct it");
    read.parcel = {source_.file, usable_ring(std::move(points), source_.file)};
    return read;
}

std::optional<ReadParcel> ParcelFile::next()
{
    if (of_points_) {
        if (points_done_)
            return std::nullopt;
        points_done_ = true;
        return read_points_as_parcel();
    }
    while (OGRFeatureUniquePtr feature{layer_->GetNextFeature()}) {
        OGRFeatureUniquePtr finer;
        if (fine_layer_ != nullptr) {
            CPLSetThreadLocalConfigOption("OGR_ARC_STEPSIZE", kFineArcStep);
            finer.reset(fine_layer_->GetNextFeature());
            CPLSetThreadLocalConfigOption("OGR_ARC_STEPSIZE", nullptr);
        }
        if (!fits(*feature))
            continue;
        ReadParcel read;
        read.file = source_.file;
        read.name = name_of(*feature, *layer_);
        read.parcel.where = source_.file + ": " + read.name;
        try {
            read.parcel = check(*feature, finer.get(), read.parcel.where);
        } catch (const Failure& failure) {
            read.problem = failure;
        }
        read.feature = std::move(feature);
        return read;
    }
    return std::nullopt;
}

void ParcelFile::refuse_choice(const std::string& why) const
{
    std::string list;
    for (const std::string& name : first_names_)
        list += (list.empty() ? "" : ", ") + name;
    if (count_ > first_names_.size())
        list += ", ...";
    throw Failure(ExitStatus::wrong_use, source_.file + ": there are " + std::to_string(count_) +
                                             " parcels (" + list + ")" + (why.empty() ? "" : ", " + why) +
                                             "; choose one with --feature FID");
}

ReadParcel read_parcel(const Source& source)
{
    ParcelFile file(source);
    if (file.count() > 1)
        file.refuse_choice("");
    std::optional<ReadParcel> read = file.next();
    if (!read)
        refuse(source.file, "it cannot be read a second time; leave the file as it is");
    if (read->problem)
        throw *read->problem;
    return std::move(*read);
}

}  // namespace tool
