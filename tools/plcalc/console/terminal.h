#pragma once

// What depends on whether a person is watching.

#include <string>

namespace tool {

/// Whether stderr is a terminal that knows colours and can go back on a line: not one that TERM calls dumb.
bool stderr_is_terminal();

/// The text in red where stderr is such a terminal and NO_COLOR is not set; as it is elsewhere.
std::string alarming(const std::string& text);

}  // namespace tool
