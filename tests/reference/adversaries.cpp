#include "reference/adversaries.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "reference/literal.h"

namespace reference {

namespace {

constexpr double kTwoPi = 6.283185307179586;

class Maker {
public:
    explicit Maker(std::mt19937_64& random) : random_(random) {}

    double real(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }
    int whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    bool chance(double p) { return real(0.0, 1.0) < p; }

    std::vector<Point> ring()
    {
        const int n = chance(0.8) ? whole(4, 24) : whole(25, 120);
        switch (whole(0, 8)) {
        case 0:
            return polar(n, 1.0, 1.0);
        case 1:
            return polar(n, 0.8, 1.2);
        case 2:
            return polar(n, 0.2, 1.5);
        case 3:
            return comb(n / 4 + 1);
        case 4:
            return {{0, 0}, {real(1, 3), 0}, {real(1, 3), real(0.5, 2)}, {0, real(0.5, 2)}};
        case 5:
            return spikes_behind(n);
        case 6:
            return lattice(n);
        case 7:
            return needle(n);
        default:
            return coast(n);
        }
    }

    // Points of a small grid in any order: level, plumb and repeated ones, and lines through many of them.
    std::vector<Point> lattice(int n)
    {
        const int side = whole(2, 6);
        std::vector<Point> points;
        for (int i = 0; i < n; ++i)
            points.push_back({whole(0, side) / 2.0, whole(0, side) / 2.0});
        return points;
    }

    // Out along one line and back along another, a hair beside it.
    std::vector<Point> needle(int n)
    {
        const double width = std::pow(10.0, real(-7.0, -1.0));
        std::vector<Point> points;
        for (int i = 0; i < n; ++i) {
            const bool back = 2 * i >= n;
            const double along = back ? 2.0 * (n - i) / n : 2.0 * i / n;
            points.push_back({along + real(-0.1, 0.1) / n, (back ? width : 0.0) + real(-0.2, 0.2) * width});
        }
        return points;
    }

    // A rugged outline: the middle of each side moves off it, again and again.
    std::vector<Point> coast(int n)
    {
        std::vector<Point> points = {{0, 0}, {1, -0.3}, {1.2, 0.8}, {0.2, 1}};
        double rough = 0.35;
        while (static_cast<int>(points.size()) * 2 <= std::max(n, 8)) {
            std::vector<Point> finer;
            for (std::size_t i = 0; i < points.size(); ++i) {
                const Point& p = points[i];
                const Point& q = points[(i + 1) % points.size()];
                const double off = real(-rough, rough);
                finer.push_back(p);
                finer.push_back(
                    {(p.x + q.x) / 2.0 - off * (q.y - p.y), (p.y + q.y) / 2.0 + off * (q.x - p.x)});
            }
            points = finer;
        }
        return points;
    }

    // Round a centre, the radius between two limits: convex, jagged or star.
    std::vector<Point> polar(int n, double low, double high)
    {
        std::vector<double> dirs;
        for (int i = 0; i < n; ++i)
            dirs.push_back(chance(0.3) ? kTwoPi * i / n : real(0.0, kTwoPi));
        std::sort(dirs.begin(), dirs.end());
        std::vector<Point> points;
        for (double dir : dirs) {
            const double r = real(low, high);
            points.push_back({r * std::cos(dir), r * std::sin(dir)});
        }
        return points;
    }

    std::vector<Point> comb(int teeth)
    {
        std::vector<Point> points = {{0, 0}, {2.0 * teeth, 0}};
        for (int i = teeth; i > 0; --i) {
            const double tip = chance(0.3) ? 2.0 : real(1.2, 3.0);
            points.push_back({2.0 * i, tip});
            points.push_back({2.0 * i - 1.0, tip});
            points.push_back({2.0 * i - 1.0, chance(0.5) ? 0.5 : real(0.2, 1.0)});
            points.push_back({2.0 * i - 2.0, 0.5});
        }
        return points;
    }

