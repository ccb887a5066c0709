#pragma once

// Parts of straight lines that part a parcel with holes in exactly two: lines of one direction.
//
//     outer ring                     A line begins on a ring and runs on until it comes back to that ring. On its way it
//   .------------------------.       may cross other rings, each once: one segment ends there, the next begins on the far
//   |      ___        __     |       side. So it goes round the parcel once, over the rings, and makes two pieces. A line
//   |-----|___|------|__|----|       that meets a ring twice on its way makes more.
//   '------------------------'
//
// As the line moves up between two sides of the ring on which it begins and ends, the area above it sinks without a jump,
// whatever it meets on its way. So there is at most one line for each pair of such sides that face each other, and
// there are no more of those pairs than vertices. All are bisected at once, by the levels of the vertices.

#include <cstddef>
#include <vector>

#include "boundary/joined_rings.h"
#include "lines/area_ranges.h"
#include "numbers/wide.h"
#include "whole_lines/open_spans.h"

namespace plparcel {

/// What the lines should cut off. Areas and levels are those of the frame.
struct PartRequest {
    /// Where the piece of the request lies.
    enum class Where { above, below, with_base, without_base };

    Where where = Where::above;
    std::size_t base = 0;  ///< a side: at level 0 where the request lies with or without it, otherwise across
    bool has_base = false;  ///< otherwise the lines have a direction without a side
    Wide request;           ///< area of its piece
    Wide rest;              ///< that of the other piece
    Wide granted;           ///< by how much a line may miss the request
};

/// A line that makes two pieces.
struct PartLine {
    Wide level;
    std::vector<std::size_t> sides;   ///< from left to right, two for each segment
    std::vector<std::size_t> places;  ///< of each its place on the tour, see tour.h
    bool holds_start = false;         ///< the tour begins in the piece above
    bool request_above = false;       ///< the piece above is the one of the request
    Wide above;                       ///< area of the piece above
    bool beside_the_amount =
        false;               ///< at the level of a vertex, and holds the amount not exactly but near enough
    bool stands_in = false;  ///< beside it, while another line between the same two sides holds it exactly
    bool alone = true;       ///< the whole line meets the boundary nowhere else
};

class PartLines {
public:
    /// @param[in] rings  the outer ring anticlockwise, the holes clockwise
    /// @param[in] frame  of each vertex its place along the lines and its level
    PartLines(const JoinedRings& rings, const std::vector<WidePoint>& frame);

    /// All lines that hold the request, and those at the level of a vertex that miss it by no more than is granted. In the
    /// order that LevelCut states, those that stand in for others last. Costs n log n times the logarithm of n.
    std::vector<PartLine> all_lines(const PartRequest& request) const;

    /// All lines at a level that have something on both sides, in the same order.
    std::vector<PartLine> lines_at(const PartRequest& request, const Wide& level) const;

    /// The areas that the request can have, of lines at all levels. Costs n log n, and where vertices lie all but level the
    /// number of sides that the line through them meets.
    ///
    /// @param[in] reach  a vertex so near to a line lies on it, in levels
    std::vector<AreaRange> areas(const PartRequest& request, const Wide& reach) const;

    /// Place of a ring on the tour.
    std::size_t place_of_ring(std::size_t ring) const { return ring_place_[ring]; }

    /// The rings in the order of these places.
    const std::vector<std::size_t>& rings_on_tour() const { return rings_on_tour_; }

    const Wide& lowest() const { return levels_.front(); }
    const Wide& highest() const { return levels_.back(); }

    /// The vertices whose levels lie from `low` to `high`.
    std::vector<std::size_t> vertices_between(const Wide& low, const Wide& high) const;

private:
    struct Sum;
    struct Question;
    class Row;
    class Ends;

    // Lines between the same two sides of one ring.
    struct Family {
        std::size_t left;
        std::size_t right;
        std::size_t first_slab;
        std::size_t last_slab;
        Wide wanted;  // above the line
        bool holds_start;
        bool request_above;
        bool beside;
        bool stands_in;
        bool at_rim;
        Wide level;
    };

    // The part of a side in a slab.
    struct Entry {
        std::size_t side;
        std::size_t begin;  // slabs
        std::size_t end;
        std::size_t place;
        Wide swept;
    };

    std::size_t index_of(const Wide& level) const;
    Wide along(std::size_t side, const Wide& level) const;
    bool is_thick(std::size_t slab) const;
    std::vector<std::size_t> slabs_at(const Wide& level) const;
    Wide in_slab(std::size_t slab, const Wide& level) const;
    std::vector<Family> families(const PartRequest& request) const;
    void add_families(std::size_t left, std::size_t right, std::size_t begin, std::size_t end,
                      std::vector<Family>& all) const;
    std::vector<Family> open_families(const PartRequest& request) const;
    static std::vector<Question> at_both_ends(const std::vector<Family>& all);
    static void mark_neighbours(std::vector<Family>& found);
    std::vector<Family> holding(const PartRequest& request) const;
    void bisect(const PartRequest& request, std::vector<Family>& all) const;
    void answer(const PartRequest& request, std::vector<Question>& questions) const;
    bool passes_through(std::size_t vertex) const;
    std::vector<SpanBreak> breaks() const;
    bool is_touched(std::size_t vertex, double from) const;
    PartLine line_of(const Family& family, const Question& question) const;
    bool parts_in_two(const std::vector<std::size_t>& sides) const;
    std::vector<PartLine> in_order(const PartRequest& request, std::vector<PartLine> all) const;

    const JoinedRings& rings_;
    const std::vector<WidePoint>& frame_;
    std::vector<std::size_t> by_level_;  // vertices
    std::vector<Wide> levels_;           // all different ones, upwards
    std::vector<std::size_t>
        order_;  // of each side its place from left to right; kNone for those that no line meets
    std::size_t in_order_count_ = 0;
    std::vector<Entry> entries_;
    std::vector<std::size_t> ring_place_;
    std::vector<std::size_t> rings_on_tour_;
    std::vector<std::size_t> side_place_;  // of each side the place of its first part
    Wide area_;
};

}  // namespace plparcel
