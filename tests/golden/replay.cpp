/// Replays golden files against the library: `replay [--exact] file...`
///
/// Every line names a call, its operands and the results that an independent computation gave. Results are
/// compared bit for bit; a NaN equals any NaN. Lines that end in `~` have passed through the platform's own
/// sine, cosine or arctangent and may differ by the tolerances below, unless --exact is given. README.md
/// describes the format.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "plcalc/arcs.h"
#include "plcalc/kernel.h"
#include "plcalc/lines.h"
#include "plcalc/subdivision.h"
#include "plcalc/survey.h"
#include "plutil/plutil.h"

namespace {

// What an output holds before the call; one that comes back was never written.
constexpr double kSentinel = 0x1.5p+77;
constexpr int kIntSentinel = -77;
constexpr PL_PNT2D_record kNoPoint = {kSentinel, kSentinel};
constexpr PL_IMP_LINE_2D_record kNoLine = {kSentinel, kSentinel, kSentinel};
constexpr PL_RECT_2D_record kNoRect = {kSentinel, kSentinel, kSentinel, kSentinel};
constexpr PL_RECT_3D_record kNoBox = {kSentinel, kSentinel, kSentinel, kSentinel, kSentinel, kSentinel};
constexpr ARC_2D_record kNoArc = {kNoPoint, kSentinel, static_cast<PL_AngleMeasType>(kIntSentinel), kSentinel,
                                  kSentinel};

// Tolerances of `~` lines; reference/tolerance.py says why these. Angles: relative to the angle, at least 1.
// Lengths: relative to the largest operand, at least 1.
constexpr double kAngleRelTol = 0x1p-50;
constexpr double kLengthRelTol = 0x1p-48;
constexpr double kSubdivisionRelTol = 0x1p-43;

struct Matrix {
    double m[3][3];
};

using Ring = std::vector<PL_PNT2D_record>;

// ------------------------------------------------------------------------------------ operands, results

/// The words of one line's left side, taken one after the other.
class Operands {
public:
    explicit Operands(std::vector<std::string> words) : words_(std::move(words)) {}

    double d()
    {
        const std::string word = next();
        char* end = nullptr;
        const double v = std::strtod(word.c_str(), &end);
        if (word.empty() || *end != '\0')
            good_ = false;
        if (std::isfinite(v) && std::fabs(v) > largest_)
            largest_ = std::fabs(v);
        return v;
    }

    int i()
    {
        const std::string word = next();
        char* end = nullptr;
        const long v = std::strtol(word.c_str(), &end, 10);
        if (word.empty() || *end != '\0')
            good_ = false;
        return static_cast<int>(v);
    }

    PL_PNT2D_record point()
    {
        const double x = d();
        return {x, d()};
    }

    PL_IMP_LINE_2D_record line()
    {
        const double a = d();
        const double b = d();
        return {a, b, d()};
    }

    PL_LINE_2D_record segment()
    {
        const PL_PNT2D_record start = point();
        return {start, point()};
    }

    ARC_2D_record arc()
    {
        const PL_PNT2D_record centre = point();
        const double radius = d();
        const auto type = static_cast<PL_AngleMeasType>(i());
        const double start = d();
        return {centre, radius, type, start, d()};
    }

    Matrix matrix()
    {
        Matrix matrix{};
        for (auto& row : matrix.m) {
            for (double& v : row)
                v = d();
        }
        return matrix;
    }

    Ring ring()
    {
        const int count = i();
        if (count < 0 || static_cast<std::size_t>(count) * 2 > words_.size() - taken_) {
            good_ = false;
            return {};
        }
        Ring ring;
        for (int k = 0; k < count; ++k)
            ring.push_back(point());
        return ring;
    }

    /// The same ring as the library takes it; heights are there to be ignored.
    CPoint3dVector parcel()
    {
        CPoint3dVector parcel;
        double height = 7.5;
        for (const PL_PNT2D_record& p : ring())
            parcel.Append(p.x, p.y, height += 0.25);
        return parcel;
    }

