#include "reading/joined_lines.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace tool {
namespace {

using Point = PL_PNT2D_record;

// End 2 k is the start of line k, end 2 k + 1 its other end.
constexpr std::size_t kEnds = 2;

const Point& place_of(const std::vector<OpenLine>& lines, std::size_t end)
{
    const std::vector<Point>& points = lines[end / kEnds].points;
    return end % kEnds == 0 ? points.front() : points.back();
}

double apart(const Point& a, const Point& b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

// Sets that grow together.
class Groups {
public:
    explicit Groups(std::size_t count) : parent_(count)
    {
        std::iota(parent_.begin(), parent_.end(), std::size_t(0));
    }

    // The smallest member stands for all.
    std::size_t of(std::size_t i)
    {
        while (parent_[i] != i)
            i = parent_[i] = parent_[parent_[i]];
        return i;
    }

    void unite(std::size_t a, std::size_t b)
    {
        a = of(a);
        b = of(b);
        parent_[std::max(a, b)] = std::min(a, b);
    }

private:
    std::vector<std::size_t> parent_;
};

// Whether the line stays within the tolerance of where it starts.
bool is_short(const OpenLine& line, double tolerance)
{
    return std::all_of(line.points.begin(), line.points.end(),
                       [&](const Point& p) { return apart(line.points.front(), p) <= tolerance; });
}

// The points in the direction in which they come first.
std::vector<std::pair<double, double>> undirected(const OpenLine& line)
{
    std::vector<std::pair<double, double>> there;
    for (const Point& p : line.points)
        there.emplace_back(p.x, p.y);
    std::vector<std::pair<double, double>> back(there.rbegin(), there.rend());
    return std::min(there, back);
}

// Of each line, the first one that is the same.
std::vector<std::size_t> first_copies(const std::vector<OpenLine>& lines)
{
    std::map<std::vector<std::pair<double, double>>, std::size_t> seen;
    std::vector<std::size_t> first;
    for (std::size_t i = 0; i < lines.size(); ++i)
        first.push_back(seen.emplace(undirected(lines[i]), i).first->second);
    return first;
}

// Column and row.
using Cell = std::pair<double, double>;

struct HashOfCell {
    std::size_t operator()(const Cell& cell) const
    {
        constexpr std::size_t kOdd = 1000003;
        return std::hash<double>()(cell.first) * kOdd + std::hash<double>()(cell.second);
    }
};

// Unites ends that are one place. Ends in the same cell, half a tolerance wide, always are; a cell looks at those around it
// and needs no more than the first few of its ends for that, because three in one place make a fork already.
void unite_ends(const std::vector<OpenLine>& lines, const std::vector<std::size_t>& ends, double tolerance,
                Groups& places)
{
    constexpr std::size_t kLookedAt = 3;
    constexpr int kReach = 2;
    const double width = tolerance / kReach;
    std::unordered_map<Cell, std::vector<std::size_t>, HashOfCell> cells;
    for (const std::size_t end : ends) {
        const Point& p = place_of(lines, end);
        const double column = std::floor(p.x / width);
        const double row = std::floor(p.y / width);
        std::vector<std::size_t>& cell = cells[{column, row}];
        if (!cell.empty() && apart(place_of(lines, cell.front()), p) <= tolerance)
            places.unite(cell.front(), end);
        if (cell.size() < kLookedAt)
            cell.push_back(end);
        for (int i = -kReach; i <= kReach; ++i)
            for (int j = -kReach; j <= kReach; ++j) {
                const auto near = cells.find({column + i, row + j});
                if (near == cells.end())
                    continue;
                for (const std::size_t other : near->second)
                    if (apart(place_of(lines, other), p) <= tolerance)
                        places.unite(other, end);
            }
    }
}

// The lines that take part, and where they meet.
class Network {
public:
    Network(const std::vector<OpenLine>& lines, double tolerance)
        : lines_(lines), copies_(first_copies(lines)), places_(lines.size() * kEnds), groups_(lines.size())
    {
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (copies_[i] == i && !is_short(lines[i], tolerance))
                ends_.insert(ends_.end(), {i * kEnds, i * kEnds + 1});
        unite_ends(lines, ends_, tolerance, places_);
        for (const std::size_t end : ends_) {
            std::vector<std::size_t>& meeting = at_place_[places_.of(end)];
            meeting.push_back(end);
            groups_.unite(meeting.front() / kEnds, end / kEnds);
        }
    }

    std::vector<JoinedLines> groups()
    {
        std::map<std::size_t, JoinedLines> by_first;
        for (std::size_t i = 0; i < ends_.size(); i += kEnds)
            by_first[groups_.of(ends_[i] / kEnds)].lines.push_back(ends_[i] / kEnds);
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            const auto group = by_first.find(groups_.of(copies_[i]));
            if (copies_[i] != i && group != by_first.end())
                ++group->second.repeated;
        }
        std::vector<JoinedLines> groups;
        for (auto& [first, group] : by_first) {
            judge(group);
            if (group.kind == Join::loop)
                walk(group);
            groups.push_back(std::move(group));
        }
        return groups;
    }

private:
    const std::vector<std::size_t>& meeting(std::size_t end) { return at_place_.at(places_.of(end)); }

    void judge(JoinedLines& group)
    {
        group.kind = Join::loop;
        for (const std::size_t line : group.lines)
            for (const std::size_t end : {line * kEnds, line * kEnds + 1}) {
                const std::size_t count = meeting(end).size();
                if (count > kEnds && group.kind != Join::fork) {
                    group.kind = Join::fork;
                    group.fork = place_of(lines_, end);
                    group.ends_at_fork = count;
                }
                if (count < kEnds) {
                    group.loose.push_back(place_of(lines_, end));
                    group.kind = group.kind == Join::fork ? Join::fork : Join::open;
                }
            }
    }

    // The end of a line that meets this one.
    std::size_t partner(std::size_t end)
    {
        const std::vector<std::size_t>& both = meeting(end);
        return both[0] == end ? both[1] : both[0];
    }

    void walk(JoinedLines& group)
    {
        const std::size_t start = group.lines.front() * kEnds;
        group.lines.clear();
        for (std::size_t entry = start; group.lines.empty() || entry != start;) {
            const std::size_t before_entry = partner(entry);
            const std::size_t exit = entry ^ std::size_t(1);
            append(group, entry, before_entry);
            group.lines.push_back(entry / kEnds);
            group.widest_gap =
                std::max(group.widest_gap, apart(place_of(lines_, entry), place_of(lines_, before_entry)));
            entry = partner(exit);
        }
    }

    // The points of a line from where it is entered to the one before its other end.
    void append(JoinedLines& group, std::size_t entry, std::size_t before_entry)
    {
        const OpenLine& line = lines_[entry / kEnds];
        const bool forward = entry % kEnds == 0;
        const std::size_t last = line.points.size() - 1;
        for (std::size_t i = 0; i < last; ++i) {
            const std::size_t at = forward ? i : last - i;
            group.ring.push_back(line.points[at]);
            group.heights.push_back(line.heights[at]);
        }
        if (before_entry / kEnds >= entry / kEnds)
            return;
        const OpenLine& earlier = lines_[before_entry / kEnds];
        const std::size_t joint = group.ring.size() - last;
        const bool at_start = before_entry % kEnds == 0;
        group.ring[joint] = place_of(lines_, before_entry);
        group.heights[joint] = at_start ? earlier.heights.front() : earlier.heights.back();
    }

    const std::vector<OpenLine>& lines_;
    std::vector<std::size_t> copies_;
    std::vector<std::size_t> ends_;  // of the lines that take part
    Groups places_;                  // of ends
    Groups groups_;                  // of lines
    std::map<std::size_t, std::vector<std::size_t>> at_place_;
};

}  // namespace

std::vector<JoinedLines> join_lines(const std::vector<OpenLine>& lines, double tolerance)
{
    return Network(lines, tolerance).groups();
}

}  // namespace tool
