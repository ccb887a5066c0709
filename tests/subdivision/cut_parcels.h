#pragma once

// The parcels that the tables of cuts share. They run anticlockwise unless they say otherwise; test::reversed
// turns them round.

#include "support/rings.h"

namespace test {

/// Sides of powers of two: halvings and areas are exact, and the rows are worked by hand.
///
///     (0,64)            (128,64)
///        +------------------+
///        |                  |
///        +------------------+
///      (0,0)             (128,0)
inline const Ring kRectangle = {{0, 0}, {128, 0}, {128, 64}, {0, 64}};

/// 100 by 50: no number of halvings reaches the line of 1000, a fifth of the parcel, exactly.
inline const Ring kSite = {{0, 0}, {100, 0}, {100, 50}, {0, 50}};

/// A field as it is measured, to the centimetre. No side lies along an axis, and no two are parallel.
///
///                         3 (410.75, 440.49)
///     0 (300.23, 420.57)
///
///                                   2 (520.18, 320.81)
///              1 (350.04, 300.58)
inline const Ring kField = {{300.23, 420.57}, {350.04, 300.58}, {520.18, 320.81}, {410.75, 440.49}};

/// A field like it at the coordinates of a map, clockwise.
inline const Ring kFieldOnMap = {
    {500000.25, 4649776.5}, {500110.75, 4649796.25}, {500220.5, 4649676.75}, {500050, 4649656.5}};

/// Five vertices, a dent at the fourth.
inline const Ring kDented = {{0.5, 0.25}, {90.75, -10.5}, {120.25, 70.5}, {55.5, 60.25}, {-20.5, 95.75}};

/// 2^21 by 64: thirty halvings of its length are exact.
inline const Ring kStrip = {{0, 0}, {0x1p21, 0}, {0x1p21, 64}, {0, 64}};

/// A base of 128, 32 high on the right and 64 on the left.
inline const Ring kSloped = {{0, 0}, {128, 0}, {128, 32}, {0, 64}};

inline const Ring kTriangle = {{0, 0}, {128, 0}, {0, 64}};

/// Two teeth on a base:
///
///     +---+       +---+ 64
///     |   |       |   |
///     |   +-------+   | 32
///     |               |
///     +---------------+ 0
///     0   32      96  128
inline const Ring kTeeth = {{0, 0}, {128, 0}, {128, 64}, {96, 64}, {96, 32}, {32, 32}, {32, 64}, {0, 64}};

/// kRectangle with its first vertex twice: its first side has no length.
inline const Ring kFirstVertexTwice = {{0, 0}, {0, 0}, {128, 0}, {128, 64}, {0, 64}};

/// First round a rectangle of 64 by 32, then round a square of 64: the ring has the side from (0,0) to (64,0)
/// twice.
inline const Ring kSideTwice = {{0, 0}, {64, 0}, {64, 32}, {0, 32}, {0, 0}, {64, 0}, {64, 64}, {0, 64}};

/// An L, its inner corner at (20,20).
inline const Ring kL = {{0, 0}, {60, 0}, {60, 20}, {20, 20}, {20, 50}, {0, 50}};

}  // namespace test
