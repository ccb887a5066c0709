#pragma once

// What a sheet shows, read from its SVG: the texts as rectangles, the lines and the dots.

#include <string>
#include <vector>

#include "sheet/geometry.h"

namespace test {

/// A text, as the rectangle that its capitals take.
struct DrawnText {
    std::string text;
    std::vector<tool::SheetPoint>
        corners;  ///< lower left, lower right, upper right, upper left, as it is read
    double size = 0.0;
    bool bold = false;
    std::string colour;

    tool::SheetPoint left() const;   ///< where its baseline begins
    tool::SheetPoint right() const;  ///< and where it ends
    tool::SheetPoint middle() const;
};

struct DrawnPath {
    std::vector<tool::SheetPoint> points;
    bool closed = false;
    std::string fill;    ///< "none" or a colour
    std::string stroke;  ///< "" where it is filled only
    double width = 0.0;
};

/// What is clipped to a box, or what is not.
struct DrawnGroup {
    std::vector<DrawnPath> paths;
    std::vector<tool::SheetPoint> dots;
    tool::SheetBox box;
};

struct DrawnSheet {
    tool::SheetPoint size;
    std::vector<DrawnText> texts;
    DrawnGroup free;                  ///< without a box
    std::vector<DrawnGroup> windows;  ///< the maps

    /// Those with this content.
    std::vector<DrawnText> with_text(const std::string& text) const;
};

/// Reads what the program writes: one element a line.
DrawnSheet read_sheet(const std::string& svg);

/// How far two convex outlines are from each other along the directions at right angles to their sides; below 0 where
/// none of these parts them.
double gap_between(const std::vector<tool::SheetPoint>& a, const std::vector<tool::SheetPoint>& b);

}  // namespace test
