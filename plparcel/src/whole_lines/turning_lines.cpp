#include "whole_lines/turning_lines.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <queue>
#include <utility>
#include <vector>

namespace plparcel {
namespace {

using State = TurningProfile::State;
using Term = TurningProfile::Term;

// Part of all triangles together: an area that misses by no more than this may be held, for all that rounding in the sums
// allows to say.
constexpr double kHair = 1e-26;

// Halves of the way between two vertices; there are no more digits.
constexpr int kMostHalvings = 110;

bool is_above_zero(const Wide& a)
{
    return a > 0.0;
}

// A side that the ray meets so many times as near at the end of the way as at its beginning is swept next to the point: what
// it adds is less than any rounding. Squares of larger numbers, in the powers below, would overflow.
constexpr double kMostBend = 1e100;

// What is held too much on the left between two directions next to each other, on the way from 0 to 1.
class Excess {
public:
    Excess(std::vector<Term> terms, const Wide& at_begin) : begin_(at_begin), terms_(std::move(terms))
    {
        const auto adds_nothing = [](const Term& term) { return !(term.bend.hi <= kMostBend); };
        terms_.erase(std::remove_if(terms_.begin(), terms_.end(), adds_nothing), terms_.end());
    }

    Wide at(const Wide& t) const
    {
        Wide sum = begin_;
        for (const Term& term : terms_)
            sum = sum + term.growth * t / (Wide(1.0) + term.bend * t);
        return sum;
    }

    Wide slope_at(const Wide& t) const
    {
        Wide sum;
        for (const Term& term : terms_) {
            const Wide quotient = Wide(1.0) + term.bend * t;
            sum = sum + term.growth / (quotient * quotient);
        }
        return sum;
    }

    // On both sides of a place: at(middle + x half) = middle + slope x + ... with -1 <= x <= 1.
    struct Powers {
        bool converge = true;
        Wide middle;
        Wide slope;
        double others = 0.0;           // what the powers from the second on amount to
        double others_of_slope = 0.0;  // the same of their derivatives
    };

    Powers powers(const Wide& middle, const Wide& half) const
    {
        constexpr std::size_t kPowers = 16;
        Powers found;
        found.middle = at(middle);
        Wide sums[kPowers];
        double rest = 0.0;
        for (const Term& term : terms_) {
            const Wide quotient = Wide(1.0) + term.bend * middle;
            const Wide step = -(term.bend * half / quotient);
            if (!(std::fabs(step.hi) <= 0.5)) {
                found.converge = false;
                return found;
            }
            Wide power = term.growth * half / (quotient * quotient);
            for (Wide& sum : sums) {
                sum = sum + power;
                power = power * step;
            }
            rest += std::fabs(power.hi);
        }
        // The powers beyond are less than a geometric series of halves, their derivatives than k times that.
        constexpr double kRest = 4.0 * (kPowers + 2.0);
        found.slope = sums[0];
        found.others = found.others_of_slope = kRest * rest;
        for (std::size_t k = 1; k < kPowers; ++k) {
            found.others += std::fabs(sums[k].hi);
            found.others_of_slope += static_cast<double>(k + 1) * std::fabs(sums[k].hi);
        }
        return found;
    }

private:
    Wide begin_;
    std::vector<Term> terms_;
};

// The zero of a function that has one sign at the begin of a range and the other at its end.
template <class Function> Wide zero_of(const Function& of, Wide begin, Wide end)
{
    const bool rises = is_above_zero(of(end));
    Wide at = (begin + end) * 0.5;
    for (int i = 0; i < kMostHalvings && begin < at && at < end; ++i) {
        (is_above_zero(of(at)) == rises ? end : begin) = at;
        at = (begin + end) * 0.5;
    }
    return at;
}

// The lines between two directions next to each other.
class Between {
public:
    Between(Excess excess, const Wide& at_begin, const Wide& at_end, const Wide& scale, const Wide& granted)
        : excess_(std::move(excess)), rim_(scale * kHeldExactly), hair_(scale.hi * kHair),
          granted_(granted.hi), begin_holds_(!(abs(at_begin) > rim_)), end_holds_(!(abs(at_end) > rim_))
    {}

