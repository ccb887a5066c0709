#include "whole_lines/faces.h"

#include <algorithm>
#include <numeric>

#include "lines/trapeziums.h"

namespace plparcel {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

void append(Ring& ring, const PL_PNT2D_record& p)
{
    if (ring.empty() || !same_place(ring.back(), p))
        ring.push_back(p);
}

// Two crossings for each segment, one after the other.
std::size_t other_end(std::size_t crossing)
{
    return crossing ^ 1U;
}

class Walk {
public:
    Walk(const Levels& levels, const std::vector<Crossing>& crossings, const std::vector<Wide>& lines)
        : rings_(levels.rings), frame_(levels.frame), crossings_(crossings), lines_(lines),
          face_of_(crossings.size(), kNone), chain_of_(rings_.size(), kNone)
    {
        put_on_sides();
    }

    bool run(std::vector<Face>& faces)
    {
        for (std::size_t i = 0; i < crossings_.size(); ++i) {
            if (face_of_[i] != kNone)
                continue;
            faces.emplace_back();
            if (!walk_round(i, faces.size() - 1, faces.back()))
                return false;
        }
        place_whole_rings(faces);
        return true;
    }

private:
    // The crossings of each side, as the boundary runs.
    void put_on_sides()
    {
        order_.resize(crossings_.size());
        std::iota(order_.begin(), order_.end(), std::size_t{0});
        std::sort(order_.begin(), order_.end(), [this](std::size_t a, std::size_t b) {
            const Crossing& one = crossings_[a];
            const Crossing& other = crossings_[b];
            if (one.side != other.side)
                return one.side < other.side;
            return one.rises ? one.line < other.line : one.line > other.line;
        });
        rank_.resize(order_.size());
        on_side_.assign(rings_.size() + 1, 0);
        for (std::size_t rank = 0; rank < order_.size(); ++rank) {
            rank_[order_[rank]] = rank;
            ++on_side_[crossings_[order_[rank]].side + 1];
        }
        std::partial_sum(on_side_.begin(), on_side_.end(), on_side_.begin());
    }

    bool is_crossed(std::size_t side) const { return on_side_[side] < on_side_[side + 1]; }

    // Along the boundary from a crossing to the next one; the vertices on the way are appended.
    std::size_t follow(std::size_t from, Ring& ring)
    {
        std::size_t side = crossings_[from].side;
        if (rank_[from] + 1 < on_side_[side + 1])
            return order_[rank_[from] + 1];
        do {
            side = rings_.next(side);
            chain_of_[side] = from;
            append(ring, rings_[side]);
        } while (!is_crossed(side));
        return order_[on_side_[side]];
    }

    std::size_t band_after(std::size_t crossing) const
    {
        return crossings_[crossing].line + (crossings_[crossing].rises ? 1 : 0);
    }

    bool walk_round(std::size_t start, std::size_t index, Face& face)
    {
        face.band = band_after(start);
        std::size_t at = start;
        do {
            if (band_after(at) != face.band)
                return false;
            face_of_[at] = index;
            append(face.ring, crossings_[at].place);
            face.corners.push_back(at);
            const std::size_t end = follow(at, face.ring);
            append(face.ring, crossings_[end].place);
            face.corners.push_back(end);
            at = other_end(end);
        } while (at != start);
        if (same_place(face.ring.back(), face.ring.front()))
            face.ring.pop_back();
        return true;
    }

    bool is_crossed_ring(std::size_t ring) const { return chain_of_[rings_.first_of(ring)] != kNone; }

    // Rings that no line crosses lie in the piece on the left of their lowest vertex. A trapezium begins there that
    // ends at the ring. Where its left side is one of another such ring, that one has been placed before.
    void place_whole_rings(std::vector<Face>& faces) const
    {
        bool is_whole = false;
        for (std::size_t ring = 1; ring < rings_.rings(); ++ring)  // every line crosses the outer one
            is_whole = is_whole || !is_crossed_ring(ring);
        if (!is_whole)
            return;
        std::vector<std::size_t> place(rings_.rings());
        std::vector<bool> is_placed(rings_.rings());
        for (const Trapezium& trapezium : trapeziums(frame_, rings_)) {
            const std::size_t ring = rings_.ring_of(trapezium.right);
            if (is_crossed_ring(ring) || is_placed[ring])
                continue;
            const std::size_t beside = rings_.ring_of(trapezium.left);
            place[ring] =
                is_crossed_ring(beside) ? face_beside(trapezium.left, band_of(ring)) : place[beside];
            is_placed[ring] = true;
            faces[place[ring]].holes.push_back(ring);
        }
    }

    std::size_t band_of(std::size_t ring) const
    {
        Wide low = frame_[rings_.first_of(ring)].y;
        Wide high = low;
        for (std::size_t v = rings_.next(rings_.first_of(ring)); v != rings_.first_of(ring);
             v = rings_.next(v)) {
            low = frame_[v].y < low ? frame_[v].y : low;
            high = frame_[v].y > high ? frame_[v].y : high;
        }
        const Wide middle = low + (high - low) * 0.5;
        return static_cast<std::size_t>(std::lower_bound(lines_.begin(), lines_.end(), middle) -
                                        lines_.begin());
    }

    // The piece that a side with the inside on its right bounds between the lines of a band.
    std::size_t face_beside(std::size_t side, std::size_t band) const
    {
        std::size_t chain = chain_of_[side];
        for (std::size_t rank = on_side_[side]; rank < on_side_[side + 1]; ++rank)
            if (crossings_[order_[rank]].line >= band)
                chain = order_[rank];
        return face_of_[chain];
    }

    const JoinedRings& rings_;
    const std::vector<WidePoint>& frame_;
    const std::vector<Crossing>& crossings_;
    const std::vector<Wide>& lines_;
    std::vector<std::size_t> order_;     // crossings by side, along each
    std::vector<std::size_t> rank_;      // of each crossing its place there
    std::vector<std::size_t> on_side_;   // of each side where its crossings begin there
    std::vector<std::size_t> face_of_;   // of each crossing the piece that the boundary bounds from there on
    std::vector<std::size_t> chain_of_;  // of each vertex the crossing from which the boundary came
};

}  // namespace

bool find_faces(const Levels& levels, const std::vector<Crossing>& crossings, const std::vector<Wide>& lines,
                std::vector<Face>& faces)
{
    faces.clear();
    return Walk(levels, crossings, lines).run(faces);
}

}  // namespace plparcel
