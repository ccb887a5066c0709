// Lines that cannot be told from a side: both ends within a centimetre of it.

#include "answers/nearness.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace {

// The first side runs along (3, 4), 50 long. Places are told along it and to its left.
PL_PNT2D_record beside_first(double along, double left)
{
    return {10.0 + 0.6 * along - 0.8 * left, 20.0 + 0.8 * along + 0.6 * left};
}

TEST(Nearness, OfBothEndsToASlantedSide)
{
    const struct {
        const char* what;
        PL_PNT2D_record start;
        PL_PNT2D_record end;
        double metres;  // of a unit
        bool near;
    } rows[] = {
        {"on the side", beside_first(5, 0), beside_first(45, 0), 1.0, true},
        {"just within a centimetre", beside_first(5, 0.0099), beside_first(45, -0.0099), 1.0, true},
        {"backwards", beside_first(45, 0.0099), beside_first(5, -0.0099), 1.0, true},
        {"the start is farther away", beside_first(5, 0.0101), beside_first(45, 0.0), 1.0, false},
        {"the end is farther away", beside_first(5, 0.0), beside_first(45, -0.0101), 1.0, false},
        {"just beyond both ends", beside_first(-0.0099, 0), beside_first(50.0099, 0), 1.0, true},
        {"too far behind the start", beside_first(-0.0101, 0), beside_first(45, 0), 1.0, false},
        {"too far beyond the end", beside_first(5, 0), beside_first(50.0101, 0), 1.0, false},
        {"two millimetres of a smaller unit", beside_first(5, 0.0199), beside_first(45, 0), 0.5, true},
        {"more of it", beside_first(5, 0.0201), beside_first(45, 0), 0.5, false},
    };
    for (const auto& row : rows) {
        tool::Parcel parcel;
        parcel.ring = {beside_first(0, 0), beside_first(50, 0), beside_first(50, 40), beside_first(0, 40)};
        parcel.unit.metres = row.metres;
        for (std::size_t first = 0; first < 4; ++first) {
            const tool::Asked asked;
            tool::Answer answer = {parcel, asked, {}};
            answer.printed.lines = {{beside_first(25, 0), beside_first(25, 40)}, {row.start, row.end}};
            const std::vector<tool::NearSide> found = tool::lines_at_sides(answer);
            ASSERT_EQ(found.size(), row.near ? 1u : 0u) << row.what;
            if (row.near) {
                EXPECT_EQ(found[0].line, 1u) << row.what;
                EXPECT_EQ(found[0].side, (4 - first) % 4) << row.what;
            }
            std::rotate(parcel.ring.begin(), parcel.ring.begin() + 1, parcel.ring.end());
        }
    }
}

// The second corner is there twice: the side between the two has no length.
TEST(Nearness, ToARepeatedCorner)
{
    tool::Parcel parcel;
    parcel.ring = {{10, 20}, {10, 20}, {40, 60}, {-20, 90}};
    const tool::Asked asked;
    tool::Answer answer = {parcel, asked, {}};
    answer.printed.lines = {{{10.004, 20.003}, {39.996, 59.997}}, {{13, 24}, {30, 80}}};
    const std::vector<tool::NearSide> found = tool::lines_at_sides(answer);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].line, 0u);
    EXPECT_EQ(found[0].side, 1u);
}

}  // namespace
