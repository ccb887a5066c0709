/// The answers that the C++ libraries give to requests.txt: what every host must print.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "plcalc/plcalc.h"
#include "plparcel/division.h"
#include "plparcel/feasible.h"
#include "plparcel/which_side.h"

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

    plparcel::Parcel parcel()
    {
        const int rings = i();
        plparcel::Parcel parcel;
        parcel.outer = ring();
        for (int k = 1; k < rings; ++k)
            parcel.holes.push_back(ring());
        return parcel;
    }

    plparcel::Line line()
    {
        plparcel::Line line;
        line.cut = static_cast<plparcel::Cut>(i());
        line.index = index();
        line.ring = index();
        line.bearing = d();
        line.a = point();
        line.b = point();
        line.along = d();
        return line;
    }

    plparcel::Amount amount()
    {
        const auto given = static_cast<plparcel::Given>(i());
        const double first = d();
        return {given, first, d()};
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

plparcel::Request request_of(Words& words)
{
    plparcel::Request request;
    request.line = words.line();
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
    for (int left = words.i(); left > 0; --left)
        request.amounts.push_back(words.amount());
    return request;
}

void say(const plparcel::Division& division)
{
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

void divide(Words& words)
{
    const plparcel::Request request = request_of(words);
    say(plparcel::divide(words.parcel(), request));
}

void all_divisions(Words& words)
{
    const plparcel::Request request = request_of(words);
    const std::vector<plparcel::Division> all = plparcel::all_divisions(words.parcel(), request);
    say_count(all.size());
    for (const plparcel::Division& each : all)
        say(each);
}

void say(const std::optional<plparcel::Status>& refusal)
{
    std::printf(" '%s'", refusal ? plparcel::describe(*refusal) : "");
}

void say(const plparcel::AmountRange& range)
{
    say(range.least);
    say(range.most);
    say(static_cast<long long>(range.least_is_had));
    say(static_cast<long long>(range.most_is_had));
}

void say(const std::optional<double>& number)
{
    say(static_cast<long long>(number.has_value()));
    say(number.value_or(0.0));
}

void feasible(Words& words)
{
    const plparcel::Line line = words.line();
    const auto measured = static_cast<plparcel::Measured>(words.i());
    const auto pieces = static_cast<plparcel::Pieces>(words.i());
    const double area = words.d();
    const plparcel::Feasible found = plparcel::feasible(words.parcel(), line, measured, pieces);
    say(found.refusal);
    say(found.parcel);
    say_count(found.ranges.size());
    for (const plparcel::AmountRange& range : found.ranges)
        say(range);
    const plparcel::NearestAmounts nearest = plparcel::nearest_amounts(found.ranges, area);
    say(nearest.below);
    say(nearest.above);
    say(static_cast<long long>(nearest.below_is_had));
    say(static_cast<long long>(nearest.above_is_had));
}

void alternatives(Words& words)
{
    const plparcel::Amount amount = words.amount();
    const auto measured = static_cast<plparcel::Measured>(words.i());
    const std::size_t most = words.index();
    const plparcel::Alternatives found = plparcel::alternatives_for(words.parcel(), amount, measured, most);
    say(found.refusal);
    say_count(found.looked_at);
    say_count(found.of);
    say_count(found.lines.size());
    for (const plparcel::Alternative& each : found.lines) {
        say(static_cast<long long>(each.line.cut));
        say_count(each.line.index);
        say_count(each.line.ring);
        say(static_cast<long long>(each.measured));
        say(each.range);
    }
}

void say(const plparcel::Candidate& candidate)
{
    say_count(candidate.place.index);
    say_count(candidate.place.ring);
    for (const double each :
         {candidate.length, candidate.bearing, candidate.turned, candidate.distance, candidate.alongside})
        say(each);
}

void find(Words& words)
{
    const int wanted = words.i();
    const PL_PNT2D_record point = words.point();
    const double bearing = words.d();
    const double distance = words.d();
    const double angle = words.d();
    const double tied = words.d();
    std::vector<plparcel::Segment> segments(words.index());
    for (plparcel::Segment& segment : segments) {
        segment.from = words.point();
        segment.to = words.point();
    }
    const plparcel::OtherGeometry other(segments);
    const plparcel::Alongside alongside =
        angle == 0.0 ? plparcel::Alongside{distance} : plparcel::Alongside{distance, angle};
    const plparcel::Parcel parcel = words.parcel();
    const plparcel::Choice found = wanted == 0   ? plparcel::longest_side(parcel, tied)
                                   : wanted == 1 ? plparcel::shortest_side(parcel, tied)
                                   : wanted == 2 ? plparcel::side_near(parcel, point, tied)
                                   : wanted == 3 ? plparcel::side_facing(parcel, bearing, tied)
                                   : wanted == 4 ? plparcel::side_along(parcel, other, alongside, tied)
                                   : wanted == 5 ? plparcel::vertex_near(parcel, point, tied)
                                                 : plparcel::vertex_farthest(parcel, bearing, tied);
    std::printf(" '%s' '%s'", plparcel::describe(found.status), plparcel::describe(found.boundary));
    say(found.nearest);
    say_count(found.candidates.size());
    for (const plparcel::Candidate& candidate : found.candidates)
        say(candidate);
    if (found.next)
        say(*found.next);
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
    else if (name == "all_divisions")
        all_divisions(words);
    else if (name == "feasible")
        feasible(words);
    else if (name == "alternatives")
        alternatives(words);
    else if (name == "find")
        find(words);
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
