#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>
#include <tuple>
#include <utility>

#include "boundary/box_tree.h"
#include "boundary/measured_ring.h"
#include "boundary/meeting_sides.h"
#include "numbers/wide.h"
#include "plparcel/neighbours.h"

namespace plparcel {
namespace {

// Products of four coordinates stay finite.
constexpr double kFarthest = 1e90;

// Coordinates that differ by so many spacings of doubles may be the same, rounded in two ways.
constexpr double kSpacings = 4.0;
constexpr double kSpacing = 0x1p-52;

bool is_usable(const PL_PNT2D_record& p)
{
    return std::fabs(p.x) <= kFarthest && std::fabs(p.y) <= kFarthest;
}

bool has_length(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return std::fmax(std::fabs(b.x - a.x), std::fabs(b.y - a.y)) > 1.0 / kFarthest;
}

double largest(const PL_PNT2D_record& p)
{
    return std::fmax(std::fabs(p.x), std::fabs(p.y));
}

// A point on a divided side: one that a division has put there, or a vertex of a neighbour.
struct Node {
    PL_PNT2D_record at;
    bool is_new;             // a division has put it there
    bool is_vertex = false;  // a parcel of the layer has it already
};

// A divided side. Its nodes are a range in the list of all, in the order from a to b.
struct Side {
    PL_PNT2D_record a;
    PL_PNT2D_record b;
    std::size_t first;
    std::size_t last;

    double length() const
    {
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        return std::sqrt(dx * dx + dy * dy);
    }

    // Of the foot of a point, from a.
    double along(const PL_PNT2D_record& p) const
    {
        return ((p.x - a.x) * (b.x - a.x) + (p.y - a.y) * (b.y - a.y)) / length();
    }

    // How far a point lies off the side, positive on the left.
    double off(const PL_PNT2D_record& p) const
    {
        return ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x)) / length();
    }

    double reach(double within) const
    {
        return std::fmax(within, kSpacings * kSpacing * std::fmax(largest(a), largest(b)));
    }
};

bool is_same_side(const Segment& a, const Segment& b)
{
    return same_place(a.from, b.from) && same_place(a.to, b.to);
}

// Sides and points in one order: those of one side follow one another, whichever way they run.
bool comes_before(const NewPoint& p, const NewPoint& q)
{
    if (!same_place(p.side.from, q.side.from))
        return plparcel::comes_before(p.side.from, q.side.from);
    if (!same_place(p.side.to, q.side.to))
        return plparcel::comes_before(p.side.to, q.side.to);
    const Side side = {p.side.from, p.side.to, 0, 0};
    const double along_p = side.along(p.at);
    const double along_q = side.along(q.at);
    return along_p < along_q || (!(along_q < along_p) && plparcel::comes_before(p.at, q.at));
}

// From its western end.
NewPoint turned_east(NewPoint point)
{
    if (plparcel::comes_before(point.side.to, point.side.from))
        std::swap(point.side.from, point.side.to);
    return point;
}

}  // namespace

class SharedSides::Index {
public:
    Index(std::vector<NewPoint> points, double within)
        : within_(std::fmax(within, 0.0)), tree_(sides_of(std::move(points)), BoxOfSide{this})
    {
        note_each_other();
    }

    // Notes the vertices of a ring on divided sides.
    void note(const Ring& ring)
    {
        for (std::size_t i = 0; i < ring.size(); ++i)
            note_side(ring[i], around(ring, i + 1), kNoSide);
    }

    // Puts what was noted between the points.
    void settle();

    // What has been inserted in one ring, and what has not.
    struct Inserted {
        Ring ring;
        Ring existing;
        std::vector<std::pair<PL_PNT2D_record, double>>
            beside;  // points, and how far they are from their vertices
    };

    Inserted with_points(const Ring& ring) const;

private:
    static constexpr std::size_t kNoSide = static_cast<std::size_t>(-1);

    struct BoxOfSide {
        const Index* index;
        Box operator()(std::size_t i) const { return index->box(index->sides_[i]); }
    };

