#include "verdict/nearby_ends.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "verdict/area_by_ends.h"

namespace plparcel {
namespace {

// When so many pairs of ends have been refused, rounding is not what is wrong with the line.
constexpr int kMostOffers = 64;

// How many values of one coordinate are tried on each side.
constexpr double kMostSteps = 64.0;

double spacing_at(double v)
{
    return std::nextafter(std::fabs(v), std::numeric_limits<double>::infinity()) - std::fabs(v);
}

std::vector<PL_PNT2D_record> points_near(const PL_PNT2D_record& p, double reach)
{
    std::vector<PL_PNT2D_record> found;
    for (const double x : doubles_near(p.x, reach, kMostSteps))
        for (const double y : doubles_near(p.y, reach, kMostSteps))
            found.push_back({x, y});
    std::stable_sort(found.begin(), found.end(), [&p](const PL_PNT2D_record& a, const PL_PNT2D_record& b) {
        return std::fabs(a.x - p.x) + std::fabs(a.y - p.y) < std::fabs(b.x - p.x) + std::fabs(b.y - p.y);
    });
    return found;
}

// From where to where a coordinate may be moved.
struct Span {
    double low;
    double high;
};

// The moves for which the area stays within what is granted.
Span span_that_holds(double miss, double growth, double granted)
{
    constexpr double kNoEnd = std::numeric_limits<double>::infinity();
    if (growth == 0.0)  // the end moves along the line between its neighbours
        return std::fabs(miss) <= granted ? Span{-kNoEnd, kNoEnd} : Span{kNoEnd, -kNoEnd};
    const double one = (-granted - miss) / growth;
    const double other = (granted - miss) / growth;
    return {std::min(one, other), std::max(one, other)};
}

Span common(const Span& a, const Span& b)
{
    return {std::max(a.low, b.low), std::min(a.high, b.high)};
}

// One of the pieces and what it should hold.
class Holding {
public:
    Holding(const MeasuredRing& ring, const Chord& chord, bool of_after_from, const Wide& wanted,
            double granted)
        : area_(ring, chord, of_after_from), wanted_(wanted), granted_(granted)
    {}

    Span span_of_to(const PL_PNT2D_record& from, const PL_PNT2D_record& to,
                    double PL_PNT2D_record::*axis) const
    {
        return span_that_holds((area_(from, to) - wanted_).value(), area_.growth_with_to(from).*axis,
                               granted_);
    }

private:
    AreaByEnds area_;
    Wide wanted_;
    double granted_;
};

}  // namespace

std::vector<double> doubles_near(double v, double reach, double most)
{
    std::vector<double> found = {v};
    const double step = std::max(spacing_at(v), reach / most);
    for (int i = 1; i * step <= reach; ++i) {
        found.push_back(v + i * step);
        found.push_back(v - i * step);
    }
    return found;
}

bool offer_nearby_ends(const MeasuredRing& ring, const Chord& chord, const Target& target,
                       const PL_PNT2D_record& from, const PL_PNT2D_record& to,
                       const std::function<bool(const PL_PNT2D_record&, const PL_PNT2D_record&)>& take)
{
    const double reach = kReachRoundings * ring.spacing();
    const bool x_is_finer = spacing_at(to.x) <= spacing_at(to.y);
    double PL_PNT2D_record::*const finer = x_is_finer ? &PL_PNT2D_record::x : &PL_PNT2D_record::y;
    double PL_PNT2D_record::*const coarser = x_is_finer ? &PL_PNT2D_record::y : &PL_PNT2D_record::x;
    const Holding asked(ring, chord, chord.request_after_from, target.asked, target.granted(target.asked));
    const Holding rest(ring, chord, !chord.request_after_from, target.rest, target.granted(target.rest));
    int offers = 0;
    for (const PL_PNT2D_record& start : points_near(from, chord.from_stays ? 0.0 : reach)) {
        for (const double coarse : doubles_near(to.*coarser, reach, kMostSteps)) {
            PL_PNT2D_record end = to;
            end.*coarser = coarse;
            const Span holds =
                common(asked.span_of_to(start, end, finer), rest.span_of_to(start, end, finer));
            const Span span = common(holds, {-reach, reach});
            if (!(span.low <= span.high))
                continue;
            end.*finer += 0.5 * span.low + 0.5 * span.high;
            const double move = end.*finer - to.*finer;
            if (move < span.low || move > span.high)
                continue;  // no double in the span
            if (take(start, end))
                return true;
            if (++offers == kMostOffers)
                return false;
        }
    }
    return false;
}

}  // namespace plparcel
