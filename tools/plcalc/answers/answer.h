#pragma once

// What the program answers to a request: the parcel, what was asked of it, and the division that came out.

#include "answers/parcel.h"
#include "answers/printed_division.h"
#include "answers/request.h"

namespace tool {

/// Refers to the parcel and the request of the caller, which must outlive it.
struct Answer {
    const Parcel& parcel;
    const Asked& asked;
    PrintedDivision printed;  ///< of this parcel, as asked; not done() where it was refused
};

/// Divides the parcel as asked.
Answer answer(const Parcel& parcel, const Asked& asked);

}  // namespace tool
