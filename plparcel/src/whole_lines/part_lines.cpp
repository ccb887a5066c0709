#include "whole_lines/part_lines.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>
#include <tuple>
#include <utility>

#include "lines/trapeziums.h"
#include "lines/vertex_rows.h"
#include "whole_lines/tour.h"

namespace plparcel {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// Slabs thinner than this part of the parcel hold no area to speak of, and 106 bits no slope of the sides in them.
constexpr double kThinSlab = 0x1p-66;

// An area that misses a rim by no more than this part of the parcel is on it.
constexpr double kRim = 1e-18;

// Whether it depends on the base side where the request lies.
bool lies_by_base(const PartRequest& request)
{
    return request.where == PartRequest::Where::with_base ||
           request.where == PartRequest::Where::without_base;
}

bool is_request_above(const PartRequest& request, bool base_above)
{
    if (lies_by_base(request))
        return base_above == (request.where == PartRequest::Where::with_base);
    return request.where == PartRequest::Where::above;
}

}  // namespace

// Of sides that a line meets, one after another. For the left end of a segment the integral of x dy up to there counts,
// for the right end it is taken away: that leaves the area above all segments together, up to the whole parcel. As
// functions of the level they are quadratics.
struct PartLines::Sum {
    Wide constant;
    Wide linear;
    Wide square;
    int beyond = 0;         // left ends less right ones that the tour comes to after the base side
    std::size_t count = 0;  // sides

    Wide at(const Wide& level) const { return constant + level * (linear + level * square); }
    Wide width_at(const Wide& level) const { return -(linear + level * square * 2.0); }
};

struct PartLines::Question {
    std::size_t slab = 0;
    std::size_t left = kNone;  // none: all that the line meets
    std::size_t right = kNone;
    bool lists = false;  // whether to name the sides
    Sum sum;
    std::size_t all = 0;  // how many sides the whole line meets
    std::vector<std::size_t> sides;
    std::vector<std::size_t> places;
};

// The sides that a line in one slab meets, in a tree over their places from left to right.
class PartLines::Row {
public:
    explicit Row(std::size_t n) : side_(n, kNone), place_(n, kNone)
    {
        while (leaves_ < n)
            leaves_ *= 2;
        nodes_.resize(2 * leaves_);
    }

    void set(std::size_t at, std::size_t side, std::size_t place, const Sum& sum)
    {
        side_[at] = side;
        place_[at] = place;
        nodes_[leaves_ + at] = sum;
        for (std::size_t node = (leaves_ + at) / 2; node > 0; node /= 2)
            nodes_[node] = joined(nodes_[2 * node], nodes_[2 * node + 1]);
    }

    const Sum& all() const { return nodes_[1]; }

    // From one place to another, both included.
    Sum between(std::size_t first, std::size_t last) const
    {
        Sum sum;
        std::size_t begin = first + leaves_;
        std::size_t end = last + 1 + leaves_;
        for (; begin < end; begin /= 2, end /= 2) {
            if (begin % 2 == 1)
                sum = joined(sum, nodes_[begin++]);
            if (end % 2 == 1)
                sum = joined(sum, nodes_[--end]);
        }
        return sum;
    }

    void list(std::size_t first, std::size_t last, Question& question) const
    {
        std::vector<std::size_t> open = {1};
        while (!open.empty()) {
            const std::size_t node = open.back();
            open.pop_back();
            std::size_t begin = node;
            std::size_t end = node + 1;
            for (; begin < leaves_; begin *= 2, end *= 2) {
            }
            if (nodes_[node].count == 0 || begin - leaves_ > last || end - leaves_ <= first)
                continue;
            if (node < leaves_) {
                open.push_back(2 * node + 1);
                open.push_back(2 * node);
                continue;
            }
            question.sides.push_back(side_[node - leaves_]);
            question.places.push_back(place_[node - leaves_]);
        }
    }

private:
    static Sum joined(const Sum& a, const Sum& b)
    {
        if (a.count == 0 || b.count == 0)
            return a.count == 0 ? b : a;
        return {a.constant + b.constant, a.linear + b.linear, a.square + b.square, a.beyond + b.beyond,
                a.count + b.count};
    }

