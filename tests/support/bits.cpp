#include "support/bits.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace {

constexpr std::uint64_t kDefaultSeed = 20261120;

bool equal_bits(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

std::string shown(double v)
{
    char text[80];
    std::snprintf(text, sizeof text, "%a (%.17g)", v, v);
    return text;
}

::testing::AssertionResult differ(const char* what, const std::string& got, const std::string& want)
{
    return ::testing::AssertionFailure() << what << "\n  got    " << got << "\n  wanted " << want;
}

}  // namespace

namespace test {

::testing::AssertionResult same_bits(const char* got_text, const char* want_text, double got, double want)
{
    (void)want_text;
    return equal_bits(got, want) ? ::testing::AssertionSuccess() : differ(got_text, shown(got), shown(want));
}

::testing::AssertionResult same_point(const char* got_text, const char* want_text, const PL_PNT2D_record& got,
                                      const PL_PNT2D_record& want)
{
    (void)want_text;
    if (equal_bits(got.x, want.x) && equal_bits(got.y, want.y))
        return ::testing::AssertionSuccess();
    return differ(got_text, shown(got.x) + ", " + shown(got.y), shown(want.x) + ", " + shown(want.y));
}

::testing::AssertionResult same_line(const char* got_text, const char* want_text,
                                     const PL_IMP_LINE_2D_record& got, const PL_IMP_LINE_2D_record& want)
{
    (void)want_text;
    if (equal_bits(got.a, want.a) && equal_bits(got.b, want.b) && equal_bits(got.c, want.c))
        return ::testing::AssertionSuccess();
    return differ(got_text, shown(got.a) + ", " + shown(got.b) + ", " + shown(got.c),
                  shown(want.a) + ", " + shown(want.b) + ", " + shown(want.c));
}

double up(double v)
{
    return std::nextafter(v, std::numeric_limits<double>::infinity());
}

double down(double v)
{
    return std::nextafter(v, -std::numeric_limits<double>::infinity());
}

std::mt19937_64 random_source()
{
    const char* chosen = std::getenv("PLCALC_SEED");
    const std::uint64_t seed = chosen != nullptr ? std::strtoull(chosen, nullptr, 10) : kDefaultSeed;
    std::printf("PLCALC_SEED=%llu\n", static_cast<unsigned long long>(seed));
    return std::mt19937_64(seed);
}

}  // namespace test
