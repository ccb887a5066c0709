#pragma once

// The cases of an arc's bounding rectangle: internal, not installed; for arcs/.

#include "plcalc/kernel.h"

/// Rectangle when both ends lie in one quadrant: that of the chord, or that of the full circle when the sweep
/// goes nearly all the way round.
///
/// @param[out] rect                the rectangle
/// @param[in]  start_pnt, end_pnt  the arc's ends
/// @param[in]  quadrant            their quadrant, 1 to 4
/// @param[in]  arc                 centre and radius are read
void PlFunz_arc_rect_same_quadrant(PL_RECT_2D_record* rect, const PL_PNT2D_record* start_pnt,
                                   const PL_PNT2D_record* end_pnt, int quadrant,
                                   const ARC_2D_record* arc) noexcept;

/// Rectangle of an arc, found from the quadrants of its ends.
///
/// @param[in]  arc                 centre and radius are read
/// @param[in]  start_pnt, end_pnt  the arc's ends
/// @param[out] rect                the rectangle
void PlFunz_arc_rect_quadrants(const ARC_2D_record* arc, const PL_PNT2D_record* start_pnt,
                               const PL_PNT2D_record* end_pnt, PL_RECT_2D_record* rect) noexcept;
