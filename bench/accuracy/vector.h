#pragma once

// Vectors in long double: differences of doubles come out exact or nearly so, whatever the coordinates' size.

#include "plcalc/kernel.h"

namespace accuracy {

using Real = long double;

struct Vector {
    Real x;
    Real y;
};

inline Vector from_to(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return {static_cast<Real>(b.x) - a.x, static_cast<Real>(b.y) - a.y};
}

inline Real cross(const Vector& a, const Vector& b)
{
    return a.x * b.y - a.y * b.x;
}

}  // namespace accuracy
