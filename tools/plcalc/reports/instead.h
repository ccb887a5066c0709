#pragma once

// What can be had where the parcel cannot be cut as asked.

#include <optional>
#include <string>

#include "answers/printed_division.h"
#include "plparcel/feasible.h"
#include "text/json.h"

namespace tool {

/// Of a series of amounts only the first is spoken of.
struct Instead {
    struct Amount {
        double area = 0.0;  ///< unit squared, on the ground, rounded into its range
        bool is_had =
            false;  ///< otherwise everything up to there is had, or from there on, but not the area itself
        bool is_single = false;  ///< nothing beyond the area is had either
    };

    std::optional<Amount> below;  ///< the nearest that is less than asked
    std::optional<Amount> above;  ///< and more
    int decimals = 0;             ///< of areas
    bool with_lines = false;      ///< other lines have been looked for
    plparcel::Alternatives lines;
};

/// Looks for it, which costs as much as some sixty divisions.
///
/// @param[in] answer  refused
/// @return nothing where the reason is another one than that no line of the kind holds the amount
std::optional<Instead> instead_of(const Answer& answer);

/// "ask for less than 1800.0000 or at least 2700.0000, or cut along side 2, across side 1 or from vertex 3"; empty where
/// nothing can be had.
std::string advice_instead(const Parcel& parcel, const Instead& instead);

/// The same for programs: below, above, lines.
Json json_instead(const Parcel& parcel, const Instead& instead);

}  // namespace tool
