#pragma once

// Text in columns.

#include <cstddef>
#include <string>
#include <vector>

namespace tool {

/// One line of a table: what it is, then numbers under each other.
struct Row {
    std::string label;
    std::vector<std::string> cells;
};

/// Labels on the left, cells on the right, each as wide as the widest. Every line is ended, and none has
/// trailing blanks.
std::string labelled(const std::vector<Row>& rows);

/// Columns whose rows come one by one: all are measured first, and then each is made a line.
class Columns {
public:
    void measure(const std::vector<std::string>& row);

    /// A row as `columns` has it.
    std::string line(const std::vector<std::string>& row) const;

    /// Whether the columns fit a terminal, 80 characters wide.
    bool fit_terminal() const;

private:
    std::vector<std::size_t> widths_;
};

/// A text as a cell of a CSV file, between quotes where it needs them.
std::string csv_cell(const std::string& text);

/// Whether the columns of these rows fit a terminal.
bool fit_terminal(const std::vector<std::vector<std::string>>& rows);

/// Columns of numbers, each as wide as its widest cell and aligned to the right. Every line is ended.
std::string columns(const std::vector<std::vector<std::string>>& rows);
}  // namespace tool
