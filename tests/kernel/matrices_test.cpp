#include "plcalc/kernel.h"

#include <cmath>
#include <cstring>

#include "kernel/near.h"

namespace {

using test::kInf;
using test::kNan;
using test::kUntouched;

struct Matrix {
    double m[3][3];
};

void expect_matrix(const double (&got)[3][3], const Matrix& want)
{
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) {
            SCOPED_TRACE(::testing::Message() << "row " << r << ", column " << c);
            EXPECT_BITS(got[r][c], want.m[r][c]);
        }
}

PL_PNT2D_record image(const double (&M)[3][3], PL_PNT2D_record in)
{
    PL_PNT2D_record out = {kUntouched, kUntouched};
    PlFunz_transformpnt2d(M, &in, &out);
    return out;
}

// No row or column is that of an identity, so that every product of a composition shows.
constexpr Matrix kCounting = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};

// Three rows between two more, which nobody may touch.
struct GuardedMatrix {
    double rows[5][3];

    GuardedMatrix()
    {
        for (auto& row : rows)
            for (double& entry : row)
                entry = kUntouched;
    }

    double (*matrix())[3] { return rows + 1; }

    void expect_guards_untouched() const
    {
        for (int c = 0; c < 3; ++c) {
            EXPECT_BITS(rows[0][c], kUntouched);
            EXPECT_BITS(rows[4][c], kUntouched);
        }
    }
};

TEST(IdentityMatrix, FillsAllNine)
{
    GuardedMatrix guarded;
    PlFunz_getidmatrix2d(guarded.matrix());
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            EXPECT_BITS(guarded.matrix()[r][c], r == c ? 1.0 : 0.0);
    guarded.expect_guards_untouched();
}

TEST(Matrices, BuildersWriteNothingButTheMatrix)
{
    GuardedMatrix guarded;
    const PL_PNT2D_record centre = {10, 100};
    PlFunz_getidmatrix2d(guarded.matrix());
    PlFunz_rotationmatrix2d(30, &centre, guarded.matrix());
    PlFunz_translatematrix2d(10, 20, guarded.matrix());
    PlFunz_scalematrix2d(2, 4, &centre, guarded.matrix());
    guarded.expect_guards_untouched();
}

TEST(Matrices, TheThirdColumnIsMultipliedToo)
{
    // Infinity times the zeros of the third column, and the sum of zeros that has lost its sign.
    Matrix M = {{{kInf, 2, 3}, {4, kInf, 6}, {7, 8, -0.0}}};
    PlFunz_translatematrix2d(1, 1, M.m);
    expect_matrix(M.m, {{{kInf, kNan, kNan}, {kNan, kInf, kNan}, {7, 8, 0.0}}});
}

TEST(TranslateMatrix, MultipliesFromTheRight)
{
    Matrix M = kCounting;
    PlFunz_translatematrix2d(10, 20, M.m);
    // Row r becomes r0 + 10 r2, r1 + 20 r2, r2.
    expect_matrix(M.m, {{{31, 62, 3}, {64, 125, 6}, {97, 188, 9}}});
}

TEST(TranslateMatrix, AddsToTheShiftOfAnIdentity)
{
    double M[3][3];
    PlFunz_getidmatrix2d(M);
    PlFunz_translatematrix2d(10, 20, M);
    PlFunz_translatematrix2d(-0.5, 0.25, M);
    expect_matrix(M, {{{1, 0, 0}, {0, 1, 0}, {9.5, 20.25, 1}}});
}

struct ScaleRow {
    const char* what;
    double sx;
    double sy;
    PL_PNT2D_record centre;
    Matrix want;  // built onto the identity
};

const Matrix kIdentity = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

