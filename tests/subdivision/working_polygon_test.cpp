#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/bits.h"
#include "support/cut_state.h"

namespace {

using In = CFrazAreaInspector;
using test::Indices;
using test::Points;

const CPoint3dVector kNoParcel;

CFrazArea bare()
{
    return CFrazArea(kNoParcel, {0, 0}, {0, 0}, 0, 1, 0.0, 0.0);
}

// --- areas and distances ---

struct AreaRow {
    const char* what;
    int count;
    Points points;
    double want;  // signed
};

const AreaRow kAreaRows[] = {
    {"the unit square anticlockwise", 4, {{0, 0}, {1, 0}, {1, 1}, {0, 1}}, 1.0},
    {"the unit square clockwise", 4, {{0, 1}, {1, 1}, {1, 0}, {0, 0}}, -1.0},
    {"the first point again at the end adds nothing", 5, {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}}, 1.0},
    {"the same clockwise", 5, {{0, 0}, {0, 1}, {1, 1}, {1, 0}, {0, 0}}, -1.0},
    {"points beyond the count do not count", 3, {{0, 0}, {4, 0}, {4, 4}, {-8, 64}, {5, 5}}, 8.0},
    {"a count of zero", 0, {{0, 0}, {4, 0}, {4, 4}}, 0.0},
    {"no points", 0, {}, 0.0},
    {"one point", 1, {{3, 5}}, 0.0},
    {"two points, there and back", 2, {{3, 5}, {7, 11}}, 0.0},
    {"a figure of eight, its loops against each other", 4, {{0, 0}, {2, 2}, {2, 0}, {0, 2}}, 0.0},
};

TEST(AreaCalcolataDaVettSgn, Table)
{
    const CFrazArea f = bare();
    for (const AreaRow& row : kAreaRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(In::AreaCalcolataDaVettSgn(f, row.count, row.points), row.want);
    }
}

TEST(AreaCalcolataDaVett, IsTheSameWithoutItsSign)
{
    const CFrazArea f = bare();
    for (const AreaRow& row : kAreaRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(In::AreaCalcolataDaVett(f, row.count, row.points), row.want < 0 ? -row.want : row.want);
    }
}

TEST(CalcDist, IsTheDistanceInThePlane)
{
    const CFrazArea f = bare();
    EXPECT_BITS(In::CalcDist(f, {1, 2}, {4, 6}), 5.0);
    EXPECT_BITS(In::CalcDist(f, {4, 6}, {1, 2}), 5.0);
    EXPECT_BITS(In::CalcDist(f, {4, 6}, {4, 6}), 0.0);
    EXPECT_BITS(In::CalcDist(f, {0, -7}, {0, 1}), 8.0);
}

TEST(IncrementaVett, AppendsAndCountsByItself)
{
    CFrazArea f = bare();
    In::NumPuntiParz(f) = 7;
    In::IncrementaVett(f, {1, 2});
    In::IncrementaVett(f, {3, -0.0});
    EXPECT_EQ(In::NumPuntiParz(f), 9);
    ASSERT_EQ(In::VettParziale(f).size(), 2U);
    EXPECT_POINT(In::VettParziale(f)[0], ({1, 2}));
    EXPECT_POINT(In::VettParziale(f)[1], ({3, -0.0}));
}

// --- chord ends ---

constexpr double kU = test::kUntouched;

struct ChordRow {
    const char* what;
    Points crossings;
    PL_PNT2D_record r1;
    PL_PNT2D_record r2;
    PL_PNT2D_record middle;  // PuntoMedio, kU before the first crossing
};

