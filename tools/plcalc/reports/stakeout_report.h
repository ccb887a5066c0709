#pragma once

// What `plcalc stakeout` prints, for people, for spreadsheets and for programs: the same numbers.

#include <string>
#include <vector>

#include "answers/resolution.h"
#include "answers/stakeout.h"
#include "console/failure.h"

namespace tool {

/// Everything about one job of setting out.
struct StakeoutSheet {
    Place parcel;  ///< where the parcel stands
    Setup setup;
    BaseLine base;
    std::vector<SetOut> points;
    Resolution resolution;   ///< decimals of lengths
    int angle_decimals = 4;  ///< so many that no point moves by more than the last decimal of a length
};

/// Angles with as many decimals as the farthest point needs.
int angle_decimals_for(const std::vector<SetOut>& points, const Resolution& resolution);

std::string stakeout_table(const StakeoutSheet& sheet);
std::string stakeout_csv(const StakeoutSheet& sheet);
std::string stakeout_json(const StakeoutSheet& sheet);

}  // namespace tool
