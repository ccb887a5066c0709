// accuracy [seed [cases]]: the tables of docs/accuracy.md.

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "limits.h"

namespace {

constexpr std::uint64_t kSeed = 20261121;
constexpr int kCases = 10000;
constexpr int kMostCases = 10000000;
constexpr int kUsageStatus = 2;

// A whole number from 1 to `most`; 0 for anything else.
unsigned long long number(const char* text, unsigned long long most)
{
    char* end = nullptr;
    errno = 0;
    const unsigned long long value = std::strtoull(text, &end, 10);
    const bool whole = errno == 0 && end != text && *end == '\0' && text[0] != '-';
    return whole && value <= most ? value : 0;
}

}  // namespace

int main(int argc, char** argv)
{
    const unsigned long long seed = argc > 1 ? number(argv[1], ~0ULL) : kSeed;
    const unsigned long long cases = argc > 2 ? number(argv[2], kMostCases) : kCases;
    if (argc > 3 || seed == 0 || cases == 0) {
        std::fprintf(stderr,
                     "usage: accuracy [seed [cases]], both whole numbers above zero, cases up to %d\n",
                     kMostCases);
        return kUsageStatus;
    }
    std::printf("Made by `accuracy %llu %llu`.\n", seed, cases);
    accuracy::print_geometry_limits(seed, static_cast<int>(cases));
    accuracy::print_polygon_limits(seed, static_cast<int>(cases));
    accuracy::print_division_limits(seed, static_cast<int>(cases));
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
