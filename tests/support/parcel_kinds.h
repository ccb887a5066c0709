#pragma once

// The kinds of parcel for which the documents give rates of success.

#include <random>
#include <vector>

#include "support/rings.h"

namespace test {

/// Size of the parcels, caller's unit, unless a kind's name says otherwise.
constexpr double kKindsAcross = 100.0;

struct ParcelKind {
    const char* name;
    Ring (*make)(std::mt19937_64& random);
    bool far;      ///< at UTM size: the remedy is a local origin
    bool concave;  ///< more than mildly: a line of a kind that holds a request need not exist
};

const std::vector<ParcelKind>& parcel_kinds();

}  // namespace test
