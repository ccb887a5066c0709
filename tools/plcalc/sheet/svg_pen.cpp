#include "sheet/svg_pen.h"

#include <cerrno>
#include <cmath>
#include <fstream>
#include <system_error>

#include "console/outcome.h"
#include "text/numbers.h"

namespace tool {
namespace {

// A thousandth of a point is finer than any printer.
std::string number(double value)
{
    return fixed(value, 3);
}

std::string hex(const Colour& colour)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (const double part : {colour.red, colour.green, colour.blue}) {
        const long value = std::lround(part * 255.0);
        text += kDigits[value / 16];
        text += kDigits[value % 16];
    }
    return text;
}

std::string attribute(const char* name, const std::string& value)
{
    return std::string(" ") + name + "=\"" + value + "\"";
}

std::string path_of(const std::vector<SheetPoint>& points, bool closed)
{
    std::string path;
    for (const SheetPoint& p : points)
        path += (path.empty() ? "M" : "L") + number(p.x) + " " + number(p.y);
    return attribute("d", path + (closed ? "Z" : ""));
}

}  // namespace

std::string xml_text(const std::string& text)
{
    std::string safe;
    for (const char c : text) {
        if (c == '&')
            safe += "&amp;";
        else if (c == '<')
            safe += "&lt;";
        else if (c == '>')
            safe += "&gt;";
        else if (c == '"')
            safe += "&quot;";
        else
            safe += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
    return safe;
}

SvgPen::SvgPen(const std::string& path, const SheetPoint& sheet, const std::string& title,
               const std::string& name)
    : path_(path), name_(name)
{
    svg_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
           attribute("width", number(sheet.x) + "pt") + attribute("height", number(sheet.y) + "pt") +
           attribute("viewBox", "0 0 " + number(sheet.x) + " " + number(sheet.y)) +
           attribute("font-family", std::string(kFont) + ", sans-serif") +
           attribute("stroke-linejoin", "round") + attribute("stroke-linecap", "round") + ">\n<title>" +
           xml_text(title) + "</title>\n<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
}

void SvgPen::fill(const std::vector<SheetPoint>& outline, const Colour& colour)
{
    svg_ += "<path" + path_of(outline, true) + attribute("fill", hex(colour)) + "/>\n";
}

void SvgPen::stroke(const std::vector<SheetPoint>& path, bool closed, const Colour& colour, double width)
{
    svg_ += "<path" + path_of(path, closed) + attribute("fill", "none") + attribute("stroke", hex(colour)) +
            attribute("stroke-width", number(width)) + "/>\n";
}

void SvgPen::dot(const SheetPoint& centre, double radius, const Colour& inside, const Colour& rim)
{
    svg_ += "<circle" + attribute("cx", number(centre.x)) + attribute("cy", number(centre.y)) +
            attribute("r", number(radius)) + attribute("fill", hex(inside)) + attribute("stroke", hex(rim)) +
            attribute("stroke-width", "0.8") + "/>\n";
}

// The length is told, so that another font takes no more room than was left for this one.
void SvgPen::text(const PlacedText& text)
{
    if (text.text.empty())
        return;
    std::string place;
    if (text.angle != 0.0)
        place = attribute("transform", "translate(" + number(text.at.x) + " " + number(text.at.y) +
                                           ") rotate(" + number(text.angle * 180.0 / kPi) + ")") +
                attribute("x", number(text.start.x)) + attribute("y", number(text.start.y));
    else
        place = attribute("x", number(text.at.x + text.start.x)) +
                attribute("y", number(text.at.y + text.start.y));
    svg_ += "<text" + place + attribute("font-size", number(text.size)) +
            (text.bold ? attribute("font-weight", "bold") : "") +
            attribute("textLength", number(text.width)) + attribute("lengthAdjust", "spacingAndGlyphs") +
            attribute("fill", hex(text.colour));
    if (text.rim > 0.0)
        svg_ += attribute("stroke", "#ffffff") + attribute("stroke-width", number(text.rim)) +
                attribute("paint-order", "stroke");
    svg_ += attribute("xml:space", "preserve") + ">" + xml_text(text.text) + "</text>\n";
}

void SvgPen::clip(const SheetBox& box)
{
    const std::string id = "clip" + std::to_string(++clips_);
    svg_ += "<clipPath" + attribute("id", id) + "><rect" + attribute("x", number(box.left)) +
            attribute("y", number(box.top)) + attribute("width", number(box.width())) +
            attribute("height", number(box.height())) + "/></clipPath>\n<g" +
            attribute("clip-path", "url(#" + id + ")") + ">\n";
}

void SvgPen::unclip()
{
    svg_ += "</g>\n";
}

void SvgPen::next_page(const SheetPoint&)
{
    throw Failure(ExitStatus::failed, {name_, ""}, "an SVG file has one page", "name it .pdf");
}

void SvgPen::finish()
{
    svg_ += "</svg>\n";
    errno = 0;
    std::ofstream file(path_, std::ios::binary);
    file << svg_;
    file.close();
    if (!file)
        throw Failure(ExitStatus::failed, {name_, ""},
                      "the plan could not be written (" + std::generic_category().message(errno) + ")",
                      "check the folder and the room on the disk");
}

}  // namespace tool
