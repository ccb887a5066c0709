// The subdivision as it is, against its literal evaluation: results and working values, bit by bit.

#include <gtest/gtest.h>

#include <cstdlib>

#include "plcalc/subdivision.h"
#include "reference/adversaries.h"
#include "reference/literal.h"
#include "support/bits.h"
#include "support/cut_inspector.h"
#include "support/rings.h"

namespace {

using In = CFrazAreaInspector;

void compare_points(const std::vector<PL_PNT2D_record>& got, const std::vector<PL_PNT2D_record>& want)
{
    ASSERT_EQ(got.size(), want.size());
    for (std::size_t i = 0; i < want.size(); ++i)
        EXPECT_POINT(got[i], (want[i]));
}

void compare_request(const CFrazArea& got, const reference::LiteralCut& want)
{
    EXPECT_POINT(In::PuntoLato1(got), (want.PuntoLato1));
    EXPECT_POINT(In::PuntoLato2(got), (want.PuntoLato2));
    EXPECT_EQ(In::Modo(got), want.Modo);
    EXPECT_EQ(In::TipoArea(got), want.TipoArea);
    EXPECT_BITS(In::Valore1(got), want.Valore1);
    EXPECT_BITS(In::Valore2(got), want.Valore2);
    EXPECT_BITS(In::AreaRichiesta(got), want.AreaRichiesta);
    EXPECT_POINT(In::PuntoVertice(got), (want.PuntoVertice));
}

void compare_line(const CFrazArea& got, const reference::LiteralCut& want)
{
    EXPECT_POINT(In::PuntoRis1(got), (want.PuntoRis1));
    EXPECT_POINT(In::PuntoRis2(got), (want.PuntoRis2));
    EXPECT_POINT(In::PuntoMedio(got), (want.PuntoMedio));
    EXPECT_BITS(In::DistLinea(got), want.DistLinea);
    EXPECT_BITS(In::AngLinea(got), want.AngLinea);
    EXPECT_BITS(In::AngInizio(got), want.AngInizio);
    EXPECT_BITS(In::AngAmpiezza(got), want.AngAmpiezza);
    EXPECT_LINE(In::RettaBase(got), (want.RettaBase));
    EXPECT_LINE(In::RettaMobile(got), (want.RettaMobile));
    EXPECT_LINE(In::RettaAux(got), (want.RettaAux));
}

void compare_search(const CFrazArea& got, const reference::LiteralCut& want)
{
    EXPECT_EQ(In::Trovato(got), want.Trovato);
    EXPECT_BITS(In::AreaParziale(got), want.AreaParziale);
    EXPECT_EQ(In::NumIntersez(got), want.NumIntersez);
    EXPECT_EQ(In::NumPuntiParz(got), want.NumPuntiParz);
    EXPECT_EQ(In::NumPunti(got), want.NumPunti);
    EXPECT_EQ(In::IndiceInizio(got), want.IndiceInizio);
    EXPECT_EQ(In::VettIndici(got), want.VettIndici);
    compare_points(In::VettPoligono(got), want.VettPoligono);
    compare_points(In::VettParziale(got), want.VettParziale);
}

// Every member but the parcel.
void compare(const CFrazArea& got, const reference::LiteralCut& want)
{
    compare_request(got, want);
    compare_line(got, want);
    compare_search(got, want);
}

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
        : ring_(test::parcel_of(request.ring)), cut_(ring_, request.p1, request.p2, request.modo,
                                                     request.tipo_area, request.valore1, request.valore2),
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
        compare(cut_, want_);
        return want_.Trovato;
    }

private:
    CPoint3dVector ring_;
    CFrazArea cut_;
    reference::LiteralCut want_;
};

class AgainstLiteral : public ::testing::TestWithParam<int> {};

// Parcels, now and then what is none, and now and then a second run.
TEST_P(AgainstLiteral, SameBits)
{
    std::mt19937_64 random = test::random_source();
    long found = 0;
    for (int i = 0; i < parcels() && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const bool no_parcel = i % 8 == 7;
        Pair pair(no_parcel ? reference::no_parcel(random, GetParam())
                            : reference::adversary(random, GetParam()));
        found += pair.run() ? 1 : 0;
        if (i % 10 == 9)
            pair.run();
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
