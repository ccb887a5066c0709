#pragma once

// Rows for the two kinds of cut that end in a parallel: request, answer, and what is left in the object.

#include <optional>

#include "support/rings.h"

namespace test {

/// The row's `points` are handed over instead of a side.
constexpr int kNoSide = -1;

/// Two points, in the order of the class's members.
struct CutEnds {
    PL_PNT2D_record first = {0.0, 0.0};
    PL_PNT2D_record second = {0.0, 0.0};
};

struct CutCounts {
    std::int32_t NumIntersez = 0;
    std::int32_t NumPuntiParz = 0;
    bool Trovato = false;
    std::int32_t NumPunti = 0;
    std::int32_t IndiceInizio = -1;
};

struct CutMeasures {
    double DistLinea = 0.0;
    // Compared within 1e-10 gon: it comes from the platform's arctangent, and the search only compares it within 1 gon.
    double AngLinea = 0.0;
    double AreaParziale = 0.0;
    std::optional<double> AreaRichiesta = {};  // the row's area, unless said otherwise
};

/// The request, what Esegui answers, and the members as the search leaves them.
struct CutRow {
    const char* what;
    Ring parcel;
    int side = kNoSide;   // the base side, by the index of its first vertex
    CutEnds points = {};  // what is handed over where that is no side of the parcel, bit by bit
    double area;          // what is requested
    bool done = true;
    CutEnds line = {};                 // what Esegui writes: PuntoRis1, PuntoRis2
    std::optional<CutEnds> base = {};  // PuntoLato1, PuntoLato2: as handed over, unless said otherwise
    CutCounts counts = {};
    CutMeasures measures = {};
};

/// Runs the request of a row in the given mode and as often as told, and compares all of it.
void check_cut(const CutRow& row, int modo, int calls);

}  // namespace test
