#pragma once

// What the program tells about points that neighbours have got.

#include <cstddef>
#include <string>

#include "answers/neighbour_points.h"
#include "text/json.h"
#include "text/name_list.h"

namespace tool {

class NeighbourTally {
public:
    /// @param[in] within  see NeighbourPoints
    explicit NeighbourTally(double within) : within_(within) {}

    /// A parcel that was divided.
    void add_pieces(const Insertion& insertion, const Place& parcel);

    /// A parcel that was not.
    void add_neighbour(const Insertion& insertion);

    /// A parcel of the layer that cannot be read.
    void add_unread() { ++unread_; }

    /// A line for what was inserted, and warnings().
    std::string lines() const;

    /// A line for each thing that a reader must know; mostly empty.
    std::string warnings() const;

    /// The same numbers.
    Json json() const;

private:
    void add(const Insertion& insertion);

    double within_;
    Insertion all_;
    NameList missed_;  // parcels with amounts that are
    std::size_t neighbours_ = 0;
    std::size_t points_ = 0;        // of neighbours
    std::size_t piece_points_ = 0;  // of pieces
    std::size_t unread_ = 0;
};

}  // namespace tool
