#include "whole_lines/whole_cut.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "boundary/joined_rings.h"
#include "boundary/locate.h"
#include "boundary/measured_ring.h"
#include "lines/direction.h"
#include "verdict/nearby_ends.h"
#include "verdict/target.h"
#include "verdict/whole_verdict.h"
#include "whole_lines/crossings.h"
#include "whole_lines/faces.h"
#include "whole_lines/level_frame.h"
#include "whole_lines/profile.h"

namespace plparcel {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// A vertex within this many spacings of doubles of a line lies on it.
constexpr double kOnLine = 4.0;

// All ends of a line lie within this many spacings of each other, across the line: two that were moved onto vertices,
// and their roundings.
constexpr double kStraight = 14.0;

// Where a line cannot be rounded well, for a hole that it touches or vertices that it all but touches, it is moved by
// these many spacings, one after another, as long as the amounts allow it: first to the side on which it meets fewer
// sides, so that it passes the hole. A line that none of them helps stays where it belongs.
constexpr double kMoves[] = {0.0,  12.0,  -12.0, 24.0,   -24.0,  48.0,    -48.0,
                             96.0, -96.0, 300.0, -300.0, 1000.0, -1000.0, 0.0};
constexpr std::size_t kLastMove = sizeof kMoves / sizeof kMoves[0] - 1;

// By how much of what is granted a line may miss what should lie below it before its ends are looked at again.
constexpr double kWellHeld = 0.25;

WidePoint left_of(const WidePoint& d)
{
    return {-d.y, d.x};
}

WidePoint right_of(const WidePoint& d)
{
    return {d.y, -d.x};
}

// The direction that lines run in.
WidePoint run_of(const WholeParcel& parcel, const Line& line)
{
    if (line.cut == Cut::at_bearing)
        return direction_of(line.bearing);
    return line.cut == Cut::along_segment ? from_to(line.a, line.b) : from_to(parcel.a, parcel.b);
}

// The direction in which levels grow: from where the first amount lies.
WidePoint up_of(const WholeParcel& parcel, const Request& request)
{
    const WidePoint run = about_unit(run_of(parcel, request.line));
    WidePoint up = left_of(run);
    if (request.line.cut == Cut::parallel && !parcel.inside_on_left)
        up = right_of(run);
    if (request.line.cut == Cut::perpendicular)
        up = {-run.x, -run.y};
    return request.measured == Measured::opposite ? WidePoint{-up.x, -up.y} : up;
}

PL_PNT2D_record zero_of(const WholeParcel& parcel, const Request& request)
{
    return is_free(request.line.cut) ? parcel.rings.front().front() : parcel.a;
}

class WholeCut {
public:
    WholeCut(const WholeParcel& parcel, const Request& request, const Shares& shares, double of_parcel,
             const KnownLine* known = nullptr)
        : parcel_(parcel), request_(request), shares_(shares), of_parcel_(of_parcel), known_(known),
          frame_(parcel.rings, known ? known->point : zero_of(parcel, request),
                 known ? known->up : up_of(parcel, request)),
          rings_(frame_.rings()), spacing_(frame_.spacing()),
          profile_(rings_, frame_.seen()), levels_{rings_, frame_.local(), frame_.points(), frame_.seen(),
                                                   unit() * kOnLine}
    {}

    std::vector<Wide> divide(Division& division)
    {
        division.status = Status::divided;
        if (place_lines(division) && round_lines(division))
            fill(division);
        return asked_;
    }

private:
    // One spacing of doubles, as a difference of levels.
    Wide unit() const { return frame_.length_to_frame(spacing_); }

    // Where widths are counted from.
    Wide begin() const
    {
        const bool here = request_.measured == Measured::from_reference;
        if (request_.line.cut == Cut::parallel && here)
            return 0.0;
        if (request_.line.cut == Cut::perpendicular)
            return frame_.seen(here ? parcel_.b : parcel_.a).y;
        return profile_.lowest();
    }

