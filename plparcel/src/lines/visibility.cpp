#include "lines/visibility.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "lines/ray.h"

namespace plparcel {
namespace {

// Turns a ray around the vertex, from the side after it to the side before it, with the sides that it meets in
// their order: the first one is what is seen.
class RaySweep {
public:
    RaySweep(const LocalRing& ring, double turn, std::size_t vertex)
        : comes_before_(mirrored(ring, turn, vertex, 1)), row_(IsNearer(spans_, ray_))
    {
        for (std::size_t k = 0; k < ring.size(); ++k)
            points_.push_back(mirrored(ring, turn, vertex, k));
        spans_.resize(points_.size());
        for (std::size_t k = 1; k + 1 < points_.size(); ++k)
            spans_[k] = span_between(points_, k, k + 1);
        place_.assign(points_.size(), row_.end());
    }

    RaySweep(const RaySweep&) = delete;
    RaySweep& operator=(const RaySweep&) = delete;

    std::vector<bool> run(const std::vector<Sight>& places)
    {
        places_ = &places;
        seen_.assign(places.size(), false);
        const std::vector<std::size_t> vertices = around_the_vertex();
        const std::vector<std::size_t> looks = in_order(places);
        start(vertices);
        std::size_t look = 0;
        for (std::size_t i = 0; i < vertices.size();) {
            const WidePoint& direction = points_[vertices[i]];
            std::size_t next = i;
            while (next < vertices.size() && !comes_before_(direction, points_[vertices[next]]))
                ++next;
            while (look < looks.size() && comes_before_(point_of(looks[look]), direction))
                note(looks[look++]);
            std::size_t same = look;
            while (same < looks.size() && !comes_before_(direction, point_of(looks[same])))
                note(looks[same++]);
            pass(vertices, i, next);
            for (; look < same; ++look)
                note(looks[look]);
            i = next;
        }
        return seen_;
    }

private:
    using Row = std::multiset<std::size_t, IsNearer>;

    // A vertex seen from the one that looks; a clockwise ring is mirrored, so that every ring runs anticlockwise.
    static WidePoint mirrored(const LocalRing& ring, double turn, std::size_t vertex, std::size_t k)
    {
        const WidePoint d = ring.at(vertex + k) - ring.at(vertex);
        return {turn < 0.0 ? -d.x : d.x, d.y};
    }

    // The vertices within the parcel's angle, in the order in which the ray comes to them.
    std::vector<std::size_t> around_the_vertex() const
    {
        std::vector<std::size_t> vertices;
        for (std::size_t k = 1; k < points_.size(); ++k)
            if (!comes_before_(points_.back(), points_[k]))
                vertices.push_back(k);
        std::stable_sort(vertices.begin(), vertices.end(), [this](std::size_t a, std::size_t b) {
            return comes_before_(points_[a], points_[b]);
        });
        return vertices;
    }

    WidePoint point_of(std::size_t place) const
    {
        const Sight& sight = (*places_)[place];
        if (is_vertex(sight))
            return points_[vertex_of(sight)];
        const WidePoint& a = points_[sight.side];
        return a + (points_[sight.side + 1] - a) * sight.part;
    }

    static bool is_vertex(const Sight& sight) { return !(sight.part > 0.0) || !(sight.part < 1.0); }
    static std::size_t vertex_of(const Sight& sight)
    {
        return sight.part > 0.0 ? sight.side + 1 : sight.side;
    }

    std::vector<std::size_t> in_order(const std::vector<Sight>& places) const
    {
        std::vector<WidePoint> points;
        points.reserve(places.size());
        for (std::size_t i = 0; i < places.size(); ++i)
            points.push_back(point_of(i));
        std::vector<std::size_t> order(places.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(),
                         [&](std::size_t a, std::size_t b) { return comes_before_(points[a], points[b]); });
        return order;
    }

    // The sides that lie across the first direction.
    void start(const std::vector<std::size_t>& vertices)
    {
        turn_to(vertices, 0, 0);
        ray_ = points_[1];
        for (std::size_t k = 1; k + 1 < points_.size(); ++k)
            if (!spans_[k].is_radial && comes_before_(spans_[k].end, spans_[k].begin))
                place_[k] = row_.insert(k);
    }

    // The ray goes on to half-way between two directions.
    void turn_to(const std::vector<std::size_t>& vertices, std::size_t from, std::size_t to)
    {
        ray_ = about_unit(points_[vertices[from]]);
        if (to < vertices.size())
            ray_ = ray_ + about_unit(points_[vertices[to]]);
    }

    // The vertices of one direction: sides that end there, and then those that begin there.
    void pass(const std::vector<std::size_t>& vertices, std::size_t from, std::size_t to)
    {
        for (std::size_t i = from; i < to; ++i)
            for (const std::size_t side : {vertices[i] - 1, vertices[i]})
                if (is_side(side) && spans_[side].end_vertex == vertices[i])
                    leave(side);
        turn_to(vertices, from, to);
        for (std::size_t i = from; i < to; ++i)
            for (const std::size_t side : {vertices[i] - 1, vertices[i]})
                if (is_side(side) && spans_[side].begin_vertex == vertices[i])
                    place_[side] = row_.insert(side);
    }

    bool is_side(std::size_t side) const
    {
        return side > 0 && side + 1 < points_.size() && !spans_[side].is_radial;
    }

    void leave(std::size_t side)
    {
        // In the row it is, unless rounding should order three directions in a circle.
        if (place_[side] != row_.end())
            row_.erase(place_[side]);
    }

    // A place is seen when the first side that the ray meets is its own; a vertex, when it is one of its two.
    void note(std::size_t place)
    {
        const Sight& sight = (*places_)[place];
        if (row_.empty())
            return;
        const std::size_t first = *row_.begin();
        const std::size_t vertex = vertex_of(sight);
        const bool seen = is_vertex(sight) ? first == vertex || first + 1 == vertex : first == sight.side;
        seen_[place] = seen_[place] || seen;
    }

    std::vector<WidePoint> points_;  // from the vertex that looks, which is the first
    std::vector<Span> spans_;        // of the sides 1 to size - 2, which do not begin or end at that vertex
    ComesBefore comes_before_;
    WidePoint ray_;  // at which the row is in order
    Row row_;        // the sides that the ray meets, the nearest first
    std::vector<Row::iterator> place_;
    const std::vector<Sight>* places_ = nullptr;
    std::vector<bool> seen_;
};

}  // namespace

std::vector<bool> seen_from(const LocalRing& ring, double turn, std::size_t vertex,
                            const std::vector<Sight>& places)
{
    return RaySweep(ring, turn, vertex).run(places);
}

}  // namespace plparcel
