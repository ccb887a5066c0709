#pragma once

// What draws on a page of one format. Canvas measures and places; a pen only draws.

#include <string>
#include <vector>

#include "sheet/geometry.h"

namespace tool {

struct Colour {
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
};

/// A line of text with its place.
struct PlacedText {
    std::string text;
    SheetPoint at;       ///< around which it is turned
    SheetPoint start;    ///< from there to the left end of its base line, before it is turned
    double width = 0.0;  ///< points
    double size = 0.0;
    bool bold = false;
    double angle = 0.0;  ///< radians, clockwise
    double rim = 0.0;    ///< width of the white rim, points
    Colour colour;
};

class Pen {
public:
    Pen() = default;
    virtual ~Pen() = default;
    Pen(const Pen&) = delete;
    Pen& operator=(const Pen&) = delete;

    virtual void fill(const std::vector<SheetPoint>& outline, const Colour& colour) = 0;
    virtual void stroke(const std::vector<SheetPoint>& path, bool closed, const Colour& colour,
                        double width) = 0;
    virtual void dot(const SheetPoint& centre, double radius, const Colour& inside, const Colour& rim) = 0;
    virtual void text(const PlacedText& text) = 0;

    /// What is drawn until unclip() shows in this box only.
    virtual void clip(const SheetBox& box) = 0;
    virtual void unclip() = 0;

    /// Begins another page. Only of a format that has pages.
    virtual void next_page(const SheetPoint& sheet) = 0;

    /// Writes the file.
    ///
    /// @throws Failure  failed when it cannot be written
    virtual void finish() = 0;
};

/// The font of every text.
constexpr const char* kFont = "DejaVu Sans";

}  // namespace tool
