#pragma once

// What --help and --version print, in at most 80 columns.

#include <string>

namespace tool {

std::string version_line();
std::string general_help();
std::string divide_help();
std::string measure_help();
std::string stakeout_help();

}  // namespace tool
