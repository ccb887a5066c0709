#include "asking/alongside.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "boundary/box_tree.h"
#include "lines/direction.h"

namespace plparcel {
namespace {

// The part of the distance by which a segment may lie behind the side: neighbours' boundaries overlap a little.
constexpr double kBehind = 0.1;

// Products of four coordinates stay finite.
constexpr double kFarthest = 1e90;

bool is_usable(const Segment& segment)
{
    for (const double c : {segment.from.x, segment.from.y, segment.to.x, segment.to.y})
        if (!(std::fabs(c) <= kFarthest))
            return false;
    const Box box = box_of(segment.from, segment.to);
    return std::fmax(box.high.x - box.low.x, box.high.y - box.low.y) > 1.0 / kFarthest;
}

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

struct BoxOfSegment {
    Box operator()(const Segment& segment) const { return box_of(segment.from, segment.to); }
};

}  // namespace

class OtherGeometry::Tree : public BoxTree<Segment, BoxOfSegment> {
public:
    using BoxTree::BoxTree;
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
