#include "reading/point_table.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <set>
#include <utility>

#include <cpl_string.h>

#include "answers/question.h"
#include "reading/boundary.h"
#include "text/numbers.h"

namespace tool {
namespace {

// A name of one pair never goes with a name of another: in a file with X, Y and E they would not belong
// together.
constexpr std::pair<const char*, const char*> kPairs[] = {
    {"e", "n"},      {"east", "north"}, {"easting", "northing"},
    {"est", "nord"}, {"ost", "nord"},   {"rechtswert", "hochwert"},
    {"rw", "hw"},    {"este", "norte"}, {"x", "y"},
};

// What the parcel of a point is called.
const char* const kOfParcels[] = {
    "lot",        "parcel",  "plot",  "lotto",          "parcella",   "particella",      "mappale",
    "parcelle",   "parcela", "finca", "flurst\u00fcck", "flurstueck", "grundst\u00fcck", "parzelle",
    "grundstueck"};

// Its number or name.
const char* const kEndings[] = {"id", "no", "nr", "num", "number", "name", "numero", "nummer"};

// Columns that say something about a point, and may say it about several.
const char* const kOfPoints[] = {"z",         "h",        "height", "elev",        "elevation",  "altitude",
                                 "quota",     "code",     "desc",   "description", "remark",     "remarks",
                                 "comment",   "note",     "notes",  "d",           "type",       "kind",
                                 "mark",      "date",     "time",   "cota",        "hoehe",      "h\u00f6he",
                                 "bemerkung", "remarque", "nota",   "descripcion", "descrizione"};

// What kind of point it is: a corner, a tree.
const char* const kCodes[] = {"code", "d", "type", "kind"};

const char* const kHeights[] = {"z",        "h",     "height", "elev",  "elevation",
                                "altitude", "quota", "cota",   "hoehe", "h\u00f6he"};

const char* const kPointNames[] = {"p",           "pt",      "point",       "pointno", "pointname",
                                   "pointnumber", "pnr",     "punkt",       "nr",      "no",
                                   "name",        "punktnr", "punktnummer", "punto",   "id"};

constexpr std::size_t kFewestVertices = 3;

std::string stripped(const char* name)
{
    return CPLString(name).Trim();
}

std::string name_of_field(const OGRFeatureDefn& table, int field)
{
    return stripped(table.GetFieldDefn(field)->GetNameRef());
}

// "Lot No." and "lot_no" are one name, and so are "E [m]" and "E".
std::string plain(const std::string& name)
{
    CPLString lower(name.substr(0, name.find_first_of("[(")));
    std::string text;
    for (const char c : lower.tolower())
        if (std::string(" _-.#").find(c) == std::string::npos)
            text += c;
    return text;
}

template <std::size_t n> bool is_one_of(const std::string& name, const char* const (&known)[n])
{
    return std::any_of(std::begin(known), std::end(known), [&](const char* word) { return name == word; });
}

bool names_parcel(const std::string& name)
{
    return std::any_of(std::begin(kOfParcels), std::end(kOfParcels), [&](const std::string& word) {
        return name.rfind(word, 0) == 0 && (name == word || is_one_of(name.substr(word.size()), kEndings));
    });
}

int find_field(const OGRFeatureDefn& table, const std::string& name)
{
    for (int i = 0; i < table.GetFieldCount(); ++i)
        if (plain(name_of_field(table, i)) == name)
            return i;
    return -1;
}

Failure unusable_row(const Place& file, GIntBig row, const std::string& problem, const std::string& advice)
{
    return {ExitStatus::unusable_input, {file.file, "row " + std::to_string(row)}, problem, advice};
}

// Whether the number can only be meant with decimals behind its comma: thousands stand in groups of three.
bool shows_decimal_comma(const std::string& text)
{
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos || !parse_number(with_point(text)))
        return false;
    const std::size_t first = text.find_first_of("0123456789");
    return text.size() - comma != 4 || comma - first > 3 || text[first] == '0';
}

// Whether commas stand before the decimals of a table's coordinates and heights. One point before decimals, and none
// do. Other text than a number is no height.
bool has_decimal_commas(OGRLayer& table, const PointColumns& columns, char separator)
{
    bool commas = false;
    bool shown = separator == ';';
    for (const OGRFeatureUniquePtr& row : table) {
        for (const int field : {columns.east, columns.north, columns.height}) {
            const std::string text = field >= 0 ? row->GetFieldAsString(field) : "";
            if (field == columns.height && !parse_number(with_point(text)))
                continue;
            if (text.find('.') != std::string::npos)
                return false;
            commas = commas || text.find(',') != std::string::npos;
            shown = shown || shows_decimal_comma(text);
        }
    }
    return commas && shown;
}

double coordinate(const OGRFeature& row, int field, bool decimal_commas, const Place& file)
{
    const std::string text = row.GetFieldAsString(field);
    const std::optional<double> value = parse_number(decimal_commas ? with_point(text) : text);
    if (value)
        return *value;
    const std::string name = stripped(row.GetFieldDefnRef(field)->GetNameRef());
    if (text.empty())
        throw unusable_row(file, row.GetFID(), name + " is empty", "fill it in");
    throw unusable_row(file, row.GetFID(), name + " is '" + text + "', not a number",
                       "use a point before the decimals");
}

double height(const OGRFeature& row, int field, bool decimal_commas)
{
    const std::string text = field >= 0 ? row.GetFieldAsString(field) : "";
    const std::optional<double> value = parse_number(decimal_commas ? with_point(text) : text);
    return value && std::isfinite(*value) ? *value : std::numeric_limits<double>::quiet_NaN();
}

void finish(TableParcel& parcel)
{
    drop_closing_vertex(parcel.ring);
    if (!parcel.point_names.empty())
        parcel.point_names.resize(parcel.ring.size());
    parcel.heights.resize(parcel.ring.size());
    if (std::none_of(parcel.heights.begin(), parcel.heights.end(), [](double z) { return std::isfinite(z); }))
        parcel.heights.clear();
}

// What stands in a column, row by row of a parcel.
class ColumnValues {
public:
    void add(const OGRFeature& row, int field)
    {
        const std::string value = row.GetFieldAsString(field);
        if (values_.empty())
            first_ = value;
        if (!values_.insert(value).second)
            repeats_ = true;
        if (values_.size() == 2 && change_row_ < 0) {
            change_row_ = row.GetFID();
            changed_to_ = value;
        }
    }

