#pragma once

// The parts of the program. Each prints its tables to standard output.

#include <cstdint>

namespace accuracy {

/// Errors of intersections, feet, distances, areas and perimeters.
void print_geometry_limits(std::uint64_t seed, int cases);

/// How far from the boundary PlFunz_inpolygon is wrong: 200 points for each case.
void print_polygon_limits(std::uint64_t seed, int cases);

/// How often CFrazArea holds its request, by kind of parcel, and why it does not.
void print_division_limits(std::uint64_t seed, int cases);

}  // namespace accuracy
