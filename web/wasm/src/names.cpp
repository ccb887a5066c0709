#include "names.h"

namespace web {

const char* name_of(plparcel::Status status)
{
    using plparcel::Status;
    switch (status) {
    case Status::divided:
        return "divided";
    case Status::unusable_boundary:
        return "unusable_boundary";
    case Status::unknown_request:
        return "unknown_request";
    case Status::no_such_index:
        return "no_such_index";
    case Status::side_without_length:
        return "side_without_length";
    case Status::no_direction:
        return "no_direction";
    case Status::no_width:
        return "no_width";
    case Status::no_such_place:
        return "no_such_place";
    case Status::point_outside:
        return "point_outside";
    case Status::only_one_amount:
        return "only_one_amount";
    case Status::no_amount:
        return "no_amount";
    case Status::unusable_rounding:
        return "unusable_rounding";
    case Status::unusable_amount:
        return "unusable_amount";
    case Status::amount_too_small:
        return "amount_too_small";
    case Status::amount_too_large:
        return "amount_too_large";
    case Status::base_reaches_behind:
        return "base_reaches_behind";
    case Status::no_line_through_point:
        return "no_line_through_point";
    case Status::no_further_line:
        return "no_further_line";
    case Status::line_leaves_parcel:
        return "line_leaves_parcel";
    case Status::not_reached:
        return "not_reached";
    }
    return "unknown";
}

const char* name_of(plparcel::BoundaryStatus status)
{
    using plparcel::BoundaryStatus;
    switch (status) {
    case BoundaryStatus::usable:
        return "usable";
    case BoundaryStatus::not_finite:
        return "not_finite";
    case BoundaryStatus::out_of_range:
        return "out_of_range";
    case BoundaryStatus::too_few_vertices:
        return "too_few_vertices";
    case BoundaryStatus::flat:
        return "flat";
    case BoundaryStatus::meets_itself:
        return "meets_itself";
    case BoundaryStatus::rings_meet:
        return "rings_meet";
    case BoundaryStatus::hole_outside:
        return "hole_outside";
    case BoundaryStatus::hole_in_hole:
        return "hole_in_hole";
    }
    return "unknown";
}

}  // namespace web
