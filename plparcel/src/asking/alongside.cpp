#include "asking/alongside.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "lines/direction.h"

namespace plparcel {
namespace {

// The part of the distance by which a segment may lie behind the side: neighbours' boundaries overlap a little.
constexpr double kBehind = 0.1;

// Products of four coordinates stay finite.
constexpr double kFarthest = 1e90;

struct Box {
    PL_PNT2D_record low = {};
    PL_PNT2D_record high = {};
};

Box box_of(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return {{std::fmin(a.x, b.x), std::fmin(a.y, b.y)}, {std::fmax(a.x, b.x), std::fmax(a.y, b.y)}};
}

Box both(const Box& a, const Box& b)
{
    return {{std::fmin(a.low.x, b.low.x), std::fmin(a.low.y, b.low.y)},
            {std::fmax(a.high.x, b.high.x), std::fmax(a.high.y, b.high.y)}};
}

bool is_usable(const Segment& segment)
{
    for (const double c : {segment.from.x, segment.from.y, segment.to.x, segment.to.y})
        if (!(std::fabs(c) <= kFarthest))
            return false;
    const Box box = box_of(segment.from, segment.to);
    return std::fmax(box.high.x - box.low.x, box.high.y - box.low.y) > 1.0 / kFarthest;
}

// What a segment must come near to: a side, and the distance.
class Reach {
public:
    Reach(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
        : box_(box_of(a, b)), a_(a), length_(std::hypot(b.x - a.x, b.y - a.y)),
          across_({(a.y - b.y) / length_, (b.x - a.x) / length_})
    {}

    // False only where all of a box lies farther away than that.
    bool comes_near(const Box& box, double distance) const
    {
        const double away_x = std::fmax(box.low.x - box_.high.x, box_.low.x - box.high.x);
        const double away_y = std::fmax(box.low.y - box_.high.y, box_.low.y - box.high.y);
        if (away_x > distance || away_y > distance)
            return false;
        const double half_x = 0.5 * (box.high.x - box.low.x);
        const double half_y = 0.5 * (box.high.y - box.low.y);
        const double off = (box.low.x + half_x - a_.x) * across_.x + (box.low.y + half_y - a_.y) * across_.y;
        // A little more, for the roundings of it.
        constexpr double kRoundings = 1e-12;
        const double extent = std::fabs(across_.x) * half_x + std::fabs(across_.y) * half_y;
        const double sizes =
            std::fabs(box.low.x) + std::fabs(box.low.y) + std::fabs(a_.x) + std::fabs(a_.y) + half_x + half_y;
        return !(std::fabs(off) - extent > distance + kRoundings * sizes);
    }

private:
    Box box_;
    PL_PNT2D_record a_;
    double length_;
    PL_PNT2D_record across_;
};

double squared(double a)
{
    return a * a;
}

// A point from a side: how far along it and how far out, caller's unit.
struct Beside {
    double along;
    double out;
};

Beside beside(const FacingSide& side, const WidePoint& run, const Wide& length, const PL_PNT2D_record& p)
{
    const WidePoint w = from_to(side.a, p);
    return {(dot(run, w) / length).value(), (dot(side.out, w) / length).value()};
}

double distance_to(const Beside& p, const Beside& a, const Beside& b)
{
    const double run = b.along - a.along;
    const double rise = b.out - a.out;
    const double length2 = squared(run) + squared(rise);
    double part = length2 > 0.0 ? ((p.along - a.along) * run + (p.out - a.out) * rise) / length2 : 0.0;
    part = std::fmin(std::fmax(part, 0.0), 1.0);
    return std::sqrt(squared(p.along - a.along - part * run) + squared(p.out - a.out - part * rise));
}

// Of a segment from the side that runs from (0, 0) to (length, 0).
double distance_between(double length, const Beside& p, const Beside& q)
{
    const Beside first = {0.0, 0.0};
    const Beside last = {length, 0.0};
    if ((p.out < 0.0) != (q.out < 0.0)) {
        const double crossing = p.along + (q.along - p.along) * (p.out / (p.out - q.out));
        if (crossing >= 0.0 && crossing <= length)
            return 0.0;
    }
    return std::fmin(std::fmin(distance_to(p, first, last), distance_to(q, first, last)),
                     std::fmin(distance_to(first, p, q), distance_to(last, p, q)));
}

}  // namespace

// Boxes around segments, and around pairs of boxes: nodes i of a heap, the leaves last.
class OtherGeometry::Tree {
public:
    explicit Tree(std::vector<Segment> segments) : segments_(std::move(segments))
    {
        if (segments_.empty())
            return;
        while (leaves_ * kInLeaf < segments_.size())
            leaves_ *= 2;
        boxes_.resize(2 * leaves_);
        build(1, 0, segments_.size(), leaves_);
    }

