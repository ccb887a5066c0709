#include "lines/ray.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "support/bits.h"

namespace {

using plparcel::IsNearer;
using plparcel::Span;
using plparcel::WidePoint;

// Both sides begin on the ray, the second a last bit farther away, and lead anywhere to its left. In the four directions of
// the axes one of the two products of a cross product is zero, and the other one alone is rounded.
TEST(Ray, TellsSidesALastBitApart)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(1.0, 9.0);
    for (int i = 0; i < 4000; ++i) {
        const double near = any(random);
        std::vector<Span> spans = {{{near, 0.0}, {any(random), any(random)}},
                                   {{std::nextafter(near, 10.0), 0.0}, {any(random), any(random)}}};
        WidePoint ray = {1.0, 0.0};
        for (int quarter = 0; quarter < i % 4; ++quarter) {
            const auto turn = [](WidePoint& p) { p = {-p.y, p.x}; };
            for (Span& span : spans) {
                turn(span.begin);
                turn(span.end);
            }
            turn(ray);
        }
        const IsNearer is_nearer(spans, ray);
        EXPECT_TRUE(is_nearer(0, 1)) << i;
        EXPECT_FALSE(is_nearer(1, 0)) << i;
        EXPECT_FALSE(is_nearer(0, 0)) << i;
    }
}

}  // namespace
