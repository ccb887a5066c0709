#include "sheet/canvas.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <fcntl.h>
#include <unistd.h>

#include "console/outcome.h"

namespace tool {
namespace {

constexpr const char* kFont = "DejaVu Sans";

// Dots to the point in a PNG: 144 to the inch.
constexpr double kPngScale = 2.0;

// Of the white rim around text, parts of its size.
constexpr double kRim = 0.25;

// While it lives, what a library writes to stderr goes nowhere.
class StderrSilenced {
public:
    StderrSilenced() : kept_(dup(STDERR_FILENO))
    {
        const int nowhere = open("/dev/null", O_WRONLY);
        if (kept_ >= 0 && nowhere >= 0)
            dup2(nowhere, STDERR_FILENO);
        if (nowhere >= 0)
            close(nowhere);
    }
    ~StderrSilenced()
    {
        if (kept_ < 0)
            return;
        dup2(kept_, STDERR_FILENO);
        close(kept_);
    }
    StderrSilenced(const StderrSilenced&) = delete;
    StderrSilenced& operator=(const StderrSilenced&) = delete;

private:
    int kept_;
};

// The first text that is measured makes the font library read its caches. It writes those that are missing, and
// where it cannot (a home that is read-only, a limit on the size of files) it complains on stderr and goes on
// without. It takes no handler for its messages.
void load_fonts(cairo_t* cairo)
{
    static bool loaded = false;
    if (loaded)
        return;
    const StderrSilenced silenced;
    cairo_text_extents_t ignored;
    cairo_text_extents(cairo, "0", &ignored);
    loaded = true;
}

std::string ending_of(const std::string& path)
{
    std::string ending = std::filesystem::path(path).extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending;
}

cairo_surface_t* make_surface(const std::string& path, const SheetPoint& sheet)
{
    const std::string ending = ending_of(path);
    if (ending == ".pdf")
        return cairo_pdf_surface_create(path.c_str(), sheet.x, sheet.y);
    if (ending == ".svg") {
        cairo_surface_t* const surface = cairo_svg_surface_create(path.c_str(), sheet.x, sheet.y);
        cairo_svg_surface_set_document_unit(surface, CAIRO_SVG_UNIT_PT);
        return surface;
    }
    return cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(std::ceil(sheet.x * kPngScale)),
                                      static_cast<int>(std::ceil(sheet.y * kPngScale)));
}

void require(cairo_status_t status, const std::string& name)
{
    if (status != CAIRO_STATUS_SUCCESS)
        throw Failure(ExitStatus::failed, {name, ""},
                      std::string("the plan could not be written (") + cairo_status_to_string(status) + ")",
                      "check the folder and the room on the disk");
}

}  // namespace

bool Canvas::can_draw(const std::string& path)
{
    const std::string ending = ending_of(path);
    return ending == ".svg" || ending == ".pdf" || ending == ".png";
}

Canvas::Canvas(const std::string& path, const SheetPoint& sheet, const std::string& name)
    : path_(path), name_(name), surface_(make_surface(path, sheet), &cairo_surface_destroy),
      cairo_(cairo_create(surface_.get()), &cairo_destroy)
{
    require(cairo_status(cairo_.get()), name_);
    if (ending_of(path_) == ".png")
        cairo_scale(cairo_.get(), kPngScale, kPngScale);
    set_colour(kPaper);
    cairo_paint(cairo_.get());
    prepare();
}

Canvas::Canvas()
    : surface_(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1), &cairo_surface_destroy),
      cairo_(cairo_create(surface_.get()), &cairo_destroy)
{
    prepare();
}