    bool changes() const { return change_row_ >= 0; }

    // A value that several rows share, but not all of them.
    bool part_the_rows() const { return repeats_ && changes(); }

    // "BDY, TREE, ...": the first two.
    std::string some() const { return first_ + ", " + changed_to_ + (values_.size() > 2 ? ", ..." : ""); }

    Failure failure(const Place& file, const std::string& name) const
    {
        return unusable_row(
            file, change_row_,
            name + " changes from '" + first_ + "' to '" + changed_to_ + "', as if another parcel began",
            "call the column 'lot' if it names the parcels, or remove it if it says nothing about them");
    }

private:
    std::set<std::string> values_;
    std::string first_;
    std::string changed_to_;
    GIntBig change_row_ = -1;
    bool repeats_ = false;
};

// The columns that could name parcels, but are not said to.
class OtherColumns {
public:
    OtherColumns(const OGRFeatureDefn& table, const PointColumns& known)
    {
        for (int i = 0; i < table.GetFieldCount(); ++i) {
            const std::string name = name_of_field(table, i);
            const bool of_parcel = std::count(known.parcel.begin(), known.parcel.end(), i) > 0;
            if (i != known.east && i != known.north && !of_parcel && !is_one_of(plain(name), kOfPoints))
                columns_.push_back({i, name, {}, true});
            if (is_one_of(plain(name), kCodes))
                codes_.push_back({i, name, {}, false});
        }
    }

    void begin_parcel()
    {
        for (std::vector<Column>* const columns : {&columns_, &codes_})
            for (Column& column : *columns)
                column.values = {};
    }

