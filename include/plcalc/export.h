#pragma once

/// @file
/// The mark of everything that an application may call.
///
/// The library is built with hidden visibility: a function without PLCALC_API stays private.
///
/// | how plcalc is built or used        | define             | PLCALC_API becomes      |
/// | ---------------------------------- | ------------------ | ----------------------- |
/// | shared, ELF or Mach-O              | nothing            | default visibility      |
/// | Windows DLL, while it is built     | PLCALC_BUILDING    | dllexport               |
/// | Windows DLL, in an application     | nothing            | dllimport               |
/// | static, anywhere                   | PLCALC_STATIC      | nothing                 |
///
/// The CMake targets and the pkg-config files define what is needed.

/// @def PLCALC_API
/// Stands before everything that is exported.

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
