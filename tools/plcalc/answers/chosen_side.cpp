#include "answers/chosen_side.h"

#include <cstddef>

#include "text/angles.h"
#include "text/numbers.h"

namespace tool {
namespace {

using By = SideChoice::By;
using plparcel::Candidate;
using plparcel::Choice;
using plparcel::ChoiceStatus;

constexpr int kLengthDecimals = 3;
constexpr int kTurnedDecimals = 2;

// From the axis of a road to the boundary of a lot, metres.
constexpr double kBesideRoad = 20.0;

class Chooser {
public:
    Chooser(const Asked& asked, const Parcel& parcel)
        : choice_(asked.choice), angles_(asked.angles), parcel_(parcel)
    {}

    Choice look() const
    {
        const plparcel::Parcel rings = boundary_of(parcel_);
        switch (choice_.by) {
        case By::longest:
            return plparcel::longest_side(rings, plparcel::kTiedWithin);
        case By::shortest:
            return plparcel::shortest_side(rings, plparcel::kTiedWithin);
        case By::near:
            return plparcel::side_near(rings, choice_.point, plparcel::kTiedWithin);
        case By::facing:
            return plparcel::side_facing(rings, choice_.bearing_gon, plparcel::kTiedWithinGon);
        case By::along:
            return plparcel::side_along(rings, *choice_.other, {distance()}, plparcel::kTiedWithin);
        case By::vertex_near:
        case By::number:
            break;
        }
        return plparcel::vertex_near(rings, choice_.point, plparcel::kTiedWithin);
    }

    long long number(const Candidate& candidate) const
    {
        std::size_t index = candidate.place.index;
        for (std::size_t ring = 0; ring < candidate.place.ring; ++ring)
            index += ring == 0 ? parcel_.ring.size() : parcel_.holes[ring - 1].size();
        return static_cast<long long>(index) + 1;
    }

    // "side 3 is the longest, 120.000; next comes side 1, 118.200".
    std::string found(const Choice& choice) const
    {
        const Candidate& best = choice.candidates.front();
        return name(best) + " " + what_it_is() + ", " + measured(best) +
               (choice.next ? "; next comes " + name(*choice.next) + ", " + measured(*choice.next) : "");
    }

    Failure tied(const Choice& choice) const
    {
        constexpr std::size_t kMost = 5;
        std::string names;
        const std::size_t count = choice.candidates.size();
        for (std::size_t i = 0; i < count && i < kMost; ++i)
            names += (i == 0           ? ""
                      : i + 1 == count ? " and "
                                       : ", ") +
                     std::to_string(number(choice.candidates[i]));
        if (count > kMost)
            names += " and " + std::to_string(count - kMost) + " more";
        return failure((choice_.by == By::vertex_near ? "vertices " : "sides ") + names +
                           " fit equally well: each " + what_it_is() + ", " +
                           measured(choice.candidates.front()),
                       "choose one of them by its number");
    }

    Failure none(const Choice& choice) const
    {
        if (choice.status == ChoiceStatus::too_far)
            return failure("no side comes within " + length(distance()) + " of " + choice_.given +
                               ": the nearest is " + length(choice.nearest) + " away",
                           "give a greater --within, or choose the side by its number");
        return failure(std::string(plparcel::describe(choice.status)) + " (" + choice_.given + ")",
                       "choose the side by its number");
    }

private:
    double distance() const { return choice_.distance.value_or(kBesideRoad / parcel_.unit.metres); }

    std::string length(double value) const { return fixed(on_ground(parcel_, value), kLengthDecimals); }

    std::string name(const Candidate& candidate) const
    {
        const long long chosen = number(candidate);
        return choice_.by == By::vertex_near
                   ? "vertex " + vertex_name(parcel_, static_cast<std::size_t>(chosen - 1))
                   : "side " + std::to_string(chosen);
    }

    std::string what_it_is() const
    {
        switch (choice_.by) {
        case By::longest:
            return "is the longest";
        case By::shortest:
            return "is the shortest";
        case By::facing:
            return "faces " + choice_.given;
        case By::along:
            return "lies along " + choice_.given;
        case By::near:
        case By::vertex_near:
        case By::number:
            break;
        }
        return "is the nearest to " + choice_.given;
    }

    std::string measured(const Candidate& candidate) const
    {
        switch (choice_.by) {
        case By::longest:
        case By::shortest:
            return length(candidate.length);
        case By::facing:
            return with_angle_sign(
                       angle_text(candidate.turned, angles_, decimals_in(angles_, kTurnedDecimals)),
                       angles_) +
                   " from it";
        case By::along:
            return length(candidate.alongside) + " of it, as near as " + length(candidate.distance);
        case By::near:
        case By::vertex_near:
        case By::number:
            break;
        }
        return length(candidate.distance) + " away";
    }

    Failure failure(const std::string& problem, const std::string& advice) const
    {
        return {ExitStatus::cannot_cut, parcel_.place, problem, advice};
    }

    const SideChoice& choice_;
    AngleUnit angles_;
    const Parcel& parcel_;
};

}  // namespace

Asked with_side(Asked asked, const Parcel& parcel)
{
    if (asked.choice.by == By::number)
        return asked;
    const Chooser chooser(asked, parcel);
    const Choice choice = chooser.look();
    asked.number = 1;
    if (choice.status == ChoiceStatus::unusable_boundary)
        return asked;
    if (choice.status == ChoiceStatus::tied)
        throw chooser.tied(choice);
    if (choice.status != ChoiceStatus::found)
        throw chooser.none(choice);
    asked.number = chooser.number(choice.candidates.front());
    asked.chosen = chooser.found(choice);
    return asked;
}

}  // namespace tool
