#pragma once

// Turns a geometry into rings.

#include <optional>
#include <vector>

#include <ogr_geometry.h>

#include "answers/heights.h"
#include "console/outcome.h"
#include "plparcel/division.h"

namespace tool {

/// Whether the geometry bounds an area: a polygon, a collection of polygons, a closed line, or the one member
/// of a collection that does. Empty ones count by their type.
bool bounds_area(const OGRGeometry& geometry);

/// Which vertices of a geometry have heights.
KnownHeights heights_of(const OGRGeometry& geometry);

/// A feature without a geometry.
Failure without_geometry(const Place& place);

/// The rings and their heights.
struct Boundary {
    plparcel::Ring ring;
    std::vector<plparcel::Ring> holes;
    std::vector<double>
        heights;  ///< of the vertices of all rings; NaN for one without; empty where no vertex has one
    bool had_arcs = false;  ///< whether chords took the place of arcs
};

/// How many polygons the geometry has; 1 for any that is no collection of them.
int parts_of(const OGRGeometry& geometry);

/// One of its polygons.
///
/// @param[in] part  from 0
const OGRGeometry& part_of(const OGRGeometry& geometry, int part);

/// The boundary of a geometry that bounds an area. Whether it can be divided is not checked here.
///
/// @param[in] geometry  the geometry; measures are ignored
/// @param[in] place     file and feature, for messages
/// @param[in] arcs      how far chords that take the place of arcs may be from them; without it, curves are refused
/// @return the vertices in order, without the closing ones
/// @throws Failure      unusable_input: an empty geometry, curves or an open line
Boundary boundary_of(const OGRGeometry& geometry, const Place& place, const std::optional<double>& arcs = {});

/// A boundary with arcs, which are not allowed to become chords.
Failure with_arcs(const Place& place);

/// A boundary with ellipses or splines, which never become chords.
Failure without_splines(const Place& place);

/// Drops the last vertex where it repeats the first.
void drop_closing_vertex(plparcel::Ring& ring);

}  // namespace tool
