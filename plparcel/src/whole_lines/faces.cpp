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
        return place_whole_rings(faces);
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
            if (face_of_[at] != kNone || band_after(at) != face.band)
                return false;
            face_of_[at] = index;
            append(face.ring, crossings_[at].place);
            face.corners.push_back(at);
            const std::size_t end = follow(at, face.ring);
            append(face.ring, crossings_[end].place);
            face.corners.push_back(end);
            at = other_end(end);
        } while (at != start);
        while (face.ring.size() > 1 && same_place(face.ring.back(), face.ring.front()))
            face.ring.pop_back();
        return true;
    }

    // Rings that no line crosses. The outer one is always crossed.
    bool place_whole_rings(std::vector<Face>& faces)
    {
        std::vector<std::size_t> whole;
        for (std::size_t ring = 0; ring < rings_.rings(); ++ring)
            if (chain_of_[rings_.first_of(ring)] == kNone)
                whole.push_back(ring);
        if (whole.empty())
            return true;
        const std::vector<std::size_t> left = sides_on_the_left();
        std::vector<std::size_t> place(rings_.rings(), kNone);
        for (const std::size_t ring : whole)
            if (!place_ring(ring, left, place))
                return false;
        for (const std::size_t ring : whole)
            faces[place[ring]].holes.push_back(ring);
        return true;
    }

    // Of each ring the side on the left of its lowest vertex: a trapezium begins there that ends at the ring.
    std::vector<std::size_t> sides_on_the_left() const
    {
        std::vector<std::size_t> left(rings_.rings(), kNone);
        std::vector<Wide> low(rings_.rings());
        for (const Trapezium& trapezium : trapeziums(frame_, rings_)) {
            const std::size_t ring = rings_.ring_of(trapezium.right);
            if (left[ring] != kNone && !(trapezium.low < low[ring]))
                continue;
            left[ring] = trapezium.left;
            low[ring] = trapezium.low;
        }
        return left;
    }

    // Goes from ring to ring on the left up to one that is crossed.
    bool place_ring(std::size_t ring, const std::vector<std::size_t>& left,
                    std::vector<std::size_t>& place) const
    {
        std::vector<std::size_t> passed;
        std::size_t at = ring;
        while (place[at] == kNone) {
            passed.push_back(at);
            const std::size_t side = left[at];
            if (side == kNone || passed.size() > rings_.rings())
                return false;
            const std::size_t next = rings_.ring_of(side);
            if (chain_of_[rings_.first_of(next)] != kNone) {
                place[at] = face_beside(side, band_of(at));
                break;
            }
            at = next;
        }
        for (const std::size_t on_the_way : passed)
            place[on_the_way] = place[at];
        return place[at] != kNone;
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

    // The piece that a side bounds between the lines of a band.
    std::size_t face_beside(std::size_t side, std::size_t band) const
    {
        std::size_t chain = chain_of_[side];
        for (std::size_t rank = on_side_[side]; rank < on_side_[side + 1]; ++rank)
            if (crossings_[order_[rank]].rises ? crossings_[order_[rank]].line < band
                                               : crossings_[order_[rank]].line >= band)
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
