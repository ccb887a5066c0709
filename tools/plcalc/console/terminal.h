#pragma once

// What depends on whether a person is watching: colour, and a bar while many parcels are worked on.

#include <chrono>
#include <cstddef>
#include <string>

namespace tool {

/// Whether stderr is a terminal that shows colours and can rewrite a line. One that TERM calls dumb cannot.
bool stderr_is_terminal();

/// "plcalc: ..." as one line: a file name may hold a line break, a message may not. "plcalc:" is red if stderr is such a
/// terminal and NO_COLOR is not set.
std::string message(const std::string& text);

/// A bar that appears on stderr after the first half second, only if stderr is a terminal, and removes itself at the
/// end.
class Progress {
public:
    /// @param[in] what   what is being done, "dividing"
    /// @param[in] total  number of steps
    Progress(const std::string& what, std::size_t total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void step();

private:
    using Clock = std::chrono::steady_clock;

    std::string what_;
    std::size_t total_;
    std::size_t done_ = 0;
    bool on_terminal_;
    bool shown_ = false;
    Clock::time_point next_;
};

/// The bar as text: what, a bar of 30 places, steps done of all.
std::string progress_bar(const std::string& what, std::size_t done, std::size_t total);

}  // namespace tool
