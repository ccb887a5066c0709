#include "lines/library_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "boundary/local_ring.h"

namespace {

using plparcel::Cut;
using plparcel::LocalRing;
using plparcel::Ring;
using plparcel::search_line;

constexpr double kPi = 3.14159265358979323846;

// 100 by 50, turned and moved.
Ring lot(double dir_rad, double east, double scale)
{
    Ring ring;
    for (const PL_PNT2D_record& p : {PL_PNT2D_record{0, 0}, {100, 0}, {100, 50}, {0, 50}})
        ring.push_back({east + scale * (std::cos(dir_rad) * p.x - std::sin(dir_rad) * p.y),
                        scale * (std::sin(dir_rad) * p.x + std::cos(dir_rad) * p.y)});
    return ring;
}

double distance(const LocalRing& local, const PL_PNT2D_record& p, const PL_PNT2D_record& local_q)
{
    const plparcel::WidePoint q = local.to_local(p);
    return std::hypot(q.x.value() - local_q.x, q.y.value() - local_q.y);
}

// A fifth of the lot is cut off next to side 0, at its far end, or next to it from vertex 0.
void expect_line(const Ring& ring, Cut cut)
{
    const auto between = [&ring](std::size_t i, std::size_t j, double t) {
        return PL_PNT2D_record{ring[i].x + t * (ring[j].x - ring[i].x),
                               ring[i].y + t * (ring[j].y - ring[i].y)};
    };
    PL_LINE_2D_record wanted = {between(0, 3, 0.2), between(1, 2, 0.2)};
    if (cut == Cut::perpendicular)
        wanted = {between(0, 1, 0.8), between(3, 2, 0.8)};
    if (cut == Cut::through_vertex)
        wanted = {ring[0], between(1, 2, 0.4)};

    const plparcel::MeasuredRing measured(ring);
    const LocalRing local(measured);
    PL_LINE_2D_record line = {};
    ASSERT_TRUE(search_line(measured, local, {cut, 0, measured.area().value() / 5.0}, line));
    const double straight =
        std::max(distance(local, wanted.start, line.start), distance(local, wanted.end, line.end));
    const double crossed =
        std::max(distance(local, wanted.start, line.end), distance(local, wanted.end, line.start));
    EXPECT_LE(std::min(straight, crossed), 0.1);  // of 4096 to 8192 across
}

TEST(LibrarySearch, AnswersInTheFrameOfTheParcelWhateverItsDirection)
{
    for (const Cut cut : {Cut::parallel, Cut::perpendicular, Cut::through_vertex}) {
        for (int deg = 0; deg < 360; deg += 5) {
            SCOPED_TRACE(deg);
            expect_line(lot(deg * kPi / 180.0, 0.0, 1.0), cut);
            expect_line(lot(deg * kPi / 180.0, 5e5, 1.0), cut);
            expect_line(lot(deg * kPi / 180.0 + 1e-8, 5e5, 1.0), cut);
        }
    }
}

TEST(LibrarySearch, AnswersForParcelsOfAnySize)
{
    for (const Cut cut : {Cut::parallel, Cut::perpendicular, Cut::through_vertex}) {
        for (int exponent = -60; exponent <= 34; ++exponent) {
            SCOPED_TRACE(exponent);
            expect_line(lot(0.5, 0.0, std::ldexp(1.0, exponent)), cut);
        }
    }
}

}  // namespace
