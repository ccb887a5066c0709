#include "reports/refusal.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "answers/question.h"
#include "reports/instead.h"
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

// A side by its ring.
std::string side_name(const plparcel::RingReport& report, std::size_t which, const Parcel& parcel)
{
    std::size_t first = 0;
    for (std::size_t ring = 0; ring < report.meeting_rings[which]; ++ring)
        first += ring == 0 ? parcel.ring.size() : parcel.holes[ring - 1].size();
    return described_side(parcel, static_cast<long long>(first + report.meeting_sides[which]) + 1);
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
                         std::to_string(vertex_count(answer.parcel)));
}

bool is_width(const Answer& answer)
{
    const std::vector<plparcel::Amount>& amounts = answer.asked.request.amounts;
    const std::size_t at = answer.printed.proven.at_amount;
    return at < amounts.size() && amounts[at].given == plparcel::Given::as_width;
}

// The amount that could not be cut, as it was given.
std::string described_amount(const Answer& answer)
{
    const std::vector<std::string>& amounts = answer.asked.amounts;
    const std::size_t at = answer.printed.proven.at_amount;
    const std::string text = at < amounts.size() ? amounts[at] : std::string();
    return (is_width(answer) ? "the requested " : "the requested area ") + text +
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
    if (is_width(answer))
        return cannot_cut(answer, amount + " reaches beyond what is left of the parcel", "ask for less");
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
        return failure("vertex " + std::to_string(first_not_finite(corners_of(parcel).at) + 1) +
                           " has a coordinate that is not finite",
                       "correct it");
    case BoundaryStatus::too_few_vertices:
    case BoundaryStatus::flat:
        return failure("the parcel has fewer than three different vertices, or all of them on one line",
                       "correct its coordinates");
    case BoundaryStatus::meets_itself:
        return failure("the boundary crosses or touches itself",
                       "correct it so that it passes every vertex and side once",
                       side_name(report, 0, parcel) + ", meets " + side_name(report, 1, parcel));
    case BoundaryStatus::rings_meet:
        return failure("the boundaries of the parcel and its holes meet",
                       "correct them so that each keeps apart from the others",
                       side_name(report, 0, parcel) + ", meets " + side_name(report, 1, parcel));
    case BoundaryStatus::hole_outside:
    case BoundaryStatus::hole_in_hole:
        return failure("hole " + std::to_string(report.at_ring) +
                           (report.status == BoundaryStatus::hole_outside ? " does not lie in the parcel"
                                                                          : " lies in another hole"),
                       "correct it, or draw it as a parcel of its own");
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
    return refusal(answer, instead_of(answer));
}

Failure refusal(const Answer& answer, const std::optional<Instead>& instead)
{
    const auto advice = [&](const std::string& otherwise) {
        const std::string found = instead ? advice_instead(answer.parcel, *instead) : "";
        return found.empty() ? otherwise : found;
    };
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
                          advice("ask for more, or choose another side or kind of cut"));
    case Status::line_leaves_parcel:
        return cannot_cut(answer,
                          "every line that cuts off " + described_amount(answer) +
                              " leaves the parcel or touches its boundary on the way",
                          advice("choose another side, vertex or kind of cut"));
    case Status::not_reached:
        return cannot_cut(answer, kTooCoarse, "use coordinates from an origin nearby");
    case Status::no_direction:
        return wrong_use(answer, "the two ends of the segment are one point", "name two different points");
    case Status::no_width:
        return wrong_use(answer, "a line from a vertex or a place, or through a point, has no width to keep",
                         "ask for an area");
    case Status::no_such_place:
        return wrong_use(
            answer, answer.asked.line + " lies beyond the end of " + numbered("side", answer.asked.number),
            "name a distance from 0 to the length of the side");
    case Status::point_outside:
        return cannot_cut(answer, "the point " + answer.asked.line + " lies outside the parcel",
                          "name one inside or on the boundary");
    case Status::only_one_amount:
        return wrong_use(answer, plparcel::describe(status),
                         "ask for one amount, or for two pieces without --pieces any");
    case Status::no_line_through_point:
        return cannot_cut(answer, "no line through the point cuts off " + described_amount(answer),
                          advice("ask for another area, or choose another point"));
    case Status::no_further_line:
        return cannot_cut(answer,
                          "there is no line number " + std::to_string(answer.asked.request.alternative + 1) +
                              ": to cut off " + described_amount(answer) + " there are " +
                              std::to_string(answer.printed.alternatives) + " to choose from",
                          "choose one with --alternative N, from 1");
    default:
        break;
    }
    return {ExitStatus::unusable_input, answer.parcel.place, plparcel::describe(status),
            "correct the parcel"};
}

}  // namespace tool