const ScaleRow kScaleRows[] = {
    {"both zero: not scaled", 0, 0, {3, 4}, kIdentity},
    {"both negative: a mirror in both axes is not a scaling", -1, -1, {3, 4}, kIdentity},
    {"both on the threshold: not scaled", 1e-7, 1e-7, {3, 4}, kIdentity},
    {"x the next double above: both are used",
     0x1.ad7f29abcaf49p-24,
     1e-7,
     {4, 4},
     {{{0x1.ad7f29abcaf49p-24, 0, 0}, {0, 1e-7, 0}, {3.9999996, 3.9999996, 1}}}},
    {"y the next double above: both are used",
     1e-7,
     0x1.ad7f29abcaf49p-24,
     {4, 4},
     {{{1e-7, 0, 0}, {0, 0x1.ad7f29abcaf49p-24, 0}, {3.9999996, 3.9999996, 1}}}},
    {"only x zero: x collapses onto the centre", 0, 2, {3, 4}, {{{0, 0, 0}, {0, 2, 0}, {3, -4, 1}}}},
    {"only y zero: y collapses onto the centre", 2, 0, {3, 4}, {{{2, 0, 0}, {0, 0, 0}, {-3, 4, 1}}}},
    {"a mirror in one axis is one", -1, 1, {3, 4}, {{{-1, 0, 0}, {0, 1, 0}, {6, 0, 1}}}},
    {"a mirror in the other", 1, -1, {3, 4}, {{{1, 0, 0}, {0, -1, 0}, {0, 8, 1}}}},
    {"both minus infinite: not scaled", -kInf, -kInf, {3, 4}, kIdentity},
    {"twice and four times", 2, 4, {10, 100}, {{{2, 0, 0}, {0, 4, 0}, {-10, -300, 1}}}},
    {"last bit: one minus the factor, then times the centre",
     1.1,
     0.7,
     {87.55, 93.44},
     {{{1.1, 0, 0}, {0, 0.7, 0}, {-0x1.1828f5c28f5c7p+3, 0x1.c083126e978d6p+4, 1}}}},
};

TEST(ScaleMatrix, Table)
{
    for (const ScaleRow& row : kScaleRows) {
        SCOPED_TRACE(row.what);
        double M[3][3];
        PlFunz_getidmatrix2d(M);
        PlFunz_scalematrix2d(row.sx, row.sy, &row.centre, M);
        expect_matrix(M, row.want);
    }
}

TEST(ScaleMatrix, NotScaledLeavesAnyMatrixAsItIs)
{
    const PL_PNT2D_record centre = {3, 4};
    for (const double factor : {0.0, -1.0, 1e-7}) {
        Matrix M = kCounting;
        PlFunz_scalematrix2d(factor, factor, &centre, M.m);
        expect_matrix(M.m, kCounting);
    }
}

TEST(ScaleMatrix, MultipliesFromTheRight)
{
    Matrix M = kCounting;
    const PL_PNT2D_record centre = {10, 100};
    PlFunz_scalematrix2d(2, 4, &centre, M.m);
    // Row r becomes 2 r0 - 10 r2, 4 r1 - 300 r2, r2.
    expect_matrix(M.m, {{{-28, -892, 3}, {-52, -1780, 6}, {-76, -2668, 9}}});
}

TEST(ScaleMatrix, ANaNFactorIsUsed)
{
    double M[3][3];
    PlFunz_getidmatrix2d(M);
    const PL_PNT2D_record centre = {0, 0};
    PlFunz_scalematrix2d(kNan, 0, &centre, M);
    EXPECT_BITS(M[0][0], kNan);
    EXPECT_BITS(M[1][1], 0.0);
}

struct RotationRow {
    const char* what;
    double deg;
    double x;  // centre
    double y;
    double c;
    double s;
    double tx;
    double ty;
};

// Sines and cosines come from a computation with sixty digits, rounded once.
const RotationRow kRotationRows[] = {
    {"nothing turned", 0.0, 3, 4, 1, 0.0, 0.0, 0.0},
    {"a quarter turn about the origin: the cosine is 3e-13", 90, 0.0, 0.0, 0x1.4e11a62633146p-42, 1, 0.0,
     0.0},
    {"a quarter turn about a centre", 90, 1, 1, 0x1.4e11a62633146p-42, 1, 0x1.ffffffffffac8p+0, -0x1.4ep-42},
    {"clockwise", -90, 2, 3, 0x1.4e11a62633146p-42, -1, -0x1.0000000000a71p+0, 0x1.3fffffffffc16p+2},
    {"half a turn: the sine is 6e-13", 180, 10, 20, -1, 0x1.4e11a62633146p-41, 0x1.4000000000d0dp+4,
     0x1.3fffffffffcbdp+5},
    {"three quarters", 270, 10, -20, -0x1.f51a79394c9e9p-41, -1, 0x1.e0000000009cap+4, -0x1.4000000002726p+3},
    {"a full turn: the sine is -1.2e-12", 360, 1000, 2000, 1, -0x1.4e11a62633146p-40, -0x1.463d3c414de1ep-29,
     0x1.464p-30},
    {"thirty degrees", 30, 500, -700, 0x1.bb67ae8584e68p-1, 0x1.ffffffffff9fap-2, -0x1.1b03406e63874p+8,
     -0x1.57c83f65741ddp+8},
    {"a thousand degrees", 1000, 5, 7, 0x1.63a1a7e09aab6p-3, -0x1.f838b8c81303bp-1, -0x1.6185c7d4519c2p+1,
     0x1.56ac0b61f5066p+3},
    {"far away", 33, 400000, 5000000, 0x1.ad663a8ae31f1p-1, 0x1.16daed77073e7p-1, 0x1.544c77954ac0cp+21,
     0x1.1f7ef17b041dp+19},
};

