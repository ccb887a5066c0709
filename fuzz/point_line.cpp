// Signed distance of a point from a segment's line, and collinearity.

#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "plcalc/lines.h"

namespace {

using fuzz::Reader;

// A line of 0.1 or more between its points counts as one through the origin up to this distance.
constexpr double kThroughOrigin = 1.1e-6;

void check_distance(const PL_PNT2D_record& p, const PL_LINE_2D_record& seg)
{
    const double dist = PlFunz_distpntln_ls(&p, &seg);
    const double dx = seg.end.x - seg.start.x;
    const double dy = seg.end.y - seg.start.y;
    if (std::fabs(dx) <= PL_EPS && std::fabs(dy) <= PL_EPS) {
        FUZZ_CHECK(dist >= 0.0 || std::isnan(dist));
        FUZZ_CHECK(fuzz::same(dist, PlFunz_distance(&p, &seg.start)));
        return;
    }
    const double length2 = dx * dx + dy * dy;
    if (!fuzz::all_within(1e6, {p, seg.start, seg.end}) || length2 < 1e-2)
        return;

    // The products of the constant term are rounded before the line is normalised.
    const double size = std::fabs(p.x) + std::fabs(p.y) + std::fabs(seg.start.x) + std::fabs(seg.start.y) +
                        std::fabs(seg.end.x) + std::fabs(seg.end.y);
    const double slack = 1e-14 * (size + 1.0) * (size + 1.0) / std::sqrt(length2) + 1e-12 * size;
    const double across = (p.y - seg.start.y) * dx - (p.x - seg.start.x) * dy;
    FUZZ_CHECK(fuzz::near(std::fabs(dist), std::fabs(across) / std::sqrt(length2), slack));

    // Positive on the far side of the line from the origin, in whichever direction the segment runs.
    const PL_LINE_2D_record back = {seg.end, seg.start};
    const double from_back = PlFunz_distpntln_ls(&p, &back);
    const PL_PNT2D_record origin = {0.0, 0.0};
    const double of_origin = PlFunz_distpntln_ls(&origin, &seg);
    FUZZ_CHECK(of_origin <= kThroughOrigin);
    if (of_origin < -kThroughOrigin)
        FUZZ_CHECK(fuzz::equal(dist, from_back));
}

void check_collinear(const PL_PNT2D_record& p0, const PL_PNT2D_record& p1, const PL_PNT2D_record& p2)
{
    PlFunz_pnts_in_line(&p0, &p1, &p2);
    FUZZ_CHECK(PlFunz_pnts_in_line(&p0, &p1, &p1));
    const double dx = p1.x - p0.x;
    const double dy = p1.y - p0.y;
    if (!fuzz::all_within(1e6, {p0, p1}) || dx * dx + dy * dy < 1.0)
        return;

    // Ahead and behind on the same line. Not near the axes: there the fold ends, and directions are drawn to
    // the axis from more or less far.
    const bool near_an_axis = std::fabs(dy) < 1e-3 * std::fabs(dx) || std::fabs(dx) < 1e-3 * std::fabs(dy);
    const PL_PNT2D_record ahead = {p0.x + 2.0 * dx, p0.y + 2.0 * dy};
    const PL_PNT2D_record behind = {p0.x - dx, p0.y - dy};
    const PL_PNT2D_record beside = {p0.x - dy, p0.y + dx};
    if (!near_an_axis) {
        FUZZ_CHECK(PlFunz_pnts_in_line(&p0, &p1, &ahead));
        FUZZ_CHECK(PlFunz_pnts_in_line(&p0, &p1, &behind));
    }
    FUZZ_CHECK(!PlFunz_pnts_in_line(&p0, &p1, &beside));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const PL_PNT2D_record p = in.point();
    const PL_LINE_2D_record seg = in.segment();
    check_distance(p, seg);
    check_collinear(p, seg.start, seg.end);
    check_collinear(seg.start, seg.end, p);
    return 0;
}
