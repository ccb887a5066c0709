#pragma once

// Markdown tables, and the numbers in them.

#include <string>
#include <vector>

namespace accuracy {

/// Prints one table: the first row is its head.
void print_table(const std::string& title, const std::vector<std::vector<std::string>>& rows);

std::string scientific(long double v);     ///< two digits, 1.2e-07
std::string percent(int part, int whole);  ///< 100 only when it is all of them
std::string count(int n);

/// Errors of one operation: what is typical and what is the worst.
class Errors {
public:
    void note(long double error);
    std::string median_and_largest();  ///< "1.2e-16 / 3.4e-15"

private:
    std::vector<long double> errors_;
};

}  // namespace accuracy
