// Point in polygon.

#include <memory>

#include "fuzz/check.h"
#include "fuzz/parcel.h"
#include "fuzz/reader.h"
#include "plcalc/arcs.h"

namespace {

using fuzz::Reader;
using fuzz::Ring;

// Whether a point is inside a plainly convex ring; -1 when it is near the boundary or level with a vertex.
int clearly_inside(const PL_PNT2D_record& p, const Ring& ring)
{
    constexpr double kClear = 0.1;
    if (!fuzz::all_within(1e4, {p}))
        return -1;
    const double sense = fuzz::area_of(ring) < 0.0 ? -1.0 : 1.0;
    bool inside = true;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record& a = ring[i];
        const PL_PNT2D_record& b = ring[fuzz::index_after(ring, i)];
        if (std::fabs(a.y - p.y) < kClear)
            return -1;
        const double off = sense * fuzz::turn(a, b, p) / fuzz::apart(a, b);
        if (std::fabs(off) < kClear)
            return -1;
        inside = inside && off > 0.0;
    }
    return inside ? 1 : 0;
}

bool in_line(double a, double b)
{
    return std::fabs(a - b) <= (std::fabs(b) + 1.0) * PL_EPS;
}

// A ring that begins inside a horizontal or vertical run of vertices is not to be relied on.
bool begins_in_a_run(const Ring& ring)
{
    const PL_PNT2D_record& before = ring.back();
    const PL_PNT2D_record& after = ring[1];
    return (in_line(before.y, ring[0].y) && in_line(ring[0].y, after.y)) ||
           (in_line(before.x, ring[0].x) && in_line(ring[0].x, after.x));
}

// has_answer: the ring is plainly convex and begins at a corner, so that clearly_inside is to be met.
void check(const PL_PNT2D_record& p, const Ring& ring, int hint, bool has_answer)
{
    // Exactly as much memory as there are vertices: a read outside is seen.
    const std::unique_ptr<PL_PNT2D_record[]> vertices(new PL_PNT2D_record[ring.size()]);
    std::copy(ring.begin(), ring.end(), vertices.get());
    const int n = static_cast<int>(ring.size());

    int rightmost = hint;
    const bool inside = PlFunz_inpolygon(&p, vertices.get(), &n, &rightmost);
    for (int i = 0; i < n; ++i)
        FUZZ_CHECK(fuzz::same(vertices[static_cast<std::size_t>(i)], ring[static_cast<std::size_t>(i)]));
    if (n < 3) {
        FUZZ_CHECK(!inside && rightmost == hint);
        return;
    }
    FUZZ_CHECK(rightmost >= 0 && rightmost < n);
    if (hint > 0 && hint < n)
        FUZZ_CHECK(rightmost == hint);

    const int first = rightmost;
    FUZZ_CHECK(PlFunz_inpolygon(&p, vertices.get(), &n, &rightmost) == inside);
    FUZZ_CHECK(rightmost == first);

    // 0 and an index outside the ring are one: the vertex is searched.
    int unknown = 0;
    const bool found = PlFunz_inpolygon(&p, vertices.get(), &n, &unknown);
    if (hint <= 0 || hint >= n)
        FUZZ_CHECK(found == inside && unknown == first);
    const int wanted = has_answer ? clearly_inside(p, ring) : -1;
    if (wanted >= 0)
        FUZZ_CHECK(found == (wanted == 1));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const int hint = in.byte() < 128 ? in.below(32) - 4 : in.any_int();
    const int few = in.byte() < 128 ? in.below(6) - 3 : in.any_int();
    const Ring ring = fuzz::read_ring(in);
    const PL_PNT2D_record p = in.point();
    const bool has_answer = fuzz::plainly_convex(ring) && !begins_in_a_run(ring);
    check(p, ring, hint, has_answer);

    // Level with a vertex, and in the middle of things rather than at any place.
    for (const PL_PNT2D_record& vertex : ring)
        check({p.x, vertex.y}, ring, hint, has_answer);
    if (ring.size() >= 3) {
        const PL_PNT2D_record& a = ring[0];
        const PL_PNT2D_record& b = ring[1];
        const PL_PNT2D_record& c = ring[2];
        check({(a.x + b.x + c.x) / 3.0, (a.y + b.y + c.y) / 3.0}, ring, 0, has_answer);
    }

    // Fewer than three vertices, and numbers that are none: nothing is read.
    if (few < 3) {
        int rightmost = hint;
        FUZZ_CHECK(!PlFunz_inpolygon(&p, nullptr, &few, &rightmost) && rightmost == hint);
    }
    return 0;
}
