// Plane transformation matrices: builders in any order and number, and their use on points.

#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "plcalc/kernel.h"

namespace {

using fuzz::Reader;
using fuzz::same;

constexpr int kMostSteps = 8;

struct Matrix {
    double m[3][3];
};

bool same(const Matrix& got, const Matrix& want)
{
    for (int i = 0; i < 9; ++i)
        if (!fuzz::same(got.m[i / 3][i % 3], want.m[i / 3][i % 3]))
            return false;
    return true;
}

bool equal(const Matrix& got, const Matrix& want)
{
    for (int i = 0; i < 9; ++i)
        if (!fuzz::equal(got.m[i / 3][i % 3], want.m[i / 3][i % 3]))
            return false;
    return true;
}

bool finite(const Matrix& matrix)
{
    for (const auto& row : matrix.m)
        if (!fuzz::all_finite({row[0], row[1], row[2]}))
            return false;
    return true;
}

PL_PNT2D_record image(const Matrix& matrix, const PL_PNT2D_record& p)
{
    PL_PNT2D_record out = fuzz::kNoPoint;
    PlFunz_transformpnt2d(matrix.m, &p, &out);
    return out;
}

Matrix identity()
{
    Matrix matrix;
    for (auto& row : matrix.m)
        for (double& v : row)
            v = fuzz::kUntouched;
    PlFunz_getidmatrix2d(matrix.m);
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            FUZZ_CHECK(same(matrix.m[r][c], r == c ? 1.0 : 0.0));
    return matrix;
}

// One builder onto M.
void build(int which, double a, double b, const PL_PNT2D_record& centre, Matrix& matrix)
{
    if (which == 0)
        PlFunz_rotationmatrix2d(a, &centre, matrix.m);
    else if (which == 1)
        PlFunz_translatematrix2d(a, b, matrix.m);
    else
        PlFunz_scalematrix2d(a, b, &centre, matrix.m);
}

// What a builder does to the identity.
void check_builder(int which, double a, double b, const PL_PNT2D_record& centre, const PL_PNT2D_record& p)
{
    Matrix matrix = identity();
    build(which, a, b, centre, matrix);
    if (which == 2 && a <= 1e-7 && b <= 1e-7 && fuzz::all_finite({centre}))
        FUZZ_CHECK(equal(matrix, identity()));
    if (!fuzz::all_within(1e6, {a, b}) || !fuzz::all_within(1e6, {centre, p}))
        return;

    const PL_PNT2D_record moved = image(matrix, p);
    if (which == 1) {
        FUZZ_CHECK(fuzz::equal(moved, {p.x + a, p.y + b}));
        return;
    }
    const double factor = which == 2 ? std::fabs(a) + std::fabs(b) : 1.0;
    const double slack = 1e-8 * (1.0 + factor);
    const PL_PNT2D_record stayed = image(matrix, centre);
    FUZZ_CHECK(fuzz::near(stayed.x, centre.x, slack) && fuzz::near(stayed.y, centre.y, slack));
    if (which == 0)
        FUZZ_CHECK(fuzz::near(fuzz::apart(moved, centre), fuzz::apart(p, centre), slack));
}

// The ways to apply a matrix agree, read nothing but two columns, and change nothing else.
void check_use(const Matrix& matrix, const PL_PNT2D_record& p)
{
    const Matrix before = matrix;
    const PL_PNT2D_record out = image(matrix, p);
    double x = fuzz::kUntouched;
    double y = fuzz::kUntouched;
    TrasfPt(matrix.m, p.x, p.y, x, y);
    FUZZ_CHECK(same(out, {x, y}));
    FUZZ_CHECK(same(matrix, before));

    double over_x = p.x;
    double over_y = p.y;
    TrasfPt(matrix.m, over_x, over_y, over_x, over_y);
    FUZZ_CHECK(same(out, {over_x, over_y}));

    // In place, y comes from the new x.
    PL_PNT2D_record in_place = p;
    PlFunz_transformpnt2d(matrix.m, &in_place, &in_place);
    FUZZ_CHECK(same(in_place.x, out.x));
    FUZZ_CHECK(same(in_place.y, image(matrix, {out.x, p.y}).y));

    Matrix other_column = matrix;
    for (auto& row : other_column.m)
        row[2] = fuzz::kUntouched;
    FUZZ_CHECK(same(image(other_column, p), out));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const PL_PNT2D_record p = in.point();

    Matrix matrix = identity();
    const int steps = in.below(kMostSteps + 1);
    for (int step = 0; step < steps; ++step) {
        const int which = in.below(3);
        const double a = in.angle();
        const double b = in.number();
        const PL_PNT2D_record centre = in.point();
        check_builder(which, a, b, centre, p);

        const bool was_finite = finite(matrix);
        build(which, a, b, centre, matrix);
        // The builders' own third column is that of the identity: it stays, whatever stands beside it.
        if (was_finite)
            FUZZ_CHECK(matrix.m[0][2] == 0.0 && matrix.m[1][2] == 0.0 && matrix.m[2][2] == 1.0);
        check_use(matrix, p);
    }

    Matrix any;
    for (auto& row : any.m)
        for (double& v : row)
            v = in.number();
    check_use(any, p);
    return 0;
}
