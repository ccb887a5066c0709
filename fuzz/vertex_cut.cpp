// CFrazArea, mode 2: a line through a vertex.

#include "fuzz/check.h"
#include "fuzz/cut.h"
#include "fuzz/reader.h"
#include "plcalc/subdivision.h"

namespace {

using fuzz::Cut;
using fuzz::Reader;
using fuzz::Request;

constexpr int kThroughVertex = 2;

// What lies between the line and the side after the vertex of a convex parcel is what was asked for.
void check_wedge(const CFrazArea& object, const Request& r, const Cut& cut)
{
    FUZZ_CHECK(CFrazAreaInspector::Trovato(object));
    if (!fuzz::has_direction(cut))
        return;
    const double held = fuzz::area_beside(r.ring, cut, r.ring[fuzz::index_after(r.ring, r.side)]);
    FUZZ_CHECK(fuzz::near(held, fuzz::requested_area(r), fuzz::area_slack(r)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const Request r = fuzz::read_request(in);
    const CPoint3dVector parcel = fuzz::parcel_of(r.ring);

    CFrazArea object(parcel, r.p1, r.p2, kThroughVertex, r.tipo_area, r.valore1, r.valore2);
    const Cut cut = fuzz::check_request(object, parcel, r);
    FUZZ_CHECK(cut.done == fuzz::has_vertex(r));
    if (cut.done)
        FUZZ_CHECK(fuzz::same(cut.r1, r.p1) || fuzz::equal(cut.r1, r.p1));
    if (r.convex_area > 0.0)
        check_wedge(object, r, cut);

    // The second point has no effect.
    if (r.twice) {
        CFrazArea other(parcel, r.p1, {fuzz::kUntouched, r.p1.y}, kThroughVertex, r.tipo_area, r.valore1,
                        r.valore2);
        FUZZ_CHECK(fuzz::same(fuzz::run(other), cut));
    }

    // Any wedge has an area.
    if (cut.done) {
        CFrazAreaInspector::AngInizio(object) = in.number();
        CFrazAreaInspector::AngAmpiezza(object) = in.number();
        FUZZ_CHECK(!(CFrazAreaInspector::CalcAreaDaVertice(object) < 0.0));
    }
    return 0;
}
