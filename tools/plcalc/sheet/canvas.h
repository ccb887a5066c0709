#pragma once

// A sheet of paper to draw on, written as SVG, PDF or PNG.

#include <memory>
#include <string>
#include <vector>

#include <cairo.h>

#include "sheet/geometry.h"

namespace tool {

struct Colour {
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
};

// What plans are drawn with.
constexpr Colour kInk = {0.15, 0.15, 0.15};
constexpr Colour kGrey = {0.45, 0.45, 0.45};
constexpr Colour kRed = {0.72, 0.11, 0.11};
constexpr Colour kBlue = {0.10, 0.30, 0.60};
constexpr Colour kPaper = {1.0, 1.0, 1.0};

// The smallest text on a plan, points.
constexpr double kSmallSize = 6.5;

/// Where text hangs on its place.
enum class Anchor { left, centre, right };

class Canvas {
public:
    /// A sheet for a trial: text has its size on it, and nothing is written.
    Canvas();

    /// @param[in] path   the file; its ending decides: .svg, .pdf or .png
    /// @param[in] sheet  width and height in points
    /// @param[in] name   of the file in messages
    /// @throws Failure   failed when the file cannot be made
    Canvas(const std::string& path, const SheetPoint& sheet, const std::string& name);

    /// Whether the ending of a file name is one that can be drawn.
    static bool can_draw(const std::string& path);

    void fill(const std::vector<SheetPoint>& outline, const Colour& colour);
    void stroke(const std::vector<SheetPoint>& outline, const Colour& colour, double width);
    void line(const SheetPoint& from, const SheetPoint& to, const Colour& colour, double width);
    void dot(const SheetPoint& centre, double radius, const Colour& inside, const Colour& rim);

    /// How much room a text takes.
    SheetPoint size_of(const std::string& text, double size, bool bold = false);

    /// Text on a white rim, so that lines under it do not make it unreadable. `place` is the middle of its height.
    ///
    /// @param[in] angle  radians, clockwise on the sheet
    void text(const std::string& text, const SheetPoint& place, double size, const Colour& colour,
              Anchor anchor = Anchor::centre, bool bold = false, double angle = 0.0);

    /// Writes the file.
    ///
    /// @throws Failure  failed when it cannot be written
    void finish();

private:
    void prepare();
    void set_colour(const Colour& colour);
    void set_font(double size, bool bold);
    void trace(const std::vector<SheetPoint>& outline);
    void draw_traced(const Colour& colour, double width);

    std::string path_;
    std::string name_;
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo_;
};

}  // namespace tool
