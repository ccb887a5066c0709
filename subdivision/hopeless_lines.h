#pragma once

// Bisections that cannot succeed: internal, not installed; for subdivision/.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "subdivision/parallel_trials.h"
#include "subdivision/partial_polygon.h"
#include "subdivision/turned_steps.h"

namespace plcalc {

/// Which lines certainly do not meet the request.
///
/// Where much of the parcel lies behind the base line, a line through a vertex may cut off more than the request
/// although none between it and the base line meets it. The bisection from there must fail. This class proves it
/// for whole strips of lines at a time: all that they may cut off lies between two areas, and the request does
/// not. docs/exact-and-fast.md has the proof. When nothing is proved, the bisection is run.
class HopelessLines {
public:
    /// @param[in] trials     the parcel as the lines meet it
    /// @param[in] scratch    a partial polygon of the same points; it is written to
    /// @param[in] requested  the area
    HopelessLines(ParallelTrials& trials, PartialPolygon& scratch, double requested) noexcept
        : trials_(trials), scratch_(scratch), requested_(requested)
    {}

    /// Notes that so many lines, with so many crossings each, were tried for nothing. As much work may be spent on
    /// proofs: one that fails costs no more than the trials that it was to save.
    void note_futile(std::int32_t lines, std::size_t crossings) noexcept;

    /// Whether a bisection between the base line and the vertex at a position fails, whatever lines it tries. Its
    /// first line must have written the chord's second end.
    bool up_to(std::int32_t at);

private:
    // Where a vertex lies from all lines of a strip.
    enum class Place : std::uint8_t { kUnsure, kKept, kBeyond };

    // Lines side by side, by their constants, and what they drop.
    struct Strip {
        double low;
        double high;
        bool drops_below;
        bool drops_above;
    };

    // Whether none of these lines meets the request.
    bool none_in(const Strip& strip);
    double doubtful_at(const Strip& strip, std::int32_t at);
    bool begin();
    bool none_near_base();
    bool extend(bool along_normal, double wanted);
    void measure_parcel();
    Place place(const Strip& strip, std::int32_t at) const noexcept;

    ParallelTrials& trials_;
    PartialPolygon& scratch_;
    double requested_;

    std::int64_t work_left_ = 0;
    std::optional<TurnedSteps> steps_;  // once the parcel is measured
    bool begun_ = false;
    bool usable_ = false;
    double room_ = 0.0;        // constants: how far a bisection may stray from its strip
    double farthest_ = 0.0;    // constants: none of its lines, and no vertex, is farther from the base line
    double area_per_c_ = 0.0;  // the parcel's width along the line, over the length of the line's normal
    double rounding_ = 0.0;    // what rounding may do to an area
    std::array<double, 2> reached_ = {};  // constants proved on either side of the base line
    std::array<double, 2> step_ = {};     // tried next there; below near_base() no more can be proved
};

}  // namespace plcalc
