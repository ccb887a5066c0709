#include "support/cut_state.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "support/bits.h"

namespace {

std::string shown(double v)
{
    char text[80];
    std::snprintf(text, sizeof text, "%a (%.17g)", v, v);
    return text;
}

std::string shown(std::int32_t v)
{
    return std::to_string(v);
}

std::string shown(const PL_PNT2D_record& p)
{
    return "(" + shown(p.x) + ", " + shown(p.y) + ")";
}

std::string shown(const PL_IMP_LINE_2D_record& l)
{
    return "(" + shown(l.a) + ", " + shown(l.b) + ", " + shown(l.c) + ")";
}

template <typename T> std::string shown(const std::vector<T>& list)
{
    std::string text = std::to_string(list.size()) + " entries";
    for (const T& entry : list)
        text += "\n      " + shown(entry);
    return text;
}

bool equal(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

bool equal(std::int32_t a, std::int32_t b)
{
    return a == b;
}

bool equal(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return equal(a.x, b.x) && equal(a.y, b.y);
}

bool equal(const PL_IMP_LINE_2D_record& a, const PL_IMP_LINE_2D_record& b)
{
    return equal(a.a, b.a) && equal(a.b, b.b) && equal(a.c, b.c);
}

template <typename T> bool equal(const std::vector<T>& a, const std::vector<T>& b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!equal(a[i], b[i]))
            return false;
    return true;
}

// Collects the members that differ.
class Comparison {
public:
    template <typename T> void member(const char* name, const T& got, const T& want)
    {
        if (!equal(got, want))
            text_ +=
                std::string("\n  ") + name + "\n    got    " + shown(got) + "\n    wanted " + shown(want);
    }
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

}  // namespace

namespace test {

State state_of(const CFrazArea& object)
{
    using In = CFrazAreaInspector;
    CFrazArea f(object);
    return {In::PuntoLato1(f),   In::PuntoLato2(f),   In::Modo(f),          In::TipoArea(f),
            In::Valore1(f),      In::Valore2(f),      In::PuntoRis1(f),     In::PuntoRis2(f),
            In::PuntoMedio(f),   In::PuntoVertice(f), In::NumIntersez(f),   In::NumPuntiParz(f),
            In::Trovato(f),      In::NumPunti(f),     In::IndiceInizio(f),  In::DistLinea(f),
            In::AngLinea(f),     In::AreaParziale(f), In::AreaRichiesta(f), In::AngInizio(f),
            In::AngAmpiezza(f),  In::RettaBase(f),    In::RettaMobile(f),   In::RettaAux(f),
            In::VettPoligono(f), In::VettParziale(f), In::VettIndici(f)};
}

::testing::AssertionResult same_state(const char* got_text, const char* want_text, const State& got,
                                      const State& want)
{
    (void)want_text;
    Comparison c;
    c.member("PuntoLato1", got.PuntoLato1, want.PuntoLato1);
    c.member("PuntoLato2", got.PuntoLato2, want.PuntoLato2);
    c.member("Modo", got.Modo, want.Modo);
    c.member("TipoArea", got.TipoArea, want.TipoArea);
    c.member("Valore1", got.Valore1, want.Valore1);
    c.member("Valore2", got.Valore2, want.Valore2);
    c.member("PuntoRis1", got.PuntoRis1, want.PuntoRis1);
    c.member("PuntoRis2", got.PuntoRis2, want.PuntoRis2);
    c.member("PuntoMedio", got.PuntoMedio, want.PuntoMedio);
    c.member("PuntoVertice", got.PuntoVertice, want.PuntoVertice);
    c.member("NumIntersez", got.NumIntersez, want.NumIntersez);
    c.member("NumPuntiParz", got.NumPuntiParz, want.NumPuntiParz);
    c.member<std::int32_t>("Trovato", got.Trovato, want.Trovato);
    c.member("NumPunti", got.NumPunti, want.NumPunti);
    c.member("IndiceInizio", got.IndiceInizio, want.IndiceInizio);
    c.member("DistLinea", got.DistLinea, want.DistLinea);
    c.member("AngLinea", got.AngLinea, want.AngLinea);
    c.member("AreaParziale", got.AreaParziale, want.AreaParziale);
    c.member("AreaRichiesta", got.AreaRichiesta, want.AreaRichiesta);
    c.member("AngInizio", got.AngInizio, want.AngInizio);
    c.member("AngAmpiezza", got.AngAmpiezza, want.AngAmpiezza);
    c.member("RettaBase", got.RettaBase, want.RettaBase);
    c.member("RettaMobile", got.RettaMobile, want.RettaMobile);
    c.member("RettaAux", got.RettaAux, want.RettaAux);
    c.member("VettPoligono", got.VettPoligono, want.VettPoligono);
    c.member("VettParziale", got.VettParziale, want.VettParziale);
    c.member("VettIndici", got.VettIndici, want.VettIndici);
    if (c.text().empty())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << got_text << " differs in" << c.text();
}

Answer run(CFrazArea& object)
{
    Answer a = {false, {kUntouched, kUntouched}, kUntouched, {kUntouched, kUntouched}, kUntouched};
    a.done = object.Esegui(a.p1.x, a.p1.y, a.z1, a.p2.x, a.p2.y, a.z2);
    return a;
}

}  // namespace test
