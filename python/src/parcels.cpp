#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <pybind11/stl.h>

#include "docs.h"
#include "kinds.h"
#include "plparcel/division.h"
#include "plparcel/extent.h"
#include "plparcel/feasible.h"
#include "plparcel/heights.h"
#include "plparcel/neighbours.h"
#include "plparcel/which_side.h"
#include "records.h"

namespace {

using namespace plparcel;
using py::arg;
using ReleaseGil = py::call_guard<py::gil_scoped_release>;
using Array = py::array_t<double>;

/// The vertices of an array of two columns, or of three, whose heights are left out.
Ring ring_of(const Points& points)
{
    const bool flat = has_columns(points, 2);
    if (points.size() == 0)
        return {};
    if (!flat && !has_columns(points, 3))
        throw py::value_error("a ring is an array of two or three columns");
    Ring ring(static_cast<std::size_t>(points.shape(0)));
    const double* xy = points.data();
    for (Point& vertex : ring) {
        vertex = {xy[0], xy[1]};
        xy += flat ? 2 : 3;
    }
    return ring;
}

Parcel with_holes(const Points& outer, const std::vector<Points>& holes)
{
    Parcel parcel;
    parcel.outer = ring_of(outer);
    for (const Points& hole : holes)
        parcel.holes.push_back(ring_of(hole));
    return parcel;
}

/// The vertices where they lie: an array that cannot be written and keeps its owner alive.
Array array_of(const Ring& ring, const py::object& owner)
{
    const auto count = static_cast<py::ssize_t>(ring.size());
    const double* data = ring.empty() ? nullptr : &ring.front().x;
    Array array({count, py::ssize_t{2}},
                {static_cast<py::ssize_t>(sizeof(Point)), py::ssize_t{sizeof(double)}}, data, owner);
    py::detail::array_proxy(array.ptr())->flags &= ~py::detail::npy_api::NPY_ARRAY_WRITEABLE_;
    return array;
}

TupleOf<Array> arrays_of(const std::vector<Ring>& rings, const py::object& owner)
{
    TupleOf<Array> arrays(rings.size());
    for (std::size_t i = 0; i < rings.size(); ++i)
        arrays[i] = array_of(rings[i], owner);
    return arrays;
}

/// The elements where they lie, each of which keeps its owner alive.
template <typename Element>
TupleOf<Element> elements_of(const std::vector<Element>& elements, const py::object& owner)
{
    TupleOf<Element> handles(elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i)
        handles[i] = py::cast(&elements[i], py::return_value_policy::reference_internal, owner);
    return handles;
}

/// A property that lies in its owner.
template <typename Owner, typename Element> auto inside(const std::vector<Element> Owner::*member)
{
    return [member](const py::object& self) { return elements_of(self.cast<const Owner&>().*member, self); };
}

template <typename Owner> auto ring_inside(const Ring Owner::*member)
{
    return [member](const py::object& self) { return array_of(self.cast<const Owner&>().*member, self); };
}

template <typename Owner> auto rings_inside(const std::vector<Ring> Owner::*member)
{
    return [member](const py::object& self) { return arrays_of(self.cast<const Owner&>().*member, self); };
}

/// The line from a vertex or a place of another ring.
Line of_ring(Line line, std::size_t ring)
{
    line.ring = ring;
    return line;
}

std::pair<std::size_t, std::size_t> pair_of(const std::size_t (&two)[2])
{
    return {two[0], two[1]};
}

}  // namespace

#define READ(record, field) def_readonly(#field, &record::field, doc("plparcel::" #record "::" #field))
#define VALUE(kind, name) value(#name, kind::name, doc("plparcel::" #kind "::" #name))