const ChordRow kChordRows[] = {
    {"one crossing: the first end alone", {{1, 5}}, {1, 5}, {kU, kU}, {kU, kU}},
    {"two: both ends, and the middle", {{0, 3}, {4, 5}}, {0, 3}, {4, 5}, {2, 4}},
    {"two at one place", {{4, 5}, {4, 5}}, {4, 5}, {4, 5}, {4, 5}},
    {"a third inside the chord is dropped", {{0, 0}, {4, 0}, {3, 0}}, {0, 0}, {4, 0}, {2, 0}},
    {"a third at the second end is dropped", {{0, 0}, {4, 0}, {4, 0}}, {0, 0}, {4, 0}, {2, 0}},
    {"a third as far from the middle as the ends is dropped",
     {{0, 0}, {4, 0}, {2, 2}},
     {0, 0},
     {4, 0},
     {2, 0}},
    {"a third an ulp inside is dropped", {{0, 0}, {4, 0}, {test::down(4), 0}}, {0, 0}, {4, 0}, {2, 0}},
    {"a third an ulp outside is the new second end",
     {{0, 0}, {4, 0}, {test::up(4), 0}},
     {0, 0},
     {test::up(4), 0},
     {test::up(2), 0}},
    {"a third outside beyond the second end", {{0, 0}, {4, 0}, {6, 0}}, {0, 0}, {6, 0}, {3, 0}},
    {"a third outside beyond the first end", {{0, 0}, {4, 0}, {-2, 0}}, {-2, 0}, {4, 0}, {1, 0}},
    {"outside and as far from both ends: the second gives way",
     {{0, 0}, {4, 0}, {2, 10}},
     {0, 0},
     {2, 10},
     {1, 5}},
    {"outside, nearer to the first end by a hair",
     {{0, 0}, {4, 0}, {2 - 0x1p-20, 10}},
     {2 - 0x1p-20, 10},
     {4, 0},
     {3 - 0x1p-21, 5}},
    {"a fourth is held against the chord as it has become",
     {{0, 0}, {4, 0}, {6, 0}, {5, 0}},
     {0, 0},
     {6, 0},
     {3, 0}},
    {"a fourth outside on the other side", {{0, 0}, {4, 0}, {6, 0}, {-1, 0}}, {-1, 0}, {6, 0}, {2.5, 0}},
    {"a fifth", {{0, 0}, {4, 0}, {6, 0}, {-1, 0}, {9, 0}}, {-1, 0}, {9, 0}, {4, 0}},
    {"ends in the other order: the third beyond the second",
     {{4, 0}, {0, 0}, {-2, 0}},
     {4, 0},
     {-2, 0},
     {1, 0}},
    {"a NaN is not outside",
     {{0, 0}, {4, 0}, {std::numeric_limits<double>::quiet_NaN(), 0}},
     {0, 0},
     {4, 0},
     {2, 0}},
};

TEST(TrovaLimitiSegmento, Table)
{
    for (const ChordRow& row : kChordRows) {
        SCOPED_TRACE(row.what);
        CFrazArea f = bare();
        In::PuntoMedio(f) = {kU, kU};
        PL_PNT2D_record r1 = {kU, kU};
        PL_PNT2D_record r2 = {kU, kU};
        for (const PL_PNT2D_record& p : row.crossings)
            In::TrovaLimitiSegmento(f, r1, r2, p);
        EXPECT_EQ(In::NumIntersez(f), static_cast<std::int32_t>(row.crossings.size()));
        EXPECT_POINT(r1, (row.r1));
        EXPECT_POINT(r2, (row.r2));
        EXPECT_POINT(In::PuntoMedio(f), (row.middle));
        EXPECT_POINT(In::PuntoRis1(f), ({0.0, 0.0}));
        EXPECT_POINT(In::PuntoRis2(f), ({0.0, 0.0}));
        EXPECT_TRUE(In::VettParziale(f).empty());
    }
}

TEST(TrovaLimitiSegmento, TheMiddleOfAnEarlierChordIsNotLookedAt)
{
    CFrazArea f = bare();
    In::PuntoMedio(f) = {1000, 0};
    PL_PNT2D_record r1 = {kU, kU};
    PL_PNT2D_record r2 = {kU, kU};
    In::TrovaLimitiSegmento(f, r1, r2, {0, 0});
    EXPECT_POINT(In::PuntoMedio(f), ({1000, 0}));
    In::TrovaLimitiSegmento(f, r1, r2, {4, 0});
    In::TrovaLimitiSegmento(f, r1, r2, {3, 0});
    EXPECT_POINT(r1, ({0, 0}));
    EXPECT_POINT(r2, ({4, 0}));
}

