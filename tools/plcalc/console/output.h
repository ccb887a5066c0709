#pragma once

// What a verb returns when its work is done.

#include <string>

#include "console/failure.h"

namespace tool {

/// What a verb hands to the shell.
struct Output {
    std::string text;                      ///< for stdout
    ExitStatus status = ExitStatus::done;  ///< not `done` where some parcels of many could not be worked on
};

}  // namespace tool
