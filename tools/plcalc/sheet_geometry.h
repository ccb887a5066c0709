#pragma once

// Small geometry on a plan's sheet, for the places of labels.

#include <utility>
#include <vector>

#include "plan_layout.h"

namespace tool {

double length_of(const SheetPoint& v);

/// The point at a distance in a direction of length 1.
SheetPoint moved(const SheetPoint& p, const SheetPoint& direction, double distance);

/// Of length 1; to the right where the two are one point.
SheetPoint direction(const SheetPoint& from, const SheetPoint& to);

bool is_inside(const std::vector<SheetPoint>& outline, const SheetPoint& p);

/// A place inside an outline, and how far from the outline it is.
struct RoomyPlace {
    SheetPoint at;
    double room = 0.0;
};

/// Places inside an outline: those with room enough for a label first, of these the nearest to the middle.
std::vector<RoomyPlace> roomy_places(const std::vector<SheetPoint>& outline);

}  // namespace tool
