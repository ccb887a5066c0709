// The surveying intersections and segment tests.

#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "plcalc/lines.h"
#include "plcalc/survey.h"

namespace {

using fuzz::Reader;
using fuzz::same;

constexpr double kMargin = 0.001;

bool within_limits(double v, double a, double b, double margin)
{
    return v >= std::fmin(a, b) - margin && v <= std::fmax(a, b) + margin;
}

void check_limits(double v, const PL_PNT2D_record& p, const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    const bool inside = TrovatoValNeiLimiti(v, a.x, b.x);
    FUZZ_CHECK(inside == TrovatoValNeiLimiti(v, b.x, a.x));
    if (std::isnan(v) || std::isnan(a.x) || std::isnan(b.x))
        FUZZ_CHECK(!inside);
    else if (within_limits(v, a.x, b.x, 0.0) && fuzz::all_finite({a.x, b.x}))
        FUZZ_CHECK(inside);
    else if (fuzz::all_within(1e9, {v, a.x, b.x}) && !within_limits(v, a.x, b.x, kMargin + 1e-6))
        FUZZ_CHECK(!inside);

    const bool in_box = TrovatoPuntoInSegmento(p, a, b);
    FUZZ_CHECK(in_box == TrovatoPuntoInSegmento(p, b, a));
    FUZZ_CHECK(in_box == (TrovatoValNeiLimiti(p.x, a.x, b.x) && TrovatoValNeiLimiti(p.y, a.y, b.y)));
}

void check_lines(const PL_IMP_LINE_2D_record& l1, const PL_IMP_LINE_2D_record& l2)
{
    PL_PNT2D_record out = fuzz::kNoPoint;
    PL_PNT2D_record want = fuzz::kNoPoint;
    FUZZ_CHECK(CalcoloIntersezioneRette(l1, l2, out) == PlFunz_intersect_ile(&l1, &l2, &want));
    FUZZ_CHECK(same(out, want));
}

// On both lines of two points each, when they cross well.
void check_on_both(const PL_PNT2D_record (&p)[4], const PL_PNT2D_record& out)
{
    const double d1 = fuzz::apart(p[0], p[1]);
    const double d2 = fuzz::apart(p[2], p[3]);
    const double cross = (p[1].x - p[0].x) * (p[3].y - p[2].y) - (p[1].y - p[0].y) * (p[3].x - p[2].x);
    if (!fuzz::all_within(1e4, {p[0], p[1], p[2], p[3]}) || d1 < 1.0 || d2 < 1.0 ||
        std::fabs(cross) < 0.01 * d1 * d2)
        return;
    const double off1 = (out.y - p[0].y) * (p[1].x - p[0].x) - (out.x - p[0].x) * (p[1].y - p[0].y);
    const double off2 = (out.y - p[2].y) * (p[3].x - p[2].x) - (out.x - p[2].x) * (p[3].y - p[2].y);
    FUZZ_CHECK(std::fabs(off1) <= 1e-4 * d1);
    FUZZ_CHECK(std::fabs(off2) <= 1e-4 * d2);
}

void check_points(const PL_PNT2D_record (&p)[4])
{
    double x = fuzz::kUntouched;
    double y = fuzz::kUntouched;
    if (CalcoloIntersezioneRette(p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y, p[3].x, p[3].y, x, y))
        check_on_both(p, {x, y});
    else
        FUZZ_CHECK(same({x, y}, p[0]));
    // A side without length meets nothing.
    if (PlFunz_samepnt(&p[0], &p[1]) && fuzz::all_within(1e100, {p[0], p[2], p[3]}))
        FUZZ_CHECK(same({x, y}, p[0]));

    double ext_x = fuzz::kUntouched;
    double ext_y = fuzz::kUntouched;
    if (CalcoloIntersezioneRetteExt(p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y, p[3].x, p[3].y, ext_x,
                                    ext_y))
        check_on_both(p, {ext_x, ext_y});
    else
        FUZZ_CHECK(same({ext_x, ext_y}, fuzz::kNoPoint));

    // A line coincides with itself, and the answer is its second point.
    if (fuzz::all_within(1e100, {p[0], p[1]})) {
        FUZZ_CHECK(CalcoloIntersezioneRetteExt(p[0].x, p[0].y, p[1].x, p[1].y, p[0].x, p[0].y, p[1].x, p[1].y,
                                               ext_x, ext_y));
        FUZZ_CHECK(fuzz::equal({ext_x, ext_y}, {(p[1].x - p[0].x) + p[0].x, (p[1].y - p[0].y) + p[0].y}));
    }
}

void check_ordinate(const PL_PNT2D_record& a, const PL_PNT2D_record& b, double x)
{
    const double y = CalcCoordYsuSegmento(a.x, a.y, b.x, b.y, x);
    if (std::fabs(b.x - a.x) <= PL_EPS)
        FUZZ_CHECK(fuzz::positive_zero(y));
    if (fuzz::all_within(1e100, {a.x, a.y, b.x, b.y, x}))
        FUZZ_CHECK(!std::isnan(y));
    if (fuzz::all_within(1e4, {a.x, a.y, b.x, b.y, x}) && std::fabs(b.x - a.x) >= 1.0) {
        const double want = a.y + (x - a.x) / (b.x - a.x) * (b.y - a.y);
        FUZZ_CHECK(fuzz::near(y, want, 1e-4));
    }
}

void check_cut(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_IMP_LINE_2D_record& line)
{
    PL_PNT2D_record out = fuzz::kNoPoint;
    const bool cut = IntersezLineaInSegmOK(a, b, line, out);
    PL_IMP_LINE_2D_record segment_line = {};
    PlFunz_lineeq_ile(&a, &b, &segment_line);
    PL_PNT2D_record want = fuzz::kNoPoint;
    const bool meet = PlFunz_intersect_ile(&segment_line, &line, &want);
    // Written also when the point lies outside the segment, and only then.
    FUZZ_CHECK(same(out, want));
    FUZZ_CHECK(cut == (meet && TrovatoPuntoInSegmento(want, a, b)));
}

// One end of each segment moves to a common point, or nothing moves.
void check_trim(const PL_PNT2D_record (&p)[4])
{
    PL_PNT2D_record q[4] = {p[0], p[1], p[2], p[3]};
    if (!CimaSegm(&q[0], &q[1], &q[2], &q[3])) {
        for (int i = 0; i < 4; ++i)
            FUZZ_CHECK(same(q[i], p[i]));
        return;
    }
    FUZZ_CHECK(same(q[0], p[0]) || same(q[1], p[1]));
    FUZZ_CHECK(same(q[2], p[2]) || same(q[3], p[3]));
    bool common = false;
    for (int i = 0; i < 2; ++i)
        for (int j = 2; j < 4; ++j)
            common = common || same(q[i], q[j]);
    FUZZ_CHECK(common);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    PL_PNT2D_record p[4];
    for (PL_PNT2D_record& point : p)
        point = in.point();
    const double v = in.number();
    const PL_IMP_LINE_2D_record l1 = in.line();
    const PL_IMP_LINE_2D_record l2 = in.line();

    check_limits(v, p[2], p[0], p[1]);
    check_lines(l1, l2);
    check_points(p);
    check_ordinate(p[0], p[1], v);
    check_cut(p[0], p[1], l1);
    PL_IMP_LINE_2D_record through = {};
    PlFunz_lineeq_ile(&p[2], &p[3], &through);
    check_cut(p[0], p[1], through);
    check_trim(p);
    return 0;
}
