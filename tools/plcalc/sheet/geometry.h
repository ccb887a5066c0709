#pragma once

// Points and boxes on a sheet, in points of 72 to the inch, from the upper left corner; and the small geometry that
// places of labels need.

#include <optional>
#include <utility>
#include <vector>

namespace tool {

constexpr double kPi = 3.141592653589793;

/// A size or a place on the sheet.
struct SheetPoint {
    double x = 0.0;
    double y = 0.0;  ///< downwards
};

/// A rectangle on the sheet.
struct SheetBox {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    bool meets(const SheetBox& other) const
    {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool holds(const SheetPoint& p) const
    {
        return left <= p.x && p.x <= right && top <= p.y && p.y <= bottom;
    }
    bool holds(const SheetBox& other) const
    {
        return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
    }
};

double length_of(const SheetPoint& v);

/// The point at a distance in a direction of length 1.
SheetPoint moved(const SheetPoint& p, const SheetPoint& direction, double distance);

/// Of length 1; to the right where the two are one point.
SheetPoint direction(const SheetPoint& from, const SheetPoint& to);

bool is_inside(const std::vector<SheetPoint>& outline, const SheetPoint& p);

/// The part of an outline inside a box. Where it falls apart, its parts are joined along the box.
std::vector<SheetPoint> clipped(const std::vector<SheetPoint>& outline, const SheetBox& box);

/// The part of a line inside a box; nothing where it passes by.
std::optional<std::pair<SheetPoint, SheetPoint>> clipped_line(const SheetPoint& a, const SheetPoint& b,
                                                              const SheetBox& box);

/// Parallel lines inside an outline and a box.
///
/// @param[in] angle    radians, clockwise
/// @param[in] spacing  between the lines, which lie in step over the whole sheet
std::vector<std::pair<SheetPoint, SheetPoint>>
hatch_lines(const std::vector<SheetPoint>& outline, double angle, double spacing, const SheetBox& within);

/// A place inside an outline, and how far from the outline it is.
struct RoomyPlace {
    SheetPoint at;
    double room = 0.0;
};

/// Places inside an outline: those with room enough for a label first, of these the nearest to the middle.
std::vector<RoomyPlace> roomy_places(const std::vector<SheetPoint>& outline);

}  // namespace tool
