// Where a segment meets an arc, with the circle-segment intersection and the boxes behind it.

#include "arcs/arc_segment.h"
#include "arcs/circle_segment.h"
#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "plcalc/arcs.h"

namespace {

using fuzz::Reader;
using fuzz::same;
using fuzz::within;

constexpr int kRcSamePoints = 2;
constexpr int kRcNoDirection = 4;

// A touch counts up to 1e-7 in squared lengths: on a circle of no size that is a third of a millimetre.
constexpr double kTouch = 4e-4;

// On the circle and in the segment's box; for segments with a direction.
void check_lies(const ARC_2D_record& arc, const PL_LINE_2D_record& seg, const PL_PNT2D_record& q)
{
    const double size =
        std::fabs(seg.start.x) + std::fabs(seg.start.y) + std::fabs(seg.end.x) + std::fabs(seg.end.y) + 1.0;
    FUZZ_CHECK(within(q.x, std::fmin(seg.start.x, seg.end.x) - 4e-7 * size,
                      std::fmax(seg.start.x, seg.end.x) + 4e-7 * size));
    FUZZ_CHECK(within(q.y, std::fmin(seg.start.y, seg.end.y) - 4e-7 * size,
                      std::fmax(seg.start.y, seg.end.y) + 4e-7 * size));
    FUZZ_CHECK(fuzz::near(fuzz::apart(arc.centre, q), std::fabs(arc.radius), kTouch));
}

void check_arc_segment(const ARC_2D_record& arc, const PL_LINE_2D_record& seg)
{
    PL_PNT2D_record q1 = fuzz::kNoPoint;
    PL_PNT2D_record q2 = fuzz::kNoPoint;
    int n = fuzz::kUntouchedInt;
    const bool meet = PlFunz_intarcline_ls(&arc, &seg, &q1, &q2, &n);
    FUZZ_CHECK(n >= 0 && n <= 2);
    FUZZ_CHECK(meet == (n > 0));
    if (n == 0)
        FUZZ_CHECK(same(q1, fuzz::kNoPoint));
    if (n < 2)
        FUZZ_CHECK(same(q2, fuzz::kNoPoint));

    const double dx = seg.end.x - seg.start.x;
    const double dy = seg.end.y - seg.start.y;
    if (std::fabs(dx) <= PL_EPS && std::fabs(dy) <= PL_EPS)
        FUZZ_CHECK(n == 0);

    if (meet && fuzz::all_within(1e5, {arc.centre, seg.start, seg.end}) && std::fabs(arc.radius) <= 1e5 &&
        dx * dx + dy * dy >= 1e-4) {
        check_lies(arc, seg, q1);
        if (n == 2) {
            check_lies(arc, seg, q2);
            FUZZ_CHECK(fuzz::apart(seg.start, q1) <= fuzz::apart(seg.start, q2) + 0.1);
        }
    }
}

void check_circle_segment(const PL_CIRCLE_2D_record& circle, const PL_LINE_2D_record& seg)
{
    PL_PNT2D_record q1 = fuzz::kNoPoint;
    PL_PNT2D_record q2 = fuzz::kNoPoint;
    int n = fuzz::kUntouchedInt;
    const bool meet = PlFunz_intcircleseg(&circle, &seg, &q1, &q2, &n);
    FUZZ_CHECK(n >= 0 && n <= 2 && meet == (n > 0));

    PL_PARAM_LINE_2D_record line = {fuzz::kUntouched, fuzz::kUntouched, fuzz::kUntouched, fuzz::kUntouched};
    const int rc = PlFunz_param_line_2p(&seg.start, &seg.end, &line);
    FUZZ_CHECK(rc == 0 || rc == kRcSamePoints);
    if (rc == kRcSamePoints) {
        FUZZ_CHECK(line.x == fuzz::kUntouched && line.dx == fuzz::kUntouched && n == 0);
        return;
    }
    const PL_PARAM_LINE_2D_record before = line;
    const double length2 = line.dx * line.dx + line.dy * line.dy;
    const int rc_normalise = PlFunz_param_line_normalise(&line);
    FUZZ_CHECK(rc_normalise == (length2 <= PL_EPS ? kRcNoDirection : 0));
    FUZZ_CHECK(same(line.x, before.x) && same(line.y, before.y));
    if (rc_normalise == kRcNoDirection)
        FUZZ_CHECK(same(line.dx, before.dx) && same(line.dy, before.dy));
    else if (std::isfinite(length2))
        FUZZ_CHECK(fuzz::near(line.dx * line.dx + line.dy * line.dy, 1.0, 1e-14));
}

void check_boxes(const PL_RECT_2D_record& rect, const PL_LINE_2D_record& a, const PL_LINE_2D_record& b)
{
    const int inside = PlFunz_pnt_in_rect(&rect, &a.start);
    FUZZ_CHECK(inside == 0 || inside == 1);
    const int relation = PlFunz_seg_relation(&a, &b);
    FUZZ_CHECK(relation >= 0 && relation <= 2);
    FUZZ_CHECK(same(PlFunz_rad_to_deg(rect.xmin), rect.xmin * 57.2957795131));

    PL_RECT_2D_record box = fuzz::kNoRect;
    PlFunz_seg_rect(&a, &box);
    FUZZ_CHECK(same(box.xmin, a.start.x) || same(box.xmin, a.end.x));
    FUZZ_CHECK(same(box.xmax, a.start.x) || same(box.xmax, a.end.x));
    FUZZ_CHECK(same(box.ymin, a.start.y) || same(box.ymin, a.end.y));
    FUZZ_CHECK(same(box.ymax, a.start.y) || same(box.ymax, a.end.y));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const ARC_2D_record arc = in.arc();
    const PL_LINE_2D_record a = in.segment();
    const PL_LINE_2D_record b = in.segment();

    check_arc_segment(arc, a);
    check_arc_segment(arc, b);
    check_circle_segment({arc.centre.x, arc.centre.y, arc.radius}, a);
    check_boxes({b.start.x, b.start.y, b.end.x, b.end.y}, a, b);
    return 0;
}