    // A part of a divided side, from its a.
    struct Part {
        double begin;
        double end;
    };

    // A node that was noted for a side.
    struct Noted {
        std::size_t side;
        Node node;
    };

    // A segment of a ring while points are looked for on it.
    struct Wanted {
        PL_PNT2D_record from;
        PL_PNT2D_record to;
        std::vector<Node> points = {};
        bool is_exact = false;          // its ends are nodes of a divided side
        bool from_is_existing = false;  // its first end is a corner of a neighbour there
        std::size_t sides = 0;          // how many divided sides have given points
    };

    std::vector<std::size_t> sides_of(std::vector<NewPoint> points);
    Box box(const Side& side) const;
    void note_each_other();
    void note_side(const PL_PNT2D_record& c, const PL_PNT2D_record& d, std::size_t not_for);
    void note_node(std::size_t side, const Node& node);
    std::optional<Part> part_beside(const Side& side, const PL_PNT2D_record& c,
                                    const PL_PNT2D_record& d) const;
    std::size_t first_from(const Side& side, double along) const;
    std::optional<std::size_t> rank_of(const Side& side, const PL_PNT2D_record& p) const;
    void take_between(const Side& side, std::size_t from, std::size_t to, Wanted& wanted) const;
    void take_along(const Side& side, Wanted& wanted, Inserted& inserted) const;
    void note_beside(const Side& side, const PL_PNT2D_record& vertex, Inserted& inserted) const;

    template <class Note>
    void near(const PL_PNT2D_record& c, const PL_PNT2D_record& d, const Note& note) const
    {
        if (!is_usable(c) || !is_usable(d) || !has_length(c, d))
            return;
        const double spacing = kSpacing * std::fmax(largest(c), largest(d));
        const double distance = 2.0 * std::fmax(within_, kSpacings * spacing);
        tree_.near(Reach(c, d), distance, [&](std::size_t side) {
            note(side);
            return true;
        });
    }

    double within_;
    std::vector<Side> sides_;
    std::vector<Node> nodes_;
    std::vector<Noted> noted_;
    BoxTree<std::size_t, BoxOfSide> tree_;  // of the sides, by index
};

std::vector<std::size_t> SharedSides::Index::sides_of(std::vector<NewPoint> points)
{
    const auto is_lost = [](const NewPoint& p) {
        return !is_usable(p.at) || !is_usable(p.side.from) || !is_usable(p.side.to) ||
               !has_length(p.side.from, p.side.to);
    };
    points.erase(std::remove_if(points.begin(), points.end(), is_lost), points.end());
    std::transform(points.begin(), points.end(), points.begin(), turned_east);
    std::sort(points.begin(), points.end(),
              [](const NewPoint& p, const NewPoint& q) { return comes_before(p, q); });
    std::vector<std::size_t> indices;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const bool same_side = i > 0 && is_same_side(points[i - 1].side, points[i].side);
        if (!same_side) {
            indices.push_back(sides_.size());
            sides_.push_back({points[i].side.from, points[i].side.to, nodes_.size(), nodes_.size()});
        }
        if (same_side && same_place(points[i - 1].at, points[i].at))
            continue;
        nodes_.push_back({points[i].at, true});
        sides_.back().last = nodes_.size();
    }
    return indices;
}

Box SharedSides::Index::box(const Side& side) const
{
    Box box = box_of(side.a, side.b);
    for (std::size_t i = side.first; i < side.last; ++i)
        box = both(box, {nodes_[i].at, nodes_[i].at});
    return box;
}

// The part of a divided side along which a segment lies; nothing where it is too far away or too short to tell.
std::optional<SharedSides::Index::Part>
SharedSides::Index::part_beside(const Side& side, const PL_PNT2D_record& c, const PL_PNT2D_record& d) const
{
    const double reach = side.reach(within_);
    const double along_c = side.along(c);
    const double along_d = side.along(d);
    const Part part = {std::fmax(0.0, std::fmin(along_c, along_d)),
                       std::fmin(side.length(), std::fmax(along_c, along_d))};
    if (!(part.end - part.begin > reach))
        return std::nullopt;
    const double off_c = side.off(c);
    const double slope = (side.off(d) - off_c) / (along_d - along_c);
    for (const double at : {part.begin, part.end})
        if (!(std::fabs(off_c + slope * (at - along_c)) <= reach))
            return std::nullopt;
    return part;
}

