#include "support/cut_inspector.h"

// An explicit instantiation may name private members, and the friend function that comes with it hands out the
// pointer to the member. So the installed header needs to know nothing of its tests.

namespace {

template <typename Tag, auto kPointer> struct Opened {
    friend constexpr auto pointer_to(Tag) { return kPointer; }
};

}  // namespace

#define OPEN(name)                                                                                           \
    namespace {                                                                                              \
    struct name##Tag {                                                                                       \
        friend constexpr auto pointer_to(name##Tag);                                                         \
    };                                                                                                       \
    template struct Opened<name##Tag, &CFrazArea::name>;                                                     \
    }

#define CUT_MEMBER(name)                                                                                     \
    OPEN(name)                                                                                               \
    auto CFrazAreaInspector::name(CFrazArea& f)->decltype(name(f))                                           \
    {                                                                                                        \
        return f.*pointer_to(name##Tag());                                                                   \
    }                                                                                                        \
    auto CFrazAreaInspector::name(const CFrazArea& f)->decltype(name(f))                                     \
    {                                                                                                        \
        return f.*pointer_to(name##Tag());                                                                   \
    }

CUT_MEMBER(PuntoLato1)
CUT_MEMBER(PuntoLato2)
CUT_MEMBER(Modo)
CUT_MEMBER(TipoArea)
CUT_MEMBER(Valore1)
CUT_MEMBER(Valore2)
CUT_MEMBER(PuntoRis1)
CUT_MEMBER(PuntoRis2)
CUT_MEMBER(PuntoMedio)
CUT_MEMBER(PuntoVertice)
CUT_MEMBER(NumIntersez)
CUT_MEMBER(NumPuntiParz)
CUT_MEMBER(Trovato)
CUT_MEMBER(NumPunti)
CUT_MEMBER(IndiceInizio)
CUT_MEMBER(DistLinea)
CUT_MEMBER(AngLinea)
CUT_MEMBER(AreaParziale)
CUT_MEMBER(AreaRichiesta)
CUT_MEMBER(AngInizio)
CUT_MEMBER(AngAmpiezza)
CUT_MEMBER(RettaBase)
CUT_MEMBER(RettaMobile)
CUT_MEMBER(RettaAux)
CUT_MEMBER(VettPoligono)
CUT_MEMBER(VettParziale)
CUT_MEMBER(VettIndici)

OPEN(CalcolaFrazionLineaPar)
OPEN(CalcolaFrazionLineaPerp)
OPEN(CalcolaFrazionPuntoVer)
OPEN(TrovatoPuntoMaxEtMedioConPuntoPrec)
OPEN(CalcAreaDaPuntoPrimaDiVertice)
OPEN(CalcAreaDaVertice)
OPEN(AreaCalcolataDaVettSgn)
OPEN(AreaCalcolataDaVett)
OPEN(CalcDist)
OPEN(IncrementaVett)
OPEN(TrovaLimitiSegmento)
OPEN(TrovaLimitiSegmento2)
OPEN(TrovataIntersezValidaSegmConLato2)

bool CFrazAreaInspector::CalcolaFrazionLineaPar(CFrazArea& f)
{
    return (f.*pointer_to(CalcolaFrazionLineaParTag()))();
}

bool CFrazAreaInspector::CalcolaFrazionLineaPerp(CFrazArea& f)
{
    return (f.*pointer_to(CalcolaFrazionLineaPerpTag()))();
}

bool CFrazAreaInspector::CalcolaFrazionPuntoVer(CFrazArea& f)
{
    return (f.*pointer_to(CalcolaFrazionPuntoVerTag()))();
}

void CFrazAreaInspector::TrovatoPuntoMaxEtMedioConPuntoPrec(CFrazArea& f, PL_PNT2D_record& q)
{
    return (f.*pointer_to(TrovatoPuntoMaxEtMedioConPuntoPrecTag()))(q);
}

bool CFrazAreaInspector::CalcAreaDaPuntoPrimaDiVertice(CFrazArea& f, PL_PNT2D_record& r1, PL_PNT2D_record& r2)
{
    return (f.*pointer_to(CalcAreaDaPuntoPrimaDiVerticeTag()))(r1, r2);
}

double CFrazAreaInspector::CalcAreaDaVertice(CFrazArea& f)
{
    return (f.*pointer_to(CalcAreaDaVerticeTag()))();
}

double CFrazAreaInspector::AreaCalcolataDaVettSgn(const CFrazArea& f, int count, const Points& points)
{
    return (f.*pointer_to(AreaCalcolataDaVettSgnTag()))(count, points);
}

double CFrazAreaInspector::AreaCalcolataDaVett(const CFrazArea& f, int count, const Points& points)
{
    return (f.*pointer_to(AreaCalcolataDaVettTag()))(count, points);
}

double CFrazAreaInspector::CalcDist(const CFrazArea& f, const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return (f.*pointer_to(CalcDistTag()))(a, b);
}

void CFrazAreaInspector::IncrementaVett(CFrazArea& f, const PL_PNT2D_record& p)
{
    return (f.*pointer_to(IncrementaVettTag()))(p);
}

void CFrazAreaInspector::TrovaLimitiSegmento(CFrazArea& f, PL_PNT2D_record& r1, PL_PNT2D_record& r2,
                                             const PL_PNT2D_record& p)
{
    return (f.*pointer_to(TrovaLimitiSegmentoTag()))(r1, r2, p);
}

void CFrazAreaInspector::TrovaLimitiSegmento2(CFrazArea& f, const PL_PNT2D_record& r1, PL_PNT2D_record& r2,
                                              const PL_PNT2D_record& p)
{
    return (f.*pointer_to(TrovaLimitiSegmento2Tag()))(r1, r2, p);
}

bool CFrazAreaInspector::TrovataIntersezValidaSegmConLato2(const CFrazArea& f, int i,
                                                           const PL_IMP_LINE_2D_record& line,
                                                           PL_PNT2D_record& out)
{
    return (f.*pointer_to(TrovataIntersezValidaSegmConLato2Tag()))(i, line, out);
}
