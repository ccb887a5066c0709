#include "reading/csv.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <set>
#include <string>
#include <utility>

#include <cpl_string.h>

#include "console/outcome.h"
#include "files/vector_file.h"
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

// Columns that say something about a point, and may say it about several.
const char* const kOfPoints[] = {"Z",     "H",    "Height",      "Elev",   "Elevation", "Altitude", "Quota",
                                 "Code",  "Desc", "Description", "Remark", "Remarks",   "Comment",  "Note",
                                 "Notes", "D",    "Type",        "Kind",   "Mark",      "Date",     "Time"};

bool is_of_points(const std::string& name)
{
    return std::any_of(std::begin(kOfPoints), std::end(kOfPoints),
                       [&](const char* known) { return EQUAL(known, name.c_str()); });
}

// What stands in a column, row by row.
class ColumnValues {
public:
    void add(const OGRFeature& row, int field)
    {
        const std::string value = row.GetFieldAsString(field);
        if (!values_.insert(value).second)
            repeats_ = true;
        if (first_.empty() && values_.size() == 1)
            first_ = value;
        if (values_.size() == 2 && change_row_ < 0) {
            change_row_ = row.GetFID();
            changed_to_ = value;
        }
    }

    // A value that several rows share, but not all of them, names a parcel rather than a point.
    bool seem_to_name_parcels() const { return repeats_ && change_row_ >= 0; }

    tool::Failure failure(const tool::Place& file, const std::string& name) const
    {
        return {
            tool::ExitStatus::unusable_input,
            {file.file, "row " + std::to_string(change_row_)},
            name + " changes from '" + first_ + "' to '" + changed_to_ + "', as if another parcel began",
            "save each parcel in a file of its own, or remove the column if it says nothing about parcels"};
    }

private:
    std::set<std::string> values_;
    std::string first_;
    std::string changed_to_;
    GIntBig change_row_ = -1;
    bool repeats_ = false;
};

// The values of all columns that may name parcels.
class ParcelColumns {
public:
    ParcelColumns(const OGRFeatureDefn& table, const tool::PointColumns& coordinates)
    {
        for (int i = 0; i < table.GetFieldCount(); ++i) {
            const std::string name = stripped(table.GetFieldDefn(i)->GetNameRef());
            if (i != coordinates.east && i != coordinates.north && !is_of_points(name))
                columns_.push_back({i, name, {}});
        }
    }

    void add(const OGRFeature& row)
    {
        for (Column& column : columns_)
            column.values.add(row, column.field);
    }

    void require_one_parcel(const tool::Place& file) const
    {
        for (const Column& column : columns_)
            if (column.values.seem_to_name_parcels())
                throw column.values.failure(file, column.name);
    }

private:
    struct Column {
        int field;
        std::string name;
        ColumnValues values;
    };

    std::vector<Column> columns_;
};

bool same(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return p.x == q.x && p.y == q.y;
}

// Of a longer text only the beginning is quoted.
constexpr std::size_t kMaxQuoted = 40;

std::string wkt_of(const OGRFeature& row)
{
    for (int field = 0; field < row.GetFieldCount(); ++field)
        if (tool::is_wkt_column(row.GetFieldDefnRef(field)->GetNameRef()))
            return row.GetFieldAsString(field);
    return "";
}

std::string quoted(const std::string& text)
{
    return "'" + (text.size() > kMaxQuoted ? text.substr(0, kMaxQuoted) + "..." : text) + "'";
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
    ParcelColumns others(*table.GetLayerDefn(), columns);
    for (const OGRFeatureUniquePtr& row : table) {
        points.push_back({coordinate(*row, columns.east, file), coordinate(*row, columns.north, file)});
        // The row that closes the ring may have the name of the first.
        if (points.size() == 1 || !same(points.front(), points.back()))
            others.add(*row);
    }
    others.require_one_parcel(file);
    return points;
}

bool has_broken_wkt(const OGRFeature& row)
{
    return row.GetGeometryRef() == nullptr && !wkt_of(row).empty();
}

Failure broken_wkt(const OGRFeature& row, const Place& place)
{
    const std::string wkt = wkt_of(row);
    const bool nan = CPLString(wkt).ifind("nan") != std::string::npos;
    const bool has_srid = CPLString(wkt).ifind("SRID=") == 0;
    return {ExitStatus::unusable_input, place,
            "the WKT " + quoted(wkt) + " cannot be read" +
                (nan ? ", a coordinate in it is not a number" : ""),
            has_srid ? "leave out 'SRID=...;' before the geometry" : "correct it"};
}

}  // namespace tool
