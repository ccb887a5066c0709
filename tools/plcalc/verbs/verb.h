#pragma once

// What the verbs have in common: --help, how a FILE and a feature are named, how options become numbers, and the
// way a wrong one is refused.

#include <string>

#include <CLI/CLI.hpp>

#include "answers/parcel.h"
#include "console/output.h"
#include "reading/source.h"

namespace tool {

/// A verb. Its options hold text: what a number is, is decided in one place for all of them.
class Verb {
public:
    virtual ~Verb() = default;

    /// After parsing: whether the command line names this verb.
    bool chosen() const { return app_->parsed(); }

    /// Does the work, or tells how it is asked for.
    ///
    /// @throws Failure  for whatever keeps it from being done as asked
    Output run() const { return help_ ? Output{help_text_} : work(); }

protected:
    /// @param[in] app        the program's parser; it must outlive the verb
    /// @param[in] name       the verb's name
    /// @param[in] help_text  what its --help prints
    Verb(CLI::App& app, const std::string& name, const std::string& help_text);
    Verb(const Verb&) = delete;
    Verb& operator=(const Verb&) = delete;

    /// For options of its own.
    CLI::App& options() { return *app_; }

    /// Whether the option stands on the command line.
    bool given(const std::string& option) const { return app_->count(option) > 0; }

    /// The file and the choice of layer and feature in it.
    Source source() const;

    long long whole(const std::string& option, const std::string& text) const;

    /// An area or a length: finite and above 0.
    double amount(const std::string& option, const std::string& text) const;

    /// For a verb that does not divide, which would check the ring itself.
    ///
    /// @throws Failure  unusable_input for a parcel whose ring cannot be worked on
    static void require_usable(const Parcel& parcel);

    [[noreturn]] void wrong_use(const std::string& what) const;

private:
    virtual Output work() const = 0;

    CLI::App* app_;
    std::string help_text_;
    bool help_ = false;
    std::string file_;
    std::string layer_;
    std::string feature_;
    std::string where_;
};

}  // namespace tool