    void add(const OGRFeature& row)
    {
        for (Column& column : columns_)
            column.values.add(row, column.field);
        for (Column& column : codes_)
            if (*row.GetFieldAsString(column.field) != '\0')
                column.values.add(row, column.field);
    }

    void end_parcel(const Place& file)
    {
        for (Column& column : columns_) {
            // Such a value names a parcel rather than a point.
            if (column.values.part_the_rows())
                throw column.values.failure(file, column.name);
            column.shared = column.shared && !column.values.changes();
        }
    }

    // What is said where a parcel has points of several codes: those of a list may be trees as well. Empty where it has not.
    std::string codes_in_parcel() const
    {
        for (const Column& column : codes_)
            if (column.values.part_the_rows())
                return "points of every " + column.name + " are its vertices: " + column.values.some();
        return "";
    }

    // Those that had one value in every parcel.
    std::vector<int> shared() const
    {
        std::vector<int> fields;
        for (const Column& column : columns_)
            if (column.shared)
                fields.push_back(column.field);
        return fields;
    }

private:
    struct Column {
        int field;
        std::string name;
        ColumnValues values;
        bool shared;
    };

    std::vector<Column> columns_;
    std::vector<Column> codes_;
};

// Whether every value of the column stands in at least three rows, one after the other, and nowhere else.
bool parts_rows_into_parcels(OGRLayer& table, int field)
{
    std::set<std::string> seen;
    std::string current;
    std::size_t rows = kFewestVertices;
    for (const OGRFeatureUniquePtr& row : table) {
        const std::string value = row->GetFieldAsString(field);
        if (!seen.empty() && value == current) {
            ++rows;
            continue;
        }
        if (rows < kFewestVertices || value.empty() || !seen.insert(value).second)
            return false;
        current = value;
        rows = 1;
    }
    return seen.size() > 1 && rows >= kFewestVertices;
}

bool same(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return p.x == q.x && p.y == q.y;
}

}  // namespace

std::optional<PointColumns> find_point_columns(const OGRFeatureDefn& table)
{
    PointColumns columns;
    for (const auto& [east_name, north_name] : kPairs) {
        columns.east = find_field(table, east_name);
        columns.north = find_field(table, north_name);
        columns.x_and_y = std::string(east_name) == "x";
        if (columns.east >= 0 && columns.north >= 0)
            break;
    }
    if (columns.east < 0 || columns.north < 0)
        return std::nullopt;
    for (const char* name : kHeights)
        if (columns.height < 0)
            columns.height = find_field(table, name);
    for (int i = 0; i < table.GetFieldCount(); ++i)
        if (names_parcel(plain(name_of_field(table, i))))
            columns.parcel.push_back(i);
    for (const char* name : kPointNames)
        if (columns.name < 0)
            columns.name = find_field(table, name);
    return columns;
}

namespace {

// GDAL counts who refers to columns, and deletes them with the last one.
OGRFeatureDefn* counted_columns()
{
    auto* columns = new OGRFeatureDefn("parcels");
    columns->Reference();
    return columns;
}

}  // namespace
ListedPoints listed_points(OGRLayer& table, const PointColumns& columns, char separator, const Place& file)
{
    ListedPoints listed;
    listed.decimal_commas = has_decimal_commas(table, columns, separator);
    for (const OGRFeatureUniquePtr& row : table) {
        NamedPoint point;
        point.name = columns.name >= 0 ? stripped(row->GetFieldAsString(columns.name)) : "";
        if (point.name.empty())
            point.name = "row " + std::to_string(row->GetFID());
        point.at = {coordinate(*row, columns.east, listed.decimal_commas, file),
                    coordinate(*row, columns.north, listed.decimal_commas, file)};
        if (!std::isfinite(point.at.x) || !std::isfinite(point.at.y))
            throw unusable_row(file, row->GetFID(), "its coordinates are not finite", "correct them");
        point.height = known_height(height(*row, columns.height, listed.decimal_commas));
        listed.points.push_back(std::move(point));
    }
    return listed;
}

