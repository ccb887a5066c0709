#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "docs.h"
#include "records.h"

namespace {

template <typename Record, typename... Fields, std::size_t... I>
Record made_of(Record (*make)(Fields...), const py::sequence& given, std::index_sequence<I...>)
{
    return make(given[I].template cast<Fields>()...);
}

/// A record that is made of its fields, or of a sequence of them, and shows, copies and compares them.
template <typename Record, typename... Fields>
py::class_<Record> add_record(py::module_& core, const char* name, Record (*make)(Fields...),
                              std::initializer_list<const char*> fields)
{
    py::class_<Record> record(core, name, doc(name));
    const std::vector<const char*> names(fields);
    record.def(py::init(make));
    record.def(py::init([make](const py::sequence& given) {
        if (given.size() != sizeof...(Fields))
            throw py::value_error("a record of " + std::to_string(sizeof...(Fields)) + " fields is needed");
        return made_of(make, given, std::index_sequence_for<Fields...>());
    }));
    py::implicitly_convertible<py::sequence, Record>();
    record.def("__repr__", [name, names](const py::object& self) {
        std::string text = std::string(name) + "(";
        for (std::size_t i = 0; i < names.size(); ++i)
            text += (i == 0 ? "" : ", ") + std::string(names[i]) + "=" +
                    py::repr(self.attr(names[i])).template cast<std::string>();
        return text + ")";
    });
    record.def("__iter__", [names](const py::object& self) {
        py::list values;
        for (const char* field : names)
            values.append(self.attr(field));
        return py::iter(values);
    });
    record.def("__copy__", [](const Record& self) { return Record(self); });
    record.def("__reduce__",
               [](const py::object& self) { return py::make_tuple(py::type::of(self), py::tuple(self)); });
    record.def("__eq__", [names](const py::object& self, const py::object& other) {
        if (!py::isinstance<Record>(other))
            return false;
        for (const char* field : names) {
            if (!self.attr(field).equal(other.attr(field)))
                return false;
        }
        return true;
    });
    return record;
}

}  // namespace

#define FIELD(record, field) def_readwrite(#field, &record::field, doc(#record "::" #field))

