#include "sheet/cairo_pen.h"

#include <cmath>

#include <cairo-pdf.h>
#include <fcntl.h>
#include <unistd.h>

#include "console/outcome.h"

namespace tool {
namespace {

// Dots to the point in a PNG: 144 to the inch.
constexpr double kPngScale = 2.0;

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

// Text as wide on every surface: a picture would round it to its dots.
void prepare(cairo_t* cairo)
{
    const std::unique_ptr<cairo_font_options_t, decltype(&cairo_font_options_destroy)> options(
        cairo_font_options_create(), &cairo_font_options_destroy);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(cairo, options.get());
    cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
    load_fonts(cairo);
}

void set_font(cairo_t* cairo, double size, bool bold)
{
    cairo_select_font_face(cairo, kFont, CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo, size);
}

cairo_surface_t* make_surface(const std::string& path, bool is_pdf, const SheetPoint& sheet)
{
    if (is_pdf)
        return cairo_pdf_surface_create(path.c_str(), sheet.x, sheet.y);
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

TextRuler::TextRuler()
    : surface_(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1), &cairo_surface_destroy),
      cairo_(cairo_create(surface_.get()), &cairo_destroy)
{
    prepare(cairo_.get());
}

double TextRuler::width_of(const std::string& text, double size, bool bold)
{
    set_font(cairo_.get(), size, bold);
    cairo_text_extents_t extents;
    cairo_text_extents(cairo_.get(), text.c_str(), &extents);
    return extents.x_advance;
}

CairoPen::CairoPen(const std::string& path, bool is_pdf, const SheetPoint& sheet, const std::string& title,
                   const std::string& name)
    : path_(path), is_pdf_(is_pdf), name_(name),
      surface_(make_surface(path, is_pdf, sheet), &cairo_surface_destroy),
      cairo_(cairo_create(surface_.get()), &cairo_destroy)
{
    require(cairo_status(cairo_.get()), name_);
    if (is_pdf_) {
        cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
        cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATOR, "plcalc");
    } else {
        cairo_scale(cairo_.get(), kPngScale, kPngScale);
        set_colour({1.0, 1.0, 1.0});
        cairo_paint(cairo_.get());
    }
    prepare(cairo_.get());
}

void CairoPen::set_colour(const Colour& colour)
{
    cairo_set_source_rgb(cairo_.get(), colour.red, colour.green, colour.blue);
}

void CairoPen::trace(const std::vector<SheetPoint>& path, bool closed)
{
    cairo_new_path(cairo_.get());
    for (const SheetPoint& p : path)
        cairo_line_to(cairo_.get(), p.x, p.y);
    if (closed)
        cairo_close_path(cairo_.get());
}

void CairoPen::fill(const std::vector<SheetPoint>& outline, const Colour& colour)
{
    trace(outline, true);
    set_colour(colour);
    cairo_fill(cairo_.get());
}

void CairoPen::stroke(const std::vector<SheetPoint>& path, bool closed, const Colour& colour, double width)
{
    trace(path, closed);
    set_colour(colour);
    cairo_set_line_width(cairo_.get(), width);
    cairo_stroke(cairo_.get());
}

void CairoPen::dot(const SheetPoint& centre, double radius, const Colour& inside, const Colour& rim)
{
    cairo_new_path(cairo_.get());
    cairo_arc(cairo_.get(), centre.x, centre.y, radius, 0.0, 2.0 * kPi);
    set_colour(inside);
    cairo_fill_preserve(cairo_.get());
    set_colour(rim);
    cairo_set_line_width(cairo_.get(), 0.8);
    cairo_stroke(cairo_.get());
}

// The rim is a path and the text is text: it can be searched and copied.
void CairoPen::text(const PlacedText& text)
{
    set_font(cairo_.get(), text.size, text.bold);
    cairo_save(cairo_.get());
    cairo_translate(cairo_.get(), text.at.x, text.at.y);
    cairo_rotate(cairo_.get(), text.angle);
    if (text.rim > 0.0) {
        cairo_new_path(cairo_.get());
        cairo_move_to(cairo_.get(), text.start.x, text.start.y);
        cairo_text_path(cairo_.get(), text.text.c_str());
        set_colour({1.0, 1.0, 1.0});
        cairo_set_line_width(cairo_.get(), text.rim);
        cairo_stroke(cairo_.get());
    }
    cairo_move_to(cairo_.get(), text.start.x, text.start.y);
    set_colour(text.colour);
    cairo_show_text(cairo_.get(), text.text.c_str());
    cairo_restore(cairo_.get());
}

void CairoPen::clip(const SheetBox& box)
{
    cairo_save(cairo_.get());
    cairo_new_path(cairo_.get());
    cairo_rectangle(cairo_.get(), box.left, box.top, box.width(), box.height());
    cairo_clip(cairo_.get());
}

void CairoPen::unclip()
{
    cairo_restore(cairo_.get());
}

void CairoPen::next_page(const SheetPoint& sheet)
{
    cairo_show_page(cairo_.get());
    cairo_pdf_surface_set_size(surface_.get(), sheet.x, sheet.y);
}

void CairoPen::finish()
{
    cairo_show_page(cairo_.get());
    require(cairo_status(cairo_.get()), name_);
    if (!is_pdf_)
        require(cairo_surface_write_to_png(surface_.get(), path_.c_str()), name_);
    cairo_surface_finish(surface_.get());
    require(cairo_surface_status(surface_.get()), name_);
}

}  // namespace tool
