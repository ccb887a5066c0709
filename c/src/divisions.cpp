#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "guard.h"
#include "handles.h"
#include "plcalc_c.h"
#include "records.h"

namespace plcalc_c {
namespace {

// Kinds travel as numbers: those of the header are those of plparcel.
template <typename Kind> constexpr bool has_number(Kind kind, std::int32_t number)
{
    return static_cast<std::int32_t>(kind) == number;
}
static_assert(has_number(plparcel::Cut::parallel, PLC_PARALLEL) &&
              has_number(plparcel::Cut::perpendicular, PLC_PERPENDICULAR) &&
              has_number(plparcel::Cut::through_vertex, PLC_THROUGH_VERTEX) &&
              has_number(plparcel::Cut::at_bearing, PLC_AT_BEARING) &&
              has_number(plparcel::Cut::along_segment, PLC_ALONG_SEGMENT) &&
              has_number(plparcel::Cut::through_place, PLC_THROUGH_PLACE) &&
              has_number(plparcel::Cut::through_point, PLC_THROUGH_POINT));
static_assert(has_number(plparcel::Measured::from_reference, PLC_FROM_REFERENCE) &&
              has_number(plparcel::Measured::opposite, PLC_OPPOSITE));
static_assert(has_number(plparcel::Pieces::two, PLC_TWO_PIECES) &&
              has_number(plparcel::Pieces::any, PLC_ANY_PIECES));
static_assert(has_number(plparcel::Given::as_area, PLC_AREA) &&
              has_number(plparcel::Given::as_product, PLC_PRODUCT) &&
              has_number(plparcel::Given::as_share, PLC_SHARE) &&
              has_number(plparcel::Given::as_width, PLC_WIDTH));

plparcel::Rounding rounding_of(const plc_request& given)
{
    plparcel::Rounding rounding;
    if (given.rounded != 0)
        rounding.decimals = given.decimals;
    // NaN is neither, and is handed on to be refused.
    if (given.rounding_tolerance < 0.0 || given.rounding_tolerance > 0.0 ||
        given.rounding_tolerance != given.rounding_tolerance)
        rounding.tolerance = given.rounding_tolerance;
    return rounding;
}

plparcel::Line line_of(const plc_request& given)
{
    plparcel::Line line;
    line.cut = static_cast<plparcel::Cut>(given.cut);
    line.index = index_of(given.index);
    line.ring = index_of(given.ring);
    line.bearing = given.bearing_gon;
    line.a = {given.a_x, given.a_y};
    line.b = {given.b_x, given.b_y};
    line.along = given.along;
    return line;
}

/// Reads the request and its amounts.
std::int32_t read(const plc_request& given, const plc_amount* amounts, std::int64_t count,
                  plparcel::Request& request)
{
    request = request_of(given);
    return read_records(amounts, count,
                        [&](const plc_amount& amount) { request.amounts.push_back(amount_of(amount)); });
}

/// Checks and reads a caller's request, and hands it to `work`.
template <typename Work>
std::int32_t with_request(const plc_request* request, const plc_amount* amounts, std::int64_t count,
                          const Work& work)
{
    if (request == nullptr)
        return PLC_NULL_POINTER;
    std::int32_t wrong = check_records(amounts, count);
    if (wrong != PLC_OK)
        return wrong;
    plc_request given;
    if (!read_record(request, given) || given.reserved != 0)
        return PLC_WRONG_SIZE;
    return guarded([&]() -> std::int32_t {
        plparcel::Request asked;
        wrong = read(given, amounts, count, asked);
        return wrong != PLC_OK ? wrong : work(asked);
    });
}

std::int32_t code_of(const plparcel::Division& division)
{
    return division.status == plparcel::Status::divided ? PLC_OK : PLC_NO_ANSWER;
}

/// The element, or null where the list has none of that index.
template <typename Element> const Element* at(const std::vector<Element>& list, std::int64_t index)
{
    const std::size_t i = index_of(index);
    return i < list.size() ? &list[i] : nullptr;
}

plc_division_info info_of(const plparcel::Division& division)
{
    plc_division_info info = {};
    info.status = number_of(division.status);
    info.at_amount = size_of(division.at_amount);
    info.boundary = number_of(division.ring.status);
    info.decimals = division.decimals.value_or(-1);
    info.area = division.ring.area;
    info.lines = size_of(division.lines.size());
    info.pieces = size_of(division.pieces.size());
    info.held = size_of(division.held.size());
    info.bare = size_of(division.bare.size());
    info.trials = size_of(division.trials);
    return info;
}

plc_line_info info_of(const plparcel::DividingLine& line)
{
    plc_line_info info = {};
    info.library_agrees = line.library_agrees ? 1 : 0;
    info.from_x = line.from.x;
    info.from_y = line.from.y;
    info.to_x = line.to.x;
    info.to_y = line.to.y;
    info.segments = size_of(line.segments.size());
    info.meets_again = line.meets_again ? 1 : 0;
    return info;
}

plc_piece_info info_of(const plparcel::Piece& piece)
{
    plc_piece_info info = {};
    info.amount = size_of(piece.amount);
    info.vertices = size_of(piece.ring.size());
    info.holes = size_of(piece.holes.size());
    info.area = piece.area;
    info.asked = piece.asked;
    info.residual = piece.residual;
    return info;
}

plc_held_info info_of(const plparcel::Held& held)
{
    plc_held_info info = {};
    info.pieces = size_of(held.pieces);
    info.asked = held.asked;
    info.area = held.area;
    info.residual = held.residual;
    return info;
}

/// Tells of one element of a list.
template <typename Element, typename Info>
std::int32_t tell(const std::vector<Element>& list, std::int64_t index, Info* info)
{
    if (info == nullptr)
        return PLC_NULL_POINTER;
    if (!has_known_size(info))
        return PLC_WRONG_SIZE;
    const Element* element = at(list, index);
    if (element == nullptr)
        return PLC_NO_SUCH_INDEX;
    write_record(info_of(*element), info);
    return PLC_OK;
}

void write_segment(const PL_PNT2D_record& from, const PL_PNT2D_record& to, double* xyxy)
{
    xyxy[0] = from.x;
    xyxy[1] = from.y;
    xyxy[2] = to.x;
    xyxy[3] = to.y;
}

/// The outer ring for 0, the k-th hole for k; null where there is none.
const plparcel::Ring* ring_at(const plparcel::Piece& piece, std::int64_t ring)
{
    return ring == 0 ? &piece.ring : at(piece.holes, ring > 0 ? ring - 1 : ring);
}

}  // namespace

plparcel::Request request_of(const plc_request& given)
{
    plparcel::Request request;
    request.line = line_of(given);
    request.measured = static_cast<plparcel::Measured>(given.measured);
    request.alternative = index_of(given.alternative);
    request.pieces = static_cast<plparcel::Pieces>(given.pieces);
    request.rounding = rounding_of(given);
    request.ask_library = given.ask_library != 0;
    return request;
}

plparcel::Amount amount_of(const plc_amount& given) noexcept
{
    return {static_cast<plparcel::Given>(given.given), given.first, given.second};
}

}  // namespace plcalc_c

