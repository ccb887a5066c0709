#include "subdivision/hopeless_lines.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "survey/side_range.h"

namespace plcalc {

namespace {

// How far a bisection may stray from the stretch between base line and vertex, as a part of the parcel's width. Its
// 30 lines stray no farther when each crossing is off its line by a 32nd of that.
constexpr double kMostStray = 0x1p-15;
constexpr double kMostLines = 32.0;

// A strip that is not proved is tried again at half its height; the next one is twice as high.
constexpr double kNarrower = 0.5;
constexpr double kWider = 2.0;

// What a line or a strip costs without any crossing, in crossings.
constexpr std::int64_t kWorkOfLine = 8;

// What a bearing of a turned step costs, in crossings.
constexpr std::int64_t kWorkOfBearing = 3;

}  // namespace

bool HopelessLines::up_to(std::int32_t at)
{
    // Nothing divided by these is ever below the tolerance.
    if (std::isnan(requested_) || (requested_ == 0.0 && !std::signbit(requested_)))
        return true;
    if (!begin())
        return false;
    const double off = trials_.constant(at) - trials_.base_constant();
    const bool along_normal = std::signbit(off);
    return extend(!along_normal, room_) && extend(along_normal, std::fabs(off) + room_);
}

// Starts with the lines near the base line, as soon as the work that is left pays for listing the turned steps.
bool HopelessLines::begin()
{
    if (begun_)
        return usable_;
    if (work_left_ <= 0)
        return false;
    if (!steps_) {
        measure_parcel();
        steps_ = trials_.turned_steps();
    }
    const std::int64_t listing = kWorkOfBearing * static_cast<std::int64_t>(steps_->to_list());
    if (work_left_ <= listing)
        return false;
    begun_ = true;
    work_left_ -= listing;
    steps_->list();
    usable_ = none_near_base();
    return usable_;
}

// Goes on from what is proved, towards the vertex.
bool HopelessLines::extend(bool along_normal, double wanted)
{
    double& reached = reached_[along_normal ? 0 : 1];
    double& step = step_[along_normal ? 0 : 1];
    const double base = trials_.base_constant();
    while (!(reached >= wanted)) {
        if (work_left_ <= 0 || !(step >= trials_.near_base()))
            return false;
        const double to = std::min(reached + step, wanted);
        const Strip strip = along_normal ? Strip{base - to, base - reached, true, false}
                                         : Strip{base + reached, base + to, false, true};
        if (none_in(strip)) {
            reached = to;
            step *= kWider;
        } else {
            step *= kNarrower;
        }
    }
    return true;
}

// Lines this near to the base line may face either way or none.
bool HopelessLines::none_near_base()
{
    const double half = trials_.few_bearings_from(farthest_, *steps_);
    if (!(half < farthest_))
        return false;
    const double low = trials_.base_constant() - half;
    const double high = trials_.base_constant() + half;
    reached_ = {half, half};
    step_ = {half, half};
    return none_in({low, high, false, false}) && none_in({low, high, true, false}) &&
           none_in({low, high, false, true});
}

void HopelessLines::measure_parcel()
{
    double least_along = HUGE_VAL;
    double most_along = -HUGE_VAL;
    double least_x = HUGE_VAL;
    double most_x = -HUGE_VAL;
    for (const PL_PNT2D_record& p : trials_.points()) {
        const double along = trials_.along(p);
        least_along = std::min(least_along, along);
        most_along = std::max(most_along, along);
        least_x = std::min(least_x, p.x);
        most_x = std::max(most_x, p.x);
    }
    double farthest = 0.0;
    for (std::int32_t at = 2; at < trials_.last(); ++at)
        farthest = std::max(farthest, std::fabs(trials_.constant(at) - trials_.base_constant()));
    const double across = 0.9999 * trials_.normal_length();
    const double width = 1.001 * (most_along - least_along) / across + 10.0 * kStakeOutMargin;
    const double additions = 2.0 * static_cast<double>(trials_.points().size()) + 4.0;
    room_ = kMostStray * width * across;
    farthest_ = farthest + 2.0 * room_;
    area_per_c_ = width / across;
    rounding_ = 0x1p-52 * additions * additions * (most_x - least_x + kStakeOutMargin) *
                (trials_.greatest() + kStakeOutMargin);
}

void HopelessLines::note_futile(std::int32_t lines, std::size_t crossings) noexcept
{
    work_left_ += lines * (kWorkOfLine + static_cast<std::int64_t>(crossings));
}

// Once round the parcel with all these lines at once. Sides that none comes near, and vertices that lie on one side
// of all, are in all the pieces that they cut off or in none. What may differ at the other sides is summed up as a
// height; times the parcel's width it bounds the difference of two such pieces.
bool HopelessLines::none_in(const Strip& strip)
{
    const TrialLine line =
        trials_.any_line_between(strip.low, strip.high, strip.drops_below, strip.drops_above);
    const double height = strip.high - strip.low;
    double doubtful = height;
    scratch_.clear();
    scratch_.append_vertices(0, 1);
    const std::int32_t last = trials_.last();
    for (std::int32_t at = 2; at <= last; ++at) {
        const std::int32_t kept = trials_.kept_until(line, at);
        scratch_.append_vertices(at, kept - 1);
        at = trials_.beyond_until(line, kept);
        work_left_ -= 1;
        if (at > kept)
            doubtful += height;
        if (at > last)
            break;
        const double crossing_off = trials_.crossing_off(at);
        if (!(kMostLines * crossing_off <= room_))
            return false;
        doubtful += 4.0 * (trials_.reach(at) + crossing_off) + doubtful_at(strip, at);
    }
    work_left_ -= kWorkOfLine;
    return scratch_.surely_apart_from(requested_, rounding_ + area_per_c_ * doubtful);
}

// Adds what one of the lines in the middle keeps at a side, and tells how much others may differ, but for what its
// crossings are off.
double HopelessLines::doubtful_at(const Strip& strip, std::int32_t at)
{
    const double height = strip.high - strip.low;
    const double side_height = std::fabs(trials_.constant(at) - trials_.constant(at - 1));
    const Place from = place(strip, at - 1);
    const Place to = place(strip, at);
    PL_PNT2D_record crossing = {};
    double doubtful = 0.0;
    if (from != to && trials_.all_meet_side(strip.low, strip.high, at, crossing)) {
        scratch_.append_point(crossing);
        doubtful = 2.0 * height;
    } else if (from != to || from == Place::kUnsure) {
        doubtful = side_height;
    } else if (from == Place::kBeyond) {
        doubtful = height;
    }
    const bool near_side =
        trials_.constant(at) < (strip.low + strip.high) * 0.5 ? !strip.drops_below : !strip.drops_above;
    if (to == Place::kKept || (to == Place::kUnsure && near_side))
        scratch_.append_vertices(at, at);
    return doubtful;
}

HopelessLines::Place HopelessLines::place(const Strip& strip, std::int32_t at) const noexcept
{
    const double c = trials_.constant(at);
    const double margin = trials_.vertex_margin();
    if (c < strip.low - margin)
        return strip.drops_below ? Place::kBeyond : Place::kKept;
    if (c > strip.high + margin)
        return strip.drops_above ? Place::kBeyond : Place::kKept;
    return Place::kUnsure;
}

}  // namespace plcalc
