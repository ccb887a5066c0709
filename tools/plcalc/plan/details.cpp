#include "plan/details.h"

#include <algorithm>
#include <cmath>

namespace tool {
namespace {

constexpr std::size_t kMost = 12;

// Points nearer to each other than this on the plan share a detail.
constexpr double kNear = 20.0;

// Neighbouring points in a detail are this far from each other, if it holds them then.
constexpr double kApart = 34.0;

// Of the window that the points of a detail take.
constexpr double kFilled = 0.55;

// A detail that enlarges less than this shows nothing new.
constexpr double kLeastGain = 2.0;

constexpr double kGap = 14.0;    // between windows
constexpr double kTitle = 16.0;  // above each

SheetBox window(const PlanLayout& layout, std::size_t place)
{
    const SheetBox frame = layout.frame();
    const SheetBox drawing = layout.drawing();
    const bool lies = layout.sheet().x > layout.sheet().y;
    const std::size_t columns = lies ? 3 : 2;
    const std::size_t rows = PlanDetails::kPerSheet / columns;
    const double width = (frame.width() - kGap) / static_cast<double>(columns);
    const double height = (frame.bottom - drawing.top - kGap) / static_cast<double>(rows);
    const std::size_t row = place / columns;
    const std::size_t column = place % columns;
    const double left = frame.left + kGap + width * static_cast<double>(column);
    const double top = drawing.top + kGap + height * static_cast<double>(row);
    return {left, top + kTitle, left + width - kGap, top + height - kGap};
}

// Points of the plan that lie near to each other.
struct Cluster {
    SheetBox box;
    double spacing = INFINITY;  // between neighbours

    SheetPoint middle() const { return {(box.left + box.right) * 0.5, (box.top + box.bottom) * 0.5}; }
    double size() const { return std::max(box.width(), box.height()); }
};

// How far each point is from its neighbours along the boundary and along the dividing lines.
std::vector<double> spacings(const Plan& plan, const PlanLayout& layout)
{
    std::vector<double> spacing(plan.points.size(), INFINITY);
    const auto add = [&](std::size_t from, std::size_t to) {
        const SheetPoint a = layout.at(plan.points[from].at);
        const SheetPoint b = layout.at(plan.points[to].at);
        const double length = length_of({b.x - a.x, b.y - a.y});
        if (!(length > 0.0))
            return;
        spacing[from] = std::min(spacing[from], length);
        spacing[to] = std::min(spacing[to], length);
    };
    for (const PlanSide& side : plan.sides)
        for (const PlanPart& part : side.parts)
            add(part.from, part.to);
    for (const PlanLine& line : plan.lines)
        add(line.from, line.to);
    return spacing;
}

// New points without a name, and points whose dots touch; of corners only where these are few.
std::vector<std::size_t> crowded_points(const Plan& plan, const std::vector<double>& spacing,
                                        const WithoutLabel& without)
{
    constexpr double kDots = 6.0;
    constexpr std::size_t kFewCorners = 40;
    std::vector<std::size_t> crowded = without.new_points;
    for (std::size_t i = 0; i < plan.points.size(); ++i)
        if (spacing[i] < kDots && (plan.points[i].is_new || plan.corners.size() <= kFewCorners))
            crowded.push_back(i);
    return crowded;
}

}  // namespace

PlanDetails::PlanDetails(const Plan& plan, const PlanLayout& layout, const WithoutLabel& without)
{
    const std::vector<double> spacing = spacings(plan, layout);
    std::vector<Cluster> clusters;
    for (const std::size_t i : crowded_points(plan, spacing, without)) {
        const SheetPoint p = layout.at(plan.points[i].at);
        Cluster own = {{p.x, p.y, p.x, p.y}, spacing[i]};
        // Everything near joins the new one.
        for (std::size_t k = clusters.size(); k-- > 0;) {
            const Cluster& other = clusters[k];
            const SheetBox reach = {own.box.left - kNear, own.box.top - kNear, own.box.right + kNear,
                                    own.box.bottom + kNear};
            if (!reach.meets(other.box) && !reach.holds(other.box))
                continue;
            own = {{std::min(own.box.left, other.box.left), std::min(own.box.top, other.box.top),
                    std::max(own.box.right, other.box.right), std::max(own.box.bottom, other.box.bottom)},
                   std::min(own.spacing, other.spacing)};
            clusters.erase(clusters.begin() + static_cast<std::ptrdiff_t>(k));
        }
        clusters.push_back(own);
    }
    const SheetBox box = window(layout, 0);
    const double room = kFilled * std::min(box.width(), box.height());
    const View main = layout.view();
    for (const Cluster& cluster : clusters) {
        const double gain = std::min(room / std::max(cluster.size(), 1e-9), kApart / cluster.spacing);
        if (!(gain >= kLeastGain) || !std::isfinite(gain) || details_.size() == kMost)
            continue;
        Detail detail;
        detail.name = "Detail " + std::to_string(details_.size() + 1);
        const SheetPoint middle = cluster.middle();
        const SheetPoint origin = {(main.box.left + main.box.right) * 0.5,
                                   (main.box.top + main.box.bottom) * 0.5};
        detail.middle = {main.middle.x + (middle.x - origin.x) / main.points_per_unit,
                         main.middle.y - (middle.y - origin.y) / main.points_per_unit};
        detail.radius = std::max(7.0, 0.5 * length_of({cluster.box.width(), cluster.box.height()}) + 4.0);
        detail.denominator = round_denominator(layout.denominator() / gain);
        details_.push_back(detail);
    }
}

View PlanDetails::view(const PlanLayout& layout, std::size_t detail) const
{
    const double gain = layout.denominator() / details_[detail].denominator;
    return {window(layout, detail % kPerSheet), details_[detail].middle, layout.points_per_unit() * gain};
}

}  // namespace tool
