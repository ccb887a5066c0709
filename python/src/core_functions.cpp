#include <stdexcept>
#include <tuple>

#include <pybind11/stl.h>

#include "docs.h"
#include "plcalc/arcs.h"
#include "plcalc/lines.h"
#include "plcalc/survey.h"
#include "plcalc/version.h"
#include "records.h"

namespace {

using py::arg;
using Arc = ARC_2D_record;
using Rect = PL_RECT_2D_record;
using Box = PL_RECT_3D_record;
using Point3 = PL_PNT3D_record;

/// A matrix that is changed in place, and so must not be a copy.
using Matrix = py::array_t<double, py::array::c_style>;

/// A matrix that is read.
using ReadMatrix = py::array_t<double, py::array::c_style | py::array::forcecast>;

constexpr int kRows = 3;
using Row = double[kRows];

void check_matrix(const py::array& matrix)
{
    if (matrix.ndim() != 2 || matrix.shape(0) != kRows || matrix.shape(1) != kRows)
        throw py::value_error("a matrix has three rows of three");
}

Row* rows_of(Matrix& matrix)
{
    check_matrix(matrix);
    return reinterpret_cast<Row*>(matrix.mutable_data());  // throws for an array that is not to be written
}

const Row* rows_of(const ReadMatrix& matrix)
{
    check_matrix(matrix);
    return reinterpret_cast<const Row*>(matrix.data());
}

py::arg_v out(const char* name)
{
    return arg(name) = py::none();
}

/// Adds functions by the names of the headers.
class Functions {
public:
    explicit Functions(py::module_& core) : core_(core) {}

