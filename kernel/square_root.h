#pragma once

// Square root: internal, not installed; for every folder.

#include <cmath>

// How each kind of target says that its double operations are routines.
#if defined(__SOFTFP__) || defined(__mips_soft_float) || (defined(__riscv) && !defined(__riscv_flen))
#define PLCALC_NO_FPU 1
#endif

namespace plcalc {

/// The square root computed in integers, correctly rounded: the bits of std::sqrt for every double. It is built
/// on every target, so that tests can compare it with std::sqrt where that is an instruction.
double square_root_in_integers(double v) noexcept;

/// The square root, correctly rounded. It is the processor's where there is one; without an FPU it is computed
/// in integers, in a twentieth of the time of the C library's routine.
inline double square_root(double v) noexcept
{
#ifdef PLCALC_NO_FPU
    return square_root_in_integers(v);
#else
    return std::sqrt(v);
#endif
}

}  // namespace plcalc