TEST(TrovaLimitiSegmento, OutsideIsFartherThanTheFirstEnd)
{
    // Ends that the middle does not lie between, as no search has them: the first end decides.
    CFrazArea f = bare();
    In::NumIntersez(f) = 2;
    In::PuntoMedio(f) = {0, 0};
    PL_PNT2D_record r1 = {1, 0};
    PL_PNT2D_record r2 = {5, 0};
    In::TrovaLimitiSegmento(f, r1, r2, {4, 0});
    EXPECT_POINT(r1, ({1, 0}));
    EXPECT_POINT(r2, ({4, 0}));
    EXPECT_POINT(In::PuntoMedio(f), ({2.5, 0}));
}

const ChordRow kFarthestRows[] = {
    // from r1 = (1, 1); the middle is not used
    {"the first, wherever it is", {{1, 1}}, {1, 1}, {1, 1}, {}},
    {"the first, though an earlier end was farther", {{1, 2}}, {1, 1}, {1, 2}, {}},
    {"a farther one", {{1, 2}, {1, 4}}, {1, 1}, {1, 4}, {}},
    {"a nearer one", {{1, 4}, {1, 2}}, {1, 1}, {1, 4}, {}},
    {"as far on the other side: the earlier one", {{1, 4}, {1, -2}}, {1, 1}, {1, 4}, {}},
    {"farther by an ulp", {{1, 5}, {test::up(5), 1}}, {1, 1}, {test::up(5), 1}, {}},
    {"nearer by an ulp", {{1, 5}, {test::down(5), 1}}, {1, 1}, {1, 5}, {}},
    {"the farthest of three", {{1, 3}, {1, 9}, {1, 5}}, {1, 1}, {1, 9}, {}},
};

TEST(TrovaLimitiSegmento2, Table)
{
    for (const ChordRow& row : kFarthestRows) {
        SCOPED_TRACE(row.what);
        CFrazArea f = bare();
        In::PuntoMedio(f) = {kU, kU};
        PL_PNT2D_record r1 = {1, 1};
        PL_PNT2D_record r2 = {kU, kU};
        for (const PL_PNT2D_record& p : row.crossings)
            In::TrovaLimitiSegmento2(f, r1, r2, p);
        EXPECT_EQ(In::NumIntersez(f), static_cast<std::int32_t>(row.crossings.size()));
        EXPECT_POINT(r1, ({1, 1}));
        EXPECT_POINT(r2, (row.r2));
        EXPECT_POINT(In::PuntoMedio(f), ({kU, kU}));
    }
}

// Squares of distances that differ by a few last bits may have one root. Then the earlier crossing stays.
TEST(TrovaLimitiSegmento2, DecidesByRootsNotBySquares)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    int one_root = 0;
    for (int i = 0; i < 100000 && !HasFailure(); ++i) {
        CFrazArea f = bare();
        const PL_PNT2D_record r1 = {unit(random), unit(random)};
        const PL_PNT2D_record first = {unit(random), unit(random)};
        PL_PNT2D_record second = {r1.x + (first.y - r1.y),
                                  r1.y - (first.x - r1.x)};  // as far, but for rounding
        if (i % 2 == 0)
            second.x = std::nextafter(second.x, i % 4 == 0 ? 2.0 : -2.0);
        PL_PNT2D_record r2 = {kU, kU};
        In::TrovaLimitiSegmento2(f, r1, r2, first);
        In::TrovaLimitiSegmento2(f, r1, r2, second);
        EXPECT_POINT(r2, (In::CalcDist(f, r1, second) > In::CalcDist(f, r1, first) ? second : first));
        one_root += In::CalcDist(f, r1, second) == In::CalcDist(f, r1, first) ? 1 : 0;
    }
    EXPECT_GT(one_root, 1000);
}

// --- one side ---

// The square of 4 from its third vertex: (4, 4), (0, 4), (0, 0), (4, 0), (4, 4).
CFrazArea square_from_third_vertex()
{
    CFrazArea f = bare();
    In::NumPunti(f) = 4;
    In::IndiceInizio(f) = 2;
    In::VettPoligono(f) = {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}};
    In::VettIndici(f) = {2, 3, 0, 1, 2};
    return f;
}

