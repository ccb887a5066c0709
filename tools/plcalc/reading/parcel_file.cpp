#include "reading/parcel_file.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>

#include <cpl_conv.h>
#include <cpl_vsi.h>

#include "files/landxml.h"
#include "files/vector_file.h"
#include "reading/boundary.h"
#include "reading/csv.h"
#include "text/numbers.h"

namespace tool {
namespace {

// Longer lines are no rows of numbers.
constexpr int kMaxLine = 1000000;

bool is_table_of_points(GDALDataset& dataset, const std::vector<OGRLayer*>& layers)
{
    return is_format(dataset, "CSV") && layers.size() == 1 && layers[0]->GetGeomType() == wkbNone &&
           find_point_columns(*layers[0]->GetLayerDefn());
}

std::string place_text(const PL_PNT2D_record& p)
{
    constexpr int kDecimals = 4;
    return fixed(p.x, kDecimals) + ", " + fixed(p.y, kDecimals);
}

Failure without_splines(const Place& place)
{
    return {ExitStatus::unusable_input, place, "the boundary is an ellipse or a spline",
            "replace it with chords in the drawing first"};
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

// What X and Y mean: what the command line says, or the CRS.
PointColumns ParcelFile::table_columns(OGRLayer& layer)
{
    PointColumns columns = find_point_columns(*layer.GetLayerDefn()).value();
    if (!columns.x_and_y) {
        require_no_axes();
        return columns;
    }
    const std::optional<XAxis> x = source_.axes ? source_.axes : crs_ ? x_axis_of(*crs_) : std::nullopt;
    if (!x)
        throw Failure(ExitStatus::wrong_use, {source_.file, ""},
                      "columns X and Y do not say which of them is East",
                      "add --axes en if X is East, --axes ne if X is North, or name the CRS with --crs");
    if (*x == XAxis::north)
        std::swap(columns.east, columns.north);
    assumed_.push_back(std::string(*x == XAxis::east ? "X is East and Y North" : "X is North and Y East") +
                       ", as " + (source_.axes ? "--axes says" : std::string("in ") + crs_->GetName()));
    return columns;
}

void ParcelFile::open_table(OGRLayer& layer)
{
    const Place file = {source_.file, ""};
    messages_.clear();
    if (!crs_)
        crs_ = crs_beside(source_.file);
    messages_.clear();
    const PointColumns columns = table_columns(layer);
    table_.emplace(layer, columns, opened_->separator(), file);
    if (table_->decimal_commas())
        assumed_.push_back("commas stand before the decimals");
    if (!messages_.text().empty())
        throw Failure(ExitStatus::unusable_input, file, "the table cannot be read" + messages_.remark(),
                      "correct it");
    if (!table_->names_parcels())
        require_whole_table();
    if (!table_->names_parcels() && (source_.feature || source_.where))
        throw Failure(ExitStatus::wrong_use, file, "its rows are the vertices of one parcel",
                      std::string("leave ") + (source_.feature ? "--feature" : "--where") + " out");
    choose_in_table(layer);
    choice_.layer = &layer;
    for (const TableParcel& parcel : table_->parcels()) {
        choice_.parcels.add([&] { return parcel.name.empty() ? source_.file : parcel.name; });
        choice_.heights.add(parcel.heights);
    }
}

// GDAL passes over empty lines; people part one lot from the next with them.
void ParcelFile::require_whole_table() const
{
    VSILFILE* const file = VSIFOpenL(opened_->name().c_str(), "rb");
    std::size_t row = 0;  // the header
    bool gap = false;
    bool parted = false;
    while (file != nullptr && !parted) {
        const char* const line = CPLReadLine2L(file, kMaxLine, nullptr);
        if (line == nullptr)
            break;
        const bool empty = std::string(line).find_first_not_of(" \t\r,;") == std::string::npos;
        parted = gap && !empty && row > 1;
        gap = empty;
        row += empty ? 0 : 1;
    }
    if (file != nullptr)
        VSIFCloseL(file);
    if (parted)
        throw Failure(ExitStatus::unusable_input, {source_.file, "row " + std::to_string(row - 2)},
                      "an empty line follows, as if another parcel began",
                      "add a column lot that names the parcel of each row, or remove the empty line");
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
    fine_layer_ = fine_dataset_->GetLayerByName(choice_.layer->GetName());
    if (fine_layer_ != nullptr)
        set_filter(*fine_layer_, source_, messages_);
}

// Lines are joined where nothing else is a parcel, and where the command line asks for it.
void ParcelFile::open_drawing()
{
    OGRLayer* const entities = dataset_->GetLayer(0);
    if (entities != nullptr)
        texts_ = DrawnMarks::texts(*entities, *dataset_, source_.name_layer);
    fine_dataset_ = open_or_refuse(opened_->name(), messages_, source_.file);
    OGRLayer* const fine = fine_dataset_->GetLayer(0);
    std::vector<ClosedLine> closed;
    if (entities != nullptr && fine != nullptr)
        closed = closed_lines_of(*entities, *fine, *dataset_, source_);
    if (!source_.feature)
        choice_ = choose_layer(*dataset_, source_, messages_, true);
    else if (entities != nullptr)
        choice_.layer = entities;
    if (choice_.layer != nullptr)
        open_with_fine_arcs();
    const auto add_loops = [&](const std::vector<DrawnLoop>& loops) {
        for (const DrawnLoop& loop : loops)
            if (loop.joined.kind == Join::loop)
                closed.push_back({loop.joined.ring, loop.joined.heights, loop.layer,
                                  feature_name(*loop.feature, *choice_.layer, *dataset_),
                                  loop.has_arcs && !source_.arcs});
    };
    if (fine_layer_ != nullptr && (source_.join || choice_.parcels.count() == 0)) {
        if (source_.feature || source_.where) {
            // Others may lie in those that are chosen.
            Source all = source_;
            all.feature.reset();
            for (OGRLayer* const layer : {choice_.layer, fine_layer_})
                layer->SetAttributeFilter(nullptr);
            add_loops(join_drawn_lines(*choice_.layer, *fine_layer_, *dataset_, all).loops);
            set_filter(*fine_layer_, source_, messages_);
        }
        set_filter(*choice_.layer, source_, messages_);
        choose_loops(join_drawn_lines(*choice_.layer, *fine_layer_, *dataset_, source_));
        if (!source_.feature && !source_.where)
            add_loops(loops_);
    }
    closed_.emplace(std::move(closed));
    if (choice_.parcels.count() == 0)
        choice_ = choose_layer(*dataset_, source_, messages_);
}

void ParcelFile::choose_loops(DrawnLines drawn)
{
    only_loops_ = choice_.parcels.count() == 0 && !drawn.loops.empty();
    const double gap = drawn.gap;
    if (drawn.loops.empty() && choice_.parcels.count() == 0 && !source_.feature && std::isfinite(gap))
        throw Failure(ExitStatus::unusable_input, {source_.file, ""},
                      "its lines close no boundary: at " + place_text(drawn.gap_at) + " the next end is " +
                          fixed(gap, decimals_for(gap / 10)) + " away",
                      "close the boundary, or allow such a gap with --join");
    for (const DrawnLoop& loop : drawn.loops) {
        choice_.parcels.add([&] { return feature_name(*loop.feature, *choice_.layer, *dataset_); });
        ++choice_.by_layer[loop.layer];
        choice_.others -= std::min(choice_.others, loop.joined.lines.size() + loop.joined.repeated);
        choice_.heights.add(loop.joined.heights);
    }
    if (choice_.by_layer.size() > 1)
        refuse_several_layers(source_, choice_.by_layer);
    loops_ = std::move(drawn.loops);
}

ReadParcel ParcelFile::next_loop()
{
    DrawnLoop& loop = loops_[next_loop_++];
    ReadParcel read;
    read.parcel.place = {source_.file, feature_name(*loop.feature, *choice_.layer, *dataset_),
                         name_in_column(*loop.feature)};
    try {
        complete_loop(loop, read.parcel);
    } catch (const Failure& failure) {
        read.problem = failure;
    }
    name_by_text(read.parcel);
    read.feature = std::move(loop.feature);
    return read;
}

void ParcelFile::complete_loop(const DrawnLoop& loop, Parcel& parcel)
{
    const JoinedLines& joined = loop.joined;
    if (joined.kind == Join::fork)
        throw Failure(ExitStatus::unusable_input, parcel.place,
                      "its lines fork, so that they do not say which is the boundary",
                      "draw each parcel as a closed polyline, or as lines on a layer of its own",
                      std::to_string(joined.ends_at_fork) + " ends meet at " + place_text(joined.fork));
    if (loop.is_freeform)
        throw without_splines(parcel.place);
    if (loop.has_arcs && !source_.arcs)
        throw with_arcs(parcel.place);
    Parcel read;
    read.place = parcel.place;
    read.ring = joined.ring;
    read.heights = joined.heights;
    plane_.require(crs(), crs_.has_value(), read);
    read.unit = unit_of(crs());
    read.crs = crs_name(crs());
    const std::size_t lines = joined.lines.size();
    read.assumed.push_back(
        "joined from " + std::to_string(lines) + (lines == 1 ? " line" : " lines") +
        (joined.widest_gap > 0.0
             ? ", ends up to " + fixed(joined.widest_gap, decimals_for(joined.widest_gap / 10)) + " apart"
             : "") +
        (joined.repeated > 0 ? "; lines drawn twice: " + std::to_string(joined.repeated) : ""));
    if (loop.has_arcs)
        read.assumed.push_back(words_of_arcs());
    add_drawn_holes(loop.layer, read);
    complete_from_source(read);
    parcel = std::move(read);
}

void ParcelFile::require_drawing_options() const
{
    if (is_format(*dataset_, "DXF"))
        return;
    for (const auto& [given, option] : {std::pair<bool, const char*>(source_.join.has_value(), "--join"),
                                        {source_.name_layer.has_value(), "--name-layer"},
                                        {source_.inner.has_value(), "--inner"}})
        if (given)
            throw Failure(ExitStatus::wrong_use, {source_.file, ""}, std::string(option) + " is for drawings",
                          std::string("leave ") + option + " out");
}

// Puts chords in the place of the arcs of a drawing's polyline.
void ParcelFile::replace_arcs()
{
    const OGRGeometry* const ends = feature_->GetGeometryRef();
    const OGRGeometry* const fine = finer_ != nullptr ? finer_->GetGeometryRef() : nullptr;
    if (!source_.arcs || ends == nullptr || fine == nullptr || is_freeform(*feature_) ||
        wkbFlatten(ends->getGeometryType()) != wkbLineString ||
        wkbFlatten(fine->getGeometryType()) != wkbLineString)
        return;
    const Place place = {source_.file, feature_name(*feature_, *choice_.layer, *dataset_)};
    const OGRLineString chords =
        with_chords(*ends->toLineString(), *fine->toLineString(), *source_.arcs, place);
    has_arcs_ = fine->toLineString()->getNumPoints() != ends->toLineString()->getNumPoints();
    feature_->SetGeometry(&chords);
}

void ParcelFile::require_straight(const OGRFeature& feature, OGRFeature* finer, const Place& place) const
{
    if (finer == nullptr || finer->GetFID() != feature.GetFID() || finer->GetGeometryRef() == nullptr)
        throw Failure(ExitStatus::unusable_input, place,
                      "the boundary could not be read a second time, to look for arcs",
                      "leave the file alone until plcalc is done");
    if (finer->GetGeometryRef()->WkbSize() != feature.GetGeometryRef()->WkbSize())
        throw with_arcs(place);
}

std::string ParcelFile::words_of_arcs() const
{
    return "arcs are chords that stay within " + shortest(*source_.arcs) + " of them";
}

// A drawing has no polygons with holes: they are closed lines of their own, and would be lost without a word.
void ParcelFile::add_drawn_holes(const std::string& layer, Parcel& parcel) const
{
    if (!closed_)
        return;
    std::vector<const ClosedLine*> holes;
    if (!EQUAL(layer.c_str(), kHolesLayer))
        holes = closed_->inside(parcel.ring, kHolesLayer);
    const std::vector<const ClosedLine*> inner = closed_->inside(parcel.ring, layer);
    if (!inner.empty() && !source_.inner)
        throw Failure(
            ExitStatus::unusable_input, parcel.place,
            "another closed line lies in it (" + inner.front()->feature + ")",
            "say what such lines are: --inner hole, or --inner overlap for parcels that lie over it");
    if (source_.inner == InnerLine::hole)
        holes.insert(holes.end(), inner.begin(), inner.end());
    for (const ClosedLine* hole : holes) {
        if (hole->has_arcs)
            throw with_arcs({source_.file, hole->feature});
        parcel.holes.push_back(hole->ring);
        const bool has_height = std::any_of(hole->heights.begin(), hole->heights.end(),
                                            [](double z) { return known_height(z).has_value(); });
        if (!parcel.heights.empty() || has_height) {
            parcel.heights.resize(vertex_count(parcel) - hole->ring.size(), std::nan(""));
            parcel.heights.insert(parcel.heights.end(), hole->heights.begin(), hole->heights.end());
        }
    }
    if (!holes.empty())
        parcel.assumed.push_back("closed lines in it are its holes: " + std::to_string(holes.size()));
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
}

ReadParcel ParcelFile::next_of_table()
{
    TableParcel& row = table_->parcels()[next_in_table_++];
    ReadParcel read;
    read.feature = std::move(row.feature);
    read.parcel.place = {source_.file, row.name,
                         read.feature != nullptr ? name_in_column(*read.feature) : ""};
    try {
        Parcel parcel;
        parcel.place = read.parcel.place;
        parcel.ring = std::move(row.ring);
        parcel.heights = std::move(row.heights);
        parcel.point_names = std::move(row.point_names);
        parcel.unit = unit_of(crs());
        parcel.crs = crs_name(crs());
        plane_.require(crs(), true, parcel);
        complete_from_source(parcel);
        read.parcel = std::move(parcel);
    } catch (const Failure& failure) {
        read.problem = failure;
    }
    return read;
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

void ParcelFile::name_by_text(Parcel& parcel) const
{
    if (!source_.name_column && texts_ && !parcel.ring.empty())
        parcel.place.name = texts_->inside(parcel.ring, parcel.holes).value_or("");
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
