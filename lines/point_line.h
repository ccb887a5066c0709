#pragma once

// A point in the box of a segment: internal, not installed; for lines/ and arcs/.

#include "plcalc/kernel.h"

/// Whether a point lies in the bounding box of a segment, each side widened by (|side| + 1) * PL_EPS.
///
/// The sides come from PlFunz_min_tol and PlFunz_max_tol, which take the segment's end when the two nearly tie.
bool PlFunz_pnt_in_segbox(const PL_LINE_2D_record* seg, const PL_PNT2D_record* p) noexcept;
