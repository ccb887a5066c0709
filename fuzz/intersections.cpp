// Intersections of lines and segments, and the segment's box.

#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "kernel/tolerance.h"
#include "lines/point_line.h"
#include "plcalc/lines.h"

namespace {

using fuzz::Reader;
using fuzz::same;

constexpr int kRcSamePoints = 2;

// In the box of a segment, widened.
bool in_box(const PL_LINE_2D_record& seg, const PL_PNT2D_record& p, double margin)
{
    return p.x >= std::fmin(seg.start.x, seg.end.x) - margin &&
           p.x <= std::fmax(seg.start.x, seg.end.x) + margin &&
           p.y >= std::fmin(seg.start.y, seg.end.y) - margin &&
           p.y <= std::fmax(seg.start.y, seg.end.y) + margin;
}

double size_of(const PL_LINE_2D_record& seg)
{
    return std::fabs(seg.start.x) + std::fabs(seg.start.y) + std::fabs(seg.end.x) + std::fabs(seg.end.y);
}

void check_ile(const PL_IMP_LINE_2D_record& l1, const PL_IMP_LINE_2D_record& l2)
{
    PL_PNT2D_record out = fuzz::kNoPoint;
    const bool meet = PlFunz_intersect_ile(&l1, &l2, &out);
    PL_PNT2D_record swapped = fuzz::kNoPoint;
    FUZZ_CHECK(PlFunz_intersect_ile(&l2, &l1, &swapped) == meet);
    FUZZ_CHECK(fuzz::equal(out, swapped));
    if (!meet)
        FUZZ_CHECK(same(out, fuzz::kNoPoint));

    PL_PNT2D_record with_itself = fuzz::kNoPoint;
    if (fuzz::all_finite({l1.a, l1.b, l1.c})) {
        FUZZ_CHECK(!PlFunz_intersect_ile(&l1, &l1, &with_itself));
        FUZZ_CHECK(same(with_itself, fuzz::kNoPoint));
    }

    // Well crossed, the point satisfies both equations.
    const double det = l1.a * l2.b - l2.a * l1.b;
    if (meet && fuzz::all_within(1e4, {l1.a, l1.b, l1.c, l2.a, l2.b, l2.c}) && std::fabs(det) >= 1.0) {
        FUZZ_CHECK(fuzz::near(l1.a * out.x + l1.b * out.y + l1.c, 0.0, 1e-2));
        FUZZ_CHECK(fuzz::near(l2.a * out.x + l2.b * out.y + l2.c, 0.0, 1e-2));
    }
}

void check_ils(const PL_IMP_LINE_2D_record& line, const PL_LINE_2D_record& seg)
{
    PL_PNT2D_record out = fuzz::kNoPoint;
    const bool meet = PlFunz_intersect_ils(&line, &seg, &out);

    PL_IMP_LINE_2D_record segment_line = fuzz::kNoLine;
    if (PlFunz_lineeq_ile(&seg.start, &seg.end, &segment_line) == kRcSamePoints) {
        FUZZ_CHECK(same(out, meet ? seg.start : fuzz::kNoPoint));
        FUZZ_CHECK(meet == (line.b * seg.start.y + line.a * seg.start.x == -line.c));
        return;
    }
    // Also when it lies outside the segment the point is there for the caller; it is untouched otherwise.
    PL_PNT2D_record of_lines = fuzz::kNoPoint;
    const bool lines_meet = PlFunz_intersect_ile(&line, &segment_line, &of_lines);
    FUZZ_CHECK(same(out, of_lines));
    FUZZ_CHECK(lines_meet || !meet);
    if (meet)
        FUZZ_CHECK(in_box(seg, out, 4e-7 * (size_of(seg) + 1.0)));
}

void check_ls(const PL_LINE_2D_record& s1, const PL_LINE_2D_record& s2)
{
    PL_PNT2D_record out = fuzz::kNoPoint;
    const bool meet = PlFunz_intersect_ls(&s1, &s2, &out);
    PL_PNT2D_record swapped = fuzz::kNoPoint;
    FUZZ_CHECK(PlFunz_intersect_ls(&s2, &s1, &swapped) == meet);
    if (!meet) {
        FUZZ_CHECK(same(out, fuzz::kNoPoint) && same(swapped, fuzz::kNoPoint));
        return;
    }
    FUZZ_CHECK(fuzz::snapped(out) && fuzz::snapped(swapped));
    if (fuzz::all_within(1e100, {s1.start, s1.end, s2.start, s2.end})) {
        FUZZ_CHECK(in_box(s1, out, 4e-7 * (size_of(s1) + 1.0)));
        FUZZ_CHECK(in_box(s2, swapped, 4e-7 * (size_of(s2) + 1.0)));
    }
}

void check_segbox(const PL_LINE_2D_record& seg, const PL_PNT2D_record& p)
{
    const bool inside = PlFunz_pnt_in_segbox(&seg, &p);
    if (!fuzz::all_finite({seg.start, seg.end, p}))
        return;
    if (inside)
        FUZZ_CHECK(in_box(seg, p, 4e-7 * (size_of(seg) + 1.0)));
    FUZZ_CHECK(PlFunz_pnt_in_segbox(&seg, &seg.start));
    FUZZ_CHECK(PlFunz_pnt_in_segbox(&seg, &seg.end));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const PL_IMP_LINE_2D_record l1 = in.line();
    const PL_IMP_LINE_2D_record l2 = in.line();
    const PL_LINE_2D_record s1 = in.segment();
    const PL_LINE_2D_record s2 = in.segment();
    const PL_PNT2D_record p = in.point();

    check_ile(l1, l2);
    check_ils(l1, s1);
    check_ls(s1, s2);
    check_segbox(s1, p);

    // Lines as applications have them: the line of one segment with the other one.
    PL_IMP_LINE_2D_record through = {};
    if (PlFunz_lineeq_ile(&s2.start, &s2.end, &through) == 0) {
        check_ile(l1, through);
        check_ils(through, s1);
        check_ils(through, {p, p});
    }
    return 0;
}
