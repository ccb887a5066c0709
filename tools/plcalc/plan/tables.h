#pragma once

// The tables of a plan: everything that the drawing shows, as figures.

#include <cstddef>
#include <string>
#include <vector>

#include "plan/plan.h"
#include "sheet/canvas.h"

namespace tool {

/// Names on the left, figures on the right.
struct PlanTable {
    std::string title;
    std::vector<std::string> heads;
    std::vector<std::vector<std::string>> rows;
};

/// Pieces; dividing lines; sides that are cut, as wholes; all points around the parcel with their coordinates and the
/// distance to the next one.
std::vector<PlanTable> tables_of(const Plan& plan);

/// Sets tables in columns, over as many sheets as they need.
class TableSetter {
public:
    /// What has not been set yet begins here.
    struct Position {
        std::size_t table = 0;
        std::size_t row = 0;
    };

    /// @param[in] tables  without any, there is nothing to set
    /// @param[in] ruler   to measure text
    TableSetter(std::vector<PlanTable> tables, Canvas& ruler);

    bool is_end(const Position& position) const { return position.table == tables_.size(); }

    /// Fills a box from its upper left corner, and moves the position to what is left.
    ///
    /// @return the height that was needed
    double fill(Canvas& canvas, const SheetBox& box, Position& position) const;

    /// The least height, up to a highest, of a box that takes everything; the highest where none does.
    double height_for(double width, double highest) const;

private:
    double width_of(const PlanTable& table) const;
    SheetPoint fill_column(Canvas& canvas, const SheetBox& column, Position& position) const;
    void write_row(Canvas& canvas, const std::vector<std::string>& cells, std::size_t table,
                   const SheetPoint& at, const Colour& colour) const;

    std::vector<PlanTable> tables_;
    std::vector<std::vector<double>> widths_;  // of each table's columns
};

}  // namespace tool
