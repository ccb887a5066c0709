#include "verbs/parcel_requests.h"

#include <cpl_port.h>
#include <cpl_string.h>

#include "text/numbers.h"
#include "verbs/amounts.h"

namespace tool {
namespace {

void add(Asked& asked, const GivenAmount& amount)
{
    asked.request.amounts.push_back(amount.amount);
    asked.amounts.push_back(amount.given);
}

// An amount that cannot be understood, in a column of the parcels.
Failure wrong_cell(const Place& place, const std::string& column, const std::string& what,
                   const NotUnderstood& why)
{
    return {ExitStatus::unusable_input, place, "the column '" + column + "' holds no " + what, "correct it",
            why.what()};
}

}  // namespace

bool RequestColumns::any() const
{
    return !areas.empty() || !shares.empty() || !side.empty() || !vertex.empty() || !table.empty();
}

ParcelRequests::ParcelRequests(Asked common, const RequestColumns& columns, const ParcelFile& file,
                               const Source& source)
    : common_(std::move(common)), columns_(columns),
      leaves_out_(source.feature || source.where || source.part)
{
    for (const std::string& column : {columns.areas, columns.shares, columns.side, columns.vertex})
        if (!column.empty())
            file.require_column(column);
    if (columns.table.empty())
        return;
    table_.emplace(columns.table);
    const auto has = [&](const std::string& column) {
        return file.columns().GetFieldIndex(column.c_str()) >= 0;
    };
    if (source.name_column)
        name_column_ = *source.name_column;
    else if (has(table_->key()))
        name_column_ = table_->key();
    else if (EQUAL(table_->key().c_str(), "fid") || EQUAL(table_->key().c_str(), "feature"))
        by_feature_ = true;
    else if (!file.names_parcels())
        throw Failure(ExitStatus::wrong_use, {source.file, ""},
                      "there is no column '" + table_->key() + "' as in " + columns.table,
                      "say with --name-column which column holds the names of " + columns.table);
}

// The text of a column, which must not be empty.
std::string ParcelRequests::text_in(const ReadParcel& read, const std::string& column) const
{
    const int at = read.feature != nullptr ? read.feature->GetFieldIndex(column.c_str()) : -1;
    std::string text = at >= 0 ? cell_text(*read.feature, at) : "";
    if (text.empty())
        throw Failure(ExitStatus::unusable_input, read.parcel.place, "the column '" + column + "' is empty",
                      "fill it in, or leave the parcel out with --where");
    return text;
}

std::string ParcelRequests::name_of(const ReadParcel& read) const
{
    if (!name_column_.empty())
        return text_in(read, name_column_);
    if (by_feature_)
        return read.feature != nullptr ? std::to_string(read.feature->GetFID()) : "";
    return read.parcel.place.name;
}

NamedRows::Row& ParcelRequests::row_of(const ReadParcel& read)
{
    const Place& place = read.parcel.place;
    const std::string name = name_of(read);
    if (name.empty())
        throw Failure(ExitStatus::unusable_input, place, "it has no name to look up in " + table_->file(),
                      "name it, or leave it out with --where");
    NamedRows::Row* const row = table_->find(name);
    if (row == nullptr)
        throw Failure(ExitStatus::unusable_input, place, "it has no row in " + table_->file(),
                      "add a row, or leave the parcel out with --where", "its name is '" + name + "'");
    // The parts of a feature share its name; two features must not.
    const std::string feature = read.feature != nullptr ? std::to_string(read.feature->GetFID()) : name;
    if (!row->taken_by.empty() && row->taken_by != feature)
        throw Failure(ExitStatus::unusable_input, place,
                      "another parcel before it has the same name in " + table_->file(), "tell them apart",
                      "both are '" + name + "'");
    row->taken_by = feature;
    return *row;
}

void ParcelRequests::set_side(Asked& asked, const ReadParcel& read) const
{
    const std::string& column = columns_.side.empty() ? columns_.vertex : columns_.side;
    const std::string text = text_in(read, column);
    const std::optional<double> number = parse_number(text);
    const std::optional<long long> whole =
        parse_whole(number && text.find('.') != std::string::npos ? shortest(*number) : text);
    const bool of_side = !columns_.side.empty();
    if (whole) {
        asked.number = *whole;
    } else if (of_side && (text == "longest" || text == "shortest")) {
        asked.choice.by = text == "longest" ? SideChoice::By::longest : SideChoice::By::shortest;
    } else {
        throw wrong_cell(
            read.parcel.place, column, of_side ? "side" : "vertex",
            NotUnderstood("'" + text + "' is " +
                          (of_side ? "neither its number nor longest nor shortest" : "not its number")));
    }
}

void ParcelRequests::set_amounts(Asked& asked, ReadParcel& read)
{
    const bool by_area = !columns_.areas.empty();
    const std::string& column = by_area ? columns_.areas : columns_.shares;
    try {
        for (const std::string& text : parts_of_list(text_in(read, column), ';'))
            add(asked, by_area ? one_amount(text) : one_share(text));
    } catch (const NotUnderstood& why) {
        throw wrong_cell(read.parcel.place, column, by_area ? "area" : "share", why);
    }
}

void ParcelRequests::set_from_table(Asked& asked, ReadParcel& read)
{
    const NamedRows::Row& row = row_of(read);
    try {
        for (const std::string& cell : row.cells)
            for (const std::string& text : parts_of_list(cell, ';'))
                add(asked, one_amount(table_->decimal_commas() ? with_point(text) : text));
    } catch (const NotUnderstood& why) {
        throw Failure(ExitStatus::unusable_input, read.parcel.place,
                      "its row of " + table_->file() + " holds no area", "correct the row",
                      "row " + std::to_string(row.number) + ", " + why.what());
    }
    if (asked.amounts.empty())
        throw Failure(
            ExitStatus::unusable_input, read.parcel.place, "its row of " + table_->file() + " is empty",
            "fill it in, or leave the parcel out with --where", "row " + std::to_string(row.number));
    for (const std::string& cell : row.cells)
        if (table_->decimal_commas() && cell.find(',') != std::string::npos) {
            read.parcel.assumed.push_back("in " + table_->file() + " commas stand before the decimals");
            break;
        }
}

Asked ParcelRequests::of(ReadParcel& read)
{
    Asked asked = common_;
    if (!columns_.side.empty() || !columns_.vertex.empty())
        set_side(asked, read);
    if (!columns_.areas.empty() || !columns_.shares.empty())
        set_amounts(asked, read);
    else if (table_)
        set_from_table(asked, read);
    return asked;
}

std::vector<std::string> ParcelRequests::left() const
{
    return table_ && !leaves_out_ ? table_->left() : std::vector<std::string>();
}

}  // namespace tool