    TurningZeros run()
    {
        look(0.0, 1.0, 0);
        end_run(1.0);
        return std::move(found_);
    }

private:
    void look(const Wide& begin, const Wide& end, int halved)
    {
        const Wide half = (end - begin) * 0.5;
        const Wide middle = begin + half;
        const Excess::Powers powers = excess_.powers(middle, half);
        if (powers.converge) {
            const double most = std::fabs(powers.middle.hi) + std::fabs(powers.slope.hi) + powers.others;
            if (most <= hair_ || halved == kMostHalvings) {
                run_begin_ = run_begin_ ? run_begin_ : begin;
                return;
            }
            const bool is_monotone = std::fabs(powers.slope.hi) > powers.others_of_slope;
            const double away = std::fabs(powers.middle.hi) - std::fabs(powers.slope.hi) - powers.others;
            const bool has_none = away > 0.0;
            if (has_none || is_monotone) {
                end_run(begin);
                if (!has_none)
                    look_for_root(begin, end);
                else if (!is_monotone && away <= granted_)
                    look_for_extreme(begin, end);
                return;
            }
        }
        if (halved < kMostHalvings) {
            look(begin, middle, halved + 1);
            look(middle, end, halved + 1);
        }
    }

    // Zero at the ends where the lines through the vertices hold the area.
    Wide excess_at(const Wide& t) const
    {
        if ((begin_holds_ && !(t > 0.0)) || (end_holds_ && !(t < 1.0)))
            return 0.0;
        return excess_.at(t);
    }

    // A root at the begin belongs to the range before.
    void look_for_root(const Wide& begin, const Wide& end)
    {
        const Wide at_begin = excess_at(begin);
        const Wide at_end = excess_at(end);
        const bool ends_at_it = !(at_end > 0.0) && !(at_end < 0.0);
        if (ends_at_it)
            add(end);
        else if ((at_begin > 0.0 && at_end < 0.0) || (at_begin < 0.0 && at_end > 0.0))
            add(zero_of([this](const Wide& t) { return excess_.at(t); }, begin, end));
    }

    void add(const Wide& t)
    {
        if (t > kHeldExactly && t < Wide(1.0) - kHeldExactly)
            found_.exact.push_back(t);
    }

    Wide extreme_in(const Wide& begin, const Wide& end) const
    {
        const auto slope = [this](const Wide& t) { return excess_.slope_at(t); };
        if (is_above_zero(slope(begin)) == is_above_zero(slope(end)))
            return (begin + end) * 0.5;
        return zero_of(slope, begin, end);
    }

    void look_for_extreme(const Wide& begin, const Wide& end)
    {
        const Wide t = extreme_in(begin, end);
        const Wide miss = abs(excess_.at(t));
        if (!found_.nearest || miss < found_.miss) {
            found_.nearest = t;
            found_.miss = miss;
        }
    }

    // Where the area was held all along, or as good as held: one line for all, unless that is the one at a vertex.
    void end_run(const Wide& end)
    {
        if (!run_begin_)
            return;
        const Wide begin = *run_begin_;
        run_begin_.reset();
        const bool from_vertex = !(begin > 0.0);
        const bool to_vertex = !(end < 1.0);
        const bool is_at_vertex =
            from_vertex != to_vertex && ((from_vertex && begin_holds_) || (to_vertex && end_holds_));
        if (!is_at_vertex)
            add(extreme_in(begin, end));
    }

    Excess excess_;
    Wide rim_;
    double hair_;
    double granted_;
    bool begin_holds_;
    bool end_holds_;
    std::optional<Wide> run_begin_;
    TurningZeros found_;
};

class Search {
public:
    Search(const TurningProfile& profile, const TurningRequest& request,
           const std::function<bool(const TurningLine&)>& take)
        : profile_(profile), request_(request), take_(take), states_(profile.directions().size()),
          last_(states_.size() - 1)
    {}

