#include "plparcel/which_side.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "asking/alongside.h"
#include "boundary/meeting_sides.h"
#include "boundary/ring_check.h"
#include "lines/direction.h"
#include "numbers/wide.h"
#include "plutil/plutil.h"

namespace plparcel {
namespace {

// Beyond that, products of coordinates come near the end of what doubles hold.
constexpr double kFarthest = 1e90;

// Differences of so many spacings of doubles are made by rounding the coordinates.
constexpr double kTieSpacings = 4.0;

// Sides that tie and turn no more than this are one straight side.
constexpr double kStraightGon = 0.01;

constexpr double kQuarterTurnGon = 100.0;

bool is_within_reach(const PL_PNT2D_record& p)
{
    return std::fabs(p.x) <= kFarthest && std::fabs(p.y) <= kFarthest;
}

double at_least_nothing(double tied_within)
{
    return tied_within > 0.0 ? tied_within : 0.0;
}

// A side of the cleaned parcel, or the vertex at which it begins.
struct Item {
    std::size_t ring = 0;
    std::size_t index = 0;  // in the cleaned ring
    BoundaryPlace as_side;  // as handed over
    BoundaryPlace as_vertex;
    FacingSide side;
    WidePoint run;
    Wide length;
};

// The sides and vertices of a parcel that is usable, in the order of rings and indexes.
class Items {
public:
    Items(const Parcel& parcel, Choice& choice) : checked_(checked(parcel))
    {
        choice.boundary = checked_.report.status;
        if (choice.boundary != BoundaryStatus::usable)
            return;
        choice.status = ChoiceStatus::found;
        for (std::size_t ring = 0; ring < checked_.clean.size(); ++ring) {
            spacing_ = std::fmax(spacing_, checked_.clean[ring].ring.spacing());
            append(ring);
        }
    }

    bool usable() const { return !items_.empty(); }
    const std::vector<Item>& all() const { return items_; }
    const Item& operator[](std::size_t i) const { return items_[i]; }
    std::size_t size() const { return items_.size(); }

    /// Differences that rounding makes; a point far away has coarser coordinates.
    double rounding(const PL_PNT2D_record& p = {}) const
    {
        constexpr double kEpsilon = 0x1p-52;
        const double of_point = std::fmax(std::fabs(p.x), std::fabs(p.y)) * kEpsilon;
        return kTieSpacings * std::fmax(spacing_, of_point);
    }

    std::size_t in_ring(std::size_t ring) const { return checked_.clean[ring].ring.size(); }

private:
    void append(std::size_t ring)
    {
        const CleanRing& clean = checked_.clean[ring];
        const std::size_t n = clean.ring.size();
        std::vector<std::size_t> side_as_given(n);
        std::vector<std::size_t> vertex_as_given(n);
        for (std::size_t i = clean.place.size(); i-- > 0;) {
            vertex_as_given[clean.place[i]] = i;
            if (clean.place[i] != around(clean.place, i + 1))
                side_as_given[clean.place[i]] = i;
        }
        const bool inside_on_left = (clean.ring.turn() > 0.0) == (ring == 0);
        for (std::size_t k = 0; k < n; ++k) {
            Item item;
            item.ring = ring;
            item.index = k;
            item.as_side = {ring, side_as_given[k]};
            item.as_vertex = {ring, vertex_as_given[k]};
            item.run = from_to(clean.ring[k], clean.ring.at(k + 1));
            item.length = sqrt(dot(item.run, item.run));
            item.side = {clean.ring[k], clean.ring.at(k + 1),
                         inside_on_left ? WidePoint{item.run.y, -item.run.x}
                                        : WidePoint{-item.run.y, item.run.x}};
            items_.push_back(item);
        }
    }

