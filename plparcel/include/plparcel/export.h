#pragma once

/// @file
/// PLPARCEL_API, which marks everything that an application may call.

/// @def PLPARCEL_API
/// Precedes every exported declaration. Define PLPARCEL_STATIC to use or build a static library, and
/// PLPARCEL_BUILDING to build the DLL.

#if defined(PLPARCEL_STATIC)
#define PLPARCEL_API
#elif defined(_WIN32)
#if defined(PLPARCEL_BUILDING)
#define PLPARCEL_API __declspec(dllexport)
#else
#define PLPARCEL_API __declspec(dllimport)
#endif
#else
#define PLPARCEL_API __attribute__((visibility("default")))
#endif
