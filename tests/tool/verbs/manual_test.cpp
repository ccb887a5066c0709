// Help, man page and completion tell of the same options, and of all of them.

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

#include "program.h"

namespace {

using Words = std::set<std::string>;

class Manual : public test::ProgramTest {
protected:
    Words help(const std::string& verb) const { return options_in(run({verb, "--help"}).out); }

    static std::string content(const char* file)
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

    // What bash would offer after "plcalc <verb> -".
    Words completed(const std::string& verb) const
    {
        const std::string script = "source " PLCALC_COMPLETION "; COMP_WORDS=(plcalc " + verb +
                                   " --); COMP_CWORD=2; _plcalc; printf '%s\\n' \"${COMPREPLY[@]}\"";
        write("complete.sh", script);
        const std::string command = "bash " + path("complete.sh") + " >" + path("words");
        EXPECT_EQ(std::system(command.c_str()), 0);
        std::ifstream words(path("words"));
        Words found;
        for (std::string word; std::getline(words, word);)
            found.insert(word);
        return found;
    }
};

TEST_F(Manual, TheManPageTellsEveryOption)
{
    const Words manual = options_in(content(PLCALC_MANUAL));
    Words all = {"--version"};
    for (const char* verb : {"divide", "measure", "stakeout"})
        all.merge(help(verb));
    EXPECT_EQ(manual, all);
}

TEST_F(Manual, CompletionOffersEveryOptionOfTheVerb)
{
    EXPECT_EQ(completed("divide"), help("divide"));
    EXPECT_EQ(completed("measure"), help("measure"));
    // Its help tells of cuts by example.
    Words stakeout = help("stakeout");
    const Words offered = completed("stakeout");
    EXPECT_TRUE(std::includes(offered.begin(), offered.end(), stakeout.begin(), stakeout.end()));
    EXPECT_EQ(offered.count("--perpendicular") + offered.count("--areas"), 2u);
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
