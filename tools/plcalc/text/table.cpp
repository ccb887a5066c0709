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

void Columns::measure(const std::vector<std::string>& row)
{
    widths_.resize(std::max(widths_.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i)
        widths_[i] = std::max(widths_[i], width_of(row[i]));
}

std::string Columns::line(const std::vector<std::string>& row) const
{
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i)
        line += std::string((i > 0 ? kGap : 0) + widths_[i] - width_of(row[i]), ' ') + row[i];
    return line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
}

bool Columns::fit_terminal() const
{
    constexpr std::size_t kTerminal = 80;
    return std::accumulate(widths_.begin(), widths_.end(), std::size_t{0}) + kGap * (widths_.size() - 1) <=
           kTerminal;
}

std::string csv_cell(const std::string& text)
{
    if (text.find_first_of(",;\"\r\n") == std::string::npos)
        return text;
    std::string cell = "\"";
    for (const char c : text)
        cell += c == '"' ? std::string("\"\"") : std::string(1, c);
    return cell + "\"";
}

bool fit_terminal(const std::vector<std::vector<std::string>>& rows)
{
    Columns measured;
    for (const std::vector<std::string>& row : rows)
        measured.measure(row);
    return measured.fit_terminal();
}

std::string columns(const std::vector<std::vector<std::string>>& rows)
{
    Columns measured;
    for (const std::vector<std::string>& row : rows)
        measured.measure(row);
    std::string text;
    for (const std::vector<std::string>& row : rows)
        text += measured.line(row);
    return text;
}

}  // namespace tool