    bool used_up() const { return good_ && taken_ == words_.size(); }
    double largest() const { return largest_; }

private:
    std::string next()
    {
        if (taken_ == words_.size()) {
            good_ = false;
            return {};
        }
        return words_[taken_++];
    }

    std::vector<std::string> words_;
    std::size_t taken_ = 0;
    bool good_ = true;
    double largest_ = 1.0;
};

enum class Kind { kInt, kLength, kAngle };

struct Result {
    Kind kind;
    double d;
    int i;
};

/// What the call gave, flattened in the order of the line's right side.
class Results {
public:
    void i(int v) { all_.push_back({Kind::kInt, 0.0, v}); }
    void d(double v) { all_.push_back({Kind::kLength, v, 0}); }
    void angle(double v) { all_.push_back({Kind::kAngle, v, 0}); }

    void point(const PL_PNT2D_record& p)
    {
        d(p.x);
        d(p.y);
    }

    void line(const PL_IMP_LINE_2D_record& l)
    {
        d(l.a);
        d(l.b);
        d(l.c);
    }

    void rect(const PL_RECT_2D_record& r)
    {
        d(r.xmin);
        d(r.ymin);
        d(r.xmax);
        d(r.ymax);
    }

    void box(const PL_RECT_3D_record& r)
    {
        d(r.xmin);
        d(r.ymin);
        d(r.zmin);
        d(r.xmax);
        d(r.ymax);
        d(r.zmax);
    }

    void arc(const ARC_2D_record& a)
    {
        point(a.centre);
        d(a.radius);
        i(static_cast<int>(a.angle_type));
        angle(a.start_angle);
        angle(a.end_angle);
    }

    void matrix(const Matrix& matrix)
    {
        for (const auto& row : matrix.m) {
            for (const double v : row)
                d(v);
        }
    }

    const std::vector<Result>& all() const { return all_; }

private:
    std::vector<Result> all_;
};

// ------------------------------------------------------------------------------------------------ calls

using In = Operands;
using Out = Results;

/// Parcel, side, mode, kind of area and its two values, as one line holds them.
struct Request {
    CPoint3dVector parcel;
    PL_PNT2D_record p1;
    PL_PNT2D_record p2;
    int mode;
    int area_kind;
    double value1;
    double value2;

    explicit Request(In& in)
        : parcel(in.parcel()), p1(in.point()), p2(in.point()), mode(in.i()), area_kind(in.i()),
          value1(in.d()), value2(in.d())
    {}

