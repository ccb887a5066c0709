#pragma once

// The labels on a plan's drawing. None covers another, and none covers a line if there is another place.

#include <cstddef>
#include <string>
#include <vector>

#include "plan/layout.h"
#include "plan/plan.h"
#include "sheet/canvas.h"
#include "sheet/geometry.h"
#include "sheet/label_places.h"

namespace tool {

/// What found no place on the drawing. The tables have all of it.
struct WithoutLabel {
    std::vector<std::size_t> new_points;
    std::size_t corners = 0;
    std::size_t lengths = 0;
    std::vector<std::size_t> pieces;
};

class PlanLabels {
public:
    PlanLabels(const Plan& plan, const View& view, Canvas& canvas);

    /// Draws the labels of everything that the view shows.
    WithoutLabel draw();

    /// Writes a label near a place that is taken, in any direction.
    void label_mark(const std::string& text, const SheetPoint& p, double distance);

private:
    const SheetPoint& point(std::size_t i) const { return points_[i]; }
    bool shows(const SheetPoint& p) const { return view_.box.holds(p); }
    std::size_t next(std::size_t corner) const { return plan_.corners.next[corner]; }
    bool in_hole(std::size_t corner) const { return plan_.corners.ring[corner] > 0; }
    SheetPoint outwards(std::size_t side) const;

    void label_new_points();
    bool label_beyond(const std::string& text, const SheetPoint& p, const SheetPoint& out,
                      bool may_cross_lines);
    bool label_around(const std::string& text, const SheetPoint& p, const SheetPoint& first,
                      const Colour& colour, bool may_cross_lines);
    void label_corners();
    bool label_outside(const std::string& text, const SheetPoint& p, const SheetPoint& out);
    void label_parts(bool of_cut_sides);
    void label_wholes();
    bool label_part(const PlanPart& part, const SheetPoint& out);
    void label_lines();
    bool label_along(const std::string& text, const SheetPoint& a, const SheetPoint& b);
    bool label_rung(const std::string& text, const SheetPoint& a, const SheetPoint& b);
    bool write_red(const std::string& text, const std::vector<SheetPoint>& places, const SheetPoint& extent,
                   double angle);
    void label_pieces();
    bool label_inside(const std::vector<std::string>& lines, const std::vector<RoomyPlace>& inside);
    bool label_across(const std::string& name, const std::vector<RoomyPlace>& inside);
    bool label_beside(const std::string& text, const std::vector<RoomyPlace>& inside);
    void write_lines(const std::vector<std::string>& lines, const SheetPoint& middle, double size);

    const Plan& plan_;
    View view_;
    Canvas& canvas_;
    LabelPlaces places_;
    std::vector<SheetPoint> points_;   // of the plan, on the sheet
    std::vector<SheetPoint> outline_;  // of the parcel
    std::size_t beside_ = 0;
    WithoutLabel without_;
};

}  // namespace tool