PointTable::PointTable(OGRLayer& table, const PointColumns& columns, char separator, const Place& file)
    : columns_(columns), definition_(counted_columns())
{
    definition_->SetGeomType(wkbNone);
    const int id = find_field(*table.GetLayerDefn(), "id");
    if (columns_.parcel.empty() && id >= 0 && parts_rows_into_parcels(table, id))
        columns_.parcel.push_back(id);
    if (std::find(columns_.parcel.begin(), columns_.parcel.end(), columns_.name) != columns_.parcel.end())
        columns_.name = -1;
    decimal_commas_ = has_decimal_commas(table, columns_, separator);
    read_rows(table, file);
}

// "lot A"; "lot A part 2" where two columns name a parcel.
std::string PointTable::name_of(const OGRFeature& row, const Place& file) const
{
    std::string text;
    for (const int field : columns_.parcel) {
        const std::string column = stripped(row.GetFieldDefnRef(field)->GetNameRef());
        const std::string value = stripped(row.GetFieldAsString(field));
        if (value.empty())
            throw unusable_row(file, row.GetFID(), column + " is empty", "fill it in");
        text.append(text.empty() ? "" : " ").append(column).append(" ").append(value);
    }
    return text;
}

void PointTable::read_rows(OGRLayer& table, const Place& file)
{
    OtherColumns others(*table.GetLayerDefn(), columns_);
    const auto end_parcel = [&] {
        others.end_parcel(file);
        parcels_.back().codes = others.codes_in_parcel();
    };
    std::set<std::string> names;
    for (const OGRFeatureUniquePtr& row : table) {
        const std::string name = name_of(*row, file);
        if (parcels_.empty() || name != parcels_.back().name) {
            if (!names.insert(name).second)
                throw unusable_row(file, row->GetFID(), name + " comes back after " + parcels_.back().name,
                                   "put the rows of each parcel one after the other");
            if (!parcels_.empty())
                end_parcel();
            others.begin_parcel();
            parcels_.emplace_back();
            parcels_.back().name = name;
            parcels_.back().first_row = row->GetFID();
        }
        TableParcel& parcel = parcels_.back();
        parcel.last_row = last_row_ = row->GetFID();
        parcel.ring.push_back({coordinate(*row, columns_.east, decimal_commas_, file),
                               coordinate(*row, columns_.north, decimal_commas_, file)});
        if (columns_.name >= 0)
            parcel.point_names.push_back(stripped(row->GetFieldAsString(columns_.name)));
        parcel.heights.push_back(height(*row, columns_.height, decimal_commas_));
        // The row that closes the ring may have the name of the first.
        if (parcel.ring.size() == 1 || !same(parcel.ring.front(), parcel.ring.back()))
            others.add(*row);
    }
    if (parcels_.empty())
        parcels_.emplace_back();  // a header without rows is a parcel without vertices
    else
        end_parcel();
    for (TableParcel& parcel : parcels_)
        finish(parcel);
    if (names_parcels())
        make_features(table, others.shared());
}

void PointTable::make_features(OGRLayer& table, const std::vector<int>& shared)
{
    std::vector<int> fields = columns_.parcel;
    fields.insert(fields.end(), shared.begin(), shared.end());
    for (const int field : fields) {
        OGRFieldDefn column(table.GetLayerDefn()->GetFieldDefn(field));
        column.SetName(name_of_field(*table.GetLayerDefn(), field).c_str());
        definition_->AddFieldDefn(&column);
    }
    std::size_t next = 0;
    for (const OGRFeatureUniquePtr& row : table) {
        if (next == parcels_.size())
            break;
        if (row->GetFID() != parcels_[next].first_row)
            continue;
        OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(definition_.get()));
        for (std::size_t i = 0; i < fields.size(); ++i)
            feature->SetField(static_cast<int>(i), row->GetFieldAsString(fields[i]));
        parcels_[next++].feature = std::move(feature);
        parcels_[next - 1].feature->SetFID(static_cast<GIntBig>(next));
    }
}

}  // namespace tool
