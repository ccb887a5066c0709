#include "reports/refusal.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "answers/question.h"
#include "reports/words.h"
#include "text/numbers.h"

namespace tool {
namespace {

using plparcel::BoundaryStatus;
using plparcel::Cut;
using plparcel::Status;

constexpr const char* kTooCoarse = "the coordinates are too large for so small a parcel: no line holds the "
                                   "requested area once its ends are rounded to numbers";

Failure wrong_use(const Answer& answer, const std::string& problem, const std::string& advice)
{
    return {ExitStatus::wrong_use, answer.parcel.place, problem, advice};
}

Failure cannot_cut(const Answer& answer, const std::string& problem, const std::string& advice)
{
    return {ExitStatus::cannot_cut, answer.parcel.place, problem, advice};
}

std::string side_name(std::size_t side, const plparcel::Ring& ring)
{
    return "side " + std::to_string(side + 1) + ", from vertex " + std::to_string(side + 1) + " to " +
           std::to_string((side + 1) % ring.size() + 1);
}

std::size_t first_not_finite(const plparcel::Ring& ring)
{
    const auto is_not_finite = [](const PL_PNT2D_record& p) {
        return !std::isfinite(p.x) || !std::isfinite(p.y);
    };
    return static_cast<std::size_t>(std::find_if(ring.begin(), ring.end(), is_not_finite) - ring.begin());
}

Failure no_such_number(const Answer& answer)
{
    const bool vertex = answer.asked.request.line.cut == Cut::through_vertex;
    return wrong_use(answer, "there is no " + numbered(vertex ? "vertex" : "side", answer.asked.number),
                     std::string("the parcel has ") + (vertex ? "vertices" : "sides") + " 1 to " +
                         std::to_string(answer.parcel.ring.size()));
}

// The amount that could not be cut, as it was given.
std::string described_amount(const Answer& answer)
{
    const std::vector<std::string>& amounts = answer.asked.amounts;
    const std::size_t at = answer.printed.proven.at_amount;
    const std::string text = at < amounts.size() ? amounts[at] : std::string();
    return "the requested area " + text +
           (amounts.size() > 1 ? " (number " + std::to_string(at + 1) + " of the list)" : "");
}

Failure out_of_range(const Answer& answer)
{
    const std::size_t at = answer.printed.proven.at_amount;
    const double area = answer.printed.proven.ring.area;
    const std::string amount = described_amount(answer);
    const std::string whole =
        "the parcel's area " + fixed(area, resolution_of(answer.parcel.ring, area).area_decimals);
    if (answer.printed.proven.status == Status::amount_too_small)
        return cannot_cut(answer, amount + " is too small beside " + whole, "ask for more");
    return cannot_cut(
        answer, amount + (at > 0 ? ", together with those before it," : "") + " is not less than " + whole,
        "ask for less");
}

}  // namespace

Failure unusable_boundary(const Parcel& parcel, const plparcel::RingReport& report)
{
    const auto failure = [&](const std::string& problem, const std::string& advice,
                             const std::string& detail = "") {
        return Failure(ExitStatus::unusable_input, parcel.place, problem, advice, detail);
    };
    switch (report.status) {
    case BoundaryStatus::not_finite:
        return failure("vertex " + std::to_string(first_not_finite(parcel.ring) + 1) +
                           " has a coordinate that is not finite",
                       "correct it");
    case BoundaryStatus::too_few_vertices:
    case BoundaryStatus::flat:
        return failure("the parcel has fewer than three different vertices, or all of them on one line",
                       "correct its coordinates");
    case BoundaryStatus::meets_itself:
        return failure("the boundary crosses or touches itself",
                       "correct it so that it passes every vertex and side once",
                       side_name(report.meeting_sides[0], parcel.ring) + ", meets " +
                           side_name(report.meeting_sides[1], parcel.ring));
    case BoundaryStatus::rings_meet:
    case BoundaryStatus::hole_outside:
    case BoundaryStatus::hole_in_hole:
        return failure(describe(report.status), "correct the hole");
    case BoundaryStatus::out_of_range:
    case BoundaryStatus::usable:
        break;
    }
    return failure("the parcel is too large or too small to compute with", "check its coordinates");
}

std::string refusal_reason(const Answer& answer)
{
    if (answer.printed.proven.status == Status::unusable_boundary)
        return unusable_boundary(answer.parcel, answer.printed.proven.ring).problem;
    const Status status = answer.printed.proven.status;
    return status == Status::not_reached ? kTooCoarse : plparcel::describe(status);
}

Failure refusal(const Answer& answer)
{
    const Status status = answer.printed.proven.status;
    switch (status) {
    case Status::unusable_boundary:
        return unusable_boundary(answer.parcel, answer.printed.proven.ring);
    case Status::no_such_index:
        return no_such_number(answer);
    case Status::side_without_length:
        return wrong_use(
            answer, numbered("side", answer.asked.number) + " has no length: its two vertices are one point",
            "choose the side before or after it");
    case Status::no_amount:
    case Status::unusable_amount:
    case Status::amount_too_small:
    case Status::amount_too_large:
        return out_of_range(answer);
    case Status::base_reaches_behind:
        return cannot_cut(answer,
                          "the part of the parcel behind " + numbered("side", answer.asked.number) +
                              " alone is larger than " + described_amount(answer),
                          "ask for more, or choose another side or kind of cut");
    case Status::line_leaves_parcel:
        return cannot_cut(answer,
                          "every line that cuts off " + described_amount(answer) +
                              " leaves the parcel or touches its boundary on the way",
                          "choose another side, vertex or kind of cut");
    case Status::not_reached:
        return cannot_cut(answer, kTooCoarse, "use coordinates from an origin nearby");
    default:
        break;
    }
    return {ExitStatus::unusable_input, answer.parcel.place, plparcel::describe(status),
            "correct the parcel"};
}

}  // namespace tool
