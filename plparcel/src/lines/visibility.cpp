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
        start();
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

    std::vector<SeenPart> all_parts(const Wide& reach)
    {
        const std::vector<std::size_t> vertices = around_the_vertex();
        std::vector<Direction> directions;
        std::vector<std::size_t> sides;  // seen from each direction on
        std::size_t side = 1;
        start();
        for (std::size_t i = 0; i < vertices.size();) {
            Direction direction = {points_[vertices[i]], vertices[i], {}};
            std::size_t next = i;
            for (; next < vertices.size() && !comes_before_(direction.towards, points_[vertices[next]]);
                 ++next)
                if (distance_to(vertices[next]) < distance_to(direction.nearest))
                    direction.nearest = vertices[next];
            pass(vertices, i, next);
            directions.push_back(direction);
            // In the last direction nothing is. Between the others only rounding could say so: then what was seen stands.
            if (!row_.empty())
                side = *row_.begin();
            sides.push_back(side);
            i = next;
        }
        clear_ways(directions, reach);
        std::vector<SeenPart> parts;
        for (std::size_t i = 0; i + 1 < directions.size(); ++i) {
            const Sight end = sight_of(sides[i], directions[i + 1]);
            const bool end_is_clear = is_clear(sides[i], directions[i + 1], reach);
            if (i > 0 && sides[i - 1] == sides[i]) {
                parts.back().end = end;
                parts.back().end_is_clear = end_is_clear;
            } else {
                parts.push_back({sight_of(sides[i], directions[i]), end,
                                 is_clear(sides[i], directions[i], reach), end_is_clear});
            }
        }
        return parts;
    }

private:
    // A direction in which vertices lie.
    struct Direction {
        WidePoint towards;
        std::size_t nearest;
        Wide clear;  // so far a line in that direction meets no vertex
    };

    Wide distance_to(std::size_t vertex) const { return length_of(points_[vertex]); }
    static Wide length_of(const WidePoint& v) { return sqrt(dot(v, v)); }

    // How far a vertex lies off the line in a direction.
    Wide off(std::size_t vertex, const WidePoint& direction) const
    {
        return abs(cross(direction, points_[vertex])) / length_of(direction);
    }

    // Directions so near each other that a line in one of them touches the vertices of the next count as one.
    void clear_ways(std::vector<Direction>& directions, const Wide& reach) const
    {
        const auto is_beside = [&](const Direction& a, const Direction& b) {
            return dot(a.towards, b.towards) > 0.0 &&
                   (!(off(a.nearest, b.towards) > reach) || !(off(b.nearest, a.towards) > reach));
        };
        for (std::size_t i = 0; i < directions.size();) {
            std::size_t end = i + 1;
            Wide nearest = distance_to(directions[i].nearest);
            for (; end < directions.size() && is_beside(directions[end - 1], directions[end]); ++end)
                if (distance_to(directions[end].nearest) < nearest)
                    nearest = distance_to(directions[end].nearest);
            for (; i < end; ++i)
                directions[i].clear = nearest;
        }
    }

    // Where a line in a direction meets a side.
    Sight sight_of(std::size_t side, const Direction& direction) const
    {
        const Wide off_a = cross(direction.towards, points_[side]);
        const Wide off_b = cross(direction.towards, points_[side + 1]);
        if (direction.nearest == side)
            return {side, 0.0};
        if (direction.nearest == side + 1)
            return {side, 1.0};
        const Wide part = off_a / (off_a - off_b);
        return {side, std::clamp(part, Wide(0.0), Wide(1.0))};
    }

    bool is_clear(std::size_t side, const Direction& direction, const Wide& reach) const
    {
        const Sight sight = sight_of(side, direction);
        const WidePoint& a = points_[side];
        return !(length_of(a + (points_[side + 1] - a) * sight.part) - direction.clear > reach);
    }

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
    void start()
    {
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

std::vector<SeenPart> all_seen_from(const LocalRing& ring, double turn, std::size_t vertex, const Wide& reach)
{
    return RaySweep(ring, turn, vertex).all_parts(reach);
}

}  // namespace plparcel
