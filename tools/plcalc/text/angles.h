#pragma once

// Angles and bearings as text: gons, degrees, degrees with minutes and seconds, quadrants.

#include <optional>
#include <string>

namespace tool {

/// How angles are written. Quadrants are for bearings; angles beside them have degrees, minutes and seconds.
enum class AngleUnit { gon, degrees, dms, quadrant };

/// The unit that is called "gon", "deg", "dms" or "quadrant".
std::optional<AngleUnit> angle_unit_named(const std::string& name);

/// Reads an angle: gons as in "112.5gon"; degrees as in "101.25d", "101°15'30\"" or "101-15-30", the same with d for the
/// sign of degrees; or a quadrant bearing as in "S78°44'30\"E" or "S78-44-30E".
///
/// @param[in] plain  of a number without any sign: gons, or degrees for all other units
/// @return gons; nothing for any other text, and for minutes or seconds that are not from 0 to below 60
std::optional<double> parse_angle(const std::string& text, AngleUnit plain = AngleUnit::gon);

/// An angle as it was given; a number alone with its unit: "112.5 gon", "101.25°".
std::string given_angle(const std::string& text, AngleUnit plain);

/// A tenth of a milligon is what a theodolite reads.
constexpr int kAngleDecimals = 4;

/// An angle in gons as text, below a full turn after rounding too; "-" for none.
std::string gon_text(const std::optional<double>& angle_gon, int decimals);

/// The same angle in degrees.
std::string degree_text(const std::optional<double>& angle_gon, int decimals);

/// The decimals with which the unit shows at least what this many decimals of a gon do: of degrees, or of seconds.
int decimals_in(AngleUnit unit, int gon_decimals);

/// An angle from 0 to below a full turn: "112.5000", "101.2500" or "101°15'00\"", without a sign for gons or degrees; "-"
/// for none.
///
/// @param[in] decimals  of gons, degrees or seconds
std::string angle_text(const std::optional<double>& angle_gon, AngleUnit unit, int decimals);

/// The same with the decimals that are usual: four, and whole seconds.
std::string angle_text(const std::optional<double>& angle_gon, AngleUnit unit);

/// The same of a direction from North, which a quadrant can tell: "S78°45'00\"E".
std::string bearing_text(const std::optional<double>& bearing_gon, AngleUnit unit);

/// With the sign of gons or degrees behind it.
std::string with_angle_sign(const std::string& text, AngleUnit unit);

/// "gon", "deg", or nothing where the texts themselves tell.
std::string angle_sign(AngleUnit unit);

/// The head of a column: "bearing, gon", or "bearing" where the texts themselves tell.
std::string angle_head(const std::string& what, AngleUnit unit);
}  // namespace tool
