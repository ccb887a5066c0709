// Stands between the program and the routines that compute doubles on a target without an FPU: each call is
// counted and passed on. The linker redirects the calls by --wrap; see CMakeLists.txt for the list.

#include "counters.h"

#define COUNT_BINARY(kind, result, routine)                                                                  \
    result __real_##routine(double, double);                                                                 \
    result __wrap_##routine(double a, double b)                                                              \
    {                                                                                                        \
        ++softfloat::counts[softfloat::kind];                                                                \
        return __real_##routine(a, b);                                                                       \
    }

#define COUNT_UNARY(kind, routine)                                                                           \
    double __real_##routine(double);                                                                         \
    double __wrap_##routine(double a)                                                                        \
    {                                                                                                        \
        ++softfloat::counts[softfloat::kind];                                                                \
        return __real_##routine(a);                                                                          \
    }

extern "C" {

COUNT_BINARY(kAdd, double, __aeabi_dadd)
COUNT_BINARY(kAdd, double, __aeabi_dsub)
COUNT_BINARY(kAdd, double, __aeabi_drsub)
COUNT_BINARY(kMultiply, double, __aeabi_dmul)
COUNT_BINARY(kDivide, double, __aeabi_ddiv)
COUNT_BINARY(kCompare, int, __aeabi_dcmpeq)
COUNT_BINARY(kCompare, int, __aeabi_dcmplt)
COUNT_BINARY(kCompare, int, __aeabi_dcmple)
COUNT_BINARY(kCompare, int, __aeabi_dcmpge)
COUNT_BINARY(kCompare, int, __aeabi_dcmpgt)
COUNT_BINARY(kCompare, int, __aeabi_dcmpun)
COUNT_BINARY(kArctangent2, double, atan2)
COUNT_UNARY(kSquareRoot, sqrt)
COUNT_UNARY(kArctangent, atan)
COUNT_UNARY(kSineCosine, sin)
COUNT_UNARY(kSineCosine, cos)

// What the compiler makes of a sine and a cosine of one angle.
void __real_sincos(double, double*, double*);
void __wrap_sincos(double a, double* sine, double* cosine)
{
    softfloat::counts[softfloat::kSineCosine] += 2;
    __real_sincos(a, sine, cosine);
}

// plcalc::square_root_in_integers(double).
COUNT_UNARY(kIntegerRoot, _ZN6plcalc23square_root_in_integersEd)

}  // extern "C"
