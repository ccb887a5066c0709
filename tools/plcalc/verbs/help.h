#pragma once

// What --help and --version print. 80 columns are enough for all of it.

#include <string>

namespace tool {

std::string version_line();
std::string general_help();
std::string divide_help();
std::string measure_help();
std::string stakeout_help();

}  // namespace tool
