#include "reports/parcel_reports.h"

#include <cstddef>
#include <vector>

#include "answers/question.h"
#include "reports/words.h"
#include "text/json.h"
#include "text/numbers.h"
#include "text/table.h"

namespace tool {
namespace {

using Cells = std::vector<std::string>;

std::string sides_table(const Corners& corners, const Measures& measures, const Resolution& resolution)
{
    const std::size_t n = measures.sides.size();
    std::vector<Cells> rows = {{"Side", "from", "to", "Length", "Bearing, gon", "degrees"}};
    for (std::size_t i = 0; i < n; ++i) {
        const MeasuredSide& side = measures.sides[i];
        rows.push_back({std::to_string(i + 1), std::to_string(i + 1), std::to_string(corners.next[i] + 1),
                        fixed(side.length, resolution.decimals), gon_text(side.bearing_gon, kAngleDecimals),
                        degree_text(side.bearing_gon, kAngleDecimals)});
    }
    return columns(rows);
}

std::string vertices_table(const Parcel& parcel, const Corners& corners, const Measures& measures,
                           const Resolution& resolution)
{
    std::vector<Cells> rows = {{"Vertex", "E", "N", "Angle, gon", "degrees"}};
    for (std::size_t i = 0; i < corners.size(); ++i)
        rows.push_back({std::to_string(i + 1), fixed(corners.at[i].x, resolution.decimals),
                        fixed(corners.at[i].y, resolution.decimals),
                        gon_text(measures.vertices[i].angle_gon, kAngleDecimals),
                        degree_text(measures.vertices[i].angle_gon, kAngleDecimals)});
    for (std::size_t i = 0; i < rows.size() && !parcel.heights.empty(); ++i)
        rows[i].insert(rows[i].begin() + 3,
                       i == 0 ? "Z" : height_text(known_height(parcel.heights[i - 1]), resolution.decimals));
    return columns(rows);
}

}  // namespace

std::string measures_table(const Parcel& parcel, const Measures& measures)
{
    const Resolution resolution = resolution_of(parcel.ring, measures.area);
    const Corners corners = corners_of(parcel);
    return "Parcel  " + heading(parcel.place, parcel.assumed) + "\n        " +
           described_rings(parcel, measures.anticlockwise) + "\n\n" +
           labelled({{"Area", {fixed(measures.area, resolution.area_decimals)}},
                     {"Perimeter", {fixed(measures.perimeter, resolution.decimals)}}}) +
           "\n" + sides_table(corners, measures, resolution) + "\n" +
           vertices_table(parcel, corners, measures, resolution);
}

std::string measures_json(const Parcel& parcel, const Measures& measures)
{
    const Resolution resolution = resolution_of(parcel.ring, measures.area);
    Json json;
    json["parcel"] = parcel.place.text();
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
        if (!parcel.heights.empty())
            json["vertices"].back()["z"] =
                number(height_text(known_height(parcel.heights[i]), resolution.decimals));
    }
    return dumped(json);
}

}  // namespace tool
