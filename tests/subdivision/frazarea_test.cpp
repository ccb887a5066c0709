#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <new>
#include <type_traits>

#include "cut_parcels.h"
#include "support/bits.h"
#include "support/cut_state.h"

namespace {

using In = CFrazAreaInspector;
using test::Indices;
using test::kRectangle;
using test::kUntouched;
using test::Points;

// A plain class over a shared parcel: no virtual operations, copied, never assigned, never from a temporary.
static_assert(!std::is_polymorphic<CFrazArea>::value, "no virtual operations");
static_assert(std::is_copy_constructible<CFrazArea>::value, "copies are part of the interface");
static_assert(!std::is_copy_assignable<CFrazArea>::value, "the parcel is referred to for life");
static_assert(std::is_constructible<CFrazArea, CPoint3dVector&, PL_PNT2D_record, PL_PNT2D_record, int, int,
                                    double, double>::value,
              "as applications construct it");
static_assert(!std::is_constructible<CFrazArea, CPoint3dVector, PL_PNT2D_record, PL_PNT2D_record, int, int,
                                     double, double>::value,
              "a temporary parcel would be gone before it is read");

TEST(Constructor, NotesTheRequestAndZeroesTheRest)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    // Storage that held something else.
    std::aligned_storage<sizeof(CFrazArea), alignof(CFrazArea)>::type storage;
    unsigned char* const bytes = reinterpret_cast<unsigned char*>(&storage);
    for (std::size_t i = 0; i < sizeof storage; ++i)
        bytes[i] = 0xA5;
    CFrazArea* const f = new (&storage) CFrazArea(parcel, {1, 2}, {3, 4}, 5, 6, 7.5, -8.25);

    test::State want = {};
    want.PuntoLato1 = {1, 2};
    want.PuntoLato2 = {3, 4};
    want.Modo = 5;
    want.TipoArea = 6;
    want.Valore1 = 7.5;
    want.Valore2 = -8.25;
    EXPECT_STATE(test::state_of(*f), want);
    f->~CFrazArea();
}

TEST(Destructor, LeavesTheParcel)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    {
        CFrazArea f(parcel, {0, 0}, {128, 0}, 0, 1, 2048.0, 0.0);
        EXPECT_TRUE(test::run(f).done);
    }
    ASSERT_EQ(parcel.GetNoPoits(), 4);
    EXPECT_BITS(parcel.GetXcoordAt(2), 128.0);
    EXPECT_BITS(parcel.GetYcoordAt(2), 64.0);
}

// --- the requested area ---

struct AreaRow {
    const char* what;
    int tipo;
    double valore1;
    double valore2;
    double want;  // AreaRichiesta, which held 123 before
};

const AreaRow kAreaRows[] = {
    {"a product of two lengths", 0, 20, 30, 600},
    {"a value, whatever the second one", 1, 600, 30, 600},
    {"a value, the second one no number", 1, 600, std::numeric_limits<double>::quiet_NaN(), 600},
    {"a product, rounded once", 0, 0.1, 0.1, 0x1.47ae147ae147cp-7},
    {"a product with nothing", 0, 20, 0, 0},
    {"an unknown kind leaves what was there", 2, 600, 30, 123},
    {"so does a negative one", -1, 600, 30, 123},
};

TEST(Esegui, RequestedArea)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    for (const AreaRow& row : kAreaRows) {
        SCOPED_TRACE(row.what);
        CFrazArea f(parcel, {0, 0}, {128, 0}, 0, row.tipo, row.valore1, row.valore2);
        In::AreaRichiesta(f) = 123;
        EXPECT_TRUE(test::run(f).done);
        EXPECT_BITS(In::AreaRichiesta(f), row.want);
    }
}

TEST(Esegui, AnUnknownKindOfAreaCutsWhatAnEarlierRequestLeft)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea f(parcel, {0, 0}, {128, 0}, 0, 7, 1.0, 1.0);
    In::AreaRichiesta(f) = 2048;
    const test::Answer answer = test::run(f);
    EXPECT_TRUE(answer.done);
    EXPECT_POINT(answer.p1, ({128, 16}));
}

// --- modes ---

