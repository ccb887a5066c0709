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
/// Use one object per request: construct it and call Esegui once, which writes the dividing line. There are
/// three kinds of cut:
///
/// | modo | the line runs                | p1, p2                                   | the requested area lies  |
/// | ---- | ---------------------------- | ---------------------------------------- | ------------------------ |
/// | 0    | parallel to the side p1-p2   | consecutive vertices, in the ring's order | along that side          |
/// | 1    | perpendicular to side p1-p2  | consecutive vertices, in the ring's order | ahead, from p1 to p2     |
/// | 2    | through the vertex p1        | p1 a vertex, p2 without effect            | next to the side after p1 |
///
/// A result of true means that the search ran, not that it met the request. The line does not hold what was
/// asked for when it leaves the parcel on its way, and when the request is zero, negative, or not below the
/// parcel's area. So measure the pieces.
///
/// For good answers prepare the parcel in two ways. Shift it to a local origin: at coordinates of 5e6 the ends
/// of the line lie up to 5e-5 off the boundary with sides of 10, and the cut through a vertex misses the 1e-6
/// in a tenth of the requests on parcels 100 across, and in most requests on smaller ones. And turn it so that
/// the direction in which the line moves is not near +x: that direction is across the base side in mode 0, and
/// along it in mode 1.
///
/// The parcel is shared, not copied: the vector must outlive the object and must not change until Esegui has
/// returned. An object serves one thread at a time; objects in several threads may share a parcel.
///
/// Tolerance   The search ends when the area differs by less than a relative 1e-6: in modes 0 and 2 of the
///             request, in mode 1 of what is still to be cut from one half of the parcel. A side counts as met
///             up to 0.001 beyond its ends, as in IntersezLineaInSegmOK. In modes 0 and 1 a vertex lies beyond
///             the line when it is farther from the base line and its direction from there is within 1 gon of
///             the line's.
/// Exactness   Every operation has its fixed place, from the line equations to the shoelace sum. For the ray of
///             mode 2 gons become radians by 0.01570796327. The ends lie on the lines of two sides, up to
///             rounding, and up to 0.001 beyond the ends of those sides.
/// Source      Bisection: at most 30 halvings of the distance in modes 0 and 1, at most 49 rays in mode 2.
class PLCALC_API CFrazArea {
public:
    /// Notes the request. Nothing is computed yet.
    ///
    /// @param[in] poly      the ring, in either direction, its first vertex not repeated; heights are ignored
    /// @param[in] p1, p2    reference side or vertex; compared with the ring's vertices by ==, without any
    ///                      tolerance: -0.0 equals 0.0, and a NaN equals nothing
    /// @param[in] modo      0 parallel, 1 perpendicular, 2 through a vertex
    /// @param[in] tipoArea  0: the area is valore2 * valore1; 1: it is valore1; any other value sets no area,
    ///                      so that 0 is searched for
    /// @param[in] valore1   first datum: a length or an area, caller's unit
    /// @param[in] valore2   second datum: a length, or without effect
    ///
    /// Aliasing    The points are copied, poly is kept by reference.
    CFrazArea(const CPoint3dVector& poly, PL_PNT2D_record p1, PL_PNT2D_record p2, int modo, int tipoArea,
              double valore1, double valore2) noexcept;

    /// Deleted, because a temporary parcel would be gone before Esegui reads it.
    CFrazArea(const CPoint3dVector&& poly, PL_PNT2D_record p1, PL_PNT2D_record p2, int modo, int tipoArea,
              double valore1, double valore2) = delete;

    /// Copies everything, working values and results included. The parcel stays shared.
    ///
    /// @param[in] other  the object to copy
    ///
    /// Degenerate  The working vectors are copied to the heap, so std::bad_alloc may be thrown.
    CFrazArea(const CFrazArea& other);

    /// Deleted, because an object keeps referring to the parcel that it was made with.
    CFrazArea& operator=(const CFrazArea&) = delete;

    /// Releases the working vectors. The parcel is not touched.
    ~CFrazArea();

    /// Searches the dividing line.
    ///
    /// @param[out] x1, y1  first end of the line, caller's unit
    /// @param[out] z1      always 0
    /// @param[out] x2, y2  second end of the line, caller's unit
    /// @param[out] z2      always 0
    /// @return false when the reference side or vertex is not in the ring, when a perpendicular meets no other
    ///         side, when the parcel has too few points, and when modo is unknown; the outputs are then what
    ///         the object holds as its result, which is zeros at first. Otherwise true, which does not say that
    ///         the request is met: see above.
    ///
    /// Degenerate  Modes 0 and 1 need two points, mode 2 needs one. A request of 0 is never met: the search
    ///             runs to its end. A negative one, and -0.0, counts as met by the first line that is tried;
    ///             mode 1 first subtracts it from one half of the parcel. A second call starts from what the
    ///             first one left. In mode 1 that is another reference side, which is as a rule not a side of
    ///             the parcel: the result is then false, and the outputs are those of the first call.
    /// Aliasing    The outputs are written last, in the order of the arguments, and are never read.
    /// Exactness   See the class. The bits do not depend on what other objects have done, nor on what this one
    ///             has done, except in a second call.
    ///
    /// Memory, for n vertices: the object keeps 52 bytes per vertex. While a search runs, it takes up to 200
    /// more per vertex in modes 0 and 1, and up to 60 more in mode 2, on 64-bit machines; and in modes 0 and 1,
    /// where coordinates exceed 1e6, as a rule 16 and at most 131 kilobytes of directions. std::bad_alloc is the only
    /// exception that may be thrown; after it the object can only be destroyed.
    ///
    /// Time, for n vertices: mode 2 turns at most 49 rays. Each compares every direction once and meets only
    /// the sides near it. Mode 0 tries a line through each vertex until one cuts off more than the request, and
    /// bisects from there. A line meets only the sides near it, and finds each of them in a logarithmic number
    /// of steps. A bisection that cannot succeed, since too much lies behind the base line, is as a rule recognised
    /// by its first line. It is run, 30 lines for a vertex, where the request comes near to what such a line cuts
    /// off; where both coordinates together exceed 3e7, or exceed 1e6 with one of them near 0; and where an upright
    /// base side leans to the right, but by so little that bearings jump from 400 to 0 within the parcel.
    bool Esegui(double& x1, double& y1, double& z1, double& x2, double& y2, double& z2);

private:
    // The searches behind Esegui, which keep values between trials.
    friend class plcalc::ParallelSearch;
    friend class plcalc::VertexSearch;

    // The three kinds of cut.
    bool CalcolaFrazionLineaPar();
    bool CalcolaFrazionLineaPerp();
    bool CalcolaFrazionPuntoVer();

    // Steps of the searches. Esegui calls none of these three, and neither IncrementaVett nor
    // TrovataIntersezValidaSegmConLato2 below: its searches keep between trials what these compute anew, and
    // come to the same bits. All five stay, because their names are settled and exported.
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
