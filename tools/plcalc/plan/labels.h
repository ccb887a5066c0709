#pragma once

// The labels on a plan's drawing. None covers another, and none covers a line if there is another place.

#include <string>
#include <vector>

#include "plan/foot_table.h"
#include "plan/layout.h"
#include "plan/plan.h"
#include "sheet/canvas.h"
#include "sheet/geometry.h"
#include "sheet/label_places.h"

namespace tool {

class PlanLabels {
public:
    /// @param[in] at_foot  what the table at the foot holds already
    PlanLabels(const Plan& plan, const PlanLayout& layout, Canvas& canvas, const AtFoot& at_foot);

    /// Draws them: sides, ends of lines, vertices, pieces.
    ///
    /// @return what the foot must hold, because it found no place on the drawing
    AtFoot draw();

private:
    const SheetPoint& vertex(std::size_t i) const { return outline_[i % outline_.size()]; }
    std::vector<SheetPoint> on_sheet(const plparcel::Ring& ring) const;
    SheetPoint outwards(std::size_t side) const;
    SheetPoint other_end(const PL_PNT2D_record& p) const;

    void label_around(const std::string& text, const SheetPoint& p, const SheetPoint& first,
                      const Colour& colour, bool may_cross_lines);
    void label_vertices();
    void label_line_ends();

    double room_along(std::size_t side);
    void label_sides(bool long_ones);
    bool label_side(std::size_t side);
    std::vector<SheetPoint> outside_of(const SheetPoint& middle, const SheetPoint& out,
                                       const SheetPoint& extent) const;

    void label_pieces();
    void number_pieces();
    bool label_inside(const std::string& text, const std::vector<RoomyPlace>& inside);
    bool label_beside(const std::string& text, const SheetPoint& piece);

    const Plan& plan_;
    const PlanLayout& layout_;
    Canvas& canvas_;
    AtFoot at_foot_;
    LabelPlaces places_;
    std::vector<SheetPoint> outline_;
};

}  // namespace tool