TEST(Esegui, EachModeRunsItsOwnCut)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea parallel(parcel, {0, 0}, {128, 0}, 0, 1, 2048.0, 0.0);
    CFrazArea perpendicular(parcel, {0, 0}, {128, 0}, 1, 1, 2048.0, 0.0);
    CFrazArea vertex(parcel, {0, 0}, {128, 0}, 2, 1, 2048.0, 0.0);

    const test::Answer a = test::run(parallel);
    EXPECT_TRUE(a.done);
    EXPECT_POINT(a.p1, ({128, 16}));
    EXPECT_POINT(a.p2, ({-0.0, 16}));
    const test::Answer b = test::run(perpendicular);
    EXPECT_TRUE(b.done);
    EXPECT_POINT(b.p1, ({96, -0.0}));
    EXPECT_POINT(b.p2, ({96, 64}));
    const test::Answer c = test::run(vertex);
    EXPECT_TRUE(c.done);
    EXPECT_POINT(c.p1, ({0, 0}));
    EXPECT_NEAR(c.p2.x, 128, 1e-4);
    EXPECT_NEAR(c.p2.y, 32, 1e-4);
}

TEST(Esegui, AnUnknownModeFailsAndWritesWhatIsThere)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    for (const int modo : {3, -1, 1000}) {
        SCOPED_TRACE(modo);
        CFrazArea f(parcel, {0, 0}, {128, 0}, modo, 1, 2048.0, 0.0);
        In::PuntoRis1(f) = {1, 2};
        In::PuntoRis2(f) = {3, -0.0};
        In::Trovato(f) = true;
        const test::Answer answer = test::run(f);
        EXPECT_FALSE(answer.done);
        EXPECT_POINT(answer.p1, ({1, 2}));
        EXPECT_POINT(answer.p2, ({3, -0.0}));
        EXPECT_BITS(answer.z1, 0.0);
        EXPECT_BITS(answer.z2, 0.0);

        // The parcel is read and the area taken before the mode is looked at; nothing else happens.
        test::State want = {};
        want.PuntoLato2 = {128, 0};
        want.Modo = modo;
        want.TipoArea = 1;
        want.Valore1 = 2048;
        want.PuntoRis1 = {1, 2};
        want.PuntoRis2 = {3, -0.0};
        want.Trovato = true;
        want.NumPunti = 4;
        want.AreaRichiesta = 2048;
        want.VettPoligono = {{0, 0}, {128, 0}, {128, 64}, {0, 64}, {0, 0}};
        want.VettIndici = {0, 0, 0, 0, 0};
        EXPECT_STATE(test::state_of(f), want);
    }
}

TEST(Esegui, AFreshObjectThatFailsGivesZeros)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    for (const int modo : {0, 1, 2, 3}) {
        SCOPED_TRACE(modo);
        CFrazArea f(parcel, {1, 1}, {2, 2}, modo, 1, 2048.0, 0.0);
        const test::Answer answer = test::run(f);
        EXPECT_FALSE(answer.done);
        EXPECT_POINT(answer.p1, ({0.0, 0.0}));
        EXPECT_POINT(answer.p2, ({0.0, 0.0}));
        EXPECT_BITS(answer.z1, 0.0);
        EXPECT_BITS(answer.z2, 0.0);
    }
}

TEST(Esegui, AnEmptyParcelIsOneZeroPointWithoutSidesOrVertices)
{
    const CPoint3dVector parcel;
    for (const int modo : {0, 1, 2}) {
        SCOPED_TRACE(modo);
        CFrazArea f(parcel, {0, 0}, {0, 0}, modo, 1, 1.0, 0.0);
        EXPECT_FALSE(test::run(f).done);
        EXPECT_EQ(In::NumPunti(f), 0);
        ASSERT_EQ(In::VettPoligono(f).size(), 1U);
        EXPECT_POINT(In::VettPoligono(f)[0], ({0.0, 0.0}));
        EXPECT_EQ(In::VettIndici(f), (Indices{0}));
        EXPECT_EQ(In::IndiceInizio(f), -1);
    }
}

TEST(PrivateOperations, BeforeTheFirstRequestThereIsNothingToMeasure)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea f(parcel, {0, 0}, {128, 0}, 0, 1, 100.0, 0.0);
    EXPECT_BITS(In::CalcAreaDaVertice(f), 0.0);
    PL_PNT2D_record r1 = {};
    PL_PNT2D_record r2 = {};
    EXPECT_TRUE(In::CalcAreaDaPuntoPrimaDiVertice(f, r1, r2));
    EXPECT_BITS(In::AreaParziale(f), 0.0);
    EXPECT_EQ(In::NumPuntiParz(f), 2);  // the base side's, from a parcel of none
}

