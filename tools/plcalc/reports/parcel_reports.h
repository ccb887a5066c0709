#pragma once

// What the verbs print about one parcel: tables for people, JSON for programs, CSV for spreadsheets, with the same
// numbers.

#include <optional>
#include <string>
#include <vector>

#include "answers/measure.h"
#include "answers/printed_division.h"
#include "answers/question.h"
#include "answers/stakeout.h"
#include "console/outcome.h"
#include "text/angles.h"
#include "text/json.h"

namespace tool {

// --- plcalc divide ---

/// The table: parcel, cut, the amounts as they were given, the ends of the lines, the areas of the pieces,
/// area and perimeter of the parcel. Columns are aligned, and every line is ended.
///
/// @param[in] answer  one that is done()
std::string division_table(const Answer& answer);

/// What a reader of its files must know as well: what was assumed, and what was done otherwise than asked. Mostly empty.
///
/// @param[in] answer  one that is done()
std::string division_notes(const Answer& answer);

/// The same numbers.
Json division_json(const Answer& answer);

// --- plcalc measure ---

/// @param[in] angles  one unit for bearings and angles; without it gons and degrees beside each other
std::string measures_table(const Parcel& parcel, const Measures& measures, std::optional<AngleUnit> angles);

/// The same numbers; in a unit that is asked for the bearings and angles are texts, beside gons and degrees.
Json measures_json(const Parcel& parcel, const Measures& measures, std::optional<AngleUnit> angles);

// --- plcalc stakeout ---

/// Everything about one job of setting out.
struct StakeoutSheet {
    Place parcel;                      ///< where the parcel stands
    std::vector<std::string> assumed;  ///< of it
    bool heights = false;              ///< whether to tell heights
    Setup setup;
    BaseLine base;
    std::vector<SetOut> points;
    Resolution resolution;  ///< decimals of lengths
    int angle_decimals =
        4;  ///< of gons: so many that no point moves by more than the last decimal of a length
    AngleUnit angles = AngleUnit::gon;
};

/// Angles with as many decimals of gons as the farthest point needs.
int angle_decimals_for(const std::vector<SetOut>& points, const Resolution& resolution);

std::string stakeout_table(const StakeoutSheet& sheet);
std::string stakeout_csv(const StakeoutSheet& sheet);
std::string stakeout_json(const StakeoutSheet& sheet);

/// The points as a controller reads them: name, E, N, Z where there are heights, and code, each point once.
///
/// @throws Failure  wrong_use where one name stands for two places
std::string stakeout_points(const StakeoutSheet& sheet);

}  // namespace tool
