#pragma once

// The names under which a host in JavaScript knows statuses: those of the C++ interface.

#include "plparcel/boundary.h"
#include "plparcel/division.h"

namespace web {

const char* name_of(plparcel::Status status);
const char* name_of(plparcel::BoundaryStatus status);

}  // namespace web