TEST(RotationMatrix, Table)
{
    for (const RotationRow& row : kRotationRows) {
        SCOPED_TRACE(row.what);
        double M[3][3];
        PlFunz_getidmatrix2d(M);
        const PL_PNT2D_record centre = {row.x, row.y};
        PlFunz_rotationmatrix2d(row.deg, &centre, M);
        const double reach = std::fabs(centre.x) + std::fabs(centre.y);
        // The platform's sine and cosine may be one double off; the shifts are sums of their products.
        EXPECT_NEAR_BITS(M[0][0], row.c, 1);
        EXPECT_NEAR_BITS(M[0][1], row.s, 1);
        EXPECT_BITS(M[1][0], 0.0 - M[0][1]);
        EXPECT_BITS(M[1][1], M[0][0]);
        EXPECT_NEAR(M[2][0], row.tx, 2e-16 * reach);
        EXPECT_NEAR(M[2][1], row.ty, 2e-16 * reach);
        for (int r = 0; r < 3; ++r)
            EXPECT_BITS(M[r][2], r == 2 ? 1.0 : 0.0);
    }
}

TEST(RotationMatrix, InfiniteAnglesHaveNoRotation)
{
    const PL_PNT2D_record centre = {1, 2};
    for (const double deg : {kInf, -kInf, kNan}) {
        double M[3][3];
        PlFunz_getidmatrix2d(M);
        PlFunz_rotationmatrix2d(deg, &centre, M);
        for (const auto& row : M) {
            EXPECT_BITS(row[0], kNan);
            EXPECT_BITS(row[1], kNan);
        }
        EXPECT_BITS(M[2][2], 1.0);
    }
}

// The rotation's own matrix, each operation rounded by itself, with the platform's sine and cosine.
Matrix rotation(double deg, const PL_PNT2D_record& centre)
{
    const double rad = deg * 0x1.1df46a2529983p-6;
    const double s = std::sin(rad);
    const double c = std::cos(rad);
    const double rest = 1.0 - c;
    const double rest_x = rest * centre.x;
    const double y_s = centre.y * s;
    const double y_c = centre.y * c;
    const double x_s = centre.x * s;
    const double turned_y = y_c + x_s;
    return {{{c, s, 0}, {-s, c, 0}, {rest_x + y_s, centre.y - turned_y, 1}}};
}

TEST(RotationMatrix, IsMultipliedFromTheRightTermByTermFromTheLeft)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> number(-1000, 1000);
    for (int i = 0; i < 5000; ++i) {
        const double deg = number(random);
        const PL_PNT2D_record centre = {number(random), number(random)};
        const Matrix T = rotation(deg, centre);
        Matrix M;
        for (auto& row : M.m)
            for (double& entry : row)
                entry = number(random);

        Matrix want;
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c) {
                const double first = M.m[r][0] * T.m[0][c];
                const double second = M.m[r][1] * T.m[1][c];
                const double third = M.m[r][2] * T.m[2][c];
                const double sum = first + second;
                want.m[r][c] = sum + third;
            }
        PlFunz_rotationmatrix2d(deg, &centre, M.m);
        expect_matrix(M.m, want);
    }
}

