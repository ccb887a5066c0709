#pragma once

// Double operations by kind, counted where the program has a routine called for each.

#include <array>
#include <cstdint>

namespace softfloat {

enum Kind {
    kAdd,
    kMultiply,
    kDivide,
    kCompare,
    kSquareRoot,   // of the C library
    kIntegerRoot,  // the library's own, in integers
    kArctangent,
    kArctangent2,
    kSineCosine,
    kKinds
};

extern std::array<std::uint64_t, kKinds> counts;

/// Name of a kind, for a table's head.
const char* name(Kind kind);

/// The counts weighted with the instructions that each operation takes on ARMv5 without an FPU.
std::uint64_t weighted();

/// Sets all counts to zero.
void reset();

}  // namespace softfloat
