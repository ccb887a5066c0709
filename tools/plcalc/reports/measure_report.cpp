#include "reports/parcel_reports.h"

#include <cstddef>
#include <vector>

#include "answers/question.h"
#include "reports/words.h"
#include "text/angles.h"
#include "text/json.h"
#include "text/numbers.h"
#include "text/table.h"

namespace tool {
namespace {

using Cells = std::vector<std::string>;

// The cells of an angle: in the unit that is asked for, or in gons and in degrees.
Cells angle_cells(const std::optional<double>& angle_gon, const std::optional<AngleUnit>& unit,
                  bool is_bearing)
{
    if (!unit)
        return {gon_text(angle_gon, kAngleDecimals), degree_text(angle_gon, kAngleDecimals)};
    return {is_bearing ? bearing_text(angle_gon, *unit) : angle_text(angle_gon, *unit)};
}

Cells angle_heads(const std::string& what, const std::optional<AngleUnit>& unit)
{
    return unit ? Cells{angle_head(what, *unit)} : Cells{what + ", gon", "degrees"};
}

Cells joined(Cells cells, const Cells& more)
{
    cells.insert(cells.end(), more.begin(), more.end());
    return cells;
}

std::string sides_table(const Corners& corners, const Measures& measures, const Resolution& resolution,
                        const std::optional<AngleUnit>& angles)
{
    const std::size_t n = measures.sides.size();
    std::vector<Cells> rows = {joined({"Side", "from", "to", "Length"}, angle_heads("Bearing", angles))};
    for (std::size_t i = 0; i < n; ++i) {
        const MeasuredSide& side = measures.sides[i];
        rows.push_back(joined({std::to_string(i + 1), std::to_string(i + 1),
                               std::to_string(corners.next[i] + 1), fixed(side.length, resolution.decimals)},
                              angle_cells(side.bearing_gon, angles, true)));
    }
    return columns(rows);
}

std::string vertices_table(const Parcel& parcel, const Corners& corners, const Measures& measures,
                           const Resolution& resolution, const std::optional<AngleUnit>& angles)
{
    std::vector<Cells> rows = {joined({"Vertex", "E", "N"}, angle_heads("Angle", angles))};
    for (std::size_t i = 0; i < corners.size(); ++i)
        rows.push_back(joined({std::to_string(i + 1), fixed(corners.at[i].x, resolution.decimals),
                               fixed(corners.at[i].y, resolution.decimals)},
                              angle_cells(measures.vertices[i].angle_gon, angles, false)));
    for (std::size_t i = 0; i < rows.size() && !parcel.heights.empty(); ++i)
        rows[i].insert(rows[i].begin() + 3,
                       i == 0 ? "Z" : height_text(known_height(parcel.heights[i - 1]), resolution.decimals));
    return columns(rows);
}

}  // namespace

std::string measures_table(const Parcel& parcel, const Measures& measures, std::optional<AngleUnit> angles)
{
    const Resolution resolution = resolution_of(parcel.ring, measures.area);
    const Corners corners = corners_of(parcel);
    return "Parcel  " + heading(parcel.place, parcel.assumed) + "\n        " +
           described_rings(parcel, measures.anticlockwise) + "\n\n" +
           labelled({{"Area", {fixed(measures.area, resolution.area_decimals)}},
                     {"Perimeter", {fixed(measures.perimeter, resolution.decimals)}}}) +
           "\n" + sides_table(corners, measures, resolution, angles) + "\n" +
           vertices_table(parcel, corners, measures, resolution, angles);
}

Json measures_json(const Parcel& parcel, const Measures& measures, std::optional<AngleUnit> angles)
{
    const Resolution resolution = resolution_of(parcel.ring, measures.area);
    Json json;
    if (!parcel.place.name.empty())
        json["name"] = parcel.place.name;
    if (!parcel.assumed.empty())
        json["assumed"] = parcel.assumed;
    json["orientation"] = direction_name(measures.anticlockwise);
    json["area"] = number(measures.area, resolution.area_decimals);
    json["perimeter"] = number(measures.perimeter, resolution.decimals);
    json["sides"] = Json::array();
    json["vertices"] = Json::array();
    if (!parcel.holes.empty())
        json["holes"] = parcel.holes.size();
    const Corners corners = corners_of(parcel);
    const std::size_t n = corners.size();
    for (std::size_t i = 0; i < n; ++i) {
        const MeasuredSide& side = measures.sides[i];
        json["sides"].push_back({{"side", i + 1},
                                 {"from", i + 1},
                                 {"to", corners.next[i] + 1},
                                 {"length", number(side.length, resolution.decimals)},
                                 {"bearing_gon", number(gon_text(side.bearing_gon, kAngleDecimals))},
                                 {"bearing_deg", number(degree_text(side.bearing_gon, kAngleDecimals))}});
        const std::optional<double>& angle = measures.vertices[i].angle_gon;
        json["vertices"].push_back({{"vertex", i + 1},
                                    {"e", number(corners.at[i].x, resolution.decimals)},
                                    {"n", number(corners.at[i].y, resolution.decimals)},
                                    {"angle_gon", number(gon_text(angle, kAngleDecimals))},
                                    {"angle_deg", number(degree_text(angle, kAngleDecimals))}});
        if (angles) {
            json["sides"].back()["bearing"] = bearing_text(side.bearing_gon, *angles);
            json["vertices"].back()["angle"] = angle_text(angle, *angles);
        }
        if (!parcel.heights.empty())
            json["vertices"].back()["z"] =
                number(height_text(known_height(parcel.heights[i]), resolution.decimals));
    }
    return json;
}

}  // namespace tool