    // The exact level of each line, and what each piece should hold.
    bool place_lines(Division& division)
    {
        if (known_ != nullptr) {
            exact_ = {known_->level};
            asked_ = shares_.pieces;
            return true;
        }
        Wide level = begin();
        Wide below;
        for (std::size_t i = 0; i + 1 < shares_.pieces.size(); ++i) {
            const double width = shares_.widths.empty() ? 0.0 : shares_.widths[i];
            const Wide before = below;
            if (width > 0.0) {
                level = level + frame_.length_to_frame(width);
                below = profile_.area_below(level);
            } else {
                below = below + frame_.area_to_frame(shares_.pieces[i]);
                level = profile_.level_of(below);
            }
            if (!(below < profile_.area()) || !(below > before))
                return refuse(division, below > before ? Status::amount_too_large : Status::amount_too_small,
                              i);
            exact_.push_back(level);
            asked_.push_back(width > 0.0 ? frame_.area_to_parcel(below - before) : shares_.pieces[i]);
        }
        asked_.push_back(shares_.widths.empty() ? shares_.pieces.back()
                                                : frame_.area_to_parcel(profile_.area() - below));
        return true;
    }

    static bool refuse(Division& division, Status status, std::size_t at_amount)
    {
        division.status = status;
        division.at_amount = at_amount;
        return false;
    }

    // By how much a piece may miss what it should hold.
    double granted(std::size_t band) const
    {
        Target target;
        target.parcel = parcel_.area;
        target.of_parcel = of_parcel_;
        return target.granted(asked_[band]);
    }

    double granted_beside(std::size_t line) const { return std::min(granted(line), granted(line + 1)); }

    // Rounds all lines and looks at the pieces. Lines beside a piece that is not simple are moved, ends of lines that miss
    // their areas for the roundings are rounded otherwise, and then the pieces are looked at again.
    bool round_lines(Division& division)
    {
        moves_.assign(exact_.size(), 0);
        for (;;) {
            ++division.trials;
            std::size_t at_fault = cross_boundary();
            if (at_fault == kNone) {
                at_fault = look_at_faces();
                if (at_fault != kNone && is_simple_ && balance_ends())
                    at_fault = look_at_faces();
            }
            if (at_fault == kNone)
                return true;
            bool is_moved = false;
            for (std::size_t line = 0; line < exact_.size(); ++line)
                if (faulty_[line] && move(line))
                    is_moved = true;
            if (!is_moved)
                return refuse(division, Status::not_reached, at_fault);
        }
    }

    // The next place for a line, if there is one within what is granted.
    bool move(std::size_t line)
    {
        const double most = kWellHeld * granted_beside(line);
        while (++moves_[line] < kLastMove) {
            const Wide by = profile_.area_below(level_of(line)) - profile_.area_below(exact_[line]);
            if (std::fabs(frame_.area_to_parcel(by).value()) <= most)
                return true;
        }
        moves_[line] = kLastMove;
        return false;
    }

    Wide level_of(std::size_t line) const
    {
        const double by = kMoves[moves_[line]];
        if (by == 0.0)
            return exact_[line];
        const Wide step = unit() * kMoves[1];
        const bool down =
            profile_.sides_at(exact_[line] - step).size() < profile_.sides_at(exact_[line] + step).size();
        return exact_[line] + unit() * (down ? -by : by);
    }

    // Returns the first line that fails, or none.
    std::size_t cross_boundary()
    {
        faulty_.assign(exact_.size(), false);
        crossings_.clear();
        rounded_.clear();
        first_.assign(1, 0);
        Crossings found(levels_, profile_);
        for (std::size_t line = 0; line < exact_.size(); ++line) {
            rounded_.push_back(level_of(line));
            if (!found.add(line, rounded_.back(), crossings_)) {
                faulty_[line] = true;
                return line;
            }
            first_.push_back(crossings_.size());
        }
        if (known_ != nullptr && known_->ends_there)
            end_at_point();
        return kNone;
    }

    // The line ends where it was said to begin, not beside it.
    void end_at_point()
    {
        for (Crossing& end : crossings_)
            if (is_at_point(end) && !is_vertex(end))
                end.place = known_->point;
    }

    bool is_at_point(const Crossing& end) const
    {
        const double reach = kSideRoundings * spacing_;
        const PL_PNT2D_record& point = known_->point;
        return std::hypot(end.place.x - point.x, end.place.y - point.y) <= 2.0 * reach &&
               is_near_side(rings_[end.side], rings_.end_of(end.side), point, reach);
    }

    bool is_vertex(const Crossing& end) const
    {
        return same_place(end.place, rings_[end.side]) || same_place(end.place, rings_.end_of(end.side));
    }

    void blame(std::size_t band, std::size_t& first)
    {
        first = std::min(first, band);
        if (band > 0)
            faulty_[band - 1] = true;
        if (band < faulty_.size())
            faulty_[band] = true;
    }

