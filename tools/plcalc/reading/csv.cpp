#include "reading/csv.h"

#include <cstddef>
#include <string>

#include <cpl_string.h>

#include "console/outcome.h"
#include "files/vector_file.h"

namespace {

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