TEST(Esegui, HeightsDoNotMatter)
{
    CPoint3dVector parcel;
    for (const PL_PNT2D_record& p : kRectangle)
        parcel.Append(p.x, p.y, std::numeric_limits<double>::quiet_NaN());
    CFrazArea f(parcel, {0, 0}, {128, 0}, 0, 1, 2048.0, 0.0);
    const test::Answer answer = test::run(f);
    EXPECT_TRUE(answer.done);
    EXPECT_POINT(answer.p1, ({128, 16}));
    EXPECT_BITS(answer.z1, 0.0);
    EXPECT_BITS(answer.z2, 0.0);
}

TEST(Esegui, ReservesTwoPointsPerVertex)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea f(parcel, {0, 0}, {128, 0}, 3, 1, 2048.0, 0.0);
    test::run(f);
    EXPECT_GE(In::VettParziale(f).capacity(), 8U);
    EXPECT_TRUE(In::VettParziale(f).empty());
}

TEST(Esegui, OutputsAreWrittenInOrder)
{
    // One double for all: the last one written is z2.
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea f(parcel, {0, 0}, {128, 0}, 0, 1, 2048.0, 0.0);
    double x1 = kUntouched;
    double rest = kUntouched;
    f.Esegui(x1, rest, rest, rest, rest, rest);
    EXPECT_BITS(x1, 128.0);
    EXPECT_BITS(rest, 0.0);
}

// --- a second call ---

TEST(Esegui, ASecondCallReadsTheParcelAgain)
{
    CPoint3dVector parcel = test::parcel_of({{0, 0}, {128, 0}, {128, 64}, {64, 64}, {0, 64}});
    CFrazArea f(parcel, {0, 0}, {128, 0}, 0, 1, 2048.0, 0.0);
    EXPECT_TRUE(test::run(f).done);
    EXPECT_EQ(In::VettIndici(f), (Indices{0, 1, 2, 3, 4, 0}));

    parcel = test::parcel_of({{0, 0}, {128, 0}, {64, 128}});
    const test::Answer answer = test::run(f);
    EXPECT_TRUE(answer.done);
    EXPECT_EQ(In::NumPunti(f), 3);
    EXPECT_EQ(In::VettPoligono(f).size(), 4U);
    EXPECT_EQ(In::VettIndici(f), (Indices{0, 1, 2, 0}));
    // 128 * (1 - y / 128 / 2) * y = 2048
    EXPECT_NEAR(answer.p1.y, 128.0 - 0x1p6 * 1.7320508075688772, 1e-4);
}

TEST(Esegui, AFailureAfterASuccessGivesTheEarlierLine)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea f(parcel, {0, 0}, {128, 0}, 1, 1, 2048.0, 0.0);
    const test::Answer first = test::run(f);
    EXPECT_TRUE(first.done);
    const test::Answer second = test::run(f);
    EXPECT_FALSE(second.done);
    EXPECT_POINT(second.p1, (first.p1));
    EXPECT_POINT(second.p2, (first.p2));
}

// --- copies ---

