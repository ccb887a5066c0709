#include "whole_lines/crossings.h"

#include <algorithm>

namespace plparcel {

Crossings::Crossings(const Levels& levels, const Profile& profile)
    : levels_(levels), profile_(profile), classes_(levels.rings.size())
{}

bool Crossings::is_on(std::size_t vertex, const Wide& level) const
{
    return !(abs(levels_.frame[vertex].y - level) > levels_.reach);
}

int Crossings::side_of(std::size_t vertex, const Wide& level) const
{
    if (classes_[vertex] != 0)
        return classes_[vertex];
    return levels_.frame[vertex].y > level ? 1 : -1;
}

// Which side a run of vertices on the line counts for. Along a flat that runs to the left the inside is below, along
// one to the right above; a single vertex that sticks out counts for where its sides are, one that reaches in for
// the other side. Where the boundary passes through the line either will do.
int Crossings::class_of(std::size_t first, std::size_t last, const Wide& level) const
{
    const JoinedRings& rings = levels_.rings;
    const std::vector<WidePoint>& frame = levels_.frame;
    if (first != last)
        return frame[last].x < frame[first].x ? -1 : 1;
    const WidePoint& v = frame[first];
    const WidePoint& before = frame[rings.before(first)];
    const WidePoint& after = frame[rings.next(first)];
    const bool sticks_out = cross(v - before, after - v) > 0.0;
    return sticks_out == (before.y > level) ? 1 : -1;
}

// All that lie on the line beside a vertex, as far as the boundary stays there.
void Crossings::classify(std::size_t vertex, const Wide& level)
{
    const JoinedRings& rings = levels_.rings;
    std::size_t first = vertex;
    while (is_on(rings.before(first), level) && rings.before(first) != vertex)
        first = rings.before(first);
    std::size_t last = vertex;
    while (is_on(rings.next(last), level) && rings.next(last) != first)
        last = rings.next(last);
    const int counts_for = class_of(first, last, level);
    for (std::size_t v = first; v != last; v = rings.next(v))
        classes_[v] = counts_for;
    classes_[last] = counts_for;
}

Crossing Crossings::crossing(std::size_t line, std::size_t side, const Wide& level) const
{
    const std::size_t next = levels_.rings.next(side);
    Crossing made;
    made.line = line;
    made.side = side;
    made.rises = side_of(next, level) > 0;
    for (const std::size_t end : {side, next}) {
        if (classes_[end] == 0)
            continue;
        made.along = levels_.frame[end].x;
        made.place = levels_.rings[end];
        return made;
    }
    const WidePoint& a = levels_.frame[side];
    const WidePoint& b = levels_.frame[next];
    const Wide part = (level - a.y) / (b.y - a.y);
    made.along = a.x + (b.x - a.x) * part;
    const WidePoint& p = levels_.points[side];
    const WidePoint exact = levels_.local.to_parcel(p + (levels_.points[next] - p) * part);
    made.place = {exact.x.value(), exact.y.value()};
    return made;
}

bool Crossings::add(std::size_t line, const Wide& level, std::vector<Crossing>& found)
{
    const std::vector<std::size_t> on =
        profile_.vertices_between(level - levels_.reach, level + levels_.reach);
    for (const std::size_t vertex : on)
        if (classes_[vertex] == 0)
            classify(vertex, level);
    std::vector<std::size_t> sides = profile_.sides_at(level);
    for (const std::size_t vertex : on) {
        sides.push_back(vertex);
        sides.push_back(levels_.rings.before(vertex));
    }
    std::sort(sides.begin(), sides.end());
    sides.erase(std::unique(sides.begin(), sides.end()), sides.end());

    const std::size_t first = found.size();
    for (const std::size_t side : sides)
        if (side_of(side, level) != side_of(levels_.rings.next(side), level))
            found.push_back(crossing(line, side, level));
    for (const std::size_t vertex : on)
        classes_[vertex] = 0;
    // At a vertex that reaches in, one segment ends and the next begins.
    std::sort(found.begin() + static_cast<std::ptrdiff_t>(first), found.end(),
              [](const Crossing& a, const Crossing& b) {
                  if (a.along < b.along || b.along < a.along)
                      return a.along < b.along;
                  return b.rises < a.rises;
              });
    for (std::size_t i = first; i < found.size(); ++i)
        if (found[i].rises != ((i - first) % 2 == 1))
            return false;
    return found.size() > first;
}

}  // namespace plparcel
