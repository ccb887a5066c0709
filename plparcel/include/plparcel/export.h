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

/// @def PLPARCEL_TAGGED_API
/// Marks records and functions whose names in the library tell with which containers of the standard library they were
/// built: `_GLIBCXX_DEBUG` makes other types of these. A program that defines it would read the containers of a plparcel
/// without it wrongly; so it does not link.

#if defined(_GLIBCXX_DEBUG) && defined(__GNUC__)
#define PLPARCEL_TAGGED_API [[gnu::abi_tag("GLIBCXX_DEBUG")]]
#else
#define PLPARCEL_TAGGED_API
#endif
