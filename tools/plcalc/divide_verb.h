#pragma once

// `plcalc divide`: its arguments, and its work from file to table.

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "parcel_reader.h"
#include "request.h"

namespace tool {

/// The verb. Its options hold text: what a number is, is decided in one place for all of them.
class DivideVerb {
public:
    /// @param[in] app  the program's parser; it must outlive the verb
    explicit DivideVerb(CLI::App& app);

    /// After parsing: whether the command line names this verb.
    bool chosen() const { return verb_->parsed(); }

    /// Does the work.
    ///
    /// @return what goes to stdout
    /// @throws Failure  for whatever keeps the parcel from being divided as asked
    std::string run() const;

private:
    Source source() const;
    Request request() const;

    CLI::App* verb_;
    bool help_ = false;
    std::string file_;
    std::string layer_;
    std::string feature_;
    std::string parallel_;
    std::string perpendicular_;
    std::string vertex_;
    std::string area_;
    std::vector<std::string> product_;
};

}  // namespace tool
