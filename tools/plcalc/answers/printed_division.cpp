#include "answers/printed_division.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "answers/pieces.h"
#include "plparcel/extent.h"
#include "text/numbers.h"

namespace tool {
namespace {

using plparcel::Ring;
using plparcel::Status;
using Line = PL_LINE_2D_record;

// Areas show the first three digits of whatever was asked for.
constexpr double kRelRequestStep = 1e-3;

// A printed line is right when no piece misses its amount by more than this part of the parcel: a square
// decimetre in a hectare.
constexpr long double kRelParcelTol = 1e-6L;

// Nor may a piece miss its amount by more than this part of itself. For a request of a millionth of the
// parcel the limit above would accept any piece, even an empty one.
constexpr long double kRelPieceTol = 0.01L;

// Where the line meets the boundary at a slant, a rounded end lies farther from it along the line: 64 times
// the rounding at one degree. A flatter slant needs more decimals.
constexpr long double kSlantAllowance = 64.0L;

// The proven line ends within this many spacings of doubles from the boundary.
constexpr double kProvenSpacings = 4.0;

double read_back(double coordinate, int decimals)
{
    return parse_number(fixed(coordinate, decimals)).value();
}

PL_PNT2D_record read_back(const PL_PNT2D_record& p, int decimals)
{
    return {read_back(p.x, decimals), read_back(p.y, decimals)};
}

// Half a step in the last place, on both axes.
double rounding_of(int decimals)
{
    return decimals > kMaxDecimals ? 0.0 : std::sqrt(0.5) * std::pow(10.0, -decimals);
}

PL_PNT2D_record relative(const PL_PNT2D_record& p, const PL_PNT2D_record& origin)
{
    return {p.x - origin.x, p.y - origin.y};
}

Line relative(const Line& line, const PL_PNT2D_record& origin)
{
    return {relative(line.start, origin), relative(line.end, origin)};
}

Ring relative(const Ring& ring, const PL_PNT2D_record& origin)
{
    Ring local;
    for (const PL_PNT2D_record& p : ring)
        local.push_back(relative(p, origin));
    return local;
}

bool same(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return p.x == q.x && p.y == q.y;
}

// The lines in two readings, in coordinates relative to the ring's first vertex.
struct Readings {
    std::vector<Line> printed;   // ends where they are printed
    std::vector<Line> extended;  // ends moved along the line onto the boundary
};

std::optional<Readings> read(const Ring& ring, const std::vector<Line>& lines, double rounding)
{
    const PL_PNT2D_record& origin = ring.front();
    const Ring local = relative(ring, origin);
    const long double slack =
        kSlantAllowance * (rounding + kProvenSpacings * plparcel::coordinate_spacing(ring));
    Readings readings;
    for (const Line& line : lines) {
        Line ends = relative(line, origin);
        readings.printed.push_back(ends);
        if (!part_ring(local, ends.start, ends.end, slack, ends))
            return std::nullopt;
        readings.extended.push_back(ends);
    }
    return readings;
}

// A piece of the proven division with the ends of its lines moved.
class PieceInPrint {
public:
    PieceInPrint(const plparcel::Division& proven, const Readings& readings, const PL_PNT2D_record& origin)
        : proven_(proven), readings_(readings), origin_(origin)
    {}

    long double area(std::size_t piece, bool extended) const
    {
        Ring ring;
        for (const PL_PNT2D_record& p : proven_.pieces[piece].ring)
            ring.push_back(moved(p, piece, extended));
        return std::fabs(signed_area(ring));
    }

private:
    // Lines k - 1 and k bound piece k. At the vertex from which both start, either will do.
    PL_PNT2D_record moved(const PL_PNT2D_record& p, std::size_t piece, bool extended) const
    {
        const std::size_t first = piece > 0 ? piece - 1 : 0;
        for (std::size_t i = first; i <= piece && i < proven_.lines.size(); ++i) {
            const bool start = same(proven_.lines[i].from, p);
            if (!start && !same(proven_.lines[i].to, p))
                continue;
            const Line& line = extended ? readings_.extended[i] : readings_.printed[i];
            return start ? line.start : line.end;
        }
        return relative(p, origin_);
    }

