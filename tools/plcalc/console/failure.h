#pragma once

// The one home of the program's exit statuses and of the way a verb gives up.

#include <stdexcept>
#include <string>

namespace tool {

/// What the program returns to the shell. Scripts rely on the numbers.
enum class ExitStatus {
    done = 0,            ///< every number printed is right
    failed = 1,          ///< neither the request nor the parcel is to blame: no memory, output not written
    wrong_use = 2,       ///< options, or a side, vertex or feature that is not there
    unusable_input = 3,  ///< a file or geometry that cannot be worked on
    cannot_cut = 4       ///< a parcel that cannot be divided as asked
};

/// Ends the verb: main() prints the text, one line on stderr, and returns the status.
class Failure : public std::runtime_error {
public:
    /// @param[in] status  what the program returns
    /// @param[in] text    where: what is wrong; what to do
    Failure(ExitStatus status, const std::string& text) : std::runtime_error(text), status_(status) {}

    ExitStatus status() const { return status_; }

private:
    ExitStatus status_;
};

}  // namespace tool