std::int32_t plc_divide(const plc_parcel* parcel, const plc_request* request, const plc_amount* amounts,
                        std::int64_t count, plc_division** division)
{
    if (parcel == nullptr || division == nullptr)
        return PLC_NULL_POINTER;
    return plcalc_c::with_request(request, amounts, count, [&](const plparcel::Request& asked) {
        auto made = std::make_unique<plc_division>();
        made->division = plparcel::divide(parcel->parcel, asked);
        *division = made.release();
        return plcalc_c::code_of((*division)->division);
    });
}

std::int32_t plc_all_divisions(const plc_parcel* parcel, const plc_request* request,
                               const plc_amount* amounts, std::int64_t count, plc_divisions** divisions)
{
    if (parcel == nullptr || divisions == nullptr)
        return PLC_NULL_POINTER;
    return plcalc_c::with_request(request, amounts, count, [&](const plparcel::Request& asked) {
        auto made = std::make_unique<plc_divisions>();
        for (plparcel::Division& division : plparcel::all_divisions(parcel->parcel, asked))
            made->each.push_back({std::move(division)});
        *divisions = made.release();
        return plcalc_c::code_of((*divisions)->each.front().division);
    });
}

std::int64_t plc_divisions_count(const plc_divisions* divisions)
{
    return divisions == nullptr ? 0 : plcalc_c::size_of(divisions->each.size());
}

