#include <memory>
#include <mutex>
#include <tuple>

#include "docs.h"
#include "plcalc/subdivision.h"
#include "records.h"

namespace {

/// CFrazArea with a parcel of its own, which nobody changes while the search runs, and for one thread at a time.
class Cut {
public:
    Cut(const CPoint3dVector& poly, const Point& p1, const Point& p2, int modo, int tipo_area, double valore1,
        double valore2)
        : parcel_(std::make_shared<const CPoint3dVector>(poly)),
          search_(*parcel_, p1, p2, modo, tipo_area, valore1, valore2)
    {}

    Cut(const Cut& other) : Cut(other, std::lock_guard<std::mutex>(other.one_at_a_time_)) {}
    Cut& operator=(const Cut&) = delete;

    auto run()
    {
        const std::lock_guard<std::mutex> lock(one_at_a_time_);
        double x1 = kNaN, y1 = kNaN, z1 = kNaN, x2 = kNaN, y2 = kNaN, z2 = kNaN;
        const bool ran = search_.Esegui(x1, y1, z1, x2, y2, z2);
        return std::make_tuple(ran, x1, y1, z1, x2, y2, z2);
    }

private:
    Cut(const Cut& other, const std::lock_guard<std::mutex>&) : parcel_(other.parcel_), search_(other.search_)
    {}

    std::shared_ptr<const CPoint3dVector> parcel_;  // before the search, which refers to it
    CFrazArea search_;
    mutable std::mutex one_at_a_time_;
};

}  // namespace

void add_subdivision(py::module_& core)
{
    using py::arg;
    py::class_<Cut>(core, "CFrazArea", doc("CFrazArea"))
        .def(py::init<const CPoint3dVector&, const Point&, const Point&, int, int, double, double>(),
             arg("poly"), arg("p1"), arg("p2"), arg("modo"), arg("tipoArea"), arg("valore1"),
             arg("valore2") = 0.0, doc("CFrazArea::CFrazArea"))
        .def(
            "__copy__", [](const Cut& self) { return Cut(self); },
            doc("CFrazArea::CFrazArea(const CFrazArea& other)"))
        .def("Esegui", &Cut::run, py::call_guard<py::gil_scoped_release>(), doc("CFrazArea::Esegui"));
}
