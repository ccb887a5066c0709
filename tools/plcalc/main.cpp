// plcalc: the command-line program. Hands the arguments to a verb and turns what goes wrong into one line on
// stderr and an exit status.

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "divide_verb.h"
#include "exit_status.h"
#include "help.h"

namespace {

using tool::ExitStatus;
using tool::Failure;

// A file name may hold a line break; a message may not.
std::string on_one_line(std::string text)
{
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ')
            c = '?';
    return text;
}

ExitStatus complain(ExitStatus status, const std::string& text)
{
    std::cerr << "plcalc: " << on_one_line(text) << '\n';
    return status;
}

// What goes to stdout is complete and right, or is nothing.
void print(const std::string& text)
{
    std::cout << text << std::flush;
    if (!std::cout)
        throw Failure(ExitStatus::failed, "the result could not be written to the standard output");
}

void parse(CLI::App& app, int argc, char** argv)
{
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        throw Failure(ExitStatus::wrong_use, std::string(error.what()) + "; see plcalc --help");
    }
    for (const std::string& unknown : app.remaining(true)) {
        if (unknown != "--")  // the mark after which nothing is an option
            throw Failure(ExitStatus::wrong_use, "'" + unknown + "' is not known here; see plcalc --help");
    }
}

ExitStatus run(int argc, char** argv)
{
    bool help = false;
    bool version = false;
    CLI::App app;
    app.set_help_flag();
    app.allow_extras();
    app.add_flag("-h,--help", help);
    app.add_flag("--version", version);
    tool::DivideVerb divide(app);
    parse(app, argc, argv);

    if (help)
        print(tool::general_help());
    else if (version)
        print(tool::version_line());
    else if (divide.chosen())
        print(divide.run());
    else
        throw Failure(ExitStatus::wrong_use, "nothing to do; see plcalc --help");
    return ExitStatus::done;
}

}  // namespace

int main(int argc, char** argv)
{
    ExitStatus status = ExitStatus::failed;
    try {
        status = run(argc, argv);
    } catch (const Failure& failure) {
        status = complain(failure.status(), failure.what());
    } catch (const std::exception& error) {
        status = complain(ExitStatus::failed, std::string("stopped: ") + error.what());
    }
    return static_cast<int>(status);
}
