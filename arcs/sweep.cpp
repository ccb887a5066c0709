#include "arcs/sweep.h"

#include "kernel/tolerance.h"

namespace plcalc {

bool in_sweep(double dir, double start, double end) noexcept
{
    if (below(end, start))
        return !(below(dir, start) && above(dir, end));
    return at_least(dir, start) && at_most(dir, end);
}

}  // namespace plcalc
