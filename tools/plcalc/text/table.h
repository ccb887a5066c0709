#pragma once

// Text in columns.

#include <string>
#include <vector>

namespace tool {

/// One line of a table: what it is, then numbers under each other.
struct Row {
    std::string label;
    std::vector<std::string> cells;
};

/// Labels to the left; cells to the right, all of them as wide as the widest. Every line ended, none with
/// blanks behind.
std::string labelled(const std::vector<Row>& rows);

/// Columns of numbers, each as wide as its widest cell and aligned to the right. Every line ended.
std::string columns(const std::vector<std::vector<std::string>>& rows);

}  // namespace tool
