#include <cstdint>

#include "handles.h"
#include "plcalc_c.h"

namespace plcalc_c {

// No default in these: the compiler names a status that has no number yet.
std::int32_t number_of(plparcel::BoundaryStatus status) noexcept
{
    using plparcel::BoundaryStatus;
    switch (status) {
    case BoundaryStatus::usable:
        return PLC_BOUNDARY_USABLE;
    case BoundaryStatus::not_finite:
        return PLC_BOUNDARY_NOT_FINITE;
    case BoundaryStatus::out_of_range:
        return PLC_BOUNDARY_OUT_OF_RANGE;
    case BoundaryStatus::too_few_vertices:
        return PLC_BOUNDARY_TOO_FEW_VERTICES;
    case BoundaryStatus::flat:
        return PLC_BOUNDARY_FLAT;
    case BoundaryStatus::meets_itself:
        return PLC_BOUNDARY_MEETS_ITSELF;
    case BoundaryStatus::rings_meet:
        return PLC_BOUNDARY_RINGS_MEET;
    case BoundaryStatus::hole_outside:
        return PLC_BOUNDARY_HOLE_OUTSIDE;
    case BoundaryStatus::hole_in_hole:
        return PLC_BOUNDARY_HOLE_IN_HOLE;
    }
    return -1;
}

std::int32_t number_of(plparcel::Status status) noexcept
{
    using plparcel::Status;
    switch (status) {
    case Status::divided:
        return PLC_DIVIDED;
    case Status::unusable_boundary:
        return PLC_UNUSABLE_BOUNDARY;
    case Status::unknown_request:
        return PLC_UNKNOWN_REQUEST;
    case Status::no_such_index:
        return PLC_NO_SUCH_SIDE_OR_VERTEX;
    case Status::side_without_length:
        return PLC_SIDE_WITHOUT_LENGTH;
    case Status::no_direction:
        return PLC_NO_DIRECTION;
    case Status::no_width:
        return PLC_NO_WIDTH;
    case Status::no_such_place:
        return PLC_NO_SUCH_PLACE;
    case Status::point_outside:
        return PLC_POINT_OUTSIDE;
    case Status::only_one_amount:
        return PLC_ONLY_ONE_AMOUNT;
    case Status::no_amount:
        return PLC_NO_AMOUNT;
    case Status::unusable_rounding:
        return PLC_UNUSABLE_ROUNDING;
    case Status::unusable_amount:
        return PLC_UNUSABLE_AMOUNT;
    case Status::amount_too_small:
        return PLC_AMOUNT_TOO_SMALL;
    case Status::amount_too_large:
        return PLC_AMOUNT_TOO_LARGE;
    case Status::base_reaches_behind:
        return PLC_BASE_REACHES_BEHIND;
    case Status::no_line_through_point:
        return PLC_NO_LINE_THROUGH_POINT;
    case Status::no_further_line:
        return PLC_NO_FURTHER_LINE;
    case Status::line_leaves_parcel:
        return PLC_LINE_LEAVES_PARCEL;
    case Status::not_reached:
        return PLC_NOT_REACHED;
    }
    return -1;
}

std::int32_t number_of(plparcel::ChoiceStatus status) noexcept
{
    using plparcel::ChoiceStatus;
    switch (status) {
    case ChoiceStatus::found:
        return PLC_CHOICE_FOUND;
    case ChoiceStatus::tied:
        return PLC_CHOICE_TIED;
    case ChoiceStatus::unusable_boundary:
        return PLC_CHOICE_UNUSABLE_BOUNDARY;
    case ChoiceStatus::unusable_request:
        return PLC_CHOICE_UNUSABLE_REQUEST;
    case ChoiceStatus::nothing_given:
        return PLC_CHOICE_NOTHING_GIVEN;
    case ChoiceStatus::too_far:
        return PLC_CHOICE_TOO_FAR;
    case ChoiceStatus::not_alongside:
        return PLC_CHOICE_NOT_ALONGSIDE;
    case ChoiceStatus::too_much_near:
        return PLC_CHOICE_TOO_MUCH_NEAR;
    }
    return -1;
}

namespace {

// More than the statuses of any kind.
constexpr int kMostStatuses = 256;

/// The text of the status that has this number.
template <typename AnyStatus> const char* text_of(std::int32_t number) noexcept
{
    for (int i = 0; i < kMostStatuses; ++i) {
        const auto status = static_cast<AnyStatus>(i);
        if (number >= 0 && number_of(status) == number)
            return plparcel::describe(status);
    }
    return "there is no such status";
}

}  // namespace
}  // namespace plcalc_c

std::int32_t plc_interface_version(void)
{
    return PLC_INTERFACE_VERSION;
}

const char* plc_code_text(std::int32_t code)
{
    switch (code) {
    case PLC_OK:
        return "done";
    case PLC_NO_ANSWER:
        return "there is no answer";
    case PLC_NULL_POINTER:
        return "a pointer is null";
    case PLC_WRONG_SIZE:
        return "a record has a size or fields that this library does not know";
    case PLC_NO_SUCH_INDEX:
        return "an index or a count is out of range";
    case PLC_TOO_MANY:
        return "there are too many points";
    case PLC_OUT_OF_MEMORY:
        return "there is no memory left";
    case PLC_FAILED:
        return "the library has failed";
    default:
        return "there is no such code";
    }
}

const char* plc_boundary_text(std::int32_t boundary)
{
    return plcalc_c::text_of<plparcel::BoundaryStatus>(boundary);
}

const char* plc_status_text(std::int32_t status)
{
    return plcalc_c::text_of<plparcel::Status>(status);
}

const char* plc_choice_text(std::int32_t status)
{
    return plcalc_c::text_of<plparcel::ChoiceStatus>(status);
}

const char* plc_division_text(const plc_division* division)
{
    return division == nullptr ? plc_code_text(PLC_NULL_POINTER) : plparcel::describe(division->division);
}
