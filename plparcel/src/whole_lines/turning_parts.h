#pragma once

// Parts of a straight line that turns about a point, which part a parcel with holes in exactly two.
//
//   Of the parts of a line that make two pieces (see part_lines.h) those count that begin or end at the point, or have a
//   segment that runs through it.
//
//   .-----------------.       The boundary is walked as one tour: each hole hangs by a slit that leads outward from it, in
//   |       o-._      |       line with the point, where the turning line comes to it first. Holes that the first line
//   |    .--.   `-._  |       crosses hang from where it leaves them for the last time. So no slit crosses a line, the tour
//   |----|__|--------`|       goes on without a jump between two of the line's ends, and seen from the point nothing is
//   |      |          |       swept along the slits. What lies on the left of a part is the sum over its ends: what the
//   '------'----------'       tour has swept when it comes to the left ones, less the same of the right ones.

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "boundary/joined_rings.h"
#include "lines/area_ranges.h"
#include "numbers/wide.h"
#include "whole_lines/turning_lines.h"
#include "whole_lines/turning_profile.h"

namespace plparcel {

class TurningParts {
public:
    /// @param[in] rings    the outer ring anticlockwise, the holes clockwise
    /// @param[in] points   their vertices from the point
    /// @param[in] vertex   the one at the point; none where the point lies inside
    /// @param[in] first    the direction from which the line turns; at a vertex along the side that leads from there
    TurningParts(const JoinedRings& rings, const std::vector<WidePoint>& points,
                 std::optional<std::size_t> vertex, const WidePoint& first);

    /// All directions in which a part of the line holds an area on its left, through a full turn anticlockwise; at a vertex
    /// the line runs from there into the parcel. First those that hold it exactly, then those at the rim of a range, or at
    /// which the area is greatest or least, that miss it by no more than is granted. Each direction once.
    ///
    /// Costs n log n, and for each direction of a vertex the number of sides that the line meets before it comes to a ring
    /// for the second time.
    ///
    /// @param[in] left     area on the left
    /// @param[in] granted  by how much a line may miss it
    std::vector<TurningLine> lines(const Wide& left, const Wide& granted) const;

    /// The areas on the left of all parts of the line, in no order, overlapping. Costs as much as lines(), and where
    /// vertices stand in line with the point but for the reach, for each of them as many steps as there are such vertices.
    ///
    /// @param[in] reach  a vertex so near to a line lies on it
    std::vector<AreaRange> areas(const Wide& reach) const;

private:
    using Part = TurningProfile::Part;
    using Term = TurningProfile::Term;

    // A hole that hangs on a part.
    struct Hung {
        std::size_t sector;
        std::size_t ring;
        Wide up_to_here;  // what the tour sweeps along this one and those before it on the part
    };

    // A ring's place on the tour.
    struct OnTour {
        bool hangs = false;
        std::size_t sector = 0;
        std::size_t slit = 0;  // the part where the slit begins
        Wide whole;            // what the tour sweeps along the ring and all that hang on it
    };

    // Ends of a part of the line: parts of sides, and the vertex at the point.
    struct Run {
        std::vector<std::size_t> left;
        std::vector<std::size_t> right;
        int at_point = 0;  // 1 where the point is a left end, -1 a right one
    };

    // A hole that the line comes to, before it hangs.
    struct Met {
        bool ahead;
        std::size_t sector;
        std::size_t ring;
        std::size_t farthest;  // of its parts
        std::size_t beyond;    // the next part of another ring
    };

    // What lies on the left of a part of the line at both rims of a sector.
    struct AtRims {
        Wide begin;
        Wide end;
    };

    class Rows;
    class Walk;
    class InLine;
    struct Search;

    void put_in_order();
    std::vector<Met> met_first() const;
    std::optional<Met> met_in(const Rows& rows, bool ahead, std::size_t sector, std::size_t ring) const;
    void hang_all();
    void walk_ring(std::size_t ring);
    bool is_thick(std::size_t sector) const;
    bool is_nearer(std::size_t a, std::size_t b) const;
    Wide along_part(std::size_t part, std::size_t direction) const;
    Wide swept_on_tour(std::size_t ring, const Wide& on_ring, bool is_past_slit) const;
    Wide swept(std::size_t part, std::size_t sector, std::size_t direction) const;
    Wide swept_at_point() const;
    Wide left_of(const Run& run, std::size_t sector, std::size_t direction) const;
    AtRims left_at_rims(const Run& run, std::size_t sector) const;
    std::vector<Term> terms_of(const Run& run, std::size_t sector) const;
    bool crosses_at(std::size_t part, std::size_t direction) const;
    int side_at_point(std::size_t direction) const;
    bool is_free(const Run& run, std::size_t direction, bool arrives, const InLine& vertices) const;
    void sweep(const std::function<void(const Rows&, std::size_t sector)>& visit) const;
    std::vector<Run> runs(const Rows& rows) const;
    void add_runs_from_point(bool ahead, const Rows& rows, std::vector<Run>& found) const;
    static void add_runs_over(const Walk& ahead, const Walk& behind, int at_point, std::vector<Run>& found);

    const JoinedRings& rings_;
    std::optional<std::size_t> vertex_;
    std::vector<WidePoint> beside_point_;  // the vertices before and after the one at the point
    TurningProfile profile_;
    std::vector<std::size_t> from_;           // parts by where the ray comes to them
    std::vector<std::size_t> to_;             // and by where it leaves them
    std::vector<std::size_t> first_of_ring_;  // of each ring its first part; one more at the end
    std::size_t part_at_point_ = 0;           // the first part behind the vertex at the point
    std::vector<OnTour> tour_;                // of each ring
    std::vector<std::size_t> in_order_;       // rings, those on which others hang before these
    std::vector<std::vector<Hung>> hung_;     // of each part, in the order in which it is walked
    std::vector<Wide> at_part_;               // what the ring has swept when it comes to a part
    Wide at_point_;
    Wide area_;
};

}  // namespace plparcel
