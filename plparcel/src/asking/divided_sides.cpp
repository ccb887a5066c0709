#include "asking/divided_sides.h"

#include <cmath>
#include <cstring>
#include <tuple>
#include <utility>

#include "boundary/measured_ring.h"
#include "boundary/meeting_sides.h"

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

bool is_lost(const NewPoint& p)
{
    return !is_usable(p.at) || !is_usable(p.side.from) || !is_usable(p.side.to) ||
           !has_length(p.side.from, p.side.to);
}

double largest(const PL_PNT2D_record& p)
{
    return std::fmax(std::fabs(p.x), std::fabs(p.y));
}

// Both zeros have the same bits.
std::uint64_t bits_of(double number)
{
    const double value = number + 0.0;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

// Below zero where a comes before b in the order of ever smaller quarters of the plane: the highest bit decides in which
// they differ, of East or North. What follows one another in it lies near each other, though negative numbers run the
// other way.
int quarters_order(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    const std::uint64_t x = bits_of(a.x) ^ bits_of(b.x);
    const std::uint64_t y = bits_of(a.y) ^ bits_of(b.y);
    if (x == 0 && y == 0)
        return 0;
    const bool by_y = x < y && x < (x ^ y);  // the highest bit of y is above that of x
    return (by_y ? bits_of(a.y) < bits_of(b.y) : bits_of(a.x) < bits_of(b.x)) ? -1 : 1;
}

PL_PNT2D_record middle(const Segment& side)
{
    return plparcel::middle(box_of(side.from, side.to));
}

bool is_same_side(const Segment& a, const Segment& b)
{
    return same_place(a.from, b.from) && same_place(a.to, b.to);
}

// From its western end.
NewPoint turned_east(NewPoint point)
{
    if (comes_before(point.side.to, point.side.from))
        std::swap(point.side.from, point.side.to);
    return point;
}

}  // namespace

double DividedSide::length() const
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    return std::sqrt(dx * dx + dy * dy);
}

double DividedSide::along(const PL_PNT2D_record& p) const
{
    return ((p.x - a.x) * (b.x - a.x) + (p.y - a.y) * (b.y - a.y)) / length();
}

double DividedSide::off(const PL_PNT2D_record& p) const
{
    return ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x)) / length();
}

double DividedSide::reach(double within) const
{
    return std::fmax(within, kSpacings * kSpacing * std::fmax(largest(a), largest(b)));
}

// Those of one side follow one another, whichever way they run.
bool DividedSides::PointsByPlace::operator()(const NewPoint& p, const NewPoint& q) const
{
    const int order = quarters_order(middle(p.side), middle(q.side));
    if (order != 0)
        return order < 0;
    if (!same_place(p.side.from, q.side.from))
        return comes_before(p.side.from, q.side.from);
    if (!same_place(p.side.to, q.side.to))
        return comes_before(p.side.to, q.side.to);
    const DividedSide side = {p.side.from, p.side.to};
    const double along_p = side.along(p.at);
    const double along_q = side.along(q.at);
    return along_p < along_q || (!(along_q < along_p) && comes_before(p.at, q.at));
}

bool DividedSides::NotedBySide::operator()(const Noted& p, const Noted& q) const
{
    const auto key = [](const Noted& noted) {
        return std::make_tuple(noted.side, noted.along, noted.at.x, noted.at.y, noted.is_new == 0);
    };
    return key(p) < key(q);
}

DividedSides::DividedSides(Blocks& blocks, const Points& points, double within)
    : blocks_(&blocks), within_(std::fmax(within, 0.0)), sides_(blocks), places_(blocks)
{
    gather(points);
    noted_.emplace(blocks);
    note_each_other();
    settle();
}

void DividedSides::gather(const Points& points)
{
    SortedList<NewPoint, PointsByPlace> sorted(*blocks_);
    points([&](const NewPoint& point) {
        if (!is_lost(point))
            sorted.add(turned_east(point));
    });
    DividedSide side = {};
    const auto end_side = [&] {
        side.last = places_.size();
        if (side.first == side.last)
            return;
        sides_.add(side);
        boxes_.add(side.box);
    };
    PL_PNT2D_record last = {};
    for (SortedList<NewPoint, PointsByPlace>::Reader all(sorted); all.front() != nullptr; all.pop()) {
        const NewPoint& point = *all.front();
        const bool same_side = places_.size() > 0 && is_same_side({side.a, side.b}, point.side);
        if (same_side && same_place(last, point.at))
            continue;
        if (!same_side) {
            end_side();
            side = {point.side.from, point.side.to, places_.size(), places_.size(),
                    box_of(point.side.from, point.side.to)};
        }
        side.box = both(side.box, {point.at, point.at});
        last = point.at;
        places_.add(point.at);
    }
    end_side();
    boxes_.finish();
    is_new_.assign(places_.size(), true);
    is_vertex_.assign(places_.size(), false);
}