    std::size_t leaves_ = 1;
    std::vector<Sum> nodes_;
    std::vector<std::size_t> side_;
    std::vector<std::size_t> place_;
};

PartLines::PartLines(const JoinedRings& rings, const std::vector<WidePoint>& frame)
    : rings_(rings), frame_(frame), by_level_(frame.size()), order_(frame.size(), kNone),
      ring_place_(rings.rings()), side_place_(frame.size())
{
    std::iota(by_level_.begin(), by_level_.end(), std::size_t{0});
    std::stable_sort(by_level_.begin(), by_level_.end(),
                     [&frame](std::size_t a, std::size_t b) { return frame[a].y < frame[b].y; });
    for (const std::size_t vertex : by_level_)
        if (levels_.empty() || levels_.back() < frame[vertex].y)
            levels_.push_back(frame[vertex].y);
    std::vector<std::size_t> from_left;
    const std::vector<Trapezium> found = trapeziums(frame, rings, &from_left);
    for (std::size_t i = 0; i < from_left.size(); ++i)
        order_[from_left[i]] = i;
    in_order_count_ = from_left.size();
    std::vector<bool> seen(rings.rings());
    std::vector<bool> side_seen(frame.size());
    for (const TourPart& part : tour(rings, frame, found)) {
        const std::size_t ring = rings.ring_of(part.side);
        if (!seen[ring]) {
            ring_place_[ring] = part.place;
            rings_on_tour_.push_back(ring);
        }
        seen[ring] = true;
        if (!side_seen[part.side])
            side_place_[part.side] = part.place;
        side_seen[part.side] = true;
        const std::size_t begin = index_of(part.low);
        const std::size_t end = index_of(part.high);
        if (begin < end && order_[part.side] != kNone)
            entries_.push_back({part.side, begin, end, part.place, part.swept});
    }
    for (std::size_t side = 0; side < frame.size(); ++side)
        area_ = area_ + cross(frame[side] - frame[0], frame[rings.next(side)] - frame[0]) * 0.5;
}

std::size_t PartLines::index_of(const Wide& level) const
{
    return static_cast<std::size_t>(std::lower_bound(levels_.begin(), levels_.end(), level) -
                                    levels_.begin());
}

bool PartLines::is_thick(std::size_t slab) const
{
    return levels_[slab + 1] - levels_[slab] > (levels_.back() - levels_.front()) * kThinSlab;
}

// Where lines at a level lie: in its slab, at the rim of one on both sides of that, and in place of thin slabs in those
// beyond. None above or below the parcel.
std::vector<std::size_t> PartLines::slabs_at(const Wide& level) const
{
    if (level < lowest() || level > highest())
        return {};
    std::vector<std::size_t> found;
    std::size_t below = index_of(level);
    std::size_t above = levels_[below] > level ? below - 1 : below;
    while (below > 0 && !is_thick(below - 1))
        --below;
    if (below > 0)
        found.push_back(below - 1);
    while (above + 1 < levels_.size() && !is_thick(above))
        ++above;
    if (above + 1 < levels_.size() && above + 1 != below)
        found.push_back(above);
    return found;
}

// A level as near as the lines of a slab come to it.
Wide PartLines::in_slab(std::size_t slab, const Wide& level) const
{
    return std::clamp(level, levels_[slab], levels_[slab + 1]);
}

std::vector<std::size_t> PartLines::vertices_between(const Wide& low, const Wide& high) const
{
    std::vector<std::size_t> found;
    auto place =
        std::lower_bound(by_level_.begin(), by_level_.end(), low,
                         [this](std::size_t vertex, const Wide& level) { return frame_[vertex].y < level; });
    for (; place != by_level_.end() && !(frame_[*place].y > high); ++place)
        found.push_back(*place);
    return found;
}

// Where a line at a level meets a side.
Wide PartLines::along(std::size_t side, const Wide& level) const
{
    const WidePoint& a = frame_[side];
    const WidePoint& b = frame_[rings_.next(side)];
    return a.x + (b.x - a.x) * ((level - a.y) / (b.y - a.y));
}

