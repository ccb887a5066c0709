#pragma once

// Rows for the two kinds of cut that end in a parallel: request, answer, and what is left in the object.

#include "support/cut_state.h"

namespace test {

struct CutRequest {
    Points ring;
    PL_PNT2D_record p1;  // base side
    PL_PNT2D_record p2;
    double area;
};

struct CutEnds {
    PL_PNT2D_record PuntoRis1;
    PL_PNT2D_record PuntoRis2;
    PL_PNT2D_record PuntoLato1;
    PL_PNT2D_record PuntoLato2;
};

struct CutCounts {
    std::int32_t NumIntersez;
    std::int32_t NumPuntiParz;
    bool Trovato;
    std::int32_t NumPunti;
    std::int32_t IndiceInizio;
};

struct CutMeasures {
    double DistLinea;
    double AngLinea;  // within 1e-10 gon: from the platform's arctangent, it decides only bands of a gon
    double AreaParziale;
    double AreaRichiesta;
};

/// The request, what Esegui answers, and the members as the search leaves them.
struct CutRow {
    const char* what;
    CutRequest request;
    bool done;
    CutEnds ends;
    CutCounts counts;
    CutMeasures measures;
};

/// Runs the request of a row in the given mode and as often as told, and compares all of it.
void check_cut(const CutRow& row, int modo, int calls);

}  // namespace test
