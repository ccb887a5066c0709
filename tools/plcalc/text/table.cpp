#include "text/table.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace {

constexpr std::size_t kGap = 2;

// Characters, not bytes, so that a label in UTF-8 does not shift its numbers.
std::size_t width_of(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::vector<std::size_t> widths_of(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::size_t> widths;
    for (const std::vector<std::string>& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], width_of(row[i]));
    }
    return widths;
}

}  // namespace

namespace tool {

std::string labelled(const std::vector<Row>& rows)
{
    std::size_t label_width = 0;
    std::size_t cell_width = 0;
    for (const Row& row : rows) {
        label_width = std::max(label_width, width_of(row.label));
        for (const std::string& cell : row.cells)
            cell_width = std::max(cell_width, width_of(cell));
    }
    std::string text;
    for (const Row& row : rows) {
        text += row.label;
        std::size_t fill = label_width - width_of(row.label);
        for (const std::string& cell : row.cells) {
            text += std::string(fill + kGap + cell_width - width_of(cell), ' ') + cell;
            fill = 0;
        }
        text += '\n';
    }
    return text;
}

std::string columns(const std::vector<std::vector<std::string>>& rows)
{
    const std::vector<std::size_t> widths = widths_of(rows);
    std::string text;
    for (const std::vector<std::string>& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += std::string((i > 0 ? kGap : 0) + widths[i] - width_of(row[i]), ' ') + row[i];
        text += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
    }
    return text;
}

bool fit_terminal(const std::vector<std::vector<std::string>>& rows)
{
    constexpr std::size_t kTerminal = 80;
    const std::vector<std::size_t> widths = widths_of(rows);
    return std::accumulate(widths.begin(), widths.end(), std::size_t{0}) + kGap * (widths.size() - 1) <=
           kTerminal;
}

}  // namespace tool
