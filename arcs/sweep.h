#pragma once

// The sweep of an arc: internal, not installed; for arcs/.

namespace plcalc {

/// Whether a direction lies within the anticlockwise sweep from start to end, all three in one unit and as
/// they are stored. A direction within the margin of either bound lies within. A sweep whose end is below
/// its start crosses +x.
bool in_sweep(double dir, double start, double end) noexcept;

}  // namespace plcalc
