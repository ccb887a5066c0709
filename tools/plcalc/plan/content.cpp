#include "plan/content.h"

#include <memory>

#include <cpl_conv.h>
#include <cpl_string.h>

#include "reports/divide_report.h"
#include "text/numbers.h"

namespace tool {
namespace {

// The unit of a projected CRS. Without one, coordinates are taken as metres and the unit has no name.
void set_unit(Plan& plan, const OGRFeature* feature)
{
    const OGRGeometry* const geometry = feature != nullptr ? feature->GetGeometryRef() : nullptr;
    const OGRSpatialReference* const crs = geometry != nullptr ? geometry->getSpatialReference() : nullptr;
    if (crs == nullptr || !crs->IsProjected())
        return;
    const char* name = nullptr;
    plan.metres = crs->GetLinearUnits(&name);
    const bool metre = name != nullptr && (EQUAL(name, "metre") || EQUAL(name, "meter"));
    plan.unit = metre ? "m" : name != nullptr ? name : "";
}

// The file without its folders, and the feature; no bytes that are no text.
std::string title_of(const ReadParcel& read)
{
    const std::string file = CPLGetFilename(read.file.c_str());
    std::string title = read.name.empty() ? file : file + ": " + read.name;
    if (CPLIsUTF8(title.c_str(), -1))
        return title;
    const std::unique_ptr<char, decltype(&VSIFree)> ascii(CPLForceToASCII(title.c_str(), -1, '?'), &VSIFree);
    return ascii.get();
}

}  // namespace

Plan plan_of(const ReadParcel& read, const Asked& asked, const PrintedDivision& printed)
{
    Plan plan;
    set_unit(plan, read.feature.get());
    plan.title = title_of(read);
    const std::string unit = plan.unit.empty() ? "" : " " + plan.unit;
    const std::string square = plan.unit == "m" ? " m\u00b2" : unit.empty() ? "" : " square" + unit;
    plan.subtitles = {cut_sentence(read.parcel, asked),
                      "Parcel " + fixed(printed.proven.ring.area, printed.resolution.area_decimals) + square +
                          ", perimeter " + fixed(printed.proven.ring.perimeter, printed.resolution.decimals) +
                          unit};
    plan.ring = read.parcel.ring;
    plan.lines = printed.lines;
    plan.resolution = printed.resolution;
    for (std::size_t i = 0; i < printed.proven.pieces.size(); ++i) {
        plan.pieces.push_back(printed.proven.pieces[i].ring);
        plan.piece_labels.push_back(fixed(printed.areas[i], printed.resolution.area_decimals) + square);
    }
    const std::size_t index = static_cast<std::size_t>(asked.number - 1);
    if (asked.request.cut == plparcel::Cut::through_vertex)
        plan.base_vertex = index;
    else
        plan.base_side = index;
    return plan;
}

}  // namespace tool