// Goes through the slabs upwards once, and answers all questions on the way.
void PartLines::answer(const PartRequest& request, std::vector<Question>& questions) const
{
    std::vector<std::size_t> by_slab(questions.size());
    std::iota(by_slab.begin(), by_slab.end(), std::size_t{0});
    std::sort(by_slab.begin(), by_slab.end(),
              [&](std::size_t a, std::size_t b) { return questions[a].slab < questions[b].slab; });
    std::vector<std::size_t> begins(entries_.size());
    std::iota(begins.begin(), begins.end(), std::size_t{0});
    std::vector<std::size_t> ends = begins;
    std::sort(begins.begin(), begins.end(),
              [this](std::size_t a, std::size_t b) { return entries_[a].begin < entries_[b].begin; });
    std::sort(ends.begin(), ends.end(),
              [this](std::size_t a, std::size_t b) { return entries_[a].end < entries_[b].end; });

    Row row(in_order_count_);
    auto begin = begins.begin();
    auto end = ends.begin();
    for (const std::size_t i : by_slab) {
        Question& question = questions[i];
        for (; end != ends.end() && entries_[*end].end <= question.slab; ++end)
            row.set(order_[entries_[*end].side], kNone, kNone, {});
        for (; begin != begins.end() && entries_[*begin].begin <= question.slab; ++begin) {
            const Entry& entry = entries_[*begin];
            if (entry.end <= question.slab)
                continue;
            const WidePoint& a = frame_[entry.side];
            const WidePoint& b = frame_[rings_.next(entry.side)];
            const Wide slope = (b.x - a.x) / (b.y - a.y);
            const int sign = b.y < a.y ? 1 : -1;
            const Wide factor = static_cast<double>(sign);
            Sum sum;
            sum.square = slope * 0.5 * factor;
            sum.linear = (a.x - slope * a.y) * factor;
            sum.constant = (entry.swept - a.x * a.y + slope * a.y * a.y * 0.5) * factor;
            sum.beyond = lies_by_base(request) && entry.place > side_place_[request.base] ? sign : 0;
            sum.count = 1;
            row.set(order_[entry.side], entry.side, entry.place, sum);
        }
        const std::size_t first = question.left == kNone ? 0 : order_[question.left];
        const std::size_t last = question.right == kNone ? in_order_count_ - 1 : order_[question.right];
        question.all = row.all().count;
        if (question.lists)
            row.list(first, last, question);
        else
            question.sum = row.between(first, last);
    }
}

// From the first slab of some that has a height to the last one.
void PartLines::add_families(std::size_t left, std::size_t right, std::size_t begin, std::size_t end,
                             std::vector<Family>& all) const
{
    while (begin < end && !is_thick(begin))
        ++begin;
    while (begin < end && !is_thick(end - 1))
        --end;
    if (begin < end && order_[left] != kNone && order_[right] != kNone)
        all.push_back({left, right, begin, end - 1, 0.0, false, false, false, false, false, 0.0});
}

std::vector<PartLines::Family> PartLines::families(const PartRequest& request) const
{
    const bool has_base = lies_by_base(request);
    const std::size_t at_base = index_of(0.0);
    std::vector<Family> all;
    for (std::size_t ring = 0; ring < rings_.rings(); ++ring) {
        const std::size_t first = rings_.first_of(ring);
        std::vector<WidePoint> of_ring;
        std::size_t v = first;
        do {
            of_ring.push_back(frame_[v]);
            v = rings_.next(v);
        } while (v != first);
        const JoinedRings one({Ring(of_ring.size())});
        for (const Trapezium& trapezium : trapeziums(of_ring, one)) {
            const std::size_t begin = index_of(trapezium.low);
            const std::size_t end = index_of(trapezium.high);
            const std::size_t left = first + trapezium.left;
            const std::size_t right = first + trapezium.right;
            // A line that passes over the base side has it in its other piece from there on.
            if (has_base && begin < at_base && at_base < end) {
                add_families(left, right, begin, at_base, all);
                add_families(left, right, at_base, end, all);
            } else {
                add_families(left, right, begin, end, all);
            }
        }
    }
    return all;
}

// Whether the boundary comes to a vertex from below and goes on above it, or the other way round.
bool PartLines::passes_through(std::size_t vertex) const
{
    const Wide& level = frame_[vertex].y;
    const Wide& before = frame_[rings_.before(vertex)].y;
    const Wide& after = frame_[rings_.next(vertex)].y;
    return (before < level && level < after) || (after < level && level < before);
}

