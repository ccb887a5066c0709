#include "plan/layout.h"

#include <algorithm>
#include <cmath>

#include "plparcel/extent.h"

namespace tool {
namespace {

constexpr double kPointsPerMetre = 72.0 / 0.0254;
constexpr double kPointsPerMillimetre = kPointsPerMetre / 1000.0;

constexpr double kMargin = 10.0 * kPointsPerMillimetre;
constexpr double kTitleHeight = 22.0 * kPointsPerMillimetre;
constexpr double kLabelRoom = 16.0 * kPointsPerMillimetre;  // around the parcel

SheetPoint upright(Paper paper)
{
    const double width = paper == Paper::a4 ? 210.0 : 297.0;
    const double height = paper == Paper::a4 ? 297.0 : 420.0;
    return {width * kPointsPerMillimetre, height * kPointsPerMillimetre};
}

// A decade of steps, ascending.
template <std::size_t n> double step_from(const double (&steps)[n], double value, bool upwards)
{
    double power = std::pow(10.0, std::floor(std::log10(value)));
    double best = steps[0] * power;
    for (const double decade : {power, 10.0 * power}) {
        for (const double step : steps) {
            const double candidate = step * decade;
            if (upwards && candidate >= value)
                return candidate;
            if (!upwards && candidate <= value)
                best = candidate;
        }
    }
    return best;
}

}  // namespace

std::optional<Paper> paper_of(const std::string& name)
{
    if (name == "A4" || name == "a4")
        return Paper::a4;
    if (name == "A3" || name == "a3")
        return Paper::a3;
    return std::nullopt;
}

const char* paper_name(Paper paper)
{
    return paper == Paper::a4 ? "A4" : "A3";
}

double round_length(double value)
{
    constexpr double kSteps[] = {1.0, 2.0, 5.0};
    return step_from(kSteps, value, false);
}

double round_denominator(double value)
{
    constexpr double kSteps[] = {1.0, 1.5, 2.0, 2.5, 5.0};
    return step_from(kSteps, value, true);
}

PlanLayout::PlanLayout(const plparcel::Ring& ring, double metres, Paper paper,
                       const std::function<double(const SheetBox&)>& foot_height)
{
    const plparcel::Extent extent = plparcel::extent_of(ring);
    middle_ = {extent.low.x + extent.width() * 0.5, extent.low.y + extent.height() * 0.5};
    const double width = extent.width() * metres * kPointsPerMetre;
    const double height = extent.height() * metres * kPointsPerMetre;

    double least = 0.0;
    const SheetPoint portrait = upright(paper);
    for (const SheetPoint& sheet : {portrait, SheetPoint{portrait.y, portrait.x}}) {
        const SheetBox frame = {kMargin, kMargin, sheet.x - kMargin, sheet.y - kMargin};
        const SheetBox drawing = {frame.left, frame.top + kTitleHeight, frame.right,
                                  frame.bottom - foot_height(frame)};
        const double needed = std::max(width / (drawing.width() - 2.0 * kLabelRoom),
                                       height / (drawing.height() - 2.0 * kLabelRoom));
        const double denominator = round_denominator(needed);
        const bool first = !(sheet_.x > 0.0);
        if (!first && (denominator > denominator_ || (denominator == denominator_ && needed >= least)))
            continue;
        least = needed;
        sheet_ = sheet;
        frame_ = frame;
        drawing_ = drawing;
        denominator_ = denominator;
    }
    points_per_unit_ = metres * kPointsPerMetre / denominator_;
}

}  // namespace tool
