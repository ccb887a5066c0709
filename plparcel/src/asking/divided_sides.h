#pragma once

// The sides on which divisions have put points, found by where they lie.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "boundary/box_levels.h"
#include "boundary/box_tree.h"
#include "kept/blocks.h"
#include "kept/kept_list.h"
#include "kept/sorted_list.h"
#include "plparcel/neighbours.h"

namespace plparcel {

/// A point on a divided side: one that a division has put there, or a vertex of a neighbour.
struct Node {
    PL_PNT2D_record at;
    bool is_new;             ///< a division has put it there
    bool is_vertex = false;  ///< a parcel of the layer has it already
};

/// A divided side. Its nodes are a range in the list of all, in the order from a to b.
struct DividedSide {
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    std::size_t first = 0;
    std::size_t last = 0;
    Box box = {};  ///< around the side and its new points

    double length() const;

    /// Of the foot of a point, from a.
    double along(const PL_PNT2D_record& p) const;

    /// How far a point lies off the side, positive on the left.
    double off(const PL_PNT2D_record& p) const;

    /// How far two boundaries may be apart that are one.
    double reach(double within) const;
};

/// The divided sides of a layer, in an order in which those near each other follow one another. Only boxes and two bits for
/// each node are in memory for sure.
class DividedSides {
public:
    using Points = std::function<void(const std::function<void(const NewPoint&)>& take)>;

    /// Sides that lie along each other have each other's points.
    ///
    /// @param[in] blocks  must outlive this
    /// @param[in] points  hands the points over, called once
    /// @param[in] within  as of SharedSides
    DividedSides(Blocks& blocks, const Points& points, double within);

    /// Notes the vertices of a ring on divided sides.
    void note(const Ring& ring);

    /// Puts what was noted between the points. No Look is used across it.
    void settle();

    /// A part of a divided side, from its a.
    struct Part {
        double begin;
        double end;
    };

    /// Looks at sides that are settled. Each thread has its own.
    class Look {
    public:
        explicit Look(const DividedSides& sides) : all_(&sides), sides_(sides.sides_), places_(sides.places_)
        {}

        DividedSide side(std::size_t i) { return sides_.at(i); }

        Node node(std::size_t i) { return {places_.at(i), all_->is_new_[i], all_->is_vertex_[i]}; }

        double reach(const DividedSide& side) const { return side.reach(all_->within_); }

        /// The part of a divided side along which a segment lies; nothing where it is too far away or too short to tell.
        std::optional<Part> part_beside(const DividedSide& side, const PL_PNT2D_record& c,
                                        const PL_PNT2D_record& d) const;

        /// The first node at that distance along the side or behind it.
        std::size_t first_from(const DividedSide& side, double along);

        /// Where a point stands in the row of the side's nodes: 0 for a, then the nodes, then b.
        std::optional<std::size_t> rank_of(const DividedSide& side, const PL_PNT2D_record& p);

        /// Calls `note` with each side that may lie along c-d, and its number.
        template <class Note> void near(const PL_PNT2D_record& c, const PL_PNT2D_record& d, const Note& note)
        {
            const std::optional<double> distance = all_->distance_around(c, d);
            if (!distance)
                return;
            const Reach reach(c, d);
            all_->boxes_.near(reach, *distance, [&](std::size_t number) {
                const DividedSide found = side(number);
                if (reach.comes_near(found.box, *distance))
                    note(number, found);
            });
        }

    private:
        const DividedSides* all_;
        KeptList<DividedSide>::Reader sides_;
        KeptList<PL_PNT2D_record>::Reader places_;
    };

private:
    static constexpr std::size_t kNoSide = static_cast<std::size_t>(-1);

    // A node that was noted for a side.
    struct Noted {
        std::size_t side;
        double along;
        PL_PNT2D_record at;
        std::uint32_t is_new;
        std::uint32_t is_vertex;
    };

    struct PointsByPlace {
        bool operator()(const NewPoint& p, const NewPoint& q) const;
    };
    struct NotedBySide {
        bool operator()(const Noted& p, const Noted& q) const;
    };

    std::optional<double> distance_around(const PL_PNT2D_record& c, const PL_PNT2D_record& d) const;
    void gather(const Points& points);
    void note_each_other();
    void note_side(Look& look, const PL_PNT2D_record& c, const PL_PNT2D_record& d, std::size_t not_for);
    void note_node(Look& look, std::size_t number, const DividedSide& on, const Node& node);

    Blocks* blocks_;
    double within_;
    KeptList<DividedSide> sides_;
    KeptList<PL_PNT2D_record> places_;  // of the nodes
    std::vector<bool> is_new_;
    std::vector<bool> is_vertex_;
    std::optional<SortedList<Noted, NotedBySide>> noted_;
    BoxLevels boxes_;  // of the sides
};

}  // namespace plparcel
