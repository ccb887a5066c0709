#pragma once

/// @file
/// New points on boundaries that parcels share, so that no gap and no overlap is left beside a division.
///
/// The end of a dividing line becomes a corner of the pieces. Rounded to decimals it lies up to half a step beside its side, and
/// the neighbour on the other side of the boundary knows nothing of it:
///
/// ```
///     A ---------- N ---------- B     The pieces have the corner N, which lies a little beside AB.
///       \  . . . . . . . . . /        The neighbour still has the side from B to A: a sliver is left between
///     neighbour: B ------- A          them, until the neighbour gets N as well.
/// ```
///
/// A layer is worked on in two steps. First divide, and collect the new points of every division. Then insert them in the
/// rings of all parcels of the layer, those of the new pieces too:
///
/// ```cpp
/// std::vector<plparcel::NewPoint> points = plparcel::new_points(lot, division);
/// const plparcel::SharedSides shared(points, 0.001, [&](const plparcel::SharedSides::Take& take) {
///     for (const plparcel::Parcel& parcel : layer)
///         take(parcel);
/// });
/// for (const plparcel::Parcel& piece : plparcel::pieces_with_corners(lot, division))
///     store(shared.with_points(piece).parcel);
/// for (const plparcel::Parcel& neighbour : neighbours)
///     store(shared.with_points(neighbour).parcel);
/// ```

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "plparcel/boundary.h"
#include "plparcel/division.h"
#include "plparcel/export.h"
#include "plparcel/line.h"

namespace plparcel {

/// A point that a division has put on a side of its parcel.
struct NewPoint {
    PL_PNT2D_record at = {};  ///< a corner of pieces and no vertex of the parcel, to the last bit
    Segment side;  ///< the side on which it lies, between two vertices of the parcel, as the pieces run
};

/// The points that a division has put on the boundary of its parcel.
///
/// @param[in] parcel    the parcel, as it was divided
/// @param[in] division  what divide() answered
/// @return each point with its side; those of one side follow one another, from its `from` to its `to`. None unless it was
///         divided. An end that is a vertex, or a vertex rounded to Division::decimals, is no new point, and neither is
///         one inside the parcel. n log n.
PLPARCEL_API std::vector<NewPoint> new_points(const Parcel& parcel, const Division& division);

/// The pieces of a division as parcels beside their neighbours: as Division::pieces, but for an end that was rounded
/// beside a vertex of the parcel. Its neighbours have that vertex, and so has the piece here.
///
/// @param[in] parcel    the parcel, as it was divided
/// @param[in] division  what divide() answered
/// @return in the order of Division::pieces; none unless it was divided. Where the parcel's vertices have no more decimals
///         than Division::decimals, the rings are those of the pieces to the last bit. n log n.
PLPARCEL_API std::vector<Parcel> pieces_with_corners(const Parcel& parcel, const Division& division);

/// A parcel with the new points on its sides.
struct WithPoints {
    Parcel parcel;             ///< as it was handed over, with the points between its vertices
    std::size_t inserted = 0;  ///< how many vertices it has got
    /// Its vertices between the ends of divided sides that were corners of parcels of the layer before: corners of
    /// neighbours that were inserted, and an end of a dividing line that is at such a corner to the last bit. In the order
    /// of the rings.
    Ring existing = {};
    /// Points that were not inserted: within the distance of a vertex, but not at its place to the last bit.
    std::size_t beside = 0;
    double farthest_beside =
        0.0;  ///< how far these are from their vertices at most, along the side; caller's unit
    double area_change =
        0.0;  ///< by how much the area has grown, unit squared; below zero where it has shrunk
    /// Whether there are points for it, and check_parcel() calls it usable without them and not with them. The parcel is
    /// then as it was, and `inserted` is 0.
    bool left_out = false;
};

/// A file of the caller's for what would fill the memory. What its functions throw passes through the function that it was
/// handed to.
struct Scratch {
    /// Writes so many bytes at that place, counted from 0: over bytes that were written, or right behind the last.
    std::function<void(std::uint64_t place, const void* bytes, std::size_t size)> write;
    /// Reads bytes that were written. May be called by several threads at the same time, when these share what was made
    /// with the file.
    std::function<void(std::uint64_t place, void* bytes, std::size_t size)> read;
};

/// The sides of a layer's parcels on which divisions have put points.
class SharedSides {
public:
    /// Takes a parcel of the layer.
    using Take = std::function<void(const Parcel& parcel)>;
    /// Takes a point of a division.
    using TakePoint = std::function<void(const NewPoint& point)>;

