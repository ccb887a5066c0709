#include "arcs/sweep.h"

#include "arc_checks.h"

namespace {

using test::down;
using test::kInf;
using test::kNaN;
using test::tol;
using test::up;

struct SweepRow {
    const char* what;
    double dir;
    double start;
    double end;
    bool want;
};

const SweepRow kSweepRows[] = {
    {"in the middle", 30, 10, 50, true},
    {"before", 5, 10, 50, false},
    {"behind", 55, 10, 50, false},
    {"on the start", 10, 10, 50, true},
    {"on the end", 50, 10, 50, true},
    {"on the margin below the start", 300 - tol(300), 300, 350, true},
    {"just outside the margin below the start", down(300 - tol(300)), 300, 350, false},
    {"on the margin above the end", 350 + tol(350), 300, 350, true},
    {"just outside the margin above the end", up(350 + tol(350)), 300, 350, false},
    {"the margin at zero is absolute", -1e-7, 0, 1, true},
    {"just outside it", down(-1e-7), 0, 1, false},
    {"start and end equal: that direction alone", 20, 20, 20, true},
    {"start and end equal: no other", 21, 20, 20, false},
    {"as stored: a turn more is another direction", 370, 10, 50, false},
    {"across zero: after the start", 350, 300, 60, true},
    {"across zero: zero", 0, 300, 60, true},
    {"across zero: before the end", 30, 300, 60, true},
    {"across zero: the gap", 100, 300, 60, false},
    {"across zero: on the margin below the start", 300 - tol(300), 300, 60, true},
    {"across zero: just outside the margin below the start", down(300 - tol(300)), 300, 60, false},
    {"across zero: on the margin above the end", 260 + tol(260), 300, 260, true},
    {"across zero: just outside the margin above the end", up(260 + tol(260)), 300, 260, false},
    {"end on the margin below the start: does not cross zero", 310, 300, 300 - tol(300), false},
    {"end just outside that margin: crosses zero", 310, 300, down(300 - tol(300)), true},
    {"negative angles: the margin grows with their size", down(-300 - tol(-300)), -300, -250, false},
    {"negative angles: on the margin", -300 - tol(-300), -300, -250, true},
    {"a NaN direction is not between", kNaN, 10, 50, false},
    {"a NaN direction is not in the gap either", kNaN, 300, 60, true},
    {"a NaN start: not across zero, and nothing is above it", 30, kNaN, 50, false},
    {"a NaN end", 30, 10, kNaN, false},
    {"an infinite direction", kInf, 10, 50, false},
    {"an infinite direction across zero", kInf, 300, 60, true},
    {"everything from a finite start on", 1e300, 10, kInf, true},
    {"everything up to the end from minus infinity", 30, -kInf, 50, true},
    {"an infinite start has no margin: nothing is above it", 30, kInf, 50, false},
};

TEST(Sweep, Table)
{
    for (const SweepRow& row : kSweepRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(plcalc::in_sweep(row.dir, row.start, row.end), row.want);
    }
}

}  // namespace
