#pragma once

// Draws SVG whose text is text: it can be searched, copied and edited.

#include <cstddef>
#include <string>
#include <vector>

#include "sheet/pen.h"

namespace tool {

class SvgPen : public Pen {
public:
    /// @param[in] path   the file
    /// @param[in] sheet  width and height in points
    /// @param[in] title  of the document
    /// @param[in] name   of the file in messages
    SvgPen(const std::string& path, const SheetPoint& sheet, const std::string& title,
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
    std::string path_;
    std::string name_;
    std::string svg_;
    std::size_t clips_ = 0;
};

/// The text with the characters that XML keeps for itself written as references, and without those that it forbids.
std::string xml_text(const std::string& text);

}  // namespace tool
