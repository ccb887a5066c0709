#pragma once

// The texts of the public headers, which docstrings.py has collected, and the parts of the module.

#include <cstddef>

#include <pybind11/pybind11.h>

struct Doc {
    const char* name;
    const char* text;
};
extern const Doc kDocs[];
extern const std::size_t kDocCount;

/// The contract of a name of the headers. A name that has none does not load: the binding and the header differ.
const char* doc(const char* name);

void add_records(pybind11::module_& core);
void add_functions(pybind11::module_& core);
void add_subdivision(pybind11::module_& core);
void add_parcels(pybind11::module_& plparcel);