// The first node at that distance along the side or behind it.
std::size_t SharedSides::Index::first_from(const Side& side, double along) const
{
    const auto at = [this](std::size_t i) { return nodes_.begin() + static_cast<std::ptrdiff_t>(i); };
    const auto found =
        std::lower_bound(at(side.first), at(side.last), along,
                         [&](const Node& node, double value) { return side.along(node.at) < value; });
    return static_cast<std::size_t>(found - nodes_.begin());
}

// Where a point stands in the row of the side's nodes: 0 for a, then the nodes, then b.
std::optional<std::size_t> SharedSides::Index::rank_of(const Side& side, const PL_PNT2D_record& p) const
{
    if (same_place(p, side.a))
        return 0;
    if (same_place(p, side.b))
        return side.last - side.first + 1;
    const double along = side.along(p);
    for (std::size_t i = first_from(side, along); i < side.last && !(side.along(nodes_[i].at) > along); ++i)
        if (same_place(nodes_[i].at, p))
            return i - side.first + 1;
    return std::nullopt;
}

void SharedSides::Index::note_node(std::size_t side, const Node& node)
{
    const Side& on = sides_[side];
    const double reach = on.reach(within_);
    const double along = on.along(node.at);
    if (!(along > reach && along < on.length() - reach))
        return;
    if (const std::optional<std::size_t> rank = rank_of(on, node.at)) {
        Node& known = nodes_[on.first + *rank - 1];
        known.is_vertex = known.is_vertex || node.is_vertex;
        return;
    }
    // A vertex that near to a point is beside it. Two points are two, however near.
    const std::size_t next = first_from(on, along - reach);
    if (!node.is_new && next < on.last && on.along(nodes_[next].at) <= along + reach)
        return;
    noted_.push_back({side, node});
}

void SharedSides::Index::note_side(const PL_PNT2D_record& c, const PL_PNT2D_record& d, std::size_t not_for)
{
    near(c, d, [&](std::size_t side) {
        if (side == not_for || !part_beside(sides_[side], c, d))
            return;
        note_node(side, {c, false, true});
        note_node(side, {d, false, true});
    });
}

// Divided sides that lie along each other have each other's points.
void SharedSides::Index::note_each_other()
{
    for (std::size_t i = 0; i < sides_.size(); ++i) {
        const Side& side = sides_[i];
        near(side.a, side.b, [&](std::size_t other) {
            const std::optional<Part> part =
                other == i ? std::nullopt : part_beside(side, sides_[other].a, sides_[other].b);
            if (!part)
                return;
            for (std::size_t k = sides_[other].first; k < sides_[other].last; ++k)
                note_node(i, nodes_[k]);
        });
        note_side(side.a, side.b, i);
    }
    settle();
}

void SharedSides::Index::settle()
{
    const auto key = [&](const Noted& noted) {
        const PL_PNT2D_record& p = noted.node.at;
        return std::make_tuple(noted.side, sides_[noted.side].along(p), p.x, p.y, !noted.node.is_new);
    };
    std::sort(noted_.begin(), noted_.end(),
              [&](const Noted& one, const Noted& other) { return key(one) < key(other); });
    std::vector<Node> all;
    all.reserve(nodes_.size() + noted_.size());
    auto noted = noted_.begin();
    for (std::size_t i = 0; i < sides_.size(); ++i) {
        Side& side = sides_[i];
        const std::size_t first = all.size();
        const auto put = [&](const Node& node) {
            if (all.size() == first || !same_place(all.back().at, node.at))
                all.push_back(node);
            else
                all.back().is_vertex = all.back().is_vertex || node.is_vertex;
        };
        for (std::size_t k = side.first; k < side.last; ++k) {
            const double along = side.along(nodes_[k].at);
            for (; noted != noted_.end() && noted->side == i && side.along(noted->node.at) < along; ++noted)
                put(noted->node);
            put(nodes_[k]);
        }
        for (; noted != noted_.end() && noted->side == i; ++noted)
            put(noted->node);
        side.first = first;
        side.last = all.size();
    }
    nodes_ = std::move(all);
    noted_ = {};
}