static void add_kinds(py::module_& m)
{
    py::enum_<Cut>(m, "Cut", doc("plparcel::Cut")) CUT_VALUES;
    py::enum_<Measured>(m, "Measured", doc("plparcel::Measured"))
        .value("from_reference", Measured::from_reference)
        .value("opposite", Measured::opposite);
    py::enum_<Given>(m, "Given", doc("plparcel::Given")) GIVEN_VALUES;
    py::enum_<Pieces>(m, "Pieces", doc("plparcel::Pieces")) PIECES_VALUES;
    py::enum_<BoundaryStatus>(m, "BoundaryStatus", doc("plparcel::BoundaryStatus")) BOUNDARY_STATUS_VALUES;
    py::enum_<Status>(m, "Status", doc("plparcel::Status")) STATUS_VALUES;
}

static void add_requests(py::module_& m)
{
    py::class_<Parcel>(m, "Parcel", doc("plparcel::Parcel"))
        .def(py::init([](const Points& outer) {
                 return Parcel{ring_of(outer), {}};
             }),
             arg("outer"))
        .def(py::init(&with_holes), arg("outer"), arg("holes"))
        .def_property_readonly("outer", ring_inside(&Parcel::outer), doc("plparcel::Parcel::outer"))
        .def_property_readonly("holes", rings_inside(&Parcel::holes), doc("plparcel::Parcel::holes"))
        .def("__reduce__", [](const py::object& self) {
            return py::make_tuple(py::type::of(self), py::make_tuple(self.attr("outer"), self.attr("holes")));
        });
    py::class_<Line>(m, "Line", doc("plparcel::Line"))
        .READ(Line, cut)
        .READ(Line, index)
        .READ(Line, ring)
        .READ(Line, bearing)
        .READ(Line, a)
        .READ(Line, b)
        .READ(Line, along)
        .def(py::pickle(
            [](const Line& line) {
                return py::make_tuple(line.cut, line.index, line.ring, line.bearing, line.a, line.b,
                                      line.along);
            },
            [](const py::tuple& kept) {
                Line line;
                line.cut = kept[0].cast<Cut>();
                line.index = kept[1].cast<std::size_t>();
                line.ring = kept[2].cast<std::size_t>();
                line.bearing = kept[3].cast<double>();
                line.a = kept[4].cast<Point>();
                line.b = kept[5].cast<Point>();
                line.along = kept[6].cast<double>();
                return line;
            }));
    py::class_<Amount>(m, "Amount", doc("plparcel::Amount"))
        .READ(Amount, given)
        .READ(Amount, first)
        .READ(Amount, second)
        .def(py::pickle(
            [](const Amount& amount) { return py::make_tuple(amount.given, amount.first, amount.second); },
            [](const py::tuple& kept) {
                return Amount{kept[0].cast<Given>(), kept[1].cast<double>(), kept[2].cast<double>()};
            }));
    py::class_<Rounding>(m, "Rounding", doc("plparcel::Rounding"))
        .def(py::init([](std::optional<int> decimals, double tolerance) {
                 return Rounding{decimals, tolerance};
             }),
             arg("decimals") = py::none(), arg("tolerance") = Rounding().tolerance)
        .READ(Rounding, decimals)
        .READ(Rounding, tolerance);
    py::class_<Request>(m, "Request", doc("plparcel::Request"))
        .def(py::init([](const Line& line, std::vector<Amount> amounts, Measured measured,
                         std::size_t alternative, Pieces pieces, const Rounding& rounding, bool ask_library) {
                 Request request;
                 request.line = line;
                 request.amounts = std::move(amounts);
                 request.measured = measured;
                 request.alternative = alternative;
                 request.pieces = pieces;
                 request.rounding = rounding;
                 request.ask_library = ask_library;
                 return request;
             }),
             arg("line"), arg("amounts"), arg("measured") = Measured::from_reference, arg("alternative") = 0,
             arg("pieces") = Pieces::two, arg("rounding") = Rounding(), arg("ask_library") = false)
        .READ(Request, line)
        .READ(Request, amounts)
        .READ(Request, measured)
        .READ(Request, alternative)
        .READ(Request, pieces)
        .READ(Request, rounding)
        .READ(Request, ask_library);
}

