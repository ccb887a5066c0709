#pragma once

/// @file
/// Subdivision of a parcel: the dividing line that cuts off a requested area.

#include <cstdint>
#include <vector>

#include "plcalc/export.h"
#include "plcalc/kernel.h"
#include "plutil/plutil.h"

namespace plcalc {
class ParallelSearch;
class VertexSearch;
}  // namespace plcalc

/// Divides a parcel in two so that one piece has a requested area.
///
/// One object per request: construct it, call Esegui once, read the dividing line. Three kinds of cut:
///
/// | modo | the line runs                | p1, p2                                   | the requested area lies  |
/// | ---- | ---------------------------- | ---------------------------------------- | ------------------------ |
/// | 0    | parallel to the side p1-p2   | consecutive vertices, in the ring's order | along that side          |
/// | 1    | perpendicular to side p1-p2  | consecutive vertices, in the ring's order | ahead, from p1 to p2     |
/// | 2    | through the vertex p1        | p1 a vertex, p2 without effect            | next to the side after p1 |
///
/// The search ends when the area is met within a relative 1e-6 (in mode 1 of the rest that is cut from the
/// half of the parcel, not of the request). A result of true means that the search ran, not that it met
/// the request: on parcels whose pieces the line leaves, on requests not below the parcel's area and on
/// requests of zero the line does not hold what was asked. Measure the pieces.
///
/// Prepare the parcel for good answers: shift it to a local origin (at coordinates of 5e6 the cut through a
/// vertex misses the 1e-6 in a tenth of the requests on parcels 100 across, and in most on smaller ones) and
/// turn it so that the direction in which the line moves stays away from +x: across the base side in mode 0,
/// along it in mode 1.
///
/// The parcel is shared, not copied: the vector must outlive the object and stay as it is until Esegui has
/// returned. One thread at a time per object; objects may share a parcel across threads.
class PLCALC_API CFrazArea {
public:
    /// Notes the request; nothing is computed yet.
    ///
    /// @param[in] poly      the ring, open (first vertex not repeated), either direction; heights are ignored
    /// @param[in] p1, p2    reference side or vertex: compared with the ring's vertices to the last bit
    /// @param[in] modo      0 parallel, 1 perpendicular, 2 through a vertex
    /// @param[in] tipoArea  0: the area is valore1 * valore2; 1: it is valore1
    /// @param[in] valore1   first datum: a length or an area, caller's unit
    /// @param[in] valore2   second datum: a length, or without effect
    CFrazArea(const CPoint3dVector& poly, PL_PNT2D_record p1, PL_PNT2D_record p2, int modo, int tipoArea,
              double valore1, double valore2) noexcept;

    /// A temporary would be gone before Esegui reads it.
    CFrazArea(const CPoint3dVector&& poly, PL_PNT2D_record p1, PL_PNT2D_record p2, int modo, int tipoArea,
              double valore1, double valore2) = delete;

    /// Copies everything, working values and results included; the parcel stays shared.
    ///
    /// @param[in] other  the object to copy
    CFrazArea(const CFrazArea& other);

    /// Not assignable: it refers to its parcel for life.
    CFrazArea& operator=(const CFrazArea&) = delete;

    /// Releases the working vectors; the parcel is not touched.
    ~CFrazArea();

    /// Searches the dividing line.
    ///
    /// @param[out] x1, y1  first end of the line, caller's unit
    /// @param[out] z1      always 0
    /// @param[out] x2, y2  second end of the line, caller's unit
    /// @param[out] z2      always 0
    /// @return false when the reference side or vertex is not in the ring, a perpendicular meets no other
    ///         side, the parcel has too few points, or modo is unknown; the outputs then hold what the
    ///         object held, zeros at first. True otherwise, with the reservations above.
    ///
    /// A second call starts from what the first one left: in mode 1 that is another reference side.
    bool Esegui(double& x1, double& y1, double& z1, double& x2, double& y2, double& z2);

private:
    // The searches, with what they keep between trials; and the object as tests see it.
    friend class plcalc::ParallelSearch;
    friend class plcalc::VertexSearch;
    friend struct CFrazAreaInspector;

    // The three kinds of cut.
    bool CalcolaFrazionLineaPar();
    bool CalcolaFrazionLineaPerp();
    bool CalcolaFrazionPuntoVer();

    // The searches' steps.
    void TrovatoPuntoMaxEtMedioConPuntoPrec(PL_PNT2D_record& q);
    bool CalcAreaDaPuntoPrimaDiVertice(PL_PNT2D_record& r1, PL_PNT2D_record& r2);
    double CalcAreaDaVertice();

    // The working polygon.
    double AreaCalcolataDaVettSgn(int count, const std::vector<PL_PNT2D_record>& points) const noexcept;
    double AreaCalcolataDaVett(int count, const std::vector<PL_PNT2D_record>& points) const noexcept;
    double CalcDist(const PL_PNT2D_record& a, const PL_PNT2D_record& b) const noexcept;
    void IncrementaVett(const PL_PNT2D_record& p);
    void TrovaLimitiSegmento(PL_PNT2D_record& r1, PL_PNT2D_record& r2, const PL_PNT2D_record& p) noexcept;
    void TrovaLimitiSegmento2(const PL_PNT2D_record& r1, PL_PNT2D_record& r2,
                              const PL_PNT2D_record& p) noexcept;
    bool TrovataIntersezValidaSegmConLato2(int i, const PL_IMP_LINE_2D_record& line,
                                           PL_PNT2D_record& out) const noexcept;

    const CPoint3dVector& Poligono;     // the caller's parcel
    PL_PNT2D_record PuntoLato1;         // reference side's first point, or the reference vertex
    PL_PNT2D_record PuntoLato2;         // reference side's second point
    std::int32_t Modo;                  // kind of cut
    std::int32_t TipoArea;              // how the requested area is given
    double Valore1;                     // first area datum
    double Valore2;                     // second area datum
    PL_PNT2D_record PuntoRis1;          // first end of the dividing line
    PL_PNT2D_record PuntoRis2;          // second end of the dividing line
    PL_PNT2D_record PuntoMedio;         // midpoint of the current chord
    PL_PNT2D_record PuntoVertice;       // the reference vertex of mode 2
    std::int32_t NumIntersez;           // sides that the trial line met in this evaluation
    std::int32_t NumPuntiParz;          // points in the partial polygon
    bool Trovato;                       // the request is met
    std::int32_t NumPunti;              // points of the working polygon, its closing copy not counted
    std::int32_t IndiceInizio;          // where the reference side or vertex is in the ring; -1 unknown
    double DistLinea;                   // distance of the trial line from the base line
    double AngLinea;                    // gons, anticlockwise from +x, from the base line to the trial line
    double AreaParziale;                // area of the last partial polygon, never negative
    double AreaRichiesta;               // requested area
    double AngInizio;                   // mode 2: gons, anticlockwise from +x, where the wedge starts
    double AngAmpiezza;                 // mode 2: gons, width of the wedge
    PL_IMP_LINE_2D_record RettaBase;    // line of the reference side
    PL_IMP_LINE_2D_record RettaMobile;  // trial line
    PL_IMP_LINE_2D_record RettaAux;     // mode 2: line along the trial ray
    std::vector<PL_PNT2D_record> VettPoligono;  // working polygon, closed by a copy of its first point
    std::vector<PL_PNT2D_record> VettParziale;  // partial polygon of the current evaluation
    std::vector<std::int32_t> VettIndici;       // indices of VettPoligono from IndiceInizio round to itself
};
