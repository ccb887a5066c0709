#pragma once

// How a verb ends: with its output or with a failure.

#include <exception>
#include <functional>
#include <string>

namespace tool {

/// What the program returns to the shell. Scripts rely on the numbers.
enum class ExitStatus {
    done = 0,            ///< every number printed is right
    failed = 1,          ///< neither the request nor the parcel is to blame: no memory, output not written
    wrong_use = 2,       ///< options, or a side, vertex or feature that does not exist
    unusable_input = 3,  ///< a file or geometry that cannot be worked on
    cannot_cut = 4       ///< a parcel that cannot be divided as asked
};

/// What a verb hands to the shell.
struct Output {
    std::string text;                      ///< for stdout
    ExitStatus status = ExitStatus::done;  ///< not `done` where some parcels of many could not be worked on
    /// Hands out what stands behind the text and is too long to keep in memory; may be empty.
    std::function<void(const std::function<void(const std::string&)>& take)> body = {};
    std::string end = {};    ///< behind the body
    std::string notes = {};  ///< what is for people even where the standard output holds something else
};

/// What a message is about. A part that is empty is left out of it.
struct Place {
    std::string file;  ///< as the command line names it
    std::string
        feature;  ///< in the file: "feature 3", or "layer lots: feature 3" where there are several layers
    std::string name = {};  ///< of the parcel, "1234/5"; empty when nobody says

    /// "layer lots: feature 3", or "feature 3 '1234/5'".
    std::string called() const;

    /// "lots.gpkg: feature 3 '1234/5'".
    std::string text() const;

    /// The same without the name.
    std::string without_name() const;
};

/// The text in one line that a terminal cannot take for a command: control characters become question marks.
std::string printable(std::string text);

/// Ends the verb. main() makes a sentence of it and returns its status.
struct Failure : std::exception {
    Failure(ExitStatus failure_status, Place failure_place, std::string what_is_wrong, std::string what_to_do,
            std::string more = "");

    /// `problem`, for those who know no more than std::exception.
    const char* what() const noexcept override { return problem.c_str(); }

    ExitStatus status;    ///< what the program returns
    Place place;          ///< empty where the command line itself is wrong
    std::string problem;  ///< what is wrong
    std::string advice;   ///< what to do; may be empty
    std::string detail;   ///< where exactly the parcel has the problem; may be empty
};

/// "lots.csv: feature 4: the boundary crosses itself: side 1 meets side 3; correct it": place, problem, detail and
/// advice.
std::string sentence(const Failure& failure);

}  // namespace tool
