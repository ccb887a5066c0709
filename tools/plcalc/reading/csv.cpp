#include "reading/csv.h"

#include <cstddef>
#include <string>

#include <cpl_string.h>

#include "console/outcome.h"
#include "files/vector_file.h"
#include "text/numbers.h"

namespace {

constexpr long long kMaxSrid = 999999;

// Of a longer text only the beginning is quoted.
constexpr std::size_t kMaxQuoted = 40;

std::string quoted(const std::string& text)
{
    return "'" + (text.size() > kMaxQuoted ? text.substr(0, kMaxQuoted) + "..." : text) + "'";
}

}  // namespace

namespace tool {

std::string wkt_of(const OGRFeature& row)
{
    for (int field = 0; field < row.GetFieldCount(); ++field)
        if (is_wkt_column(row.GetFieldDefnRef(field)->GetNameRef()))
            return row.GetFieldAsString(field);
    return "";
}

std::optional<int> read_ewkt(OGRFeature& row)
{
    const std::string wkt = row.GetGeometryRef() == nullptr ? wkt_of(row) : "";
    constexpr std::size_t kPrefix = 5;  // "SRID="
    const std::size_t end = wkt.find(';');
    if (end == std::string::npos || !EQUALN(wkt.c_str(), "SRID=", kPrefix))
        return std::nullopt;
    const std::optional<long long> srid = parse_whole(wkt.substr(kPrefix, end - kPrefix));
    OGRGeometry* geometry = nullptr;
    if (!srid || *srid < 0 || *srid > kMaxSrid ||
        OGRGeometryFactory::createFromWkt(wkt.substr(end + 1).c_str(), nullptr, &geometry) != OGRERR_NONE)
        return std::nullopt;
    row.SetGeometryDirectly(geometry);
    return *srid > 0 ? std::optional<int>(static_cast<int>(*srid)) : std::nullopt;
}

bool has_broken_wkt(const OGRFeature& row)
{
    return row.GetGeometryRef() == nullptr && !wkt_of(row).empty();
}

Failure broken_wkt(const OGRFeature& row, const Place& place)
{
    const std::string wkt = wkt_of(row);
    const bool nan = CPLString(wkt).ifind("nan") != std::string::npos;
    return {ExitStatus::unusable_input, place,
            "the WKT " + quoted(wkt) + " cannot be read" +
                (nan ? ", a coordinate in it is not a number" : ""),
            "correct it"};
}

}  // namespace tool
