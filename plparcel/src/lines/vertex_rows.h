#pragma once

// Whether a line of one direction passes a vertex between its ends.

#include <cstddef>
#include <functional>
#include <vector>

#include "numbers/wide.h"

namespace plparcel {

/// The vertices in rows: those of a row are no further apart, from one level to the next, than a reach.
class VertexRows {
public:
    using Counts = std::function<bool(std::size_t vertex)>;

    /// @param[in] frame   of each vertex its place along the lines and its level
    /// @param[in] counts  whether a vertex counts; all do unless it is given
    VertexRows(const std::vector<WidePoint>& frame, const Wide& reach, const Counts& counts = {});

    /// Whether a vertex of the row at a level lies between two places along it, and not next to them.
    ///
    /// @param[in] level  that of a vertex
    bool has_between(const Wide& level, const Wide& left, const Wide& right) const;

    /// The row of a vertex at a level, counted upwards.
    std::size_t row_at(const Wide& level) const;

    /// Whether the levels of a row's vertices are the same to the last bit.
    bool is_level(std::size_t row) const { return !(low_[row] < high_[row]); }

private:
    void add_row(const std::vector<std::size_t>& by_level, std::size_t begin, std::size_t end,
                 const Counts& counts);

    const std::vector<WidePoint>& frame_;
    Wide reach_;
    std::vector<std::size_t> vertices_;  // row by row, from left to right
    std::vector<std::size_t> first_;     // of each row its place there; one more at the end
    std::vector<Wide> low_;              // of each row its lowest level
    std::vector<Wide> high_;             // and its highest one
};

}  // namespace plparcel
