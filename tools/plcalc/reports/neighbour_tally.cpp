#include "reports/neighbour_tally.h"

#include <algorithm>
#include <cmath>

#include "text/numbers.h"

namespace tool {
namespace {

std::string counted(std::size_t count, const char* one, const char* several)
{
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

// Two digits, rounded up.
std::string up_to(double value)
{
    if (!(value > 0.0))
        return "0";
    constexpr double kTen = 10.0;
    const double step = std::pow(kTen, std::floor(std::log10(value)) - 1.0);
    return fixed(std::ceil(value / step) * step, std::min(decimals_for(step), kMaxDecimals));
}

}  // namespace

void NeighbourTally::add(const Insertion& insertion)
{
    all_.beside += insertion.beside;
    all_.farthest_beside = std::max(all_.farthest_beside, insertion.farthest_beside);
    all_.largest_change = std::max(all_.largest_change, insertion.largest_change);
    all_.left_out += insertion.left_out;
    all_.missed += insertion.missed;
}

void NeighbourTally::add_pieces(const Insertion& insertion, const Place& parcel)
{
    add(insertion);
    if (insertion.missed > 0)
        missed_.add([&] { return parcel.called(); });
    piece_points_ += insertion.points;
}

void NeighbourTally::add_neighbour(const Insertion& insertion)
{
    add(insertion);
    neighbours_ += insertion.points > 0 ? 1 : 0;
    points_ += insertion.points;
}

std::string NeighbourTally::lines() const
{
    std::string text = "Shared   " + counted(neighbours_, "neighbour has got ", "neighbours have got ") +
                       counted(points_, "point", "points");
    if (piece_points_ > 0)
        text += ", and the pieces " + counted(piece_points_, "point", "points") + " of their neighbours";
    text += "\n";
    if (all_.largest_change > 0.0)
        text += "         No area has changed by more than " + up_to(all_.largest_change) + "\n";
    return text + warnings();
}

std::string NeighbourTally::warnings() const
{
    std::string text;
    if (all_.missed > 0)
        text += "Missed   " + counted(all_.missed, "amount is", "amounts are") +
                " off by more than the tolerance with points of neighbours\n         (" + missed_.text() +
                "): more --decimals or a smaller --shared-within\n         leave less\n";
    if (all_.beside > 0)
        text += "Gaps     " +
                counted(all_.beside, "corner of a neighbour has", "corners of neighbours have") +
                " a new point within " + shortest(within_) + " (at most " + up_to(all_.farthest_beside) +
                "):\n         not inserted; see --shared-within\n";
    if (all_.left_out > 0)
        text += "Gaps     " +
                counted(all_.left_out, "boundary would meet itself with its points",
                        "boundaries would meet themselves with their points") +
                ": not inserted\n";
    if (unread_ > 0)
        text += "Unread   " + counted(unread_, "parcel", "parcels") +
                " of the layer cannot be read: without new points\n";
    return text;
}

Json NeighbourTally::json() const
{
    Json json;
    json["parcels"] = neighbours_;
    json["points"] = points_;
    json["points_of_pieces"] = piece_points_;
    json["largest_change"] = all_.largest_change;
    json["amounts_missed"] = all_.missed;
    json["points_beside"] = all_.beside;
    json["farthest_beside"] = all_.farthest_beside;
    json["left_out"] = all_.left_out;
    json["unread"] = unread_;
    return json;
}

}  // namespace tool
