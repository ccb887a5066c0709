#include "lines/library_search.h"

#include <cmath>

#include "plcalc/subdivision.h"
#include "plutil/plutil.h"

namespace plparcel {
namespace {

using Matrix = double[3][3];

constexpr PL_PNT2D_record kOrigin = {0.0, 0.0};
constexpr double kQuarterTurnDeg = 90.0;
constexpr int kAreaAsValue = 1;

// The shift and the scale: each coordinate comes out with one rounding, in local units.
void set_up_frame(const LocalRing& local, Matrix& to_local)
{
    const double scale = std::ldexp(1.0, local.scale_exponent());
    PlFunz_getidmatrix2d(to_local);
    PlFunz_translatematrix2d(-local.origin().x, -local.origin().y, to_local);
    PlFunz_scalematrix2d(scale, scale, &kOrigin, to_local);
}

// Turns the side onto the x axis, for the perpendicular cut onto the y axis: the search tells what lies beyond
// its line by directions in gons that it compares without folding 399.99 and 0.01 together, and so the line
// should move along y. The cut through a vertex has no such direction.
double turn_deg(const PL_PNT2D_record& a, const PL_PNT2D_record& b, Cut cut)
{
    if (cut == Cut::through_vertex)
        return 0.0;
    const double side_deg = PlFunz_arctan_deg(b.x - a.x, b.y - a.y);
    return (cut == Cut::parallel ? 0.0 : kQuarterTurnDeg) - side_deg;
}

void set_up_turn(double by_deg, Matrix& turn)
{
    PlFunz_getidmatrix2d(turn);
    PlFunz_rotationmatrix2d(by_deg, &kOrigin, turn);
}

PL_PNT2D_record image(const Matrix& m, const PL_PNT2D_record& p)
{
    PL_PNT2D_record out = {};
    TrasfPt(m, p.x, p.y, out.x, out.y);
    return out;
}

}  // namespace

bool search_line(const MeasuredRing& ring, const LocalRing& local, const SearchRequest& wanted,
                 PL_LINE_2D_record& line)
{
    Matrix to_local;
    set_up_frame(local, to_local);
    const double by_deg =
        turn_deg(image(to_local, ring[wanted.start]), image(to_local, ring.at(wanted.start + 1)), wanted.cut);
    Matrix turn;
    Matrix turn_back;
    set_up_turn(by_deg, turn);
    set_up_turn(-by_deg, turn_back);

    Ring turned;
    turned.reserve(ring.size());
    CPoint3dVector points;
    points.Reserve(static_cast<int>(ring.size()));
    for (const PL_PNT2D_record& p : ring.ring()) {
        turned.push_back(image(turn, image(to_local, p)));
        points.Append(turned.back().x, turned.back().y, 0.0);
    }

    CFrazArea search(points, turned[wanted.start], around(turned, wanted.start + 1),
                     static_cast<int>(wanted.cut), kAreaAsValue, local.area_to_local(wanted.area).value(),
                     0.0);
    double z1 = 0.0;
    double z2 = 0.0;
    const bool done = search.Esegui(line.start.x, line.start.y, z1, line.end.x, line.end.y, z2);
    line = {image(turn_back, line.start), image(turn_back, line.end)};
    return done;
}

}  // namespace plparcel
