// plcalc: the command-line program. Hands the arguments to a verb and turns a failure into one line on stderr
// and an exit status.

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "console/outcome.h"
#include "console/terminal.h"
#include "verbs/help.h"
#include "verbs/verb.h"
#include "verbs/verbs.h"

namespace {

using tool::ExitStatus;
using tool::Failure;

ExitStatus complain(ExitStatus status, const std::string& text)
{
    std::cerr << tool::message(text);
    return status;
}

// Prints complete results only.
void print(const tool::Output& output)
{
    errno = 0;
    std::cout << output.text;
    if (output.body)
        output.body([](const std::string& text) { std::cout << text; });
    std::cout << output.end << std::flush;
    if (!std::cout)
        throw Failure(ExitStatus::failed, {}, "the result could not be written to standard output", "",
                      errno == ENOSPC ? "the disk is full" : "");
}

[[noreturn]] void refuse_arguments(const CLI::App& app, const std::string& what)
{
    const std::vector<CLI::App*> verbs = app.get_subcommands();
    const std::string verb = verbs.empty() ? "" : " " + verbs.front()->get_name();
    throw Failure(ExitStatus::wrong_use, {}, what, "see plcalc" + verb + " --help");
}

// The parser says how many values an option got; it helps more to say which values it takes.
std::string described(const CLI::App& app, const CLI::ParseError& error)
{
    std::string text = error.what();
    const std::string name = text.substr(0, text.find(':'));
    for (const CLI::App* verb : app.get_subcommands()) {
        const CLI::Option* option = verb->get_option_no_throw(name);
        if (option == nullptr)
            continue;
        const bool one = option->get_items_expected_max() == 1;
        return name + ": give " + (one ? "one value, " : "the values ") + option->get_type_name() + ", once";
    }
    return text;
}

// "--help=foo" gives a value to an option that takes none.
void refuse_values_of_flags(const CLI::App& app, int argc, char** argv)
{
    std::vector<const CLI::App*> parsers = {&app};
    for (const CLI::App* verb : app.get_subcommands())
        parsers.push_back(verb);
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const std::string name = argument.substr(0, argument.find('='));
        for (const CLI::App* parser : parsers) {
            const CLI::Option* option = name != argument ? parser->get_option_no_throw(name) : nullptr;
            if (option != nullptr && option->get_items_expected_max() == 0)
                refuse_arguments(app, name + ": it takes no value");
        }
    }
}

void parse(CLI::App& app, int argc, char** argv)
{
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        refuse_values_of_flags(app, argc, argv);
        refuse_arguments(app, described(app, error));
    }
    refuse_values_of_flags(app, argc, argv);
    for (const std::string& unknown : app.remaining(true)) {
        if (unknown != "--")  // after this mark nothing is an option
            refuse_arguments(app, "'" + unknown + "' is not an argument of this command");
    }
}

template <std::size_t n> ExitStatus run_chosen(const tool::Verb* const (&verbs)[n])
{
    for (const tool::Verb* verb : verbs) {
        if (!verb->chosen())
            continue;
        const tool::Output output = verb->run();
        print(output);
        return output.status;
    }
    throw Failure(ExitStatus::wrong_use, {}, "no verb is given", "see plcalc --help");
}

ExitStatus run(int argc, char** argv)
{
    bool help = false;
    bool version = false;
    CLI::App app;
    app.set_help_flag();
    app.allow_extras();
    app.require_subcommand(0, 1);
    app.add_flag("-h,--help", help);
    app.add_flag("--version", version);
    tool::DivideVerb divide(app);
    tool::MeasureVerb measure(app);
    tool::StakeoutVerb stakeout(app);
    const tool::Verb* const verbs[] = {&divide, &measure, &stakeout};
    parse(app, argc, argv);

    if (help)
        print({tool::general_help()});
    else if (version)
        print({tool::version_line()});
    else
        return run_chosen(verbs);
    return ExitStatus::done;
}

}  // namespace

int main(int argc, char** argv)
{
    // When a file grows too large, the write fails and a message says so; the signal would end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return static_cast<int>(run(argc, argv));
    } catch (const Failure& failure) {
        return static_cast<int>(complain(failure.status, sentence(failure)));
    } catch (const std::exception& error) {
        return static_cast<int>(complain(ExitStatus::failed, std::string("stopped: ") + error.what()));
    }
}
