#include "whole_lines/turning_parts.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <numeric>
#include <set>
#include <utility>

namespace plparcel {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// Between directions that differ by no more than this, about the sine of the angle, 106 bits tell too little of what the
// line meets; lines there are as good as those on both sides.
constexpr double kThinSector = 0x1p-66;

bool is_same(const WidePoint& a, const WidePoint& b)
{
    return !(abs(a.x - b.x) > 0.0) && !(abs(a.y - b.y) > 0.0);
}

}  // namespace

// What the line meets in a sector, from the point outward.
class TurningParts::Rows {
public:
    struct IsNearer {
        const TurningParts* parts;
        bool operator()(std::size_t a, std::size_t b) const { return parts->is_nearer(a, b); }
    };
    using Row = std::set<std::size_t, IsNearer>;

    explicit Rows(const TurningParts& parts)
        : parts_(parts), ahead_(IsNearer{&parts}), behind_(IsNearer{&parts})
    {}

    void go_to(std::size_t sector)
    {
        const std::vector<Part>& parts = parts_.profile_.parts();
        for (; ended_ < parts.size() && parts[parts_.to_[ended_]].to <= sector; ++ended_)
            row_of(parts_.to_[ended_]).erase(parts_.to_[ended_]);
        for (; begun_ < parts.size() && parts[parts_.from_[begun_]].from <= sector; ++begun_)
            if (parts[parts_.from_[begun_]].to > sector)
                row_of(parts_.from_[begun_]).insert(parts_.from_[begun_]);
    }

    const Row& row(bool ahead) const { return ahead ? ahead_ : behind_; }

private:
    Row& row_of(std::size_t part) { return parts_.profile_.parts()[part].ahead ? ahead_ : behind_; }

    const TurningParts& parts_;
    Row ahead_;
    Row behind_;
    std::size_t begun_ = 0;
    std::size_t ended_ = 0;
};

// From the point one way along the line: over rings, until one is met for the second time.
class TurningParts::Walk {
public:
    struct Stop {
        std::size_t ring;
        std::size_t arrives;  // the part at which a segment ends
        std::size_t leaves;   // the part at which the next one begins; none where there is no further one
    };

    // Begins within a segment, or with `over` a ring already crossed.
    Walk(const TurningParts& parts, const Rows::Row& row, std::optional<std::size_t> over)
    {
        std::set<std::size_t> met;
        auto next = row.begin();
        const auto ring_of = [&parts](std::size_t part) {
            return parts.rings_.ring_of(parts.profile_.parts()[part].side);
        };
        if (over) {
            if (next == row.end() || ring_of(*next) != *over)
                return;
            met.insert(*over);
            over_ = *over;
            begin_ = *next;
            ++next;
        }
        while (next != row.end()) {
            Stop stop = {ring_of(*next), *next, kNone};
            ++next;
            if (!met.insert(stop.ring).second)
                return;
            if (next != row.end() && ring_of(*next) == stop.ring) {
                stop.leaves = *next;
                ++next;
            }
            stops_.push_back(stop);
            if (stop.leaves == kNone)
                return;
        }
    }

    const std::vector<Stop>& stops() const { return stops_; }

    // The ring that is crossed first, and where the line leaves it.
    std::size_t over() const { return over_; }
    std::size_t begin() const { return begin_; }

private:
    std::vector<Stop> stops_;
    std::size_t over_ = kNone;
    std::size_t begin_ = kNone;
};

// The vertices in line with the point, but for a reach.
class TurningParts::InLine {
public:
    InLine(const TurningProfile& profile, const Wide& reach)
        : directions_(profile.directions()), reach_(reach), vertices_(directions_.size())
    {
        for (const Part& part : profile.parts()) {
            vertices_[part.from].push_back(part.ahead ? part.begin : part.begin * -1.0);
            vertices_[part.to].push_back(part.ahead ? part.end : part.end * -1.0);
            farthest_ = std::max({farthest_, abs(part.end.x), abs(part.end.y)});
        }
    }

