#pragma once

// The private side of CFrazArea: its members, its operations, and a snapshot of its whole state.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "plcalc/subdivision.h"

/// Declared a friend by the class. Every accessor bears the name of what it reaches.
struct CFrazAreaInspector {
    static const CPoint3dVector& Poligono(const CFrazArea& f) { return f.Poligono; }
    static PL_PNT2D_record& PuntoLato1(CFrazArea& f) { return f.PuntoLato1; }
    static PL_PNT2D_record& PuntoLato2(CFrazArea& f) { return f.PuntoLato2; }
    static std::int32_t& Modo(CFrazArea& f) { return f.Modo; }
    static std::int32_t& TipoArea(CFrazArea& f) { return f.TipoArea; }
    static double& Valore1(CFrazArea& f) { return f.Valore1; }
    static double& Valore2(CFrazArea& f) { return f.Valore2; }
    static PL_PNT2D_record& PuntoRis1(CFrazArea& f) { return f.PuntoRis1; }
    static PL_PNT2D_record& PuntoRis2(CFrazArea& f) { return f.PuntoRis2; }
    static PL_PNT2D_record& PuntoMedio(CFrazArea& f) { return f.PuntoMedio; }
    static PL_PNT2D_record& PuntoVertice(CFrazArea& f) { return f.PuntoVertice; }
    static std::int32_t& NumIntersez(CFrazArea& f) { return f.NumIntersez; }
    static std::int32_t& NumPuntiParz(CFrazArea& f) { return f.NumPuntiParz; }
    static bool& Trovato(CFrazArea& f) { return f.Trovato; }
    static std::int32_t& NumPunti(CFrazArea& f) { return f.NumPunti; }
    static std::int32_t& IndiceInizio(CFrazArea& f) { return f.IndiceInizio; }
    static double& DistLinea(CFrazArea& f) { return f.DistLinea; }
    static double& AngLinea(CFrazArea& f) { return f.AngLinea; }
    static double& AreaParziale(CFrazArea& f) { return f.AreaParziale; }
    static double& AreaRichiesta(CFrazArea& f) { return f.AreaRichiesta; }
    static double& AngInizio(CFrazArea& f) { return f.AngInizio; }
    static double& AngAmpiezza(CFrazArea& f) { return f.AngAmpiezza; }
    static PL_IMP_LINE_2D_record& RettaBase(CFrazArea& f) { return f.RettaBase; }
    static PL_IMP_LINE_2D_record& RettaMobile(CFrazArea& f) { return f.RettaMobile; }
    static PL_IMP_LINE_2D_record& RettaAux(CFrazArea& f) { return f.RettaAux; }
    static std::vector<PL_PNT2D_record>& VettPoligono(CFrazArea& f) { return f.VettPoligono; }
    static std::vector<PL_PNT2D_record>& VettParziale(CFrazArea& f) { return f.VettParziale; }
    static std::vector<std::int32_t>& VettIndici(CFrazArea& f) { return f.VettIndici; }

    static bool CalcolaFrazionLineaPar(CFrazArea& f) { return f.CalcolaFrazionLineaPar(); }
    static bool CalcolaFrazionLineaPerp(CFrazArea& f) { return f.CalcolaFrazionLineaPerp(); }
    static bool CalcolaFrazionPuntoVer(CFrazArea& f) { return f.CalcolaFrazionPuntoVer(); }
    static void TrovatoPuntoMaxEtMedioConPuntoPrec(CFrazArea& f, PL_PNT2D_record& q)
    {
        f.TrovatoPuntoMaxEtMedioConPuntoPrec(q);
    }
    static bool CalcAreaDaPuntoPrimaDiVertice(CFrazArea& f, PL_PNT2D_record& r1, PL_PNT2D_record& r2)
    {
        return f.CalcAreaDaPuntoPrimaDiVertice(r1, r2);
    }
    static double CalcAreaDaVertice(CFrazArea& f) { return f.CalcAreaDaVertice(); }
    static double AreaCalcolataDaVettSgn(const CFrazArea& f, int count,
                                         const std::vector<PL_PNT2D_record>& points)
    {
        return f.AreaCalcolataDaVettSgn(count, points);
    }
    static double AreaCalcolataDaVett(const CFrazArea& f, int count,
                                      const std::vector<PL_PNT2D_record>& points)
    {
        return f.AreaCalcolataDaVett(count, points);
    }
    static double CalcDist(const CFrazArea& f, const PL_PNT2D_record& a, const PL_PNT2D_record& b)
    {
        return f.CalcDist(a, b);
    }
    static void IncrementaVett(CFrazArea& f, const PL_PNT2D_record& p) { f.IncrementaVett(p); }
    static void TrovaLimitiSegmento(CFrazArea& f, PL_PNT2D_record& r1, PL_PNT2D_record& r2,
                                    const PL_PNT2D_record& p)
    {
        f.TrovaLimitiSegmento(r1, r2, p);
    }
    static void TrovaLimitiSegmento2(CFrazArea& f, const PL_PNT2D_record& r1, PL_PNT2D_record& r2,
                                     const PL_PNT2D_record& p)
    {
        f.TrovaLimitiSegmento2(r1, r2, p);
    }
    static bool TrovataIntersezValidaSegmConLato2(const CFrazArea& f, int i,
                                                  const PL_IMP_LINE_2D_record& line, PL_PNT2D_record& out)
    {
        return f.TrovataIntersezValidaSegmConLato2(i, line, out);
    }
};

namespace test {

using Points = std::vector<PL_PNT2D_record>;
using Indices = std::vector<std::int32_t>;

/// Every member of a CFrazArea but its parcel, in the order in which the class declares them.
struct State {
    PL_PNT2D_record PuntoLato1;
    PL_PNT2D_record PuntoLato2;
    std::int32_t Modo;
    std::int32_t TipoArea;
    double Valore1;
    double Valore2;
    PL_PNT2D_record PuntoRis1;
    PL_PNT2D_record PuntoRis2;
    PL_PNT2D_record PuntoMedio;
    PL_PNT2D_record PuntoVertice;
    std::int32_t NumIntersez;
    std::int32_t NumPuntiParz;
    bool Trovato;
    std::int32_t NumPunti;
    std::int32_t IndiceInizio;
    double DistLinea;
    double AngLinea;
    double AreaParziale;
    double AreaRichiesta;
    double AngInizio;
    double AngAmpiezza;
    PL_IMP_LINE_2D_record RettaBase;
    PL_IMP_LINE_2D_record RettaMobile;
    PL_IMP_LINE_2D_record RettaAux;
    Points VettPoligono;
    Points VettParziale;
    Indices VettIndici;
};

/// The object's state as it is now.
State state_of(const CFrazArea& object);

/// For EXPECT_PRED_FORMAT2: every member the same to the last bit; names the ones that are not.
::testing::AssertionResult same_state(const char* got_text, const char* want_text, const State& got,
                                      const State& want);

/// A ring as the parcel that CFrazArea reads, with heights, which must not matter.
CPoint3dVector parcel_of(const Points& ring);

/// The six outputs of Esegui and its answer. The outputs start as test::kUntouched.
struct Answer {
    bool done;
    PL_PNT2D_record p1;
    double z1;
    PL_PNT2D_record p2;
    double z2;
};

/// Calls Esegui.
Answer run(CFrazArea& object);

}  // namespace test

#define EXPECT_STATE(got, want) EXPECT_PRED_FORMAT2(::test::same_state, got, want)
