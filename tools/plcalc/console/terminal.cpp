#include "console/terminal.h"

#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace tool {

bool stderr_is_terminal()
{
    const char* const kind = std::getenv("TERM");
    return isatty(STDERR_FILENO) != 0 && kind != nullptr && std::strcmp(kind, "dumb") != 0;
}

std::string alarming(const std::string& text)
{
    const char* const no_color = std::getenv("NO_COLOR");
    const bool plain = no_color != nullptr && *no_color != '\0';
    return plain || !stderr_is_terminal() ? text : "\x1b[31m" + text + "\x1b[0m";
}

}  // namespace tool
