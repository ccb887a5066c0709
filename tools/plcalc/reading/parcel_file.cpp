#include "reading/parcel_file.h"

#include <algorithm>
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
    if (is_table_of_points(*dataset_, layers)) {
        open_table(*layers[0]);
        return;
    }
    choice_ = choose_layer(*dataset_, source_, messages_);
    if (is_format(*dataset_, "DXF"))
        open_with_fine_arcs();
}

void ParcelFile::open_table(OGRLayer& layer)
{
    const Place file = {source_.file, ""};
    messages_.clear();
    table_.emplace(layer, file);
    if (!messages_.text().empty())
        throw Failure(ExitStatus::unusable_input, file, "the table cannot be read" + messages_.remark(),
                      "correct it");
    if (!table_->names_parcels() && (source_.feature || source_.where))
        throw Failure(ExitStatus::wrong_use, file, "its rows are the vertices of one parcel",
                      std::string("leave ") + (source_.feature ? "--feature" : "--where") + " out");
    choose_in_table(layer);
    choice_.layer = &layer;
    for (const TableParcel& parcel : table_->parcels())
        choice_.parcels.add([&] { return parcel.name.empty() ? source_.file : parcel.name; });
}

// Keeps the parcels that the source asks for.
void ParcelFile::choose_in_table(OGRLayer& layer)
{
    std::vector<TableParcel>& parcels = table_->parcels();
    if (source_.feature)
        parcels.erase(std::remove_if(parcels.begin(), parcels.end(),
                                     [&](const TableParcel& parcel) {
                                         return parcel.feature->GetFID() != *source_.feature;
                                     }),
                      parcels.end());
    if (source_.where) {
        const std::vector<bool> passes = rows_that_pass(layer);
        std::vector<TableParcel> chosen;
        for (TableParcel& parcel : parcels) {
            const auto first = passes.begin() + parcel.first_row;
            const auto end = passes.begin() + parcel.last_row + 1;
            const auto passed = std::count(first, end, true);
            if (passed != 0 && passed != end - first)
                throw Failure(ExitStatus::wrong_use, {source_.file, parcel.name},
                              "--where '" + *source_.where + "' matches only some of its vertices",
                              "compare a column that is the same in all rows of a parcel");
            if (passed != 0)
                chosen.push_back(std::move(parcel));
        }
        parcels = std::move(chosen);
    }
    if (parcels.empty())
        refuse_choice_of_feature(source_, "count the parcels of the table from 1");
}

// By row number.
std::vector<bool> ParcelFile::rows_that_pass(OGRLayer& layer)
{
    std::vector<bool> passes(static_cast<std::size_t>(table_->last_row()) + 1);
    set_filter(layer, source_, messages_);
    for (const OGRFeatureUniquePtr& row : layer)
        passes[static_cast<std::size_t>(row->GetFID())] = true;
    return passes;
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
    parcel.crs = crs_name(crs);
}

ReadParcel ParcelFile::next_of_table()
{
    TableParcel& row = table_->parcels()[next_in_table_++];
    ReadParcel read;
    read.parcel.place = {source_.file, row.name};
    read.parcel.ring = std::move(row.ring);
    read.feature = std::move(row.feature);
    return read;
}

std::optional<ReadParcel> ParcelFile::next()
{
    if (table_ && next_in_table_ == table_->parcels().size())
        return std::nullopt;
    if (table_)
        return next_of_table();
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

const OGRFeatureDefn& ParcelFile::columns() const
{
    return table_ ? table_->columns() : *choice_.layer->GetLayerDefn();
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
                  table_ ? "choose one with --feature and its number in the file, from 1"
                         : "choose one with --feature FID");
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
