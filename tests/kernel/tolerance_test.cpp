#include "kernel/tolerance.h"

#include "kernel/near.h"

namespace {

using test::kInf;
using test::kNan;

TEST(Tolerance, IsADecimalSeventhPlace)
{
    EXPECT_BITS(PL_EPS, 1e-7);
}

struct ScaledRow {
    const char* what;
    double r;
    double want;
};

const ScaledRow kScaledRows[] = {
    {"absolute at zero", 0.0, 1e-7},
    {"absolute at -0.0", -0.0, 1e-7},
    {"twice at one", 1, 2e-7},
    {"by magnitude at minus one", -1, 2e-7},
    {"one and a half times at a half", 0.5, 1.5e-7},
    {"by magnitude at minus a half", -0.5, 1.5e-7},
    {"three times at two: the product, rounded", 2, 3e-7},
    {"relative far away", 1e9, 0x1.90000006b5fcap+6},
    {"a full turn in degrees", 360, 0x1.2ed428e1a0996p-15},
    {"infinity", -kInf, kInf},
    {"NaN", kNan, kNan},
};

TEST(ScaledTolerance, Table)
{
    for (const ScaledRow& row : kScaledRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(plcalc::scaled_tol(row.r), row.want);
    }
}

struct ZeroRow {
    const char* what;
    double v;
    bool zero;
    double snapped;
};

const ZeroRow kZeroRows[] = {
    {"on -PL_EPS", -1e-7, true, 0.0},
    {"just outside -PL_EPS", -1.0000001e-7, false, -1.0000001e-7},
    {"on PL_EPS", 1e-7, true, 0.0},
    {"the next double outside", 0x1.ad7f29abcaf49p-24, false, 0x1.ad7f29abcaf49p-24},
    {"the next double outside, negative", -0x1.ad7f29abcaf49p-24, false, -0x1.ad7f29abcaf49p-24},
    {"the next double inside", 0x1.ad7f29abcaf47p-24, true, 0.0},
    {"zero", 0.0, true, 0.0},
    {"-0.0 becomes 0.0", -0.0, true, 0.0},
    {"smallest negative subnormal", -5e-324, true, 0.0},
    {"infinity", -kInf, false, -kInf},
    {"NaN is not zero and stays", kNan, false, kNan},
};

TEST(ZeroTest, Table)
{
    for (const ZeroRow& row : kZeroRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(plcalc::is_zero(row.v), row.zero);
        double v = row.v;
        PlFunz_snap_zero(v);
        EXPECT_BITS(v, row.snapped);
    }
}

TEST(ShortVector, NeedsBothComponentsInside)
{
    EXPECT_TRUE(plcalc::is_short(1e-7, -1e-7));
    EXPECT_FALSE(plcalc::is_short(0x1.ad7f29abcaf49p-24, 0));
    EXPECT_FALSE(plcalc::is_short(0, -0x1.ad7f29abcaf49p-24));
    EXPECT_FALSE(plcalc::is_short(kNan, 0));
    EXPECT_FALSE(plcalc::is_short(0, kNan));
}

struct CompareRow {
    const char* what;
    double a;
    double r;
    bool below;
    bool above;
    bool at_most;
    bool at_least;
    bool near;
};

// Bounds were computed apart: r - tol(r) and r + tol(r), each operation rounded, with their neighbours.
const CompareRow kCompareRows[] = {
    {"equal", 2, 2, false, false, true, true, true},
    {"on the upper bound of zero", 1e-7, 0, false, false, true, true, true},
    {"outside the upper bound of zero", 0x1.ad7f29abcaf49p-24, 0, false, true, false, true, false},
    {"on the lower bound of zero", -1e-7, 0, false, false, true, true, true},
    {"outside the lower bound of zero", -0x1.ad7f29abcaf49p-24, 0, true, false, true, false, false},
    {"inside the upper bound of one", 0x1.0000035afe534p+0, 1, false, false, true, true, true},
    {"on the upper bound of one", 1.0000002, 1, false, false, true, true, true},
    {"outside the upper bound of one", 0x1.0000035afe536p+0, 1, false, true, false, true, false},
    {"inside the lower bound of one", 0x1.fffff94a03596p-1, 1, false, false, true, true, true},
    {"on the lower bound of one: rounding takes the difference just over the margin", 0.9999998, 1, false,
     false, true, true, false},
    {"outside the lower bound of one", 0x1.fffff94a03594p-1, 1, true, false, true, false, false},
    {"on the upper bound of minus one", -0x1.fffff94a03595p-1, -1, false, false, true, true, false},
    {"outside the upper bound of minus one", -0x1.fffff94a03594p-1, -1, false, true, false, true, false},
    {"on the lower bound of minus one", -0x1.0000035afe535p+0, -1, false, false, true, true, true},
    {"outside the lower bound of minus one", -0x1.0000035afe536p+0, -1, true, false, true, false, false},
    {"on the upper bound of a turn in degrees", 0x1.6800025da851cp+8, 360, false, false, true, true, true},
    {"outside the upper bound of a turn in degrees", 0x1.6800025da851dp+8, 360, false, true, false, true,
     false},
    {"on the lower bound of a turn in degrees", 0x1.67fffda257ae4p+8, 360, false, false, true, true, true},
    {"outside the lower bound of a turn in degrees", 0x1.67fffda257ae3p+8, 360, true, false, true, false,
     false},
    {"the margin is taken from r, not from a: above", 1000.00015, 1000, false, true, false, true, false},
    {"the margin is taken from r, not from a: swapped and still below", 1000, 1000.00015, true, false, true,
     false, false},
    {"a margin of one only when r is far away", 1e7, 0, false, true, false, true, false},
    {"the same, swapped: r is large and its margin covers 1.0", 9999999, 1e7, false, false, true, true, true},
    {"NaN a: none of them", kNan, 1, false, false, false, false, false},
    {"NaN r: none of them", 1, kNan, false, false, false, false, false},
    {"an infinite r has an infinite margin and is never exceeded", kInf, kInf, false, false, true, false,
     false},
    {"one against infinity: the margin swallows everything below", 1, kInf, false, false, true, false, true},
    {"infinity against one", kInf, 1, false, true, false, true, false},
};

TEST(Comparisons, Table)
{
    for (const CompareRow& row : kCompareRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(plcalc::below(row.a, row.r), row.below) << "below";
        EXPECT_EQ(plcalc::above(row.a, row.r), row.above) << "above";
        EXPECT_EQ(plcalc::at_most(row.a, row.r), row.at_most) << "at_most";
        EXPECT_EQ(plcalc::at_least(row.a, row.r), row.at_least) << "at_least";
        EXPECT_EQ(plcalc::is_near(row.a, row.r), row.near) << "is_near";
    }
}

struct MinMaxRow {
    const char* what;
    double a;
    double b;
    double min;
    double max;
};

const MinMaxRow kMinMaxRows[] = {
    {"b wins a near-tie from above: 1.5e-7 is within 2e-7", 1.00000015, 1, 1, 1},
    {"clearly larger", 1.0000003, 1, 1, 1.0000003},
    {"b wins a near-tie from below", -5e-8, 0.0, 0.0, 0.0},
    {"on the upper bound: b", 1.0000002, 1, 1, 1},
    {"outside the upper bound: a is larger", 0x1.0000035afe536p+0, 1, 1, 0x1.0000035afe536p+0},
    {"on the lower bound: b", 0.9999998, 1, 1, 1},
    {"outside the lower bound: a is smaller", 0x1.fffff94a03594p-1, 1, 0x1.fffff94a03594p-1, 1},
    {"negative b, by magnitude: on the upper bound", -0x1.7ffffca501acbp+1, -3, -3, -3},
    {"negative b: outside the upper bound", -0x1.7ffffca501acap+1, -3, -3, -0x1.7ffffca501acap+1},
    {"negative b: on the lower bound", -0x1.8000035afe535p+1, -3, -3, -3},
    {"negative b: outside the lower bound", -0x1.8000035afe536p+1, -3, -0x1.8000035afe536p+1, -3},
    {"the margin is taken from b: 1.0 is near 1e7", 9999999, 1e7, 1e7, 1e7},
    {"swapped: the other one wins the same near-tie", 1e7, 9999999, 9999999, 9999999},
    {"far apart", -2, 3, -2, 3},
    {"far apart, swapped", 3, -2, -2, 3},
    {"-0.0 as b is kept", 0.0, -0.0, -0.0, -0.0},
    {"NaN in a gives b", kNan, 1, 1, 1},
    {"NaN in b gives b", 1, kNan, kNan, kNan},
    {"an infinite b has an infinite margin: it is the smaller one too", 1, kInf, kInf, kInf},
    {"an infinite b below: it is the larger one too", 1, -kInf, -kInf, -kInf},
    {"infinite a", kInf, 1, 1, kInf},
};

TEST(TolerantMinMax, Table)
{
    for (const MinMaxRow& row : kMinMaxRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_min_tol(row.a, row.b), row.min);
        EXPECT_BITS(PlFunz_max_tol(row.a, row.b), row.max);
    }
}

}  // namespace
