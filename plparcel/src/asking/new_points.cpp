#include <algorithm>
#include <cstddef>
#include <utility>

#include "boundary/meeting_sides.h"
#include "numbers/wide.h"
#include "plparcel/neighbours.h"
#include "plparcel/rounding.h"

namespace plparcel {
namespace {

// The vertices of a parcel, found by their place, or by the place to which a division rounds them.
class Vertices {
public:
    Vertices(const Parcel& parcel, const std::optional<int>& decimals)
    {
        const auto note = [&](const Ring& ring) {
            for (const PL_PNT2D_record& vertex : ring) {
                exact_.push_back({vertex, vertex});
                if (decimals && *decimals <= kMostDecimals)
                    rounded_.push_back(
                        {{rounded_to(vertex.x, *decimals), rounded_to(vertex.y, *decimals)}, vertex});
            }
        };
        note(parcel.outer);
        for (const Ring& hole : parcel.holes)
            note(hole);
        for (std::vector<Entry>* entries : {&exact_, &rounded_})
            std::sort(entries->begin(), entries->end(), [](const Entry& a, const Entry& b) {
                return comes_before(a.place, b.place) ||
                       (same_place(a.place, b.place) && comes_before(a.vertex, b.vertex));
            });
    }

    // The vertex that a corner of a piece is; none for a new point.
    const PL_PNT2D_record* at(const PL_PNT2D_record& corner) const
    {
        const PL_PNT2D_record* const vertex = find(exact_, corner);
        return vertex != nullptr ? vertex : find(rounded_, corner);
    }

    PL_PNT2D_record corner(const PL_PNT2D_record& corner) const
    {
        const PL_PNT2D_record* const vertex = at(corner);
        return vertex != nullptr ? *vertex : corner;
    }

private:
    struct Entry {
        PL_PNT2D_record place;
        PL_PNT2D_record vertex;
    };

    static const PL_PNT2D_record* find(const std::vector<Entry>& entries, const PL_PNT2D_record& place)
    {
        const auto found = std::lower_bound(
            entries.begin(), entries.end(), place,
            [](const Entry& entry, const PL_PNT2D_record& p) { return comes_before(entry.place, p); });
        return found != entries.end() && same_place(found->place, place) ? &found->vertex : nullptr;
    }

    std::vector<Entry> exact_;
    std::vector<Entry> rounded_;
};

Ring with_corners(const Ring& ring, const Vertices& vertices)
{
    Ring corners;
    for (const PL_PNT2D_record& p : ring)
        corners.push_back(vertices.corner(p));
    return corners;
}

// The boundary of the pieces together: the sides that only one of them has. Their holes are holes of the parcel on which no
// line ends.
class OuterSides {
public:
    explicit OuterSides(const std::vector<Parcel>& pieces)
    {
        for (const Parcel& piece : pieces)
            add(piece.outer);
        std::sort(sides_.begin(), sides_.end(), is_before);
    }

    // The points between two vertices, in the order in which the pieces run; none where that way does not lead to the second.
    std::vector<PL_PNT2D_record> between(const PL_PNT2D_record& from, const PL_PNT2D_record& to,
                                         const Vertices& vertices)
    {
        std::vector<PL_PNT2D_record> points;
        for (Side* side = outer_from(from); side != nullptr; side = outer_from(points.back())) {
            if (same_place(side->to, to))
                return points;
            if (vertices.at(side->to) != nullptr || side->passed == kPasses)
                break;
            ++side->passed;
            points.push_back(side->to);
        }
        return {};
    }

private:
    // A side with points is passed in the direction of its ring, and perhaps once against it.
    static constexpr int kPasses = 2;

    struct Side {
        PL_PNT2D_record from;
        PL_PNT2D_record to;
        int passed = 0;
    };

    static bool is_before(const Side& a, const Side& b)
    {
        return comes_before(a.from, b.from) || (same_place(a.from, b.from) && comes_before(a.to, b.to));
    }

    void add(const Ring& ring)
    {
        for (std::size_t i = 0; i < ring.size(); ++i)
            sides_.push_back({ring[i], around(ring, i + 1)});
    }

    Side* outer_from(const PL_PNT2D_record& from)
    {
        auto side =
            std::lower_bound(sides_.begin(), sides_.end(), from,
                             [](const Side& a, const PL_PNT2D_record& p) { return comes_before(a.from, p); });
        while (side != sides_.end() && same_place(side->from, from) &&
               std::binary_search(sides_.begin(), sides_.end(), Side{side->to, side->from}, is_before))
            ++side;
        return side != sides_.end() && same_place(side->from, from) ? &*side : nullptr;
    }

    std::vector<Side> sides_;
};

}  // namespace

std::vector<Parcel> pieces_with_corners(const Parcel& parcel, const Division& division)
{
    const Vertices vertices(parcel, division.decimals);
    std::vector<Parcel> pieces;
    for (const Piece& piece : division.pieces) {
        pieces.push_back({with_corners(piece.ring, vertices), {}});
        for (const Ring& hole : piece.holes)
            pieces.back().holes.push_back(with_corners(hole, vertices));
    }
    return pieces;
}

std::vector<NewPoint> new_points(const Parcel& parcel, const Division& division)
{
    const Vertices vertices(parcel, division.decimals);
    OuterSides outer(pieces_with_corners(parcel, division));
    std::vector<NewPoint> points;
    const auto add = [&](const PL_PNT2D_record& from, const PL_PNT2D_record& to) {
        for (const PL_PNT2D_record& p : outer.between(from, to, vertices))
            points.push_back({p, {from, to}});
    };
    const auto add_sides = [&](const Ring& ring) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const PL_PNT2D_record& from = ring[i];
            const PL_PNT2D_record& to = around(ring, i + 1);
            if (same_place(from, to))
                continue;
            const std::size_t so_far = points.size();
            add(from, to);
            if (points.size() == so_far)
                add(to, from);  // a hole may run against the pieces
        }
    };
    add_sides(parcel.outer);
    for (const Ring& hole : parcel.holes)
        add_sides(hole);
    return points;
}

}  // namespace plparcel
