// On which side of its sides a parcel lies.

#include "answers/question.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace {

// Small or large, near the origin or far from it: the direction of a ring is that of a triangle in it.
TEST(Corners, TheParcelLiesOnTheirLeftWhereTheyRunAnticlockwise)
{
    const plparcel::Ring triangle = {{0, 0}, {3, 1}, {1, 2}};
    const plparcel::Ring inner = {{1, 0.5}, {1.5, 1}, {1, 1}};
    const auto placed = [](plparcel::Ring ring, double size, double off, bool backwards) {
        for (PL_PNT2D_record& p : ring)
            p = {off + size * p.x, 9.0 * off + size * p.y};
        if (backwards)
            std::reverse(ring.begin(), ring.end());
        return ring;
    };
    for (const double size : {0.0078125, 1.0, 1024.0})
        for (const double off : {0.0, -1000.0, 524288.0})
            for (std::size_t first = 0; first < 3; ++first)
                for (const bool backwards : {false, true})
                    for (const bool hole_backwards : {false, true}) {
                        tool::Parcel parcel;
                        parcel.ring = placed(triangle, size, off, backwards);
                        std::rotate(parcel.ring.begin(),
                                    parcel.ring.begin() + static_cast<std::ptrdiff_t>(first),
                                    parcel.ring.end());
                        parcel.holes = {placed(inner, size, off, hole_backwards)};
                        const tool::Corners corners = tool::corners_of(parcel);
                        EXPECT_EQ(corners.inside_left.at(0), !backwards) << size << " " << off;
                        EXPECT_EQ(corners.inside_left.at(1), hole_backwards) << size << " " << off;
                    }
}

}  // namespace
