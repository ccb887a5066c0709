#pragma once

// The parcels of a file, divided a batch at a time by several threads.

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "answers/neighbour_points.h"
#include "answers/printed_division.h"
#include "reading/parcel_file.h"
#include "reports/many_report.h"
#include "verbs/parcel_requests.h"

namespace tool {

/// Parcels that are divided together.
struct Batch {
    std::vector<ReadParcel> read;
    std::vector<bool> is_read;  // of each parcel, whether it has a ring; what is wrong may be in the request
    std::deque<Asked> asked;    // of each parcel, where it is not the same of all; answers refer to them
    std::vector<std::optional<Answer>> answers;  // nothing for a parcel with a problem
    std::vector<Insertion> insertions;           // points of neighbours in the pieces
    std::vector<std::string> kept;
};

/// Divides all parcels of the file.
///
/// @param[in] report  says what is kept of an answer
/// @param[in] jobs    how many threads divide
/// @param[in] points  of neighbours, for the pieces; may be null
/// @param[in] take    is called in this thread with each batch, in the order of the file
void divide_all(ParcelFile& file, ParcelRequests& requests, const ManyReport& report, std::size_t jobs,
                const NeighbourPoints* points, const std::function<void(Batch&)>& take);

}  // namespace tool
