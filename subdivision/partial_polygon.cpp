#include "subdivision/partial_polygon.h"

#include <cmath>

#include "kernel/bit_order.h"
#include "kernel/shoelace.h"
#include "subdivision/search.h"

namespace plcalc {

namespace {

// The error of a sum, per addition, relative to its greatest partial sum: half an ulp, doubled for the
// additions that the bound itself takes.
constexpr double kOffPerAddition = 0x1p-52;

// A little more than the relative 1e-6 that ends a search: an area that differs by more does not meet the
// request, however the difference and its quotient are rounded.
constexpr double kSurelyApart = 1.0001e-6;
constexpr double kLeastArea = 1e-300;    // below, a product with it, or half of it, loses digits
constexpr double kGreatestArea = 1e300;  // beyond, twice it may be infinite
constexpr std::uint64_t kBinade = std::uint64_t(1) << 52;  // what doubling adds to the bits

}  // namespace

PartialPolygon::PartialPolygon(const std::vector<PL_PNT2D_record>& ring) : ring_(ring), shares_(ring.size())
{
    runs_.reserve(ring.size());
    singles_.reserve(kUsualSinglePoints);
    for (std::size_t at = 1; at + 1 < ring.size(); ++at) {
        const double twice = twice_shoelace_share(ring[at - 1], ring[at], ring[at + 1]);
        shares_[at] = {twice * 0.5, twice + shares_[at - 1].twice_sum};
        greatest_sum_ = greater_magnitude(greatest_sum_, shares_[at].twice_sum);
    }
    two_sums_ = greatest_sum_ + greatest_sum_;
}

void PartialPolygon::clear() noexcept
{
    runs_.clear();
    singles_.clear();
    size_ = 0;
}

void PartialPolygon::append_vertices(std::int32_t first, std::int32_t last)
{
    if (last < first)
        return;
    size_ += last + 1 - first;
    if (!runs_.empty() && runs_.back().last >= 0 && runs_.back().last + 1 == first)
        runs_.back().last = last;
    else
        runs_.push_back({first, last});
}

void PartialPolygon::append_point(const PL_PNT2D_record& p)
{
    const std::int32_t at = ~static_cast<std::int32_t>(singles_.size());
    singles_.push_back(p);
    runs_.push_back({at, at});
    ++size_;
}

// Hands over the points, each between its two neighbours, in the order in which the area adds their shares. Those at
// the ends of a run, whose neighbours need not be those of the ring, come one by one, those in between together.
template <class AddPoint, class AddBetween>
void PartialPolygon::add_up(AddPoint add_point, AddBetween add_between) const noexcept
{
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        const Run& run = runs_[i];
        const PL_PNT2D_record& before = point(i == 0 ? runs_.back().last : runs_[i - 1].last);
        const PL_PNT2D_record& after =
            point(i + 1 == runs_.size() ? runs_.front().first : runs_[i + 1].first);
        if (run.first == run.last) {
            add_point(before, point(run.first), after);
            continue;
        }
        add_point(before, point(run.first), point(run.first + 1));
        if (run.first + 1 < run.last)
            add_between(run.first, run.last);
        add_point(point(run.last - 1), point(run.last), after);
    }
}

double PartialPolygon::area() const noexcept
{
    double sum = 0.0;
    const auto add_point = [&](const PL_PNT2D_record& before, const PL_PNT2D_record& p,
                               const PL_PNT2D_record& after) {
        sum = shoelace_share(before, p, after) + sum;
    };
    add_up(add_point, [&](std::int32_t first, std::int32_t last) {
        for (std::int32_t at = first + 1; at < last; ++at)
            sum = share(at) + sum;
    });
    return std::fabs(sum);
}

PartialPolygon::Estimate PartialPolygon::estimate() const noexcept
{
    double sum = 0.0;
    double peak = greatest_sum_;
    const auto add = [&](double part) {
        sum += part;
        peak = greater_magnitude(peak, sum);
    };
    const auto add_point = [&](const PL_PNT2D_record& before, const PL_PNT2D_record& p,
                               const PL_PNT2D_record& after) { add(twice_shoelace_share(before, p, after)); };
    add_up(add_point, [&](std::int32_t first, std::int32_t last) {
        add(twice_sum_up_to(last - 1) - twice_sum_up_to(first));
    });
    const std::size_t additions = static_cast<std::size_t>(size_) + ring_.size() + 4 * runs_.size() + 8;
    return {std::fabs(sum), kOffPerAddition * static_cast<double>(additions) * (peak + two_sums_)};
}

bool PartialPolygon::exceeds(double requested) const noexcept
{
    const Estimate now = estimate();
    if (magnitude_bits(now.twice_area) > magnitude_bits(kLeastArea) &&
        ordered_bits(requested) < ordered_bits(kGreatestArea)) {
        const double twice_requested = requested + requested;
        if (now.twice_area - now.off > twice_requested)
            return true;
        if (now.twice_area + now.off <= twice_requested)
            return false;
    }
    return area() > requested;
}

PartialPolygon::Verdict PartialPolygon::against(double requested) const noexcept
{
    if (ordered_bits(requested) > ordered_bits(kLeastArea)) {
        const Estimate now = estimate();
        if (magnitude_bits(now.twice_area) > magnitude_bits(requested) + kBinade) {
            if (now.twice_area - now.off > requested * (2.0 * (1.0 + kSurelyApart)))
                return Verdict::kNotBelow;
        } else if (now.twice_area + now.off < requested * (2.0 * (1.0 - kSurelyApart))) {
            return Verdict::kBelow;
        }
    }
    const double exact = area();
    if (meets_request(exact, requested))
        return Verdict::kMeets;
    return exact < requested ? Verdict::kBelow : Verdict::kNotBelow;
}

bool PartialPolygon::surely_apart_from(double requested, double doubt) const noexcept
{
    if (!(requested > kLeastArea))
        return false;
    const Estimate now = estimate();
    const double off = now.off + 2.0 * doubt;
    return now.twice_area - off > requested * (2.0 * (1.0 + kSurelyApart)) ||
           now.twice_area + off < requested * (2.0 * (1.0 - kSurelyApart));
}

void PartialPolygon::write_to(std::vector<PL_PNT2D_record>& points) const
{
    points.clear();
    for (const Run& run : runs_)
        points.insert(points.end(), &point(run.first), &point(run.first) + (run.last + 1 - run.first));
}

}  // namespace plcalc
