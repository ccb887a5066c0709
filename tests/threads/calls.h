#pragma once

// Every exported function of plcalc and plutil, by its symbol.

#include <string>
#include <vector>

#include "data.h"

namespace test {

/// One way to call an exported function.
struct Call {
    std::string symbol;  ///< as the lists of exported symbols write it
    Outcome (*run)(Data& data);
};

/// All of them, each once.
const std::vector<Call>& calls();

}  // namespace test
