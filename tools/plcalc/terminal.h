#pragma once

// What depends on whether a person is watching.

#include <string>

namespace tool {

bool stderr_is_terminal();

/// The text in red where stderr is a terminal and NO_COLOR is not set; as it is elsewhere.
std::string alarming(const std::string& text);

}  // namespace tool
