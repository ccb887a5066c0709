#pragma once

// What a call of CFrazArea returns and leaves behind: the outputs of Esegui, and a snapshot of all private
// members.

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "plcalc/subdivision.h"
#include "support/cut_inspector.h"

namespace test {

using Points = std::vector<PL_PNT2D_record>;
using Indices = std::vector<std::int32_t>;

/// Every member of a CFrazArea except its parcel, in the order in which the class declares them.
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

/// For EXPECT_PRED_FORMAT2: whether every member is the same to the last bit. Names the members that differ.
::testing::AssertionResult same_state(const char* got_text, const char* want_text, const State& got,
                                      const State& want);

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
