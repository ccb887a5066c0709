#pragma once

// How records and outputs pass between Python and the library.

#include <cstddef>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include "plcalc/kernel.h"
#include "plutil/plutil.h"

namespace py = pybind11;

using Point = PL_PNT2D_record;
using Segment = PL_LINE_2D_record;
using ImplicitLine = PL_IMP_LINE_2D_record;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A record whose numbers are NaN: what an output holds that the function has not written.
template <typename Record> Record unwritten();
template <> inline Point unwritten()
{
    return {kNaN, kNaN};
}
template <> inline PL_PNT3D_record unwritten()
{
    return {kNaN, kNaN, kNaN};
}
template <> inline Segment unwritten()
{
    return {unwritten<Point>(), unwritten<Point>()};
}
template <> inline ImplicitLine unwritten()
{
    return {kNaN, kNaN, kNaN};
}
template <> inline PL_RECT_2D_record unwritten()
{
    return {kNaN, kNaN, kNaN, kNaN};
}
template <> inline PL_RECT_3D_record unwritten()
{
    return {kNaN, kNaN, kNaN, kNaN, kNaN, kNaN};
}
template <> inline ARC_2D_record unwritten()
{
    return {unwritten<Point>(), kNaN, PL_RADIANS, kNaN, kNaN};
}

/// A record that a function writes: the caller's, or a new one where the caller has given None.
template <typename Record> class Output : public py::object {
public:
    PYBIND11_OBJECT_DEFAULT(Output, py::object, is_none_or_record)

    /// The caller's record, or a new one.
    Record* get()
    {
        if (!*this || is_none())
            *this = py::reinterpret_steal<Output>(py::cast(unwritten<Record>()).release());
        return this->template cast<Record*>();
    }

private:
    static bool is_none_or_record(PyObject* given)
    {
        return given == Py_None || py::isinstance<Record>(py::handle(given));
    }
};

namespace pybind11::detail {
template <typename Record> struct handle_type_name<Output<Record>> {
    static constexpr auto name = make_caster<Record>::name;
};
}  // namespace pybind11::detail

/// A tuple that says in its signature what it holds.
template <typename Element> class TupleOf : public py::tuple {
public:
    using py::tuple::tuple;
};

namespace pybind11::detail {
template <typename Element> struct handle_type_name<TupleOf<Element>> {
    static constexpr auto name = const_name("Tuple[") + make_caster<Element>::name + const_name(", ...]");
};
}  // namespace pybind11::detail

/// Points of two or three columns; heights are left out.
using Points = py::array_t<double, py::array::c_style | py::array::forcecast>;

/// Whether there are so many columns.
inline bool has_columns(const Points& points, py::ssize_t columns)
{
    return points.ndim() == 2 && points.shape(1) == columns;
}

/// The points of a parcel, copied.
inline CPoint3dVector parcel_of(const Points& points)
{
    const bool flat = has_columns(points, 2);
    if (!flat && !has_columns(points, 3))
        throw py::value_error("points must be an array of two or three columns");
    if (points.shape(0) > std::numeric_limits<int>::max())
        throw py::value_error("there are too many points");
    CPoint3dVector parcel;
    parcel.Reserve(static_cast<int>(points.shape(0)));
    const double* xyz = points.data();
    for (py::ssize_t i = 0; i < points.shape(0); ++i, xyz += flat ? 2 : 3)
        parcel.Append(xyz[0], xyz[1], flat ? 0.0 : xyz[2]);
    return parcel;
}
