#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

#include "asking/divided_sides.h"
#include "boundary/measured_ring.h"
#include "boundary/meeting_sides.h"
#include "numbers/wide.h"
#include "plparcel/neighbours.h"

namespace plparcel {
namespace {

// What has been inserted in one ring, and what has not.
struct Inserted {
    Ring ring;
    Ring existing;
    std::vector<std::pair<PL_PNT2D_record, double>>
        beside;  // points, and how far they are from their vertices
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

// Inserts points in one ring after another.
class Insertion {
public:
    explicit Insertion(const DividedSides& sides) : look_(sides) {}

    Inserted with_points(const Ring& ring);

private:
    void take(const DividedSide& side, Wanted& wanted, Inserted& inserted);
    void take_between(const DividedSide& side, std::size_t from, std::size_t to, Wanted& wanted);
    void take_along(const DividedSide& side, Wanted& wanted, Inserted& inserted);
    void note_beside(const DividedSide& side, const PL_PNT2D_record& vertex, Inserted& inserted);

    DividedSides::Look look_;
};

// The nodes between two ranks.
void Insertion::take_between(const DividedSide& side, std::size_t from, std::size_t to, Wanted& wanted)
{
    if (!wanted.is_exact)
        wanted.points.clear();
    wanted.sides = wanted.is_exact ? wanted.sides : 0;
    wanted.is_exact = true;
    const std::size_t low = std::min(from, to);
    const std::size_t high = std::max(from, to);
    std::vector<Node> between;
    for (std::size_t rank = low + 1; rank < high; ++rank)
        between.push_back(look_.node(side.first + rank - 1));
    if (from > to)
        std::reverse(between.begin(), between.end());
    wanted.sides += between.empty() ? 0 : 1;
    wanted.points.insert(wanted.points.end(), between.begin(), between.end());
}

// The nodes along which a segment runs that does not end at nodes.
void Insertion::take_along(const DividedSide& side, Wanted& wanted, Inserted& inserted)
{
    if (!look_.part_beside(side, wanted.from, wanted.to))
        return;
    const double reach = look_.reach(side);
    const bool forwards = side.along(wanted.from) < side.along(wanted.to);
    const PL_PNT2D_record& low = forwards ? wanted.from : wanted.to;
    const PL_PNT2D_record& high = forwards ? wanted.to : wanted.from;
    // A vertex that is a node itself has its place in their row.
    const bool has_low = look_.rank_of(side, low).has_value();
    const bool has_high = look_.rank_of(side, high).has_value();
    if (!has_low)
        note_beside(side, low, inserted);
    if (!has_high)
        note_beside(side, high, inserted);
    if (wanted.is_exact)
        return;
    const double begin = side.along(low) + (has_low ? 0.0 : reach);
    const double end = side.along(high) - (has_high ? 0.0 : reach);
    std::vector<Node> between;
    bool has_new = false;
    if (begin < 0.0)
        between.push_back({side.a, false, true});
    for (std::size_t i = look_.first_from(side, begin); i < side.last; ++i) {
        const Node node = look_.node(i);
        const double along = side.along(node.at);
        if (!(along < end))
            break;
        if (!(along > begin))
            continue;
        between.push_back(node);
        has_new = has_new || node.is_new;
    }
    if (side.length() < end)
        between.push_back({side.b, false, true});
    if (!has_new)
        return;
    if (!forwards)
        std::reverse(between.begin(), between.end());
    ++wanted.sides;
    wanted.points.insert(wanted.points.end(), between.begin(), between.end());
}

void Insertion::note_beside(const DividedSide& side, const PL_PNT2D_record& vertex, Inserted& inserted)
{
    const double reach = look_.reach(side);
    const double along = side.along(vertex);
    for (std::size_t i = look_.first_from(side, along - reach); i < side.last; ++i) {
        const Node node = look_.node(i);
        const double away = side.along(node.at);
        if (!(away <= along + reach))
            break;
        if (node.is_new)
            inserted.beside.emplace_back(node.at, std::fabs(away - along));
    }
}

void Insertion::take(const DividedSide& side, Wanted& wanted, Inserted& inserted)
{
    const std::optional<std::size_t> from = look_.rank_of(side, wanted.from);
    const std::optional<std::size_t> to = look_.rank_of(side, wanted.to);
    if (from && *from > 0 && *from <= side.last - side.first)
        wanted.from_is_existing = wanted.from_is_existing || look_.node(side.first + *from - 1).is_vertex;
    if (from && to)
        take_between(side, *from, *to, wanted);
    else
        take_along(side, wanted, inserted);
}

// In the order from one end to the other, each once. Of two nodes in one place the one that is a vertex stays.
void put_in_order(Wanted& wanted)
{
    const DividedSide run = {wanted.from, wanted.to};
    const auto key = [&](const Node& node) {
        return std::make_tuple(run.along(node.at), node.at.x, node.at.y, !node.is_vertex);
    };
    std::sort(wanted.points.begin(), wanted.points.end(),
              [&](const Node& p, const Node& q) { return key(p) < key(q); });
    wanted.points.erase(std::unique(wanted.points.begin(), wanted.points.end(),
                                    [](const Node& p, const Node& q) { return same_place(p.at, q.at); }),
                        wanted.points.end());
}

Inserted Insertion::with_points(const Ring& ring)
{
    Inserted inserted;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        Wanted wanted = {ring[i], around(ring, i + 1)};
        look_.near(wanted.from, wanted.to,
                   [&](std::size_t, const DividedSide& side) { take(side, wanted, inserted); });
        if (wanted.sides > 1)
            put_in_order(wanted);
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

}  // namespace

// Handed to a shared pointer as a unique one: std::make_shared would export a symbol of the standard library.
class SharedSides::Index {
public:
    Index(std::optional<Scratch> file, const DividedSides::Points& points, double within,
          const std::function<void(const Take& take)>& layer)
        : blocks_(std::move(file)), sides_(blocks_, points, within)
    {
        if (!layer)
            return;
        layer([this](const Parcel& parcel) {
            sides_.note(parcel.outer);
            for (const Ring& hole : parcel.holes)
                sides_.note(hole);
        });
        sides_.settle();
    }

    const DividedSides& sides() const { return sides_; }

private:
    Blocks blocks_;
    DividedSides sides_;
};

SharedSides::SharedSides(std::vector<NewPoint> points, double within,
                         const std::function<void(const Take& take)>& layer)
    : index_(std::make_unique<Index>(
          std::nullopt,
          [&](const TakePoint& take) {
              for (const NewPoint& point : points)
                  take(point);
              points = std::vector<NewPoint>();  // gives its memory back
          },
          within, layer))
{}

SharedSides::SharedSides(std::shared_ptr<const Index> index) : index_(std::move(index))
{}

SharedSides SharedSides::in_file(const Scratch& file,
                                 const std::function<void(const TakePoint& take)>& points, double within,
                                 const std::function<void(const Take& take)>& layer)
{
    return SharedSides(std::make_unique<Index>(file, points, within, layer));
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
    Insertion insertion(index_->sides());
    const auto insert = [&](const Ring& ring) {
        Inserted inserted = insertion.with_points(ring);
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
