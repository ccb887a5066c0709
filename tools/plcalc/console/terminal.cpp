#include "console/terminal.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include <unistd.h>

#include "console/outcome.h"

namespace {

constexpr std::size_t kPlaces = 30;
constexpr std::chrono::milliseconds kFirst(500);
constexpr std::chrono::milliseconds kEvery(100);

// Returns to the start of the line and clears it.
constexpr const char* kClearLine = "\r\x1b[K";

}  // namespace

namespace tool {

bool stderr_is_terminal()
{
    const char* const kind = std::getenv("TERM");
    return isatty(STDERR_FILENO) != 0 && kind != nullptr && std::strcmp(kind, "dumb") != 0;
}

std::string message(const std::string& text)
{
    const char* const no_color = std::getenv("NO_COLOR");
    const bool plain = no_color != nullptr && *no_color != '\0';
    return (plain || !stderr_is_terminal() ? "plcalc: " : "\x1b[31mplcalc:\x1b[0m ") + printable(text) + '\n';
}

Progress::Progress(const std::string& what, std::size_t total)
    : what_(what), total_(total), on_terminal_(stderr_is_terminal()), next_(Clock::now() + kFirst)
{}

Progress::~Progress()
{
    if (shown_)
        std::cerr << kClearLine << std::flush;
}

void Progress::step()
{
    ++done_;
    const Clock::time_point now = Clock::now();
    if (!on_terminal_ || now < next_)
        return;
    std::cerr << kClearLine << progress_bar(what_, done_, total_) << std::flush;
    shown_ = true;
    next_ = now + kEvery;
}

std::string progress_bar(const std::string& what, std::size_t done, std::size_t total)
{
    const std::size_t filled = total > 0 ? std::min(kPlaces, done * kPlaces / total) : kPlaces;
    return what + " [" + std::string(filled, '#') + std::string(kPlaces - filled, ' ') + "] " +
           std::to_string(done) + " of " + std::to_string(total);
}

}  // namespace tool