// The vertices that a line touches when it comes to them, or leaves them.
std::vector<SpanBreak> PartLines::breaks() const
{
    std::vector<SpanBreak> found;
    for (std::size_t vertex = 0; vertex < frame_.size(); ++vertex) {
        if (passes_through(vertex))
            continue;
        for (const std::size_t side : {rings_.before(vertex), vertex})
            if (order_[side] != kNone)
                found.push_back({index_of(frame_[vertex].y), order_[side]});
    }
    return found;
}

// Those parts of the families at whose levels a line makes two pieces, up to where it touches a vertex.
std::vector<PartLines::Family> PartLines::open_families(const PartRequest& request) const
{
    const std::vector<Family> all = families(request);
    std::vector<LineSpan> spans;
    spans.reserve(all.size());
    for (const Family& family : all)
        spans.push_back({order_[family.left], order_[family.right], family.first_slab, family.last_slab});
    std::vector<Family> open;
    for (const OpenRun& run : open_runs(spans, breaks(), in_order_count_))
        add_families(all[run.span].left, all[run.span].right, run.first_slab, run.last_slab + 1, open);
    return open;
}

// Two questions for each: in its first slab and in its last one.
std::vector<PartLines::Question> PartLines::at_both_ends(const std::vector<Family>& all)
{
    std::vector<Question> questions(2 * all.size());
    for (std::size_t i = 0; i < questions.size(); ++i) {
        const Family& family = all[i / 2];
        questions[i].slab = i % 2 == 0 ? family.first_slab : family.last_slab;
        questions[i].left = family.left;
        questions[i].right = family.right;
    }
    return questions;
}

// Those in which the area above passes through what is wanted, or comes near enough at a rim.
std::vector<PartLines::Family> PartLines::holding(const PartRequest& request) const
{
    const std::vector<Family> all = open_families(request);
    std::vector<Question> questions = at_both_ends(all);
    answer(request, questions);
    std::vector<Family> found;
    for (std::size_t i = 0; i < all.size(); ++i) {
        Family family = all[i];
        const Sum& sum = questions[2 * i].sum;
        Wide most = sum.at(levels_[family.first_slab]);
        Wide least = questions[2 * i + 1].sum.at(levels_[family.last_slab + 1]);
        // The tour begins at the lowest vertex, so that it stays in the piece above or in the other one.
        family.holds_start = most + least < 0.0;
        if (family.holds_start) {
            most = most + area_;
            least = least + area_;
        }
        const bool base_above = sum.beyond + (family.holds_start ? 1 : 0) == 1;
        family.request_above = is_request_above(request, base_above);
        family.wanted = family.request_above ? request.request : request.rest;
        const Wide over = family.wanted - most;
        const Wide under = least - family.wanted;
        const Wide outside = over > under ? over : under;
        if (outside > request.granted)
            continue;
        family.at_rim = outside > 0.0;
        family.beside = outside > area_ * kRim;
        if (family.at_rim) {
            family.level = over > under ? levels_[family.first_slab] : levels_[family.last_slab + 1];
            (over > under ? family.last_slab : family.first_slab) =
                over > under ? family.first_slab : family.last_slab;
        }
        found.push_back(family);
    }
    mark_neighbours(found);
    return found;
}

// Between the same two sides, a line beside the amount stands in for one that holds it, where that one touches a vertex.
void PartLines::mark_neighbours(std::vector<Family>& found)
{
    std::set<std::pair<std::size_t, std::size_t>> held;
    for (const Family& family : found)
        if (!family.beside)
            held.insert({family.left, family.right});
    for (Family& family : found)
        family.stands_in = family.beside && held.count({family.left, family.right}) > 0;
}

