#pragma once

/// @file
/// A side or a vertex named by what it is: the longest side, the one along the road, the corner farthest north.
///
/// In a layer side 1 is an accident of digitising. The functions here find the side that is meant, say by how much it is
/// the one, and leave it to the caller where two fit equally well:
///
/// ```cpp
/// const plparcel::Choice choice = plparcel::side_facing({lot, {}}, 200.0);  // towards the South
/// if (choice.status == plparcel::ChoiceStatus::found)
///     request.line = plparcel::parallel_to(choice.candidates[0].place.index, choice.candidates[0].place.ring);
/// ```
///
/// All count the sides of holes too. A side runs from vertex to vertex: a vertex in the middle of a straight line parts
/// it. The vertices at which rings begin, and the order of holes, change no answer but the indexes.

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "plparcel/boundary.h"
#include "plparcel/export.h"
#include "plparcel/line.h"

namespace plparcel {

/// What became of a search for a side or a vertex.
enum class ChoiceStatus {
    found,              ///< there is one
    tied,               ///< several fit equally well
    unusable_boundary,  ///< the parcel cannot be used; Choice::boundary says why
    unusable_request,  ///< a number is not finite or beyond 1e90, a distance is not above zero, or an angle is not
                       ///< from 0 to 100 gons
    nothing_given,  ///< there is no other geometry that has a length
    too_far,        ///< no side comes within the distance of the other geometry
    not_alongside,  ///< sides do, but none faces it, or runs along it
    too_much_near   ///< more than 4,000,000 pairs of sides and segments are near each other
};

/// Where people name a side, rounding would choose between two whose lengths or distances differ by no more than this:
/// what to give as `tied_within`. Caller's unit: a millimetre where that is metres. The program and the Python package do.
constexpr double kTiedWithin = 0.001;

/// As kTiedWithin, for bearings: gons. What to give as `tied_within_gon`.
constexpr double kTiedWithinGon = 0.01;

/// @param[in] status  any status
/// @return a sentence's worth in English, without a full stop; never null
PLPARCEL_API const char* describe(ChoiceStatus status) noexcept;

/// A side or a vertex, and what was measured of it.
struct Candidate {
    BoundaryPlace place;  ///< which one
    double length = 0.0;  ///< of the side, caller's unit; 0 for a vertex
    double bearing =
        0.0;  ///< towards which the side faces, out of the parcel: gons, clockwise from North; 0 for a vertex
    double turned = 0.0;  ///< side_facing(): gons from there to the bearing that was asked for, 0 to 200
    /// Caller's unit. side_near(), vertex_near(): from the point. side_along(): of the other geometry where it is nearest.
    /// vertex_farthest(): by how much others lie farther, 0 for the farthest.
    double distance = 0.0;
    double alongside = 0.0;  ///< side_along(): how much of its length counts, caller's unit
};

/// The side or vertex that was found.
struct Choice {
    ChoiceStatus status = ChoiceStatus::unusable_boundary;  ///< found, tied, or why there is none
    BoundaryStatus boundary = BoundaryStatus::usable;       ///< what check_parcel() says
    /// found: the one. tied: all that fit equally well, in the order of rings and indexes. Otherwise none.
    std::vector<Candidate> candidates;
    std::optional<Candidate> next;  ///< found: the one that fits best after it, if there is another
    double nearest = 0.0;  ///< side_along(), too_far and not_alongside: how near the other geometry comes
};

/// The longest side.
///
/// @param[in] parcel       see check_parcel()
/// @param[in] tied_within  differences up to this count as none: caller's unit; below zero or NaN count as 0
/// @return the side; `tied` when another is as long
///
/// Tolerance   Differences up to four times coordinate_spacing() always count as none: rounding the coordinates makes
///             such. Sides that tie are one where they follow each other in a straight line, to a hundredth of a gon;
///             the longest part stands for it, or the first of the longest as the ring runs.
/// Exactness   Compared with 106 bits; sides below 1e-140 may count as having no length. Candidate::bearing and turned
///             are as good as the platform's arctangent, and no decision depends on them. Costs n log n, as
///             check_parcel() does. So with all functions here.
PLPARCEL_API Choice longest_side(const Parcel& parcel, double tied_within = 0.0);

/// The shortest side. As longest_side().
///
/// @param[in] parcel       see check_parcel()
/// @param[in] tied_within  as for longest_side()
/// @return the side; `tied` when another is as short
PLPARCEL_API Choice shortest_side(const Parcel& parcel, double tied_within = 0.0);

/// The side nearest to a point, which may lie anywhere. As longest_side().
///
/// @param[in] parcel       see check_parcel()
/// @param[in] point        caller's unit
/// @param[in] tied_within  as for longest_side()
/// @return the side; `tied` also where a vertex is the nearest place, since it belongs to two sides
PLPARCEL_API Choice side_near(const Parcel& parcel, const PL_PNT2D_record& point, double tied_within = 0.0);

/// The side that faces a bearing: the one whose direction out of the parcel, at right angles to it, is nearest to that
/// bearing.
///
/// @param[in] parcel           see check_parcel()
/// @param[in] bearing_gon      clockwise from North: 0 faces North, 100 East; any finite number of turns
/// @param[in] tied_within_gon  differences up to this count as none, at most 100; below zero or NaN count as 0
/// @return the side. It may face far away from the bearing: Candidate::turned says how far
///
/// Tolerance   As longest_side(). Between two sides a turn counts as none that moves the end of one of them by no more
///             than four times coordinate_spacing().
PLPARCEL_API Choice side_facing(const Parcel& parcel, double bearing_gon, double tied_within_gon = 0.0);

/// The vertex nearest to a point, which may lie anywhere. As longest_side().
///
/// @param[in] parcel       see check_parcel()
/// @param[in] point        caller's unit
/// @param[in] tied_within  as for longest_side()
/// @return the vertex; `tied` when another is as near
PLPARCEL_API Choice vertex_near(const Parcel& parcel, const PL_PNT2D_record& point, double tied_within = 0.0);

/// The vertex that lies farthest towards a bearing: the northernmost for 0, the easternmost for 100. As longest_side().
///
/// @param[in] parcel       see check_parcel()
/// @param[in] bearing_gon  clockwise from North, any finite number of turns
/// @param[in] tied_within  as for longest_side()
/// @return the vertex; `tied` when another lies as far
PLPARCEL_API Choice vertex_farthest(const Parcel& parcel, double bearing_gon, double tied_within = 0.0);

/// Another geometry, to be asked about many parcels: the axes of roads, the boundaries of neighbours.
class OtherGeometry {
public:
    /// @param[in] segments  in any order; those without length, or with coordinates that are not finite or beyond 1e90 are
    ///                      left out. Costs m log m.
    PLPARCEL_API explicit OtherGeometry(const std::vector<Segment>& segments);

private:
    friend class AlongsideSearch;
    class Tree;
    std::shared_ptr<const Tree> tree_;
};

/// What counts as alongside.
struct Alongside {
    double distance;          ///< from the side, caller's unit: for a road's axis half its width and more
    double angle_gon = 25.0;  ///< between side and segment, without regard to which way they run; 0 to 100
};

/// The side that lies along another geometry: the one of which the greatest length has a segment of it before it.
///
/// ```
///     - - road - - - - - - -      A part of a side counts where a segment
///     ^ within the distance       - lies within the distance of it,
///     |  . . . . . .              - turns no more than the angle away from it,
///     +=============+             - and lies before the side, out of the parcel, or behind it by no more
///     |   parcel    |               than a tenth of the distance.
///     +-------------+  does not count, however near: the road lies behind it
/// ```
///
/// @param[in] parcel       see check_parcel()
/// @param[in] other        the other geometry
/// @param[in] alongside    what counts
/// @param[in] tied_within  as for longest_side()
/// @return the side with the greatest Candidate::alongside. `tied` for a corner lot with as much along either road
///
/// Exactness   The lengths that count are computed in doubles from exact differences, good to 1e-12 of the largest
///             distance among them, and are the same on every machine.
///             Costs (n + m) log m, and so much more as sides and segments come within the distance of each other, up to
///             the limit of too_much_near.
PLPARCEL_API Choice side_along(const Parcel& parcel, const OtherGeometry& other, const Alongside& alongside,
                               double tied_within = 0.0);

}  // namespace plparcel
