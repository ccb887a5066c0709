#pragma once

// What the verbs have in common: --help, the choice of a file and a feature, and how options become numbers
// or are refused.

#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "answers/question.h"
#include "console/outcome.h"
#include "reading/source.h"
#include "text/angles.h"
#include "verbs/amounts.h"

namespace tool {

/// A verb. Its options hold text, so that one place decides for all of them what a number is.
class Verb {
public:
    virtual ~Verb() = default;

    /// After parsing: whether the command line names this verb.
    bool chosen() const { return app_->parsed(); }

    /// Does the work, or returns the help text.
    ///
    /// @throws Failure  if the work cannot be done as asked
    Output run() const { return help_ ? Output{help_text_} : work(); }

protected:
    /// @param[in] app        the program's parser; it must outlive the verb
    /// @param[in] name       the verb's name
    /// @param[in] help_text  what its --help prints
    Verb(CLI::App& app, const std::string& name, const std::string& help_text);
    Verb(const Verb&) = delete;
    Verb& operator=(const Verb&) = delete;

    /// To which a verb adds its own options.
    CLI::App& options() { return *app_; }

    /// Whether the option stands on the command line.
    bool given(const std::string& option) const { return app_->count(option) > 0; }

    /// The file and the choice of layer and feature in it.
    Source source() const;

    long long whole(const std::string& option, const std::string& text) const;

    /// How angles are given and told; nothing where the command line does not say it.
    std::optional<AngleUnit> angle_unit() const;

    /// An area or a length: finite and above 0.
    double amount(const std::string& option, const std::string& text) const;

    /// Refuses the name of a list of points that does not end in .csv; an empty one is none.
    void require_list_name(const std::string& option, const std::string& file) const;

    /// What `read` makes of the value of an option.
    ///
    /// @throws Failure  wrong_use where it throws NotUnderstood
    template <typename Read> auto understood(const std::string& option, Read read) const
    {
        try {
            return read();
        } catch (const NotUnderstood& problem) {
            wrong_use(option + ": " + problem.what());
        }
    }

    /// Checks the ring, for verbs that do not divide: a division checks it itself.
    ///
    /// @throws Failure  unusable_input for a parcel whose ring cannot be worked on
    static void require_usable(const Parcel& parcel);

    [[noreturn]] void wrong_use(const std::string& what) const;

private:
    double ground_factor() const;
    virtual Output work() const = 0;

    CLI::App* app_;
    std::string help_text_;
    bool help_ = false;
    std::string file_;
    std::string layer_;
    std::string feature_;
    std::string where_;
    std::string part_;
    std::string columns_;
    std::string axes_;
    std::string crs_;
    std::string ground_factor_;
    bool any_scale_ = false;
    std::string join_;
    std::string inner_;
    std::string arcs_;
    std::string name_layer_;
    std::string name_column_;
    std::string angles_;
};

}  // namespace tool