// Halves the slabs of all families at once, until each has one left, and solves the quadratic in it. The lines at the levels
// of the vertices next to that one stand in for it.
void PartLines::bisect(const PartRequest& request, std::vector<Family>& all) const
{
    const auto above = [this](const Family& family, const Question& question, const Wide& level) {
        const Wide sum = question.sum.at(level);
        return family.holds_start ? sum + area_ : sum;
    };
    for (;;) {
        std::vector<Question> questions;
        std::vector<Family*> open;
        for (Family& family : all) {
            if (family.first_slab == family.last_slab)
                continue;
            open.push_back(&family);
            questions.emplace_back();
            std::size_t middle = (family.first_slab + family.last_slab) / 2;
            while (middle > family.first_slab && !is_thick(middle))
                --middle;
            questions.back().slab = middle;
            questions.back().left = family.left;
            questions.back().right = family.right;
        }
        if (open.empty())
            break;
        answer(request, questions);
        for (std::size_t i = 0; i < open.size(); ++i) {
            const std::size_t slab = questions[i].slab;
            if (above(*open[i], questions[i], levels_[slab + 1]) > open[i]->wanted) {
                open[i]->first_slab = slab + 1;
                while (open[i]->first_slab < open[i]->last_slab && !is_thick(open[i]->first_slab))
                    ++open[i]->first_slab;
            } else {
                open[i]->last_slab = slab;
            }
        }
    }
    std::vector<Question> questions(all.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        questions[i].slab = all[i].first_slab;
        questions[i].left = all[i].left;
        questions[i].right = all[i].right;
    }
    answer(request, questions);
    for (std::size_t i = 0, n = all.size(); i < n; ++i) {
        Family& family = all[i];
        const Wide& low = levels_[family.first_slab];
        const Wide& high = levels_[family.first_slab + 1];
        const Wide over_at_low = above(family, questions[i], low) - family.wanted;
        const Wide over_at_high = above(family, questions[i], high) - family.wanted;
        if (!family.at_rim) {
            const Wide height = high - low;
            const Wide width_low = questions[i].sum.width_at(low);
            const Wide widening = questions[i].sum.width_at(high) - width_low;
            const Wide sunk = over_at_low / height;
            const Wide under_root = width_low * width_low + widening * sunk * 2.0;
            const Wide divisor = width_low + sqrt(under_root);
            const Wide part = divisor > 0.0 ? sunk * 2.0 / divisor : Wide(0.0);
            family.level = in_slab(family.first_slab, low + height * part);
        }
        const Family found = family;
        for (const bool is_low : {true, false}) {
            const Wide& level = is_low ? low : high;
            const bool is_another = found.level < level || found.level > level;
            if (is_another && !(abs(is_low ? over_at_low : over_at_high) > request.granted)) {
                all.push_back(found);
                all.back().level = level;
                all.back().beside = all.back().stands_in = true;
            }
        }
    }
}

// Whether a run of segments comes back to the ring on which it begins, and meets every other ring once.
bool PartLines::parts_in_two(const std::vector<std::size_t>& sides) const
{
    std::vector<std::size_t> met;
    bool goes_on = true;  // from the ring at which a segment ends
    for (std::size_t i = 0; i < sides.size(); i += 2) {
        met.push_back(rings_.ring_of(sides[i]));
        goes_on = goes_on && rings_.ring_of(sides[i + 1]) == rings_.ring_of(sides[(i + 2) % sides.size()]);
    }
    std::sort(met.begin(), met.end());
    return goes_on && std::adjacent_find(met.begin(), met.end()) == met.end();
}

PartLine PartLines::line_of(const Family& family, const Question& question) const
{
    PartLine line;
    line.level = in_slab(question.slab, family.level);
    line.sides = question.sides;
    line.places = question.places;
    line.holds_start = family.holds_start;
    line.request_above = family.request_above;
    line.above = family.wanted;
    line.beside_the_amount = family.beside;
    line.stands_in = family.stands_in;
    line.alone = question.all == question.sides.size();
    return line;
}

std::vector<PartLine> PartLines::all_lines(const PartRequest& request) const
{
    std::vector<Family> found = holding(request);
    bisect(request, found);
    std::vector<Question> questions(found.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        questions[i].slab = found[i].first_slab;
        questions[i].left = found[i].left;
        questions[i].right = found[i].right;
        questions[i].lists = true;
    }
    answer(request, questions);
    std::vector<PartLine> lines;
    for (std::size_t i = 0; i < found.size(); ++i)
        lines.push_back(line_of(found[i], questions[i]));
    return in_order(request, std::move(lines));
}

