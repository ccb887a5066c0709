#include "plan/plan.h"

#include <memory>

#include <cpl_conv.h>
#include <cpl_string.h>

#include "reports/words.h"
#include "text/numbers.h"

namespace tool {
namespace {

// The file without its folders, and the feature; bytes that are not text become question marks.
std::string title_of(const Place& place)
{
    std::string title = Place{CPLGetFilename(place.file.c_str()), place.feature}.text();
    if (CPLIsUTF8(title.c_str(), -1))
        return title;
    const std::unique_ptr<char, decltype(&VSIFree)> ascii(CPLForceToASCII(title.c_str(), -1, '?'), &VSIFree);
    return ascii.get();
}

}  // namespace

Plan plan_of(const Answer& answer)
{
    const Parcel& parcel = answer.parcel;
    const PrintedDivision& printed = answer.printed;
    const std::string unit = parcel.unit.name.empty() ? "" : " " + parcel.unit.name;
    const std::string square = parcel.unit.name == "m" ? " m\u00b2" : unit.empty() ? "" : " square" + unit;
    Plan plan;
    plan.unit = parcel.unit;
    plan.title = title_of(parcel.place);
    plan.subtitles = {cut_sentence(answer.asked, parcel.ring.size()),
                      "Parcel " + fixed(printed.proven.ring.area, printed.resolution.area_decimals) + square +
                          ", perimeter " + fixed(printed.proven.ring.perimeter, printed.resolution.decimals) +
                          unit};
    plan.ring = parcel.ring;
    plan.lines = printed.lines;
    plan.resolution = printed.resolution;
    for (std::size_t i = 0; i < printed.proven.pieces.size(); ++i) {
        plan.pieces.push_back(printed.proven.pieces[i].ring);
        plan.piece_labels.push_back(fixed(printed.areas[i], printed.resolution.area_decimals) + square);
    }
    const std::size_t index = static_cast<std::size_t>(answer.asked.number - 1);
    if (answer.asked.request.line.cut == plparcel::Cut::through_vertex)
        plan.base_vertex = index;
    else
        plan.base_side = index;
    return plan;
}

}  // namespace tool
