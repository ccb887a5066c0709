#include "calls.h"

#include <memory>
#include <utility>

#include "arguments.h"

namespace {

using test::call;
using test::Data;
using test::Outcome;

CPoint3dVector three_points(Data& data)
{
    CPoint3dVector points;
    for (int i = 0; i < 3; ++i) {
        const PL_PNT2D_record p = data.point();
        points.Append(p.x, p.y, data.coordinate());
    }
    return points;
}

// --- special members, and members of the container: what each leaves ---

Outcome default_constructor(Data& data)
{
    CPoint3dVector points;
    Outcome outcome;
    outcome.add(points);
    points.Append(data.coordinate(), 0.0, 0.0);
    outcome.add(points);
    return outcome;
}

Outcome list_constructor(Data& data)
{
    const PL_PNT2D_record p = data.point();
    const PL_PNT2D_record q = data.point();
    Outcome outcome;
    outcome.add(CPoint3dVector{{p.x, p.y, 0.0}, {q.x, q.y, 0.0}});
    return outcome;
}

Outcome copy_constructor(Data& data)
{
    // Of the parcel that every thread reads.
    CPoint3dVector copy(data.parcel());
    copy.Append(data.coordinate(), data.coordinate(), 0.0);
    Outcome outcome;
    outcome.add(copy);
    return outcome;
}

Outcome move_constructor(Data& data)
{
    CPoint3dVector from = three_points(data);
    const CPoint3dVector to(std::move(from));
    Outcome outcome;
    outcome.add(to);
    return outcome;
}

Outcome copy_assignment(Data& data)
{
    CPoint3dVector to = three_points(data);
    Outcome outcome;
    outcome.add(to);
    to = data.parcel();
    outcome.add(to);
    return outcome;
}

Outcome move_assignment(Data& data)
{
    CPoint3dVector to = three_points(data);
    to = three_points(data);
    Outcome outcome;
    outcome.add(to);
    return outcome;
}

Outcome destructor(Data& data)
{
    Outcome outcome;
    const auto points = std::make_unique<CPoint3dVector>(three_points(data));
    outcome.add(*points);
    return outcome;
}

Outcome append(Data& data)
{
    CPoint3dVector points = three_points(data);
    points.Append(data.coordinate(), data.coordinate(), data.coordinate());
    Outcome outcome;
    outcome.add(points);
    return outcome;
}

Outcome reserve(Data& data)
{
    CPoint3dVector points = three_points(data);
    points.Reserve(data.below(1000));
    Outcome outcome;
    outcome.add(points);
    return outcome;
}

Outcome clear(Data& data)
{
    CPoint3dVector points = three_points(data);
    points.Clear();
    points.Append(data.coordinate(), data.coordinate(), 0.0);
    Outcome outcome;
    outcome.add(points);
    return outcome;
}

Outcome get_no_poits(Data& data)
{
    CPoint3dVector points = three_points(data);
    points.Append(0.0, 0.0, 0.0);
    Outcome outcome;
    outcome.add((data.below(2) == 0 ? data.parcel() : points).GetNoPoits());
    return outcome;
}

Outcome get_xcoord_at(Data& data)
{
    Outcome outcome;
    outcome.add(data.parcel().GetXcoordAt(data.below(data.parcel().GetNoPoits())));
    return outcome;
}

Outcome get_ycoord_at(Data& data)
{
    Outcome outcome;
    outcome.add(data.parcel().GetYcoordAt(data.below(data.parcel().GetNoPoits())));
    return outcome;
}

// --- the subdivision ---

Outcome request_constructor(Data& data)
{
    const CFrazArea object = data.request();
    Outcome outcome;
    outcome.add(object);
    return outcome;
}

Outcome request_copy(Data& data)
{
    CFrazArea object = data.request();
    Outcome outcome;
    outcome.add_run(object);
    CFrazArea copy(object);
    outcome.add_run(copy);
    return outcome;
}

Outcome request_destructor(Data& data)
{
    const auto object = std::make_unique<CFrazArea>(data.request());
    Outcome outcome;
    outcome.add_run(*object);
    return outcome;
}

Outcome request_run_twice(Data& data)
{
    CFrazArea object = data.request();
    Outcome outcome;
    outcome.add_run(object);
    outcome.add_run(object);
    return outcome;
}

bool meets_side(const CFrazArea& object, int i, const PL_IMP_LINE_2D_record& line, PL_PNT2D_record& out)
{
    return CFrazAreaInspector::TrovataIntersezValidaSegmConLato2(object, i + 1, line, out);  // from 1 on
}

test::Call row(const char* symbol, Outcome (*run)(Data&))
{
    return {symbol, run};
}

// The name and the parameters are the symbol, and choose the function.
#define FREE(result, name, parameters)                                                                       \
    row(#name #parameters, [](Data& data) { return call(static_cast<result(*) parameters>(name), data); })

// The private members, which are exported too, by way of the inspector.
#define SEARCH(name, parameters)                                                                             \
    row("CFrazArea::" #name parameters, [](Data& data) { return call(&CFrazAreaInspector::name, data); })

const std::vector<test::Call> kCalls = {
    FREE(void, PlFunz_set_pnt_2d, (double, double, PL_PNT2D_record*)),
    FREE(void, PlFunz_set_pnt_3d, (double, double, double, PL_PNT3D_record*)),
    FREE(void, PlFunz_set_line_2d, (double, double, double, double, PL_LINE_2D_record*)),
    FREE(void, PlFunz_set_rect_2d, (double, double, double, double, PL_RECT_2D_record*)),
    FREE(void, PlFunz_set_rect_3d, (double, double, double, double, double, double, PL_RECT_3D_record*)),
    FREE(void, PlFunz_set_arc_2d, (double, double, double, PL_AngleMeasType, double, double, ARC_2D_record*)),
    FREE(const char*, PlFunz_version, ()),
    FREE(double, PlFunz_inverse, (double)),
    FREE(double, PlFunz_sumsqrdparms, (double, double)),
    FREE(double, PlFunz_distance, (PL_PNT2D_record const*, PL_PNT2D_record const*)),
    FREE(bool, PlFunz_samepnt, (PL_PNT2D_record const*, PL_PNT2D_record const*)),
    FREE(double, PlFunz_arctan_rad, (double, double)),
    FREE(double, PlFunz_arctan_deg, (double, double)),
    FREE(void, PlFunz_pseudo_angdist, (PL_PNT2D_record const*, PL_PNT2D_record const*, double*, double*)),
    FREE(void, PlFunz_pntangledist, (int, PL_PNT2D_record const*, double, double, PL_PNT2D_record*)),
    FREE(void, PlFunz_getidmatrix2d, (double (*)[3])),
    FREE(void, PlFunz_rotationmatrix2d, (double, PL_PNT2D_record const*, double (*)[3])),
    FREE(void, PlFunz_translatematrix2d, (double, double, double (*)[3])),
    FREE(void, PlFunz_scalematrix2d, (double, double, PL_PNT2D_record const*, double (*)[3])),
    FREE(void, PlFunz_transformpnt2d, (double const (*)[3], PL_PNT2D_record const*, PL_PNT2D_record*)),
    FREE(void, TrasfPt, (double const (&)[3][3], double, double, double&, double&)),

    FREE(int, PlFunz_lineeq_ile, (PL_PNT2D_record const*, PL_PNT2D_record const*, PL_IMP_LINE_2D_record*)),
    FREE(int, PlFunz_normal_ile, (PL_IMP_LINE_2D_record*)),
    FREE(void, PlFunz_linepntperpend,
         (PL_IMP_LINE_2D_record const*, PL_PNT2D_record const*, PL_IMP_LINE_2D_record*)),
    FREE(void, PlFunz_linepntparallel,
         (PL_IMP_LINE_2D_record*, PL_PNT2D_record const*, PL_IMP_LINE_2D_record const*)),
    FREE(double, PlFunz_ordinate_ile, (PL_IMP_LINE_2D_record const*, double)),
    FREE(double, PlFunz_abscissa_ile, (PL_IMP_LINE_2D_record const*, double)),
    FREE(bool, PlFunz_intersect_ile,
         (PL_IMP_LINE_2D_record const*, PL_IMP_LINE_2D_record const*, PL_PNT2D_record*)),
    FREE(bool, PlFunz_intersect_ils,
         (PL_IMP_LINE_2D_record const*, PL_LINE_2D_record const*, PL_PNT2D_record*)),
    FREE(bool, PlFunz_intersect_ls, (PL_LINE_2D_record const*, PL_LINE_2D_record const*, PL_PNT2D_record*)),
    FREE(double, PlFunz_distpntln_ls, (PL_PNT2D_record const*, PL_LINE_2D_record const*)),
    FREE(bool, PlFunz_pnts_in_line, (PL_PNT2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record const*)),

    FREE(double, PlFunz_arcangle, (int, PL_PNT2D_record const*, PL_PNT2D_record const*)),
    FREE(int, PlFunz_arc_3pnts,
         (PL_PNT2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record const*, ARC_2D_record*)),
    FREE(void, PlFunz_arc_end_pnts, (ARC_2D_record const*, PL_PNT2D_record*, PL_PNT2D_record*)),
    FREE(double, PlFunz_distpntarc, (ARC_2D_record const*, PL_PNT2D_record const*)),
    FREE(void, PlFunz_arc_rect,
         (ARC_2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record const*, PL_RECT_2D_record*)),
    FREE(bool, PlFunz_intarcline_ls,
         (ARC_2D_record const*, PL_LINE_2D_record const*, PL_PNT2D_record*, PL_PNT2D_record*, int*)),
    FREE(bool, PlFunz_inpolygon, (PL_PNT2D_record const*, PL_PNT2D_record const*, int const*, int*)),

    FREE(bool, TrovatoValNeiLimiti, (double, double, double)),
    FREE(bool, TrovatoPuntoInSegmento,
         (PL_PNT2D_record const&, PL_PNT2D_record const&, PL_PNT2D_record const&)),
    FREE(bool, CalcoloIntersezioneRette,
         (PL_IMP_LINE_2D_record const&, PL_IMP_LINE_2D_record const&, PL_PNT2D_record&)),
    FREE(bool, CalcoloIntersezioneRette,
         (double, double, double, double, double, double, double, double, double&, double&)),
    FREE(bool, CalcoloIntersezioneRetteExt,
         (double, double, double, double, double, double, double, double, double&, double&)),
    FREE(double, CalcCoordYsuSegmento, (double, double, double, double, double)),
    FREE(bool, IntersezLineaInSegmOK,
         (PL_PNT2D_record const&, PL_PNT2D_record const&, PL_IMP_LINE_2D_record const&, PL_PNT2D_record&)),
    FREE(bool, CimaSegm, (PL_PNT2D_record*, PL_PNT2D_record*, PL_PNT2D_record*, PL_PNT2D_record*)),
    FREE(void, CalcPtAtDistSuSegm,
         (PL_PNT2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record const*, double, PL_PNT2D_record*)),
    FREE(void, CalcPtAtDistSuLineaImp,
         (PL_IMP_LINE_2D_record const*, PL_PNT2D_record const*, double, PL_PNT2D_record*)),
    FREE(double, DistPtSuSegmDaPt,
         (PL_PNT2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record const*)),
    FREE(double, DistSegmDaPt,
         (PL_PNT2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record*)),
    FREE(void, CalcDistPuntoDaRetta,
         (PL_IMP_LINE_2D_record const*, PL_PNT2D_record const*, double&, double&)),
    FREE(bool, IntersPerpDaPtInSegm,
         (PL_PNT2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record const*, PL_PNT2D_record*)),
    FREE(void, CalcPtSquadro,
         (PL_PNT2D_record const*, PL_PNT2D_record const*, double, double, PL_PNT2D_record*)),
    FREE(void, CalcPtAngDist,
         (PL_PNT2D_record const*, PL_PNT2D_record const*, double, double, PL_PNT2D_record*)),
    FREE(void, CalcoloQuotaSuSegmento,
         (double, double, double, double, double, double, double, double, double&)),
    FREE(void, CalcoloBdry, (double, double, double, double, double, double, PL_RECT_3D_record*)),
    FREE(bool, NumeroEstZero, (double, double const&)),
    FREE(bool, StessoPunto, (PL_PNT2D_record const&, PL_PNT2D_record const&, double const&)),
    FREE(double, AreaCalcolataSgn, (CPoint3dVector const&)),
    FREE(double, AreaCalcolata, (CPoint3dVector const&)),
    FREE(double, PeriCalcolato, (CPoint3dVector const&)),

    FREE(double, AngoloDaAsseRifer, (double, double)),
    FREE(double, LimiteAng0_400, (double)),
    FREE(double, LimiteAng200_200, (double)),
    FREE(double, CalcCoordEst, (double, double)),
    FREE(double, CalcCoordNord, (double, double)),
    {"CPoint3dVector::CPoint3dVector()", default_constructor},
    {"CPoint3dVector::CPoint3dVector(std::initializer_list<CPoint3d>)", list_constructor},
    {"CPoint3dVector::CPoint3dVector(CPoint3dVector const&)", copy_constructor},
    {"CPoint3dVector::CPoint3dVector(CPoint3dVector&&)", move_constructor},
    {"CPoint3dVector::operator=(CPoint3dVector const&)", copy_assignment},
    {"CPoint3dVector::operator=(CPoint3dVector&&)", move_assignment},
    {"CPoint3dVector::~CPoint3dVector()", destructor},
    {"CPoint3dVector::Append(double, double, double)", append},
    {"CPoint3dVector::Reserve(int)", reserve},
    {"CPoint3dVector::Clear()", clear},
    {"CPoint3dVector::GetNoPoits() const", get_no_poits},
    {"CPoint3dVector::GetXcoordAt(int) const", get_xcoord_at},
    {"CPoint3dVector::GetYcoordAt(int) const", get_ycoord_at},

    {"CFrazArea::CFrazArea(CPoint3dVector const&, PL_PNT2D_record, PL_PNT2D_record, int, int, double, "
     "double)",
     request_constructor},
    {"CFrazArea::CFrazArea(CFrazArea const&)", request_copy},
    {"CFrazArea::~CFrazArea()", request_destructor},
    {"CFrazArea::Esegui(double&, double&, double&, double&, double&, double&)", request_run_twice},
    SEARCH(CalcolaFrazionLineaPar, "()"),
    SEARCH(CalcolaFrazionLineaPerp, "()"),
    SEARCH(CalcolaFrazionPuntoVer, "()"),
    SEARCH(TrovatoPuntoMaxEtMedioConPuntoPrec, "(PL_PNT2D_record&)"),
    SEARCH(CalcAreaDaPuntoPrimaDiVertice, "(PL_PNT2D_record&, PL_PNT2D_record&)"),
    SEARCH(CalcAreaDaVertice, "()"),
    SEARCH(AreaCalcolataDaVettSgn, "(int, std::vector<PL_PNT2D_record, std::allocator<PL_PNT2D_record> > "
                                   "const&) const"),
    SEARCH(AreaCalcolataDaVett, "(int, std::vector<PL_PNT2D_record, std::allocator<PL_PNT2D_record> > "
                                "const&) const"),
    SEARCH(CalcDist, "(PL_PNT2D_record const&, PL_PNT2D_record const&) const"),
    SEARCH(IncrementaVett, "(PL_PNT2D_record const&)"),
    SEARCH(TrovaLimitiSegmento, "(PL_PNT2D_record&, PL_PNT2D_record&, PL_PNT2D_record const&)"),
    SEARCH(TrovaLimitiSegmento2, "(PL_PNT2D_record const&, PL_PNT2D_record&, PL_PNT2D_record const&)"),
    {"CFrazArea::TrovataIntersezValidaSegmConLato2(int, PL_IMP_LINE_2D_record const&, PL_PNT2D_record&) "
     "const",
     [](Data& data) { return call(&meets_side, data); }},
};

#undef FREE
#undef SEARCH

}  // namespace

namespace test {

const std::vector<Call>& calls()
{
    return kCalls;
}

}  // namespace test