std::vector<PartLine> PartLines::lines_at(const PartRequest& request, const Wide& level) const
{
    std::vector<Question> questions;
    for (const std::size_t slab : slabs_at(level)) {
        // A line below the base side has that in its other piece.
        if (lies_by_base(request) && level > 0.0 && slab < index_of(0.0))
            continue;
        questions.emplace_back();
        questions.back().slab = slab;
        questions.back().lists = true;
    }
    answer(request, questions);
    std::vector<PartLine> lines;
    for (const Question& row : questions) {
        // Back from each end to where the same ring was met last.
        std::vector<std::size_t> last(rings_.rings(), kNone);
        std::vector<Question> runs;
        for (std::size_t i = 0; i + 1 < row.sides.size(); i += 2) {
            last[rings_.ring_of(row.sides[i])] = i;
            const std::size_t begin = last[rings_.ring_of(row.sides[i + 1])];
            if (begin == kNone)
                continue;
            Question run = row;
            run.sides.assign(row.sides.begin() + static_cast<std::ptrdiff_t>(begin),
                             row.sides.begin() + static_cast<std::ptrdiff_t>(i + 2));
            run.places.assign(row.places.begin() + static_cast<std::ptrdiff_t>(begin),
                              row.places.begin() + static_cast<std::ptrdiff_t>(i + 2));
            run.lists = false;
            run.left = run.sides.front();
            run.right = run.sides.back();
            if (parts_in_two(run.sides))
                runs.push_back(std::move(run));
        }
        answer(request, runs);
        for (const Question& run : runs) {
            Family family = {};
            family.level = level;
            family.wanted = run.sum.at(level);
            family.holds_start = family.wanted < 0.0;
            if (family.holds_start)
                family.wanted = family.wanted + area_;
            const bool base_above = run.sum.beyond + (family.holds_start ? 1 : 0) == 1;
            family.request_above = is_request_above(request, base_above);
            lines.push_back(line_of(family, run));
        }
    }
    return in_order(request, std::move(lines));
}

// Whether lines that come to a vertex, from above with `from` 1 and from below with -1, touch it: where the parcel goes on
// past it. From a vertex from which one side leads back they end there.
bool PartLines::is_touched(std::size_t vertex, double from) const
{
    const WidePoint& v = frame_[vertex];
    const WidePoint& before = frame_[rings_.before(vertex)];
    const WidePoint& after = frame_[rings_.next(vertex)];
    const auto way_to = [&v](const WidePoint& p) { return p.y > v.y ? 1 : (p.y < v.y ? -1 : 0); };
    const int to_before = way_to(before);
    const int to_after = way_to(after);
    if (to_before != 0 && to_after != 0)
        return to_before == to_after && cross(v - before, after - v) < 0.0;
    const int other = to_before == 0 ? to_after : to_before;
    if (other * from > 0.0)
        return false;
    // Along a side to the right the parcel lies above.
    const Wide run = to_before == 0 ? v.x - before.x : after.x - v.x;
    return run * from > 0.0;
}

// Tells for each family whether the lines at its two ends are free of vertices on their way.
class PartLines::Ends {
public:
    Ends(const PartLines& lines, const PartRequest& request, const Wide& reach)
        : lines_(lines), request_(request), reach_(reach), all_(lines.frame_, reach),
          from_below_(lines.frame_, reach, [&lines](std::size_t v) { return lines.is_touched(v, -1.0); }),
          from_above_(lines.frame_, reach, [&lines](std::size_t v) { return lines.is_touched(v, 1.0); })
    {}

    // Lines between vertices that are as good as level cannot be told from lines through them.
    bool is_in_one_row(const Family& family) const
    {
        return all_.row_at(lines_.levels_[family.first_slab]) ==
               all_.row_at(lines_.levels_[family.last_slab + 1]);
    }

    // Of each family two, the lower end first.
    std::vector<bool> are_free(const std::vector<Family>& families) const
    {
        std::vector<bool> free(2 * families.size());
        std::vector<std::size_t> in_rows;
        for (std::size_t i = 0; i < free.size(); ++i) {
            const Family& family = families[i / 2];
            const Wide& level = level_of(family, i);
            const VertexRows& rows = i % 2 == 0 ? from_above_ : from_below_;
            if (all_.is_level(all_.row_at(level)))
                free[i] = !rows.has_between(level, lines_.along(family.left, level),
                                            lines_.along(family.right, level));
            else
                in_rows.push_back(i);
        }
        const std::vector<Question> lists = lists_of(families, in_rows);
        for (std::size_t k = 0; k < in_rows.size(); ++k)
            free[in_rows[k]] = is_free(lists[k].sides, level_of(families[in_rows[k] / 2], in_rows[k]));
        return free;
    }

private:
    const Wide& level_of(const Family& family, std::size_t end) const
    {
        return lines_.levels_[end % 2 == 0 ? family.first_slab : family.last_slab + 1];
    }

