// The subdivision as it is, against its literal evaluation: results and working values, bit by bit.

#include <gtest/gtest.h>

#include <cstdlib>

#include "plcalc/subdivision.h"
#include "reference/adversaries.h"
#include "reference/literal_cut.h"
#include "support/bits.h"

struct CFrazAreaInspector {
    // Every member but the parcel.
    static void compare(const CFrazArea& got, const reference::LiteralCut& want)
    {
        compare_request(got, want);
        compare_line(got, want);
        compare_search(got, want);
    }

private:
    static void compare_request(const CFrazArea& got, const reference::LiteralCut& want)
    {
        EXPECT_POINT(got.PuntoLato1, (want.PuntoLato1));
        EXPECT_POINT(got.PuntoLato2, (want.PuntoLato2));
        EXPECT_EQ(got.Modo, want.Modo);
        EXPECT_EQ(got.TipoArea, want.TipoArea);
        EXPECT_BITS(got.Valore1, want.Valore1);
        EXPECT_BITS(got.Valore2, want.Valore2);
        EXPECT_BITS(got.AreaRichiesta, want.AreaRichiesta);
        EXPECT_POINT(got.PuntoVertice, (want.PuntoVertice));
    }

    static void compare_line(const CFrazArea& got, const reference::LiteralCut& want)
    {
        EXPECT_POINT(got.PuntoRis1, (want.PuntoRis1));
        EXPECT_POINT(got.PuntoRis2, (want.PuntoRis2));
        EXPECT_POINT(got.PuntoMedio, (want.PuntoMedio));
        EXPECT_BITS(got.DistLinea, want.DistLinea);
        EXPECT_BITS(got.AngLinea, want.AngLinea);
        EXPECT_BITS(got.AngInizio, want.AngInizio);
        EXPECT_BITS(got.AngAmpiezza, want.AngAmpiezza);
        EXPECT_LINE(got.RettaBase, (want.RettaBase));
        EXPECT_LINE(got.RettaMobile, (want.RettaMobile));
        EXPECT_LINE(got.RettaAux, (want.RettaAux));
    }

    static void compare_search(const CFrazArea& got, const reference::LiteralCut& want)
    {
        EXPECT_EQ(got.Trovato, want.Trovato);
        EXPECT_BITS(got.AreaParziale, want.AreaParziale);
        EXPECT_EQ(got.NumIntersez, want.NumIntersez);
        EXPECT_EQ(got.NumPuntiParz, want.NumPuntiParz);
        EXPECT_EQ(got.NumPunti, want.NumPunti);
        EXPECT_EQ(got.IndiceInizio, want.IndiceInizio);
        EXPECT_EQ(got.VettIndici, want.VettIndici);
        compare_points(got.VettPoligono, want.VettPoligono);
        compare_points(got.VettParziale, want.VettParziale);
    }

    static void compare_points(const std::vector<PL_PNT2D_record>& got,
                               const std::vector<PL_PNT2D_record>& want)
    {
        ASSERT_EQ(got.size(), want.size());
        for (std::size_t i = 0; i < want.size(); ++i)
            EXPECT_POINT(got[i], (want[i]));
    }
};

namespace {

constexpr int kDefaultParcels = 33'000;

int parcels()
{
    const char* chosen = std::getenv("PLCALC_PARCELS");
    return chosen != nullptr ? std::atoi(chosen) : kDefaultParcels;
}

// A request, and the literal form of it.
class Pair {
public:
    explicit Pair(const reference::Request& request)
        : ring_(container(request.ring)), cut_(ring_, request.p1, request.p2, request.modo, request.tipo_area,
                                               request.valore1, request.valore2),
          want_(request.ring, request.p1, request.p2, request.modo, request.tipo_area, request.valore1,
                request.valore2)
    {}

    // Whether the line meets the request.
    bool run()
    {
        const bool done = want_.run();
        PL_PNT2D_record end1 = {test::kUntouched, test::kUntouched};
        PL_PNT2D_record end2 = end1;
        double z1 = test::kUntouched;
        double z2 = test::kUntouched;
        EXPECT_EQ(cut_.Esegui(end1.x, end1.y, z1, end2.x, end2.y, z2), done);
        EXPECT_POINT(end1, (want_.PuntoRis1));
        EXPECT_POINT(end2, (want_.PuntoRis2));
        EXPECT_BITS(z1, 0.0);
        EXPECT_BITS(z2, 0.0);
        CFrazAreaInspector::compare(cut_, want_);
        return want_.Trovato;
    }

private:
    static CPoint3dVector container(const std::vector<PL_PNT2D_record>& ring)
    {
        CPoint3dVector points;
        for (const PL_PNT2D_record& p : ring)
            points.Append(p.x, p.y, 0.0);
        return points;
    }

    CPoint3dVector ring_;
    CFrazArea cut_;
    reference::LiteralCut want_;
};

class AgainstLiteral : public ::testing::TestWithParam<int> {};

TEST_P(AgainstLiteral, SameBits)
{
    std::mt19937_64 random = test::random_source();
    long found = 0;
    for (int i = 0; i < parcels() && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        found += Pair(reference::adversary(random, GetParam())).run() ? 1 : 0;
    }
    RecordProperty("met", std::to_string(found));
    EXPECT_GT(found, parcels() / 10) << "the parcels are so wild that the search hardly ever ends well";
}

// Starts from what the first run left.
TEST_P(AgainstLiteral, SameBitsInASecondRun)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < parcels() / 10 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Pair pair(reference::adversary(random, GetParam()));
        pair.run();
        pair.run();
    }
}

TEST_P(AgainstLiteral, SameBitsOfWhatIsNoParcel)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < parcels() / 4 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Pair pair(reference::no_parcel(random, GetParam()));
        pair.run();
        pair.run();
    }
}

INSTANTIATE_TEST_SUITE_P(Modes, AgainstLiteral, ::testing::Values(0, 1, 2));

}  // namespace
