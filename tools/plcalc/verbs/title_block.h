#pragma once

// What the title block of a plan says, from options or from a small file.

#include <string>

#include "console/outcome.h"
#include "plan/plan.h"

namespace tool {

/// Adds "Client=Rossi", or takes the place of what was there for the same key.
///
/// @param[in] place  where the text stands
/// @throws Failure   wrong_use where there is no "=" with a key before it
void add_title(TitleBlock& block, const Place& place, const std::string& text);

/// Reads a file with a line for each entry, Client = Rossi. Empty lines and lines that begin with # are passed over.
///
/// @throws Failure  unusable_input for a file that cannot be read, or is none; as add_title()
TitleBlock read_title_block(const std::string& file);

}  // namespace tool
