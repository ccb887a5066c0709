#pragma once

/// @file
/// Which version of plcalc this is: that of the headers, for the preprocessor, and that of the library which is
/// loaded, by a call. plutil and plparcel have the same. docs/compatibility.md says what may change, and when.

#include "plcalc/export.h"

/// Before 1.0 a new minor number may change results and interfaces; from 1.0 on only a new major number may.
#define PLCALC_VERSION_MAJOR 0
/// Counts what was added.
#define PLCALC_VERSION_MINOR 1
/// Counts what was mended.
#define PLCALC_VERSION_PATCH 0
/// The three, as text.
#define PLCALC_VERSION "0.1.0"

/// @return PLCALC_VERSION as it was when the library was built; never null. An application that was built with
///         other headers has another text in its own PLCALC_VERSION.
PLCALC_API const char* PlFunz_version() noexcept;
