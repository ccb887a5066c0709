#include "plan/plan.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <utility>

#include <cpl_conv.h>
#include <cpl_string.h>

#include "answers/division_points.h"
#include "answers/measure.h"
#include "plcalc/kernel.h"
#include "reports/words.h"
#include "text/angles.h"
#include "text/numbers.h"

namespace tool {
namespace {

// Bytes that are not text become question marks.
std::string as_text(const std::string& bytes)
{
    if (CPLIsUTF8(bytes.c_str(), -1))
        return bytes;
    const std::unique_ptr<char, decltype(&VSIFree)> ascii(CPLForceToASCII(bytes.c_str(), -1, '?'), &VSIFree);
    return ascii.get();
}

// The file without its folders, and the feature.
std::string file_of(const Place& place)
{
    return Place{CPLGetFilename(place.file.c_str()), place.feature}.without_name();
}

// Whole square metres, or as many decimals as leave two digits of the smallest piece.
int fitting_area_decimals(const std::vector<double>& areas)
{
    constexpr double kTwoDigits = 10.0;
    int decimals = 0;
    for (double least = *std::min_element(areas.begin(), areas.end());
         least < kTwoDigits && decimals < kMaxDecimals; least *= 10.0)
        ++decimals;
    return decimals;
}

// To the centimetre, which is as fine as a plan is read, or finer on a small parcel.
std::string length_text(const Answer& answer, const PL_PNT2D_record& from, const PL_PNT2D_record& to)
{
    constexpr int kFewer = 2;
    return fixed(on_ground(answer.parcel, PlFunz_distance(&from, &to)),
                 std::max(kFewer, answer.printed.resolution.decimals - kFewer));
}

void add_points(Plan& plan, const DivisionPoints& points)
{
    for (const DivisionPoint& point : points.points)
        plan.points.push_back({as_text(point.name), point.at, point.is_new});
}

void add_sides(Plan& plan, const DivisionPoints& points, const Answer& answer)
{
    const auto length = [&](std::size_t from, std::size_t to) {
        return length_text(answer, plan.points[from].at, plan.points[to].at);
    };
    for (std::size_t side = 0; side < points.corners; ++side) {
        const std::vector<std::size_t> along = points.along(side);
        PlanSide shown;
        for (std::size_t i = 0; i + 1 < along.size(); ++i)
            shown.parts.push_back({along[i], along[i + 1], length(along[i], along[i + 1])});
        shown.whole = length(along.front(), along.back());
        plan.sides.push_back(std::move(shown));
    }
}

void add_lines(Plan& plan, const DivisionPoints& points, const Answer& answer)
{
    for (const DivisionPoints::Line& line : points.lines) {
        const PL_PNT2D_record& from = plan.points[line.from].at;
        const PL_PNT2D_record& to = plan.points[line.to].at;
        plan.lines.push_back({line.from, line.to, length_text(answer, from, to),
                              bearing_text(bearing_gon(from, to), answer.asked.angles)});
    }
}

// One outline that goes to each hole and back the same way.
plparcel::Ring with_holes_joined(const plparcel::Piece& piece)
{
    plparcel::Ring outline = piece.ring;
    const PL_PNT2D_record start = piece.ring.front();
    for (const plparcel::Ring& hole : piece.holes) {
        outline.push_back(start);
        outline.insert(outline.end(), hole.begin(), hole.end());
        outline.push_back(hole.front());
    }
    if (!piece.holes.empty())
        outline.push_back(start);
    return outline;
}

void add_pieces(Plan& plan, const Answer& answer)
{
    const PrintedDivision& printed = answer.printed;
    const std::string name = as_text(answer.parcel.place.name);
    for (std::size_t i = 0; i < printed.proven.pieces.size(); ++i) {
        const plparcel::Piece& piece = printed.proven.pieces[i];
        const bool is_rest = piece.amount + 1 == printed.proven.held.size();
        const std::vector<std::string>& given = answer.asked.amounts;
        const std::size_t parts = printed.proven.held[piece.amount].pieces;
        plan.pieces.push_back({piece_title(name, i), with_holes_joined(piece), printed.areas[i],
                               is_rest || piece.amount >= given.size()
                                   ? "rest"
                                   : (parts > 1 ? "part of " : "") + given[piece.amount]});
    }
}

// In lines that fit the title block; those after the first have no key.
void add_assumed(Plan& plan, const std::string& clause)
{
    constexpr std::size_t kWidth = 40;
    std::istringstream words(clause);
    std::string key = "Assumed";
    std::string line;
    for (std::string word; words >> word;) {
        if (!line.empty() && key.size() + line.size() + 1 + word.size() > kWidth) {
            plan.title_block.emplace_back(std::exchange(key, ""), std::exchange(line, ""));
        }
        line += (line.empty() ? "" : " ") + word;
    }
    plan.title_block.emplace_back(key, line);
}

}  // namespace

std::string Plan::area_text(double value) const
{
    const std::string square = square_of(unit);
    return fixed(value, area_decimals) + (square.empty() ? "" : " " + square);
}

Plan plan_of(const Answer& answer, const PlanWishes& wishes)
{
    const Parcel& parcel = answer.parcel;
    const PrintedDivision& printed = answer.printed;
    const DivisionPoints points = points_of(answer);
    Plan plan;
    plan.unit = parcel.unit;
    plan.angles = answer.asked.angles;
    plan.crs = as_text(parcel.crs);
    plan.corners = points.rings;
    plan.area = printed.proven.ring.area;
    plan.decimals = printed.resolution.decimals;
    plan.end_decimals = printed.resolution.end_decimals;
    plan.area_decimals = wishes.area_decimals ? *wishes.area_decimals : fitting_area_decimals(printed.areas);
    add_points(plan, points);
    add_sides(plan, points, answer);
    add_lines(plan, points, answer);
    add_pieces(plan, answer);
    for (const std::string& clause : parcel.assumed)
        add_assumed(plan, as_text(clause));
    for (const auto& [key, value] : wishes.title_block)
        plan.title_block.emplace_back(as_text(key), as_text(value));
    const std::string file = as_text(file_of(parcel.place));
    plan.title = parcel.place.name.empty() ? file : "Parcel " + as_text(parcel.place.name);
    plan.subtitles = {
        (parcel.place.name.empty() ? "" : file + ". ") + as_text(cut_sentence(answer.asked, parcel)),
        "Parcel " + plan.area_text(plan.area) + ", perimeter " + fixed(printed.proven.ring.perimeter, 2) +
            (parcel.unit.name.empty() ? "" : " " + parcel.unit.name)};
    if (answer.asked.number == 0)
        return plan;
    const std::size_t index = static_cast<std::size_t>(answer.asked.number - 1);
    if (answer.asked.request.line.cut == plparcel::Cut::through_vertex)
        plan.base_vertex = index;
    else
        plan.base_side = index;
    return plan;
}

}  // namespace tool