// How far away from c-d a side may lie that lies along it; nothing where that cannot be computed.
std::optional<double> DividedSides::distance_around(const PL_PNT2D_record& c, const PL_PNT2D_record& d) const
{
    if (!is_usable(c) || !is_usable(d) || !has_length(c, d))
        return std::nullopt;
    const double spacing = kSpacing * std::fmax(largest(c), largest(d));
    return 2.0 * std::fmax(within_, kSpacings * spacing);
}

std::optional<DividedSides::Part> DividedSides::Look::part_beside(const DividedSide& side,
                                                                  const PL_PNT2D_record& c,
                                                                  const PL_PNT2D_record& d) const
{
    const double reach = this->reach(side);
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

std::size_t DividedSides::Look::first_from(const DividedSide& side, double along)
{
    std::size_t begin = side.first;
    std::size_t end = side.last;
    while (begin < end) {
        const std::size_t half = begin + (end - begin) / 2;
        if (side.along(places_.at(half)) < along)
            begin = half + 1;
        else
            end = half;
    }
    return begin;
}

std::optional<std::size_t> DividedSides::Look::rank_of(const DividedSide& side, const PL_PNT2D_record& p)
{
    if (same_place(p, side.a))
        return 0;
    if (same_place(p, side.b))
        return side.last - side.first + 1;
    const double along = side.along(p);
    for (std::size_t i = first_from(side, along); i < side.last; ++i) {
        const PL_PNT2D_record at = places_.at(i);
        if (side.along(at) > along)
            break;
        if (same_place(at, p))
            return i - side.first + 1;
    }
    return std::nullopt;
}

void DividedSides::note(const Ring& ring)
{
    Look look(*this);
    for (std::size_t i = 0; i < ring.size(); ++i)
        note_side(look, ring[i], around(ring, i + 1), kNoSide);
}

void DividedSides::note_node(Look& look, std::size_t number, const DividedSide& on, const Node& node)
{
    const double reach = look.reach(on);
    const double along = on.along(node.at);
    if (!(along > reach && along < on.length() - reach))
        return;
    if (const std::optional<std::size_t> rank = look.rank_of(on, node.at)) {
        const std::size_t known = on.first + *rank - 1;
        is_vertex_[known] = is_vertex_[known] || node.is_vertex;
        return;
    }
    // A vertex that near to a point is beside it. Two points are two, however near.
    const std::size_t next = look.first_from(on, along - reach);
    if (!node.is_new && next < on.last && on.along(look.node(next).at) <= along + reach)
        return;
    noted_->add({number, along, node.at, node.is_new ? 1U : 0U, node.is_vertex ? 1U : 0U});
}

void DividedSides::note_side(Look& look, const PL_PNT2D_record& c, const PL_PNT2D_record& d,
                             std::size_t not_for)
{
    look.near(c, d, [&](std::size_t number, const DividedSide& side) {
        if (number == not_for || !look.part_beside(side, c, d))
            return;
        note_node(look, number, side, {c, false, true});
        note_node(look, number, side, {d, false, true});
    });
}

void DividedSides::note_each_other()
{
    Look look(*this);
    for (std::size_t i = 0; i < sides_.size(); ++i) {
        const DividedSide side = look.side(i);
        look.near(side.a, side.b, [&](std::size_t number, const DividedSide& other) {
            if (number == i || !look.part_beside(side, other.a, other.b))
                return;
            for (std::size_t k = other.first; k < other.last; ++k)
                note_node(look, i, side, look.node(k));
        });
        note_side(look, side.a, side.b, i);
    }
}

void DividedSides::settle()
{
    SortedList<Noted, NotedBySide>::Reader noted(*noted_);
    if (noted.front() == nullptr)
        return;
    Look look(*this);
    KeptList<DividedSide> sides(*blocks_);
    KeptList<PL_PNT2D_record> places(*blocks_);
    std::vector<bool> is_new;
    std::vector<bool> is_vertex;
    PL_PNT2D_record last = {};
    for (std::size_t i = 0; i < sides_.size(); ++i) {
        DividedSide side = look.side(i);
        const std::size_t first = places.size();
        const auto put = [&](const Node& node) {
            if (places.size() > first && same_place(last, node.at)) {
                is_vertex.back() = is_vertex.back() || node.is_vertex;
                return;
            }
            last = node.at;
            places.add(node.at);
            is_new.push_back(node.is_new);
            is_vertex.push_back(node.is_vertex);
        };
        const auto put_noted = [&](double before) {
            for (; noted.front() != nullptr && noted.front()->side == i && noted.front()->along < before;
                 noted.pop())
                put({noted.front()->at, noted.front()->is_new != 0, noted.front()->is_vertex != 0});
        };
        for (std::size_t k = side.first; k < side.last; ++k) {
            const Node node = look.node(k);
            put_noted(side.along(node.at));
            put(node);
        }
        put_noted(HUGE_VAL);
        side.first = first;
        side.last = places.size();
        sides.add(side);
    }
    sides_ = std::move(sides);
    places_ = std::move(places);
    is_new_ = std::move(is_new);
    is_vertex_ = std::move(is_vertex);
    noted_.emplace(*blocks_);
}

}  // namespace plparcel