    CFrazArea division() const { return CFrazArea(parcel, p1, p2, mode, area_kind, value1, value2); }
};

void ask(CFrazArea& division, Out& out)
{
    double v[6] = {kSentinel, kSentinel, kSentinel, kSentinel, kSentinel, kSentinel};
    out.i(division.Esegui(v[0], v[1], v[2], v[3], v[4], v[5]));
    for (const double each : v)
        out.d(each);
}

struct Call {
    const char* name;
    void (*run)(In& in, Out& out);
};

// Operands are read into locals one by one: the order of a call's arguments is nobody's promise.
const Call kCalls[] = {
    // ------------------------------------------------------------------------------------------- kernel
    {"PlFunz_set_pnt_2d",
     [](In& in, Out& out) {
         const double x = in.d(), y = in.d();
         PL_PNT2D_record p = kNoPoint;
         PlFunz_set_pnt_2d(x, y, &p);
         out.point(p);
     }},
    {"PlFunz_set_pnt_3d",
     [](In& in, Out& out) {
         const double x = in.d(), y = in.d(), z = in.d();
         PL_PNT3D_record p = {kSentinel, kSentinel, kSentinel};
         PlFunz_set_pnt_3d(x, y, z, &p);
         out.d(p.x);
         out.d(p.y);
         out.d(p.z);
     }},
    {"PlFunz_set_line_2d",
     [](In& in, Out& out) {
         const double x1 = in.d(), y1 = in.d(), x2 = in.d(), y2 = in.d();
         PL_LINE_2D_record s = {kNoPoint, kNoPoint};
         PlFunz_set_line_2d(x1, y1, x2, y2, &s);
         out.point(s.start);
         out.point(s.end);
     }},
    {"PlFunz_set_rect_2d",
     [](In& in, Out& out) {
         const double x1 = in.d(), y1 = in.d(), x2 = in.d(), y2 = in.d();
         PL_RECT_2D_record r = kNoRect;
         PlFunz_set_rect_2d(x1, y1, x2, y2, &r);
         out.rect(r);
     }},
    {"PlFunz_set_rect_3d",
     [](In& in, Out& out) {
         const double x1 = in.d(), y1 = in.d(), z1 = in.d(), x2 = in.d(), y2 = in.d(), z2 = in.d();
         PL_RECT_3D_record r = kNoBox;
         PlFunz_set_rect_3d(x1, y1, z1, x2, y2, z2, &r);
         out.box(r);
     }},
    {"PlFunz_set_arc_2d",
     [](In& in, Out& out) {
         const ARC_2D_record a = in.arc();
         ARC_2D_record arc = kNoArc;
         PlFunz_set_arc_2d(a.centre.x, a.centre.y, a.radius, a.angle_type, a.start_angle, a.end_angle, &arc);
         out.arc(arc);
     }},
    {"PlFunz_set_arc_2d/null",
     [](In& in, Out&) {
         const ARC_2D_record a = in.arc();
         PlFunz_set_arc_2d(a.centre.x, a.centre.y, a.radius, a.angle_type, a.start_angle, a.end_angle,
                           nullptr);
     }},
    {"PlFunz_inverse", [](In& in, Out& out) { out.d(PlFunz_inverse(in.d())); }},
    {"PlFunz_sumsqrdparms",
     [](In& in, Out& out) {
         const double a = in.d(), b = in.d();
         out.d(PlFunz_sumsqrdparms(a, b));
     }},
    {"PlFunz_distance",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point(), q = in.point();
         out.d(PlFunz_distance(&p, &q));
     }},
    {"PlFunz_samepnt",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point(), q = in.point();
         out.i(PlFunz_samepnt(&p, &q));
     }},
    {"PlFunz_arctan_rad",
     [](In& in, Out& out) {
         const double x = in.d(), y = in.d();
         out.angle(PlFunz_arctan_rad(x, y));
     }},
    {"PlFunz_arctan_deg",
     [](In& in, Out& out) {
         const double x = in.d(), y = in.d();
         out.angle(PlFunz_arctan_deg(x, y));
     }},
    {"PlFunz_pseudo_angdist",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point(), q = in.point();
         double angle = kSentinel, dist = kSentinel;
         PlFunz_pseudo_angdist(&p, &q, &angle, &dist);
         out.d(angle);
         out.d(dist);
     }},
    {"PlFunz_pntangledist",
     [](In& in, Out& out) {
         const int unit = in.i();
         const PL_PNT2D_record origin = in.point();
         const double dist = in.d(), angle = in.d();
         PL_PNT2D_record p = kNoPoint;
         PlFunz_pntangledist(unit, &origin, dist, angle, &p);
         out.point(p);
     }},
    {"PlFunz_pntangledist/inplace",
     [](In& in, Out& out) {
         const int unit = in.i();
         PL_PNT2D_record p = in.point();
         const double dist = in.d(), angle = in.d();
         PlFunz_pntangledist(unit, &p, dist, angle, &p);
         out.point(p);
     }},
    {"PlFunz_getidmatrix2d",
     [](In& in, Out& out) {
         Matrix m = in.matrix();
         PlFunz_getidmatrix2d(m.m);
         out.matrix(m);
     }},
    {"PlFunz_rotationmatrix2d",
     [](In& in, Out& out) {
         const double angle = in.d();
         const PL_PNT2D_record centre = in.point();
         Matrix m = in.matrix();
         PlFunz_rotationmatrix2d(angle, &centre, m.m);
         out.matrix(m);
     }},
    {"PlFunz_translatematrix2d",
     [](In& in, Out& out) {
         const double dx = in.d(), dy = in.d();
         Matrix m = in.matrix();
         PlFunz_translatematrix2d(dx, dy, m.m);
         out.matrix(m);
     }},
    {"PlFunz_scalematrix2d",
     [](In& in, Out& out) {
         const double sx = in.d(), sy = in.d();
         const PL_PNT2D_record centre = in.point();
         Matrix m = in.matrix();
         PlFunz_scalematrix2d(sx, sy, &centre, m.m);
         out.matrix(m);
     }},
    {"PlFunz_transformpnt2d",
     [](In& in, Out& out) {
         const Matrix m = in.matrix();
         const PL_PNT2D_record p = in.point();
         PL_PNT2D_record q = kNoPoint;
         PlFunz_transformpnt2d(m.m, &p, &q);
         out.point(q);
     }},
    {"PlFunz_transformpnt2d/inplace",
     [](In& in, Out& out) {
         const Matrix m = in.matrix();
         PL_PNT2D_record p = in.point();
         PlFunz_transformpnt2d(m.m, &p, &p);
         out.point(p);
     }},
    {"TrasfPt",
     [](In& in, Out& out) {
         const Matrix m = in.matrix();
         const double x = in.d(), y = in.d();
         double x_out = kSentinel, y_out = kSentinel;
         TrasfPt(m.m, x, y, x_out, y_out);
         out.d(x_out);
         out.d(y_out);
     }},

    // -------------------------------------------------------------------------------------------- lines
    {"PlFunz_lineeq_ile",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point(), q = in.point();
         PL_IMP_LINE_2D_record line = kNoLine;
         out.i(PlFunz_lineeq_ile(&p, &q, &line));
         out.line(line);
     }},
    {"PlFunz_normal_ile",
     [](In& in, Out& out) {
         PL_IMP_LINE_2D_record line = in.line();
         out.i(PlFunz_normal_ile(&line));
         out.line(line);
     }},
    {"PlFunz_linepntperpend",
     [](In& in, Out& out) {
         const PL_IMP_LINE_2D_record line = in.line();
         const PL_PNT2D_record p = in.point();
         PL_IMP_LINE_2D_record perpendicular = kNoLine;
         PlFunz_linepntperpend(&line, &p, &perpendicular);
         out.line(perpendicular);
     }},
    {"PlFunz_linepntparallel",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point();
         const PL_IMP_LINE_2D_record line = in.line();
         PL_IMP_LINE_2D_record parallel = kNoLine;
         PlFunz_linepntparallel(&parallel, &p, &line);
         out.line(parallel);
     }},
    {"PlFunz_linepntparallel/inplace",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point();
         PL_IMP_LINE_2D_record line = in.line();
         PlFunz_linepntparallel(&line, &p, &line);
         out.line(line);
     }},
    {"PlFunz_ordinate_ile",
     [](In& in, Out& out) {
         const PL_IMP_LINE_2D_record line = in.line();
         out.d(PlFunz_ordinate_ile(&line, in.d()));
     }},
    {"PlFunz_abscissa_ile",
     [](In& in, Out& out) {
         const PL_IMP_LINE_2D_record line = in.line();
         out.d(PlFunz_abscissa_ile(&line, in.d()));
     }},
    {"PlFunz_intersect_ile",
     [](In& in, Out& out) {
         const PL_IMP_LINE_2D_record l1 = in.line(), l2 = in.line();
         PL_PNT2D_record p = kNoPoint;
         out.i(PlFunz_intersect_ile(&l1, &l2, &p));
         out.point(p);
     }},
    {"PlFunz_intersect_ils",
     [](In& in, Out& out) {
         const PL_IMP_LINE_2D_record line = in.line();
         const PL_LINE_2D_record segment = in.segment();
         PL_PNT2D_record p = kNoPoint;
         out.i(PlFunz_intersect_ils(&line, &segment, &p));
         out.point(p);
     }},
    {"PlFunz_intersect_ls",
     [](In& in, Out& out) {
         const PL_LINE_2D_record s1 = in.segment(), s2 = in.segment();
         PL_PNT2D_record p = kNoPoint;
         out.i(PlFunz_intersect_ls(&s1, &s2, &p));
         out.point(p);
     }},
    {"PlFunz_distpntln_ls",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point();
         const PL_LINE_2D_record segment = in.segment();
         out.d(PlFunz_distpntln_ls(&p, &segment));
     }},
    {"PlFunz_pnts_in_line",
     [](In& in, Out& out) {
         const PL_PNT2D_record p0 = in.point(), p1 = in.point(), p2 = in.point();
         out.i(PlFunz_pnts_in_line(&p0, &p1, &p2));
     }},

    // --------------------------------------------------------------------------------------------- arcs
    {"PlFunz_arcangle",
     [](In& in, Out& out) {
         const int unit = in.i();
         const PL_PNT2D_record from = in.point(), to = in.point();
         out.angle(PlFunz_arcangle(unit, &from, &to));
     }},
    {"PlFunz_arc_3pnts",
     [](In& in, Out& out) {
         const PL_PNT2D_record p1 = in.point(), p2 = in.point(), p3 = in.point();
         ARC_2D_record arc = kNoArc;
         out.i(PlFunz_arc_3pnts(&p1, &p2, &p3, &arc));
         out.arc(arc);
     }},
    {"PlFunz_arc_end_pnts",
     [](In& in, Out& out) {
         const ARC_2D_record arc = in.arc();
         PL_PNT2D_record start = kNoPoint, end = kNoPoint;
         PlFunz_arc_end_pnts(&arc, &start, &end);
         out.point(start);
         out.point(end);
     }},
    {"PlFunz_distpntarc",
     [](In& in, Out& out) {
         const ARC_2D_record arc = in.arc();
         const PL_PNT2D_record p = in.point();
         out.d(PlFunz_distpntarc(&arc, &p));
     }},
    {"PlFunz_arc_rect",
     [](In& in, Out& out) {
         const ARC_2D_record arc = in.arc();
         const PL_PNT2D_record start = in.point(), end = in.point();
         PL_RECT_2D_record rect = kNoRect;
         PlFunz_arc_rect(&arc, &start, &end, &rect);
         out.rect(rect);
     }},
    {"PlFunz_intarcline_ls",
     [](In& in, Out& out) {
         const ARC_2D_record arc = in.arc();
         const PL_LINE_2D_record segment = in.segment();
         PL_PNT2D_record p1 = kNoPoint, p2 = kNoPoint;
         int count = kIntSentinel;
         out.i(PlFunz_intarcline_ls(&arc, &segment, &p1, &p2, &count));
         out.point(p1);
         out.point(p2);
         out.i(count);
     }},
    {"PlFunz_inpolygon",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point();
         const Ring ring = in.ring();
         int rightmost = in.i();
         const int count = static_cast<int>(ring.size());
         out.i(PlFunz_inpolygon(&p, ring.data(), &count, &rightmost));
         out.i(rightmost);
     }},

    // ------------------------------------------------------------------------------------------- survey
    {"TrovatoValNeiLimiti",
     [](In& in, Out& out) {
         const double v = in.d(), lim1 = in.d(), lim2 = in.d();
         out.i(TrovatoValNeiLimiti(v, lim1, lim2));
     }},
    {"TrovatoPuntoInSegmento",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point(), a = in.point(), b = in.point();
         out.i(TrovatoPuntoInSegmento(p, a, b));
     }},
    {"CalcoloIntersezioneRette/ile",
     [](In& in, Out& out) {
         const PL_IMP_LINE_2D_record l1 = in.line(), l2 = in.line();
         PL_PNT2D_record p = kNoPoint;
         out.i(CalcoloIntersezioneRette(l1, l2, p));
         out.point(p);
     }},
    {"CalcoloIntersezioneRette/xy",
     [](In& in, Out& out) {
         const PL_PNT2D_record a = in.point(), b = in.point(), c = in.point(), d = in.point();
         double x = kSentinel, y = kSentinel;
         out.i(CalcoloIntersezioneRette(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y, x, y));
         out.d(x);
         out.d(y);
     }},
    {"CalcoloIntersezioneRetteExt",
     [](In& in, Out& out) {
         const PL_PNT2D_record a = in.point(), b = in.point(), c = in.point(), d = in.point();
         double x = kSentinel, y = kSentinel;
         out.i(CalcoloIntersezioneRetteExt(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y, x, y));
         out.d(x);
         out.d(y);
     }},
    {"CalcCoordYsuSegmento",
     [](In& in, Out& out) {
         const PL_PNT2D_record a = in.point(), b = in.point();
         out.d(CalcCoordYsuSegmento(a.x, a.y, b.x, b.y, in.d()));
     }},
    {"IntersezLineaInSegmOK",
     [](In& in, Out& out) {
         const PL_PNT2D_record a = in.point(), b = in.point();
         const PL_IMP_LINE_2D_record line = in.line();
         PL_PNT2D_record p = kNoPoint;
         out.i(IntersezLineaInSegmOK(a, b, line, p));
         out.point(p);
     }},
    {"CimaSegm",
     [](In& in, Out& out) {
         PL_PNT2D_record a1 = in.point(), b1 = in.point(), a2 = in.point(), b2 = in.point();
         out.i(CimaSegm(&a1, &b1, &a2, &b2));
         out.point(a1);
         out.point(b1);
         out.point(a2);
         out.point(b2);
     }},
    {"CalcPtAtDistSuSegm",
     [](In& in, Out& out) {
         const PL_PNT2D_record a = in.point(), b = in.point(), from = in.point();
         PL_PNT2D_record p = kNoPoint;
         CalcPtAtDistSuSegm(&a, &b, &from, in.d(), &p);
         out.point(p);
     }},
    {"CalcPtAtDistSuLineaImp",
     [](In& in, Out& out) {
         const PL_IMP_LINE_2D_record line = in.line();
         const PL_PNT2D_record from = in.point();
         PL_PNT2D_record p = kNoPoint;
         CalcPtAtDistSuLineaImp(&line, &from, in.d(), &p);
         out.point(p);
     }},
    {"DistPtSuSegmDaPt",
     [](In& in, Out& out) {
         const PL_PNT2D_record a = in.point(), b = in.point(), from = in.point(), target = in.point();
         out.d(DistPtSuSegmDaPt(&a, &b, &from, &target));
     }},
    {"DistSegmDaPt",
     [](In& in, Out& out) {
         const PL_PNT2D_record a = in.point(), b = in.point(), p = in.point();
         PL_PNT2D_record foot = kNoPoint;
         out.d(DistSegmDaPt(&a, &b, &p, &foot));
         out.point(foot);
     }},
    {"CalcDistPuntoDaRetta",
     [](In& in, Out& out) {
         const PL_IMP_LINE_2D_record line = in.line();
         const PL_PNT2D_record p = in.point();
         double dist = kSentinel, angle = kSentinel;
         CalcDistPuntoDaRetta(&line, &p, dist, angle);
         out.d(dist);
         out.angle(angle);
     }},
    {"IntersPerpDaPtInSegm",
     [](In& in, Out& out) {
         const PL_PNT2D_record a = in.point(), b = in.point(), p = in.point();
         PL_PNT2D_record foot = kNoPoint;
         out.i(IntersPerpDaPtInSegm(&a, &b, &p, &foot));
         out.point(foot);
     }},
    {"CalcPtSquadro",
     [](In& in, Out& out) {
         const PL_PNT2D_record a = in.point(), b = in.point();
         const double absc = in.d(), ord = in.d();
         PL_PNT2D_record p = kNoPoint;
         CalcPtSquadro(&a, &b, absc, ord, &p);
         out.point(p);
     }},
    {"CalcPtAngDist",
     [](In& in, Out& out) {
         const PL_PNT2D_record station = in.point(), ref = in.point();
         const double angle = in.d(), dist = in.d();
         PL_PNT2D_record p = kNoPoint;
         CalcPtAngDist(&station, &ref, angle, dist, &p);
         out.point(p);
     }},
    {"CalcoloQuotaSuSegmento",
     [](In& in, Out& out) {
         const double x1 = in.d(), y1 = in.d(), z1 = in.d(), x2 = in.d(), y2 = in.d(), z2 = in.d();
         const double x = in.d(), y = in.d();
         double z = kSentinel;
         CalcoloQuotaSuSegmento(x1, y1, z1, x2, y2, z2, x, y, z);
         out.d(z);
     }},
    {"CalcoloBdry",
     [](In& in, Out& out) {
         const double x1 = in.d(), y1 = in.d(), z1 = in.d(), x2 = in.d(), y2 = in.d(), z2 = in.d();
         PL_RECT_3D_record box = kNoBox;
         CalcoloBdry(x1, y1, z1, x2, y2, z2, &box);
         out.box(box);
     }},
    {"NumeroEstZero",
     [](In& in, Out& out) {
         const double v = in.d(), tol = in.d();
         out.i(NumeroEstZero(v, tol));
     }},
    {"StessoPunto",
     [](In& in, Out& out) {
         const PL_PNT2D_record p = in.point(), q = in.point();
         const double tol = in.d();
         out.i(StessoPunto(p, q, tol));
     }},
    {"AreaCalcolataSgn",
     [](In& in, Out& out) {
         const CPoint3dVector parcel = in.parcel();
         out.d(AreaCalcolataSgn(parcel));
     }},
    {"AreaCalcolata",
     [](In& in, Out& out) {
         const CPoint3dVector parcel = in.parcel();
         out.d(AreaCalcolata(parcel));
     }},
    {"PeriCalcolato",
     [](In& in, Out& out) {
         const CPoint3dVector parcel = in.parcel();
         out.d(PeriCalcolato(parcel));
     }},

    // --------------------------------------------------------------------------------------------- gons
    {"AngoloDaAsseRifer",
     [](In& in, Out& out) {
         const double a = in.d(), b = in.d();
         out.angle(AngoloDaAsseRifer(a, b));
     }},
    {"LimiteAng0_400", [](In& in, Out& out) { out.angle(LimiteAng0_400(in.d())); }},
    {"LimiteAng200_200", [](In& in, Out& out) { out.angle(LimiteAng200_200(in.d())); }},
    {"CalcCoordEst",
     [](In& in, Out& out) {
         const double dist = in.d(), bearing = in.d();
         out.d(CalcCoordEst(dist, bearing));
     }},
    {"CalcCoordNord",
     [](In& in, Out& out) {
         const double dist = in.d(), bearing = in.d();
         out.d(CalcCoordNord(dist, bearing));
     }},

    // -------------------------------------------------------------------------------------- subdivision
    {"CFrazArea",
     [](In& in, Out& out) {
         const Request request(in);
         CFrazArea division = request.division();
         ask(division, out);
     }},
    {"CFrazArea/again",
     [](In& in, Out& out) {
         const Request request(in);
         CFrazArea division = request.division();
         ask(division, out);
         ask(division, out);
     }},
    {"CFrazArea/copy",
     [](In& in, Out& out) {
         const Request request(in);
         auto original = std::make_unique<CFrazArea>(request.division());
         ask(*original, out);
         CFrazArea copy(*original);
         original.reset();  // the copy stands on its own
         ask(copy, out);
     }},
};

