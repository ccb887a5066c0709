#include "sheet/canvas.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>

#include "sheet/svg_pen.h"

namespace tool {
namespace {

// Of the white rim around text, parts of its size.
constexpr double kRim = 0.25;

std::string ending_of(const std::string& path)
{
    std::string ending = std::filesystem::path(path).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending;
}

std::unique_ptr<Pen> pen_for(const std::string& path, const SheetPoint& sheet, const std::string& title,
                             const std::string& name)
{
    const std::string ending = ending_of(path);
    if (ending == ".svg")
        return std::make_unique<SvgPen>(path, sheet, title, name);
    return std::make_unique<CairoPen>(path, ending == ".pdf", sheet, title, name);
}

}  // namespace

bool Canvas::can_draw(const std::string& path)
{
    const std::string ending = ending_of(path);
    return ending == ".svg" || ending == ".pdf" || ending == ".png";
}

bool Canvas::has_pages(const std::string& path)
{
    return ending_of(path) == ".pdf";
}

Canvas::Canvas() = default;

Canvas::Canvas(const std::string& path, const SheetPoint& sheet, const std::string& title,
               const std::string& name)
    : pen_(pen_for(path, sheet, title, name))
{}

void Canvas::next_page(const SheetPoint& sheet)
{
    if (pen_ != nullptr)
        pen_->next_page(sheet);
}

void Canvas::fill(const std::vector<SheetPoint>& outline, const Colour& colour)
{
    if (pen_ != nullptr)
        pen_->fill(outline, colour);
}

void Canvas::stroke(const std::vector<SheetPoint>& outline, const Colour& colour, double width)
{
    if (pen_ != nullptr)
        pen_->stroke(outline, true, colour, width);
}

void Canvas::line(const SheetPoint& from, const SheetPoint& to, const Colour& colour, double width)
{
    if (pen_ != nullptr)
        pen_->stroke({from, to}, false, colour, width);
}

void Canvas::hatch(const std::vector<SheetPoint>& outline, const Hatch& hatch, const SheetBox& within)
{
    if (pen_ == nullptr)
        return;
    for (const auto& [from, to] : hatch_lines(outline, hatch.angle, hatch.spacing, within))
        pen_->stroke({from, to}, false, hatch.colour, hatch.width);
}

void Canvas::dot(const SheetPoint& centre, double radius, const Colour& inside, const Colour& rim)
{
    if (pen_ != nullptr)
        pen_->dot(centre, radius, inside, rim);
}

// As a polygon: so fine that no printer shows its corners.
void Canvas::ring(const SheetPoint& centre, double radius, const Colour& colour, double width)
{
    constexpr int kCorners = 72;
    std::vector<SheetPoint> outline;
    for (int i = 0; i < kCorners; ++i) {
        const double turn = 2.0 * kPi * i / kCorners;
        outline.push_back(moved(centre, {std::cos(turn), std::sin(turn)}, radius));
    }
    stroke(outline, colour, width);
}

void Canvas::clip(const SheetBox& box)
{
    if (pen_ != nullptr)
        pen_->clip(box);
}

void Canvas::unclip()
{
    if (pen_ != nullptr)
        pen_->unclip();
}

SheetPoint Canvas::size_of(const std::string& text, double size, bool bold)
{
    return {ruler_.width_of(text, size, bold), size};
}

void Canvas::text(const std::string& text, const SheetPoint& place, double size, const Colour& colour,
                  Anchor anchor, bool bold, double angle)
{
    if (pen_ == nullptr || text.empty())
        return;
    constexpr double kCapHeight = 0.73;  // of the size, in this font
    const double shift = anchor == Anchor::left ? 0.0 : anchor == Anchor::centre ? 0.5 : 1.0;
    PlacedText placed;
    placed.text = text;
    placed.at = place;
    placed.width = size_of(text, size, bold).x;
    placed.start = {-shift * placed.width, 0.5 * kCapHeight * size};
    placed.size = size;
    placed.bold = bold;
    placed.angle = angle;
    placed.rim = kRim * size;
    placed.colour = colour;
    pen_->text(placed);
}

void Canvas::finish()
{
    if (pen_ != nullptr)
        pen_->finish();
}

}  // namespace tool
