#include "plan/map.h"

#include <cstddef>
#include <iterator>

namespace tool {
namespace {

// How a piece is told from its neighbours, in colour and in black and white.
struct Tone {
    Colour tint;
    bool hatched;
    double angle;
};

constexpr Tone kTones[] = {{{0.97, 0.86, 0.66}, false, 0.0},
                           {{0.90, 0.96, 0.90}, true, kPi / 4.0},
                           {{0.74, 0.80, 0.92}, false, 0.0},
                           {{0.99, 0.93, 0.91}, true, -kPi / 4.0}};
constexpr Colour kHatchColour = {0.60, 0.66, 0.60};
constexpr double kHatchSpacing = 5.0;

// The dots of so many corners would hide the boundary.
constexpr std::size_t kMany = 100;

std::vector<SheetPoint> on_sheet(const plparcel::Ring& ring, const View& view)
{
    std::vector<SheetPoint> outline;
    for (const PL_PNT2D_record& p : ring)
        outline.push_back(view.at(p));
    return outline;
}

// Only the part that shows: far outside the sheet, Cairo's numbers end.
void draw_line(const View& view, Canvas& canvas, const SheetPoint& a, const SheetPoint& b,
               const Colour& colour, double width)
{
    constexpr double kBeyond = 10.0;
    const SheetBox box = {view.box.left - kBeyond, view.box.top - kBeyond, view.box.right + kBeyond,
                          view.box.bottom + kBeyond};
    if (const auto part = clipped_line(a, b, box))
        canvas.line(part->first, part->second, colour, width);
}

void draw_pieces(const Plan& plan, const View& view, Canvas& canvas)
{
    for (std::size_t i = 0; i < plan.pieces.size(); ++i) {
        const Tone& tone = kTones[i % std::size(kTones)];
        const std::vector<SheetPoint> outline = clipped(on_sheet(plan.pieces[i].ring, view), view.box);
        if (outline.empty())
            continue;
        canvas.fill(outline, tone.tint);
        if (tone.hatched)
            canvas.hatch(outline, {tone.angle, kHatchSpacing, kHatchColour, 0.4}, view.box);
    }
}

void draw_boundary(const Plan& plan, const std::vector<SheetPoint>& outline, const View& view, Canvas& canvas)
{
    const std::vector<std::size_t>& next = plan.corners.next;
    for (std::size_t i = 0; i < outline.size(); ++i)
        draw_line(view, canvas, outline[i], outline[next[i]], kInk, 1.0);
    if (plan.base_side)
        draw_line(view, canvas, outline[*plan.base_side], outline[next[*plan.base_side]], kBlue, 3.0);
    for (const SheetPoint& p : outline)
        if (view.box.holds(p))
            canvas.dot(p, outline.size() > kMany ? 0.8 : 1.8, kPaper, kInk);
    if (plan.base_vertex && view.box.holds(outline[*plan.base_vertex]))
        canvas.dot(outline[*plan.base_vertex], 3.5, kPaper, kBlue);
}

void draw_lines(const Plan& plan, const View& view, Canvas& canvas)
{
    for (const PlanLine& line : plan.lines)
        draw_line(view, canvas, view.at(plan.points[line.from].at), view.at(plan.points[line.to].at), kRed,
                  1.6);
    for (const PlanPoint& point : plan.points)
        if (point.is_new && view.box.holds(view.at(point.at)))
            canvas.dot(view.at(point.at), 2.2, kRed, kRed);
}

}  // namespace

void draw_map(const Plan& plan, const View& view, Canvas& canvas)
{
    canvas.clip(view.box);
    draw_pieces(plan, view, canvas);
    draw_boundary(plan, on_sheet(plan.corners.at, view), view, canvas);
    draw_lines(plan, view, canvas);
    canvas.unclip();
}

}  // namespace tool
