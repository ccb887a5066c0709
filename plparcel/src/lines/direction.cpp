#include "lines/direction.h"

#include <cmath>

#include "boundary/local_ring.h"

namespace plparcel {
namespace {

constexpr double kTurnGon = 400.0;
constexpr double kQuarterTurnGon = 100.0;

// Pi to 106 bits, in two doubles; halved and divided by 100 it turns gons into radians.
const Wide kPi = {3.141592653589793116, 1.2246467991473532072e-16};

// The power series of sine and cosine, for angles up to an eighth of a turn. The 28th power of that, over 28!, is
// below 1e-32.
WidePoint sine_and_cosine(const Wide& angle_rad)
{
    constexpr int kTerms = 28;
    Wide sine = 0.0;
    Wide cosine = 0.0;
    Wide term = 1.0;
    for (int power = 0; power < kTerms; ++power) {
        Wide& sum = power % 2 == 0 ? cosine : sine;
        sum = power % 4 < 2 ? sum + term : sum - term;
        term = term * angle_rad / (power + 1.0);
    }
    return {sine, cosine};
}

}  // namespace

bool has_direction(const Line& line)
{
    if (line.cut == Cut::at_bearing)
        return std::isfinite(line.bearing);
    const double dx = std::fabs(line.b.x - line.a.x);
    const double dy = std::fabs(line.b.y - line.a.y);
    return std::isfinite(dx) && std::isfinite(dy) && is_workable(std::fmax(dx, dy));
}

WidePoint direction_of(double bearing_gon)
{
    // Exact: the remainder is, and so is what is left of it beside the nearest quarter turn.
    const double within = std::fmod(bearing_gon, kTurnGon);
    const double quarters = std::round(within / kQuarterTurnGon);
    const double beside = within - quarters * kQuarterTurnGon;
    const WidePoint d = sine_and_cosine(kPi * beside / (2.0 * kQuarterTurnGon));
    switch (static_cast<int>(quarters) & 3) {
    case 0:
        return d;
    case 1:
        return {d.y, -d.x};
    case 2:
        return {-d.x, -d.y};
    default:
        return {-d.y, d.x};
    }
}

}  // namespace plparcel
