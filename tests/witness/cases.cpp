#include "witness/cases.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kDefaultCases = 10000;

}  // namespace

namespace witness {

int cases()
{
    const char* chosen = std::getenv("PLCALC_WITNESS_CASES");
    return chosen != nullptr ? std::max(1, std::atoi(chosen)) : kDefaultCases;
}

double Random::between(double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(source_);
}

double Random::by_magnitude(double low, double high)
{
    return std::exp(between(std::log(low), std::log(high)));
}

int Random::integer(int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(source_);
}

bool Random::chance(double p)
{
    return between(0.0, 1.0) < p;
}

PL_PNT2D_record Random::point(const Size& size)
{
    const double x = size.origin.x + between(0.0, size.extent);
    return {x, size.origin.y + between(0.0, size.extent)};
}

Ring random_ring(Random& random, const Size& size)
{
    const auto n = static_cast<std::size_t>(random.integer(3, 12));
    Ring ring = random.chance(0.5) ? test::crooked_ring(random.source(), n, size.extent)
                                   : test::parcel_ring(random.source(), size.extent);
    const double half = size.extent / 2.0;
    for (PL_PNT2D_record& p : ring)
        p = {p.x + half + size.origin.x, p.y + half + size.origin.y};
    return random.chance(0.5) ? test::reversed(ring) : ring;
}

void report(const char* format, ...)
{
    std::printf("  ");
    std::va_list arguments;
    va_start(arguments, format);
    std::vprintf(format, arguments);
    va_end(arguments);
    std::printf("\n");
}

std::string size_name(const ::testing::TestParamInfo<Size>& info)
{
    return info.param.name;
}

}  // namespace witness