struct SideRow {
    const char* what;
    int side;
    PL_IMP_LINE_2D_record line;
    bool want;
    PL_PNT2D_record out;
};

const SideRow kSideRows[] = {
    {"side 1 is the top", 1, {1, 0, -1}, true, {1, 4}},
    {"side 2 is the left one", 2, {0, 1, -3}, true, {0, 3}},
    {"side 3 is the bottom", 3, {1, 0, -1}, true, {1, 0}},
    {"side 4 is the right one, through the last index", 4, {0, 1, -3}, true, {4, 3}},
    {"a parallel writes nothing", 1, {0, 1, -3}, false, {kU, kU}},
    {"0.0009 beyond the end counts", 3, {1024, 0, -1024 * 4.0009765625}, true, {4.0009765625, 0}},
    {"0.002 beyond does not, and the point is there all the same",
     3,
     {1024, 0, -1024 * 4.001953125},
     false,
     {4.001953125, 0}},
};

TEST(TrovataIntersezValidaSegmConLato2, Table)
{
    for (const SideRow& row : kSideRows) {
        SCOPED_TRACE(row.what);
        const CFrazArea f = square_from_third_vertex();
        PL_PNT2D_record out = {kU, kU};
        EXPECT_EQ(In::TrovataIntersezValidaSegmConLato2(f, row.side, row.line, out), row.want);
        EXPECT_EQ(out.x, row.out.x);  // zeros of either sign
        EXPECT_EQ(out.y, row.out.y);
    }
}

// --- the area up to the trial line ---

// The square of 4 on the x axis, its bottom the base side, the trial line at half height.
CFrazArea square_at_half_height()
{
    CFrazArea f = bare();
    In::NumPunti(f) = 4;
    In::IndiceInizio(f) = 0;
    In::VettPoligono(f) = {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}};
    In::VettIndici(f) = {0, 1, 2, 3, 0};
    In::RettaBase(f) = {0, 4, 0};
    In::RettaMobile(f) = {0, 4, -8};
    In::DistLinea(f) = 2;
    In::AngLinea(f) = 100;
    return f;
}

TEST(CalcAreaDaPuntoPrimaDiVertice, WalksRoundAndKeepsWhatIsNotBeyond)
{
    CFrazArea f = square_at_half_height();
    In::NumIntersez(f) = 9;
    In::NumPuntiParz(f) = 9;
    In::VettParziale(f) = {{7, 7}, {7, 7}, {7, 7}};
    PL_PNT2D_record r1 = {kU, kU};
    PL_PNT2D_record r2 = {kU, kU};
    EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));

    EXPECT_POINT(r1, ({4, 2}));
    EXPECT_POINT(r2, ({-0.0, 2}));
    EXPECT_POINT(In::PuntoMedio(f), ({2, 2}));
    EXPECT_EQ(In::NumIntersez(f), 2);
    EXPECT_EQ(In::NumPuntiParz(f), 5);
    EXPECT_BITS(In::AreaParziale(f), 8.0);
    const Points want = {{0, 0}, {4, 0}, {4, 2}, {-0.0, 2}, {0, 0}};
    ASSERT_EQ(In::VettParziale(f).size(), want.size());
    for (std::size_t i = 0; i < want.size(); ++i)
        EXPECT_POINT(In::VettParziale(f)[i], (want[i]));
    // Only what it is given is written.
    EXPECT_POINT(In::PuntoRis1(f), ({0.0, 0.0}));
    EXPECT_POINT(In::PuntoRis2(f), ({0.0, 0.0}));
    EXPECT_BITS(In::DistLinea(f), 2.0);
    EXPECT_BITS(In::AngLinea(f), 100.0);
    EXPECT_FALSE(In::Trovato(f));
}

