#include "reports/parcel_reports.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "reports/tally.h"
#include "text/angles.h"
#include "text/json.h"
#include "text/numbers.h"
#include "text/table.h"

namespace tool {
namespace {

// Arc of a gon at radius 1, which is half a turn of 200 gons.
constexpr double kArcOfGon = 3.141592653589793 / 200.0;

// The table's cells: name, E, N, Z, angle, distance, abscissa, ordinate.
std::vector<std::string> cells_of(const StakeoutSheet& sheet, const SetOut& point)
{
    const int decimals = sheet.resolution.decimals;
    return {point.point.name,
            fixed(point.point.at.x, decimals),
            fixed(point.point.at.y, decimals),
            height_text(point.point.height, decimals),
            angle_text(point.angle_gon, sheet.angles, decimals_in(sheet.angles, sheet.angle_decimals)),
            fixed(point.distance, decimals),
            fixed(point.abscissa, decimals),
            fixed(point.ordinate, decimals)};
}

std::string described(const NamedPoint& point, int decimals)
{
    const std::string place = "E " + fixed(point.at.x, decimals) + "  N " + fixed(point.at.y, decimals);
    return point.name.empty() ? place : point.name + "  " + place;
}

// By unit: the circle reads no quadrants.
const char* const kCsvAngles[] = {"angle_gon", "angle_deg", "angle_dms", "angle_dms"};

constexpr int kHeightCell = 3;
constexpr int kSetOutCells = 4;

// The points, and below them what is set out, where both do not fit beside each other.
std::string two_tables(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::vector<std::string>> points;
    std::vector<std::vector<std::string>> values;
    for (const std::vector<std::string>& row : rows) {
        const auto angle = row.end() - kSetOutCells;
        points.emplace_back(row.begin(), angle);
        values.emplace_back(angle, row.end());
        values.back().insert(values.back().begin(), row.front());
    }
    return columns(points) + "\n" + columns(values);
}

}  // namespace

int angle_decimals_for(const std::vector<SetOut>& points, const Resolution& resolution)
{
    double farthest = 0.0;
    for (const SetOut& point : points)
        farthest = std::max(farthest, point.distance);
    const double step = std::pow(10.0, -resolution.decimals);
    // Where all points are at the station no turn moves them, and the step is infinite.
    return std::min(kMaxDecimals, decimals_for(step / (farthest * kArcOfGon)));
}

std::string stakeout_table(const StakeoutSheet& sheet)
{
    const int decimals = sheet.resolution.decimals;
    std::vector<std::vector<std::string>> rows = {
        {"Point", "E", "N", "Z", angle_head("Angle", sheet.angles), "Distance", "Along", "Right"}};
    for (const SetOut& point : sheet.points)
        rows.push_back(cells_of(sheet, point));
    for (std::vector<std::string>& row : rows)
        if (!sheet.heights)
            row.erase(row.begin() + kHeightCell);
    return "Parcel       " + heading(sheet.parcel, sheet.assumed) + "\nStation      " +
           described(sheet.setup.station, decimals) + "\nOrientation  " +
           described(sheet.setup.orientation, decimals) + "\nBase line    " +
           described(sheet.base.from, decimals) + "\n             " + described(sheet.base.to, decimals) +
           "\n\n" + (fit_terminal(rows) ? columns(rows) : two_tables(rows));
}

std::string stakeout_csv(const StakeoutSheet& sheet)
{
    std::string text = std::string("point,E,N,") + (sheet.heights ? "Z," : "") +
                       kCsvAngles[static_cast<std::size_t>(sheet.angles)] + ",distance,along,right\n";
    for (const SetOut& point : sheet.points) {
        const std::vector<std::string> cells = cells_of(sheet, point);
        text += csv_cell(cells[0]);
        for (std::size_t i = 1; i < cells.size(); ++i)
            if (i != kHeightCell || sheet.heights)
                text += "," + (cells[i] == "-" ? std::string() : csv_cell(cells[i]));
        text += "\n";
    }
    return text;
}

std::string stakeout_points(const StakeoutSheet& sheet)
{
    std::string text = sheet.heights ? "name,E,N,Z,code\n" : "name,E,N,code\n";
    std::map<std::string, std::string> places;
    for (const SetOut& point : sheet.points) {
        const std::vector<std::string> cells = cells_of(sheet, point);
        const std::string& name = point.point.short_name.empty() ? cells[0] : point.point.short_name;
        const std::string at = cells[1] + "," + cells[2] + ",";
        const auto [known, is_first] = places.emplace(name, at);
        if (!is_first && known->second != at)
            throw Failure(ExitStatus::wrong_use, sheet.parcel,
                          "--points: two points would be called '" + name + "'",
                          "name them differently in the files they come from");
        if (!is_first)
            continue;
        std::string row = csv_cell(name) + "," + at;
        if (sheet.heights)
            row += (cells[kHeightCell] == "-" ? "" : cells[kHeightCell]) + ",";
        text += row + point.point.code + "\n";
    }
    return text;
}

std::string stakeout_json(const StakeoutSheet& sheet)
{
    const int decimals = sheet.resolution.decimals;
    const auto point = [&](const NamedPoint& p) {
        return Json{{"name", p.name}, {"e", number(p.at.x, decimals)}, {"n", number(p.at.y, decimals)}};
    };
    Json json = place_json(sheet.parcel);
    if (!sheet.assumed.empty())
        json["assumed"] = sheet.assumed;
    json["station"] = point(sheet.setup.station);
    json["orientation"] = point(sheet.setup.orientation);
    json["base_line"] = {point(sheet.base.from), point(sheet.base.to)};
    json["points"] = Json::array();
    for (const SetOut& values : sheet.points) {
        const std::vector<std::string> cells = cells_of(sheet, values);
        json["points"].push_back({{"name", cells[0]},
                                  {"e", number(cells[1])},
                                  {"n", number(cells[2])},
                                  {"angle_gon", number(gon_text(values.angle_gon, sheet.angle_decimals))},
                                  {"distance", number(cells[5])},
                                  {"along", number(cells[6])},
                                  {"right", number(cells[7])}});
        if (sheet.angles != AngleUnit::gon)
            json["points"].back()["angle"] = cells[4];
        if (sheet.heights)
            json["points"].back()["z"] = number(cells[kHeightCell]);
    }
    return dumped(json);
}

}  // namespace tool
