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
constexpr double kLeastRequest = 1e-300;  // below, a product with it loses digits

}  // namespace

PartialPolygon::PartialPolygon(const std::vector<PL_PNT2D_record>& ring)
    : ring_(ring), shares_(ring.size()), sums_(ring.size())
{
    runs_.reserve(ring.size());
    for (std::size_t at = 1; at + 1 < ring.size(); ++at) {
        shares_[at] = shoelace_share(ring[at - 1], ring[at], ring[at + 1]);
        sums_[at] = shares_[at] + sums_[at - 1];
        greatest_sum_ = greater_magnitude(greatest_sum_, sums_[at]);
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

// Hands over the shares in the order in which the area adds them. The shares at the ends of a run, whose
// neighbours need not be those of the ring, come one by one, those in between together.
template <class Add, class AddBetween>
void PartialPolygon::add_up(Add add, AddBetween add_between) const noexcept
{
    for (std::size_t i = 0; i < runs_.size(); ++i) {
        const Run& run = runs_[i];
        const PL_PNT2D_record& before = point(i == 0 ? runs_.back().last : runs_[i - 1].last);
        const PL_PNT2D_record& after =
            point(i + 1 == runs_.size() ? runs_.front().first : runs_[i + 1].first);
        if (run.first == run.last) {
            add(shoelace_share(before, point(run.first), after));
            continue;
        }
        add(shoelace_share(before, point(run.first), point(run.first + 1)));
        add_between(run.first, run.last);
        add(shoelace_share(point(run.last - 1), point(run.last), after));
    }
}

double PartialPolygon::area() const noexcept
{
    double sum = 0.0;
    const auto add = [&](double share_of_point) { sum = share_of_point + sum; };
    add_up(add, [&](std::int32_t first, std::int32_t last) {
        for (std::int32_t at = first + 1; at < last; ++at)
            add(share(at));
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
    add_up(add, [&](std::int32_t first, std::int32_t last) { add(sum_up_to(last - 1) - sum_up_to(first)); });
    const std::size_t additions = static_cast<std::size_t>(size_) + ring_.size() + 4 * runs_.size() + 8;
    return {std::fabs(sum), kOffPerAddition * static_cast<double>(additions) * (peak + two_sums_)};
}

bool PartialPolygon::exceeds(double requested) const noexcept
{
    const Estimate now = estimate();
    if (now.area - now.off > requested)
        return true;
    if (now.area + now.off <= requested)
        return false;
    return area() > requested;
}

PartialPolygon::Verdict PartialPolygon::against(double requested) const noexcept
{
    if (requested > kLeastRequest) {
        const Estimate now = estimate();
        if (now.area > requested) {
            if (now.area - now.off > requested * (1.0 + kSurelyApart))
                return Verdict::kNotBelow;
        } else if (now.area + now.off < requested * (1.0 - kSurelyApart)) {
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
    if (!(requested > kLeastRequest))
        return false;
    const Estimate now = estimate();
    const double off = now.off + doubt;
    return now.area - off > requested * (1.0 + kSurelyApart) ||
           now.area + off < requested * (1.0 - kSurelyApart);
}

void PartialPolygon::write_to(std::vector<PL_PNT2D_record>& points) const
{
    points.clear();
    for (const Run& run : runs_)
        points.insert(points.end(), &point(run.first), &point(run.first) + (run.last + 1 - run.first));
}

}  // namespace plcalc