    // Returns the first amount that its pieces do not hold, or none.
    std::size_t look_at_faces()
    {
        std::size_t first = kNone;
        got_.assign(asked_.size(), Wide());
        areas_.clear();
        is_simple_ = find_faces(levels_, crossings_, rounded_, faces_);
        if (!is_simple_) {
            faulty_.assign(faulty_.size(), true);
            return 0;
        }
        for (const Face& face : faces_) {
            const std::optional<Wide> area = area_of_piece(rings_of(face));
            areas_.push_back(area.value_or(Wide()));
            got_[face.band] = got_[face.band] + areas_.back();
            if (!area) {
                is_simple_ = false;
                blame(face.band, first);
            }
        }
        for (std::size_t band = 0; band < asked_.size(); ++band)
            if (!(std::fabs((got_[band] - asked_[band]).value()) <= granted(band)))
                blame(band, first);
        for (std::size_t line = 0; line < exact_.size(); ++line)
            if (!lies_well(line))
                blame(line, first);
        return first == exact_.size() ? first - 1 : first;
    }

    // Ends near their sides, and on one straight line.
    bool lies_well(std::size_t line) const
    {
        Wide low;
        Wide high;
        for (std::size_t i = first_[line]; i < first_[line + 1]; ++i) {
            const Crossing& c = crossings_[i];
            if (!is_near_side(rings_[c.side], rings_.end_of(c.side), c.place, kSideRoundings * spacing_))
                return false;
            const Wide off = dot(frame_.up(), from_to(crossings_[first_[line]].place, c.place));
            low = off < low ? off : low;
            high = off > high ? off : high;
        }
        return !(high - low > frame_.up_length() * (kStraight * spacing_));
    }

    std::vector<Ring> rings_of(const Face& face) const
    {
        std::vector<Ring> rings(1, face.ring);
        for (const std::size_t hole : face.holes)
            rings.push_back(parcel_.rings[hole]);
        return rings;
    }

    // Where areas are missed by the rounding of the ends: moves ends that are no vertices so that as much lies below each
    // line as should. Returns whether any was moved.
    bool balance_ends()
    {
        bool is_moved = false;
        Wide miss;
        for (std::size_t line = 0; line < exact_.size(); ++line) {
            miss = miss + (got_[line] - asked_[line]);
            double over = miss.value();
            const double enough = kWellHeld * granted_beside(line);
            for (std::size_t i = first_[line]; i < first_[line + 1] && std::fabs(over) > enough; ++i)
                is_moved = balance(i, over) || is_moved;
            miss = over;
        }
        return is_moved;
    }

    // The boundary's last place below an end.
    PL_PNT2D_record place_below(const Crossing& end) const
    {
        if (end.line > 0)
            for (std::size_t i = first_[end.line - 1]; i < first_[end.line]; ++i)
                if (crossings_[i].side == end.side)
                    return crossings_[i].place;
        return end.rises ? rings_[end.side] : rings_.end_of(end.side);
    }

    // Moves one end so that `over`, by which too much lies below its line, comes as near to nothing as it can.
    bool balance(std::size_t i, double& over)
    {
        Crossing& end = crossings_[i];
        if (is_vertex(end) || (known_ != nullptr && known_->ends_there && is_at_point(end)))
            return false;
        // The piece below runs up to the right end, along the line to the left end, and down from there.
        const PL_PNT2D_record other = crossings_[i ^ 1U].place;
        const PL_PNT2D_record below = place_below(end);
        const WidePoint base = end.rises ? from_to(below, other) : from_to(other, below);
        const PL_PNT2D_record was = end.place;
        const double reach = kReachRoundings * spacing_;
        double best = over;
        for (const double x : doubles_near(was.x, reach)) {
            for (const double y : doubles_near(was.y, reach)) {
                const double grown = 0.5 * ((x - was.x) * base.y.value() - (y - was.y) * base.x.value());
                if (std::fabs(over + grown) < std::fabs(best)) {
                    best = over + grown;
                    end.place = {x, y};
                }
            }
        }
        over = best;
        return !same_place(was, end.place);
    }

    // Whether segments are told from the right end to the left one of the frame.
    bool runs_back(std::size_t line) const
    {
        if (known_ != nullptr)
            return request_.measured == Measured::opposite;
        const WidePoint run = run_of(parcel_, request_.line);
        const Crossing& left = crossings_[first_[line]];
        const Crossing& right = crossings_[first_[line + 1] - 1];
        if (request_.line.cut != Cut::perpendicular)
            return dot(run, right_of(frame_.up())) < 0.0;
        return abs(cross(run, from_to(parcel_.a, right.place))) <
               abs(cross(run, from_to(parcel_.a, left.place)));
    }