    // A flat base with parts of the parcel on its other side.
    std::vector<Point> spikes_behind(int n)
    {
        std::vector<Point> points = {{0, 0}, {1, 0}};
        for (int i = 0; i < n - 2; ++i)
            points.push_back({1.0 + 0.3 * std::sin(1.7 * i) - i / (n - 1.0), real(-0.8, 1.5)});
        return points;
    }

    // Vertices on, within ulps of, or within a millimetre of the level of others; repeated ones; sides almost
    // parallel to others; very short sides.
    void disturb(std::vector<Point>& ring)
    {
        const int times = whole(0, 4);
        for (int t = 0; t < times; ++t) {
            Point& p = ring[any(ring)];
            const Point q = ring[any(ring)];
            switch (whole(0, 6)) {
            case 0:
                p.y = q.y;
                break;
            case 1:
                p.y = std::nextafter(q.y, real(-1.0, 1.0) * 1e9);
                break;
            case 2:
                p.y = q.y + real(-0.0015, 0.0015);
                break;
            case 3:
                p.x = q.x + (chance(0.5) ? 0.0 : real(-1e-3, 1e-3));
                break;
            case 4:
                p = q;
                break;
            case 5:
                p = {q.x + real(-2e-7, 2e-7), q.y + real(-2e-7, 2e-7)};
                break;
            default:
                p = {q.x + real(-2e-3, 2e-3), q.y + real(-2e-3, 2e-3)};
                break;
            }
        }
    }

    void place(std::vector<Point>& ring)
    {
        const double scale = chance(0.5) ? real(10.0, 200.0) : std::pow(10.0, real(-1.0, 4.0));
        const double turn = turns_to();
        const double east = chance(0.3) ? 500000.0 + real(-1e5, 1e5) : chance(0.5) ? 0.0 : real(-500, 500);
        const double north = east > 1e5 ? 5000000.0 + real(-1e5, 1e5) : chance(0.5) ? 0.0 : real(-500, 500);
        const bool mirrored = chance(0.5);
        const bool rounded = chance(0.4);
        for (Point& p : ring) {
            const double x = scale * (p.x * std::cos(turn) - p.y * std::sin(turn));
            const double y = scale * (p.x * std::sin(turn) + p.y * std::cos(turn));
            p = {(mirrored ? -x : x) + east, y + north};
            if (rounded)
                p = {std::round(p.x * 100.0) / 100.0, std::round(p.y * 100.0) / 100.0};
        }
        if (mirrored && chance(0.7))
            std::reverse(ring.begin(), ring.end());
    }

    // Often so that a base side's normal lies on, or near, +x: where bearings jump from 400 to 0.
    double turns_to()
    {
        const double quarter = kTwoPi / 4.0 * whole(0, 3);
        switch (whole(0, 4)) {
        case 0:
            return quarter;
        case 1:
            return quarter + std::pow(10.0, real(-10.0, -1.0)) * (chance(0.5) ? 1.0 : -1.0);
        default:
            return real(0.0, kTwoPi);
        }
    }

    // Turns a side upright, level or nearly so: by some last bits, by anything up to where bearings no longer fold,
    // or to a gon beside the axis, where bearings of lines near it begin to disagree.
    void turn_to_axis(std::vector<Point>& ring, std::size_t side)
    {
        constexpr double kGon = 0.015709255323664916;  // its tangent
        const Point& from = ring[side];
        Point& to = ring[(side + 1) % ring.size()];
        const double leans[] = {0.0, 0.0, kGon * (1.0 + real(-1e-3, 1e-3)),
                                std::pow(10.0, real(-12.0, -1.7))};
        const double lean = leans[whole(0, 3)] * (chance(0.5) ? 1.0 : -1.0);
        const bool upright = chance(0.5);
        double& moved = upright ? to.x : to.y;
        moved = upright ? from.x + lean * (to.y - from.y) : from.y + lean * (to.x - from.x);
        for (int bits = chance(0.2) ? whole(1, 30) : 0; bits > 0; --bits)
            moved = std::nextafter(moved, lean < 0.0 ? -1e300 : 1e300);
    }

