#include "plparcel/heights.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>

#include "boundary/box_tree.h"
#include "boundary/meeting_sides.h"
#include "numbers/wide.h"
#include "plparcel/extent.h"

namespace plparcel {
namespace {

// A rounded end lies off its side by its last decimal at most; one with all its digits by far less than this, or than this
// part of a large parcel's extent.
constexpr double kReach = 1e-3;
constexpr double kReachRel = 1e-6;

struct Vertex {
    PL_PNT2D_record at;
    double height;
};

struct Side {
    Vertex from;
    Vertex to;
    std::size_t number;  // in the order of the rings
};

struct BoxOfSide {
    Box operator()(const Side& side) const { return box_of(side.from.at, side.to.at); }
};

bool is_finite(const PL_PNT2D_record& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

std::optional<double> known(double height)
{
    return std::isfinite(height) ? std::optional<double>(height) : std::nullopt;
}

// The point of a side that is nearest to p.
struct Foot {
    double part;      // of the side, from its first end: 0 to 1
    double distance;  // from p
};

Foot foot_on(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length2 = dx * dx + dy * dy;
    const double along = length2 > 0.0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / length2 : 0.0;
    const double part = std::min(1.0, std::max(0.0, along));
    return {part, std::hypot(a.x + part * dx - p.x, a.y + part * dy - p.y)};
}

std::vector<Vertex> vertices_of(const Ring& ring, const std::vector<double>& heights, std::size_t first)
{
    std::vector<Vertex> vertices;
    for (std::size_t i = 0; i < ring.size(); ++i)
        vertices.push_back({ring[i], first + i < heights.size() ? heights[first + i]
                                                                : std::numeric_limits<double>::quiet_NaN()});
    return vertices;
}

}  // namespace

class Heights::Index {
public:
    Index(const Parcel& parcel, const std::vector<double>& heights, const std::optional<int>& decimals,
          double off_boundary)
        : Index(parcel, rings_of(parcel, heights), decimals, off_boundary)
    {}

    std::optional<double> at(const PL_PNT2D_record& p) const;

private:
    using Rings = std::vector<std::vector<Vertex>>;

    Index(const Parcel& parcel, const Rings& rings, const std::optional<int>& decimals, double off_boundary)
        : reach_(std::max({kReach, kReachRel * extent_of(parcel.outer).largest(), off_boundary})),
          sides_(sides_of(rings))
    {
        if (decimals)
            reach_ = std::max(reach_, std::pow(10.0, -static_cast<double>(*decimals)));
        for (const std::vector<Vertex>& ring : rings)
            std::copy_if(ring.begin(), ring.end(), std::back_inserter(by_place_),
                         [](const Vertex& vertex) { return is_finite(vertex.at); });
        std::stable_sort(by_place_.begin(), by_place_.end(),
                         [](const Vertex& a, const Vertex& b) { return comes_before(a.at, b.at); });
    }

    static Rings rings_of(const Parcel& parcel, const std::vector<double>& heights)
    {
        Rings rings;
        rings.push_back(vertices_of(parcel.outer, heights, 0));
        std::size_t first = parcel.outer.size();
        for (const Ring& hole : parcel.holes) {
            rings.push_back(vertices_of(hole, heights, first));
            first += hole.size();
        }
        return rings;
    }

    static std::vector<Side> sides_of(const Rings& rings)
    {
        std::vector<Side> sides;
        std::size_t number = 0;
        for (const std::vector<Vertex>& ring : rings)
            for (std::size_t i = 0; i < ring.size(); ++i, ++number) {
                const Vertex& to = ring[i + 1 < ring.size() ? i + 1 : 0];
                if (is_finite(ring[i].at) && is_finite(to.at))
                    sides.push_back({ring[i], to, number});
            }
        return sides;
    }

    double reach_;
    BoxTree<Side, BoxOfSide> sides_;
    std::vector<Vertex> by_place_;
};

std::optional<double> Heights::Index::at(const PL_PNT2D_record& p) const
{
    if (!is_finite(p))
        return std::nullopt;
    const auto vertex = std::lower_bound(
        by_place_.begin(), by_place_.end(), p,
        [](const Vertex& each, const PL_PNT2D_record& q) { return comes_before(each.at, q); });
    if (vertex != by_place_.end() && same_place(vertex->at, p))
        return known(vertex->height);

    const Side* nearest = nullptr;
    Foot foot = {0.0, reach_};
    sides_.near(Reach({p.x - reach_, p.y}, {p.x + reach_, p.y}), foot.distance, [&](const Side& side) {
        const Foot next = foot_on(side.from.at, side.to.at, p);
        const bool is_first =
            next.distance == foot.distance && (nearest == nullptr || side.number < nearest->number);
        if (next.distance < foot.distance || is_first) {
            foot = next;
            nearest = &side;
        }
        return true;
    });
    if (nearest == nullptr)
        return std::nullopt;
    // At an end, the other end's height does not matter.
    if (foot.part == 0.0 || foot.part == 1.0)
        return known(foot.part == 0.0 ? nearest->from.height : nearest->to.height);
    return known(nearest->from.height + foot.part * (nearest->to.height - nearest->from.height));
}

Heights::Heights(const Parcel& parcel, const std::vector<double>& heights, const std::optional<int>& decimals,
                 double off_boundary)
    // With make_unique no symbol of the standard library is exported.
    : index_(std::make_unique<const Index>(parcel, heights, decimals, off_boundary))
{}

std::optional<double> Heights::at(const PL_PNT2D_record& p) const
{
    return index_->at(p);
}

}  // namespace plparcel
