#pragma once

// Points of geometries that are written, with heights where they are known.

#include <cstddef>
#include <string>
#include <vector>

#include <ogr_geometry.h>

#include "answers/heights.h"
#include "console/outcome.h"
#include "plcalc/kernel.h"
#include "text/name_list.h"

namespace tool {

/// Adds the points with their heights, NaN where one is not known.
///
/// @param[in] known  may be null: without heights
void add_points(OGRLineString& line, const std::vector<PL_PNT2D_record>& points, const Heights* known);

/// A ring of an undivided parcel, not closed, with the heights of its vertices if the parcel has any.
///
/// @param[in] ring  0 the outer one, k the k-th hole
OGRLinearRing ring_of(const Parcel& parcel, std::size_t ring);

/// Makes a geometry flat in which a vertex has no height: programs that read it would take it for zero or stumble over it.
///
/// @return whether heights of other vertices were lost
bool flatten_unless_all_known(OGRGeometry& geometry);

/// The parcels of which some heights are not written, because a vertex has none.
class LostHeights {
public:
    /// Once for each parcel.
    void add(const Place& place);

    /// A line that tells them; empty where there are none.
    std::string text() const;

private:
    std::string file_;
    NameList features_;
};

}  // namespace tool
