// The frame in which the library cuts: nothing is lost on the way in.

#include "local_frame.h"

#include <cmath>
#include <limits>

#include "support/bits.h"

namespace {

using Ring = std::vector<PL_PNT2D_record>;
using tool::Cut;
using tool::LocalFrame;

// Whether two points differ in the frame by what they differ by outside, to the last bit. Their difference is
// exact in long double: the coordinates are within a factor of two of each other.
void expect_exact(const Ring& ring, const LocalFrame& frame, bool turned)
{
    const PL_PNT2D_record& o = ring[0];
    const PL_PNT2D_record lo = frame.to_local(o);
    for (const PL_PNT2D_record& p : ring) {
        const PL_PNT2D_record l = frame.to_local(p);
        const long double east = (static_cast<long double>(p.x) - o.x) * frame.scale();
        const long double north = (static_cast<long double>(p.y) - o.y) * frame.scale();
        EXPECT_EQ(static_cast<long double>(l.x) - lo.x, turned ? -north : east);
        EXPECT_EQ(static_cast<long double>(l.y) - lo.y, turned ? east : north);
        EXPECT_POINT(frame.from_local(l), (p));
    }
}

TEST(LocalFrame, FarParcelsComeNearTheOriginExactly)
{
    const Ring utm = {{610234.182, 4985117.436}, {610311.907, 4985102.218}, {610352.66, 4985160.945}};
    const LocalFrame frame(utm, utm[0], utm[1], Cut::parallel);
    expect_exact(utm, frame, false);
    for (const PL_PNT2D_record& p : utm) {
        EXPECT_LE(std::fabs(frame.to_local(p).x), 8192.0);
        EXPECT_LE(std::fabs(frame.to_local(p).y), 8192.0);
    }
    const Ring south_west = {
        {-610234.182, -4985117.436}, {-610311.907, -4985102.218}, {-610352.66, -4985160.9}};
    expect_exact(south_west, LocalFrame(south_west, south_west[0], south_west[1], Cut::parallel), false);
}

TEST(LocalFrame, NearParcelsStayWhereShiftingWouldRound)
{
    // 0.1 - 50 rounds, and so would the shift of a parcel whose coordinates differ that much.
    const Ring near = {{0.1, 0.3}, {100.7, 1e-20}, {100.0, 60.0}};
    const LocalFrame frame(near, near[0], near[1], Cut::parallel);
    const Ring across = {{-0.1, -0.3}, {100.7, 1e-20}, {100.0, 60.0}};
    const LocalFrame both(across, across[0], across[1], Cut::parallel);
    const Ring little = {{-0.5, 0.0}, {1.6, 0.0}, {0.1, 1.0}};  // 1 is near the middle, and 0.1 - 1 rounds
    const LocalFrame small(little, little[0], little[1], Cut::parallel);
    for (const PL_PNT2D_record& p : little)
        EXPECT_POINT(small.to_local(p), ({p.x * small.scale(), p.y * small.scale()}));
    for (const PL_PNT2D_record& p : near)
        EXPECT_POINT(frame.to_local(p), ({p.x * frame.scale(), p.y * frame.scale()}));
    for (const PL_PNT2D_record& p : across)
        EXPECT_POINT(both.to_local(p), ({p.x * both.scale(), p.y * both.scale()}));
}

TEST(LocalFrame, ScaleIsThePowerOfTwoThatBringsTheExtentTo4096)
{
    struct Row {
        double extent;
        double scale;
    };
    for (const Row& row : {Row{4096.0, 1.0},
                           {8191.0, 1.0},
                           {8192.0, 0.5},
                           {4095.0, 2.0},
                           {100.0, 64.0},
                           {1e-300, 0x1p+500},
                           {1e300, 0x1p-500},
                           {0.0, 1.0}}) {
        const Ring ring = {{0.0, 0.0}, {row.extent, 0.0}, {0.0, row.extent / 2.0}};
        EXPECT_BITS(LocalFrame(ring, ring[0], ring[1], Cut::parallel).scale(), row.scale);
    }
}

TEST(LocalFrame, BaseLinesRunEastOrWest)
{
    const Ring ring = {{700.0, 500.0}, {790.0, 520.0}, {770.0, 600.0}};
    const PL_PNT2D_record& level = ring[1];    // seen from the first, 90 East and 20 North
    const PL_PNT2D_record& upright = ring[2];  // 70 East and 100 North
    expect_exact(ring, LocalFrame(ring, ring[0], level, Cut::parallel), false);
    expect_exact(ring, LocalFrame(ring, ring[0], upright, Cut::parallel), true);
    expect_exact(ring, LocalFrame(ring, ring[0], level, Cut::perpendicular), true);
    expect_exact(ring, LocalFrame(ring, ring[0], upright, Cut::perpendicular), false);
    expect_exact(ring, LocalFrame(ring, ring[0], level, Cut::through_vertex), false);
    expect_exact(ring, LocalFrame(ring, ring[0], upright, Cut::through_vertex), false);
    // On the diagonal either way serves, and none is taken.
    const PL_PNT2D_record diagonal = {710.0, 510.0};
    expect_exact(ring, LocalFrame(ring, ring[0], diagonal, Cut::parallel), false);
    expect_exact(ring, LocalFrame(ring, ring[0], diagonal, Cut::perpendicular), false);
}

TEST(LocalFrame, TakesAnyFiniteRing)
{
    const double most = std::numeric_limits<double>::max();
    for (const Ring& ring :
         {Ring{{most, most}, {-most, -most}, {most, -most}}, Ring{{most, most}, {most, most}},
          Ring{{5e-324, 0.0}, {0.0, 5e-324}, {0.0, 0.0}}, Ring{{1.0, 1.0}}}) {
        const LocalFrame frame(ring, ring[0], ring.back(), Cut::parallel);
        EXPECT_TRUE(std::isfinite(frame.scale() * frame.scale()));
        EXPECT_GT(frame.scale() * frame.scale(), 0.0);
    }
}

}  // namespace
