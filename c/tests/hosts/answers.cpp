/// The answers that the C++ libraries give to requests.txt: what every host must print.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <limits>
#include <sstream>
#include <string>

#include "plcalc/plcalc.h"
#include "plparcel/division.h"

namespace {

class Words {
public:
    explicit Words(const std::string& line) : words_(line) {}

    std::string name() { return read<std::string>(); }
    double d() { return read<double>(); }
    int i() { return read<int>(); }
    std::size_t index() { return static_cast<std::size_t>(i()); }

    PL_PNT2D_record point()
    {
        const double x = d();
        return {x, d()};
    }

    plparcel::Ring ring()
    {
        plparcel::Ring ring(index());
        for (PL_PNT2D_record& vertex : ring)
            vertex = point();
        return ring;
    }

private:
    template <typename Value> Value read()
    {
        Value value{};
        words_ >> value;
        return value;
    }

    std::istringstream words_;
};

void say(long long number)
{
    std::printf(" %lld", number);
}

void say_count(std::size_t count)
{
    say(static_cast<long long>(count));
}

void say(double number)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    std::printf(" %016llx", static_cast<unsigned long long>(bits));
}

void say(const PL_PNT2D_record& point)
{
    say(point.x);
    say(point.y);
}

void say(const plparcel::Ring& ring)
{
    say_count(ring.size());
    for (const PL_PNT2D_record& vertex : ring)
        say(vertex);
}

void say(const plparcel::DividingLine& line)
{
    say(line.from);
    say(line.to);
    say(static_cast<long long>(line.meets_again));
    say(static_cast<long long>(line.library_agrees));
    say_count(line.segments.size());
    for (const plparcel::Segment& segment : line.segments) {
        say(segment.from);
        say(segment.to);
    }
}

void say(const plparcel::Piece& piece)
{
    say_count(piece.amount);
    say(piece.area);
    say(piece.asked);
    say(piece.residual);
    say(piece.ring);
    say_count(piece.holes.size());
    for (const plparcel::Ring& hole : piece.holes)
        say(hole);
}

void divide(Words& words)
{
    plparcel::Request request;
    request.line.cut = static_cast<plparcel::Cut>(words.i());
    request.line.index = words.index();
    request.line.ring = words.index();
    request.line.bearing = words.d();
    request.line.a = words.point();
    request.line.b = words.point();
    request.line.along = words.d();
    request.measured = static_cast<plparcel::Measured>(words.i());
    request.pieces = static_cast<plparcel::Pieces>(words.i());
    request.alternative = words.index();
    const bool rounded = words.i() != 0;
    const int decimals = words.i();
    if (rounded)
        request.rounding.decimals = decimals;
    if (const double tolerance = words.d(); tolerance > 0.0)
        request.rounding.tolerance = tolerance;
    request.ask_library = words.i() != 0;
    for (int left = words.i(); left > 0; --left) {
        const auto given = static_cast<plparcel::Given>(words.i());
        const double first = words.d();
        request.amounts.push_back({given, first, words.d()});
    }
    plparcel::Parcel parcel;
    const int rings = words.i();
    parcel.outer = words.ring();
    for (int k = 1; k < rings; ++k)
        parcel.holes.push_back(words.ring());

    const plparcel::Division division = plparcel::divide(parcel, request);
    std::printf(" '%s'", plparcel::describe(division));
    say_count(division.at_amount);
    say(static_cast<long long>(division.decimals.value_or(-1)));
    say(division.ring.area);
    say_count(division.trials);
    for (const plparcel::DividingLine& line : division.lines)
        say(line);
    for (const plparcel::Piece& piece : division.pieces)
        say(piece);
    for (const plparcel::Held& held : division.held) {
        say_count(held.pieces);
        say(held.asked);
        say(held.area);
        say(held.residual);
    }
    for (const plparcel::BareAnswer& answer : division.bare) {
        say(static_cast<long long>(answer.done));
        say(answer.line.start);
        say(answer.line.end);
    }
}

CPoint3dVector points_of(const plparcel::Ring& ring)
{
    CPoint3dVector points;
    for (const PL_PNT2D_record& vertex : ring)
        points.Append(vertex.x, vertex.y, 0.0);
    return points;
}

void fraz_area(Words& words)
{
    const int cut = words.i();
    const int kind = words.i();
    const double value1 = words.d();
    const double value2 = words.d();
    const PL_PNT2D_record p1 = words.point();
    const PL_PNT2D_record p2 = words.point();
    const CPoint3dVector parcel = points_of(words.ring());
    CFrazArea search(parcel, p1, p2, cut, kind, value1, value2);
    double x1 = 0.0, y1 = 0.0, z1 = 0.0, x2 = 0.0, y2 = 0.0, z2 = 0.0;
    say(static_cast<long long>(search.Esegui(x1, y1, z1, x2, y2, z2)));
    for (const double each : {x1, y1, x2, y2})
        say(each);
}

void meet_segments(Words& words)
{
    const PL_PNT2D_record a = words.point(), b = words.point(), c = words.point(), d = words.point();
    const PL_LINE_2D_record first = {a, b};
    const PL_LINE_2D_record second = {c, d};
    PL_PNT2D_record point = {};
    say(static_cast<long long>(PlFunz_intersect_ls(&first, &second, &point)));
    say(point);
}

void polar_point(Words& words)
{
    const PL_PNT2D_record station = words.point(), reference = words.point();
    const double angle = words.d();
    PL_PNT2D_record point = {};
    CalcPtAngDist(&station, &reference, angle, words.d(), &point);
    say(point);
}

void offsets_of(Words& words)
{
    const PL_PNT2D_record a = words.point(), b = words.point(), point = words.point();
    PL_PNT2D_record foot = {};
    const double ordinate = DistSegmDaPt(&a, &b, &point, &foot);
    say(foot);
    say(DistPtSuSegmDaPt(&a, &b, &a, &foot));
    say(ordinate);
}

bool answer(const std::string& name, Words& words)
{
    if (name == "divide")
        divide(words);
    else if (name == "signed_area")
        say(AreaCalcolataSgn(points_of(words.ring())));
    else if (name == "fraz_area")
        fraz_area(words);
    else if (name == "meet_segments")
        meet_segments(words);
    else if (name == "polar_point")
        polar_point(words);
    else if (name == "offsets_of")
        offsets_of(words);
    else
        return false;
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    std::ifstream file(argc == 2 ? argv[1] : "");
    std::string line;
    int answered = 0;
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        Words words(line);
        const std::string name = words.name();
        std::printf("%s", name.c_str());
        if (!answer(name, words)) {
            std::fprintf(stderr, "there is no request '%s'\n", name.c_str());
            return 1;
        }
        std::printf("\n");
        ++answered;
    }
    return answered > 0 ? 0 : 1;
}
