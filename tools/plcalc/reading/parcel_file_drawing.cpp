// Parcels of drawings: closed lines, lines that are joined, arcs, holes and names.

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "files/vector_file.h"
#include "reading/boundary.h"
#include "reading/parcel_file.h"
#include "text/numbers.h"

namespace tool {
namespace {

std::string place_text(const PL_PNT2D_record& p)
{
    constexpr int kDecimals = 4;
    return fixed(p.x, kDecimals) + ", " + fixed(p.y, kDecimals);
}

}  // namespace

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

// The DXF reader silently replaces arcs with chords, as many as OGR_ARC_STEPSIZE asks for. A boundary with
// more vertices when it is read again with finer steps has an arc.
void ParcelFile::open_with_fine_arcs()
{
    fine_layer_ = fine_dataset_->GetLayerByName(choice_.layer->GetName());
    if (fine_layer_ != nullptr)
        set_filter(*fine_layer_, source_, messages_);
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

void ParcelFile::name_by_text(Parcel& parcel) const
{
    if (!source_.name_column && texts_ && !parcel.ring.empty())
        parcel.place.name = texts_->inside(parcel.ring, parcel.holes).value_or("");
}

}  // namespace tool
