// CFrazArea, mode 0: a strip along a side. Unknown modes too.

#include "fuzz/check.h"
#include "fuzz/cut.h"
#include "fuzz/reader.h"
#include "plcalc/subdivision.h"
#include "plcalc/survey.h"

namespace {

using fuzz::Cut;
using fuzz::Reader;
using fuzz::Request;

constexpr int kParallel = 0;

void check_unknown_mode(const CPoint3dVector& parcel, const Request& r, int modo)
{
    if (modo >= 0 && modo <= 2)
        return;
    CFrazArea object(parcel, r.p1, r.p2, modo, r.tipo_area, r.valore1, r.valore2);
    FUZZ_CHECK(!fuzz::check_request(object, parcel, r).done);
}

// The strip between a convex parcel's side and the line is what was asked for.
void check_strip(const CFrazArea& object, const Request& r, const Cut& cut)
{
    // Across 0/400 gons the sides of the base line are not told apart.
    const double gon = CFrazAreaInspector::AngLinea(object);
    if (!fuzz::within(gon, 2.0, 398.0))
        return;
    FUZZ_CHECK(CFrazAreaInspector::Trovato(object));
    if (!fuzz::has_direction(cut))
        return;
    const double along =
        (cut.r2.x - cut.r1.x) * (r.p2.x - r.p1.x) + (cut.r2.y - cut.r1.y) * (r.p2.y - r.p1.y);
    const double across =
        (cut.r2.x - cut.r1.x) * (r.p2.y - r.p1.y) - (cut.r2.y - cut.r1.y) * (r.p2.x - r.p1.x);
    FUZZ_CHECK(std::fabs(across) <= 1e-5 * std::fabs(along));
    const PL_PNT2D_record middle = {(r.p1.x + r.p2.x) * 0.5, (r.p1.y + r.p2.y) * 0.5};
    const double held = fuzz::area_beside(r.ring, cut, middle);
    FUZZ_CHECK(fuzz::near(held, fuzz::requested_area(r), fuzz::area_slack(r)));
}

// The private operations that no search calls, on any line.
void check_private_operations(CFrazArea& object, const Request& r, Reader& in)
{
    using Inspector = CFrazAreaInspector;
    PL_PNT2D_record q = {in.number(), in.number()};
    Inspector::TrovatoPuntoMaxEtMedioConPuntoPrec(object, q);

    const double a = in.number();
    const double b = in.number();
    const PL_IMP_LINE_2D_record line = {a, b, in.number()};
    Inspector::RettaMobile(object) = line;
    PL_PNT2D_record r1 = {};
    PL_PNT2D_record r2 = {};
    FUZZ_CHECK(Inspector::CalcAreaDaPuntoPrimaDiVertice(object, r1, r2));
    FUZZ_CHECK(!(Inspector::AreaParziale(object) < 0.0));

    const std::int32_t points = Inspector::NumPuntiParz(object);
    Inspector::IncrementaVett(object, q);
    FUZZ_CHECK(Inspector::NumPuntiParz(object) == points + 1);
    FUZZ_CHECK(fuzz::same(Inspector::VettParziale(object).back(), q));

    const std::size_t n = r.ring.size();
    const std::size_t start = static_cast<std::size_t>(Inspector::IndiceInizio(object));
    for (std::size_t i = 1; i <= n; ++i) {
        PL_PNT2D_record got = {};
        PL_PNT2D_record want = {};
        const bool meets =
            IntersezLineaInSegmOK(r.ring[(start + i - 1) % n], r.ring[(start + i) % n], line, want);
        FUZZ_CHECK(Inspector::TrovataIntersezValidaSegmConLato2(object, static_cast<int>(i), line, got) ==
                   meets);
        FUZZ_CHECK(fuzz::same(got, want));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const int modo = in.selector();
    const Request r = fuzz::read_request(in);
    const CPoint3dVector parcel = fuzz::parcel_of(r.ring);

    CFrazArea object(parcel, r.p1, r.p2, kParallel, r.tipo_area, r.valore1, r.valore2);
    const Cut cut = fuzz::check_request(object, parcel, r);
    FUZZ_CHECK(cut.done == (fuzz::has_side(r) && r.ring.size() >= 2));
    if (r.convex_area > 0.0)
        check_strip(object, r, cut);
    check_unknown_mode(parcel, r, modo);
    if (cut.done)
        check_private_operations(object, r, in);
    return 0;
}