const Call* find_call(const std::string& name)
{
    for (const Call& call : kCalls) {
        if (name == call.name)
            return &call;
    }
    return nullptr;
}

// ------------------------------------------------------------------------------------------- comparison

struct Line {
    std::string name;
    std::vector<std::string> operands;
    std::vector<std::string> wanted;
    bool platform = false;
    bool complete = false;  // there was a '='
};

Line split(const std::string& text)
{
    Line line;
    std::istringstream words(text.substr(0, text.find('#')));
    words >> line.name;
    std::string word;
    while (words >> word) {
        if (word == "=")
            line.complete = true;
        else if (word == "~")
            line.platform = true;
        else
            (line.complete ? line.wanted : line.operands).push_back(word);
    }
    return line;
}

bool same_bits(double a, double b)
{
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b);
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool agrees(const Result& got, const std::string& wanted, double tolerated)
{
    char* end = nullptr;
    if (got.kind == Kind::kInt)
        return std::strtol(wanted.c_str(), &end, 10) == got.i && *end == '\0';
    const double w = std::strtod(wanted.c_str(), &end);
    if (*end != '\0')
        return false;
    if (same_bits(got.d, w))
        return true;
    const double least = std::fabs(w) > 1.0 ? std::fabs(w) : 1.0;
    // What is allowed for rounding is not allowed for the sign of a zero.
    if (w == 0.0 && got.d == 0.0)
        return false;
    return std::isfinite(w) &&
           std::fabs(got.d - w) <= (got.kind == Kind::kAngle ? kAngleRelTol * least : tolerated) &&
           tolerated > 0.0;
}

