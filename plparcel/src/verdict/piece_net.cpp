#include "verdict/piece_net.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

#include "boundary/meeting_sides.h"
#include "plparcel/rounding.h"

namespace plparcel {
namespace {

PL_PNT2D_record rounded_to(const PL_PNT2D_record& p, int decimals)
{
    return {plparcel::rounded_to(p.x, decimals), plparcel::rounded_to(p.y, decimals)};
}

void append(Ring& ring, const PL_PNT2D_record& p)
{
    if (ring.empty() || !same_place(ring.back(), p))
        ring.push_back(p);
}

Ring closed_once(Ring ring)
{
    if (same_place(ring.front(), ring.back()))
        ring.pop_back();
    return ring;
}

// Where the line through the origin meets a side, its ends included; nothing where it runs along it.
std::optional<WidePoint> meet(const WidePoint& run, const WidePoint& a, const WidePoint& b)
{
    const Wide off_a = cross(run, a);
    const Wide off_b = cross(run, b);
    const bool beyond = (off_a > 0.0 && off_b > 0.0) || (off_a < 0.0 && off_b < 0.0);
    const Wide whole = off_a - off_b;
    if (beyond || (!(whole > 0.0) && !(whole < 0.0)))
        return std::nullopt;
    return a + (b - a) * (off_a / whole);
}

}  // namespace

PieceNet::PieceNet(const std::vector<Ring>& parcel, const Division& found)
{
    collect_ends(parcel, found);
    for (const DividingLine& line : found.lines)
        for (const Segment& segment : line.segments)
            links_.push_back({{end_at(segment.from), end_at(segment.to)}, {}});
    std::vector<std::size_t> by_ends(links_.size());
    std::iota(by_ends.begin(), by_ends.end(), std::size_t{0});
    std::sort(by_ends.begin(), by_ends.end(),
              [this](std::size_t a, std::size_t b) { return key(links_[a]) < key(links_[b]); });
    for (const Piece& piece : found.pieces)
        add_outline(piece, by_ends);
    find_sides();
}

void PieceNet::collect_ends(const std::vector<Ring>& parcel, const Division& found)
{
    for (const DividingLine& line : found.lines)
        for (const Segment& segment : line.segments)
            for (const PL_PNT2D_record& p : {segment.from, segment.to}) {
                ends_.emplace_back();
                ends_.back().found = p;
            }
    std::sort(ends_.begin(), ends_.end(),
              [](const End& a, const End& b) { return comes_before(a.found, b.found); });
    const auto same = [](const End& a, const End& b) { return same_place(a.found, b.found); };
    ends_.erase(std::unique(ends_.begin(), ends_.end(), same), ends_.end());
    for (const Ring& ring : parcel)
        for (const PL_PNT2D_record& vertex : ring) {
            const std::size_t end = end_at(vertex);
            if (end != kNone)
                ends_[end].is_vertex = true;
        }
}

// The end that was found exactly there.
std::size_t PieceNet::end_at(const PL_PNT2D_record& p) const
{
    const auto is_before = [](const End& end, const PL_PNT2D_record& q) {
        return comes_before(end.found, q);
    };
    const auto place = std::lower_bound(ends_.begin(), ends_.end(), p, is_before);
    const bool is_there = place != ends_.end() && same_place(place->found, p);
    return is_there ? static_cast<std::size_t>(place - ends_.begin()) : kNone;
}

PieceNet::Pair PieceNet::key(std::size_t a, std::size_t b)
{
    return {std::min(a, b), std::max(a, b)};
}

std::size_t PieceNet::link_between(std::size_t a, std::size_t b,
                                   const std::vector<std::size_t>& by_ends) const
{
    if (a == kNone || b == kNone)
        return kNone;
    const auto is_before = [this](std::size_t link, const Pair& wanted) {
        return key(links_[link]) < wanted;
    };
    const auto place = std::lower_bound(by_ends.begin(), by_ends.end(), key(a, b), is_before);
    return place != by_ends.end() && key(links_[*place]) == key(a, b) ? *place : kNone;
}

void PieceNet::add_outline(const Piece& piece, const std::vector<std::size_t>& by_ends)
{
    outlines_.push_back(
        {walks_.size(), 1 + piece.holes.size(), piece.amount, MeasuredRing(piece.ring).turn()});
    add_walk(piece.ring, by_ends);
    for (const Ring& hole : piece.holes)
        add_walk(hole, by_ends);
}

void PieceNet::add_walk(const Ring& ring, const std::vector<std::size_t>& by_ends)
{
    const Walk walk = {corners_.size(), ring.size()};
    walks_.push_back(walk);
    for (const PL_PNT2D_record& p : ring)
        corners_.push_back({p, end_at(p), kNone});
    for (std::size_t k = 0; k < walk.count; ++k) {
        Corner& corner = corners_[walk.first + k];
        const std::size_t next = following(walk, k);
        next_.push_back(next);
        corner.link_after = link_between(corner.end, corners_[next].end, by_ends);
        if (corner.link_after != kNone)
            continue;
        if (corner.end != kNone)
            ends_[corner.end].out_of = walk.first + k;
    }
}

bool PieceNet::round(int decimals, double reach)
{
    for (End& end : ends_)
        end.staked = decimals > kMostDecimals ? end.found : rounded_to(end.found, decimals);
    for (Link& link : links_)
        if (!find_foot(link, 0, reach) || !find_foot(link, 1, reach))
            return false;
    return true;
}

// The vertices between which each end lies.
void PieceNet::find_sides()
{
    std::vector<bool> passed(corners_.size());
    for (std::size_t i = 0; i < corners_.size(); ++i) {
        std::vector<std::size_t> way = boundary_from(i, passed);
        for (PL_PNT2D_record End::*const neighbour : {&End::before, &End::after}) {
            PL_PNT2D_record last = {};
            for (std::size_t k = 0; k < 2 * way.size(); ++k) {  // once round to find the first vertex
                const Corner& corner = corners_[way[k % way.size()]];
                if (corner.end != kNone) {
                    ends_[corner.end].*neighbour = last;
                    ends_[corner.end].is_inside = false;
                }
                if (corner.end == kNone || ends_[corner.end].is_vertex)
                    last = corner.at;
            }
            std::reverse(way.begin(), way.end());
        }
    }
}

// Where the line through both staked ends meets the boundary. Where it meets both sides of a vertex, which then points
// into the parcel, the line lies in the parcel after the second.
bool PieceNet::find_foot(Link& link, std::size_t which, double reach) const
{
    const End& end = ends_[link.ends[which]];
    const End& other = ends_[link.ends[1 - which]];
    if (same_place(end.staked, other.staked))
        return false;
    if (end.is_inside) {
        link.feet[which] = {from_origin(end.staked), Foot::Place::replaced};
        return true;
    }
    const WidePoint run = from_to(end.staked, other.staked);
    const WidePoint before = from_to(end.staked, end.before);
    const WidePoint after = from_to(end.staked, end.after);
    const WidePoint corner = from_to(end.staked, end.found);
    Foot& foot = link.feet[which];
    foot.place = Foot::Place::replaced;
    std::optional<WidePoint> met = meet(run, before, end.is_vertex ? corner : after);
    if (!met && !end.is_vertex)
        return false;  // beyond the end of its side
    if (end.is_vertex) {
        if (met)
            foot.place = Foot::Place::before;
        const std::optional<WidePoint> met_after = meet(run, corner, after);
        if (met_after && (!met || dot(run, *met_after) > dot(run, *met))) {
            met = met_after;
            foot.place = Foot::Place::after;
        }
    }
    if (met && !(std::hypot(met->x.value(), met->y.value()) <= reach))
        return false;
    foot.at = from_origin(end.staked) + met.value_or(WidePoint{});
    return true;
}

const PieceNet::Foot& PieceNet::foot(std::size_t link, std::size_t end) const
{
    return links_[link].feet[links_[link].ends[0] == end ? 0 : 1];
}

const PL_PNT2D_record& PieceNet::staked_corner(std::size_t corner) const
{
    const Corner& c = corners_[corner];
    return c.end == kNone ? c.at : ends_[c.end].staked;
}

Ring PieceNet::staked_ring(const Walk& walk) const
{
    Ring ring;
    for (std::size_t k = 0; k < walk.count; ++k)
        append(ring, staked_corner(walk.first + k));
    return closed_once(std::move(ring));
}

std::vector<Ring> PieceNet::piece(std::size_t piece) const
{
    const Outline& outline = outlines_[piece];
    std::vector<Ring> rings;
    for (std::size_t i = 0; i < outline.count; ++i)
        rings.push_back(staked_ring(walks_[outline.first + i]));
    return rings;
}

Wide PieceNet::area_to_the_boundary(std::size_t piece) const
{
    const Outline& outline = outlines_[piece];
    Wide twice;
    for (std::size_t i = 0; i < outline.count; ++i) {
        const Walk& walk = walks_[outline.first + i];
        std::vector<WidePoint> points;
        for (std::size_t k = 0; k < walk.count; ++k)
            add_feet(walk, k, points);
        for (std::size_t k = 1; k + 1 < points.size(); ++k)
            twice = twice + cross(points[k] - points[0], points[k + 1] - points[0]);
    }
    return twice * (0.5 * outline.turn);
}

// A corner where lines end is replaced by their feet. A vertex stays a corner where the feet lie beyond it.
void PieceNet::add_feet(const Walk& walk, std::size_t k, std::vector<WidePoint>& points) const
{
    const Corner& corner = corners_[walk.first + k];
    const std::size_t link_before = corners_[walk.first + (k + walk.count - 1) % walk.count].link_after;
    const Foot* const arrives = link_before == kNone ? nullptr : &foot(link_before, corner.end);
    const Foot* const leaves = corner.link_after == kNone ? nullptr : &foot(corner.link_after, corner.end);
    if (arrives != nullptr)
        points.push_back(arrives->at);
    if ((arrives == nullptr || arrives->place == Foot::Place::before) &&
        (leaves == nullptr || leaves->place == Foot::Place::after))
        points.push_back(from_origin(corner.at));
    if (leaves != nullptr)
        points.push_back(leaves->at);
}

// The next corner along the boundary of the whole parcel: where a line begins, it goes on in another piece.
std::size_t PieceNet::boundary_after(std::size_t corner) const
{
    const std::size_t next = next_[corner];
    return corners_[next].link_after == kNone ? next : ends_[corners_[next].end].out_of;
}

// The corners along the boundary from one on, as far as they have not been passed.
std::vector<std::size_t> PieceNet::boundary_from(std::size_t corner, std::vector<bool>& passed) const
{
    std::vector<std::size_t> way;
    while (corner != kNone && corners_[corner].link_after == kNone && !passed[corner]) {
        passed[corner] = true;
        way.push_back(corner);
        corner = boundary_after(corner);
    }
    return way;
}

bool PieceNet::boundary_is_simple() const
{
    std::vector<bool> passed(corners_.size());
    std::vector<Ring> boundary;
    for (std::size_t i = 0; i < corners_.size(); ++i) {
        Ring ring;
        for (const std::size_t corner : boundary_from(i, passed))
            append(ring, staked_corner(corner));
        if (!ring.empty())
            boundary.push_back(closed_once(std::move(ring)));
    }
    return are_apart(boundary);
}

bool are_apart(const std::vector<Ring>& rings)
{
    constexpr std::size_t kMinVertices = 3;
    const auto is_ring = [](const Ring& ring) { return ring.size() >= kMinVertices; };
    if (!std::all_of(rings.begin(), rings.end(), is_ring))
        return false;
    const JoinedRings joined(rings);
    return !meeting_sides(joined).met;
}

}  // namespace plparcel
