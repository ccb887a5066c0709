#include <cstring>
#include <stdexcept>
#include <string>

#include "docs.h"
#include "plcalc/version.h"

const char* doc(const char* name)
{
    for (std::size_t i = 0; i < kDocCount; ++i) {
        if (std::strcmp(kDocs[i].name, name) == 0)
            return kDocs[i].text;
    }
    throw std::logic_error(std::string("the headers do not document ") + name);
}

PYBIND11_MODULE(_plcalc, module)
{
    module.doc() = "What plcalc's Python package calls. Use plcalc, plcalc.core and plcalc.plparcel.";
    module.attr("version") = PlFunz_version();
    pybind11::module_ core = module.def_submodule("core");
    add_records(core);
    add_functions(core);
    add_subdivision(core);
    pybind11::module_ plparcel = module.def_submodule("plparcel");
    add_parcels(plparcel);
}
