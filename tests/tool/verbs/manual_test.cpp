// Help, man page and completion tell of the same options, and of all of them.

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <set>
#include <sstream>

#include "program.h"

namespace {

using Words = std::set<std::string>;

class Manual : public test::ProgramTest {
protected:
    Words help(const std::string& verb) const { return options_in(run({verb, "--help"}).out); }

    static std::string content(const std::string& file)
    {
        std::ifstream stream(file);
        std::ostringstream text;
        text << stream.rdbuf();
        return text.str();
    }

    // Every --option; in a man page its hyphens are escaped.
    static Words options_in(std::string text)
    {
        for (std::size_t at; (at = text.find("\\-")) != std::string::npos;)
            text.replace(at, 2, "-");
        Words found;
        for (std::size_t at = text.find("--"); at != std::string::npos; at = text.find("--", at + 2)) {
            const std::size_t end = text.find_first_not_of("abcdefghijklmnopqrstuvwxyz-", at + 2);
            if (end > at + 2)
                found.insert(text.substr(at, end - at));
        }
        return found;
    }

    // What a shell would offer after "plcalc <verb> --"; nothing where it is not installed.
    std::optional<Words> completed(const std::string& shell, const std::string& verb) const
    {
        if (std::system(("command -v " + shell + " >/dev/null 2>&1").c_str()) != 0)
            return std::nullopt;
        const std::string file = PLCALC_COMPLETION + shell;
        const std::string script =
            shell == "bash" ? "source " + file + "; COMP_WORDS=(plcalc " + verb +
                                  " --); COMP_CWORD=2; _plcalc; printf '%s\\n' \"${COMPREPLY[@]}\""
            : shell == "zsh" ? "compadd() { shift; print -l -- \"$@\" }; compdef() { }; source " + file +
                                   "; words=(plcalc " + verb + " --); CURRENT=3; _plcalc"
                             : "source " + file + "; complete -C 'plcalc " + verb + " --'";
        const std::string plain = shell == "fish" ? " --no-config " : shell == "zsh" ? " -f " : " ";
        write("complete", script);
        EXPECT_EQ(std::system((shell + plain + path("complete") + " >" + path("words")).c_str()), 0);
        std::ifstream words(path("words"));
        Words found;
        for (std::string word; std::getline(words, word);)
            found.insert(word.substr(0, word.find('\t')));
        return found;
    }

    Words all_options() const
    {
        Words all = {"--version"};
        for (const char* verb : {"divide", "measure", "stakeout"})
            all.merge(help(verb));
        return all;
    }
};

TEST_F(Manual, TheManPageTellsEveryOption)
{
    EXPECT_EQ(options_in(content(PLCALC_MANUAL)), all_options());
}

TEST_F(Manual, CompletionOffersEveryOptionOfTheVerb)
{
    for (const std::string shell : {"bash", "zsh", "fish"}) {
        SCOPED_TRACE(shell);
        if (!completed(shell, "divide"))
            continue;  // not installed
        EXPECT_EQ(completed(shell, "divide"), help("divide"));
        EXPECT_EQ(completed(shell, "measure"), help("measure"));
        // Its help tells of cuts by example.
        Words stakeout = help("stakeout");
        const Words offered = *completed(shell, "stakeout");
        EXPECT_TRUE(std::includes(offered.begin(), offered.end(), stakeout.begin(), stakeout.end()));
        EXPECT_EQ(offered.count("--perpendicular") + offered.count("--areas"), 2u);
    }
}

// Also where the shell is not installed.
TEST_F(Manual, EveryCompletionNamesEveryOption)
{
    EXPECT_EQ(options_in(content(PLCALC_COMPLETION "bash")), all_options());
    EXPECT_EQ(options_in(content(PLCALC_COMPLETION "zsh")), all_options());
    Words of_fish;  // without the hyphens, among the other words
    std::istringstream fish(content(PLCALC_COMPLETION "fish"));
    for (std::string word; fish >> word;)
        of_fish.insert("--" + word);
    for (const std::string& option : all_options())
        EXPECT_EQ(of_fish.count(option), 1u) << option;
}

// An option that help names must be one.
TEST_F(Manual, EveryOptionOfTheHelpIsKnown)
{
    for (const std::string verb : {"divide", "measure", "stakeout"}) {
        for (const std::string& option : help(verb)) {
            const test::Result run = this->run({verb, "missing.csv", option});
            EXPECT_EQ(run.err.find("is not an argument of this command"), std::string::npos)
                << verb << " " << option;
        }
    }
}

TEST_F(Manual, TheManPageIsWellFormed)
{
    if (std::system("command -v man >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "no man";
    const std::string command = "LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -l " PLCALC_MANUAL
                                " >" +
                                path("page") + " 2>" + path("warnings");
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(content(path("warnings").c_str()), "");
    std::istringstream page(content(path("page").c_str()));
    for (std::string line; std::getline(page, line);)
        EXPECT_LE(std::count_if(line.begin(), line.end(), [](char c) { return (c & 0xC0) != 0x80; }), 80)
            << line;
    EXPECT_NE(content(path("page").c_str()).find("plane surveying and land parcels"), std::string::npos);
}

}  // namespace