TEST(RotationMatrix, QuarterTurnAboutTheOrigin)
{
    double M[3][3];
    PlFunz_getidmatrix2d(M);
    const PL_PNT2D_record origin = {0, 0};
    PlFunz_rotationmatrix2d(90, &origin, M);
    const PL_PNT2D_record p = image(M, {1, 0});
    EXPECT_NEAR_BITS(p.x, 0x1.4e11a62633146p-42, 1);  // the short factor stays below the quarter turn
    EXPECT_NEAR_BITS(p.y, 1.0, 1);
}

TEST(RotationMatrix, QuarterTurnAboutACentreWhichStays)
{
    double M[3][3];
    PlFunz_getidmatrix2d(M);
    const PL_PNT2D_record centre = {1, 1};
    PlFunz_rotationmatrix2d(90, &centre, M);
    const PL_PNT2D_record fixed = image(M, {1, 1});
    EXPECT_NEAR(fixed.x, 1, 3e-16);
    EXPECT_NEAR(fixed.y, 1, 3e-16);
    const PL_PNT2D_record p = image(M, {2, 1});
    EXPECT_NEAR(p.x, 1 + 0x1.4e11a62633146p-42, 3e-16);
    EXPECT_NEAR(p.y, 2, 5e-16);
}

TEST(Matrices, ComposeInTheOrderOfTheCalls)
{
    const PL_PNT2D_record origin = {0, 0};
    double M[3][3];
    PlFunz_getidmatrix2d(M);
    PlFunz_translatematrix2d(10, 20, M);
    PlFunz_rotationmatrix2d(90, &origin, M);
    PL_PNT2D_record p = image(M, {0, 0});
    EXPECT_NEAR(p.x, -20, 1e-11);  // 3e-13 per unit from the short factor
    EXPECT_NEAR(p.y, 10, 1e-11);

    PlFunz_getidmatrix2d(M);
    PlFunz_rotationmatrix2d(90, &origin, M);
    PlFunz_translatematrix2d(10, 20, M);
    p = image(M, {0, 0});
    EXPECT_POINT(p, ({10, 20}));
}

struct TransformRow {
    const char* what;
    Matrix M;
    PL_PNT2D_record in;
    PL_PNT2D_record want;
};

const TransformRow kTransformRows[] = {
    {"row vector times matrix", {{{1, 2, 0}, {3, 4, 0}, {5, 6, 1}}}, {10, 100}, {315, 426}},
    {"the third column is not read", {{{1, 2, kNan}, {3, 4, kInf}, {5, 6, 0}}}, {10, 100}, {315, 426}},
    {"collapsed onto x = 3, y doubled from 4", {{{0, 0, 0}, {0, 2, 0}, {3, -4, 1}}}, {50, 6}, {3, 8}},
    {"y's product first, then x's, the shift last: 2^53 swallows the 1",
     {{{1, 1, 0}, {0x1p53, 0x1p53, 0}, {-0x1p53, -0x1p53, 1}}},
     {1, 1},
     {0, 0}},
    {"the shift is not added to x's product first",
     {{{0x1p53, 0x1p53, 0}, {-0x1p53, -0x1p53, 0}, {1, 1, 1}}},
     {1, 1},
     {1, 1}},
    {"last bits, never fused",
     {{{9.18, 7.71, 0}, {9.84, 8.47, 0}, {6.59, 4.59, 1}}},
     {31.97, 51.02},
     {0x1.910e425aee633p+9, 0x1.559beab367a11p+9}},
    {"a NaN shift reaches only its axis", {{{1, 0, 0}, {0, 1, 0}, {kNan, 2, 1}}}, {1, 1}, {kNan, 3}},
    {"infinity times the zero of an identity is no number",
     {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
     {kInf, 1},
     {kInf, kNan}},
    {"-0.0 meets the +0.0 of the shift", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {-0.0, -0.0}, {0.0, 0.0}},
};

TEST(TransformPoint, Table)
{
    for (const TransformRow& row : kTransformRows) {
        SCOPED_TRACE(row.what);
        EXPECT_POINT(image(row.M.m, row.in), (row.want));

        double x = kUntouched;
        double y = kUntouched;
        TrasfPt(row.M.m, row.in.x, row.in.y, x, y);
        EXPECT_POINT((PL_PNT2D_record{x, y}), (row.want));

        // The pair may be transformed in place.
        x = row.in.x;
        y = row.in.y;
        TrasfPt(row.M.m, x, y, x, y);
        EXPECT_POINT((PL_PNT2D_record{x, y}), (row.want));
    }
}

TEST(TransformPoint, InPlaceYComesFromTheNewX)
{
    const Matrix quarter_turn = {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}};
    PL_PNT2D_record p = {1, 0};
    PlFunz_transformpnt2d(quarter_turn.m, &p, &p);
    EXPECT_POINT(p, ({0, 0}));
    EXPECT_POINT(image(quarter_turn.m, {1, 0}), ({0, 1}));

    const Matrix shear = {{{2, 3, 0}, {5, 7, 0}, {11, 13, 1}}};
    p = {1, 10};
    PlFunz_transformpnt2d(shear.m, &p, &p);
    EXPECT_POINT(p, ({63, 272}));  // 7 * 10 + 3 * 63 + 13
    EXPECT_POINT(image(shear.m, {1, 10}), ({63, 86}));
}

