#include "reading/csv_points.h"

#include <utility>

#include <cpl_string.h>

#include "console/failure.h"
#include "text/numbers.h"

namespace {

// A name of one pair never goes with a name of another: in a file with X, Y and E they would not belong
// together.
constexpr std::pair<const char*, const char*> kPairs[] = {
    {"E", "N"}, {"East", "North"}, {"Easting", "Northing"}, {"Est", "Nord"}, {"X", "Y"},
};

std::string stripped(const char* name)
{
    return CPLString(name).Trim();
}

int find_field(const OGRFeatureDefn& table, const char* name)
{
    for (int i = 0; i < table.GetFieldCount(); ++i)
        if (EQUAL(stripped(table.GetFieldDefn(i)->GetNameRef()).c_str(), name))
            return i;
    return -1;
}

double coordinate(const OGRFeature& row, int field, const tool::Place& file)
{
    const std::string text = row.GetFieldAsString(field);
    const std::optional<double> value = tool::parse_number(text);
    if (value)
        return *value;
    const std::string name = stripped(row.GetFieldDefnRef(field)->GetNameRef());
    const tool::Place place = {file.file, "row " + std::to_string(row.GetFID())};
    if (text.empty())
        throw tool::Failure(tool::ExitStatus::unusable_input, place, name + " is empty", "fill it in");
    throw tool::Failure(tool::ExitStatus::unusable_input, place, name + " is '" + text + "', not a number",
                        "use a point before the decimals");
}

}  // namespace

namespace tool {

std::optional<PointColumns> find_point_columns(const OGRFeatureDefn& table)
{
    for (const auto& [east_name, north_name] : kPairs) {
        const PointColumns columns = {find_field(table, east_name), find_field(table, north_name)};
        if (columns.east >= 0 && columns.north >= 0)
            return columns;
    }
    return std::nullopt;
}

std::vector<PL_PNT2D_record> read_points(OGRLayer& table, const PointColumns& columns, const Place& file)
{
    std::vector<PL_PNT2D_record> points;
    for (const OGRFeatureUniquePtr& row : table)
        points.push_back({coordinate(*row, columns.east, file), coordinate(*row, columns.north, file)});
    return points;
}

}  // namespace tool
