#include "reports/words.h"

#include <algorithm>

namespace tool {
namespace {

using plparcel::Cut;
using plparcel::Measured;

// After the last vertex of a ring comes its first.
long long neighbour(const Parcel& parcel, long long number, bool after)
{
    const std::optional<RingIndex> at = in_ring(parcel, static_cast<std::size_t>(number - 1));
    if (!at)
        return number;
    const std::size_t step = after ? 1 : at->count - 1;
    const std::size_t index = at->first + (at->index + step) % at->count;
    return static_cast<long long>(index) + 1;
}

long long after(const Parcel& parcel, long long number)
{
    return neighbour(parcel, number, true);
}

long long before(const Parcel& parcel, long long number)
{
    return neighbour(parcel, number, false);
}

// "vertex 4", or "vertex D" where the file names it.
std::string described_vertex(const Parcel& parcel, long long number)
{
    return "vertex " + vertex_name(parcel, static_cast<std::size_t>(number - 1));
}

// Where the first piece lies.
std::string place_of_first(const Asked& asked, const Parcel& parcel)
{
    const bool near = asked.request.measured == Measured::from_reference;
    switch (asked.request.line.cut) {
    case Cut::parallel:
        return near ? "along " + numbered("side", asked.number)
                    : "beyond the line from " + numbered("side", asked.number);
    case Cut::perpendicular:
        return near ? "ahead towards " + described_vertex(parcel, after(parcel, asked.number))
                    : "behind towards " + described_vertex(parcel, asked.number);
    case Cut::through_place:
        return near ? "towards " + described_vertex(parcel, after(parcel, asked.number))
                    : "towards " + described_vertex(parcel, asked.number);
    case Cut::through_point:
    case Cut::at_bearing:
    case Cut::along_segment:
        return near ? "on the right of the line" : "on the left of the line";
    case Cut::through_vertex:
        break;
    }
    return "along " + numbered("side", near ? asked.number : before(parcel, asked.number));
}

}  // namespace

const char* direction_name(bool anticlockwise)
{
    return anticlockwise ? "anticlockwise" : "clockwise";
}

std::string numbered(const char* what, long long number)
{
    return std::string(what) + " " + std::to_string(number);
}

std::string described_cut(const Asked& asked, const Parcel& parcel)
{
    switch (asked.request.line.cut) {
    case Cut::parallel:
        return "parallel to " + described_side(parcel, asked.number);
    case Cut::perpendicular:
        return "perpendicular to " + described_side(parcel, asked.number);
    case Cut::at_bearing:
        return "at the bearing " + asked.line;
    case Cut::along_segment:
        return "in the direction from " + asked.line;
    case Cut::through_place:
        return "from " + asked.line + " along " + described_side(parcel, asked.number);
    case Cut::through_point:
        return "through the point " + asked.line;
    case Cut::through_vertex:
        break;
    }
    return "through " + described_vertex(parcel, asked.number);
}

// Many equal ones are counted.
std::string described_amounts(const Asked& asked)
{
    constexpr std::size_t kMany = 4;
    const std::vector<std::string>& amounts = asked.amounts;
    if (amounts.size() > kMany && std::equal(amounts.begin() + 1, amounts.end(), amounts.begin()))
        return std::to_string(amounts.size()) + " times " + amounts.front();
    std::string list;
    for (const std::string& amount : amounts)
        list += (list.empty() ? "" : ", ") + amount;
    return list;
}

std::string amount_name(const Asked& asked, const Parcel& parcel, std::size_t amount)
{
    if (asked.request.amounts.size() == 1)
        return amount == 0 ? "cut off, " + place_of_first(asked, parcel) : "rest";
    const std::string name = "piece " + std::to_string(amount + 1);
    return amount == 0 ? name + ", " + place_of_first(asked, parcel) : name;
}

std::string piece_name(const Answer& answer, std::size_t piece)
{
    const plparcel::Division& division = answer.printed.proven;
    const std::size_t amount = division.pieces[piece].amount;
    const std::size_t count = division.held[amount].pieces;
    std::string name = amount_name(answer.asked, answer.parcel, amount);
    if (count == 1)
        return name;
    std::size_t first = piece;
    while (first > 0 && division.pieces[first - 1].amount == amount)
        --first;
    return name + " (" + std::to_string(piece - first + 1) + " of " + std::to_string(count) + ")";
}

std::string described_rings(const Parcel& parcel, bool anticlockwise)
{
    const std::size_t holes = parcel.holes.size();
    return std::to_string(vertex_count(parcel)) + " vertices, " + direction_name(anticlockwise) +
           (holes == 0 ? "" : ", " + std::to_string(holes) + (holes == 1 ? " hole" : " holes"));
}

std::string described_side(const Parcel& parcel, long long number)
{
    return numbered("side", number) + ", from " + described_vertex(parcel, number) + " to " +
           described_vertex(parcel, after(parcel, number));
}

std::string cut_sentence(const Asked& asked, const Parcel& parcel)
{
    return "Cut " + described_cut(asked, parcel) + ": " + described_amounts(asked);
}

}  // namespace tool