void add_records(py::module_& core)
{
    core.doc() = R"(plcalc and plutil under their own names.

Arguments come in the order of the C++ functions, without the outputs. Outputs are returned after the return value, in
their order. An output that is a record can be handed in by its name: it is then written in place, also where it is one of
the other arguments, if its function allows that. What a function has not written is NaN, or as it was handed in. What a
function both reads and writes is handed in and changed in place. Matrices are numpy arrays of 3 by 3 doubles. Where a
record is read, a sequence of its fields will do: PlFunz_distance((0, 0), (3, 4)).)";
    core.attr("PL_EPS") = PL_EPS;
    core.attr("PL_RADIANS") = static_cast<int>(PL_RADIANS);
    core.attr("PL_DEGREES") = static_cast<int>(PL_DEGREES);
    core.attr("PL_PSEUDO_ANGLE") = static_cast<int>(PL_PSEUDO_ANGLE);

    add_record(core, "PL_PNT2D_record",
               +[](double x, double y) {
                   return Point{x, y};
               },
               {"x", "y"})
        .FIELD(PL_PNT2D_record, x)
        .FIELD(PL_PNT2D_record, y);
    add_record(core, "PL_PNT3D_record",
               +[](double x, double y, double z) {
                   return PL_PNT3D_record{x, y, z};
               },
               {"x", "y", "z"})
        .FIELD(PL_PNT3D_record, x)
        .FIELD(PL_PNT3D_record, y)
        .FIELD(PL_PNT3D_record, z);
    add_record(core, "PL_LINE_2D_record",
               +[](Point start, Point end) {
                   return Segment{start, end};
               },
               {"start", "end"})
        .FIELD(PL_LINE_2D_record, start)
        .FIELD(PL_LINE_2D_record, end);
    add_record(core, "PL_IMP_LINE_2D_record",
               +[](double a, double b, double c) {
                   return ImplicitLine{a, b, c};
               },
               {"a", "b", "c"})
        .FIELD(PL_IMP_LINE_2D_record, a)
        .FIELD(PL_IMP_LINE_2D_record, b)
        .FIELD(PL_IMP_LINE_2D_record, c);
    add_record(core, "PL_RECT_2D_record",
               +[](double xmin, double ymin, double xmax, double ymax) {
                   return PL_RECT_2D_record{xmin, ymin, xmax, ymax};
               },
               {"xmin", "ymin", "xmax", "ymax"})
        .FIELD(PL_RECT_2D_record, xmin)
        .FIELD(PL_RECT_2D_record, ymin)
        .FIELD(PL_RECT_2D_record, xmax)
        .FIELD(PL_RECT_2D_record, ymax);
    add_record(core, "PL_RECT_3D_record",
               +[](double xmin, double ymin, double zmin, double xmax, double ymax, double zmax) {
                   return PL_RECT_3D_record{xmin, ymin, zmin, xmax, ymax, zmax};
               },
               {"xmin", "ymin", "zmin", "xmax", "ymax", "zmax"})
        .FIELD(PL_RECT_3D_record, xmin)
        .FIELD(PL_RECT_3D_record, ymin)
        .FIELD(PL_RECT_3D_record, zmin)
        .FIELD(PL_RECT_3D_record, xmax)
        .FIELD(PL_RECT_3D_record, ymax)
        .FIELD(PL_RECT_3D_record, zmax);
    add_record(core, "ARC_2D_record",
               +[](Point centre, double radius, int angle_type, double start_angle, double end_angle) {
                   return ARC_2D_record{centre, radius, static_cast<PL_AngleMeasType>(angle_type),
                                        start_angle, end_angle};
               },
               {"centre", "radius", "angle_type", "start_angle", "end_angle"})
        .FIELD(ARC_2D_record, centre)
        .FIELD(ARC_2D_record, radius)
        .FIELD(ARC_2D_record, start_angle)
        .FIELD(ARC_2D_record, end_angle)
        .def_property(
            "angle_type", [](const ARC_2D_record& arc) { return static_cast<int>(arc.angle_type); },
            [](ARC_2D_record& arc, int type) { arc.angle_type = static_cast<PL_AngleMeasType>(type); },
            doc("ARC_2D_record::angle_type"));

    py::class_<CPoint3dVector>(core, "CPoint3dVector", doc("CPoint3dVector"))
        .def(py::init<>(), doc("CPoint3dVector::CPoint3dVector"))
        .def(py::init(&parcel_of), py::arg("points"),
             doc("CPoint3dVector::CPoint3dVector(std::initializer_list<CPoint3d> points)"))
        .def("Append", &CPoint3dVector::Append, py::arg("x"), py::arg("y"), py::arg("z"),
             doc("CPoint3dVector::Append"))
        .def(
            "Reserve", [](CPoint3dVector& self, int n) { self.Reserve(n < 0 ? 0 : n); }, py::arg("n"),
            doc("CPoint3dVector::Reserve"))
        .def("Clear", &CPoint3dVector::Clear, doc("CPoint3dVector::Clear"))
        .def("GetNoPoits", &CPoint3dVector::GetNoPoits, doc("CPoint3dVector::GetNoPoits"))
        .def(
            "GetXcoordAt",
            [](const CPoint3dVector& self, int index) {
                if (index < 0 || index >= self.GetNoPoits())
                    throw py::index_error("there is no such point");
                return self.GetXcoordAt(index);
            },
            py::arg("index"), doc("CPoint3dVector::GetXcoordAt"))
        .def(
            "GetYcoordAt",
            [](const CPoint3dVector& self, int index) {
                if (index < 0 || index >= self.GetNoPoits())
                    throw py::index_error("there is no such point");
                return self.GetYcoordAt(index);
            },
            py::arg("index"), doc("CPoint3dVector::GetYcoordAt"))
        .def("__len__", &CPoint3dVector::GetNoPoits)
        .def("__copy__", [](const CPoint3dVector& self) { return CPoint3dVector(self); });
    py::implicitly_convertible<py::array, CPoint3dVector>();
    py::implicitly_convertible<py::sequence, CPoint3dVector>();
}
