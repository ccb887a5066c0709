#include "subdivision/turned_steps.h"

#include <algorithm>
#include <cmath>

#include "kernel/tolerance.h"
#include "survey/offsets.h"
#include "survey/side_range.h"

namespace plcalc {

namespace {

// Of the greatest coordinates: what a foot may be off on either axis.
constexpr double kOfFoot = 0x1p-50;

// A step that is longer than so many times that is turned by 0.9 gon at most. One with a component below the other
// counts as level or upright; the rest is for steps beside the direction.
constexpr double kLongest = 100.0;
constexpr double kLeast = 0.9 * PL_EPS;

// Below, a step that rounding may turn and that does not count as level or upright is more than two gons from either.
constexpr double kMostOff = 3e-8;

// Rows of steps that are listed: at coordinates of 5e6 there are 500.
constexpr double kMostRows = 4096.0;

// A gon, as cosine and sine.
constexpr double kCosGon = 0.9998766324816606;
constexpr double kSinGon = 0.015707317311820675;
constexpr double kGonPerRad = 63.6;  // or a little less

// Coordinates on one axis, as far as feet may lie beyond the parcel.
struct Extent {
    double low = HUGE_VAL;
    double high = -HUGE_VAL;

    void take(double v) noexcept
    {
        low = std::min(low, v);
        high = std::max(high, v);
    }
    void widen(double by) noexcept
    {
        low -= by;
        high += by;
    }
    double greatest() const noexcept { return std::max(std::fabs(low), std::fabs(high)); }

    // The last bit of the least coordinate: all are multiples of it.
    double grid() const noexcept
    {
        const double least = std::min(std::fabs(low), std::fabs(high));
        return low <= 0.0 && high >= 0.0 ? 0.0 : std::ldexp(1.0, std::ilogb(least) - 52);
    }
};

}  // namespace

TurnedSteps::TurnedSteps(const std::vector<PL_PNT2D_record>& points, double normal_x,
                         double normal_y) noexcept
    : least_gon_(HUGE_VAL), least_gon_of_others_(HUGE_VAL)
{
    Extent x;
    Extent y;
    for (const PL_PNT2D_record& p : points) {
        x.take(p.x);
        y.take(p.y);
    }
    const double diagonal = (x.high - x.low) + (y.high - y.low) + 10.0 * kStakeOutMargin;
    x.widen(diagonal);
    y.widen(diagonal);
    grid_x_ = x.grid();
    grid_y_ = y.grid();
    foot_off_ = kOfFoot * (x.greatest() + y.greatest());
    few_ = foot_off_ < kMostOff;

    const double length = std::sqrt(normal_x * normal_x + normal_y * normal_y);
    const double nx = normal_x / length;
    const double ny = normal_y / length;
    rows_[0] = rows_along(nx * kCosGon - ny * kSinGon, ny * kCosGon + nx * kSinGon);
    rows_[1] = rows_along(nx * kCosGon + ny * kSinGon, ny * kCosGon - nx * kSinGon);
}

TurnedSteps::Rows TurnedSteps::rows_along(double along_x, double along_y) noexcept
{
    Rows rows;
    rows.level = grid_x_ <= grid_y_;
    rows.in_row = rows.level ? along_x : along_y;
    rows.across = rows.level ? along_y : along_x;
    rows.grid = rows.level ? grid_x_ : grid_y_;
    rows.height = std::copysign(rows.level ? grid_y_ : grid_x_, rows.across);
    const double longest = kLongest * foot_off_;
    const double shortest = kLeast / std::min(std::fabs(rows.in_row), std::fabs(rows.across));
    if (!few_ || longest < shortest)
        return rows;  // all that are so short count as level or upright
    rows.first = std::max(std::floor(shortest * rows.across / rows.height), 1.0);
    const double more = std::ceil(longest * rows.across / rows.height) - rows.first;
    if (rows.grid > 0.0 && more < kMostRows)
        rows.count = static_cast<int>(more) + 1;
    else
        few_ = false;
    return rows;
}

std::size_t TurnedSteps::to_list() const noexcept
{
    return few_ ? 2 * static_cast<std::size_t>(rows_[0].count + rows_[1].count) : 0;
}

void TurnedSteps::list()
{
    if (!few_)
        return;
    bearings_.reserve(to_list());
    for (const Rows& rows : rows_)
        list_in(rows);
    std::sort(bearings_.begin(), bearings_.end());
}

// Of each row, the nearest step to the direction is listed, and its opposite.
void TurnedSteps::list_in(const Rows& rows)
{
    if (rows.count == 0)
        return;
    least_gon_of_others_ =
        std::min(least_gon_of_others_,
                 kGonPerRad * 0.49 * rows.grid * std::fabs(rows.across) / (kLongest * foot_off_));
    for (int i = 0; i < rows.count; ++i) {
        const double aside = (rows.first + i) * rows.height;
        const double direction = aside * rows.in_row / rows.across;
        const double nearest = std::floor(direction / rows.grid + 0.5) * rows.grid;
        const double off = std::fabs(direction - nearest) * rows.across * rows.across;
        least_gon_ = std::min(least_gon_, kGonPerRad * off / std::fabs(aside));
        const PL_PNT2D_record step =
            rows.level ? PL_PNT2D_record{nearest, aside} : PL_PNT2D_record{aside, nearest};
        bearings_.push_back(direction_gon({0.0, 0.0}, step));
        bearings_.push_back(direction_gon(step, {0.0, 0.0}));
    }
}

bool TurnedSteps::between(double gon1, double gon2) const noexcept
{
    const auto next = std::lower_bound(bearings_.begin(), bearings_.end(), std::min(gon1, gon2));
    return next != bearings_.end() && *next <= std::max(gon1, gon2);
}

}  // namespace plcalc
