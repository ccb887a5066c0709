#include "reports/many_measures.h"

#include "reports/parcel_reports.h"
#include "reports/words.h"
#include "text/json.h"
#include "text/numbers.h"

namespace tool {
namespace {

using Cells = std::vector<std::string>;

const char* const kCsvHead = "parcel,name,area,perimeter,vertices,holes,direction,status\n";

std::string csv_row(const Cells& cells)
{
    std::string row;
    for (const std::string& cell : cells)
        row += (row.empty() ? "" : ",") + csv_cell(cell);
    return row + "\n";
}

Cells cells_in(const std::string& text)
{
    Cells cells(1);
    for (const char c : text)
        if (c == '\n')
            cells.emplace_back();
        else
            cells.back() += c;
    return cells;
}

// A row as it waits: a cell in each line.
std::string kept_row(const Cells& cells)
{
    std::string row;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        row += i > 0 ? "\n" : "";
        row += printable(cells[i]);
    }
    return row;
}

}  // namespace

ManyMeasures::ManyMeasures(As as, bool named, std::optional<AngleUnit> angles)
    : as_(as), named_(named), angles_(angles)
{}

// Of the table.
Cells ManyMeasures::cells_of(const Parcel& parcel, const Measures& measures) const
{
    const Resolution resolution = resolution_of(parcel.ring, measures.area);
    Cells cells = {parcel.place.feature, std::to_string(vertex_count(parcel)),
                   std::to_string(parcel.holes.size()), fixed(measures.area, resolution.area_decimals),
                   fixed(measures.perimeter, resolution.decimals)};
    if (named_)
        cells.insert(cells.begin() + 1, parcel.place.name);
    return cells;
}

void ManyMeasures::add(const Parcel& parcel, const Measures& measures)
{
    tally_.done();
    tally_.note(parcel);
    const Resolution resolution = resolution_of(parcel.ring, measures.area);
    if (as_ == As::json) {
        Json json = {{"parcel", parcel.place.without_name()}, {"status", "measured"}};
        json.update(measures_json(parcel, measures, angles_));
        kept_->add(dumped_in_list(json));
    } else if (as_ == As::csv) {
        kept_->add(csv_row(
            {parcel.place.feature, parcel.place.name, fixed(measures.area, resolution.area_decimals),
             fixed(measures.perimeter, resolution.decimals), std::to_string(vertex_count(parcel)),
             std::to_string(parcel.holes.size()), direction_name(measures.anticlockwise), "measured"}));
    } else {
        const Cells cells = cells_in(kept_row(cells_of(parcel, measures)));
        columns_.measure(cells);
        kept_->add(kept_row(cells));
    }
}

void ManyMeasures::add(const Failure& problem)
{
    tally_.refuse(problem, problem.problem);
    if (as_ == As::json)
        kept_->add(dumped_in_list(refused_json(problem)));
    else if (as_ == As::csv)
        kept_->add(csv_row(
            {problem.place.feature, problem.place.name, "", "", "", "", "", "refused: " + problem.problem}));
}

Output ManyMeasures::table(std::size_t passed_over, std::size_t hidden) const
{
    const std::string summary = tally_.summary("Measured", passed_over, hidden);
    if (kept_->empty())
        return {tally_.assumptions() + summary, tally_.status()};
    Cells head = {"Parcel", "vertices", "holes", "area", "perimeter"};
    if (named_)
        head.insert(head.begin() + 1, "name");
    Columns wide = columns_;
    wide.measure(head);
    const auto body = [kept = kept_, wide](const auto& take) {
        kept->read([&](const std::string& row) { take(wide.line(cells_in(row))); });
    };
    return {tally_.assumptions() + wide.line(head), tally_.status(), body, "\n" + summary};
}

Output ManyMeasures::output(std::size_t passed_over, std::size_t hidden) const
{
    if (as_ == As::table)
        return table(passed_over, hidden);
    if (as_ == As::csv)
        return {kCsvHead, tally_.status(), [kept = kept_](const auto& take) {
                    if (!kept->empty())
                        kept->read(take);
                }};
    Json json;
    json["parcels"] = Json::array();
    json["measured"] = tally_.done_count();
    json["refused"] = tally_.refused_count();
    return with_list(json, kept_, tally_.status());
}

}  // namespace tool
