#pragma once

// From the line of a request to what the cuts begin with.

#include <cstddef>
#include <optional>

#include "boundary/ring_check.h"
#include "one_cut.h"
#include "plparcel/division.h"

namespace plparcel {

/// Where a line starts, or what it follows.
struct LineStart {
    std::optional<Status> refusal;  ///< why there is no such start
    Cut cut = Cut::parallel;        ///< a point at a vertex or on a side is that vertex or place
    std::size_t vertex = 0;  ///< at which the ring is begun: side and vertex 0 are then what the line names
    Measured measured = Measured::from_reference;
    PL_PNT2D_record point = {};  ///< the place, or the point inside
    bool point_stays = false;    ///< the place was given by its coordinates
};

/// @param[in] clean    usable
/// @param[in] request  its line and which piece is measured
LineStart start_of(const CleanRing& clean, const Request& request);

/// The first cut of a request.
struct FirstStage {
    Stage stage;
    Reference reference;
};

/// @param[in] clean  usable
/// @param[in] start  of the request, not refused
FirstStage first_stage(CleanRing clean, const Request& request, const LineStart& start);

}  // namespace plparcel
