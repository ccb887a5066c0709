#include "program.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <sstream>

#include <fcntl.h>
#include <pty.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace test {
namespace {

std::string content_of(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// The program's exit status with its output in two files, or -1.
int spawn(const std::vector<std::string>& command, const std::string& out, const std::string& err)
{
    std::vector<char*> arguments;
    for (const std::string& text : command)
        arguments.push_back(const_cast<char*>(text.c_str()));
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), flags, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), flags, 0600);
    pid_t pid = 0;
    const int failed = posix_spawn(&pid, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (failed != 0 || waitpid(pid, &status, 0) != pid || !WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status);
}

}  // namespace

ProgramTest::ProgramTest()
{
    std::string name = (std::filesystem::temp_directory_path() / "plcalc-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no folder for the test");
    folder_ = name;
}

ProgramTest::~ProgramTest()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

Result ProgramTest::run(const std::vector<std::string>& arguments) const
{
    // "env -C" puts the program in the folder, so that messages show the names and not the folder.
    std::vector<std::string> command = {"/usr/bin/env", "-C", folder_, PLCALC_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    Result result;
    result.status = spawn(command, path(".out"), path(".err"));
    result.out = content_of(path(".out"));
    result.err = content_of(path(".err"));
    return result;
}

Result ProgramTest::run_on_terminal(const std::vector<std::string>& arguments, const char* no_color,
                                    const char* term) const
{
    Result result;
    int terminal = -1;
    const pid_t pid = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (pid < 0)
        return result;
    if (pid == 0) {
        std::vector<char*> words = {const_cast<char*>(PLCALC_PROGRAM)};
        for (const std::string& text : arguments)
            words.push_back(const_cast<char*>(text.c_str()));
        words.push_back(nullptr);
        setenv("TERM", term, 1);
        unsetenv("NO_COLOR");
        if (no_color != nullptr)
            setenv("NO_COLOR", no_color, 1);
        if (chdir(folder_.c_str()) == 0)
            execv(words[0], words.data());
        _exit(127);
    }
    char buffer[4096];
    for (ssize_t got; (got = read(terminal, buffer, sizeof buffer)) > 0;)
        result.out.append(buffer, static_cast<std::size_t>(got));
    close(terminal);
    int status = 0;
    if (waitpid(pid, &status, 0) == pid && WIFEXITED(status))
        result.status = WEXITSTATUS(status);
    return result;
}

Result ProgramTest::divide(const std::string& file, const std::string& arguments) const
{
    std::vector<std::string> words = {"divide", file};
    std::istringstream text(arguments);
    for (std::string word; text >> word;)
        words.push_back(word);
    return run(words);
}

std::string ProgramTest::write(const std::string& name, const std::string& content) const
{
    std::ofstream(path(name), std::ios::binary) << content;
    return name;
}

std::string ProgramTest::write_wkt(const std::string& wkt) const
{
    return write("lot.csv", "id,WKT\n1,\"" + wkt + "\"\n");
}

std::vector<double> numbers_after(const std::string& table, const std::string& label)
{
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("  " + label, 0) != 0 && line.rfind(label, 0) != 0)
            continue;
        // The numbers stand after two blanks at least; a label holds single ones only.
        const std::size_t gap = line.find("  ", line.find_first_not_of(' '));
        std::vector<double> numbers;
        std::istringstream cells(gap == std::string::npos ? std::string() : line.substr(gap));
        cells.imbue(std::locale::classic());
        for (double number = 0.0; cells >> number;)
            numbers.push_back(number);
        return numbers;
    }
    return {};
}

::testing::AssertionResult fails_with(const Result& run, int status, const std::string& text)
{
    if (run.status == status && run.out.empty() && run.err == "plcalc: " + text + "\n")
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "\n  status " << run.status << ", wanted " << status << "\n  stderr " << run.err
           << "  wanted plcalc: " << text << "\n  stdout " << run.out;
}

}  // namespace test
