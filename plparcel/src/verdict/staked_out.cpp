#include "verdict/staked_out.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "verdict/piece_net.h"
#include "verdict/target.h"

namespace plparcel {
namespace {

// Where the line meets the boundary at a slant, a rounded end lies farther from it along the line: 64 times the
// rounding at one degree. A flatter slant needs more decimals.
constexpr double kSlantAllowance = 64.0;

// A line with all its digits ends within this many spacings of doubles from the boundary.
constexpr double kFoundSpacings = 4.0;

// Half a step in the last place, on both axes.
double rounding_of(int decimals)
{
    return decimals > kMostDecimals ? 0.0 : std::sqrt(0.5) * std::pow(10.0, -decimals);
}

bool holds(const Wide& got, const Wide& wanted, const Target& target)
{
    return std::fabs((got - wanted).value()) <= target.granted(wanted);
}

// The pieces between the staked lines, if they hold what they should.
std::optional<std::vector<MeasuredRing>> judged(const PieceNet& net, const std::vector<Wide>& wanted,
                                                const Target& target)
{
    std::vector<MeasuredRing> pieces;
    for (std::size_t i = 0; i < net.pieces(); ++i) {
        pieces.emplace_back(net.piece(i));
        const Wide area = pieces.back().signed_area() * net.turn(i);
        if (!is_simple(pieces.back().ring()) || !holds(area, wanted[i], target) ||
            !holds(net.area_to_the_boundary(i), wanted[i], target))
            return std::nullopt;
    }
    if (!net.boundary_is_simple())
        return std::nullopt;
    return pieces;
}

}  // namespace

std::optional<StakedOut> stake_out(const Ring& boundary, const Division& found,
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
        const double reach = kSlantAllowance * (rounding_of(decimals) + kFoundSpacings * spacing);
        if (!net.round(decimals, reach))
            continue;
        std::optional<std::vector<MeasuredRing>> pieces = judged(net, wanted, target);
        if (!pieces)
            continue;
        StakedOut staked;
        for (const DividingLine& line : found.lines)
            staked.lines.push_back({net.staked(line.from), net.staked(line.to)});
        staked.pieces = std::move(*pieces);
        if (decimals <= kMostDecimals)
            staked.decimals = decimals;
        return staked;
    }
    return std::nullopt;
}

}  // namespace plparcel
