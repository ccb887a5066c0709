#pragma once

// The sweep of an arc: internal, not installed; for arcs/.

namespace plcalc {

/// Whether a direction lies within the anticlockwise sweep from start to end. All three are in one unit and are
/// compared as they are stored; the margin at either bound belongs to the sweep. A sweep whose end is below its
/// start crosses +x.
bool in_sweep(double dir, double start, double end) noexcept;

}  // namespace plcalc