    bool is_empty() const { return segments_.empty(); }

    using Note = std::function<bool(const Segment&)>;

    // Calls `note` for each segment that may lie within the distance, which may shrink on the way; stops when it
    // returns false. There must be segments.
    void near(const Reach& reach, const double& distance, const Note& note) const
    {
        visit(1, 0, segments_.size(), leaves_, reach, distance, note);
    }

private:
    static constexpr std::size_t kInLeaf = 8;

    static PL_PNT2D_record middle(const Segment& s)
    {
        return {0.5 * s.from.x + 0.5 * s.to.x, 0.5 * s.from.y + 0.5 * s.to.y};
    }

    // Halves of equal size, apart in the direction in which their middles spread most.
    void build(std::size_t node, std::size_t begin, std::size_t end, std::size_t leaves)
    {
        Box& box = boxes_[node];
        Box middles = {middle(segments_[begin]), middle(segments_[begin])};
        box = box_of(segments_[begin].from, segments_[begin].to);
        for (std::size_t i = begin; i < end; ++i) {
            box = both(box, box_of(segments_[i].from, segments_[i].to));
            middles = both(middles, {middle(segments_[i]), middle(segments_[i])});
        }
        if (leaves == 1)
            return;
        const bool by_x = middles.high.x - middles.low.x > middles.high.y - middles.low.y;
        const std::size_t half = begin + (end - begin) / 2;
        const auto at = [this](std::size_t i) { return segments_.begin() + static_cast<std::ptrdiff_t>(i); };
        std::nth_element(at(begin), at(half), at(end), [by_x](const Segment& a, const Segment& b) {
            return by_x ? middle(a).x < middle(b).x : middle(a).y < middle(b).y;
        });
        build(2 * node, begin, half, leaves / 2);
        build(2 * node + 1, half, end, leaves / 2);
    }

    bool visit(std::size_t node, std::size_t begin, std::size_t end, std::size_t leaves, const Reach& reach,
               const double& distance, const Note& note) const
    {
        if (!reach.comes_near(boxes_[node], distance))
            return true;
        if (leaves == 1) {
            for (std::size_t i = begin; i < end; ++i)
                if (!note(segments_[i]))
                    return false;
            return true;
        }
        const std::size_t half = begin + (end - begin) / 2;
        return visit(2 * node, begin, half, leaves / 2, reach, distance, note) &&
               visit(2 * node + 1, half, end, leaves / 2, reach, distance, note);
    }

