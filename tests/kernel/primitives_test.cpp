#include "plcalc/kernel.h"

#include "support/bits.h"

namespace {

struct InverseRow {
    const char* what;
    double v;
    double want;
};

const InverseRow kInverseRows[] = {
    {"on PL_EPS: no inverse", 1e-7, 0.0},
    {"on -PL_EPS: no inverse", -1e-7, 0.0},
    {"two has an exact inverse", 2.0, 0.5},
};

TEST(Inverse, Table)
{
    for (const InverseRow& row : kInverseRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_inverse(row.v), row.want);
    }
}

}  // namespace
