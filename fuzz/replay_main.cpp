// Runs a harness without libFuzzer: once over every seed of a text file as seeds.py describes it, and over any other
// file as it is. So the seed corpus is an ordinary test with any compiler, and a finding can be looked at with any
// debugger.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz/reader.h"

namespace {

struct Seed {
    std::string name;
    std::vector<std::uint8_t> bytes;
};

bool ends_with(const std::string& text, const std::string& ending)
{
    return text.size() >= ending.size() &&
           text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

std::vector<std::uint8_t> from_hexadecimal(const std::string& digits)
{
    static const std::string kDigits = "0123456789abcdef";
    if (digits.size() % 2 != 0 || digits.find_first_not_of(kDigits) != std::string::npos)
        throw std::runtime_error("'" + digits + "' are not bytes in hexadecimal");
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2)
        bytes.push_back(
            static_cast<std::uint8_t>(16 * kDigits.find(digits[i]) + kDigits.find(digits[i + 1])));
    return bytes;
}

std::vector<Seed> seeds_of(std::istream& file)
{
    std::vector<Seed> seeds;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        const std::size_t blank = line.find(' ');
        if (blank == std::string::npos)
            throw std::runtime_error("'" + line + "' has no bytes");
        seeds.push_back({line.substr(0, blank), from_hexadecimal(line.substr(blank + 1))});
    }
    return seeds;
}

std::vector<Seed> read(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("it cannot be read");
    if (ends_with(path, ".txt"))
        return seeds_of(file);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return {{path, {bytes.begin(), bytes.end()}}};
}

void replay(const Seed& seed)
{
    // Named first: a claim that fails ends the program.
    std::printf("%s\n", seed.name.c_str());
    std::fflush(stdout);
    // Exactly as much memory as there is input.
    const std::vector<std::uint8_t> data(seed.bytes.begin(), seed.bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s <seeds.txt or input>...\n", argv[0]);
        return 2;
    }
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        try {
            const std::vector<Seed> seeds = read(argv[i]);
            std::for_each(seeds.begin(), seeds.end(), replay);
            count += seeds.size();
        } catch (const std::runtime_error& error) {
            std::fprintf(stderr, "%s: %s\n", argv[i], error.what());
            return 2;
        }
    }
    std::printf("%zu inputs, every claim holds\n", count);
    return count > 0 ? 0 : 1;
}
