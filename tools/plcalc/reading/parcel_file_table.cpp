// Tables of points: a vertex in each row.

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <cpl_conv.h>
#include <cpl_vsi.h>

#include "reading/parcel_file.h"

namespace tool {
namespace {

// Longer lines are no rows of numbers.
constexpr int kMaxLine = 1000000;

}  // namespace

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
        if (!row.codes.empty())
            parcel.assumed.push_back(row.codes);
        complete_from_source(parcel);
        read.parcel = std::move(parcel);
    } catch (const Failure& failure) {
        read.problem = failure;
    }
    return read;
}

}  // namespace tool
