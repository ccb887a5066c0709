#pragma once

// The verdict of GEOS on a division: it cuts the ring itself.

#include <string>

#include "plparcel/division.h"
#include "witness/geos.h"

namespace plparcel_test {

/// Why a division into two is wrong; empty when it is right. The line, a little prolonged, and the ring are
/// noded and polygonised: there must be two faces, the one where the request belongs must hold it within 1e-9
/// of the parcel, the line must run as asked, and the two rings that came back must be valid polygons that
/// hold what the division says they do.
///
/// @param[in] ring      the parcel, as it was divided
/// @param[in] request   with one amount
/// @param[in] asked     that amount as an area
/// @param[in] division  with status divided
std::string geos_objection(const witness::Geos& geos, const plparcel::Ring& ring,
                           const plparcel::Request& request, double asked,
                           const plparcel::Division& division);

}  // namespace plparcel_test
