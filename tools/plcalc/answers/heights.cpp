#include "answers/heights.h"

#include <algorithm>
#include <cmath>

namespace tool {

void KnownHeights::add(const std::vector<double>& heights)
{
    lacking_ = lacking_ || heights.empty();
    for (const double height : heights)
        (known_height(height) ? any_ : lacking_) = true;
}

void KnownHeights::add(const KnownHeights& others)
{
    any_ = any_ || others.any_;
    lacking_ = lacking_ || others.lacking_;
}

double Foot::height(double from, double to) const
{
    if (part == 0.0 || part == 1.0)
        return part == 0.0 ? from : to;
    return from + part * (to - from);
}

Foot foot_on(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    const double along = length2 > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / length2 : 0.0;
    const double part = std::min(1.0, std::max(0.0, along));
    return {part, std::hypot(a.x + part * dx - p.x, a.y + part * dy - p.y)};
}

Heights::Heights(const Answer& answer)
    : Heights(answer.parcel, answer.printed.proven.decimals, answer.printed.off_boundary)
{}

Heights::Heights(const Parcel& parcel, const std::optional<int>& decimals) : Heights(parcel, decimals, 0.0)
{}

Heights::Heights(const Parcel& parcel, const std::optional<int>& decimals, double off_boundary)
{
    if (!parcel.heights.empty())
        known_.emplace(boundary_of(parcel), parcel.heights, decimals, off_boundary);
}

std::optional<double> Heights::at(const PL_PNT2D_record& p) const
{
    return known_ ? known_->at(p) : std::nullopt;
}

std::optional<std::vector<double>> Heights::at_all(const std::vector<PL_PNT2D_record>& points) const
{
    std::vector<double> heights;
    for (const PL_PNT2D_record& p : points) {
        const std::optional<double> height = at(p);
        if (!height)
            return std::nullopt;
        heights.push_back(*height);
    }
    return heights;
}

}  // namespace tool
