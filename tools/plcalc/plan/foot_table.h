#pragma once

// The table at the foot of a plan: the ends of the lines, and the labels that found no place on the drawing.

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "plan/plan.h"
#include "sheet/canvas.h"

namespace tool {

/// What the table holds beside the ends of the lines.
struct AtFoot {
    std::set<std::size_t> sides;  ///< lengths of these
    bool pieces = false;          ///< whether it holds the areas; the drawing then numbers the pieces

    bool operator==(const AtFoot& other) const { return sides == other.sides && pieces == other.pieces; }
};

/// The ends of a plan's lines in the order of their numbers, each place once: several lines may start at one
/// vertex.
std::vector<PL_PNT2D_record> line_ends(const Plan& plan);

/// "P1" for the first of them.
std::string end_name(std::size_t end);

/// The length of a side as it is written: to the centimetre, which is as fine as a plan is read, or finer on
/// a small parcel.
std::string side_text(const Plan& plan, std::size_t side);

/// A part of the table.
struct FootSection {
    std::string title;
    std::vector<std::string> rows;
};

std::vector<FootSection> foot_sections(const Plan& plan, const AtFoot& at_foot);

/// The table, broken into columns around the scale bar.
class FootTable {
public:
    /// @param[in] sections    at least one; each has a title if there are several
    /// @param[in] canvas      to measure text
    /// @param[in] width       room for the columns, points
    /// @param[in] max_height  of the foot; rows beyond it are left out, and "..." stands in their place
    FootTable(const std::vector<FootSection>& sections, Canvas& canvas, double width, double max_height);

    /// Height of the foot that holds the table, points.
    double height() const;

    void draw(Canvas& canvas, const SheetPoint& upper_left) const;

    /// Size of the upper right corner, which is left to the scale bar.
    static constexpr SheetPoint kScaleCorner = {180.0, 66.0};

private:
    struct Style {
        double size;
        double row_height;
    };
    struct Cell {
        std::string text;
        bool title = false;
        double width = 0.0;
        SheetPoint at;  // from the upper left corner
    };

    void set_style(Canvas& canvas, const Style& style);
    bool break_into(double width, std::size_t rows);
    void fill_column(double left, std::size_t first, std::size_t rows);

    Style style_ = {};
    std::size_t rows_ = 0;
    std::vector<Cell> cells_;
    std::size_t shown_ = 0;  // of the cells
};

}  // namespace tool
