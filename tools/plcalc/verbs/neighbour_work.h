#pragma once

// New points on boundaries that parcels share, from the layer to the output.

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "answers/heights.h"
#include "answers/neighbour_points.h"
#include "reading/parcel_file.h"
#include "reports/neighbour_tally.h"
#include "verbs/parcel_requests.h"
#include "writing/division_writer.h"

namespace tool {

/// The file is read once to divide its parcels, once more for the neighbours' corners, then to write the pieces, and at last
/// for the neighbours that are no parcels of ours; once more where only some of these have heights.
class NeighbourWork {
public:
    /// Divides the parcels and notes their new points.
    NeighbourWork(ParcelFile& file, ParcelRequests& requests, std::size_t jobs, double within);

    /// Reads the neighbours' corners.
    ///
    /// @param[in] all  the source where all parcels of the layer are ours
    void note_layer(const Source& all);

    /// The heights of the neighbours that get points.
    const KnownHeights& heights() const { return heights_; }

    const NeighbourPoints& points() const { return points_; }
    NeighbourTally& tally() { return tally_; }

    /// Writes those that get points.
    void write(DivisionWriter& writer);

    /// Gives an undivided parcel its points.
    Insertion insert_in(ReadParcel& read);

private:
    void each_neighbour(const std::function<void(ReadParcel&)>& take);
    void count_heights();
    bool is_neighbour(const ReadParcel& read) const;

    std::optional<Source> whole_;  // where some parcels of the layer are not ours
    std::vector<long long> ours_;  // the features, in order
    KnownHeights heights_;
    NeighbourPoints points_;
    NeighbourTally tally_;
};

}  // namespace tool
