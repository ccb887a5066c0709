#include "reports/words.h"

#include <algorithm>

namespace tool {
namespace {

using plparcel::Cut;
using plparcel::Measured;

// After the last vertex comes the first.
long long after(long long number, std::size_t vertices)
{
    return number % static_cast<long long>(vertices) + 1;
}

long long before(long long number, std::size_t vertices)
{
    return number > 1 ? number - 1 : static_cast<long long>(vertices);
}

std::string described_side(long long number, std::size_t vertices)
{
    return numbered("side", number) + ", from vertex " + std::to_string(number) + " to vertex " +
           std::to_string(after(number, vertices));
}

// Where the first piece lies.
std::string place_of_first(const Asked& asked, std::size_t vertices)
{
    const bool near = asked.request.measured == Measured::from_reference;
    switch (asked.request.line.cut) {
    case Cut::parallel:
        return near ? "along " + numbered("side", asked.number)
                    : "beyond the line from " + numbered("side", asked.number);
    case Cut::perpendicular:
        return near ? "ahead towards " + numbered("vertex", after(asked.number, vertices))
                    : "behind towards " + numbered("vertex", asked.number);
    case Cut::through_place:
        return near ? "towards " + numbered("vertex", after(asked.number, vertices))
                    : "towards " + numbered("vertex", asked.number);
    case Cut::through_point:
    case Cut::at_bearing:
    case Cut::along_segment:
        return near ? "on the right of the line" : "on the left of the line";
    case Cut::through_vertex:
        break;
    }
    return "along " + numbered("side", near ? asked.number : before(asked.number, vertices));
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

std::string described_cut(const Asked& asked, std::size_t vertices)
{
    switch (asked.request.line.cut) {
    case Cut::parallel:
        return "parallel to " + described_side(asked.number, vertices);
    case Cut::perpendicular:
        return "perpendicular to " + described_side(asked.number, vertices);
    case Cut::at_bearing:
        return "at the bearing";
    case Cut::along_segment:
        return "along the segment";
    case Cut::through_place:
        return "from a place on " + described_side(asked.number, vertices);
    case Cut::through_point:
        return "through the point";
    case Cut::through_vertex:
        break;
    }
    return "through " + numbered("vertex", asked.number);
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

std::string piece_name(const Asked& asked, std::size_t vertices, std::size_t piece)
{
    if (asked.request.amounts.size() == 1)
        return piece == 0 ? "cut off, " + place_of_first(asked, vertices) : "rest";
    const std::string name = "piece " + std::to_string(piece + 1);
    return piece == 0 ? name + ", " + place_of_first(asked, vertices) : name;
}

std::string cut_sentence(const Asked& asked, std::size_t vertices)
{
    return "Cut " + described_cut(asked, vertices) + ": " + described_amounts(asked);
}

}  // namespace tool