static void add_answers(py::module_& m)
{
    py::class_<RingReport>(m, "RingReport", doc("plparcel::RingReport"))
        .READ(RingReport, status)
        .READ(RingReport, repeated)
        .READ(RingReport, closed)
        .def_property_readonly(
            "meeting_sides", [](const RingReport& report) { return pair_of(report.meeting_sides); },
            doc("plparcel::RingReport::meeting_sides"))
        .def_property_readonly(
            "meeting_rings", [](const RingReport& report) { return pair_of(report.meeting_rings); },
            doc("plparcel::RingReport::meeting_rings"))
        .READ(RingReport, at_ring)
        .READ(RingReport, anticlockwise)
        .READ(RingReport, area)
        .READ(RingReport, perimeter);
    py::class_<plparcel::Segment>(m, "Segment", doc("plparcel::Segment"))
        .def_readonly("from_", &plparcel::Segment::from, doc("plparcel::Segment::from"))
        .def_readonly("to", &plparcel::Segment::to, doc("plparcel::Segment::to"));
    py::class_<DividingLine>(m, "DividingLine", doc("plparcel::DividingLine"))
        .def_readonly("from_", &DividingLine::from, doc("plparcel::DividingLine::from"))
        .READ(DividingLine, to)
        .def_property_readonly("segments", inside(&DividingLine::segments),
                               doc("plparcel::DividingLine::segments"))
        .READ(DividingLine, library_agrees)
        .READ(DividingLine, meets_again);
    py::class_<Piece>(m, "Piece", doc("plparcel::Piece"))
        .def_property_readonly("ring", ring_inside(&Piece::ring), doc("plparcel::Piece::ring"))
        .def_property_readonly("holes", rings_inside(&Piece::holes), doc("plparcel::Piece::holes"))
        .READ(Piece, amount)
        .READ(Piece, area)
        .READ(Piece, asked)
        .READ(Piece, residual);
    py::class_<Held>(m, "Held", doc("plparcel::Held"))
        .READ(Held, asked)
        .READ(Held, area)
        .READ(Held, residual)
        .READ(Held, pieces);
    py::class_<BareAnswer>(m, "BareAnswer", doc("plparcel::BareAnswer"))
        .READ(BareAnswer, done)
        .READ(BareAnswer, line);
    py::class_<Division>(m, "Division", doc("plparcel::Division"))
        .def_property_readonly(
            "divided", [](const Division& division) { return division.status == Status::divided; },
            "Whether the status is `divided`.")
        .READ(Division, status)
        .READ(Division, at_amount)
        .READ(Division, ring)
        .def_property_readonly("lines", inside(&Division::lines), doc("plparcel::Division::lines"))
        .def_property_readonly("pieces", inside(&Division::pieces), doc("plparcel::Division::pieces"))
        .def_property_readonly("held", inside(&Division::held), doc("plparcel::Division::held"))
        .READ(Division, decimals)
        .def_property_readonly("bare", inside(&Division::bare), doc("plparcel::Division::bare"))
        .READ(Division, trials);
    py::class_<AmountRange>(m, "AmountRange", doc("plparcel::AmountRange"))
        .READ(AmountRange, least)
        .READ(AmountRange, most)
        .READ(AmountRange, least_is_had)
        .READ(AmountRange, most_is_had);
    py::class_<Extent>(m, "Extent", doc("plparcel::Extent"))
        .READ(Extent, low)
        .READ(Extent, high)
        .def("width", &Extent::width, doc("plparcel::Extent::width"))
        .def("height", &Extent::height, doc("plparcel::Extent::height"))
        .def("largest", &Extent::largest, doc("plparcel::Extent::largest"));
}