    void run()
    {
        const Wide all = state(last_).swept;
        half_turn(request_.left, 1.0);
        if (request_.full_turn)
            half_turn(all - request_.left, -1.0);
        else if (!first_holds_)
            propose_at(last_);
        for (const TurningLine& line : beside_)
            offer(line);
    }

private:
    const State& state(std::size_t direction)
    {
        if (!states_[direction])
            states_[direction] = profile_.at(direction);
        return *states_[direction];
    }

    // The second half of a turn meets the same lines the other way round.
    void half_turn(const Wide& left, double way)
    {
        left_ = left;
        way_ = way;
        proposed_ = 0;
        look(0, last_);
    }

    // Whether what is wanted may lie between two directions: no further from what lies on the left at the first than
    // what is swept ahead or behind.
    bool may_hold(const State& begin, const State& end) const
    {
        const Wide swept = end.swept - begin.swept;
        const Wide grown = end.left - begin.left;
        const Wide slack = request_.granted + profile_.scale() * kHair;
        const Wide more = left_ - begin.left;
        return !(more > (swept + grown) * 0.5 + slack) && !(-more > (swept - grown) * 0.5 + slack);
    }

    void look(std::size_t begin, std::size_t end)
    {
        if (is_taken_ || !may_hold(state(begin), state(end)))
            return;
        if (end - begin > 1) {
            const std::size_t middle = begin + (end - begin) / 2;
            look(begin, middle);
            look(middle, end);
            return;
        }
        propose_at(begin);
        look_between(begin);
        if (end != last_)
            propose_at(end);
    }

    void offer(const TurningLine& line) { is_taken_ = is_taken_ || take_(line); }

    void propose_at(std::size_t direction)
    {
        if (direction < proposed_)
            return;
        proposed_ = direction + 1;
        const Wide miss = abs(state(direction).left - left_);
        const bool holds = !(miss > profile_.scale() * kHeldExactly);
        if (direction == 0)
            first_holds_ = holds;
        if (holds)
            offer({profile_.directions()[direction] * way_, false});
        else if (!(miss > request_.granted))
            beside_.push_back({profile_.directions()[direction] * way_, true});
    }

    void look_between(std::size_t direction)
    {
        const WidePoint& from = profile_.directions()[direction];
        const WidePoint& to = profile_.directions()[direction + 1];
        const Wide at_begin = state(direction).left - left_;
        const TurningZeros found =
            turning_zeros(profile_.terms(direction), at_begin, state(direction + 1).left - left_,
                          profile_.scale(), request_.granted);
        const auto line_at = [&](const Wide& t) { return (from + (to - from) * t) * way_; };
        for (const Wide& t : found.exact)
            offer({line_at(t), false});
        if (found.exact.empty() && found.nearest && !(found.miss > request_.granted))
            beside_.push_back({line_at(*found.nearest), true});
    }

