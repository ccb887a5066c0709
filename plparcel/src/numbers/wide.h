#pragma once

// Numbers of two doubles, 106 bits: a sum that is not rounded away. Portable to the last bit, which long double
// is not. T. J. Dekker, "A floating-point technique for extending the available precision", 1971.
//
// Differences of doubles are exact; each further operation is good to a few parts in 1e32. Operands beyond
// 1e299 overflow; the parcel's extent is bounded so that none come up.

#include <cmath>
#include <cstddef>
#include <vector>

#include "plcalc/kernel.h"

namespace plparcel {

/// hi + lo, lo no more than half a unit in the last place of hi.
struct Wide {
    double hi = 0.0;
    double lo = 0.0;

    Wide() = default;
    Wide(double value) : hi(value) {}  // NOLINT: a double is a Wide
    Wide(double high, double low) : hi(high), lo(low) {}

    /// Rounded once.
    double value() const { return hi + lo; }
};

/// a + b, exactly.
inline Wide exact_sum(double a, double b)
{
    const double sum = a + b;
    const double part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

/// a + b, exactly, for |a| >= |b|.
inline Wide exact_sum_ordered(double a, double b)
{
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

/// a * b, exactly.
inline Wide exact_product(double a, double b)
{
    // 2^27 + 1 splits 53 bits into two halves, whose products have no rounding.
    constexpr double kSplitter = 134217729.0;
    const double ta = kSplitter * a;
    const double tb = kSplitter * b;
    const double a1 = ta - (ta - a);
    const double b1 = tb - (tb - b);
    const double a2 = a - a1;
    const double b2 = b - b1;
    const double product = a * b;
    return {product, ((a1 * b1 - product) + a1 * b2 + a2 * b1) + a2 * b2};
}

inline Wide operator-(const Wide& a)
{
    return {-a.hi, -a.lo};
}

inline Wide operator+(const Wide& a, const Wide& b)
{
    const Wide high = exact_sum(a.hi, b.hi);
    const Wide low = exact_sum(a.lo, b.lo);
    const Wide sum = exact_sum_ordered(high.hi, high.lo + low.hi);
    return exact_sum_ordered(sum.hi, sum.lo + low.lo);
}

inline Wide operator-(const Wide& a, const Wide& b)
{
    return a + -b;
}

inline Wide operator*(const Wide& a, const Wide& b)
{
    const Wide high = exact_product(a.hi, b.hi);
    return exact_sum_ordered(high.hi, high.lo + (a.hi * b.lo + a.lo * b.hi));
}

inline Wide operator/(const Wide& a, const Wide& b)
{
    // Three digits of 53 bits, each from what the ones before leave.
    const double q1 = a.hi / b.hi;
    const Wide rest1 = a - b * q1;
    const double q2 = rest1.hi / b.hi;
    const Wide rest2 = rest1 - b * q2;
    const double q3 = rest2.hi / b.hi;
    return exact_sum_ordered(q1, q2) + q3;
}

inline bool operator<(const Wide& a, const Wide& b)
{
    return a.hi < b.hi || (a.hi == b.hi && a.lo < b.lo);
}

inline bool operator>(const Wide& a, const Wide& b)
{
    return b < a;
}

inline Wide abs(const Wide& a)
{
    return a < 0.0 ? -a : a;
}

/// Square root; zero for a negative number, which can only be rounding.
inline Wide sqrt(const Wide& a)
{
    const double root = std::sqrt(a.hi);
    if (!(root > 0.0))
        return 0.0;
    const Wide rest = a - exact_product(root, root);
    return exact_sum_ordered(root, rest.hi / (2.0 * root));
}

/// Times a power of two; exact.
inline Wide scaled(const Wide& a, int exponent)
{
    return {std::ldexp(a.hi, exponent), std::ldexp(a.lo, exponent)};
}

/// A point or a vector.
struct WidePoint {
    Wide x;
    Wide y;
};

inline WidePoint operator+(const WidePoint& a, const WidePoint& b)
{
    return {a.x + b.x, a.y + b.y};
}

inline WidePoint operator-(const WidePoint& a, const WidePoint& b)
{
    return {a.x - b.x, a.y - b.y};
}

inline WidePoint operator*(const WidePoint& v, const Wide& factor)
{
    return {v.x * factor, v.y * factor};
}

inline Wide cross(const WidePoint& a, const WidePoint& b)
{
    return a.x * b.y - a.y * b.x;
}

inline Wide dot(const WidePoint& a, const WidePoint& b)
{
    return a.x * b.x + a.y * b.y;
}

/// The same direction, the longer component 1 to 2; exact. Where there is none, as between vertices that lie nearer to each
/// other than the least double, the same vector.
inline WidePoint about_unit(const WidePoint& v)
{
    const double longer = std::fmax(std::fabs(v.x.value()), std::fabs(v.y.value()));
    if (!(longer > 0.0))
        return v;
    const int exponent = std::ilogb(longer);
    return {scaled(v.x, -exponent), scaled(v.y, -exponent)};
}

/// The vector from a to b, exactly.
inline WidePoint from_to(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return {exact_sum(b.x, -a.x), exact_sum(b.y, -a.y)};
}

inline bool same_place(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return a.x == b.x && a.y == b.y;
}

/// A vertex, or a side by its first end: counts round the ring.
template <class T> const T& around(const std::vector<T>& ring, std::size_t i)
{
    return ring[i % ring.size()];
}

}  // namespace plparcel
