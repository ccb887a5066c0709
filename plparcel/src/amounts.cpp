#include "amounts.h"

#include <cmath>

namespace plparcel {
namespace {

// Amounts that leave no more of the parcel than this part of it leave nothing: the last one is what is left.
constexpr double kNothingLeft = 1e-9;

// No more of the last one than this either, or a last amount of a billionth would take anything for itself.
constexpr double kNothingOfLast = 0.01;

bool is_known(Given given)
{
    return given == Given::as_area || given == Given::as_product || given == Given::as_share;
}

Wide area_of(const Amount& amount, const Wide& parcel)
{
    switch (amount.given) {
    case Given::as_area:
        break;
    case Given::as_product:
        return exact_product(amount.first, amount.second);
    case Given::as_share:
        return parcel * amount.first / amount.second;
    }
    return amount.first;
}

// The numbers a person can have meant: above zero, and far from where doubles end.
bool is_sensible(double v)
{
    constexpr double kLeast = 1e-200;
    constexpr double kMost = 1e200;
    return v >= kLeast && v <= kMost;
}

bool is_sensible(const Amount& amount)
{
    return is_sensible(amount.first) && (amount.given == Given::as_area || is_sensible(amount.second));
}

Shares refused(Status status, std::size_t at_amount)
{
    Shares shares;
    shares.status = status;
    shares.at_amount = at_amount;
    return shares;
}

}  // namespace

Shares share_out(const std::vector<Amount>& amounts, const Wide& parcel)
{
    Shares shares;
    Wide left = parcel;
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        if (!is_known(amounts[i].given))
            return refused(Status::unknown_request, i);
        if (!is_sensible(amounts[i]))
            return refused(Status::amount_out_of_range, i);
        const Wide wanted = area_of(amounts[i], parcel);
        left = left - wanted;
        const bool is_last_of_several = i > 0 && i + 1 == amounts.size();
        if (is_last_of_several && abs(left) < parcel * kNothingLeft && abs(left) < wanted * kNothingOfLast) {
            shares.pieces.push_back(wanted);
            shares.status = Status::divided;
            return shares;
        }
        if (!(wanted > 0.0) || !(left > 0.0))
            return refused(Status::amount_out_of_range, i);
        shares.pieces.push_back(wanted);
    }
    if (amounts.empty())
        return shares;
    shares.pieces.push_back(left);
    shares.status = Status::divided;
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

std::vector<Amount> equal_parts(std::size_t n)
{
    if (n < 2)
        return {};
    return std::vector<Amount>(n - 1, share(1.0, static_cast<double>(n)));
}

}  // namespace plparcel