static void add_feasible(py::module_& m)
{
    py::class_<Feasible>(m, "Feasible", doc("plparcel::Feasible"))
        .READ(Feasible, refusal)
        .def_property_readonly("ranges", inside(&Feasible::ranges), doc("plparcel::Feasible::ranges"))
        .READ(Feasible, parcel);
    py::class_<NearestAmounts>(m, "NearestAmounts", doc("plparcel::NearestAmounts"))
        .READ(NearestAmounts, below)
        .READ(NearestAmounts, above)
        .READ(NearestAmounts, below_is_had)
        .READ(NearestAmounts, above_is_had);
    py::class_<Alternative>(m, "Alternative", doc("plparcel::Alternative"))
        .READ(Alternative, line)
        .READ(Alternative, measured)
        .READ(Alternative, range);
    py::class_<Alternatives>(m, "Alternatives", doc("plparcel::Alternatives"))
        .READ(Alternatives, refusal)
        .def_property_readonly("lines", inside(&Alternatives::lines), doc("plparcel::Alternatives::lines"))
        .READ(Alternatives, looked_at)
        .READ(Alternatives, of);
    m.def("feasible", &feasible, doc("plparcel::feasible"), arg("parcel"), arg("line"),
          arg("measured") = Measured::from_reference, arg("pieces") = Pieces::two, ReleaseGil());
    m.def("nearest_amounts", &nearest_amounts, doc("plparcel::nearest_amounts"), arg("ranges"),
          arg("amount"));
    m.def("alternatives_for", &alternatives_for, doc("plparcel::alternatives_for"), arg("parcel"),
          arg("amount"), arg("measured") = Measured::from_reference,
          arg("most") = static_cast<std::size_t>(-1), ReleaseGil());
}

static void add_neighbours(py::module_& m)
{
    using plparcel::NewPoint;
    using plparcel::SharedSides;
    using plparcel::WithPoints;
    py::class_<NewPoint>(m, "NewPoint", doc("plparcel::NewPoint")).READ(NewPoint, at).READ(NewPoint, side);
    py::class_<WithPoints>(m, "WithPoints", doc("plparcel::WithPoints"))
        .READ(WithPoints, parcel)
        .READ(WithPoints, inserted)
        .def_property_readonly("existing", ring_inside(&WithPoints::existing),
                               doc("plparcel::WithPoints::existing"))
        .READ(WithPoints, beside)
        .READ(WithPoints, farthest_beside)
        .READ(WithPoints, area_change)
        .READ(WithPoints, left_out);
    m.def("new_points", &plparcel::new_points, doc("plparcel::new_points"), arg("parcel"), arg("division"),
          ReleaseGil());
    m.def("pieces_with_corners", &plparcel::pieces_with_corners, doc("plparcel::pieces_with_corners"),
          arg("parcel"), arg("division"), ReleaseGil());
    py::class_<Heights>(m, "Heights", doc("plparcel::Heights"))
        .def(py::init<const Parcel&, const std::vector<double>&, const std::optional<int>&, double>(),
             arg("parcel"), arg("heights"), arg("decimals") = py::none(), arg("off_boundary") = 0.0,
             ReleaseGil())
        .def("at", &Heights::at, doc("plparcel::Heights::at"), arg("p"));
    py::class_<SharedSides>(m, "SharedSides", doc("plparcel::SharedSides"))
        .def(py::init([](std::vector<NewPoint> points, double within, const std::vector<Parcel>& layer) {
                 return SharedSides(std::move(points), within, [&](const SharedSides::Take& take) {
                     for (const Parcel& parcel : layer)
                         take(parcel);
                 });
             }),
             arg("points"), arg("within"), arg("layer") = std::vector<Parcel>{}, ReleaseGil())
        .def("with_points", &SharedSides::with_points, doc("plparcel::SharedSides::with_points"),
             arg("parcel"), ReleaseGil());
}

