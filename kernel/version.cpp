#include "plcalc/version.h"

const char* PlFunz_version() noexcept
{
    return PLCALC_VERSION;
}