    const TurningProfile& profile_;
    const TurningRequest& request_;
    const std::function<bool(const TurningLine&)>& take_;
    std::vector<std::optional<State>> states_;
    std::size_t last_;
    Wide left_;
    double way_ = 1.0;
    std::size_t proposed_ = 0;  // one more than the last direction that was looked at
    bool first_holds_ = false;
    bool is_taken_ = false;
    std::vector<TurningLine> beside_;
};

// Raises `best` to the greatest value of a function on a way, or with `sign` -1 to that of the function's negative, unless
// it is greater by a hair at most.
void raise_to_greatest(const Excess& of, double sign, const Wide& hair, Wide& best, const Wide& begin = 0.0,
                       const Wide& end = 1.0, int halved = 0)
{
    const Wide half = (end - begin) * 0.5;
    const Wide middle = begin + half;
    const Excess::Powers powers = of.powers(middle, half);
    const Wide at_middle = powers.middle * sign;
    best = std::max(best, at_middle);
    if (powers.converge) {
        const double reach = std::fabs(powers.slope.hi) + powers.others;
        const bool is_monotone = std::fabs(powers.slope.hi) > powers.others_of_slope;
        if (is_monotone || !(at_middle + reach > best + hair))
            return;
    }
    if (halved < kMostHalvings) {
        raise_to_greatest(of, sign, hair, best, begin, middle, halved + 1);
        raise_to_greatest(of, sign, hair, best, middle, end, halved + 1);
    }
}

// The greatest area on the left, or with `sign` -1 the least.
class Greatest {
public:
    Greatest(const TurningProfile& profile, double sign)
        : profile_(profile), sign_(sign), states_(profile.directions().size())
    {}

    Wide run()
    {
        const Wide hair = profile_.scale() * kHair;
        const std::size_t last = states_.size() - 1;
        best_ = std::max(state(0).left * sign_, state(last).left * sign_);
        std::priority_queue<Range> ranges;
        ranges.push(range(0, last));
        while (!ranges.empty() && ranges.top().bound > best_ + hair) {
            const Range at = ranges.top();
            ranges.pop();
            if (at.end - at.begin == 1) {
                raise_to_greatest(Excess(profile_.terms(at.begin), state(at.begin).left), sign_, hair, best_);
                continue;
            }
            const std::size_t middle = at.begin + (at.end - at.begin) / 2;
            best_ = std::max(best_, state(middle).left * sign_);
            ranges.push(range(at.begin, middle));
            ranges.push(range(middle, at.end));
        }
        return best_ * sign_;
    }

private:
    const State& state(std::size_t direction)
    {
        if (!states_[direction])
            states_[direction] = profile_.at(direction);
        return *states_[direction];
    }

    // Directions between which there may be no more than `bound`. The most promising ones are looked at first.
    struct Range {
        Wide bound;
        std::size_t begin;
        std::size_t end;

        bool operator<(const Range& other) const { return bound < other.bound; }
    };

    Range range(std::size_t begin, std::size_t end)
    {
        const Wide swept = state(end).swept - state(begin).swept;
        const Wide grown = (state(end).left - state(begin).left) * sign_;
        return {state(begin).left * sign_ + (swept + grown) * 0.5, begin, end};
    }

    const TurningProfile& profile_;
    double sign_;
    std::vector<std::optional<State>> states_;
    Wide best_;
};

}  // namespace

void turning_lines(const TurningProfile& profile, const TurningRequest& request,
                   const std::function<bool(const TurningLine&)>& take)
{
    Search(profile, request, take).run();
}

TurningZeros turning_zeros(std::vector<Term> terms, const Wide& begin, const Wide& end, const Wide& scale,
                           const Wide& granted)
{
    return Between(Excess(std::move(terms), begin), begin, end, scale, granted).run();
}

LeastAndMost least_and_most_between(std::vector<Term> terms, const Wide& begin, const Wide& end,
                                    const Wide& scale)
{
    Wide most = std::max(begin, end);
    Wide other_of_least = -std::min(begin, end);
    const Excess area(std::move(terms), begin);
    raise_to_greatest(area, 1.0, scale * kHair, most);
    raise_to_greatest(area, -1.0, scale * kHair, other_of_least);
    return {-other_of_least, most};
}

LeastAndMost least_and_most(const TurningProfile& profile, bool full_turn)
{
    LeastAndMost found = {Greatest(profile, -1.0).run(), Greatest(profile, 1.0).run()};
    if (!full_turn)
        return found;
    // Over the other half turn the rest of the parcel lies on the left.
    const Wide all = profile.at(profile.directions().size() - 1).swept;
    return {std::min(found.least, all - found.most), std::max(found.most, all - found.least)};
}

}  // namespace plparcel
