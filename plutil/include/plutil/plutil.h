#pragma once

/// @file
/// plutil, the companion of plcalc: the point container of a parcel, and five operations on angles and
/// coordinates in gons (400 to the circle).
///
/// A bearing counts from North (+y) towards East (+x), as on a theodolite's circle. The five operations take
/// and return doubles, keep no state, contain no loop and may be called from any thread.
///
/// Define PLUTIL_STATIC to use or build a static library, and PLUTIL_BUILDING to build the DLL.

#include <cassert>
#include <cstddef>
#include <initializer_list>

/// @def PLUTIL_API
/// Precedes every exported declaration.

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

/// The vertices of a polygon, in order, in one contiguous array. It is a value type: copies are independent.
///
/// Members that allocate may throw std::bad_alloc; Append and Reserve then leave the points as they were.
/// Reading never allocates, and several threads may read at once.
///
/// The three readers are inline, so that reading a coordinate costs no call. That makes the data members part
/// of the binary interface, and the library's SOVERSION changes with them. Another container of the same name
/// can take this one's place when plcalc is built with its header.
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

    /// Takes the points over and leaves other empty. @param[in] other  the vector to empty
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

    /// Makes room for a number of points, so that Append need not allocate until there are so many.
    ///
    /// @param[in] n  number of points; when there is room for as many already, nothing changes
    void Reserve(int n);

    /// Removes all points and keeps the room.
    void Clear() noexcept;

    /// Number of points.
    ///
    /// @return how many points there are; more than 2^31 - 1 must not be stored
    int GetNoPoits() const noexcept { return static_cast<int>(count_); }

    /// East of a point.
    ///
    /// @param[in] index  0 to GetNoPoits() - 1; any other is an error of the caller, asserted unless NDEBUG is
    ///                   set
    /// @return x of that point, caller's unit, as it was stored
    double GetXcoordAt(int index) const noexcept
    {
        assert(index >= 0 && index < GetNoPoits());
        return points_[static_cast<std::size_t>(index)].x;
    }

    /// North of a point.
    ///
    /// @param[in] index  0 to GetNoPoits() - 1; any other is an error of the caller, asserted unless NDEBUG is
    ///                   set
    /// @return y of that point, caller's unit, as it was stored
    double GetYcoordAt(int index) const noexcept
    {
        assert(index >= 0 && index < GetNoPoits());
        return points_[static_cast<std::size_t>(index)].y;
    }

private:
    // No container of the standard library: its layout in memory depends on the settings of whoever includes
    // this header.
    CPoint3d* points_ = nullptr;
    std::size_t count_ = 0;
    std::size_t room_ = 0;
};

/// Full-circle arctangent of a over b. With (East difference, North difference) it is the bearing of the
/// vector; with (y difference, x difference) the angle from +x towards +y.
///
/// @param[in] a, b  components, any common unit
/// @return gons in [0, 400); 0 for the zero vector; exactly 0, 100, 200, 300 in the four cardinal directions;
///         NaN when a component is NaN
///
/// Tolerance   None: a direction is cardinal when a component is exactly 0.0 or -0.0.
/// Degenerate  Infinite components are taken as atan2 takes them: 50 for two positive ones.
/// Exactness   atan2(a, b) of the platform times 63.66197723675813, plus 400 when that is negative, and 0 when
///             the sum rounds to 400.
PLUTIL_API double AngoloDaAsseRifer(double a, double b) noexcept;

/// The same direction within one turn.
///
/// @param[in] angle  gons, any number of turns
/// @return in [0, 400); a value within 1e-10 below 400 comes out as 0, so that a rounding error just before the
///         start of the circle does not put a direction almost a full turn away. NaN for NaN and
///         infinities; never -0.0.
///
/// Tolerance   1e-10 gon below the full turn, inclusive; none above 0.
/// Exactness   The remainder after whole turns, which is exact, plus 400, rounded once, when it is negative.
PLUTIL_API double LimiteAng0_400(double angle) noexcept;

/// The same direction within half a turn either way.
///
/// @param[in] angle  gons, any number of turns
/// @return in (-200, 200]; NaN for NaN and infinities; never -0.0
///
/// Tolerance   None.
/// Exactness   Exact: a remainder after whole turns, and a difference of near numbers.
PLUTIL_API double LimiteAng200_200(double angle) noexcept;

/// East component of a displacement.
///
/// @param[in] distance  caller's unit, either sign
/// @param[in] angle     bearing in gons, any number of turns
/// @return distance * sin(bearing); exact at the four cardinal bearings; never -0.0. NaN for a bearing that is
///         NaN or infinite.
///
/// Exactness   Whole turns and quarters are taken off first. The rest, below 100, is multiplied by
///             0.015707963267948967; the platform's sine or cosine of it is multiplied by the distance. Each
///             step is rounded.
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
