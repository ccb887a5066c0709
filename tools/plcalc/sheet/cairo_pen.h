#pragma once

// Draws PDF and PNG through Cairo.

#include <memory>
#include <string>
#include <vector>

#include <cairo.h>

#include "sheet/pen.h"

namespace tool {

using CairoSurface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using CairoContext = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

/// Measures text.
class TextRuler {
public:
    TextRuler();

    /// Width of the text, points.
    double width_of(const std::string& text, double size, bool bold);

private:
    CairoSurface surface_;
    CairoContext cairo_;
};

class CairoPen : public Pen {
public:
    /// @param[in] path    the file
    /// @param[in] is_pdf  PDF, or PNG
    /// @param[in] sheet   width and height in points
    /// @param[in] title   of the document
    /// @param[in] name    of the file in messages
    /// @throws Failure    failed when the file cannot be made
    CairoPen(const std::string& path, bool is_pdf, const SheetPoint& sheet, const std::string& title,
             const std::string& name);

    void fill(const std::vector<SheetPoint>& outline, const Colour& colour) override;
    void stroke(const std::vector<SheetPoint>& path, bool closed, const Colour& colour,
                double width) override;
    void dot(const SheetPoint& centre, double radius, const Colour& inside, const Colour& rim) override;
    void text(const PlacedText& text) override;
    void clip(const SheetBox& box) override;
    void unclip() override;
    void next_page(const SheetPoint& sheet) override;
    void finish() override;

private:
    void set_colour(const Colour& colour);
    void trace(const std::vector<SheetPoint>& path, bool closed);

    std::string path_;
    bool is_pdf_;
    std::string name_;
    CairoSurface surface_;
    CairoContext cairo_;
};

}  // namespace tool