TEST(TransformPoint, InPlaceQuarterTurnInDegrees)
{
    double M[3][3];
    PlFunz_getidmatrix2d(M);
    const PL_PNT2D_record origin = {0, 0};
    PlFunz_rotationmatrix2d(90, &origin, M);
    PL_PNT2D_record p = {1, 0};
    PlFunz_transformpnt2d(M, &p, &p);
    EXPECT_NEAR_BITS(p.x, 0x1.4e11a62633146p-42, 1);
    EXPECT_NEAR_BITS(p.y, 0x1.4e11a62633146p-42, 1);
}

TEST(Matrices, RotationKeepsDistancesAndComposesWithTheOthers)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> coordinate(-1000, 1000);
    std::uniform_real_distribution<double> degrees(-720, 720);
    std::uniform_real_distribution<double> factor(0.1, 10);
    for (int i = 0; i < 5000; ++i) {
        const PL_PNT2D_record p = {coordinate(random), coordinate(random)};
        const PL_PNT2D_record q = {coordinate(random), coordinate(random)};
        const PL_PNT2D_record centre = {coordinate(random), coordinate(random)};
        const double deg = degrees(random);
        const double dx = coordinate(random);
        const double dy = coordinate(random);
        const double sx = factor(random);
        const double sy = factor(random);

        double R[3][3];
        PlFunz_getidmatrix2d(R);
        PlFunz_rotationmatrix2d(deg, &centre, R);
        const PL_PNT2D_record turned_p = image(R, p);
        const PL_PNT2D_record turned_q = image(R, q);
        EXPECT_NEAR(PlFunz_distance(&turned_p, &turned_q), PlFunz_distance(&p, &q), 1e-11);
        const PL_PNT2D_record turned_centre = image(R, centre);
        EXPECT_NEAR(turned_centre.x, centre.x, 1e-11);
        EXPECT_NEAR(turned_centre.y, centre.y, 1e-11);

        // Anticlockwise: the direction from the centre grows by the angle.
        const double before = PlFunz_arctan_rad(p.x - centre.x, p.y - centre.y);
        const double after = PlFunz_arctan_rad(turned_p.x - centre.x, turned_p.y - centre.y);
        const double turn = std::remainder(after - before - deg * 0.017453292519943295, 0x1.921fb54442d18p+2);
        EXPECT_NEAR(turn, 0.0, 1e-7 / PlFunz_distance(&p, &centre) + 1e-10);

        // Step by step is the same as at once.
        double S[3][3];
        PlFunz_getidmatrix2d(S);
        PlFunz_scalematrix2d(sx, sy, &centre, S);
        double T[3][3];
        PlFunz_getidmatrix2d(T);
        PlFunz_translatematrix2d(dx, dy, T);
        const PL_PNT2D_record stepwise = image(T, image(S, turned_p));

        double all[3][3];
        PlFunz_getidmatrix2d(all);
        PlFunz_rotationmatrix2d(deg, &centre, all);
        PlFunz_scalematrix2d(sx, sy, &centre, all);
        PlFunz_translatematrix2d(dx, dy, all);
        const PL_PNT2D_record at_once = image(all, p);
        EXPECT_NEAR(at_once.x, stepwise.x, 1e-10);
        EXPECT_NEAR(at_once.y, stepwise.y, 1e-10);
        EXPECT_BITS(all[0][2], 0.0);
        EXPECT_BITS(all[1][2], 0.0);
        EXPECT_BITS(all[2][2], 1.0);
    }
}

}  // namespace