    DividingLine dividing_line(std::size_t line) const
    {
        DividingLine made;
        for (std::size_t i = first_[line]; i < first_[line + 1]; i += 2)
            made.segments.push_back({crossings_[i].place, crossings_[i + 1].place});
        if (runs_back(line)) {
            std::reverse(made.segments.begin(), made.segments.end());
            for (Segment& segment : made.segments)
                std::swap(segment.from, segment.to);
        }
        made.from = made.segments.front().from;
        made.to = made.segments.back().to;
        return made;
    }

    // The crossing at which a piece's ring begins: the first one on the line below it, or on the one above.
    std::size_t beginning(const Face& face) const
    {
        return *std::min_element(face.corners.begin(), face.corners.end());
    }

    Piece piece_of(std::size_t index) const
    {
        const Face& face = faces_[index];
        Piece piece;
        piece.amount = face.band;
        piece.area = areas_[index].value();
        piece.ring = face.ring;
        for (const std::size_t hole : face.holes)
            piece.holes.push_back(parcel_.rings[hole]);
        const PL_PNT2D_record& first = crossings_[beginning(face)].place;
        const auto at_first = [&first](const PL_PNT2D_record& p) { return same_place(p, first); };
        std::rotate(piece.ring.begin(), std::find_if(piece.ring.begin(), piece.ring.end(), at_first),
                    piece.ring.end());
        if (parcel_.clockwise) {
            std::reverse(piece.ring.begin() + 1, piece.ring.end());
            for (Ring& hole : piece.holes)
                std::reverse(hole.begin() + 1, hole.end());
        }
        return piece;
    }

    void fill(Division& division) const
    {
        for (std::size_t line = 0; line < exact_.size(); ++line)
            division.lines.push_back(dividing_line(line));
        std::vector<std::size_t> order(faces_.size());
        for (std::size_t i = 0; i < order.size(); ++i)
            order[i] = i;
        std::sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) {
            if (faces_[a].band != faces_[b].band)
                return faces_[a].band < faces_[b].band;
            return beginning(faces_[a]) < beginning(faces_[b]);
        });
        std::vector<std::size_t> count(asked_.size());
        for (const std::size_t i : order) {
            division.pieces.push_back(piece_of(i));
            ++count[faces_[i].band];
        }
        for (Piece& piece : division.pieces) {
            const std::size_t band = piece.amount;
            piece.asked = asked_[band].value();
            piece.residual = (got_[band] - asked_[band]).value();
        }
        for (std::size_t band = 0; band < asked_.size(); ++band)
            division.held.push_back(
                {asked_[band].value(), got_[band].value(), (got_[band] - asked_[band]).value(), count[band]});
    }

    const WholeParcel& parcel_;
    const Request& request_;
    const Shares& shares_;
    double of_parcel_;
    const KnownLine* known_;  // or null: the amounts decide where the lines lie
    LevelFrame frame_;
    const JoinedRings& rings_;
    double spacing_;
    Profile profile_;
    Levels levels_;

    std::vector<Wide> exact_;          // of each line its level
    std::vector<Wide> rounded_;        // where it is looked for
    std::vector<Wide> asked_;          // of each amount, and of what is left
    std::vector<std::size_t> moves_;   // of each line how often it was moved
    std::vector<bool> faulty_;         // lines beside a piece that is not right
    std::vector<Crossing> crossings_;  // of all lines
    std::vector<std::size_t> first_;   // of each line its first crossing; one more at the end
    std::vector<Face> faces_;
    std::vector<Wide> areas_;  // of each face
    std::vector<Wide> got_;    // of each amount
    bool is_simple_ = true;    // all pieces can stand as parcels
};

}  // namespace

std::vector<Wide> cut_whole(const WholeParcel& parcel, const Request& request, const Shares& shares,
                            double of_parcel, Division& division)
{
    return WholeCut(parcel, request, shares, of_parcel).divide(division);
}

void cut_along(const WholeParcel& parcel, const Request& request, const Shares& shares, double of_parcel,
               const KnownLine& line, Division& division)
{
    WholeCut(parcel, request, shares, of_parcel, &line).divide(division);
}

}  // namespace plparcel
