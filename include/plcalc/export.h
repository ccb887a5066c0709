#pragma once

/// @file
/// PLCALC_API, which marks everything that an application may call.
///
/// The library is built with hidden visibility, so that a function without PLCALC_API stays private.
///
/// | how plcalc is built or used        | define             | PLCALC_API becomes      |
/// | ---------------------------------- | ------------------ | ----------------------- |
/// | shared, ELF or Mach-O              | nothing            | default visibility      |
/// | Windows DLL, while it is built     | PLCALC_BUILDING    | dllexport               |
/// | Windows DLL, in an application     | nothing            | dllimport               |
/// | static, anywhere                   | PLCALC_STATIC      | nothing                 |
///
/// The CMake targets and the pkg-config files set the right define.

/// @def PLCALC_API
/// Precedes every exported declaration.

#if defined(PLCALC_STATIC)
#define PLCALC_API
#elif defined(_WIN32)
#if defined(PLCALC_BUILDING)
#define PLCALC_API __declspec(dllexport)
#else
#define PLCALC_API __declspec(dllimport)
#endif
#else
#define PLCALC_API __attribute__((visibility("default")))
#endif