    const plparcel::Division& proven_;
    const Readings& readings_;
    const PL_PNT2D_record& origin_;
};

bool holds(long double got, long double asked, long double parcel)
{
    return std::fabs(got - asked) <= std::min(kRelParcelTol * parcel, kRelPieceTol * asked);
}

// The areas of the pieces if all of them hold what was asked in both readings; otherwise none.
std::vector<double> judged(const Ring& ring, const plparcel::Division& proven, const std::vector<Line>& lines,
                           double rounding)
{
    const std::optional<Readings> readings = read(ring, lines, rounding);
    if (!readings)
        return {};
    const PieceInPrint in_print(proven, *readings, ring.front());
    std::vector<double> areas;
    for (std::size_t i = 0; i < proven.pieces.size(); ++i) {
        const long double asked = proven.pieces[i].asked;
        const long double extended = in_print.area(i, true);
        if (!holds(extended, asked, proven.ring.area) ||
            !holds(in_print.area(i, false), asked, proven.ring.area))
            return {};
        areas.push_back(static_cast<double>(extended));
    }
    return areas;
}

plparcel::Division divide(const Ring& ring, const Asked& asked)
{
    plparcel::Request request = asked.request;
    // A number below 1 becomes an index that no side or vertex has.
    request.line.index = asked.number > 0 ? static_cast<std::size_t>(asked.number - 1) : ring.size();
    return plparcel::divide(ring, request);
}

int area_decimals(const Asked& asked, double parcel_area, int decimals)
{
    for (const plparcel::Amount& amount : asked.request.amounts) {
        const double wanted = area_of(amount, parcel_area);
        if (wanted > 0.0)
            decimals = std::max(decimals, decimals_for(kRelRequestStep * wanted));
    }
    return decimals;
}

}  // namespace

PrintedDivision divide_in_print(const Ring& ring, const Asked& asked)
{
    PrintedDivision printed;
    printed.proven = divide(ring, asked);
    if (printed.proven.status == Status::unusable_boundary)
        return printed;
    printed.resolution = resolution_of(ring, printed.proven.ring.area);
    printed.resolution.area_decimals =
        area_decimals(asked, printed.proven.ring.area, printed.resolution.area_decimals);
    if (printed.proven.status != Status::divided)
        return printed;

    for (int& decimals = printed.resolution.decimals; decimals <= kMaxDecimals + 1; ++decimals) {
        std::vector<Line> lines;
        for (const plparcel::DividingLine& line : printed.proven.lines)
            lines.push_back({read_back(line.from, decimals), read_back(line.to, decimals)});
        printed.areas = judged(ring, printed.proven, lines, rounding_of(decimals));
        if (!printed.areas.empty()) {
            printed.lines = lines;
            return printed;
        }
    }
    printed.too_coarse = true;
    return printed;
}

namespace {

// What is asked for on the ground is cut off in the plane.
Asked in_plane(Asked asked, double ground_factor)
{
    for (plparcel::Amount& amount : asked.request.amounts) {
        switch (amount.given) {
        case plparcel::Given::as_area:
            amount.first *= ground_factor * ground_factor;
            break;
        case plparcel::Given::as_product:
            amount.first *= ground_factor;
            amount.second *= ground_factor;
            break;
        case plparcel::Given::as_width:
            amount.first *= ground_factor;
            break;
        case plparcel::Given::as_share:
            break;  // the same in both
        }
    }
    return asked;
}

void bring_to_ground(PrintedDivision& printed, double ground_factor)
{
    const double square = ground_factor * ground_factor;
    printed.proven.ring.area /= square;
    printed.proven.ring.perimeter /= ground_factor;
    for (plparcel::Piece& piece : printed.proven.pieces) {
        piece.area /= square;
        piece.asked /= square;
        piece.residual /= square;
    }
    for (double& area : printed.areas)
        area /= square;
}

}  // namespace

Answer answer(const Parcel& parcel, const Asked& asked)
{
    if (parcel.ground_factor == 1.0)
        return {parcel, asked, divide_in_print(parcel.ring, asked)};
    Answer answer = {parcel, asked, divide_in_print(parcel.ring, in_plane(asked, parcel.ground_factor))};
    bring_to_ground(answer.printed, parcel.ground_factor);
    return answer;
}

}  // namespace tool