    // Whether one lies between two places along a direction, and not next to them.
    bool has_between(std::size_t direction, const Wide& left, const Wide& right) const
    {
        const WidePoint& run = directions_[direction];
        const auto has = [&](std::size_t other) {
            return std::any_of(vertices_[other].begin(), vertices_[other].end(), [&](const WidePoint& v) {
                const Wide along = dot(run, v);
                return is_on_line(v, direction) && along > left + reach_ && along < right - reach_;
            });
        };
        // To either side; the last direction is the first one, run back.
        const std::size_t n = directions_.size();
        for (const std::size_t step : {std::size_t{1}, n - 1})
            for (std::size_t k = 0; k < n && is_beside((direction + k * step) % n, direction); ++k)
                if (has((direction + k * step) % n))
                    return true;
        return false;
    }

    bool is_on_line(const WidePoint& p, std::size_t direction) const
    {
        return !(abs(cross(directions_[direction], p)) > reach_);
    }

    // Whether the line runs along a side on which the point lies but for its rounding: doubles decide what it meets then.
    bool runs_along_side_at_point(std::size_t direction, const std::vector<WidePoint>& ends) const
    {
        const Wide farther = std::max({abs(ends[0].x), abs(ends[0].y), abs(ends[1].x), abs(ends[1].y)});
        return !(abs(cross(ends[0], ends[1])) > farther * reach_) &&
               (is_on_line(ends[0], direction) || is_on_line(ends[1], direction));
    }

    const Wide& reach() const { return reach_; }

private:
    // A vertex not much nearer than the farthest one may lie on both lines.
    bool is_beside(std::size_t one, std::size_t other) const
    {
        constexpr double kNearer = 64.0;
        return !(abs(cross(directions_[one], directions_[other])) * farthest_ > reach_ * kNearer);
    }

    const std::vector<WidePoint>& directions_;
    Wide reach_;
    Wide farthest_;
    std::vector<std::vector<WidePoint>> vertices_;  // of each direction
};

TurningParts::TurningParts(const JoinedRings& rings, const std::vector<WidePoint>& points,
                           std::optional<std::size_t> vertex, const WidePoint& first)
    : rings_(rings), vertex_(vertex), profile_(rings, points, 1.0, first), tour_(rings.rings()),
      hung_(profile_.parts().size()), at_part_(profile_.parts().size())
{
    if (vertex_)
        beside_point_ = {points[rings.before(*vertex_)], points[rings.next(*vertex_)]};
    put_in_order();
    hang_all();
    for (auto ring = in_order_.rbegin(); ring != in_order_.rend(); ++ring)
        walk_ring(*ring);
    area_ = tour_[0].whole;
}

void TurningParts::put_in_order()
{
    // The profile has the parts ring by ring, side by side, and those of a side in the order in which it runs.
    const std::vector<Part>& parts = profile_.parts();
    from_.resize(parts.size());
    std::iota(from_.begin(), from_.end(), std::size_t{0});
    to_ = from_;
    std::stable_sort(from_.begin(), from_.end(),
                     [&parts](std::size_t a, std::size_t b) { return parts[a].from < parts[b].from; });
    std::stable_sort(to_.begin(), to_.end(),
                     [&parts](std::size_t a, std::size_t b) { return parts[a].to < parts[b].to; });
    for (std::size_t part = 0; part < parts.size(); ++part)
        while (first_of_ring_.size() <= rings_.ring_of(parts[part].side))
            first_of_ring_.push_back(part);
    first_of_ring_.resize(rings_.rings() + 1, parts.size());
    while (vertex_ && part_at_point_ < parts.size() && parts[part_at_point_].side < *vertex_)
        ++part_at_point_;
}

