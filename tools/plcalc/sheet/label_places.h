#pragma once

// Finds places for labels. No label covers another, and none covers a line of the plan if there is another
// place.

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "sheet/geometry.h"

namespace tool {

class LabelPlaces {
public:
    /// @param[in] sheet  where labels may lie
    explicit LabelPlaces(const SheetBox& sheet);

    /// A line of the plan, which labels should leave free.
    void add_line(const SheetPoint& a, const SheetPoint& b);

    /// How many lines of the plan the segment a-b crosses.
    std::size_t crossings(const SheetPoint& a, const SheetPoint& b) const;

    /// Whether the segment a-b runs through no label.
    bool is_clear(const SheetPoint& a, const SheetPoint& b) const;

    /// A place that is taken.
    void take(const SheetBox& box) { taken_.push_back(box); }

    /// Whether a label of this size, turned by the angle, has room at a place. If it may cross lines, only
    /// other labels count.
    bool is_free(const SheetPoint& middle, const SheetPoint& size, double angle, bool may_cross_lines) const;

    /// Takes the first free one of some places. Places that cross lines come after all others.
    std::optional<SheetPoint> first_free(const std::vector<SheetPoint>& middles, const SheetPoint& size,
                                         double angle = 0.0, bool may_cross_lines = true);

    /// The same for text along a line. The box around turned text is far too large, so small boxes along the text
    /// must be free. A place that may cross lines is as good as one that does not.
    ///
    /// @param[in] gap  left free around the text: other labels and, where it may not cross them, lines stay so far away
    std::optional<SheetPoint> first_free_along(const std::vector<SheetPoint>& middles, const SheetPoint& size,
                                               double angle, bool may_cross_lines = true, double gap = 0.0);

    /// Takes small boxes along a line, so that no label covers it.
    void take_along(const SheetPoint& a, const SheetPoint& b, double width);

private:
    /// The cells of a grid that a box meets, as columns and rows.
    struct Cells {
        std::size_t left, right, top, bottom;
    };

    Cells cells_of(const SheetBox& box) const;
    template <class Meets> bool any_line_near(const SheetBox& box, Meets meets) const;

    SheetBox sheet_;
    std::size_t columns_;
    std::vector<std::vector<std::size_t>> lines_in_;  // a cell: the lines whose box meets it
    std::vector<SheetBox> taken_;
    std::vector<std::pair<SheetPoint, SheetPoint>> lines_;
};

/// Places around a point: first in a direction of length 1, then to both sides of it up to a third of a
/// turn, near ones before far ones.
std::vector<SheetPoint> places_around(const SheetPoint& p, const SheetPoint& first, double near);

/// The angle of text along a line so that it is read from below or from the right, radians, clockwise.
double reading_angle(const SheetPoint& a, const SheetPoint& b);

/// The box around a label, turned or not.
SheetBox label_box(const SheetPoint& middle, const SheetPoint& size, double angle);

/// Whether a segment runs through a box.
bool runs_through(const SheetPoint& a, const SheetPoint& b, const SheetBox& box);

}  // namespace tool