    template <typename Function, typename... Arguments>
    void add(const char* name, const Function& function, const Arguments&... arguments)
    {
        core_.def(name, function, doc(name), arguments...);
    }

private:
    py::module_& core_;
};

void add_kernel(Functions to)
{
    to.add(
        "PlFunz_set_pnt_2d",
        [](double x, double y, Output<Point> out) {
            PlFunz_set_pnt_2d(x, y, out.get());
            return out;
        },
        arg("x"), arg("y"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_set_pnt_3d",
        [](double x, double y, double z, Output<Point3> out) {
            PlFunz_set_pnt_3d(x, y, z, out.get());
            return out;
        },
        arg("x"), arg("y"), arg("z"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_set_line_2d",
        [](double x1, double y1, double x2, double y2, Output<Segment> out) {
            PlFunz_set_line_2d(x1, y1, x2, y2, out.get());
            return out;
        },
        arg("x1"), arg("y1"), arg("x2"), arg("y2"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_set_rect_2d",
        [](double xmin, double ymin, double xmax, double ymax, Output<Rect> out) {
            PlFunz_set_rect_2d(xmin, ymin, xmax, ymax, out.get());
            return out;
        },
        arg("xmin"), arg("ymin"), arg("xmax"), arg("ymax"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_set_rect_3d",
        [](double xmin, double ymin, double zmin, double xmax, double ymax, double zmax, Output<Box> out) {
            PlFunz_set_rect_3d(xmin, ymin, zmin, xmax, ymax, zmax, out.get());
            return out;
        },
        arg("xmin"), arg("ymin"), arg("zmin"), arg("xmax"), arg("ymax"), arg("zmax"), py::kw_only(),
        out("out"));
    to.add(
        "PlFunz_set_arc_2d",
        [](double centre_x, double centre_y, double radius, int angle_type, double start_angle,
           double end_angle, Output<Arc> arc) {
            PlFunz_set_arc_2d(centre_x, centre_y, radius, static_cast<PL_AngleMeasType>(angle_type),
                              start_angle, end_angle, arc.get());
            return arc;
        },
        arg("centre_x"), arg("centre_y"), arg("radius"), arg("angle_type"), arg("start_angle"),
        arg("end_angle"), py::kw_only(), out("arc"));
    to.add("PlFunz_version", &PlFunz_version);
    to.add("PlFunz_inverse", &PlFunz_inverse, arg("v"));
    to.add("PlFunz_sumsqrdparms", &PlFunz_sumsqrdparms, arg("a"), arg("b"));
    to.add(
        "PlFunz_distance", [](const Point& p1, const Point& p2) { return PlFunz_distance(&p1, &p2); },
        arg("p1"), arg("p2"));
    to.add(
        "PlFunz_samepnt", [](const Point& p1, const Point& p2) { return PlFunz_samepnt(&p1, &p2); },
        arg("p1"), arg("p2"));
    to.add("PlFunz_arctan_rad", &PlFunz_arctan_rad, arg("x"), arg("y"));
    to.add("PlFunz_arctan_deg", &PlFunz_arctan_deg, arg("x"), arg("y"));
    to.add(
        "PlFunz_pseudo_angdist",
        [](const Point& p1, const Point& p2) {
            double angle = kNaN;
            double dist = kNaN;
            PlFunz_pseudo_angdist(&p1, &p2, &angle, &dist);
            return std::make_tuple(angle, dist);
        },
        arg("p1"), arg("p2"));
    to.add(
        "PlFunz_pntangledist",
        [](int unit, const Point& origin, double dist, double angle, Output<Point> out) {
            PlFunz_pntangledist(unit, &origin, dist, angle, out.get());
            return out;
        },
        arg("unit"), arg("origin"), arg("dist"), arg("angle"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_getidmatrix2d", [](Matrix M) { PlFunz_getidmatrix2d(rows_of(M)); }, arg("M").noconvert());
    to.add(
        "PlFunz_rotationmatrix2d",
        [](double angle, const Point& centre, Matrix M) {
            PlFunz_rotationmatrix2d(angle, &centre, rows_of(M));
        },
        arg("angleDeg"), arg("centre"), arg("M").noconvert());
    to.add(
        "PlFunz_translatematrix2d",
        [](double dx, double dy, Matrix M) { PlFunz_translatematrix2d(dx, dy, rows_of(M)); }, arg("dx"),
        arg("dy"), arg("M").noconvert());
    to.add(
        "PlFunz_scalematrix2d",
        [](double sx, double sy, const Point& centre, Matrix M) {
            PlFunz_scalematrix2d(sx, sy, &centre, rows_of(M));
        },
        arg("sx"), arg("sy"), arg("centre"), arg("M").noconvert());
    to.add(
        "PlFunz_transformpnt2d",
        [](const ReadMatrix& M, const Point& in, Output<Point> out) {
            PlFunz_transformpnt2d(rows_of(M), &in, out.get());
            return out;
        },
        arg("M"), arg("in_"), py::kw_only(), out("out"));
    to.add(
        "TrasfPt",
        [](const ReadMatrix& M, double x, double y) {
            double x_out = kNaN;
            double y_out = kNaN;
            TrasfPt(reinterpret_cast<const double(&)[kRows][kRows]>(*rows_of(M)), x, y, x_out, y_out);
            return std::make_tuple(x_out, y_out);
        },
        arg("M"), arg("x"), arg("y"));
}

void add_lines(Functions to)
{
    to.add(
        "PlFunz_lineeq_ile",
        [](const Point& p1, const Point& p2, Output<ImplicitLine> out) {
            const int code = PlFunz_lineeq_ile(&p1, &p2, out.get());
            return std::make_tuple(code, out);
        },
        arg("p1"), arg("p2"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_normal_ile", [](ImplicitLine& line) { return PlFunz_normal_ile(&line); },
        arg("line").noconvert());
    to.add(
        "PlFunz_linepntperpend",
        [](const ImplicitLine& line, const Point& p, Output<ImplicitLine> out) {
            PlFunz_linepntperpend(&line, &p, out.get());
            return out;
        },
        arg("line"), arg("p"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_linepntparallel",
        [](const Point& p, const ImplicitLine& line, Output<ImplicitLine> out) {
            PlFunz_linepntparallel(out.get(), &p, &line);
            return out;
        },
        arg("p"), arg("line"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_ordinate_ile",
        [](const ImplicitLine& line, double x) { return PlFunz_ordinate_ile(&line, x); }, arg("line"),
        arg("x"));
    to.add(
        "PlFunz_abscissa_ile",
        [](const ImplicitLine& line, double y) { return PlFunz_abscissa_ile(&line, y); }, arg("line"),
        arg("y"));
    to.add(
        "PlFunz_intersect_ile",
        [](const ImplicitLine& l1, const ImplicitLine& l2, Output<Point> out) {
            const bool meet = PlFunz_intersect_ile(&l1, &l2, out.get());
            return std::make_tuple(meet, out);
        },
        arg("l1"), arg("l2"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_intersect_ils",
        [](const ImplicitLine& line, const Segment& seg, Output<Point> out) {
            const bool meet = PlFunz_intersect_ils(&line, &seg, out.get());
            return std::make_tuple(meet, out);
        },
        arg("line"), arg("seg"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_intersect_ls",
        [](const Segment& s1, const Segment& s2, Output<Point> out) {
            const bool meet = PlFunz_intersect_ls(&s1, &s2, out.get());
            return std::make_tuple(meet, out);
        },
        arg("s1"), arg("s2"), py::kw_only(), out("out"));
    to.add(
        "PlFunz_distpntln_ls",
        [](const Point& p, const Segment& seg) { return PlFunz_distpntln_ls(&p, &seg); }, arg("p"),
        arg("seg"));
    to.add(
        "PlFunz_pnts_in_line",
        [](const Point& p0, const Point& p1, const Point& p2) { return PlFunz_pnts_in_line(&p0, &p1, &p2); },
        arg("p0"), arg("p1"), arg("p2"));
}

void add_arcs(Functions to)
{
    to.add(
        "PlFunz_arcangle",
        [](int unit, const Point& from, const Point& to_) { return PlFunz_arcangle(unit, &from, &to_); },
        arg("unit"), arg("from_"), arg("to"));
    to.add(
        "PlFunz_arc_3pnts",
        [](const Point& p1, const Point& p2, const Point& p3, Output<Arc> arc) {
            const int code = PlFunz_arc_3pnts(&p1, &p2, &p3, arc.get());
            return std::make_tuple(code, arc);
        },
        arg("p1"), arg("p2"), arg("p3"), py::kw_only(), out("arc"));
    to.add(
        "PlFunz_arc_end_pnts",
        [](const Arc& arc, Output<Point> start_point, Output<Point> end_point) {
            PlFunz_arc_end_pnts(&arc, start_point.get(), end_point.get());
            return std::make_tuple(start_point, end_point);
        },
        arg("arc"), py::kw_only(), out("start_point"), out("end_point"));
    to.add(
        "PlFunz_distpntarc", [](const Arc& arc, const Point& p) { return PlFunz_distpntarc(&arc, &p); },
        arg("arc"), arg("p"));
    to.add(
        "PlFunz_arc_rect",
        [](const Arc& arc, const Point& start_pnt, const Point& end_pnt, Output<Rect> rect) {
            PlFunz_arc_rect(&arc, &start_pnt, &end_pnt, rect.get());
            return rect;
        },
        arg("arc"), arg("start_pnt"), arg("end_pnt"), py::kw_only(), out("rect"));
    to.add(
        "PlFunz_intarcline_ls",
        [](const Arc& arc, const Segment& seg, Output<Point> pnt1, Output<Point> pnt2) {
            int points = 0;
            const bool meet = PlFunz_intarcline_ls(&arc, &seg, pnt1.get(), pnt2.get(), &points);
            return std::make_tuple(meet, pnt1, pnt2, points);
        },
        arg("arc"), arg("seg"), py::kw_only(), out("pnt1"), out("pnt2"));
    to.add(
        "PlFunz_inpolygon",
        [](const Point& pt, const Points& vertices, int rightmost) {
            if (!has_columns(vertices, 2))
                throw py::value_error("vertices must be an array of two columns");
            if (vertices.shape(0) > std::numeric_limits<int>::max())
                throw py::value_error("there are too many vertices");
            const int count = static_cast<int>(vertices.shape(0));
            const bool inside =
                PlFunz_inpolygon(&pt, reinterpret_cast<const Point*>(vertices.data()), &count, &rightmost);
            return std::make_tuple(inside, rightmost);
        },
        arg("pt"), arg("vertices"), arg("rightmostIndex") = 0);
}

void add_intersections(py::module_& core, Functions to)
{
    to.add("TrovatoValNeiLimiti", &TrovatoValNeiLimiti, arg("val"), arg("lim1"), arg("lim2"));
    to.add("TrovatoPuntoInSegmento", &TrovatoPuntoInSegmento, arg("pt"), arg("a"), arg("b"));
    to.add(
        "CalcoloIntersezioneRette",
        [](const ImplicitLine& l1, const ImplicitLine& l2, Output<Point> out) {
            const bool meet = CalcoloIntersezioneRette(l1, l2, *out.get());
            return std::make_tuple(meet, out);
        },
        arg("l1"), arg("l2"), py::kw_only(), out("out"));
    core.def(
        "CalcoloIntersezioneRette",
        [](double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4) {
            double x = kNaN;
            double y = kNaN;
            const bool meet = CalcoloIntersezioneRette(x1, y1, x2, y2, x3, y3, x4, y4, x, y);
            return std::make_tuple(meet, x, y);
        },
        doc("CalcoloIntersezioneRette(double x1, double y1, double x2, double y2, double x3, double y3, "
            "double x4, "
            "double y4, double& xOut, double& yOut)"),
        arg("x1"), arg("y1"), arg("x2"), arg("y2"), arg("x3"), arg("y3"), arg("x4"), arg("y4"));
    to.add(
        "CalcoloIntersezioneRetteExt",
        [](double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4) {
            double x = kNaN;
            double y = kNaN;
            const bool meet = CalcoloIntersezioneRetteExt(x1, y1, x2, y2, x3, y3, x4, y4, x, y);
            return std::make_tuple(meet, x, y);
        },
        arg("x1"), arg("y1"), arg("x2"), arg("y2"), arg("x3"), arg("y3"), arg("x4"), arg("y4"));
    to.add("CalcCoordYsuSegmento", &CalcCoordYsuSegmento, arg("x1"), arg("y1"), arg("x2"), arg("y2"),
           arg("x"));
    to.add(
        "IntersezLineaInSegmOK",
        [](const Point& a, const Point& b, const ImplicitLine& line, Output<Point> out) {
            const bool meet = IntersezLineaInSegmOK(a, b, line, *out.get());
            return std::make_tuple(meet, out);
        },
        arg("a"), arg("b"), arg("line"), py::kw_only(), out("out"));
    to.add(
        "CimaSegm", [](Point& a1, Point& b1, Point& a2, Point& b2) { return CimaSegm(&a1, &b1, &a2, &b2); },
        arg("a1").noconvert(), arg("b1").noconvert(), arg("a2").noconvert(), arg("b2").noconvert());
}

void add_set_out(Functions to)
{
    to.add(
        "CalcPtAtDistSuSegm",
        [](const Point& a, const Point& b, const Point& from, double dist, Output<Point> out) {
            CalcPtAtDistSuSegm(&a, &b, &from, dist, out.get());
            return out;
        },
        arg("a"), arg("b"), arg("from_"), arg("dist"), py::kw_only(), out("out"));
    to.add(
        "CalcPtAtDistSuLineaImp",
        [](const ImplicitLine& line, const Point& from, double dist, Output<Point> out) {
            CalcPtAtDistSuLineaImp(&line, &from, dist, out.get());
            return out;
        },
        arg("line"), arg("from_"), arg("dist"), py::kw_only(), out("out"));
    to.add(
        "DistPtSuSegmDaPt",
        [](const Point& a, const Point& b, const Point& from, const Point& target) {
            return DistPtSuSegmDaPt(&a, &b, &from, &target);
        },
        arg("a"), arg("b"), arg("from_"), arg("target"));
    to.add(
        "DistSegmDaPt",
        [](const Point& a, const Point& b, const Point& pt, Output<Point> foot) {
            const double distance = DistSegmDaPt(&a, &b, &pt, foot.get());
            return std::make_tuple(distance, foot);
        },
        arg("a"), arg("b"), arg("pt"), py::kw_only(), out("foot"));
    to.add(
        "CalcDistPuntoDaRetta",
        [](const ImplicitLine& line, const Point& pt) {
            double dist = kNaN;
            double angle = kNaN;
            CalcDistPuntoDaRetta(&line, &pt, dist, angle);
            return std::make_tuple(dist, angle);
        },
        arg("line"), arg("pt"));
    to.add(
        "IntersPerpDaPtInSegm",
        [](const Point& a, const Point& b, const Point& pt, Output<Point> out) {
            const bool on_segment = IntersPerpDaPtInSegm(&a, &b, &pt, out.get());
            return std::make_tuple(on_segment, out);
        },
        arg("a"), arg("b"), arg("pt"), py::kw_only(), out("out"));
    to.add(
        "CalcPtSquadro",
        [](const Point& a, const Point& b, double absc, double ord, Output<Point> out) {
            CalcPtSquadro(&a, &b, absc, ord, out.get());
            return out;
        },
        arg("a"), arg("b"), arg("absc"), arg("ord"), py::kw_only(), out("out"));
    to.add(
        "CalcPtAngDist",
        [](const Point& station, const Point& ref, double angle, double dist, Output<Point> out) {
            CalcPtAngDist(&station, &ref, angle, dist, out.get());
            return out;
        },
        arg("station"), arg("ref"), arg("angle"), arg("dist"), py::kw_only(), out("out"));
}

void add_measures(Functions to)
{
    to.add(
        "CalcoloQuotaSuSegmento",
        [](double x1, double y1, double z1, double x2, double y2, double z2, double x, double y) {
            double z = kNaN;
            CalcoloQuotaSuSegmento(x1, y1, z1, x2, y2, z2, x, y, z);
            return z;
        },
        arg("x1"), arg("y1"), arg("z1"), arg("x2"), arg("y2"), arg("z2"), arg("x"), arg("y"));
    to.add(
        "CalcoloBdry",
        [](double x1, double y1, double z1, double x2, double y2, double z2, Output<Box> box) {
            CalcoloBdry(x1, y1, z1, x2, y2, z2, box.get());
            return box;
        },
        arg("x1"), arg("y1"), arg("z1"), arg("x2"), arg("y2"), arg("z2"), py::kw_only(), out("box"));
    to.add(
        "NumeroEstZero", [](double value, double tol) { return NumeroEstZero(value, tol); }, arg("value"),
        arg("tol"));
    to.add(
        "StessoPunto", [](const Point& p1, const Point& p2, double tol) { return StessoPunto(p1, p2, tol); },
        arg("p1"), arg("p2"), arg("tol"));
    to.add("AreaCalcolataSgn", &AreaCalcolataSgn, arg("pts"));
    to.add("AreaCalcolata", &AreaCalcolata, arg("pts"));
    to.add("PeriCalcolato", &PeriCalcolato, arg("pts"));
    to.add("AngoloDaAsseRifer", &AngoloDaAsseRifer, arg("a"), arg("b"));
    to.add("LimiteAng0_400", &LimiteAng0_400, arg("angle"));
    to.add("LimiteAng200_200", &LimiteAng200_200, arg("angle"));
    to.add("CalcCoordEst", &CalcCoordEst, arg("distance"), arg("angle"));
    to.add("CalcCoordNord", &CalcCoordNord, arg("distance"), arg("angle"));
}

}  // namespace

void add_functions(py::module_& core)
{
    const Functions to(core);
    add_kernel(to);
    add_lines(to);
    add_arcs(to);
    add_intersections(core, to);
    add_set_out(to);
    add_measures(to);
}
