#include "reading/parcel_file.h"

#include <sstream>
#include <utility>

#include "files/landxml.h"
#include "files/vector_file.h"
#include "reading/boundary.h"
#include "reading/csv.h"
#include "text/numbers.h"

namespace tool {
namespace {

bool is_table_of_points(GDALDataset& dataset, const std::vector<OGRLayer*>& layers)
{
    return is_format(dataset, "CSV") && layers.size() == 1 && layers[0]->GetGeomType() == wkbNone &&
           find_point_columns(*layers[0]->GetLayerDefn());
}

}  // namespace

ParcelFile::ParcelFile(const Source& source) : source_(source), plane_(source_)
{
    GDALAllRegister();
    messages_.clear();
    opened_.emplace(source_.file, source_.columns);
    dataset_ = open_or_refuse(opened_->name(), messages_, source_.file);
    if (source_.crs)
        crs_ = crs_named(*source_.crs);
    const std::vector<OGRLayer*> layers = named_layers(*dataset_, source_);
    require_drawing_options();
    if (is_table_of_points(*dataset_, layers)) {
        open_table(*layers[0]);
        require_name_column();
        return;
    }
    require_no_axes();
    if (is_format(*dataset_, "DXF"))
        open_drawing();
    else
        choice_ = choose_layer(*dataset_, source_, messages_);
    take_crs_of_file();
    if (is_format(*dataset_, "Memory") && !source_.name_column)
        source_.name_column = "name";  // LandXML
    require_name_column();
}

// The CRS that the file states, where GDAL does not see it; --crs must agree with any that is stated. GeoJSON without a
// CRS is given degrees by GDAL.
void ParcelFile::take_crs_of_file()
{
    const OGRSpatialReference* own = choice_.layer->GetSpatialRef();
    std::optional<OGRSpatialReference> of_srid;
    if (choice_.srid)
        own = &of_srid.emplace(crs_named("EPSG:" + std::to_string(*choice_.srid)));
    if (!crs_)
        crs_ = of_srid;
    if (own == nullptr || !source_.crs || is_placeholder(*own) || own->IsSame(&*crs_))
        return;
    if ((is_format(*dataset_, "GeoJSON") || is_format(*dataset_, "GeoJSONSeq")) && own->IsGeographic())
        return;
    throw Failure(ExitStatus::wrong_use, {source_.file, ""},
                  std::string("the file has a CRS of its own (") + own->GetName() +
                      "), and --crs names another",
                  "leave --crs out, or project the file with ogr2ogr -t_srs " + *source_.crs);
}

void ParcelFile::require_no_axes() const
{
    if (source_.axes)
        throw Failure(ExitStatus::wrong_use, {source_.file, ""}, "--axes is for tables with columns X and Y",
                      "leave --axes out");
}

// What the command line says of all parcels, and what must be said of their heights.
void ParcelFile::complete_from_source(Parcel& parcel) const
{
    parcel.ground_factor = source_.ground_factor;
    parcel.assumed.insert(parcel.assumed.end(), assumed_.begin(), assumed_.end());
    if (source_.ground_factor != 1.0)
        parcel.assumed.push_back("areas and lengths on the ground: ground factor " +
                                 shortest(source_.ground_factor));
    KnownHeights known;
    known.add(parcel.heights);
    if (known.partly())
        parcel.assumed.push_back("not every vertex has a height");
    if (!known.any())
        parcel.heights.clear();
}

// Completes a parcel whose place is known.
void ParcelFile::complete(const OGRFeature& feature, OGRFeature* finer, Parcel& parcel)
{
    if (is_format(*dataset_, "CSV") && has_broken_wkt(feature))
        throw broken_wkt(feature, parcel.place);
    const OGRGeometry* geometry = feature.GetGeometryRef();
    if (geometry == nullptr)
        throw without_geometry(parcel.place);
    if (fine_layer_ != nullptr && is_freeform(feature))
        throw without_splines(parcel.place);
    Boundary boundary = boundary_of(part_of(*geometry, part_), parcel.place, source_.arcs);
    Parcel read;
    read.place = parcel.place;
    read.ring = std::move(boundary.ring);
    read.holes = std::move(boundary.holes);
    read.heights = std::move(boundary.heights);
    const OGRSpatialReference* const crs = crs_ ? &*crs_ : geometry->getSpatialReference();
    const bool stated = crs_ || (!is_format(*dataset_, "GeoJSON") && !is_format(*dataset_, "GeoJSONSeq"));
    plane_.require(crs, stated, read);
    if (fine_layer_ != nullptr && !source_.arcs)
        require_straight(feature, finer, parcel.place);
    name_points(feature, read);
    read.unit = unit_of(crs);
    read.crs = crs_name(crs);
    if (boundary.had_arcs || has_arcs_)
        read.assumed.push_back(words_of_arcs());
    if (closed_)
        add_drawn_holes(feature.GetFieldAsString("Layer"), read);
    complete_from_source(read);
    parcel = std::move(read);
}

// LandXML tells the names of its points.
void ParcelFile::name_points(const OGRFeature& feature, Parcel& parcel) const
{
    if (!is_format(*dataset_, "Memory"))
        return;
    std::istringstream lines(landxml_point_names(feature));
    std::vector<std::string> names;
    for (std::string line; std::getline(lines, line);)
        names.push_back(line);
    if (names.size() == vertex_count(parcel) && parts_ == 1)
        parcel.point_names = std::move(names);
    else if (!names.empty())
        parcel.assumed.push_back("the names of its points are left out, since it has more vertices");
}

void ParcelFile::require_name_column() const
{
    if (source_.name_column)
        require_column(*source_.name_column);
}

void ParcelFile::require_column(const std::string& name) const
{
    if (columns().GetFieldIndex(name.c_str()) >= 0)
        return;
    std::string names;
    for (int i = 0; i < columns().GetFieldCount(); ++i)
        names += (names.empty() ? "" : ", ") + std::string(columns().GetFieldDefn(i)->GetNameRef());
    throw Failure(ExitStatus::wrong_use, {source_.file, ""}, "there is no column '" + name + "'",
                  names.empty() ? "the parcels have none" : "choose one of: " + names);
}

std::string ParcelFile::name_in_column(const OGRFeature& feature) const
{
    return source_.name_column ? feature.GetFieldAsString(source_.name_column->c_str()) : "";
}

std::optional<ReadParcel> ParcelFile::next()
{
    if (table_ && next_in_table_ == table_->parcels().size())
        return std::nullopt;
    if (table_)
        return next_of_table();
    while (feature_ != nullptr || next_feature()) {
        const bool wanted = !source_.part || *source_.part == part_ + 1;
        if (wanted)
            return next_part();
        if (++part_ == parts_)
            feature_.reset();
    }
    if (next_loop_ < loops_.size())
        return next_loop();
    return std::nullopt;
}

// Goes to the next feature that is one or several parcels.
bool ParcelFile::next_feature()
{
    // Where chords take the place of arcs, a circle has one vertex without them; the fine reading tells what it is.
    const bool replace = fine_layer_ != nullptr && source_.arcs;
    const auto next = [&] {
        return replace ? next_without_arcs(*choice_.layer)
                       : OGRFeatureUniquePtr(choice_.layer->GetNextFeature());
    };
    while (!only_loops_ && (feature_ = next()) != nullptr) {
        finer_ = fine_layer_ != nullptr ? next_with_fine_arcs(*fine_layer_) : nullptr;
        if (is_format(*dataset_, "CSV"))
            read_ewkt(*feature_);
        read_missing_heights(*feature_, *choice_.layer, *dataset_, source_);
        if (!is_parcel(replace && finer_ != nullptr ? *finer_ : *feature_, *dataset_, source_))
            continue;
        has_arcs_ = false;
        part_ = 0;
        parts_ = feature_->GetGeometryRef() != nullptr ? parts_of(*feature_->GetGeometryRef()) : 1;
        return true;
    }
    return false;
}

// One part of the feature; its columns and number go with each.
ReadParcel ParcelFile::next_part()
{
    ReadParcel read;
    read.parcel.place = {source_.file,
                         part_name(feature_name(*feature_, *choice_.layer, *dataset_), part_ + 1, parts_),
                         name_in_column(*feature_)};
    try {
        replace_arcs();
        complete(*feature_, finer_.get(), read.parcel);
    } catch (const Failure& failure) {
        read.problem = failure;
    }
    name_by_text(read.parcel);
    if (parts_ == 1) {
        read.feature = std::move(feature_);
        return read;
    }
    read.feature.reset(feature_->Clone());
    read.feature->SetGeometry(&part_of(*feature_->GetGeometryRef(), part_));
    if (++part_ == parts_)
        feature_.reset();
    return read;
}

const OGRFeatureDefn& ParcelFile::columns() const
{
    return table_ ? table_->columns() : *choice_.layer->GetLayerDefn();
}

const OGRSpatialReference* ParcelFile::crs() const
{
    return crs_ ? &*crs_ : table_ ? nullptr : choice_.layer->GetSpatialRef();
}

// With the name by which it was opened, whether or not GDAL lists it.
std::vector<std::string> ParcelFile::files() const
{
    std::vector<std::string> files = files_of(*dataset_);
    files.push_back(source_.file);
    return files;
}

std::optional<Source> ParcelFile::all_of_layer() const
{
    if (source_.file == "-")
        throw Failure(ExitStatus::wrong_use, {source_.file, ""},
                      "the layer is read more than once, and the standard input can be read only once",
                      "save it in a file");
    if (!source_.feature && !source_.where && !source_.part)
        return std::nullopt;
    Source source = source_;
    source.feature.reset();
    source.where.reset();
    source.part.reset();
    if (!choice_.by_layer.empty())
        source.layer = choice_.by_layer.begin()->first;
    return source;
}

void ParcelFile::refuse_several(const std::string& why) const
{
    throw Failure(ExitStatus::wrong_use, {source_.file, ""},
                  "there are " + std::to_string(choice_.parcels.count()) + " parcels (" +
                      choice_.parcels.text() + ")" + (why.empty() ? "" : ", " + why),
                  table_            ? "choose one with --feature and its number in the file, from 1"
                  : source_.feature ? "choose one with --part N"
                                    : "choose one with --feature FID");
}

Failure vanished(const Source& source)
{
    return {ExitStatus::unusable_input,
            {source.file, ""},
            "the file changed while it was being read",
            "leave the file alone until plcalc is done"};
}

ReadParcel only_parcel(ParcelFile& file, const Source& source)
{
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
