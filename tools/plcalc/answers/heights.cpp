#include "answers/heights.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "plparcel/extent.h"

namespace tool {
namespace {

// A printed end lies off its side by half of the last decimal, which is at most this, or by this part of a large
// parcel's extent.
constexpr double kReach = 1e-3;
constexpr double kReachRel = 1e-6;

bool before(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return p.x != q.x ? p.x < q.x : p.y < q.y;
}

bool same(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return p.x == q.x && p.y == q.y;
}

}  // namespace

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

Heights::Heights(const Answer& answer) : Heights(answer.parcel, answer.printed.proven.decimals)
{
    reach_ = std::max(reach_, answer.printed.off_boundary);
}

Heights::Heights(const Parcel& parcel, const std::optional<int>& decimals) : parcel_(parcel)
{
    if (parcel.heights.empty())
        return;
    corners_ = corners_of(parcel);
    reach_ = std::max(kReach, kReachRel * plparcel::extent_of(parcel.ring).largest());
    if (decimals)
        reach_ = std::max(reach_, std::pow(10.0, -*decimals));
    by_place_.resize(corners_.size());
    std::iota(by_place_.begin(), by_place_.end(), std::size_t{0});
    std::sort(by_place_.begin(), by_place_.end(),
              [&](std::size_t i, std::size_t j) { return before(corners_.at[i], corners_.at[j]); });
}

std::optional<double> Heights::at(const PL_PNT2D_record& p) const
{
    if (by_place_.empty())
        return std::nullopt;
    const plparcel::Ring& at = corners_.at;
    const auto vertex =
        std::lower_bound(by_place_.begin(), by_place_.end(), p,
                         [&](std::size_t i, const PL_PNT2D_record& q) { return before(at[i], q); });
    if (vertex != by_place_.end() && same(at[*vertex], p))
        return known_height(parcel_.heights[*vertex]);
    Foot nearest = {0.0, INFINITY};
    std::size_t side = 0;
    for (std::size_t i = 0; i < at.size(); ++i) {
        const Foot foot = foot_on(at[i], at[corners_.next[i]], p);
        if (foot.distance < nearest.distance) {
            nearest = foot;
            side = i;
        }
    }
    if (!(nearest.distance <= reach_))
        return std::nullopt;
    return known_height(nearest.height(parcel_.heights[side], parcel_.heights[corners_.next[side]]));
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
