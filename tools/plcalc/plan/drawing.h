#pragma once

// Draws the plan of a division, to look at, to print and to file.

#include <string>
#include <vector>

#include "plan/details.h"
#include "plan/layout.h"
#include "plan/plan.h"
#include "plan/tables.h"

namespace tool {

/// The sheets of a plan. The first has the parcel at a round scale: pieces, lines, sides with their lengths, names of
/// the points, north arrow, scale bar and title block, and the tables at its foot. Further sheets have enlarged details
/// of what is too thin to be labelled, and the tables that found no room.
class PlanSheets {
public:
    PlanSheets(const Plan& plan, Paper paper);

    std::size_t count() const { return 1 + details_.sheets() + table_sheets_; }

    /// The files of the plan: one with all sheets, or plan.svg, plan-2.svg, ...
    ///
    /// @param[in] path   .svg, .pdf or .png
    std::vector<std::string> files(const std::string& path) const;

    /// Files that lie there as if they were its next sheets: an earlier plan had more.
    std::vector<std::string> left_over(const std::string& path) const;

    /// Draws all sheets.
    ///
    /// @param[in] paths  where to write, as many as files() has
    /// @param[in] names  of the files in messages
    /// @throws Failure   failed when a file cannot be written
    void draw(const std::vector<std::string>& paths, const std::vector<std::string>& names) const;

private:
    void draw_sheet(Canvas& canvas, std::size_t sheet, TableSetter::Position& position) const;
    void draw_first(Canvas& canvas) const;
    void draw_further(Canvas& canvas, std::size_t sheet, TableSetter::Position& position) const;
    void draw_frame(Canvas& canvas) const;
    void draw_title(Canvas& canvas) const;
    void draw_information(Canvas& canvas, const SheetBox& box) const;
    SheetBox table_box() const;
    std::size_t count_table_sheets() const;

    Plan plan_;
    Paper paper_;
    TableSetter foot_tables_;   // on the first sheet
    TableSetter other_tables_;  // on further sheets
    PlanLayout layout_;
    PlanDetails details_;
    std::size_t table_sheets_;
};

}  // namespace tool