const plc_division* plc_divisions_at(const plc_divisions* divisions, std::int64_t index)
{
    return divisions == nullptr ? nullptr : plcalc_c::at(divisions->each, index);
}

void plc_divisions_free(plc_divisions* divisions)
{
    delete divisions;
}

void plc_division_free(plc_division* division)
{
    delete division;
}

std::int32_t plc_division_get(const plc_division* division, plc_division_info* info)
{
    if (division == nullptr || info == nullptr)
        return PLC_NULL_POINTER;
    if (!plcalc_c::has_known_size(info))
        return PLC_WRONG_SIZE;
    plcalc_c::write_record(plcalc_c::info_of(division->division), info);
    return PLC_OK;
}

std::int32_t plc_division_line(const plc_division* division, std::int64_t line, plc_line_info* info)
{
    return division == nullptr ? PLC_NULL_POINTER : plcalc_c::tell(division->division.lines, line, info);
}

std::int32_t plc_division_segment(const plc_division* division, std::int64_t line, std::int64_t segment,
                                  double* xyxy)
{
    if (division == nullptr || xyxy == nullptr)
        return PLC_NULL_POINTER;
    const plparcel::DividingLine* whole = plcalc_c::at(division->division.lines, line);
    const plparcel::Segment* part = whole == nullptr ? nullptr : plcalc_c::at(whole->segments, segment);
    if (part == nullptr)
        return PLC_NO_SUCH_INDEX;
    plcalc_c::write_segment(part->from, part->to, xyxy);
    return PLC_OK;
}

std::int32_t plc_division_piece(const plc_division* division, std::int64_t piece, plc_piece_info* info)
{
    return division == nullptr ? PLC_NULL_POINTER : plcalc_c::tell(division->division.pieces, piece, info);
}

std::int32_t plc_division_ring(const plc_division* division, std::int64_t piece, std::int64_t ring,
                               double* xy, std::int64_t room, std::int64_t* count)
{
    if (division == nullptr || count == nullptr)
        return PLC_NULL_POINTER;
    const std::int32_t wrong = plcalc_c::check_array(xy, room, 2);
    if (wrong != PLC_OK)
        return wrong;
    const plparcel::Piece* whole = plcalc_c::at(division->division.pieces, piece);
    const plparcel::Ring* vertices = whole == nullptr ? nullptr : plcalc_c::ring_at(*whole, ring);
    if (vertices == nullptr)
        return PLC_NO_SUCH_INDEX;
    *count = plcalc_c::size_of(vertices->size());
    for (std::size_t i = 0; i < vertices->size() && i < static_cast<std::size_t>(room); ++i) {
        xy[2 * i] = (*vertices)[i].x;
        xy[2 * i + 1] = (*vertices)[i].y;
    }
    return PLC_OK;
}

std::int32_t plc_division_held(const plc_division* division, std::int64_t amount, plc_held_info* info)
{
    return division == nullptr ? PLC_NULL_POINTER : plcalc_c::tell(division->division.held, amount, info);
}

std::int32_t plc_division_bare(const plc_division* division, std::int64_t cut, double* xyxy)
{
    if (division == nullptr || xyxy == nullptr)
        return PLC_NULL_POINTER;
    const plparcel::BareAnswer* answer = plcalc_c::at(division->division.bare, cut);
    if (answer == nullptr)
        return PLC_NO_SUCH_INDEX;
    plcalc_c::write_segment(answer->line.start, answer->line.end, xyxy);
    return answer->done ? PLC_OK : PLC_NO_ANSWER;
}
