#include "report.h"

#include <cmath>
#include <sstream>

#include "numbers.h"
#include "resolution.h"
#include "table.h"

namespace tool {
namespace {

std::string numbered(const char* what, long long number)
{
    return std::string(what) + " " + std::to_string(number);
}

// Vertices count on from the last to the first.
long long after(long long number, const Parcel& parcel)
{
    return number % static_cast<long long>(parcel.ring.size()) + 1;
}

std::string described_side(const Parcel& parcel, long long number)
{
    return numbered("side", number) + ", from vertex " + std::to_string(number) + " to vertex " +
           std::to_string(after(number, parcel));
}

std::string described_cut(const Parcel& parcel, const Request& request)
{
    switch (request.cut) {
    case Cut::parallel:
        return "parallel to " + described_side(parcel, request.number);
    case Cut::perpendicular:
        return "perpendicular to " + described_side(parcel, request.number);
    case Cut::through_vertex:
        break;
    }
    return "through " + numbered("vertex", request.number);
}

// The figures as they were given.
std::string described_area(const Request& request)
{
    if (request.given == AreaGiven::as_value)
        return shortest(request.value1);
    return shortest(request.value1) + " x " + shortest(request.value2);
}

std::string request_label(const Parcel& parcel, const Request& request)
{
    switch (request.cut) {
    case Cut::parallel:
        return "cut off, along " + numbered("side", request.number);
    case Cut::perpendicular:
        return "cut off, ahead towards " + numbered("vertex", after(request.number, parcel));
    case Cut::through_vertex:
        break;
    }
    return "cut off, along " + numbered("side", request.number);
}

std::string range(const Parcel& parcel)
{
    return "1 to " + std::to_string(parcel.ring.size());
}

std::string no_such_number(const Parcel& parcel, const Request& request)
{
    const bool vertex = request.cut == Cut::through_vertex;
    return "there is no " + numbered(vertex ? "vertex" : "side", request.number) + "; the parcel has " +
           (vertex ? "vertices " : "sides ") + range(parcel);
}

std::string missed(const Request& request, const Division& division)
{
    return "the line found misses the requested area " + shortest(request.area()) + " by " +
           rough(std::fabs(division.request_area - request.area())) +
           "; ask for another side, vertex or kind of cut";
}

}  // namespace

std::string division_table(const Parcel& parcel, const Request& request, const PrintedDivision& printed)
{
    const Division& division = printed.division;
    const auto length = [&](double value) { return fixed(value, printed.decimals); };
    const auto area = [&](double value) { return fixed(value, printed.area_decimals); };
    std::ostringstream out;
    out << "Parcel  " << parcel.where << '\n'
        << "        " << parcel.ring.size() << " vertices, " << direction_name(division.anticlockwise) << '\n'
        << "Cut     " << described_cut(parcel, request) << '\n'
        << "Asked   " << described_area(request) << "\n\n";
    out << labelled({
        {"Dividing line", {"E", "N"}},
        {"  from", {length(division.from.x), length(division.from.y)}},
        {"  to", {length(division.to.x), length(division.to.y)}},
        {"", {}},
        {"Area", {}},
        {"  requested", {area(request.area())}},
        {"  " + request_label(parcel, request), {area(division.request_area)}},
        {"  rest", {area(division.rest_area)}},
        {"  parcel", {area(division.parcel_area)}},
        {"Perimeter", {length(division.perimeter)}},
    });
    return out.str();
}

Failure division_failure(Outcome outcome, const Parcel& parcel, const Request& request,
                         const PrintedDivision& printed)
{
    const Division& division = printed.division;
    const auto failure = [&](ExitStatus status, const std::string& what) {
        return Failure(status, parcel.where + ": " + what);
    };
    switch (outcome) {
    case Outcome::no_such_number:
        return failure(ExitStatus::wrong_use, no_such_number(parcel, request));
    case Outcome::side_without_length:
        return failure(ExitStatus::wrong_use, numbered("side", request.number) +
                                                  " has no length, its two vertices are one point; "
                                                  "choose the side before or after it");
    case Outcome::area_not_positive:
        return failure(ExitStatus::wrong_use, "the requested area is not a number above 0");
    case Outcome::ring_not_usable:
        return failure(ExitStatus::unusable_input,
                       "the parcel has no area that can be computed; check its coordinates");
    case Outcome::area_not_below_parcel:
        return failure(ExitStatus::cannot_cut,
                       "the requested area " + shortest(request.area()) + " is not below the parcel's " +
                           fixed(division.parcel_area, printed.area_decimals) + "; ask for less");
    case Outcome::line_leaves_parcel:
        return failure(ExitStatus::cannot_cut,
                       "the line found does not part the parcel in two, it touches the boundary on its way "
                       "or leaves the parcel; ask for another side, vertex or kind of cut");
    case Outcome::request_missed:
        return failure(ExitStatus::cannot_cut, missed(request, division));
    case Outcome::doubles_too_coarse:
        return failure(
            ExitStatus::cannot_cut,
            "no line holds the requested area once its ends are rounded to numbers, so small is the "
            "parcel for coordinates this large; move it to an origin nearby");
    case Outcome::no_line:
    case Outcome::divided:
        break;
    }
    return failure(ExitStatus::cannot_cut, "no line was found; ask for another side, vertex or kind of cut");
}

}  // namespace tool
