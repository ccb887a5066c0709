// The subdivision as it is, against its literal evaluation: results and working values, bit by bit.

#include <gtest/gtest.h>

#include <cstdlib>

#include "plcalc/subdivision.h"
#include "reference/adversaries.h"
#include "reference/literal_cut.h"
#include "support/bits.h"

struct CFrazAreaInspector {
    static void compare(const CFrazArea& got, const reference::LiteralCut& want)
    {
        EXPECT_BITS(got.PuntoRis1.x, want.PuntoRis1.x);
        EXPECT_BITS(got.PuntoRis1.y, want.PuntoRis1.y);
        EXPECT_BITS(got.PuntoRis2.x, want.PuntoRis2.x);
        EXPECT_BITS(got.PuntoRis2.y, want.PuntoRis2.y);
        EXPECT_BITS(got.PuntoMedio.x, want.PuntoMedio.x);
        EXPECT_BITS(got.PuntoMedio.y, want.PuntoMedio.y);
        EXPECT_BITS(got.DistLinea, want.DistLinea);
        EXPECT_BITS(got.AngLinea, want.AngLinea);
        EXPECT_BITS(got.AreaParziale, want.AreaParziale);
        EXPECT_BITS(got.AreaRichiesta, want.AreaRichiesta);
        EXPECT_BITS(got.AngInizio, want.AngInizio);
        EXPECT_BITS(got.AngAmpiezza, want.AngAmpiezza);
        EXPECT_LINE(got.RettaBase, (want.RettaBase));
        EXPECT_LINE(got.RettaMobile, (want.RettaMobile));
        EXPECT_LINE(got.RettaAux, (want.RettaAux));
        EXPECT_EQ(got.NumIntersez, want.NumIntersez);
        EXPECT_EQ(got.NumPuntiParz, want.NumPuntiParz);
        EXPECT_EQ(got.NumPunti, want.NumPunti);
        EXPECT_EQ(got.IndiceInizio, want.IndiceInizio);
        EXPECT_EQ(got.Trovato, want.Trovato);
        EXPECT_EQ(got.VettIndici, want.VettIndici);
        ASSERT_EQ(got.VettParziale.size(), want.VettParziale.size());
        for (std::size_t i = 0; i < want.VettParziale.size(); ++i)
            EXPECT_POINT(got.VettParziale[i], (want.VettParziale[i]));
    }
};

namespace {

constexpr int kDefaultParcels = 33'000;

int parcels()
{
    const char* chosen = std::getenv("PLCALC_PARCELS");
    return chosen != nullptr ? std::atoi(chosen) : kDefaultParcels;
}

class AgainstLiteral : public ::testing::TestWithParam<int> {};

TEST_P(AgainstLiteral, SameBits)
{
    std::mt19937_64 random = test::random_source();
    long found = 0;
    for (int i = 0; i < parcels() && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const reference::Request request = reference::adversary(random, GetParam());
        reference::LiteralCut want(request.ring, request.p1, request.p2, request.modo, request.area);
        const bool want_result = want.run();

        CPoint3dVector ring;
        for (const PL_PNT2D_record& p : request.ring)
            ring.Append(p.x, p.y, 0.0);
        CFrazArea cut(ring, request.p1, request.p2, request.modo, 1, request.area, 0.0);
        double x1 = 0, y1 = 0, z1 = 0, x2 = 0, y2 = 0, z2 = 0;
        EXPECT_EQ(cut.Esegui(x1, y1, z1, x2, y2, z2), want_result);
        CFrazAreaInspector::compare(cut, want);
        found += want.Trovato ? 1 : 0;
    }
    RecordProperty("met", std::to_string(found));
    EXPECT_GT(found, parcels() / 10) << "the parcels are so wild that the search hardly ever ends well";
}

INSTANTIATE_TEST_SUITE_P(Modes, AgainstLiteral, ::testing::Values(0, 1, 2));

}  // namespace
