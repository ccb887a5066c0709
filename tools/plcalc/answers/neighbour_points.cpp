#include "answers/neighbour_points.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "answers/heights.h"

namespace tool {
namespace {

void count(const plparcel::WithPoints& with, double ground_factor, Insertion& insertion)
{
    insertion.points += with.inserted;
    insertion.beside += with.beside;
    insertion.farthest_beside = std::max(insertion.farthest_beside, with.farthest_beside);
    const double change = with.area_change / (ground_factor * ground_factor);
    insertion.area_change += change;
    insertion.largest_change = std::max(insertion.largest_change, std::fabs(change));
    insertion.left_out += with.left_out ? 1 : 0;
}

bool same(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return p.x == q.x && p.y == q.y;
}

// Whether the amount is off by more than was asked for.
bool is_missed(const plparcel::Held& held, const Answer& answer)
{
    const double tolerance = answer.asked.request.rounding.tolerance * answer.printed.proven.ring.area;
    return !(std::fabs(held.residual) <= tolerance);
}

bool same_rings(const plparcel::Piece& piece, const plparcel::Parcel& parcel)
{
    const auto same_ring = [](const plparcel::Ring& one, const plparcel::Ring& other) {
        return std::equal(one.begin(), one.end(), other.begin(), other.end(), same);
    };
    return same_ring(piece.ring, parcel.outer) &&
           std::equal(piece.holes.begin(), piece.holes.end(), parcel.holes.begin(), parcel.holes.end(),
                      same_ring);
}

// Appends the heights of a ring that has got vertices; these lie on the old sides, up to their rounding.
//
// first: the number of the old ring's first vertex
void append_heights(const plparcel::Ring& old_ring, std::size_t first, const plparcel::Ring& ring,
                    const std::vector<double>& known, std::vector<double>& heights)
{
    std::size_t next = 0;  // of the old vertices
    for (const PL_PNT2D_record& vertex : ring) {
        if (next < old_ring.size() && same(old_ring[next], vertex)) {
            heights.push_back(known[first + next++]);
            continue;
        }
        const std::size_t from = next - 1;
        const std::size_t to = next % old_ring.size();
        const Foot foot = foot_on(old_ring[from], old_ring[to], vertex);
        heights.push_back(foot.height(known[first + from], known[first + to]));
    }
}

}  // namespace

void NeighbourPoints::note(const Answer& answer)
{
    if (!answer.printed.done())
        return;
    const std::vector<plparcel::NewPoint> points =
        plparcel::new_points(boundary_of(answer.parcel), answer.printed.proven);
    points_.write(count_ * sizeof(plparcel::NewPoint), points.data(),
                  points.size() * sizeof(plparcel::NewPoint));
    count_ += points.size();
    for (const plparcel::NewPoint& point : points)
        farthest_off_ = std::max(farthest_off_, foot_on(point.side.from, point.side.to, point.at).distance);
}

void NeighbourPoints::hand_over(const plparcel::SharedSides::TakePoint& take) const
{
    constexpr std::size_t kAtOnce = 1024;
    std::vector<plparcel::NewPoint> some;
    for (std::size_t i = 0; i < count_; i += some.size()) {
        some.resize(std::min(kAtOnce, count_ - i));
        points_.read(i * sizeof(plparcel::NewPoint), some.data(), some.size() * sizeof(plparcel::NewPoint));
        std::for_each(some.begin(), some.end(), take);
    }
}

void NeighbourPoints::note_layer(const Layer& layer)
{
    const plparcel::Scratch file = {
        [this](std::uint64_t place, const void* bytes, std::size_t size) {
            sorted_.write(place, bytes, size);
        },
        [this](std::uint64_t place, void* bytes, std::size_t size) { sorted_.read(place, bytes, size); }};
    shared_ = plparcel::SharedSides::in_file(
        file, [this](const auto& take) { hand_over(take); }, within_,
        [&](const plparcel::SharedSides::Take& take) {
            layer([&](const Parcel& parcel) { take(boundary_of(parcel)); });
        });
    points_ = {};
}

Insertion NeighbourPoints::insert_in_pieces(Answer& answer) const
{
    Insertion insertion;
    answer.printed.off_boundary = within_ + farthest_off_;
    plparcel::Division& division = answer.printed.proven;
    const double square = answer.parcel.ground_factor * answer.parcel.ground_factor;
    const std::vector<plparcel::Parcel> pieces =
        plparcel::pieces_with_corners(boundary_of(answer.parcel), division);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        plparcel::Piece& piece = division.pieces[i];
        plparcel::WithPoints with = shared_->with_points(pieces[i]);
        // To a corner that has more digits than the line's end the area changes as well.
        const double area = plparcel::check_parcel(with.parcel).area / square;
        count(with, answer.parcel.ground_factor, insertion);
        std::move(with.existing.begin(), with.existing.end(),
                  std::back_inserter(answer.printed.of_neighbours));
        if (same_rings(piece, with.parcel) || !(area > 0.0))
            continue;
        const double change = area - piece.area;
        insertion.largest_change = std::max(insertion.largest_change, std::fabs(change));
        piece.ring = std::move(with.parcel.outer);
        piece.holes = std::move(with.parcel.holes);
        piece.area = answer.printed.areas[i] = area;
        piece.residual += change;
        plparcel::Held& held = division.held[piece.amount];
        const bool was_missed = is_missed(held, answer);
        held.area += change;
        held.residual += change;
        insertion.missed += is_missed(held, answer) && !was_missed ? 1 : 0;
    }
    return insertion;
}

Insertion NeighbourPoints::insert_in(Parcel& parcel) const
{
    Insertion insertion;
    plparcel::WithPoints with = shared_->with_points(boundary_of(parcel));
    count(with, parcel.ground_factor, insertion);
    if (with.inserted == 0)
        return insertion;
    std::vector<double> heights;
    std::size_t first = 0;
    for (std::size_t i = 0; i <= parcel.holes.size() && !parcel.heights.empty(); ++i) {
        const plparcel::Ring& old_ring = i == 0 ? parcel.ring : parcel.holes[i - 1];
        append_heights(old_ring, first, i == 0 ? with.parcel.outer : with.parcel.holes[i - 1], parcel.heights,
                       heights);
        first += old_ring.size();
    }
    parcel.ring = std::move(with.parcel.outer);
    parcel.holes = std::move(with.parcel.holes);
    parcel.heights = std::move(heights);
    parcel.point_names.clear();
    return insertion;
}

}  // namespace tool
