#pragma once

// Rings for the harnesses that need one: any points, or the shapes that parcels have, with the flaws that they
// have: repeated and swapped vertices, vertices on a side, a coordinate that is no number.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "plutil/plutil.h"
#include "support/measures.h"

namespace fuzz {

using Ring = std::vector<PL_PNT2D_record>;

constexpr int kMostVertices = 24;

inline std::size_t index_after(const Ring& ring, std::size_t i)
{
    return i + 1 == ring.size() ? 0 : i + 1;
}

inline std::size_t index_before(const Ring& ring, std::size_t i)
{
    return i == 0 ? ring.size() - 1 : i - 1;
}

/// The ring as a caller hands it over, with heights, which must not matter.
inline CPoint3dVector parcel_of(const Ring& ring)
{
    CPoint3dVector parcel;
    parcel.Reserve(static_cast<int>(ring.size()));
    for (const PL_PNT2D_record& p : ring)
        parcel.Append(p.x, p.y, kUntouched);
    return parcel;
}

/// Twice the signed area of the triangle a, b, c; positive when it turns left.
inline double turn(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c)
{
    return (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
}

/// Signed area without the library's help.
inline double area_of(const Ring& ring)
{
    return static_cast<double>(test::signed_area(ring));
}

inline double perimeter_of(const Ring& ring)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i)
        sum += apart(ring[i], ring[index_after(ring, i)]);
    return sum;
}

/// A convex ring on a site, without flaws: sides of 1 or more, corners of half a degree or more, once round.
inline bool plainly_convex(const Ring& ring)
{
    constexpr double kSite = 1e4;
    constexpr double kLeastSide = 1.0;
    constexpr double kLeastSine = 0.01;
    if (ring.size() < 3)
        return false;
    double turned = 0.0;
    const double sense = turn(ring[0], ring[1], ring[2]);
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record& a = ring[index_before(ring, i)];
        const PL_PNT2D_record& b = ring[i];
        const PL_PNT2D_record& c = ring[index_after(ring, i)];
        if (!all_within(kSite, {b}) || !(apart(a, b) >= kLeastSide))
            return false;
        const double sides = apart(a, b) * apart(b, c);
        if (!(turn(a, b, c) * sense > 0.0) || std::fabs(turn(a, b, c)) < kLeastSine * sides)
            return false;
        turned += std::atan2(turn(a, b, c), (b.x - a.x) * (c.x - b.x) + (b.y - a.y) * (c.y - b.y));
    }
    return std::fabs(std::fabs(turned) - 6.283185307179586) < 1e-6;
}

namespace shapes {

// Any points, many of them equal or in line.
inline Ring grid(Reader& in, int n)
{
    Ring ring;
    for (int i = 0; i < n; ++i) {
        const double x = in.as<std::int8_t>();
        ring.push_back({x, static_cast<double>(in.as<std::int8_t>())});
    }
    return ring;
}

// Round a centre: on an ellipse, or each vertex at a distance of its own.
inline Ring round(Reader& in, int n, bool star)
{
    std::vector<double> steps;
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        steps.push_back(1.0 + in.byte());
        sum += steps.back();
    }
    const double width = 1.0 + in.byte();
    const double height = 1.0 + in.byte();
    Ring ring;
    double way = 0.0;
    for (int i = 0; i < n; ++i) {
        const double dir = way / sum * 6.283185307179586;
        const double reach = star ? (1.0 + in.byte()) / 64.0 : 1.0;
        ring.push_back({reach * width * std::cos(dir), reach * height * std::sin(dir)});
        way += steps[static_cast<std::size_t>(i)];
    }
    return ring;
}

// Sides along the axes in turn: rectangles, L, T and steps.
inline Ring steps(Reader& in, int n)
{
    Ring ring;
    PL_PNT2D_record at = {0.0, 0.0};
    for (int i = 0; i < n; ++i) {
        ring.push_back(at);
        (i % 2 == 0 ? at.x : at.y) += in.as<std::int8_t>();
    }
    if (n > 2 && n % 2 == 0)
        ring.back().x = ring.front().x;
    return ring;
}

// Size, place and direction on the map.
inline void place(Reader& in, Ring& ring)
{
    static constexpr double kSizes[] = {1.0, 1.0, 10.0, 0.5, 100.0, 0.01, 1e-6, 1e5};
    static constexpr double kShifts[] = {0.0, 0.0, 0.0, 500.0, 5e5, 5e6, -1e3, 1e15};
    const double size = kSizes[in.below(8)];
    const int kind = in.byte();
    const double dir = kind % 4 == 0   ? 0.0
                       : kind % 4 == 1 ? 1e-9 * in.as<std::int8_t>()
                                       : 6.283185307179586 / 256.0 * in.byte();
    const double east = kShifts[in.below(8)];
    const double north = kShifts[in.below(8)];
    for (PL_PNT2D_record& p : ring) {
        const double x = p.x * size;
        const double y = p.y * size;
        p.x = dir == 0.0 ? x : x * std::cos(dir) - y * std::sin(dir);
        p.y = dir == 0.0 ? y : x * std::sin(dir) + y * std::cos(dir);
        p.x += east;
        p.y += north;
    }
}

// Up to three flaws.
inline void spoil(Reader& in, Ring& ring)
{
    const int flaws = in.below(4);
    for (int i = 0; i < flaws && !ring.empty(); ++i) {
        const int kind = in.below(5);
        const std::size_t at = in.byte() % ring.size();
        const PL_PNT2D_record here = ring[at];
        const PL_PNT2D_record next = ring[index_after(ring, at)];
        const std::size_t other = in.byte() % ring.size();
        const bool room = ring.size() < static_cast<std::size_t>(kMostVertices);
        const auto behind = ring.begin() + static_cast<std::ptrdiff_t>(at) + 1;
        if (kind == 0 && room)
            ring.insert(behind, here);
        else if (kind == 1 && room)
            ring.insert(behind, {(here.x + next.x) * 0.5, (here.y + next.y) * 0.5});
        else if (kind == 2)
            std::swap(ring[at], ring[other]);
        else if (kind == 3)
            ring[at] = ring[other];
        else
            (in.byte() % 2 == 0 ? ring[at].x : ring[at].y) = in.number();
    }
}

}  // namespace shapes

/// 0 to 24 vertices.
inline Ring read_ring(Reader& in)
{
    const int n = in.below(kMostVertices + 1);
    Ring ring;
    if (!in.structured()) {
        for (int i = 0; i < n; ++i)
            ring.push_back(in.point());
        return ring;
    }

    const int shape = in.below(5);
    ring = shape == 0   ? shapes::grid(in, n)
           : shape == 1 ? shapes::steps(in, n)
           : shape == 2 ? shapes::round(in, n, true)
                        : shapes::round(in, n, false);
    shapes::place(in, ring);
    if (in.byte() % 2 == 1)
        std::reverse(ring.begin(), ring.end());
    if (!ring.empty())
        std::rotate(ring.begin(), ring.begin() + in.below(static_cast<int>(ring.size())), ring.end());
    shapes::spoil(in, ring);
    for (const PL_PNT2D_record& p : ring) {
        Reader::noted(p.x);
        Reader::noted(p.y);
    }
    return ring;
}

}  // namespace fuzz
