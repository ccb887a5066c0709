#include "counters.h"

namespace softfloat {

std::array<std::uint64_t, kKinds> counts = {};

namespace {

struct KindInfo {
    const char* name;
    std::uint64_t instructions;  // measured on ARMv5 with Debian's libgcc and libm
};

constexpr KindInfo kInfo[kKinds] = {
    {"add", 64},        {"mul", 48},    {"div", 523},    {"cmp", 40},       {"sqrt", 2566},
    {"int. sqrt", 113}, {"atan", 3058}, {"atan2", 3815}, {"sin/cos", 1600},
};

}  // namespace

const char* name(Kind kind)
{
    return kInfo[kind].name;
}

std::uint64_t weighted()
{
    std::uint64_t sum = 0;
    for (int kind = 0; kind < kKinds; ++kind)
        sum += counts[static_cast<std::size_t>(kind)] * kInfo[kind].instructions;
    return sum;
}

void reset()
{
    counts = {};
}

}  // namespace softfloat