    /// @param[in] points  of all divisions of the layer, in any order. Points whose own coordinates or side are not finite
    ///                    or beyond 1e90, or whose side has no length, are left out
    /// @param[in] within  two boundaries that are no farther apart are one: caller's unit, at right angles to the side.
    ///                    Below four spacings of doubles, and NaN, it counts as four
    /// @param[in] layer   hands every parcel of the layer over, as it was before it was divided; called once. Their
    ///                    vertices on divided sides are noted: a vertex in the middle of a parcel's side is a corner of the
    ///                    neighbours there, and must become one of the pieces once a point bends that side. May be empty
    ///                    where no vertex lies so
    ///
    /// Cost        With p points and n vertices (p + n) log p, and as much more as sides lie on one another: of k sides
    ///             that all overlap along one line each keeps the points of all, k^2, and with_points() sorts those of
    ///             every side for each ring there, k^3 at worst. Of parcels side by side k is two; only parcels that lie
    ///             over one another have more. Counted, with a point on each of 60 such sides: 15 million instructions
    ///             here, and 43 million in with_points() for their 60 parcels; of 120: 56 and 222 million. About 16 bytes
    ///             are kept for a point and 82 for a side with points; while they are made, twice as much and 48 for each
    ///             point that was handed over.
    PLPARCEL_API SharedSides(std::vector<NewPoint> points, double within,
                             const std::function<void(const Take& take)>& layer = {});

    /// The same in a file, for layers of any size: the answers are those of the other one, to the last bit.
    ///
    /// @param[in] file    both functions are called as long as there is a copy of what is returned. What stood in the file
    ///                    before is written over
    /// @param[in] points  hands the points over one by one; called once, before the layer
    /// @param[in] within  as above
    /// @param[in] layer   as above
    /// @return the sides, with what lies in the file
    ///
    /// Cost        Up to ten megabytes of memory, of which four are what was read last, and 3 bytes for each point and each
    ///             side with points. In the file up to 200 bytes for a point with a side of its own, and 56 for each vertex
    ///             that is noted.
    PLPARCEL_API static SharedSides in_file(const Scratch& file,
                                            const std::function<void(const TakePoint& take)>& points,
                                            double within,
                                            const std::function<void(const Take& take)>& layer = {});

    /// A parcel or a piece with the points on its sides. May be called by several threads at the same time.
    ///
    /// @param[in] parcel  any rings, in any direction; repeated vertices and a closing one stay. A piece comes from
    ///                    pieces_with_corners()
    /// @return the rings with the points
    ///
    /// Same side   A side whose two ends are vertices or points of one divided side, to the last bit, gets all points between
    ///             them. So has the neighbour who shares the side, and so has a piece, whose sides end at points.
    /// Longer      So does a side that runs along a divided one, no farther from it than the distance for as long as they
    ///             lie beside each other, which must be more than the distance. It gets the points that lie beyond its own
    ///             vertices by more than the distance, and at least one of them must be new; with them it gets the
    ///             ends of the divided side that lie between its vertices, as corners of the pieces.
    /// Order       Along the divided side. Points at one place, to the last bit, are one.
    /// Area        Changes by half the length of a side times the distance of the points from it, at most. A point
    ///             lies off the side by its rounding, and by the distance that was allowed. WithPoints::area_change says it,
    ///             summed with 106 bits.
    PLPARCEL_API WithPoints with_points(const Parcel& parcel) const;

private:
    class Index;
    explicit SharedSides(std::shared_ptr<const Index> index);
    std::shared_ptr<const Index> index_;
};

}  // namespace plparcel
