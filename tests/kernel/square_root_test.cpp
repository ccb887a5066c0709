#include "kernel/square_root.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "support/bits.h"

namespace {

// std::sqrt is correctly rounded by the rules of IEEE 754, and an instruction here: the witness.
void expect_same(double v)
{
    EXPECT_BITS(plcalc::square_root_in_integers(v), std::sqrt(v)) << "of " << v;
}

struct RootRow {
    const char* what;
    double v;
    double want;
};

constexpr double kInf = std::numeric_limits<double>::infinity();

const RootRow kRows[] = {
    {"zero", 0.0, 0.0},
    {"minus zero keeps its sign", -0.0, -0.0},
    {"one", 1.0, 1.0},
    {"odd exponent", 2.0, 0x1.6a09e667f3bcdp+0},
    {"even exponent", 4.0, 2.0},
    {"last bit rounds down", 3.0, 0x1.bb67ae8584caap+0},
    {"last bit rounds up", 5.0, 0x1.1e3779b97f4a8p+1},
    {"below a quarter of a power: the table's first step", 0x1p-2, 0x1p-1},
    {"the table's last step, up to the next power", 0x1.fffffffffffffp-1, 0x1.fffffffffffffp-1},
    {"largest odd fraction", 0x1.fffffffffffffp+0, 0x1.6a09e667f3bccp+0},
    {"largest double", 0x1.fffffffffffffp+1023, 0x1.fffffffffffffp+511},
    {"smallest normal", 0x1p-1022, 0x1p-511},
    {"largest subnormal", 0x0.fffffffffffffp-1022, 0x1.fffffffffffffp-512},
    {"smallest subnormal", 0x1p-1074, 0x1p-537},
    {"next to smallest subnormal", 0x1p-1073, 0x1.6a09e667f3bcdp-537},
    {"infinity", kInf, kInf},
    // Their squares exceed that of the halfway by 7/4 of the remainder's unit, and the first guess is too large by one.
    {"just above halfway, even exponent: up", 0x1.d407bb3641da5p+0, 0x1.5a24e31b39fa6p+0},
    {"just above halfway, odd exponent: up", 0x1.5b95344972fe2p+1, 0x1.a5db1ce4c605bp+0},
};

TEST(SquareRoot, Table)
{
    for (const RootRow& row : kRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(plcalc::square_root_in_integers(row.v), row.want);
        EXPECT_BITS(plcalc::square_root(row.v), row.want);
    }
}

TEST(SquareRoot, NoNumbers)
{
    for (double v : {-1.0, -kInf, -0x1p-1074, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_TRUE(std::isnan(plcalc::square_root_in_integers(v))) << v;
        EXPECT_TRUE(std::isnan(plcalc::square_root(v))) << v;
    }
}

TEST(SquareRoot, SquaresAndTheirNeighbours)
{
    for (int i = 1; i < 20000; ++i) {
        for (double root :
             {1.0 + i * 0x1p-52, 2.0 - i * 0x1p-52, 1.0 + i * 0x1p-26, static_cast<double>(i)}) {
            const double square = root * root;
            expect_same(square);
            expect_same(test::up(square));
            expect_same(test::down(square));
        }
    }
}

TEST(SquareRoot, EveryStepOfTheTable)
{
    for (int step = 32; step <= 128; ++step) {
        for (double v : {step / 128.0, step / 64.0}) {
            expect_same(v);
            expect_same(test::up(v));
            expect_same(test::down(v));
        }
    }
}

// PLCALC_ROOTS: how many; a hundred million take ten seconds.
TEST(SquareRoot, RandomBits)
{
    const char* chosen = std::getenv("PLCALC_ROOTS");
    const long roots = chosen != nullptr ? std::atol(chosen) : 1'000'000;
    std::mt19937_64 random = test::random_source();
    for (long i = 0; i < roots && !HasFailure(); ++i) {
        const std::uint64_t bits = random() >> 1;  // any double that is not negative
        double v = 0.0;
        std::memcpy(&v, &bits, sizeof v);
        expect_same(v);
    }
}

}  // namespace
