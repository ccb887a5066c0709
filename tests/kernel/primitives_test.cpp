#include "plcalc/kernel.h"

#include <cmath>

#include "kernel/near.h"

namespace {

using test::kInf;
using test::kNan;

struct InverseRow {
    const char* what;
    double v;
    double want;
};

const InverseRow kInverseRows[] = {
    {"on PL_EPS: no inverse", 1e-7, 0.0},
    {"on -PL_EPS: no inverse", -1e-7, 0.0},
    {"just above PL_EPS: about 1e7", 1.0000001e-7, 0x1.312cfe0000035p+23},
    {"the next double above PL_EPS", 0x1.ad7f29abcaf49p-24, 1e7},
    {"the next double below -PL_EPS", -0x1.ad7f29abcaf49p-24, -1e7},
    {"the next double inside PL_EPS", 0x1.ad7f29abcaf47p-24, 0.0},
    {"zero", 0.0, 0.0},
    {"-0.0 has no inverse either, and gives +0.0", -0.0, 0.0},
    {"smallest subnormal", 5e-324, 0.0},
    {"two has an exact inverse", 2.0, 0.5},
    {"sign is kept", -4.0, -0.25},
    {"a third is rounded to nearest", 3.0, 0x1.5555555555555p-2},
    {"largest double: the inverse is subnormal, not 0", 0x1.fffffffffffffp+1023, 0x0.4p-1022},
    {"infinity", kInf, 0.0},
    {"minus infinity", -kInf, -0.0},
    {"NaN is not near zero", kNan, kNan},
};

TEST(Inverse, Table)
{
    for (const InverseRow& row : kInverseRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_inverse(row.v), row.want);
    }
}

struct SumSquaresRow {
    const char* what;
    double a;
    double b;
    double want;
};

const SumSquaresRow kSumSquaresRows[] = {
    {"no root is taken", 3, 4, 25},
    {"signs do not matter", -3, -4, 25},
    {"null vector", 0, 0, 0},
    {"null vector of -0.0", -0.0, -0.0, 0.0},
    {"last bit: both products rounded, then the sum, never fused", 87.55, 79.39, 0x1.b47e32617c1bep+13},
    {"no scaling: small components underflow", 1e-170, 1e-170, 0.0},
    {"no scaling: large ones overflow", 1e155, 0, kInf},
    {"infinity", -kInf, 1, kInf},
    {"NaN in a", kNan, 1, kNan},
    {"NaN in b", 1, kNan, kNan},
};

TEST(SumOfSquares, Table)
{
    for (const SumSquaresRow& row : kSumSquaresRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_sumsqrdparms(row.a, row.b), row.want);
        EXPECT_BITS(PlFunz_sumsqrdparms(row.b, row.a), row.want);
    }
}

struct DistanceRow {
    const char* what;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    double want;
};

const DistanceRow kDistanceRows[] = {
    {"three, four, five", {1, 2}, {4, 6}, 5},
    {"a point and its copy: exactly 0", {139.26, 0.1}, {139.26, 0.1}, 0.0},
    {"only x differs", {-2, 7}, {3, 7}, 5},
    {"only y differs", {7, -2}, {7, 3}, 5},
    {"closer than PL_EPS is a distance all the same", {0, 0}, {0x1p-30, 0}, 0x1p-30},
    {"last bit: squares and sum rounded, then the root; hypot gives the next double",
     {93.44, 75.51},
     {0, 0},
     0x1.e08bd71865638p+6},
    {"squares underflow, unlike hypot", {1e-170, 0}, {0, 0}, 0.0},
    {"squares overflow, unlike hypot", {1e155, 0}, {0, 0}, kInf},
    {"infinitely far", {kInf, 0}, {0, 0}, kInf},
    {"two infinite coordinates have no difference", {kInf, 0}, {kInf, 0}, kNan},
    {"NaN in x", {kNan, 0}, {0, 0}, kNan},
    {"NaN in y", {0, kNan}, {0, 0}, kNan},
};

TEST(Distance, Table)
{
    for (const DistanceRow& row : kDistanceRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(PlFunz_distance(&row.p1, &row.p2), row.want);
        EXPECT_BITS(PlFunz_distance(&row.p2, &row.p1), row.want);
    }
}

TEST(Distance, IsSymmetricToTheBitAndNearALongDoubleRoot)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> coordinate(-1e6, 1e6);
    for (int i = 0; i < 20000; ++i) {
        const PL_PNT2D_record p = {coordinate(random), coordinate(random)};
        const PL_PNT2D_record q = {coordinate(random), coordinate(random)};
        const double d = PlFunz_distance(&p, &q);
        EXPECT_BITS(PlFunz_distance(&q, &p), d);
        EXPECT_BITS(PlFunz_distance(&p, &p), 0.0);

        // The differences round once each, the squares and their sum once more, halved by the root.
        const long double dx = static_cast<long double>(p.x) - q.x;
        const long double dy = static_cast<long double>(p.y) - q.y;
        const double reference = static_cast<double>(std::sqrt(dx * dx + dy * dy));
        EXPECT_NEAR_BITS(d, reference, 4);
    }
}

struct SamePointRow {
    const char* what;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    bool want;
};

const SamePointRow kSamePointRows[] = {
    {"on PL_EPS on both axes, 1.41e-7 apart", {0, 0}, {1e-7, -1e-7}, true},
    {"just outside on x", {0, 0}, {1.0000001e-7, 0}, false},
    {"on PL_EPS with the other signs", {0, 0}, {-1e-7, 1e-7}, true},
    {"the next double outside on x", {0, 0}, {0x1.ad7f29abcaf49p-24, 0}, false},
    {"the next double outside on x, to the left", {0, 0}, {-0x1.ad7f29abcaf49p-24, 0}, false},
    {"the next double outside on y", {0, 0}, {0, 0x1.ad7f29abcaf49p-24}, false},
    {"the next double outside on y, downwards", {0, 0}, {0, -0x1.ad7f29abcaf49p-24}, false},
    {"the very same", {139.26, 0.1}, {139.26, 0.1}, true},
    {"-0.0 and 0.0", {-0.0, 0.0}, {0.0, -0.0}, true},
    {"the difference counts, not the figures: 1717 doubles apart",
     {500000, 0},
     {0x1.e8480000006b5p+18, 0},
     true},
    {"1718 doubles apart, though written as 500000.0000001", {500000, 0}, {500000.0000001, 0}, false},
    {"NaN in x", {kNan, 0}, {0, 0}, false},
    {"NaN in y", {0, kNan}, {0, 0}, false},
    {"two infinite coordinates have no difference", {kInf, 0}, {kInf, 0}, false},
};

TEST(SamePoint, Table)
{
    for (const SamePointRow& row : kSamePointRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(PlFunz_samepnt(&row.p1, &row.p2), row.want);
        EXPECT_EQ(PlFunz_samepnt(&row.p2, &row.p1), row.want);
    }
}

}  // namespace
