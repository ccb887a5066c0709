#pragma once

// Square root: internal, not installed; for every folder.

#include <cmath>

// Targets whose double operations are routines say so in their own ways.
#if defined(__SOFTFP__) || defined(__mips_soft_float) || (defined(__riscv) && !defined(__riscv_flen))
#define PLCALC_NO_FPU 1
#endif

namespace plcalc {

/// The square root computed in integers, correctly rounded: the bits of std::sqrt for every double. There on
/// every target, so that it can be compared with std::sqrt where that is an instruction.
double square_root_in_integers(double v) noexcept;

/// The square root, correctly rounded: the processor's where it has one. Without an FPU in integers, which
/// takes a twentieth of what the C library's routine takes there.
inline double square_root(double v) noexcept
{
#ifdef PLCALC_NO_FPU
    return square_root_in_integers(v);
#else
    return std::sqrt(v);
#endif
}

}  // namespace plcalc