bool TurningParts::is_thick(std::size_t sector) const
{
    return cross(profile_.directions()[sector], profile_.directions()[sector + 1]) > kThinSector;
}

// Of two parts that a line meets in some sector.
bool TurningParts::is_nearer(std::size_t a, std::size_t b) const
{
    if (a == b)
        return false;
    const Part& one = profile_.parts()[a];
    const Part& other = profile_.parts()[b];
    const auto off = [](const Part& part, const WidePoint& p) {
        return cross(part.end - part.begin, p - part.begin);
    };
    // The later begin, or else the earlier end, beside the part that has that direction within it.
    Wide nearer = one.from >= other.from ? off(other, one.begin) : -off(one, other.begin);
    if (!(nearer > 0.0) && !(nearer < 0.0))
        nearer = one.to <= other.to ? off(other, one.end) : -off(one, other.end);
    return nearer > 0.0 || (!(nearer < 0.0) && a < b);
}

void TurningParts::sweep(const std::function<void(const Rows&, std::size_t sector)>& visit) const
{
    Rows rows(*this);
    for (std::size_t sector = 0; sector + 1 < profile_.directions().size(); ++sector) {
        if (!is_thick(sector))
            continue;
        rows.go_to(sector);
        visit(rows, sector);
    }
}

// A ring in a sector in which it lies ahead, or behind; nothing where no other lies beyond it.
std::optional<TurningParts::Met> TurningParts::met_in(const Rows& rows, bool ahead, std::size_t sector,
                                                      std::size_t ring) const
{
    std::size_t farthest = kNone;
    for (std::size_t i = first_of_ring_[ring]; i < first_of_ring_[ring + 1]; ++i) {
        const Part& part = profile_.parts()[i];
        if (part.ahead == ahead && part.from <= sector && sector < part.to &&
            (farthest == kNone || is_nearer(farthest, i)))
            farthest = i;
    }
    const auto beyond = rows.row(ahead).upper_bound(farthest);
    return beyond == rows.row(ahead).end() ? std::nullopt
                                           : std::optional<Met>({ahead, sector, ring, farthest, *beyond});
}

// Of each hole where the line comes to it first: ahead, or behind where it never lies ahead.
std::vector<TurningParts::Met> TurningParts::met_first() const
{
    struct Begin {
        bool ahead;
        std::size_t ring;
    };
    std::vector<std::size_t> next_thick(profile_.directions().size(), kNone);
    for (std::size_t sector = next_thick.size() - 1; sector-- > 0;)
        next_thick[sector] = is_thick(sector) ? sector : next_thick[sector + 1];
    std::vector<std::vector<Begin>> begins(next_thick.size());  // of each sector
    for (std::size_t ring = 1; ring < rings_.rings(); ++ring) {
        std::size_t first[2] = {kNone, kNone};
        for (std::size_t i = first_of_ring_[ring]; i < first_of_ring_[ring + 1]; ++i) {
            const Part& part = profile_.parts()[i];
            std::size_t& sector = first[part.ahead ? 0 : 1];
            if (next_thick[part.from] < part.to)
                sector = std::min(sector, next_thick[part.from]);
        }
        const bool ahead = first[0] != kNone;
        const std::size_t sector = first[ahead ? 0 : 1];
        if (sector != kNone)
            begins[sector].push_back({ahead, ring});
    }
    std::vector<Met> found;
    sweep([&](const Rows& rows, std::size_t sector) {
        for (const Begin& begin : begins[sector])
            if (const std::optional<Met> met = met_in(rows, begin.ahead, sector, begin.ring))
                found.push_back(*met);
    });
    std::stable_sort(found.begin(), found.end(), [this](const Met& a, const Met& b) {
        if (a.ahead != b.ahead || a.sector != b.sector)
            return std::make_pair(!a.ahead, a.sector) < std::make_pair(!b.ahead, b.sector);
        return is_nearer(b.farthest, a.farthest);
    });
    return found;
}

