#pragma once

/// @file
/// plutil, the companion of plcalc: the point container of a parcel, and five operations on angles and
/// coordinates in gons (400 to the circle).
///
/// A bearing runs from North (+y) towards East (+x), as on a theodolite's circle. The five operations take
/// and return doubles, keep no state, never loop and may be called from any thread.
///
/// Defines of the build: PLUTIL_STATIC for a static library, PLUTIL_BUILDING while the DLL is built.

#include <cassert>
#include <cstddef>
#include <initializer_list>

/// @def PLUTIL_API
/// Stands before everything that is exported.

#if defined(PLUTIL_STATIC)
#define PLUTIL_API
#elif defined(_WIN32)
#if defined(PLUTIL_BUILDING)
#define PLUTIL_API __declspec(dllexport)
#else
#define PLUTIL_API __declspec(dllimport)
#endif
#else
#define PLUTIL_API __attribute__((visibility("default")))
#endif

/// A vertex with its height.
struct CPoint3d {
    double x;  ///< East, caller's unit
    double y;  ///< North, caller's unit
    double z;  ///< height, caller's unit
};

/// The vertices of a polygon, in order, over one contiguous array. A value: copies are independent.
///
/// What may allocate may throw std::bad_alloc; Append and Reserve then leave the points as they were. Reading
/// never allocates, and may be done from several threads at once.
///
/// The three readers are inline, so that reading a coordinate is no call: what this class holds is part of the
/// binary interface, and the library's SOVERSION changes with it. Another container under the same name serves
/// when plcalc is built with its header.
class PLUTIL_API CPoint3dVector {
public:
    /// No points.
    CPoint3dVector() noexcept;

    /// The points of a list.
    ///
    /// @param[in] points  the vertices in order
    CPoint3dVector(std::initializer_list<CPoint3d> points);

    /// Copies all points. @param[in] other  the vector to copy
    CPoint3dVector(const CPoint3dVector& other);

    /// Takes the points over; other is left empty. @param[in] other  the vector to empty
    CPoint3dVector(CPoint3dVector&& other) noexcept;

    /// Replaces all points. @param[in] other  the vector to copy @return this vector
    CPoint3dVector& operator=(const CPoint3dVector& other);

    /// Takes the points over. @param[in] other  the vector to empty @return this vector
    CPoint3dVector& operator=(CPoint3dVector&& other) noexcept;

    /// Releases the points.
    ~CPoint3dVector();

    /// Adds a point at the end.
    ///
    /// @param[in] x, y, z  coordinates, caller's unit; any value is stored, NaN included
    ///
    /// Exactness   The very bits of the arguments.
    void Append(double x, double y, double z);

    /// Makes room, so that Append does not allocate up to there.
    ///
    /// @param[in] n  number of points to have room for; a smaller one than now, 0 or less changes nothing
    void Reserve(int n);

    /// Drops all points; the room stays.
    void Clear() noexcept;

    /// How many points there are.
    ///
    /// @return number of points, which must not exceed 2^31 - 1; 0 when there are none
    int GetNoPoits() const noexcept { return static_cast<int>(count_); }

    /// East of a point.
    ///
    /// @param[in] index  0 to GetNoPoits() - 1; another is the caller's error, asserted unless NDEBUG is defined
    /// @return x of that point, caller's unit, as it was stored
    double GetXcoordAt(int index) const noexcept
    {
        assert(index >= 0 && index < GetNoPoits());
        return points_[static_cast<std::size_t>(index)].x;
    }

    /// North of a point.
    ///
    /// @param[in] index  0 to GetNoPoits() - 1; another is the caller's error, asserted unless NDEBUG is defined
    /// @return y of that point, caller's unit, as it was stored
    double GetYcoordAt(int index) const noexcept
    {
        assert(index >= 0 && index < GetNoPoits());
        return points_[static_cast<std::size_t>(index)].y;
    }

private:
    // Not a container of the standard library: how that one lies in memory changes with the settings of whoever
    // includes this header.
    CPoint3d* points_ = nullptr;
    std::size_t count_ = 0;
    std::size_t room_ = 0;
};

/// Full-circle arctangent of a over b. With (East difference, North difference) it is the bearing of the
/// vector; with (y difference, x difference) the angle from +x towards +y.
///
/// @param[in] a, b  components, any common unit
/// @return gons in [0, 400); 0 for the zero vector; exactly 0, 100, 200, 300 in the four cardinal directions;
///         NaN when a component is
///
/// Tolerance   None: the cardinal directions are those with a component of exactly 0.0 or -0.0.
/// Degenerate  Infinite components are taken as atan2 takes them: 50 for two positive ones.
/// Exactness   atan2(a, b) of the platform times 63.66197723675813, and 400 added when negative; where that
///             rounds to 400, 0.
PLUTIL_API double AngoloDaAsseRifer(double a, double b) noexcept;

/// The same direction within one turn.
///
/// @param[in] angle  gons, any number of turns
/// @return in [0, 400); a value within 1e-10 below 400 comes out as 0: a direction that misses the start of
///         the circle by a rounding error is at its start, not almost a turn away. NaN for NaN and
///         infinities; never -0.0.
///
/// Tolerance   1e-10 gon below the full turn, inclusive; none above 0.
/// Exactness   The remainder of whole turns, which is exact, and 400 added, rounded once, when negative.
PLUTIL_API double LimiteAng0_400(double angle) noexcept;

/// The same direction within half a turn either way.
///
/// @param[in] angle  gons, any number of turns
/// @return in (-200, 200]; NaN for NaN and infinities; never -0.0
///
/// Tolerance   None.
/// Exactness   Exact: the remainder of whole turns, and the difference of near numbers.
PLUTIL_API double LimiteAng200_200(double angle) noexcept;

/// East component of a displacement.
///
/// @param[in] distance  caller's unit, either sign
/// @param[in] angle     bearing in gons, any number of turns
/// @return distance * sin(bearing); exact at the four cardinal bearings; never -0.0. NaN for a bearing that is
///         NaN or infinite.
///
/// Exactness   Whole turns and quarters are taken off first; the rest, below 100, times 0.015707963267948967
///             goes through sine or cosine of the platform and is multiplied by the distance, each rounded.
PLUTIL_API double CalcCoordEst(double distance, double angle) noexcept;

/// North component of a displacement.
///
/// @param[in] distance  caller's unit, either sign
/// @param[in] angle     bearing in gons, any number of turns
/// @return distance * cos(bearing); exact at the four cardinal bearings; never -0.0. NaN for a bearing that is
///         NaN or infinite.
///
/// Exactness   That of CalcCoordEst.
PLUTIL_API double CalcCoordNord(double distance, double angle) noexcept;
