#pragma once

// Runs the program as a user does, in a folder of its own.

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace test {

/// What a run left behind.
struct Result {
    int status = -1;  ///< exit status; -1 when the program was ended by a signal
    std::string out;  ///< stdout
    std::string err;  ///< stderr
};

/// A test with an empty folder that goes away afterwards.
class ProgramTest : public ::testing::Test {
protected:
    ProgramTest();
    ~ProgramTest() override;

    /// Runs the program in the folder.
    ///
    /// @param[in] arguments  what stands after the program's name
    Result run(const std::vector<std::string>& arguments) const;

    /// Runs it with stdout and stderr on a terminal, and tells what the terminal got; in `out`.
    ///
    /// @param[in] no_color  value of NO_COLOR; null when it is not set
    /// @param[in] term      value of TERM
    Result run_on_terminal(const std::vector<std::string>& arguments, const char* no_color,
                           const char* term = "xterm") const;

    /// `plcalc divide FILE`, the other arguments separated by blanks.
    Result divide(const std::string& file, const std::string& arguments) const;

    /// Writes a file in the folder. Returns its name, as the program is told it.
    std::string write(const std::string& name, const std::string& content) const;

    /// A CSV file with one row and this geometry.
    std::string write_wkt(const std::string& wkt) const;

    /// Path of a file in the folder.
    std::string path(const std::string& name) const { return folder_ + "/" + name; }

private:
    std::string folder_;
};

/// The coordinates after a label of the table, "from" or "to", or the number after it.
std::vector<double> numbers_after(const std::string& table, const std::string& label);

/// Whether the run failed as it must: the status, nothing on stdout, and one line on stderr that begins with
/// "plcalc: " and is `text` after it.
::testing::AssertionResult fails_with(const Result& run, int status, const std::string& text);

}  // namespace test
