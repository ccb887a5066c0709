// What a person at a terminal sees, and what Ctrl-C leaves behind.

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "program.h"

extern char** environ;

namespace {

class Terminal : public test::ProgramTest {
protected:
    // So many that dividing them takes seconds.
    void write_many(int count) const
    {
        std::string rows = "id,WKT\n";
        for (int i = 0; i < count; ++i)
            rows += std::to_string(i) + ",\"POLYGON ((0 0, 100 0, 110 50, 80 90, 0 60, 0 0))\"\n";
        write("many.csv", rows);
    }

    // Ctrl-C, as soon as there is something beside the input.
    void interrupt(std::vector<std::string> words) const
    {
        words.insert(words.begin(), PLCALC_PROGRAM);
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        pid_t pid = 0;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        const int flags = O_WRONLY | O_CREAT | O_TRUNC;
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, path("err").c_str(), flags, 0600);
        // Jobs in the background may ignore Ctrl-C, and programs inherit that.
        sigset_t ctrl_c;
        sigemptyset(&ctrl_c);
        sigaddset(&ctrl_c, SIGINT);
        posix_spawnattr_t attributes;
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setsigdefault(&attributes, &ctrl_c);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
        const int failed = posix_spawn(&pid, arguments[0], &actions, &attributes, arguments.data(), environ);
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
        ASSERT_EQ(failed, 0);
        // Once the folder for the work in progress is there, the guard is.
        const auto entries = [&] {
            const std::filesystem::directory_iterator folder(path(""));
            return std::distance(begin(folder), end(folder));
        };
        for (int i = 0; i < 3000 && entries() < 3; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_EQ(entries(), 3);
        kill(pid, SIGINT);
        int status = 0;
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 1);
        EXPECT_EQ(entries(), 2) << "only the input and the message";
        std::ostringstream err;
        err << std::ifstream(path("err")).rdbuf();
        EXPECT_EQ(err.str(), "plcalc: interrupted; nothing was written\n");
    }
};

TEST_F(Terminal, MessagesAreRedUnlessNoColorIsSet)
{
    const std::string red = "\x1b[31mplcalc:\x1b[0m missing.csv: ";
    const std::vector<std::string> words = {"measure", "missing.csv"};
    EXPECT_EQ(run_on_terminal(words, nullptr).out.rfind(red, 0), 0u);
    EXPECT_EQ(run_on_terminal(words, "").out.rfind(red, 0), 0u) << "empty is not set";
    EXPECT_EQ(run_on_terminal(words, "1").out.rfind("plcalc: missing.csv: ", 0), 0u);
    EXPECT_EQ(run_on_terminal(words, nullptr, "dumb").out.rfind("plcalc: missing.csv: ", 0), 0u);
    EXPECT_EQ(run(words).err.rfind("plcalc: missing.csv: ", 0), 0u) << "nor in a file";
    EXPECT_EQ(run_on_terminal(words, nullptr).status, 3);
}

TEST_F(Terminal, AProgressBarComesAndGoes)
{
    // Many lines each, so that the work takes longer than the half second before the bar, on fast machines too.
    write_many(20000);
    const std::vector<std::string> words = {"divide", "many.csv", "--parallel", "1", "--parts", "4", "-o"};
    const auto with_output = [&](const char* file) {
        std::vector<std::string> all = words;
        all.push_back(file);
        return all;
    };
    const test::Result shown = run_on_terminal(with_output("a.gpkg"), nullptr);
    EXPECT_EQ(shown.status, 0);
    const test::Result dumb = run_on_terminal(with_output("b.gpkg"), nullptr, "dumb");
    EXPECT_EQ(dumb.out, "Divided  20000 of 20000 parcels\r\nWritten  b.gpkg\r\n");
    const std::size_t bar = shown.out.find("dividing [");
    EXPECT_NE(bar, std::string::npos) << shown.out.substr(0, 200);
    const std::string first = shown.out.substr(bar, shown.out.find('\r', bar) - bar);
    EXPECT_EQ(first.substr(first.size() - 9), " of 20000") << first;
    // Thirty places for all of them, and a bar never says less than the one before.
    std::size_t before = 0;
    for (std::size_t at = bar; at != std::string::npos; at = shown.out.find("dividing [", at + 1)) {
        const std::size_t end = shown.out.find(']', at);
        const std::string places = shown.out.substr(at + 10, end - at - 10);
        const std::size_t done = std::stoul(shown.out.substr(end + 1));
        EXPECT_GT(done, before);
        EXPECT_LE(done, 20000u);
        const std::size_t filled = done * 30 / 20000;
        EXPECT_EQ(places, std::string(filled, '#') + std::string(30 - filled, ' ')) << done;
        before = done;
    }
    EXPECT_NE(shown.out.find("\r\x1b[KDivided  20000 of 20000 parcels"), std::string::npos) << "and is gone";
}

TEST_F(Terminal, AnInterruptionLeavesNothingBehind)
{
    write_many(40000);
    interrupt({"divide", path("many.csv"), "--parallel", "1", "--parts", "9", "-o", path("out.gpkg")});
}

TEST_F(Terminal, NorDoesOneWhileAPlanIsDrawn)
{
    write_many(1);
    interrupt({"divide", path("many.csv"), "--parallel", "1", "--parts", "400", "--plan", path("plan.pdf")});
}

}  // namespace
