#include "answers/question.h"

#include <cmath>
#include <limits>

#include "plparcel/extent.h"
#include "text/numbers.h"

namespace {

// The last decimal of a coordinate, as a part of the parcel's extent. Rounding moves a line by half of it, a
// millionth of the extent.
constexpr double kRelExtentStep = 2e-6;

constexpr double kRelAreaStep = 1e-7;

bool is_anticlockwise(const plparcel::Ring& ring)
{
    double twice = 0.0;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i)
        twice += (ring[i].x - ring[0].x) * (ring[i + 1].y - ring[0].y) -
                 (ring[i + 1].x - ring[0].x) * (ring[i].y - ring[0].y);
    return twice > 0.0;
}

}  // namespace

namespace tool {

std::string square_of(const LengthUnit& unit)
{
    return unit.name.empty() ? "" : unit.name + "\u00b2";
}

Corners corners_of(const Parcel& parcel)
{
    Corners corners;
    const auto add = [&](const plparcel::Ring& ring, std::size_t number) {
        const std::size_t first = corners.size();
        const std::size_t n = ring.size();
        corners.at.insert(corners.at.end(), ring.begin(), ring.end());
        for (std::size_t i = 0; i < n; ++i) {
            corners.next.push_back(first + (i + 1) % n);
            corners.before.push_back(first + (i + n - 1) % n);
        }
        corners.ring.resize(corners.size(), number);
        corners.inside_left.push_back(is_anticlockwise(ring) == (number == 0));
    };
    add(parcel.ring, 0);
    for (std::size_t i = 0; i < parcel.holes.size(); ++i)
        add(parcel.holes[i], i + 1);
    return corners;
}

std::size_t vertex_count(const Parcel& parcel)
{
    std::size_t count = parcel.ring.size();
    for (const plparcel::Ring& hole : parcel.holes)
        count += hole.size();
    return count;
}

std::string vertex_name(const Parcel& parcel, std::size_t vertex)
{
    const bool named = vertex < parcel.point_names.size() && !parcel.point_names[vertex].empty();
    return named ? parcel.point_names[vertex] : std::to_string(vertex + 1);
}

std::optional<RingIndex> in_ring(const Parcel& parcel, std::size_t vertex)
{
    std::size_t first = 0;
    for (std::size_t ring = 0; ring <= parcel.holes.size(); ++ring) {
        const std::size_t count = ring == 0 ? parcel.ring.size() : parcel.holes[ring - 1].size();
        if (vertex - first < count)
            return RingIndex{ring, vertex - first, first, count};
        first += count;
    }
    return std::nullopt;
}

std::size_t number_of(const Parcel& parcel, std::size_t ring, std::size_t index)
{
    std::size_t number = index;
    for (std::size_t before = 0; before < ring; ++before)
        number += before == 0 ? parcel.ring.size() : parcel.holes[before - 1].size();
    return number;
}

plparcel::Parcel boundary_of(const Parcel& parcel)
{
    return {parcel.ring, parcel.holes};
}

plparcel::RingReport check(const Parcel& parcel)
{
    return parcel.holes.empty() ? plparcel::check_ring(parcel.ring)
                                : plparcel::check_parcel(boundary_of(parcel));
}

double on_ground(const Parcel& parcel, double length)
{
    return length / parcel.ground_factor;
}

std::optional<double> known_height(double height)
{
    return std::isfinite(height) ? std::optional<double>(height) : std::nullopt;
}

std::string heading(const Place& place, const std::vector<std::string>& assumed)
{
    std::string clauses;
    for (const std::string& clause : assumed)
        clauses += (clauses.empty() ? "" : "; ") + clause;
    return place.text() + (clauses.empty() ? "" : " (" + clauses + ")");
}

Resolution resolution_of(const std::vector<PL_PNT2D_record>& ring, double area)
{
    const int decimals = decimals_for(kRelExtentStep * plparcel::extent_of(ring).largest());
    return {decimals, decimals_for(kRelAreaStep * area), decimals};
}

double area_of(const plparcel::Amount& amount, double parcel_area)
{
    switch (amount.given) {
    case plparcel::Given::as_product:
        return amount.first * amount.second;
    case plparcel::Given::as_share:
        return parcel_area * amount.first / amount.second;
    case plparcel::Given::as_width:
        return std::numeric_limits<double>::quiet_NaN();  // the line decides
    case plparcel::Given::as_area:
        break;
    }
    return amount.first;
}

}  // namespace tool
