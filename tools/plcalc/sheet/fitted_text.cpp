#include "sheet/fitted_text.h"

namespace tool {
namespace {

const char* const kDots = "...";

// The bytes of a character after its first are 10xxxxxx.
bool begins_character(const std::string& text, std::size_t at)
{
    return at == 0 || at == text.size() || (text[at] & 0xC0) != 0x80;
}

std::size_t next_character(const std::string& text, std::size_t at)
{
    do {
        ++at;
    } while (!begins_character(text, at));
    return at;
}

std::size_t previous_character(const std::string& text, std::size_t at)
{
    do {
        --at;
    } while (!begins_character(text, at));
    return at;
}

}  // namespace

// What is kept grows until it is too wide, so that a long text takes no longer than a line of it.
std::string fitted(Canvas& ruler, const std::string& text, double size, bool bold, double room)
{
    const auto fits = [&](const std::string& shown) { return ruler.size_of(shown, size, bold).x <= room; };
    if (fits(text))
        return text;
    std::size_t end = 0;
    for (std::size_t next = 0; next < text.size() && fits(text.substr(0, next) + kDots);) {
        end = next;
        next = next_character(text, next);
    }
    return text.substr(0, end) + kDots;
}

std::string fitted_at_both_ends(Canvas& ruler, const std::string& text, double size, bool bold, double room)
{
    const auto fits = [&](const std::string& shown) { return ruler.size_of(shown, size, bold).x <= room; };
    if (fits(text))
        return text;
    std::string shown = kDots;
    std::size_t head = 0;
    std::size_t tail = text.size();
    while (head < tail) {
        head = next_character(text, head);
        tail = previous_character(text, tail);
        const std::string longer = text.substr(0, head) + kDots + text.substr(tail);
        if (!fits(longer))
            break;
        shown = longer;
    }
    return shown;
}

}  // namespace tool
