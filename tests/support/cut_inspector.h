#pragma once

// The private side of CFrazArea: its members and its operations. Needs no test framework, so that harnesses
// and benchmarks can look inside too.

#include <cstdint>
#include <vector>

#include "plcalc/subdivision.h"

/// Reaches what CFrazArea keeps private. The class does not know of it. Every function bears the name of the
/// member that it reaches. The parcel itself is out of reach: no pointer to member can point to a reference.
struct CFrazAreaInspector {
    using Points = std::vector<PL_PNT2D_record>;
    using Indices = std::vector<std::int32_t>;

#define CUT_MEMBER(type, name)                                                                               \
    static type& name(CFrazArea& f);                                                                         \
    static const type& name(const CFrazArea& f)

    CUT_MEMBER(PL_PNT2D_record, PuntoLato1);
    CUT_MEMBER(PL_PNT2D_record, PuntoLato2);
    CUT_MEMBER(std::int32_t, Modo);
    CUT_MEMBER(std::int32_t, TipoArea);
    CUT_MEMBER(double, Valore1);
    CUT_MEMBER(double, Valore2);
    CUT_MEMBER(PL_PNT2D_record, PuntoRis1);
    CUT_MEMBER(PL_PNT2D_record, PuntoRis2);
    CUT_MEMBER(PL_PNT2D_record, PuntoMedio);
    CUT_MEMBER(PL_PNT2D_record, PuntoVertice);
    CUT_MEMBER(std::int32_t, NumIntersez);
    CUT_MEMBER(std::int32_t, NumPuntiParz);
    CUT_MEMBER(bool, Trovato);
    CUT_MEMBER(std::int32_t, NumPunti);
    CUT_MEMBER(std::int32_t, IndiceInizio);
    CUT_MEMBER(double, DistLinea);
    CUT_MEMBER(double, AngLinea);
    CUT_MEMBER(double, AreaParziale);
    CUT_MEMBER(double, AreaRichiesta);
    CUT_MEMBER(double, AngInizio);
    CUT_MEMBER(double, AngAmpiezza);
    CUT_MEMBER(PL_IMP_LINE_2D_record, RettaBase);
    CUT_MEMBER(PL_IMP_LINE_2D_record, RettaMobile);
    CUT_MEMBER(PL_IMP_LINE_2D_record, RettaAux);
    CUT_MEMBER(Points, VettPoligono);
    CUT_MEMBER(Points, VettParziale);
    CUT_MEMBER(Indices, VettIndici);

#undef CUT_MEMBER

    static bool CalcolaFrazionLineaPar(CFrazArea& f);
    static bool CalcolaFrazionLineaPerp(CFrazArea& f);
    static bool CalcolaFrazionPuntoVer(CFrazArea& f);
    static void TrovatoPuntoMaxEtMedioConPuntoPrec(CFrazArea& f, PL_PNT2D_record& q);
    static bool CalcAreaDaPuntoPrimaDiVertice(CFrazArea& f, PL_PNT2D_record& r1, PL_PNT2D_record& r2);
    static double CalcAreaDaVertice(CFrazArea& f);
    static double AreaCalcolataDaVettSgn(const CFrazArea& f, int count, const Points& points);
    static double AreaCalcolataDaVett(const CFrazArea& f, int count, const Points& points);
    static double CalcDist(const CFrazArea& f, const PL_PNT2D_record& a, const PL_PNT2D_record& b);
    static void IncrementaVett(CFrazArea& f, const PL_PNT2D_record& p);
    static void TrovaLimitiSegmento(CFrazArea& f, PL_PNT2D_record& r1, PL_PNT2D_record& r2,
                                    const PL_PNT2D_record& p);
    static void TrovaLimitiSegmento2(CFrazArea& f, const PL_PNT2D_record& r1, PL_PNT2D_record& r2,
                                     const PL_PNT2D_record& p);
    static bool TrovataIntersezValidaSegmConLato2(const CFrazArea& f, int i,
                                                  const PL_IMP_LINE_2D_record& line, PL_PNT2D_record& out);
};
