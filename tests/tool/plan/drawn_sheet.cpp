#include "plan/drawn_sheet.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace test {
namespace {

using tool::SheetPoint;

constexpr double kCapitals = 0.73;  // of a text's size

std::string attribute(const std::string& element, const std::string& name)
{
    const std::string before = " " + name + "=\"";
    const std::size_t begin = element.find(before);
    if (begin == std::string::npos)
        return "";
    const std::size_t value = begin + before.size();
    return element.substr(value, element.find('"', value) - value);
}

double number(const std::string& element, const std::string& name)
{
    return std::stod(attribute(element, name));
}

DrawnText text_of(const std::string& line)
{
    SheetPoint at = {0, 0};
    double turn = 0.0;
    const std::string transform = attribute(line, "transform");
    if (!transform.empty()) {
        const std::size_t place = transform.find('(') + 1;
        at = {std::stod(transform.substr(place)), std::stod(transform.substr(transform.find(' ', place)))};
        turn = std::stod(transform.substr(transform.find("rotate(") + 7)) * M_PI / 180.0;
    }
    DrawnText text;
    text.text = line.substr(line.find('>') + 1, line.find("</text>") - line.find('>') - 1);
    text.size = number(line, "font-size");
    text.bold = attribute(line, "font-weight") == "bold";
    text.colour = attribute(line, "fill");
    const double x = number(line, "x");
    const double y = number(line, "y");
    const double right = x + number(line, "textLength");
    const double top = y - kCapitals * text.size;
    for (const SheetPoint& p : {SheetPoint{x, y}, {right, y}, {right, top}, {x, top}})
        text.corners.push_back({at.x + p.x * std::cos(turn) - p.y * std::sin(turn),
                                at.y + p.x * std::sin(turn) + p.y * std::cos(turn)});
    return text;
}

DrawnPath path_of(const std::string& line)
{
    DrawnPath path;
    std::string points = attribute(line, "d");
    path.closed = points.back() == 'Z';
    std::replace_if(
        points.begin(), points.end(), [](char c) { return c == 'M' || c == 'L' || c == 'Z'; }, ' ');
    std::istringstream numbers(points);
    for (SheetPoint p; numbers >> p.x >> p.y;)
        path.points.push_back(p);
    path.fill = attribute(line, "fill");
    path.stroke = attribute(line, "stroke");
    path.width = path.stroke.empty() ? 0.0 : number(line, "stroke-width");
    return path;
}

double parted_by(const std::vector<SheetPoint>& a, const std::vector<SheetPoint>& b)
{
    double most = -INFINITY;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const SheetPoint along = tool::direction(a[i], a[(i + 1) % a.size()]);
        for (const double sign : {1.0, -1.0}) {
            double far_a = -INFINITY;
            double near_b = INFINITY;
            for (const SheetPoint& p : a)
                far_a = std::max(far_a, sign * (along.y * p.x - along.x * p.y));
            for (const SheetPoint& p : b)
                near_b = std::min(near_b, sign * (along.y * p.x - along.x * p.y));
            most = std::max(most, near_b - far_a);
        }
    }
    return most;
}

}  // namespace

SheetPoint DrawnText::left() const
{
    return corners[0];
}

SheetPoint DrawnText::right() const
{
    return corners[1];
}

SheetPoint DrawnText::middle() const
{
    return {0.5 * (corners[0].x + corners[2].x), 0.5 * (corners[0].y + corners[2].y)};
}

std::vector<DrawnText> DrawnSheet::with_text(const std::string& text) const
{
    std::vector<DrawnText> found;
    std::copy_if(texts.begin(), texts.end(), std::back_inserter(found),
                 [&](const DrawnText& drawn) { return drawn.text == text; });
    return found;
}

DrawnSheet read_sheet(const std::string& svg)
{
    DrawnSheet sheet;
    bool in_window = false;
    std::istringstream lines(svg);
    for (std::string line; std::getline(lines, line);) {
        const auto is = [&](const std::string& name) { return line.rfind("<" + name, 0) == 0; };
        DrawnGroup& group = in_window ? sheet.windows.back() : sheet.free;
        if (is("svg")) {
            sheet.size = {number(line, "width"), number(line, "height")};
        } else if (is("clipPath")) {
            const SheetPoint corner = {number(line, "x"), number(line, "y")};
            sheet.windows.push_back({});
            sheet.windows.back().box = {corner.x, corner.y, corner.x + number(line, "width"),
                                        corner.y + number(line, "height")};
            in_window = true;
        } else if (is("/g")) {
            in_window = false;
        } else if (is("text")) {
            sheet.texts.push_back(text_of(line));
        } else if (is("path")) {
            group.paths.push_back(path_of(line));
        } else if (is("circle")) {
            group.dots.push_back({number(line, "cx"), number(line, "cy")});
        }
    }
    return sheet;
}

double gap_between(const std::vector<SheetPoint>& a, const std::vector<SheetPoint>& b)
{
    return std::max(parted_by(a, b), parted_by(b, a));
}

}  // namespace test