    std::vector<Segment> segments_;
    std::vector<Box> boxes_;
    std::size_t leaves_ = 1;
};

OtherGeometry::OtherGeometry(const std::vector<Segment>& segments)
{
    std::vector<Segment> usable;
    std::copy_if(segments.begin(), segments.end(), std::back_inserter(usable), is_usable);
    tree_ = std::make_unique<const Tree>(std::move(usable));  // no symbol of the standard library is exported
}

AlongsideSearch::AlongsideSearch(const OtherGeometry& other, const Alongside& alongside)
    : tree_(*other.tree_), distance_(alongside.distance),
      most_sine_(direction_of(alongside.angle_gon).x.value())
{}

bool AlongsideSearch::is_empty() const
{
    return tree_.is_empty();
}

AlongsideLength AlongsideSearch::measure(const FacingSide& side)
{
    counted_.clear();
    nearest_ = std::numeric_limits<double>::infinity();
    const WidePoint run = from_to(side.a, side.b);
    const double length = sqrt(dot(run, run)).value();
    tree_.near(Reach(side.a, side.b), distance_, [&](const Segment& segment) {
        note(side, length, segment);
        return ++pairs_ <= kMostPairs;
    });
    unite();
    AlongsideLength measured;
    for (const Interval& interval : counted_)
        measured.length += interval.end - interval.begin;
    measured.nearest = nearest_;
    return measured;
}

double AlongsideSearch::nearest_to(const std::vector<FacingSide>& sides)
{
    double nearest = std::numeric_limits<double>::infinity();
    for (const FacingSide& side : sides) {
        const WidePoint run = from_to(side.a, side.b);
        const Wide length = sqrt(dot(run, run));
        tree_.near(Reach(side.a, side.b), nearest, [&](const Segment& segment) {
            nearest =
                std::fmin(nearest, distance_between(length.value(), beside(side, run, length, segment.from),
                                                    beside(side, run, length, segment.to)));
            return ++pairs_ <= kMostPairs;
        });
    }
    return nearest;
}

// The places on the side that lie within the distance of what of the segment lies before it.
void AlongsideSearch::note(const FacingSide& side, double length, const Segment& segment)
{
    const WidePoint run = from_to(side.a, side.b);
    const Wide wide_length = sqrt(dot(run, run));
    Beside p = beside(side, run, wide_length, segment.from);
    Beside q = beside(side, run, wide_length, segment.to);
    if (p.out > q.out)
        std::swap(p, q);
    const double whole = std::sqrt(squared(q.along - p.along) + squared(q.out - p.out));
    const double behind = -kBehind * distance_;
    if (q.out - p.out > most_sine_ * whole || q.out < behind || p.out > distance_)
        return;
    if (p.out < behind) {
        p.along += (q.along - p.along) * ((behind - p.out) / (q.out - p.out));
        p.out = behind;
    }

    double begin = std::numeric_limits<double>::infinity();
    double end = -begin;
    for (const Beside& disc : {p, q}) {
        const double left = squared(distance_) - squared(disc.out);
        if (left < 0.0)
            continue;
        begin = std::fmin(begin, disc.along - std::sqrt(left));
        end = std::fmax(end, disc.along + std::sqrt(left));
    }
    // The rectangle's long sides, in the direction (c, s): a place is across from the segment, and within the
    // distance of its line.
    const double rest = std::sqrt(squared(q.along - p.along) + squared(q.out - p.out));
    if (rest > 0.0) {
        const double c = (q.along - p.along) / rest;
        const double s = (q.out - p.out) / rest;
        double low = -std::numeric_limits<double>::infinity();
        double high = -low;
        const auto keep = [&](double slope, double least, double most) {  // least <= slope * place <= most
            if (!(std::fabs(slope) > 0.0)) {
                if (least > 0.0 || most < 0.0)
                    high = -std::numeric_limits<double>::infinity();
                return;
            }
            low = std::fmax(low, (slope > 0.0 ? least : most) / slope);
            high = std::fmin(high, (slope > 0.0 ? most : least) / slope);
        };
        const double across_from_p = p.along * c + p.out * s;
        const double off_line = p.along * s - p.out * c;
        keep(c, across_from_p, across_from_p + rest);
        keep(s, off_line - distance_, off_line + distance_);
        if (low <= high) {
            begin = std::fmin(begin, low);
            end = std::fmax(end, high);
        }
    }
    begin = std::fmax(begin, 0.0);
    end = std::fmin(end, length);
    if (!(begin < end))
        return;
    nearest_ = std::fmin(nearest_, distance_between(length, p, q));
    counted_.push_back({begin, end});
    constexpr std::size_t kManyIntervals = 4096;
    if (counted_.size() >= kManyIntervals)
        unite();
}

// Intervals that overlap or touch become one.
void AlongsideSearch::unite()
{
    std::sort(counted_.begin(), counted_.end(),
              [](const Interval& a, const Interval& b) { return a.begin < b.begin; });
    std::vector<Interval> united;
    for (const Interval& interval : counted_) {
        if (united.empty() || interval.begin > united.back().end)
            united.push_back(interval);
        else
            united.back().end = std::fmax(united.back().end, interval.end);
    }
    counted_ = std::move(united);
}

}  // namespace plparcel