void TurningParts::hang_all()
{
    in_order_ = {0};
    for (const Met& met : met_first()) {
        in_order_.push_back(met.ring);
        OnTour& of = tour_[met.ring];
        of.hangs = true;
        of.sector = met.sector;
        of.slit = met.farthest;
        hung_[met.beyond].push_back({met.sector, met.ring, 0.0});
    }
}

// The rings that hang on this one have been walked.
void TurningParts::walk_ring(std::size_t ring)
{
    Wide sum;
    for (std::size_t i = first_of_ring_[ring]; i < first_of_ring_[ring + 1]; ++i) {
        if (i == part_at_point_)
            at_point_ = vertex_ && rings_.ring_of(*vertex_) == ring ? sum : at_point_;
        const Part& part = profile_.parts()[i];
        at_part_[i] = sum;
        sum = sum + along_part(i, part.leaves ? part.to : part.from);
        Wide of_hung;
        for (Hung& hung : hung_[i])
            of_hung = hung.up_to_here = of_hung + tour_[hung.ring].whole;
        sum = sum + of_hung;
    }
    if (vertex_ && part_at_point_ == first_of_ring_[ring + 1] && rings_.ring_of(*vertex_) == ring)
        at_point_ = sum;
    tour_[ring].whole = sum;
}

// What a part sweeps from where the ring comes to it to where the line meets it.
Wide TurningParts::along_part(std::size_t part, std::size_t direction) const
{
    const Part& of = profile_.parts()[part];
    return cross(of.leaves ? of.begin : of.end, profile_.hit(of, direction)) * 0.5;
}

Wide TurningParts::swept_on_tour(std::size_t ring, const Wide& on_ring, bool is_past_slit) const
{
    const OnTour& of = tour_[ring];
    return of.hangs && !is_past_slit ? on_ring + of.whole : on_ring;
}

// What the tour has swept when it comes to where a line in a sector meets a part, but for what it sweeps before it comes to
// the ring: a part of the line has as many left ends on each ring as right ones.
Wide TurningParts::swept(std::size_t part, std::size_t sector, std::size_t direction) const
{
    const Part& of = profile_.parts()[part];
    const std::size_t ring = rings_.ring_of(of.side);
    Wide on_ring = at_part_[part] + along_part(part, direction);
    const auto after = std::partition_point(hung_[part].begin(), hung_[part].end(),
                                            [sector](const Hung& hung) { return hung.sector <= sector; });
    if (after != hung_[part].begin())
        on_ring = on_ring + std::prev(after)->up_to_here;
    // The slit leads outward, so that the ring runs clockwise where it begins.
    const bool is_past_slit =
        part == tour_[ring].slit ? sector < tour_[ring].sector : part > tour_[ring].slit;
    return swept_on_tour(ring, on_ring, is_past_slit);
}

Wide TurningParts::swept_at_point() const
{
    const std::size_t ring = rings_.ring_of(*vertex_);
    return swept_on_tour(ring, at_point_, part_at_point_ > tour_[ring].slit);
}

Wide TurningParts::left_of(const Run& run, std::size_t sector, std::size_t direction) const
{
    Wide left;
    for (const std::size_t part : run.left)
        left = left + swept(part, sector, direction);
    for (const std::size_t part : run.right)
        left = left - swept(part, sector, direction);
    if (run.at_point != 0)
        left = left + swept_at_point() * static_cast<double>(run.at_point);
    return left;
}

TurningParts::AtRims TurningParts::left_at_rims(const Run& run, std::size_t sector) const
{
    const AtRims left = {left_of(run, sector, sector), left_of(run, sector, sector + 1)};
    const bool tour_begins_there = left.begin + left.end < 0.0;
    return tour_begins_there ? AtRims{left.begin + area_, left.end + area_} : left;
}