// The nodes between two ranks.
void SharedSides::Index::take_between(const Side& side, std::size_t from, std::size_t to,
                                      Wanted& wanted) const
{
    if (!wanted.is_exact)
        wanted.points.clear();
    wanted.sides = wanted.is_exact ? wanted.sides : 0;
    wanted.is_exact = true;
    const std::size_t low = std::min(from, to);
    const std::size_t high = std::max(from, to);
    std::vector<Node> between;
    for (std::size_t rank = low + 1; rank < high; ++rank)
        between.push_back(nodes_[side.first + rank - 1]);
    if (from > to)
        std::reverse(between.begin(), between.end());
    wanted.sides += between.empty() ? 0 : 1;
    wanted.points.insert(wanted.points.end(), between.begin(), between.end());
}

// The nodes along which a segment runs that does not end at nodes.
void SharedSides::Index::take_along(const Side& side, Wanted& wanted, Inserted& inserted) const
{
    const std::optional<Part> part = part_beside(side, wanted.from, wanted.to);
    if (!part)
        return;
    const double reach = side.reach(within_);
    const bool forwards = side.along(wanted.from) < side.along(wanted.to);
    const PL_PNT2D_record& low = forwards ? wanted.from : wanted.to;
    const PL_PNT2D_record& high = forwards ? wanted.to : wanted.from;
    // A vertex that is a node itself has its place in their row.
    const double begin = side.along(low) + (rank_of(side, low) ? 0.0 : reach);
    const double end = side.along(high) - (rank_of(side, high) ? 0.0 : reach);
    std::vector<Node> between;
    bool has_new = false;
    if (begin < 0.0)
        between.push_back({side.a, false, true});
    for (std::size_t i = first_from(side, begin); i < side.last && side.along(nodes_[i].at) < end; ++i) {
        if (!(side.along(nodes_[i].at) > begin))
            continue;
        between.push_back(nodes_[i]);
        has_new = has_new || nodes_[i].is_new;
    }
    if (side.length() < end)
        between.push_back({side.b, false, true});
    if (!rank_of(side, low))
        note_beside(side, low, inserted);
    if (!rank_of(side, high))
        note_beside(side, high, inserted);
    if (!has_new)
        return;
    if (!forwards)
        std::reverse(between.begin(), between.end());
    ++wanted.sides;
    wanted.points.insert(wanted.points.end(), between.begin(), between.end());
}

void SharedSides::Index::note_beside(const Side& side, const PL_PNT2D_record& vertex,
                                     Inserted& inserted) const
{
    const double reach = side.reach(within_);
    const double along = side.along(vertex);
    for (std::size_t i = first_from(side, along - reach);
         i < side.last && side.along(nodes_[i].at) <= along + reach; ++i)
        if (nodes_[i].is_new)
            inserted.beside.emplace_back(nodes_[i].at, std::fabs(side.along(nodes_[i].at) - along));
}

