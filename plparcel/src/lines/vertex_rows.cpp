#include "lines/vertex_rows.h"

#include <algorithm>
#include <numeric>

namespace plparcel {

VertexRows::VertexRows(const std::vector<WidePoint>& frame, const Wide& reach, const Counts& counts)
    : frame_(frame), reach_(reach), first_(1, 0)
{
    std::vector<std::size_t> by_level(frame.size());
    std::iota(by_level.begin(), by_level.end(), std::size_t{0});
    std::sort(by_level.begin(), by_level.end(),
              [&frame](std::size_t a, std::size_t b) { return frame[a].y < frame[b].y; });
    std::size_t begin = 0;
    for (std::size_t i = 1; i <= by_level.size(); ++i) {
        if (i < by_level.size() && !(frame[by_level[i]].y - frame[by_level[i - 1]].y > reach))
            continue;
        add_row(by_level, begin, i, counts);
        begin = i;
    }
}

void VertexRows::add_row(const std::vector<std::size_t>& by_level, std::size_t begin, std::size_t end,
                         const Counts& counts)
{
    const Wide& low = frame_[by_level[begin]].y;
    const Wide& high = frame_[by_level[end - 1]].y;
    for (std::size_t i = begin; i < end; ++i)
        if (!counts || counts(by_level[i]))
            vertices_.push_back(by_level[i]);
    std::sort(vertices_.begin() + static_cast<std::ptrdiff_t>(first_.back()), vertices_.end(),
              [this](std::size_t a, std::size_t b) { return frame_[a].x < frame_[b].x; });
    low_.push_back(low);
    high_.push_back(high);
    first_.push_back(vertices_.size());
}

std::size_t VertexRows::row_at(const Wide& level) const
{
    return static_cast<std::size_t>(std::upper_bound(low_.begin(), low_.end(), level) - low_.begin()) - 1;
}

bool VertexRows::has_between(const Wide& level, const Wide& left, const Wide& right) const
{
    const std::size_t row = row_at(level);
    const auto at = [this](std::size_t of_row) {
        return vertices_.begin() + static_cast<std::ptrdiff_t>(first_[of_row]);
    };
    const auto end = at(row + 1);
    const auto next =
        std::upper_bound(at(row), end, left + reach_,
                         [this](const Wide& along, std::size_t vertex) { return along < frame_[vertex].x; });
    return next != end && frame_[*next].x < right - reach_;
}

}  // namespace plparcel