// By which the area on the left grows.
std::vector<TurningParts::Term> TurningParts::terms_of(const Run& run, std::size_t sector) const
{
    std::vector<Term> terms;
    for (const std::size_t part : run.left)
        terms.push_back(profile_.swept_along(profile_.parts()[part], sector));
    for (const std::size_t part : run.right) {
        const Term swept = profile_.swept_along(profile_.parts()[part], sector);
        terms.push_back({-swept.growth, swept.bend});
    }
    return terms;
}

// From the point to where its own ring is met again.
void TurningParts::add_runs_from_point(bool ahead, const Rows& rows, std::vector<Run>& found) const
{
    Run run;
    run.at_point = ahead ? 1 : -1;
    std::vector<std::size_t>& arrivals = ahead ? run.right : run.left;
    std::vector<std::size_t>& departures = ahead ? run.left : run.right;
    const Walk walk(*this, rows.row(ahead), std::nullopt);
    for (const Walk::Stop& stop : walk.stops()) {
        arrivals.push_back(stop.arrives);
        if (stop.ring == rings_.ring_of(*vertex_)) {
            found.push_back(run);
            return;
        }
        departures.push_back(stop.leaves);
    }
}

// From a ring that the walk behind comes to, to where the one ahead comes to the same ring: no other ring is met by both
// before.
void TurningParts::add_runs_over(const Walk& ahead, const Walk& behind, int at_point, std::vector<Run>& found)
{
    std::map<std::size_t, std::size_t> stop_at;  // of a ring
    for (std::size_t k = 0; k < ahead.stops().size(); ++k)
        stop_at[ahead.stops()[k].ring] = k;
    const auto place_ahead = [&stop_at](std::size_t ring) {
        const auto place = stop_at.find(ring);
        return place == stop_at.end() ? kNone : place->second;
    };
    std::size_t bound = behind.over() == kNone ? kNone : place_ahead(behind.over());
    for (std::size_t i = 0; i < behind.stops().size(); ++i) {
        const std::size_t end = place_ahead(behind.stops()[i].ring);
        if (end < bound) {
            Run run;
            run.at_point = at_point;
            for (std::size_t k = 0; k <= end; ++k) {
                run.right.push_back(ahead.stops()[k].arrives);
                if (k < end)
                    run.left.push_back(ahead.stops()[k].leaves);
            }
            if (behind.begin() != kNone)
                run.right.push_back(behind.begin());
            for (std::size_t k = 0; k <= i; ++k) {
                run.left.push_back(behind.stops()[k].arrives);
                if (k < i)
                    run.right.push_back(behind.stops()[k].leaves);
            }
            found.push_back(std::move(run));
        }
        bound = std::min(bound, end);
    }
}

// Those that make two pieces, with the point at an end or within a segment.
std::vector<TurningParts::Run> TurningParts::runs(const Rows& rows) const
{
    const auto is_inside = [&](bool ahead) {
        const Rows::Row& row = rows.row(ahead);
        return !row.empty() && profile_.parts()[*row.begin()].leaves;
    };
    std::vector<Run> found;
    if (!vertex_) {
        add_runs_over(Walk(*this, rows.row(true), std::nullopt), Walk(*this, rows.row(false), std::nullopt),
                      0, found);
        return found;
    }
    for (const bool ahead : {true, false})
        if (is_inside(ahead))
            add_runs_from_point(ahead, rows, found);
    // Turning from the side, the line runs into the parcel behind the point only where it does ahead as well.
    if (is_inside(true) && !is_inside(false))
        add_runs_over(Walk(*this, rows.row(true), std::nullopt),
                      Walk(*this, rows.row(false), rings_.ring_of(*vertex_)), 1, found);
    return found;
}

// The lines that hold an area.
struct TurningParts::Search {
    struct Found {
        bool back;  // against the direction
        std::size_t direction;
        Wide way;  // to the next one
    };

    const TurningParts& parts;
    Wide left;
    Wide granted;
    std::vector<Found> exact = {};
    std::vector<Found> beside = {};

