#include "lines/round_view.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <set>

#include "lines/ray.h"

namespace plparcel {
namespace {

class RoundSweep {
public:
    RoundSweep(const std::vector<WidePoint>& points, const std::vector<std::size_t>& next,
               const WidePoint& first)
        : points_(points), comes_before_(first), before_(points.size()), row_(IsNearer(spans_, ray_)),
          place_(points.size(), row_.end())
    {
        for (std::size_t k = 0; k < points.size(); ++k) {
            spans_.push_back(span_between(points, k, next[k]));
            before_[next[k]] = k;
        }
    }

    RoundSweep(const RoundSweep&) = delete;
    RoundSweep& operator=(const RoundSweep&) = delete;

    std::vector<Sector> run()
    {
        const std::vector<std::size_t> vertices = in_order();
        ray_ = between(vertices.back(), vertices.front());
        for (std::size_t side = 0; side < spans_.size(); ++side)
            if (!spans_[side].is_radial && comes_before_(spans_[side].end, spans_[side].begin))
                place_[side] = row_.insert(side);
        std::vector<Sector> sectors;
        for (std::size_t i = 0; i < vertices.size();) {
            const WidePoint& direction = points_[vertices[i]];
            std::size_t next = i;
            while (next < vertices.size() && !comes_before_(direction, points_[vertices[next]]))
                ++next;
            pass(vertices, i, next);
            const bool is_new = !row_.empty() && (sectors.empty() || sectors.back().side != *row_.begin());
            if (is_new)
                sectors.push_back({direction, *row_.begin()});
            i = next;
        }
        return sectors;
    }

private:
    using Row = std::multiset<std::size_t, IsNearer>;

    std::vector<std::size_t> in_order() const
    {
        std::vector<std::size_t> vertices(points_.size());
        std::iota(vertices.begin(), vertices.end(), std::size_t{0});
        std::stable_sort(vertices.begin(), vertices.end(), [this](std::size_t a, std::size_t b) {
            return comes_before_(points_[a], points_[b]);
        });
        return vertices;
    }

    WidePoint between(std::size_t one, std::size_t other) const
    {
        return about_unit(points_[one]) + about_unit(points_[other]);
    }

    std::array<std::size_t, 2> sides_at(std::size_t vertex) const { return {before_[vertex], vertex}; }

    // The vertices of one direction: sides that end there, and then those that begin there. The ray goes on to half-way
    // to the next direction.
    void pass(const std::vector<std::size_t>& vertices, std::size_t from, std::size_t to)
    {
        for (std::size_t i = from; i < to; ++i)
            for (const std::size_t side : sides_at(vertices[i]))
                if (spans_[side].end_vertex == vertices[i] && place_[side] != row_.end()) {
                    row_.erase(place_[side]);
                    place_[side] = row_.end();
                }
        ray_ = between(vertices[from], vertices[to % vertices.size()]);
        for (std::size_t i = from; i < to; ++i)
            for (const std::size_t side : sides_at(vertices[i]))
                if (!spans_[side].is_radial && spans_[side].begin_vertex == vertices[i])
                    place_[side] = row_.insert(side);
    }

    const std::vector<WidePoint>& points_;
    ComesBefore comes_before_;
    std::vector<std::size_t> before_;  // of each vertex: the side that ends there
    std::vector<Span> spans_;
    WidePoint ray_;  // at which the row is in order
    Row row_;        // the sides that the ray meets, the nearest first
    std::vector<Row::iterator> place_;
};

}  // namespace

std::vector<Sector> seen_all_round(const std::vector<WidePoint>& points, const std::vector<std::size_t>& next,
                                   const WidePoint& first)
{
    return RoundSweep(points, next, first).run();
}

}  // namespace plparcel
