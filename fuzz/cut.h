#pragma once

// What the three kinds of cut have in common: the request that an input holds, and what is asked of every
// answer. Each kind's harness asks of plainly convex parcels, on top, that the line holds the request.

#include <algorithm>
#include <cstdint>

#include "fuzz/check.h"
#include "fuzz/parcel.h"
#include "fuzz/reader.h"
#include "plcalc/subdivision.h"
#include "support/cut_inspector.h"

namespace fuzz {

/// A parcel and what is to be cut off it.
struct Request {
    Ring ring;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    int tipo_area;
    double valore1;
    double valore2;
    bool twice;          ///< ask copies, and objects that were asked before
    std::size_t side;    ///< where p1 was taken from; no meaning when ring is empty
    double convex_area;  ///< unsigned; 0 when the ring is not plainly convex, or the request not asked of it
};

/// The line that an object has found.
struct Cut {
    bool done;
    PL_PNT2D_record r1;
    PL_PNT2D_record r2;
};

inline double requested_area(const Request& r)
{
    return r.tipo_area == 0 ? r.valore2 * r.valore1 : r.valore1;
}

inline Request read_request(Reader& in)
{
    Request r = {};
    const int how = in.byte();
    const int part = in.byte();
    r.twice = how / 8 % 4 == 0;
    r.tipo_area = in.selector();
    r.ring = read_ring(in);
    if (!r.ring.empty()) {
        r.side = in.byte() % r.ring.size();
        r.p1 = r.ring[r.side];
        r.p2 = r.ring[index_after(r.ring, r.side)];
    }
    if (how % 8 == 0)
        r.p2 = in.point();
    if (how % 8 == 1)
        r.p1 = in.point();

    // A share of the parcel, up to a little more than all of it; or any number.
    r.valore2 = how < 192 ? 0.5 : in.number();
    r.valore1 = how < 192 ? std::fabs(area_of(r.ring)) * (part / 250.0) : in.number();
    if (how < 192 && r.tipo_area == 0)
        r.valore1 *= 2.0;
    Reader::noted(r.valore1);

    const bool own_side = how % 8 > 1;
    const bool stated = r.tipo_area == 0 || r.tipo_area == 1;
    if (own_side && stated && plainly_convex(r.ring)) {
        const double area = std::fabs(area_of(r.ring));
        if (within(requested_area(r), 0.02 * area, 0.98 * area))
            r.convex_area = area;
    }
    return r;
}

/// The working polygon is closed; what a search that was done has used is in its range.
inline void check_state(const CFrazArea& f, bool done)
{
    using In = CFrazAreaInspector;
    const std::size_t n = static_cast<std::size_t>(In::NumPunti(f));
    FUZZ_CHECK(In::NumPunti(f) >= 0 && In::VettPoligono(f).size() == n + 1 &&
               In::VettIndici(f).size() >= n + 1);
    FUZZ_CHECK(fuzz::same(In::VettPoligono(f).front(), In::VettPoligono(f).back()));
    FUZZ_CHECK(In::NumPuntiParz(f) == static_cast<std::int32_t>(In::VettParziale(f).size()));
    FUZZ_CHECK(In::AreaParziale(f) >= 0.0 || std::isnan(In::AreaParziale(f)));
    FUZZ_CHECK(In::DistLinea(f) >= 0.0 || std::isnan(In::DistLinea(f)));
    FUZZ_CHECK(fuzz::within(In::AngLinea(f), 0.0, 400.0) || std::isnan(In::AngLinea(f)));
    FUZZ_CHECK(fuzz::within(In::AngInizio(f), 0.0, 400.0) || std::isnan(In::AngInizio(f)));
    FUZZ_CHECK(In::AngAmpiezza(f) >= 0.0 || std::isnan(In::AngAmpiezza(f)));
    if (!done)
        return;
    FUZZ_CHECK(In::IndiceInizio(f) >= 0 && In::IndiceInizio(f) < In::NumPunti(f));
    for (std::size_t j = 0; j <= n; ++j)
        FUZZ_CHECK(In::VettIndici(f)[j] >= 0 && In::VettIndici(f)[j] < In::NumPunti(f));
    FUZZ_CHECK(In::VettParziale(f).size() <= 2 * n);
    FUZZ_CHECK(In::NumIntersez(f) >= 0 && In::NumIntersez(f) < In::NumPunti(f));
    if (In::Trovato(f) && In::AreaRichiesta(f) > 0.0)
        FUZZ_CHECK(std::fabs(In::AreaParziale(f) - In::AreaRichiesta(f)) <= 1.0001e-6 * In::AreaRichiesta(f));
}

inline Cut run(CFrazArea& object)
{
    Cut cut = {false, kNoPoint, kNoPoint};
    double z1 = kUntouched;
    double z2 = kUntouched;
    cut.done = object.Esegui(cut.r1.x, cut.r1.y, z1, cut.r2.x, cut.r2.y, z2);
    FUZZ_CHECK(positive_zero(z1) && positive_zero(z2));
    check_state(object, cut.done);
    return cut;
}

inline bool same(const Cut& got, const Cut& want)
{
    return got.done == want.done && same(got.r1, want.r1) && same(got.r2, want.r2);
}

/// Whether p1 and p2 follow each other in the ring, to the last bit.
inline bool has_side(const Request& r)
{
    for (std::size_t i = 0; i < r.ring.size(); ++i) {
        const PL_PNT2D_record& a = r.ring[i];
        const PL_PNT2D_record& b = r.ring[index_after(r.ring, i)];
        if (a.x == r.p1.x && a.y == r.p1.y && b.x == r.p2.x && b.y == r.p2.y)
            return true;
    }
    return false;
}

inline bool has_vertex(const Request& r)
{
    return std::any_of(r.ring.begin(), r.ring.end(),
                       [&r](const PL_PNT2D_record& v) { return v.x == r.p1.x && v.y == r.p1.y; });
}

/// Area of the part of a ring on the left of the line from a to b; for convex rings.
inline double area_left_of(const Ring& ring, const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    const auto side = [&](const PL_PNT2D_record& p) {
        return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
    };
    Ring part;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record& p = ring[i];
        const PL_PNT2D_record& q = ring[index_after(ring, i)];
        const double sp = side(p);
        const double sq = side(q);
        if (sp >= 0.0)
            part.push_back(p);
        if ((sp < 0.0) != (sq < 0.0)) {
            const double t = sp / (sp - sq);
            part.push_back({p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)});
        }
    }
    return std::fabs(area_of(part));
}