TEST(CopyConstructor, CarriesEveryMember)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    for (const int modo : {0, 1, 2}) {
        SCOPED_TRACE(modo);
        CFrazArea f(parcel, {0, 0}, {128, 0}, modo, 0, 64.0, 30.5);
        EXPECT_TRUE(test::run(f).done);
        // Members that this mode leaves alone get values of their own, so that none can be missed.
        In::PuntoMedio(f) = {1.5, 2.5};
        In::PuntoVertice(f) = {3.5, 4.5};
        In::DistLinea(f) = 5.5;
        In::AngLinea(f) = 6.5;
        In::AngInizio(f) = 7.5;
        In::AngAmpiezza(f) = 8.5;
        In::RettaBase(f) = {9.5, 10.5, 11.5};
        In::RettaMobile(f) = {12.5, 13.5, 14.5};
        In::RettaAux(f) = {15.5, 16.5, 17.5};

        CFrazArea copy(f);
        EXPECT_POINT(In::PuntoLato1(copy), (In::PuntoLato1(f)));
        EXPECT_POINT(In::PuntoLato2(copy), (In::PuntoLato2(f)));
        EXPECT_EQ(In::Modo(copy), modo);
        EXPECT_EQ(In::TipoArea(copy), 0);
        EXPECT_BITS(In::Valore1(copy), 64.0);
        EXPECT_BITS(In::Valore2(copy), 30.5);
        EXPECT_POINT(In::PuntoRis1(copy), (In::PuntoRis1(f)));
        EXPECT_POINT(In::PuntoRis2(copy), (In::PuntoRis2(f)));
        EXPECT_POINT(In::PuntoMedio(copy), ({1.5, 2.5}));
        EXPECT_POINT(In::PuntoVertice(copy), ({3.5, 4.5}));
        EXPECT_EQ(In::NumIntersez(copy), In::NumIntersez(f));
        EXPECT_EQ(In::NumPuntiParz(copy), In::NumPuntiParz(f));
        EXPECT_EQ(In::Trovato(copy), true);
        EXPECT_EQ(In::NumPunti(copy), 4);
        EXPECT_EQ(In::IndiceInizio(copy), In::IndiceInizio(f));
        EXPECT_BITS(In::DistLinea(copy), 5.5);
        EXPECT_BITS(In::AngLinea(copy), 6.5);
        EXPECT_BITS(In::AreaParziale(copy), In::AreaParziale(f));
        EXPECT_BITS(In::AreaRichiesta(copy), In::AreaRichiesta(f));
        EXPECT_BITS(In::AngInizio(copy), 7.5);
        EXPECT_BITS(In::AngAmpiezza(copy), 8.5);
        EXPECT_LINE(In::RettaBase(copy), ({9.5, 10.5, 11.5}));
        EXPECT_LINE(In::RettaMobile(copy), ({12.5, 13.5, 14.5}));
        EXPECT_LINE(In::RettaAux(copy), ({15.5, 16.5, 17.5}));
        EXPECT_STATE(test::state_of(copy), test::state_of(f));
    }
}

TEST(CopyConstructor, VectorsAreDeepAndOfTheSourcesSize)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea f(parcel, {0, 0}, {128, 0}, 0, 1, 2048.0, 0.0);
    EXPECT_TRUE(test::run(f).done);
    CFrazArea copy(f);
    EXPECT_EQ(In::VettPoligono(copy).capacity(), In::VettPoligono(f).size());
    EXPECT_EQ(In::VettParziale(copy).capacity(), In::VettParziale(f).size());
    EXPECT_EQ(In::VettIndici(copy).capacity(), In::VettIndici(f).size());

    const test::State before = test::state_of(f);
    In::VettPoligono(copy)[1] = {9, 9};
    In::VettParziale(copy)[1] = {9, 9};
    In::VettIndici(copy)[1] = 9;
    EXPECT_STATE(test::state_of(f), before);
}

TEST(CopyConstructor, EitherOutlivesTheOther)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    auto first = std::make_unique<CFrazArea>(parcel, PL_PNT2D_record{0, 0}, PL_PNT2D_record{128, 0}, 0, 1,
                                             2048.0, 0.0);
    EXPECT_TRUE(test::run(*first).done);
    auto second = std::make_unique<CFrazArea>(*first);
    const test::State want = test::state_of(*first);
    first.reset();
    EXPECT_STATE(test::state_of(*second), want);
    EXPECT_TRUE(test::run(*second).done);
    EXPECT_STATE(test::state_of(*second), want);

    auto third = std::make_unique<CFrazArea>(*second);
    third.reset();
    EXPECT_STATE(test::state_of(*second), want);
    EXPECT_EQ(parcel.GetNoPoits(), 4);
}

TEST(CopyConstructor, TheParcelStaysShared)
{
    CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea f(parcel, {0, 0}, {128, 0}, 0, 1, 2048.0, 0.0);
    CFrazArea copy(f);
    parcel = test::parcel_of({{0, 0}, {128, 0}, {128, 32}, {0, 32}});
    EXPECT_TRUE(test::run(f).done);
    EXPECT_TRUE(test::run(copy).done);
    EXPECT_BITS(In::VettPoligono(f)[2].y, 32.0);
    EXPECT_BITS(In::VettPoligono(copy)[2].y, 32.0);
}

TEST(CopyConstructor, ACopyBeforeTheCallCutsTheSame)
{
    const CPoint3dVector parcel = test::parcel_of(kRectangle);
    CFrazArea f(parcel, {128, 0}, {128, 64}, 1, 1, 1000.0, 0.0);
    CFrazArea copy(f);
    EXPECT_TRUE(test::run(f).done);
    EXPECT_TRUE(test::run(copy).done);
    EXPECT_STATE(test::state_of(copy), test::state_of(f));
}

}  // namespace