std::string text_of(const std::vector<Result>& results)
{
    std::string text;
    char word[40];
    for (const Result& r : results) {
        if (r.kind == Kind::kInt)
            std::snprintf(word, sizeof word, " %d", r.i);
        else
            std::snprintf(word, sizeof word, " %a", r.d);
        text += word;
    }
    return text;
}

struct Tally {
    int passed = 0;
    int failed = 0;
    int identical = 0;  // of the `~` lines
    int platform = 0;
};

/// Empty when the line holds, otherwise what is wrong.
std::string replay(const Line& line, bool exact, Tally& tally)
{
    const Call* call = find_call(line.name);
    if (call == nullptr)
        return "unknown name " + line.name;
    if (!line.complete)
        return "no '='";

    Operands operands(line.operands);
    Results results;
    call->run(operands, results);
    if (!operands.used_up())
        return "operands do not fit " + line.name;

    const bool division = line.name.compare(0, 9, "CFrazArea") == 0;
    const double rel_tol = division ? kSubdivisionRelTol : kLengthRelTol;
    const double tolerated = line.platform && !exact ? rel_tol * operands.largest() : 0.0;

    bool same = results.all().size() == line.wanted.size();
    bool close = same;
    for (std::size_t k = 0; k < line.wanted.size() && close; ++k) {
        same = same && agrees(results.all()[k], line.wanted[k], 0.0);
        close = agrees(results.all()[k], line.wanted[k], tolerated);
    }
    tally.platform += line.platform;
    tally.identical += line.platform && same;
    if (close)
        return {};

    std::string wrong = line.name + "\n    got   " + text_of(results.all()) + "\n    wanted";
    for (const std::string& word : line.wanted)
        wrong += " " + word;
    return wrong;
}