    void look(const Run& run, std::size_t sector)
    {
        const auto [begin, end] = parts.left_at_rims(run, sector);
        const std::vector<Term> terms = parts.terms_of(run, sector);
        Wide most = granted;
        for (const Term& term : terms)
            most = most + abs(term.growth / (term.bend + 1.0));
        for (const bool back : {false, true}) {
            if (run.at_point != 0 && back != (run.at_point < 0))
                continue;
            const Wide wanted = back ? parts.area_ - left : left;
            if (!(abs(begin - wanted) > most))
                look_between(terms, sector, back, begin - wanted, end - wanted);
        }
    }

    void look_between(const std::vector<Term>& terms, std::size_t sector, bool back, const Wide& begin,
                      const Wide& end)
    {
        propose_at(sector, back, begin);
        const TurningZeros zeros = turning_zeros(terms, begin, end, parts.profile_.scale(), granted);
        for (const Wide& way : zeros.exact)
            exact.push_back({back, sector, way});
        if (zeros.exact.empty() && zeros.nearest && !(zeros.miss > granted))
            beside.push_back({back, sector, *zeros.nearest});
        propose_at(sector + 1, back, end);
    }

    // The last direction is the first one, run back.
    void propose_at(std::size_t direction, bool back, const Wide& miss)
    {
        const bool is_last = direction + 1 == parts.profile_.directions().size();
        const Found found = {back != is_last, is_last ? 0 : direction, 0.0};
        if (!(abs(miss) > parts.profile_.scale() * kHeldExactly))
            exact.push_back(found);
        else if (!(abs(miss) > granted))
            beside.push_back(found);
    }

    static bool comes_before(const Found& a, const Found& b)
    {
        return std::make_pair(a.back, a.direction) != std::make_pair(b.back, b.direction)
                   ? std::make_pair(a.back, a.direction) < std::make_pair(b.back, b.direction)
                   : a.way < b.way;
    }

    // In order, each direction once.
    void add_to(std::vector<TurningLine>& lines, std::vector<Found> found, bool beside_the_amount) const
    {
        std::sort(found.begin(), found.end(), comes_before);
        const std::vector<WidePoint>& directions = parts.profile_.directions();
        for (std::size_t i = 0; i < found.size(); ++i) {
            if (i > 0 && !comes_before(found[i - 1], found[i]))
                continue;
            const WidePoint& from = directions[found[i].direction];
            const WidePoint& to = directions[found[i].direction + 1];
            lines.push_back(
                {(from + (to - from) * found[i].way) * (found[i].back ? -1.0 : 1.0), beside_the_amount});
        }
    }
};

std::vector<TurningLine> TurningParts::lines(const Wide& left, const Wide& granted) const
{
    Search search = {*this, left, granted};
    sweep([&](const Rows& rows, std::size_t sector) {
        for (const Run& run : runs(rows))
            search.look(run, sector);
    });
    std::vector<TurningLine> found;
    search.add_to(found, search.exact, false);
    search.add_to(found, search.beside, true);
    return found;
}

// Whether the boundary crosses the line where a part of it ends at a rim: it goes on with another part there.
bool TurningParts::crosses_at(std::size_t i, std::size_t direction) const
{
    const std::vector<Part>& parts = profile_.parts();
    const Part& part = parts[i];
    if (part.from != direction && part.to != direction)
        return true;
    const std::size_t last = profile_.directions().size() - 1;
    const bool ends = part.to == direction;
    const bool turns_over = direction == (ends ? last : 0);  // the last direction is the first one, run back
    const std::size_t rim = turns_over ? last - direction : direction;
    const WidePoint& at = ends ? part.end : part.begin;
    const std::size_t ring = rings_.ring_of(part.side);
    const std::size_t first = first_of_ring_[ring];
    const std::size_t n = first_of_ring_[ring + 1] - first;
    for (const std::size_t step : {std::size_t{1}, n - 1}) {
        const Part& other = parts[first + (i - first + step) % n];
        const WidePoint from = (ends ? other.begin : other.end) * (turns_over ? -1.0 : 1.0);
        if ((ends ? other.from : other.to) == rim && other.ahead == (part.ahead != turns_over) &&
            is_same(from, at))
            return true;
    }
    return false;
}

