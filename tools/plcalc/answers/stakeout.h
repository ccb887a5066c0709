#pragma once

// Computes how points are set out, polar from a station and at right angles from a base line, with the
// library's own functions.

#include <optional>
#include <string>
#include <vector>

#include "plcalc/kernel.h"

namespace tool {

/// A point to set out.
struct NamedPoint {
    std::string name;
    PL_PNT2D_record at = {};
    std::optional<double> height = {};
    std::string short_name = {};  ///< for a controller, where `name` tells more than a name
    std::string code = "POINT";   ///< for a controller: NEW, CORNER, or of a list
};

/// Where the instrument stands and what it is oriented on.
struct Setup {
    NamedPoint station;
    NamedPoint orientation;
};

/// A base line for right-angle offsets.
struct BaseLine {
    NamedPoint from;
    NamedPoint to;
};

/// The values for one point.
struct SetOut {
    NamedPoint point;
    std::optional<double>
        angle_gon;          ///< clockwise from the orientation, [0, 400); none at the station itself
    double distance = 0.0;  ///< from the station, unit
    double abscissa = 0.0;  ///< along the base line from its first point, unit; negative behind it
    double ordinate = 0.0;  ///< off the base line, unit; positive to the right at every abscissa
};

/// @param[in] setup   station and orientation are different points
/// @param[in] base    its two points are different
/// @param[in] points  what to set out
/// @param[in] ground_factor  length in the plane of a length 1 on the ground, where distances and offsets are
std::vector<SetOut> set_out(const Setup& setup, const BaseLine& base, const std::vector<NamedPoint>& points,
                            double ground_factor = 1.0);

}  // namespace tool
