#pragma once

// Angles as text.

#include <optional>
#include <string>

namespace tool {

/// A tenth of a milligon is what a theodolite reads.
constexpr int kAngleDecimals = 4;

/// An angle in gons as text, below a full turn after rounding too; "-" for none.
std::string gon_text(const std::optional<double>& angle_gon, int decimals);

/// The same angle in degrees.
std::string degree_text(const std::optional<double>& angle_gon, int decimals);

}  // namespace tool
