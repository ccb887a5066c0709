#pragma once

// The drawing itself: pieces, boundary, lines and points, without labels.

#include "plan/layout.h"
#include "plan/plan.h"
#include "sheet/canvas.h"

namespace tool {

/// Draws what the view shows.
void draw_map(const Plan& plan, const View& view, Canvas& canvas);

}  // namespace tool
