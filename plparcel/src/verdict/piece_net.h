#pragma once

// The pieces of a division as a net of corners, for rounding the ends of the lines between them.

#include <cstddef>
#include <utility>
#include <vector>

#include "boundary/measured_ring.h"
#include "numbers/wide.h"
#include "plparcel/division.h"

namespace plparcel {

/// The dividing lines and the boundary between them as one net: which corners of which pieces move when an end is rounded.
class PieceNet {
public:
    /// @param[in] parcel  its rings
    /// @param[in] found   lines and pieces, with all digits
    PieceNet(const std::vector<Ring>& parcel, const Division& found);

    /// Rounds the ends, and finds where each segment of a line then meets the boundary.
    ///
    /// @param[in] decimals  more than kMostDecimals for none
    /// @param[in] reach     how far from its end a segment may meet the boundary
    /// @return whether they all do
    bool round(int decimals, double reach);

    std::size_t pieces() const { return outlines_.size(); }

    /// 1 when the piece runs anticlockwise, -1 clockwise; its holes run the other way.
    double turn(std::size_t piece) const { return outlines_[piece].turn; }

    /// The amount that it belongs to.
    std::size_t amount(std::size_t piece) const { return outlines_[piece].amount; }

    /// An end of a line, rounded.
    const PL_PNT2D_record& staked(const PL_PNT2D_record& found) const { return ends_[end_at(found)].staked; }

    /// The rings of a piece with the rounded ends as corners, its holes after the outer one.
    std::vector<Ring> piece(std::size_t piece) const;

    /// Its area with the lines prolonged or shortened to the boundary; above zero for a piece that runs as it did.
    Wide area_to_the_boundary(std::size_t piece) const;

    /// Whether the boundary of the parcel, with the rounded ends as corners, passes every place once.
    bool boundary_is_simple() const;

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    // An end of one or more lines. `out_of` is the corner at which the boundary goes on.
    struct End {
        PL_PNT2D_record found = {};
        PL_PNT2D_record staked = {};
        std::size_t out_of = kNone;
        bool is_vertex = false;       // of the parcel
        bool is_inside = true;        // lines meet there, away from the boundary
        PL_PNT2D_record before = {};  // the vertex before it along the boundary
        PL_PNT2D_record after = {};   // and the one after it
    };

    // Where a line, prolonged or shortened, meets the boundary next to its end. At a vertex that is the side before it
    // or the one after it. Rounded, a line may pass beside a vertex that points into the parcel: it then ends where it
    // is staked out. An end that is no vertex is replaced.
    struct Foot {
        enum class Place { before, after, replaced };

        WidePoint at;
        Place place = Place::replaced;
    };

    // A segment of a dividing line between two ends.
    struct Link {
        std::size_t ends[2] = {kNone, kNone};
        Foot feet[2];
    };

    // A vertex of a piece.
    struct Corner {
        PL_PNT2D_record at = {};
        std::size_t end = kNone;  // the end that it is
        std::size_t link_after =
            kNone;  // the segment that leads to the next corner; none where that is a side of the parcel
    };

    // The corners of a ring: a range in the list of all.
    struct Walk {
        std::size_t first = 0;
        std::size_t count = 0;
    };

    // A piece: a range in the list of walks, its holes after its outer ring.
    struct Outline {
        std::size_t first = 0;
        std::size_t count = 0;
        std::size_t amount = 0;
        double turn = 1.0;
    };

    using Pair = std::pair<std::size_t, std::size_t>;

    void collect_ends(const std::vector<Ring>& parcel, const Division& found);
    std::size_t end_at(const PL_PNT2D_record& p) const;
    static Pair key(std::size_t a, std::size_t b);
    static Pair key(const Link& link) { return key(link.ends[0], link.ends[1]); }
    std::size_t link_between(std::size_t a, std::size_t b, const std::vector<std::size_t>& by_ends) const;
    void add_walk(const Ring& ring, const std::vector<std::size_t>& by_ends);
    void add_outline(const Piece& piece, const std::vector<std::size_t>& by_ends);
    static std::size_t following(const Walk& walk, std::size_t k)
    {
        return walk.first + (k + 1) % walk.count;
    }
    void find_sides();
    std::vector<std::size_t> boundary_from(std::size_t corner, std::vector<bool>& passed) const;
    std::size_t boundary_after(std::size_t corner) const;
    const PL_PNT2D_record& staked_corner(std::size_t corner) const;
    bool find_foot(Link& link, std::size_t which, double reach) const;
    WidePoint from_origin(const PL_PNT2D_record& p) const { return from_to(corners_.front().at, p); }
    const Foot& foot(std::size_t link, std::size_t end) const;
    Ring staked_ring(const Walk& walk) const;
    void add_feet(const Walk& walk, std::size_t k, std::vector<WidePoint>& points) const;

    std::vector<End> ends_;  // from West to East, each once
    std::vector<Link> links_;
    std::vector<Corner> corners_;    // of all pieces
    std::vector<std::size_t> next_;  // the corner after each
    std::vector<Walk> walks_;        // one for each ring of each piece
    std::vector<Outline> outlines_;  // one for each piece
};

/// Whether each of some rings without repeats has three vertices at least, and their sides meet only at the common vertex
/// of two that follow each other.
bool are_apart(const std::vector<Ring>& rings);

}  // namespace plparcel
