#include "amounts.h"

#include <algorithm>
#include <cmath>

namespace plparcel {
namespace {

// Amounts that leave less than this part of the parcel leave nothing: the last amount is then what is left.
constexpr double kNothingLeft = 1e-9;

// What rounding alone may leave of a parcel that is asked for whole: a share of n out of n, or its area as a double.
constexpr double kRounding = 0x1p-53;

// They must also leave less than this part of the last amount. Otherwise a last amount of a billionth of the parcel
// would accept whatever is left.
constexpr double kNothingOfLast = 0.01;

bool is_known(Given given)
{
    return given == Given::as_area || given == Given::as_product || given == Given::as_share ||
           given == Given::as_width;
}

Wide area_of(const Amount& amount, const Wide& parcel)
{
    if (amount.given == Given::as_product)
        return exact_product(amount.first, amount.second);
    if (amount.given == Given::as_share)
        return parcel * amount.first / amount.second;
    if (amount.given == Given::as_width)
        return 0.0;
    return amount.first;
}

// No number that a person can mean lies outside these.
constexpr double kLeast = 1e-200;
constexpr double kMost = 1e200;

// What is wrong with an amount by itself, whatever the parcel.
std::optional<Status> refusal_of(const Amount& amount)
{
    if (!is_known(amount.given))
        return Status::unknown_request;
    const bool is_area = amount.given == Given::as_area || amount.given == Given::as_width;  // one number
    const bool is_share = amount.given == Given::as_share;
    if (std::isnan(amount.first) || (!is_area && std::isnan(amount.second)))
        return Status::unusable_amount;
    if (is_share && !(kLeast <= amount.second && amount.second <= kMost))
        return Status::unusable_amount;
    if (amount.first < kLeast || (!is_area && amount.second < kLeast))
        return Status::amount_too_small;
    if (amount.first > kMost || (!is_area && amount.second > kMost))
        return Status::amount_too_large;
    return std::nullopt;
}

Shares refused(Status status, std::size_t at_amount)
{
    Shares shares;
    shares.refusal = status;
    shares.at_amount = at_amount;
    return shares;
}

}  // namespace

Shares share_out(const std::vector<Amount>& amounts, const Wide& parcel)
{
    if (amounts.empty())
        return refused(Status::no_amount, 0);
    const auto is_width = [](const Amount& amount) { return amount.given == Given::as_width; };
    const bool has_width = std::any_of(amounts.begin(), amounts.end(), is_width);
    Shares shares;
    shares.pieces.reserve(amounts.size() + 1);
    Wide left = parcel;
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        if (const std::optional<Status> refusal = refusal_of(amounts[i]))
            return refused(*refusal, i);
        const Wide wanted = area_of(amounts[i], parcel);
        left = left - wanted;
        if (has_width)
            shares.widths.push_back(is_width(amounts[i]) ? amounts[i].first : 0.0);
        const bool is_last_of_several = i > 0 && i + 1 == amounts.size() && !has_width;
        if (is_last_of_several && abs(left) < parcel * kNothingLeft && abs(left) < wanted * kNothingOfLast) {
            shares.pieces.push_back(wanted);
            return shares;
        }
        if (!(wanted > 0.0) && !is_width(amounts[i]))
            return refused(Status::amount_too_small, i);
        if (!(left > parcel * kRounding))
            return refused(Status::amount_too_large, i);
        shares.pieces.push_back(wanted);
    }
    shares.pieces.push_back(left);
    return shares;
}

Amount area(double value) noexcept
{
    return {Given::as_area, value, 1.0};
}

Amount product(double length1, double length2) noexcept
{
    return {Given::as_product, length1, length2};
}

Amount share(double part, double of) noexcept
{
    return {Given::as_share, part, of};
}

Amount width(double distance) noexcept
{
    return {Given::as_width, distance, 1.0};
}

std::vector<Amount> equal_parts(std::size_t n)
{
    if (n < 2)
        return {};
    return std::vector<Amount>(n - 1, share(1.0, static_cast<double>(n)));
}

}  // namespace plparcel
