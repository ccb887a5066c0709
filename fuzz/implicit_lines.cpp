// Implicit lines: through two points, normal form, perpendicular and parallel, y of x and x of y.

#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "plcalc/lines.h"

namespace {

using fuzz::Reader;
using fuzz::same;

constexpr int kRcSamePoints = 2;
constexpr int kRcNoNormal = 3;

double value_at(const PL_IMP_LINE_2D_record& line, const PL_PNT2D_record& p)
{
    return line.a * p.x + line.b * p.y + line.c;
}

// What rounding may make of the equation: relative to its terms, and a little for a coordinate that underflows.
double rounding_at(const PL_IMP_LINE_2D_record& line, const PL_PNT2D_record& p)
{
    return 1e-14 * (std::fabs(line.a * p.x) + std::fabs(line.b * p.y) + std::fabs(line.c)) +
           1e-300 * (1.0 + std::fabs(line.a) + std::fabs(line.b));
}

void check_lineeq(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    PL_IMP_LINE_2D_record line = fuzz::kNoLine;
    const int rc = PlFunz_lineeq_ile(&p, &q, &line);
    FUZZ_CHECK(rc == 0 || rc == kRcSamePoints);
    PL_IMP_LINE_2D_record back = fuzz::kNoLine;
    FUZZ_CHECK(PlFunz_lineeq_ile(&q, &p, &back) == rc);
    if (rc == kRcSamePoints) {
        FUZZ_CHECK(same(line, fuzz::kNoLine) && same(back, fuzz::kNoLine));
        FUZZ_CHECK(std::fabs(p.x - q.x) <= PL_EPS && std::fabs(p.y - q.y) <= PL_EPS);
        return;
    }
    FUZZ_CHECK(fuzz::equal(line.a, -back.a) && fuzz::equal(line.b, -back.b) && fuzz::equal(line.c, -back.c));
    if (fuzz::all_within(1e100, {p, q})) {
        const double rounding = 1e-14 * (std::fabs(p.x) + std::fabs(p.y)) * (std::fabs(q.x) + std::fabs(q.y));
        FUZZ_CHECK(fuzz::near(value_at(line, p), 0.0, rounding + rounding_at(line, p)));
        FUZZ_CHECK(fuzz::near(value_at(line, q), 0.0, rounding + rounding_at(line, q)));
        // (a, b) points to the left of the direction p to q.
        FUZZ_CHECK(line.a * (q.x - p.x) + line.b * (q.y - p.y) == 0.0);
        FUZZ_CHECK(line.b * (q.x - p.x) - line.a * (q.y - p.y) > 0.0);
    }
}

void check_normal(const PL_IMP_LINE_2D_record& line)
{
    PL_IMP_LINE_2D_record normal = line;
    const int rc = PlFunz_normal_ile(&normal);
    FUZZ_CHECK(rc == 0 || rc == kRcNoNormal);
    const double length2 = line.a * line.a + line.b * line.b;
    if (rc == kRcNoNormal) {
        FUZZ_CHECK(same(normal, line) && length2 <= PL_EPS);
        return;
    }
    FUZZ_CHECK(!(length2 <= PL_EPS));
    if (!std::isfinite(length2) || !std::isfinite(line.c))
        return;
    FUZZ_CHECK(fuzz::near(normal.a * normal.a + normal.b * normal.b, 1.0, 1e-14));
    if (std::fabs(line.c) > PL_EPS)
        FUZZ_CHECK(normal.c <= 0.0);
    else
        FUZZ_CHECK(normal.b >= 0.0 || std::fabs(line.b) <= PL_EPS);
}

void check_through_point(const PL_IMP_LINE_2D_record& line, const PL_PNT2D_record& p)
{
    PL_IMP_LINE_2D_record across = fuzz::kNoLine;
    PlFunz_linepntperpend(&line, &p, &across);
    FUZZ_CHECK(same(across.a, line.b) && same(across.b, -line.a));
    PL_IMP_LINE_2D_record along = fuzz::kNoLine;
    PlFunz_linepntparallel(&along, &p, &line);
    FUZZ_CHECK(same(along.a, line.a) && same(along.b, line.b));

    // The result may be the record of the line.
    PL_IMP_LINE_2D_record over = line;
    PlFunz_linepntperpend(&over, &p, &over);
    FUZZ_CHECK(same(over, across));
    over = line;
    PlFunz_linepntparallel(&over, &p, &over);
    FUZZ_CHECK(same(over, along));

    if (fuzz::all_within(1e100, {line.a, line.b, p.x, p.y})) {
        FUZZ_CHECK(fuzz::near(value_at(across, p), 0.0, rounding_at(across, p)));
        FUZZ_CHECK(fuzz::near(value_at(along, p), 0.0, rounding_at(along, p)));
    }
}

void check_evaluation(const PL_IMP_LINE_2D_record& line, double at)
{
    const double y = PlFunz_ordinate_ile(&line, at);
    const double x = PlFunz_abscissa_ile(&line, at);
    if (std::fabs(line.b) <= PL_EPS)
        FUZZ_CHECK(fuzz::positive_zero(y));
    if (std::fabs(line.a) <= PL_EPS)
        FUZZ_CHECK(fuzz::positive_zero(x));
    if (fuzz::all_finite({line.a, line.b, line.c, at}))
        FUZZ_CHECK(!std::isnan(x) && !std::isnan(y));
    if (fuzz::all_within(1e100, {line.a, line.b, line.c, at})) {
        if (std::fabs(line.b) > PL_EPS)
            FUZZ_CHECK(fuzz::near(value_at(line, {at, y}), 0.0, rounding_at(line, {at, y})));
        if (std::fabs(line.a) > PL_EPS)
            FUZZ_CHECK(fuzz::near(value_at(line, {x, at}), 0.0, rounding_at(line, {x, at})));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const PL_PNT2D_record p = in.point();
    const PL_PNT2D_record q = in.point();
    const PL_IMP_LINE_2D_record line = in.line();
    const double at = in.number();

    check_lineeq(p, q);
    check_normal(line);
    check_through_point(line, p);
    check_evaluation(line, at);

    // The same of a line as applications have it.
    PL_IMP_LINE_2D_record through = {};
    if (PlFunz_lineeq_ile(&p, &q, &through) == 0) {
        check_normal(through);
        check_through_point(through, q);
        check_evaluation(through, at);
    }
    return 0;
}
