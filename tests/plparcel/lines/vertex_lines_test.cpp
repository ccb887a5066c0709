#include "lines/vertex_lines.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/bits.h"

namespace {

using plparcel::Chord;
using plparcel::lines_from_vertex;
using plparcel::LocalRing;
using plparcel::MeasuredRing;
using plparcel::Ring;

// Local coordinates are those below: 4096 across.
const Ring kSquare = {{0, 0}, {4096, 0}, {4096, 4096}, {0, 4096}};
constexpr double kTriangle = 0x1p23;  // half of the square

struct Row {
    const char* what;
    double area;
    std::size_t to_side;
    PL_PNT2D_record to;
};

TEST(VertexCut, TriangleOnEachSide)
{
    const Row rows[] = {
        {"a quarter", kTriangle / 2, 1, {4096, 2048}},
        {"three quarters", kTriangle * 1.5, 2, {2048, 4096}},
        {"next to nothing", 0x1p-10, 1, {4096, 0x1p-21}},
    };
    const LocalRing local{MeasuredRing(kSquare)};
    for (const Row& row : rows) {
        const std::vector<Chord> lines = lines_from_vertex(local, 1.0, 0, row.area, 0.0);
        ASSERT_EQ(lines.size(), 1U) << row.what;
        EXPECT_EQ(lines[0].from_side, 0U) << row.what;
        EXPECT_EQ(lines[0].to_side, row.to_side) << row.what;
        EXPECT_TRUE(lines[0].from_stays) << row.what;
        EXPECT_BITS(lines[0].to.x.value(), row.to.x);
        EXPECT_BITS(lines[0].to.y.value(), row.to.y);
    }
    EXPECT_TRUE(lines_from_vertex(local, 1.0, 0, 2.1 * kTriangle, 0.0).empty());
}

TEST(VertexCut, ToAVertexFromBothItsSides)
{
    const std::vector<Chord> lines =
        lines_from_vertex(LocalRing(MeasuredRing(kSquare)), 1.0, 0, kTriangle, 0.0);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].to_side, 1U);
    EXPECT_EQ(lines[1].to_side, 2U);
    EXPECT_BITS(lines[0].to.x.value(), 4096.0);
    EXPECT_BITS(lines[1].to.y.value(), 4096.0);
}

TEST(VertexCut, ClockwiseFromAnyVertex)
{
    const Ring clockwise = {{0, 0}, {0, 4096}, {4096, 4096}, {4096, 0}};
    // From (4096, 4096), towards (4096, 0) first.
    const std::vector<Chord> lines =
        lines_from_vertex(LocalRing(MeasuredRing(clockwise)), -1.0, 2, kTriangle / 2, 0.0);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].from_side, 2U);
    EXPECT_EQ(lines[0].to_side, 3U);
    EXPECT_BITS(lines[0].to.x.value(), 2048.0);
    EXPECT_BITS(lines[0].to.y.value(), 0.0);
}

TEST(VertexCut, SidesThatRunBackAndThoseBehindThemAreNotSeen)
{
    // Seen from (0, 0), the side from (3072, 3072) to (4096, 1024) runs back: up to its start 0x1.8p22 are
    // passed, up to its end less. Half of that is held three times, the first time in sight.
    const Ring bent = {{0, 0}, {4096, 0}, {3072, 3072}, {4096, 1024}, {4096, 4096}, {0, 4096}};
    const double before = 4096.0 * 3072.0 / 2;
    const double back = (4096.0 * 3072.0 - 1024.0 * 3072.0) / 2;
    const std::vector<Chord> lines =
        lines_from_vertex(LocalRing(MeasuredRing(bent)), 1.0, 0, before - back / 2, 0.0);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].to_side, 1U);
}

TEST(VertexCut, WhereSidesTurnBackARoundingLosesNoLine)
{
    // The ring of the row above, up to where the sides turn back, and up to where they turn again. There a rounding is
    // 6e-22 and 1.1e-21 at most. What lies behind the first side, the bottom with it, is not seen.
    const Ring bent = {{0, 0}, {4096, 0}, {3072, 3072}, {4096, 1024}, {4096, 4096}, {0, 4096}};
    const double top = 4096.0 * 3072.0 / 2;
    const double bottom = top - (4096.0 * 3072.0 - 1024.0 * 3072.0) / 2;
    const LocalRing local{MeasuredRing(bent)};
    const struct {
        const char* what;
        double area;
        double more;
        std::vector<PL_PNT2D_record> to;
    } rows[] = {
        {"at the top", top, 0.0, {{3072, 3072}, {3072, 3072}}},
        {"a rounding less", top, -3e-22, {{3072, 3072}}},
        {"a rounding more", top, 3e-22, {{3072, 3072}, {3072, 3072}}},
        {"more than a rounding", top, 3e-21, {}},
        {"at the bottom", bottom, 0.0, {{3840, 768}}},
        {"a rounding more", bottom, 3e-22, {{3840, 768}}},
        {"a rounding less", bottom, -3e-22, {{3840, 768}}},
        {"less than a rounding less", bottom, -3e-21, {{3840, 768}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const plparcel::Wide area = plparcel::Wide(row.area) + plparcel::Wide(row.more);
        const std::vector<Chord> lines = lines_from_vertex(local, 1.0, 0, area, 0.0);
        ASSERT_EQ(lines.size(), row.to.size());
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_BITS(lines[i].to.x.value(), row.to[i].x);
            EXPECT_BITS(lines[i].to.y.value(), row.to[i].y);
        }
    }
}

TEST(VertexCut, SidesInLineWithTheVertexHoldNothing)
{
    const Ring straight_on = {{0, 0}, {2048, 0}, {4096, 0}, {4096, 4096}, {0, 4096}};
    const std::vector<Chord> lines =
        lines_from_vertex(LocalRing(MeasuredRing(straight_on)), 1.0, 0, kTriangle / 2, 0.0);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].to_side, 2U);
}

}  // namespace
