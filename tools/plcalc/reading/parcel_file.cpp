#include "reading/parcel_file.h"

#include <utility>

#include <cpl_conv.h>

#include "files/vector_file.h"
#include "reading/boundary.h"
#include "reading/crs.h"
#include "reading/csv.h"

namespace tool {
namespace {

// A chord for every tenth of a degree. A shorter arc differs from its chord by less than half a millimetre at
// a radius of a kilometre.
constexpr const char* kFineArcStep = "0.1";

bool is_table_of_points(GDALDataset& dataset, const std::vector<OGRLayer*>& layers)
{
    return is_format(dataset, "CSV") && layers.size() == 1 && layers[0]->GetGeomType() == wkbNone &&
           find_point_columns(*layers[0]->GetLayerDefn());
}

}  // namespace

ParcelFile::ParcelFile(const Source& source) : source_(source)
{
    GDALAllRegister();
    messages_.clear();
    dataset_ = open_or_refuse(source_.file, messages_);
    const std::vector<OGRLayer*> layers = named_layers(*dataset_, source_);
    of_points_ = is_table_of_points(*dataset_, layers);
    if (!of_points_) {
        choice_ = choose_layer(*dataset_, source_, messages_);
        if (is_format(*dataset_, "DXF"))
            open_with_fine_arcs();
        return;
    }
    if (source_.feature || source_.where)
        throw Failure(ExitStatus::wrong_use, {source_.file, ""}, "its rows are the vertices of one parcel",
                      std::string("leave ") + (source_.feature ? "--feature" : "--where") + " out");
    messages_.clear();
    choice_.layer = layers[0];
    choice_.parcels.add([&] { return source_.file; });
}

// The DXF reader silently replaces arcs with chords, as many as OGR_ARC_STEPSIZE asks for. A boundary with
// more vertices when it is read again with finer steps has an arc.
void ParcelFile::open_with_fine_arcs()
{
    fine_dataset_ = open_or_refuse(source_.file, messages_);
    fine_layer_ = fine_dataset_->GetLayerByName(choice_.layer->GetName());
    if (fine_layer_ != nullptr)
        set_filter(*fine_layer_, source_, messages_);
}

// Null where the file is not read twice.
OGRFeatureUniquePtr ParcelFile::next_with_fine_arcs()
{
    if (fine_layer_ == nullptr)
        return nullptr;
    CPLSetThreadLocalConfigOption("OGR_ARC_STEPSIZE", kFineArcStep);
    OGRFeatureUniquePtr finer(fine_layer_->GetNextFeature());
    CPLSetThreadLocalConfigOption("OGR_ARC_STEPSIZE", nullptr);
    return finer;
}

void ParcelFile::require_straight(const OGRFeature& feature, OGRFeature* finer, const Place& place) const
{
    if (finer == nullptr || finer->GetFID() != feature.GetFID() || finer->GetGeometryRef() == nullptr)
        throw Failure(ExitStatus::unusable_input, place,
                      "the boundary could not be read a second time, to look for arcs",
                      "leave the file alone until plcalc is done");
    if (finer->GetGeometryRef()->WkbSize() != feature.GetGeometryRef()->WkbSize())
        throw Failure(ExitStatus::unusable_input, place, "the boundary has arcs",
                      "replace them with chords in the drawing first");
}

// Completes a parcel whose place is known.
void ParcelFile::complete(const OGRFeature& feature, OGRFeature* finer, Parcel& parcel) const
{
    if (is_format(*dataset_, "CSV") && has_broken_wkt(feature))
        throw broken_wkt(feature, parcel.place);
    const OGRGeometry* geometry = feature.GetGeometryRef();
    if (geometry == nullptr)
        throw without_geometry(parcel.place);
    plparcel::Ring ring = ring_of(*geometry, parcel.place);
    const OGRSpatialReference* const crs = geometry->getSpatialReference();
    const bool crs_stated = !is_format(*dataset_, "GeoJSON") && !is_format(*dataset_, "GeoJSONSeq");
    require_plane(crs, crs_stated, ring, parcel.place);
    if (fine_dataset_ != nullptr)
        require_straight(feature, finer, parcel.place);
    parcel.ring = std::move(ring);
    parcel.unit = unit_of(crs);
}

ReadParcel ParcelFile::read_points_as_parcel()
{
    const Place file = {source_.file, ""};
    std::vector<PL_PNT2D_record> points =
        read_points(*choice_.layer, *find_point_columns(*choice_.layer->GetLayerDefn()), file);
    if (!messages_.text().empty())
        throw Failure(ExitStatus::unusable_input, file, "the table cannot be read" + messages_.remark(),
                      "correct it");
    drop_closing_vertex(points);
    ReadParcel read;
    read.parcel = {file, std::move(points), {}};
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
    while (OGRFeatureUniquePtr feature{choice_.layer->GetNextFeature()}) {
        const OGRFeatureUniquePtr finer = next_with_fine_arcs();
        if (!is_parcel(*feature, *dataset_, source_))
            continue;
        ReadParcel read;
        read.parcel.place = {source_.file, feature_name(*feature, *choice_.layer, *dataset_)};
        try {
            complete(*feature, finer.get(), read.parcel);
        } catch (const Failure& failure) {
            read.problem = failure;
        }
        read.feature = std::move(feature);
        return read;
    }
    return std::nullopt;
}

// With the name by which it was opened, whether or not GDAL lists it.
std::vector<std::string> ParcelFile::files() const
{
    std::vector<std::string> files = files_of(*dataset_);
    files.push_back(source_.file);
    return files;
}

void ParcelFile::refuse_several(const std::string& why) const
{
    throw Failure(ExitStatus::wrong_use, {source_.file, ""},
                  "there are " + std::to_string(choice_.parcels.count()) + " parcels (" +
                      choice_.parcels.text() + ")" + (why.empty() ? "" : ", " + why),
                  "choose one with --feature FID");
}

Failure vanished(const Source& source)
{
    return {ExitStatus::unusable_input,
            {source.file, ""},
            "the file changed while it was being read",
            "leave the file alone until plcalc is done"};
}

ReadParcel read_parcel(const Source& source)
{
    ParcelFile file(source);
    if (file.count() > 1)
        file.refuse_several("");
    std::optional<ReadParcel> read = file.next();
    if (!read)
        throw vanished(source);
    if (read->problem)
        throw *read->problem;
    return std::move(*read);
}

}  // namespace tool
