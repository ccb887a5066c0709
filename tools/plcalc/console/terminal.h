#pragma once

// What depends on whether a person is watching.

#include <string>

namespace tool {

/// Whether stderr is a terminal that shows colours and can rewrite a line. One that TERM calls dumb cannot.
bool stderr_is_terminal();

/// The text in red if stderr is such a terminal and NO_COLOR is not set; otherwise the text as it is.
std::string alarming(const std::string& text);

}  // namespace tool