// Text as wide on every surface: a picture would round it to its dots.
void Canvas::prepare()
{
    const std::unique_ptr<cairo_font_options_t, decltype(&cairo_font_options_destroy)> options(
        cairo_font_options_create(), &cairo_font_options_destroy);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(cairo_.get(), options.get());
    cairo_set_line_join(cairo_.get(), CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(cairo_.get(), CAIRO_LINE_CAP_ROUND);
    load_fonts(cairo_.get());
}

void Canvas::set_colour(const Colour& colour)
{
    cairo_set_source_rgb(cairo_.get(), colour.red, colour.green, colour.blue);
}

void Canvas::set_font(double size, bool bold)
{
    cairo_select_font_face(cairo_.get(), kFont, CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo_.get(), size);
}

void Canvas::trace(const std::vector<SheetPoint>& outline)
{
    cairo_new_path(cairo_.get());
    for (const SheetPoint& p : outline)
        cairo_line_to(cairo_.get(), p.x, p.y);
    cairo_close_path(cairo_.get());
}

void Canvas::draw_traced(const Colour& colour, double width)
{
    set_colour(colour);
    cairo_set_line_width(cairo_.get(), width);
    cairo_stroke(cairo_.get());
}

void Canvas::fill(const std::vector<SheetPoint>& outline, const Colour& colour)
{
    trace(outline);
    set_colour(colour);
    cairo_fill(cairo_.get());
}

void Canvas::stroke(const std::vector<SheetPoint>& outline, const Colour& colour, double width)
{
    trace(outline);
    draw_traced(colour, width);
}

void Canvas::line(const SheetPoint& from, const SheetPoint& to, const Colour& colour, double width)
{
    cairo_new_path(cairo_.get());
    cairo_move_to(cairo_.get(), from.x, from.y);
    cairo_line_to(cairo_.get(), to.x, to.y);
    draw_traced(colour, width);
}

void Canvas::dot(const SheetPoint& centre, double radius, const Colour& inside, const Colour& rim)
{
    cairo_new_path(cairo_.get());
    cairo_arc(cairo_.get(), centre.x, centre.y, radius, 0.0, 2.0 * kPi);
    set_colour(inside);
    cairo_fill_preserve(cairo_.get());
    set_colour(rim);
    cairo_set_line_width(cairo_.get(), 0.8);
    cairo_stroke(cairo_.get());
}

SheetPoint Canvas::size_of(const std::string& text, double size, bool bold)
{
    set_font(size, bold);
    cairo_text_extents_t extents;
    cairo_text_extents(cairo_.get(), text.c_str(), &extents);
    return {extents.x_advance, size};
}

void Canvas::text(const std::string& text, const SheetPoint& place, double size, const Colour& colour,
                  Anchor anchor, bool bold, double angle)
{
    const SheetPoint extent = size_of(text, size, bold);
    constexpr double kCapHeight = 0.73;  // of the size, in this font
    const double shift = anchor == Anchor::left ? 0.0 : anchor == Anchor::centre ? 0.5 : 1.0;
    cairo_save(cairo_.get());
    cairo_translate(cairo_.get(), place.x, place.y);
    cairo_rotate(cairo_.get(), angle);
    cairo_move_to(cairo_.get(), -shift * extent.x, 0.5 * kCapHeight * size);
    cairo_text_path(cairo_.get(), text.c_str());
    set_colour(kPaper);
    cairo_set_line_width(cairo_.get(), kRim * size);
    cairo_stroke_preserve(cairo_.get());
    cairo_new_path(cairo_.get());
    cairo_move_to(cairo_.get(), -shift * extent.x, 0.5 * kCapHeight * size);
    set_colour(colour);
    cairo_show_text(cairo_.get(), text.c_str());
    cairo_restore(cairo_.get());
}

void Canvas::finish()
{
    cairo_show_page(cairo_.get());
    require(cairo_status(cairo_.get()), name_);
    if (ending_of(path_) == ".png")
        require(cairo_surface_write_to_png(surface_.get(), path_.c_str()), name_);
    cairo_surface_finish(surface_.get());
    require(cairo_surface_status(surface_.get()), name_);
}

}  // namespace tool
