#pragma once

// A sheet of paper to draw on, written as SVG, PDF or PNG.

#include <memory>
#include <string>
#include <vector>

#include "sheet/cairo_pen.h"
#include "sheet/geometry.h"
#include "sheet/pen.h"

namespace tool {

// What plans are drawn with.
constexpr Colour kInk = {0.15, 0.15, 0.15};
constexpr Colour kGrey = {0.45, 0.45, 0.45};
constexpr Colour kRed = {0.72, 0.11, 0.11};
constexpr Colour kBlue = {0.10, 0.30, 0.60};
constexpr Colour kPaper = {1.0, 1.0, 1.0};

/// Parallel lines in an outline.
struct Hatch {
    double angle = 0.0;    ///< radians, clockwise
    double spacing = 6.0;  ///< points
    Colour colour;
    double width = 0.4;
};

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
    /// @param[in] title  of the document
    /// @param[in] name   of the file in messages
    /// @throws Failure   failed when the file cannot be made
    Canvas(const std::string& path, const SheetPoint& sheet, const std::string& title,
           const std::string& name);

    /// Whether the ending of a file name is one that can be drawn.
    static bool can_draw(const std::string& path);

    /// Whether a file with this name holds several sheets.
    static bool has_pages(const std::string& path);

    /// Begins another sheet. Only of a file that has pages.
    void next_page(const SheetPoint& sheet);

    void fill(const std::vector<SheetPoint>& outline, const Colour& colour);
    void stroke(const std::vector<SheetPoint>& outline, const Colour& colour, double width);
    void line(const SheetPoint& from, const SheetPoint& to, const Colour& colour, double width);
    void hatch(const std::vector<SheetPoint>& outline, const Hatch& hatch, const SheetBox& within);
    void ring(const SheetPoint& centre, double radius, const Colour& colour, double width);
    void dot(const SheetPoint& centre, double radius, const Colour& inside, const Colour& rim);

    /// What is drawn until unclip() shows in this box only.
    void clip(const SheetBox& box);
    void unclip();

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
    TextRuler ruler_;
    std::unique_ptr<Pen> pen_;  // none for a trial
};

}  // namespace tool