static void add_choices(py::module_& m)
{
    py::enum_<ChoiceStatus>(m, "ChoiceStatus", doc("plparcel::ChoiceStatus")) CHOICE_STATUS_VALUES;
    py::class_<BoundaryPlace>(m, "BoundaryPlace", doc("plparcel::BoundaryPlace"))
        .READ(BoundaryPlace, ring)
        .READ(BoundaryPlace, index);
    py::class_<Candidate>(m, "Candidate", doc("plparcel::Candidate"))
        .READ(Candidate, place)
        .READ(Candidate, length)
        .READ(Candidate, bearing)
        .READ(Candidate, turned)
        .READ(Candidate, distance)
        .READ(Candidate, alongside);
    py::class_<Choice>(m, "Choice", doc("plparcel::Choice"))
        .READ(Choice, status)
        .READ(Choice, boundary)
        .def_property_readonly("candidates", inside(&Choice::candidates), doc("plparcel::Choice::candidates"))
        .READ(Choice, next)
        .READ(Choice, nearest);
    py::class_<OtherGeometry>(m, "OtherGeometry", doc("plparcel::OtherGeometry"))
        .def(py::init([](const std::vector<std::pair<Point, Point>>& segments) {
                 std::vector<plparcel::Segment> given;
                 given.reserve(segments.size());
                 for (const auto& [from, to] : segments)
                     given.push_back({from, to});
                 return OtherGeometry(given);
             }),
             arg("segments"), doc("plparcel::OtherGeometry::OtherGeometry"));
    py::class_<Alongside>(m, "Alongside", doc("plparcel::Alongside"))
        .def(py::init([](double distance, double angle_gon) {
                 return Alongside{distance, angle_gon};
             }),
             arg("distance"), arg("angle_gon") = Alongside{0.0}.angle_gon)
        .READ(Alongside, distance)
        .READ(Alongside, angle_gon);

    const auto add = [&m](const char* name, const auto& function, const auto&... more) {
        m.def(name, function, doc(("plparcel::" + std::string(name)).c_str()), arg("parcel"), more...,
              ReleaseGil());
    };
    add("longest_side", &longest_side, arg("tied_within") = 0.0);
    add("shortest_side", &shortest_side, arg("tied_within") = 0.0);
    add("side_near", &side_near, arg("point"), arg("tied_within") = 0.0);
    add("side_facing", &side_facing, arg("bearing_gon"), arg("tied_within_gon") = 0.0);
    add("vertex_near", &vertex_near, arg("point"), arg("tied_within") = 0.0);
    add("vertex_farthest", &vertex_farthest, arg("bearing_gon"), arg("tied_within") = 0.0);
    add("side_along", &side_along, arg("other"), arg("alongside"), arg("tied_within") = 0.0);
    m.def("describe", py::overload_cast<ChoiceStatus>(&describe),
          doc("plparcel::describe(ChoiceStatus status)"), arg("status"));
}