// On which side of the line, 1 for the left, the boundary stays at the point; 0 where it crosses the line.
int TurningParts::side_at_point(std::size_t direction) const
{
    const WidePoint& run = profile_.directions()[direction];
    const auto side_of = [&run](const WidePoint& p) {
        const Wide off = cross(run, p);
        return off > 0.0 ? 1 : (off < 0.0 ? -1 : 0);
    };
    const int before = side_of(beside_point_[0]);
    const int after = side_of(beside_point_[1]);
    return before * after < 0 ? 0 : (before != 0 ? before : after);
}

// Whether a part of the line meets the boundary at its ends only; lines that turn no further than to `direction` end on the
// same sides if `arrives`, those that turn on from there otherwise.
bool TurningParts::is_free(const Run& run, std::size_t direction, bool arrives, const InLine& vertices) const
{
    std::vector<Wide> left;
    std::vector<Wide> right;
    bool stays_on_left = false;
    bool stays_on_right = false;
    const auto met = [&](std::size_t i) {
        const Part& part = profile_.parts()[i];
        if (!crosses_at(i, direction))
            (part.ahead == arrives ? stays_on_right : stays_on_left) = true;
        const Wide along = dot(profile_.directions()[direction], profile_.hit(part, direction));
        return part.ahead ? along : -along;
    };
    std::transform(run.left.begin(), run.left.end(), std::back_inserter(left), met);
    std::transform(run.right.begin(), run.right.end(), std::back_inserter(right), met);
    if (run.at_point != 0) {
        (run.at_point > 0 ? left : right).emplace_back(0.0);
        const int side = side_at_point(direction);
        stays_on_left = stays_on_left || side > 0;
        stays_on_right = stays_on_right || side < 0;
        if (vertices.runs_along_side_at_point(direction, beside_point_))
            return false;
    }
    if (stays_on_left && stays_on_right)
        return false;
    std::sort(left.begin(), left.end());
    std::sort(right.begin(), right.end());
    for (std::size_t i = 0; i < left.size(); ++i)
        if (vertices.has_between(direction, left[i], right[i]) ||
            (i > 0 && !(left[i] - right[i - 1] > vertices.reach())))
            return false;
    return true;
}

std::vector<AreaRange> TurningParts::areas(const Wide& reach) const
{
    const InLine vertices(profile_, reach);
    std::vector<AreaRange> all;
    sweep([&](const Rows& rows, std::size_t sector) {
        for (const Run& run : runs(rows)) {
            const AtRims left = left_at_rims(run, sector);
            const LeastAndMost found =
                least_and_most_between(terms_of(run, sector), left.begin, left.end, profile_.scale());
            const bool begin_is_free = is_free(run, sector, false, vertices);
            const bool end_is_free = is_free(run, sector + 1, true, vertices);
            const auto is_had = [&](const Wide& area) {
                const bool at_begin = !(abs(area - left.begin) > 0.0);
                const bool at_end = !(abs(area - left.end) > 0.0);
                return (!at_begin && !at_end) || (at_begin && begin_is_free) || (at_end && end_is_free);
            };
            const AreaRange on_left = {found.least, found.most, is_had(found.least), is_had(found.most)};
            if (run.at_point >= 0)
                all.push_back(on_left);
            if (run.at_point <= 0)
                all.push_back(
                    {area_ - found.most, area_ - found.least, on_left.most_is_had, on_left.least_is_had});
        }
    });
    return all;
}

}  // namespace plparcel
