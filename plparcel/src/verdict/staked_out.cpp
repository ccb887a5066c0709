#include "verdict/staked_out.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>

#include "verdict/piece_net.h"
#include "verdict/target.h"
#include "verdict/whole_verdict.h"

namespace plparcel {
namespace {

// Where the line meets the boundary at a slant, a rounded end lies farther from it along the line: 64 times the
// rounding at one degree. A flatter slant needs more decimals; with all its digits the line lies as well as it can.
constexpr double kSlantAllowance = 64.0;

// A line with all its digits ends within this many spacings of doubles from the boundary.
constexpr double kFoundSpacings = 4.0;

// Half a step in the last place, on both axes.
double rounding_of(int decimals)
{
    return std::sqrt(0.5) * std::pow(10.0, -decimals);
}

// How far from a rounded end its line may meet the boundary.
double reach_of(int decimals, double spacing)
{
    return decimals > kMostDecimals ? std::numeric_limits<double>::infinity()
                                    : kSlantAllowance * (rounding_of(decimals) + kFoundSpacings * spacing);
}

bool holds(const Wide& got, const Wide& wanted, const Target& target)
{
    return std::fabs((got - wanted).value()) <= target.granted(wanted);
}

Wide area_of(const std::vector<Ring>& rings, double turn)
{
    Wide area;
    for (const Ring& ring : rings)
        area = area + MeasuredRing(ring).signed_area();
    return area * turn;
}

// The rings as they run in a parcel that runs anticlockwise.
std::vector<Ring> anticlockwise(std::vector<Ring> rings, double turn)
{
    if (turn < 0.0)
        for (Ring& ring : rings)
            std::reverse(ring.begin(), ring.end());
    return rings;
}

bool stands_alone(const std::vector<Ring>& rings, double turn)
{
    if (rings.size() == 1)
        return are_apart(rings);
    return area_of_piece(anticlockwise(rings, turn)).has_value();
}

bool holds(const std::vector<Wide>& got, const std::vector<Wide>& wanted, const Target& target)
{
    for (std::size_t i = 0; i < wanted.size(); ++i)
        if (!holds(got[i], wanted[i], target))
            return false;
    return true;
}

// The pieces between the staked lines, if they hold what they should.
std::optional<std::vector<StakedPiece>> judged(const PieceNet& net, const std::vector<Wide>& wanted,
                                               const Target& target)
{
    std::vector<StakedPiece> pieces;
    std::vector<Wide> held(wanted.size());
    std::vector<Wide> held_to_the_boundary(wanted.size());
    for (std::size_t i = 0; i < net.pieces(); ++i) {
        StakedPiece piece;
        piece.rings = net.piece(i);
        piece.area = area_of(piece.rings, net.turn(i));
        if (!(piece.area > 0.0) || !stands_alone(piece.rings, net.turn(i)))
            return std::nullopt;
        held[net.amount(i)] = held[net.amount(i)] + piece.area;
        held_to_the_boundary[net.amount(i)] =
            held_to_the_boundary[net.amount(i)] + net.area_to_the_boundary(i);
        pieces.push_back(std::move(piece));
    }
    if (!holds(held, wanted, target) || !holds(held_to_the_boundary, wanted, target) ||
        !net.boundary_is_simple())
        return std::nullopt;
    return pieces;
}

std::vector<Segment> staked(const PieceNet& net, const DividingLine& line)
{
    std::vector<Segment> segments;
    for (const Segment& segment : line.segments)
        segments.push_back({net.staked(segment.from), net.staked(segment.to)});
    return segments;
}

}  // namespace

std::optional<StakedOut> stake_out(const std::vector<Ring>& boundary, const Division& found,
                                   const std::vector<Wide>& wanted, const Wide& parcel,
                                   const Rounding& rounding)
{
    PieceNet net(boundary, found);
    Target target;
    target.parcel = parcel;
    target.of_parcel = rounding.tolerance;
    double spacing = 0.0;
    for (const Piece& piece : found.pieces)
        spacing = std::max(spacing, coordinate_spacing(piece.ring));
    for (int decimals = *rounding.decimals; decimals <= kMostDecimals + 1; ++decimals) {
        if (!net.round(decimals, reach_of(decimals, spacing)))
            continue;
        std::optional<std::vector<StakedPiece>> pieces = judged(net, wanted, target);
        if (!pieces)
            continue;
        StakedOut result;
        for (const DividingLine& line : found.lines)
            result.lines.push_back(staked(net, line));
        result.pieces = std::move(*pieces);
        if (decimals <= kMostDecimals)
            result.decimals = decimals;
        return result;
    }
    return std::nullopt;
}

}  // namespace plparcel
