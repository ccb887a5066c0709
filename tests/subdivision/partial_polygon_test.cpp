#include "subdivision/partial_polygon.h"

#include <cmath>
#include <limits>

#include "kernel/shoelace.h"
#include "subdivision/search.h"
#include "support/bits.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

using plcalc::PartialPolygon;
using Ring = std::vector<PL_PNT2D_record>;
using Verdict = PartialPolygon::Verdict;

const Ring kRectangle = {{0, 0}, {100, 0}, {100, 50}, {0, 50}, {0, 0}};

TEST(PartialPolygon, AreaAndPoints)
{
    PartialPolygon piece(kRectangle);
    EXPECT_BITS(piece.area(), 0.0);
    piece.append_vertices(0, 1);
    piece.append_point({100, 10});
    piece.append_point({0, 10});
    piece.append_vertices(4, 4);
    EXPECT_BITS(piece.area(), 1000.0);
    EXPECT_EQ(piece.size(), 5);
    Ring points = {{7, 7}};
    piece.write_to(points);
    ASSERT_EQ(points.size(), 5u);
    EXPECT_POINT(points[1], (PL_PNT2D_record{100, 0}));
    EXPECT_POINT(points[2], (PL_PNT2D_record{100, 10}));
    EXPECT_POINT(points[4], (PL_PNT2D_record{0, 0}));

    Ring crossings;
    piece.clear(crossings);
    ASSERT_EQ(crossings.size(), 2u);
    EXPECT_POINT(crossings[1], (PL_PNT2D_record{0, 10}));
    EXPECT_EQ(piece.size(), 0);
    piece.append_vertices(0, 4);
    EXPECT_BITS(piece.area(), 5000.0);
    piece.append_vertices(4, 3);
    EXPECT_EQ(piece.size(), 5);
}

Verdict plain_verdict(double area, double requested)
{
    if (plcalc::meets_request(area, requested))
        return Verdict::kMeets;
    return area < requested ? Verdict::kBelow : Verdict::kNotBelow;
}

// Requests that tie, miss by an ulp, and lie about the rim of what meets.
void expect_plain_answers(const PartialPolygon& piece)
{
    Ring points;
    piece.write_to(points);
    const double area = std::fabs(plcalc::shoelace_area(points.data(), points.size()));
    EXPECT_BITS(piece.area(), area);
    for (const double part : {1.0, 1.0 - 1e-6, 1.0 + 1e-6, 1.0 - 0.99e-6, 1.0 + 0.99e-6, 1.0 - 1.01e-6,
                              1.0 + 1.01e-6, 0.5, 2.0, 0.0, -1.0}) {
        const double near = area / part;
        for (const double requested : {near, test::up(near), test::down(near), test::up(test::up(near)),
                                       test::down(test::down(near))}) {
            EXPECT_EQ(piece.exceeds(requested), area > requested);
            EXPECT_EQ(piece.against(requested), plain_verdict(area, requested));
        }
    }
}

TEST(PartialPolygon, AnswersAsItsAreaDoes)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-100.0, 100.0);
    for (int i = 0; i < 3000; ++i) {
        Ring ring(5 + random() % 60);
        const double east = i % 3 == 0 ? 500000.0 : 0.0;
        const double north = i % 3 == 0 ? 5000000.0 : 0.0;
        for (PL_PNT2D_record& p : ring)
            p = {east + any(random), north + any(random)};
        if (i % 50 == 0)
            ring[random() % ring.size()].x = i % 100 == 0 ? kNan : 1e300;
        PartialPolygon piece(ring);
        const std::int32_t last = static_cast<std::int32_t>(ring.size()) - 1;
        for (std::int32_t at = 0; at <= last;) {
            const std::int32_t to = std::min(last, at + static_cast<std::int32_t>(random() % 12));
            piece.append_vertices(at, to);
            if (random() % 2 == 0)
                piece.append_point({east + any(random), north + any(random)});
            at = to + 1 + static_cast<std::int32_t>(random() % 3);
        }
        expect_plain_answers(piece);
    }
}

TEST(PartialPolygon, RequestsThatAreNoAreas)
{
    PartialPolygon piece(kRectangle);
    piece.append_vertices(0, 4);
    for (const double requested : {0.0, -0.0, -1.0, kNan, kInf, -kInf, 0x1p-1074, 1e-305}) {
        EXPECT_EQ(piece.exceeds(requested), 5000.0 > requested);
        EXPECT_EQ(piece.against(requested), plain_verdict(5000.0, requested));
    }
}

}  // namespace