TEST(CalcAreaDaPuntoPrimaDiVertice, TheTrialLineHasItsOwnCoefficients)
{
    // Half height again, in other coefficients than the base line's.
    for (const double scale : {2.0, 0.5, -1.0}) {
        CFrazArea f = square_at_half_height();
        In::RettaMobile(f) = {0, 4 * scale, -8 * scale};
        PL_PNT2D_record r1 = {kU, kU};
        PL_PNT2D_record r2 = {kU, kU};
        EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
        EXPECT_BITS(In::AreaParziale(f), 8.0);
        EXPECT_DOUBLE_EQ(r1.x, 4.0);
        EXPECT_DOUBLE_EQ(r1.y, 2.0);
    }
}

TEST(CalcAreaDaPuntoPrimaDiVertice, BesideAnUprightSideAsWell)
{
    for (const double scale : {1.0, 2.0, 0.5, -1.0}) {
        CFrazArea f = square_at_half_height();
        In::IndiceInizio(f) = 3;
        In::VettIndici(f) = {3, 0, 1, 2, 3};
        In::RettaBase(f) = {4, 0, 0};
        In::RettaMobile(f) = {4 * scale, 0, -8 * scale};
        In::AngLinea(f) = 0;
        PL_PNT2D_record r1 = {kU, kU};
        PL_PNT2D_record r2 = {kU, kU};
        EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
        EXPECT_BITS(In::AreaParziale(f), 8.0);
        EXPECT_DOUBLE_EQ(r1.x, 2.0);
    }
}

TEST(CalcAreaDaPuntoPrimaDiVertice, TheBaseSideIsReadRoundTheRing)
{
    // The base side is the closing one; the copy of the first point is spoilt to show that it is not read.
    CFrazArea f = square_at_half_height();
    In::IndiceInizio(f) = 3;
    In::VettIndici(f) = {3, 0, 1, 2, 3};
    In::VettPoligono(f)[4] = {kU, kU};
    In::RettaBase(f) = {4, 0, 0};
    In::RettaMobile(f) = {4, 0, -4};
    In::DistLinea(f) = 1;
    In::AngLinea(f) = 0;
    PL_PNT2D_record r1 = {kU, kU};
    PL_PNT2D_record r2 = {kU, kU};
    EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
    EXPECT_BITS(In::AreaParziale(f), 4.0);
    EXPECT_POINT(In::VettParziale(f).at(0), ({0, 4}));
    EXPECT_POINT(In::VettParziale(f).at(1), ({0, 0}));
}

TEST(CalcAreaDaPuntoPrimaDiVertice, ALineThroughTheFarthestVertexCutsOffTheWholeParcel)
{
    CFrazArea f = bare();
    In::NumPunti(f) = 3;
    In::VettPoligono(f) = {{0, 0}, {4, 0}, {1, 3}, {0, 0}};
    In::VettIndici(f) = {0, 1, 2, 0};
    In::RettaBase(f) = {0, 4, 0};
    In::RettaMobile(f) = {0, 4, -12};
    In::DistLinea(f) = 3;
    In::AngLinea(f) = 100;
    PL_PNT2D_record r1 = {kU, kU};
    PL_PNT2D_record r2 = {kU, kU};
    EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
    EXPECT_BITS(In::AreaParziale(f), 6.0);
    EXPECT_EQ(In::NumPuntiParz(f), 6);  // base side, a crossing before and one behind the vertex, first point
}

struct BeyondRow {
    const char* what;
    double dist;
    double ang;
    bool beyond;  // the two upper vertices, at distance 4 and 100 gon
};

const BeyondRow kBeyondRows[] = {
    {"farther, and in the line's direction", 2, 100, true},
    {"as far as the line: not beyond", 4, 100, false},
    {"farther by an ulp", test::down(4), 100, true},
    {"nearer by an ulp", test::up(4), 100, false},
    {"on the band's lower end, 101 - 1", 2, 101, true},
    {"an ulp outside the lower end", 2, test::up(101), false},
    {"an ulp inside the lower end", 2, test::down(101), true},
    {"on the band's upper end, 99 + 1", 2, 99, true},
    {"an ulp outside the upper end", 2, test::down(99), false},
    {"an ulp inside the upper end", 2, test::up(99), true},
    {"the opposite direction", 2, 300, false},
    {"a turn further is not the same direction", 2, 500, false},
    {"a line at no distance, NaN", std::numeric_limits<double>::quiet_NaN(), 100, false},
    {"a line in no direction, NaN", 2, std::numeric_limits<double>::quiet_NaN(), false},
};

