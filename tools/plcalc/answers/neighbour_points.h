#pragma once

// New points on boundaries that parcels of a layer share.

#include <cstddef>
#include <functional>
#include <optional>

#include "answers/printed_division.h"
#include "console/scratch_file.h"
#include "plparcel/neighbours.h"

namespace tool {

/// What a parcel, or the pieces of one, have got.
struct Insertion {
    std::size_t points = 0;        ///< how many
    std::size_t beside = 0;        ///< points that lie beside a corner, and were not inserted
    double farthest_beside = 0.0;  ///< from their corner; unit of the parcel
    double area_change = 0.0;      ///< of the parcel, or of all pieces together; on the ground, unit squared
    double largest_change = 0.0;   ///< of the area of the parcel, or of a piece; on the ground, unit squared
    std::size_t left_out = 0;      ///< parcels or pieces whose boundary would meet itself with their points
    std::size_t missed = 0;  ///< amounts of a division that are off by more than the tolerance with them
};

/// The points of a layer: first of all divisions, then in all parcels. They are kept in a temporary file.
class NeighbourPoints {
public:
    /// @param[in] within  two boundaries that are no farther apart are one; unit of the parcels
    explicit NeighbourPoints(double within) : within_(within) {}

    /// Notes the points of a division, if there are any.
    void note(const Answer& answer);

    /// Hands every parcel of the layer over.
    using Layer = std::function<void(const std::function<void(const Parcel&)>& take)>;

    /// After the last division, and before the first insertion.
    void note_layer(const Layer& layer);

    /// Inserts the points of neighbours in the pieces of a division; areas and residuals are then those with the points. May
    /// be called by several threads at the same time. A piece ends at the parcel's own corners, with all their digits.
    Insertion insert_in_pieces(Answer& answer) const;

    /// Inserts points in a parcel that was not divided. A point gets a height where the side has one.
    Insertion insert_in(Parcel& parcel) const;

private:
    void hand_over(const plparcel::SharedSides::TakePoint& take) const;

    double within_;
    double farthest_off_ = 0.0;  // of the points from their sides
    ScratchFile points_;         // of all divisions, one behind the other
    std::size_t count_ = 0;      // of these
    ScratchFile sorted_;
    std::optional<plparcel::SharedSides> shared_;
};

}  // namespace tool