bool replay_file(const char* path, bool exact, Tally& total)
{
    std::ifstream file(path);
    if (!file) {
        std::fprintf(stderr, "%s: cannot be read\n", path);
        return false;
    }
    Tally tally;
    std::string text;
    for (int number = 1; std::getline(file, text); ++number) {
        const Line line = split(text);
        if (line.name.empty())
            continue;
        const std::string wrong = replay(line, exact, tally);
        if (wrong.empty()) {
            ++tally.passed;
        } else {
            ++tally.failed;
            std::fprintf(stderr, "%s:%d: %s\n", path, number, wrong.c_str());
        }
    }
    std::printf("%s: %d passed, %d failed; %d of %d ~ lines identical\n", path, tally.passed, tally.failed,
                tally.identical, tally.platform);
    total.passed += tally.passed;
    total.failed += tally.failed;
    return tally.passed + tally.failed > 0;
}

}  // namespace

int main(int argc, char** argv)
{
    bool exact = false;
    bool good = true;
    int files = 0;
    Tally total;
    for (int k = 1; k < argc; ++k) {
        if (std::strcmp(argv[k], "--exact") == 0) {
            exact = true;
            continue;
        }
        ++files;
        good = replay_file(argv[k], exact, total) && good;
    }
    if (files == 0)
        std::fprintf(stderr, "usage: replay [--exact] file...\n");
    std::printf("%d passed, %d failed\n", total.passed, total.failed);
    return good && files > 0 && total.failed == 0 ? 0 : 1;
}
