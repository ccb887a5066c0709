#pragma once

// Where a plan lies on its sheet: paper, round scale, and how coordinates become points of the sheet.

#include <functional>
#include <optional>
#include <string>

#include "plparcel/division.h"
#include "sheet/geometry.h"

namespace tool {

enum class Paper { a4, a3 };

/// The paper called "A4" or "A3", in capitals or not; nothing for any other text.
std::optional<Paper> paper_of(const std::string& name);
const char* paper_name(Paper paper);

/// A window on the plan: where it is on the sheet, and what it shows.
struct View {
    SheetBox box;
    PL_PNT2D_record middle = {};   ///< coordinates in the middle of the box
    double points_per_unit = 1.0;  ///< of the sheet

    SheetPoint at(const PL_PNT2D_record& p) const
    {
        return {(box.left + box.right) * 0.5 + (p.x - middle.x) * points_per_unit,
                (box.top + box.bottom) * 0.5 - (p.y - middle.y) * points_per_unit};
    }
};

/// The sheet and the scale.
class PlanLayout {
public:
    /// @param[in] ring           the parcel
    /// @param[in] metres         length of the coordinates' unit in metres
    /// @param[in] paper          the paper, upright or lying, whichever leaves the parcel more room
    /// @param[in] foot_height    the room that the foot of a given frame needs, points
    PlanLayout(const plparcel::Ring& ring, double metres, Paper paper,
               const std::function<double(const SheetBox&)>& foot_height);

    SheetPoint sheet() const { return sheet_; }          ///< width and height
    SheetBox frame() const { return frame_; }            ///< inside the margin
    SheetBox drawing() const { return drawing_; }        ///< inside the frame, without title and footer
    double denominator() const { return denominator_; }  ///< 500 for 1:500
    double points_per_unit() const { return points_per_unit_; }

    View view() const { return {drawing_, middle_, points_per_unit_}; }
    SheetPoint at(const PL_PNT2D_record& p) const { return view().at(p); }

private:
    SheetPoint sheet_;
    SheetBox frame_;
    SheetBox drawing_;
    double denominator_ = 1.0;
    double points_per_unit_ = 1.0;
    PL_PNT2D_record middle_ = {};
};

/// The largest of 1, 2 and 5 times a power of ten that is not above the value.
double round_length(double value);

/// The smallest round denominator, 1, 1.5, 2, 2.5 or 5 times a power of ten, that is not below the value.
double round_denominator(double value);

}  // namespace tool