SharedSides::Index::Inserted SharedSides::Index::with_points(const Ring& ring) const
{
    Inserted inserted;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        Wanted wanted = {ring[i], around(ring, i + 1)};
        near(wanted.from, wanted.to, [&](std::size_t number) {
            const Side& side = sides_[number];
            const std::optional<std::size_t> from = rank_of(side, wanted.from);
            const std::optional<std::size_t> to = rank_of(side, wanted.to);
            if (from && *from > 0 && *from <= side.last - side.first)
                wanted.from_is_existing = wanted.from_is_existing || nodes_[side.first + *from - 1].is_vertex;
            if (from && to)
                take_between(side, *from, *to, wanted);
            else if (!wanted.is_exact)
                take_along(side, wanted, inserted);
        });
        if (wanted.sides > 1) {
            const Side run = {wanted.from, wanted.to, 0, 0};
            // Of two nodes in one place the one that is a vertex comes first, and stays.
            const auto key = [&](const Node& node) {
                return std::make_tuple(run.along(node.at), node.at.x, node.at.y, !node.is_vertex);
            };
            std::sort(wanted.points.begin(), wanted.points.end(),
                      [&](const Node& p, const Node& q) { return key(p) < key(q); });
            wanted.points.erase(
                std::unique(wanted.points.begin(), wanted.points.end(),
                            [](const Node& p, const Node& q) { return same_place(p.at, q.at); }),
                wanted.points.end());
        }
        inserted.ring.push_back(ring[i]);
        if (wanted.from_is_existing)
            inserted.existing.push_back(ring[i]);
        for (const Node& point : wanted.points) {
            inserted.ring.push_back(point.at);
            if (point.is_vertex)
                inserted.existing.push_back(point.at);
        }
    }
    return inserted;
}

SharedSides::SharedSides(std::vector<NewPoint> points, double within,
                         const std::function<void(const Take& take)>& layer)
{
    auto index = std::make_unique<Index>(std::move(points), within);
    if (layer) {
        layer([&](const Parcel& parcel) {
            index->note(parcel.outer);
            for (const Ring& hole : parcel.holes)
                index->note(hole);
        });
        index->settle();
    }
    index_ = std::move(index);  // no symbol of the standard library is exported
}

namespace {

// How many points lie beside vertices, each once, without those that are vertices of the parcel after all.
template <class Points> void count_beside(Points beside, const Parcel& parcel, WithPoints& with)
{
    if (beside.empty())
        return;
    Ring vertices = parcel.outer;
    for (const Ring& hole : parcel.holes)
        vertices.insert(vertices.end(), hole.begin(), hole.end());
    std::sort(vertices.begin(), vertices.end(), plparcel::comes_before);
    std::sort(beside.begin(), beside.end(), [](const auto& a, const auto& b) {
        return plparcel::comes_before(a.first, b.first) ||
               (same_place(a.first, b.first) && a.second < b.second);
    });
    for (std::size_t i = 0; i < beside.size(); ++i) {
        const bool repeated = i > 0 && same_place(beside[i - 1].first, beside[i].first);
        if (repeated ||
            std::binary_search(vertices.begin(), vertices.end(), beside[i].first, plparcel::comes_before))
            continue;
        ++with.beside;
        with.farthest_beside = std::fmax(with.farthest_beside, beside[i].second);
    }
}

Wide area_of(const Parcel& parcel)
{
    Wide area = MeasuredRing(parcel.outer).area();
    for (const Ring& hole : parcel.holes)
        area = area - MeasuredRing(hole).area();
    return area;
}

}  // namespace

WithPoints SharedSides::with_points(const Parcel& parcel) const
{
    WithPoints with;
    std::vector<std::pair<PL_PNT2D_record, double>> beside;
    const auto insert = [&](const Ring& ring) {
        Index::Inserted inserted = index_->with_points(ring);
        with.inserted += inserted.ring.size() - ring.size();
        with.existing.insert(with.existing.end(), inserted.existing.begin(), inserted.existing.end());
        std::move(inserted.beside.begin(), inserted.beside.end(), std::back_inserter(beside));
        return std::move(inserted.ring);
    };
    with.parcel.outer = insert(parcel.outer);
    for (const Ring& hole : parcel.holes)
        with.parcel.holes.push_back(insert(hole));
    count_beside(std::move(beside), with.parcel, with);
    if (with.inserted == 0)
        return with;
    with.left_out = check_parcel(parcel).status == BoundaryStatus::usable &&
                    check_parcel(with.parcel).status != BoundaryStatus::usable;
    if (with.left_out) {
        with.parcel = parcel;
        with.inserted = 0;
        with.existing.clear();
        return with;
    }
    with.area_change = (area_of(with.parcel) - area_of(parcel)).value();
    return with;
}

}  // namespace plparcel