TEST(CalcAreaDaPuntoPrimaDiVertice, BeyondIsFartherWithinAGonOfTheLine)
{
    for (const BeyondRow& row : kBeyondRows) {
        SCOPED_TRACE(row.what);
        CFrazArea f = square_at_half_height();
        In::DistLinea(f) = row.dist;
        In::AngLinea(f) = row.ang;
        PL_PNT2D_record r1 = {};
        PL_PNT2D_record r2 = {};
        EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
        EXPECT_EQ(In::NumPuntiParz(f), row.beyond ? 5 : 7);
        EXPECT_BITS(In::AreaParziale(f), row.beyond ? 8.0 : 16.0);
    }
}

const BeyondRow kFoldRows[] = {
    // the vertices at distance 4 and 0 gon: the base side is the left one
    {"in the direction", 2, 0, true},
    {"on the band's lower end", 2, 1, true},
    {"an ulp outside it", 2, test::up(1), false},
    {"on its upper end, a gon below zero", 2, -1, true},
    {"an ulp outside that", 2, test::down(-1), false},
    {"399.5 is half a gon away on the circle, yet not in the band", 2, 399.5, false},
    {"nor is 400", 2, 400, false},
};

TEST(CalcAreaDaPuntoPrimaDiVertice, TheBandIsNotFoldedAtTheStartOfTheCircle)
{
    for (const BeyondRow& row : kFoldRows) {
        SCOPED_TRACE(row.what);
        CFrazArea f = square_at_half_height();
        In::IndiceInizio(f) = 3;
        In::VettIndici(f) = {3, 0, 1, 2, 3};
        In::RettaBase(f) = {4, 0, 0};
        In::RettaMobile(f) = {4, 0, -8};
        In::DistLinea(f) = row.dist;
        In::AngLinea(f) = row.ang;
        PL_PNT2D_record r1 = {};
        PL_PNT2D_record r2 = {};
        EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
        EXPECT_EQ(In::NumPuntiParz(f), row.beyond ? 5 : 7);
    }
}

TEST(CalcAreaDaPuntoPrimaDiVertice, ADirectionJustBelowATurnIsNotNearZero)
{
    // The base side leans by 1/128: its vertices are seen at 399.5 gon, a half from the line's 0.
    CFrazArea f = square_at_half_height();
    In::VettPoligono(f) = {{0.03125, 4}, {0, 0}, {4, 0}, {4, 4}, {0.03125, 4}};
    In::RettaBase(f) = {4, -0.03125, 0};
    In::RettaMobile(f) = {4, -0.03125, -8};
    PL_PNT2D_record r1 = {};
    PL_PNT2D_record r2 = {};
    In::AngLinea(f) = 399.5;
    EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
    EXPECT_EQ(In::NumPuntiParz(f), 5);
    In::AngLinea(f) = 0.0;
    EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
    EXPECT_EQ(In::NumPuntiParz(f), 7);
}

TEST(CalcAreaDaPuntoPrimaDiVertice, WhatLiesBehindTheBaseLineIsKept)
{
    // A tail to (-8, -8) before the base side, farther than the line, on the other side.
    CFrazArea f = bare();
    In::NumPunti(f) = 5;
    In::VettPoligono(f) = {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {-8, -8}, {0, 0}};
    In::VettIndici(f) = {0, 1, 2, 3, 4, 0};
    In::RettaBase(f) = {0, 4, 0};
    In::RettaMobile(f) = {0, 4, -8};
    In::DistLinea(f) = 2;
    In::AngLinea(f) = 100;
    PL_PNT2D_record r1 = {};
    PL_PNT2D_record r2 = {};
    EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
    EXPECT_EQ(In::NumPuntiParz(f), 6);
    EXPECT_POINT(In::VettParziale(f).at(4), ({-8, -8}));
}

}  // namespace
