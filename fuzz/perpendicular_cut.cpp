// CFrazArea, mode 1: a line perpendicular to a side.

#include "fuzz/check.h"
#include "fuzz/cut.h"
#include "fuzz/reader.h"
#include "plcalc/subdivision.h"

namespace {

using fuzz::Cut;
using fuzz::Reader;
using fuzz::Request;

constexpr int kPerpendicular = 1;

// What lies ahead of the line, in the direction of a convex parcel's side, is what was asked for.
void check_ahead(const CFrazArea& object, const Request& r, const Cut& cut)
{
    FUZZ_CHECK(cut.done);
    // Across 0/400 gons the sides of the perpendicular are not told apart; and the search has nothing to hold
    // on to when the perpendicular through the middle is the answer.
    const double gon = CFrazAreaInspector::AngLinea(object);
    const double rest = CFrazAreaInspector::AreaRichiesta(object);
    if (!fuzz::within(gon, 2.0, 398.0) || rest < 0.02 * r.convex_area)
        return;
    FUZZ_CHECK(CFrazAreaInspector::Trovato(object));
    if (!fuzz::has_direction(cut))
        return;
    const double dx = r.p2.x - r.p1.x;
    const double dy = r.p2.y - r.p1.y;
    const double along = (cut.r2.x - cut.r1.x) * dx + (cut.r2.y - cut.r1.y) * dy;
    const double across = (cut.r2.x - cut.r1.x) * dy - (cut.r2.y - cut.r1.y) * dx;
    FUZZ_CHECK(std::fabs(along) <= 1e-5 * std::fabs(across));
    const double held = fuzz::area_beside(r.ring, cut, {cut.r1.x + dx, cut.r1.y + dy});
    FUZZ_CHECK(fuzz::near(held, fuzz::requested_area(r), fuzz::area_slack(r)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const Request r = fuzz::read_request(in);
    const CPoint3dVector parcel = fuzz::parcel_of(r.ring);

    CFrazArea object(parcel, r.p1, r.p2, kPerpendicular, r.tipo_area, r.valore1, r.valore2);
    const Cut cut = fuzz::check_request(object, parcel, r);
    FUZZ_CHECK(!cut.done || fuzz::has_side(r));
    // What is cut off either half is what the other one lacks, never less than nothing.
    if (cut.done)
        FUZZ_CHECK(!(CFrazAreaInspector::AreaRichiesta(object) < 0.0));
    if (r.convex_area > 0.0)
        check_ahead(object, r, cut);
    return 0;
}
