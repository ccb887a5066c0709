#pragma once

// Steps so short that rounding may turn them: internal, not installed; for subdivision/.

#include <array>
#include <cstddef>
#include <vector>

#include "plcalc/kernel.h"

namespace plcalc {

/// The steps from a foot on the base line to its point that rounding may have turned by a gon.
///
/// At national coordinates feet are off by nanometres, so the step to a point that is less than a micrometre from the
/// base line may point anywhere. But coordinates are multiples of their last bit, and so are the steps: there are few
/// that short with a bearing just a gon from the normal's. docs/exact-and-fast.md has the proof.
class TurnedSteps {
public:
    /// @param[in] points              of the parcel; the base line runs through one of them
    /// @param[in] normal_x, normal_y  of the base line
    TurnedSteps(const std::vector<PL_PNT2D_record>& points, double normal_x, double normal_y) noexcept;

    /// Whether they are few enough to be listed.
    bool few() const noexcept { return few_; }

    /// What the foot of a vertex, or of a point between it and the base line, may be off on either axis.
    double foot_off() const noexcept { return foot_off_; }

    /// How many bearings list() computes and keeps: 8 bytes for each, 16,384 at most.
    std::size_t to_list() const noexcept;

    /// Lists them, when they are few. What follows tells of listed steps.
    void list();

    /// The least angle in gons between a listed step and a direction a gon from the normal or its opposite; infinite
    /// when none is listed.
    double least_gon() const noexcept { return least_gon_; }

    /// As least_gon, for all such steps that are not listed.
    double least_gon_of_others() const noexcept { return least_gon_of_others_; }

    /// Whether the bearing of a listed step lies between two bearings.
    bool between(double gon1, double gon2) const noexcept;

private:
    // Steps in rows along the axis on which coordinates are finer, beside one direction.
    struct Rows {
        bool level = true;    // along x
        double in_row = 0.0;  // the direction: along the rows, and across
        double across = 0.0;
        double grid = 0.0;    // in a row, steps are multiples of this
        double height = 0.0;  // from row to row
        double first = 0.0;   // times the height; the row that is listed first
        int count = 0;
    };

    Rows rows_along(double along_x, double along_y) noexcept;
    void list_in(const Rows& rows);

    double grid_x_ = 0.0;  // steps are multiples of these; 0 when there is no such number
    double grid_y_ = 0.0;
    double foot_off_ = 0.0;
    bool few_ = true;
    std::array<Rows, 2> rows_;  // on either side of the normal
    double least_gon_ = 0.0;
    double least_gon_of_others_ = 0.0;
    std::vector<double> bearings_;  // in order
};

}  // namespace plcalc
