#include "arcs/arc_units.h"

#include "arc_checks.h"

namespace {

struct UnitRow {
    const char* what;
    PL_AngleMeasType angle_type;
    int arcangle;
    int polar;
};

// Three numberings of the same three units; only the pairs below make an arc's ends lie in its own sweep.
const UnitRow kUnitRows[] = {
    {"radians", PL_RADIANS, 2, 1},
    {"degrees", PL_DEGREES, 1, 0},
    {"pseudo-angle", PL_PSEUDO_ANGLE, 0, 2},
    {"unknown: radians", test::unknown(3), 2, 1},
    {"unknown: radians", test::unknown(7), 2, 1},
    {"unknown, negative: radians", test::unknown(-1), 2, 1},
    {"unknown, lowest: radians", test::unknown(std::numeric_limits<std::int32_t>::min()), 2, 1},
    {"unknown, highest: radians", test::unknown(std::numeric_limits<std::int32_t>::max()), 2, 1},
};

TEST(ArcUnits, Table)
{
    for (const UnitRow& row : kUnitRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(plcalc::arcangle_unit(row.angle_type), row.arcangle);
        EXPECT_EQ(plcalc::polar_unit(row.angle_type), row.polar);
    }
}

}  // namespace