/// Area of the part of a convex ring on that side of the line on which a point lies.
inline double area_beside(const Ring& ring, const Cut& cut, const PL_PNT2D_record& point)
{
    const double across =
        (cut.r2.x - cut.r1.x) * (point.y - cut.r1.y) - (cut.r2.y - cut.r1.y) * (point.x - cut.r1.x);
    return across >= 0.0 ? area_left_of(ring, cut.r1, cut.r2) : area_left_of(ring, cut.r2, cut.r1);
}

/// How far the area held may be from the one asked for: the search's own tolerance on the area that it
/// searches, and a millimetre at either end of the line, up to which a line still meets a side.
inline double area_slack(const Request& r)
{
    return 1.1e-6 * r.convex_area + 0.002 * perimeter_of(r.ring);
}

/// Long enough to tell a direction: near an apex of the parcel the line has no length left.
inline bool has_direction(const Cut& cut)
{
    return apart(cut.r1, cut.r2) >= 0.1;
}

/// Asks of any request what holds for every kind of cut; the answer's own checks are the caller's.
inline Cut check_request(CFrazArea& object, const CPoint3dVector& parcel, const Request& r)
{
    // A copy answers like the original, before the search and after it.
    CFrazArea copy(object);
    const Cut cut = run(object);
    if (!cut.done)
        FUZZ_CHECK(same(cut.r1, {0.0, 0.0}) && same(cut.r2, {0.0, 0.0}));
    if (r.twice) {
        FUZZ_CHECK(same(run(copy), cut));
        CFrazArea after(copy);
        const Cut again = run(copy);
        FUZZ_CHECK(same(run(after), again));
    }

    FUZZ_CHECK(parcel.GetNoPoits() == static_cast<int>(r.ring.size()));
    for (int i = 0; i < parcel.GetNoPoits(); ++i) {
        const PL_PNT2D_record& p = r.ring[static_cast<std::size_t>(i)];
        FUZZ_CHECK(same({parcel.GetXcoordAt(i), parcel.GetYcoordAt(i)}, p));
    }
    return cut;
}

}  // namespace fuzz