    std::vector<Question> lists_of(const std::vector<Family>& families,
                                   const std::vector<std::size_t>& ends) const
    {
        const std::vector<Question> all = at_both_ends(families);
        std::vector<Question> lists;
        lists.reserve(ends.size());
        for (const std::size_t end : ends) {
            lists.push_back(all[end]);
            lists.back().lists = true;
        }
        lines_.answer(request_, lists);
        return lists;
    }

    // Each segment passes no vertex of the row, and the next one begins further on.
    bool is_free(const std::vector<std::size_t>& sides, const Wide& level) const
    {
        Wide before;
        for (std::size_t i = 0; i < sides.size(); i += 2) {
            const Wide left = lines_.along(sides[i], level);
            const Wide right = lines_.along(sides[i + 1], level);
            if (all_.has_between(level, left, right) || (i > 0 && !(left - before > reach_)))
                return false;
            before = right;
        }
        return true;
    }

    const PartLines& lines_;
    const PartRequest& request_;
    Wide reach_;
    VertexRows all_;
    VertexRows from_below_;
    VertexRows from_above_;
};

std::vector<AreaRange> PartLines::areas(const PartRequest& request, const Wide& reach) const
{
    const Ends ends(*this, request, reach);
    std::vector<Family> all = open_families(request);
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&ends](const Family& family) { return ends.is_in_one_row(family); }),
              all.end());
    const std::vector<bool> is_free = ends.are_free(all);
    std::vector<Question> questions = at_both_ends(all);
    answer(request, questions);
    std::vector<AreaRange> ranges;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Sum& sum = questions[2 * i].sum;
        AreaRange above = {questions[2 * i + 1].sum.at(levels_[all[i].last_slab + 1]),
                           sum.at(levels_[all[i].first_slab]), is_free[2 * i + 1], is_free[2 * i]};
        const bool holds_start = above.least + above.most < 0.0;
        if (holds_start) {
            above.least = above.least + area_;
            above.most = above.most + area_;
        }
        const bool base_above = sum.beyond + (holds_start ? 1 : 0) == 1;
        if (is_request_above(request, base_above))
            ranges.push_back(above);
        else
            ranges.push_back(
                {area_ - above.most, area_ - above.least, above.most_is_had, above.least_is_had});
    }
    return ranges;
}

std::vector<PartLine> PartLines::in_order(const PartRequest& request, std::vector<PartLine> all) const
{
    const bool along_base = lies_by_base(request);
    Wide near = request.where == PartRequest::Where::above ? highest() : lowest();
    if (request.has_base)
        near = (frame_[request.base].y + frame_[rings_.next(request.base)].y) * 0.5;
    struct Rank {
        bool stands_in;
        bool later;
        bool not_alone;
        double distance;
        double level;
        double along;
        std::size_t index;
        bool operator<(const Rank& other) const
        {
            return std::tie(stands_in, later, not_alone, distance, level, along, index) <
                   std::tie(other.stands_in, other.later, other.not_alone, other.distance, other.level,
                            other.along, other.index);
        }
    };
    std::vector<Rank> ranks;
    ranks.reserve(all.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        const PartLine& line = all[i];
        const bool preferred =
            !request.has_base || (along_base ? line.level > 0.0 : line.sides.back() == request.base);
        ranks.push_back({line.stands_in, !preferred, !line.alone, abs(line.level - near).value(),
                         line.level.value(), along(line.sides.front(), line.level).value(), i});
    }
    std::sort(ranks.begin(), ranks.end());
    std::vector<PartLine> sorted;
    sorted.reserve(all.size());
    for (const Rank& rank : ranks)
        sorted.push_back(std::move(all[rank.index]));
    return sorted;
}

}  // namespace plparcel
