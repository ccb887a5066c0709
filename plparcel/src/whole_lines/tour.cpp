#include "whole_lines/tour.h"

#include <algorithm>

namespace plparcel {
namespace {

// A hole and where its slit begins.
struct Slit {
    std::size_t ring;
    Wide level;
};

// Where the walk stands on a ring.
struct Stand {
    std::size_t first;  // the vertex at which the ring is begun
    std::size_t side;
    std::size_t passed;  // slits of this side that have been walked
    Wide swept;          // before this side, holes at it that have been passed included
};

class Tour {
public:
    Tour(const JoinedRings& rings, const std::vector<WidePoint>& frame, const std::vector<Trapezium>& found)
        : rings_(rings), frame_(frame), slits_(rings.size())
    {
        find_slits(found);
    }

    std::vector<TourPart> run()
    {
        std::vector<Stand> stands = {begin_at(0, 0.0)};
        while (!stands.empty()) {
            Stand& stand = stands.back();
            if (stand.passed < slits_[stand.side].size()) {
                const Slit& slit = slits_[stand.side][stand.passed++];
                stands.push_back(begin_at(slit.ring, stand.swept));
                continue;
            }
            const Wide swept = stand.swept + swept_by(stand.side);
            stand = {stand.first, rings_.next(stand.side), 0, swept};
            if (stand.side != stand.first) {
                add_part(stand);
                continue;
            }
            stands.pop_back();
            if (!stands.empty()) {
                stands.back().swept = swept;
                add_part(stands.back());
            }
        }
        return std::move(parts_);
    }

private:
    // Of each hole the side on the left of its lowest vertex: a trapezium begins there that ends at the hole, the first
    // that does.
    void find_slits(const std::vector<Trapezium>& found)
    {
        std::vector<const Trapezium*> lowest(rings_.rings());
        for (const Trapezium& trapezium : found) {
            const Trapezium*& at = lowest[rings_.ring_of(trapezium.right)];
            if (at == nullptr)
                at = &trapezium;
        }
        for (std::size_t ring = 1; ring < lowest.size(); ++ring)
            if (lowest[ring] != nullptr)
                slits_[lowest[ring]->left].push_back({ring, lowest[ring]->low});
        // A side with the parcel on its right runs downwards.
        for (std::vector<Slit>& of_side : slits_)
            std::sort(of_side.begin(), of_side.end(),
                      [](const Slit& a, const Slit& b) { return a.level > b.level; });
    }

    Stand begin_at(std::size_t ring, const Wide& swept)
    {
        std::size_t first = rings_.first_of(ring);
        for (std::size_t v = rings_.next(first); v != rings_.first_of(ring); v = rings_.next(v))
            if (frame_[v].y < frame_[first].y)
                first = v;
        const Stand stand = {first, first, 0, swept};
        add_part(stand);
        return stand;
    }

    Wide swept_by(std::size_t side) const
    {
        const WidePoint& a = frame_[side];
        const WidePoint& b = frame_[rings_.next(side)];
        return (a.x + b.x) * (b.y - a.y) * 0.5;
    }

    // From the last slit on the side to the next one.
    void add_part(const Stand& stand)
    {
        const std::vector<Slit>& slits = slits_[stand.side];
        const Wide& begin = stand.passed > 0 ? slits[stand.passed - 1].level : frame_[stand.side].y;
        const Wide& end =
            stand.passed < slits.size() ? slits[stand.passed].level : frame_[rings_.next(stand.side)].y;
        const bool rises = begin < end;
        parts_.push_back({stand.side, rises ? begin : end, rises ? end : begin, parts_.size(), stand.swept});
    }

    const JoinedRings& rings_;
    const std::vector<WidePoint>& frame_;
    std::vector<std::vector<Slit>> slits_;  // of each side, as the walk comes to them
    std::vector<TourPart> parts_;
};

}  // namespace

std::vector<TourPart> tour(const JoinedRings& rings, const std::vector<WidePoint>& frame,
                           const std::vector<Trapezium>& found)
{
    return Tour(rings, frame, found).run();
}

}  // namespace plparcel