    CheckedParcel checked_;
    std::vector<Item> items_;
    double spacing_ = 0.0;
};

Candidate side_candidate(const Item& item)
{
    Candidate candidate;
    candidate.place = item.as_side;
    candidate.length = item.length.value();
    candidate.bearing = AngoloDaAsseRifer(item.side.out.x.value(), item.side.out.y.value());
    return candidate;
}

Candidate vertex_candidate(const Item& item)
{
    Candidate candidate;
    candidate.place = item.as_vertex;
    return candidate;
}

bool is_straight_on(const Item& a, const Item& b)
{
    const Wide most = direction_of(kStraightGon).x * a.length * b.length;
    return dot(a.run, b.run) > 0.0 && !(abs(cross(a.run, b.run)) > most);
}

// The longest of sides that follow each other in one straight line, the first of several in their order; their number if
// they do not. Sides in the order of rings and indexes.
std::size_t part_of_straight_line(const Items& items, const std::vector<std::size_t>& tied)
{
    const std::size_t k = tied.size();
    const auto follows = [&](std::size_t i) {  // tied[i] on the one before it, round the ring
        const Item& before = items[tied[(i + k - 1) % k]];
        const Item& item = items[tied[i]];
        return before.ring == item.ring && (before.index + 1) % items.in_ring(item.ring) == item.index &&
               is_straight_on(before, item);
    };
    std::size_t first = k;
    for (std::size_t i = 0; i < k; ++i) {
        if (follows(i))
            continue;
        if (first != k)
            return k;
        first = i;
    }
    if (first == k)
        return k;
    std::size_t longest = first;
    for (std::size_t i = 1; i < k; ++i) {
        const std::size_t next = (first + i) % k;
        if (items[tied[next]].length > items[tied[longest]].length)
            longest = next;
    }
    return longest;
}

// What is looked for: how two of them compare, and when they fit equally well.
struct Measure {
    std::vector<Wide> values;  // of each item; the least fits best
    double tied_within;
};

// Which ones fit best, and which one comes next.
struct Fitting {
    std::vector<std::size_t> best;  // several when they tie
    std::optional<std::size_t> next;
};

using Compares = std::function<bool(std::size_t, std::size_t)>;

Fitting choose(const Items& items, bool sides, const Compares& is_better, const Compares& ties)
{
    std::size_t best = 0;
    for (std::size_t i = 1; i < items.size(); ++i)
        if (is_better(i, best))
            best = i;
    Fitting fitting;
    std::vector<std::size_t> others;
    for (std::size_t i = 0; i < items.size(); ++i)
        (i == best || ties(best, i) ? fitting.best : others).push_back(i);
    if (sides && fitting.best.size() > 1) {
        const std::size_t part = part_of_straight_line(items, fitting.best);
        if (part < fitting.best.size())
            fitting.best = {fitting.best[part]};
    }
    if (fitting.best.size() > 1 || others.empty())
        return fitting;
    // Of several that come next, the westmost: not the one at which the caller began to count.
    const auto comes_next = [&](std::size_t a, std::size_t b) {
        return is_better(a, b) || (!is_better(b, a) && comes_before(items[a].side.a, items[b].side.a));
    };
    fitting.next = *std::min_element(others.begin(), others.end(), comes_next);
    return fitting;
}

Fitting choose_least(const Items& items, bool sides, const Measure& measure)
{
    const std::vector<Wide>& values = measure.values;
    return choose(
        items, sides, [&](std::size_t a, std::size_t b) { return values[a] < values[b]; },
        [&](std::size_t best, std::size_t i) { return !(values[i] - values[best] > measure.tied_within); });
}

void tell(const Fitting& fitting, const std::function<Candidate(std::size_t)>& describe, Choice& choice)
{
    choice.status = fitting.best.size() > 1 ? ChoiceStatus::tied : ChoiceStatus::found;
    for (const std::size_t i : fitting.best)
        choice.candidates.push_back(describe(i));
    if (fitting.next)
        choice.next = describe(*fitting.next);
}

Choice by_length(const Parcel& parcel, double sign, double tied_within)
{
    Choice choice;
    const Items items(parcel, choice);
    if (!items.usable())
        return choice;
    Measure measure = {{}, std::fmax(at_least_nothing(tied_within), items.rounding())};
    for (const Item& item : items.all())
        measure.values.push_back(item.length * sign);
    tell(
        choose_least(items, true, measure), [&](std::size_t i) { return side_candidate(items[i]); }, choice);
    return choice;
}

Wide distance_to_side(const Item& item, const PL_PNT2D_record& p)
{
    const WidePoint from_a = from_to(item.side.a, p);
    const WidePoint from_b = from_to(item.side.b, p);
    if (!(dot(item.run, from_a) > 0.0))
        return sqrt(dot(from_a, from_a));
    if (!(dot(item.run, from_b) < 0.0))
        return sqrt(dot(from_b, from_b));
    return abs(cross(item.run, from_a)) / item.length;
}

Choice near(const Parcel& parcel, const PL_PNT2D_record& point, bool sides, double tied_within)
{
    Choice choice;
    const Items items(parcel, choice);
    if (!items.usable())
        return choice;
    if (!is_within_reach(point)) {
        choice.status = ChoiceStatus::unusable_request;
        return choice;
    }
    Measure measure = {{}, std::fmax(at_least_nothing(tied_within), items.rounding(point))};
    for (const Item& item : items.all()) {
        const WidePoint away = from_to(item.side.a, point);
        measure.values.push_back(sides ? distance_to_side(item, point) : sqrt(dot(away, away)));
    }
    const auto describe = [&](std::size_t i) {
        Candidate candidate = sides ? side_candidate(items[i]) : vertex_candidate(items[i]);
        candidate.distance = measure.values[i].value();
        return candidate;
    };
    tell(choose_least(items, sides, measure), describe, choice);
    return choice;
}

// How far a side faces away from a bearing, as a direction: 0 gons is (1, 0), 200 gons (-1, 0).
struct Turned {
    WidePoint direction;
    Wide length;  // of the direction
};

Turned turned_from(const Item& item, const WidePoint& bearing)
{
    return {{dot(item.side.out, bearing), abs(cross(item.side.out, bearing))}, item.length};
}

}  // namespace

Choice longest_side(const Parcel& parcel, double tied_within)
{
    return by_length(parcel, -1.0, tied_within);
}

Choice shortest_side(const Parcel& parcel, double tied_within)
{
    return by_length(parcel, 1.0, tied_within);
}

Choice side_near(const Parcel& parcel, const PL_PNT2D_record& point, double tied_within)
{
    return near(parcel, point, true, tied_within);
}

Choice vertex_near(const Parcel& parcel, const PL_PNT2D_record& point, double tied_within)
{
    return near(parcel, point, false, tied_within);
}

Choice side_facing(const Parcel& parcel, double bearing_gon, double tied_within_gon)
{
    Choice choice;
    const Items items(parcel, choice);
    if (!items.usable())
        return choice;
    if (!std::isfinite(bearing_gon) || tied_within_gon > kQuarterTurnGon) {
        choice.status = ChoiceStatus::unusable_request;
        return choice;
    }
    const WidePoint bearing = direction_of(bearing_gon);
    std::vector<Turned> turned;
    for (const Item& item : items.all())
        turned.push_back(turned_from(item, bearing));
    const double sine = direction_of(at_least_nothing(tied_within_gon)).x.value();
    const auto ties = [&](std::size_t best, std::size_t i) {
        const Turned& a = turned[best];
        const Turned& b = turned[i];
        const double shorter = std::fmin(a.length.value(), b.length.value());
        const double most = std::fmax(sine, items.rounding() / shorter);
        const Wide lengths = a.length * b.length;
        return dot(a.direction, b.direction) > 0.0 && !(cross(a.direction, b.direction) / lengths > most);
    };
    const auto describe = [&](std::size_t i) {
        Candidate candidate = side_candidate(items[i]);
        candidate.turned = AngoloDaAsseRifer(turned[i].direction.y.value(), turned[i].direction.x.value());
        return candidate;
    };
    const auto is_better = [&](std::size_t a, std::size_t b) {
        return cross(turned[a].direction, turned[b].direction) > 0.0;
    };
    tell(choose(items, true, is_better, ties), describe, choice);
    return choice;
}

Choice vertex_farthest(const Parcel& parcel, double bearing_gon, double tied_within)
{
    Choice choice;
    const Items items(parcel, choice);
    if (!items.usable())
        return choice;
    if (!std::isfinite(bearing_gon)) {
        choice.status = ChoiceStatus::unusable_request;
        return choice;
    }
    const WidePoint bearing = direction_of(bearing_gon);
    Measure measure = {{}, std::fmax(at_least_nothing(tied_within), items.rounding())};
    for (const Item& item : items.all())
        measure.values.push_back(-dot(bearing, from_to(items[0].side.a, item.side.a)));
    const Wide farthest = *std::min_element(measure.values.begin(), measure.values.end());
    const auto describe = [&](std::size_t i) {
        Candidate candidate = vertex_candidate(items[i]);
        candidate.distance = (measure.values[i] - farthest).value();
        return candidate;
    };
    tell(choose_least(items, false, measure), describe, choice);
    return choice;
}

Choice side_along(const Parcel& parcel, const OtherGeometry& other, const Alongside& alongside,
                  double tied_within)
{
    Choice choice;
    const Items items(parcel, choice);
    if (!items.usable())
        return choice;
    const bool usable = alongside.distance > 0.0 && alongside.distance <= kFarthest &&
                        alongside.angle_gon >= 0.0 && alongside.angle_gon <= kQuarterTurnGon;
    if (!usable) {
        choice.status = ChoiceStatus::unusable_request;
        return choice;
    }
    AlongsideSearch search(other, alongside);
    if (search.is_empty()) {
        choice.status = ChoiceStatus::nothing_given;
        return choice;
    }
    Measure measure = {{}, std::fmax(at_least_nothing(tied_within), items.rounding())};
    std::vector<AlongsideLength> lengths;
    bool any = false;
    for (const Item& item : items.all()) {
        lengths.push_back(search.measure(item.side));
        measure.values.emplace_back(-lengths.back().length);
        any = any || lengths.back().length > 0.0;
    }
    if (!any && !search.gave_up()) {
        std::vector<FacingSide> sides;
        for (const Item& item : items.all())
            sides.push_back(item.side);
        choice.nearest = search.nearest_to(sides);
        choice.status =
            choice.nearest > alongside.distance ? ChoiceStatus::too_far : ChoiceStatus::not_alongside;
    }
    if (search.gave_up()) {
        choice.status = ChoiceStatus::too_much_near;
        return choice;
    }
    if (!any)
        return choice;
    const auto describe = [&](std::size_t i) {
        Candidate candidate = side_candidate(items[i]);
        candidate.distance = lengths[i].nearest;
        candidate.alongside = lengths[i].length;
        return candidate;
    };
    tell(choose_least(items, true, measure), describe, choice);
    if (choice.next && !(choice.next->alongside > 0.0))
        choice.next.reset();
    return choice;
}

const char* describe(ChoiceStatus status) noexcept
{
    switch (status) {
    case ChoiceStatus::found:
        return "there is one";
    case ChoiceStatus::tied:
        return "several fit equally well";
    case ChoiceStatus::unusable_boundary:
        return "the boundary cannot be worked on";
    case ChoiceStatus::unusable_request:
        return "a number that is asked with is not finite, or out of range";
    case ChoiceStatus::nothing_given:
        return "there is no other geometry that has a length";
    case ChoiceStatus::too_far:
        return "no side comes near enough to the other geometry";
    case ChoiceStatus::not_alongside:
        return "no side that is near enough faces the other geometry and runs along it";
    case ChoiceStatus::too_much_near:
        return "too many segments of the other geometry are near too many sides";
    }
    return "unknown status";
}

}  // namespace plparcel
