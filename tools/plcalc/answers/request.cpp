#include "answers/request.h"

namespace tool {

double area_of(const plparcel::Amount& amount, double parcel_area)
{
    switch (amount.given) {
    case plparcel::Given::as_product:
        return amount.first * amount.second;
    case plparcel::Given::as_share:
        return parcel_area * amount.first / amount.second;
    case plparcel::Given::as_area:
        break;
    }
    return amount.first;
}

}  // namespace tool
