#include "answers/division_points.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "text/numbers.h"

namespace tool {
namespace {

using Key = std::pair<double, double>;

constexpr std::size_t kLetters = 26;

Key key_of(const PL_PNT2D_record& p)
{
    return {p.x, p.y};
}

// Names of a letter and a number, from 1.
class NumberedNames {
public:
    explicit NumberedNames(char letter) : letter_(letter) {}

    // Begins behind a name of this kind.
    void begin_behind(const std::string& name)
    {
        const bool begins = name.size() > 1 && std::toupper(static_cast<unsigned char>(name[0])) == letter_ &&
                            std::isdigit(static_cast<unsigned char>(name[1]));
        last_ = std::max(last_, begins ? parse_whole(name.substr(1)).value_or(0) : 0);
    }

    std::string next() { return letter_ + std::to_string(++last_); }

private:
    char letter_;
    long long last_ = 0;
};

std::string letters(std::size_t index, char first)
{
    std::string text;
    for (std::size_t rest = index + 1; rest > 0; rest = (rest - 1) / kLetters)
        text.insert(text.begin(), static_cast<char>(first + static_cast<int>((rest - 1) % kLetters)));
    return text;
}

// Collects the points of one answer.
class PointCollector {
public:
    PointCollector(const Answer& answer, const std::vector<std::string>& taken) : answer_(answer)
    {
        for (const std::string& name : taken)
            begin_behind(name);
        add_corners();
        add_lines();
        add_pieces();
        sort_along_sides();
    }

    DivisionPoints take() { return std::move(points_); }

private:
    void begin_behind(const std::string& name)
    {
        new_names_.begin_behind(name);
        neighbour_names_.begin_behind(name);
    }

    void add_corners()
    {
        const Parcel& parcel = answer_.parcel;
        points_.rings = corners_of(parcel);
        const plparcel::Ring& at = points_.rings.at;
        for (std::size_t i = 0; i < at.size(); ++i) {
            const std::string name = vertex_name(parcel, i);
            points_.points.push_back({name, at[i]});
            index_.emplace(key_of(at[i]), i);
            begin_behind(name);
        }
        for (const PL_PNT2D_record& p : answer_.printed.of_neighbours)
            of_neighbours_.insert(key_of(p));
        // A line that ends at a corner ends at its coordinates with fewer decimals. Other corners come first.
        for (std::size_t i = 0; i < at.size(); ++i)
            index_.emplace(key_of(rounded(at[i])), i);
        points_.corners = at.size();
        points_.on_side.resize(points_.corners);
    }

    PL_PNT2D_record rounded(const PL_PNT2D_record& p) const
    {
        const std::optional<int>& decimals = answer_.printed.proven.decimals;
        if (!decimals)
            return p;
        return {plparcel::rounded_to(p.x, *decimals), plparcel::rounded_to(p.y, *decimals)};
    }

    std::size_t index_of(const PL_PNT2D_record& p)
    {
        const auto [found, is_new] = index_.emplace(key_of(p), points_.points.size());
        if (!is_new)
            return found->second;
        const bool is_there = of_neighbours_.count(key_of(p)) > 0;
        points_.points.push_back({is_there ? neighbour_names_.next() : new_names_.next(), p, !is_there});
        return found->second;
    }

    void add_lines()
    {
        for (const PrintedLine& line : answer_.printed.lines) {
            const std::size_t from = index_of(line.start);
            points_.lines.push_back({from, index_of(line.end)});
        }
    }

    void add_pieces()
    {
        for (const plparcel::Piece& piece : answer_.printed.proven.pieces) {
            points_.pieces.push_back({indices(piece.ring), {}});
            for (const plparcel::Ring& hole : piece.holes)
                points_.pieces.back().holes.push_back(indices(hole));
        }
    }

    std::vector<std::size_t> indices(const plparcel::Ring& ring)
    {
        std::vector<std::size_t> corners;
        for (const PL_PNT2D_record& p : ring)
            corners.push_back(index_of(p));
        return corners;
    }

    bool is_line(std::size_t from, std::size_t to) const
    {
        return lines_.count({std::min(from, to), std::max(from, to)}) > 0;
    }

    // Pieces run as the parcel does, so that the point after a new one on the boundary is that of the piece after it.
    void sort_along_sides()
    {
        for (const DivisionPoints::Line& line : points_.lines)
            lines_.insert({std::min(line.from, line.to), std::max(line.from, line.to)});
        std::map<std::size_t, std::size_t> next;
        for (const DivisionPoints::Piece& piece : points_.pieces) {
            follow(piece.ring, next);
            for (const std::vector<std::size_t>& hole : piece.holes)
                follow(hole, next);
        }
        for (std::size_t side = 0; side < points_.corners; ++side) {
            const Corners& rings = points_.rings;
            const std::size_t end = rings.next[side];
            if (key_of(rings.at[end]) == key_of(rings.at[side]))
                continue;
            // A hole may run against the pieces.
            const bool forwards = rings.inside_left[rings.ring[side]] == rings.inside_left[0];
            std::vector<std::size_t>& on_side = points_.on_side[side];
            for (auto on = next.find(index_.at(key_of(rings.at[forwards ? side : end]))); on != next.end();
                 on = next.find(on->second))
                on_side.push_back(on->second);
            if (!forwards)
                std::reverse(on_side.begin(), on_side.end());
        }
    }

    // Notes which new points come after which points along the boundary.
    void follow(const std::vector<std::size_t>& ring, std::map<std::size_t, std::size_t>& next) const
    {
        for (std::size_t i = 0; i < ring.size(); ++i)
            if (const std::size_t to = ring[(i + 1) % ring.size()];
                to >= points_.corners && !is_line(ring[i], to))
                next[ring[i]] = to;
    }

    const Answer& answer_;
    DivisionPoints points_;
    std::map<Key, std::size_t> index_;
    std::set<std::pair<std::size_t, std::size_t>> lines_;
    std::set<Key> of_neighbours_;
    NumberedNames new_names_ = NumberedNames('P');
    NumberedNames neighbour_names_ = NumberedNames('N');
};

}  // namespace

std::vector<std::size_t> DivisionPoints::along(std::size_t side) const
{
    std::vector<std::size_t> all = {side};
    all.insert(all.end(), on_side[side].begin(), on_side[side].end());
    all.push_back(rings.next[side]);
    return all;
}

DivisionPoints points_of(const Answer& answer, const std::vector<std::string>& taken)
{
    return PointCollector(answer, taken).take();
}

std::string piece_title(const std::string& parcel, std::size_t piece)
{
    if (parcel.empty())
        return letters(piece, 'A');
    const bool ends_with_digit = std::isdigit(static_cast<unsigned char>(parcel.back())) != 0;
    return ends_with_digit ? parcel + letters(piece, 'a') : parcel + "-" + letters(piece, 'A');
}

}  // namespace tool