static void add_calls(py::module_& m)
{
    const auto add = [&m](const char* name, const auto& function, const auto&... more) {
        m.def(name, function, doc(("plparcel::" + std::string(name)).c_str()), more...);
    };
    add("parallel_to", &parallel_to, arg("side"), arg("ring") = 0);
    add("perpendicular_to", &perpendicular_to, arg("side"), arg("ring") = 0);
    add(
        "through_vertex",
        [](std::size_t vertex, std::size_t ring) { return of_ring(through_vertex(vertex), ring); },
        arg("vertex"), arg("ring") = 0);
    add("at_bearing", &at_bearing, arg("bearing_gon"));
    add("along_segment", &along_segment, arg("a"), arg("b"));
    add(
        "through_place",
        [](std::size_t side, double along, std::size_t ring) {
            return of_ring(through_place(side, along), ring);
        },
        arg("side"), arg("along"), arg("ring") = 0);
    add("through_point", &through_point, arg("point"), arg("bearing") = 0.0);
    add("area", &area, arg("value"));
    add("product", &product, arg("length1"), arg("length2"));
    add("share", &share, arg("part"), arg("of"));
    add("width", &width, arg("distance"));
    add("equal_parts", &equal_parts, arg("n"));
    m.def("describe", py::overload_cast<BoundaryStatus>(&describe),
          doc("plparcel::describe(BoundaryStatus status)"), arg("status"));
    m.def("describe", py::overload_cast<Status>(&describe), doc("plparcel::describe(Status status)"),
          arg("status"));
    m.def("describe", py::overload_cast<const Division&>(&describe),
          doc("plparcel::describe(const Division& division)"), arg("division"));
    add(
        "rounded_to",
        [](double value, int decimals) {
            if (decimals < 0 || decimals > kMostDecimals)
                throw py::value_error("decimals are a number from 0 to 17");
            return rounded_to(value, decimals);
        },
        arg("value"), arg("decimals"));

    add(
        "check_ring",
        [](const Points& ring) {
            const Ring vertices = ring_of(ring);
            const py::gil_scoped_release release;
            return check_ring(vertices);
        },
        arg("ring"));
    add("check_parcel", &check_parcel, arg("parcel"), ReleaseGil());
    add(
        "extent_of", [](const Points& ring) { return extent_of(ring_of(ring)); }, arg("ring"));
    add(
        "coordinate_spacing", [](const Points& ring) { return coordinate_spacing(ring_of(ring)); },
        arg("ring"));
    m.def("divide", py::overload_cast<const Parcel&, const Request&>(&divide),
          doc("plparcel::divide(const Parcel& parcel, const Request& request)"), arg("parcel"),
          arg("request"), ReleaseGil());
    m.def(
        "divide",
        [](const Parcel& parcel, const Line& line, std::vector<Amount> amounts, bool opposite,
           std::size_t alternative, bool any_pieces, std::optional<int> decimals, double tolerance) {
            Request request;
            request.line = line;
            request.amounts = std::move(amounts);
            request.measured = opposite ? Measured::opposite : Measured::from_reference;
            request.alternative = alternative;
            request.pieces = any_pieces ? Pieces::any : Pieces::two;
            request.rounding = {decimals, tolerance};
            const py::gil_scoped_release release;
            return divide(parcel, request);
        },
        "The same, of the fields of a request.", arg("parcel"), arg("line"), arg("amounts"), arg("opposite"),
        arg("alternative"), arg("any_pieces"), arg("decimals"), arg("tolerance"));
    m.def(
        "divide",
        [](const Points& ring, const Request& request) {
            const Ring vertices = ring_of(ring);
            const py::gil_scoped_release release;
            return divide(vertices, request);
        },
        doc("plparcel::divide"), arg("ring"), arg("request"));
    m.def("all_divisions", py::overload_cast<const Parcel&, const Request&>(&all_divisions),
          doc("plparcel::all_divisions(const Parcel& parcel, const Request& request)"), arg("parcel"),
          arg("request"), ReleaseGil());
    add(
        "all_divisions",
        [](const Points& ring, const Request& request) {
            const Ring vertices = ring_of(ring);
            const py::gil_scoped_release release;
            return all_divisions(vertices, request);
        },
        arg("ring"), arg("request"));
}

void add_parcels(py::module_& plparcel)
{
    plparcel.doc() = R"(plparcel under its own names: division of a parcel with proof.

A ring is an array of two columns, x and y. Records cannot be changed once made. `from` is called `from_` here. The rings of
an answer are arrays that lie in it; they cannot be written.)";
    plparcel.attr("kMostDecimals") = kMostDecimals;
    plparcel.attr("kTiedWithin") = kTiedWithin;
    plparcel.attr("kTiedWithinGon") = kTiedWithinGon;
    add_kinds(plparcel);
    add_requests(plparcel);
    add_answers(plparcel);
    add_calls(plparcel);
    add_choices(plparcel);
    add_feasible(plparcel);
    add_neighbours(plparcel);
}
