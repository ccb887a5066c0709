// Runs a harness without libFuzzer: once over every file named, and every file of a folder named. So the seed
// corpus is an ordinary test with any compiler, and a finding can be looked at with any debugger.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/reader.h"

namespace {

std::vector<std::filesystem::path> files_of(const std::filesystem::path& named)
{
    std::vector<std::filesystem::path> files;
    if (!std::filesystem::is_directory(named))
        return {named};
    for (const auto& entry : std::filesystem::directory_iterator(named))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

bool replay(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "%s: cannot be read\n", path.string().c_str());
        return false;
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // Exactly as much memory as there is input.
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s <file or folder>...\n", argv[0]);
        return 2;
    }
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path named = argv[i];
        if (!std::filesystem::exists(named)) {
            std::fprintf(stderr, "%s: does not exist\n", argv[i]);
            return 2;
        }
        for (const std::filesystem::path& path : files_of(named)) {
            // Named first: a claim that fails ends the program.
            std::printf("%s\n", path.string().c_str());
            std::fflush(stdout);
            if (!replay(path))
                return 2;
            ++count;
        }
    }
    std::printf("%d inputs, every claim holds\n", count);
    return count > 0 ? 0 : 1;
}
