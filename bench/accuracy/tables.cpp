#include "tables.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>

namespace {

void print_row(const std::vector<std::string>& cells)
{
    std::printf("|");
    for (const std::string& cell : cells)
        std::printf(" %s |", cell.c_str());
    std::printf("\n");
}

}  // namespace

namespace accuracy {

void print_table(const std::string& title, const std::vector<std::vector<std::string>>& rows)
{
    std::printf("\n### %s\n\n", title.c_str());
    print_row(rows.front());
    print_row(std::vector<std::string>(rows.front().size(), "---"));
    for (std::size_t i = 1; i < rows.size(); ++i)
        print_row(rows[i]);
}

std::string scientific(long double v)
{
    char text[40];
    std::snprintf(text, sizeof text, v == 0.0L ? "0" : "%.1Le", v);
    return text;
}

std::string percent(int part, int whole)
{
    if (part == whole)
        return "100";
    char text[40];
    // Rounded down: 99.99 of a hundred is not all of them.
    std::snprintf(text, sizeof text, "%.2f", std::floor(1e4 * part / whole) / 100.0);
    return text;
}

std::string count(int n)
{
    return std::to_string(n);
}

void Errors::note(long double error)
{
    errors_.push_back(std::fabs(error));
}

std::string Errors::median_and_largest()
{
    std::sort(errors_.begin(), errors_.end());
    return scientific(errors_[errors_.size() / 2]) + " / " + scientific(errors_.back());
}

}  // namespace accuracy
