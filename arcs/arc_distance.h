#pragma once

// Internal, not installed; for arcs/.

#include "plcalc/kernel.h"

/// Distance of a point from the nearer end of an arc; on a tie within the margin from the end at end_angle.
double PlFunz_distpntarc_ends(const ARC_2D_record* arc, const PL_PNT2D_record* p) noexcept;
