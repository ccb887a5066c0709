#include "numbers/wide.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>

#include "support/bits.h"

namespace {

using plparcel::Wide;

TEST(Wide, SumsAndProductsOfDoublesAreExact)
{
    const struct {
        const char* what;
        Wide got;
        double hi;
        double lo;
    } rows[] = {
        {"what a sum loses is kept", plparcel::exact_sum(0x1p60, 1.0), 0x1p60, 1.0},
        {"either order", plparcel::exact_sum(1.0, 0x1p60), 0x1p60, 1.0},
        {"a difference at coordinates of 5e6", plparcel::exact_sum(5e6, -0x1p-60), 5e6, -0x1p-60},
        {"half a unit rounds to even, the rest is negative", plparcel::exact_sum(0x1.0000000000001p53, 1.0),
         0x1.0000000000002p53, -1.0},
        {"(1 + 2^-30)^2", plparcel::exact_product(1.0 + 0x1p-30, 1.0 + 0x1p-30), 1.0 + 0x1p-29, 0x1p-60},
        {"(1 + 2^-52)(1 - 2^-52)", plparcel::exact_product(1.0 + 0x1p-52, 1.0 - 0x1p-52), 1.0, -0x1p-104},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(row.got.hi, row.hi);
        EXPECT_BITS(row.got.lo, row.lo);
    }
}

// A whole number below 2^107 as it is left by division by 2^64.
std::uint64_t modulo_2_64(double whole)
{
    const double rest = std::fmod(whole, 0x1p64);
    return rest < 0.0 ? 0 - static_cast<std::uint64_t>(-rest) : static_cast<std::uint64_t>(rest);
}

TEST(Wide, ProductsOfWholeNumbersAreThoseOfIntegers)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<std::uint64_t> any(0, (std::uint64_t{1} << 53) - 1);
    for (int i = 0; i < 10000; ++i) {
        const std::uint64_t a = any(random);
        const std::uint64_t b = any(random);
        const Wide product = plparcel::exact_product(static_cast<double>(a), static_cast<double>(b));
        ASSERT_EQ(modulo_2_64(product.hi) + modulo_2_64(product.lo), a * b) << a << " * " << b;
    }
}

// Within a few parts in 1e32.
void expect_near(const char* what, const Wide& got, const Wide& want)
{
    EXPECT_LE(std::fabs((got - want).value()), 1e-31 * std::fabs(want.hi)) << what;
}

TEST(Wide, ArithmeticHolds106Bits)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-1e4, 1e4);
    for (int i = 0; i < 10000; ++i) {
        const Wide a = plparcel::exact_sum(any(random), 1e-12 * any(random));
        const Wide b = plparcel::exact_sum(any(random), 1e-12 * any(random));
        expect_near("a quotient times its divisor", a / b * b, a);
        expect_near("a sum less one of its terms", (a + b) - b + 1e6, a + 1e6);
        expect_near("a root squared", plparcel::sqrt(a * a), plparcel::abs(a));
        expect_near("(a + b)^2", (a + b) * (a + b) + 1e9, a * a + a * b * 2.0 + b * b + 1e9);
    }
}

TEST(Wide, OrderLooksAtBothParts)
{
    const Wide one = 1.0;
    const Wide more = {1.0, 0x1p-80};
    const Wide less = {1.0, -0x1p-80};
    EXPECT_TRUE(less < one && one < more && less < more);
    EXPECT_FALSE(one < one || one > one || more < one || one < less);
    EXPECT_TRUE(more > one);
    EXPECT_BITS(plparcel::abs(-more).lo, 0x1p-80);
    EXPECT_BITS(plparcel::sqrt(Wide(0.0)).hi, 0.0);
    EXPECT_BITS(plparcel::scaled(more, 3).lo, 0x1p-77);
}

TEST(Wide, ADirectionIsAboutOneLong)
{
    const plparcel::WidePoint unit = plparcel::about_unit({Wide(-12.0), Wide(3.0)});
    EXPECT_BITS(unit.x.value(), -1.5);
    EXPECT_BITS(unit.y.value(), 0.375);
    const plparcel::WidePoint none = plparcel::about_unit({Wide(0.0), Wide(0.0)});
    EXPECT_BITS(none.x.value(), 0.0);
    EXPECT_BITS(none.y.value(), 0.0);
    EXPECT_BITS(plparcel::about_unit({Wide(0x1p-1074), Wide(0.0)}).x.value(), 1.0);
}

}  // namespace