    std::size_t any(const std::vector<Point>& ring)
    {
        return static_cast<std::size_t>(whole(0, static_cast<int>(ring.size()) - 1));
    }

    // A number that no survey holds, or a small one.
    double wild()
    {
        constexpr double kInf = std::numeric_limits<double>::infinity();
        constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
        const double values[] = {kNan, kInf, -kInf, 1.7e308, -1.7e308, 1e154, 1e-160, 0x1p-1074, 0.0, -0.0};
        return chance(0.3) ? values[whole(0, 9)] : static_cast<double>(whole(-3, 3));
    }

    // Up to six points on a small grid, some of their coordinates wild; or a parcel with one wild point.
    std::vector<Point> wild_ring()
    {
        std::vector<Point> points;
        if (chance(0.3)) {
            points = ring();
            place(points);
            points[any(points)] = {wild(), wild()};
            return points;
        }
        const bool all_good = chance(0.4);
        for (int i = whole(0, 6); i > 0; --i)
            points.push_back(all_good ? Point{whole(-3, 3) * 1.0, whole(-3, 3) * 1.0}
                                      : Point{wild(), wild()});
        return points;
    }

    // A share of the area; at times one at which a comparison of the search ties.
    double request(const Request& made)
    {
        double area = 0.0;
        for (std::size_t i = 0; i < made.ring.size(); ++i) {
            const Point& p = made.ring[i];
            const Point& q = made.ring[(i + 1) % made.ring.size()];
            area += 0.5 * (p.x * q.y - q.x * p.y);
        }
        area = std::fabs(area) * real(0.0, 1.1);
        if (!chance(0.2))
            return area;
        LiteralCut probe(made.ring, made.p1, made.p2, made.modo, 1, area, 0.0);
        probe.run();
        switch (whole(0, 3)) {
        case 0:
            return probe.AreaParziale;
        case 1:
            return probe.AreaParziale / (1.0 + 1e-6);
        case 2:
            return probe.AreaParziale / (1.0 - 1e-6);
        default:
            return std::nextafter(probe.AreaParziale, real(-1.0, 1.0) * 1e300);
        }
    }

private:
    std::mt19937_64& random_;
};

}  // namespace

Request adversary(std::mt19937_64& random, int modo)
{
    Maker make(random);
    Request made;
    made.modo = modo;
    made.ring = make.ring();
    make.disturb(made.ring);
    make.place(made.ring);
    const std::size_t k = make.chance(0.3) ? 0 : make.any(made.ring);
    if (make.chance(0.25))
        make.turn_to_axis(made.ring, k);
    made.p1 = made.ring[k];
    made.p2 = made.ring[(k + 1) % made.ring.size()];
    made.tipo_area = 1;
    made.valore1 = make.request(made);
    made.valore2 = 0.0;
    return made;
}

Request no_parcel(std::mt19937_64& random, int modo)
{
    Maker make(random);
    Request made = {};
    made.modo = make.chance(0.02) ? 3 : modo;
    made.ring = make.wild_ring();
    if (!made.ring.empty()) {
        const std::size_t k = make.any(made.ring);
        made.p1 = made.ring[k];
        made.p2 = made.ring[(k + 1) % made.ring.size()];
    }
    if (make.chance(0.05))
        std::swap(made.p1, made.p2);
    if (make.chance(0.05))
        made.p1 = {make.wild(), make.wild()};
    made.tipo_area = make.whole(0, 9) < 8 ? make.whole(0, 1) : 2;
    made.valore1 = make.chance(0.5) ? make.real(0.0, 10.0) : make.wild();
    made.valore2 = make.wild();
    return made;
}

}  // namespace reference
